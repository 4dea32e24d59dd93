/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TEXT_H
#define DEMO_TEXT_H


#include <cstddef>
#include <string>


namespace demo {


// Text is bytes, UTF-8 as far as the demo itself writes it.

std::string cut_text(const std::string& text, size_t size);
std::string to_lower(std::string text);
bool contains_word(const std::string& text, const std::string& word);
void split_word(const std::string& text, std::string* _word, std::string* _rest);
bool parse_count(const std::string& text, unsigned long most, unsigned long* _count);


} // namespace demo


#endif // DEMO_TEXT_H
