/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <Application.h>
#include <Bitmap.h>
#include <Button.h>
#include <Entry.h>
#include <ListView.h>
#include <Message.h>
#include <Roster.h>

#include "AboutWindow.h"
#include "AppMessages.h"
#include "ControllerFixture.h"
#include "DrawnRow.h"
#include "FileListWindow.h"
#include "HotlineNotifications.h"
#include "OptionsWindow.h"
#include "ProgramFolder.h"
#include "RawServer.h"
#include "TemporaryFolder.h"
#include "UserInput.h"
#include "WaitFor.h"
#include "WireRecords.h"


// Where the program finds its own file; empty when it does not.
static std::string sProgram;


// The name that the linker option --wrap gives to the two sides of BApplication::GetAppInfo().
extern "C"
{
	status_t __real__ZNK12BApplication10GetAppInfoEP8app_info(const BApplication* application,
		app_info* _info);


	status_t __wrap__ZNK12BApplication10GetAppInfoEP8app_info(const BApplication* application,
		app_info* _info)
	{
		if (sProgram.empty())
			return B_ERROR;
		const status_t status = __real__ZNK12BApplication10GetAppInfoEP8app_info(application,
			_info);
		if (status != B_OK)
			return status;
		return get_ref_for_path(sProgram.c_str(), &_info->ref);
	}
}


// Where a picture is shown, its file, and a color that nothing else in the window has.
static const std::map<std::string, std::pair<const char*, const char*>> kPictures = {
	{"connect", {"2000.png", "\xe0\x10\x90"}},
	{"disconnect", {"412.png", "\xe1\x20\x91"}},
	{"chat", {"238.png", "\xe2\x30\x92"}},
	{"users", {"242.png", "\xe3\x40\x93"}},
	{"files", {"235.png", "\xe4\x50\x94"}},
	{"tracker", {"431.png", "\xe5\x60\x95"}},
	{"options", {"419.png", "\xe6\x70\x96"}},
	{"download", {"210.png", "\xe8\x90\x98"}},
};


// As the picture of a view has it: blue first.
static std::string
pixel_of_color(const std::string& color)
{
	return {color[2], color[1], color[0], '\xff'};
}


/*!	A folder of the program's own, with the pictures. */
struct ProgramInItsFolder {
	ProgramInItsFolder()
	{
		sProgram = fFolder.PathOf("palimbra");
		fFolder.AddFile("logo.png", picture_file(40, 60));
		fFolder.AddFolder("assets");
		for (const auto& [button, picture] : kPictures) {
			std::string pixels;
			for (int i = 0; i < 16 * 16; i++)
				pixels += picture.second;
			fFolder.AddFile(std::string("assets/") + picture.first, picture_file(16, 16, pixels));
		}
	}

	TemporaryFolder fFolder;
};


class ProgramFolderTest : protected ProgramInItsFolder, public ControllerFixture {
protected:
	// Whether a view shows the picture of a button. Only enabled ones show it in its own color.
	static bool _Shows(BWindow* window, const std::string& view, const std::string& button)
	{
		return picture_of(window->FindView(view.c_str()))
				   .find(pixel_of_color(kPictures.at(button).second))
			!= std::string::npos;
	}

	// The names of the toolbar's buttons that show the picture of \a owner.
	std::string _ButtonsWith(const std::string& owner)
	{
		std::string names;
		for (const char* name :
			{"connect", "disconnect", "chat", "users", "files", "tracker", "options"}) {
			if (_Shows(fMain.Window(), name, owner))
				names += name;
		}
		return names;
	}

	// Whether the row of a user who joins with this icon shows a color.
	bool _UserShows(uint16 icon, const std::string& color)
	{
		BMessage joined(kHLUserJoined);
		joined.AddUInt16("socket", 1);
		joined.AddUInt16("icon", icon);
		joined.AddUInt16("color", 1);
		Post(&joined);
		BListItem* item = fUsers.Find<BListView>("userlist")->ItemAt(0);
		const std::string row = drawn_row([item](BView* view, BRect frame) {
			item->DrawItem(view, frame, true);
		});
		return row.find(pixel_of_color(color)) != std::string::npos;
	}
};


TEST_F(ProgramFolderTest, Paths_LieBesideTheProgramOrAreEmpty)
{
	const ProgramFolder folder;
	EXPECT_EQ(fFolder.Path(), folder.AppRootPath());
	EXPECT_EQ(fFolder.PathOf("assets"), folder.AssetsPath());
	EXPECT_EQ(fFolder.PathOf("Downloads"), folder.DownloadsPath());
	sProgram = "";
	const ProgramFolder unknown;
	EXPECT_STREQ("", unknown.AppRootPath());
	EXPECT_STREQ("", unknown.AssetsPath());
	EXPECT_STREQ("", unknown.DownloadsPath());
	unknown.CreateDownloads();
}


