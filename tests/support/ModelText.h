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
	// The bytes and the text are without the end, which the last line has none of.
	struct Line {
		int32 offset;
		int32 position;
		int32 byteCount;
		int32 endByteCount;
		std::u16string text;

		bool operator==(const Line& other) const;
	};

	explicit ModelText(const std::string& bytes);

	const std::vector<Mark>& Marks() const { return fMarks; }
	const std::vector<Line>& Lines() const { return fLines; }

private:
	std::vector<Mark> fMarks;
	std::vector<Line> fLines;
};


// Both return an empty string, or what is wrong with the store of some bytes.
std::string text_store_complaint(const TextStore& store, const std::string& bytes);
std::string text_change_complaint(TextStore& store, std::string& bytes, size_t offset,
	size_t removed, const std::string& added);


#endif // MODEL_TEXT_H
