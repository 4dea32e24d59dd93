/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <Entry.h>
#include <ListView.h>
#include <Message.h>

#include "AppMessages.h"
#include "BannerView.h"
#include "ConnectedFixture.h"
#include "DrawnRow.h"
#include "FileListWindow.h"
#include "HostileTexts.h"
#include "HotlineNotifications.h"
#include "InterposedCalls.h"
#include "RawServer.h"
#include "TemporaryFolder.h"
#include "WaitFor.h"
#include "WireBytes.h"


// The bytes with which a transfer begins.
static const size_t kRequestSize = 16;


class FilesTest : public ConnectedFixture {
protected:
	// Opens a window for a folder of the server.
	FileListWindow* _Open(const char* path)
	{
		const std::vector<FileListWindow*> before = _Windows();
		if (path[0] == '\0')
			Post(kMsgToolFiles);
		else
			Post(kMsgOpenFolder, "path", path);
		for (FileListWindow* window : _Windows()) {
			if (std::find(before.begin(), before.end(), window) == before.end())
				return window;
		}
		ADD_FAILURE() << "no window for " << path;
		return NULL;
	}

	static std::vector<FileListWindow*> _Windows()
	{
		std::vector<FileListWindow*> windows;
		for (int32 i = 0; i < be_app->CountWindows(); i++) {
			FileListWindow* window = dynamic_cast<FileListWindow*>(be_app->WindowAt(i));
			if (window != NULL)
				windows.push_back(window);
		}
		return windows;
	}

	// A listing of one file.
	void _List(const char* path, const char* name)
	{
		BMessage listing(kHLFileListReceived);
		listing.AddString("path", path);
		listing.AddString("name", name);
		listing.AddString("type", "TEXT");
		listing.AddString("creator", "ttxt");
		listing.AddInt32("size", 1);
		Post(&listing);
		for (FileListWindow* window : _Windows())
			WindowProbe::Settle(window);
	}

	static std::string _Shown(FileListWindow* window)
	{
		std::string names;
		const BListView* list = static_cast<BListView*>(window->FindView("filelist"));
		for (int32 i = 0; i < list->CountItems(); i++)
			names += static_cast<BStringItem*>(list->ItemAt(i))->Text();
		return names;
	}

	static void _CloseSilently(BWindow* window)
	{
		ASSERT_TRUE(window->Lock());
		window->Quit();
	}

	BMessage _Ready(uint32 what, uint32 reference, uint32 size = 10)
	{
		BMessage message(what);
		message.AddUInt32("ref", reference);
		message.AddUInt32("size", size);
		message.AddString("address", "127.0.0.1");
		message.AddUInt16("port", static_cast<uint16>(fTransfers.Port() - 1));
		return message;
	}

	void _ExpectTransfer(uint32 reference)
	{
		ASSERT_TRUE(fTransfers.Accept());
		EXPECT_EQ("HTXF" + wire32(reference), fTransfers.Read(kRequestSize).substr(0, 8));
		fTransfers.Hangup();
	}

	// What grants a transfer of each kind.
	std::vector<BMessage> _AllReady()
	{
		BMessage download = _Ready(kHLDownloadReady, 5);
		download.AddString("filename", "never comes");
		BMessage upload = _Ready(kHLUploadReady, 6);
		upload.AddString("filename", "gone");
		upload.AddString("localpath", "/nowhere/at/all");
		return {download, upload, _Ready(kHLBannerReady, 7)};
	}

	BSize _BannerSize() { return fMain.Find<BannerView>("banner")->MinSize(); }

	void _PostBanner(const std::string& bytes)
	{
		BMessage message(kMsgBannerData);
		message.AddData("data", B_RAW_TYPE, bytes.data(), ssize_t(bytes.size()), false);
		Post(&message);
	}

	RawServer fTransfers;
};


TEST_F(FilesTest, FilesCommand_OpensTheRootEveryTime)
{
	FileListWindow* first = _Open("");
	EXPECT_STREQ("", first->Path());
	EXPECT_EQ(BRect(200, 150, 560, 500), first->Frame());
	_Open("");
	EXPECT_EQ(2, count_windows<FileListWindow>());
	Post(kMsgOpenFolder, "path", "");
	Post(kMsgOpenFolder);
	EXPECT_EQ(2, count_windows<FileListWindow>());
}


