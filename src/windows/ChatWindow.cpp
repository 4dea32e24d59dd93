/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ChatWindow.h"

#include <cstring>

#include <Font.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <ScrollView.h>
#include <TextView.h>

#include "AppMessages.h"
#include "ConnectionMark.h"
#include "Delivery.h"
#include "EntryLine.h"
#include "KeptSelection.h"


/*!	\param packed Red, green, blue and alpha, from the highest byte to the lowest. */
static rgb_color
unpack_color(uint32 packed)
{
	return make_color(packed >> 24, packed >> 16 & 0xff, packed >> 8 & 0xff, packed & 0xff);
}


ChatWindow::ChatWindow(BRect frame, BLooper* target)
	: BWindow(frame, "Chat", B_DOCUMENT_WINDOW, B_AUTO_UPDATE_SIZE_LIMITS),
	  fChatView(new BTextView("chatview", B_WILL_DRAW | B_PULSE_NEEDED)),
	  fChatScroll(new BScrollView("chatscroll", fChatView, B_WILL_DRAW | B_FRAME_EVENTS, false,
		  true, B_FANCY_BORDER)),
	  fChatInput(new EntryLine("chatinput", new BMessage(kMsgSendChat))),
	  fTarget(target),
	  fConnection(0),
	  fIsFull(false)
{
	fChatView->MakeEditable(false);
	fChatView->MakeSelectable(true);
	fChatView->SetStylable(true);
	fChatView->SetWordWrap(true);
	fChatInput->SetEnabled(false);

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, 0)
		.Add(fChatScroll, 1.0f)
		.AddGroup(B_HORIZONTAL, 0, 1.0f)
			.Add(fChatInput);
	// clang-format on
}


ChatWindow::~ChatWindow() = default;


void
ChatWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgSendChat:
			_HandleSend();
			break;
		case kMsgAppendChat:
			_HandleAppend(message);
			break;
		case kMsgEnableChat:
			_HandleEnable(message);
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


/*!	The window stays, out of sight, and goes on collecting what is said. */
bool
ChatWindow::QuitRequested()
{
	Minimize(true);
	return false;
}


void
ChatWindow::_HandleSend()
{
	if (fChatInput->Text()[0] == '\0')
		return;

	BMessage request(kMsgSendChat);
	request.AddString("text", fChatInput->Text());
	AddConnection(&request, fConnection);
	Deliver(fMessenger, &request);
	fChatInput->SetText("");
}


void
ChatWindow::_HandleAppend(const BMessage* message)
{
	const char* text = message->GetString("text");
	if (text != NULL && !fIsFull)
		_AppendChat(text, unpack_color(static_cast<uint32>(message->GetInt32("color", 0))),
			ConnectionOf(message));
}


void
ChatWindow::_HandleEnable(const BMessage* message)
{
	const bool enabled = message->GetBool("enabled");
	fIsFull = false;
	fChatInput->SetEnabled(enabled);
	if (!enabled)
		return;
	// What is sent after the chat was disabled still is meant for that connection.
	fConnection = ConnectionOf(message);
	fChatInput->MakeFocus(true);
}


/*!	Appends the text as it stands and brings it into view, wherever the user has scrolled to.
	\param connection On which it was said; 0 for what the program says itself.
*/
void
ChatWindow::_AppendChat(const char* text, rgb_color color, uint32 connection)
{
	const KeptSelection selection(fChatView);
	const int32 end = fChatView->TextLength();
	const int32 length = static_cast<int32>(strlen(text));
	fChatView->SetFontAndColor(be_plain_font, B_FONT_ALL, &color);
	fChatView->Insert(end, text, length);
	// Wherever the view has taken the color of the insertion from.
	if (length > 0)
		fChatView->SetFontAndColor(end, end + length, be_plain_font, B_FONT_ALL, &color);
	if (connection != 0 && fChatView->TextLength() < end + length)
		_TellFull(connection);
	fChatView->ScrollToOffset(fChatView->TextLength());
}


/*!	What is still on its way will not be shown, until the controller has ended what it comes from. */
void
ChatWindow::_TellFull(uint32 connection)
{
	fIsFull = true;
	BMessage full(kMsgTextFull);
	AddConnection(&full, connection);
	Deliver(fMessenger, &full);
}
