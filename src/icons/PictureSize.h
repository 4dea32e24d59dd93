/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PICTURE_SIZE_H
#define PICTURE_SIZE_H


#include <SupportDefs.h>


/*!	Reads which size a picture's file announces, without decoding it. Any thread.
	\param _width, _height Receive it in pixels, for a GIF that of its screen.
	\return \c false for a file that is no PNG, JPEG, GIF or BMP, or is cut off before it says so.
*/
bool ReadPictureSize(const uint8* bytes, size_t size, uint32* _width, uint32* _height);


#endif // PICTURE_SIZE_H
