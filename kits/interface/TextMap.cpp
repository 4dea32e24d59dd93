/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TextMap.h"

#include <algorithm>
#include <cstring>

#include "Utf8Private.h"


static const char16_t kBlockEnd = 0x2029;


TextMap::Document::~Document() = default;


// #pragma mark -


/*!	\param document Is borrowed, has to outlive the map, and is empty. */
TextMap::TextMap(const Document* document)
	: fDocument(document),
	  fByteCount(0),
	  fPositionCount(0)
{
	fBlocks.push_back({0, 0, kEndOfText, false});
}


/*!	Puts \a length bytes in the place of \a removed bytes at \a offset, all of which have to lie within the text.
	\return What the document has to do before the map is asked or changed again.
*/
TextMap::Edit
TextMap::Replace(int32 offset, int32 removed, const char* bytes, int32 length)
{
	if (offset == fByteCount)
		return _Append(bytes, length);
	if (offset == 0 && removed == fByteCount) {
		const int32 removedPositions = fPositionCount;
		fBlocks.assign(1, {0, 0, kEndOfText, false});
		fRaw.clear();
		fByteCount = 0;
		fPositionCount = 0;
		Edit edit = _Append(bytes, length);
		edit.removed = removedPositions;
		return edit;
	}
	return _ReplaceBlocks(offset, removed, bytes, length);
}


/*!	\return The position of the character that \a offset is in. Within CR LF that is the end of the block. */
int32
TextMap::PositionAt(int32 offset) const
{
	const int32 number = _BlockAtOffset(offset);
	const Block& block = fBlocks[size_t(number)];
	const int32 wanted = std::min(offset - block.offset, _ContentBytes(number));
	if (_ContentBytes(number) == _ContentUnits(number))
		return block.position + wanted;

	int32 seen = 0;
	int32 position = block.position;
	if (block.raw) {
		const std::string& raw = fRaw.at(number);
		while (seen < wanted) {
			char32_t code = kReplacementCharacter;
			const size_t at = size_t(seen);
			const int32 length = int32(decode_utf8(raw.data() + at, raw.size() - at, &code));
			if (seen + length > wanted)
				break;
			seen += std::max<int32>(length, 1);
			position += length == 4 ? 2 : 1;
		}
		return position;
	}
	const std::u16string units = fDocument->BlockText(number);
	for (size_t i = 0; i < units.size() && seen < wanted; i++) {
		const bool pair = is_high_surrogate(units[i]);
		seen += pair ? 4 : utf8_length(units[i]);
		if (seen > wanted)
			break;
		position += pair ? 2 : 1;
		if (pair)
			i++;
	}
	return position;
}


/*!	\return The offset of the character that \a position is in. */
int32
TextMap::OffsetAt(int32 position) const
{
	const int32 number = _BlockAtPosition(position);
	const Block& block = fBlocks[size_t(number)];
	const int32 wanted = position - block.position;
	if (_ContentBytes(number) == _ContentUnits(number))
		return block.offset + wanted;

	int32 seen = 0;
	int32 offset = block.offset;
	if (block.raw) {
		const std::string& raw = fRaw.at(number);
		while (seen < wanted) {
			char32_t code = kReplacementCharacter;
			const size_t at = size_t(offset - block.offset);
			const int32 length = int32(decode_utf8(raw.data() + at, raw.size() - at, &code));
			seen += length == 4 ? 2 : 1;
			if (seen > wanted)
				break;
			offset += std::max<int32>(length, 1);
		}
		return offset;
	}
	const std::u16string units = fDocument->BlockText(number);
	for (size_t i = 0; i < units.size() && seen < wanted; i++) {
		const bool pair = is_high_surrogate(units[i]);
		seen += pair ? 2 : 1;
		if (seen > wanted)
			break;
		offset += pair ? 4 : utf8_length(units[i]);
		if (pair)
			i++;
	}
	return offset;
}


/*!	\return The bytes as they were given, from a range that has to lie within the text. */
std::string
TextMap::Bytes(int32 offset, int32 length) const
{
	const int32 first = _BlockAtOffset(offset);
	const size_t skipped = size_t(offset - fBlocks[size_t(first)].offset);
	std::string bytes;
	bytes.reserve(size_t(length) + skipped);
	for (int32 i = first; i < CountBlocks() && bytes.size() < size_t(length) + skipped; i++)
		bytes += _BlockBytes(i);
	bytes.resize(size_t(length) + skipped);
	bytes.erase(0, skipped);
	return bytes;
}


