/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MODEL_DOCUMENT_H
#define MODEL_DOCUMENT_H


#include <string>
#include <vector>

#include "TextMap.h"


/*!	A document without a toolkit: it follows the edits of a TextMap, and says what the map should say, slowly and plainly. */
class ModelDocument : public TextMap::Document {
public:
	std::u16string BlockText(int32 block) const override;

	bool Apply(const TextMap::Edit& edit);
	const std::u16string& Units() const { return fUnits; }

	/*!	One character of a text: where it starts as byte and as position. */
	struct Mark {
		int32 offset;
		int32 position;
	};
	static std::u16string Expected(const std::string& bytes, std::vector<Mark>& _marks);

private:
	std::u16string fUnits;
};


/*!	\return An empty string, or what is wrong with the map of \a bytes that \a document has followed. */
std::string text_map_complaint(const TextMap& map, const ModelDocument& document,
	const std::string& bytes);


#endif // MODEL_DOCUMENT_H
