/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "QuietServer.h"


class LoginTest : public QuietServer {};

static const std::string kGreeting("TRTPHOTL\x00\x01\x00\x02", 12);


static std::string
login_reply(uint32_t id)
{
	return Message(kReply, id,
		{wire_param(160, wire16(190)), wire_param(162, "Lantern Caf\xc3\xa9")});
}


TEST_F(LoginTest, HandshakeAtOnceOrByteByByte_Answered)
{
	RawClient client(Start());
	client.Send(kGreeting);
	EXPECT_EQ(client.Receive(8), std::string("TRTP\0\0\0\0", 8));
	RawClient slow(fServer->Port());
	slow.SendOneByOne(kGreeting);
	EXPECT_EQ(slow.Receive(8), std::string("TRTP\0\0\0\0", 8));
}


TEST_F(LoginTest, WrongHandshake_RefusedAtTheFirstWrongByte)
{
	for (const char* wrong : {"GET / HTTP/1.0\r\n\r\n", "X", "TRTPHOTX"}) {
		SCOPED_TRACE(wrong);
		RawClient client(Start());
		client.Send(wrong);
		EXPECT_EQ(client.Receive(8), std::string("TRTP\0\0\0\1", 8));
		EXPECT_TRUE(client.ReceiveEnd());
	}
}


TEST_F(LoginTest, AnyLogin_AnsweredWithNameAndVersion)
{
	RawClient client(Start());
	ASSERT_TRUE(client.ShakeHands());
	client.Send(std::string("\x00\x00\x00\x6b"
							"\x00\x00\x00\x01"
							"\x00\x00\x00\x00"
							"\x00\x00\x00\x0e"
							"\x00\x00\x00\x0e"
							"\x00\x02"
							"\x00\x68\x00\x02\x00\x89"
							"\x00\xa0\x00\x02\x00\x97",
		34));

	std::string expected("\x00\x01\x00\x00"
						 "\x00\x00\x00\x01"
						 "\x00\x00\x00\x00"
						 "\x00\x00\x00\x19"
						 "\x00\x00\x00\x19"
						 "\x00\x02"
						 "\x00\xa0\x00\x02\x00\xbe"
						 "\x00\xa2\x00\x0d"
						 "Lantern Caf\xc3\xa9",
		45);
	EXPECT_EQ(client.Receive(expected.size()), expected);
}


TEST_F(LoginTest, Agreement_FollowsTheLogin)
{
	RawClient client(Start());
	client.LogIn("Tester", 137);
	EXPECT_EQ(client.ReceiveMessage(), login_reply(1));

	const WireTransaction agreement(client.ReceiveMessage());
	EXPECT_EQ(agreement.type, 109u);
	EXPECT_NE(agreement.id, 0u);
	EXPECT_EQ(agreement.fields.size(), 1u);
	std::string text = agreement.Field(101);
	EXPECT_NE(text.find("\"keeper\""), std::string::npos);
	EXPECT_NE(text.find("\"lantern\""), std::string::npos);
	EXPECT_EQ(text.find('\n'), std::string::npos) << "lines end with carriage returns";
}


TEST_F(LoginTest, NoAgreement_SaidSo)
{
	fOptions.agreement = false;
	RawClient client(Start());
	client.LogIn("Tester", 137);
	EXPECT_EQ(client.ReceiveMessage(), login_reply(1));
	EXPECT_EQ(client.ReceiveMessage(), Message(109, 1, {wire_param(154, "\x01")}));
}


TEST_F(LoginTest, Agreed_AnsweredAndMadeKnown)
{
	const auto client = LogIn("Tester", 137);
	client->Request(121,
		{wire_param(102, "Tested"), wire_param(104, wire16(140)), wire_param(113, wire16(0))});

	EXPECT_EQ(client->ReceiveMessage(), Message(kReply, 2, {}));
	EXPECT_EQ(client->ReceiveMessage(),
		Message(301, 2,
			{wire_param(103, wire16(4)), wire_param(104, wire16(140)), wire_param(112, wire16(0)),
				wire_param(102, "Tested")}));
}


TEST_F(LoginTest, NickTooLong_CutBetweenCharacters)
{
	std::string nick = std::string(62, 'n') + "é and more";
	const auto client = LogIn(nick, 137);
	client->Request(121,
		{wire_param(102, nick), wire_param(104, wire16(137)), wire_param(113, wire16(0))});
	EXPECT_EQ(WireTransaction(client->ReceiveMessageOfType(301)).Field(102), std::string(62, 'n'));
}


TEST_F(LoginTest, RightPassword_MakesAKeeperUnderTheNickOfTheLogin)
{
	RawClient client(Start());
	ASSERT_TRUE(client.ShakeHands());
	client.Request(107,
		{wire_param(104, wire16(137)), wire_param(105, Encoded("keeper")),
			wire_param(106, Encoded("lantern")), wire_param(102, "Tester"),
			wire_param(160, wire16(151))});
	EXPECT_EQ(client.ReceiveMessage(), login_reply(1));
	client.Request(121, {wire_param(104, wire16(137)), wire_param(113, wire16(0))});
	// Without a nick of its own, the one of the login stays.
	const WireTransaction joined(client.ReceiveMessageOfType(301));
	EXPECT_EQ(joined.Number(112), 2);
	EXPECT_EQ(joined.Field(102), "Tester");
}


TEST_F(LoginTest, WrongPassword_RefusedWithATextAndTheEnd)
{
	for (const char* password : {"", "Lantern", "lanterns"}) {
		SCOPED_TRACE(password);
		RawClient client(Start());
		ASSERT_TRUE(client.ShakeHands());
		client.Request(107,
			{wire_param(104, wire16(137)), wire_param(105, Encoded("keeper")),
				wire_param(106, Encoded(password))});
		EXPECT_EQ(client.ReceiveMessage(), Refusal(1, "The password for \"keeper\" is wrong."));
		EXPECT_TRUE(client.ReceiveEnd());
	}
}


TEST_F(LoginTest, SecondLogin_Refused)
{
	const auto client = Join("Tester");
	EXPECT_EQ(client->Ask(107, {wire_param(104, wire16(137)), wire_param(160, wire16(151))}),
		Refusal(3, "You are logged in already."));
}


TEST_F(LoginTest, RequestsBeforeTheLogin_Refused)
{
	for (uint32_t type : {105, 108, 121, 300, 304, 999}) {
		SCOPED_TRACE(type);
		RawClient client(Start());
		ASSERT_TRUE(client.ShakeHands());
		client.Request(type, {});
		EXPECT_EQ(client.ReceiveMessage(), Refusal(1, "Please log in first."));
	}
}


TEST_F(LoginTest, TalkBeforeTheAgreement_Refused)
{
	const auto client = LogIn("Tester", 137);
	client->Type("hello");
	EXPECT_EQ(client->ReceiveMessage(), Refusal(2, "Please accept the agreement first."));
	EXPECT_EQ(client->Ask(108, {wire_param(103, wire16(1)), wire_param(101, "hello")}),
		Refusal(3, "Please accept the agreement first."));
}


TEST_F(LoginTest, Silent_AcceptsAndSaysNothing)
{
	fOptions.silent = true;
	RawClient client(Start());
	ASSERT_TRUE(client.IsConnected());
	client.Send(kGreeting);
	client.Request(107, {wire_param(104, wire16(137)), wire_param(160, wire16(151))});
	// What arrives until the server ends is all that it ever said.
	fServer->Stop();
	EXPECT_EQ(client.Receive(1), "");
}
