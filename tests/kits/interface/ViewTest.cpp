/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <string>

#include <gtest/gtest.h>

#include <Font.h>
#include <Message.h>
#include <Messenger.h>
#include <View.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "UserInput.h"


namespace {


/*!	A view that notes what happens to it. */
class NotingView : public BView {
public:
	NotingView(const char* name, std::string& notes)
		: BView(name, B_WILL_DRAW),
		  fNotes(notes)
	{
	}

	~NotingView() override { fNotes += "~" + std::string(Name()) + " "; }

	void AttachedToWindow() override { _Note("attached"); }
	void MessageReceived(BMessage*) override { _Note("message"); }
	void Draw(BRect) override { fDrawn++; }

	int CountDrawn() const { return fDrawn; }

private:
	void _Note(const char* what) { fNotes += what + (":" + std::string(Name())) + " "; }

	std::string& fNotes;
	int fDrawn = 0;
};


/*!	A view that makes its child when it comes into a window. */
class LateParent : public BView {
public:
	explicit LateParent(std::string& notes)
		: BView("late", B_WILL_DRAW),
		  fNotes(notes)
	{
	}

	void AttachedToWindow() override { AddChild(new NotingView("child", fNotes)); }

private:
	std::string& fNotes;
};


/*!	A view that draws what it has to say, in a font of its own. */
class SayingView : public BView {
public:
	SayingView(const char* name, const char* first, const char* second)
		: BView(name, B_WILL_DRAW),
		  fFirst(first),
		  fSecond(second)
	{
	}

	void Draw(BRect) override
	{
		SetFont(be_bold_font);
		SetHighColor(200, 0, 0);
		FillRect(Bounds());
		DrawString(fFirst, BPoint(0, 10));
		DrawString(fSecond, BPoint(0, 30));
	}

private:
	const char* fFirst;
	const char* fSecond;
};


} // namespace


TEST(ViewTest, Attaching_TellsParentsFirst)
{
	std::string notes;
	OwnedWindow window;
	NotingView* outer = new NotingView("outer", notes);
	NotingView* inner = new NotingView("inner", notes);
	outer->AddChild(inner);
	EXPECT_EQ("", notes);
	EXPECT_EQ(NULL, inner->Window());

	window->AddChild(outer);
	EXPECT_EQ("attached:outer attached:inner ", notes);
	EXPECT_EQ(window, inner->Window());
	EXPECT_EQ(window, inner->Looper());

	notes.clear();
	delete outer;
	EXPECT_EQ("~outer ~inner ", notes);
	EXPECT_EQ(0, window->CountChildren());
}


TEST(ViewTest, ChildAddedWhileAttaching_IsToldOnce)
{
	std::string notes;
	OwnedWindow window;
	window->AddChild(new LateParent(notes));
	EXPECT_EQ("attached:child ", notes);
}


TEST(ViewTest, Child_ComesBeforeAnother_AndNotElsewhere)
{
	BView parent("parent", 0);
	BView* last = new BView("last", 0);
	BView* first = new BView("first", 0);
	parent.AddChild(last);
	parent.AddChild(first, last);
	EXPECT_EQ(first, parent.ChildAt(0));
	EXPECT_EQ(last, parent.ChildAt(1));
	EXPECT_EQ(NULL, parent.ChildAt(-1));

	BView other("other", 0);
	other.AddChild(first);
	EXPECT_EQ(2, parent.CountChildren());
	EXPECT_EQ(0, other.CountChildren());
}


TEST(ViewTest, MessageForAView_IsDeliveredToItUntilItIsGone)
{
	std::string notes;
	OwnedWindow window;
	NotingView* view = new NotingView("view", notes);
	window->AddChild(view);
	ShowAndWait(window);
	notes.clear();

	const BMessenger messenger(view);
	EXPECT_EQ(B_OK, messenger.SendMessage('ping'));
	EXPECT_SOON(notes == "message:view ");
	EXPECT_TRUE(window->Received()->empty());

	EXPECT_EQ(B_OK, messenger.SendMessage('ping'));
	delete view;
	notes.clear();
	window->PostMessage('last');
	EXPECT_SOON(window->Received()->size() == 1);
	EXPECT_EQ("", notes);
}


