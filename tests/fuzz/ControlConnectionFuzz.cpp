/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <string>

#include <Looper.h>
#include <Message.h>

#include "AlarmBlock.h"
#include "HotlineClient.h"
#include "RawServer.h"


static void
require(bool condition, const char* what)
{
	if (!condition) {
		fprintf(stderr, "broken: %s\n", what);
		abort();
	}
}


/*!	Reads every field of what the client posts as the main window does, and holds the client to what
	it promises.
*/
class Witness : public BLooper {
public:
	Witness()
		: BLooper("witness"),
		  fIsDisconnected(false)
	{
	}

	void MessageReceived(BMessage* message) override;
	void WaitForDisconnected();

private:
	static void _RequireText(const BMessage* message, const char* name, size_t limit);
	static void _RequireList(const BMessage* message);

	std::mutex fMutex;
	std::condition_variable fChanged;
	bool fIsDisconnected;
};


void
Witness::MessageReceived(BMessage* message)
{
	std::lock_guard<std::mutex> lock(fMutex);
	require(!fIsDisconnected, "nothing is posted after the end");
	switch (message->what) {
		case kHLConnected:
		case kHLLoggedIn:
		case kHLPoliteQuit:
		case kHLServerBanner:
			break;
		case kHLChatReceived:
			_RequireText(message, "text", 65535);
			require(message->HasData("chatRef", B_UINT32_TYPE), "a chat has a reference");
			break;
		case kHLMsgReceived:
			_RequireText(message, "text", 65535);
			_RequireText(message, "nick", 63);
			require(message->HasData("socket", B_UINT16_TYPE)
					&& message->HasData("icon", B_UINT16_TYPE),
				"a sender");
			break;
		case kHLUserJoined:
		case kHLUserChanged:
			_RequireText(message, "nick", 63);
			require(message->HasData("color", B_UINT16_TYPE), "a user has a color");
			break;
		case kHLUserLeft:
			require(message->HasData("socket", B_UINT16_TYPE), "who left has a number");
			break;
		case kHLAgreement:
		case kHLBroadcast:
			_RequireText(message, "text", 65535);
			break;
		case kHLServerInfo:
			_RequireText(message, "serverName", 255);
			break;
		case kHLTaskError:
			_RequireText(message, "error", 65535);
			break;
		case kHLFileListReceived:
			_RequireList(message);
			break;
		case kHLDownloadReady:
		case kHLUploadReady:
			require(message->GetUInt32("ref", 0) != 0, "a transfer has a reference");
			require(strcmp(message->GetString("filename", ""), "name") == 0, "the name asked for");
			break;
		case kHLBannerReady:
			require(message->GetUInt32("size", 0) != 0, "a banner has a size");
			break;
		case kHLDisconnected:
			fIsDisconnected = true;
			fChanged.notify_all();
			break;
		default:
			require(false, "a notification that is known");
	}
}


void
Witness::WaitForDisconnected()
{
	std::unique_lock<std::mutex> lock(fMutex);
	while (!fIsDisconnected)
		fChanged.wait(lock);
}


void
Witness::_RequireText(const BMessage* message, const char* name, size_t limit)
{
	const char* text = message->GetString(name, NULL);
	require(text != NULL && strlen(text) <= limit, name);
}


void
Witness::_RequireList(const BMessage* message)
{
	int32 names = 0;
	int32 sizes = 0;
	type_code type;
	if (message->GetInfo("name", &type, &names) == B_OK)
		message->GetInfo("size", &type, &sizes);
	require(names == sizes, "the fields of a list are parallel");
	for (int32 i = 0; i < names; i++) {
		require(strlen(message->GetString("name", i, "")) <= 255, "a name");
		require(message->HasData("type", B_STRING_TYPE, i)
				&& message->HasData("creator", B_STRING_TYPE, i),
			"two codes");
	}
}


/*!	The input is what the server sends after the handshake, to a client that has asked for
	everything.
*/
extern "C" int
LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	static RawServer* const server = new RawServer;

	Witness* witness = new Witness;
	{
		HotlineClient client(witness);
		{
			const AlarmBlock block;
			witness->Run();
			client.Connect("127.0.0.1", server->Port(), "", "", "Ann", 137);
		}
		require(server->Accept(), "the client calls");
		server->Read(12);
		server->Send(std::string("TRTP\0\0\0\0", 8));
		server->ReadTransaction();

		// The login has the id 1.
		client.RequestUserList();
		client.RequestFileList("a");
		client.RequestDownload("a", "name");
		client.RequestUpload("a", "name", 1, "/name");
		client.RequestBanner();
		client.GetUserInfo(7);

		server->Send(std::string(reinterpret_cast<const char*>(data), size));
		server->SayNoMore();
		witness->WaitForDisconnected();
	}
	server->Hangup();
	if (witness->Lock())
		witness->Quit();
	return 0;
}
