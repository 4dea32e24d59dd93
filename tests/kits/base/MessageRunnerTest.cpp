/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MessageRunner.h>

#include <memory>

#include <gtest/gtest.h>
#include <Looper.h>

#include "ScriptedLooper.h"
#include "WaitFor.h"


static const bigtime_t kInterval = 50000;
static const BMessage kTick('tick');
static const BMessage kClock('clck');


class MessageRunnerTest : public testing::Test {
protected:
	MessageRunnerTest()
		: fLooper(new ServedLooper),
		  fClock(new ScriptedLooper),
		  fClockRunner(BMessenger(fClock), &kClock, kInterval)
	{
		fClock->Run();
	}

	~MessageRunnerTest() override
	{
		if (fLooper->Lock())
			fLooper->Quit();
		if (fClock->Lock())
			fClock->Quit();
	}

	// Ticks of a runner that nothing disturbs, to measure by.
	bool WaitForIntervals(int32 count)
	{
		int32 end = fClock->CountReceived() + count;
		return WaitFor([=] {
			return fClock->CountReceived() >= end;
		});
	}

	ServedLooper* fLooper;
	ScriptedLooper* fClock;
	BMessageRunner fClockRunner;
};


TEST_F(MessageRunnerTest, Ticks_CarryTheMessage)
{
	BMessage message('tick');
	message.AddInt32("value", 7);
	BMessageRunner runner(BMessenger(fLooper), &message, kInterval);
	int32 value = 0;
	fLooper->onMessage = [&](BMessage* tick) {
		value = tick->GetInt32("value", 0);
	};
	fLooper->Run();
	EXPECT_SERVED(fLooper->CountReceived() >= 3);
	EXPECT_EQ(static_cast<uint32>('tick'), fLooper->Received()[0]);
	EXPECT_EQ(7, value);
}


TEST_F(MessageRunnerTest, Count_EndsTheRunner)
{
	BMessageRunner runner(BMessenger(fLooper), &kTick, kInterval, 2);
	fLooper->Run();
	EXPECT_SERVED(fLooper->CountReceived() == 2);
	EXPECT_TRUE(WaitForIntervals(2));
	ServeAll();
	EXPECT_EQ(2, fLooper->CountReceived());
}


TEST_F(MessageRunnerTest, UndeliveredTick_IsTheOnlyOne)
{
	BMessageRunner runner(BMessenger(fLooper), &kTick, kInterval);
	EXPECT_TRUE(WaitForIntervals(4));
	fLooper->Run();
	ServeAll();
	EXPECT_EQ(1, fLooper->CountReceived());
	EXPECT_SERVED(fLooper->CountReceived() == 2);
}


TEST_F(MessageRunnerTest, Deleted_SendsNothingAnyMore)
{
	auto runner = std::make_unique<BMessageRunner>(BMessenger(fLooper), &kTick, kInterval);
	fLooper->Run();
	EXPECT_SERVED(fLooper->CountReceived() >= 1);
	runner.reset();
	ServeAll();
	int32 count = fLooper->CountReceived();
	EXPECT_TRUE(WaitForIntervals(3));
	ServeAll();
	EXPECT_EQ(count, fLooper->CountReceived());
}


TEST_F(MessageRunnerTest, BadArgumentsOrATargetThatIsGone_SendNothing)
{
	const BMessenger target(fLooper);
	BMessageRunner withoutInterval(target, &kTick, 0);
	BMessageRunner withoutCount(target, &kTick, kInterval, 0);
	BMessageRunner withoutTarget(BMessenger(), &kTick, kInterval);
	fLooper->Run();
	EXPECT_TRUE(WaitForIntervals(2));
	ServeAll();
	EXPECT_EQ(0, fLooper->CountReceived());

	BMessageRunner runner(BMessenger(fLooper), &kTick, kInterval);
	ASSERT_TRUE(fLooper->Lock());
	fLooper->Quit();
	EXPECT_TRUE(WaitForIntervals(2));
}
