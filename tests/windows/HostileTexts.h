/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef HOSTILE_TEXTS_H
#define HOSTILE_TEXTS_H


#include <string>
#include <vector>


/*!	What a stranger may send as a text of one line: markup, formats, placeholders of the toolkit,
	broken encodings.
*/
inline std::vector<std::string>
hostile_texts()
{
	return {"<b>bold</b>", "&amp;", "&File", "a && b", "%s%n%d%%", "[*]", "\x01\x02\x1b[31m\x7f",
		"\xff\xfe\x80 broken \xe2\x82", "\xed\xa0\x80", "tab\there", "\xe2\x80\xae override",
		"\xf0\x9f\x98\x80 beyond", std::string(70, 'n')};
}


#endif // HOSTILE_TEXTS_H
