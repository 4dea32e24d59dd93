/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FolderWindows.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <ListView.h>

#include "AppMessages.h"
#include "ControllerFixture.h"
#include "FileListWindow.h"
#include "HotlineNotifications.h"
#include "PartTest.h"
#include "WaitFor.h"
#include "WindowProbe.h"


class FolderWindowsTest : public PartTest {
protected:
	FolderWindowsTest()
		: fFolders(fTarget.get(), "")
	{
	}

	~FolderWindowsTest() override { fFolders.QuitAll(); }

	FileListWindow* _Open(const char* path)
	{
		fFolders.Open(path, 7);
		return find_window<FileListWindow>();
	}

	// A listing of one file.
	void _List(const char* path, const char* name)
	{
		BMessage listing(kHLFileListReceived);
		listing.AddString("path", path);
		listing.AddString("name", name);
		fFolders.PassOn(&listing);
		for (FileListWindow* window : open_windows<FileListWindow>())
			WindowProbe::Settle(window);
	}

	static std::string _Shown(const FileListWindow* window)
	{
		std::string names;
		const BListView* list = static_cast<BListView*>(window->FindView("filelist"));
		for (int32 i = 0; i < list->CountItems(); i++)
			names += static_cast<BStringItem*>(list->ItemAt(i))->Text();
		return names;
	}

	FolderWindows fFolders;
};


TEST_F(FolderWindowsTest, Listing_GoesToTheFirstWindowOfItsFolder)
{
	const FileListWindow* root = _Open(NULL);
	EXPECT_STREQ("", root->Path());
	EXPECT_EQ(BRect(200, 150, 560, 500), root->Frame());
	EXPECT_FALSE(root->IsHidden());
	const FileListWindow* first = _Open("a/b");
	const FileListWindow* second = _Open("a/b");
	EXPECT_EQ(3, count_windows<FileListWindow>());
	_List("a/b", "file");
	_List("", "top");
	for (const char* path : {"a", "A/b", "a/b/", "a/bc"})
		_List(path, "elsewhere");
	EXPECT_EQ("top", _Shown(root));
	EXPECT_EQ("file", _Shown(first));
	EXPECT_EQ("", _Shown(second));
}


TEST_F(FolderWindowsTest, ClosedWindow_IsPassedOverAndForgotten)
{
	FileListWindow* first = _Open("a");
	FileListWindow* second = _Open("a");
	const FileListWindow* third = _Open("a");
	const BMessage ofNobody(kMsgFileWinClosed);
	fFolders.Forget(&ofNobody);
	close_silently(first);
	_List("a", "ahead");
	EXPECT_EQ("ahead", _Shown(second));

	BMessage notice(kMsgFileWinClosed);
	notice.AddPointer("window", second);
	fFolders.Forget(&notice);
	_List("a", "behind");
	EXPECT_EQ("ahead", _Shown(second));
	EXPECT_EQ("behind", _Shown(third));
	close_silently(second);
}


TEST_F(FolderWindowsTest, CloseAll_EndsThemAndTheirNoticesFindNothing)
{
	_Open("a");
	close_silently(_Open("b"));
	const FileListWindow* last = _Open("c");
	fFolders.CloseAll();
	EXPECT_SOON(count_windows<FileListWindow>() == 0);
	const std::vector<BMessage> notices = Posted();
	ASSERT_EQ(2u, notices.size());
	EXPECT_EQ(last, notices[0].GetPointer("window"));
	for (const BMessage& notice : notices) {
		EXPECT_EQ(static_cast<uint32>(kMsgFileWinClosed), notice.what);
		EXPECT_EQ(7u, notice.GetUInt32("connection", 0));
		fFolders.Forget(&notice);
	}
	_List("a", "file");
}
