/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Persona.h"
#include "QuietServer.h"


class ConversationTest : public QuietServer {};


TEST_F(ConversationTest, UserList_ShowsResidentsAndThoseWhoJoined)
{
	const auto client = Join("Tester", 137);
	const auto reading = LogIn("Still reading", 128);

	client->Request(300, {});
	auto entry = [](uint16_t socket, uint16_t icon, uint16_t status, const std::string& nick) {
		return wire_param(300,
			wire16(socket) + wire16(icon) + wire16(status)
				+ wire16(static_cast<uint16_t>(nick.size())) + nick);
	};
	EXPECT_EQ(client->ReceiveMessage(),
		Message(kReply, 3,
			{entry(1, 163, 0, "Juniper"), entry(2, 152, 0, "\xd0\xa1\xd0\xbe\xd0\xb2\xd0\xb0"),
				entry(3, 149, 0, "\xe6\x9c\x88\xe3\x81\x86\xe3\x81\x95\xe3\x81\x8e"),
				entry(4, 137, 0, "Tester")}));
}


TEST_F(ConversationTest, ManyUsers_AllListed)
{
	fOptions.users = 20000;
	const auto client = Join("Tester");
	client->Request(300, {});
	const WireTransaction list(client->ReceiveMessage());
	EXPECT_EQ(list.id, 3u);
	EXPECT_EQ(list.fields.size(), 20001u);
}


TEST_F(ConversationTest, Chat_ReachesEverybodyComplete)
{
	const auto first = Join("First");
	const auto second = Join("Second");
	first->ReceiveMessageOfType(301);

	second->Type("hello\nthere <b>&amp;%s");
	EXPECT_EQ(first->ReceiveMessage(),
		Message(106, 4, {wire_param(101, "Second:  hello\rthere <b>&amp;%s")}));
	EXPECT_EQ(second->ReceiveMessage(),
		Message(106, 3, {wire_param(101, "Second:  hello\rthere <b>&amp;%s")}));
}


TEST_F(ConversationTest, LongestChatLine_CutToAField)
{
	const auto client = Join("Tester");
	EXPECT_EQ(client->Say(std::string(65535, 'x')), "Tester:  " + std::string(65526, 'x'));
}


TEST_F(ConversationTest, EmptyChatLine_Dropped)
{
	const auto client = Join("Tester");
	client->Type("");
	client->Request(105, {});
	EXPECT_EQ(client->Say("after"), "Tester:  after");
}


TEST_F(ConversationTest, OthersJoinChangeAndLeave_Told)
{
	const auto witness = Join("Witness");
	const auto other = Join("Other", 131);
	const auto change = [](uint32_t id, uint16_t icon, const std::string& nick) {
		return UserNotice(id, 5, icon, 0, nick);
	};
	EXPECT_EQ(witness->ReceiveMessage(), change(3, 131, "Other"));

	other->Request(304, {wire_param(104, wire16(133)), wire_param(102, "Another")});
	EXPECT_EQ(witness->ReceiveMessage(), change(4, 133, "Another"));
	EXPECT_EQ(other->ReceiveMessage(), change(3, 133, "Another"));
	other->Request(304, {wire_param(104, wire16(134))});
	EXPECT_EQ(witness->ReceiveMessage(), change(5, 134, "Another"));

	other->Close();
	EXPECT_EQ(witness->ReceiveMessage(), Message(302, 6, {wire_param(103, wire16(5))}));
}


TEST_F(ConversationTest, LeavesBeforeTheAgreement_NobodyTold)
{
	const auto witness = Join("Witness");
	const auto other = LogIn("Other", 131);
	other->Request(304, {wire_param(104, wire16(133)), wire_param(102, "Another")});
	other->Close();
	EXPECT_EQ(witness->Say("done"), "Witness:  done");
}


TEST_F(ConversationTest, PrivateMessage_ReachesOnlyItsReceiver)
{
	RawClient first(Start());
	uint16_t firstSocket = first.Join("First", 131);
	RawClient second(fServer->Port());
	uint16_t secondSocket = second.Join("Second", 133);
	const auto third = Join("Third");

	second.ReceiveMessageOfType(301);
	EXPECT_EQ(second.Ask(108, {wire_param(103, wire16(firstSocket)), wire_param(101, "psst\nyou")}),
		Message(kReply, 3, {}));
	EXPECT_EQ(first.ReceiveMessageOfType(104),
		Message(104, 5,
			{wire_param(103, wire16(secondSocket)), wire_param(102, "Second"),
				wire_param(104, wire16(133)), wire_param(101, "psst\ryou")}));
	EXPECT_EQ(third->Say("done"), "Third:  done");
}


