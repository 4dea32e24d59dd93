/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <vector>

#include "ClientFixture.h"
#include "Interposed.h"


/*!	After the login the client has sent the ids 1 and 2. */
class ClientRequestsTest : public ClientTest {
protected:
	ClientRequestsTest() { LogIn(); }
};


static std::string
resume_information()
{
	return "RFLT" + wire16(1) + wire_zeros(34) + wire16(2) + "DATA" + wire_zeros(12) + "MACR"
		+ wire_zeros(12);
}


TEST_F(ClientRequestsTest, Chat)
{
	client->SendChat("hello\r\n<b>%s");
	// clang-format off
	ExpectSent(
		wire32(105) + wire32(3) + wire32(0)			// type, id, flags
		+ wire32(18) + wire32(18) + wire16(1)		// both sizes, count
		+ wire16(101) + wire16(12) + "hello\r\n<b>%s");	// text
	// clang-format on
}


TEST_F(ClientRequestsTest, EmptyChat_IsAnEmptyTextOfDataLength6)
{
	client->SendChat("");
	const std::string expected = wire_transaction(105, 3, wire_param(101, ""));
	EXPECT_EQ(expected.substr(12, 4), wire32(6));
	ExpectSent(expected);
}


TEST_F(ClientRequestsTest, NoText_SendsNothingAndTakesNoId)
{
	client->SendChat(NULL);
	client->SendPrivateMsg(7, NULL);
	client->SendChat("x");
	ExpectSent(wire_transaction(105, 3, wire_param(101, "x")));
}


TEST_F(ClientRequestsTest, LongestTexts_AndLongerOnesCutBetweenCharacters)
{
	const std::string longest(65535, 'x');
	client->SendChat(longest.c_str());
	ExpectSent(wire_transaction(105, 3, wire_param(101, longest)));
	client->SendChat((longest + "y").c_str());
	ExpectSent(wire_transaction(105, 4, wire_param(101, longest)));
	client->SendPrivateMsg(7, (longest.substr(2) + "\xE2\x82\xAC").c_str());
	ExpectSent(
		wire_transaction(108, 5, wire_param(103, wire16(7)) + wire_param(101, longest.substr(2))));
}


TEST_F(ClientRequestsTest, PrivateMessage)
{
	client->SendPrivateMsg(0xFEDC, "psst");
	// clang-format off
	ExpectSent(
		wire32(108) + wire32(3) + wire32(0)			// type, id, flags
		+ wire32(16) + wire32(16) + wire16(2)		// both sizes, count
		+ wire16(103) + wire16(2) + wire16(0xFEDC)	// user
		+ wire16(101) + wire16(4) + "psst");		// text
	// clang-format on
}


TEST_F(ClientRequestsTest, UserList)
{
	client->RequestUserList();
	ExpectSent(wire32(300) + wire32(3) + wire32(0) + wire32(2) + wire32(2) + wire16(0));
}


TEST_F(ClientRequestsTest, NickAndIcon)
{
	client->ChangeNickAndIcon("Bert", 0x8889);
	ExpectSent(wire_transaction(304, 3, wire_param(104, wire16(0x8889)) + wire_param(102, "Bert")));
}


TEST_F(ClientRequestsTest, NickAndIcon_WithoutANick)
{
	client->ChangeNickAndIcon("", 137);
	ExpectSent(wire_transaction(304, 3, wire_param(104, wire16(137))));
	client->ChangeNickAndIcon(NULL, 137);
	ExpectSent(wire_transaction(304, 4, wire_param(104, wire16(137))));
}


TEST_F(ClientRequestsTest, NickAndIcon_CutsAt64BytesBetweenCharacters)
{
	const std::string nick(70, 'n');
	client->ChangeNickAndIcon(nick.c_str(), 137);
	ExpectSent(wire_transaction(304, 3,
		wire_param(104, wire16(137)) + wire_param(102, nick.substr(0, 64))));
	client->ChangeNickAndIcon((nick.substr(0, 63) + "\xC3\xA4").c_str(), 137);
	ExpectSent(wire_transaction(304, 4,
		wire_param(104, wire16(137)) + wire_param(102, nick.substr(0, 63))));
	client->ChangeNickAndIcon((nick.substr(0, 62) + "\xC3\xA4").c_str(), 137);
	ExpectSent(wire_transaction(304, 5,
		wire_param(104, wire16(137)) + wire_param(102, nick.substr(0, 62) + "\xC3\xA4")));
}


