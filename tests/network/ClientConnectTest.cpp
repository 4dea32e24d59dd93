/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <mutex>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/time.h>
#include <vector>

#include "ClientFixture.h"
#include "Interposed.h"


typedef ClientTest ClientLoginTest;
typedef ClientTest ClientConnectTest;


static std::string
encoded(std::string text)
{
	for (char& byte : text)
		byte = static_cast<char>(255 - (byte & 0xff));
	return text;
}


// The login with the id 1 and those parameters between the icon and the version.
static std::string
login(unsigned int icon, const std::string& texts)
{
	return wire_transaction(107, 1,
		wire_param(104, wire16(icon)) + texts + wire_param(160, wire16(151)));
}


TEST_F(ClientLoginTest, Everything_ByteForByte)
{
	Connect("guest", "s3\xC3\xA4", "Ann", 0x8889);
	ASSERT_TRUE(server->Accept());
	ExpectSent(std::string("TRTPHOTL\0\1\0\2", 12));
	server->Send(std::string("TRTP\0\0\0\0", 8));
	// clang-format off
	ExpectSent(
		wire32(107) + wire32(1) + wire32(0)				// type, id, flags
		+ wire32(38) + wire32(38) + wire16(5)			// both sizes, count
		+ wire16(104) + wire16(2) + wire16(0x8889)		// icon
		+ wire16(105) + wire16(5) + "\x98\x8A\x9A\x8C\x8B"	// login, complemented
		+ wire16(106) + wire16(4) + "\x8C\xCC\x3C\x5B"		// password, complemented
		+ wire16(102) + wire16(3) + "Ann"				// nickname
		+ wire16(160) + wire16(2) + wire16(151));		// version
	// clang-format on
	ExpectPosted("HLcn");
}


TEST_F(ClientLoginTest, NullTexts_AreNoLoginAndTheDefaultNick)
{
	Connect(NULL, NULL, NULL, 137);
	AcceptHandshake();
	const std::string expected = login(137, wire_param(102, "HaikuUser"));
	EXPECT_EQ(expected.substr(20, 2), wire16(3));
	ExpectSent(expected);
}


TEST_F(ClientLoginTest, EmptyTexts_LeaveTwoParametersOfDataLength14)
{
	Connect("", "", "", 137);
	AcceptHandshake();
	const std::string sent = server->ReadTransaction();
	EXPECT_EQ(wire_dump(sent), wire_dump(login(137, "")));
	EXPECT_EQ(sent.substr(12, 10), wire32(14) + wire32(14) + wire16(2));
}


TEST_F(ClientLoginTest, TextsThatFillTheBuffer_AreWhole)
{
	const std::string name(300, 'l');
	const std::string password(300, 'p');
	const std::string nick(378, 'n');
	Connect(name.c_str(), password.c_str(), nick.c_str(), 137);
	AcceptHandshake();
	const std::string expected = login(137,
		wire_param(105, encoded(name)) + wire_param(106, encoded(password))
			+ wire_param(102, nick));
	EXPECT_EQ(expected.size(), 1024u);
	ExpectSent(expected);
}


TEST_F(ClientLoginTest, LongTexts_AreCutBetweenCharacters)
{
	const std::string name(600, 'l');
	std::string password;
	for (int i = 0; i < 500; i++)
		password += "\xE2\x82\xAC";
	Connect(name.c_str(), password.c_str(), "Ann", 137);
	AcceptHandshake();
	// 978 - 600 leaves exactly 126 characters of three bytes, and nothing for the nickname.
	ExpectSent(login(137,
		wire_param(105, encoded(name)) + wire_param(106, encoded(password.substr(0, 378)))));

	Connect(("x" + name).c_str(), password.c_str(), "Ann", 137);
	AcceptHandshake();
	// One byte less is one character less, and two bytes are left.
	ExpectSent(login(137,
		wire_param(105, encoded("x" + name)) + wire_param(106, encoded(password.substr(0, 375)))
			+ wire_param(102, "An")));
}


