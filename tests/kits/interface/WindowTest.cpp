/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <string>

#include <gtest/gtest.h>

#include <Application.h>
#include <Button.h>
#include <LayoutBuilder.h>
#include <StringView.h>
#include <View.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "WindowInput.h"


namespace {


/*!	A view whose sizes the test sets. */
class SizedView : public BView {
public:
	SizedView(BSize minSize, BSize maxSize)
		: BView("sized", B_WILL_DRAW),
		  fMinSize(minSize),
		  fMaxSize(maxSize)
	{
	}

	BSize MinSize() override { return fMinSize; }
	BSize MaxSize() override { return fMaxSize; }
	BSize PreferredSize() override { return fMinSize; }

	void SetSizes(BSize minSize, BSize maxSize)
	{
		fMinSize = minSize;
		fMaxSize = maxSize;
		InvalidateLayout();
	}

private:
	BSize fMinSize;
	BSize fMaxSize;
};


/*!	From the smallest to the largest width and height. */
BRect
size_limits(BWindow* window)
{
	BRect limits;
	window->GetSizeLimits(&limits.left, &limits.right, &limits.top, &limits.bottom);
	return limits;
}


} // namespace


TEST(WindowTest, NewWindow_IsHiddenAndWhereItShallBe)
{
	OwnedWindow window;
	EXPECT_TRUE(window->IsHidden());
	EXPECT_FALSE(window->IsMinimized());
	EXPECT_FALSE(window->IsActive());
	EXPECT_EQ(BRect(100, 100, 399, 299), window->Frame());
	EXPECT_EQ(BRect(0, 0, 299, 199), window->Bounds());
	EXPECT_STREQ("Scripted", window->Title());
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, window->Look());
	EXPECT_EQ(B_NORMAL_WINDOW_FEEL, window->Feel());
	window->SetTitle("Palimbra — a & b [*] \xff");
	EXPECT_STREQ("Palimbra — a & b [*] \xff", window->Title());
	window->SetTitle(NULL);
	EXPECT_STREQ("", window->Title());
}


TEST(WindowTest, Minimized_IsReadAtOnceAndServed_AndIgnoredWhileHidden)
{
	OwnedWindow window;
	window->Minimize(true);
	EXPECT_FALSE(window->IsMinimized());

	window->Show();
	window->Minimize(true);
	EXPECT_TRUE(window->IsMinimized());
	window->PostMessage('ping');
	EXPECT_SOON(window->Received()->size() == 1);
	EXPECT_TRUE(window->IsMinimized());
	EXPECT_FALSE(window->IsHidden());
	window->Minimize(false);
	EXPECT_FALSE(window->IsMinimized());
}


TEST(WindowTest, Activate_GivesTheFocusAndSaysNothing)
{
	OwnedWindow first;
	OwnedWindow second;
	testing::internal::CaptureStderr();
	first->Show();
	second->Show();
	second->Activate(true);
	EXPECT_SOON(second->IsActive() && !first->IsActive());

	first->Minimize(true);
	first->Minimize(false);
	first->Activate(true);
	EXPECT_SOON(first->IsActive() && !second->IsActive());
	EXPECT_EQ("", testing::internal::GetCapturedStderr());
}


TEST(WindowTest, Views_AreFoundByNameHoweverDeep)
{
	OwnedWindow window;
	BView* outer = new BView("outer", B_WILL_DRAW);
	BView* inner = new BView("inner", B_WILL_DRAW);
	outer->AddChild(inner);
	window->AddChild(outer);

	EXPECT_EQ(1, window->CountChildren());
	EXPECT_EQ(outer, window->ChildAt(0));
	EXPECT_EQ(NULL, window->ChildAt(1));
	EXPECT_EQ(inner, window->FindView("inner"));
	EXPECT_EQ(NULL, window->FindView("nobody"));
}


