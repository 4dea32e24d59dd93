/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PathValue.h"

#include <cstring>

#include "HotlineProtocol.h"


// Two zero bytes and the length.
static const uint16 kComponentHeaderSize = 3;


/*!	\param path Components with slashes between them; further slashes mean nothing. May be NULL.
		Components for which there is no room are left out. Of a length above 255 bytes only the low
		8 bits are written.
*/
PathValue::PathValue(const char* path)
	: fLength(0)
{
	if (path == NULL || path[0] == '\0')
		return;

	fLength = sizeof(uint16);
	uint16 count = 0;
	const char* component = path + strspn(path, "/");
	while (component[0] != '\0') {
		const size_t length = strcspn(component, "/");
		if (_AddComponent(component, length))
			count++;
		component += length;
		component += strspn(component, "/");
	}
	HotlineWriteUInt16(fData, count);
}


bool
PathValue::_AddComponent(const char* name, size_t length)
{
	if (length + fLength + kComponentHeaderSize >= kCapacity)
		return false;

	uint8* component = fData + fLength;
	component[0] = 0;
	component[1] = 0;
	component[2] = static_cast<uint8>(length);
	memcpy(component + kComponentHeaderSize, name, length);
	fLength = static_cast<uint16>(fLength + kComponentHeaderSize + length);
	return true;
}
