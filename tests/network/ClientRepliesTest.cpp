/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ClientFixture.h"
#include "Interposed.h"
#include "WireRecords.h"


/*!	After the login the client has sent the ids 1 and 2, and the reply to the latter is still to
	come.
*/
class ClientRepliesTest : public ClientTest {
protected:
	ClientRepliesTest() { LogIn(); }

	void Reply(uint32 id, const std::string& params, uint32 error = 0)
	{
		server->Send(wire_transaction(0x10000, id, params, error));
	}

	std::string Port() const { return std::to_string(server->Port()); }
};


typedef ClientTest ClientLoginReplyTest;


// #pragma mark - Login


TEST_F(ClientLoginReplyTest, Success_AsksForTheUsersBeforeTheTargetHears)
{
	ShakeHands();
	Interposed::send = [this](int socket, const void* data, size_t size, int flags) {
		log->PostMessage('mark');
		return Interposed::RealSend(socket, data, size, flags);
	};
	server->Send(wire_transaction(0x10000, 1,
		wire_param(160, wire16(190)) + wire_param(162, "A <b>%s & \xFF")));
	ExpectSent(wire_transaction(300, 2, ""));
	ExpectPosted("mark");
	ExpectPosted("HLsi serverName=CSTR A <b>%s & \xFF version=USHT 190");
	ExpectPosted("HLli");
	EXPECT_STREQ(client->ServerName(), "A <b>%s & \xFF");
	EXPECT_EQ(client->ServerVersion(), 190);
}


TEST_F(ClientLoginReplyTest, AbsentFields_LeaveNothingBehind)
{
	ShakeHands();
	server->Send(wire_transaction(0x10000, 1, wire_param(999, "x")));
	ExpectPosted("HLsi serverName=CSTR  version=USHT 0");
	ExpectPosted("HLli");
}


TEST_F(ClientLoginReplyTest, AnyError_IsARefusal)
{
	for (const uint32 error : {1u, 2u, 0xFFFFFFFFu}) {
		SCOPED_TRACE(error);
		ShakeHands();
		server->Send(wire_transaction(0x10000, 1,
			wire_param(100, "No such user,\rgo away") + wire_param(160, wire16(190)), error));
		ExpectPosted("HLte error=CSTR No such user,\rgo away");
		ExpectNothingPosted();
		// The connection stands until somebody ends it.
		EXPECT_TRUE(client->IsConnected());
		server->Hangup();
		ExpectPosted("HLdc");
	}
}


TEST_F(ClientLoginReplyTest, EchoedType_IsNoReply)
{
	ShakeHands();
	server->Send(wire_transaction(0x0001006B, 1, wire_param(162, "Harbour")));
	ExpectNothingPosted();
	server->Send(wire_transaction(0x10000, 1, wire_param(162, "Harbour")));
	ExpectPosted("HLsi serverName=CSTR Harbour version=USHT 0");
	ExpectPosted("HLli");
}


TEST_F(ClientLoginReplyTest, SecondReply_IsUnknown)
{
	LogIn();
	server->Send(wire_transaction(0x10000, 1, wire_param(162, "Other")));
	ExpectNothingPosted();
	EXPECT_STREQ(client->ServerName(), "Harbour");
}


TEST_F(ClientLoginReplyTest, IdZeroAfterTheLogin_IsTakenForOneAgain)
{
	LogIn();
	server->Send(wire_transaction(0x10000, 0, wire_param(162, "Other")));
	ExpectSent(wire_transaction(300, 3, ""));
	ExpectPosted("HLsi serverName=CSTR Other version=USHT 190");
	ExpectPosted("HLli");
}


// #pragma mark - Errors


TEST_F(ClientRepliesTest, Error1_IsPostedAndTheRequestForgotten)
{
	client->RequestFileList("a");
	Reply(3,
		wire_param(100, "Not allowed\r<b>%s")
			+ wire_param(200, wire_file("TEXT", "ttxt", 1, "name")),
		1);
	ExpectPosted("HLte error=CSTR Not allowed\r<b>%s");
	Reply(3, wire_param(200, wire_file("TEXT", "ttxt", 1, "name")));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, Error1ForAnUnknownId_IsPostedToo)
{
	Reply(99, wire_param(100, "Who?"), 1);
	ExpectPosted("HLte error=CSTR Who?");
}


TEST_F(ClientRepliesTest, OtherErrors_AreTakenForSuccess)
{
	client->RequestFileList("a");
	Reply(3, wire_param(200, wire_file("TEXT", "ttxt", 1, "name")), 5);
	ExpectPosted("HLfl path=CSTR a name=CSTR name type=CSTR TEXT creator=CSTR ttxt size=LONG 1");
}


