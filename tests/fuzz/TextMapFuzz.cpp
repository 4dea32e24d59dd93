/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ModelDocument.h"
#include "TextMap.h"


// Longer texts only make each step slower.
static const size_t kMaxText = 512;


/*!	The input is a row of changes: two bytes say where (a part of 65,535 of the text; 0xffff is its end), one how many bytes
	go, one how many of the bytes that follow come in their place.
*/
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	ModelDocument document;
	TextMap map(&document);
	std::string bytes;
	size_t at = 0;
	while (at + 4 <= size) {
		const size_t where = size_t(data[at]) << 8 | data[at + 1];
		const size_t offset = bytes.size() * where / 0xffff;
		const size_t removed = std::min<size_t>(data[at + 2], bytes.size() - offset);
		const size_t added = std::min<size_t>(data[at + 3], size - at - 4);
		const char* text = reinterpret_cast<const char*>(data + at + 4);
		at += 4 + added;
		if (bytes.size() + added > kMaxText)
			break;

		bytes.replace(offset, removed, text, added);
		const bool applied = document.Apply(
			map.Replace(int32(offset), int32(removed), text, int32(added)));
		const std::string complaint = applied ? text_map_complaint(map, document, bytes)
											  : "an edit beyond the document";
		if (!complaint.empty()) {
			fprintf(stderr, "%s\n", complaint.c_str());
			abort();
		}
	}
	return 0;
}
