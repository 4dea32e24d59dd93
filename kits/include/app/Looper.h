/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LOOPER_H
#define LOOPER_H


#include <vector>

#include <Handler.h>
#include <OS.h>


#define B_LOOPER_PORT_DEFAULT_CAPACITY 200


/*!	Takes messages from any thread and hands them, in order of posting, to its handlers, one at a
	time.
	A plain looper has a thread of its own, which Run() starts; windows and the application are
	served by the main thread.
	Create a looper with new: it deletes itself when it quits. Lock() may be called on a looper that
	is gone, and fails then.
	Differs from Haiku: PostMessage() waits while the looper holds more than 20,000 messages or 8
	MiB, except on the main thread, on the looper's own, on one that holds its lock and on one that
	wait_for_thread() waits for.
*/
class BLooper : public BHandler {
public:
	BLooper(const char* name = NULL, int32 priority = B_NORMAL_PRIORITY,
		int32 portCapacity = B_LOOPER_PORT_DEFAULT_CAPACITY);
	~BLooper() override;

	status_t PostMessage(uint32 command);
	status_t PostMessage(BMessage* message);
	status_t PostMessage(uint32 command, BHandler* handler, BHandler* replyTo = NULL) = delete;
	status_t PostMessage(BMessage* message, BHandler* handler, BHandler* replyTo = NULL) = delete;

	virtual void DispatchMessage(BMessage* message, BHandler* handler);
	void MessageReceived(BMessage* message) override;

	void AddHandler(BHandler* handler);
	bool RemoveHandler(BHandler* handler);

	virtual thread_id Run();
	virtual void Quit();
	virtual bool QuitRequested();

	bool Lock();
	void Unlock();
	bool IsLocked() const;

	thread_id Thread() const;

private:
	friend class LooperPrivate;

	std::vector<BHandler*> fHandlers;
	int32 fPriority;
};


#endif // LOOPER_H
