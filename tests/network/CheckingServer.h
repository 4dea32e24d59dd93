/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CHECKING_SERVER_H
#define CHECKING_SERVER_H


#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "CheckedConnection.h"


/*!	A server on 127.0.0.1 with any number of connections, all served by one thread of its own, which
	judges what the clients send. What it puts off, the answer to a handshake or reading on, it does
	by ticks and not by time: the test calls Tick() whenever a client has done something.
*/
class CheckingServer {
public:
	CheckingServer();
	CheckingServer(const CheckingServer&) = delete;
	// No client is left.
	~CheckingServer();

	CheckingServer& operator=(const CheckingServer&) = delete;

	uint16_t Port() const { return fPort; }

	// What happens by chance from here on follows from the seed. No client is there.
	void Begin(uint32_t seed);
	// For any thread.
	void Tick();
	// Waits for so many further ticks; false when they have not come within ten seconds.
	bool WaitForTicks(uint32_t count);
	// Puts nothing off until every connection has ended; false when one has not within ten seconds.
	bool WaitForEnd();

	// What was wrong first since Begin(), empty if nothing was.
	std::string Complaint() const;
	ServedCounts Counts() const;

private:
	void _Listen();
	void _Serve();
	void _Accept();
	void _Proceed(bool atOnce);
	int _Poll(std::unique_lock<std::mutex>& lock);
	bool _AwaitTick(uint64_t due);
	uint64_t _Ticks() const;
	void _Wake() const;

	int fListener;
	int fWaker;
	uint16_t fPort;

	// Guards the following. The server's thread holds it whenever it does not wait for an event.
	mutable std::mutex fLock;
	std::condition_variable fEnded;
	std::vector<std::unique_ptr<CheckedConnection>> fConnections;
	// What poll() has found, for each connection that was there.
	std::vector<short> fEvents;
	std::mt19937 fRandom;
	ServedCounts fCounts;
	std::string fComplaint;
	bool fEnding;
	bool fQuitting;

	// Guards the following. Taken after the other one.
	mutable std::mutex fTickLock;
	std::condition_variable fTicked;
	uint64_t fTicks;
	// The ticks that the test and the server's thread wait for.
	uint64_t fAwaitedTick;
	uint64_t fDueTick;

	std::thread fThread;
};


#endif // CHECKING_SERVER_H
