/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "QuietServer.h"


using demo::TrackerMode;


class TrackerTest : public QuietServer {
protected:
	// Everything that the tracker says until it ends.
	std::string Answer(TrackerMode mode)
	{
		fOptions.tracker = mode;
		Start();
		RawClient client(fServer->TrackerPort());
		client.Send(std::string("HTRK\x00\x01", 6));
		return client.Receive(70000);
	}
};


static uint32_t
number_at(const std::string& bytes, size_t offset)
{
	return wire_number_at(bytes, offset, 2);
}


// How many whole records stand behind the header.
static size_t
count_records(const std::string& answer)
{
	size_t count = 0;
	size_t offset = 14;
	while (offset + 11 <= answer.size()) {
		offset += 11 + static_cast<unsigned char>(answer[offset + 10]);
		if (offset >= answer.size())
			break;
		offset += 1 + static_cast<unsigned char>(answer[offset]);
		if (offset > answer.size())
			break;
		count++;
	}
	return count;
}


TEST_F(TrackerTest, One_ByteForByte)
{
	std::string description = "A small community that answers when it is talked to";
	std::string record = wire32(0x7f000001);
	std::string answer = Answer(TrackerMode::kOne);
	record += wire16(fServer->Port()) + wire16(3) + wire16(0) + "\x0d" + "Lantern Caf\xc3\xa9"
		+ static_cast<char>(description.size()) + description;
	auto size = static_cast<uint16_t>(record.size() + 4);
	EXPECT_EQ(answer,
		"HTRK" + wire16(1) + wire16(1) + wire16(size) + wire16(1) + wire16(1) + record);
}


TEST_F(TrackerTest, Usual_ListsSeveralServers)
{
	std::string answer = Answer(TrackerMode::kUsual);
	EXPECT_EQ(number_at(answer, 8) + 10u, answer.size());
	EXPECT_EQ(number_at(answer, 10), count_records(answer));
	EXPECT_GE(count_records(answer), 5u);
}


TEST_F(TrackerTest, Users_AreCounted)
{
	fOptions.tracker = TrackerMode::kOne;
	const auto person = Join("Tester");
	RawClient client(fServer->TrackerPort());
	client.Send(std::string("HTRK\x00\x01", 6));
	EXPECT_EQ(number_at(client.Receive(70000), 20), 4);
}


TEST_F(TrackerTest, Empty_OnlyAHeader)
{
	EXPECT_EQ(Answer(TrackerMode::kEmpty),
		"HTRK" + wire16(1) + wire16(1) + wire16(4) + wire16(0) + wire16(0));
}


TEST_F(TrackerTest, Many_FitIntoOneAnswer)
{
	std::string answer = Answer(TrackerMode::kMany);
	EXPECT_EQ(number_at(answer, 8) + 10u, answer.size());
	EXPECT_EQ(number_at(answer, 10), 2000);
	EXPECT_EQ(count_records(answer), 2000u);
}


TEST_F(TrackerTest, Truncated_EndsBeforeItsTime)
{
	std::string answer = Answer(TrackerMode::kTruncated);
	EXPECT_LT(answer.size(), number_at(answer, 8) + 10u);
	EXPECT_LT(count_records(answer), number_at(answer, 10));
	EXPECT_GT(count_records(answer), 0u);
}


TEST_F(TrackerTest, WrongMagic_Sent)
{
	EXPECT_EQ(Answer(TrackerMode::kWrongMagic).substr(0, 4), "HTTP");
}


TEST_F(TrackerTest, Silent_SaysNothing)
{
	fOptions.tracker = TrackerMode::kSilent;
	RawClient person(Start());
	RawClient client(fServer->TrackerPort());
	client.Send(std::string("HTRK\x00\x01", 6));
	EXPECT_NE(person.Join("Tester"), 0);
	fServer->Stop();
	EXPECT_EQ(client.Receive(1), "");
}


TEST_F(TrackerTest, WrongQuestion_TurnedAway)
{
	Start();
	for (const char* question : {"X", "HTRX", "GET / HTTP/1.0\r\n\r\n"}) {
		RawClient client(fServer->TrackerPort());
		client.Send(question);
		EXPECT_TRUE(client.ReceiveEnd());
	}
}


TEST_F(TrackerTest, QuestionByteByByte_Answered)
{
	fOptions.tracker = TrackerMode::kEmpty;
	Start();
	RawClient client(fServer->TrackerPort());
	client.SendOneByOne(std::string("HTRK\x00\x01", 6));
	EXPECT_EQ(client.Receive(14).size(), 14u);
	EXPECT_TRUE(client.ReceiveEnd());
}