TEST_F(FilesTest, OpenedFolders_AreAskedFor)
{
	_Open("early");
	LogIn();
	_Open("");
	EXPECT_FALSE(fServer.ReadRequest(200).HasField(202));
	_Open("ab");
	EXPECT_EQ(wire16(1) + wire16(0) + wire8(2) + "ab", fServer.ReadRequest(200).Field(202));
}


// A request would have taken the first number.
TEST_F(FilesTest, FolderOpenedWhileConnecting_IsNotAskedFor)
{
	BMessage connect(kMsgConnectServer);
	connect.AddString("address", "127.0.0.1");
	connect.AddInt16("port", static_cast<int16>(fServer.Port()));
	Post(&connect);
	fServer.Accept();
	_Open("a");
	EXPECT_EQ(1, count_windows<FileListWindow>());
	fServer.ShakeHands();
	EXPECT_EQ(1u, fServer.ReadRequest(107).id);
}


TEST_F(FilesTest, Listing_GoesToTheFirstWindowOfItsFolder)
{
	FileListWindow* root = _Open("");
	FileListWindow* first = _Open("a/b");
	FileListWindow* second = _Open("a/b");
	_List("a/b", "file");
	EXPECT_EQ("", _Shown(root));
	EXPECT_EQ("file", _Shown(first));
	EXPECT_EQ("", _Shown(second));
	_List("", "top");
	EXPECT_EQ("top", _Shown(root));
	EXPECT_EQ("file", _Shown(first));
}


TEST_F(FilesTest, ListingOfAFolderThatNobodyShows_IsDropped)
{
	FileListWindow* window = _Open("a/b");
	for (const char* path : {"", "a", "A/b", "a/b/", "a/bc"})
		_List(path, "file");
	EXPECT_EQ("", _Shown(window));
}


TEST_F(FilesTest, ListingAheadOfTheClosing_GoesToTheNextWindow)
{
	FileListWindow* first = _Open("a");
	FileListWindow* second = _Open("a");
	_CloseSilently(first);
	_List("a", "file");
	EXPECT_EQ("file", _Shown(second));
	_CloseSilently(second);
	_List("a", "more");
}


TEST_F(FilesTest, ClosedWindow_IsForgotten)
{
	FileListWindow* first = _Open("a");
	FileListWindow* second = _Open("a");
	first->PostMessage(B_QUIT_REQUESTED);
	EXPECT_TRUE(WaitFor([] {
		return _Windows().size() == 1;
	}));
	Post(kMsgFileWinClosed);
	_List("a", "file");
	EXPECT_EQ("file", _Shown(second));
}


TEST_F(FilesTest, Disconnect_ClosesTheWindows)
{
	_Open("");
	_CloseSilently(_Open("a"));
	_Open("a");
	Post(kMsgToolDisconnect);
	EXPECT_TRUE(WaitFor([] {
		return _Windows().empty();
	}));
	_List("a", "file");
}


TEST_F(FilesTest, LostLine_LeavesTheWindows)
{
	LogIn();
	FileListWindow* window = _Open("a");
	fServer.Hangup();
	AwaitChat("\n*** Connection lost ***\n", 200, 0, 0);
	WindowProbe::Settle(be_app);
	ASSERT_EQ(1u, _Windows().size());
	_List("a", "file");
	EXPECT_EQ("file", _Shown(window));
}


TEST_F(FilesTest, Connecting_ClosesTheWindows)
{
	LogIn();
	_Open("");
	_Open("a");
	LogIn();
	EXPECT_TRUE(WaitFor([] {
		return _Windows().empty();
	}));
}


TEST_F(FilesTest, DownloadRequest_IsAnnouncedAndSent)
{
	LogIn();
	BMessage request(kMsgDownloadFile);
	request.AddString("path", "ab");
	request.AddString("name", "read me");
	Post(&request);
	ExpectChat("*** Requesting download: read me ***\n", 100, 100, 100);
	const WireTransaction sent = fServer.ReadRequest(202);
	EXPECT_EQ("read me", sent.Field(201));
	EXPECT_EQ(wire16(1) + wire16(0) + wire8(2) + "ab", sent.Field(202));
}


