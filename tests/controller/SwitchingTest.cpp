/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <initializer_list>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include <Message.h>

#include "AgreementWindow.h"
#include "AppMessages.h"
#include "BannerView.h"
#include "ControllerFixture.h"
#include "DrawnRow.h"
#include "HotlineNotifications.h"
#include "InterposedCalls.h"
#include "MessageWindow.h"
#include "ProcessCounts.h"
#include "RawServer.h"
#include "TrackerWindow.h"
#include "WaitFor.h"
#include "WireBytes.h"
#include "WireRecords.h"


// The bytes with which a transfer begins.
static const size_t kTransferRequestSize = 16;
// What is done about replies.
static const uint32 kReply = 0x10000;


/*!	As long as there is one, who waits does not serve the application: what is posted meanwhile
	stays in the queues.
*/
class Unserved {
public:
	Unserved()
		: fServe(PassTimeWith(std::this_thread::yield))
	{
	}

	Unserved(const Unserved&) = delete;
	~Unserved() { PassTimeWith(fServe); }

	Unserved& operator=(const Unserved&) = delete;

private:
	const TimePasser fServe;
};


/*!	One connection after the other: what the former one still says is not taken for the present
	one's. The former server's steps do not serve the application, so that what it says waits in the
	controller's queue.
*/
class SwitchingTest : public ControllerFixture {
protected:
	// Nothing that the clients or their transfers have begun is left to the next case.
	~SwitchingTest() override
	{
		if (fMain.IsAlive())
			Post(kMsgToolDisconnect);
		fCalls.ReleaseLookups();
		fCalls.ReleaseSnoozes();
		AwaitThreads();
	}

	static void AwaitThreads() { EXPECT_SOON(count_threads_named("HL:") == 0); }

	void PostUnserved(BMessage message) { fMain.Window()->PostMessage(&message); }

	void LetFormerShakeHands()
	{
		const Unserved unserved;
		ASSERT_TRUE(fFormer.Accept());
		fFormer.ShakeHands();
		EXPECT_EQ(1u, fFormer.ReadRequest(107).id);
	}

	// Reads the request for the users that follows.
	void LetFormerAcceptLogin()
	{
		const Unserved unserved;
		fFormer.Reply(1, {{160, wire16(190)}, {162, "Harbor"}});
		fFormer.ReadRequest(300);
	}

	void LogInToFormer()
	{
		Dial(fFormer.Port());
		LetFormerShakeHands();
		LetFormerAcceptLogin();
		AwaitLogIn("Harbor");
		fFormer.ReadRequest(300);
	}

	static std::string User(uint16_t socket, const std::string& nick)
	{
		return wire_param(300, wire_user(socket, 128, 0, nick));
	}

	// Has the former server say everything that could show, and returns when all of it has been
	// posted.
	void LetFormerSpeak()
	{
		const Unserved unserved;
		fFormer.Send(wire_transaction(kReply, 3, User(1, "listed") + User(2, "listed too"))
			+ wire_transaction(301, 0, wire_param(103, wire16(5)) + wire_param(102, "joined"))
			+ wire_transaction(106, 0, wire_param(101, "chat"))
			+ wire_transaction(355, 0, wire_param(101, "broadcast"))
			+ wire_transaction(104, 0, wire_param(101, "told") + wire_param(103, wire16(5)))
			+ wire_transaction(104, 0, wire_param(101, "from the server"))
			+ wire_transaction(109, 0, wire_param(101, "Be kind."))
			+ wire_transaction(kReply, 2, wire_param(100, "a failure"), 1)
			+ wire_transaction(111, 0, wire_param(101, "leave"))
			// This one is answered at once, after all that stood before.
			+ wire_transaction(109, 0, wire_param(154, wire8(1))));
		fFormer.ReadRequest(121);
	}

	void ExpectNothingOfFormer()
	{
		Settle();
		ExpectNoChat();
		EXPECT_EQ(0, CountUsers());
		EXPECT_EQ("Palimbra", Title());
		EXPECT_EQ(0, count_windows<AgreementWindow>());
		EXPECT_EQ(0, count_windows<MessageWindow>());
	}

	void ExpectNotConnected() const
	{
		EXPECT_EQ("Not connected", Status());
		EXPECT_EQ("c----", Buttons());
		EXPECT_FALSE(MayChat());
	}

	void ExpectConnectedToHarbor()
	{
		Settle();
		ExpectNoChat();
		EXPECT_EQ("Connected to Harbor", Status());
		EXPECT_EQ("Palimbra — Harbor", Title());
		EXPECT_EQ("-dcuf", Buttons());
		EXPECT_TRUE(MayChat());
	}

	// Opens the agreement of the former server.
	void ShowAgreement()
	{
		fFormer.Send(109, {{101, "Be kind."}});
		EXPECT_SOON(count_windows<AgreementWindow>() == 1);
	}

	static void Answer(const char* button)
	{
		WindowProbe agreement(find_window<AgreementWindow>());
		agreement.Invoke(button);
		agreement.WaitForEnd();
	}

