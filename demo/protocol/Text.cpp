/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Text.h"

#include <cerrno>
#include <cstdlib>


namespace demo {


static const char* const kBlanks = " \t\r\n";


static bool
is_letter(char byte)
{
	// Bytes of other scripts never join: they hold words whose ends a byte does not show.
	return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}


/*!	At most that many bytes of the text, without half a character at the end. */
std::string
cut_text(const std::string& text, size_t size)
{
	if (text.size() <= size)
		return text;

	size_t end = size;
	while (end > 0 && size - end < 4 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
		end--;
	// What is no UTF-8 anyway is cut where it must be.
	if ((static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
		end = size;
	return text.substr(0, end);
}


/*!	Latin letters only, which is all that commands and greetings need. */
std::string
to_lower(std::string text)
{
	for (char& byte : text) {
		if (byte >= 'A' && byte <= 'Z')
			byte = static_cast<char>(byte - 'A' + 'a');
	}
	return text;
}


/*!	Whether the text holds the word by itself, not as a part of a longer Latin one. */
bool
contains_word(const std::string& text, const std::string& word)
{
	if (word.empty())
		return false;

	size_t found = text.find(word);
	while (found != std::string::npos) {
		size_t end = found + word.size();
		bool joinedBefore = found > 0 && is_letter(text[found - 1]) && is_letter(word.front());
		bool joinedAfter = end < text.size() && is_letter(text[end]) && is_letter(word.back());
		if (!joinedBefore && !joinedAfter)
			return true;
		found = text.find(word, found + 1);
	}
	return false;
}


/*!	Splits off the first word; the rest comes without the blanks before and behind it. */
void
split_word(const std::string& text, std::string* _word, std::string* _rest)
{
	_word->clear();
	_rest->clear();
	size_t start = text.find_first_not_of(kBlanks);
	if (start == std::string::npos)
		return;

	size_t end = text.find_first_of(kBlanks, start);
	*_word = text.substr(start, end == std::string::npos ? end : end - start);
	size_t restStart = text.find_first_not_of(kBlanks, end);
	if (end != std::string::npos && restStart != std::string::npos)
		*_rest = text.substr(restStart, text.find_last_not_of(kBlanks) + 1 - restStart);
}


/*!	A decimal number from 0 to \a most, nothing before or behind it. */
bool
parse_count(const std::string& text, unsigned long most, unsigned long* _count)
{
	if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
		return false;

	errno = 0;
	unsigned long value = strtoul(text.c_str(), NULL, 10);
	if (errno != 0 || value > most)
		return false;
	*_count = value;
	return true;
}


} // namespace demo
