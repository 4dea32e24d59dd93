/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef JPEG_BYTES_H
#define JPEG_BYTES_H


#include <string>

#include <SupportDefs.h>


// JPEG files, built segment by segment.

/*!	A segment: a marker's second byte, and what stands behind its length. */
std::string jpeg_segment(uint8 marker, const std::string& content);

/*!	The header of a frame of one color, gray.
	\param marker 0xc0 when there is one scan, 0xc2 when there may be many.
*/
std::string jpeg_frame(uint8 marker, uint16 width, uint16 height);

/*!	A gray picture that goes over its pixels that often, in few bytes each time. */
std::string make_gray_jpeg(uint16 width, uint16 height, int32 scans);


#endif // JPEG_BYTES_H
