/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TRANSFER_DESK_H
#define DEMO_TRANSFER_DESK_H


#include "FileContent.h"
#include "FileTree.h"
#include "TimerQueue.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>


namespace demo {


/*!	A transfer that has been agreed on. */
struct TransferOrder {
	enum Kind { kSend, kReceive };

	Kind kind = kSend;
	// What is to be sent.
	ContentSequence content;
	Trouble trouble = Trouble::kNone;

	// Where what is received belongs, what it is said to be in all, and whom it comes from.
	FileTree::Path folder;
	std::string name;
	uint64_t announcedSize = 0;
	std::string nick;
};


/*!	Where orders wait, each under the reference that was given to the client, until it comes for
	them on a connection of its own. Those that nobody comes for are thrown away.
	Belongs to the event loop's thread.
*/
class TransferDesk {
public:
	static constexpr size_t kMaxOrders = 1000;

	explicit TransferDesk(TimerQueue& timers);

	uint32_t Add(TransferOrder order);
	bool Take(uint32_t reference, TransferOrder* _order);

private:
	struct Entry {
		TransferOrder order;
		uint64_t timer;
	};

	TimerQueue& fTimers;
	std::map<uint32_t, Entry> fEntries;
	uint32_t fLastReference = 0;
};


} // namespace demo


#endif // DEMO_TRANSFER_DESK_H
