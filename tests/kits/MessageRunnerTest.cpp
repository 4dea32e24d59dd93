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


namespace {


const bigtime_t kInterval = 50000;


class MessageRunnerTest : public ::testing::Test {
protected:
	MessageRunnerTest()
		: fLooper(new ServedLooper),
		  fClock(new ScriptedLooper),
		  fClockRunner(BMessenger(fClock), BMessage('clck'), kInterval)
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


} // namespace


TEST_F(MessageRunnerTest, Ticks_CarryTheMessage)
{
	BMessage message('tick');
	message.AddInt32("value", 7);
	BMessageRunner runner(BMessenger(fLooper), &message, kInterval);
	EXPECT_EQ(B_OK, runner.InitCheck());
	int32 value = 0;
	fLooper->onMessage = [&](BMessage* tick) {
		value = tick->GetInt32("value", 0);
	};
	fLooper->Run();
	EXPECT_TRUE(ServeUntil([&] {
		return fLooper->CountReceived() >= 3;
	}));
	EXPECT_EQ(uint32('tick'), fLooper->Received()[0]);
	EXPECT_EQ(7, value);
}


TEST_F(MessageRunnerTest, Count_EndsTheRunner)
{
	BMessageRunner runner(BMessenger(fLooper), BMessage('tick'), kInterval, 2);
	fLooper->Run();
	EXPECT_TRUE(ServeUntil([&] {
		return fLooper->CountReceived() == 2;
	}));
	EXPECT_TRUE(WaitForIntervals(2));
	ServeAll();
	EXPECT_EQ(2, fLooper->CountReceived());
	EXPECT_EQ(B_BAD_VALUE, runner.GetInfo(NULL, NULL));
}


TEST_F(MessageRunnerTest, UndeliveredTick_IsTheOnlyOne)
{
	BMessageRunner runner(BMessenger(fLooper), BMessage('tick'), kInterval);
	EXPECT_TRUE(WaitForIntervals(4));
	fLooper->Run();
	ServeAll();
	EXPECT_EQ(1, fLooper->CountReceived());
	EXPECT_TRUE(ServeUntil([&] {
		return fLooper->CountReceived() == 2;
	}));
}


TEST_F(MessageRunnerTest, Deleted_SendsNothingAnyMore)
{
	auto runner = std::make_unique<BMessageRunner>(BMessenger(fLooper), BMessage('tick'),
		kInterval);
	fLooper->Run();
	EXPECT_TRUE(ServeUntil([&] {
		return fLooper->CountReceived() >= 1;
	}));
	runner.reset();
	ServeAll();
	int32 count = fLooper->CountReceived();
	EXPECT_TRUE(WaitForIntervals(3));
	ServeAll();
	EXPECT_EQ(count, fLooper->CountReceived());
}


TEST_F(MessageRunnerTest, TargetThatIsGone_EndsTheRunner)
{
	BMessageRunner runner(BMessenger(fLooper), BMessage('tick'), kInterval);
	EXPECT_EQ(B_OK, runner.GetInfo(NULL, NULL));
	fLooper->Quit();
	EXPECT_TRUE(WaitFor([&] {
		return runner.GetInfo(NULL, NULL) != B_OK;
	}));
}


TEST_F(MessageRunnerTest, Settings_CanBeChanged)
{
	BMessageRunner runner(BMessenger(fLooper), BMessage('tick'), 60000000, 5);
	bigtime_t interval = 0;
	int32 count = 0;
	EXPECT_EQ(B_OK, runner.GetInfo(&interval, &count));
	EXPECT_EQ(60000000, interval);
	EXPECT_EQ(5, count);

	EXPECT_EQ(B_OK, runner.SetInterval(1));
	EXPECT_EQ(B_OK, runner.SetCount(1));
	EXPECT_EQ(B_OK, runner.GetInfo(&interval, &count));
	EXPECT_EQ(50000, interval);
	EXPECT_EQ(1, count);
	fLooper->Run();
	EXPECT_TRUE(ServeUntil([&] {
		return fLooper->CountReceived() == 1;
	}));
	EXPECT_EQ(B_BAD_VALUE, runner.SetInterval(-1));
}


TEST_F(MessageRunnerTest, BadArguments_AreRefused)
{
	BMessenger target(fLooper);
	BMessage message('tick');
	EXPECT_NE(B_OK, BMessageRunner(target, static_cast<BMessage*>(NULL), kInterval).InitCheck());
	EXPECT_NE(B_OK, BMessageRunner(target, message, 0).InitCheck());
	EXPECT_NE(B_OK, BMessageRunner(target, message, kInterval, 0).InitCheck());
	EXPECT_NE(B_OK, BMessageRunner(BMessenger(), message, kInterval).InitCheck());
}
