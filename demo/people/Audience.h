/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_AUDIENCE_H
#define DEMO_AUDIENCE_H


#include <cstdint>


namespace demo {


class Transaction;


/*!	Those who are connected, as the residents see them: everybody at once, or one by its socket
	number. Belongs to the event loop's thread.
*/
class Audience {
public:
	virtual ~Audience() = default;

	virtual bool IsAnybodyHere() const = 0;
	virtual void SendToAll(const Transaction& notice) = 0;
	// \return \c false when nobody with that number is here any more.
	virtual bool SendTo(uint16_t socket, const Transaction& notice) = 0;

	// A socket number that nobody else has; it is never 0.
	virtual uint16_t TakeSocket() = 0;
	virtual void GiveBackSocket(uint16_t socket) = 0;
};


} // namespace demo


#endif // DEMO_AUDIENCE_H
