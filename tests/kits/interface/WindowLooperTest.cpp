/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <string>

#include <gtest/gtest.h>

#include <Application.h>
#include <Locker.h>
#include <Message.h>
#include <MessageRunner.h>
#include <Messenger.h>
#include <OS.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"


static const uint32 kPing = 'ping';
static const uint32 kPong = 'pong';
static const uint32 kWait = 'wait';


TEST(WindowLooperTest, BeforeShow_NothingIsDelivered)
{
	OwnedWindow window;
	OwnedWindow other;
	EXPECT_EQ(B_OK, window->PostMessage(kPing));

	ShowAndWait(other);
	EXPECT_TRUE(window->Received()->empty());

	window->Show();
	EXPECT_SOON(window->Received()->size() == 1);
}


TEST(WindowLooperTest, PostRightAfterTheLastWasServed_IsServedToo)
{
	const uint32 count = 100;
	std::atomic<uint32> served(0);
	std::atomic<bool> givesUp(false);
	OwnedWindow window;
	ShowAndWait(window);
	window->onMessage = [&](BMessage*) {
		served++;
	};

	const thread_id poster = RunThread([&] {
		for (uint32 code = 1; code <= count; code++) {
			window->PostMessage(code);
			while (served < code && !givesUp)
				snooze(100);
		}
	});
	EXPECT_SOON(served == count);
	givesUp = true;
	Join(poster);
}


TEST(WindowLooperTest, QuitRequest_IsRefusedAndThenAccepted)
{
	int asked = 0;
	ScriptedWindow* window = new ScriptedWindow;
	const BMessenger messenger(window);
	ShowAndWait(window);
	window->onQuitRequested = [&] {
		return ++asked == 2;
	};

	window->PostMessage(B_QUIT_REQUESTED);
	EXPECT_SOON(asked == 1);
	EXPECT_TRUE(messenger.IsValid());

	window->PostMessage(B_QUIT_REQUESTED);
	EXPECT_SOON(!messenger.IsValid());
	EXPECT_EQ(2, asked);
}


TEST(WindowLooperTest, QuitInTheOwnHandler_DeletesTheWindowWhenTheHandlerIsLeft)
{
	std::string order;
	ScriptedWindow* window = new ScriptedWindow;
	ShowAndWait(window);
	window->onDestroy = [&] {
		order += "d";
	};
	window->onMessage = [&](BMessage*) {
		window->Quit();
		EXPECT_NE(B_OK, window->PostMessage(kPing));
		order += "h";
	};

	window->PostMessage(kPing);
	EXPECT_SOON(order.size() == 2);
	EXPECT_EQ("hd", order);
}


TEST(WindowLooperTest, QuittingWindow_TakesNoMessagesAndServesOthersWhileItWaits)
{
	HeldThread held;
	ScriptedWindow* dying = new ScriptedWindow;
	const BMessenger messenger(dying);
	const std::shared_ptr<std::vector<uint32>> received = dying->Received();
	OwnedWindow other;
	ShowAndWait(dying);
	ShowAndWait(other);
	dying->onDestroy = [&] {
		held.Wait();
	};
	other->onMessage = [&](BMessage*) {
		EXPECT_TRUE(dying->IsHidden());
		EXPECT_FALSE(dying->Lock());
		EXPECT_NE(B_OK, messenger.SendMessage(kPing));
		held.Release();
	};

	dying->PostMessage(B_QUIT_REQUESTED);
	dying->PostMessage(kPing);
	other->PostMessage(kPing);
	EXPECT_SOON(!messenger.IsValid() && held.IsReleased());
	EXPECT_TRUE(received->empty());
}


TEST(WindowLooperTest, QuitByAnother_WhileAHandlerWaits_WaitsForTheHandler)
{
	HeldThread held;
	std::string order;
	ScriptedWindow* waiting = new ScriptedWindow;
	OwnedWindow other;
	ShowAndWait(waiting);
	ShowAndWait(other);
	waiting->onMessage = [&](BMessage*) {
		held.Wait();
		order += "h";
	};
	waiting->onDestroy = [&] {
		order += "d";
	};
	other->onMessage = [&](BMessage*) {
		ASSERT_TRUE(waiting->Lock());
		waiting->Quit();
		EXPECT_FALSE(waiting->Lock());
		order += "q";
		held.Release();
	};

	waiting->PostMessage(kWait);
	other->PostMessage(kPing);
	EXPECT_SOON(order.size() == 3);
	EXPECT_EQ("qhd", order);
}


TEST(WindowLooperTest, FloodInOneWindow_LeavesOthersAndATimerServed)
{
	std::atomic<bool> stopped(false);
	OwnedWindow flooded;
	OwnedWindow other;
	ShowAndWait(flooded);
	ShowAndWait(other);
	const thread_id thread = RunThread([&] {
		while (!stopped && flooded->PostMessage(kPing) == B_OK)
			continue;
	});
	ASSERT_SOON(flooded->Received()->size() > 1000);

	const BMessage tick(kPong);
	const BMessageRunner runner(BMessenger(other), &tick, 10000);
	EXPECT_SOON(other->Received()->size() >= 5);

	stopped = true;
	Join(thread);
}


TEST(WindowLooperTest, FiftyThreadsPostWhileWindowsComeAndGo_NothingGoesAstray)
{
	BLocker locker("target");
	BMessenger target;
	std::atomic<bool> stopped(false);
	std::atomic<int> running(50);
	for (int i = 0; i < 50; i++) {
		RunThread([&] {
			while (!stopped) {
				locker.Lock();
				const BMessenger window = target;
				locker.Unlock();
				if (window.SendMessage(kPing) != B_OK)
					snooze(100);
			}
			running--;
		});
	}

	for (int i = 0; i < 30; i++) {
		ScriptedWindow* window = new ScriptedWindow;
		const BMessenger messenger(window);
		const std::shared_ptr<std::vector<uint32>> received = window->Received();
		window->Show();
		locker.Lock();
		target = messenger;
		locker.Unlock();
		EXPECT_SOON(received->size() >= 20);
		EXPECT_TRUE(window->Lock());
		window->Quit();
		EXPECT_FALSE(messenger.IsValid());
	}

	stopped = true;
	EXPECT_SOON(running == 0);
}
