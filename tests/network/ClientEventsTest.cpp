/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ClientFixture.h"
#include "Interposed.h"


class ClientEventsTest : public ClientTest {
protected:
	ClientEventsTest() { ShakeHands(); }

	void Send(uint32 type, const std::string& params)
	{
		server->Send(wire_transaction(type, 0, params));
	}
};


// What must be shown as it stands.
static const char* const kOddTexts[] = {"<b>bold</b>", "&amp;", "&File", "%s%n", "[*]",
	"\xFF\xFE\x80", "\x01\x07\x1B[31m\x7F", "\xE2\x80\x9Cquoted\xE2\x80\x9D"};


TEST_F(ClientEventsTest, WhateverIsPosted_TellsItsClient)
{
	Send(106, wire_param(101, "a line"));
	EXPECT_EQ("HLch text=CSTR a line chatRef=ULNG 0", log->Next());
	Send(111, wire_param(101, "go"));
	ExpectPosted("HLpq");
	EXPECT_EQ(std::set<uint32>({client->Connection()}), log->Connections());
	EXPECT_NE(0u, client->Connection());
	EXPECT_NE(client->Connection(), HotlineClient(log).Connection());
}


// #pragma mark - Chat


TEST_F(ClientEventsTest, Chat_HasLineFeeds)
{
	Send(106, wire_param(101, "a\rb"));
	ExpectPosted("HLch text=CSTR a\nb chatRef=ULNG 0");
	Send(106, wire_param(101, "\r\n"));
	ExpectPosted("HLch text=CSTR \n\n chatRef=ULNG 0");
}


TEST_F(ClientEventsTest, ChatReference_OfTwoOrFourBytes)
{
	Send(106, wire_param(114, wire16(5)) + wire_param(101, "x"));
	ExpectPosted("HLch text=CSTR x chatRef=ULNG 5");
	Send(106, wire_param(101, "x") + wire_param(114, wire32(0xFEDCBA98)));
	ExpectPosted("HLch text=CSTR x chatRef=ULNG 4275878552");
	Send(106, wire_param(101, "x") + wire_param(114, "\x05"));
	ExpectPosted("HLch text=CSTR x chatRef=ULNG 0");
}


TEST_F(ClientEventsTest, ChatWithoutAText_IsDropped)
{
	Send(106, wire_param(101, "") + wire_param(114, wire16(5)));
	Send(106, wire_param(114, wire16(5)));
	ExpectNothingPosted();
}


TEST_F(ClientEventsTest, OddChat_KeepsItsBytes)
{
	for (const char* text : kOddTexts) {
		Send(106, wire_param(101, text));
		ExpectPosted(std::string("HLch text=CSTR ") + text + " chatRef=ULNG 0");
	}
}


TEST_F(ClientEventsTest, LongestChat_IsWhole)
{
	const std::string text(65535, 'x');
	Send(106, wire_param(101, text));
	ExpectPosted("HLch text=CSTR " + text + " chatRef=ULNG 0");
}


TEST_F(ClientEventsTest, LastOccurrence_Counts)
{
	Send(106, wire_param(101, "first") + wire_param(101, "second\r"));
	ExpectPosted("HLch text=CSTR second\n chatRef=ULNG 0");
}


TEST_F(ClientEventsTest, OverrunningLength_EndsTheParametersThere)
{
	Send(106, wire_param(101, "kept") + wire16(114) + wire16(4) + "xyz");
	ExpectPosted("HLch text=CSTR kept chatRef=ULNG 0");
	Send(106, wire16(101) + wire16(65535) + "lost");
	ExpectNothingPosted();
}


// #pragma mark - Messages


TEST_F(ClientEventsTest, Message)
{
	Send(104,
		wire_param(103, wire16(0xFEDC)) + wire_param(102, "Bert") + wire_param(104, wire16(0x8889))
			+ wire_param(101, "a\rb"));
	ExpectPosted("HLmg text=CSTR a\nb nick=CSTR Bert socket=USHT 65244 icon=USHT 34953");
}


TEST_F(ClientEventsTest, MessageOfTheServer_HasNoSender)
{
	Send(104, wire_param(101, "maintenance"));
	ExpectPosted("HLmg text=CSTR maintenance nick=CSTR  socket=USHT 0 icon=USHT 0");
}


TEST_F(ClientEventsTest, MessageSocketOfFourBytes_IsTheLowSixteenBits)
{
	Send(104, wire_param(101, "x") + wire_param(103, wire32(0x00010002)));
	ExpectPosted("HLmg text=CSTR x nick=CSTR  socket=USHT 2 icon=USHT 0");
}


TEST_F(ClientEventsTest, MessageWithoutAText_IsDropped)
{
	Send(104, wire_param(103, wire16(7)) + wire_param(102, "Bert"));
	Send(104, wire_param(103, wire16(7)) + wire_param(101, ""));
	ExpectNothingPosted();
}


TEST_F(ClientEventsTest, NickOf70Bytes_IsCutAtByte63)
{
	const std::string nick = std::string(62, 'n') + "\xC3\xA4" + std::string(6, 'm');
	Send(104, wire_param(101, "x") + wire_param(102, nick));
	ExpectPosted("HLmg text=CSTR x nick=CSTR " + nick.substr(0, 63) + " socket=USHT 0 icon=USHT 0");
	Send(301, wire_param(102, nick));
	ExpectPosted("HLuc socket=USHT 0 icon=USHT 0 color=USHT 0 nick=CSTR " + nick.substr(0, 63));
}


TEST_F(ClientEventsTest, ShortNumbers_AreIgnored)
{
	Send(104, wire_param(101, "x") + wire_param(103, "\x07") + wire_param(104, "\x07"));
	ExpectPosted("HLmg text=CSTR x nick=CSTR  socket=USHT 0 icon=USHT 0");
}


