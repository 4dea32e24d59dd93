/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureCheck.h>

#include <algorithm>

#include <ByteReader.h>


// A signature, then the size of the screen, flags, two bytes.
static const size_t kHeaderSize = 13;
static const uint8 kExtension = 0x21;
static const uint8 kTransparency = 0xf9; // the kind of extension that pixels depend on
static const uint8 kFrame = 0x2c;
static const uint8 kEnd = 0x3b;
// The place and the size of a frame, then flags.
static const size_t kFrameHeaderSize = 9;
static const uint8 kHasColors = 0x80;

static const int kMaxCodeBits = 12;
static const uint32 kMaxCodes = 1 << kMaxCodeBits;


/*!	Counts the pixels that packed codes stand for. A new code stands for what the one before does
	and for one pixel more.
*/
class GifPixels {
public:
	explicit GifPixels(uint8 bitsPerPixel);

	// False once the codes have ended, or are none.
	bool Add(const uint8* bytes, size_t size);
	uint64 Count() const { return fCount; }

private:
	bool _AddCode(uint32 code);
	void _Clear();

	uint32 fClearCode;
	int fFirstBits;
	uint32 fLengths[kMaxCodes];
	uint32 fNextCode;
	int fCodeBits;
	uint32 fLastLength; // of the code before; 0 after a clear
	uint32 fBits;
	int fBitCount;
	uint64 fCount;
};


/*!	\param bitsPerPixel From 1 to 8. */
GifPixels::GifPixels(uint8 bitsPerPixel)
	: fClearCode(1u << bitsPerPixel),
	  fFirstBits(bitsPerPixel + 1),
	  fBits(0),
	  fBitCount(0),
	  fCount(0)
{
	std::fill_n(fLengths, fClearCode, 1);
	_Clear();
}


bool
GifPixels::Add(const uint8* bytes, size_t size)
{
	for (size_t i = 0; i < size; i++) {
		fBits |= static_cast<uint32>(bytes[i]) << fBitCount;
		for (fBitCount += 8; fBitCount >= fCodeBits;) {
			const uint32 code = fBits & ((1u << fCodeBits) - 1);
			fBits >>= fCodeBits;
			fBitCount -= fCodeBits;
			if (!_AddCode(code))
				return false;
		}
	}
	return true;
}


bool
GifPixels::_AddCode(uint32 code)
{
	if (code == fClearCode) {
		_Clear();
		return true;
	}
	if (code == fClearCode + 1 || code > fNextCode || (code >= fClearCode && fLastLength == 0))
		return false;

	// The code that is about to become known may be used already.
	const uint32 length = code < fNextCode ? fLengths[code] : fLastLength + 1;
	if (fLastLength > 0 && fNextCode < kMaxCodes) {
		fLengths[fNextCode++] = fLastLength + 1;
		if (fNextCode == 1u << fCodeBits && fCodeBits < kMaxCodeBits)
			fCodeBits++;
	}
	fLastLength = length;
	fCount += length;
	return true;
}


void
GifPixels::_Clear()
{
	fNextCode = fClearCode + 2;
	fCodeBits = fFirstBits;
	fLastLength = 0;
}


// #pragma mark -


/*!	\param flags Of a header; they say whether a table of colors follows, and how long it is.
	\return \c false when it is not whole.
*/
static bool
take_colors(ByteReader* reader, uint8 flags)
{
	return (flags & kHasColors) == 0 || reader->Take(3u << ((flags & 7) + 1)) != NULL;
}


/*!	Blocks of up to 255 bytes, behind the count of each, and an empty one. */
static bool
take_blocks(ByteReader* reader)
{
	while (const uint8* count = reader->Take(1)) {
		if (*count == 0)
			return true;
		if (reader->Take(*count) == NULL)
			return false;
	}
	return false;
}


/*!	The blocks of a frame, up to where it has all its pixels: decoders go on unpacking what they
	have no room for. Of a file that is cut off there are some.
	\param _bytes They are appended to it.
*/
static void
take_pixels(ByteReader* reader, uint8 bitsPerPixel, uint64 pixels, std::vector<uint8>* _bytes)
{
	GifPixels unpacked(bitsPerPixel);
	while (reader->Left() > 0 && reader->Here()[0] != 0 && unpacked.Count() < pixels) {
		const size_t announced = reader->Take(1)[0];
		const size_t count = std::min(announced, reader->Left());
		if (count == 0)
			break;
		const uint8* block = reader->Take(count);
		_bytes->push_back(static_cast<uint8>(count));
		append_bytes(_bytes, block, count);
		if (!unpacked.Add(block, count))
			break;
	}
}


/*!	The first frame, with its colors and its pixels, is appended. It has to lie on the screen. */
static bool
take_frame(ByteReader* reader, CheckedPicture* _picture)
{
	const uint8* start = reader->Here();
	const uint8* frame = reader->Take(1 + kFrameHeaderSize);
	if (frame == NULL || !take_colors(reader, frame[9]))
		return false;
	const uint32 width = little_16(frame + 5);
	const uint32 height = little_16(frame + 7);
	// A decoder would unpack what has no place on the screen, too.
	if (width == 0 || height == 0 || little_16(frame + 1) + width > _picture->width
		|| little_16(frame + 3) + height > _picture->height)
		return false;

	const uint8* bits = reader->Take(1);
	if (bits == NULL || *bits < 1 || *bits > 8)
		return false;
	append_bytes(&_picture->bytes, start, static_cast<size_t>(reader->Here() - start));
	take_pixels(reader, *bits, static_cast<uint64>(width) * height, &_picture->bytes);
	// The empty block and the end of the file.
	const uint8 end[] = {0, kEnd};
	append_bytes(&_picture->bytes, end, sizeof(end));
	return true;
}


/*!	The size is that of the screen, on which frames have their places. */
bool
CheckGif(const uint8* bytes, size_t size, CheckedPicture* _picture)
{
	ByteReader reader(bytes, size);
	const uint8* header = reader.Take(kHeaderSize);
	if (header == NULL || !take_colors(&reader, header[10]))
		return false;
	_picture->width = little_16(header + 6);
	_picture->height = little_16(header + 8);
	append_bytes(&_picture->bytes, bytes, static_cast<size_t>(reader.Here() - bytes));

	while (reader.Left() > 1 && reader.Here()[0] == kExtension) {
		const uint8* start = reader.Take(2);
		if (!take_blocks(&reader))
			return false;
		if (start[1] == kTransparency)
			append_bytes(&_picture->bytes, start, static_cast<size_t>(reader.Here() - start));
	}
	return reader.Left() > 0 && reader.Here()[0] == kFrame && take_frame(&reader, _picture);
}