/*!	Reads up to the next end of a block, or to the end of the bytes, and appends what it reads to \a _units. */
TextMap::Piece
TextMap::_Parse(const std::string& bytes, size_t from, std::u16string& _units)
{
	const size_t unitsBefore = _units.size();
	Piece piece = {0, 0, kEndOfText, true};
	size_t at = from;
	while (at < bytes.size() && piece.end == kEndOfText) {
		// Most of all text.
		if (bytes[at] >= ' ' && bytes[at] <= '~') {
			_units.push_back(char16_t(bytes[at++]));
			continue;
		}
		char32_t code = 0;
		const size_t length = decode_utf8(bytes.data() + at, bytes.size() - at, &code);
		switch (length == 0 ? kReplacementCharacter : code) {
			case '\n':
				piece.end = kLineFeed;
				break;
			case '\r':
				piece.end = kCarriageReturn;
				if (at + 1 < bytes.size() && bytes[at + 1] == '\n')
					piece.end = kReturnAndFeed;
				break;
			case kBlockEnd:
				piece.end = kParagraphSeparator;
				break;
			case 0xfdd0:
				piece.end = kFrameBegin;
				break;
			case 0xfdd1:
				piece.end = kFrameEnd;
				break;
			default:
				piece.valid = piece.valid && length != 0;
				append_units(_units, length == 0 ? kReplacementCharacter : code);
				at += std::max<size_t>(length, 1);
				break;
		}
	}
	piece.bytes = int32(at - from);
	piece.units = int32(_units.size() - unitsBefore);
	if (piece.end != kEndOfText)
		_units.push_back(kBlockEnd);
	return piece;
}


int32
TextMap::_EndLength(End end)
{
	return int32(strlen(_EndBytes(end)));
}


const char*
TextMap::_EndBytes(End end)
{
	static const char* const kBytes[] = {"", "\n", "\r", "\r\n", "\xe2\x80\xa9", "\xef\xb7\x90",
		"\xef\xb7\x91"};
	return kBytes[end];
}


/*!	The usual case: what is there stays as it is, except that a CR at the very end may become CR LF, and that bytes at the end
	which were no character may become one.
*/
TextMap::Edit
TextMap::_Append(const char* bytes, int32 length)
{
	Edit edit = {fPositionCount, 0, std::u16string()};
	std::string added(bytes, size_t(length));
	size_t at = 0;
	if (fBlocks.size() > 1 && fBlocks.back().offset == fByteCount && length > 0
		&& bytes[0] == '\n') {
		Block& previous = fBlocks[fBlocks.size() - 2];
		if (previous.end == kCarriageReturn) {
			previous.end = kReturnAndFeed;
			fBlocks.back().offset++;
			fByteCount++;
			at = 1;
		}
	}

	bool completed = false;
	if (fBlocks.back().raw) {
		std::string& raw = fRaw.at(CountBlocks() - 1);
		const size_t tail = unfinished_tail(raw);
		added.insert(0, raw, raw.size() - tail);
		raw.resize(raw.size() - tail);
		edit.position -= int32(tail);
		edit.removed = int32(tail);
		fByteCount -= int32(tail);
		fPositionCount -= int32(tail);
		completed = tail > 0;
	}

	edit.inserted.reserve(added.size());
	while (at < added.size()) {
		const Piece piece = _Parse(added, at, edit.inserted);
		_ExtendLast(added.data() + at, piece, completed);
		completed = false;
		at += size_t(piece.bytes + _EndLength(piece.end));
	}
	return edit;
}


/*!	Adds a piece to the last block, and begins the next one if the piece has an end.
	\param completed Whether the piece begins with bytes that were taken off a raw block, which may be valid with it.
*/
void
TextMap::_ExtendLast(const char* bytes, const Piece& piece, bool completed)
{
	const int32 number = CountBlocks() - 1;
	Block& block = fBlocks.back();
	if (!piece.valid && !block.raw) {
		// The document has this block still without the piece, and nothing of a block that has just begun.
		if (block.offset < fByteCount)
			fRaw[number] = to_utf8(fDocument->BlockText(number));
		else
			fRaw[number].clear();
		block.raw = true;
	}
	if (block.raw) {
		std::string& raw = fRaw.at(number);
		raw.append(bytes, size_t(piece.bytes));
		if (completed && is_valid_utf8(raw)) {
			fRaw.erase(number);
			block.raw = false;
		}
	}
	fByteCount += piece.bytes;
	fPositionCount += piece.units;
	if (piece.end != kEndOfText) {
		block.end = piece.end;
		fByteCount += _EndLength(piece.end);
		fPositionCount++;
		fBlocks.push_back({fByteCount, fPositionCount, kEndOfText, false});
	}
}


