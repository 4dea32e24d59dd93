/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AgreementWindow.h"

#include <Button.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <ScrollView.h>
#include <SeparatorView.h>
#include <StringView.h>
#include <TextView.h>

#include "AppMessages.h"
#include "ConnectionMark.h"
#include "Delivery.h"


/*!	\param text The agreement, shown as it stands; \c NULL for none.
	\param connection The number of the connection that the answer is meant for.
*/
AgreementWindow::AgreementWindow(BRect frame, BLooper* target, const char* text, uint32 connection)
	: BWindow(frame, "Server Agreement", B_TITLED_WINDOW,
		B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS | B_CLOSE_ON_ESCAPE),
	  fTextView(new BTextView("agreementtext", B_WILL_DRAW | B_PULSE_NEEDED)),
	  fTarget(target),
	  fConnection(connection),
	  fResponded(false)
{
	BStringView* label = new BStringView("label",
		"Please read and accept the server agreement to continue:");
	label->SetFont(be_bold_font, B_FONT_ALL);
	// One that may not be wider than its text would keep the window from being made wider.
	label->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, B_SIZE_UNSET));

	fTextView->MakeEditable(false);
	fTextView->MakeSelectable(true);
	fTextView->SetWordWrap(true);
	fTextView->SetStylable(false);
	if (text != NULL)
		fTextView->SetText(text);
	BScrollView* scrollView = new BScrollView("agreementscroll", fTextView,
		B_WILL_DRAW | B_FRAME_EVENTS, false, true, B_FANCY_BORDER);

	BButton* acceptButton = new BButton("accept", "Accept", new BMessage(kMsgAcceptAgreement));
	BButton* declineButton = new BButton("decline", "Decline", new BMessage(kMsgDeclineAgreement));

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, B_USE_DEFAULT_SPACING)
		.SetInsets(B_USE_WINDOW_INSETS)
		.Add(label)
		.Add(scrollView, 1.0f)
		.Add(new BSeparatorView(B_HORIZONTAL, B_PLAIN_BORDER))
		.AddGroup(B_HORIZONTAL, B_USE_DEFAULT_SPACING, 1.0f)
			.AddGlue(1.0f)
			.Add(declineButton)
			.Add(acceptButton);
	// clang-format on

	acceptButton->MakeDefault(true);
	CenterOnScreen();
}


AgreementWindow::~AgreementWindow() = default;


void
AgreementWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgAcceptAgreement:
		case kMsgDeclineAgreement:
			_Answer(message->what);
			PostMessage(B_QUIT_REQUESTED);
			break;
		default:
			BWindow::MessageReceived(message);
	}
}


/*!	Closing without a button declines. */
bool
AgreementWindow::QuitRequested()
{
	_Answer(kMsgDeclineAgreement);
	return true;
}


/*!	Posts the answer. Only the first one counts: a second button press may wait in the queue before
	the window's end.
*/
void
AgreementWindow::_Answer(uint32 answer)
{
	if (fResponded)
		return;
	fResponded = true;
	BMessage message(answer);
	AddConnection(&message, fConnection);
	Deliver(fMessenger, &message);
}
