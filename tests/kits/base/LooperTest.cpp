/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Looper.h>

#include <atomic>

#include <gtest/gtest.h>
#include <Messenger.h>
#include <String.h>

#include "ExpectSoon.h"
#include "ScriptedLooper.h"


/*	Every one stands at the same address. */
class SameAddressLooper : public ScriptedLooper {
public:
	void* operator new(size_t size);
	void operator delete(void* pointer);
};


alignas(16) static char sPlace[sizeof(SameAddressLooper)];


void*
SameAddressLooper::operator new(size_t /*size*/)
{
	return sPlace;
}


void
SameAddressLooper::operator delete(void* /*pointer*/)
{
}


class NotingHandler : public BHandler {
public:
	void MessageReceived(BMessage* message) override
	{
		if (message->what == 'pass')
			BHandler::MessageReceived(message);
		else
			received++;
	}

	std::atomic<int32> received{0};
};


static void
quit(BLooper* looper)
{
	if (looper->Lock())
		looper->Quit();
}


TEST(LooperTest, Messages_ArriveInTheOrderOfPosting)
{
	ScriptedLooper* looper = new ScriptedLooper;
	looper->Run();
	for (uint32 i = 0; i < 1000; i++)
		EXPECT_EQ(B_OK, looper->PostMessage(i + 1));
	ASSERT_SOON(looper->CountReceived() == 1000);
	std::vector<uint32> received = looper->Received();
	for (uint32 i = 0; i < 1000; i++)
		ASSERT_EQ(i + 1, received[i]);
	quit(looper);
}


TEST(LooperTest, PostedMessage_IsACopyThatIsNotDeliveredBeforeRun)
{
	BString text;
	ScriptedLooper* looper = new ScriptedLooper;
	looper->onMessage = [&](BMessage* message) {
		text = message->GetString("text");
	};
	BMessage message('copy');
	message.AddString("text", "as posted");
	looper->PostMessage(&message);
	message.AddString("text", "later");
	EXPECT_TRUE(looper->IsLocked());
	EXPECT_EQ(B_BAD_THREAD_ID, looper->Thread());
	EXPECT_EQ(0, looper->CountReceived());
	thread_id thread = looper->Run();
	EXPECT_EQ(thread, looper->Thread());
	EXPECT_FALSE(looper->IsLocked());
	ASSERT_SOON(looper->CountReceived() == 1);
	quit(looper);
	EXPECT_STREQ("as posted", text.String());
}


TEST(LooperTest, Handlers_RunOnTheLoopersThreadWithItsLock)
{
	ScriptedLooper* looper = new ScriptedLooper("named looper");
	std::atomic<bool> isRight(false);
	looper->onMessage = [&](BMessage*) {
		isRight = find_thread(NULL) == looper->Thread() && looper->IsLocked();
	};
	thread_id thread = looper->Run();
	EXPECT_EQ(thread, find_thread("named looper"));
	looper->PostMessage('test');
	EXPECT_SOON(isRight.load());
	quit(looper);
}


TEST(LooperTest, Lock_KeepsTheLooperFromDelivering)
{
	Owned<ScriptedLooper> looper;
	looper->Run();
	ASSERT_TRUE(looper->Lock());
	ASSERT_TRUE(looper->Lock());
	looper->PostMessage('test');
	looper->Unlock();
	EXPECT_TRUE(looper->IsLocked());
	EXPECT_EQ(0, looper->CountReceived());
	looper->Unlock();
	EXPECT_FALSE(looper->IsLocked());
	EXPECT_SOON(looper->CountReceived() == 1);
}


TEST(LooperTest, Lock_IsHadInTheMiddleOfAFlood)
{
	Owned<ScriptedLooper> looper;
	looper->onMessage = [&](BMessage*) {
		looper->PostMessage('more');
	};
	looper->Run();
	looper->PostMessage('more');
	for (int i = 0; i < 100; i++) {
		ASSERT_TRUE(looper->Lock());
		looper->Unlock();
	}
}


TEST(LooperTest, DeadLooper_FailsSoftly)
{
	ScriptedLooper* looper = new ScriptedLooper;
	looper->Run();
	BMessenger messenger(looper);
	quit(looper);

	EXPECT_FALSE(looper->Lock());
	EXPECT_FALSE(looper->IsLocked());
	EXPECT_EQ(B_BAD_PORT_ID, messenger.SendMessage('test'));
	EXPECT_FALSE(messenger.IsValid());
}


TEST(LooperTest, AddressUsedAgain_IsAnotherLooper)
{
	SameAddressLooper* first = new SameAddressLooper;
	first->Run();
	BMessenger messenger(first);
	quit(first);

	SameAddressLooper* second = new SameAddressLooper;
	ASSERT_EQ(first, second);
	EXPECT_FALSE(messenger.IsValid());
	EXPECT_EQ(B_BAD_PORT_ID, messenger.SendMessage('old '));
	EXPECT_EQ(B_OK, first->PostMessage('new '));
	second->Run();
	EXPECT_SOON(second->CountReceived() == 1);
	EXPECT_EQ(static_cast<uint32>('new '), second->Received()[0]);
	quit(second);
}


