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


/*!	Finds the paragraphs first, as if they were lines, and then how each is divided. */
ModelText::ModelText(const std::string& bytes, const Limit& limit)
{
	_Read(bytes);
	std::vector<Line> paragraphs;
	paragraphs.swap(fLines);
	size_t mark = 0;
	for (const Line& paragraph : paragraphs)
		mark = _Divide(paragraph, mark, limit);
}


void
ModelText::_Read(const std::string& bytes)
{
	int32 position = 0;
	fLines.push_back({0, 0, 0, 0, std::u16string()});
	size_t at = 0;
	while (at < bytes.size()) {
		Line& line = fLines.back();
		const size_t length = well_formed(bytes, at);
		const char32_t code = length > 0 ? character(bytes, at, length) : 0xfffd;
		fMarks.push_back({static_cast<int32>(at), position, 0});
		fCharacters.push_back(code);
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
	fMarks.push_back({static_cast<int32>(at), position, 0});
	fCharacters.push_back(0);
}


/*!	\param mark Of its first character.
	\return That of the next paragraph's.
*/
size_t
ModelText::_Divide(const Line& paragraph, size_t mark, const Limit& limit)
{
	const int32 end = paragraph.offset + paragraph.byteCount;
	for (;;) {
		const Mark start = fMarks[mark];
		const bool isLast = end - start.offset <= limit.longestLine;
		size_t next = mark;
		if (isLast) {
			while (fMarks[next].offset < end)
				next++;
		} else {
			next = _EndOfLine(mark, limit);
		}
		for (size_t i = mark; i < next; i++)
			fMarks[i].line = static_cast<int32>(fLines.size());
		const size_t from = static_cast<size_t>(start.position - paragraph.position);
		const size_t count = static_cast<size_t>(fMarks[next].position - start.position);
		fLines.push_back({start.offset, start.position, fMarks[next].offset - start.offset,
			isLast ? paragraph.endByteCount : 0, paragraph.text.substr(from, count)});
		mark = next;
		if (isLast)
			break;
	}
	// The end itself, or that of the text.
	fMarks[mark].line = static_cast<int32>(fLines.size()) - 1;
	return mark + 1;
}


/*!	\param first Of the line's characters, which are too many.
	\return The first one of the next line.
*/
size_t
ModelText::_EndOfLine(size_t first, const Limit& limit) const
{
	const auto taken = [this, first](size_t index) {
		return fMarks[index].offset - fMarks[first].offset;
	};
	size_t full = first;
	while (taken(full + 1) <= limit.longestLine)
		full++;
	for (size_t i = full; taken(i) > limit.longestLine / 4 * 3; i--) {
		const bool isBlank = fCharacters[i - 1] == ' ' || fCharacters[i - 1] == '\t';
		if (isBlank && _MayEndBefore(i, limit))
			return i;
	}
	for (size_t i = full; taken(i) > limit.longestLine / 2; i--) {
		if (_MayEndBefore(i, limit))
			return i;
	}
	return full;
}


bool
ModelText::_MayEndBefore(size_t index, const Limit& limit) const
{
	return limit.joins == NULL || !limit.joins(fCharacters[index - 1], fCharacters[index]);
}


bool
model_joins(char32_t before, char32_t after)
{
	const char32_t kJoiner = 0x200d;
	return before == kJoiner || after == kJoiner || (after >= 0x300 && after < 0x370);
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
		const bool isLast = i == store.CountLines() - 1;
		if (store.EndsSoftly(i) != (!isLast && line.endByteCount == 0))
			return "wrong kind of end of" + where;
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


/*!	The paragraphs, as the lines that they consist of. */
static std::string
paragraphs_complaint(const TextStore& store, const ModelText& model)
{
	const std::vector<ModelText::Line>& lines = model.Lines();
	size_t first = 0;
	for (size_t last = 0; last < lines.size(); last++) {
		if (last + 1 < lines.size() && lines[last].endByteCount == 0)
			continue;
		std::u16string text;
		for (size_t i = first; i <= last; i++)
			text += lines[i].text;
		for (const size_t i : {first, (first + last) / 2, last}) {
			const int32 line = static_cast<int32>(i);
			const std::string where = " line " + std::to_string(i);
			if (store.FirstOfParagraph(line) != static_cast<int32>(first)
				|| store.LastOfParagraph(line) != static_cast<int32>(last))
				return "wrong paragraph of" + where;
			if (store.TextOfParagraph(line) != text)
				return "wrong text of the paragraph of" + where;
		}
		first = last + 1;
	}
	return std::string();
}


std::string
text_store_complaint(const TextStore& store, const std::string& bytes,
	const ModelText::Limit& limit)
{
	const ModelText model(bytes, limit);
	std::vector<ModelText::Mark> marks = model.Marks();
	const ModelText::Mark end = marks.back();
	if (store.CountBytes() != static_cast<int32>(bytes.size())
		|| store.CountPositions() != end.position)
		return "the lengths are wrong";
	// With the NUL that follows.
	if (std::string(store.Bytes(), bytes.size() + 1) != bytes + '\0')
		return "the bytes have changed";

	std::string complaint = lines_complaint(store, model);
	if (complaint.empty())
		complaint = paragraphs_complaint(store, model);
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
	const std::string& added, const ModelText::Limit& limit)
{
	const ModelText before(bytes, limit);
	bytes.replace(offset, removed, added);
	const int32 first = store.Replace(static_cast<int32>(offset), static_cast<int32>(removed),
		added.data(), static_cast<int32>(added.size()));
	std::string complaint = text_store_complaint(store, bytes, limit);
	if (!complaint.empty())
		return complaint;

	const ModelText after(bytes, limit);
	if (first < 0 || static_cast<size_t>(first) >= after.Lines().size()
		|| static_cast<size_t>(first) >= before.Lines().size())
		return "there is no line " + std::to_string(first) + " that could have changed";
	for (size_t i = 0; i < static_cast<size_t>(first); i++) {
		if (!(before.Lines()[i] == after.Lines()[i]))
			return "line " + std::to_string(i) + " has changed before " + std::to_string(first);
	}
	return std::string();
}
