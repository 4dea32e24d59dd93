/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Bitmap.h>

#include <algorithm>
#include <cstring>

#include <BitmapPeer.h>
#include <GeometryConversionPrivate.h>


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


BBitmap::BBitmap(BRect bounds, uint32 /*flags*/, color_space colorSpace)
	: fPeer(new BitmapPeer(make_image(bounds, colorSpace)))
{
}


BBitmap::BBitmap(const BBitmap& source)
	: fPeer(new BitmapPeer(source.fPeer->Image()))
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


/*!	An error when the bounds or the color space are no good, and when there is no memory. */
status_t
BBitmap::InitCheck() const
{
	return fPeer->Image().isNull() ? B_ERROR : B_OK;
}


bool
BBitmap::IsValid() const
{
	return InitCheck() == B_OK;
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
	return int32(fPeer->Image().sizeInBytes());
}


int32
BBitmap::BytesPerRow() const
{
	return int32(fPeer->Image().bytesPerLine());
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


/*!	Overwrites pixels. Rows must be as long as the bitmap's own, and of its color space.
	\param length How many bytes there are at \a data; what would go beyond the bitmap is left out.
	\param offset Where in the bitmap the first one goes.
*/
status_t
BBitmap::ImportBits(const void* data, int32 length, int32 bytesPerRow, int32 offset,
	color_space colorSpace)
{
	if (!IsValid() || data == NULL || length < 0 || offset < 0 || offset > BitsLength()
		|| bytesPerRow != BytesPerRow() || colorSpace != ColorSpace())
		return B_BAD_VALUE;

	memcpy(fPeer->Image().bits() + offset, data, size_t(std::min(length, BitsLength() - offset)));
	fPeer->DropScaled();
	return B_OK;
}
