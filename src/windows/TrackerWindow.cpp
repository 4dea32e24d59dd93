/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerWindow.h"

#include <Button.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <ScrollView.h>
#include <StringView.h>

#include "AppMessages.h"
#include "Delivery.h"
#include "HotlineProtocol.h"
#include "ListRows.h"
#include "ServerItem.h"
#include "ToolTipListView.h"
#include "TrackerFetch.h"


TrackerWindow::TrackerWindow(BRect frame, BLooper* target, const char* trackerAddress)
	: BWindow(frame, "Tracker", B_DOCUMENT_WINDOW, B_AUTO_UPDATE_SIZE_LIMITS),
	  fServerList(new ToolTipListView("serverlist")),
	  fServerScroll(new BScrollView("serverscroll", fServerList, B_WILL_DRAW | B_FRAME_EVENTS,
		  false, true, B_FANCY_BORDER)),
	  fStatusLabel(new BStringView("status", "Loading…", B_WILL_DRAW)),
	  fTarget(target),
	  fTrackerAddress(trackerAddress),
	  fFetchThread(-1),
	  fRunning(true)
{
	fServerList->SetInvocationMessage(new BMessage(kMsgTrackerInvoke));
	fServerList->SetTarget(this);
	fStatusLabel->SetFont(be_plain_font, B_FONT_ALL);
	_InitLayout();

	BString title;
	title << "Tracker — " << fTrackerAddress;
	SetTitle(title.String());

	_StartFetch();
}


TrackerWindow::~TrackerWindow()
{
	fRunning = false;
	if (fFetchThread >= 0) {
		fFetch->Stop();
		status_t result;
		wait_for_thread(fFetchThread, &result);
	}
	DeleteRows(fServerList);
}


void
TrackerWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgTrackerServer:
			_HandleServer(message);
			break;
		case kMsgTrackerDone:
			_HandleDone();
			break;
		case kMsgTrackerError:
			_HandleError(message);
			break;
		case kMsgTrackerRefresh:
			_HandleRefresh();
			break;
		case kMsgTrackerInvoke:
			_HandleInvoke();
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


bool
TrackerWindow::QuitRequested()
{
	fRunning = false;
	return true;
}


void
TrackerWindow::_InitLayout()
{
	BButton* refreshButton = new BButton("refresh", "Refresh", new BMessage(kMsgTrackerRefresh));

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, B_USE_SMALL_SPACING)
		.Add(fServerScroll, 1.0f)
		.AddGroup(B_HORIZONTAL, B_USE_SMALL_SPACING)
			.SetInsets(B_USE_SMALL_INSETS, 0, B_USE_SMALL_INSETS, 0)
			.Add(fStatusLabel)
			.AddGlue()
			.Add(refreshButton);
	// clang-format on
}


void
TrackerWindow::_StartFetch()
{
	fFetch = std::make_shared<TrackerFetch>(fTrackerAddress.String(), fRunning, this);
	fFetchThread = spawn_thread(_FetchThreadEntry, "TrackerFetch", B_NORMAL_PRIORITY, this);
	if (fFetchThread < 0 || resume_thread(fFetchThread) != B_OK) {
		fFetchThread = -1;
		_ShowError("Could not create tracker thread");
	}
}


/*!	While the listing arrives the label says "servers" for one server, too. */
void
TrackerWindow::_HandleServer(const BMessage* message)
{
	fServerList->AddItem(new ServerItem(message->GetString("name", ""),
		message->GetString("desc", ""), message->GetString("ip", ""),
		static_cast<uint16>(message->GetInt16("port", static_cast<int16>(kDefaultPort))),
		static_cast<uint16>(message->GetInt16("users", 0))));

	BString text;
	text << fServerList->CountItems() << " servers";
	fStatusLabel->SetText(text.String());
}


void
TrackerWindow::_HandleDone()
{
	fFetchThread = -1;

	const int32 count = fServerList->CountItems();
	BString text("No servers found");
	if (count > 0)
		text.SetToFormat("%" B_PRId32 " server%s", count, count == 1 ? "" : "s");
	fStatusLabel->SetText(text.String());
}


void
TrackerWindow::_HandleError(const BMessage* message)
{
	fFetchThread = -1;
	_ShowError(message->GetString("error", "Unknown error"));
}


void
TrackerWindow::_ShowError(const char* error)
{
	BString text("Error: ");
	text << error;
	fStatusLabel->SetText(text.String());
}


/*!	A fetch that is still running goes on, and fills the emptied list. */
void
TrackerWindow::_HandleRefresh()
{
	DeleteRows(fServerList);
	fStatusLabel->SetText("Loading…");
	if (fFetchThread < 0) {
		fRunning = true;
		_StartFetch();
	}
}


void
TrackerWindow::_HandleInvoke()
{
	const ServerItem* server = SelectedRow<ServerItem>(fServerList);
	if (server == NULL)
		return;

	BMessage request(kMsgConnectServer);
	request.AddString("address", server->Address());
	request.AddInt16("port", static_cast<int16>(server->Port()));
	request.AddString("login", "");
	request.AddString("password", "");
	Deliver(fMessenger, &request);
}


// #pragma mark - The fetch thread


status_t
TrackerWindow::_FetchThreadEntry(void* data)
{
	return static_cast<TrackerWindow*>(data)->_FetchServers();
}


/*!	Touches no view: everything reaches the window as messages, the last of which ends the fetch. */
status_t
TrackerWindow::_FetchServers()
{
	const std::shared_ptr<TrackerFetch> fetch = fFetch;
	return fetch->Run();
}
