/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Bitmap.h>

#include <algorithm>
#include <cstring>

#include <BitmapPeer.h>
#include <GeometryConversion.h>


static QImage
make_image(BRect bounds, color_space colorSpace)
{
	if (!bounds.IsValid() || (colorSpace != B_RGB32 && colorSpace != B_RGBA32))
		return QImage();

	const QImage::Format format = colorSpace == B_RGB32 ? QImage::Format_RGB32
														: QImage::Format_ARGB32;
	QImage image(rect_to_toolkit(bounds).size(), format);
	image.fill(0);
	return image;
}


BBitmap::BBitmap(BRect bounds, color_space colorSpace, bool /*acceptsViews*/,
	bool /*needsContiguous*/)
	: fPeer(new BitmapPeer(make_image(bounds, colorSpace)))
{
}


/*!	Takes the peer over. */
BBitmap::BBitmap(BitmapPeer* peer)
	: fPeer(peer)
{
}


BBitmap::~BBitmap()
{
	delete fPeer;
}


/*!	Not when the bounds or the color space are no good, nor when there is no memory. */
bool
BBitmap::IsValid() const
{
	return !fPeer->Image().isNull();
}


/*!	The pixels, row by row. Who has asked for them may write to them as long as the bitmap lives. */
void*
BBitmap::Bits() const
{
	fPeer->KeepNothing();
	return fPeer->Image().bits();
}


int32
BBitmap::BitsLength() const
{
	return static_cast<int32>(fPeer->Image().sizeInBytes());
}


int32
BBitmap::BytesPerRow() const
{
	return static_cast<int32>(fPeer->Image().bytesPerLine());
}


color_space
BBitmap::ColorSpace() const
{
	switch (fPeer->Image().format()) {
		case QImage::Format_RGB32:
			return B_RGB32;
		case QImage::Format_ARGB32:
			return B_RGBA32;
		default:
			return B_NO_COLOR_SPACE;
	}
}


BRect
BBitmap::Bounds() const
{
	return rect_from_toolkit(QRect(QPoint(0, 0), fPeer->Image().size()));
}
