/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileListWindow.h"

#include <Button.h>
#include <Entry.h>
#include <Font.h>
#include <ListView.h>
#include <StringView.h>

#include "AppMessages.h"
#include "DrawnRow.h"
#include "FileItem.h"
#include "HostileTexts.h"
#include "TemporaryFolder.h"
#include "UserInput.h"
#include "WindowTest.h"


class FileListWindowTest : public WindowTest {
protected:
	void _Open(const char* path, const char* assetsPath = NULL)
	{
		Open(new FileListWindow(BRect(200, 150, 560, 500), fTarget.get(), path, assetsPath));
		fList = fWindow->Find<BListView>("filelist");
	}

	static void _AddEntry(BMessage* listing, const char* name, const char* type = "TEXT")
	{
		listing->AddString("name", name);
		listing->AddString("type", type);
		listing->AddString("creator", "ttxt");
		listing->AddInt32("size", 10);
	}

	// A folder "inner" and a file "read me".
	void _Fill()
	{
		BMessage listing(kMsgFileEntry);
		_AddEntry(&listing, "inner", "fldr");
		_AddEntry(&listing, "read me");
		fWindow->Post(&listing);
	}

	void _FillWith(const char* name, const char* type = "TEXT")
	{
		BMessage listing(kMsgFileEntry);
		_AddEntry(&listing, name, type);
		fWindow->Post(&listing);
	}

	// A request for the file "read me", or for the upload of a file of the folder.
	static BMessage _Download(const char* path)
	{
		return built_message(kMsgDownloadFile, "path", path, "name", "read me");
	}

	static BMessage _Upload(const char* path, const TemporaryFolder& folder,
		const std::string& name, int64 size)
	{
		return built_message(kMsgUploadFile, "path", path, "name", name.substr(name.find('/') + 1),
			"localpath", folder.PathOf(name), "size", size);
	}

	void _ExpectCount(const char* title, const char* label)
	{
		EXPECT_STREQ(title, fWindow->Window()->Title());
		EXPECT_EQ(label, fWindow->Label("countlabel"));
	}

	FileItem* _Item(int32 index) { return static_cast<FileItem*>(fList->ItemAt(index)); }

	// As the file panel does; what is sent then is the recorder's.
	void _Choose(const std::string& path)
	{
		entry_ref ref;
		ASSERT_EQ(B_OK, get_ref_for_path(path.c_str(), &ref));
		BMessage chosen(kMsgUploadFile);
		chosen.AddRef("refs", &ref);
		fWindow->Post(&chosen);
	}

	BListView* fList = NULL;
};


TEST_F(FileListWindowTest, RootAtFirst_HasNoPathAndNoFiles)
{
	_Open(NULL);
	_ExpectCount("Files", "No files");
	EXPECT_STREQ("", static_cast<FileListWindow*>(fWindow->Window())->Path());
	EXPECT_EQ(0, fList->CountItems());
}


TEST_F(FileListWindowTest, FolderAtFirst_IsNamedInTheTitle)
{
	_Open("a/b");
	_ExpectCount("Files — a/b", "No files");
	EXPECT_STREQ("a/b", static_cast<FileListWindow*>(fWindow->Window())->Path());
}


TEST_F(FileListWindowTest, Listing_IsCountedInTitleAndLabel)
{
	_Open("");
	_FillWith("only");
	_ExpectCount("Files (1)", "1 item");
	_Fill();
	_ExpectCount("Files (2)", "2 items");
	fWindow->Post(kMsgFileClear);
	_ExpectCount("Files (0)", "No files");
	EXPECT_EQ(0, fList->CountItems());
}


TEST_F(FileListWindowTest, ListingOfAFolder_KeepsThePathInTheTitle)
{
	_Open("a/b");
	_Fill();
	_ExpectCount("Files — a/b (2)", "2 items");
}


TEST_F(FileListWindowTest, SecondListing_ReplacesTheFirst)
{
	_Open(NULL);
	_Fill();
	_FillWith("other");
	ASSERT_EQ(1, fList->CountItems());
	EXPECT_STREQ("other", _Item(0)->FileName());
	fWindow->Post(kMsgFileEntry);
	_ExpectCount("Files (0)", "No files");
}


