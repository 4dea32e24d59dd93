/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PictureCheck.h>

#include <ByteReader.h>
#include <PictureBounds.h>


// The second byte of each marker.
enum {
	kFirstRestart = 0xd0,
	kLastRestart = 0xd7,
	kBaseline = 0xc0, // the kinds of frames that are known: sequential ones
	kExtended = 0xc1,
	kProgressive = 0xc2, // and those in several scans
	kHuffmanTables = 0xc4,
	kArithmeticTables = 0xcc,
	kLastFrame = 0xcf,
	kStart = 0xd8,
	kEnd = 0xd9,
	kScan = 0xda,
	kQuantizationTables = 0xdb,
	kRestartInterval = 0xdd,
	kJfif = 0xe0,
	kAdobe = 0xee, // how the colors are coded
	kTemporary = 0x01
};

static const uint8 kEndBytes[] = {0xff, kEnd};


static bool
is_frame(uint8 marker)
{
	return marker >= kBaseline && marker <= kLastFrame && marker != kHuffmanTables && marker != 0xc8
		&& marker != kArithmeticTables;
}


static bool
is_restart(uint8 marker)
{
	return marker >= kFirstRestart && marker <= kLastRestart;
}


static bool
is_handed_on(uint8 marker)
{
	switch (marker) {
		case kHuffmanTables:
		case kQuantizationTables:
		case kRestartInterval:
		case kJfif:
		case kAdobe:
			return true;
		default:
			return false;
	}
}


/*!	Walks the segments of a file, up to its end or to where it is cut off. Borrows the bytes. */
class JpegWalk {
public:
	JpegWalk(const uint8* bytes, size_t size, CheckedPicture* _picture);

	bool Run();

private:
	bool _FindMarker(uint8* _marker);
	bool _TakeSegment(uint8 marker);
	bool _TakeFrame(const uint8* content, size_t size);
	void _TakePixels();
	void _HandOn(uint8 marker, const uint8* content, size_t size);

	ByteReader fReader;
	CheckedPicture* fPicture;
	int32 fScans;
	bool fHasFrame;
	bool fIsCut;
};


JpegWalk::JpegWalk(const uint8* bytes, size_t size, CheckedPicture* _picture)
	: fReader(bytes, size),
	  fPicture(_picture),
	  fScans(0),
	  fHasFrame(false),
	  fIsCut(false)
{
}


/*!	Whatever is there of a file that is cut off after its first scan began makes a picture. */
bool
JpegWalk::Run()
{
	append_bytes(&fPicture->bytes, fReader.Take(2), 2);

	uint8 marker;
	for (int32 i = 0; _FindMarker(&marker) && marker != kEnd; i++) {
		if (i == kMaxPictureParts)
			return false;
		if (is_restart(marker) || marker == kTemporary)
			continue;
		if (!_TakeSegment(marker))
			return false;
		if (fIsCut)
			break;
	}
	append_bytes(&fPicture->bytes, kEndBytes, sizeof(kEndBytes));
	return fScans > 0;
}


/*!	Passes over whatever is none. */
bool
JpegWalk::_FindMarker(uint8* _marker)
{
	bool isMarked = false;
	while (const uint8* byte = fReader.Take(1)) {
		if (isMarked && *byte != 0 && *byte != 0xff) {
			*_marker = *byte;
			return true;
		}
		isMarked = *byte == 0xff;
	}
	return false;
}


/*!	\return \c false when the file is to be refused. */
bool
JpegWalk::_TakeSegment(uint8 marker)
{
	if (marker == kStart)
		return false;
	const size_t size = fReader.Left() >= 2 ? big_16(fReader.Here()) : 0;
	const uint8* content = size >= 2 ? fReader.Take(size) : NULL;
	if (content == NULL) {
		fIsCut = true;
		return true;
	}

	if (is_frame(marker)) {
		if (marker > kProgressive || !_TakeFrame(content, size))
			return false;
		_HandOn(marker, content, size);
	} else if (marker == kScan) {
		if (!fHasFrame || ++fScans > kMaxPictureScans)
			return false;
		_HandOn(marker, content, size);
		_TakePixels();
	} else if (is_handed_on(marker))
		_HandOn(marker, content, size);
	return true;
}


/*!	The one frame: the bits of a color, height, width, and how many colors there are. */
bool
JpegWalk::_TakeFrame(const uint8* content, size_t size)
{
	if (fHasFrame || size < 8 || content[2] != 8)
		return false;
	const uint8 colors = content[7];
	if ((colors != 1 && colors != 3 && colors != 4) || size != 8u + 3u * colors)
		return false;
	fHasFrame = true;
	fPicture->height = big_16(content + 3);
	fPicture->width = big_16(content + 5);
	return true;
}


/*!	What follows a scan's header: bytes and restarts, up to the next marker. */
void
JpegWalk::_TakePixels()
{
	const uint8* start = fReader.Here();
	size_t size = 0;
	const size_t left = fReader.Left();
	for (; size < left; size++) {
		if (start[size] != 0xff || size + 1 == left)
			continue;
		const uint8 next = start[size + 1];
		if (next != 0 && next != 0xff && !is_restart(next))
			break;
	}
	append_bytes(&fPicture->bytes, fReader.Take(size), size);
}


void
JpegWalk::_HandOn(uint8 marker, const uint8* content, size_t size)
{
	const uint8 head[] = {0xff, marker};
	append_bytes(&fPicture->bytes, head, sizeof(head));
	append_bytes(&fPicture->bytes, content, size);
}


// #pragma mark -


bool
CheckJpeg(const uint8* bytes, size_t size, CheckedPicture* _picture)
{
	return JpegWalk(bytes, size, _picture).Run();
}
