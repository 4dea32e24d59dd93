/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include <Button.h>
#include <Menu.h>
#include <MenuBar.h>
#include <MenuItem.h>
#include <Message.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "UserInput.h"
#include "WindowInput.h"


static const uint32 kOpen = 'open';


/*!	As the user does it. */
static status_t
choose(BMenuItem* item)
{
	return static_cast<BInvoker*>(item)->Invoke();
}


TEST(MenuTest, Items_AreFoundByPlaceLabelAndCommand_AndHaveShortcuts)
{
	BMenuBar bar("bar");
	BMenu* menu = new BMenu("Server");
	BMenuItem* open = new BMenuItem("Open & shut…", new BMessage(kOpen), 'o');
	EXPECT_TRUE(menu->AddItem(open));
	EXPECT_TRUE(menu->AddSeparatorItem());
	EXPECT_TRUE(bar.AddItem(menu));

	EXPECT_EQ(1, bar.CountItems());
	EXPECT_EQ(2, menu->CountItems());
	EXPECT_EQ(menu, bar.SubmenuAt(0));
	EXPECT_STREQ("Server", bar.ItemAt(0)->Label());
	EXPECT_EQ(&bar, menu->Supermenu());
	EXPECT_EQ(open, bar.FindItem("Open & shut…"));
	EXPECT_EQ(open, bar.FindItem(kOpen));
	EXPECT_EQ(NULL, bar.FindItem("Close"));
	EXPECT_EQ(0, menu->IndexOf(open));
	EXPECT_EQ(NULL, menu->ItemAt(2));
	EXPECT_FALSE(bar.AddItem(menu));
	EXPECT_FALSE(bar.AddItem(open));

	uint32 modifiers = 0;
	const BMenuItem item("Open", new BMessage(kOpen), 'O', B_SHIFT_KEY);
	EXPECT_EQ('O', item.Shortcut(&modifiers));
	EXPECT_EQ(static_cast<uint32>(B_COMMAND_KEY | B_SHIFT_KEY), modifiers);

	const BMenuItem plain("Close", NULL);
	EXPECT_EQ(0, plain.Shortcut(&modifiers));
	EXPECT_EQ(0u, modifiers);
}


TEST(MenuTest, ChosenItem_SendsItsMessageToTheWindow_OrToItsTarget)
{
	OwnedWindow window;
	BMenuItem* item = new BMenuItem("Open", new BMessage(kOpen));
	BMenuItem* silent = new BMenuItem("Close", NULL);
	BMenu* menu = AddMenu(window, {silent, item});
	BMenuItem* later = new BMenuItem("Later", new BMessage('late'));
	menu->AddItem(later);
	ShowAndWait(window);

	int32 index = -1;
	window->onMessage = [&](BMessage* message) {
		index = message->GetInt32("index", -1);
		EXPECT_TRUE(message->HasData("be:sender", B_MESSENGER_TYPE));
	};
	EXPECT_EQ(B_BAD_VALUE, choose(silent));
	EXPECT_EQ(B_OK, choose(item));
	EXPECT_SOON(window->Received()->size() == 1);
	EXPECT_EQ(kOpen, window->Received()->front());
	EXPECT_EQ(1, index);

	EXPECT_EQ(B_OK, choose(later));
	EXPECT_SOON(window->Received()->size() == 2);
	EXPECT_EQ(2, index);

	OwnedWindow target;
	BMenuItem* aimed = new BMenuItem("Open", new BMessage(kOpen));
	aimed->SetTarget(target);
	menu->AddItem(aimed);
	EXPECT_EQ(target, aimed->Target());
}


TEST(MenuTest, QuitItem_AsksTheWindow)
{
	OwnedWindow window;
	const BMessenger messenger(window);
	bool wasAsked = false;
	BMenuItem* quit = new BMenuItem("Quit", new BMessage(B_QUIT_REQUESTED), 'Q');
	AddMenu(window, {quit});
	ShowAndWait(window);
	window->onQuitRequested = [&] {
		wasAsked = true;
		return true;
	};

	choose(quit);
	EXPECT_SOON(!messenger.IsValid());
	EXPECT_TRUE(wasAsked);
}


