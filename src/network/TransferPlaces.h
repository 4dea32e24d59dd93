/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSFER_PLACES_H
#define TRANSFER_PLACES_H


#include <cstddef>
#include <memory>
#include <string>


/*!	What transfers take up while they are under way: a thread, a few descriptors, and the file that a
	download writes, which no second one may write at the same time. Each has a place, which it
	gives back by deleting it. For any thread; places may outlive this object.
*/
class TransferPlaces {
public:
	// Of one transfer. Movable, as a record is handed from thread to thread with it.
	class Place;
	typedef std::unique_ptr<Place> PlaceRef;

	// Downloads and uploads together.
	static const size_t kMaxTransfers = 64;

	TransferPlaces();

	[[nodiscard]] PlaceRef Take(const std::string& writtenPath);

private:
	struct Taken;

	std::shared_ptr<Taken> fTaken;
};


class TransferPlaces::Place {
public:
	Place(std::shared_ptr<Taken> taken, const std::string& writtenPath);
	Place(const Place&) = delete;
	~Place();

	Place& operator=(const Place&) = delete;

private:
	const std::shared_ptr<Taken> fTaken;
	const std::string fWrittenPath;
};


#endif // TRANSFER_PLACES_H
