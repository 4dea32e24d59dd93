/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FlattenedFileReader.h"

#include <algorithm>

#include "FlattenedFile.h"
#include "HotlineProtocol.h"


static const size_t kForkSizeOffset = 12;


FlattenedFileReader::FlattenedFileReader()
	: fStage(kHeaders),
	  fLeft(kFileObjectHeaderSize + kForkHeaderSize)
{
}


/*!	How many bytes to read for the next Take().
	\return Before the data, exactly so many, at most kMaxDescriptionPiece. In the data, up to so
	many: all that are left.
		0 once the object is complete.
*/
uint32
FlattenedFileReader::NextSize() const
{
	if (fStage == kData)
		return fLeft;
	return std::min(fLeft, static_cast<uint32>(kMaxDescriptionPiece));
}


/*!	\param bytes What was read: as many as NextSize() asked for, or, in the data, any number of
	them.
*/
void
FlattenedFileReader::Take(const uint8* bytes, size_t size)
{
	switch (fStage) {
		case kHeaders:
			// Only the low 16 bits of the information fork's size count.
			_Enter(kInformation,
				HotlineReadUInt16(bytes + kFileObjectHeaderSize + kForkSizeOffset + 2));
			break;

		case kDataHeader:
			_Enter(kData, HotlineReadUInt32(bytes + kForkSizeOffset));
			break;

		case kInformation:
		case kData:
			fLeft -= static_cast<uint32>(size);
			break;
	}

	if (fStage == kInformation && fLeft == 0)
		_Enter(kDataHeader, kForkHeaderSize);
}


void
FlattenedFileReader::_Enter(Stage stage, uint32 size)
{
	fStage = stage;
	fLeft = size;
}
