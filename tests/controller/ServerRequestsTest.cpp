/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerRequests.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "HostileTexts.h"
#include "HotlineClient.h"
#include "PartTest.h"
#include "RawServer.h"
#include "Settings.h"
#include "TemporaryFolder.h"
#include "WireBytes.h"


class ServerRequestsTest : public PartTest {
protected:
	ServerRequestsTest()
		: fRequests(fClient, &fChat)
	{
	}

	void _LogIn()
	{
		fClient.reset(new HotlineClient(fTarget.get()));
		fClient->Connect("127.0.0.1", fServer.Port(), "", "", "nick", 1);
		fServer.AcceptAndLogIn("Harbor");
		fServer.ReadRequest(300);
	}

	// What has all that a request could want, or all but one field.
	static BMessage _Message(const std::string& missing = "")
	{
		BMessage message;
		for (const char* field : {"text", "path", "name", "localpath"}) {
			if (missing != field)
				message.AddString(field, field);
		}
		if (missing != "socket")
			message.AddUInt16("socket", 5);
		return message;
	}

	RawServer fServer;
	std::unique_ptr<HotlineClient> fClient;
	ServerRequests fRequests;
};


TEST_F(ServerRequestsTest, WithoutAConnection_NothingIsAskedOrSaid)
{
	const auto askAll = [this] {
		const BMessage message = _Message();
		EXPECT_FALSE(fRequests.IsConnected());
		fRequests.ListUsers();
		fRequests.ListFolder("ab");
		fRequests.SendChat(&message);
		fRequests.SendPrivateMessage(&message);
		fRequests.Download(&message);
		fRequests.Upload(&message);
		fRequests.Agree(Settings());
		fRequests.ChangeUser(Settings());
		EXPECT_EQ("", Said());
	};
	askAll();
	fClient.reset(new HotlineClient(fTarget.get()));
	askAll();
	fClient->Connect("127.0.0.1", fServer.Port(), "", "", "nick", 1);
	fServer.Accept();
	askAll();
	// A request would have taken the first number.
	fServer.ShakeHands();
	EXPECT_EQ(1u, fServer.ReadRequest(107).id);
}


TEST_F(ServerRequestsTest, EveryRequest_ReachesTheServer)
{
	const std::string folder = wire16(1) + wire16(0) + wire8(4) + "path";
	const BMessage message = _Message();
	_LogIn();
	EXPECT_TRUE(fRequests.IsConnected());
	fRequests.ListUsers();
	fServer.ReadRequest(300);
	fRequests.ListFolder(NULL);
	EXPECT_FALSE(fServer.ReadRequest(200).HasField(202));
	fRequests.ListFolder("path");
	EXPECT_EQ(folder, fServer.ReadRequest(200).Field(202));

	fRequests.SendPrivateMessage(&message);
	const WireTransaction told = fServer.ReadRequest(108);
	EXPECT_EQ(wire16(5), told.Field(103));
	EXPECT_EQ("text", told.Field(101));
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		BMessage chat;
		chat.AddString("text", text.c_str());
		fRequests.SendChat(&chat);
		EXPECT_EQ(text, fServer.ReadRequest(105).Field(101));
	}

	fRequests.Agree(Settings());
	fRequests.ChangeUser(Settings());
	for (const uint32_t type : {121, 304}) {
		const WireTransaction user = fServer.ReadRequest(type);
		EXPECT_EQ("HaikuUser", user.Field(102));
		EXPECT_EQ(wire16(137), user.Field(104));
	}
	EXPECT_EQ("", Said());

	fRequests.Download(&message);
	EXPECT_EQ("646464 *** Requesting download: name ***\n", Said());
	fRequests.Upload(&message);
	EXPECT_EQ("646464 *** Requesting upload: name ***\n", Said());
	for (const uint32_t type : {202, 203}) {
		const WireTransaction file = fServer.ReadRequest(type);
		EXPECT_EQ("name", file.Field(201));
		EXPECT_EQ(folder, file.Field(202));
	}
}


TEST_F(ServerRequestsTest, NobodyOrNothing_IsNotAsked)
{
	using Request = void (ServerRequests::*)(const BMessage*);
	const std::pair<Request, const char*> cases[] = {
		{&ServerRequests::SendChat, "text"},
		{&ServerRequests::SendPrivateMessage, "text"},
		{&ServerRequests::SendPrivateMessage, "socket"},
		{&ServerRequests::Download, "name"},
		{&ServerRequests::Upload, "name"},
		{&ServerRequests::Upload, "localpath"},
	};
	_LogIn();
	for (const auto& [request, missing] : cases) {
		SCOPED_TRACE(missing);
		const BMessage message = _Message(missing);
		(fRequests.*request)(&message);
		EXPECT_EQ("", Said());
	}
	// What had been sent would be in front.
	fRequests.ListUsers();
	fServer.ReadRequest(300);
}


// Its own name, but the size of the file: its bytes, its description and the name.
TEST_F(ServerRequestsTest, Upload_AnnouncesTheLow32BitsOfWhatItsLinkLeadsTo)
{
	const TemporaryFolder folder;
	folder.AddFile("a file with a long name", std::string(5000, 'x'));
	folder.AddLink("link", "a file with a long name");
	BMessage upload;
	upload.AddString("name", "link");
	upload.AddString("localpath", folder.PathOf("link").c_str());
	upload.AddInt64("size", 5000);
	_LogIn();
	fRequests.Upload(&upload);
	const WireTransaction sent = fServer.ReadRequest(203);
	EXPECT_EQ("link", sent.Field(201));
	EXPECT_EQ(wire32(5000 + 74 + 56 + 4), sent.Field(108));

	// The upper half of a size is lost.
	std::vector<std::string> announced;
	for (const int64 size : std::initializer_list<int64>{1, 4294967297, 2}) {
		BMessage missing = _Message();
		missing.AddInt64("size", size);
		fRequests.Upload(&missing);
		announced.push_back(fServer.ReadRequest(203).Field(108));
	}
	EXPECT_EQ(announced[0], announced[1]);
	EXPECT_NE(announced[0], announced[2]);
}
