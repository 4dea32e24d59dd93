/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ModelText.h"


static bool
in_range(const std::string& bytes, size_t at, int low, int high)
{
	return at < bytes.size() && static_cast<uint8>(bytes[at]) >= low
		&& static_cast<uint8>(bytes[at]) <= high;
}


/*!	\return The length of the well-formed sequence at \a at, by the table in chapter 3 of the
	Unicode Standard; 0 for none.
*/
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
	char32_t code = char32_t(static_cast<uint8>(bytes[at]) & kLeadMasks[length]);
	for (size_t i = 1; i < length; i++)
		code = code * 64 + (static_cast<uint8>(bytes[at + i]) - 0x80);
	return code;
}


static void
append_character(std::u16string& units, char32_t code)
{
	if (code > 0xffff) {
		units += char16_t(0xd800 + (code - 0x10000) / 0x400);
		units += char16_t(0xdc00 + (code - 0x10000) % 0x400);
	} else {
		units += char16_t(code);
	}
}


bool
ModelText::Line::operator==(const Line& other) const
{
	return offset == other.offset && position == other.position && byteCount == other.byteCount
		&& endByteCount == other.endByteCount && text == other.text;
}


ModelText::ModelText(const std::string& bytes)
{
	int32 position = 0;
	fLines.push_back({0, 0, 0, 0, std::u16string()});
	size_t at = 0;
	while (at < bytes.size()) {
		fMarks.push_back({static_cast<int32>(at), position, static_cast<int32>(fLines.size()) - 1});
		Line& line = fLines.back();
		const size_t length = well_formed(bytes, at);
		const char32_t code = length > 0 ? character(bytes, at, length) : 0xfffd;
		at += length > 0 ? length : 1;
		if (code == '\n' || code == '\r' || code == 0x2029) {
			if (code == '\r' && in_range(bytes, at, '\n', '\n'))
				at++;
			line.endByteCount = static_cast<int32>(at) - line.offset - line.byteCount;
			position++;
			fLines.push_back({static_cast<int32>(at), position, 0, 0, std::u16string()});
		} else {
			append_character(line.text, code);
			position = line.position + static_cast<int32>(line.text.size());
			line.byteCount = static_cast<int32>(at) - line.offset;
		}
	}
	fMarks.push_back({static_cast<int32>(at), position, static_cast<int32>(fLines.size()) - 1});
}


static std::string
lines_complaint(const TextStore& store, const ModelText& model)
{
	if (static_cast<size_t>(store.CountLines()) != model.Lines().size())
		return "wrong number of lines";
	for (int32 i = 0; i < store.CountLines(); i++) {
		const ModelText::Line& line = model.Lines()[static_cast<size_t>(i)];
		const std::string where = " line " + std::to_string(i);
		if (store.OffsetOf(i) != line.offset)
			return "wrong offset of" + where;
		if (store.PositionOf(i) != line.position)
			return "wrong position of" + where;
		if (store.CountBytesOf(i) != line.byteCount)
			return "wrong number of bytes of" + where;
		if (store.CountPositionsOf(i) != static_cast<int32>(line.text.size()))
			return "wrong number of positions of" + where;
		if (store.TextOf(i) != line.text)
			return "wrong text of" + where;
	}
	return std::string();
}


/*!	\param next Where the next character starts; one further for the end of the text, which is a
	place to look up, too.
*/
static std::string
character_complaint(const TextStore& store, const ModelText::Mark& mark,
	const ModelText::Mark& next)
{
	for (int32 offset = mark.offset; offset < next.offset; offset++) {
		if (store.PositionAt(offset) != mark.position)
			return "wrong position at byte " + std::to_string(offset);
		if (store.LineAtOffset(offset) != mark.line)
			return "wrong line at byte " + std::to_string(offset);
	}
	for (int32 position = mark.position; position < next.position; position++) {
		if (store.OffsetAt(position) != mark.offset)
			return "wrong byte at position " + std::to_string(position);
		if (store.LineAtPosition(position) != mark.line)
			return "wrong line at position " + std::to_string(position);
	}
	return std::string();
}


std::string
text_store_complaint(const TextStore& store, const std::string& bytes)
{
	const ModelText model(bytes);
	std::vector<ModelText::Mark> marks = model.Marks();
	const ModelText::Mark end = marks.back();
	if (store.CountBytes() != static_cast<int32>(bytes.size())
		|| store.CountPositions() != end.position)
		return "the lengths are wrong";
	// With the NUL that follows.
	if (std::string(store.Bytes(), bytes.size() + 1) != bytes + '\0')
		return "the bytes have changed";

	std::string complaint = lines_complaint(store, model);
	marks.push_back({end.offset + 1, end.position + 1, end.line});
	for (size_t i = 0; i + 1 < marks.size() && complaint.empty(); i++)
		complaint = character_complaint(store, marks[i], marks[i + 1]);
	return complaint;
}


/*!	Puts \a added in the place of \a removed bytes, in the store and in its bytes, and looks at what
	the change has promised too.
*/
std::string
text_change_complaint(TextStore& store, std::string& bytes, size_t offset, size_t removed,
	const std::string& added)
{
	const ModelText before(bytes);
	bytes.replace(offset, removed, added);
	const int32 first = store.Replace(static_cast<int32>(offset), static_cast<int32>(removed),
		added.data(), static_cast<int32>(added.size()));
	std::string complaint = text_store_complaint(store, bytes);
	if (!complaint.empty())
		return complaint;

	const ModelText after(bytes);
	if (first < 0 || static_cast<size_t>(first) >= after.Lines().size()
		|| static_cast<size_t>(first) >= before.Lines().size())
		return "there is no line " + std::to_string(first) + " that could have changed";
	for (size_t i = 0; i < static_cast<size_t>(first); i++) {
		if (!(before.Lines()[i] == after.Lines()[i]))
			return "line " + std::to_string(i) + " has changed before " + std::to_string(first);
	}
	return std::string();
}
