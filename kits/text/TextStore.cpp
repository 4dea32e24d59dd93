/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextStore.h>

#include <algorithm>

#include <Utf8.h>


static const char32_t kParagraphSeparator = 0x2029;
static const char* const kParagraphSeparatorBytes = "\xe2\x80\xa9";

// So many bytes may wait for others that complete their character.
static const int32 kLongestTail = 3;


/*!	Most of all text. */
static bool
is_plain(char byte)
{
	return (byte >= ' ' && byte <= '~') || byte == '\t';
}


static bool
is_blank(char32_t character)
{
	return character == ' ' || character == '\t';
}


/*!	Reads the character at the front of \a size bytes, of which there is at least one.
	\return Its length; that of a byte that belongs to none is 1.
*/
static size_t
read_character(const char* bytes, size_t size, char32_t* _code)
{
	const size_t length = decode_utf8(bytes, size, _code);
	if (length > 0)
		return length;
	*_code = kReplacementCharacter;
	return 1;
}


static bool
ends_line(char32_t character)
{
	return character == '\n' || character == '\r' || character == kParagraphSeparator;
}


static int32
positions_of(size_t length)
{
	return length == 4 ? 2 : 1;
}


/*!	\return The length of the character that is at the front of \a size bytes, of which there is at
	least one; 1 for a byte that belongs to none.
*/
static int32
character_length(const char* bytes, int32 size)
{
	char32_t code;
	return static_cast<int32>(read_character(bytes, static_cast<size_t>(size), &code));
}


/*!	A paragraph separator is three bytes, which this is the last of. */
static bool
may_end_line(char byte)
{
	return byte == '\n' || byte == '\r' || byte == '\xa9';
}


/*!	\param joins NULL if a line may end between any two characters. */
TextStore::TextStore(JoinsFunction joins, int32 longestLine)
	: fJoins(joins),
	  fLongestLine(longestLine),
	  fLines(1, {0, 0}),
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


/*!	\return How many lines these bytes may end, at the most: by themselves, and softly, which no two
	ends do that are less than half of a longest line apart.
*/
size_t
TextStore::CountEnds(const char* bytes, int32 length) const
{
	const size_t softEnds = static_cast<size_t>(length / (fLongestLine / 2 + 1)) + 2;
	return static_cast<size_t>(std::count_if(bytes, bytes + length, may_end_line)) + softEnds;
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
	first = _FirstTouched(first, offset - kLongestTail);
	fBytes.replace(static_cast<size_t>(offset), static_cast<size_t>(removed), bytes,
		static_cast<size_t>(length));
	_FindAgain(first);
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
	if (tail > 0) {
		const int32 first = _FirstTouched(last, static_cast<int32>(end - tail));
		if (first < last) {
			_FindAgain(first);
			return first;
		}
	}
	fPositionCount -= static_cast<int32>(tail);
	_FindLines(end - tail);
	return last;
}


/*!	Where a line ends softly depends on the character that it has no room for.
	\param offset From which on something changes, in that line or behind it.
	\return The first line that may end somewhere else then, at most \a line.
*/
int32
TextStore::_FirstTouched(int32 line, int32 offset) const
{
	while (line > 0 && offset <= OffsetOf(line - 1) + fLongestLine && EndsSoftly(line - 1))
		line--;
	return line;
}


/*!	All lines from the start of one on. */
void
TextStore::_FindAgain(int32 line)
{
	fLines.resize(static_cast<size_t>(line) + 1);
	fPositionCount = PositionOf(line);
	_FindLines(static_cast<size_t>(OffsetOf(line)));
}


