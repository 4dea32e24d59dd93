/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TaskList.h"

#include <gtest/gtest.h>
#include <thread>


TEST(TaskListTest, Record_IsTakenOnce)
{
	TaskList tasks;
	tasks.AddTask(7, TaskList::kTaskUpload, "name", "/local/name");
	EXPECT_EQ(tasks.TakeTask(8), nullptr);

	const std::unique_ptr<TaskInfo> task = tasks.TakeTask(7);
	ASSERT_NE(task, nullptr);
	EXPECT_EQ(task->transID, 7u);
	EXPECT_EQ(task->type, static_cast<uint32>(TaskList::kTaskUpload));
	EXPECT_STREQ(task->path.String(), "name");
	EXPECT_STREQ(task->extra.String(), "/local/name");
	EXPECT_EQ(tasks.TakeTask(7), nullptr);
}


TEST(TaskListTest, NoTexts_AreEmpty)
{
	TaskList tasks;
	tasks.AddTask(1, TaskList::kTaskBanner, NULL, NULL);
	const std::unique_ptr<TaskInfo> task = tasks.TakeTask(1);
	ASSERT_NE(task, nullptr);
	EXPECT_TRUE(task->path.IsEmpty());
	EXPECT_TRUE(task->extra.IsEmpty());
}


TEST(TaskListTest, SameIdTwice_GivesTheOlderFirst)
{
	TaskList tasks;
	tasks.AddTask(1, TaskList::kTaskFileList, "older", NULL);
	tasks.AddTask(1, TaskList::kTaskFileList, "newer", NULL);
	EXPECT_STREQ(tasks.TakeTask(1)->path.String(), "older");
	EXPECT_STREQ(tasks.TakeTask(1)->path.String(), "newer");
}


TEST(TaskListTest, TakenOrEmptied_AreForgotten)
{
	TaskList tasks;
	for (uint32 id = 1; id <= 50; id++)
		tasks.AddTask(id, TaskList::kTaskUserList, NULL, NULL);
	tasks.TakeTask(25);
	tasks.TakeTask(99);
	EXPECT_EQ(tasks.CountTasks(), 49);
	EXPECT_EQ(tasks.TakeTask(25), nullptr);
	tasks.MakeEmpty();
	EXPECT_EQ(tasks.CountTasks(), 0);
}


TEST(TaskListTest, ServerThatNeverReplies_DoesNotFillTheMemory)
{
	TaskList tasks;
	for (uint32 id = 1; id <= 10000; id++)
		tasks.AddTask(id, TaskList::kTaskBanner, NULL, NULL);
	EXPECT_EQ(tasks.CountTasks(), 4096);
	EXPECT_EQ(tasks.TakeTask(10000 - 4096), nullptr);
	EXPECT_NE(tasks.TakeTask(10000 - 4095), nullptr);
	EXPECT_NE(tasks.TakeTask(10000), nullptr);
}


TEST(TaskListTest, TwoThreads_LoseNothing)
{
	TaskList tasks;
	std::thread adder([&] {
		for (uint32 id = 1; id <= 2000; id++)
			tasks.AddTask(id, TaskList::kTaskUserList, "path", NULL);
	});
	for (uint32 id = 1; id <= 2000; id++) {
		while (tasks.TakeTask(id) == nullptr)
			std::this_thread::yield();
	}
	adder.join();
	EXPECT_EQ(tasks.CountTasks(), 0);
}
