/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RequestStream.h"

#include <gtest/gtest.h>

#include "WireBytes.h"


static const std::string kHandshake("TRTPHOTL\0\1\0\2", 12);


static std::string
login()
{
	return wire_transaction(107, 1, wire_param(104, wire16(137)) + wire_param(102, "aaaa"));
}


static std::string
chat(uint32_t id)
{
	return wire_transaction(105, id, wire_param(101, "bbbbb"));
}


// The complaint's first line about what comes behind an accepted handshake, byte by byte, and the
// requests that were in order.
static std::string
judge(const std::string& bytes, std::string* _requests = nullptr)
{
	RequestStream stream;
	stream.Add(kHandshake.data(), kHandshake.size());
	stream.AcceptHandshake();
	for (const char byte : bytes)
		stream.Add(&byte, 1);
	RequestStream::Request request;
	while (_requests != nullptr && stream.Next(&request))
		*_requests += std::to_string(request.type) + "/" + std::to_string(request.id) + " ";
	return stream.Complaint().substr(0, stream.Complaint().find('\n'));
}


// The same in one piece.
static std::string
judge_at_once(const std::string& bytes)
{
	RequestStream stream;
	stream.Add(kHandshake.data(), kHandshake.size());
	stream.AcceptHandshake();
	stream.Add(bytes.data(), bytes.size());
	return stream.Complaint().substr(0, stream.Complaint().find('\n'));
}


TEST(RequestStreamTest, Nothing_IsNoHandshakeAndNoFault)
{
	RequestStream stream;
	EXPECT_FALSE(stream.HasHandshake());
	EXPECT_FALSE(stream.IsUnfinished());
	EXPECT_EQ(stream.Complaint(), "");
}


TEST(RequestStreamTest, HandshakeByteByByte_IsUnfinishedUntilItsLast)
{
	RequestStream stream;
	for (const char& byte : kHandshake) {
		EXPECT_FALSE(stream.HasHandshake());
		stream.Add(&byte, 1);
		EXPECT_EQ(stream.IsUnfinished(), &byte != &kHandshake.back());
	}
	EXPECT_TRUE(stream.HasHandshake());
	EXPECT_EQ(stream.Complaint(), "");
}


TEST(RequestStreamTest, AnotherByteAnywhereInTheHandshake_IsFound)
{
	for (size_t i = 0; i < kHandshake.size(); i++) {
		SCOPED_TRACE(i);
		RequestStream stream;
		stream.Add(kHandshake.data(), i);
		EXPECT_EQ(stream.Complaint(), "");
		stream.Add("?", 1);
		EXPECT_EQ(stream.Complaint().find("not a handshake\n"), 0u);
		EXPECT_FALSE(stream.HasHandshake());
	}
}


TEST(RequestStreamTest, AnythingBehindAHandshakeThatWasNotAccepted_IsFound)
{
	for (const size_t size : {static_cast<size_t>(1), login().size()}) {
		RequestStream stream;
		const std::string bytes = kHandshake + login().substr(0, size);
		stream.Add(bytes.data(), bytes.size());
		EXPECT_EQ(stream.Complaint().find("more than the handshake before it was accepted\n"), 0u);
		stream.AcceptHandshake();
		RequestStream::Request request;
		EXPECT_FALSE(stream.Next(&request));
	}
}


TEST(RequestStreamTest, WholeTransactions_ComeOutInOrder)
{
	std::string requests;
	EXPECT_EQ(judge(login() + chat(2) + wire_transaction(300, 3, "") + chat(4), &requests), "");
	EXPECT_EQ(requests, "107/1 105/2 300/3 105/4 ");
	EXPECT_EQ(judge_at_once(login() + chat(2) + chat(3)), "");
}


TEST(RequestStreamTest, CutAtAnyByte_IsUnfinishedButNoFault)
{
	const std::string bytes = login() + chat(2);
	for (size_t i = 0; i <= bytes.size(); i++) {
		SCOPED_TRACE(i);
		RequestStream stream;
		stream.Add(kHandshake.data(), kHandshake.size());
		stream.AcceptHandshake();
		stream.Add(bytes.data(), i);
		EXPECT_EQ(stream.Complaint(), "");
		EXPECT_EQ(stream.IsUnfinished(), i != 0 && i != login().size() && i != bytes.size());
	}
}


