/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What ends in the debugger on Haiku ends here, too, in the builds that tests are made of.

#include <gtest/gtest.h>

#include <Handler.h>
#include <Looper.h>

#include "RunThread.h"


class StrictLooperTest : public testing::Test {
protected:
	StrictLooperTest()
		: fLooper(new BLooper("strict"))
	{
		// The process has threads, which a mere copy of it would lack.
		testing::GTEST_FLAG(death_test_style) = "threadsafe";
		fLooper->Run();
	}

	~StrictLooperTest() override { _Quit(); }

	void _Quit()
	{
		if (fLooper->Lock())
			fLooper->Quit();
	}

	BLooper* fLooper;
	BHandler fHandler;
};


TEST_F(StrictLooperTest, PostToADeletedLooper_Aborts)
{
	_Quit();
	EXPECT_DEATH(fLooper->PostMessage('late'), "BLooper::PostMessage.*the looper is gone");
}


TEST_F(StrictLooperTest, HandlerAddedOrRemovedWithoutTheLock_Aborts)
{
	EXPECT_DEATH(fLooper->AddHandler(&fHandler), "BLooper::AddHandler.*must be locked");
	ASSERT_TRUE(fLooper->Lock());
	fLooper->AddHandler(&fHandler);
	fLooper->Unlock();
	EXPECT_DEATH(fLooper->RemoveHandler(&fHandler), "BLooper::RemoveHandler.*must be locked");
	ASSERT_TRUE(fLooper->Lock());
	EXPECT_TRUE(fLooper->RemoveHandler(&fHandler));
	fLooper->Unlock();
}


TEST_F(StrictLooperTest, QuitWithoutTheLock_Aborts)
{
	EXPECT_DEATH(fLooper->Quit(), "BLooper::Quit.*must be locked");
}


TEST_F(StrictLooperTest, LockOfAnotherThread_IsNotTheCallers)
{
	ASSERT_TRUE(fLooper->Lock());
	EXPECT_DEATH(Join(RunThread([this] {
		fLooper->AddHandler(&fHandler);
	})),
		"BLooper::AddHandler.*must be locked");
	fLooper->Unlock();
}


TEST_F(StrictLooperTest, RunByWhoHasNotLockedIt_Aborts)
{
	BLooper* looper = new BLooper("another");
	EXPECT_DEATH(Join(RunThread([looper] {
		looper->Run();
	})),
		"BLooper::Run.*must be locked");
	looper->Quit();
}
