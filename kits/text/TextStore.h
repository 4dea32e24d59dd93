/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_STORE_H
#define TEXT_STORE_H


#include <cstddef>
#include <string>
#include <vector>

#include <SupportDefs.h>
#include <TextRoom.h>


/*!	A text of many lines: its bytes as they came, where its lines begin, and positions in it as the
	toolkit counts them.
	The bytes may be of any kind. A line ends at LF, CR, CR LF and U+2029, and each of these ends is
	one position. A character beyond the BMP is two positions, and a byte that belongs to no
	well-formed UTF-8 sequence is one position that shows U+FFFD. What is said depends on the bytes
	alone, not on how they came together.
	A line of more than some bytes ends softly and goes on in the next one, so that nobody has to lay
	out more than is seen. A soft end is no byte and no position. It stands behind a blank, if one is
	in the last quarter, and else where characters do not join. Lines up to a hard end are a
	paragraph.

	Appending takes as long as what is appended, however long the text is; a lookup takes as many
	steps as the number of lines has digits, and one for each character of a line with other letters
	than those of ASCII. Belongs to one thread. Texts end below 2^31 bytes.
*/
class TextStore {
public:
	// In bytes and in positions.
	struct Place {
		int32 offset;
		int32 position;
	};

	// Whether two characters are shown as one, so that no line ends between them.
	typedef bool (*JoinsFunction)(char32_t before, char32_t after);

	// In bytes, without a hard end.
	static const int32 kLongestLine = 1024;

	// A longest line of less than 16 bytes is none.
	explicit TextStore(JoinsFunction joins = NULL, int32 longestLine = kLongestLine);

	int32 CountBytes() const { return static_cast<int32>(fBytes.size()); }
	int32 CountPositions() const { return fPositionCount; }
	int32 CountLines() const { return static_cast<int32>(fLines.size()); }
	// Followed by a NUL. Stay until the text is changed.
	const char* Bytes() const { return fBytes.c_str(); }

	size_t CountEnds(const char* bytes, int32 length) const;
	bool MakeRoom(const TextRoom& room, const char* bytes, int32 length);
	int32 Replace(int32 offset, int32 removed, const char* bytes, int32 length);

	int32 LineAtOffset(int32 offset) const;
	int32 LineAtPosition(int32 position) const;
	// Where a line begins.
	int32 OffsetOf(int32 line) const { return fLines[line].offset; }
	int32 PositionOf(int32 line) const { return fLines[line].position; }

	// Whether the next line belongs to the same paragraph.
	bool EndsSoftly(int32 line) const;
	// The paragraph that a line is in, in as many steps as it has lines.
	int32 FirstOfParagraph(int32 line) const;
	int32 LastOfParagraph(int32 line) const;

	// Of a line, without its end.
	int32 CountBytesOf(int32 line) const;
	int32 CountPositionsOf(int32 line) const;
	std::u16string TextOf(int32 line) const;
	std::u16string TextOfParagraph(int32 line) const;

	int32 PositionAt(int32 offset) const;
	int32 OffsetAt(int32 position) const;
	Place PlaceAt(int32 line, Place from, int32 offset) const;

private:
	int32 _Append(const char* bytes, int32 length);
	int32 _CountEndBytesOf(int32 line) const;
	int32 _FirstTouched(int32 line, int32 offset) const;
	void _FindAgain(int32 line);
	void _FindLines(size_t from);
	void _EndSoftly(size_t end, char32_t next);

	JoinsFunction fJoins;
	int32 fLongestLine;
	std::string fBytes;
	// Where they begin; the lengths follow from the next one. There always is one.
	std::vector<Place> fLines;
	int32 fPositionCount;
};


#endif // TEXT_STORE_H
