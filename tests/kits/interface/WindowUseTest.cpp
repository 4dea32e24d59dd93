/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What a user sees of windows and does to them, in the toolkit's terms.

#include <vector>

#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Button.h>
#include <LayoutBuilder.h>
#include <MenuItem.h>
#include <Message.h>
#include <StringView.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "UserInput.h"
#include "WindowInput.h"
#include "WindowMain.h"


static const char* const kMarkup = "<b>&amp;</b> %s [*] [*][*] &File \"…\"";


/*!	A modal window. */
class Dialog : public BWindow {
public:
	Dialog()
		: BWindow(BRect(0, 0, 99, 99), "Dialog", B_TITLED_WINDOW_LOOK, B_MODAL_APP_WINDOW_FEEL, 0)
	{
	}
};


static void
activate(BWindow* window)
{
	window->Activate(true);
	ASSERT_SOON(window->IsActive());
}


class WindowUseTest : public testing::Test {
protected:
	OwnedWindow fWindow;
};


TEST_F(WindowUseTest, Title_IsShownAsItStands_AndChangesWhileMinimized)
{
	fWindow->SetTitle(kMarkup);
	fWindow->Show();
	EXPECT_SOON(shown_title(fWindow) == kMarkup);

	fWindow->SetTitle("Bytes \xff\xe2\x82");
	EXPECT_SOON(shown_title(fWindow) == "Bytes \xef\xbf\xbd\xef\xbf\xbd\xef\xbf\xbd");

	fWindow->Minimize(true);
	ASSERT_SOON(is_shown_minimized(fWindow));

	fWindow->SetTitle("Users Online (1)");
	EXPECT_SOON(shown_title(fWindow) == "Users Online (1)");
	fWindow->Minimize(false);
	EXPECT_SOON(!is_shown_minimized(fWindow));
}


TEST_F(WindowUseTest, Icon_IsTheOneBesideTheProgram)
{
	fWindow->Show();
	EXPECT_SOON(icon_widths(fWindow) == std::vector<int>{16, 24, 32, 48, 64, 128});
}


TEST_F(WindowUseTest, TitleBar_HasTheBoxesThatTheFlagsLeaveIt)
{
	const struct {
		window_feel feel;
		uint32 flags;
		const char* boxes;
	} cases[] = {
		{B_NORMAL_WINDOW_FEEL, 0, "close minimize zoom"},
		{B_NORMAL_WINDOW_FEEL, B_NOT_ZOOMABLE, "close minimize"},
		{B_NORMAL_WINDOW_FEEL, B_NOT_RESIZABLE, "close minimize"},
		{B_NORMAL_WINDOW_FEEL, B_NOT_MINIMIZABLE, "close zoom"},
		{B_NORMAL_WINDOW_FEEL, B_NOT_CLOSABLE, "minimize zoom"},
		{B_NORMAL_WINDOW_FEEL, B_NOT_CLOSABLE | B_NOT_MINIMIZABLE | B_NOT_ZOOMABLE, ""},
		{B_MODAL_APP_WINDOW_FEEL, 0, "close zoom"},
		{B_MODAL_APP_WINDOW_FEEL, B_NOT_RESIZABLE | B_NOT_ZOOMABLE, "close"},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.boxes);
		BWindow* window = new BWindow(BRect(0, 0, 99, 99), "Window", B_TITLED_WINDOW_LOOK,
			entry.feel, entry.flags);
		EXPECT_EQ(entry.boxes, offered_boxes(window));
		window->Quit();
	}
}


TEST_F(WindowUseTest, CloseBox_AsksTheWindowAndDoesNothingElse)
{
	int asked = 0;
	fWindow->onQuitRequested = [&] {
		asked++;
		return false;
	};
	ShowAndWait(fWindow);
	ASSERT_SOON(is_shown(fWindow));

	use_close_box(fWindow);
	EXPECT_SOON(asked == 1);
	EXPECT_TRUE(is_shown(fWindow));
}