TEST(RequestStreamTest, Fault_IsFoundByteByByte)
{
	const std::string param = wire_param(103, wire16(5));
	const std::string impossible = "type 300, id 2: an impossible size";
	const std::string count = "a wrong number of parameters";
	const std::string filling = "parameters that do not fill the size";
	const struct {
		std::string bytes;
		std::string complaint;
	} faults[] = {
		{chat(1), "type 105, id 1: before the login"},
		{wire_transaction(300, 7, "") + login(), "type 300, id 7: before the login"},
		{wire_transaction(107, 2, ""), "type 107, id 2: the id should be 1"},
		{wire_transaction(107, 0, ""), "type 107, id 0: the id should be 1"},
		{login() + wire_transaction(107, 2, ""), "type 107, id 2: another login"},
		{login() + chat(1), "type 105, id 1: an id that was used before"},
		{login() + chat(2) + chat(3) + chat(2), "type 105, id 2: an id that was used before"},
		{login() + chat(3), "type 105, id 3: the id should be 2"},
		{login() + chat(0), "type 105, id 0: the id should be 2"},
		// Headers that no request has.
		{login() + wire_header(106, 2, 0, 2, 2, 0), "type 106, id 2: no client sends this type"},
		{login() + wire_header(0x10069, 2, 0, 2, 2, 0),
			"type 65641, id 2: no client sends this type"},
		{login() + wire_header(300, 2, 1, 2, 2, 0), "type 300, id 2: an error code in a request"},
		{login() + wire_header(300, 2, 0, 2, 3, 0), "type 300, id 2: two different sizes"},
		// Sizes that cannot be, before their bytes come; the last one can.
		{login() + wire_header(300, 2, 0, 1, 1, 0), impossible},
		{login() + wire_header(300, 2, 0, 0, 0, 0), impossible},
		{login() + wire_header(300, 2, 0, 5, 5, 1), impossible},
		{login() + wire_header(300, 2, 0, 196620, 196620, 0), impossible},
		{login() + wire_header(300, 2, 0, UINT32_MAX, UINT32_MAX, 0), impossible},
		{login() + wire_header(300, 2, 0, 196619, 196619, 1), ""},
		// Parameters that are not what the header says.
		{login() + wire_header(303, 2, 0, 8, 8, 0) + param, count},
		{login() + wire_header(303, 2, 0, 14, 14, 1) + param + param, count},
		{login() + wire_header(303, 2, 0, 9, 9, 1) + param + "?", filling},
		{login() + wire_header(303, 2, 0, 7, 7, 1) + param.substr(0, 5), filling},
	};
	for (const auto& fault : faults) {
		SCOPED_TRACE(wire_dump(fault.bytes));
		EXPECT_EQ(judge(fault.bytes), fault.complaint);
	}
}


TEST(RequestStreamTest, TextOfTwoLetters_IsFound)
{
	for (const unsigned int field : {101u, 102u, 201u}) {
		EXPECT_EQ(judge(login() + wire_transaction(105, 2, wire_param(field, "aaabaa"))),
			"a text of more than one letter in field " + std::to_string(field));
		EXPECT_EQ(judge(login() + wire_transaction(105, 2, wire_param(field, ""))), "");
	}
	EXPECT_EQ(judge(login() + wire_transaction(200, 2, wire_param(202, "aaabaa"))), "");
}


TEST(RequestStreamTest, Complaint_TellsWhatCameBefore_AndNothingIsJudgedBehindIt)
{
	RequestStream stream;
	const std::string bytes = login() + chat(2) + chat(2) + wire_transaction(1, 1, "");
	stream.Add(kHandshake.data(), kHandshake.size());
	stream.AcceptHandshake();
	stream.Add(bytes.data(), bytes.size());
	EXPECT_EQ(stream.Complaint().find("type 105, id 2: an id that was used before\n"
									  "after type 107, id 1\n"
									  "after type 105, id 2\n"),
		0u);
	EXPECT_NE(stream.Complaint().find("00 00 00 69 00 00 00 02"), std::string::npos);
	const std::string complaint = stream.Complaint();
	stream.Add(bytes.data(), bytes.size());
	EXPECT_EQ(stream.Complaint(), complaint);
}
