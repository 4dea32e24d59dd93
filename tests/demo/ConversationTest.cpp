/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "QuietServer.h"
#include "RawClient.h"

#include "Persona.h"


class ConversationTest : public QuietServer {};

static const uint32_t kReply = 0x00010000;


TEST_F(ConversationTest, UserList_ShowsResidentsAndThoseWhoJoined)
{
	RawClient client(Start());
	client.Join("Tester", 137);
	RawClient reading(fServer->Port());
	reading.LogIn("Still reading", 128);
	reading.ReceiveMessageOfType(109);

	client.Request(300, {});
	auto entry = [](uint16_t socket, uint16_t icon, uint16_t status, const std::string& nick) {
		return Field(300,
			Int16(socket) + Int16(icon) + Int16(status) + Int16(static_cast<uint16_t>(nick.size()))
				+ nick);
	};
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 3,
			{entry(1, 163, 0, "Juniper"), entry(2, 152, 0, "\xd0\xa1\xd0\xbe\xd0\xb2\xd0\xb0"),
				entry(3, 149, 0, "\xe6\x9c\x88\xe3\x81\x86\xe3\x81\x95\xe3\x81\x8e"),
				entry(4, 137, 0, "Tester")}));
}


TEST_F(ConversationTest, ManyUsers_AllListed)
{
	fOptions.users = 20000;
	RawClient client(Start());
	client.Join("Tester");
	client.Request(300, {});
	Parsed list(client.ReceiveMessage());
	EXPECT_EQ(list.id, 3u);
	EXPECT_EQ(list.fields.size(), 20001u);
}


TEST_F(ConversationTest, Chat_ReachesEverybodyComplete)
{
	RawClient first(Start());
	first.Join("First");
	RawClient second(fServer->Port());
	second.Join("Second");
	first.ReceiveMessageOfType(301);

	second.Type("hello\nthere <b>&amp;%s");
	EXPECT_EQ(first.ReceiveMessage(),
		Message(106, 4, {Field(101, "Second:  hello\rthere <b>&amp;%s")}));
	EXPECT_EQ(second.ReceiveMessage(),
		Message(106, 3, {Field(101, "Second:  hello\rthere <b>&amp;%s")}));
}


TEST_F(ConversationTest, LongestChatLine_CutToAField)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Type(std::string(65535, 'x'));
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(101), "Tester:  " + std::string(65526, 'x'));
}


TEST_F(ConversationTest, EmptyChatLine_Dropped)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Type("");
	client.Request(105, {});
	client.Type("after");
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(101), "Tester:  after");
}


TEST_F(ConversationTest, OthersJoinChangeAndLeave_Told)
{
	RawClient witness(Start());
	witness.Join("Witness");
	RawClient other(fServer->Port());
	other.Join("Other", 131);
	auto change = [](uint32_t id, uint16_t icon, const std::string& nick) {
		return Message(301, id,
			{Field(103, Int16(5)), Field(104, Int16(icon)), Field(112, Int16(0)),
				Field(102, nick)});
	};
	EXPECT_EQ(witness.ReceiveMessage(), change(3, 131, "Other"));

	other.Request(304, {Field(104, Int16(133)), Field(102, "Another")});
	EXPECT_EQ(witness.ReceiveMessage(), change(4, 133, "Another"));
	EXPECT_EQ(other.ReceiveMessage(), change(3, 133, "Another"));
	other.Request(304, {Field(104, Int16(134))});
	EXPECT_EQ(witness.ReceiveMessage(), change(5, 134, "Another"));

	other.Close();
	EXPECT_EQ(witness.ReceiveMessage(), Message(302, 6, {Field(103, Int16(5))}));
}


TEST_F(ConversationTest, LeavesBeforeTheAgreement_NobodyTold)
{
	RawClient witness(Start());
	witness.Join("Witness");
	RawClient other(fServer->Port());
	other.LogIn("Other", 131);
	other.ReceiveMessageOfType(109);
	other.Request(304, {Field(104, Int16(133)), Field(102, "Another")});
	other.Close();
	witness.Type("done");
	EXPECT_EQ(Parsed(witness.ReceiveMessage()).Text(101), "Witness:  done");
}


