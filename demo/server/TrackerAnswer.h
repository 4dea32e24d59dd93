/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TRACKER_ANSWER_H
#define DEMO_TRACKER_ANSWER_H


#include "ServerOptions.h"

#include <cstddef>
#include <cstdint>
#include <string>


namespace demo {


/*!	Everything that the tracker sends to somebody who asks, in the given mode.
	\param port The demo server's own port, so that it can be found in the listing.
	\param users How many are there.
*/
std::string tracker_answer(TrackerMode mode, uint16_t port, size_t users);


} // namespace demo


#endif // DEMO_TRACKER_ANSWER_H
