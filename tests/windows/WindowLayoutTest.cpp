/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <vector>

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


class WindowLayoutTest : public WindowTest {
protected:
	WindowLayoutTest() { fIcons.AddFile("1.png", picture_file(16, 16)); }

	/*!	\return One of each but for the main window. */
	std::vector<BWindow*> NewWindows()
	{
		static const BRect kFrame(150, 150, 510, 500);

		BLooper* target = fTarget.get();
		return {
			new AboutWindow(fIcons.Path().c_str()),
			new AgreementWindow(kFrame, target, "Be kind.\nStay long."),
			new ChatWindow(kFrame, target),
			new ConnectWindow(kFrame, target),
			new FileListWindow(kFrame, target, "a/b", NULL),
			new MessageWindow(kFrame, target, 5, "Ann"),
			new OptionsWindow(kFrame, target, "Ann", 137, "tracker.example", fIcons.Path().c_str()),
			// Nobody asks a tracker without an address.
			new TrackerWindow(kFrame, target, ""),
			new UserListWindow(kFrame, target),
		};
	}

	const TemporaryFolder fIcons;
};


TEST_F(WindowLayoutTest, EveryWindow_IsTidyAtTwoSizes)
{
	for (BWindow* window : NewWindows()) {
		SCOPED_TRACE(window->Title());
		Open(window);
		fWindow->ExpectTidyAtTwoSizes();
	}
}


TEST_F(WindowLayoutTest, EveryWindowThatMayBeResized_MayBeMadeWide)
{
	int32 count = 0;
	for (BWindow* window : NewWindows()) {
		SCOPED_TRACE(window->Title());
		Open(window);
		if ((window->Flags() & B_NOT_RESIZABLE) != 0)
			continue;
		fWindow->ExpectMayBeWide();
		count++;
	}
	EXPECT_EQ(7, count);
}


TEST_F(WindowLayoutTest, LabelsOfAWideWindow_ReachItsRightEdge)
{
	for (BWindow* window : NewWindows()) {
		SCOPED_TRACE(window->Title());
		Open(window);
		for (const char* name : {"label", "header", "iconheader", "iconlabel"}) {
			BView* label = window->FindView(name);
			if (label == NULL)
				continue;
			ASSERT_TRUE(window->Lock());
			window->ResizeTo(900, 600);
			window->Unlock();
			EXPECT_SOON(label->Frame().left < 20 && label->Frame().right > 880) << name;
		}
	}
}