TEST_F(ConversationTest, PrivateMessageToNobody_Refused)
{
	const auto client = Join("Tester");
	EXPECT_EQ(client->Ask(108, {wire_param(103, wire16(99)), wire_param(101, "hello")}),
		Refusal(3, "There is nobody with the number 99."));
	EXPECT_EQ(client->Ask(108, {wire_param(101, "hello")}),
		Refusal(4, "There is nobody with the number 0."));
	EXPECT_EQ(client->Ask(108, {wire_param(103, std::string("\x01")), wire_param(101, "hello")}),
		Refusal(5, "There is nobody with the number 0."));
}


TEST_F(ConversationTest, ReceiverInFourBytes_UnderstoodAsWell)
{
	const auto client = Join("Tester");
	EXPECT_EQ(client->Ask(108, {wire_param(103, wire32(1)), wire_param(101, "hello")}),
		Message(kReply, 3, {}));
}


TEST_F(ConversationTest, PrivateMessageToAResident_Answered)
{
	fOptions.answers = true;
	const auto client = Join("Tester");
	EXPECT_EQ(client->Ask(108, {wire_param(103, wire16(1)), wire_param(101, "hello")}),
		Message(kReply, 3, {}));
	EXPECT_EQ(client->ReceiveMessage(),
		Message(104, 3,
			{wire_param(103, wire16(1)), wire_param(102, "Juniper"), wire_param(104, wire16(163)),
				wire_param(101, demo::Persona::Cast(0).whispers[0])}));
}


TEST_F(ConversationTest, Chat_AnsweredByWhoIsNamed)
{
	fOptions.answers = true;
	const auto client = Join("Tester");
	client->Type("Hello \xd0\xa1\xd0\xbe\xd0\xb2\xd0\xb0!");
	client->ReceiveMessage();
	EXPECT_EQ(client->ReceiveText(),
		std::string("\xd0\xa1\xd0\xbe\xd0\xb2\xd0\xb0:  Tester: ")
			+ demo::Persona::Cast(1).greeting);
}


TEST_F(ConversationTest, UserInfo_DescribesTheUser)
{
	const auto client = Join("Tester");
	EXPECT_EQ(client->Ask(303, {wire_param(103, wire16(1))}),
		Message(kReply, 3,
			{wire_param(102, "Juniper"), wire_param(101, "Nick: Juniper\rIcon: 163\rStatus: 0")}));
	client->Request(303, {wire_param(103, wire16(99))});
	EXPECT_EQ(WireTransaction(client->ReceiveMessage()).error, 1u);
}


TEST_F(ConversationTest, UnknownRequest_RefusedWithItsType)
{
	const auto client = Join("Tester");
	EXPECT_EQ(client->Ask(999, {wire_param(101, "x")}),
		Refusal(3, "This server does not know requests of type 999."));
}


TEST_F(ConversationTest, RequestWithReplyBit_Ignored)
{
	const auto client = Join("Tester");
	client->Send(Message(0x00010000 | 999, 77, {wire_param(101, "x")}));
	EXPECT_EQ(client->Say("after"), "Tester:  after");
}


TEST_F(ConversationTest, AgreedAgain_NewNickMadeKnown)
{
	const auto client = Join("Tester");
	EXPECT_EQ(
		client->Ask(121,
			{wire_param(102, "Again"), wire_param(104, wire16(128)), wire_param(113, wire16(0))}),
		Message(kReply, 3, {}));
	EXPECT_EQ(WireTransaction(client->ReceiveMessage()).Field(102), "Again");
}


TEST_F(ConversationTest, RequestsByteByByte_Understood)
{
	const auto client = Join("Tester");
	client->SendOneByOne(
		Message(105, 3, {wire_param(101, "slow")}) + Message(105, 4, {wire_param(101, "too")}));
	EXPECT_EQ(client->ReceiveText(), "Tester:  slow");
	EXPECT_EQ(client->ReceiveText(), "Tester:  too");
}


TEST_F(ConversationTest, Welcome_ListsTheCommands)
{
	fOptions.welcome = true;
	const auto client = Join("Tester");
	std::string text = WireTransaction(client->ReceiveMessageOfType(106)).Field(101);
	for (const char* part : {"Tester", "/help", "/broadcast", "/message", "/join", "/leave",
			 "/rename", "/quit", "/drop", "/unknown", "/flood", "/long", "/agreement", "/error",
			 "\"keeper\"", "\"lantern\""})
		EXPECT_NE(text.find(part), std::string::npos) << part;
}