TEST_F(FileListWindowTest, TwentyThousandEntries_AreListedScrolledAndReplaced)
{
	static const int32 kCount = 20000;

	_Open("many");
	BMessage listing(kMsgFileEntry);
	for (int32 i = 0; i < kCount; i++)
		_AddEntry(&listing, ("file " + std::to_string(i)).c_str());
	fWindow->Post(&listing);
	_ExpectCount("Files — many (20000)", "20000 items");
	fList->Select(kCount - 1);
	fList->ScrollToSelection();
	InvokeRow("filelist", kCount - 1);
	EXPECT_STREQ("file 19999", fTarget->OnlyMessage().GetString("name"));

	_FillWith("other");
	_ExpectCount("Files — many (1)", "1 item");
}


TEST_F(FileListWindowTest, EntryWithoutFields_HasDefaults)
{
	_Open(NULL);
	fWindow->Post(built_message(kMsgFileEntry, "name", "bare"));
	ASSERT_EQ(1, fList->CountItems());
	EXPECT_STREQ("bare", _Item(0)->FileName());
	EXPECT_STREQ("", _Item(0)->FileType());
	EXPECT_FALSE(_Item(0)->IsFolder());
}


TEST_F(FileListWindowTest, InvokingAFolder_OpensItsNameOrTheJoinedPath)
{
	for (const auto& [path, joined] :
		{std::pair<const char*, const char*>(NULL, "inner"), {"a/b", "a/b/inner"}}) {
		SCOPED_TRACE(joined);
		_Open(path);
		_Fill();
		InvokeRow("filelist", 0);
		fTarget->ExpectLast(built_message(kMsgOpenFolder, "path", joined));
	}
	EXPECT_EQ(2, fTarget->CountMessages());
}


TEST_F(FileListWindowTest, InvokingAFile_DownloadsIt)
{
	_Open("a/b");
	_Fill();
	InvokeRow("filelist", 1);
	fTarget->ExpectOnly(_Download("a/b"));
}


TEST_F(FileListWindowTest, DownloadButton_TakesFilesOnly)
{
	_Open(NULL);
	_Fill();
	fWindow->Invoke("download");
	fList->Select(0);
	fWindow->Invoke("download");
	EXPECT_EQ(0, fTarget->CountMessages());

	fList->Select(1);
	fWindow->Invoke("download");
	fTarget->ExpectOnly(_Download(""));
}