TEST_F(ClientLoginTest, LoginOfAnyLength_KeepsToTheBuffer)
{
	const std::string name(100000, 'l');
	Connect(name.c_str(), name.c_str(), name.c_str(), 137);
	AcceptHandshake();
	ExpectSent(login(137, wire_param(105, encoded(name.substr(0, 978)))));
	server->Hangup();
	ExpectPosted("HLcn");
	ExpectPosted("HLdc");
}


// #pragma mark - Connecting


TEST_F(ClientConnectTest, NewClient_IsIdle)
{
	EXPECT_FALSE(client->IsConnected());
	EXPECT_STREQ(client->ServerName(), "");
	EXPECT_EQ(client->ServerVersion(), 0);
	EXPECT_STREQ(client->Address(), "");
}


TEST_F(ClientConnectTest, Handshaken_IsConnectedBeforeTheTargetHears)
{
	ShakeHands();
	EXPECT_TRUE(client->IsConnected());
	EXPECT_STREQ(client->Address(), "127.0.0.1");
	EXPECT_EQ(client->Port(), server->Port());
	EXPECT_STREQ(client->ServerName(), "");
}


TEST_F(ClientConnectTest, LoginIsOnItsWay_BeforeTheTargetHears)
{
	Interposed::send = [this](int socket, const void* data, size_t size, int flags) {
		if (size > 12)
			log->PostMessage('mark');
		return Interposed::RealSend(socket, data, size, flags);
	};
	Connect();
	AcceptHandshake();
	ExpectPosted("mark");
	ExpectPosted("HLcn");
}


TEST_F(ClientConnectTest, HandshakeWithAnErrorCode_IsAccepted)
{
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);
	server->Send("TRTP" + wire32(0xFFFFFFFF));
	EXPECT_EQ(server->ReadTransaction(), login(137, wire_param(102, "Ann")));
	ExpectPosted("HLcn");
}


TEST_F(ClientConnectTest, HandshakeByteByByte_IsAccepted)
{
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);
	server->SendOneByOne(std::string(kHandshakeReply, 8));
	EXPECT_EQ(server->ReadTransaction(), login(137, wire_param(102, "Ann")));
	ExpectPosted("HLcn");
}


TEST_F(ClientConnectTest, HandshakeAndMoreInOneSegment_LosesNothing)
{
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);
	server->Send(std::string(kHandshakeReply, 8) + Chat("early"));
	ExpectPosted("HLcn");
	ExpectPosted("HLch text=CSTR early chatRef=ULNG 0");
}


TEST_F(ClientConnectTest, Name_IsResolvedForIPv4AndStreams)
{
	std::string port;
	addrinfo asked = {};
	Interposed::resolve = [&](const char*, const char* text, const addrinfo* hints,
							  addrinfo** result) {
		port = text;
		asked = *hints;
		return Interposed::RealResolve("127.0.0.1", text, hints, result);
	};
	client->Connect("hotline.example", server->Port(), "", "", "Ann", 137);
	ASSERT_TRUE(server->Accept());
	EXPECT_EQ(port, std::to_string(server->Port()));
	EXPECT_EQ(asked.ai_family, AF_INET);
	EXPECT_EQ(asked.ai_socktype, SOCK_STREAM);
	EXPECT_EQ(asked.ai_flags, 0);
	EXPECT_EQ(asked.ai_protocol, 0);
}


TEST_F(ClientConnectTest, TimeOuts_AreTenSecondsReceivingThenSending)
{
	std::vector<int> options;
	Interposed::setOption = [&](int socket, int level, int option, const void* value,
								socklen_t size) {
		if (option == SO_RCVTIMEO || option == SO_SNDTIMEO) {
			options.push_back(option);
			EXPECT_EQ(static_cast<const timeval*>(value)->tv_sec, 10);
			EXPECT_EQ(static_cast<const timeval*>(value)->tv_usec, 0);
		}
		return Interposed::RealSetOption(socket, level, option, value, size);
	};
	ShakeHands();
	EXPECT_EQ(options, std::vector<int>({SO_RCVTIMEO, SO_SNDTIMEO}));
}


