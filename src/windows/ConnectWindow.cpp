/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectWindow.h"

#include <cstdlib>

#include <Button.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <SeparatorView.h>
#include <String.h>
#include <TextControl.h>
#include <TextView.h>

#include "AppMessages.h"
#include "Delivery.h"
#include "HotlineProtocol.h"


static const float kLabelSpacing = 8.0f;


ConnectWindow::ConnectWindow(BRect frame, BLooper* target)
	: BWindow(frame, "Connect to Server", B_TITLED_WINDOW_LOOK, B_MODAL_APP_WINDOW_FEEL,
		B_NOT_RESIZABLE | B_NOT_ZOOMABLE | B_ASYNCHRONOUS_CONTROLS | B_AUTO_UPDATE_SIZE_LIMITS
			| B_CLOSE_ON_ESCAPE),
	  fAddressField(NULL),
	  fPortField(NULL),
	  fLoginField(NULL),
	  fPasswordField(NULL),
	  fTarget(target)
{
	_InitFields();

	BButton* connectButton = new BButton("connect", "Connect", new BMessage(kMsgConnectBtn));
	BButton* cancelButton = new BButton("cancel", "Cancel", new BMessage(B_QUIT_REQUESTED));

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, B_USE_DEFAULT_SPACING)
		.SetInsets(B_USE_WINDOW_INSETS)
		.Add(fAddressField)
		.Add(fPortField)
		.Add(fLoginField)
		.Add(fPasswordField)
		.Add(new BSeparatorView(B_HORIZONTAL, B_PLAIN_BORDER))
		.AddGroup(B_HORIZONTAL, B_USE_DEFAULT_SPACING, 1.0f)
			.AddGlue(1.0f)
			.Add(cancelButton)
			.Add(connectButton);
	// clang-format on

	connectButton->MakeDefault(true);
	fAddressField->MakeFocus(true);
	CenterOnScreen();
}


ConnectWindow::~ConnectWindow() = default;


void
ConnectWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgConnectBtn:
			_HandleConnect();
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


bool
ConnectWindow::QuitRequested()
{
	return true;
}


void
ConnectWindow::_InitFields()
{
	BString defaultPort;
	defaultPort << static_cast<int32>(kDefaultPort);

	fAddressField = new BTextControl("address", "Address:", "", NULL);
	fPortField = new BTextControl("port", "Port:", defaultPort.String(), NULL);
	fLoginField = new BTextControl("login", "Login:", "", NULL);
	fPasswordField = new BTextControl("password", "Password:", "", NULL);
	fPasswordField->TextView()->HideTyping(true);

	// One divider for all, wide enough for the longest label, lines the entry boxes up.
	const float divider = fAddressField->StringWidth("Password:") + kLabelSpacing;
	fAddressField->SetDivider(divider);
	fPortField->SetDivider(divider);
	fLoginField->SetDivider(divider);
	fPasswordField->SetDivider(divider);
}


/*!	Without an address the dialog stays as it is. Login and password leave as they were typed. */
void
ConnectWindow::_HandleConnect()
{
	BString address(fAddressField->Text());
	address.Trim();
	if (address.IsEmpty())
		return;

	BMessage request(kMsgConnectServer);
	request.AddString("address", address);
	request.AddInt16("port", static_cast<int16>(_Port()));
	request.AddString("login", fLoginField->Text());
	request.AddString("password", fPasswordField->Text());
	Deliver(fMessenger, &request);

	PostMessage(B_QUIT_REQUESTED);
}


/*!	\return The typed port, with whatever follows its digits ignored; the protocol's own port for
		everything that is none.
*/
uint16
ConnectWindow::_Port() const
{
	// Unlike atoi() this has an answer for every number, however long.
	const long port = strtol(fPortField->Text(), NULL, 10);
	return port > 0 && port < 65536 ? static_cast<uint16>(port) : kDefaultPort;
}
