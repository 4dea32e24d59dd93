/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <utility>
#include <vector>

#include "ClientFixture.h"
#include "Interposed.h"


/*!	After the login the client has sent the ids 1 and 2. */
class ClientRequestsTest : public ClientTest {
protected:
	ClientRequestsTest()
		: fNextId(3)
	{
		LogIn();
	}

	// That the next request is that one, with the next id.
	void ExpectRequest(uint32 type, const std::string& params)
	{
		ExpectSent(wire_transaction(type, fNextId++, params));
	}

private:
	uint32 fNextId;
};


static const std::string kResumeInformation = "RFLT" + wire16(1) + wire_zeros(34) + wire16(2)
	+ "DATA" + wire_zeros(12) + "MACR" + wire_zeros(12);


static std::string
nick_param(const std::string& nick)
{
	return wire_param(102, nick);
}


static std::string
icon_param(unsigned int icon)
{
	return wire_param(104, wire16(icon));
}


TEST_F(ClientRequestsTest, Chat_ByteForByte)
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
	EXPECT_EQ(wire_transaction(105, 3, wire_param(101, "")).substr(12, 4), wire32(6));
	ExpectRequest(105, wire_param(101, ""));
}


TEST_F(ClientRequestsTest, NothingToSend_TakesNoId)
{
	client->SendChat(NULL);
	client->SendPrivateMsg(7, NULL);
	client->RequestDownload("a", NULL);
	client->RequestDownload("a", "");
	client->RequestUpload("a", NULL, 1, "/n");
	client->RequestUpload("a", "", 1, "/n");
	client->SendChat("x");
	ExpectRequest(105, wire_param(101, "x"));
}


TEST_F(ClientRequestsTest, LongestTexts_AndLongerOnesCutBetweenCharacters)
{
	const std::string longest(65535, 'x');
	client->SendChat(longest.c_str());
	ExpectRequest(105, wire_param(101, longest));
	client->SendChat((longest + "y").c_str());
	ExpectRequest(105, wire_param(101, longest));
	client->SendPrivateMsg(7, (longest.substr(2) + "\xE2\x82\xAC").c_str());
	ExpectRequest(108, wire_param(103, wire16(7)) + wire_param(101, longest.substr(2)));
}


TEST_F(ClientRequestsTest, PrivateMessage_ByteForByte)
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


TEST_F(ClientRequestsTest, WithoutParameters_AreTheirHeader)
{
	client->RequestUserList();
	client->RequestBanner();
	client->RequestFileList(NULL);
	client->RequestFileList("");
	uint32 id = 3;
	for (const uint32 type : {300u, 212u, 200u, 200u})
		ExpectSent(wire32(type) + wire32(id++) + wire32(0) + wire32(2) + wire32(2) + wire16(0));
}


TEST_F(ClientRequestsTest, NickAndIcon_CutAt64BytesBetweenCharacters)
{
	client->ChangeNickAndIcon("Bert", 0x8889);
	ExpectRequest(304, icon_param(0x8889) + nick_param("Bert"));
	for (const char* nick : {"", static_cast<const char*>(NULL)}) {
		client->ChangeNickAndIcon(nick, 137);
		ExpectRequest(304, icon_param(137));
	}

	const std::string nick(70, 'n');
	const std::pair<std::string, size_t> cut[] = {{nick, 64}, {nick.substr(0, 63) + "\xC3\xA4", 63},
		{nick.substr(0, 62) + "\xC3\xA4", 64}};
	for (const auto& [text, length] : cut) {
		client->ChangeNickAndIcon(text.c_str(), 137);
		ExpectRequest(304, icon_param(137) + nick_param(text.substr(0, length)));
	}
}


TEST_F(ClientRequestsTest, UserInfo_NamesTheUser)
{
	client->GetUserInfo(0xFEDC);
	ExpectRequest(303, wire_param(103, wire16(0xFEDC)));
}


TEST_F(ClientRequestsTest, FileListOfASlash_HasAValueOfTwoBytes)
{
	client->RequestFileList("/");
	ExpectRequest(200, wire_param(202, wire16(0)));
}


TEST_F(ClientRequestsTest, FileListOfAFolder_ByteForByte)
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


TEST_F(ClientRequestsTest, Download_HasNameFolderAndResumeInformation)
{
	const std::string resume = wire_param(203, kResumeInformation);
	const std::string params = wire_param(201, "a.txt")
		+ wire_param(202, wire16(1) + wire16(0) + wire8(7) + "uploads") + resume;
	EXPECT_EQ(wire_transaction(202, 3, params).substr(12, 10),
		wire32(105) + wire32(105) + wire16(3));
	client->RequestDownload("uploads", "a.txt");
	ExpectRequest(202, params);
	// From the root.
	for (const char* folder : {static_cast<const char*>(NULL), ""}) {
		client->RequestDownload(folder, "\xFF %s");
		ExpectRequest(202, wire_param(201, "\xFF %s") + resume);
	}
	// A name that is longer than a parameter.
	client->RequestDownload("", std::string(70000, 'f').c_str());
	ExpectRequest(202, wire_param(201, std::string(65535, 'f')) + resume);
}


TEST_F(ClientRequestsTest, Upload_AnnouncesWhatItWillSend)
{
	const std::string name(200, 'u');
	client->RequestUpload("a/b", name.c_str(), 1000, "/home/u");
	const std::string path = wire16(2) + wire16(0) + wire8(1) + "a" + wire16(0) + wire8(1) + "b";
	ExpectRequest(203,
		wire_param(201, name) + wire_param(202, path) + wire_param(108, wire32(1258)));

	// To the root. What is too large to announce wraps as its transfer does.
	const std::pair<uint32, uint32> sizes[] = {{0, 74 + 1 + 56}, {0xFFFFFFFF - 131, 0xFFFFFFFF},
		{0xFFFFFFFF, 130}};
	for (const auto& [fileSize, announced] : sizes) {
		client->RequestUpload(NULL, "n", fileSize, NULL);
		ExpectRequest(203, wire_param(201, "n") + wire_param(108, wire32(announced)));
	}
}


TEST_F(ClientRequestsTest, Agreed_ByteForByte)
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


TEST_F(ClientRequestsTest, Agreed_CutsItsNickAtByte63)
{
	const std::string rest = icon_param(137) + wire_param(113, wire16(0));
	for (const char* nick : {"", static_cast<const char*>(NULL)}) {
		client->SendAgreed(nick, 137);
		ExpectRequest(121, rest);
	}
	const std::string nick = std::string(62, 'n') + "\xC3\xA4 more";
	client->SendAgreed(nick.c_str(), 137);
	ExpectRequest(121, nick_param(nick.substr(0, 63)) + rest);
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
