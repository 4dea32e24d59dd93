/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "MainWindow.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Button.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <SeparatorView.h>

#include "AppMessages.h"
#include "BannerView.h"
#include "ControllerFixture.h"
#include "HotlineNotifications.h"
#include "WaitFor.h"


/*!	What the main window shows: its menus, its toolbar and the banner above it. */
class MainWindowLayoutTest : public ControllerFixture {
protected:
	BRect _FrameOf(const char* view) { return fMain.Window()->FindView(view)->Frame(); }

	int32 _CountSeparatorsBetween(const char* left, const char* right)
	{
		int32 count = 0;
		for (int32 i = 0; i < fMain.Window()->CountChildren(); i++) {
			BView* view = fMain.Window()->ChildAt(i);
			if (dynamic_cast<BSeparatorView*>(view) != NULL
				&& view->Frame().left > _FrameOf(left).right
				&& view->Frame().right < _FrameOf(right).left)
				count++;
		}
		return count;
	}

	// Shows a banner of this many pixels, as the controller does.
	void _SetBanner(float width, float height)
	{
		BannerView* view = fMain.Find<BannerView>("banner");
		view->SetBitmap(new BBitmap(BRect(0, 0, width - 1, height - 1), B_RGBA32));
		view->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, height));
		fMain.Window()->InvalidateLayout();
	}
};


// #pragma mark - Menus


struct ExpectedItem {
	const char* label;
	uint32 what;
	char shortcut;
};


static void
expect_menu(const WindowProbe& window, int32 index, const char* title,
	const std::vector<ExpectedItem>& items)
{
	const BMenu* menu = window.Find<BMenuBar>("menubar")->SubmenuAt(index);
	EXPECT_STREQ(title, window.Find<BMenuBar>("menubar")->ItemAt(index)->Label());
	ASSERT_EQ(int32(items.size()), menu->CountItems());
	for (int32 i = 0; i < menu->CountItems(); i++) {
		const ExpectedItem& expected = items[size_t(i)];
		SCOPED_TRACE(expected.label);
		const BMenuItem* item = menu->ItemAt(i);
		if (expected.what == 0) {
			EXPECT_NE(nullptr, dynamic_cast<const BSeparatorItem*>(item));
			continue;
		}
		EXPECT_STREQ(expected.label, item->Label());
		EXPECT_EQ(expected.what, item->Command());
		EXPECT_EQ(expected.shortcut, item->Shortcut());
		BLooper* target = NULL;
		item->Target(&target);
		EXPECT_EQ(window.Window(), target);
	}
}


TEST_F(MainWindowLayoutTest, Menus_HaveTheirItems)
{
	EXPECT_EQ(2, fMain.Find<BMenuBar>("menubar")->CountItems());
	EXPECT_EQ(uint32(B_WILL_DRAW | B_FRAME_EVENTS), fMain.Find<BMenuBar>("menubar")->Flags());
	expect_menu(fMain, 0, "Server",
		{{"Connect…", kMsgToolConnect, 'K'}, {"Disconnect", kMsgToolDisconnect, 'D'}, {"", 0, 0},
			{"Options…", kMsgToolOptions, 0}, {"About Palimbra", kMsgToolAbout, 0}, {"", 0, 0},
			{"Quit", B_QUIT_REQUESTED, 'Q'}});
	expect_menu(fMain, 1, "Windows",
		{{"Chat", kMsgToolChat, '1'}, {"Users", kMsgToolUsers, '2'}, {"Files", kMsgToolFiles, '3'},
			{"Tracker", kMsgToolTracker, 'T'}});
}


TEST_F(MainWindowLayoutTest, Buttons_HaveTheirLabelsAndMessages)
{
	const struct {
		const char* name;
		const char* label;
		uint32 what;
	} buttons[] = {
		{"connect", "Connect", kMsgToolConnect},
		{"disconnect", "Disconnect", kMsgToolDisconnect},
		{"chat", "Chat", kMsgToolChat},
		{"users", "Users", kMsgToolUsers},
		{"files", "Files", kMsgToolFiles},
		{"tracker", "Tracker", kMsgToolTracker},
		{"options", "Options", kMsgToolOptions},
	};
	for (const auto& expected : buttons) {
		const BButton* button = fMain.Find<BButton>(expected.name);
		ASSERT_NE(nullptr, button) << expected.name;
		EXPECT_STREQ(expected.label, button->Label());
		EXPECT_EQ(expected.what, button->Command());
	}
}


// #pragma mark - Layout


TEST_F(MainWindowLayoutTest, Layout_IsTidyAtTwoSizes)
{
	fMain.ExpectTidyAtTwoSizes();
}


TEST_F(MainWindowLayoutTest, Toolbar_IsInOrderWithOptionsAtTheRight)
{
	fMain.Window()->ResizeTo(900, fMain.Window()->Bounds().Height());
	EXPECT_TRUE(WaitFor([this] {
		return _FrameOf("options").right > 800;
	}));
	float right = 0;
	for (const char* name :
		{"connect", "disconnect", "chat", "users", "files", "tracker", "options"}) {
		SCOPED_TRACE(name);
		EXPECT_GT(_FrameOf(name).left, right);
		EXPECT_EQ(_FrameOf("connect").top, _FrameOf(name).top);
		right = _FrameOf(name).right;
	}
	EXPECT_LT(900 - right, 20);
	EXPECT_EQ(1, _CountSeparatorsBetween("disconnect", "chat"));
	EXPECT_EQ(1, _CountSeparatorsBetween("connect", "options"));
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


TEST_F(MainWindowLayoutTest, WithoutABanner_ItsViewHasNoHeight)
{
	fMain.Window()->Layout(true);
	EXPECT_LE(_FrameOf("banner").Height(), 0);
}


TEST_F(MainWindowLayoutTest, WideBanner_WidensTheWindowUntilItIsCleared)
{
	fMain.Window()->Layout(true);
	const BRect compact = fMain.Window()->Bounds();
	_SetBanner(800, 60);
	EXPECT_TRUE(WaitFor([this] {
		return _FrameOf("banner").Width() >= 799;
	}));
	EXPECT_GE(_FrameOf("banner").Height(), 59);
	EXPECT_GE(fMain.Window()->Bounds().Height(), compact.Height() + 59);

	Post(kMsgToolDisconnect);
	EXPECT_TRUE(WaitFor([this] {
		return _FrameOf("banner").Height() <= 0;
	}));
	EXPECT_TRUE(WaitFor([&] {
		return fMain.Window()->Bounds().Height() == compact.Height();
	}));
}


TEST_F(MainWindowLayoutTest, ConnectionLost_ClearsTheBanner)
{
	_SetBanner(300, 60);
	EXPECT_TRUE(WaitFor([this] {
		return _FrameOf("banner").Height() >= 59;
	}));
	Post(kHLDisconnected);
	EXPECT_TRUE(WaitFor([this] {
		return _FrameOf("banner").Height() <= 0;
	}));
}


TEST_F(MainWindowLayoutTest, BannerView_AsksForThePicturesSize)
{
	BannerView* view = fMain.Find<BannerView>("banner");
	EXPECT_EQ(BSize(0, 0), view->MinSize());
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 0), view->MaxSize());
	EXPECT_EQ(BSize(0, 0), view->PreferredSize());
	_SetBanner(468, 60);
	EXPECT_EQ(BSize(468, 60), view->MinSize());
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 60), view->MaxSize());
	EXPECT_EQ(BSize(468, 60), view->PreferredSize());
}