TEST_F(WindowUseTest, EscapeAndCommandW_AskTheWindow_WhereTheyShall)
{
	const struct {
		char key;
		uint32 modifiers;
		uint32 flags;
		int asked;
	} cases[] = {
		{B_ESCAPE, 0, B_CLOSE_ON_ESCAPE, 1},
		{B_ESCAPE, 0, 0, 0},
		{'W', B_COMMAND_KEY, 0, 1},
		{'W', B_COMMAND_KEY, B_NOT_CLOSABLE, 0},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(
			testing::Message() << static_cast<int>(entry.key) << " with flags " << entry.flags);
		int asked = 0;
		OwnedWindow window(entry.flags);
		window->onQuitRequested = [&] {
			asked++;
			return false;
		};
		ShowAndWait(window);
		press_window_key(window, entry.key, entry.modifiers);
		window->PostMessage('last');
		EXPECT_SOON(window->Received()->size() == 1);
		EXPECT_EQ(entry.asked, asked);
	}
}


TEST_F(WindowUseTest, CommandQ_AsksTheApplication)
{
	OwnedWindow first;
	OwnedWindow second;
	ShowAndWait(first);
	ShowAndWait(second);
	int asked = 0;
	first->onQuitRequested = [&asked] {
		asked++;
		return false;
	};

	press_window_key(second, 'q');
	press_window_key(second, 'q', B_COMMAND_KEY | B_SHIFT_KEY);
	press_window_key(second, 'q', B_COMMAND_KEY);
	EXPECT_SOON(asked > 0);
	EXPECT_EQ(1, asked);
	EXPECT_TRUE(second->Received()->empty());
}


TEST_F(WindowUseTest, DefaultButton_ShowsItsFocus_AndIsPressedWhereverThatIs)
{
	BButton* other = new BButton("other", "Other", new BMessage('othr'));
	BButton* ok = new BButton("ok", "OK", new BMessage('okay'));
	BLayoutBuilder::Group<>(fWindow, B_HORIZONTAL).Add(other).Add(ok);
	ok->MakeDefault(true);
	other->MakeFocus(true);
	ShowAndWait(fWindow);

	activate(fWindow);

	// Not compared by what would print all pixels.
	const std::string unfocused = picture_of(ok);
	press_window_key(fWindow, B_TAB);
	ASSERT_TRUE(ok->IsFocus());
	const std::string focused = picture_of(ok);
	EXPECT_TRUE(unfocused != focused);
	press_window_key(fWindow, B_TAB);
	EXPECT_TRUE(unfocused == picture_of(ok));
	press_window_key(fWindow, B_TAB);
	EXPECT_TRUE(focused == picture_of(ok));

	other->MakeFocus(true);
	press_window_key(fWindow, B_ENTER);
	EXPECT_SOON(fWindow->Received()->size() == 1);
	EXPECT_EQ(static_cast<uint32>('okay'), fWindow->Received()->back());

	press_window_key(fWindow, B_SPACE);
	EXPECT_SOON(fWindow->Received()->size() == 2);
	EXPECT_EQ(static_cast<uint32>('othr'), fWindow->Received()->back());

	ok->SetEnabled(false);
	press_window_key(fWindow, B_ENTER);
	fWindow->PostMessage('last');
	EXPECT_SOON(fWindow->Received()->size() == 3);
	EXPECT_EQ(static_cast<uint32>('last'), fWindow->Received()->back());
}


TEST_F(WindowUseTest, Shortcut_ChoosesTheItem)
{
	AddMenu(fWindow,
		{new BMenuItem("Connect…", new BMessage('conn'), 'K'),
			new BMenuItem("Chat", new BMessage('chat'), '1')});
	ShowAndWait(fWindow);
	activate(fWindow);

	press_window_key(fWindow, 'K', B_COMMAND_KEY);
	press_window_key(fWindow, '1', B_COMMAND_KEY);
	EXPECT_SOON(fWindow->Received()->size() == 2);
	EXPECT_EQ(static_cast<uint32>('conn'), fWindow->Received()->front());
	EXPECT_EQ(static_cast<uint32>('chat'), fWindow->Received()->back());
}


TEST_F(WindowUseTest, Tab_GoesThroughTheViewsInTheOrderInWhichTheyWereAdded)
{
	BButton* last = new BButton("last", "Last", NULL);
	BButton* unreachable = new BButton("unreachable", "Unreachable", NULL, B_WILL_DRAW);
	BButton* first = new BButton("first", "First", NULL);
	fWindow->AddChild(first);
	fWindow->AddChild(unreachable);
	fWindow->AddChild(last);
	first->MakeFocus(true);
	ShowAndWait(fWindow);
	activate(fWindow);

	press_window_key(fWindow, B_TAB);
	EXPECT_EQ(last, fWindow->CurrentFocus());
	press_window_key(fWindow, B_TAB);
	EXPECT_EQ(first, fWindow->CurrentFocus());
}


