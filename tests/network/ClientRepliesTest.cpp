/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ClientFixture.h"
#include "Interposed.h"


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


static std::string
user_entry(unsigned int socket, const std::string& nick)
{
	return wire_param(300,
		wire16(socket) + wire16(137) + wire16(2) + wire16(static_cast<unsigned int>(nick.size()))
			+ nick);
}


static std::string
file_entry(const char* type, const char* creator, uint32 size, const std::string& name)
{
	return wire_param(200,
		type + std::string(creator) + wire32(size) + wire32(0)
			+ wire32(static_cast<uint32>(name.size())) + name);
}


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


TEST_F(ClientLoginReplyTest, ShortVersionIsIgnored_AndALongNameCut)
{
	ShakeHands();
	const std::string name(300, 's');
	server->Send(wire_transaction(0x10000, 1, wire_param(160, "\x01") + wire_param(162, name)));
	ExpectPosted("HLsi serverName=CSTR " + name.substr(0, 255) + " version=USHT 0");
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
	Reply(3, wire_param(100, "Not allowed\r<b>%s") + file_entry("TEXT", "ttxt", 1, "name"), 1);
	ExpectPosted("HLte error=CSTR Not allowed\r<b>%s");
	Reply(3, file_entry("TEXT", "ttxt", 1, "name"));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, Error1WithoutAText_IsEmpty)
{
	Reply(2, wire_param(101, "not this"), 1);
	ExpectPosted("HLte error=CSTR ");
}


TEST_F(ClientRepliesTest, Error1ForAnUnknownId_IsPostedToo)
{
	Reply(99, wire_param(100, "Who?"), 1);
	ExpectPosted("HLte error=CSTR Who?");
}


TEST_F(ClientRepliesTest, OtherErrors_AreTakenForSuccess)
{
	client->RequestFileList("a");
	Reply(3, file_entry("TEXT", "ttxt", 1, "name"), 5);
	ExpectPosted("HLfl path=CSTR a name=CSTR name type=CSTR TEXT creator=CSTR ttxt size=LONG 1");
}


TEST_F(ClientRepliesTest, UnknownId_IsIgnored)
{
	Reply(99, user_entry(7, "Bert"));
	Reply(0xFFFFFFFF, user_entry(7, "Bert"));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, ReplyWithoutParameters_IsNotSeen)
{
	client->RequestFileList("a");
	Reply(3, "");
	ExpectNothingPosted();
	// The request still waits.
	Reply(3, file_entry("TEXT", "ttxt", 1, "name"));
	ExpectPosted("HLfl path=CSTR a name=CSTR name type=CSTR TEXT creator=CSTR ttxt size=LONG 1");
}


// #pragma mark - Lists


TEST_F(ClientRepliesTest, UserList_PostsEveryUserOnce)
{
	Reply(2,
		user_entry(0xFEDC, "Anna") + wire_param(101, "unknown") + user_entry(2, "Ann")
			+ user_entry(3, std::string(70, 'n')) + user_entry(4, "\xFF<b>%s"));
	ExpectPosted("HLuj socket=USHT 65244 icon=USHT 137 color=USHT 2 nick=CSTR Anna");
	// One of 11 bytes is left out.
	ExpectPosted("HLuj socket=USHT 3 icon=USHT 137 color=USHT 2 nick=CSTR " + std::string(63, 'n'));
	ExpectPosted("HLuj socket=USHT 4 icon=USHT 137 color=USHT 2 nick=CSTR \xFF<b>%s");
	Reply(2, user_entry(5, "Anna"));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, FileList_IsOneMessageOfParallelFields)
{
	client->RequestFileList("//a/b");
	Reply(3,
		file_entry("fldr", "n/a ", 12, "docs") + file_entry("TEXT", "ttxt", 0xFFFFFFFF, "\xFF")
			+ file_entry("????", "xxxx", 0, ""));
	ExpectPosted("HLfl path=CSTR //a/b name=CSTR docs \xFF  type=CSTR fldr TEXT ???? "
				 "creator=CSTR n/a  ttxt xxxx size=LONG 12 -1 0");
}


