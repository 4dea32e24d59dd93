/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_FILE_OBJECT_H
#define DEMO_FILE_OBJECT_H


#include "FileContent.h"

#include <cstddef>
#include <cstdint>
#include <string>


namespace demo {


struct FileRecord;


/*!	The file as one stream: header, information fork, data fork, and the resource fork if there
	is one.
*/
ContentSequence flatten_file(const FileRecord& file);


/*!	Takes a flattened file apart while it arrives, in pieces of any size, and checks that it keeps
	what it announces. Knows no socket; what it does with the data fork is left to its receiver.
*/
class FileObjectReader {
public:
	enum State { kReadingHeader, kReadingForkHeader, kReadingFork, kComplete, kBroken };

	// Takes the bytes of the data fork as they come.
	class Receiver {
	public:
		virtual ~Receiver() = default;
		// \return \c false when they cannot be kept, which ends the reading.
		virtual bool HandleData(const uint8_t* bytes, size_t size) = 0;
	};

	FileObjectReader(Receiver& receiver, uint64_t announcedSize);

	State Feed(const uint8_t* bytes, size_t size);
	State CurrentState() const { return fState; }

	uint64_t DataSize() const { return fDataSize; }
	// What the information fork says; empty while it has not arrived.
	const std::string& Type() const { return fType; }
	const std::string& Creator() const { return fCreator; }
	const std::string& Name() const { return fName; }

private:
	void _HandleHeader();
	void _HandleForkHeader();
	void _HandleForkEnd();
	bool _HandleInformation();
	size_t _FeedFork(const uint8_t* bytes, size_t size);

	Receiver& fReceiver;
	State fState = kReadingHeader;
	// Bytes of the whole object that are still to come.
	uint64_t fLeft;
	// Headers and the information fork are collected until they are whole.
	std::string fPending;
	uint16_t fForksLeft = 0;
	std::string fForkType;
	uint64_t fForkLeft = 0;

	uint64_t fDataSize = 0;
	bool fHasData = false;
	bool fHasInformation = false;
	std::string fType;
	std::string fCreator;
	std::string fName;
};


} // namespace demo


#endif // DEMO_FILE_OBJECT_H
