/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BITMAP_H
#define BITMAP_H


#include <GraphicsDefs.h>
#include <Rect.h>


class BitmapPeer;
struct screen_id;


/*!	A picture in memory, created with all pixels 0. An object belongs to one thread. */
class BBitmap {
public:
	BBitmap(BRect bounds, color_space colorSpace, bool acceptsViews = false,
		bool needsContiguous = false);
	BBitmap(BRect bounds, uint32 flags, color_space colorSpace, int32 bytesPerRow = -1) = delete;
	BBitmap(BRect bounds, uint32 flags, color_space colorSpace, int32 bytesPerRow, screen_id screen)
		= delete;
	BBitmap(const BBitmap& source, uint32 flags) = delete;
	BBitmap(const BBitmap* source, bool acceptsViews = false, bool needsContiguous = false)
		= delete;
	BBitmap(const BBitmap&) = delete;
	virtual ~BBitmap();

	BBitmap& operator=(const BBitmap&) = delete;

	bool IsValid() const;

	void* Bits() const;
	int32 BitsLength() const;
	int32 BytesPerRow() const;
	color_space ColorSpace() const;
	BRect Bounds() const;

private:
	friend class BitmapPeer;

	explicit BBitmap(BitmapPeer* peer);

	BitmapPeer* fPeer;
};


#endif // BITMAP_H
