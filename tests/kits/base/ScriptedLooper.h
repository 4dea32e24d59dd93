/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SCRIPTED_LOOPER_H
#define SCRIPTED_LOOPER_H


#include <functional>
#include <vector>

#include <Autolock.h>
#include <Looper.h>
#include <Messenger.h>

#include "RunThread.h"


/*!	A looper whose messages and end are given by the test, and which notes the codes that it
	received.
	The functions run where the looper is served.
*/
class ScriptedLooper : public BLooper {
public:
	explicit ScriptedLooper(const char* name = "scripted");
	~ScriptedLooper() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

	std::vector<uint32> Received();
	int32 CountReceived();

	std::function<void(BMessage*)> onMessage;
	std::function<bool()> onQuitRequested;
	std::function<void()> onDestroy;

private:
	BLocker fLock;
	std::vector<uint32> fReceived;
};


/*!	A ScriptedLooper that is served by the main thread, as windows are. */
class ServedLooper : public ScriptedLooper {
public:
	explicit ServedLooper(const char* name = "served");

	thread_id Run() override;
};


/*!	A looper that quits at the end of a test, if it has not before. What its functions touch is to
	outlive it.
*/
template<class LooperType>
class Owned {
public:
	Owned()
		: fLooper(new LooperType),
		  fMessenger(fLooper)
	{
	}

	~Owned()
	{
		if (fMessenger.IsValid() && fLooper->Lock())
			fLooper->Quit();
	}

	operator LooperType*() const { return fLooper; }
	LooperType* operator->() const { return fLooper; }

private:
	LooperType* fLooper;
	BMessenger fMessenger;
};


/*!	Serves the loopers of the main thread until the condition holds. */
bool ServeUntil(const std::function<bool()>& condition, int seconds = 60);

// Something holds by now, or after the loopers of the main thread have been served.
#define EXPECT_SERVED(...) \
	EXPECT_TRUE(ServeUntil([&] { \
		return (__VA_ARGS__); \
	}))
#define ASSERT_SERVED(...) \
	ASSERT_TRUE(ServeUntil([&] { \
		return (__VA_ARGS__); \
	}))

/*!	Serves the loopers of the main thread until none has anything to do. */
void ServeAll();

#endif // SCRIPTED_LOOPER_H
