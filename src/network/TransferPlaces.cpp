/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TransferPlaces.h"

#include <mutex>
#include <set>
#include <utility>

#include "Reserve.h"


// A socket and a file.
static const size_t kDescriptorsEach = 2;


struct TransferPlaces::Taken {
	std::mutex lock;
	// One for each place, empty where nothing is written.
	std::multiset<std::string> paths;
};


TransferPlaces::TransferPlaces()
	: fTaken(std::make_shared<Taken>())
{
}


/*!	\param writtenPath The file that is going to be written, empty for none.
	\return \c NULL where there are as many transfers as there may be, where one of them writes that
	file already, and where the program has too few descriptors left.
*/
TransferPlaces::PlaceRef
TransferPlaces::Take(const std::string& writtenPath)
{
	{
		const std::lock_guard<std::mutex> locker(fTaken->lock);
		std::multiset<std::string>& paths = fTaken->paths;
		const bool isWritten = !writtenPath.empty() && paths.count(writtenPath) > 0;
		// Those that have only just begun have not opened anything yet.
		if (isWritten || paths.size() >= kMaxTransfers
			|| !HasSpareDescriptors(paths.size() * kDescriptorsEach))
			return NULL;
		paths.insert(writtenPath);
	}
	return PlaceRef(new Place(fTaken, writtenPath));
}


// #pragma mark -


TransferPlaces::Place::Place(std::shared_ptr<Taken> taken, const std::string& writtenPath)
	: fTaken(std::move(taken)),
	  fWrittenPath(writtenPath)
{
}


TransferPlaces::Place::~Place()
{
	const std::lock_guard<std::mutex> locker(fTaken->lock);
	fTaken->paths.erase(fTaken->paths.find(fWrittenPath));
}
