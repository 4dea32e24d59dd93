/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureDecoder.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <QImage>
#include <QImageReader>
#include <QIODevice>

#include <BitmapPeer.h>
#include <PictureBounds.h>


/*!	The processor time of the calling thread, in microseconds. */
static int64
thread_time()
{
	timespec used;
	clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
	return static_cast<int64>(used.tv_sec) * 1000000 + used.tv_nsec / 1000;
}


/*!	What a decoder reads from: the bytes of a file, which end early when it takes too long. */
class TimedBytes : public QIODevice {
public:
	TimedBytes(const std::vector<uint8>& bytes, int64 maxTime);

	// Whether the time was used up.
	bool HasGivenUp() const { return fHasGivenUp; }

	bool seek(qint64 position) override;
	qint64 size() const override { return static_cast<qint64>(fBytes.size()); }

protected:
	qint64 readData(char* buffer, qint64 maxSize) override;
	qint64 writeData(const char*, qint64) override { return -1; }

private:
	const std::vector<uint8>& fBytes;
	const int64 fEnd;
	qint64 fPosition;
	bool fHasGivenUp;
};


TimedBytes::TimedBytes(const std::vector<uint8>& bytes, int64 maxTime)
	: fBytes(bytes),
	  fEnd(thread_time() + maxTime),
	  fPosition(0),
	  fHasGivenUp(false)
{
	open(QIODevice::ReadOnly);
}


bool
TimedBytes::seek(qint64 position)
{
	if (position > size() || !QIODevice::seek(position))
		return false;
	fPosition = position;
	return true;
}


qint64
TimedBytes::readData(char* buffer, qint64 maxSize)
{
	fHasGivenUp = fHasGivenUp || thread_time() >= fEnd;
	if (fHasGivenUp)
		return -1;

	const qint64 size = std::min(maxSize, this->size() - fPosition);
	memcpy(buffer, fBytes.data() + fPosition, static_cast<size_t>(size));
	fPosition += size;
	return size;
}


// #pragma mark -


static QByteArray
format_of(PictureKind kind)
{
	switch (kind) {
		case kPngPicture:
			return "png";
		case kJpegPicture:
			return "jpeg";
		case kGifPicture:
			return "gif";
		case kBmpPicture:
			return "bmp";
		case kNoPicture:
			break;
	}
	return QByteArray();
}


/*!	Whether there is memory for decoding, and as much to spare as others may need meanwhile. */
static bool
has_memory_for(const CheckedPicture& picture)
{
	const size_t kSpare = 32 * 1024 * 1024;
	const size_t kBytesPerPixel = 12;
	void* volatile block = malloc(
		static_cast<size_t>(picture.width) * picture.height * kBytesPerPixel + kSpare);
	free(block);
	return block != NULL;
}


BBitmap*
DecodePicture(const CheckedPicture& picture, int64 maxTime)
{
	if (!has_memory_for(picture))
		return NULL;

	static const bool sIsLimited = [] {
		QImageReader::setAllocationLimit(kMaxPictureMebibytes);
		return true;
	}();
	static_cast<void>(sIsLimited);

	TimedBytes bytes(picture.bytes, maxTime);
	// Left to find out for itself, it would ask whatever plugins there are.
	QImageReader reader(&bytes, format_of(picture.kind));
	reader.setAutoDetectImageFormat(false);
	QImage image = reader.read();
	if (image.isNull() || bytes.HasGivenUp()
		|| !IsBearablePicture(static_cast<uint32>(image.width()),
			static_cast<uint32>(image.height())))
		return NULL;

	// What holds more than the eight bits of a color goes before there is a copy.
	image.convertTo(QImage::Format_ARGB32);
	return BitmapPeer::CreateBitmap(image);
}