TEST(WindowTest, ResizeTo_ChangesTheFrame)
{
	OwnedWindow window;
	window->ResizeTo(499, 399);
	EXPECT_EQ(BRect(100, 100, 599, 499), window->Frame());
}


TEST(WindowTest, CenteredWindow_StaysInTheCenterWhenItsSizeChangesBeforeItShows)
{
	OwnedWindow window;
	window->CenterOnScreen();
	const BRect before = window->Frame();

	BLayoutBuilder::Group<>(window, B_VERTICAL, 0)
		.Add(new SizedView(BSize(499, 299), BSize(499, 299)));
	window->Layout(false);
	const BRect after = window->Frame();
	EXPECT_FLOAT_EQ(499, after.Width());
	EXPECT_NEAR((before.left + before.right) / 2, (after.left + after.right) / 2, 1);
	EXPECT_NEAR((before.top + before.bottom) / 2, (after.top + after.bottom) / 2, 1);
}


TEST(WindowTest, PlaceBeyondTheScreen_IsLeftWhenTheWindowIsSeen)
{
	OwnedWindow centered;
	centered->CenterOnScreen();
	// The screen begins at 0, 0.
	const float right = centered->Frame().left + centered->Frame().right;
	const float bottom = centered->Frame().top + centered->Frame().bottom;

	OwnedWindow window;
	move_window(window, BPoint(right - 10, -500));
	const BRect given = window->Frame();
	window->Show();
	window->Minimize(true);
	window->PostMessage('ping');
	ASSERT_SOON(window->Received()->size() == 1);
	EXPECT_EQ(given, window->Frame());

	window->Minimize(false);
	EXPECT_SOON(window->Frame().top != given.top);
	EXPECT_GE(window->Frame().right, right - 1);
	EXPECT_LE(window->Frame().right, right + 1);
	EXPECT_EQ(0, window->Frame().top);
	EXPECT_EQ(given.Width(), window->Frame().Width());
	EXPECT_EQ(given.Height(), window->Frame().Height());

	// Where the user moves it later is where it stays.
	move_window(window, BPoint(right - 10, bottom - 10));
	for (bool isMinimized : {true, false}) {
		window->Minimize(isMinimized);
		ASSERT_SOON(is_shown_minimized(window) == isMinimized);
	}
	EXPECT_EQ(BPoint(right - 10, bottom - 10), window->Frame().LeftTop());
}


TEST(WindowTest, SizeLimits_FollowTheLayout)
{
	OwnedWindow window;
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0)
		.Add(new SizedView(BSize(149, 9), BSize(B_SIZE_UNLIMITED, 19)))
		.Add(new SizedView(BSize(99, 9), BSize(B_SIZE_UNLIMITED, 29)));
	ShowAndWait(window);

	ASSERT_SOON(window->Bounds().Height() == 49);
	const BRect limits = size_limits(window);
	EXPECT_EQ(BPoint(149, 19), limits.LeftTop());
	EXPECT_GE(limits.right, 10000);
	EXPECT_FLOAT_EQ(49, limits.bottom);

	window->ResizeTo(10, 10);
	EXPECT_EQ(BRect(0, 0, 149, 19), window->Bounds());
	window->ResizeTo(700, 700);
	EXPECT_EQ(BRect(0, 0, 700, 49), window->Bounds());
}


TEST(WindowTest, GrowingMinimum_GrowsTheWindow_AndShrinkingMaximum_ShrinksIt)
{
	OwnedWindow window;
	SizedView* banner = new SizedView(BSize(0, 0), BSize(B_SIZE_UNLIMITED, 0));
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0)
		.Add(banner)
		.Add(new SizedView(BSize(9, 39), BSize(B_SIZE_UNLIMITED, 39)));
	ShowAndWait(window);
	ASSERT_SOON(window->Bounds().Height() == 40);
	EXPECT_FLOAT_EQ(0, banner->Frame().Height());

	banner->SetSizes(BSize(800, 60), BSize(B_SIZE_UNLIMITED, 61));
	banner->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 60));
	EXPECT_SOON(banner->Frame().Height() == 60);
	EXPECT_GE(banner->Frame().Width(), 800);
	EXPECT_FLOAT_EQ(100, window->Bounds().Height());

	banner->SetSizes(BSize(0, 0), BSize(B_SIZE_UNLIMITED, 0));
	banner->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 0));
	window->InvalidateLayout();
	EXPECT_SOON(window->Bounds().Height() == 40);
	EXPECT_FLOAT_EQ(0, banner->Frame().Height());
	EXPECT_FLOAT_EQ(40, size_limits(window).bottom);
}


