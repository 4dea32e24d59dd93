/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PICTURE_CHECK_H
#define PICTURE_CHECK_H


#include <vector>

#include <SupportDefs.h>


enum PictureKind { kNoPicture, kPngPicture, kJpegPicture, kGifPicture, kBmpPicture };


/*!	What a decoder is given of a picture file. */
struct CheckedPicture {
	PictureKind kind = kNoPicture;
	// As the file announces them, in pixels.
	uint32 width = 0;
	uint32 height = 0;
	// A file of the same pixels without what is no part of them: texts, color profiles, further
	// pictures.
	std::vector<uint8> bytes;
};


/*!	Looks at how a file is built, which its first bytes tell, without decoding anything. Any thread.
	\return \c false for what is no picture, or one that exceeds PictureBounds.h.
*/
[[nodiscard]] bool CheckPicture(const uint8* bytes, size_t size, CheckedPicture* _picture);

/*!	\return Whether a picture of so many pixels each way may be decoded. */
bool IsBearablePicture(uint32 width, uint32 height);

// One for each kind, of a file that begins like it.
bool CheckPng(const uint8* bytes, size_t size, CheckedPicture* _picture);
bool CheckJpeg(const uint8* bytes, size_t size, CheckedPicture* _picture);
bool CheckGif(const uint8* bytes, size_t size, CheckedPicture* _picture);
bool CheckBmp(const uint8* bytes, size_t size, CheckedPicture* _picture);


#endif // PICTURE_CHECK_H
