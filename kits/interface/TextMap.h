/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_MAP_H
#define TEXT_MAP_H


#include <deque>
#include <map>
#include <string>

#include <SupportDefs.h>


/*!	Maps byte offsets in a text to positions in the document that shows it, and back.
	The text is bytes of any kind. The document holds it as blocks of UTF-16 units: a block ends at LF, CR, CR LF, U+2029,
	U+FDD0 and U+FDD1, and each of these ends is one position. A character beyond the BMP is two positions, and a byte that
	belongs to no well-formed UTF-8 sequence is one position that shows U+FFFD. What the map says depends on the bytes
	alone, not on how they came together.

	Only the lengths of a block are kept here, its units are asked of the document; the bytes are kept of those blocks that
	are not valid UTF-8. Appending takes the same time however long the text is, a lookup takes as many steps as the number
	of blocks has digits. Belongs to the thread of its document. Texts end below 2^31 bytes.
*/
class TextMap {
public:
	/*!	The document that shows the text, as far as the map has to ask it. */
	class Document {
	public:
		virtual ~Document();

		/*!	\return The units of a block without its end, as all edits so far have made it. */
		virtual std::u16string BlockText(int32 block) const = 0;
	};

	/*!	What the document has to do to follow a change of the bytes. */
	struct Edit {
		int32 position;
		int32 removed;
		// Every end of a block is one U+2029.
		std::u16string inserted;
	};

	TextMap(const Document* document);
	TextMap(const TextMap&) = delete;

	TextMap& operator=(const TextMap&) = delete;

	int32 CountBytes() const { return fByteCount; }
	int32 CountPositions() const { return fPositionCount; }
	int32 CountBlocks() const { return int32(fBlocks.size()); }
	int32 CountRawBlocks() const { return int32(fRaw.size()); }

	[[nodiscard]] Edit Replace(int32 offset, int32 removed, const char* bytes, int32 length);

	int32 PositionAt(int32 offset) const;
	int32 OffsetAt(int32 position) const;
	std::string Bytes(int32 offset, int32 length) const;

private:
	enum End : uint8 {
		kEndOfText,
		kLineFeed,
		kCarriageReturn,
		kReturnAndFeed,
		kParagraphSeparator,
		kFrameBegin,
		kFrameEnd
	};

	// The lengths follow from the next block. A raw block is one that is not valid UTF-8.
	struct Block {
		int32 offset;
		int32 position;
		End end;
		bool raw;
	};

	// What _Parse() cuts off the front of some bytes.
	struct Piece {
		int32 bytes;
		int32 units;
		End end;
		bool valid;
	};

	static Piece _Parse(const std::string& bytes, size_t from, std::u16string& _units);
	static int32 _EndLength(End end);
	static const char* _EndBytes(End end);

	Edit _Append(const char* bytes, int32 length);
	Edit _ReplaceBlocks(int32 offset, int32 removed, const char* bytes, int32 length);
	void _Exchange(int32 first, int32 last, const std::string& bytes, std::u16string& _units);
	void _ExtendLast(const char* bytes, const Piece& piece, bool completed);

	int32 _BlockAtOffset(int32 offset) const;
	int32 _BlockAtPosition(int32 position) const;
	int32 _ContentBytes(int32 block) const;
	int32 _ContentUnits(int32 block) const;
	std::string _BlockBytes(int32 block) const;

	const Document* fDocument;
	std::deque<Block> fBlocks;
	// By number of block.
	std::map<int32, std::string> fRaw;
	int32 fByteCount;
	int32 fPositionCount;
};


#endif // TEXT_MAP_H
