/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef UTF8_H
#define UTF8_H


#include <string>

#include <SupportDefs.h>


// What a byte that belongs to no well-formed sequence is shown as.
static const char32_t kReplacementCharacter = 0xfffd;


// Bytes to characters, without the toolkit. Well-formed is what Unicode calls so: no sequence is
// longer than it need be, none is half of a surrogate pair or beyond the last character.
size_t decode_utf8(const char* text, size_t size, char32_t* _code);
size_t unfinished_tail(const char* text, size_t size);
std::u16string to_utf16(const char* text, size_t size);

void append_units(std::u16string& units, char32_t code);


#endif // UTF8_H
