/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TASK_LIST_H
#define TASK_LIST_H


#include <memory>

#include <List.h>
#include <Locker.h>
#include <String.h>


/*!	A request that waits for its reply, with the texts that give the reply its meaning. */
struct TaskInfo {
	// The id of the request.
	uint32 transID;
	// One of the kinds of TaskList.
	uint32 type;
	BString path;
	BString extra;
};


/*!	The requests that wait for their replies, the oldest first. It owns the records, and keeps the
	newest 4,096: a server that never replies must not fill the memory. For any thread.
*/
class TaskList {
public:
	// The kinds of requests, with what "path" and "extra" are.
	enum {
		kTaskUserList = 1,
		kTaskLogin = 2,
		// The folder's path.
		kTaskFileList = 3,
		kTaskUserInfo = 4,
		// The folder's path, a slash and the file's name, or the name alone.
		kTaskDownload = 5,
		// The file's name, its local path.
		kTaskUpload = 6,
		kTaskBanner = 7
	};

	TaskList();
	TaskList(const TaskList&) = delete;
	~TaskList();

	TaskList& operator=(const TaskList&) = delete;

	void AddTask(uint32 trans, uint32 type, const char* path, const char* extra);
	std::unique_ptr<TaskInfo> TakeTask(uint32 trans);
	void MakeEmpty();

	int32 CountTasks() const;

private:
	static const int32 kMaxTasks = 4096;

	mutable BLocker fLock;
	BList fTasks;
};


#endif // TASK_LIST_H
