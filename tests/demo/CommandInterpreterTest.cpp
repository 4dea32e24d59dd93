/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <sys/socket.h>

#include "QuietServer.h"


class CommandInterpreterTest : public QuietServer {
protected:
	void Join() { fClient = QuietServer::Join("Tester", 137); }

	// Of somebody who has joined.
	std::string Answer(const std::string& line)
	{
		if (fClient == NULL)
			Join();
		fClient->Type(line);
		return fClient->ReceiveMessage();
	}

	// The text of an answer.
	std::string Text(const std::string& line) { return WireTransaction(Answer(line)).Field(101); }

	std::string Error(const std::string& line) { return WireTransaction(Answer(line)).Field(100); }

	std::unique_ptr<RawClient> fClient;
};


TEST_F(CommandInterpreterTest, Help_ListsThemAll)
{
	const WireTransaction help(Answer("/help"));
	EXPECT_EQ(help.type, 106u);
	EXPECT_NE(help.Field(101).find("\r/broadcast TEXT"), std::string::npos);
}


TEST_F(CommandInterpreterTest, Line_IsAnsweredByWhatItAsksFor)
{
	const std::pair<const char*, std::string> answers[] = {
		{"/BroadCast Hi", Message(355, 3, {wire_param(101, "Hi")})},
		{"/message Hello", Message(104, 4, {wire_param(103, wire16(0)), wire_param(101, "Hello")})},
		{"/error No tea", Refusal(5, "No tea")},
		{"/teapot now", Refusal(6, "There is no command /teapot. Try /help.")},
	};
	for (const auto& [line, answer] : answers) {
		SCOPED_TRACE(line);
		EXPECT_EQ(Answer(line), answer);
	}
}


TEST_F(CommandInterpreterTest, Broadcast_ReachesEverybody)
{
	Join();
	const auto other = QuietServer::Join("Other");
	fClient->ReceiveMessageOfType(301);
	EXPECT_EQ(Answer("/broadcast one\rtwo"), Message(355, 4, {wire_param(101, "one\rtwo")}));
	EXPECT_EQ(other->ReceiveMessage(), Message(355, 3, {wire_param(101, "one\rtwo")}));
}


TEST_F(CommandInterpreterTest, Resident_LeavesAndComesBack)
{
	EXPECT_EQ(Answer("/leave juniper"), Message(302, 3, {wire_param(103, wire16(1))}));
	EXPECT_EQ(Answer("/leave juniper"), Refusal(4, "Nobody here is called juniper."));
	EXPECT_EQ(Answer("/join"), UserNotice(4, 1, 163, 0, "Juniper"));
}


TEST_F(CommandInterpreterTest, NewVisitor_JoinsIsListedAndLeaves)
{
	Join();
	const WireTransaction visitor(Answer("/join Zo\xc3\xab"));
	EXPECT_EQ(visitor.type, 301u);
	EXPECT_EQ(visitor.Field(102), "Zo\xc3\xab");
	EXPECT_EQ(visitor.Number(103), 5);
	fClient->Request(300, {});
	EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).fields.size(), 5u);
	EXPECT_EQ(Answer("/leave Zo\xc3\xab"), Message(302, 4, {wire_param(103, wire16(5))}));
}


TEST_F(CommandInterpreterTest, EverybodyGone_NobodyLeftToDoIt)
{
	for (int i = 0; i < 3; i++)
		EXPECT_EQ(WireTransaction(Answer("/leave")).type, 302u);
	for (const char* line : {"/leave", "/rename", "/say", "/whisper"}) {
		SCOPED_TRACE(line);
		EXPECT_EQ(Error(line), "There is nobody left to do that.");
	}
}


TEST_F(CommandInterpreterTest, Rename_ThereAndBack)
{
	EXPECT_EQ(Answer("/rename Juniper"), UserNotice(3, 1, 163, 0, "Juniper (watering)"));
	EXPECT_EQ(Answer("/rename Juniper"), UserNotice(4, 1, 163, 0, "Juniper"));
}


TEST_F(CommandInterpreterTest, Say_ResidentTalks)
{
	const WireTransaction line(Answer("/say juniper"));
	EXPECT_EQ(line.type, 106u);
	EXPECT_EQ(line.Field(101).rfind("Juniper:  ", 0), 0u);
}


TEST_F(CommandInterpreterTest, Whisper_ResidentWritesInPrivate)
{
	const WireTransaction whisper(Answer("/whisper juniper"));
	EXPECT_EQ(whisper.type, 104u);
	EXPECT_EQ(whisper.Number(103), 1);
	EXPECT_EQ(whisper.Field(102), "Juniper");
}


TEST_F(CommandInterpreterTest, Status_ChangesOnesOwn)
{
	EXPECT_EQ(Answer("/status 3"), UserNotice(3, 4, 137, 3, "Tester"));
	EXPECT_EQ(Error("/status high"), "That needs a number from 0 to 65535.");
}


