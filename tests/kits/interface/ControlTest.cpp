/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <gtest/gtest.h>

#include <Bitmap.h>
#include <Button.h>
#include <LayoutBuilder.h>
#include <Message.h>
#include <StringView.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "UserInput.h"


static const uint32 kPressed = 'prsd';


TEST(ControlTest, Invoke_SendsACopyOrWhatItIsGiven)
{
	OwnedWindow window;
	BMessage* message = new BMessage(kPressed);
	message->AddInt32("number", 7);
	BButton* button = new BButton("button", "Press", message);
	window->AddChild(button);
	ShowAndWait(window);

	bool isComplete = false;
	window->onMessage = [&](BMessage* received) {
		void* source = NULL;
		isComplete = received->GetInt32("number", 0) == 7 && received->GetInt64("when", 0) > 0
			&& received->FindPointer("source", &source) == B_OK && source == button
			&& received->HasData("be:value", B_INT32_TYPE);
	};
	EXPECT_EQ(B_OK, button->Invoke());
	EXPECT_EQ(B_OK, button->Invoke());
	EXPECT_SOON(window->Received()->size() == 2);
	EXPECT_EQ(kPressed, window->Received()->front());
	EXPECT_TRUE(isComplete);
	EXPECT_FALSE(message->HasData("when", B_INT64_TYPE));

	BMessage other('othr');
	EXPECT_EQ(B_OK, button->Invoke(&other));
	EXPECT_SOON(window->Received()->size() == 3);
	EXPECT_EQ(static_cast<uint32>('othr'), window->Received()->back());
	EXPECT_EQ(B_BAD_VALUE, BButton("button", "Press", NULL).Invoke());
}


TEST(ControlTest, Message_NamesItsSender)
{
	OwnedWindow window;
	BButton* button = new BButton("button", "Press", new BMessage(kPressed));
	window->AddChild(button);
	ShowAndWait(window);

	BHandler* sender = NULL;
	window->onMessage = [&](BMessage* received) {
		const void* data;
		ssize_t size;
		if (received->FindData("be:sender", B_MESSENGER_TYPE, &data, &size) == B_OK
			&& size == sizeof(BMessenger))
			sender = static_cast<const BMessenger*>(data)->Target(NULL);
	};
	button->Invoke();
	EXPECT_SOON(window->Received()->size() == 1);
	EXPECT_EQ(button, sender);
}


TEST(ControlTest, TargetThatWasSet_IsKeptWhenAttached)
{
	OwnedWindow window;
	OwnedWindow target;
	BButton* button = new BButton("button", "Press", new BMessage(kPressed));
	EXPECT_EQ(B_OK, button->SetTarget(target));
	window->AddChild(button);
	ShowAndWait(window);
	ShowAndWait(target);

	EXPECT_EQ(target, button->Target());
	button->Invoke();
	EXPECT_SOON(target->Received()->size() == 1);
	EXPECT_TRUE(window->Received()->empty());
}


TEST(ControlTest, LabelAndState_AreReadAtOnce)
{
	BButton button("button", "a & b \xff", NULL);
	EXPECT_STREQ("a & b \xff", button.Label());
	EXPECT_TRUE(button.IsEnabled());
	button.SetEnabled(false);
	EXPECT_FALSE(button.IsEnabled());
	EXPECT_STREQ("", BButton("button", NULL, NULL).Label());
}


TEST(ButtonTest, LabelAndIcon_TakeRoom_AndNoButtonGrowsBeyondItsSize)
{
	BButton button("button", "A label that is a good deal longer than that", NULL);
	const BSize longSize = button.PreferredSize();
	EXPECT_GT(longSize.width, BButton("short", "A", NULL).PreferredSize().width);
	EXPECT_GT(longSize.width, button.StringWidth(button.Label()));
	EXPECT_EQ(longSize, button.MaxSize());
	EXPECT_EQ(longSize, button.MinSize());

	BButton picture("picture", "", NULL);
	const BSize before = picture.PreferredSize();
	BBitmap* icon = new BBitmap(BRect(0, 0, 23, 23), B_RGBA32);
	EXPECT_EQ(B_OK, picture.SetIcon(icon, 0));
	delete icon;
	const BSize after = picture.PreferredSize();
	EXPECT_GT(after.height, before.height);
	EXPECT_EQ(B_OK, picture.SetIcon(NULL));

	const BBitmap nothing(BRect(), B_RGBA32);
	EXPECT_NE(B_OK, picture.SetIcon(&nothing));
}


TEST(StringViewTest, Text_IsReadAtOnceAndTheViewsSize_UnlessItMayBeCut)
{
	BStringView view("view", "short");
	EXPECT_STREQ("short", view.Text());
	const BSize before = view.PreferredSize();
	view.SetText("a text that is not so short");
	EXPECT_STREQ("a text that is not so short", view.Text());
	EXPECT_GT(view.PreferredSize().width, before.width);
	EXPECT_GE(view.PreferredSize().width + 1, view.StringWidth(view.Text()));
	view.SetText(NULL);
	EXPECT_STREQ("", view.Text());
	view.SetText("three\r\t <br> &amp;");
	EXPECT_FLOAT_EQ(before.height, view.PreferredSize().height);
	EXPECT_EQ(view.PreferredSize(), view.MaxSize());

	view.SetText("short");
	BFont large;
	large.SetSize(40);
	view.SetFont(&large);
	EXPECT_GT(view.PreferredSize().height, before.height);
	EXPECT_GT(view.PreferredSize().width, before.width);

	BStringView cut("view", "a text that may be cut");
	EXPECT_FLOAT_EQ(cut.PreferredSize().width, cut.MinSize().width);
	cut.SetTruncation(B_TRUNCATE_END);
	EXPECT_LT(cut.MinSize().width, 10);
	EXPECT_STREQ("a text that may be cut", cut.Text());
}


TEST(StringViewTest, LineFeeds_BeginNewLines)
{
	BStringView one("one", "the longest line");
	const BSize size = one.PreferredSize();
	BStringView three("three", "short\nthe longest line\n");
	EXPECT_EQ(BSize(size.width, 3 * (size.height + 1) - 1), three.PreferredSize());
	EXPECT_EQ(three.PreferredSize(), three.MinSize());
	EXPECT_EQ(three.PreferredSize(), three.MaxSize());
	three.SetTruncation(B_TRUNCATE_END);
	EXPECT_EQ(three.PreferredSize().height, three.MinSize().height);
}


TEST(StringViewTest, Lines_AreDrawnBelowOneAnother_EachCutByItself)
{
	OwnedWindow window;
	BStringView* view = new BStringView("view", "a long line\na long line");
	view->SetTruncation(B_TRUNCATE_END);
	view->SetExplicitMaxSize(BSize(view->StringWidth("a long"), B_SIZE_UNSET));
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0).Add(view);
	ShowAndWait(window);
	ASSERT_SOON(view->Bounds().Height() == view->MinSize().height);
	const std::string picture = picture_of(view);
	const std::string first = picture.substr(0, picture.size() / 2);
	EXPECT_EQ(first, picture.substr(picture.size() / 2));
	EXPECT_NE(first, std::string(first.size(), first[0]));
}
