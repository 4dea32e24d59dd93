/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <sys/socket.h>

#include "QuietServer.h"
#include "RawClient.h"


static const uint32_t kReply = 0x00010000;


class CommandInterpreterTest : public QuietServer {
protected:
	// Somebody who has just joined: the next request is number 3, the next notice too.
	void Join()
	{
		fClient = std::make_unique<RawClient>(Start());
		ASSERT_EQ(fClient->Join("Tester", 137), 4);
	}

	std::string Answer(const std::string& line)
	{
		fClient->Type(line);
		return fClient->ReceiveMessage();
	}

	std::unique_ptr<RawClient> fClient;
};


static std::string
user_change(uint32_t id, uint16_t socket, uint16_t icon, uint16_t status, const std::string& nick)
{
	return Message(301, id,
		{Field(103, Int16(socket)), Field(104, Int16(icon)), Field(112, Int16(status)),
			Field(102, nick)});
}


TEST_F(CommandInterpreterTest, Help_ListsThemAll)
{
	Join();
	Parsed help(Answer("/help"));
	EXPECT_EQ(help.type, 106u);
	EXPECT_NE(help.Text(101).find("\r/broadcast TEXT"), std::string::npos);
}


TEST_F(CommandInterpreterTest, Unknown_Refused)
{
	Join();
	EXPECT_EQ(Answer("/teapot now"),
		Message(kReply, 3, {Field(100, "There is no command /teapot. Try /help.")}, 1));
}


TEST_F(CommandInterpreterTest, CapitalLetters_DoNotMatter)
{
	Join();
	EXPECT_EQ(Answer("/BroadCast Hi"), Message(355, 3, {Field(101, "Hi")}));
}


TEST_F(CommandInterpreterTest, Broadcast_ReachesEverybody)
{
	Join();
	RawClient other(fServer->Port());
	other.Join("Other");
	fClient->ReceiveMessageOfType(301);
	EXPECT_EQ(Answer("/broadcast one\rtwo"), Message(355, 4, {Field(101, "one\rtwo")}));
	EXPECT_EQ(other.ReceiveMessage(), Message(355, 3, {Field(101, "one\rtwo")}));
}


TEST_F(CommandInterpreterTest, Message_ComesFromSocketZero)
{
	Join();
	EXPECT_EQ(Answer("/message Hello"),
		Message(104, 3, {Field(103, Int16(0)), Field(101, "Hello")}));
}


TEST_F(CommandInterpreterTest, ResidentLeavesAndComesBack)
{
	Join();
	EXPECT_EQ(Answer("/leave juniper"), Message(302, 3, {Field(103, Int16(1))}));
	EXPECT_EQ(Answer("/leave juniper"),
		Message(kReply, 4, {Field(100, "Nobody here is called juniper.")}, 1));
	EXPECT_EQ(Answer("/join"), user_change(4, 1, 163, 0, "Juniper"));
}


TEST_F(CommandInterpreterTest, NewVisitor_JoinsIsListedAndLeaves)
{
	Join();
	Parsed visitor(Answer("/join Zo\xc3\xab"));
	EXPECT_EQ(visitor.type, 301u);
	EXPECT_EQ(visitor.Text(102), "Zo\xc3\xab");
	EXPECT_EQ(visitor.Number(103), 5);
	fClient->Request(300, {});
	EXPECT_EQ(Parsed(fClient->ReceiveMessage()).fields.size(), 5u);
	EXPECT_EQ(Answer("/leave Zo\xc3\xab"), Message(302, 4, {Field(103, Int16(5))}));
}


TEST_F(CommandInterpreterTest, EverybodyGone_NobodyLeftToDoIt)
{
	Join();
	for (int i = 0; i < 3; i++)
		EXPECT_EQ(Parsed(Answer("/leave")).type, 302u);
	for (const char* line : {"/leave", "/rename", "/say", "/whisper"}) {
		SCOPED_TRACE(line);
		EXPECT_EQ(Parsed(Answer(line)).Text(100), "There is nobody left to do that.");
	}
}


