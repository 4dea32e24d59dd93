/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Utf8.h>


/*!	\return How many bytes the sequence that \a lead begins has; 0 when it begins none. */
static size_t
sequence_length(uint8 lead)
{
	if (lead < 0x80)
		return 1;
	if (lead < 0xc2)
		return 0;
	if (lead < 0xe0)
		return 2;
	if (lead < 0xf0)
		return 3;
	return lead < 0xf5 ? 4 : 0;
}


/*!	Reads the character at the front of \a size bytes, of which there is at least one.
	\return How many bytes it takes; 0 when the first byte belongs to no well-formed sequence.
*/
size_t
decode_utf8(const char* text, size_t size, char32_t* _code)
{
	const uint8* bytes = reinterpret_cast<const uint8*>(text);
	const size_t length = sequence_length(bytes[0]);
	if (length < 2) {
		*_code = bytes[0];
		return length;
	}
	if (length > size)
		return 0;
	char32_t code = bytes[0] & (0x7f >> length);
	for (size_t i = 1; i < length; i++) {
		if ((bytes[i] & 0xc0) != 0x80)
			return 0;
		code = code << 6 | (bytes[i] & 0x3f);
	}
	// Longer than it need be, half of a surrogate pair, or beyond the last character.
	if ((length == 3 && code < 0x800) || (length == 4 && code < 0x10000)
		|| (code >= 0xd800 && code < 0xe000) || code > 0x10ffff)
		return 0;
	*_code = code;
	return length;
}


void
append_units(std::u16string& units, char32_t code)
{
	if (code < 0x10000) {
		units.push_back(static_cast<char16_t>(code));
		return;
	}
	units.push_back(static_cast<char16_t>(0xd7c0 + (code >> 10)));
	units.push_back(static_cast<char16_t>(0xdc00 + (code & 0x3ff)));
}


/*!	\return How many bytes at the end begin a character that more bytes could complete. */
size_t
unfinished_tail(const char* text, size_t size)
{
	for (size_t length = 1; length <= 3 && length <= size; length++) {
		const uint8 byte = static_cast<uint8>(text[size - length]);
		if ((byte & 0xc0) != 0x80)
			return sequence_length(byte) > length ? length : 0;
	}
	return 0;
}


/*!	\return The characters, with one replacement for each byte that belongs to none. */
std::u16string
to_utf16(const char* text, size_t size)
{
	std::u16string units;
	units.reserve(size);
	size_t at = 0;
	while (at < size) {
		char32_t code;
		const size_t length = decode_utf8(text + at, size - at, &code);
		append_units(units, length == 0 ? kReplacementCharacter : code);
		at += length == 0 ? 1 : length;
	}
	return units;
}