	// Has a banner asked for on the current connection, up to where its bytes are waited for.
	void BeginBanner(size_t size)
	{
		BMessage grant = granted_transfer(kHLBannerReady, 7, static_cast<uint32>(size),
			fTransfers.Port());
		Post(&grant);
		ASSERT_TRUE(fTransfers.Accept());
		EXPECT_EQ(kTransferRequestSize, fTransfers.Read(kTransferRequestSize).size());
	}

	// Returns when the thread that fetched it has posted it and ended.
	void FinishBanner(const std::string& bytes)
	{
		fTransfers.Send(bytes);
		fTransfers.Hangup();
		EXPECT_SOON(count_threads_named("HL:BannerDL") == 0);
		Settle();
	}

	BSize BannerSize() { return fMain.Find<BannerView>("banner")->MinSize(); }

	InterposedCalls fCalls;
	RawServer fFormer;
	RawServer fTransfers;
};


TEST_F(SwitchingTest, DisconnectAheadOfWhatTheServerSaid_LeavesNothingOfIt)
{
	LogInToFormer();
	PostUnserved(BMessage(kMsgToolDisconnect));
	LetFormerSpeak();
	AwaitChat("\n*** Disconnected ***\n", 180, 0, 0);
	ExpectNothingOfFormer();
	ExpectNotConnected();
}


TEST_F(SwitchingTest, AnotherServerDialedAheadOfWhatTheFormerSaid_ShowsNothingOfIt)
{
	LogInToFormer();
	PostUnserved(ConnectMessage("127.0.0.1", fServer.Port()));
	LetFormerSpeak();
	AwaitDialing(fServer.Port());
	ExpectNothingOfFormer();
	EXPECT_EQ("Connecting to 127.0.0.1:" + std::to_string(fServer.Port()) + "…", Status());

	fServer.AcceptAndLogIn("Island");
	AwaitLogIn("Island");
	EXPECT_EQ("Palimbra — Island", Title());
}


// The login of the former one comes through when the other one has been dialed.
TEST_F(SwitchingTest, AnotherServerDialedAheadOfTheLogin_KeepsTheFormerNameOut)
{
	Dial(fFormer.Port());
	LetFormerShakeHands();
	AwaitChat("*** Connected — logging in ***\n", 0, 128, 0);
	PostUnserved(ConnectMessage("127.0.0.1", fServer.Port()));
	LetFormerAcceptLogin();
	LetFormerSpeak();
	AwaitDialing(fServer.Port());
	ExpectNothingOfFormer();
	EXPECT_EQ("c----", Buttons());
}


TEST_F(SwitchingTest, Kick_IsNoLostConnection)
{
	LogInToFormer();
	fFormer.Send(111, {{101, "Good night"}});
	fFormer.Hangup();
	{
		const Unserved unserved;
		EXPECT_SOON(count_threads_named("HL:Receive") == 0);
	}
	AwaitChat("\n*** Server requested disconnect ***\n", 200, 0, 0);
	ExpectNothingOfFormer();
	EXPECT_EQ("Not connected", Status());
}


TEST_F(SwitchingTest, DisconnectedWhileResolving_StaysSo)
{
	fCalls.HoldSnoozes();
	fCalls.HoldLookups();
	Dial(fFormer.Port());
	Post(kMsgToolDisconnect);
	AwaitChat("\n*** Disconnected ***\n", 180, 0, 0);

	// The client that was let go of carries on until it is deleted.
	fCalls.ReleaseLookups();
	LetFormerShakeHands();
	LetFormerAcceptLogin();
	ExpectNothingOfFormer();
	ExpectNotConnected();
}


TEST_F(SwitchingTest, FormerAttemptThatFails_LeavesThePresentConnection)
{
	fCalls.HoldSnoozes();
	fCalls.HoldLookups("127.0.0.2");
	Dial(fFormer.Port(), "127.0.0.2");
	LogIn();
	fCalls.ReleaseLookups();
	{
		const Unserved unserved;
		EXPECT_SOON(count_threads_named("HL:Connect") == 0);
	}
	ExpectConnectedToHarbor();
}


TEST_F(SwitchingTest, DisconnectedWithinALongList_LeavesNobody)
{
	const int kUsers = 40000;
	LogInToFormer();
	std::string users;
	for (int i = 1; i <= kUsers; i++)
		users += User(static_cast<uint16_t>(i), "user");
	PostUnserved(BMessage(kMsgToolDisconnect));
	{
		const Unserved unserved;
		fFormer.Send(wire_transaction(kReply, 3, users));
	}
	AwaitChat("\n*** Disconnected ***\n", 180, 0, 0);
	AwaitThreads();
	ExpectNothingOfFormer();
}


// Accepting is not sent to it, and declining does not end it.
TEST_F(SwitchingTest, FormerAgreementAnswered_LeavesThePresentConnection)
{
	for (const char* button : {"accept", "decline"}) {
		SCOPED_TRACE(button);
		LogInToFormer();
		ShowAgreement();
		LogIn();
		Answer(button);
		ExpectConnectedToHarbor();
		ExpectNothingSent();
	}
}


