/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TaskList.h"

#include <Autolock.h>


// How many requests there is room for without asking for more memory.
static const int32 kUsualTasks = 20;


TaskList::TaskList()
	: fLock("pending requests"),
	  fTasks(kUsualTasks)
{
}


TaskList::~TaskList()
{
	MakeEmpty();
}


/*!	\param path May be NULL, like \a extra: empty. */
void
TaskList::AddTask(uint32 trans, uint32 type, const char* path, const char* extra)
{
	std::unique_ptr<TaskInfo> task(new TaskInfo);
	task->transID = trans;
	task->type = type;
	if (path != NULL)
		task->path = path;
	if (extra != NULL)
		task->extra = extra;

	BAutolock locker(fLock);
	if (fTasks.CountItems() >= kMaxTasks)
		delete static_cast<TaskInfo*>(fTasks.RemoveItem(static_cast<int32>(0)));
	fTasks.AddItem(task.release());
}


/*!	Takes the oldest record with that id out of the list.
	\return NULL when there is none.
*/
std::unique_ptr<TaskInfo>
TaskList::TakeTask(uint32 trans)
{
	BAutolock locker(fLock);
	for (int32 i = 0; i < fTasks.CountItems(); i++) {
		TaskInfo* task = static_cast<TaskInfo*>(fTasks.ItemAt(i));
		if (task->transID == trans) {
			fTasks.RemoveItem(i);
			return std::unique_ptr<TaskInfo>(task);
		}
	}
	return NULL;
}


void
TaskList::MakeEmpty()
{
	BAutolock locker(fLock);
	for (int32 i = fTasks.CountItems() - 1; i >= 0; i--)
		delete static_cast<TaskInfo*>(fTasks.ItemAt(i));
	fTasks.MakeEmpty();
}


int32
TaskList::CountTasks() const
{
	BAutolock locker(fLock);
	return fTasks.CountItems();
}
