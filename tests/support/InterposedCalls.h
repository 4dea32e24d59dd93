/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef INTERPOSED_CALLS_H
#define INTERPOSED_CALLS_H


#include <atomic>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <OS.h>


/*!	The same calls as in Interposed, for suites whose threads may outlive a test: it makes one fail,
	or lets time pass faster. One at a time; when it goes, all calls are as usual again.
	Without one, names are not looked up either: whatever is no numeric address is unknown, so that
	no test asks the network.
*/
class InterposedCalls {
public:
	// Time-outs of sockets, as the code asked for them: the option and the seconds.
	using Timeouts = std::vector<std::pair<int, long>>;

	struct Lookup {
		std::string host;
		std::string port;
		int family;
		int socketType;
	};

	struct Thread {
		std::string name;
		int32 priority;
	};

	InterposedCalls();
	InterposedCalls(const InterposedCalls&) = delete;
	~InterposedCalls();

	InterposedCalls& operator=(const InterposedCalls&) = delete;

	// The next call of the kind, on whatever thread, fails with this errno; a send sends that many
	// bytes only.
	void FailNextSocket(int error) { sSocketError = error; }
	void FailNextConnect(int error) { sConnectError = error; }
	void CutNextSend(int size) { sSendSize = size; }
	// The next send finds that nothing can be sent any more, as when the other side has gone.
	void BreakNextSend() { sBreaksSend = true; }
	// The same for a thread; what is spawned after that is spawned.
	void FailNextSpawn(status_t error) { sSpawnError = error; }

	// Divides the time-outs that are set from now on.
	void ShortenTimeouts(int divisor) { sTimeoutDivisor = divisor; }
	// Everybody who looks at the clock of the kits finds it so many seconds later than the last
	// time.
	void StepClock(int seconds) { sClockStep = seconds * 1000000LL; }
	Timeouts SetTimeouts() const;

	// The bytes that all recv() calls together have returned, the test's own included.
	size_t CountReceived() const { return sReceived; }

	// The threads that were asked for, in their order.
	std::vector<Thread> Threads() const;
	size_t CountThreads(const std::string& name) const;
	// Threads of this name that are spawned from now on do nothing until they are released.
	void HoldThreads(const std::string& name);
	void ReleaseThreads();

	std::vector<Lookup> Lookups() const;
	// Lookups of this host, or all of them, wait until they are released.
	void HoldLookups(const std::string& host = "");
	void ReleaseLookups();

	// Whoever is about to snooze for a tenth of a second or more waits until it is released, and
	// then does not snooze.
	void HoldSnoozes();
	void ReleaseSnoozes();

	// What the calls themselves look at.
	static const int kNothing = -1;
	static inline std::atomic<int> sSocketError{kNothing};
	static inline std::atomic<int> sConnectError{kNothing};
	static inline std::atomic<int> sSendSize{kNothing};
	static inline std::atomic<bool> sBreaksSend{false};
	static inline std::atomic<status_t> sSpawnError{B_OK};
	static inline std::atomic<int> sTimeoutDivisor{1};
	static inline std::atomic<size_t> sReceived{0};
	static inline std::atomic<bigtime_t> sClockStep{0};
};


#endif // INTERPOSED_CALLS_H
