/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PATH_VALUE_H
#define PATH_VALUE_H


#include <SupportDefs.h>


/*!	A folder path in the form in which requests carry it: the number of its components, and for each
	two zero bytes, its length in one byte and its bytes.
*/
class PathValue {
public:
	explicit PathValue(const char* path);

	// No value at all, and so no parameter, for no path. A path of slashes alone has one of 2
	// bytes.
	bool IsEmpty() const { return fLength == 0; }
	const uint8* Data() const { return fData; }
	uint16 Length() const { return fLength; }

private:
	static const uint32 kCapacity = 512;

	bool _AddComponent(const char* name, size_t length);

	uint8 fData[kCapacity];
	uint16 fLength;
};


#endif // PATH_VALUE_H
