/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef BUILT_MESSAGE_H
#define BUILT_MESSAGE_H


#include <string>
#include <type_traits>

#include <Message.h>


// Adds a field of the type that the value has.
template<typename Value>
void
add_field(BMessage* message, const char* name, const Value& value)
{
	if constexpr (std::is_same_v<Value, bool>)
		message->AddBool(name, value);
	else if constexpr (std::is_same_v<Value, int16>)
		message->AddInt16(name, value);
	else if constexpr (std::is_same_v<Value, uint16>)
		message->AddUInt16(name, value);
	else if constexpr (std::is_same_v<Value, int32>)
		message->AddInt32(name, value);
	else if constexpr (std::is_same_v<Value, uint32>)
		message->AddUInt32(name, value);
	else if constexpr (std::is_same_v<Value, int64>)
		message->AddInt64(name, value);
	else
		message->AddString(name, std::string(value).c_str());
}


inline void
add_fields(BMessage*)
{
}


template<typename Value, typename... Rest>
void
add_fields(BMessage* message, const char* name, const Value& value, const Rest&... rest)
{
	add_field(message, name, value);
	add_fields(message, rest...);
}


/*!	A message with these fields, each given as its name and its value. */
template<typename... Fields>
BMessage
built_message(uint32 what, const Fields&... fields)
{
	BMessage message(what);
	add_fields(&message, fields...);
	return message;
}


#endif // BUILT_MESSAGE_H
