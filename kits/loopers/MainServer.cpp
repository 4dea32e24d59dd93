/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <MainServer.h>

#include <poll.h>
#include <sys/eventfd.h>

#include <LooperPrivate.h>
#include <LooperRegistry.h>
#include <Shaker.h>
#include <ThreadPrivate.h>


// In microseconds. Long enough to get through a burst, short enough that a click is never late.
static const bigtime_t kSlice = 4000;

// How deep in one another the handlers of those may be that come in between.
static const int kMaxShakes = 4;


static void
wake_server()
{
	MainServer::Default()->Wake();
}


MainServer::MainServer()
	: fWakeDescriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
	  fState{true, false},
	  fEndsSlice(false),
	  fShakes(0),
	  fWaitHook(NULL),
	  fIsSignalled(false),
	  fApplicationToken(0),
	  fDyingCount(0)
{
	set_main_wait_hook(_WaitFor, wake_server);
}


MainServer*
MainServer::Default()
{
	static MainServer* const sServer = new MainServer;
	return sServer;
}


/*!	Gives each looper that has messages one slice of a few milliseconds, in which it gets no more
	than those which it had at the start of it. Does nothing inside of a handler, unless that waits
	for a thread.
	\return \c true while more waits; WakeDescriptor() stays readable then.
*/
bool
MainServer::ServeTurn()
{
	if (!fState.mayServe) {
		// The handler's end looks at the line again. Until then an event loop inside of it must not
		// spin.
		std::lock_guard<std::mutex> locker(fMutex);
		_Silence();
		return false;
	}

	size_t count;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		count = fLine.size();
	}
	for (; count > 0; count--) {
		// A handler that waited may have served others of the line.
		LooperRecordRef record = _NextInLine();
		if (record == NULL)
			break;
		_ServeSlice(record);
	}

	bool needsSignal;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (fLine.empty()) {
			_Silence();
			return false;
		}
		needsSignal = _NeedsSignal();
	}
	if (needsSignal)
		_Signal();
	return true;
}


/*!	Makes WakeDescriptor() readable until the next turn ends. For any thread. */
void
MainServer::Wake()
{
	bool needsSignal;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		needsSignal = _NeedsSignal();
	}
	if (needsSignal)
		_Signal();
}


/*!	How wait_for_thread() waits on the main thread. The hook processes events, among them
	WakeDescriptor()'s with ServeTurn(), until \a done answers true for \a cookie; the descriptor
	becomes readable when that may have changed.
	Without a hook, or with NULL, the server polls the descriptor itself.
*/
void
MainServer::SetWaitHook(void (*hook)(bool (*done)(void*), void* cookie))
{
	fWaitHook = hook;
}


/*!	Where another thread may come in between on Haiku: when a handler locks, posts or waits. */
void
MainServer::Shake()
{
	if (Shaker::IsOn() && is_main_thread())
		Default()->_ServeSome();
}


/*!	Names the looper that gets no message while any other one of the main thread is being destroyed.
*/
void
MainServer::SetApplication(BLooper* application)
{
	LooperRecordRef record = LooperRegistry::Default()->Find(application);
	std::lock_guard<std::mutex> locker(fMutex);
	fApplicationToken = record != NULL ? record->Token() : 0;
}


/*!	How many windows are between the start of their destruction and the end of ~BLooper(). */
int32
MainServer::CountDying() const
{
	std::lock_guard<std::mutex> locker(fMutex);
	return fDyingCount;
}


/*!	The main thread's loopers but the application, the oldest first, with those that are dying: they
	cannot be locked.
*/
void
MainServer::GetWindows(std::vector<BLooper*>& _windows) const
{
	std::vector<LooperRecordRef> loopers;
	LooperRegistry::Default()->GetLoopers(loopers);

	int32 applicationToken;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		applicationToken = fApplicationToken;
	}

	_windows.clear();
	for (const LooperRecordRef& record : loopers) {
		if (record->IsMainServed() && record->Token() != applicationToken)
			_windows.push_back(record->Looper());
	}
}


/*!	Those who might run just now if they had threads. */
void
MainServer::_ServeSome()
{
	if (!fState.isInMessage || fShakes == kMaxShakes || Shaker::Choose(3) > 0)
		return;

	fShakes++;
	for (size_t count = Shaker::Choose(4); count > 0; count--) {
		const LooperRecordRef record = _NextInLine();
		if (record == NULL)
			break;
		_ServeSlice(record);
	}
	fShakes--;
}