/*!	A window with a button that has the focus, below a bar with two menus. */
class MenuKeyTest : public testing::Test {
protected:
	MenuKeyTest()
		: fButton(new BButton("push", "Push", new BMessage('push')))
	{
		BMenu* server = AddMenu(fWindow, {new BMenuItem("Open & shut…", new BMessage(kOpen), 'O')});
		server->AddSeparatorItem();
		server->AddItem(new BMenuItem("Close", new BMessage('clos')));
		BMenu* windows = new BMenu("Windows");
		windows->AddItem(new BMenuItem("Chat", new BMessage('chat')));
		server->Supermenu()->AddItem(windows);
		fWindow->AddChild(fButton);
		ShowAndWait(fWindow);
		fButton->MakeFocus(true);
		EXPECT_SOON(fWindow->IsActive());
	}

	bool WaitForMark(const char* label)
	{
		return WaitFor([&] {
			return marked_menu_item() == label;
		});
	}

	bool WaitForMessage(uint32 what)
	{
		return WaitFor([&] {
			return !fWindow->Received()->empty() && fWindow->Received()->back() == what;
		});
	}

	OwnedWindow fWindow;
	BButton* fButton;
};


TEST_F(MenuKeyTest, TheKey_OpensTheFirstMenu_ArrowsTheNext_AndReturnChooses)
{
	press_menu_key(fWindow);
	EXPECT_TRUE(WaitForMark("Open & shut…")) << marked_menu_item();
	press_window_key(fWindow, B_DOWN_ARROW);
	EXPECT_EQ("Close", marked_menu_item());
	press_window_key(fWindow, B_ENTER);
	EXPECT_TRUE(WaitForMessage('clos'));
	EXPECT_EQ("", marked_menu_item());
	EXPECT_TRUE(fButton->IsFocus());

	press_menu_key(fWindow);
	ASSERT_TRUE(WaitForMark("Open & shut…")) << marked_menu_item();
	press_window_key(fWindow, B_RIGHT_ARROW);
	EXPECT_TRUE(WaitForMark("Chat")) << marked_menu_item();
	press_window_key(fWindow, B_ENTER);
	EXPECT_TRUE(WaitForMessage('chat'));
}


TEST_F(MenuKeyTest, Label_IsShownAsItStands)
{
	for (const char* label : {"&File", "&&", "<b>bold</b> &amp;", "%s %n 100 %", "Title [*]"}) {
		SCOPED_TRACE(label);
		delete fWindow->FindView("bar");
		AddMenu(fWindow, {new BMenuItem(label, NULL)});
		press_menu_key(fWindow);
		EXPECT_TRUE(WaitForMark(label)) << marked_menu_item();
		press_window_key(fWindow, B_ESCAPE);
		press_window_key(fWindow, B_ESCAPE);
	}
}


TEST_F(MenuKeyTest, Escape_LeavesTheMenuThenTheBar_AndEverythingAsItWas)
{
	BView* bar = fWindow->FindView("bar");
	const std::string before = picture_of(bar);
	press_menu_key(fWindow);
	ASSERT_TRUE(WaitForMark("Open & shut…")) << marked_menu_item();
	press_window_key(fWindow, B_ESCAPE);
	EXPECT_EQ("", marked_menu_item());
	EXPECT_FALSE(fButton->IsFocus());
	EXPECT_TRUE(before != picture_of(bar));
	press_window_key(fWindow, B_ESCAPE);
	EXPECT_TRUE(fButton->IsFocus());
	EXPECT_TRUE(before == picture_of(bar));
	press_window_key(fWindow, B_SPACE);
	EXPECT_TRUE(WaitForMessage('push'));
	EXPECT_EQ(1u, fWindow->Received()->size());
}


TEST_F(MenuKeyTest, WindowWithoutABar_IgnoresTheKey)
{
	delete fWindow->FindView("bar");
	press_menu_key(fWindow);
	EXPECT_EQ("", marked_menu_item());
	EXPECT_TRUE(fButton->IsFocus());
}


TEST(MenuBarTest, Height_IsNeverMoreThanItNeeds)
{
	BMenuBar bar("bar");
	bar.AddItem(new BMenu("Server"));
	EXPECT_FLOAT_EQ(bar.PreferredSize().height, bar.MaxSize().height);
	EXPECT_FLOAT_EQ(B_SIZE_UNLIMITED, bar.MaxSize().width);
	EXPECT_GE(bar.MinSize().width, bar.StringWidth("Server"));
}