/*!	Finds the ends of lines, and counts positions, from an offset in the last line, up to which they
	are counted, to the end.
*/
void
TextStore::_FindLines(size_t from)
{
	const size_t size = fBytes.size();
	size_t at = from;
	const size_t longest = static_cast<size_t>(fLongestLine);
	size_t limit = static_cast<size_t>(fLines.back().offset) + longest;
	while (at < size) {
		const char byte = fBytes[at];
		if (is_plain(byte) && at < limit) {
			at++;
			fPositionCount++;
			continue;
		}
		char32_t code;
		const size_t length = read_character(fBytes.data() + at, size - at, &code);
		const bool isEnd = ends_line(code);
		if (!isEnd && at + length > limit) {
			_EndSoftly(at, code);
			limit = static_cast<size_t>(fLines.back().offset) + longest;
		}
		at += length;
		fPositionCount += positions_of(length);
		if (!isEnd)
			continue;
		if (byte == '\r' && at < size && fBytes[at] == '\n')
			at++;
		fLines.push_back({static_cast<int32>(at), fPositionCount});
		limit = at + longest;
	}
}


/*!	Ends the last line, up to \a end at the latest.
	\param end Up to where positions are counted.
	\param next The character there, which the line has no room for.
*/
void
TextStore::_EndSoftly(size_t end, char32_t next)
{
	const Place start = fLines.back();
	const Place last = {static_cast<int32>(end), fPositionCount};
	Place blank = last;
	Place other = last;
	bool hasBlank = false;
	Place place = start;
	char32_t before = 0;
	for (;;) {
		char32_t code = next;
		size_t length = 0;
		if (place.offset < last.offset) {
			length = read_character(fBytes.data() + place.offset,
				end - static_cast<size_t>(place.offset), &code);
		}
		const int32 taken = place.offset - start.offset;
		if (taken > fLongestLine / 2 && (fJoins == NULL || !fJoins(before, code))) {
			other = place;
			if (is_blank(before) && taken > fLongestLine / 4 * 3) {
				blank = place;
				hasBlank = true;
			}
		}
		if (length == 0)
			break;
		place.offset += static_cast<int32>(length);
		place.position += positions_of(length);
		before = code;
	}
	fLines.push_back(hasBlank ? blank : other);
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


bool
TextStore::EndsSoftly(int32 line) const
{
	return line < CountLines() - 1 && _CountEndBytesOf(line) == 0;
}


int32
TextStore::FirstOfParagraph(int32 line) const
{
	while (line > 0 && EndsSoftly(line - 1))
		line--;
	return line;
}


int32
TextStore::LastOfParagraph(int32 line) const
{
	while (EndsSoftly(line))
		line++;
	return line;
}


int32
TextStore::CountBytesOf(int32 line) const
{
	if (line == CountLines() - 1)
		return CountBytes() - OffsetOf(line);
	return OffsetOf(line + 1) - _CountEndBytesOf(line) - OffsetOf(line);
}


int32
TextStore::CountPositionsOf(int32 line) const
{
	if (line == CountLines() - 1)
		return fPositionCount - PositionOf(line);
	return PositionOf(line + 1) - (EndsSoftly(line) ? 0 : 1) - PositionOf(line);
}


/*!	\return What the toolkit shows of a line, as UTF-16 without its end. */
std::u16string
TextStore::TextOf(int32 line) const
{
	return to_utf16(fBytes.data() + OffsetOf(line), static_cast<size_t>(CountBytesOf(line)));
}


/*!	\return The paragraph that a line is in, without its end. */
std::u16string
TextStore::TextOfParagraph(int32 line) const
{
	const int32 start = OffsetOf(FirstOfParagraph(line));
	const int32 last = LastOfParagraph(line);
	const int32 end = OffsetOf(last) + CountBytesOf(last);
	return to_utf16(fBytes.data() + start, static_cast<size_t>(end - start));
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


/*!	\param line Not the last one.
	\return How many bytes its end has; none if that is a soft one. What looks like a hard end is
	one, as its bytes are part of no other character.
*/
int32
TextStore::_CountEndBytesOf(int32 line) const
{
	const int32 start = OffsetOf(line);
	const int32 end = OffsetOf(line + 1);
	switch (fBytes[end - 1]) {
		case '\r':
			return 1;
		case '\n':
			return end - 1 > start && fBytes[end - 2] == '\r' ? 2 : 1;
		default:
			return end - 3 >= start && fBytes.compare(end - 3, 3, kParagraphSeparatorBytes) == 0
				? 3
				: 0;
	}
}
