/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BITMAP_PEER_H
#define BITMAP_PEER_H


#include <QImage>
#include <QSize>


class BBitmap;


/*!	The pixels of a bitmap, which owns it, and the size in which they were shown last. */
class BitmapPeer {
public:
	explicit BitmapPeer(const QImage& image);

	static BitmapPeer* Of(const BBitmap* bitmap);
	// The caller owns it. NULL for an image of nothing.
	static BBitmap* CreateBitmap(const QImage& image);

	QImage& Image() { return fImage; }
	// The picture in a size in device pixels, ready to be drawn; scaled once per size.
	const QImage& Scaled(const QSize& size);
	// Once somebody may write to the pixels at any time.
	void KeepNothing() { fKeepsScaled = false; }

private:
	QImage fImage;
	QImage fScaled;
	bool fKeepsScaled;
};


#endif // BITMAP_PEER_H
