/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FloodSource.h"

#include <string>

#include "Notices.h"


namespace demo {


/*!	\param lineSize Fills each line up to that many bytes with letters, without a blank between
		them; 0 for short lines that count themselves.
*/
void
FloodSource::Start(unsigned long lines, size_t lineSize)
{
	fLines = lines;
	fNext = 1;
	fLineSize = lineSize;
}


/*!	The next line. Only while there are more. */
Transaction
FloodSource::Next()
{
	std::string text;
	if (fLineSize == 0)
		text = "Flood:  line " + std::to_string(fNext) + " of " + std::to_string(fLines);
	else {
		text = std::to_string(fNext) + "of" + std::to_string(fLines);
		text.reserve(fLineSize);
		while (text.size() < fLineSize)
			text.push_back(static_cast<char>('a' + text.size() % 26));
	}
	fNext++;
	return chat_text(text);
}


} // namespace demo
