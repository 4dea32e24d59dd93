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


class ViewTest : public testing::Test {
protected:
	// Outlives the views, which write into it.
	std::string fNotes;
	OwnedWindow fWindow;
};


TEST_F(ViewTest, Attaching_TellsParentsFirst_AndEachOnce)
{
	NotingView* outer = new NotingView("outer", fNotes);
	NotingView* inner = new NotingView("inner", fNotes);
	outer->AddChild(inner);
	EXPECT_EQ("", fNotes);
	EXPECT_EQ(NULL, inner->Window());

	fWindow->AddChild(outer);
	EXPECT_EQ("attached:outer attached:inner ", fNotes);
	EXPECT_EQ(fWindow, inner->Window());
	EXPECT_EQ(fWindow, inner->Looper());

	fNotes.clear();
	delete outer;
	EXPECT_EQ("~outer ~inner ", fNotes);
	EXPECT_EQ(0, fWindow->CountChildren());

	fNotes.clear();
	fWindow->AddChild(new LateParent(fNotes));
	EXPECT_EQ("attached:child ", fNotes);
}


TEST_F(ViewTest, Child_ComesBeforeAnother_AndNotElsewhere)
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


TEST_F(ViewTest, MessageForAView_IsDeliveredToItUntilItIsGone)
{
	NotingView* view = new NotingView("view", fNotes);
	fWindow->AddChild(view);
	ShowAndWait(fWindow);
	fNotes.clear();

	const BMessenger messenger(view);
	EXPECT_EQ(B_OK, messenger.SendMessage('ping'));
	EXPECT_SOON(fNotes == "message:view ");
	EXPECT_TRUE(fWindow->Received()->empty());

	EXPECT_EQ(B_OK, messenger.SendMessage('ping'));
	delete view;
	fNotes.clear();
	fWindow->PostMessage('last');
	EXPECT_SOON(fWindow->Received()->size() == 1);
	EXPECT_EQ("", fNotes);
}


TEST_F(ViewTest, WindowsDestruction_DeletesItsViews)
{
	std::string notes;
	ScriptedWindow* window = new ScriptedWindow;
	window->AddChild(new NotingView("view", notes));
	notes.clear();
	window->Quit();
	EXPECT_NE(std::string::npos, notes.find("~view"));
}


TEST_F(ViewTest, Draw_IsCalledOnceShown_AndAfterInvalidate)
{
	NotingView* view = new NotingView("view", fNotes);
	fWindow->SetLayout(NULL);
	fWindow->AddChild(view);
	fWindow->Show();
	ASSERT_SOON(view->CountDrawn() > 0);

	const int before = view->CountDrawn();
	view->Invalidate();
	EXPECT_SOON(view->CountDrawn() > before);
}


TEST_F(ViewTest, Focus_GoesToOneView)
{
	BView* first = new BView("first", B_WILL_DRAW | B_NAVIGABLE);
	BView* second = new BView("second", B_WILL_DRAW | B_NAVIGABLE);
	fWindow->AddChild(first);
	fWindow->AddChild(second);
	EXPECT_EQ(NULL, fWindow->CurrentFocus());

	first->MakeFocus(true);
	EXPECT_TRUE(first->IsFocus());
	second->MakeFocus(true);
	EXPECT_FALSE(first->IsFocus());
	EXPECT_EQ(second, fWindow->CurrentFocus());
	second->MakeFocus(false);
	EXPECT_EQ(NULL, fWindow->CurrentFocus());
}


TEST_F(ViewTest, ColorsAndFont_AreKeptAndMeasuredWithoutDrawing)
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

	view.SetFont(be_plain_font);
	font_height height;
	view.GetFontHeight(&height);
	EXPECT_GT(height.ascent, 0);
	EXPECT_GT(height.descent, 0);
	EXPECT_FLOAT_EQ(be_plain_font->StringWidth("Hello"), view.StringWidth("Hello"));
	view.FillRect(BRect(0, 0, 10, 10));
	view.DrawString("outside", BPoint(1, 1));
}


TEST_F(ViewTest, ExplicitSizes_WinWhereTheyAreSet)
{
	BView view("view", 0);
	EXPECT_EQ(BSize(0, 0), view.MinSize());
	EXPECT_FLOAT_EQ(B_SIZE_UNLIMITED, view.MaxSize().width);
	view.SetExplicitMinSize(BSize(50, B_SIZE_UNSET));
	EXPECT_EQ(BSize(50, 0), view.MinSize());
	view.SetExplicitMaxSize(BSize(B_SIZE_UNSET, 70));
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 70), view.MaxSize());
}


TEST_F(ViewTest, TextForScreenReaders_IsWhatTheViewDraws)
{
	SayingView* saying = new SayingView("saying", "<b>&Name</b>", "caf\xe9");
	SayingView* silent = new SayingView("silent", "", "");
	fWindow->AddChild(saying);
	fWindow->AddChild(silent);
	const rgb_color color = saying->HighColor();
	EXPECT_EQ("<b>&Name</b>\ncaf\xef\xbf\xbd", accessible_of(saying).name);
	EXPECT_TRUE(accessible_of(saying).isLabel);
	EXPECT_EQ(color, saying->HighColor());
	EXPECT_EQ("", accessible_of(silent).name);
	EXPECT_FALSE(accessible_of(silent).isLabel);
}
