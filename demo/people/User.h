/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_USER_H
#define DEMO_USER_H


#include <cstdint>
#include <string>


namespace demo {


/*!	Who somebody is to the others, be it a person at a client or a resident of the server. */
struct User {
	// The bits of the status word that a server gives a meaning.
	enum : uint16_t { kAway = 1, kKeeper = 2 };

	// The number by which the others address the user; 0 is the server itself.
	uint16_t socket = 0;
	uint16_t icon = 0;
	uint16_t status = 0;
	// Bytes, at most kMaxNickSize of them.
	std::string nick;

	std::string Entry() const;
};


} // namespace demo


#endif // DEMO_USER_H
