/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSLATION_UTILS_H
#define TRANSLATION_UTILS_H


#include <SupportDefs.h>


class BBitmap;
class BPositionIO;
class BTranslatorRoster;
struct entry_ref;


/*!	Reads pictures. Any thread.
	Differs from Haiku: only PNG, JPEG, GIF and BMP are read, and of a GIF the first picture. What
	is larger than 2 MiB, than four million pixels, or would take too much time or memory is refused
	before it is decoded.
*/
class BTranslationUtils {
public:
	BTranslationUtils() = delete;

	// The caller owns what it gets; NULL for what cannot be read. The stream is read from where it
	// stands.
	static BBitmap* GetBitmap(BPositionIO* stream, BTranslatorRoster* roster = NULL);
	static BBitmap* GetBitmap(const char* name, BTranslatorRoster* roster = NULL) = delete;
	static BBitmap* GetBitmap(uint32 type, int32 id, BTranslatorRoster* roster = NULL) = delete;
	static BBitmap* GetBitmap(uint32 type, const char* name, BTranslatorRoster* roster = NULL)
		= delete;
	static BBitmap* GetBitmap(const entry_ref* ref, BTranslatorRoster* roster = NULL) = delete;
	static BBitmap* GetBitmapFile(const char* path, BTranslatorRoster* roster = NULL);
};


#endif // TRANSLATION_UTILS_H