TEST_F(FileListWindowTest, InvokingNothing_PostsNothing)
{
	_Open(NULL);
	fWindow->Post(kMsgFileInvoked);
	_Fill();
	fWindow->Post(kMsgFileInvoked);
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(FileListWindowTest, ChosenFile_IsOfferedForUploadWithItsSize)
{
	const TemporaryFolder folder;
	folder.AddFile("local file", "123456");
	_Open("a/b");
	_Choose(folder.PathOf("local file"));
	fTarget->ExpectOnly(_Upload("a/b", folder, "local file", 6));
}


TEST_F(FileListWindowTest, SeveralChosenFiles_AreTheirFirst)
{
	const TemporaryFolder folder;
	_Open(NULL);
	BMessage chosen(kMsgUploadFile);
	for (const char* name : {"first", "second"}) {
		folder.AddFile(name, name);
		entry_ref ref;
		ASSERT_EQ(B_OK, get_ref_for_path(folder.PathOf(name).c_str(), &ref));
		chosen.AddRef("refs", &ref);
	}
	fWindow->Post(&chosen);
	EXPECT_STREQ("first", fTarget->OnlyMessage().GetString("name"));
}


// It is the file's bytes that are sent, under the name that was chosen.
TEST_F(FileListWindowTest, ChosenLink_IsOfferedUnderItsNameWithTheSizeOfItsFile)
{
	const TemporaryFolder folder;
	folder.AddFile("the file", std::string(5000, 'x'));
	folder.AddFolder("inner");
	folder.AddLink("near", "the file");
	folder.AddLink("inner/far", "../near");
	folder.AddLink("absolute", folder.PathOf("inner/far"));
	_Open("a/b");
	for (const std::string path : {"near", "inner/far", "absolute"}) {
		SCOPED_TRACE(path);
		_Choose(folder.PathOf(path));
		fTarget->ExpectLast(_Upload("a/b", folder, path, 5000));
	}
	EXPECT_EQ(3, fTarget->CountMessages());
}


// The panel gave the vanished one while it was there.
TEST_F(FileListWindowTest, ChosenLinkToNoFileOrVanishedFile_IsOfferedWithoutASize)
{
	const TemporaryFolder folder;
	folder.AddLink("gone", "nothing");
	folder.AddLink("far", "no folder/nothing");
	folder.AddLink("itself", "itself");
	folder.AddLink("there", "back");
	folder.AddLink("back", "there");
	_Open(NULL);
	for (const std::string name : {"gone", "far", "itself", "there", "vanished"}) {
		SCOPED_TRACE(name);
		_Choose(folder.PathOf(name));
		fTarget->ExpectLast(_Upload("", folder, name, 0));
	}
	EXPECT_EQ(5, fTarget->CountMessages());
}


TEST_F(FileListWindowTest, NothingChosen_UploadsNothing)
{
	_Open(NULL);
	fWindow->Post(kMsgUploadFile);
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(FileListWindowTest, HostileName_IsKeptAsItStands)
{
	_Open(NULL);
	for (const std::string& name : hostile_texts()) {
		SCOPED_TRACE(name);
		_FillWith(name.c_str(), "fldr");
		EXPECT_EQ(name, _Item(0)->FileName());
		InvokeRow("filelist", 0);
		EXPECT_EQ(name, fTarget->Messages().back().GetString("path"));
	}
}


TEST_F(FileListWindowTest, HostilePath_IsTheTitleAsItStands)
{
	for (const std::string& path : hostile_texts()) {
		_Open(path.c_str());
		EXPECT_EQ("Files — " + path, fWindow->Window()->Title());
	}
}


TEST_F(FileListWindowTest, FolderWithoutPictures_IsNoObstacle)
{
	const TemporaryFolder folder;
	folder.AddFile("401.png", "no picture");
	folder.AddFolder("210.png");
	_Open(NULL, folder.Path().c_str());
	_Fill();
	_ExpectCount("Files (2)", "2 items");
	EXPECT_STREQ("", fWindow->Find<BButton>("download")->Label());
	EXPECT_STREQ("", fWindow->Find<BButton>("upload")->Label());
}


// Each picture has a color of its own, as the bytes of a pixel: blue first.
TEST_F(FileListWindowTest, Pictures_AreThoseOfTheFolder)
{
	const TemporaryFolder folder;
	const auto add = [&folder](const char* file, const std::string& color) {
		folder.AddFile(file, picture_file(1, 1, color));
		return std::string{color[2], color[1], color[0], '\xff'};
	};
	const std::string folderPixel = add("401.png", "\xe1\x20\x91");
	const std::string archivePixel = add("403.png", "\xe2\x30\x92");
	const std::string imagePixel = add("406.png", "\xe3\x40\x93");
	const std::string downloadPixel = add("210.png", "\xe4\x50\x94");
	const std::string uploadPixel = add("211.png", "\xe5\x60\x95");
	_Open(NULL, folder.Path().c_str());
	const auto shows = [](const std::string& picture, const std::string& pixel) {
		return picture.find(pixel) != std::string::npos;
	};
	EXPECT_TRUE(shows(picture_of(fWindow->Find<BButton>("download")), downloadPixel));
	EXPECT_TRUE(shows(picture_of(fWindow->Find<BButton>("upload")), uploadPixel));

	BMessage listing(kMsgFileEntry);
	_AddEntry(&listing, "inner", "fldr");
	_AddEntry(&listing, "archive.sit");
	_AddEntry(&listing, "image.png");
	fWindow->Post(&listing);
	int32 row = 0;
	for (const std::string& pixel : {folderPixel, archivePixel, imagePixel}) {
		FileItem* item = _Item(row++);
		EXPECT_TRUE(shows(drawn_row([item](BView* view, BRect frame) {
			item->DrawItem(view, frame, true);
		}),
			pixel))
			<< item->FileName();
	}
}


TEST_F(FileListWindowTest, Controls_AreNamedAndReady)
{
	_Open(NULL);
	EXPECT_EQ("Download", accessible_of(fWindow->Find<BButton>("download")).name);
	EXPECT_EQ("Upload", accessible_of(fWindow->Find<BButton>("upload")).name);
	EXPECT_SOON(fList->IsFocus());
	BFont font;
	fWindow->Find<BStringView>("countlabel")->GetFont(&font);
	EXPECT_TRUE(font == *be_bold_font);
}


TEST_F(FileListWindowTest, Closing_TellsWhichWindowItWas)
{
	_Open(NULL);
	const void* window = fWindow->Window();
	CloseAndWait();
	const BMessage notice = fTarget->OnlyMessage();
	EXPECT_EQ(static_cast<uint32>(kMsgFileWinClosed), notice.what);
	void* closed = NULL;
	EXPECT_EQ(B_OK, notice.FindPointer("window", &closed));
	EXPECT_EQ(window, closed);
}
