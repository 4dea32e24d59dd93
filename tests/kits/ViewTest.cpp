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

#include "ScriptedWindow.h"
#include "UserInput.h"
#include "WaitFor.h"


namespace {


/*!	A view that notes what happens to it. */
class NotingView : public BView {
public:
	NotingView(const char* name, std::string& notes)
		: BView(name, B_WILL_DRAW | B_FRAME_EVENTS),
		  fNotes(notes)
	{
	}

	~NotingView() override { fNotes += "~" + std::string(Name()) + " "; }

	void AttachedToWindow() override { _Note("attached"); }
	void AllAttached() override { _Note("all"); }
	void DetachedFromWindow() override { _Note("detached"); }
	void MessageReceived(BMessage*) override { _Note("message"); }
	void Draw(BRect) override { fDrawn++; }
	void FrameResized(float width, float height) override { fLastSize = BSize(width, height); }

	int CountDrawn() const { return fDrawn; }
	BSize LastSize() const { return fLastSize; }

private:
	void _Note(const char* what) { fNotes += what + (":" + std::string(Name())) + " "; }

	std::string& fNotes;
	int fDrawn = 0;
	BSize fLastSize;
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


TEST(ViewTest, Attaching_TellsParentsFirst_AndAllAttachedChildrenFirst)
{
	std::string notes;
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
	NotingView* outer = new NotingView("outer", notes);
	NotingView* inner = new NotingView("inner", notes);
	outer->AddChild(inner);
	EXPECT_EQ("", notes);
	EXPECT_EQ(NULL, inner->Window());

	window->AddChild(outer);
	EXPECT_EQ("attached:outer attached:inner all:inner all:outer ", notes);
	EXPECT_EQ(window, inner->Window());
	EXPECT_EQ(window, inner->Looper());
	EXPECT_EQ(outer, inner->Parent());
	EXPECT_EQ(NULL, outer->Parent());

	notes.clear();
	EXPECT_TRUE(window->RemoveChild(outer));
	EXPECT_EQ("detached:outer detached:inner ", notes);
	EXPECT_EQ(NULL, inner->Window());
	EXPECT_EQ(NULL, inner->Looper());

	notes.clear();
	delete outer;
	EXPECT_EQ("~outer ~inner ", notes);
}


TEST(ViewTest, ChildAddedWhileAttaching_IsToldOnce)
{
	std::string notes;
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
	window->AddChild(new LateParent(notes));
	EXPECT_EQ("attached:child all:child ", notes);
}


TEST(ViewTest, ChildWithAParent_CannotBeAddedElsewhere)
{
	BView first("first", 0);
	BView second("second", 0);
	BView* child = new BView("child", 0);
	first.AddChild(child);
	second.AddChild(child);
	EXPECT_EQ(&first, child->Parent());
	EXPECT_EQ(0, second.CountChildren());
	EXPECT_FALSE(second.RemoveChild(child));
}


TEST(ViewTest, ChildBefore_ComesBefore)
{
	BView parent("parent", 0);
	BView* last = new BView("last", 0);
	BView* first = new BView("first", 0);
	parent.AddChild(last);
	parent.AddChild(first, last);
	EXPECT_EQ(first, parent.ChildAt(0));
	EXPECT_EQ(last, parent.ChildAt(1));
	EXPECT_EQ(NULL, parent.ChildAt(-1));
}


TEST(ViewTest, MessageForAView_IsDeliveredToIt)
{
	std::string notes;
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
	NotingView* view = new NotingView("view", notes);
	window->AddChild(view);
	ShowAndWait(window);
	notes.clear();

	EXPECT_EQ(B_OK, BMessenger(view).SendMessage('ping'));
	EXPECT_TRUE(WaitFor([&] {
		return notes == "message:view ";
	}));
	EXPECT_TRUE(window->Received()->empty());
}


TEST(ViewTest, MessageForAViewThatIsGone_IsNotDelivered)
{
	std::string notes;
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
	NotingView* view = new NotingView("view", notes);
	window->AddChild(view);
	ShowAndWait(window);
	const BMessenger messenger(view);
	EXPECT_EQ(B_OK, messenger.SendMessage('ping'));
	delete view;
	notes.clear();

	window->PostMessage('last');
	EXPECT_TRUE(WaitFor([&] {
		return window->Received()->size() == 1;
	}));
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
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
	NotingView* view = new NotingView("view", notes);
	view->SetExplicitSize(BSize(49, 49));
	window->SetLayout(NULL);
	window->AddChild(view);
	window->Show();
	ASSERT_TRUE(WaitFor([&] {
		return view->CountDrawn() > 0;
	}));

	const int before = view->CountDrawn();
	view->Invalidate();
	EXPECT_TRUE(WaitFor([&] {
		return view->CountDrawn() > before;
	}));
}


TEST(ViewTest, Focus_GoesToOneView)
{
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
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


TEST(ViewTest, Hiding_Nests)
{
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
	BView* outer = new BView("outer", B_WILL_DRAW);
	BView* inner = new BView("inner", B_WILL_DRAW);
	outer->AddChild(inner);
	window->AddChild(outer);
	EXPECT_TRUE(inner->IsHidden());
	window->Show();
	EXPECT_FALSE(inner->IsHidden());
	outer->Hide();
	EXPECT_TRUE(inner->IsHidden());
	outer->Show();
	EXPECT_FALSE(inner->IsHidden());
}


TEST(ViewTest, ColorsAndFont_AreKept)
{
	BView view("view", 0);
	view.SetHighColor(1, 2, 3);
	EXPECT_EQ(make_color(1, 2, 3, 255), view.HighColor());
	view.SetLowColor(make_color(4, 5, 6));
	EXPECT_EQ(make_color(4, 5, 6), view.LowColor());
	EXPECT_EQ(make_color(255, 255, 255), view.ViewColor());
	view.SetViewUIColor(B_PANEL_BACKGROUND_COLOR);
	EXPECT_EQ(ui_color(B_PANEL_BACKGROUND_COLOR), view.ViewColor());
	view.SetDrawingMode(B_OP_ALPHA);
	EXPECT_EQ(B_OP_ALPHA, view.DrawingMode());

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
	EXPECT_LT(view.StringWidth("Hello", 2), view.StringWidth("Hello"));
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
	view.SetExplicitSize(BSize(9, 8));
	EXPECT_EQ(BSize(9, 8), view.PreferredSize());
}


TEST(ViewTest, TextForScreenReaders_IsWhatTheViewDraws)
{
	ScriptedWindow* window = new ScriptedWindow;
	WindowCloser closer(window);
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
