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
static BRect
size_limits(BWindow* window)
{
	BRect limits;
	window->GetSizeLimits(&limits.left, &limits.right, &limits.top, &limits.bottom);
	return limits;
}


class WindowTest : public testing::Test {
protected:
	OwnedWindow fWindow;
};


TEST_F(WindowTest, NewWindow_IsHiddenAndWhereItShallBe)
{
	EXPECT_TRUE(fWindow->IsHidden());
	EXPECT_FALSE(fWindow->IsMinimized());
	fWindow->Activate(true);
	EXPECT_FALSE(fWindow->IsActive());
	EXPECT_EQ(BRect(100, 100, 399, 299), fWindow->Frame());
	EXPECT_EQ(BRect(0, 0, 299, 199), fWindow->Bounds());
	EXPECT_STREQ("Scripted", fWindow->Title());
	EXPECT_EQ(B_TITLED_WINDOW_LOOK, fWindow->Look());
	EXPECT_EQ(B_NORMAL_WINDOW_FEEL, fWindow->Feel());
	fWindow->SetTitle("Palimbra — a & b [*] \xff");
	EXPECT_STREQ("Palimbra — a & b [*] \xff", fWindow->Title());
	fWindow->SetTitle(NULL);
	EXPECT_STREQ("", fWindow->Title());

	fWindow->ResizeTo(499, 399);
	EXPECT_EQ(BRect(100, 100, 599, 499), fWindow->Frame());
}


TEST_F(WindowTest, Minimized_IsReadAtOnceAndServed_AndIgnoredWhileHidden)
{
	fWindow->Minimize(true);
	EXPECT_FALSE(fWindow->IsMinimized());

	fWindow->Show();
	fWindow->Show();
	fWindow->Minimize(true);
	EXPECT_TRUE(fWindow->IsMinimized());
	fWindow->PostMessage('ping');
	EXPECT_SOON(is_shown_minimized(fWindow));
	EXPECT_SOON(fWindow->Received()->size() == 1);
	EXPECT_TRUE(fWindow->IsMinimized());
	EXPECT_FALSE(fWindow->IsHidden());
	fWindow->Minimize(false);
	EXPECT_FALSE(fWindow->IsMinimized());
}


TEST_F(WindowTest, Activate_BringsAMinimizedWindowBack)
{
	ShowAndWait(fWindow);
	fWindow->Minimize(true);
	ASSERT_SOON(is_shown_minimized(fWindow));
	fWindow->Activate(true);
	EXPECT_FALSE(fWindow->IsMinimized());
	EXPECT_SOON(!is_shown_minimized(fWindow) && fWindow->IsActive());

	fWindow->Minimize(true);
	ASSERT_SOON(is_shown_minimized(fWindow));
	fWindow->Activate(false);
	EXPECT_TRUE(fWindow->IsMinimized());
}


TEST_F(WindowTest, ModalWindow_IsNeverMinimized)
{
	BWindow* modal = new BWindow(BRect(0, 0, 99, 99), "Modal", B_TITLED_WINDOW_LOOK,
		B_MODAL_APP_WINDOW_FEEL, 0);
	const WindowCloser closer(modal);
	modal->Show();
	modal->Minimize(true);
	EXPECT_FALSE(modal->IsMinimized());
	EXPECT_SOON(is_shown(modal));
	EXPECT_FALSE(is_shown_minimized(modal));
}


TEST_F(WindowTest, Activate_GivesTheFocusAndSaysNothing)
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


TEST_F(WindowTest, Views_AreFoundByNameHoweverDeep)
{
	BView* outer = new BView("outer", B_WILL_DRAW);
	BView* inner = new BView("inner", B_WILL_DRAW);
	outer->AddChild(inner);
	fWindow->AddChild(outer);

	EXPECT_EQ(1, fWindow->CountChildren());
	EXPECT_EQ(outer, fWindow->ChildAt(0));
	EXPECT_EQ(NULL, fWindow->ChildAt(1));
	EXPECT_EQ(inner, fWindow->FindView("inner"));
	EXPECT_EQ(NULL, fWindow->FindView("nobody"));
}


