/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MODEL_TEXT_H
#define MODEL_TEXT_H


#include <string>
#include <vector>

#include "TextStore.h"


/*!	What a TextStore should say of some bytes, found slowly and plainly. */
class ModelText {
public:
	// Where a character starts. The last one is the end of the text.
	struct Mark {
		int32 offset;
		int32 position;
		int32 line;
	};
	// The bytes and the text are without the end, which the last line of all has none of, nor has a
	// line that ends softly.
	struct Line {
		int32 offset;
		int32 position;
		int32 byteCount;
		int32 endByteCount;
		std::u16string text;

		bool operator==(const Line& other) const;
	};

	/*!	How lines that are too long end. */
	struct Limit {
		TextStore::JoinsFunction joins = NULL;
		int32 longestLine = TextStore::kLongestLine;
	};

	explicit ModelText(const std::string& bytes, const Limit& limit);

	const std::vector<Mark>& Marks() const { return fMarks; }
	const std::vector<Line>& Lines() const { return fLines; }

private:
	void _Read(const std::string& bytes);
	size_t _Divide(const Line& paragraph, size_t mark, const Limit& limit);
	size_t _EndOfLine(size_t first, const Limit& limit) const;
	bool _MayEndBefore(size_t index, const Limit& limit) const;

	std::vector<Mark> fMarks;
	// With a NUL for the end of the text, as there is a mark for it.
	std::vector<char32_t> fCharacters;
	std::vector<Line> fLines;
};


// Both return an empty string, or what is wrong with the store of some bytes, which was made with
// that limit.
std::string text_store_complaint(const TextStore& store, const std::string& bytes,
	const ModelText::Limit& limit = {});
std::string text_change_complaint(TextStore& store, std::string& bytes, size_t offset,
	size_t removed, const std::string& added, const ModelText::Limit& limit = {});

// For a limit: a joiner, a few marks, and what stands behind the joiner.
bool model_joins(char32_t before, char32_t after);


#endif // MODEL_TEXT_H
