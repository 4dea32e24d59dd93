/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_STREAM_CHANNEL_H
#define DEMO_STREAM_CHANNEL_H


#include "Channel.h"

#include <cstddef>
#include <cstdint>
#include <vector>


namespace demo {


class TimerQueue;


/*!	A connection: bytes that arrived and are not understood yet, bytes that wait to be sent.
	Both are bounded. A peer that does not read is not listened to either while more than
	kPauseReading bytes wait for it, and loses the connection when kMaxQueued bytes do.
*/
class StreamChannel : public Channel {
public:
	static constexpr size_t kRefillBelow = 64 * 1024;
	static constexpr size_t kPauseReading = 256 * 1024;
	static constexpr size_t kMaxQueued = 2 * 1024 * 1024;

	StreamChannel(int socket, TimerQueue& timers);
	~StreamChannel() override;

	short WantedEvents() const override;
	void HandleEvents(short events) override;

	void Write(const void* bytes, size_t size);
	size_t CountQueued() const { return fOutput.size() - fOutputStart; }

	void Finish();
	void Drop() { SetDone(); }
	void Reset();

protected:
	// Looks at what has arrived. \return The bytes that it is done with; 0 to wait for more.
	virtual size_t HandleInput(const uint8_t* bytes, size_t size) = 0;
	// Called when little waits to be sent, for whoever has more to send than should wait.
	virtual void RefillOutput() {}

	// Whether \c RefillOutput() has something to give.
	virtual bool HasMoreOutput() const { return false; }

private:
	void _Read();
	void _ProcessInput();
	void _Flush();
	void _Linger();

	TimerQueue& fTimers;
	std::vector<uint8_t> fInput;
	std::vector<uint8_t> fOutput;
	size_t fOutputStart = 0;
	bool fFinishing = false;
	uint64_t fLingerTimer = 0;
};


} // namespace demo


#endif // DEMO_STREAM_CHANNEL_H