TEST_F(FilesTest, RequestsWithoutNameOrConnection_AreDropped)
{
	Post(kMsgDownloadFile, "name", "not connected");
	BMessage upload(kMsgUploadFile);
	upload.AddString("name", "not connected");
	upload.AddString("localpath", "/tmp/file");
	Post(&upload);
	LogIn();
	Post(kMsgDownloadFile, "name", "");
	Post(kMsgDownloadFile);
	Post(kMsgUploadFile, "name", "without a path");
	Post(kMsgUploadFile, "localpath", "/without/a/name");
	ExpectNoChat();
	Post(kMsgSendChat, "text", "next");
	EXPECT_EQ("next", fServer.ReadRequest().Field(101));
}


// The size counts modulo 2^32; what is announced is that and the same for the name.
TEST_F(FilesTest, UploadOfMoreThan32Bits_AnnouncesTheLowOnes)
{
	LogIn();
	std::vector<std::string> announced;
	for (const int64 size : {int64(1), int64(4294967297), int64(2)}) {
		BMessage upload(kMsgUploadFile);
		upload.AddString("path", "ab");
		upload.AddString("name", "big");
		upload.AddString("localpath", "/tmp/big");
		upload.AddInt64("size", size);
		Post(&upload);
		ExpectChat("*** Requesting upload: big ***\n", 100, 100, 100);
		const WireTransaction sent = fServer.ReadRequest(203);
		EXPECT_EQ("big", sent.Field(201));
		EXPECT_EQ(wire16(1) + wire16(0) + wire8(2) + "ab", sent.Field(202));
		announced.push_back(sent.Field(108));
	}
	EXPECT_EQ(announced[0], announced[1]);
	EXPECT_NE(announced[0], announced[2]);
}


// What is announced: the file's bytes, its description and the name that was chosen.
TEST_F(FilesTest, UploadThroughALink_AnnouncesItsFile)
{
	static const uint32 kDescriptionSize = 74 + 56;

	const TemporaryFolder folder;
	folder.AddFile("a file with a long name", std::string(5000, 'x'));
	folder.AddLink("link", "a file with a long name");
	entry_ref ref;
	ASSERT_EQ(B_OK, get_ref_for_path(folder.PathOf("link").c_str(), &ref));
	LogIn();
	FileListWindow* window = _Open("ab");
	fServer.ReadRequest(200);
	BMessage chosen(kMsgUploadFile);
	chosen.AddRef("refs", &ref);
	window->PostMessage(&chosen);
	AwaitChat("*** Requesting upload: link ***\n", 100, 100, 100);
	const WireTransaction sent = fServer.ReadRequest(203);
	EXPECT_EQ("link", sent.Field(201));
	EXPECT_EQ(wire32(5000 + kDescriptionSize + 4), sent.Field(108));
}


TEST_F(FilesTest, GrantedDownload_IsFetchedFromTheNextPort)
{
	BMessage ready = _Ready(kHLDownloadReady, 0x80000001);
	ready.AddString("filename", "never comes");
	Post(&ready);
	ExpectChat("*** Downloading never comes (10 bytes) ***\n", 0, 100, 0);
	_ExpectTransfer(0x80000001);
}


TEST_F(FilesTest, DownloadWithoutReferenceOrName_IsNotStarted)
{
	BMessage withoutReference = _Ready(kHLDownloadReady, 0);
	withoutReference.AddString("filename", "name");
	Post(&withoutReference);
	BMessage withoutName = _Ready(kHLDownloadReady, 5);
	Post(&withoutName);
	ExpectNoChat();
	EXPECT_FALSE(fTransfers.HasCaller());
}