TEST(ViewTest, WindowsDestruction_DeletesItsViews)
{
	std::string notes;
	ScriptedWindow* window = new ScriptedWindow;
	window->AddChild(new NotingView("view", notes));
	notes.clear();
	window->Quit();
	EXPECT_NE(std::string::npos, notes.find("~view"));
}


TEST(ViewTest, Draw_IsCalledOnceShown_AndAfterInvalidate)
{
	std::string notes;
	OwnedWindow window;
	NotingView* view = new NotingView("view", notes);
	window->SetLayout(NULL);
	window->AddChild(view);
	window->Show();
	ASSERT_SOON(view->CountDrawn() > 0);

	const int before = view->CountDrawn();
	view->Invalidate();
	EXPECT_SOON(view->CountDrawn() > before);
}


TEST(ViewTest, Focus_GoesToOneView)
{
	OwnedWindow window;
	BView* first = new BView("first", B_WILL_DRAW | B_NAVIGABLE);
	BView* second = new BView("second", B_WILL_DRAW | B_NAVIGABLE);
	window->AddChild(first);
	window->AddChild(second);
	EXPECT_EQ(NULL, window->CurrentFocus());

	first->MakeFocus(true);
	EXPECT_TRUE(first->IsFocus());
	second->MakeFocus(true);
	EXPECT_FALSE(first->IsFocus());
	EXPECT_EQ(second, window->CurrentFocus());
	second->MakeFocus(false);
	EXPECT_EQ(NULL, window->CurrentFocus());
}


TEST(ViewTest, ColorsAndFont_AreKept)
{
	BView view("view", 0);
	view.SetHighColor(1, 2, 3);
	EXPECT_EQ(make_color(1, 2, 3, 255), view.HighColor());
	EXPECT_EQ(make_color(255, 255, 255), view.ViewColor());
	view.SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
	EXPECT_EQ(ui_color(B_PANEL_BACKGROUND_COLOR), view.ViewColor());

	view.SetFont(be_bold_font);
	BFont font;
	view.GetFont(&font);
	EXPECT_EQ(*be_bold_font, font);
	BFont large(be_plain_font);
	large.SetSize(30);
	view.SetFont(&large, B_FONT_SIZE);
	view.GetFont(&font);
	EXPECT_FLOAT_EQ(30, font.Size());
	EXPECT_EQ(be_bold_font->Face(), font.Face());
}


TEST(ViewTest, Metrics_AreTrueWithoutDrawing)
{
	BView view("view", 0);
	font_height height;
	view.GetFontHeight(&height);
	EXPECT_GT(height.ascent, 0);
	EXPECT_GT(height.descent, 0);
	EXPECT_FLOAT_EQ(be_plain_font->StringWidth("Hello"), view.StringWidth("Hello"));
	view.FillRect(BRect(0, 0, 10, 10));
	view.DrawString("outside", BPoint(1, 1));
}


TEST(ViewTest, ExplicitSizes_WinWhereTheyAreSet)
{
	BView view("view", 0);
	EXPECT_EQ(BSize(0, 0), view.MinSize());
	EXPECT_FLOAT_EQ(B_SIZE_UNLIMITED, view.MaxSize().width);
	view.SetExplicitMinSize(BSize(50, B_SIZE_UNSET));
	EXPECT_EQ(BSize(50, 0), view.MinSize());
	view.SetExplicitMaxSize(BSize(B_SIZE_UNSET, 70));
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 70), view.MaxSize());
}


TEST(ViewTest, TextForScreenReaders_IsWhatTheViewDraws)
{
	OwnedWindow window;
	SayingView* saying = new SayingView("saying", "<b>&Name</b>", "caf\xe9");
	SayingView* silent = new SayingView("silent", "", "");
	window->AddChild(saying);
	window->AddChild(silent);
	const rgb_color color = saying->HighColor();
	EXPECT_EQ("<b>&Name</b>\ncaf\xef\xbf\xbd", accessible_of(saying).name);
	EXPECT_TRUE(accessible_of(saying).isLabel);
	EXPECT_EQ(color, saying->HighColor());
	EXPECT_EQ("", accessible_of(silent).name);
	EXPECT_FALSE(accessible_of(silent).isLabel);
}
