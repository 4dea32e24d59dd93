/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cmath>

#include <gtest/gtest.h>

#include <Button.h>
#include <LayoutBuilder.h>
#include <SeparatorView.h>
#include <StringView.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "WindowMain.h"


/*!	A view without any size of its own. */
class Box : public BView {
public:
	explicit Box(const char* name = "box")
		: BView(name, B_WILL_DRAW)
	{
	}
};


/*!	Gives the window its size, and its views theirs. */
static void
LayOut(BWindow* window, float width, float height)
{
	window->Layout(false);
	window->ResizeTo(width, height);
	window->Layout(true);
}


class LayoutTest : public testing::Test {
protected:
	OwnedWindow fWindow;
};


TEST_F(LayoutTest, Views_ShareTheSpaceByTheirWeights)
{
	Box* small = new Box;
	Box* large = new Box;
	BLayoutBuilder::Group<>(fWindow, B_HORIZONTAL, 0).Add(small, 1).Add(large, 3);
	for (const float width : {399.0f, 799.0f}) {
		SCOPED_TRACE(width);
		LayOut(fWindow, width, 99);
		const float quarter = (width + 1) / 4;
		EXPECT_EQ(BRect(0, 0, quarter - 1, 99), small->Frame());
		EXPECT_EQ(BRect(quarter, 0, width, 99), large->Frame());
	}
}


TEST_F(LayoutTest, SpacingAndInsets_AreInPixels)
{
	Box* first = new Box;
	Box* second = new Box;
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 10).SetInsets(1, 2, 3, 4).Add(first).Add(second);
	LayOut(fWindow, 99, 115);
	EXPECT_EQ(BRect(1, 2, 96, 51), first->Frame());
	EXPECT_EQ(BRect(1, 62, 96, 111), second->Frame());
}


TEST_F(LayoutTest, NamedSpacings_FollowTheFontsSize)
{
	const float standard = std::ceil(be_plain_font->Size() * 0.85f);
	const struct {
		float spacing;
		float pixels;
	} cases[] = {
		{B_USE_DEFAULT_SPACING, standard},
		{B_USE_HALF_ITEM_SPACING, std::ceil(standard / 2)},
		{B_USE_SMALL_SPACING, std::ceil(standard * 0.7f)},
		{B_USE_BIG_SPACING, std::ceil(standard * 1.8f)},
		{0, 0},
	};
	for (const auto& expected : cases) {
		SCOPED_TRACE(expected.spacing);
		OwnedWindow window;
		Box* first = new Box;
		Box* second = new Box;
		BLayoutBuilder::Group<>(window, B_VERTICAL, expected.spacing).Add(first).Add(second);
		LayOut(window, 99, 99);
		EXPECT_FLOAT_EQ(expected.pixels, second->Frame().top - first->Frame().bottom - 1);
	}
}


TEST_F(LayoutTest, LabelRow_TakesNoMoreThanItsHeight)
{
	Box* list = new Box;
	BStringView* label = new BStringView("label", "12 users online");
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(list, 1.0f)
		.AddGroup(B_HORIZONTAL, 0, 1.0f)
		.Add(label)
		.AddGlue(1.0f);
	for (const float height : {199.0f, 599.0f}) {
		SCOPED_TRACE(height);
		LayOut(fWindow, 219, height);
		EXPECT_FLOAT_EQ(label->PreferredSize().height, label->Frame().Height());
		EXPECT_FLOAT_EQ(height, label->Frame().bottom);
		EXPECT_FLOAT_EQ(0, label->Frame().left);
		EXPECT_FLOAT_EQ(label->Frame().top - 1, list->Frame().bottom);
	}
}


TEST_F(LayoutTest, Glue_PushesButtonsToTheRight)
{
	BButton* cancel = new BButton("cancel", "Cancel", NULL);
	BButton* ok = new BButton("ok", "OK", NULL);
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(new Box)
		.AddGroup(B_HORIZONTAL, 5)
		.AddGlue()
		.Add(cancel)
		.Add(ok)
		.End();
	for (const float width : {399.0f, 699.0f}) {
		SCOPED_TRACE(width);
		LayOut(fWindow, width, 299);
		EXPECT_FLOAT_EQ(width, ok->Frame().right);
		EXPECT_FLOAT_EQ(ok->Frame().left - 6, cancel->Frame().right);
		EXPECT_FLOAT_EQ(ok->PreferredSize().width, ok->Frame().Width());
		EXPECT_FLOAT_EQ(299, ok->Frame().bottom);
	}
}


TEST_F(LayoutTest, ViewSmallerThanItsPlace_StandsInItsMiddle)
{
	Box* view = new Box;
	view->SetExplicitMaxSize(BSize(19, 9));
	Box* high = new Box;
	high->SetExplicitMinSize(BSize(B_SIZE_UNSET, 99));
	BLayoutBuilder::Group<>(fWindow, B_HORIZONTAL, 0).Add(view).Add(high);
	LayOut(fWindow, 199, 99);
	EXPECT_EQ(BRect(0, 45, 19, 54), view->Frame());
}


