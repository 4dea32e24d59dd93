/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <BitmapPeer.h>

#include <Bitmap.h>


BitmapPeer::BitmapPeer(const QImage& image)
	: fImage(image),
	  fKeepsScaled(true)
{
}


BitmapPeer*
BitmapPeer::Of(const BBitmap* bitmap)
{
	return bitmap->fPeer;
}


BBitmap*
BitmapPeer::CreateBitmap(const QImage& image)
{
	if (image.isNull())
		return NULL;

	QImage pixels = image.convertToFormat(QImage::Format_ARGB32);
	pixels.setDevicePixelRatio(1);
	return new BBitmap(new BitmapPeer(pixels));
}


const QImage&
BitmapPeer::Scaled(const QSize& size)
{
	if (fScaled.size() != size || !fKeepsScaled) {
		QImage scaled = fImage.convertToFormat(QImage::Format_ARGB32_Premultiplied);
		if (scaled.size() != size)
			scaled = scaled.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
		fScaled = scaled;
	}
	return fScaled;
}