TEST_F(ClientConnectTest, RequestsInPieces_AreNotHeldBack)
{
	std::atomic<bool> isSet(false);
	Interposed::setOption = [&](int socket, int level, int option, const void* value,
								socklen_t size) {
		if (level == IPPROTO_TCP && option == TCP_NODELAY)
			isSet = *static_cast<const int*>(value) != 0;
		return Interposed::RealSetOption(socket, level, option, value, size);
	};
	ShakeHands();
	EXPECT_TRUE(isSet);
}


TEST_F(ClientConnectTest, Threads_HaveTheirNamesAndPriorities)
{
	std::mutex mutex;
	std::vector<std::string> threads;
	Interposed::spawn = [&](thread_func function, const char* name, int32 priority, void* data) {
		std::lock_guard<std::mutex> lock(mutex);
		threads.push_back(name + (" " + std::to_string(priority)));
		return Interposed::RealSpawn(function, name, priority, data);
	};
	LogIn();
	std::lock_guard<std::mutex> lock(mutex);
	EXPECT_EQ(threads,
		std::vector<std::string>({"HL:Connect 10", "HL:Resolve 10", "HL:Receive 10"}));
}


TEST_F(ClientConnectTest, IdsBeginAgain_WithEveryConnection)
{
	LogIn();
	client->RequestUserList();
	ExpectSent(wire_transaction(300, 3, ""));
	client->Disconnect();
	EXPECT_TRUE(server->WaitForEnd());
	LogIn();
	client->RequestUserList();
	ExpectSent(wire_transaction(300, 3, ""));
}


TEST_F(ClientConnectTest, LostThenConnectedAgain_ForgetsTheOldServer)
{
	LogIn();
	EXPECT_STREQ(client->ServerName(), "Harbour");
	EXPECT_EQ(client->ServerVersion(), 190);
	server->Hangup();
	ExpectPosted("HLdc");
	EXPECT_FALSE(client->IsConnected());
	EXPECT_STREQ(client->ServerName(), "Harbour");

	ShakeHands();
	EXPECT_TRUE(client->IsConnected());
	EXPECT_STREQ(client->ServerName(), "");
	EXPECT_EQ(client->ServerVersion(), 0);
}


TEST_F(ClientConnectTest, ConnectedTwice_TheLaterConnectionTakesOver)
{
	LogIn();
	RawServer other;
	client->Connect("127.0.0.1", other.Port(), "", "", "Ann", 137);
	ASSERT_TRUE(other.Accept());
	// The first connection ends without a word.
	EXPECT_TRUE(server->WaitForEnd());
	other.Read(12);
	other.Send(std::string(kHandshakeReply, 8));
	EXPECT_EQ(other.ReadTransaction(), login(137, wire_param(102, "Ann")));
	ExpectPosted("HLcn");
	other.Send(Chat("here"));
	ExpectPosted("HLch text=CSTR here chatRef=ULNG 0");
	EXPECT_EQ(client->Port(), other.Port());
}


TEST_F(ClientConnectTest, ConnectedTwiceAtOnce_TheEarlierAttemptIsGivenUp)
{
	Connect();
	ASSERT_TRUE(server->Accept());
	server->Read(12);

	RawServer other;
	client->Connect("127.0.0.1", other.Port(), "", "", "Bert", 137);
	ASSERT_TRUE(other.Accept());
	EXPECT_TRUE(server->WaitForEnd());
	other.Read(12);
	other.Send(std::string(kHandshakeReply, 8));
	EXPECT_EQ(other.ReadTransaction(), login(137, wire_param(102, "Bert")));
	ExpectPosted("HLcn");
	other.Send(Chat("here"));
	ExpectPosted("HLch text=CSTR here chatRef=ULNG 0");
}
