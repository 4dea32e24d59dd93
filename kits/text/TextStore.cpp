/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextStore.h>

#include <algorithm>

#include <Utf8.h>


static const char32_t kParagraphSeparator = 0x2029;


/*!	Most of all text. */
static bool
is_plain(char byte)
{
	return (byte >= ' ' && byte <= '~') || byte == '\t';
}


/*!	\return The length of the character that is at the front of \a size bytes, of which there is at
	least one; 1 for a byte that belongs to none.
*/
static int32
character_length(const char* bytes, int32 size)
{
	char32_t code;
	return std::max<int32>(decode_utf8(bytes, static_cast<size_t>(size), &code), 1);
}


/*!	A paragraph separator is three bytes, which this is the last of. */
static bool
may_end_line(char byte)
{
	return byte == '\n' || byte == '\r' || byte == '\xa9';
}


TextStore::TextStore()
	: fLines(1, {0, 0}),
	  fPositionCount(0)
{
}


/*!	\return Whether there is memory for that many bytes more and the lines in them. */
bool
TextStore::MakeRoom(const TextRoom& room, const char* bytes, int32 length)
{
	return room.Make(&fBytes, static_cast<size_t>(length))
		&& room.Make(&fLines, CountEnds(bytes, length));
}


/*!	\return How many lines these bytes may end, at the most. */
size_t
TextStore::CountEnds(const char* bytes, int32 length)
{
	return static_cast<size_t>(std::count_if(bytes, bytes + length, may_end_line));
}


/*!	Puts \a length bytes in the place of \a removed bytes at \a offset, all of which have to lie
	within the text.
	\return The first line that may be another one now; those after it may be, too.
*/
int32
TextStore::Replace(int32 offset, int32 removed, const char* bytes, int32 length)
{
	if (offset == CountBytes())
		return _Append(bytes, length);

	int32 first = LineAtOffset(offset);
	// A line feed that comes to stand behind a carriage return belongs to it.
	if (first > 0 && fBytes[OffsetOf(first) - 1] == '\r')
		first--;
	fBytes.replace(static_cast<size_t>(offset), static_cast<size_t>(removed), bytes,
		static_cast<size_t>(length));
	fLines.resize(static_cast<size_t>(first) + 1);
	fPositionCount = PositionOf(first);
	_FindLines(static_cast<size_t>(OffsetOf(first)));
	return first;
}


/*!	The usual case: what is there stays as it is, except that a CR at the very end may become CR LF,
	and that bytes at the end which were no character may become one.
*/
int32
TextStore::_Append(const char* bytes, int32 length)
{
	const int32 last = CountLines() - 1;
	const size_t end = fBytes.size();
	fBytes.append(bytes, static_cast<size_t>(length));
	if (length == 0)
		return last;
	if (OffsetOf(last) == static_cast<int32>(end) && end > 0 && fBytes[end - 1] == '\r'
		&& bytes[0] == '\n') {
		fLines.back().offset++;
		_FindLines(end + 1);
		return last - 1;
	}
	const size_t lineLength = end - static_cast<size_t>(OffsetOf(last));
	const size_t tail = unfinished_tail(fBytes.data() + OffsetOf(last), lineLength);
	fPositionCount -= static_cast<int32>(tail);
	_FindLines(end - tail);
	return last;
}


/*!	Finds the ends of lines, and counts positions, from an offset in the last line, up to which they
	are counted, to the end.
*/
void
TextStore::_FindLines(size_t from)
{
	const size_t size = fBytes.size();
	size_t at = from;
	while (at < size) {
		const char byte = fBytes[at];
		if (is_plain(byte)) {
			at++;
			fPositionCount++;
			continue;
		}
		char32_t code = 0;
		const size_t length = decode_utf8(fBytes.data() + at, size - at, &code);
		at += std::max<size_t>(length, 1);
		fPositionCount += length == 4 ? 2 : 1;
		if (byte == '\r' && at < size && fBytes[at] == '\n')
			at++;
		if (byte == '\n' || byte == '\r' || (length == 3 && code == kParagraphSeparator))
			fLines.push_back({static_cast<int32>(at), fPositionCount});
	}
}


int32
TextStore::LineAtOffset(int32 offset) const
{
	const auto above = std::upper_bound(fLines.begin(), fLines.end(), offset,
		[](int32 value, const Place& line) {
			return value < line.offset;
		});
	return static_cast<int32>(above - fLines.begin()) - 1;
}


int32
TextStore::LineAtPosition(int32 position) const
{
	const auto above = std::upper_bound(fLines.begin(), fLines.end(), position,
		[](int32 value, const Place& line) {
			return value < line.position;
		});
	return static_cast<int32>(above - fLines.begin()) - 1;
}


int32
TextStore::CountBytesOf(int32 line) const
{
	const int32 start = OffsetOf(line);
	if (line == CountLines() - 1)
		return CountBytes() - start;
	const int32 end = OffsetOf(line + 1);
	switch (fBytes[end - 1]) {
		case '\r':
			return end - 1 - start;
		case '\n':
			return end - 1 - start - (end - 1 > start && fBytes[end - 2] == '\r' ? 1 : 0);
		default:
			// A paragraph separator.
			return end - 3 - start;
	}
}


int32
TextStore::CountPositionsOf(int32 line) const
{
	if (line == CountLines() - 1)
		return fPositionCount - PositionOf(line);
	return PositionOf(line + 1) - 1 - PositionOf(line);
}


/*!	\return What the toolkit shows of a line, as UTF-16 without its end. */
std::u16string
TextStore::TextOf(int32 line) const
{
	return to_utf16(fBytes.data() + OffsetOf(line), static_cast<size_t>(CountBytesOf(line)));
}


/*!	\return The position of the character that \a offset is in. Within CR LF that is the end of the
	line.
*/
int32
TextStore::PositionAt(int32 offset) const
{
	const int32 line = LineAtOffset(offset);
	return PlaceAt(line, fLines[line], offset).position;
}


/*!	\return The offset of the character that \a position is in. */
int32
TextStore::OffsetAt(int32 position) const
{
	const int32 line = LineAtPosition(position);
	const int32 size = CountBytesOf(line);
	const int32 wanted = position - PositionOf(line);
	if (size == CountPositionsOf(line))
		return OffsetOf(line) + wanted;

	const char* bytes = fBytes.data() + OffsetOf(line);
	int32 seen = 0;
	int32 offset = 0;
	while (seen < wanted) {
		const int32 length = character_length(bytes + offset, size - offset);
		seen += length == 4 ? 2 : 1;
		if (seen > wanted)
			break;
		offset += length;
	}
	return OffsetOf(line) + offset;
}


/*!	For those who go through a line: the time is that for the characters between two places in it.
	\param from Where a character begins, not behind the one that \a offset is in.
	\return Where that one begins. Within the line's end it is the front of that.
*/
TextStore::Place
TextStore::PlaceAt(int32 line, Place from, int32 offset) const
{
	const int32 size = CountBytesOf(line);
	const int32 end = OffsetOf(line) + size;
	const int32 wanted = std::min(offset, end);
	if (size == CountPositionsOf(line))
		return {wanted, from.position + wanted - from.offset};

	while (from.offset < wanted) {
		const int32 length = character_length(fBytes.data() + from.offset, end - from.offset);
		if (from.offset + length > wanted)
			break;
		from.offset += length;
		from.position += length == 4 ? 2 : 1;
	}
	return from;
}