// #pragma mark - Users


TEST_F(ClientEventsTest, UserChange)
{
	Send(301,
		wire_param(103, wire16(7)) + wire_param(104, wire16(128)) + wire_param(112, wire16(0xFFFF))
			+ wire_param(102, "Bert"));
	ExpectPosted("HLuc socket=USHT 7 icon=USHT 128 color=USHT 65535 nick=CSTR Bert");
}


TEST_F(ClientEventsTest, UserChangeWithoutANick_IsPosted)
{
	Send(301, wire_param(103, wire16(7)));
	ExpectPosted("HLuc socket=USHT 7 icon=USHT 0 color=USHT 0 nick=CSTR ");
	Send(301, wire_param(999, ""));
	ExpectPosted("HLuc socket=USHT 0 icon=USHT 0 color=USHT 0 nick=CSTR ");
}


TEST_F(ClientEventsTest, OddNick_KeepsItsBytes)
{
	for (const char* nick : kOddTexts) {
		Send(301, wire_param(102, nick));
		ExpectPosted(std::string("HLuc socket=USHT 0 icon=USHT 0 color=USHT 0 nick=CSTR ") + nick);
	}
}


TEST_F(ClientEventsTest, UserLeave)
{
	Send(302, wire_param(103, wire16(7)));
	ExpectPosted("HLul socket=USHT 7");
	Send(302, wire_param(103, wire32(0x00010002)));
	ExpectPosted("HLul socket=USHT 2");
	Send(302, wire_param(103, "\x07"));
	ExpectPosted("HLul socket=USHT 0");
	Send(302, wire_param(103, "\x01\x02\x03"));
	ExpectPosted("HLul socket=USHT 258");
}


// #pragma mark - Agreement


TEST_F(ClientEventsTest, Agreement_WaitsForTheUser)
{
	Send(109, wire_param(101, "Be nice.\rAlways.") + wire_param(154, wire8(0)));
	ExpectPosted("HLag text=CSTR Be nice.\nAlways.");
	// Nothing was sent for it.
	client->SendChat("x");
	ExpectSent(wire_transaction(105, 2, wire_param(101, "x")));
}


TEST_F(ClientEventsTest, NothingToAgreeTo_IsAcceptedAtOnce)
{
	uint32 id = 2;
	for (const std::string& params : {wire_param(101, "Be nice.") + wire_param(154, wire8(1)),
			 wire_param(154, wire16(0x0100)) + wire_param(154, wire8(0)) + wire_param(101, "x"),
			 wire_param(101, ""), wire_param(152, "")}) {
		SCOPED_TRACE(wire_dump(params));
		Send(109, params);
		ExpectSent(wire_transaction(121, id++,
			wire_param(102, "Ann") + wire_param(104, wire16(137)) + wire_param(113, wire16(0))));
	}
	ExpectNothingPosted();
}


TEST_F(ClientEventsTest, FlagWithoutAValue_IsNotSet)
{
	// The byte behind it is none of its own.
	Send(109, wire_param(154, "") + wire_param(300, "") + wire_param(101, "Be nice."));
	ExpectPosted("HLag text=CSTR Be nice.");
	Send(109, wire_param(154, wire16(1)) + wire_param(101, "Be nice."));
	ExpectPosted("HLag text=CSTR Be nice.");
}


// #pragma mark - The rest


TEST_F(ClientEventsTest, PoliteQuit_WhateverItSays)
{
	Send(111, wire_param(101, "Bye"));
	ExpectPosted("HLpq");
}


TEST_F(ClientEventsTest, Broadcast_KeepsItsCarriageReturns)
{
	Send(355, wire_param(101, "a\rb"));
	ExpectPosted("HLbc text=CSTR a\rb");
	Send(355, wire_param(101, ""));
	Send(355, wire_param(102, "no text"));
	ExpectNothingPosted();
}


TEST_F(ClientEventsTest, ServerBanner_IsPostedAndAskedFor)
{
	Interposed::send = [this](int socket, const void* data, size_t size, int flags) {
		log->PostMessage('mark');
		return Interposed::RealSend(socket, data, size, flags);
	};
	Send(122, wire_param(152, "JPEG"));
	ExpectPosted("HLsb");
	ExpectPosted("mark");
	ExpectSent(wire_transaction(212, 2, ""));
	server->Send(
		wire_transaction(0x10000, 2, wire_param(107, wire32(7)) + wire_param(108, wire32(8))));
	ExpectPosted("HLbr ref=ULNG 7 size=ULNG 8 address=CSTR 127.0.0.1 port=USHT "
		+ std::to_string(server->Port()));
}


TEST_F(ClientEventsTest, WithoutParameters_NoneIsSeen)
{
	for (const uint32 type : {106u, 104u, 301u, 302u, 109u, 111u, 355u, 122u})
		Send(type, "");
	ExpectNothingPosted();
	client->SendChat("x");
	ExpectSent(wire_transaction(105, 2, wire_param(101, "x")));
}


TEST_F(ClientEventsTest, NewsAndUnknownTypes_AreSkipped)
{
	for (const uint32 type : {102u, 113u, 117u, 118u, 119u, 0u, 0xFFFFFFFFu, 0x0001006Bu})
		Send(type, wire_param(101, "x"));
	ExpectNothingPosted();
}


TEST_F(ClientEventsTest, NoTarget_DropsEverything)
{
	client.reset(new HotlineClient(NULL));
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);
	server->Send(std::string(kHandshakeReply, 8));
	server->ReadTransaction();
	Send(106, wire_param(101, "x"));
	Send(122, wire_param(152, "JPEG"));
	ExpectSent(wire_transaction(212, 2, ""));
	EXPECT_EQ(log->CountWaiting(), 0u);
}
