/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MessageWindow.h"

#include <cstring>

#include <Font.h>
#include <InterfaceDefs.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <ScrollView.h>
#include <TextView.h>

#include "AppMessages.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "EntryLine.h"
#include "HotlineNotifications.h"
#include "KeptSelection.h"


static constexpr rgb_color kIncomingColor = {180, 0, 0, 255};
static constexpr rgb_color kOutgoingColor = {0, 0, 180, 255};

// Of the window's own request to quit, which follows that of whoever closes it.
static const char* const kSecondStep = "second step";


/*!	\param socket The other user's id.
	\param connection The number of the connection on which that user is.
*/
MessageWindow::MessageWindow(BRect frame, BLooper* target, uint16 socket, const char* nick,
	uint32 connection)
	: BWindow(frame, "Message", B_DOCUMENT_WINDOW, B_AUTO_UPDATE_SIZE_LIMITS),
	  fChatView(new BTextView("pmchat", B_WILL_DRAW | B_PULSE_NEEDED)),
	  fChatScroll(new BScrollView("pmscroll", fChatView, B_WILL_DRAW | B_FRAME_EVENTS, false, true,
		  B_FANCY_BORDER)),
	  fInput(new EntryLine("pminput", new BMessage(kMsgPMSend))),
	  fTarget(target),
	  fSocket(socket),
	  fConnection(connection),
	  fIsClosing(false)
{
	fChatView->MakeEditable(false);
	fChatView->SetStylable(true);
	fChatView->SetWordWrap(true);

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, 0)
		.Add(fChatScroll, 1.0f)
		.AddGroup(B_HORIZONTAL, 0, 1.0f)
			.SetInsets(B_USE_SMALL_INSETS)
			.Add(fInput);
	// clang-format on

	SetNick(nick);
	fInput->MakeFocus(true);
}


MessageWindow::~MessageWindow() = default;


/*!	Lines already shown keep the old name. */
void
MessageWindow::SetNick(const char* nick)
{
	fNick = nick;
	BString title;
	title << "Message — " << nick;
	SetTitle(title.String());
}


void
MessageWindow::AppendIncoming(const char* nick, const char* text)
{
	_AppendStyled(nick, kIncomingColor, text);
}


void
MessageWindow::AppendOutgoing(const char* text)
{
	_AppendStyled("You", kOutgoingColor, text);
}


/*!	Closes in two steps: whoever locks the window after the first one sees that it is closing, and
	what was posted before that arrives before the second one.
*/
void
MessageWindow::DispatchMessage(BMessage* message, BHandler* handler)
{
	if (message->what != B_QUIT_REQUESTED || message->GetBool(kSecondStep)) {
		BWindow::DispatchMessage(message, handler);
		return;
	}

	if (fIsClosing)
		return;
	fIsClosing = true;
	BMessage secondStep(B_QUIT_REQUESTED);
	secondStep.AddBool(kSecondStep, true);
	if (PostMessage(&secondStep) != B_OK)
		BWindow::DispatchMessage(message, handler);
}


void
MessageWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgPMReceived:
			if (fIsClosing)
				_ReturnReceived(message);
			else
				_HandleReceived(message);
			break;
		case kMsgPMSend:
			_HandleSend();
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


bool
MessageWindow::QuitRequested()
{
	BMessage notice(kMsgPMWinClosed);
	notice.AddUInt16("socket", fSocket);
	// A late notice is not to be taken for that of a later window for the same user.
	notice.AddPointer("window", this);
	AddConnection(&notice, fConnection);
	Deliver(fMessenger, &notice);
	return true;
}


/*!	An incoming message always brings the conversation to the front. */
void
MessageWindow::_HandleReceived(const BMessage* message)
{
	AppendIncoming(message->GetString("nick", fNick.String()), message->GetString("text", ""));
	if (IsMinimized())
		Minimize(false);
	Activate(true);
}


/*!	Has the controller take the message as if it had just arrived: another window will show it. */
void
MessageWindow::_ReturnReceived(const BMessage* message)
{
	BMessage returned(kHLMsgReceived);
	returned.AddString("text", message->GetString("text", ""));
	returned.AddString("nick", message->GetString("nick", fNick.String()));
	returned.AddUInt16("socket", fSocket);
	AddConnection(&returned, fConnection);
	Deliver(fMessenger, &returned);
}


/*!	Shows the line before it is sent, and whether or not it can be. */
void
MessageWindow::_HandleSend()
{
	const char* text = fInput->Text();
	if (text[0] == '\0')
		return;

	AppendOutgoing(text);
	BMessage request(kMsgPMSend);
	request.AddUInt16("socket", fSocket);
	request.AddString("text", text);
	AddConnection(&request, fConnection);
	Deliver(fMessenger, &request);
	fInput->SetText("");
}


void
MessageWindow::_AppendStyled(const char* name, rgb_color nameColor, const char* text)
{
	BString line;
	line << name << ": " << text << "\n";

	const KeptSelection selection(fChatView);
	const int32 start = fChatView->TextLength();
	const int32 nameEnd = start + static_cast<int32>(strlen(name)) + 2;
	const int32 end = start + line.Length();
	const rgb_color textColor = ui_color(B_DOCUMENT_TEXT_COLOR);

	fChatView->Insert(start, line.String(), line.Length());
	if (fChatView->TextLength() < end) {
		BMessage full(kMsgTextFull);
		AddConnection(&full, fConnection);
		Deliver(fMessenger, &full);
	}
	fChatView->SetFontAndColor(start, nameEnd, be_bold_font, B_FONT_ALL, &nameColor);
	fChatView->SetFontAndColor(nameEnd, end, be_plain_font, B_FONT_ALL, &textColor);
	fChatView->ScrollToOffset(fChatView->TextLength());
}
