/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What shows while the mouse rests over a list, and what the list is asked for that.
#include <string>

#include <gtest/gtest.h>

#include <ScrollView.h>

#include "ExpectSoon.h"
#include "ListViewFixture.h"
#include "UserInput.h"
#include "WindowInput.h"
#include "WindowWithView.h"


/*!	Says what it answers when it is asked. */
class AskableList : public BListView {
public:
	using BListView::BListView;
	using BListView::GetToolTipAt;
};


/*!	Its rows have their text as a tool tip, but for those that say nothing. */
class TalkingList : public BListView {
public:
	TalkingList()
		: BListView("list")
	{
	}

	bool GetToolTipAt(BPoint point, BToolTip** _tip) override
	{
		fAsked = point;
		const BStringItem* item = dynamic_cast<BStringItem*>(ItemAt(IndexOf(point)));
		SetToolTip(item != NULL ? item->Text() : "");
		return BListView::GetToolTipAt(point, _tip);
	}

	void FrameResized(float newWidth, float newHeight) override
	{
		fWidth = newWidth;
		BListView::FrameResized(newWidth, newHeight);
	}

	BPoint fAsked;
	float fWidth = 0;
};


class ListToolTipTest : public ListViewFixture {
protected:
	void SetUp() override
	{
		fList = fTalking = new TalkingList;
		fWindow = new WindowWithView(300, 200);
		fWindow->Add(new BScrollView("scroll", fList, B_WILL_DRAW, false, true));
		fWindow->ShowIt();
	}

	void TearDown() override
	{
		fList->SetToolTip("");
		ListViewFixture::TearDown();
	}

	void _Add(const std::string& text) { fList->AddItem(Keep(new BStringItem(text.c_str()))); }

	TalkingList* fTalking;
};


TEST_F(ListToolTipTest, RestingMouse_AsksForItsPlace_AndSaysNothingAboutTheList)
{
	_Add("first");
	_Add("second");
	rest_mouse(fList, CenterOf(1));
	EXPECT_TRUE(fTalking->fAsked == CenterOf(1));
	EXPECT_EQ("second", tool_tip_on_screen());
	rest_mouse(fList, CenterOf(0));
	EXPECT_EQ("first", tool_tip_on_screen());

	rest_mouse(fList, CenterOf(0));
	EXPECT_EQ("", accessible_of(fList).description);
}


TEST_F(ListToolTipTest, PlaceWithoutAToolTip_HasNone)
{
	_Add("first");
	_Add("");
	rest_mouse(fList, CenterOf(1));
	EXPECT_EQ("", tool_tip_on_screen());
	rest_mouse(fList, BPoint(20, fList->Bounds().bottom - 5));
	EXPECT_EQ("", tool_tip_on_screen());
	// Neither does one that is there stay over another row.
	rest_mouse(fList, CenterOf(0));
	ASSERT_EQ("first", tool_tip_on_screen());
	rest_mouse(fList, CenterOf(1));
	EXPECT_SOON(tool_tip_on_screen().empty());
}


TEST_F(ListToolTipTest, ToolTip_LeavesTheScreen_WhenItIsSetAnewOrTheListScrolls)
{
	_Add("first");
	for (const char* text : {static_cast<const char*>(NULL), "", "other"}) {
		rest_mouse(fList, CenterOf(0));
		ASSERT_EQ("first", tool_tip_on_screen());
		fList->SetToolTip(text);
		EXPECT_SOON(tool_tip_on_screen().empty());
	}

	fList->RemoveItem(static_cast<int32>(0));
	ShowStrings(100);
	rest_mouse(fList, CenterOf(1));
	ASSERT_EQ("row 1", tool_tip_on_screen());
	scroll_to(fList, 40);
	EXPECT_SOON(tool_tip_on_screen().empty());
	rest_mouse(fList, CenterOf(5));
	EXPECT_EQ("row 5", tool_tip_on_screen());
}


TEST_F(ListToolTipTest, ListThatIsNotAsked_HasItsOwn)
{
	AskableList list("list");
	BToolTip* tip;
	EXPECT_FALSE(list.GetToolTipAt(BPoint(1, 1), &tip));
	EXPECT_EQ(nullptr, tip);
	list.SetToolTip("of all rows");
	EXPECT_TRUE(list.GetToolTipAt(BPoint(1, 1), &tip));
	EXPECT_NE(nullptr, tip);
	list.SetToolTip("");
	EXPECT_FALSE(list.GetToolTipAt(BPoint(1, 1), &tip));
}


TEST_F(ListToolTipTest, IndexOfAPoint_IsThatOfTheRowThere)
{
	_Add("first");
	_Add("second");
	// At once, though they do not show yet.
	EXPECT_EQ(0, fList->IndexOf(BPoint(20, 5)));
	EXPECT_EQ(0, fList->IndexOf(CenterOf(0)));
	EXPECT_EQ(1, fList->IndexOf(CenterOf(1)));
	EXPECT_EQ(1, fList->IndexOf(fList->ItemFrame(1).LeftTop()));
	EXPECT_EQ(-1, fList->IndexOf(fList->ItemFrame(1).LeftBottom() + BPoint(0, 1)));
	EXPECT_EQ(-1, fList->IndexOf(BPoint(10, -1)));
}


TEST_F(ListToolTipTest, ResizedList_IsTold)
{
	EXPECT_EQ(fList->Bounds().Width(), fTalking->fWidth);
	fWindow->ResizeTo(400, 200);
	EXPECT_SOON(fList->Bounds().Width() > 350 && fTalking->fWidth == fList->Bounds().Width());
}


class TalkingView : public BView {
public:
	TalkingView()
		: BView("view", B_WILL_DRAW)
	{
	}

	bool GetToolTipAt(BPoint, BToolTip**) override
	{
		fIsAsked = true;
		return false;
	}

	bool fIsAsked = false;
};


TEST(ViewToolTipTest, ViewThatIsNoList_IsNotAsked)
{
	WindowWithView* window = new WindowWithView(300, 200);
	TalkingView* view = new TalkingView;
	view->SetToolTip("of the view");
	window->Add(view);
	window->ShowIt();
	rest_mouse(view, BPoint(20, 20));
	EXPECT_FALSE(view->fIsAsked);
	EXPECT_EQ("of the view", tool_tip_on_screen());
	view->SetToolTip("");
	EXPECT_SOON(tool_tip_on_screen().empty());
	window->Lock();
	window->Quit();
}
