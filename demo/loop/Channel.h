/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_CHANNEL_H
#define DEMO_CHANNEL_H


namespace demo {


/*!	Something with a descriptor that the event loop watches: a listening socket or a connection.
	Owns the descriptor. Belongs to the event loop's thread and, once added, to the loop, which
	deletes it at the end of the turn in which it became done.
*/
class Channel {
public:
	explicit Channel(int descriptor);
	virtual ~Channel();

	Channel(const Channel&) = delete;
	Channel& operator=(const Channel&) = delete;

	int Descriptor() const { return fDescriptor; }
	bool IsDone() const { return fDone; }

	// What to wait for, as \c poll() has it; errors and hang-ups are always reported.
	virtual short WantedEvents() const = 0;
	virtual void HandleEvents(short events) = 0;

protected:
	void SetDone() { fDone = true; }

private:
	int fDescriptor;
	bool fDone = false;
};


} // namespace demo


#endif // DEMO_CHANNEL_H
