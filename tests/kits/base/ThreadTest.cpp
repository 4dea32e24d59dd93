/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <OS.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <set>
#include <string>

#include <dirent.h>
#include <gtest/gtest.h>

#include "ExpectSoon.h"


static status_t
answer(void* data)
{
	return *static_cast<status_t*>(data);
}


static status_t
raise_flag(void* data)
{
	*static_cast<std::atomic<bool>*>(data) = true;
	return B_OK;
}


static status_t
wait_for_flag(void* data)
{
	std::atomic<bool>* flag = static_cast<std::atomic<bool>*>(data);
	while (!*flag)
		snooze(1000);
	return B_OK;
}


static status_t
own_id(void* data)
{
	*static_cast<thread_id*>(data) = find_thread(NULL);
	return B_OK;
}


static status_t
wait_for_itself(void* /*data*/)
{
	return wait_for_thread(find_thread(NULL), NULL);
}


static status_t
wait_for_other(void* data)
{
	return wait_for_thread(*static_cast<thread_id*>(data), NULL);
}


static bool
has_system_thread(const char* name)
{
	bool found = false;
	DIR* tasks = opendir("/proc/self/task");
	for (dirent* task = readdir(tasks); task != NULL; task = readdir(tasks)) {
		std::string path = std::string("/proc/self/task/") + task->d_name + "/comm";
		FILE* file = fopen(path.c_str(), "r");
		if (file == NULL)
			continue;
		char text[32] = "";
		if (fgets(text, sizeof(text), file) != NULL
			&& std::string(text) == std::string(name) + "\n")
			found = true;
		fclose(file);
	}
	closedir(tasks);
	return found;
}


TEST(ThreadTest, Spawned_RunsOnlyWhenResumed)
{
	std::atomic<bool> flag(false);
	thread_id thread = spawn_thread(raise_flag, "suspended", B_NORMAL_PRIORITY, &flag);
	ASSERT_GT(thread, 0);
	EXPECT_FALSE(flag);
	EXPECT_EQ(B_OK, resume_thread(thread));
	EXPECT_SOON(flag.load());
}


TEST(ThreadTest, Wait_GivesTheReturnValueAndStartsASuspendedThread)
{
	for (const bool isResumed : {false, true}) {
		SCOPED_TRACE(isResumed);
		status_t value = 42;
		thread_id thread = spawn_thread(answer, "answer", B_NORMAL_PRIORITY, &value);
		if (isResumed)
			resume_thread(thread);
		status_t returned = 0;
		const status_t status = wait_for_thread(thread, &returned);
		// A resumed one may have ended before.
		if (!isResumed || status == B_OK) {
			EXPECT_EQ(B_OK, status);
			EXPECT_EQ(42, returned);
		} else
			EXPECT_EQ(B_BAD_THREAD_ID, status);
	}
}


TEST(ThreadTest, EndedOrNoThread_FailsAtOnce)
{
	status_t value = 0;
	thread_id thread = spawn_thread(answer, "answer", B_NORMAL_PRIORITY, &value);
	wait_for_thread(thread, NULL);
	EXPECT_EQ(B_BAD_THREAD_ID, wait_for_thread(thread, NULL));
	EXPECT_EQ(B_BAD_THREAD_ID, resume_thread(thread));
	EXPECT_EQ(B_BAD_THREAD_ID, wait_for_thread(-1, NULL));
	EXPECT_EQ(B_BAD_THREAD_ID, wait_for_thread(0, NULL));
	EXPECT_EQ(B_BAD_VALUE, spawn_thread(NULL, "none", B_NORMAL_PRIORITY, NULL));
}


TEST(ThreadTest, Wait_OnItself_Fails)
{
	thread_id thread = spawn_thread(wait_for_itself, "self", B_NORMAL_PRIORITY, NULL);
	status_t returned = B_OK;
	EXPECT_EQ(B_OK, wait_for_thread(thread, &returned));
	EXPECT_EQ(B_NOT_ALLOWED, returned);
}


TEST(ThreadTest, TwoWaiters_BothComeBack)
{
	std::atomic<bool> flag(false);
	thread_id thread = spawn_thread(wait_for_flag, "waited for", B_NORMAL_PRIORITY, &flag);
	resume_thread(thread);
	thread_id other = spawn_thread(wait_for_other, "other waiter", B_NORMAL_PRIORITY, &thread);
	resume_thread(other);
	flag = true;
	status_t status = wait_for_thread(thread, NULL);
	EXPECT_TRUE(status == B_OK || status == B_BAD_THREAD_ID);
	status = wait_for_thread(other, NULL);
	EXPECT_TRUE(status == B_OK || status == B_BAD_THREAD_ID);
}


TEST(ThreadTest, Resume_OfARunningThread_Fails)
{
	std::atomic<bool> flag(false);
	thread_id thread = spawn_thread(wait_for_flag, "running", B_NORMAL_PRIORITY, &flag);
	EXPECT_EQ(B_OK, resume_thread(thread));
	EXPECT_EQ(B_BAD_THREAD_STATE, resume_thread(thread));
	flag = true;
	wait_for_thread(thread, NULL);
}


TEST(ThreadTest, Ids_AreNeverUsedAgain)
{
	// The main thread has one, too.
	std::set<thread_id> ids = {find_thread(NULL)};
	EXPECT_GT(find_thread(NULL), 0);
	EXPECT_EQ(find_thread(NULL), find_thread(NULL));
	for (int i = 0; i < 300; i++) {
		thread_id id = -1;
		thread_id thread = spawn_thread(own_id, "short", B_NORMAL_PRIORITY, &id);
		ASSERT_GT(thread, 0);
		wait_for_thread(thread, NULL);
		EXPECT_EQ(thread, id);
		EXPECT_TRUE(ids.insert(thread).second);
	}
}


TEST(ThreadTest, Name_IsKnownToTheSystemAndToTheKit)
{
	std::atomic<bool> flag(false);
	thread_id thread = spawn_thread(wait_for_flag, "HL:TestThread", B_NORMAL_PRIORITY, &flag);
	resume_thread(thread);
	EXPECT_SOON(has_system_thread("HL:TestThread"));
	EXPECT_EQ(thread, find_thread("HL:TestThread"));

	flag = true;
	EXPECT_SOON(find_thread("HL:TestThread") == B_NAME_NOT_FOUND);
	EXPECT_SOON(!has_system_thread("HL:TestThread"));
}


TEST(ThreadTest, Snooze_LastsAtLeastAsLong)
{
	bigtime_t before = system_time();
	EXPECT_EQ(B_OK, snooze(2000));
	EXPECT_GE(system_time() - before, 2000);
	EXPECT_EQ(B_OK, snooze(-1));
}