TEST_F(CommandInterpreterTest, Rename_ThereAndBack)
{
	Join();
	EXPECT_EQ(Answer("/rename Juniper"), user_change(3, 1, 163, 0, "Juniper (watering)"));
	EXPECT_EQ(Answer("/rename Juniper"), user_change(4, 1, 163, 0, "Juniper"));
}


TEST_F(CommandInterpreterTest, Say_ResidentTalks)
{
	Join();
	Parsed line(Answer("/say juniper"));
	EXPECT_EQ(line.type, 106u);
	EXPECT_EQ(line.Text(101).rfind("Juniper:  ", 0), 0u);
}


TEST_F(CommandInterpreterTest, Whisper_ResidentWritesInPrivate)
{
	Join();
	Parsed whisper(Answer("/whisper juniper"));
	EXPECT_EQ(whisper.type, 104u);
	EXPECT_EQ(whisper.Number(103), 1);
	EXPECT_EQ(whisper.Text(102), "Juniper");
}


TEST_F(CommandInterpreterTest, Status_ChangesOnesOwn)
{
	Join();
	EXPECT_EQ(Answer("/status 3"), user_change(3, 4, 137, 3, "Tester"));
	EXPECT_EQ(Parsed(Answer("/status high")).Text(100), "That needs a number from 0 to 65535.");
}


TEST_F(CommandInterpreterTest, Crowd_ComesAndGoes)
{
	Join();
	fClient->Type("/crowd 50");
	for (int i = 0; i < 50; i++)
		EXPECT_EQ(Parsed(fClient->ReceiveMessage()).type, 301u);
	fClient->Type("/crowd 10");
	for (int i = 0; i < 40; i++)
		EXPECT_EQ(Parsed(fClient->ReceiveMessage()).type, 302u);
	fClient->Request(300, {});
	EXPECT_EQ(Parsed(fClient->ReceiveMessage()).fields.size(), 14u);
}


TEST_F(CommandInterpreterTest, Agreement_ShownAgain)
{
	Join();
	EXPECT_EQ(Answer("/agreement Be kind."), Message(109, 3, {Field(101, "Be kind.")}));
	EXPECT_GT(Parsed(Answer("/agreement")).Text(101).size(), 100u);
}


TEST_F(CommandInterpreterTest, Error_AnswersTheRequest)
{
	Join();
	EXPECT_EQ(Answer("/error No tea"), Message(kReply, 3, {Field(100, "No tea")}, 1));
}


TEST_F(CommandInterpreterTest, Banner_AnnouncedToEverybody)
{
	Join();
	RawClient other(fServer->Port());
	other.Join("Other");
	fClient->ReceiveMessageOfType(301);
	EXPECT_EQ(Answer("/banner tiny"), Message(122, 4, {Field(152, "BMPf")}));
	EXPECT_EQ(other.ReceiveMessage(), Message(122, 3, {Field(152, "BMPf")}));
	EXPECT_EQ(Parsed(Answer("/banner ?")).Text(100).rfind("There are these banners: night, ", 0),
		0u);
}


TEST_F(CommandInterpreterTest, UnknownMessages_ThenALine)
{
	Join();
	EXPECT_EQ(Parsed(Answer("/unknown")).type, 777u);
	EXPECT_EQ(Parsed(fClient->ReceiveMessage()).type, 102u);
	EXPECT_EQ(Parsed(fClient->ReceiveMessage()).type, 106u);
}