TEST_F(LayoutTest, LabelNarrowerThanItsPlace_StandsAtTheLeft)
{
	BStringView* label = new BStringView("label", "label");
	Box* wide = new Box;
	wide->SetExplicitMinSize(BSize(299, B_SIZE_UNSET));
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0).Add(label).Add(wide);
	LayOut(fWindow, 299, 99);
	EXPECT_FLOAT_EQ(0, label->Frame().left);
	EXPECT_FLOAT_EQ(label->PreferredSize().width, label->Frame().Width());
}


/*!	\return The largest width that the layout allows, in a window that follows it. */
static float
MaxWidth(BWindow* window)
{
	float minWidth = 0;
	float maxWidth = 0;
	float minHeight = 0;
	float maxHeight = 0;
	window->Layout(true);
	window->GetSizeLimits(&minWidth, &maxWidth, &minHeight, &maxHeight);
	return maxWidth;
}


TEST_F(LayoutTest, VerticalGroup_GrowsAsFarAsItsNarrowestRow)
{
	BStringView* label = new BStringView("label", "a label of some words");
	BButton* button = new BButton("button", "OK", NULL);
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.SetInsets(3, 0, 4, 0)
		.Add(new Box)
		.Add(label)
		.AddGroup(B_HORIZONTAL, 0, 1.0f)
		.AddGlue(1.0f)
		.Add(button)
		.End()
		.Add(new Box);
	EXPECT_FLOAT_EQ(label->MaxSize().width + 7, MaxWidth(fWindow));

	label->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, B_SIZE_UNSET));
	EXPECT_GE(MaxWidth(fWindow), 30000);
	LayOut(fWindow, 599, 199);
	EXPECT_EQ(3, label->Frame().left);
	EXPECT_EQ(595, label->Frame().right);
}


TEST_F(LayoutTest, GroupInAGroup_LimitsTheOuterOne_UnlessItHasGlue)
{
	BStringView* first = new BStringView("first", "a label");
	BStringView* second = new BStringView("second", "another label");
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(new Box)
		.AddGroup(B_HORIZONTAL, 5, 1.0f)
		.Add(first)
		.Add(second);
	EXPECT_FLOAT_EQ(first->MaxSize().width + second->MaxSize().width + 6, MaxWidth(fWindow));

	OwnedWindow window;
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0)
		.Add(new Box)
		.AddGroup(B_HORIZONTAL, 5, 1.0f)
		.Add(new BStringView("first", "a label"))
		.AddGlue();
	EXPECT_GE(MaxWidth(window), 30000);
}


TEST_F(LayoutTest, WhatNeedsMoreThanTheNarrowestRow_GetsIt)
{
	Box* wide = new Box;
	wide->SetExplicitMinSize(BSize(299, B_SIZE_UNSET));
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(new BStringView("label", "label"))
		.AddGroup(B_HORIZONTAL, 0)
		.Add(wide);
	EXPECT_FLOAT_EQ(299, MaxWidth(fWindow));

	OwnedWindow window;
	Box* narrow = new Box;
	narrow->SetExplicitMaxSize(BSize(99, B_SIZE_UNSET));
	wide = new Box;
	wide->SetExplicitMinSize(BSize(299, B_SIZE_UNSET));
	BLayoutBuilder::Group<>(window, B_HORIZONTAL, 0)
		.Add(narrow)
		.AddGroup(B_VERTICAL, 0)
		.Add(new BStringView("label", "label"))
		.Add(wide);
	EXPECT_FLOAT_EQ(399, MaxWidth(window));
}


TEST_F(LayoutTest, ViewWithALayout_LaysItsOwnChildrenOut)
{
	BGroupLayout* layout = new BGroupLayout(B_HORIZONTAL, 0);
	BView* group = new BView("group", B_WILL_DRAW, layout);
	Box* left = new Box("left");
	Box* right = new Box("right");
	layout->AddView(left, 1);
	layout->AddView(right, 1);
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0).SetInsets(10).Add(group);
	fWindow->ResizeTo(119, 39);
	fWindow->Show();
	HoldWindows();
	EXPECT_SOON(group->Frame() == BRect(10, 10, 109, 29));
	EXPECT_EQ(BRect(0, 0, 49, 19), left->Frame());
	EXPECT_EQ(BRect(50, 0, 99, 19), right->Frame());
	EXPECT_EQ(right, fWindow->FindView("right"));
}


TEST_F(LayoutTest, RemovedView_LeavesItsPlaceToTheOthers)
{
	Box* first = new Box;
	Box* second = new Box;
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0).Add(first).Add(second);
	LayOut(fWindow, 99, 99);
	EXPECT_EQ(BRect(0, 50, 99, 99), second->Frame());

	delete first;
	fWindow->Layout(true);
	EXPECT_EQ(BRect(0, 0, 99, 99), second->Frame());
}


TEST(SeparatorViewTest, Line_IsThinAcrossAndUnlimitedAlong)
{
	BSeparatorView horizontal(B_HORIZONTAL, B_PLAIN_BORDER);
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 0), horizontal.MaxSize());
	BSeparatorView vertical(B_VERTICAL, B_FANCY_BORDER);
	EXPECT_EQ(BSize(1, B_SIZE_UNLIMITED), vertical.MaxSize());
	EXPECT_EQ(BSize(1, 1), vertical.MinSize());
}