TEST_F(ClientRequestsTest, UserInfo)
{
	client->GetUserInfo(0xFEDC);
	ExpectSent(wire_transaction(303, 3, wire_param(103, wire16(0xFEDC))));
}


TEST_F(ClientRequestsTest, FileList_OfTheRootHasNoParameter)
{
	client->RequestFileList(NULL);
	ExpectSent(wire32(200) + wire32(3) + wire32(0) + wire32(2) + wire32(2) + wire16(0));
	client->RequestFileList("");
	ExpectSent(wire32(200) + wire32(4) + wire32(0) + wire32(2) + wire32(2) + wire16(0));
}


TEST_F(ClientRequestsTest, FileList_OfASlashHasAValueOfTwoBytes)
{
	client->RequestFileList("/");
	ExpectSent(wire_transaction(200, 3, wire_param(202, wire16(0))));
}


TEST_F(ClientRequestsTest, FileList_OfAFolder)
{
	client->RequestFileList("//a//bc/");
	// clang-format off
	ExpectSent(
		wire32(200) + wire32(3) + wire32(0)			// type, id, flags
		+ wire32(17) + wire32(17) + wire16(1)		// both sizes, count
		+ wire16(202) + wire16(11) + wire16(2)		// path, components
		+ wire16(0) + wire8(1) + "a"
		+ wire16(0) + wire8(2) + "bc");
	// clang-format on
}


TEST_F(ClientRequestsTest, Download_FromAFolder)
{
	client->RequestDownload("uploads", "a.txt");
	const std::string expected = wire_transaction(202, 3,
		wire_param(201, "a.txt") + wire_param(202, wire16(1) + wire16(0) + wire8(7) + "uploads")
			+ wire_param(203, resume_information()));
	EXPECT_EQ(expected.substr(12, 10), wire32(105) + wire32(105) + wire16(3));
	ExpectSent(expected);
}


TEST_F(ClientRequestsTest, Download_FromTheRoot)
{
	for (const char* folder : {static_cast<const char*>(NULL), ""})
		client->RequestDownload(folder, "\xFF %s");
	const std::string params = wire_param(201, "\xFF %s") + wire_param(203, resume_information());
	ExpectSent(wire_transaction(202, 3, params));
	ExpectSent(wire_transaction(202, 4, params));
}


TEST_F(ClientRequestsTest, FileNameOver65535Bytes_IsCut)
{
	const std::string name(70000, 'f');
	client->RequestDownload("", name.c_str());
	ExpectSent(wire_transaction(202, 3,
		wire_param(201, name.substr(0, 65535)) + wire_param(203, resume_information())));
}


TEST_F(ClientRequestsTest, Upload)
{
	const std::string name(200, 'u');
	client->RequestUpload("a/b", name.c_str(), 1000, "/home/u");
	const std::string path = wire16(2) + wire16(0) + wire8(1) + "a" + wire16(0) + wire8(1) + "b";
	ExpectSent(wire_transaction(203, 3,
		wire_param(201, name) + wire_param(202, path) + wire_param(108, wire32(1258))));
}


TEST_F(ClientRequestsTest, Upload_ToTheRoot)
{
	client->RequestUpload(NULL, "n", 0, NULL);
	ExpectSent(
		wire_transaction(203, 3, wire_param(201, "n") + wire_param(108, wire32(74 + 1 + 56))));
}


TEST_F(ClientRequestsTest, UploadTooLargeToAnnounce_WrapsAsItsTransferDoes)
{
	client->RequestUpload("", "n", 0xFFFFFFFF - 131, "/n");
	ExpectSent(
		wire_transaction(203, 3, wire_param(201, "n") + wire_param(108, wire32(0xFFFFFFFF))));
	client->RequestUpload("", "n", 0xFFFFFFFF, "/n");
	ExpectSent(wire_transaction(203, 4, wire_param(201, "n") + wire_param(108, wire32(130))));
}


TEST_F(ClientRequestsTest, NoFileName_SendsNothing)
{
	client->RequestDownload("a", NULL);
	client->RequestDownload("a", "");
	client->RequestUpload("a", NULL, 1, "/n");
	client->RequestUpload("a", "", 1, "/n");
	client->SendChat("x");
	ExpectSent(wire_transaction(105, 3, wire_param(101, "x")));
}


