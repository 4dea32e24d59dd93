/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "CheckingServer.h"

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>


static const int kBacklog = 64;
// In bytes. Little, so that a client soon notices when nothing is read.
static const int kReceiveBuffer = 32768;
static const std::chrono::seconds kDeadline(10);
// In milliseconds. When nothing has happened for so long, everybody may be waiting for what was
// put off.
static const int kIdle = 20;


CheckingServer::CheckingServer()
	: fListener(-1),
	  fWaker(eventfd(0, EFD_NONBLOCK)),
	  fPort(0),
	  fEnding(false),
	  fQuitting(false),
	  fTicks(0),
	  fAwaitedTick(CheckedConnection::kNever),
	  fDueTick(CheckedConnection::kNever)
{
	_Listen();
	fThread = std::thread([this] {
		_Serve();
	});
}


CheckingServer::~CheckingServer()
{
	{
		std::lock_guard<std::mutex> lock(fLock);
		fQuitting = true;
	}
	_Wake();
	fThread.join();
	close(fListener);
	close(fWaker);
}


void
CheckingServer::Begin(uint32_t seed)
{
	std::lock_guard<std::mutex> lock(fLock);
	fRandom.seed(seed);
	fComplaint.clear();
}


void
CheckingServer::Tick()
{
	bool isDue = false;
	{
		std::lock_guard<std::mutex> lock(fTickLock);
		fTicks++;
		if (fTicks == fAwaitedTick)
			fTicked.notify_all();
		isDue = fTicks == fDueTick;
	}
	if (isDue)
		_Wake();
}


bool
CheckingServer::WaitForTicks(uint32_t count)
{
	std::unique_lock<std::mutex> lock(fTickLock);
	fAwaitedTick = fTicks + count;
	return fTicked.wait_for(lock, kDeadline, [this] {
		return fTicks >= fAwaitedTick;
	});
}


bool
CheckingServer::WaitForEnd()
{
	std::unique_lock<std::mutex> lock(fLock);
	fEnding = true;
	_Wake();
	const bool ended = fEnded.wait_for(lock, kDeadline, [this] {
		return !fEnding;
	});
	fEnding = false;
	return ended;
}


std::string
CheckingServer::Complaint() const
{
	std::lock_guard<std::mutex> lock(fLock);
	return fComplaint;
}


ServedCounts
CheckingServer::Counts() const
{
	std::lock_guard<std::mutex> lock(fLock);
	return fCounts;
}


void
CheckingServer::_Listen()
{
	fListener = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
	sockaddr_in address = {};
	address.sin_family = AF_INET;
	address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
	socklen_t length = sizeof(address);
	setsockopt(fListener, SOL_SOCKET, SO_RCVBUF, &kReceiveBuffer, sizeof(kReceiveBuffer));
	if (bind(fListener, reinterpret_cast<sockaddr*>(&address), length) != 0
		|| listen(fListener, kBacklog) != 0
		|| getsockname(fListener, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
		perror("no listener on 127.0.0.1");
		abort();
	}
	fPort = ntohs(address.sin_port);
}


void
CheckingServer::_Serve()
{
	std::unique_lock<std::mutex> lock(fLock);
	bool isIdle = false;
	while (!fQuitting) {
		const bool isEnding = fEnding;
		_Accept();
		_Proceed(isEnding || isIdle);
		if (isEnding && fConnections.empty()) {
			fEnding = false;
			fEnded.notify_all();
		}
		isIdle = _Poll(lock) == 0;
	}
}


void
CheckingServer::_Accept()
{
	int descriptor = accept(fListener, nullptr, nullptr);
	while (descriptor >= 0) {
		const int on = 1;
		setsockopt(descriptor, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
		fConnections.emplace_back(new CheckedConnection(descriptor, &fRandom, &fCounts));
		descriptor = accept(fListener, nullptr, nullptr);
	}
}


/*!	\param atOnce Whether nothing is put off. */
void
CheckingServer::_Proceed(bool atOnce)
{
	const uint64_t tick = _Ticks();
	fEvents.resize(fConnections.size(), 0);
	for (size_t i = fConnections.size(); i > 0; i--) {
		CheckedConnection* connection = fConnections[i - 1].get();
		const bool isOpen = connection->Proceed(fEvents[i - 1], tick, atOnce);
		if (fComplaint.empty())
			fComplaint = connection->Complaint();
		if (!isOpen)
			fConnections.erase(fConnections.begin() + static_cast<std::ptrdiff_t>(i - 1));
	}
}


/*!	Waits for the next event, or for the next tick at which something is due.
	\return What poll() does, 0 when it had to wait for long.
*/
int
CheckingServer::_Poll(std::unique_lock<std::mutex>& lock)
{
	uint64_t due = CheckedConnection::kNever;
	std::vector<pollfd> waiting = {{fWaker, POLLIN, 0}, {fListener, POLLIN, 0}};
	for (const std::unique_ptr<CheckedConnection>& connection : fConnections) {
		waiting.push_back({connection->Descriptor(), connection->Events(), 0});
		due = std::min(due, connection->DueAt());
	}

	fEvents.clear();
	if (!_AwaitTick(due))
		return 1;
	const int timeout = fConnections.empty() ? -1 : kIdle;
	lock.unlock();
	const int ready = poll(waiting.data(), waiting.size(), timeout);
	lock.lock();

	if (waiting[0].revents != 0) {
		uint64_t count = 0;
		static_cast<void>(!read(fWaker, &count, sizeof(count)));
	}
	for (size_t i = 2; i < waiting.size(); i++)
		fEvents.push_back(waiting[i].revents);
	return ready;
}


/*!	\return \c false when there was that tick already. */
bool
CheckingServer::_AwaitTick(uint64_t due)
{
	std::lock_guard<std::mutex> lock(fTickLock);
	fDueTick = due;
	return fTicks < due;
}


uint64_t
CheckingServer::_Ticks() const
{
	std::lock_guard<std::mutex> lock(fTickLock);
	return fTicks;
}


void
CheckingServer::_Wake() const
{
	const uint64_t one = 1;
	static_cast<void>(!write(fWaker, &one, sizeof(one)));
}
