/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Community.h"

#include <chrono>
#include <set>

#include <gtest/gtest.h>

#include "Audience.h"
#include "Persona.h"
#include "ProtocolCodes.h"
#include "ServerOptions.h"
#include "Transaction.h"


using namespace demo;


using std::chrono::steady_clock;

// How far the clock is ahead of the true time.
static steady_clock::duration sAhead(0);

// The clock, by the names that the linker option --wrap gives to its two sides.
steady_clock::time_point true_now() __asm__("__real__ZNSt6chrono3_V212steady_clock3nowEv");
steady_clock::time_point shown_now() __asm__("__wrap__ZNSt6chrono3_V212steady_clock3nowEv");


steady_clock::time_point
shown_now()
{
	return true_now() + sAhead;
}


// Writes down what it hears.
class ListeningAudience : public Audience {
public:
	bool IsAnybodyHere() const override { return fIsAnybodyHere; }
	void SendToAll(const Transaction& notice) override { fHeard.push_back(notice); }
	bool SendTo(uint16_t, const Transaction& notice) override
	{
		fHeard.push_back(notice);
		return true;
	}
	uint16_t TakeSocket() override { return ++fLastSocket; }
	void GiveBackSocket(uint16_t) override {}

	bool fIsAnybodyHere = true;
	std::vector<Transaction> fHeard;

private:
	uint16_t fLastSocket = 0;
};


class CommunityTest : public testing::Test {
protected:
	CommunityTest() { fOptions.answerDelay = 0; }

	ListeningAudience fAudience;
	TimerQueue fTimers;
	ServerOptions fOptions;
	User fTester{99, 128, 0, "Tester"};
};


TEST_F(CommunityTest, Cast_HasDistinctNicksThatFit)
{
	std::set<std::string> nicks;
	for (size_t i = 0; i < Persona::CountCast(); i++) {
		const Persona& persona = Persona::Cast(i);
		for (const std::string nick : {persona.nick, persona.otherNick}) {
			SCOPED_TRACE(nick);
			EXPECT_TRUE(nicks.insert(nick).second);
			// Shorter ones make a record that clients ignore.
			EXPECT_GE(nick.size(), 4u);
			EXPECT_LE(nick.size(), kMaxNickSize);
		}
	}
	EXPECT_GE(Persona::CountCast(), 10u);
}


TEST_F(CommunityTest, Cast_ShowsEveryStatus)
{
	std::set<uint16_t> states;
	for (size_t i = 0; i < Persona::CountCast(); i++)
		states.insert(Persona::Cast(i).status);
	EXPECT_EQ(states, (std::set<uint16_t>{0, 1, 2, 3}));
}


TEST_F(CommunityTest, Persona_FindsTheFittingAnswer)
{
	const Persona& juniper = Persona::Cast(0);
	EXPECT_EQ(juniper.AnswerTo("Hello everybody", 0), juniper.greeting);
	EXPECT_EQ(juniper.AnswerTo("Where is the tea?", 0), juniper.onQuestion);
	EXPECT_EQ(juniper.AnswerTo("Thank you", 0), juniper.onThanks);
	EXPECT_EQ(juniper.AnswerTo("Good bye", 0), juniper.farewell);
	EXPECT_EQ(juniper.AnswerTo("This is a chair", 0), juniper.remarks[0]);
	EXPECT_EQ(juniper.AnswerTo("This is a chair", 4), juniper.remarks[1]);
}


TEST_F(CommunityTest, Talk_AnsweredInTurn)
{
	Community community(fAudience, fTimers, fOptions);
	for (int i = 0; i < 3; i++) {
		community.HearChat(fTester, "hello");
		fTimers.RunDue();
	}
	ASSERT_EQ(fAudience.fHeard.size(), 3u);
	for (size_t i = 0; i < 3; i++) {
		std::string text;
		EXPECT_TRUE(fAudience.fHeard[i].FindText(kFieldText, &text));
		EXPECT_EQ(text.rfind(Persona::Cast(i).nick, 0), 0u) << text;
	}
}


TEST_F(CommunityTest, TalkWithoutPause_AnsweredNowAndThen)
{
	Community community(fAudience, fTimers, fOptions);
	for (int i = 0; i < 10000; i++)
		community.HearChat(fTester, "blah");
	fTimers.RunDue();
	EXPECT_EQ(fAudience.fHeard.size(), 32u);
}


