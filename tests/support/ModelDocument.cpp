/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ModelDocument.h"


static const char16_t kBlockEnd = 0x2029;


static bool
in_range(const std::string& bytes, size_t at, int low, int high)
{
	return at < bytes.size() && uint8(bytes[at]) >= low && uint8(bytes[at]) <= high;
}


/*!	\return The length of the well-formed sequence at \a at, by the table in chapter 3 of the Unicode Standard; 0 for none. */
static size_t
well_formed(const std::string& bytes, size_t at)
{
	static const struct {
		int lead[2];
		int second[2];
		size_t length;
	} kTable[] = {
		{{0x00, 0x7f}, {0, 0}, 1},
		{{0xc2, 0xdf}, {0x80, 0xbf}, 2},
		{{0xe0, 0xe0}, {0xa0, 0xbf}, 3},
		{{0xe1, 0xec}, {0x80, 0xbf}, 3},
		{{0xed, 0xed}, {0x80, 0x9f}, 3},
		{{0xee, 0xef}, {0x80, 0xbf}, 3},
		{{0xf0, 0xf0}, {0x90, 0xbf}, 4},
		{{0xf1, 0xf3}, {0x80, 0xbf}, 4},
		{{0xf4, 0xf4}, {0x80, 0x8f}, 4},
	};
	for (const auto& row : kTable) {
		if (!in_range(bytes, at, row.lead[0], row.lead[1]))
			continue;
		if (row.length > 1 && !in_range(bytes, at + 1, row.second[0], row.second[1]))
			return 0;
		for (size_t i = 2; i < row.length; i++) {
			if (!in_range(bytes, at + i, 0x80, 0xbf))
				return 0;
		}
		return row.length;
	}
	return 0;
}


static char32_t
character(const std::string& bytes, size_t at, size_t length)
{
	static const int kLeadMasks[] = {0, 0x7f, 0x1f, 0x0f, 0x07};
	char32_t code = char32_t(uint8(bytes[at]) & kLeadMasks[length]);
	for (size_t i = 1; i < length; i++)
		code = code * 64 + (uint8(bytes[at + i]) - 0x80);
	return code;
}


std::u16string
ModelDocument::BlockText(int32 block) const
{
	size_t begin = 0;
	for (; block > 0; block--)
		begin = fUnits.find(kBlockEnd, begin) + 1;
	return fUnits.substr(begin, fUnits.find(kBlockEnd, begin) - begin);
}


/*!	\return \c false when the edit does not lie within the document. */
bool
ModelDocument::Apply(const TextMap::Edit& edit)
{
	if (edit.position < 0 || edit.removed < 0
		|| size_t(edit.position) + size_t(edit.removed) > fUnits.size())
		return false;
	fUnits.replace(size_t(edit.position), size_t(edit.removed), edit.inserted);
	return true;
}


/*!	\return The units that a document of \a bytes has.
	\param _marks Receives every character's start, and the end of the text.
*/
std::u16string
ModelDocument::Expected(const std::string& bytes, std::vector<Mark>& _marks)
{
	std::u16string units;
	size_t at = 0;
	while (at < bytes.size()) {
		_marks.push_back({int32(at), int32(units.size())});
		const size_t length = well_formed(bytes, at);
		const char32_t code = length > 0 ? character(bytes, at, length) : 0xfffd;
		const bool isEnd = code == '\n' || code == '\r' || code == 0x2029 || code == 0xfdd0
			|| code == 0xfdd1;
		if (isEnd) {
			units += kBlockEnd;
		} else if (code > 0xffff) {
			units += char16_t(0xd800 + (code - 0x10000) / 0x400);
			units += char16_t(0xdc00 + (code - 0x10000) % 0x400);
		} else {
			units += char16_t(code);
		}
		at += length > 0 ? length : 1;
		if (code == '\r' && in_range(bytes, at, '\n', '\n'))
			at++;
	}
	_marks.push_back({int32(at), int32(units.size())});
	return units;
}


std::string
text_map_complaint(const TextMap& map, const ModelDocument& document, const std::string& bytes)
{
	std::vector<ModelDocument::Mark> marks;
	const std::u16string units = ModelDocument::Expected(bytes, marks);
	if (document.Units() != units)
		return "the document shows something else";
	if (map.CountBytes() != int32(bytes.size()) || map.CountPositions() != int32(units.size()))
		return "the lengths are wrong";
	if (map.Bytes(0, map.CountBytes()) != bytes)
		return "the bytes have changed";
	for (size_t i = 0; i + 1 < marks.size(); i++) {
		const ModelDocument::Mark& mark = marks[i];
		const ModelDocument::Mark& next = marks[i + 1];
		for (int32 offset = mark.offset; offset < next.offset; offset++) {
			if (map.PositionAt(offset) != mark.position)
				return "wrong position at byte " + std::to_string(offset);
		}
		for (int32 position = mark.position; position < next.position; position++) {
			if (map.OffsetAt(position) != mark.offset)
				return "wrong byte at position " + std::to_string(position);
		}
	}
	if (map.PositionAt(marks.back().offset) != marks.back().position
		|| map.OffsetAt(marks.back().position) != marks.back().offset)
		return "the ends do not meet";
	return std::string();
}
