/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef READING_TEST_H
#define READING_TEST_H


#include <algorithm>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include <Message.h>

#include "MessageRecorder.h"
#include "ParameterWalker.h"
#include "WireBytes.h"


// What must come through as it stands.
static const char* const kOddTexts[] = {"<b>bold</b>", "&amp;", "&File", "%s%n", "[*]",
	"\xFF\xFE\x80", "\x01\x07\x1B[31m\x7F", "\xE2\x80\x9Cquoted\xE2\x80\x9D"};


/*!	Parameters in memory of exactly their size, and what they shall be read as: the notification
	with its fields, or nothing.
*/
struct Reading {
	std::string params;
	std::string expected;

	// What a function reads from them, given the parameters and a message that is added to.
	template<typename Function>
	std::string Read(Function function) const
	{
		const std::unique_ptr<uint8[]> bytes(new uint8[params.size()]);
		std::copy(params.begin(), params.end(), bytes.get());
		BMessage message('none');
		const bool isRead = function(ParameterWalker(bytes.get(), params.size()), &message);
		std::string text = MessageRecorder::Describe(&message);
		if (isRead)
			return text;
		return text == "none" ? "" : "changed: " + text;
	}
};


template<typename Function>
static void
expect_readings(Function function, const std::vector<Reading>& readings)
{
	for (const Reading& reading : readings) {
		SCOPED_TRACE(wire_dump(reading.params));
		EXPECT_EQ(reading.expected, reading.Read(function));
	}
}


#endif // READING_TEST_H