/*!	The looper has messages that the main thread has to deliver. For any thread. */
void
MainServer::_AddToLine(const LooperRecordRef& record)
{
	bool needsSignal;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (record->fIsInLine)
			return;

		record->fIsInLine = true;
		fLine.push_back(record);
		needsSignal = _NeedsSignal();
	}
	if (needsSignal)
		_Signal();
}


LooperRecordRef
MainServer::_NextInLine()
{
	std::lock_guard<std::mutex> locker(fMutex);
	while (!fLine.empty()) {
		const auto next = fLine.begin() + static_cast<ptrdiff_t>(Shaker::Choose(fLine.size()));
		LooperRecordRef record = std::move(*next);
		fLine.erase(next);
		record->fIsInLine = false;
		if (record->Token() != fApplicationToken || fDyingCount == 0)
			return record;

		fHeldApplication = record;
	}
	return NULL;
}


void
MainServer::_ServeSlice(const LooperRecordRef& record)
{
	// One that is inside of a handler, or locked, stands in line again when that ends.
	if (!record->EnterForMessage())
		return;

	record->BeginActing();
	const State before = _BeginHandler(true);
	const bigtime_t end = system_time() + kSlice;
	for (int32 count = record->CountMessages(); count > 0; count--) {
		fEndsSlice = Shaker::IsOn();
		LooperPrivate::_DeliverNext(record);
		if (record->IsDying() || fEndsSlice || system_time() >= end)
			break;
	}
	record->EndActing();
	record->Leave();
	_EndHandler(before);
}


/*!	The handler that is being run has posted to a looper whose queue is full. The main thread cannot
	wait for room in it; instead each turn now brings one message more, while the other looper has a
	whole slice to work on its own. So what one window passes on to a slower one waits with the
	first, and from there in the thread that posts to it.
*/
void
MainServer::_EndSlice()
{
	fEndsSlice = true;
}


/*!	Nothing is served until _EndHandler() gets what this returns.
	\param isMessage Whether it is a message that is handled, and not an event of the toolkit.
*/
MainServer::State
MainServer::_BeginHandler(bool isMessage)
{
	const State before = fState;
	fState = {false, isMessage};
	return before;
}


void
MainServer::_EndHandler(State before)
{
	fState = before;
	bool needsSignal;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		needsSignal = fState.mayServe && !fLine.empty() && _NeedsSignal();
	}
	if (needsSignal)
		_Signal();
}


void
MainServer::_AddDying(const LooperRecord* record)
{
	std::lock_guard<std::mutex> locker(fMutex);
	if (record->Token() != fApplicationToken)
		fDyingCount++;
}


void
MainServer::_RemoveDying(const LooperRecord* record)
{
	LooperRecordRef application;
	{
		std::lock_guard<std::mutex> locker(fMutex);
		if (record->Token() == fApplicationToken) {
			fApplicationToken = 0;
			fHeldApplication = NULL;
			return;
		}

		fDyingCount--;
		if (fDyingCount == 0)
			application = std::move(fHeldApplication);
	}
	if (application != NULL)
		_AddToLine(application);
}


/*!	With the lock held.
	\return Whether _Signal() is to be called. That comes after the lock: the thread which it wakes
		takes the lock first of all, and would wait again.
*/
bool
MainServer::_NeedsSignal()
{
	const bool isSignalled = fIsSignalled;
	fIsSignalled = true;
	return !isSignalled;
}


void
MainServer::_Signal() const
{
	eventfd_write(fWakeDescriptor, 1);
}


/*!	With the lock held. A signal may still be on its way; it makes for a turn without anything to
	serve, which ends here again.
*/
void
MainServer::_Silence()
{
	eventfd_t value;
	eventfd_read(fWakeDescriptor, &value);
	fIsSignalled = false;
}


/*!	Waits on the main thread. The others are served meanwhile, whatever handler this is inside of.
*/
void
MainServer::_WaitFor(bool (*done)(void*), void* cookie)
{
	MainServer* server = Default();
	server->Shake();
	const State before = server->fState;
	server->_EndHandler({true, false});

	if (server->fWaitHook != NULL)
		server->fWaitHook(done, cookie);
	else
		_Poll(done, cookie);

	server->fState = before;
}


void
MainServer::_Poll(bool (*done)(void*), void* cookie)
{
	MainServer* server = Default();
	while (!done(cookie)) {
		pollfd descriptor = {server->fWakeDescriptor, POLLIN, 0};
		if (poll(&descriptor, 1, -1) > 0)
			server->ServeTurn();
	}
}