TEST_F(ClientRepliesTest, FileList_LeavesOutWhatIsTooShort)
{
	client->RequestFileList(NULL);
	const std::string scripted = "TEXTttxt" + wire32(1) + wire32(0) + wire32(0x00010005);
	Reply(3,
		wire_param(200, "TEXTttxt") + wire_param(200, scripted + "hello")
			+ wire_param(200, scripted + std::string(255, 'f')));
	ExpectPosted("HLfl path=CSTR  name=CSTR " + std::string(255, 'f')
		+ " type=CSTR TEXT creator=CSTR ttxt size=LONG 1");
}


TEST_F(ClientRepliesTest, EmptyFolder_IsThePathAlone)
{
	client->RequestFileList("a");
	Reply(3, wire_param(101, ""));
	ExpectPosted("HLfl path=CSTR a");
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


TEST_F(ClientRepliesTest, Download)
{
	client->RequestDownload("a/b", "name");
	Reply(3, wire_param(107, wire32(0xFEDCBA98)) + wire_param(108, wire32(0x89ABCDEF)));
	ExpectPosted("HLdl ref=ULNG 4275878552 size=ULNG 2309737967 filename=CSTR name "
				 "address=CSTR 127.0.0.1 port=USHT "
		+ Port());
}


TEST_F(ClientRepliesTest, Download_FromTheRootAndWithoutASize)
{
	client->RequestDownload(NULL, "name");
	Reply(3, wire_param(107, wire32(1)));
	ExpectPosted("HLdl ref=ULNG 1 size=ULNG 0 filename=CSTR name address=CSTR 127.0.0.1 port=USHT "
		+ Port());
}


TEST_F(ClientRepliesTest, Download_NameIsWhatStandsBehindTheLastSlash)
{
	client->RequestDownload("a", "b/c");
	Reply(3, wire_param(107, wire32(1)));
	ExpectPosted(
		"HLdl ref=ULNG 1 size=ULNG 0 filename=CSTR c address=CSTR 127.0.0.1 port=USHT " + Port());
}


TEST_F(ClientRepliesTest, DownloadWithoutAReference_IsForgottenWithoutAWord)
{
	uint32 id = 3;
	for (const std::string& params : {wire_param(107, wire32(0)) + wire_param(108, wire32(9)),
			 wire_param(107, "\x01\x02\x03"), wire_param(108, wire32(9))}) {
		SCOPED_TRACE(wire_dump(params));
		client->RequestDownload("a", "name");
		Reply(id, params);
		ExpectNothingPosted();
		Reply(id++, wire_param(107, wire32(1)));
		ExpectNothingPosted();
	}
}


TEST_F(ClientRepliesTest, LongerNumbers_AreTheirFirstFourBytes)
{
	client->RequestDownload("", "name");
	Reply(3, wire_param(107, wire32(5) + "more") + wire_param(108, wire32(6) + "more"));
	ExpectPosted("HLdl ref=ULNG 5 size=ULNG 6 filename=CSTR name address=CSTR 127.0.0.1 port=USHT "
		+ Port());
}


TEST_F(ClientRepliesTest, Upload)
{
	client->RequestUpload("a", "na/me", 1, "/home/x/name");
	Reply(3, wire_param(107, wire32(0x80000000)) + wire_param(108, wire32(9)));
	ExpectPosted("HLup ref=ULNG 2147483648 filename=CSTR na/me localpath=CSTR /home/x/name "
				 "address=CSTR 127.0.0.1 port=USHT "
		+ Port());
	client->RequestUpload("a", "name", 1, "/home/x/name");
	Reply(4, wire_param(108, wire32(9)));
	ExpectNothingPosted();
}


TEST_F(ClientRepliesTest, Banner)
{
	client->RequestBanner();
	Reply(3, wire_param(107, wire32(7)) + wire_param(108, wire32(8)));
	ExpectPosted("HLbr ref=ULNG 7 size=ULNG 8 address=CSTR 127.0.0.1 port=USHT " + Port());
}


TEST_F(ClientRepliesTest, BannerWithoutAReferenceOrASize_IsForgottenWithoutAWord)
{
	client->RequestBanner();
	Reply(3, wire_param(107, wire32(7)) + wire_param(108, wire32(0)));
	client->RequestBanner();
	Reply(4, wire_param(107, wire32(0)) + wire_param(108, wire32(8)));
	client->RequestBanner();
	Reply(5, wire_param(107, wire32(7)));
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