TEST_F(CommunityTest, GoneBeforeTheAnswer_SaysNothing)
{
	Community community(fAudience, fTimers, fOptions);
	community.HearChat(fTester, "hello Juniper");
	community.Leave("Juniper");
	fAudience.fHeard.clear();
	fTimers.RunDue();
	EXPECT_TRUE(fAudience.fHeard.empty());
}


TEST_F(CommunityTest, CalledByName_ComesBackAndAnswers)
{
	Community community(fAudience, fTimers, fOptions);
	community.Rename("Juniper");
	community.Leave("Juniper");
	fAudience.fHeard.clear();
	community.HearChat(fTester, "Where are you, Juniper?");
	fTimers.RunDue();
	ASSERT_EQ(fAudience.fHeard.size(), 2u);
	EXPECT_EQ(fAudience.fHeard[0].Type(), kNoticeUserChange);
	EXPECT_EQ(fAudience.fHeard[1].Type(), kNoticeChat);
}


TEST_F(CommunityTest, Mute_NeverAnswers)
{
	fOptions.answers = false;
	Community community(fAudience, fTimers, fOptions);
	community.HearChat(fTester, "hello");
	EXPECT_TRUE(community.HearPrivateMessage(fTester, 1, "hello"));
	EXPECT_EQ(fTimers.MillisecondsToNext(), -1);
}


TEST_F(CommunityTest, NobodyAtAll_NothingBreaks)
{
	fOptions.users = 0;
	Community community(fAudience, fTimers, fOptions);
	community.HearChat(fTester, "hello");
	EXPECT_FALSE(community.HearPrivateMessage(fTester, 1, "hello"));
	EXPECT_FALSE(community.Leave(""));
	EXPECT_FALSE(community.Rename("x"));
	EXPECT_FALSE(community.Chat(""));
	EXPECT_FALSE(community.Whisper("", 99));
	Transaction list;
	community.AddEntries(&list);
	EXPECT_EQ(list.CountFields(), 0);
}


TEST_F(CommunityTest, Still_NothingPlanned)
{
	fOptions.life = false;
	Community community(fAudience, fTimers, fOptions);
	community.WakeUp();
	EXPECT_EQ(fTimers.MillisecondsToNext(), -1);
}


TEST_F(CommunityTest, Awake_PlansOneThingAtATime)
{
	Community community(fAudience, fTimers, fOptions);
	EXPECT_EQ(fTimers.MillisecondsToNext(), -1);
	community.WakeUp();
	community.WakeUp();
	EXPECT_GT(fTimers.MillisecondsToNext(), 0);
}


TEST_F(CommunityTest, Awake_DoesALittleOfEverything)
{
	Community community(fAudience, fTimers, fOptions);
	community.WakeUp();
	std::set<uint32_t> types;
	for (int i = 0; i < 1000; i++) {
		// The longest pause is shorter.
		sAhead += std::chrono::seconds(20);
		fTimers.RunDue();
		for (const Transaction& notice : fAudience.fHeard)
			types.insert(notice.Type());
		fAudience.fHeard.clear();
	}
	// Somebody comes or changes, leaves, or talks; and now and then there is something that nobody
	// knows.
	EXPECT_EQ(types, (std::set<uint32_t>{kNoticeChat, kNoticeUserChange, kNoticeUserLeave, 777}));

	fAudience.fIsAnybodyHere = false;
	sAhead += std::chrono::seconds(20);
	fTimers.RunDue();
	EXPECT_EQ(fTimers.MillisecondsToNext(), -1);
	EXPECT_TRUE(fAudience.fHeard.empty());
	sAhead = std::chrono::seconds(0);
}


TEST_F(CommunityTest, WholeHouse_FillsUpToItsLimit)
{
	fOptions.users = ServerOptions::kMaxUsers;
	Community community(fAudience, fTimers, fOptions);
	community.SetCrowd(1000000);
	EXPECT_FALSE(community.Join("One more"));
	fAudience.fHeard.clear();
	community.SetCrowd(0);
	EXPECT_EQ(fAudience.fHeard.size(), 10000u);
	EXPECT_TRUE(community.Join("One more"));
}
