/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AboutWindow.h"

#include <Button.h>
#include <LayoutBuilder.h>
#include <Message.h>

#include "AboutView.h"
#include "AppMessages.h"
#include "CreditsView.h"


/*!	\param appFolder Where the logo lies. */
AboutWindow::AboutWindow(const char* appFolder)
	: BWindow(BRect(0, 0, 300, 400), "About Palimbra", B_MODAL_WINDOW_LOOK, B_MODAL_APP_WINDOW_FEEL,
		B_NOT_RESIZABLE | B_NOT_ZOOMABLE | B_AUTO_UPDATE_SIZE_LIMITS | B_CLOSE_ON_ESCAPE),
	  fView(new AboutView(appFolder))
{
	BButton* okButton = new BButton("ok", "OK", new BMessage(kMsgOK));

	// clang-format off
	BLayoutBuilder::Group<>(this, B_VERTICAL, 0)
		.Add(fView)
		.Add(new CreditsView())
		.AddGroup(B_HORIZONTAL, B_USE_DEFAULT_SPACING, 1.0f)
			.SetInsets(0, 5.0f, 0, 10.0f)
			.AddGlue(1.0f)
			.Add(okButton)
			.AddGlue(1.0f);
	// clang-format on

	okButton->MakeDefault(true);
	CenterOnScreen();
}


AboutWindow::~AboutWindow() = default;


void
AboutWindow::MessageReceived(BMessage* message)
{
	switch (message->what) {
		case kMsgOK:
			PostMessage(B_QUIT_REQUESTED);
			break;
		default:
			BWindow::MessageReceived(message);
	}
}
