/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FLATTENED_FILE_READER_H
#define FLATTENED_FILE_READER_H


#include <cstddef>

#include <SupportDefs.h>


/*!	Follows a flattened file object as it arrives, up to the last byte of its data fork, and says
	how much to read next; what a server sends after that is never asked for. The information fork
	is expected first and the data fork second; no magic and no type is looked at. Keeps none of the
	bytes. Not thread-safe.
*/
class FlattenedFileReader {
public:
	// What stands before the file's data is read in pieces of at most this size, in bytes.
	static const size_t kMaxDescriptionPiece = 512;

	FlattenedFileReader();

	bool IsAtData() const { return fStage == kData; }
	bool IsDone() const { return fStage == kData && fLeft == 0; }

	uint32 NextSize() const;
	void Take(const uint8* bytes, size_t size);

private:
	enum Stage { kHeaders, kInformation, kDataHeader, kData };

	void _Enter(Stage stage, uint32 size);

	Stage fStage;
	// Bytes of this stage that have not arrived.
	uint32 fLeft;
};


#endif // FLATTENED_FILE_READER_H
