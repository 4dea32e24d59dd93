/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What ends in the debugger on Haiku ends here, too, in the builds that tests are made of.

#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include <Button.h>
#include <LayoutBuilder.h>
#include <ListView.h>
#include <Message.h>
#include <ScrollView.h>
#include <StringView.h>
#include <TextControl.h>
#include <TextView.h>

#include "ExpectSoon.h"
#include "RunThread.h"
#include "ScriptedWindow.h"
#include "WindowMain.h"


/*!	Two windows on the screen, each of which does what a test tells it to in a handler. */
class StrictWindowTest : public testing::Test {
protected:
	StrictWindowTest()
		: fText(new BTextView("text", B_WILL_DRAW)),
		  fList(new BListView("list")),
		  fLabel(new BStringView("label", "label", B_WILL_DRAW)),
		  fField(new BTextControl("field", "Field:", "", NULL, B_WILL_DRAW)),
		  fButton(new BButton("button", "Button", NULL, B_WILL_DRAW))
	{
		// Others than the main thread would be missing in a mere copy of the process.
		testing::GTEST_FLAG(death_test_style) = "threadsafe";
		BLayoutBuilder::Group<>(fWindow, B_VERTICAL)
			.Add(fText)
			.Add(fList)
			.Add(fLabel)
			.Add(fField)
			.Add(fButton);
		fWindow->Show();
		fOther->Show();
	}

	// In a handler of a window.
	void _Do(ScriptedWindow* window, const std::function<void()>& what)
	{
		bool isDone = false;
		window->onMessage = [&](BMessage*) {
			what();
			isDone = true;
		};
		window->PostMessage('do  ');
		EXPECT_SOON(isDone);
	}

	OwnedWindow fWindow;
	OwnedWindow fOther;
	BTextView* fText;
	BListView* fList;
	BStringView* fLabel;
	BTextControl* fField;
	BButton* fButton;
};


TEST_F(StrictWindowTest, ViewTouchedWithoutTheLock_AbortsWithTheMethodsName)
{
	const struct {
		std::function<void()> call;
		const char* message;
	} cases[] = {
		{[this] {
			 fText->Invalidate();
		 },
			"BView::Invalidate.*must be locked"},
		{[this] {
			 fText->MakeFocus(true);
		 },
			"BView::MakeFocus.*must be locked"},
		{[this] {
			 fText->Bounds();
		 },
			"BView::Bounds.*must be locked"},
		{[this] {
			 fText->SetText("text");
		 },
			"BTextView::SetText.*must be locked"},
		{[this] {
			 fText->Insert(0, "text", 4);
		 },
			"BTextView::Insert.*must be locked"},
		{[this] {
			 fText->TextLength();
		 },
			"BTextView::TextLength.*must be locked"},
		{[this] {
			 fList->DeselectAll();
		 },
			"BListView::DeselectAll.*must be locked"},
		{[this] {
			 fList->CountItems();
		 },
			"BListView::CountItems.*must be locked"},
		{[this] {
			 fLabel->SetText("text");
		 },
			"BStringView::SetText.*must be locked"},
		{[this] {
			 fField->SetText("text");
		 },
			"BTextControl::SetText.*must be locked"},
		{[this] {
			 fButton->SetEnabled(false);
		 },
			"BControl::SetEnabled.*must be locked"},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.message);
		{
			const FreeWindows nobodys;
			EXPECT_DEATH(entry.call(), entry.message);
		}
		entry.call();
	}
}


TEST_F(StrictWindowTest, OwnHandler_HasTheLock)
{
	_Do(fWindow, [this] {
		fLabel->SetText("text");
	});
	EXPECT_STREQ("text", fLabel->Text());
}


TEST_F(StrictWindowTest, HandlerOfAnotherWindow_HasNot)
{
	EXPECT_DEATH(_Do(fOther,
					 [this] {
						 fLabel->SetText("text");
					 }),
		"BStringView::SetText.*must be locked");
	_Do(fOther, [this] {
		ASSERT_TRUE(fWindow->Lock());
		fLabel->SetText("text");
		fWindow->Unlock();
	});
	EXPECT_DEATH(_Do(fOther,
					 [this] {
						 fWindow->Lock();
						 fWindow->Unlock();
						 fLabel->SetText("text");
					 }),
		"BStringView::SetText.*must be locked");
}


TEST_F(StrictWindowTest, LockOfAnotherHandlerThatWaits_IsNotTheCallers)
{
	// The other one's handler waits for a thread, with the first one locked.
	EXPECT_DEATH(
		{
			_Do(fOther, [this] {
				fWindow->Lock();
				OwnedWindow third;
				third->onMessage = [this](BMessage*) {
					fLabel->SetText("text");
				};
				third->Show();
				third->PostMessage('do  ');
				Join(RunThread([] {
					snooze(10000000);
				}));
			});
		},
		"BStringView::SetText.*must be locked");
}


TEST_F(StrictWindowTest, LockedWindow_IsServedWhenItIsUnlocked)
{
	int32 received = 0;
	fWindow->onMessage = [&](BMessage*) {
		received++;
	};
	_Do(fOther, [&] {
		ASSERT_TRUE(fWindow->Lock());
		fWindow->PostMessage('test');
		Join(RunThread([] {}));
		EXPECT_EQ(0, received);
		fWindow->Unlock();
	});
	EXPECT_SOON(received == 1);
}


TEST_F(StrictWindowTest, WindowUsedOnAnotherThread_Aborts)
{
	EXPECT_DEATH(Join(RunThread([this] {
		fWindow->SetTitle("title");
	})),
		"BWindow::SetTitle.*main thread");
}


TEST_F(StrictWindowTest, QuitWithoutTheLock_Aborts)
{
	EXPECT_DEATH(fWindow->Quit(), "BWindow::Quit.*must be locked");
}


TEST_F(StrictWindowTest, NewWindow_IsLockedUntilItIsShown)
{
	OwnedWindow window;
	BStringView* label = new BStringView("label", "label", B_WILL_DRAW);
	BLayoutBuilder::Group<>(window, B_VERTICAL).Add(label);
	label->SetText("text");
	window->Show();
	EXPECT_DEATH(label->SetText("other"), "BStringView::SetText.*must be locked");
}
