/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Messenger.h>

#include <gtest/gtest.h>
#include <Looper.h>

#include "ExpectSoon.h"
#include "ScriptedLooper.h"


TEST(MessengerTest, Looper_IsItsOwnTarget)
{
	ScriptedLooper* looper = new ScriptedLooper;
	status_t result = B_ERROR;
	BMessenger messenger(looper, NULL, &result);
	EXPECT_EQ(B_OK, result);
	EXPECT_TRUE(messenger.IsValid());
	BLooper* target = NULL;
	EXPECT_EQ(looper, messenger.Target(&target));
	EXPECT_EQ(looper, target);

	EXPECT_EQ(B_OK, messenger.SendMessage('test'));
	looper->Run();
	EXPECT_SOON(looper->CountReceived() == 1);
	looper->Lock();
	looper->Quit();
	EXPECT_FALSE(messenger.IsValid());
	EXPECT_EQ(NULL, messenger.Target(&target));
	EXPECT_EQ(NULL, target);
}


TEST(MessengerTest, BadTargets_AreNamedAndNotValid)
{
	status_t result = B_OK;
	const BHandler* nobody = NULL;
	BMessenger none(nobody, NULL, &result);
	EXPECT_EQ(B_BAD_VALUE, result);
	BHandler alone;
	BMessenger withoutLooper(&alone, NULL, &result);
	EXPECT_EQ(B_BAD_HANDLER, result);

	Owned<ScriptedLooper> first;
	Owned<ScriptedLooper> second;
	BMessenger mismatched(first, second, &result);
	EXPECT_EQ(B_MISMATCHED_VALUES, result);
	EXPECT_FALSE(mismatched.IsValid());

	BMessenger messenger;
	EXPECT_FALSE(messenger.IsValid());
	EXPECT_EQ(B_BAD_PORT_ID, messenger.SendMessage('test'));
	EXPECT_EQ(NULL, messenger.Target(NULL));
}


TEST(MessengerTest, HandlerThatIsGone_FailsSoftly)
{
	ScriptedLooper* looper = new ScriptedLooper;
	BHandler* handler = new BHandler;
	looper->AddHandler(handler);
	BMessenger messenger(handler);
	EXPECT_EQ(B_OK, messenger.SendMessage('test'));
	delete handler;
	EXPECT_EQ(B_BAD_HANDLER, messenger.SendMessage('test'));
	EXPECT_EQ(B_BAD_VALUE, messenger.SendMessage(static_cast<BMessage*>(NULL)));
	looper->Quit();
}
