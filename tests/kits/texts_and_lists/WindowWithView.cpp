/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WindowWithView.h"

#include <GroupLayout.h>
#include <View.h>

#include "ExpectSoon.h"
#include "UserInput.h"
#include "WindowMain.h"


WindowWithView::WindowWithView(float width, float height)
	: BWindow(BRect(20, 20, 20 + width, 20 + height), "Views", B_TITLED_WINDOW, 0),
	  fLayout(new BGroupLayout(B_VERTICAL, 0))
{
	SetLayout(fLayout);
}


void
WindowWithView::Add(BView* view)
{
	fLayout->AddView(view, 1);
}


/*!	Returns when the views have been laid out. */
void
WindowWithView::ShowIt()
{
	Show();
	HoldWindows();
	WaitFor([this]() {
		return !IsHidden() && ChildAt(0)->Bounds().Width() == Bounds().Width();
	});
	// A text is wrapped to its width when its turn has come.
	bool hasServed = false;
	WaitFor([&hasServed]() {
		const bool result = hasServed;
		hasServed = true;
		return result;
	});
}


void
WindowWithView::MessageReceived(BMessage* message)
{
	fMessages.push_back(*message);
	BWindow::MessageReceived(message);
}


/*!	\return How many messages of that code have come. */
int32
WindowWithView::Count(uint32 what) const
{
	int32 count = 0;
	for (const BMessage& message : fMessages)
		count += message.what == what ? 1 : 0;
	return count;
}


// #pragma mark -


LockedWindow::LockedWindow(BWindow* window)
	: fWindow(window)
{
	EXPECT_TRUE(fWindow->Lock());
}


LockedWindow::~LockedWindow()
{
	fWindow->Unlock();
}


// #pragma mark -


void
ViewInAWindow::TearDown()
{
	fWindow->Lock();
	fWindow->Quit();
}


void
ExpectFocusByBorder(WindowWithView* window, BView* view)
{
	view->MakeFocus(true);
	ASSERT_SOON(window->IsActive());
	const unsigned focused = pixel_of(view, BPoint(0, 0));
	view->MakeFocus(false);
	EXPECT_NE(focused, pixel_of(view, BPoint(0, 0)));
	view->MakeFocus(true);
	EXPECT_EQ(focused, pixel_of(view, BPoint(0, 0)));
}
