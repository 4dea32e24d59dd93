/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// When a text control sends its message.
#include <TextControl.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Button.h>
#include <InterfaceDefs.h>
#include <MessageFilter.h>
#include <TextView.h>

#include "ExpectSoon.h"
#include "UserInput.h"
#include "WindowInput.h"
#include "WindowWithView.h"


static const uint32 kMsgLine = 'line';
static const uint32 kMsgButton = 'butn';
static const uint32 kMsgLast = 'last';


class TextControlInvocationTest : public ViewInAWindow {
protected:
	void SetUp() override
	{
		fLine = new BTextControl("line", NULL, "", new BMessage(kMsgLine));
		fOther = new BTextControl("other", NULL, "", NULL);
		fButton = new BButton("button", "Button", new BMessage(kMsgButton));
		fWindow = new WindowWithView(300, 200);
		fWindow->Add(fLine);
		fWindow->Add(fOther);
		fWindow->Add(fButton);
		fLine->MakeFocus(true);
		fWindow->ShowIt();
		ASSERT_SOON(fWindow->IsActive());
	}

	void GiveFocusTo(BView* view)
	{
		LockedWindow lock(fWindow);
		view->MakeFocus(true);
	}

	void SetText(BTextControl* control, const char* text)
	{
		LockedWindow lock(fWindow);
		control->SetText(text);
	}

	/*!	\return How often the message of the line has come, once all has that was sent before. */
	int32 CountSent()
	{
		const int32 before = fWindow->Count(kMsgLast);
		fWindow->PostMessage(kMsgLast);
		EXPECT_SOON(fWindow->Count(kMsgLast) > before);
		return fWindow->Count(kMsgLine);
	}

	std::string Selection()
	{
		LockedWindow lock(fWindow);
		int32 start;
		int32 end;
		fLine->TextView()->GetSelection(&start, &end);
		return std::to_string(start) + ".." + std::to_string(end);
	}

	BTextControl* fLine;
	BTextControl* fOther;
	BButton* fButton;
};


TEST_F(TextControlInvocationTest, Return_SendsAChangedTextOnce_AndSelectsAll)
{
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 0);
	type_text(fLine, "text");
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
	EXPECT_EQ(Selection(), "0..4");
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
	type_text(fLine, "more");
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 2);
}


TEST_F(TextControlInvocationTest, FocusThatLeaves_SendsAChangedText)
{
	type_text(fLine, "by Tab");
	press_window_key(fWindow, B_TAB);
	EXPECT_EQ(CountSent(), 1);

	GiveFocusTo(fLine);
	type_text(fLine, "by a click");
	click_for_focus(fOther->TextView(), BPoint(4, 4));
	EXPECT_SOON(fWindow->Count(kMsgLine) == 2);

	GiveFocusTo(fLine);
	type_text(fLine, "by the program");
	GiveFocusTo(fButton);
	EXPECT_EQ(CountSent(), 3);

	GiveFocusTo(fLine);
	type_text(fLine, "to nowhere");
	{
		LockedWindow lock(fWindow);
		fLine->MakeFocus(false);
	}
	EXPECT_EQ(CountSent(), 4);
}


TEST_F(TextControlInvocationTest, FocusThatLeaves_SendsNoTextThatIsWhatItWas)
{
	press_window_key(fWindow, B_TAB);
	EXPECT_EQ(CountSent(), 0);

	GiveFocusTo(fLine);
	type_text(fLine, "a");
	press_window_key(fWindow, B_ENTER);
	GiveFocusTo(fOther);
	EXPECT_EQ(CountSent(), 1);

	GiveFocusTo(fLine);
	type_text(fLine, "b");
	press_key(fLine, kKeyBackspace);
	SetText(fLine, "a");
	GiveFocusTo(fOther);
	// Neither does one that was not changed since.
	GiveFocusTo(fLine);
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
}


TEST_F(TextControlInvocationTest, SetText_IsAStartForTheControl_AndAChangeForItsView)
{
	type_text(fLine, "typed");
	SetText(fLine, "given");
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 0);
	{
		LockedWindow lock(fWindow);
		fLine->TextView()->SetText("changed");
	}
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);

	GiveFocusTo(fOther);
	SetText(fLine, "without the focus");
	GiveFocusTo(fLine);
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
}


TEST_F(TextControlInvocationTest, FocusThatTheWindowKeeps_IsNotLost)
{
	type_text(fLine, "half");
	WindowWithView* other = new WindowWithView(100, 100);
	other->Add(new BTextControl("elsewhere", NULL, "", NULL));
	other->ShowIt();
	ASSERT_SOON(other->IsActive() && !fWindow->IsActive());
	EXPECT_EQ(CountSent(), 0);
	fWindow->Activate(true);
	ASSERT_SOON(fWindow->IsActive());
	open_context_menu(fLine->TextView(), BPoint(4, 4));
	ASSERT_NE(shown_menu_items(), "");
	press_window_key(fWindow, B_ESCAPE);
	EXPECT_EQ(CountSent(), 0);

	// It is still the text that has changed since the field got the focus.
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
	other->Lock();
	other->Quit();
}


TEST_F(TextControlInvocationTest, FocusOfAWindowThatIsNotActive_LeavesLikeAnyOther)
{
	type_text(fLine, "half");
	WindowWithView* other = new WindowWithView(100, 100);
	other->Add(new BTextControl("elsewhere", NULL, "", NULL));
	other->ShowIt();
	ASSERT_SOON(!fWindow->IsActive());
	GiveFocusTo(fOther);
	EXPECT_EQ(CountSent(), 1);
	GiveFocusTo(fLine);
	type_text(fLine, "more");
	GiveFocusTo(fOther);
	EXPECT_EQ(CountSent(), 2);
	other->Lock();
	other->Quit();
}