TEST_F(WindowTest, CenteredWindow_StaysInTheCenterWhenItsSizeChangesBeforeItShows)
{
	fWindow->CenterOnScreen();
	const BRect before = fWindow->Frame();

	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(new SizedView(BSize(499, 299), BSize(499, 299)));
	fWindow->Layout(false);
	const BRect after = fWindow->Frame();
	EXPECT_FLOAT_EQ(499, after.Width());
	EXPECT_NEAR((before.left + before.right) / 2, (after.left + after.right) / 2, 1);
	EXPECT_NEAR((before.top + before.bottom) / 2, (after.top + after.bottom) / 2, 1);
}


TEST_F(WindowTest, PlaceBeyondTheScreen_IsLeftWhenTheWindowIsSeen)
{
	OwnedWindow centered;
	centered->CenterOnScreen();
	// The screen begins at 0, 0.
	const float right = centered->Frame().left + centered->Frame().right;
	const float bottom = centered->Frame().top + centered->Frame().bottom;

	move_window(fWindow, BPoint(right - 10, -500));
	const BRect given = fWindow->Frame();
	fWindow->Show();
	fWindow->Minimize(true);
	fWindow->PostMessage('ping');
	ASSERT_SOON(fWindow->Received()->size() == 1);
	EXPECT_EQ(given, fWindow->Frame());

	fWindow->Minimize(false);
	EXPECT_SOON(fWindow->Frame().top != given.top);
	EXPECT_GE(fWindow->Frame().right, right - 1);
	EXPECT_LE(fWindow->Frame().right, right + 1);
	EXPECT_EQ(0, fWindow->Frame().top);
	EXPECT_EQ(given.Width(), fWindow->Frame().Width());
	EXPECT_EQ(given.Height(), fWindow->Frame().Height());

	// Where the user moves it later is where it stays.
	move_window(fWindow, BPoint(right - 10, bottom - 10));
	for (bool isMinimized : {true, false}) {
		fWindow->Minimize(isMinimized);
		ASSERT_SOON(is_shown_minimized(fWindow) == isMinimized);
	}
	EXPECT_EQ(BPoint(right - 10, bottom - 10), fWindow->Frame().LeftTop());
}


TEST_F(WindowTest, SizeLimits_FollowTheLayout)
{
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(new SizedView(BSize(149, 9), BSize(B_SIZE_UNLIMITED, 19)))
		.Add(new SizedView(BSize(99, 9), BSize(B_SIZE_UNLIMITED, 29)));
	ShowAndWait(fWindow);

	ASSERT_SOON(fWindow->Bounds().Height() == 49);
	const BRect limits = size_limits(fWindow);
	EXPECT_EQ(BPoint(149, 19), limits.LeftTop());
	EXPECT_GE(limits.right, 10000);
	EXPECT_FLOAT_EQ(49, limits.bottom);

	fWindow->ResizeTo(10, 10);
	EXPECT_EQ(BRect(0, 0, 149, 19), fWindow->Bounds());
	fWindow->ResizeTo(700, 700);
	EXPECT_EQ(BRect(0, 0, 700, 49), fWindow->Bounds());
}


TEST_F(WindowTest, GrowingMinimum_GrowsTheWindow_AndShrinkingMaximum_ShrinksIt)
{
	SizedView* banner = new SizedView(BSize(0, 0), BSize(B_SIZE_UNLIMITED, 0));
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0)
		.Add(banner)
		.Add(new SizedView(BSize(9, 39), BSize(B_SIZE_UNLIMITED, 39)));
	ShowAndWait(fWindow);
	ASSERT_SOON(fWindow->Bounds().Height() == 40);
	EXPECT_FLOAT_EQ(0, banner->Frame().Height());

	banner->SetSizes(BSize(800, 60), BSize(B_SIZE_UNLIMITED, 61));
	banner->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 60));
	EXPECT_SOON(banner->Frame().Height() == 60);
	EXPECT_GE(banner->Frame().Width(), 800);
	EXPECT_FLOAT_EQ(100, fWindow->Bounds().Height());

	banner->SetSizes(BSize(0, 0), BSize(B_SIZE_UNLIMITED, 0));
	banner->SetExplicitMaxSize(BSize(B_SIZE_UNLIMITED, 0));
	fWindow->InvalidateLayout();
	EXPECT_SOON(fWindow->Bounds().Height() == 40);
	EXPECT_FLOAT_EQ(0, banner->Frame().Height());
	EXPECT_FLOAT_EQ(40, size_limits(fWindow).bottom);
}