TEST_F(ProgramFolderTest, Downloads_AreCreatedAtTheStartAndKept)
{
	EXPECT_TRUE(BEntry(fFolder.PathOf("Downloads").c_str()).IsDirectory());
	fFolder.AddFile("Downloads/kept", "");
	ProgramFolder().CreateDownloads();
	EXPECT_TRUE(BEntry(fFolder.PathOf("Downloads/kept").c_str()).Exists());
}


TEST_F(ProgramFolderTest, PictureThatIsMissing_IsNone)
{
	const std::string assets = fFolder.PathOf("assets");
	EXPECT_EQ(BRect(0, 0, 15, 15), LoadPicture(assets.c_str(), kChatPicture)->Bounds());
	EXPECT_FALSE(LoadPicture(assets.c_str(), 239));
	EXPECT_FALSE(LoadPicture("", kChatPicture));
	EXPECT_FALSE(LoadPicture(NULL, kChatPicture));
	BButton button("name", "label", NULL);
	ShowPicture(&button, assets.c_str(), kFolderPicture);
	EXPECT_STREQ("label", button.Label());
}


TEST_F(ProgramFolderTest, EveryButton_HasItsOwnPictureAndItsLabel)
{
	for (const char* name : {"connect", "tracker", "options"})
		EXPECT_EQ(name, _ButtonsWith(name));
	Post(kHLLoggedIn);
	for (const char* name : {"disconnect", "chat", "users", "files", "tracker", "options"}) {
		EXPECT_SOON(_ButtonsWith(name) == name) << name;
		EXPECT_STRNE("", fMain.Find<BButton>(name)->Label());
	}
}


TEST_F(ProgramFolderTest, EveryWindow_HasThePicturesOfTheFolder)
{
	const std::string redDot("\xc8\0\0", 3);
	EXPECT_TRUE(_UserShows(238, kPictures.at("chat").second));
	EXPECT_FALSE(_UserShows(238, redDot));
	EXPECT_TRUE(_UserShows(239, redDot));

	Post(kMsgToolFiles);
	EXPECT_TRUE(_Shows(find_window<FileListWindow>(), "download", "download"));
	Post(kMsgToolOptions);
	WindowProbe options(find_window<OptionsWindow>());
	EXPECT_EQ(static_cast<int32>(kPictures.size()),
		options.Find<BListView>("iconlist")->CountItems());
	Post(kMsgToolAbout);
	WindowProbe about(find_window<AboutWindow>());
	EXPECT_EQ(155 + 59 + 15, about.Find<BView>("aboutView")->MinSize().height);
}


/*!	What lies in a folder. */
static std::set<std::string>
names_in(const std::string& folder)
{
	std::set<std::string> names;
	for (const auto& entry : std::filesystem::directory_iterator(folder))
		names.insert(entry.path().filename().string());
	return names;
}


static BMessage
granted_download(const RawServer& transfers, const std::string& name)
{
	BMessage grant = granted_transfer(kHLDownloadReady, 5, 4000000000u, transfers.Port());
	grant.AddString("filename", name.c_str());
	return grant;
}


TEST_F(ProgramFolderTest, Download_ArrivesUnderItsName)
{
	// Of all kinds; they need not be text.
	const std::set<std::string> names = {"read me", "100% <b>", "R\x8esum\x8e", "...", "~", "a\\b",
		"\x01\x1b[31m\t\r\n\x7f", std::string(255, 'n')};
	RawServer transfers;
	for (const std::string& name : names) {
		SCOPED_TRACE(name);
		BMessage ready = granted_download(transfers, name);
		Post(&ready);
		ExpectChatBegins("*** Downloading " + name + " (4000000000 bytes) ***\n", 0, 100, 0);
		ASSERT_TRUE(transfers.Accept());
		transfers.Send(wire_file_object("data of " + name));
		AwaitChat("*** Download complete: " + name + " ***\n", 0, 128, 0);

		std::ifstream file(fFolder.PathOf("Downloads/" + name), std::ios::binary);
		EXPECT_EQ("data of " + name, std::string(std::istreambuf_iterator<char>(file), {}));
	}
	EXPECT_EQ(names, names_in(fFolder.PathOf("Downloads")));
	EXPECT_EQ((std::set<std::string>{"Downloads", "assets", "logo.png"}), names_in(fFolder.Path()));
}


TEST_F(ProgramFolderTest, NameTooLongForAFile_LeavesNothing)
{
	RawServer transfers;
	const std::string name(256, 'n');
	BMessage ready = granted_download(transfers, name);
	Post(&ready);
	ExpectChatBegins("*** Downloading " + name + " (4000000000 bytes) ***\n", 0, 100, 0);
	ASSERT_TRUE(transfers.Accept());
	transfers.Send(wire_file_object("data"));
	EXPECT_TRUE(transfers.WaitForEnd());
	EXPECT_EQ(std::set<std::string>(), names_in(fFolder.PathOf("Downloads")));
}
