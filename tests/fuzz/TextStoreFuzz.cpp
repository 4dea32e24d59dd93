/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ModelText.h"
#include "TextStore.h"


// Longer texts only make each step slower.
static const size_t kMaxText = 512;


static void
change_as_told(const uint8_t* data, size_t size, const ModelText::Limit& limit)
{
	TextStore store(limit.joins, limit.longestLine);
	std::string bytes;
	size_t at = 0;
	while (at + 4 <= size) {
		const size_t where = static_cast<size_t>(data[at]) << 8 | data[at + 1];
		const size_t offset = bytes.size() * where / 0xffff;
		const size_t removed = std::min<size_t>(data[at + 2], bytes.size() - offset);
		const size_t length = std::min<size_t>(data[at + 3], size - at - 4);
		const std::string added(reinterpret_cast<const char*>(data + at + 4), length);
		at += 4 + length;
		if (bytes.size() + length > kMaxText)
			break;

		const std::string complaint = text_change_complaint(store, bytes, offset, removed, added,
			limit);
		if (!complaint.empty()) {
			fprintf(stderr, "%s\n", complaint.c_str());
			abort();
		}
	}
}


/*!	The input is a row of changes: two bytes say where (a part of 65,535 of the text; 0xffff is its
	end), one how many bytes go, one how many of the bytes that follow come in their place. It is
	done with lines that do not end softly, and with short ones.
*/
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	ModelText::Limit limit;
	change_as_told(data, size, limit);
	limit.joins = model_joins;
	limit.longestLine = 24;
	change_as_told(data, size, limit);
	return 0;
}