TEST_F(ClientRequestsTest, Banner)
{
	client->RequestBanner();
	ExpectSent(wire32(212) + wire32(3) + wire32(0) + wire32(2) + wire32(2) + wire16(0));
}


TEST_F(ClientRequestsTest, Agreed)
{
	client->SendAgreed("Ann", 137);
	// clang-format off
	ExpectSent(
		wire32(121) + wire32(3) + wire32(0)			// type, id, flags
		+ wire32(21) + wire32(21) + wire16(3)		// both sizes, count
		+ wire16(102) + wire16(3) + "Ann"			// nickname
		+ wire16(104) + wire16(2) + wire16(137)		// icon
		+ wire16(113) + wire16(2) + wire16(0));		// ban
	// clang-format on
}


TEST_F(ClientRequestsTest, Agreed_WithoutANick)
{
	const std::string params = wire_param(104, wire16(137)) + wire_param(113, wire16(0));
	client->SendAgreed("", 137);
	ExpectSent(wire_transaction(121, 3, params));
	client->SendAgreed(NULL, 137);
	ExpectSent(wire_transaction(121, 4, params));
}


TEST_F(ClientRequestsTest, Agreed_CutsAtByte63)
{
	const std::string nick = std::string(62, 'n') + "\xC3\xA4 more";
	client->SendAgreed(nick.c_str(), 137);
	ExpectSent(wire_transaction(121, 3,
		wire_param(102, nick.substr(0, 63)) + wire_param(104, wire16(137))
			+ wire_param(113, wire16(0))));
}


TEST_F(ClientRequestsTest, Pieces_AreWrittenAsTheyStand)
{
	std::vector<size_t> sizes;
	Interposed::send = [&](int socket, const void* data, size_t size, int flags) {
		sizes.push_back(size);
		EXPECT_TRUE((flags & MSG_NOSIGNAL) != 0);
		return Interposed::RealSend(socket, data, size, flags);
	};
	client->SendChat("hello");
	client->SendPrivateMsg(7, "psst");
	client->RequestFileList("a");
	client->RequestDownload("a", "name");
	client->RequestUpload("", "name", 1, "/n");
	client->SendAgreed("Ann", 137);
	Interposed::send = nullptr;
	EXPECT_EQ(sizes,
		std::vector<size_t>({26, 5, 32, 4, 22, 4, 6, 22, 4, 4, 4, 6, 4, 74, 22, 4, 4, 4, 4, 41}));
}


// #pragma mark - Not connected


TEST_F(ClientTest, RequestsWhileIdle_DoNothing)
{
	client->SendChat("x");
	client->SendPrivateMsg(7, "x");
	client->RequestUserList();
	client->ChangeNickAndIcon("x", 1);
	client->GetUserInfo(7);
	client->RequestFileList("x");
	client->RequestDownload("x", "x");
	client->RequestUpload("x", "x", 1, "x");
	client->RequestBanner();
	client->SendAgreed("x", 1);
	// Ids and what was recorded meanwhile do not get in the way of the first connection.
	LogIn();
	server->Send(wire_transaction(0x10000, 2,
		wire_param(300, wire16(7) + wire16(137) + wire16(2) + wire16(4) + "Bert")));
	ExpectPosted("HLuj socket=USHT 7 icon=USHT 137 color=USHT 2 nick=CSTR Bert");
}


TEST_F(ClientTest, RequestsAfterTheServerHungUp_AreLost)
{
	LogIn();
	server->Hangup();
	ExpectPosted("HLdc");
	std::atomic<int> sent(0);
	Interposed::send = [&](int socket, const void* data, size_t size, int flags) {
		sent++;
		return Interposed::RealSend(socket, data, size, flags);
	};
	for (int i = 0; i < 100; i++) {
		client->SendChat("x");
		client->SendPrivateMsg(7, "x");
		client->ChangeNickAndIcon("x", 1);
		client->RequestDownload("x", "x");
		client->RequestUpload("x", "x", 1, "x");
		client->RequestBanner();
		client->SendAgreed("x", 1);
	}
	EXPECT_EQ(sent, 0);
	// These do not ask whether there is a connection; the socket is still there, and refuses.
	for (int i = 0; i < 100; i++) {
		client->RequestUserList();
		client->RequestFileList("x");
		client->GetUserInfo(7);
	}
	EXPECT_GT(sent, 0);
	EXPECT_FALSE(client->IsConnected());
}
