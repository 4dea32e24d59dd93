/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "TrackerWindow.h"

#include <ListView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "RawServer.h"
#include "ServerItem.h"
#include "WindowTest.h"
#include "WireRecords.h"


// The request of a client in bytes.
static const size_t kRequestSize = 6;


class TrackerWindowTest : public WindowTest {
protected:
	TrackerWindowTest()
		: fAddress("127.0.0.1:" + std::to_string(fTracker.Port()))
	{
		Open(new TrackerWindow(BRect(150, 100, 650, 450), fTarget.get(), fAddress.c_str()));
		fList = fWindow->Find<BListView>("serverlist");
		EXPECT_TRUE(fTracker.Accept());
		EXPECT_EQ(kRequestSize, fTracker.Read(kRequestSize).size());
	}

	// A fetch that still waits for the tracker would hold up the end of its window.
	void TearDown() override { fTracker.Hangup(); }

	void _Answer(uint16_t count, const std::string& records)
	{
		fTracker.Send(
			wire_tracker_header(static_cast<uint16_t>(records.size() + 4), count) + records);
		fTracker.Hangup();
	}

	void _AwaitStatus(const std::string& status)
	{
		EXPECT_SOON(fWindow->Label("status") == status) << fWindow->Label("status");
	}

	// As the fetch posts it.
	void _AddServer(const std::string& name)
	{
		fWindow->Post(built_message(kMsgTrackerServer, "name", name, "ip", "10.20.30.40", "port",
			static_cast<int16>(65000)));
	}

	std::string _Name(int32 row) { return static_cast<BStringItem*>(fList->ItemAt(row))->Text(); }

	RawServer fTracker;
	std::string fAddress;
	BListView* fList = NULL;
};


TEST_F(TrackerWindowTest, AtFirst_IsLoadingFromTheTracker)
{
	EXPECT_EQ("Tracker — " + fAddress, fWindow->Window()->Title());
	EXPECT_EQ("Loading…", fWindow->Label("status"));
	EXPECT_EQ(0, fList->CountItems());
}


TEST_F(TrackerWindowTest, Servers_AreListedInTheirOrder)
{
	_Answer(3,
		wire_server_record("c", "1") + wire_server_record("a", "2") + wire_server_record("b", "3"));
	_AwaitStatus("3 servers");
	ASSERT_EQ(3, fList->CountItems());
	EXPECT_EQ("c", _Name(0));
	EXPECT_EQ("a", _Name(1));
	EXPECT_EQ("b", _Name(2));
}


TEST_F(TrackerWindowTest, WhileLoading_OneServerIsCountedLikeMany)
{
	_AddServer("first");
	EXPECT_EQ("1 servers", fWindow->Label("status"));
}


TEST_F(TrackerWindowTest, ForeignAnswer_IsAnError)
{
	fTracker.Send("HTTP/1.0 400 Bad");
	fTracker.Hangup();
	_AwaitStatus("Error: Invalid tracker response");
}


TEST_F(TrackerWindowTest, ErrorWithoutText_IsUnknown)
{
	fWindow->Post(kMsgTrackerError);
	EXPECT_EQ("Error: Unknown error", fWindow->Label("status"));
	// Let the fetch end, which the window believes to be over.
	_Answer(0, "");
	_AwaitStatus("No servers found");
}


TEST_F(TrackerWindowTest, Refresh_FetchesAgain)
{
	_Answer(1, wire_server_record("before", ""));
	_AwaitStatus("1 server");
	fWindow->Invoke("refresh");
	EXPECT_EQ(0, fList->CountItems());
	EXPECT_EQ("Loading…", fWindow->Label("status"));

	ASSERT_TRUE(fTracker.Accept());
	_Answer(2, wire_server_record("after", "") + wire_server_record("more", ""));
	_AwaitStatus("2 servers");
	EXPECT_EQ("after", _Name(0));
}


TEST_F(TrackerWindowTest, RefreshAfterAnError_FetchesAgain)
{
	fTracker.Hangup();
	_AwaitStatus("Error: Failed to read tracker response");
	fWindow->Invoke("refresh");
	ASSERT_TRUE(fTracker.Accept());
	_Answer(0, "");
	_AwaitStatus("No servers found");
}


TEST_F(TrackerWindowTest, RefreshWhileLoading_StartsNoSecondFetch)
{
	_AddServer("early");
	fWindow->Invoke("refresh");
	EXPECT_EQ(0, fList->CountItems());
	EXPECT_EQ("Loading…", fWindow->Label("status"));
	_Answer(1, wire_server_record("late", ""));
	_AwaitStatus("1 server");
	EXPECT_EQ("late", _Name(0));
	EXPECT_FALSE(fTracker.HasCaller());
}


TEST_F(TrackerWindowTest, InvokingAServer_AsksToConnect)
{
	_AddServer("one");
	InvokeRow("serverlist", 0);
	fTarget->ExpectOnly(built_message(kMsgConnectServer, "address", "10.20.30.40", "port",
		static_cast<int16>(65000), "login", "", "password", ""));
}


TEST_F(TrackerWindowTest, ServerWithoutFields_HasDefaults)
{
	fWindow->Post(kMsgTrackerServer);
	ASSERT_EQ(1, fList->CountItems());
	const ServerItem* server = static_cast<ServerItem*>(fList->ItemAt(0));
	EXPECT_EQ("", _Name(0));
	EXPECT_STREQ("", server->Address());
	EXPECT_EQ(5500, server->Port());
}


TEST_F(TrackerWindowTest, InvokingNothing_PostsNothing)
{
	fWindow->Post(kMsgTrackerInvoke);
	_AddServer("one");
	fWindow->Post(kMsgTrackerInvoke);
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(TrackerWindowTest, HostileName_IsKeptAsItStands)
{
	int32 row = 0;
	for (const std::string& name : hostile_texts()) {
		_AddServer(name);
		EXPECT_EQ(name, _Name(row++));
	}
}


// The tracker keeps the line open and has said only half of its list.
TEST_F(TrackerWindowTest, ClosedWhileLoading_EndsWithTheFetch)
{
	fTracker.Send(wire_tracker_header(200, 2) + wire_server_record("half", ""));
	fWindow->Window()->PostMessage(B_QUIT_REQUESTED);
	EXPECT_TRUE(WaitFor([&] {
		fTracker.Hangup();
		return !fWindow->IsAlive();
	}));
	EXPECT_EQ(0, fTarget->CountMessages());
}
