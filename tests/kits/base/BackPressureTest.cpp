/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>

#include <gtest/gtest.h>
#include <Looper.h>
#include <LooperRegistry.h>

#include "ExpectSoon.h"
#include "ScriptedLooper.h"


static const int32 kLimit = 20000;


/*	Waits until a poster waits for room. */
static bool
wait_for_full_queue(const BLooper* looper)
{
	LooperRecordRef record = LooperRegistry::Default()->Find(looper);
	return WaitFor([&] {
		return record->CountWaitingPosters() == 1;
	});
}


/*	A thread that posts to a looper until it has posted enough or is refused. */
struct Poster {
	explicit Poster(BLooper* looper, int32 messages, int32 dataSize = 0);

	std::atomic<int32> posted{0};
	std::atomic<status_t> result{B_OK};
	thread_id thread;
};


Poster::Poster(BLooper* looper, int32 messages, int32 dataSize)
{
	thread = RunThread([=] {
		BMessage message('post');
		if (dataSize > 0)
			message.AddData("data", B_RAW_TYPE,
				std::string(static_cast<size_t>(dataSize), 'x').data(), dataSize);
		for (int32 i = 0; i < messages; i++) {
			status_t status = looper->PostMessage(&message);
			if (status != B_OK) {
				result = status;
				return;
			}
			posted++;
		}
	});
}


TEST(BackPressureTest, Poster_WaitsWhileTheQueueIsFull)
{
	Owned<ServedLooper> looper;
	Poster poster(looper, 100000);
	ASSERT_TRUE(wait_for_full_queue(looper));
	EXPECT_EQ(kLimit, poster.posted);

	int32 maxWaiting = 0;
	int32 received = 0;
	looper->onMessage = [&](BMessage*) {
		received++;
		maxWaiting = std::max(maxWaiting, poster.posted - received);
	};
	looper->Run();
	ASSERT_SERVED(received == 100000);
	EXPECT_LE(maxWaiting, kLimit);
	Join(poster.thread);
}


TEST(BackPressureTest, LargeMessages_AreCountedInBytes)
{
	Owned<ServedLooper> looper;
	Poster poster(looper, 20, 1024 * 1024);
	ASSERT_TRUE(wait_for_full_queue(looper));
	EXPECT_EQ(8, poster.posted);
	looper->Run();
	ASSERT_SERVED(looper->CountReceived() == 20);
	Join(poster.thread);
}


TEST(BackPressureTest, WaitingPoster_FailsWhenTheTargetDies)
{
	ServedLooper* looper = new ServedLooper;
	Poster poster(looper, 100000);
	ASSERT_TRUE(wait_for_full_queue(looper));
	EXPECT_EQ(kLimit, poster.posted);
	looper->Quit();
	EXPECT_SOON(poster.result == B_BAD_PORT_ID);
	EXPECT_EQ(kLimit, poster.posted);
	Join(poster.thread);
}


TEST(BackPressureTest, WhatOnePassesOnToASlowerOne_IsBounded)
{
	ServedLooper* slow = new ServedLooper;
	ServedLooper* controller = new ServedLooper;
	int32 passedOn = 0;
	int32 received = 0;
	int32 maxWaiting = 0;
	controller->onMessage = [&](BMessage* message) {
		slow->PostMessage(message);
		passedOn++;
	};
	slow->onMessage = [&](BMessage*) {
		maxWaiting = std::max(maxWaiting, passedOn - received);
		received++;
		for (bigtime_t end = system_time() + 10; system_time() < end;)
			;
	};
	slow->Run();
	controller->Run();
	const int32 count = 3 * kLimit;
	Poster poster(controller, count);
	EXPECT_SERVED(received == count);
	EXPECT_LE(maxWaiting, kLimit + 1);
	Join(poster.thread);
	for (ServedLooper* looper : {controller, slow}) {
		ASSERT_TRUE(looper->Lock());
		looper->Quit();
	}
}


TEST(BackPressureTest, MainThreadOwnThreadAndHolderOfTheLock_NeverWait)
{
	for (const char* poster : {"main thread", "own thread", "holder of the lock"}) {
		SCOPED_TRACE(poster);
		Owned<ScriptedLooper> looper;
		auto postMany = [&looper] {
			for (int32 i = 0; i < kLimit + 5000; i++)
				ASSERT_EQ(B_OK, looper->PostMessage('post'));
		};
		looper->onMessage = [postMany](BMessage* message) {
			if (message->what == 'more')
				postMany();
		};
		if (poster[0] == 'm') {
			looper->Unlock();
			postMany();
			ASSERT_TRUE(looper->Lock());
		} else if (poster[0] == 'o')
			looper->PostMessage('more');
		looper->Run();
		if (poster[0] == 'h') {
			Join(RunThread([&] {
				looper->Lock();
				postMany();
				looper->Unlock();
			}));
		}
		EXPECT_SOON(looper->CountReceived() >= kLimit + 5000);
	}
}


TEST(BackPressureTest, ThreadThatIsWaitedFor_NeverWaits)
{
	// Nobody takes anything out of this queue, so that waiting for the poster could go on for ever.
	Owned<ServedLooper> looper;
	Poster poster(looper, kLimit + 5000);
	ASSERT_TRUE(wait_for_full_queue(looper));
	EXPECT_EQ(kLimit, poster.posted);
	EXPECT_EQ(B_OK, wait_for_thread(poster.thread, NULL));
	EXPECT_EQ(kLimit + 5000, poster.posted);
}
