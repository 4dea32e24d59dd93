/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TimerQueue.h"

#include <gtest/gtest.h>


using demo::TimerQueue;
using std::chrono::milliseconds;


TEST(TimerQueueTest, Empty_NothingToWaitFor)
{
	TimerQueue timers;
	EXPECT_EQ(timers.MillisecondsToNext(), -1);
	timers.RunDue();
}


TEST(TimerQueueTest, SeveralDue_RunInTheirOrder)
{
	TimerQueue timers;
	std::string order;
	timers.Add(milliseconds(0), [&order] {
		order += "a";
	});
	timers.Add(milliseconds(0), [&order] {
		order += "b";
	});
	timers.Add(milliseconds(3600000), [&order] {
		order += "c";
	});
	timers.RunDue();
	EXPECT_EQ(order, "ab");
	EXPECT_GT(timers.MillisecondsToNext(), 0);
}


TEST(TimerQueueTest, Cancelled_NeverRuns)
{
	TimerQueue timers;
	bool ran = false;
	uint64_t id = timers.Add(milliseconds(0), [&ran] {
		ran = true;
	});
	timers.Cancel(id);
	timers.Cancel(id);
	timers.Cancel(12345);
	timers.RunDue();
	EXPECT_FALSE(ran);
	EXPECT_EQ(timers.MillisecondsToNext(), -1);
}


TEST(TimerQueueTest, ActionCancelsTheNext_WhichNeverRuns)
{
	TimerQueue timers;
	bool ran = false;
	uint64_t second = 0;
	timers.Add(milliseconds(0), [&] {
		timers.Cancel(second);
	});
	second = timers.Add(milliseconds(0), [&ran] {
		ran = true;
	});
	timers.RunDue();
	EXPECT_FALSE(ran);
}


TEST(TimerQueueTest, ActionAddsAnother_WaitsForTheNextCall)
{
	TimerQueue timers;
	int runs = 0;
	std::function<void()> again = [&] {
		runs++;
		timers.Add(milliseconds(0), again);
	};
	timers.Add(milliseconds(0), again);
	timers.RunDue();
	EXPECT_EQ(runs, 1);
	timers.RunDue();
	EXPECT_EQ(runs, 2);
}