TEST_F(ClientRepliesTest, UnknownId_IsIgnored)
{
	Reply(99, wire_param(300, wire_user(7, 137, 2, "Bert")));
	Reply(0xFFFFFFFF, wire_param(300, wire_user(7, 137, 2, "Bert")));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, ReplyWithoutParameters_IsNotSeen)
{
	client->RequestFileList("a");
	Reply(3, "");
	ExpectNothingPosted();
	// The request still waits.
	Reply(3, wire_param(200, wire_file("TEXT", "ttxt", 1, "name")));
	ExpectPosted("HLfl path=CSTR a name=CSTR name type=CSTR TEXT creator=CSTR ttxt size=LONG 1");
}


// #pragma mark - Lists


TEST_F(ClientRepliesTest, UserList_PostsEveryUserOnce)
{
	Reply(2,
		wire_param(300, wire_user(0xFEDC, 137, 2, "Anna")) + wire_param(101, "unknown")
			+ wire_param(300, wire_user(2, 137, 2, "Ann"))
			+ wire_param(300, wire_user(3, 137, 2, std::string(70, 'n')))
			+ wire_param(300, wire_user(4, 137, 2, "\xFF<b>%s")));
	ExpectPosted("HLuj socket=USHT 65244 icon=USHT 137 color=USHT 2 nick=CSTR Anna");
	// One of 11 bytes is left out.
	ExpectPosted("HLuj socket=USHT 3 icon=USHT 137 color=USHT 2 nick=CSTR " + std::string(63, 'n'));
	ExpectPosted("HLuj socket=USHT 4 icon=USHT 137 color=USHT 2 nick=CSTR \xFF<b>%s");
	Reply(2, wire_param(300, wire_user(5, 137, 2, "Anna")));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, FileList_IsOneMessageOfParallelFields)
{
	client->RequestFileList("//a/b");
	Reply(3,
		wire_param(200, wire_file("fldr", "n/a ", 12, "docs"))
			+ wire_param(200, wire_file("TEXT", "ttxt", 0xFFFFFFFF, "\xFF"))
			+ wire_param(200, wire_file("????", "xxxx", 0, "")));
	ExpectPosted("HLfl path=CSTR //a/b name=CSTR docs \xFF  type=CSTR fldr TEXT ???? "
				 "creator=CSTR n/a  ttxt xxxx size=LONG 12 -1 0");
}


TEST_F(ClientRepliesTest, UserInfo_IsForgottenWithoutAWord)
{
	client->GetUserInfo(7);
	Reply(3, wire_param(101, "about Bert"));
	ExpectNothingPosted();
	Reply(3, wire_param(100, "error"), 5);
	ExpectNothingPosted();
}


// #pragma mark - Transfers


TEST_F(ClientRepliesTest, Transfers_AreOnTheServerOfTheConnection)
{
	const std::string place = "address=CSTR 127.0.0.1 port=USHT " + Port();
	const std::string transfer = wire_param(107, wire32(7)) + wire_param(108, wire32(8));
	client->RequestDownload("a/b", "name");
	Reply(3, transfer);
	ExpectPosted("HLdl ref=ULNG 7 size=ULNG 8 filename=CSTR name " + place);
	client->RequestDownload(NULL, "name");
	Reply(4, transfer);
	ExpectPosted("HLdl ref=ULNG 7 size=ULNG 8 filename=CSTR name " + place);
	client->RequestUpload("a", "na/me", 1, "/home/x/name");
	Reply(5, transfer);
	ExpectPosted("HLup ref=ULNG 7 filename=CSTR na/me localpath=CSTR /home/x/name " + place);
	client->RequestBanner();
	Reply(6, transfer);
	ExpectPosted("HLbr ref=ULNG 7 size=ULNG 8 " + place);
}


TEST_F(ClientRepliesTest, TransferThatIsNone_IsForgottenWithoutAWord)
{
	client->RequestDownload("a", "name");
	client->RequestUpload("a", "name", 1, "/home/x/name");
	client->RequestBanner();
	for (const uint32 id : {3u, 4u, 5u})
		Reply(id, wire_param(107, wire32(0)) + wire_param(108, wire32(9)));
	ExpectNothingPosted();
	for (const uint32 id : {3u, 4u, 5u})
		Reply(id, wire_param(107, wire32(1)) + wire_param(108, wire32(9)));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, RepliesInAnyOrder_FindTheirRequests)
{
	client->RequestFileList("first");
	client->RequestFileList("second");
	client->RequestDownload("", "third");
	Reply(5, wire_param(107, wire32(1)));
	Reply(4, wire_param(101, ""));
	Reply(3, wire_param(101, ""));
	ExpectPosted("HLdl ref=ULNG 1 size=ULNG 0 filename=CSTR third address=CSTR 127.0.0.1 port=USHT "
		+ Port());
	ExpectPosted("HLfl path=CSTR second");
	ExpectPosted("HLfl path=CSTR first");
}


TEST_F(ClientRepliesTest, Disconnected_WhatWaitedIsForgotten)
{
	client->RequestFileList("a");
	client->Disconnect();
	EXPECT_TRUE(server->WaitForEnd());
	ShakeHands();
	server->Send(wire_transaction(0x10000, 3, wire_param(101, "")));
	ExpectNothingPosted();
}