TEST_F(WindowUseTest, ModalWindow_BlocksTheOthersAndStaysAboveTheFirst)
{
	OwnedWindow main;
	ShowAndWait(main);
	ASSERT_SOON(is_shown(main));
	Dialog* dialog = new Dialog;
	WindowCloser dialogCloser(dialog);
	EXPECT_TRUE(dialog->IsModal());
	dialog->Show();
	dialog->Activate(true);
	EXPECT_SOON(is_shown_modal(dialog) && dialog->IsActive());
	EXPECT_TRUE(is_kept_above(dialog, main));

	main->Activate(true);
	main->PostMessage('last');
	EXPECT_SOON(main->Received()->size() == 1);
	EXPECT_TRUE(dialog->IsActive());
}


TEST(ButtonUseTest, Click_SendsTheMessageOnce_AndADisabledButtonSendsNone)
{
	OwnedWindow window;
	BButton* button = new BButton("button", "Press", new BMessage('prsd'));
	BLayoutBuilder::Group<>(window, B_VERTICAL).Add(button);
	ShowAndWait(window);
	click(button, BPoint(10, 10));
	// The state that was asked for counts, not the one that is still shown.
	button->SetEnabled(false);
	click(button, BPoint(10, 10));
	window->PostMessage('last');
	EXPECT_SOON(window->Received()->size() == 2);
	EXPECT_EQ(static_cast<uint32>('prsd'), window->Received()->front());
}


TEST(ButtonUseTest, Label_IsItsNameAsItStands)
{
	BButton button("button", kMarkup, NULL);
	EXPECT_EQ(kMarkup, accessible_of(&button).name);
}


TEST(ButtonUseTest, IconWithoutALabel_IsCalledByItsToolTip)
{
	BButton button("download", "", NULL);
	const BBitmap icon(BRect(0, 0, 15, 15), B_RGBA32);
	button.SetIcon(&icon);
	button.SetToolTip("Download <&>");
	EXPECT_EQ("Download <&>", accessible_of(&button).name);
	EXPECT_EQ("Download <&>", shown_tool_tip(&button));
	button.SetToolTip(static_cast<const char*>(NULL));
	EXPECT_EQ("", shown_tool_tip(&button));
}


// Shapeless characters as where texts are drawn; and only line feeds end a line.
TEST(ButtonUseTest, ToolTip_IsShownAsItStandsAndWhatHasNoShapeIsReplaced)
{
	std::string accents = "a";
	for (int i = 0; i < 30; i++)
		accents += "\u0301";
	const struct {
		std::string text;
		std::string shown;
	} cases[] = {
		{"a\ttab", "a tab"},
		{"a\x01\x1b\x7f", "a\ufffd\ufffd\ufffd"},
		{"bytes \xff", "bytes \ufffd"},
		{"a\rb\u2028c\u2029d", "a\ufffdb\ufffdc\ufffdd"},
		{accents + "\u0301", accents + "\ufffd"},
	};
	BButton button("button", "", NULL);
	for (const char* text :
		{"<b>bold</b>", "&amp; & <", "[*]", "two  blanks", " ahead", "one\ntwo", "\nbelow", "%s"}) {
		button.SetToolTip(text);
		EXPECT_EQ(text, shown_tool_tip(&button));
	}
	for (const auto& expected : cases) {
		button.SetToolTip(expected.text.c_str());
		EXPECT_EQ(expected.shown, shown_tool_tip(&button));
	}
}


TEST(StringViewUseTest, Text_IsItsNameAsItStands)
{
	OwnedWindow window;
	BStringView* view = new BStringView("view", kMarkup);
	BLayoutBuilder::Group<>(window, B_VERTICAL).Add(view);
	EXPECT_EQ(kMarkup, accessible_of(view).name);

	window->Show();
	HoldWindows();
	view->SetText("2 users online \xff");
	EXPECT_SOON(accessible_of(view).name == "2 users online \xef\xbf\xbd");
}