TEST_F(ConversationTest, PrivateMessage_ReachesOnlyItsReceiver)
{
	RawClient first(Start());
	uint16_t firstSocket = first.Join("First", 131);
	RawClient second(fServer->Port());
	uint16_t secondSocket = second.Join("Second", 133);
	RawClient third(fServer->Port());
	third.Join("Third");

	second.ReceiveMessageOfType(301);
	second.Request(108, {Field(103, Int16(firstSocket)), Field(101, "psst\nyou")});
	EXPECT_EQ(second.ReceiveMessage(), Message(kReply, 3, {}));
	EXPECT_EQ(first.ReceiveMessageOfType(104),
		Message(104, 5,
			{Field(103, Int16(secondSocket)), Field(102, "Second"), Field(104, Int16(133)),
				Field(101, "psst\ryou")}));
	third.Type("done");
	EXPECT_EQ(Parsed(third.ReceiveMessage()).Text(101), "Third:  done");
}


TEST_F(ConversationTest, PrivateMessageToNobody_Refused)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Request(108, {Field(103, Int16(99)), Field(101, "hello")});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 3, {Field(100, "There is nobody with the number 99.")}, 1));
	client.Request(108, {Field(101, "hello")});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 4, {Field(100, "There is nobody with the number 0.")}, 1));
	client.Request(108, {Field(103, std::string("\x01")), Field(101, "hello")});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 5, {Field(100, "There is nobody with the number 0.")}, 1));
}


TEST_F(ConversationTest, ReceiverInFourBytes_UnderstoodAsWell)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Request(108, {Field(103, Int32(1)), Field(101, "hello")});
	EXPECT_EQ(client.ReceiveMessage(), Message(kReply, 3, {}));
}


TEST_F(ConversationTest, PrivateMessageToAResident_Answered)
{
	fOptions.answers = true;
	RawClient client(Start());
	client.Join("Tester");
	client.Request(108, {Field(103, Int16(1)), Field(101, "hello")});
	EXPECT_EQ(client.ReceiveMessage(), Message(kReply, 3, {}));
	EXPECT_EQ(client.ReceiveMessage(),
		Message(104, 3,
			{Field(103, Int16(1)), Field(102, "Juniper"), Field(104, Int16(163)),
				Field(101, demo::Persona::Cast(0).whispers[0])}));
}


TEST_F(ConversationTest, Chat_AnsweredByWhoIsNamed)
{
	fOptions.answers = true;
	RawClient client(Start());
	client.Join("Tester");
	client.Type("Hello \xd0\xa1\xd0\xbe\xd0\xb2\xd0\xb0!");
	client.ReceiveMessage();
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(101),
		std::string("\xd0\xa1\xd0\xbe\xd0\xb2\xd0\xb0:  Tester: ")
			+ demo::Persona::Cast(1).greeting);
}


TEST_F(ConversationTest, UserInfo_DescribesTheUser)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Request(303, {Field(103, Int16(1))});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 3,
			{Field(102, "Juniper"), Field(101, "Nick: Juniper\rIcon: 163\rStatus: 0")}));
	client.Request(303, {Field(103, Int16(99))});
	EXPECT_EQ(Parsed(client.ReceiveMessage()).error, 1u);
}


TEST_F(ConversationTest, UnknownRequest_RefusedWithItsType)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Request(999, {Field(101, "x")});
	EXPECT_EQ(client.ReceiveMessage(),
		Message(kReply, 3, {Field(100, "This server does not know requests of type 999.")}, 1));
}


TEST_F(ConversationTest, RequestWithReplyBit_Ignored)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Send(Message(0x00010000 | 999, 77, {Field(101, "x")}));
	client.Type("after");
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(101), "Tester:  after");
}


TEST_F(ConversationTest, AgreedAgain_NewNickMadeKnown)
{
	RawClient client(Start());
	client.Join("Tester");
	client.Request(121, {Field(102, "Again"), Field(104, Int16(128)), Field(113, Int16(0))});
	EXPECT_EQ(client.ReceiveMessage(), Message(kReply, 3, {}));
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(102), "Again");
}


TEST_F(ConversationTest, RequestsByteByByte_Understood)
{
	RawClient client(Start());
	client.Join("Tester");
	for (char byte : Message(105, 3, {Field(101, "slow")}) + Message(105, 4, {Field(101, "too")}))
		client.Send(std::string(1, byte));
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(101), "Tester:  slow");
	EXPECT_EQ(Parsed(client.ReceiveMessage()).Text(101), "Tester:  too");
}


TEST_F(ConversationTest, Welcome_ListsTheCommands)
{
	fOptions.welcome = true;
	RawClient client(Start());
	client.Join("Tester");
	std::string text = Parsed(client.ReceiveMessageOfType(106)).Text(101);
	for (const char* part : {"Tester", "/help", "/broadcast", "/message", "/join", "/leave",
			 "/rename", "/quit", "/drop", "/unknown", "/flood", "/long", "/agreement", "/error",
			 "\"keeper\"", "\"lantern\""})
		EXPECT_NE(text.find(part), std::string::npos) << part;
}
