/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PICTURE_DECODER_H
#define PICTURE_DECODER_H


#include <PictureCheck.h>


class BBitmap;


/*!	Decodes a picture by the toolkit's reader of its kind, and of no other. Any thread.
	\param maxTime Of the calling thread's processor time, in microseconds. Whoever needs more gives
	up.
	\return Owned by the caller; \c NULL for what cannot be decoded, and where memory is short.
*/
BBitmap* DecodePicture(const CheckedPicture& picture, int64 maxTime);


#endif // PICTURE_DECODER_H