TEST_F(TextControlInvocationTest, DefaultButton_GetsReturn_AndTheFocusThatLeavesStillSends)
{
	{
		LockedWindow lock(fWindow);
		fButton->MakeDefault(true);
	}
	type_text(fLine, "text");
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 0);
	EXPECT_EQ(fWindow->Count(kMsgButton), 1);
	// With a modifier it is none of the button's.
	press_window_key(fWindow, B_ENTER, B_SHIFT_KEY);
	EXPECT_EQ(CountSent(), 1);
	EXPECT_EQ(fWindow->Count(kMsgButton), 1);

	type_text(fLine, "more");
	press_window_key(fWindow, B_TAB);
	EXPECT_EQ(CountSent(), 2);
}


TEST_F(TextControlInvocationTest, WithoutAMessage_NothingIsSent)
{
	GiveFocusTo(fOther);
	type_text(fOther, "text");
	press_window_key(fWindow, B_ENTER);
	type_text(fOther, "text");
	GiveFocusTo(fLine);
	EXPECT_EQ(CountSent(), 0);
	EXPECT_EQ(fWindow->Count(kMsgButton), 0);
}


TEST_F(TextControlInvocationTest, FocusMovedByAHandler_IsAFocusThatLeaves)
{
	class Mover : public BHandler {
	public:
		explicit Mover(BView* to)
			: fTo(to)
		{
		}
		void MessageReceived(BMessage*) override { fTo->MakeFocus(true); }

	private:
		BView* fTo;
	};
	Mover mover(fOther);
	{
		LockedWindow lock(fWindow);
		fWindow->AddHandler(&mover);
	}
	type_text(fLine, "half");
	BMessenger(&mover).SendMessage('move');
	EXPECT_SOON(fWindow->Count(kMsgLine) == 1);
	LockedWindow lock(fWindow);
	fWindow->RemoveHandler(&mover);
}


// #pragma mark - Filters


/*!	Notes what it is asked about. */
class NotingFilter : public BMessageFilter {
public:
	NotingFilter(uint32 what, filter_result answer, BHandler* target = NULL)
		: BMessageFilter(what),
		  fAnswer(answer),
		  fTarget(target)
	{
	}

	filter_result Filter(BMessage* message, BHandler** _target) override
	{
		fSeen.push_back(*message);
		fTargets.push_back(*_target);
		if (fTarget != NULL)
			*_target = fTarget;
		return fAnswer;
	}

	std::vector<BMessage> fSeen;
	std::vector<BHandler*> fTargets;

private:
	filter_result fAnswer;
	BHandler* fTarget;
};


TEST_F(TextControlInvocationTest, FilterOfTheField_SeesReturnFirst_AndMayKeepIt)
{
	NotingFilter* passing = new NotingFilter(B_KEY_DOWN, B_DISPATCH_MESSAGE);
	NotingFilter* keeping = new NotingFilter(B_KEY_DOWN, B_SKIP_MESSAGE);
	NotingFilter* last = new NotingFilter(B_KEY_DOWN, B_DISPATCH_MESSAGE);
	{
		LockedWindow lock(fWindow);
		fLine->TextView()->AddFilter(passing);
	}
	type_text(fLine, "text");
	press_window_key(fWindow, B_ENTER, B_SHIFT_KEY);
	EXPECT_EQ(CountSent(), 1);
	ASSERT_EQ(passing->fSeen.size(), 1u);
	EXPECT_STREQ(passing->fSeen[0].GetString("bytes"), "\n");
	EXPECT_EQ(passing->fSeen[0].GetInt32("modifiers", 0), B_SHIFT_KEY);
	EXPECT_EQ(passing->fTargets[0], static_cast<BHandler*>(fLine->TextView()));

	{
		LockedWindow lock(fWindow);
		fLine->TextView()->AddFilter(new NotingFilter('else', B_SKIP_MESSAGE));
		fLine->TextView()->AddFilter(keeping);
		fLine->TextView()->AddFilter(last);
		fLine->TextView()->Select(1, 1);
	}
	type_text(fLine, "more");
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
	EXPECT_EQ(passing->fSeen.size(), 2u);
	EXPECT_EQ(keeping->fSeen.size(), 1u);
	EXPECT_TRUE(last->fSeen.empty());
	EXPECT_EQ(Selection(), "5..5");
}


TEST_F(TextControlInvocationTest, ReturnWithTheCommandKey_IsAShortcutThatNoFieldSees)
{
	type_text(fLine, "text");
	press_window_key(fWindow, B_ENTER, B_COMMAND_KEY);
	EXPECT_EQ(CountSent(), 0);
	press_window_key(fWindow, B_ENTER, B_SHIFT_KEY);
	EXPECT_EQ(CountSent(), 1);
}


// Differs from Haiku, where a filter sees every message, and may give it to another handler.
TEST_F(TextControlInvocationTest, Filter_IsNotAskedAboutWhatIsPosted_AndCannotChangeTheTarget)
{
	NotingFilter* window = new NotingFilter(kMsgLine, B_SKIP_MESSAGE);
	NotingFilter* field = new NotingFilter(B_KEY_DOWN, B_DISPATCH_MESSAGE, fWindow);
	{
		LockedWindow lock(fWindow);
		fWindow->AddFilter(window);
		fLine->TextView()->AddFilter(field);
	}
	type_text(fLine, "text");
	EXPECT_TRUE(field->fSeen.empty());
	press_window_key(fWindow, B_ENTER);
	EXPECT_EQ(CountSent(), 1);
	EXPECT_EQ(field->fSeen.size(), 1u);
	EXPECT_TRUE(window->fSeen.empty());
}