/*!	Any change: the bytes of the blocks that it touches are read anew, and the document changes only where that makes a
	difference.
*/
TextMap::Edit
TextMap::_ReplaceBlocks(int32 offset, int32 removed, const char* bytes, int32 length)
{
	int32 first = _BlockAtOffset(offset);
	int32 last = _BlockAtOffset(offset + removed);
	// A line feed that comes to stand behind a carriage return belongs to it.
	if (first > 0 && fBlocks[size_t(first) - 1].end == kCarriageReturn)
		first--;

	std::string changed;
	std::u16string before;
	for (int32 i = first; i <= last; i++) {
		changed += _BlockBytes(i);
		before += fDocument->BlockText(i);
		if (fBlocks[size_t(i)].end != kEndOfText)
			before.push_back(kBlockEnd);
	}
	changed.replace(size_t(offset - fBlocks[size_t(first)].offset), size_t(removed), bytes,
		size_t(length));
	// When the change took the end of the last block, the next one belongs to it now.
	if (last + 1 < CountBlocks()) {
		std::u16string units;
		size_t at = 0;
		Piece piece = {0, 0, kEndOfText, true};
		while (at < changed.size()) {
			piece = _Parse(changed, at, units);
			at += size_t(piece.bytes + _EndLength(piece.end));
		}
		if (piece.end == kEndOfText) {
			last++;
			changed += _BlockBytes(last);
			before += fDocument->BlockText(last);
			if (fBlocks[size_t(last)].end != kEndOfText)
				before.push_back(kBlockEnd);
		}
	}

	std::u16string after;
	const int32 position = fBlocks[size_t(first)].position;
	_Exchange(first, last, changed, after);

	size_t same = 0;
	const size_t shorter = std::min(before.size(), after.size());
	while (same < shorter && before[same] == after[same])
		same++;
	if (same > 0 && is_high_surrogate(before[same - 1]))
		same--;
	size_t sameEnd = 0;
	while (sameEnd < shorter - same
		&& before[before.size() - 1 - sameEnd] == after[after.size() - 1 - sameEnd])
		sameEnd++;
	if (sameEnd > 0 && is_low_surrogate(before[before.size() - sameEnd]))
		sameEnd--;
	return {position + int32(same), int32(before.size() - same - sameEnd),
		after.substr(same, after.size() - same - sameEnd)};
}


/*!	Makes \a bytes the blocks from \a first to \a last, and moves those behind them. */
void
TextMap::_Exchange(int32 first, int32 last, const std::string& bytes, std::u16string& _units)
{
	const bool toTheEnd = last == CountBlocks() - 1;
	std::deque<Block> blocks;
	std::map<int32, std::string> raw(fRaw.begin(), fRaw.lower_bound(first));
	int32 offset = fBlocks[size_t(first)].offset;
	int32 position = fBlocks[size_t(first)].position;
	size_t at = 0;
	bool open = true;
	while (at < bytes.size()) {
		const Piece piece = _Parse(bytes, at, _units);
		if (!piece.valid)
			raw[first + int32(blocks.size())] = bytes.substr(at, size_t(piece.bytes));
		blocks.push_back({offset, position, piece.end, !piece.valid});
		offset += piece.bytes + _EndLength(piece.end);
		position += piece.units;
		open = piece.end == kEndOfText;
		if (!open)
			position++;
		at += size_t(piece.bytes + _EndLength(piece.end));
	}
	if (toTheEnd && (!open || blocks.empty()))
		blocks.push_back({offset, position, kEndOfText, false});

	const int32 oldOffset = toTheEnd ? fByteCount : fBlocks[size_t(last) + 1].offset;
	const int32 oldPosition = toTheEnd ? fPositionCount : fBlocks[size_t(last) + 1].position;
	const int32 shift = int32(blocks.size()) - (last - first + 1);
	for (size_t i = size_t(last) + 1; i < fBlocks.size(); i++) {
		fBlocks[i].offset += offset - oldOffset;
		fBlocks[i].position += position - oldPosition;
	}
	for (auto it = fRaw.upper_bound(last); it != fRaw.end(); ++it)
		raw[it->first + shift].swap(it->second);
	fRaw.swap(raw);
	fBlocks.erase(fBlocks.begin() + first, fBlocks.begin() + last + 1);
	fBlocks.insert(fBlocks.begin() + first, blocks.begin(), blocks.end());
	fByteCount += offset - oldOffset;
	fPositionCount += position - oldPosition;
}


int32
TextMap::_BlockAtOffset(int32 offset) const
{
	auto above = std::upper_bound(fBlocks.begin(), fBlocks.end(), offset,
		[](int32 value, const Block& block) {
			return value < block.offset;
		});
	return int32(above - fBlocks.begin()) - 1;
}


int32
TextMap::_BlockAtPosition(int32 position) const
{
	auto above = std::upper_bound(fBlocks.begin(), fBlocks.end(), position,
		[](int32 value, const Block& block) {
			return value < block.position;
		});
	return int32(above - fBlocks.begin()) - 1;
}


int32
TextMap::_ContentBytes(int32 block) const
{
	const Block& here = fBlocks[size_t(block)];
	if (here.end == kEndOfText)
		return fByteCount - here.offset;
	return fBlocks[size_t(block) + 1].offset - here.offset - _EndLength(here.end);
}


int32
TextMap::_ContentUnits(int32 block) const
{
	const Block& here = fBlocks[size_t(block)];
	if (here.end == kEndOfText)
		return fPositionCount - here.position;
	return fBlocks[size_t(block) + 1].position - here.position - 1;
}


/*!	\return All bytes of a block, its end included. */
std::string
TextMap::_BlockBytes(int32 block) const
{
	const Block& here = fBlocks[size_t(block)];
	std::string bytes = here.raw ? fRaw.at(block) : to_utf8(fDocument->BlockText(block));
	return bytes + _EndBytes(here.end);
}