/*!	Nobody sees more of it than a screen holds, and what is in a window takes memory. */
TEST(WindowTest, EnormousMinimum_MakesNoEnormousWindow)
{
	OwnedWindow window;
	SizedView* banner = new SizedView(BSize(0, 0), BSize(B_SIZE_UNLIMITED, B_SIZE_UNLIMITED));
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0).Add(banner);
	ShowAndWait(window);

	const BSize sizes[] = {BSize(19999, 59), BSize(29, 19999), BSize(19999, 59), BSize(4095, 4095),
		BSize(99999, 9), BSize(9, 99999), BSize(99999, 99999), BSize(468, 60)};
	for (const BSize& size : sizes) {
		SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height));
		banner->SetSizes(size, BSize(B_SIZE_UNLIMITED, B_SIZE_UNLIMITED));
		window->Layout(true);
		const BRect bounds = window->Bounds();
		const double pixels = double(bounds.Width() + 1) * double(bounds.Height() + 1);
		EXPECT_LE(pixels, 24 * 1024 * 1024);
		if (size.width * size.height < 24 * 1024 * 1024 && size.width < 32767
			&& size.height < 32767) {
			EXPECT_GE(bounds.Width(), size.width);
			EXPECT_GE(bounds.Height(), size.height);
		}
	}
}


TEST(WindowTest, NotResizable_HasOneSizeWithinItsLayout)
{
	OwnedWindow window(B_NOT_RESIZABLE | B_AUTO_UPDATE_SIZE_LIMITS);
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0)
		.Add(new SizedView(BSize(99, 49), BSize(B_SIZE_UNLIMITED, 79)));
	window->Layout(false);

	EXPECT_EQ(BRect(299, 79, 299, 79), size_limits(window));
	EXPECT_EQ(BRect(0, 0, 299, 79), window->Bounds());
}


TEST(WindowTest, WithoutTheFlag_TheLayoutLimitsNothing)
{
	OwnedWindow window(0);
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0).Add(new SizedView(BSize(399, 9), BSize(399, 9)));
	ShowAndWait(window);
	window->Layout(true);
	EXPECT_EQ(BRect(0, 0, 299, 199), window->Bounds());
}


TEST(WindowTest, DefaultButton_IsOneAtATime)
{
	OwnedWindow window;
	BButton* first = new BButton("first", "First", NULL);
	BButton* second = new BButton("second", "Second", NULL);
	first->MakeDefault(true);
	window->AddChild(first);
	window->AddChild(second);
	EXPECT_EQ(first, window->DefaultButton());

	second->MakeDefault(true);
	EXPECT_EQ(second, window->DefaultButton());
	EXPECT_FALSE(first->IsDefault());
	EXPECT_TRUE(second->IsDefault());

	delete second;
	EXPECT_EQ(NULL, window->DefaultButton());
}


TEST(WindowTest, Application_KnowsItsWindowsInOrderOfCreation)
{
	const int32 before = be_app->CountWindows();
	OwnedWindow first;
	OwnedWindow second;
	EXPECT_EQ(before + 2, be_app->CountWindows());
	EXPECT_EQ(first, be_app->WindowAt(before));
	EXPECT_EQ(second, be_app->WindowAt(before + 1));
	EXPECT_EQ(NULL, be_app->WindowAt(before + 2));
}
