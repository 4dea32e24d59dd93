/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TranslationUtils.h>

#include <vector>

#include <Bitmap.h>
#include <DataIO.h>
#include <File.h>
#include <PictureBounds.h>
#include <PictureDecoder.h>


/*!	All bytes from where the stream stands; none when they are too many or cannot be read. */
static std::vector<uint8>
read_all(BPositionIO* stream)
{
	std::vector<uint8> bytes;
	uint8 buffer[16384];
	while (bytes.size() <= kMaxPictureFile) {
		const ssize_t count = stream->Read(buffer, sizeof(buffer));
		if (count == 0)
			return bytes;
		if (count < 0)
			break;
		bytes.insert(bytes.end(), buffer, buffer + count);
	}
	return std::vector<uint8>();
}


/*!	Reads a picture, of the kind that its first bytes tell. */
BBitmap*
BTranslationUtils::GetBitmap(BPositionIO* stream, BTranslatorRoster* /*roster*/)
{
	if (stream == NULL)
		return NULL;

	CheckedPicture picture;
	{
		const std::vector<uint8> bytes = read_all(stream);
		if (!CheckPicture(bytes.data(), bytes.size(), &picture))
			return NULL;
	}
	return DecodePicture(picture, kMaxPictureTime);
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
