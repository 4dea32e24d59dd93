/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TranslationUtils.h>

#include <cstdlib>

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include <Bitmap.h>
#include <BitmapPeer.h>
#include <DataIO.h>
#include <File.h>


// Of pixels, and of the file as well, in bytes.
static const int kMaxMegabytes = 64;
static const qint64 kMaxSize = static_cast<qint64>(kMaxMegabytes) * 1024 * 1024;
static const int kBytesPerPixel = 4;

// How a PNG file begins.
static const char kSignature[] = "\x89PNG\r\n\x1a\n";


/*!	All bytes from where the stream stands; none when they are too many or cannot be read. */
static QByteArray
read_all(BPositionIO* stream)
{
	QByteArray bytes;
	char buffer[16384];
	while (bytes.size() <= kMaxSize) {
		const ssize_t count = stream->Read(buffer, sizeof(buffer));
		if (count < 0)
			return QByteArray();
		if (count == 0)
			return bytes;
		bytes.append(buffer, count);
	}
	return QByteArray();
}


/*!	\return Whether a picture of that size may be decoded. The height is below zero where the lines
		of a BMP stand from top to bottom.
*/
static bool
is_bearable(QSize size)
{
	const qint64 width = size.width();
	const qint64 height = std::abs(static_cast<qint64>(size.height()));
	return width > 0 && height > 0 && width * height <= kMaxSize / kBytesPerPixel;
}


/*!	Reads a picture of whatever kind. */
BBitmap*
BTranslationUtils::GetBitmap(BPositionIO* stream, BTranslatorRoster* /*roster*/)
{
	if (stream == NULL)
		return NULL;

	QByteArray bytes = read_all(stream);
	QBuffer buffer(&bytes);
	if (bytes.isEmpty() || !buffer.open(QIODevice::ReadOnly))
		return NULL;

	QImageReader::setAllocationLimit(kMaxMegabytes);
	// Told the format, QImageReader need not look for it in the bytes. Most pictures are of this
	// one.
	QImageReader reader(&buffer, bytes.startsWith(kSignature) ? "png" : QByteArray());
	if (!is_bearable(reader.size()))
		return NULL;

	return BitmapPeer::CreateBitmap(reader.read());
}


/*!	\param path Raw bytes, absolute or from the working directory.
	\return NULL also for what is no plain file.
*/
BBitmap*
BTranslationUtils::GetBitmapFile(const char* path, BTranslatorRoster* /*roster*/)
{
	if (path == NULL)
		return NULL;

	// A pipe would be waited for until somebody writes to it.
	BFile file(path, B_READ_ONLY | O_NONBLOCK);
	return file.InitCheck() == B_OK && file.IsFile() ? GetBitmap(&file) : NULL;
}
