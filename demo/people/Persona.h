/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_PERSONA_H
#define DEMO_PERSONA_H


#include <cstddef>
#include <cstdint>
#include <string>


namespace demo {


/*!	A resident's character: the names that it goes by, its looks and what it says.
	All texts are constants, UTF-8.
*/
struct Persona {
	const char* nick;
	const char* otherNick;
	uint16_t icon;
	uint16_t status;
	const char* greeting;
	const char* onQuestion;
	const char* onThanks;
	const char* farewell;
	const char* remarks[3];
	const char* whispers[2];

	std::string AnswerTo(const std::string& text, size_t turn) const;
	std::string WhisperTo(const std::string& text, size_t turn) const;
	const char* Remark(size_t turn) const;

	static size_t CountCast();
	static const Persona& Cast(size_t index);
};


} // namespace demo


#endif // DEMO_PERSONA_H