TEST_F(FilesTest, NamesThatLeaveTheFolder_AreNotFetched)
{
	for (const char* name : {"..", ".", "../up", "/etc/passwd", "a/b", "a/", "/"}) {
		BMessage ready = _Ready(kHLDownloadReady, 5);
		ready.AddString("filename", name);
		Post(&ready);
		ExpectChat("*** Download failed: " + std::string(name) + " ***\n", 200, 0, 0);
	}
	EXPECT_FALSE(fTransfers.HasCaller());
}


TEST_F(FilesTest, GrantedUpload_IsSentAndItsFailureTold)
{
	BMessage ready = _Ready(kHLUploadReady, 7);
	ready.AddString("filename", "gone");
	ready.AddString("localpath", "/nowhere/at/all");
	Post(&ready);
	ExpectChatBegins("*** Uploading gone ***\n", 0, 100, 0);
	AwaitChat("*** Upload failed: gone ***\n", 200, 0, 0);
}


TEST_F(FilesTest, UploadWithoutReferenceOrPath_IsNotStarted)
{
	BMessage withoutReference = _Ready(kHLUploadReady, 0);
	withoutReference.AddString("localpath", "/tmp/file");
	Post(&withoutReference);
	BMessage withoutPath = _Ready(kHLUploadReady, 5);
	Post(&withoutPath);
	ExpectNoChat();
	EXPECT_FALSE(fTransfers.HasCaller());
}


TEST_F(FilesTest, Outcomes_AreShown)
{
	for (const std::string& name : hostile_texts()) {
		SCOPED_TRACE(name);
		BMessage done(kMsgDownloadDone);
		done.AddString("filename", name.c_str());
		done.AddBool("success", true);
		Post(&done);
		ExpectChat("*** Download complete: " + name + " ***\n", 0, 128, 0);
		done.what = kMsgUploadDone;
		Post(&done);
		ExpectChat("*** Upload complete: " + name + " ***\n", 0, 128, 0);
		Post(kMsgDownloadDone, "filename", name);
		ExpectChat("*** Download failed: " + name + " ***\n", 200, 0, 0);
		Post(kMsgUploadDone, "filename", name);
		ExpectChat("*** Upload failed: " + name + " ***\n", 200, 0, 0);
	}
}


TEST_F(FilesTest, Transfers_HaveThreadsOfTheirOwn)
{
	const InterposedCalls calls;
	for (BMessage& ready : _AllReady())
		Post(&ready);
	const std::vector<InterposedCalls::Thread> threads = calls.Threads();
	ASSERT_EQ(3u, threads.size());
	EXPECT_EQ("HL:Download", threads[0].name);
	EXPECT_EQ(B_NORMAL_PRIORITY, threads[0].priority);
	EXPECT_EQ("HL:Upload", threads[1].name);
	EXPECT_EQ(B_NORMAL_PRIORITY, threads[1].priority);
	EXPECT_EQ("HL:BannerDL", threads[2].name);
	EXPECT_EQ(B_LOW_PRIORITY, threads[2].priority);
	ExpectChatBegins("*** Downloading never comes (10 bytes) ***\n*** Uploading gone ***\n", 0, 100,
		0);
	AwaitChat("*** Upload failed: gone ***\n", 200, 0, 0);
}


// Their records are gone; a leak checker would find them.
TEST_F(FilesTest, FileWithoutAThread_IsToldAsFailed)
{
	InterposedCalls calls;
	std::vector<BMessage> ready = _AllReady();
	calls.FailNextSpawn(B_NO_MORE_THREADS);
	Post(&ready[0]);
	ExpectChat("*** Download failed: never comes ***\n", 200, 0, 0);
	calls.FailNextSpawn(B_NO_MORE_THREADS);
	Post(&ready[1]);
	ExpectChat("*** Upload failed: gone ***\n", 200, 0, 0);
	EXPECT_EQ(2u, calls.Threads().size());
	EXPECT_FALSE(fTransfers.HasCaller());
	// There are threads again.
	Post(&ready[0]);
	ExpectChat("*** Downloading never comes (10 bytes) ***\n", 0, 100, 0);
	_ExpectTransfer(5);
}


