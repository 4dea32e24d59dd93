/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "QuietServer.h"
#include "RawClient.h"


class LoginTest : public QuietServer {};

static const uint32_t kReply = 0x00010000;
static const std::string kGreeting("TRTPHOTL\x00\x01\x00\x02", 12);


static std::string
login_reply(uint32_t id)
{
	return Message(kReply, id, {Field(160, Int16(190)), Field(162, "Lantern Caf\xc3\xa9")});
}


TEST_F(LoginTest, Handshake_Answered)
{
	RawClient client(Start());
	client.Send(kGreeting);
	EXPECT_EQ(client.Receive(8), std::string("TRTP\0\0\0\0", 8));
}


TEST_F(LoginTest, HandshakeByteByByte_Answered)
{
	RawClient client(Start());
	for (char byte : kGreeting)
		client.Send(std::string(1, byte));
	EXPECT_EQ(client.Receive(8), std::string("TRTP\0\0\0\0", 8));
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

	Parsed agreement(client.ReceiveMessage());
	EXPECT_EQ(agreement.type, 109u);
	EXPECT_NE(agreement.id, 0u);
	EXPECT_EQ(agreement.fields.size(), 1u);
	std::string text = agreement.Text(101);
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
	EXPECT_EQ(client.ReceiveMessage(), Message(109, 1, {Field(154, "\x01")}));
}


TEST_F(LoginTest, Agreed_AnsweredAndMadeKnown)
{
	RawClient client(Start());
	client.LogIn("Tester", 137);
	client.ReceiveMessageOfType(109);
	client.Request(121, {Field(102, "Tested"), Field(104, Int16(140)), Field(113, Int16(0))});

	EXPECT_EQ(client.ReceiveMessage(), Message(kReply, 2, {}));
	EXPECT_EQ(client.ReceiveMessage(),
		Message(301, 2,
			{Field(103, Int16(4)), Field(104, Int16(140)), Field(112, Int16(0)),
				Field(102, "Tested")}));
}


TEST_F(LoginTest, AgreedWithoutNick_KeepsTheOneOfTheLogin)
{
	RawClient client(Start());
	client.LogIn("Tester", 137);
	client.ReceiveMessageOfType(109);
	client.Request(121, {Field(104, Int16(140)), Field(113, Int16(0))});
	EXPECT_EQ(Parsed(client.ReceiveMessageOfType(301)).Text(102), "Tester");
}


TEST_F(LoginTest, NickTooLong_CutBetweenCharacters)
{
	RawClient client(Start());
	std::string nick = std::string(62, 'n') + "é and more";
	client.LogIn(nick, 137);
	client.ReceiveMessageOfType(109);
	client.Request(121, {Field(102, nick), Field(104, Int16(137)), Field(113, Int16(0))});
	EXPECT_EQ(Parsed(client.ReceiveMessageOfType(301)).Text(102), std::string(62, 'n'));
}


TEST_F(LoginTest, RightPassword_MakesAKeeper)
{
	RawClient client(Start());
	ASSERT_TRUE(client.ShakeHands());
	client.Request(107,
		{Field(104, Int16(137)), Field(105, Encoded("keeper")), Field(106, Encoded("lantern")),
			Field(102, "Tester"), Field(160, Int16(151))});
	EXPECT_EQ(client.ReceiveMessage(), login_reply(1));
	client.Request(121, {Field(104, Int16(137)), Field(113, Int16(0))});
	EXPECT_EQ(Parsed(client.ReceiveMessageOfType(301)).Number(112), 2);
}


TEST_F(LoginTest, WrongPassword_RefusedWithATextAndTheEnd)
{
	for (const char* password : {"", "Lantern", "lanterns"}) {
		SCOPED_TRACE(password);
		RawClient client(Start());
		ASSERT_TRUE(client.ShakeHands());
		client.Request(107,
			{Field(104, Int16(137)), Field(105, Encoded("keeper")), Field(106, Encoded(password))});
		EXPECT_EQ(client.ReceiveMessage(),
			Message(kReply, 1, {Field(100, "The password for \"keeper\" is wrong.")}, 1));
		EXPECT_TRUE(client.ReceiveEnd());
	}
}


TEST_F(LoginTest, SecondLogin_Refused)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Request(107, {Field(104, Int16(137)), Field(160, Int16(151))});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 3, {Field(100, "You are logged in already.")}, 1));
}


TEST_F(LoginTest, RequestsBeforeTheLogin_Refused)
{
	for (uint32_t type : {105, 108, 121, 300, 304, 999}) {
		SCOPED_TRACE(type);
		RawClient client(Start());
		ASSERT_TRUE(client.ShakeHands());
		client.Request(type, {});
		EXPECT_EQ(client.ReceiveMessage(),
			Message(kReply, 1, {Field(100, "Please log in first.")}, 1));
	}
}


TEST_F(LoginTest, TalkBeforeTheAgreement_Refused)
{
	RawClient client(Start());
	client.LogIn("Tester", 137);
	client.ReceiveMessageOfType(109);
	client.Type("hello");
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 2, {Field(100, "Please accept the agreement first.")}, 1));
	client.Request(108, {Field(103, Int16(1)), Field(101, "hello")});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 3, {Field(100, "Please accept the agreement first.")}, 1));
}


TEST_F(LoginTest, Silent_AcceptsAndSaysNothing)
{
	fOptions.silent = true;
	RawClient client(Start());
	ASSERT_TRUE(client.IsConnected());
	client.Send(kGreeting);
	client.Request(107, {Field(104, Int16(137)), Field(160, Int16(151))});
	// What arrives until the server ends is all that it ever said.
	fServer->Stop();
	EXPECT_EQ(client.Receive(1), "");
}