/*!	Nobody sees more of it than a screen holds, and what is in a window takes memory. */
TEST_F(WindowTest, EnormousMinimum_MakesNoEnormousWindow)
{
	SizedView* banner = new SizedView(BSize(0, 0), BSize(B_SIZE_UNLIMITED, B_SIZE_UNLIMITED));
	BLayoutBuilder::Group<>(fWindow, B_VERTICAL, 0).Add(banner);
	ShowAndWait(fWindow);

	const BSize sizes[] = {BSize(19999, 59), BSize(29, 19999), BSize(19999, 59), BSize(4095, 4095),
		BSize(99999, 9), BSize(9, 99999), BSize(99999, 99999), BSize(468, 60)};
	for (const BSize& size : sizes) {
		SCOPED_TRACE(std::to_string(size.width) + " x " + std::to_string(size.height));
		banner->SetSizes(size, BSize(B_SIZE_UNLIMITED, B_SIZE_UNLIMITED));
		fWindow->Layout(true);
		const BRect bounds = fWindow->Bounds();
		const double pixels = static_cast<double>(bounds.Width() + 1)
			* static_cast<double>(bounds.Height() + 1);
		EXPECT_LE(pixels, 24 * 1024 * 1024);
		if (size.width * size.height < 24 * 1024 * 1024 && size.width < 32767
			&& size.height < 32767) {
			EXPECT_GE(bounds.Width(), size.width);
			EXPECT_GE(bounds.Height(), size.height);
		}
	}
}


TEST_F(WindowTest, Layout_LimitsASizeThatIsFixed_AndNothingWithoutTheFlag)
{
	OwnedWindow window(B_NOT_RESIZABLE | B_AUTO_UPDATE_SIZE_LIMITS);
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0)
		.Add(new SizedView(BSize(99, 49), BSize(B_SIZE_UNLIMITED, 79)));
	window->Layout(false);

	EXPECT_EQ(BRect(299, 79, 299, 79), size_limits(window));
	EXPECT_EQ(BRect(0, 0, 299, 79), window->Bounds());

	OwnedWindow free(0);
	BLayoutBuilder::Group<>(free, B_VERTICAL, 0).Add(new SizedView(BSize(399, 9), BSize(399, 9)));
	ShowAndWait(free);
	free->Layout(true);
	EXPECT_EQ(BRect(0, 0, 299, 199), free->Bounds());
}


TEST_F(WindowTest, DefaultButton_IsOneAtATime)
{
	BButton* first = new BButton("first", "First", NULL);
	BButton* second = new BButton("second", "Second", NULL);
	first->MakeDefault(true);
	fWindow->AddChild(first);
	fWindow->AddChild(second);
	EXPECT_EQ(first, fWindow->DefaultButton());

	second->MakeDefault(true);
	EXPECT_EQ(second, fWindow->DefaultButton());
	EXPECT_FALSE(first->IsDefault());
	EXPECT_TRUE(second->IsDefault());

	delete second;
	EXPECT_EQ(NULL, fWindow->DefaultButton());
}


TEST_F(WindowTest, Application_KnowsItsWindowsInOrderOfCreation)
{
	const int32 before = be_app->CountWindows();
	OwnedWindow first;
	OwnedWindow second;
	EXPECT_EQ(before + 2, be_app->CountWindows());
	EXPECT_EQ(first, be_app->WindowAt(before));
	EXPECT_EQ(second, be_app->WindowAt(before + 1));
	EXPECT_EQ(NULL, be_app->WindowAt(before + 2));
	first->Quit();
	EXPECT_EQ(second, be_app->WindowAt(before));
}
