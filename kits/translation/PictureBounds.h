/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PICTURE_BOUNDS_H
#define PICTURE_BOUNDS_H


#include <SupportDefs.h>


// What a picture file may be and cost at most. Whatever exceeds one of these is no picture.
//
// The costliest ones that keep within them, on one core of a small server, from the bytes to the
// bitmap: a PNG of 2048 x 2048 pixels of 16 bits, interlaced and filtered, 320 ms; the same of 256 x
// 16384 pixels, 480 ms; a JPEG of 32 scans and four colors, 250 ms; a GIF or a BMP, 90 ms. None of
// them takes more than 51 MiB, the bitmap included.

// Of the file, in bytes.
const size_t kMaxPictureFile = 2 * 1024 * 1024;

// Of either edge, and of all of the picture, in pixels.
const uint32 kMaxPictureEdge = 16384;
const uint64 kMaxPicturePixels = 4 * 1024 * 1024;

// The chunks of a PNG, and the segments of a JPEG.
const int32 kMaxPictureParts = 4096;

// How often a JPEG may go over its pixels. Programs that write progressive ones use ten.
const int32 kMaxPictureScans = 32;

// What one picture may take of the decoder's processor time, in microseconds. None does that the
// other bounds let through; it is for what they have overlooked.
const int64 kMaxPictureTime = 1000000;

// What the toolkit's decoder may allocate for the pixels, in MiB: up to eight bytes for each.
const int32 kMaxPictureMebibytes = 32;


#endif // PICTURE_BOUNDS_H
