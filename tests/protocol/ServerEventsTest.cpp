/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerEvents.h"

#include "ReadingTest.h"


TEST(ServerEventsTest, Chat_HasLineFeedsAndAReference)
{
	expect_readings(ReadChat,
		{
			{wire_param(101, "a\rb"), "HLch text=CSTR a\nb chatRef=ULNG 0"},
			{wire_param(101, "\r\n"), "HLch text=CSTR \n\n chatRef=ULNG 0"},
			{wire_param(114, wire16(5)) + wire_param(101, "x"), "HLch text=CSTR x chatRef=ULNG 5"},
			{wire_param(101, "x") + wire_param(114, wire32(0xFEDCBA98)),
				"HLch text=CSTR x chatRef=ULNG 4275878552"},
			{wire_param(101, "x") + wire_param(114, "\x05"), "HLch text=CSTR x chatRef=ULNG 0"},
			{wire_param(101, std::string(65535, 'x')),
				"HLch text=CSTR " + std::string(65535, 'x') + " chatRef=ULNG 0"},
		});
}


TEST(ServerEventsTest, LastOccurrence_Counts)
{
	expect_readings(ReadChat,
		{{wire_param(101, "first") + wire_param(101, "second\r"),
			"HLch text=CSTR second\n chatRef=ULNG 0"}});
}


TEST(ServerEventsTest, OverrunningLength_EndsTheParametersThere)
{
	expect_readings(ReadChat,
		{
			{wire_param(101, "kept") + wire16(114) + wire16(4) + "xyz",
				"HLch text=CSTR kept chatRef=ULNG 0"},
			{wire16(101) + wire16(65535) + "lost", ""},
		});
}


TEST(ServerEventsTest, WithoutAText_NothingIsToldOfIt)
{
	for (const auto read : {ReadChat, ReadPrivateMessage, ReadBroadcast, ReadAgreement}) {
		expect_readings(read,
			{
				{"", ""},
				{wire_param(101, ""), ""},
				{wire_param(101, "") + wire_param(114, wire16(5)), ""},
				{wire_param(103, wire16(7)) + wire_param(102, "Bert"), ""},
			});
	}
}


TEST(ServerEventsTest, OddTexts_KeepTheirBytes)
{
	for (const std::string text : kOddTexts) {
		expect_readings(ReadChat,
			{{wire_param(101, text), "HLch text=CSTR " + text + " chatRef=ULNG 0"}});
		expect_readings(ReadUserChange,
			{{wire_param(102, text),
				"HLuc socket=USHT 0 icon=USHT 0 color=USHT 0 nick=CSTR " + text}});
	}
}


TEST(ServerEventsTest, PrivateMessage_HasItsSender)
{
	expect_readings(ReadPrivateMessage,
		{
			{wire_param(103, wire16(0xFEDC)) + wire_param(102, "Bert")
					+ wire_param(104, wire16(0x8889)) + wire_param(101, "a\rb"),
				"HLmg text=CSTR a\nb nick=CSTR Bert socket=USHT 65244 icon=USHT 34953"},
			// The server itself.
			{wire_param(101, "maintenance"),
				"HLmg text=CSTR maintenance nick=CSTR  socket=USHT 0 icon=USHT 0"},
			// The low 16 bits of four bytes.
			{wire_param(101, "x") + wire_param(103, wire32(0x00010002)),
				"HLmg text=CSTR x nick=CSTR  socket=USHT 2 icon=USHT 0"},
			// Numbers that are too short.
			{wire_param(101, "x") + wire_param(103, "\x07") + wire_param(104, "\x07"),
				"HLmg text=CSTR x nick=CSTR  socket=USHT 0 icon=USHT 0"},
		});
}


TEST(ServerEventsTest, NickOf70Bytes_IsCutAtByte63)
{
	const std::string nick = std::string(62, 'n') + "\xC3\xA4" + std::string(6, 'm');
	expect_readings(ReadPrivateMessage,
		{{wire_param(101, "x") + wire_param(102, nick),
			"HLmg text=CSTR x nick=CSTR " + nick.substr(0, 63) + " socket=USHT 0 icon=USHT 0"}});
	expect_readings(ReadUserChange,
		{{wire_param(102, nick),
			"HLuc socket=USHT 0 icon=USHT 0 color=USHT 0 nick=CSTR " + nick.substr(0, 63)}});
}


TEST(ServerEventsTest, UserChange_IsToldWhateverIsThere)
{
	expect_readings(ReadUserChange,
		{
			{wire_param(103, wire16(7)) + wire_param(104, wire16(128))
					+ wire_param(112, wire16(0xFFFF)) + wire_param(102, "Bert"),
				"HLuc socket=USHT 7 icon=USHT 128 color=USHT 65535 nick=CSTR Bert"},
			{wire_param(103, wire16(7)), "HLuc socket=USHT 7 icon=USHT 0 color=USHT 0 nick=CSTR "},
			{wire_param(999, ""), "HLuc socket=USHT 0 icon=USHT 0 color=USHT 0 nick=CSTR "},
		});
}


TEST(ServerEventsTest, UserLeave_HasANumberOfTwoOrFourBytes)
{
	expect_readings(ReadUserLeave,
		{
			{wire_param(103, wire16(7)), "HLul socket=USHT 7"},
			{wire_param(103, wire32(0x00010002)), "HLul socket=USHT 2"},
			{wire_param(103, "\x07"), "HLul socket=USHT 0"},
			{wire_param(103, "\x01\x02\x03"), "HLul socket=USHT 258"},
		});
}


TEST(ServerEventsTest, Agreement_IsNoneWhereTheServerSaysSo)
{
	const std::string text = wire_param(101, "Be nice.");
	expect_readings(ReadAgreement,
		{
			{wire_param(101, "Be nice.\rAlways.") + wire_param(154, wire8(0)),
				"HLag text=CSTR Be nice.\nAlways."},
			// The byte behind an empty flag is none of its own.
			{wire_param(154, "") + wire_param(300, "") + text, "HLag text=CSTR Be nice."},
			{wire_param(154, wire16(1)) + text, "HLag text=CSTR Be nice."},
			{text + wire_param(154, wire8(1)), ""},
			{wire_param(154, wire16(0x0100)) + wire_param(154, wire8(0)) + text, ""},
			{wire_param(152, ""), ""},
		});
}


TEST(ServerEventsTest, Broadcast_KeepsItsCarriageReturns)
{
	expect_readings(ReadBroadcast, {{wire_param(101, "a\rb"), "HLbc text=CSTR a\rb"}});
}