TEST_F(CommandInterpreterTest, EmptyMessages_ThenALine)
{
	Join();
	EXPECT_EQ(Answer("/empty"), Message(106, 3, {}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(111, 4, {}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(106, 5, {Field(101, "")}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(104, 6, {Field(103, Int16(0)), Field(101, "")}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(355, 7, {Field(101, "")}));
	EXPECT_EQ(Parsed(fClient->ReceiveMessage()).Text(101),
		"Five empty messages stood before this line.");
}


TEST_F(CommandInterpreterTest, OddTexts_SentAsTheyStand)
{
	Join();
	EXPECT_EQ(Parsed(Answer("/odd")).Text(101),
		"Odd:  <b>bold</b> <img src=\"x\"> &amp; &lt;i&gt; &nbsp;");
	for (int i = 0; i < 6; i++)
		EXPECT_EQ(Parsed(fClient->ReceiveMessage()).type, 106u);
	EXPECT_EQ(Parsed(fClient->ReceiveMessage()).Text(101),
		std::string("Odd:  a zero byte \0 in the middle", 33));
}


TEST_F(CommandInterpreterTest, Long_FillsAFieldWithoutABlank)
{
	Join();
	fClient->Type("/long 2");
	for (int i = 0; i < 2; i++) {
		std::string text = Parsed(fClient->ReceiveMessage()).Text(101);
		EXPECT_EQ(text.size(), 65535u);
		EXPECT_EQ(text.find_first_of(" \r\n\t"), std::string::npos);
	}
}


TEST_F(CommandInterpreterTest, Flood_AllLinesInOrder)
{
	Join();
	fClient->Type("/flood 20000");
	for (int i = 1; i <= 20000; i++) {
		ASSERT_EQ(Parsed(fClient->ReceiveMessage()).Text(101),
			"Flood:  line " + std::to_string(i) + " of 20000");
	}
	EXPECT_EQ(Parsed(Answer("after")).Text(101), "Tester:  after");
}


TEST_F(CommandInterpreterTest, DropDuringAFlood_Ends)
{
	Join();
	fClient->Type("/flood 100000000");
	// The line fills up while the server is busy with somebody else.
	RawClient other(fServer->Port());
	other.Join("Other");
	for (int i = 0; i < 500; i++) {
		other.Request(303, {Field(103, Int16(1))});
		other.ReceiveMessageOfType(kReply);
	}
	fClient->Type("/drop");
	std::string message;
	do
		message = fClient->ReceiveMessage();
	while (message.size() > 20);
	EXPECT_EQ(message, "");
	EXPECT_TRUE(fClient->ReceiveEnd());
}


TEST_F(CommandInterpreterTest, Quit_AsksPolitelyAndWaits)
{
	Join();
	EXPECT_EQ(Answer("/quit Good night"), Message(111, 3, {Field(101, "Good night")}));
	EXPECT_EQ(Parsed(Answer("still here")).Text(101), "Tester:  still here");
}


TEST_F(CommandInterpreterTest, Drop_EndsTheConnection)
{
	Join();
	RawClient witness(fServer->Port());
	witness.Join("Witness");
	fClient->ReceiveMessageOfType(301);
	fClient->Type("/drop");
	EXPECT_TRUE(fClient->ReceiveEnd());
	fClient->Close();
	EXPECT_EQ(witness.ReceiveMessage(), Message(302, 3, {Field(103, Int16(4))}));
}


TEST_F(CommandInterpreterTest, Half_EndsInTheMiddleOfAMessage)
{
	Join();
	fClient->Type("/half");
	std::string bytes = fClient->Receive(1000);
	EXPECT_GT(bytes.size(), 22u);
	EXPECT_LT(bytes.size(), 20 + Parsed(bytes).Text(101).size() + 60);
	EXPECT_TRUE(fClient->ReceiveEnd());
}


TEST_F(CommandInterpreterTest, Reset_IsNoOrderlyEnd)
{
	Join();
	fClient->Type("/reset");
	char byte;
	EXPECT_EQ(recv(fClient->Socket(), &byte, 1, 0), -1);
	EXPECT_EQ(errno, ECONNRESET);
}


TEST_F(CommandInterpreterTest, FloodOption_MeetsEveryNewcomer)
{
	fOptions.flood = 3;
	Join();
	for (int i = 1; i <= 3; i++) {
		EXPECT_EQ(Parsed(fClient->ReceiveMessage()).Text(101),
			"Flood:  line " + std::to_string(i) + " of 3");
	}
}