TEST(LooperTest, QuitFromOutside_DropsTheQueueAndWaitsForTheThread)
{
	std::atomic<bool> isDestroyed(false);
	std::atomic<status_t> posted(B_OK);
	std::atomic<bool> isLocked(true);
	ScriptedLooper* looper = new ScriptedLooper;
	looper->onDestroy = [&] {
		isDestroyed = find_thread(NULL) == looper->Thread();
		posted = looper->PostMessage('late');
		isLocked = looper->Lock();
	};
	thread_id thread = looper->Run();
	ASSERT_TRUE(looper->Lock());
	for (int i = 0; i < 100; i++)
		looper->PostMessage('drop');
	looper->Quit();
	EXPECT_TRUE(isDestroyed);
	EXPECT_EQ(B_BAD_PORT_ID, posted);
	EXPECT_FALSE(isLocked);
	EXPECT_EQ(B_BAD_THREAD_ID, wait_for_thread(thread, NULL));
}


TEST(LooperTest, QuitInOwnHandlerOrBeforeRun_DeletesTheLooper)
{
	for (const bool runs : {false, true}) {
		SCOPED_TRACE(runs);
		std::atomic<bool> isDestroyed(false);
		ScriptedLooper* looper = new ScriptedLooper;
		looper->onDestroy = [&] {
			isDestroyed = true;
		};
		looper->onMessage = [&](BMessage*) {
			looper->Quit();
		};
		looper->PostMessage('quit');
		if (runs)
			wait_for_thread(looper->Run(), NULL);
		else
			looper->Quit();
		EXPECT_TRUE(isDestroyed);
		EXPECT_FALSE(looper->Lock());
	}
}


TEST(LooperTest, QuitRequest_RefusedThenAccepted)
{
	std::atomic<int32> asked(0);
	ScriptedLooper* looper = new ScriptedLooper;
	looper->onQuitRequested = [&] {
		return ++asked == 2;
	};
	thread_id thread = looper->Run();
	looper->PostMessage(B_QUIT_REQUESTED);
	looper->PostMessage('test');
	EXPECT_SOON(looper->CountReceived() == 1);
	EXPECT_EQ(1, asked);
	looper->PostMessage(B_QUIT_REQUESTED);
	wait_for_thread(thread, NULL);
	EXPECT_EQ(2, asked);
	EXPECT_FALSE(looper->Lock());
}


TEST(LooperTest, WaitingForTheLock_FailsWhenTheLooperQuits)
{
	ScriptedLooper* looper = new ScriptedLooper;
	looper->Run();
	ASSERT_TRUE(looper->Lock());
	std::atomic<int32> locked(-1);
	thread_id thread = RunThread([&] {
		locked = looper->Lock() ? 1 : 0;
	});
	looper->Quit();
	Join(thread);
	EXPECT_EQ(0, locked);
}


TEST(LooperTest, Handler_HasItsNameAndGetsWhatIsPostedToIt)
{
	NotingHandler handler;
	ScriptedLooper* looper = new ScriptedLooper;
	looper->AddHandler(&handler);
	EXPECT_EQ(looper, handler.Looper());
	looper->Run();

	const BMessenger messenger(&handler);
	EXPECT_EQ(B_OK, messenger.SendMessage('mine'));
	// To a handler a request to quit is a message like others.
	EXPECT_EQ(B_OK, messenger.SendMessage(B_QUIT_REQUESTED));
	EXPECT_EQ(B_OK, messenger.SendMessage('pass'));
	EXPECT_SOON(looper->CountReceived() == 1);
	EXPECT_EQ(2, handler.received);
	EXPECT_EQ(static_cast<uint32>('pass'), looper->Received()[0]);
	quit(looper);
	EXPECT_EQ(NULL, handler.Looper());

	const BHandler named("name");
	EXPECT_STREQ("name", named.Name());
	EXPECT_EQ(NULL, BHandler().Name());
}


TEST(LooperTest, RemovedOrDeletedHandler_GetsNothingAnyMore)
{
	NotingHandler handler;
	NotingHandler* deleted = new NotingHandler;
	Owned<ScriptedLooper> looper;
	looper->AddHandler(&handler);
	looper->AddHandler(deleted);
	const BMessenger messenger(&handler);
	messenger.SendMessage('mine');
	BMessenger(deleted).SendMessage('mine');
	EXPECT_TRUE(looper->RemoveHandler(&handler));
	EXPECT_FALSE(looper->RemoveHandler(&handler));
	delete deleted;
	messenger.SendMessage('mine');
	looper->PostMessage('last');
	looper->Run();
	EXPECT_SOON(looper->CountReceived() == 1);
	EXPECT_EQ(0, handler.received);
}


TEST(LooperTest, FiftyThreads_PostWhileLoopersComeAndGo)
{
	std::atomic<BLooper*> current(NULL);
	std::atomic<bool> stop(false);
	std::atomic<int32> accepted(0);
	std::vector<thread_id> threads(50);
	for (thread_id& thread : threads) {
		thread = RunThread([&] {
			while (!stop) {
				BLooper* looper = current;
				if (looper != NULL && looper->Lock()) {
					if (looper->PostMessage('test') == B_OK)
						accepted++;
					looper->Unlock();
				}
				snooze(100);
			}
		});
	}

	for (int round = 0; round < 30; round++) {
		ScriptedLooper* looper = new ScriptedLooper;
		looper->Run();
		current = looper;
		EXPECT_SOON(looper->CountReceived() >= 20);
		quit(looper);
	}
	stop = true;
	for (thread_id thread : threads)
		Join(thread);
	EXPECT_GE(accepted, 600);
}
