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


TEST_F(ClientEventsTest, EachEvent_IsPosted)
{
	Send(106, wire_param(101, "a\rb") + wire_param(114, wire16(5)));
	ExpectPosted("HLch text=CSTR a\nb chatRef=ULNG 5");
	Send(104, wire_param(103, wire16(7)) + wire_param(102, "Bert") + wire_param(101, "x"));
	ExpectPosted("HLmg text=CSTR x nick=CSTR Bert socket=USHT 7 icon=USHT 0");
	Send(301, wire_param(103, wire16(7)) + wire_param(102, "Bert"));
	ExpectPosted("HLuc socket=USHT 7 icon=USHT 0 color=USHT 0 nick=CSTR Bert");
	Send(302, wire_param(103, wire16(7)));
	ExpectPosted("HLul socket=USHT 7");
	// Whatever it says.
	Send(111, wire_param(101, "Bye"));
	ExpectPosted("HLpq");
	Send(355, wire_param(101, "a\rb"));
	ExpectPosted("HLbc text=CSTR a\rb");
}


TEST_F(ClientEventsTest, WithoutAText_NothingIsPosted)
{
	for (const uint32 type : {106u, 104u, 355u})
		Send(type, wire_param(101, "") + wire_param(103, wire16(7)));
	ExpectNothingPosted();
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


// #pragma mark - The rest


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
	AcceptHandshake();
	server->ReadTransaction();
	Send(106, wire_param(101, "x"));
	Send(122, wire_param(152, "JPEG"));
	ExpectSent(wire_transaction(212, 2, ""));
	EXPECT_EQ(log->CountWaiting(), 0u);
}