TEST_F(SwitchingTest, Banner_IsShownToItsOwnConnectionAlone)
{
	const std::string picture = picture_file(20, 10);
	LogInToFormer();
	BeginBanner(picture.size());
	FinishBanner(picture);
	EXPECT_SOON(BannerSize() == BSize(20, 10));

	BeginBanner(picture.size());
	LogIn();
	FinishBanner(picture);
	EXPECT_EQ(BSize(0, 0), BannerSize());

	BeginBanner(picture.size());
	fServer.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	FinishBanner(picture);
	EXPECT_EQ(BSize(0, 0), BannerSize());
}


TEST_F(SwitchingTest, BannerThatIsBeingDecoded_KeepsNoWindowWaiting)
{
	const std::string picture = picture_file(20, 10);
	LogInToFormer();
	for (const bool isShown : {true, false}) {
		SCOPED_TRACE(isShown);
		fCalls.HoldThreads("HL:BannerPicture");
		const size_t before = fCalls.CountThreads("HL:BannerPicture");
		BeginBanner(picture.size());
		FinishBanner(picture);
		EXPECT_EQ(before + 1, fCalls.CountThreads("HL:BannerPicture"));
		fFormer.Send(106, {{101, "Ann: here"}});
		AwaitChat("Ann: here\n", 0, 0, 0);
		if (!isShown)
			LogIn();
		fCalls.ReleaseThreads();
		if (isShown) {
			EXPECT_SOON(BannerSize() == BSize(20, 10));
		}
	}
	EXPECT_SOON(count_threads_named("HL:BannerPictur") == 0);
	Settle();
	EXPECT_EQ(BSize(0, 0), BannerSize());
}


// Transfers are the user's, and not the connection's.
TEST_F(SwitchingTest, UploadOfTheFormerConnection_GoesOnAndReports)
{
	LogInToFormer();
	fCalls.HoldLookups("127.0.0.2");
	BMessage ready(kHLUploadReady);
	ready.AddUInt32("ref", 7);
	ready.AddString("filename", "name");
	ready.AddString("localpath", "/dev/null");
	ready.AddString("address", "127.0.0.2");
	ready.AddUInt16("port", static_cast<uint16>(fTransfers.Port() - 1));
	Post(&ready);
	AwaitChat("*** Uploading name ***\n", 0, 100, 0);
	LogIn();
	fCalls.ReleaseLookups();
	AwaitChat("*** Upload failed: name ***\n", 200, 0, 0);
	ExpectConnectedToHarbor();
}


// A user's number, a folder and a line of chat mean something else there, or nothing.
TEST_F(SwitchingTest, WhatWasMeantForAnotherServer_IsNotSentToThisOne)
{
	LogIn();
	for (const uint32 what : std::initializer_list<uint32>{kMsgSendChat, kMsgPMSend, kMsgOpenPM,
			 kMsgOpenFolder, kMsgDownloadFile, kMsgUploadFile}) {
		BMessage late(what);
		late.AddString("text", "late");
		late.AddString("nick", "late");
		late.AddString("path", "late");
		late.AddString("name", "late");
		late.AddString("localpath", "/dev/null");
		late.AddUInt16("socket", 5);
		late.AddUInt32("connection", 0xffffffff);
		Post(&late);
	}
	ExpectConnectedToHarbor();
	EXPECT_EQ(0, count_windows<MessageWindow>());
	ExpectNothingSent();
}


TEST_F(SwitchingTest, TrackerWithoutAThread_SaysSo)
{
	fCalls.FailNextSpawn(B_NO_MORE_THREADS);
	Post(kMsgToolTracker);
	WindowProbe tracker(find_window<TrackerWindow>());
	EXPECT_EQ("Error: Could not create tracker thread", tracker.Label("status"));

	// Asking again is possible.
	fCalls.HoldLookups();
	tracker.Invoke("refresh");
	EXPECT_EQ("Loading…", tracker.Label("status"));
	EXPECT_SOON(fCalls.Lookups().size() == 1);
}


// The resolver answers when both are long gone, if it ever does.
TEST_F(SwitchingTest, TrackerClosedWhileResolving_DoesNotWait)
{
	fCalls.HoldLookups();
	Post(kMsgToolTracker);
	WindowProbe tracker(find_window<TrackerWindow>());
	EXPECT_SOON(fCalls.Lookups().size() == 1);
	tracker.Window()->PostMessage(B_QUIT_REQUESTED);
	tracker.WaitForEnd();
}


TEST_F(SwitchingTest, ProgramQuitWhileResolving_DoesNotWait)
{
	fCalls.HoldLookups();
	BMessage connect = ConnectMessage("slow.example", 5500);
	Post(&connect);
	EXPECT_SOON(fCalls.Lookups().size() == 1);
	close_silently(fMain.Window());
	EXPECT_FALSE(fMain.IsAlive());
}
