/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MAIN_SERVER_H
#define MAIN_SERVER_H


#include <deque>
#include <mutex>
#include <vector>

#include <LooperRecord.h>


/*!	Serves the loopers that have no thread of their own, the application and the windows, on the
	main thread.
	The event loop watches WakeDescriptor() and calls ServeTurn() when it is readable. All but
	Wake() belongs to the main thread. There is one, and it is never destroyed.
*/
class MainServer {
public:
	static MainServer* Default();

	// An eventfd. Only the server itself reads and writes it.
	int WakeDescriptor() const { return fWakeDescriptor; }
	bool ServeTurn();
	void Wake();

	void SetWaitHook(void (*hook)(bool (*done)(void*), void* cookie));

	// For any thread. Serves others in a handler, now and then, while a Shaker is on.
	static void Shake();

	void SetApplication(BLooper* application);
	int32 CountDying() const;
	void GetWindows(std::vector<BLooper*>& _windows) const;

private:
	friend class LooperRecord;
	friend class LooperScope;

	struct State {
		bool mayServe;
		// A handler gets a message, and no event of the toolkit is below it.
		bool isInMessage;
	};

	MainServer();
	~MainServer() = delete;

	void _AddToLine(const LooperRecordRef& record);
	LooperRecordRef _NextInLine();
	void _ServeSlice(const LooperRecordRef& record);
	void _EndSlice();
	State _BeginHandler(bool isMessage);
	void _EndHandler(State before);
	void _ServeSome();

	void _AddDying(const LooperRecord* record);
	void _RemoveDying(const LooperRecord* record);

	bool _NeedsSignal();
	void _Signal() const;
	void _Silence();

	static void _WaitFor(bool (*done)(void*), void* cookie);
	static void _Poll(bool (*done)(void*), void* cookie);

	const int fWakeDescriptor;

	// The main thread's own.
	State fState;
	bool fEndsSlice;
	int fShakes;
	void (*fWaitHook)(bool (*done)(void*), void* cookie);

	// For any thread, under the lock.
	mutable std::mutex fMutex;
	std::deque<LooperRecordRef> fLine;
	bool fIsSignalled;
	int32 fApplicationToken;
	LooperRecordRef fHeldApplication;
	int32 fDyingCount;
};


#endif // MAIN_SERVER_H
