/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <filesystem>

#include <gtest/gtest.h>

#include <Application.h>
#include <Bitmap.h>
#include <Directory.h>
#include <File.h>
#include <Path.h>
#include <Roster.h>
#include <String.h>

#include "DrawnRow.h"
#include "MessageRecorder.h"
#include "UserListWindow.h"
#include "WindowProbe.h"


// The suite has a folder "assets" beside it, with the pictures of the program. A case adds files of
// its own to it, under numbers that no other case uses.
class UserIconTest : public testing::Test {
protected:
	UserIconTest()
		: fTarget(new MessageRecorder()),
		  fWindow(new UserListWindow(BRect(660, 180, 880, 550), fTarget.get())),
		  fUsers(static_cast<UserListWindow*>(fWindow.Window()))
	{
	}

	static BString _PathOf(uint16 id)
	{
		app_info info;
		be_app->GetAppInfo(&info);
		BPath path(&info.ref);
		path.GetParent(&path);
		BString file;
		file.SetToFormat("%s/assets/%u.png", path.Path(), static_cast<unsigned int>(id));
		return file;
	}

	// Gives the id the same picture as another one.
	static void _CopyIcon(uint16 from, uint16 id)
	{
		BFile source(_PathOf(from).String(), B_READ_ONLY);
		off_t size = 0;
		ASSERT_EQ(B_OK, source.GetSize(&size));
		std::vector<char> bytes(static_cast<size_t>(size));
		ASSERT_EQ(size, source.Read(bytes.data(), bytes.size()));
		BFile copy(_PathOf(id).String(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
		ASSERT_EQ(size, copy.Write(bytes.data(), bytes.size()));
	}

	static void _DeleteIcon(uint16 id) { std::filesystem::remove(_PathOf(id).String()); }

	// Asks for as many ids, none of which has a picture.
	void _FillCache(uint16 count)
	{
		for (uint16 id = 40000; id < 40000 + count; id++)
			ASSERT_EQ(nullptr, fUsers->IconForID(id)) << id;
	}

	RecorderOwner fTarget;
	WindowProbe fWindow;
	UserListWindow* fUsers;
};


TEST_F(UserIconTest, PictureInTheFolder_IsFoundByItsNumber)
{
	const BBitmap* icon = fUsers->IconForID(128);
	ASSERT_NE(nullptr, icon);
	EXPECT_TRUE(icon->IsValid());
	EXPECT_NE(nullptr, fUsers->IconForID(137));
}


TEST_F(UserIconTest, PictureOfTheFirst256_IsReadOnce)
{
	for (const uint16 before : {0, 254}) {
		SCOPED_TRACE(before);
		_FillCache(before);
		const uint16 id = static_cast<uint16>(60001 + before);
		_CopyIcon(128, id);
		const BBitmap* icon = fUsers->IconForID(id);
		EXPECT_NE(nullptr, icon);
		_DeleteIcon(id);
		EXPECT_EQ(icon, fUsers->IconForID(id));
	}
}


TEST_F(UserIconTest, MissingPicture_IsNotLookedForAgain)
{
	_DeleteIcon(60002);
	EXPECT_EQ(nullptr, fUsers->IconForID(60002));
	_CopyIcon(128, 60002);
	EXPECT_EQ(nullptr, fUsers->IconForID(60002));
	_DeleteIcon(60002);
}


TEST_F(UserIconTest, The257thId_IsReadEveryTime)
{
	_FillCache(256);
	_CopyIcon(128, 60004);
	EXPECT_NE(nullptr, fUsers->IconForID(60004));
	EXPECT_NE(nullptr, fUsers->IconForID(60004));
	_DeleteIcon(60004);
	EXPECT_EQ(nullptr, fUsers->IconForID(60004));
}


TEST_F(UserIconTest, FileThatIsNoPicture_GivesNone)
{
	{
		BFile file(_PathOf(60005).String(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
		ASSERT_EQ(5, file.Write("hello", 5));
	}
	EXPECT_EQ(nullptr, fUsers->IconForID(60005));
	_DeleteIcon(60005);
}


TEST_F(UserIconTest, PictureThatIsTooLargeForAnIcon_GivesNone)
{
	for (const auto& [width, isIcon] : {std::pair<int, bool>(128, true), {129, false}}) {
		const uint16 id = static_cast<uint16>(60100 + width);
		const std::string bytes = picture_file(width, 128);
		{
			BFile file(_PathOf(id).String(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
			ASSERT_EQ(static_cast<ssize_t>(bytes.size()), file.Write(bytes.data(), bytes.size()));
		}
		EXPECT_EQ(isIcon, fUsers->IconForID(id) != NULL) << width;
		_DeleteIcon(id);
	}
}


// Clearing the list keeps the pictures, which the next users draw.
TEST_F(UserIconTest, Clearing_KeepsThePictures)
{
	fWindow.Window()->Show();
	_CopyIcon(128, 60006);
	const BBitmap* icon = fUsers->IconForID(60006);
	_DeleteIcon(60006);
	fWindow.Post('ural');
	EXPECT_NE(nullptr, icon);
	EXPECT_EQ(icon, fUsers->IconForID(60006));
}
