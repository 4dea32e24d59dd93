/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WindowProbe.h"

#include <algorithm>
#include <sstream>

#include <gtest/gtest.h>

#include <Control.h>
#include <Handler.h>
#include <Message.h>
#include <StringView.h>
#include <TextControl.h>
#include <TextView.h>
#include <View.h>

#include "UserInput.h"
#include "WaitFor.h"
#include "WindowInput.h"


// Around the views of a window, in pixels.
static const float kWidestInset = 16;


// A handler of the window that notices its turn.
class Barrier : public BHandler {
public:
	void MessageReceived(BMessage*) override { fPassed = true; }
	bool HasPassed() const { return fPassed; }

private:
	bool fPassed = false;
};


WindowProbe::WindowProbe(BWindow* window)
	: fWindow(window),
	  fMessenger(window)
{
}


WindowProbe::~WindowProbe()
{
	if (IsAlive() && fWindow->Lock())
		fWindow->Quit();
}


void
WindowProbe::WaitForEnd() const
{
	EXPECT_SOON(!IsAlive());
}


void
WindowProbe::Settle()
{
	Settle(fWindow);
}


void
WindowProbe::Settle(BLooper* looper)
{
	Barrier barrier;
	ASSERT_TRUE(looper->Lock());
	looper->AddHandler(&barrier);
	looper->Unlock();
	const BMessenger messenger(looper);
	BMessenger(&barrier).SendMessage('barr');
	EXPECT_SOON(barrier.HasPassed() || !messenger.IsValid());
	if (messenger.IsValid() && looper->Lock()) {
		looper->RemoveHandler(&barrier);
		looper->Unlock();
	}
}


void
WindowProbe::Post(BMessage* message)
{
	EXPECT_EQ(B_OK, fWindow->PostMessage(message));
	Settle();
}


void
WindowProbe::Post(const BMessage& message)
{
	BMessage copy(message);
	Post(&copy);
}


void
WindowProbe::Post(uint32 what)
{
	Post(BMessage(what));
}


/*!	Uses a control as a press on it or Enter in it does, and waits until the window has handled
	that.
*/
void
WindowProbe::Invoke(const char* control)
{
	BControl* found = Find<BControl>(control);
	ASSERT_NE(nullptr, found) << control;
	found->Invoke();
	if (IsAlive())
		Settle();
}


std::string
WindowProbe::Text(const char* control) const
{
	return Find<BTextControl>(control)->Text();
}


void
WindowProbe::SetText(const char* control, const char* text)
{
	Find<BTextControl>(control)->SetText(text);
}


bool
WindowProbe::IsEnabled(const char* control) const
{
	return Find<BControl>(control)->IsEnabled();
}


void
WindowProbe::Type(const char* control, const char* text)
{
	type_text(Find<BTextControl>(control), text);
	Settle();
}


void
WindowProbe::Press(char key, uint32 modifiers)
{
	press_window_key(fWindow, key, modifiers);
	Settle();
}


/*!	Returns when the view has the focus. */
void
WindowProbe::ClickInto(const char* view)
{
	BView* found = Find<BView>(view);
	BTextControl* control = dynamic_cast<BTextControl*>(found);
	if (control != NULL)
		found = control->TextView();
	ASSERT_TRUE(WaitFor([this] {
		return is_shown(fWindow);
	}));
	click_for_focus(found, BPoint(5, 5));
	EXPECT_SOON(HasFocus(found));
	Settle();
}


bool
WindowProbe::HasFocus(const BView* view) const
{
	EXPECT_TRUE(fWindow->Lock());
	const bool result = view->IsFocus();
	fWindow->Unlock();
	return result;
}


std::string
WindowProbe::Transcript(const char* textView) const
{
	return Find<BTextView>(textView)->Text();
}


std::string
WindowProbe::Label(const char* stringView) const
{
	return Find<BStringView>(stringView)->Text();
}


void
WindowProbe::ExpectTidyAtTwoSizes()
{
	float minWidth = 0;
	float maxWidth = 0;
	float minHeight = 0;
	float maxHeight = 0;
	fWindow->Layout(true);
	fWindow->GetSizeLimits(&minWidth, &maxWidth, &minHeight, &maxHeight);
	ASSERT_GT(minWidth, 0);
	ASSERT_GT(minHeight, 0);
	_ResizeTo(minWidth, minHeight);
	_ResizeTo(std::min(minWidth + 230, maxWidth), std::min(minHeight + 170, maxHeight));
}


void
WindowProbe::ExpectMayBeWide()
{
	static const float kWide = 4000;
	float minWidth = 0;
	float maxWidth = 0;
	float minHeight = 0;
	float maxHeight = 0;
	ASSERT_TRUE(fWindow->Lock());
	fWindow->Layout(true);
	fWindow->GetSizeLimits(&minWidth, &maxWidth, &minHeight, &maxHeight);
	fWindow->Unlock();
	EXPECT_GE(maxWidth, kWide);
}


void
WindowProbe::_ResizeTo(float width, float height)
{
	fWindow->ResizeTo(width, height);
	EXPECT_EQ(BRect(0, 0, width, height), fWindow->Bounds());
	// The views follow with the next frame.
	WaitFor([this] {
		return _Untidiness().empty();
	});
	EXPECT_EQ("", _Untidiness()) << "at " << width << " x " << height;
}


/*!	\return What is wrong with the layout; empty if nothing is. */
std::string
WindowProbe::_Untidiness() const
{
	std::ostringstream result;
	const BRect bounds = fWindow->Bounds();
	BRect used = fWindow->ChildAt(0)->Frame();
	for (int32 i = 0; i < fWindow->CountChildren(); i++) {
		BView* view = fWindow->ChildAt(i);
		const BRect frame = view->Frame();
		used = used | frame;
		std::ostringstream name;
		name << (view->Name() != NULL ? view->Name() : "nameless") << " at " << frame.left << ", "
			 << frame.top << ", " << frame.right << ", " << frame.bottom;
		if (!bounds.Contains(frame))
			result << name.str() << " is not inside\n";
		if (frame.Width() < view->MinSize().width || frame.Height() < view->MinSize().height)
			result << name.str() << " is too small\n";
		for (int32 j = 0; j < i; j++) {
			if (frame.Intersects(fWindow->ChildAt(j)->Frame()))
				result << name.str() << " covers child " << j << "\n";
		}
	}
	if (bounds.right - used.right > kWidestInset || bounds.bottom - used.bottom > kWidestInset)
		result << "only " << used.right << ", " << used.bottom << " is used\n";
	return result.str();
}