TEST_F(CommandInterpreterTest, Crowd_ComesAndGoes)
{
	Join();
	fClient->Type("/crowd 50");
	for (int i = 0; i < 50; i++)
		EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).type, 301u);
	fClient->Type("/crowd 10");
	for (int i = 0; i < 40; i++)
		EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).type, 302u);
	fClient->Request(300, {});
	EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).fields.size(), 14u);
}


TEST_F(CommandInterpreterTest, Agreement_ShownAgain)
{
	EXPECT_EQ(Answer("/agreement Be kind."), Message(109, 3, {wire_param(101, "Be kind.")}));
	EXPECT_GT(Text("/agreement").size(), 100u);
}


TEST_F(CommandInterpreterTest, Banner_AnnouncedToEverybody)
{
	Join();
	const auto other = QuietServer::Join("Other");
	fClient->ReceiveMessageOfType(301);
	EXPECT_EQ(Answer("/banner tiny"), Message(122, 4, {wire_param(152, "BMPf")}));
	EXPECT_EQ(other->ReceiveMessage(), Message(122, 3, {wire_param(152, "BMPf")}));
	EXPECT_EQ(Error("/banner ?").rfind("There are these banners: night, ", 0), 0u);
}


TEST_F(CommandInterpreterTest, UnknownMessages_ThenALine)
{
	Join();
	EXPECT_EQ(WireTransaction(Answer("/unknown")).type, 777u);
	EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).type, 102u);
	EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).type, 106u);
}


TEST_F(CommandInterpreterTest, EmptyMessages_ThenALine)
{
	Join();
	EXPECT_EQ(Answer("/empty"), Message(106, 3, {}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(111, 4, {}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(106, 5, {wire_param(101, "")}));
	EXPECT_EQ(fClient->ReceiveMessage(),
		Message(104, 6, {wire_param(103, wire16(0)), wire_param(101, "")}));
	EXPECT_EQ(fClient->ReceiveMessage(), Message(355, 7, {wire_param(101, "")}));
	EXPECT_EQ(fClient->ReceiveText(), "Five empty messages stood before this line.");
}


TEST_F(CommandInterpreterTest, OddTexts_SentAsTheyStand)
{
	Join();
	EXPECT_EQ(Text("/odd"), "Odd:  <b>bold</b> <img src=\"x\"> &amp; &lt;i&gt; &nbsp;");
	for (int i = 0; i < 6; i++)
		EXPECT_EQ(WireTransaction(fClient->ReceiveMessage()).type, 106u);
	EXPECT_EQ(fClient->ReceiveText(), std::string("Odd:  a zero byte \0 in the middle", 33));
}


TEST_F(CommandInterpreterTest, Long_FillsAFieldWithoutABlank)
{
	Join();
	fClient->Type("/long 2");
	for (int i = 0; i < 2; i++) {
		std::string text = fClient->ReceiveText();
		EXPECT_EQ(text.size(), 65535u);
		EXPECT_EQ(text.find_first_of(" \r\n\t"), std::string::npos);
	}
}


TEST_F(CommandInterpreterTest, Flood_AllLinesInOrder)
{
	Join();
	fClient->Type("/flood 20000");
	for (int i = 1; i <= 20000; i++) {
		ASSERT_EQ(fClient->ReceiveText(), "Flood:  line " + std::to_string(i) + " of 20000");
	}
	EXPECT_EQ(Text("after"), "Tester:  after");
}


TEST_F(CommandInterpreterTest, DropDuringAFlood_Ends)
{
	Join();
	fClient->Type("/flood 100000000");
	// The line fills up while the server is busy with somebody else.
	const auto other = QuietServer::Join("Other");
	for (int i = 0; i < 500; i++) {
		other->Request(303, {wire_param(103, wire16(1))});
		other->ReceiveMessageOfType(kReply);
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
	EXPECT_EQ(Answer("/quit Good night"), Message(111, 3, {wire_param(101, "Good night")}));
	EXPECT_EQ(Text("still here"), "Tester:  still here");
}


TEST_F(CommandInterpreterTest, Drop_EndsTheConnection)
{
	Join();
	const auto witness = QuietServer::Join("Witness");
	fClient->ReceiveMessageOfType(301);
	fClient->Type("/drop");
	EXPECT_TRUE(fClient->ReceiveEnd());
	fClient->Close();
	EXPECT_EQ(witness->ReceiveMessage(), Message(302, 3, {wire_param(103, wire16(4))}));
}


TEST_F(CommandInterpreterTest, Half_EndsInTheMiddleOfAMessage)
{
	Join();
	fClient->Type("/half");
	std::string bytes = fClient->Receive(1000);
	EXPECT_GT(bytes.size(), 22u);
	EXPECT_LT(bytes.size(), 20 + WireTransaction(bytes).Field(101).size() + 60);
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
		EXPECT_EQ(fClient->ReceiveText(), "Flood:  line " + std::to_string(i) + " of 3");
	}
}
