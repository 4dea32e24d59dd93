/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <initializer_list>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <SeparatorView.h>

#include "AppMessages.h"
#include "ControllerFixture.h"
#include "DrawnRow.h"
#include "HotlineNotifications.h"
#include "WaitFor.h"


/*!	What the main window shows: its menus, its toolbar and the banner above it. */
class MainWindowLayoutTest : public ControllerFixture {
protected:
	BRect _FrameOf(const char* view) { return fMain.Window()->FindView(view)->Frame(); }
};


TEST_F(MainWindowLayoutTest, Menus_HaveTheirItems)
{
	static const struct {
		const char* label; // empty for a separator
		uint32 what;
		char shortcut;
	} kItems[] = {{"Connect…", kMsgToolConnect, 'K'}, {"Disconnect", kMsgToolDisconnect, 'D'},
		{"", 0, 0}, {"Options…", kMsgToolOptions, 0}, {"About Palimbra", kMsgToolAbout, 0},
		{"", 0, 0}, {"Quit", B_QUIT_REQUESTED, 'Q'}, {"Chat", kMsgToolChat, '1'},
		{"Users", kMsgToolUsers, '2'}, {"Files", kMsgToolFiles, '3'},
		{"Tracker", kMsgToolTracker, 'T'}};

	const BMenuBar* bar = fMain.Find<BMenuBar>("menubar");
	EXPECT_EQ(static_cast<uint32>(B_WILL_DRAW | B_FRAME_EVENTS), bar->Flags());
	ASSERT_EQ(2, bar->CountItems());
	EXPECT_STREQ("Server", bar->ItemAt(0)->Label());
	EXPECT_STREQ("Windows", bar->ItemAt(1)->Label());
	ASSERT_EQ(7, bar->SubmenuAt(0)->CountItems());
	ASSERT_EQ(4, bar->SubmenuAt(1)->CountItems());
	for (int32 i = 0; i < 7 + 4; i++) {
		const auto& [label, what, shortcut] = kItems[i];
		SCOPED_TRACE(label);
		const BMenuItem* item = bar->SubmenuAt(i / 7)->ItemAt(i % 7);
		const bool isSeparator = dynamic_cast<const BSeparatorItem*>(item) != NULL;
		ASSERT_EQ(label[0] == '\0', isSeparator);
		if (isSeparator)
			continue;
		EXPECT_STREQ(label, item->Label());
		EXPECT_EQ(what, item->Command());
		EXPECT_EQ(shortcut, item->Shortcut());
		BLooper* target = NULL;
		item->Target(&target);
		EXPECT_EQ(fMain.Window(), target);
	}
}


TEST_F(MainWindowLayoutTest, Layout_IsTidyAtTwoSizes)
{
	fMain.ExpectTidyAtTwoSizes();
}


TEST_F(MainWindowLayoutTest, Window_MayBeMadeWide)
{
	fMain.ExpectMayBeWide();
}


TEST_F(MainWindowLayoutTest, Toolbar_IsInOrderWithOptionsAtTheRight)
{
	fMain.Window()->ResizeTo(900, fMain.Window()->Bounds().Height());
	EXPECT_SOON(_FrameOf("options").right > 800);
	std::map<float, std::string> row;
	for (int32 i = 0; i < fMain.Window()->CountChildren(); i++) {
		const BView* view = fMain.Window()->ChildAt(i);
		const bool isSeparator = dynamic_cast<const BSeparatorView*>(view) != NULL;
		if (isSeparator || view->Frame().top == _FrameOf("connect").top)
			row[view->Frame().left] = isSeparator ? "|" : view->Name();
	}
	std::string order;
	for (const auto& [left, name] : row)
		order += name + " ";
	EXPECT_EQ("connect disconnect | chat users files tracker options ", order);
	EXPECT_LT(900 - _FrameOf("options").right, 20);
	EXPECT_GT(_FrameOf("status").top, _FrameOf("connect").bottom);
}


// A server's name may have 255 letters.
TEST_F(MainWindowLayoutTest, LongServerName_DoesNotWidenTheWindow)
{
	fMain.Window()->Layout(true);
	const float width = fMain.Window()->Bounds().Width();
	Post(kHLServerInfo, "serverName", std::string(255, 'W'));
	fMain.Window()->Layout(true);
	EXPECT_EQ(width, fMain.Window()->Bounds().Width());
}


TEST_F(MainWindowLayoutTest, WideBanner_WidensTheWindowUntilItIsCleared)
{
	const std::string picture = picture_file(800, 60);
	BMessage banner(kMsgBannerData);
	banner.AddData("data", B_RAW_TYPE, picture.data(), static_cast<ssize_t>(picture.size()), false);
	fMain.Window()->Layout(true);
	const BRect compact = fMain.Window()->Bounds();
	EXPECT_LE(_FrameOf("banner").Height(), 0);
	for (const uint32 clearing :
		std::initializer_list<uint32>{kMsgToolDisconnect, kHLDisconnected}) {
		Post(&banner);
		// The window is as wide as it has become.
		EXPECT_SOON(_FrameOf("banner").Height() >= 59
			&& fMain.Window()->Bounds().Height() >= compact.Height() + 59);
		EXPECT_GE(_FrameOf("banner").Width(), 799);
		Post(clearing);
		EXPECT_SOON(_FrameOf("banner").Height() <= 0
			&& fMain.Window()->Bounds().Height() == compact.Height());
	}
}