TEST_F(FilesTest, BannerWithoutAThread_IsDroppedWithoutALine)
{
	InterposedCalls calls;
	BMessage ready = _Ready(kHLBannerReady, 7);
	calls.FailNextSpawn(B_NO_MORE_THREADS);
	Post(&ready);
	ExpectNoChat();
	EXPECT_EQ(1u, calls.Threads().size());
	EXPECT_FALSE(fTransfers.HasCaller());
}


// There may be transfers of other cases that still run.
TEST_F(FilesTest, TransferWithoutAPort_TakesTheDefault)
{
	const InterposedCalls calls;
	for (const auto& [what, host] :
		{std::pair<uint32, const char*>(kHLDownloadReady, "one.example"),
			{kHLUploadReady, "two.example"}, {kHLBannerReady, "three.example"}}) {
		SCOPED_TRACE(host);
		BMessage ready(what);
		ready.AddUInt32("ref", 5);
		ready.AddUInt32("size", 10);
		ready.AddString("filename", "name");
		ready.AddString("localpath", "/dev/null");
		ready.AddString("address", host);
		Post(&ready);
		EXPECT_TRUE(WaitFor([&calls, host = std::string(host)] {
			for (const InterposedCalls::Lookup& lookup : calls.Lookups()) {
				if (lookup.host == host)
					return lookup.port == "5501";
			}
			return false;
		}));
	}
	ExpectChatBegins("*** Downloading name (10 bytes) ***\n*** Uploading name ***\n", 0, 100, 0);
	AwaitChat("*** Upload failed: name ***\n", 200, 0, 0);
}


TEST_F(FilesTest, UploadWithoutAName_IsStartedAllTheSame)
{
	BMessage ready = _Ready(kHLUploadReady, 7);
	ready.AddString("localpath", "/nowhere/at/all");
	Post(&ready);
	ExpectChatBegins("*** Uploading  ***\n", 0, 100, 0);
	AwaitChat("*** Upload failed:  ***\n", 200, 0, 0);
}


// The caller is the last one of them, as the others have started nothing.
TEST_F(FilesTest, Banner_IsFetchedUpToItsLimit)
{
	for (const uint32 size : {uint32(524289), uint32(0), uint32(0xffffffff)}) {
		BMessage refused = _Ready(kHLBannerReady, 1, size);
		Post(&refused);
	}
	BMessage withoutReference = _Ready(kHLBannerReady, 0, 100);
	Post(&withoutReference);
	BMessage fetched = _Ready(kHLBannerReady, 2, 524288);
	Post(&fetched);
	_ExpectTransfer(2);
	EXPECT_FALSE(fTransfers.HasCaller());
	ExpectNoChat();
}


TEST_F(FilesTest, Banner_IsShownInItsSize)
{
	_PostBanner(picture_file(1, 1));
	EXPECT_EQ(BSize(1, 1), _BannerSize());
	_PostBanner(picture_file(468, 60));
	EXPECT_EQ(BSize(468, 60), _BannerSize());
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 60), fMain.Find<BannerView>("banner")->ExplicitMaxSize());
	EXPECT_TRUE(WaitFor([this] {
		return fMain.Window()->FindView("banner")->Frame().Height() >= 59;
	}));
}


TEST_F(FilesTest, BannerThatIsNoPicture_ChangesNothing)
{
	_PostBanner(picture_file(10, 20));
	_PostBanner("hello");
	_PostBanner(picture_file(468, 60).substr(0, 9));
	_PostBanner(std::string(524288, '\0'));
	Post(kMsgBannerData);
	Post(kMsgBannerData, "data", "text is no data");
	EXPECT_EQ(BSize(10, 20), _BannerSize());
}


TEST_F(FilesTest, VeryWideBanner_IsShownAndCleared)
{
	_PostBanner(picture_file(20000, 1));
	EXPECT_EQ(BSize(20000, 1), _BannerSize());
	Post(kMsgToolDisconnect);
	EXPECT_EQ(BSize(0, 0), _BannerSize());
	EXPECT_EQ(BSize(B_SIZE_UNLIMITED, 0), fMain.Find<BannerView>("banner")->ExplicitMaxSize());
	EXPECT_EQ("Not connected", Status());
}
