/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "AboutWindow.h"
#include "AgreementWindow.h"
#include "ChatWindow.h"
#include "ConnectWindow.h"
#include "DrawnRow.h"
#include "FileListWindow.h"
#include "MessageWindow.h"
#include "OptionsWindow.h"
#include "TemporaryFolder.h"
#include "TrackerWindow.h"
#include "UserListWindow.h"
#include "WindowTest.h"


class WindowLayoutTest : public WindowTest {};


TEST_F(WindowLayoutTest, EveryWindow_IsTidyAtTwoSizes)
{
	static const BRect kFrame(150, 150, 510, 500);

	const TemporaryFolder icons;
	icons.AddFile("1.png", picture_file(16, 16));
	BLooper* target = fTarget.get();
	BWindow* const windows[] = {
		new AboutWindow(icons.Path().c_str()),
		new AgreementWindow(kFrame, target, "Be kind.\nStay long."),
		new ChatWindow(kFrame, target),
		new ConnectWindow(kFrame, target),
		new FileListWindow(kFrame, target, "a/b", NULL),
		new MessageWindow(kFrame, target, 5, "Ann"),
		new OptionsWindow(kFrame, target, "Ann", 137, "tracker.example", icons.Path().c_str()),
		// Nobody asks a tracker without an address.
		new TrackerWindow(kFrame, target, ""),
		new UserListWindow(kFrame, target),
	};
	for (BWindow* window : windows) {
		SCOPED_TRACE(window->Title());
		Open(window);
		fWindow->ExpectTidyAtTwoSizes();
	}
}
