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

#include <gtest/gtest.h>

#include <Application.h>
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


struct Picture {
	const char* file;
	// One that nothing else in the window has.
	const char* color;
};


static const std::map<std::string, Picture> kPictures = {
	{"connect", {"2000.png", "\xe0\x10\x90"}},
	{"disconnect", {"412.png", "\xe1\x20\x91"}},
	{"chat", {"238.png", "\xe2\x30\x92"}},
	{"users", {"242.png", "\xe3\x40\x93"}},
	{"files", {"235.png", "\xe4\x50\x94"}},
	{"tracker", {"431.png", "\xe5\x60\x95"}},
	{"options", {"419.png", "\xe6\x70\x96"}},
};


// As the picture of a view has it: blue first.
static std::string
pixel_of_color(const std::string& color)
{
	return {color[2], color[1], color[0], '\xff'};
}


/*!	The program in a folder of its own. */
class ProgramFolderTest : public ::testing::Test {
protected:
	class Window : public ControllerFixture {
	public:
		// The names of the buttons that show the picture of \a owner. Only enabled buttons show it
		// in its own color.
		std::string ButtonsWith(const std::string& owner)
		{
			const std::string pixel = pixel_of_color(kPictures.at(owner).color);
			std::string names;
			for (const auto& [name, picture] : kPictures) {
				if (picture_of(fMain.Window()->FindView(name.c_str())).find(pixel)
					!= std::string::npos)
					names += name + " ";
			}
			return names;
		}

		void LogIn() { Post(kHLLoggedIn); }

		using ControllerFixture::AwaitChat;
		using ControllerFixture::ExpectChatBegins;
		using ControllerFixture::Post;

		// Whether the row of a user who joins with these shows a color.
		bool UserShows(uint16 icon, uint16 status, const std::string& color)
		{
			BMessage joined(kHLUserJoined);
			joined.AddUInt16("socket", 1);
			joined.AddUInt16("icon", icon);
			joined.AddUInt16("color", status);
			joined.AddString("nick", "nick");
			Post(&joined);
			BListItem* item = fUsers.Find<BListView>("userlist")->ItemAt(0);
			const std::string row = drawn_row([item](BView* view, BRect frame) {
				item->DrawItem(view, frame, true);
			});
			return row.find(pixel_of_color(color)) != std::string::npos;
		}

		bool HasLabels() const
		{
			for (const auto& [name, picture] : kPictures) {
				if (std::string(fMain.Find<BButton>(name.c_str())->Label()).empty())
					return false;
			}
			return true;
		}

	private:
		void TestBody() override {}
	};

	ProgramFolderTest() { sProgram = fFolder.PathOf("palimbra"); }

	// Puts a picture for every button but one beside the program.
	void _WritePictures(const std::string& except = "")
	{
		fFolder.AddFolder("assets");
		for (const auto& [button, picture] : kPictures) {
			if (button == except)
				continue;
			std::string bytes = "P6\n16 16\n255\n";
			for (int i = 0; i < 16 * 16; i++)
				bytes += picture.color;
			fFolder.AddFile(std::string("assets/") + picture.file, bytes);
		}
	}

	TemporaryFolder fFolder;
};


TEST_F(ProgramFolderTest, EveryButton_HasItsOwnPicture)
{
	_WritePictures();
	Window window;
	for (const char* name : {"connect", "tracker", "options"})
		EXPECT_EQ(name + std::string(" "), window.ButtonsWith(name));
	window.LogIn();
	for (const char* name : {"disconnect", "chat", "users", "files", "tracker", "options"}) {
		EXPECT_TRUE(WaitFor([&] {
			return window.ButtonsWith(name) == name + std::string(" ");
		})) << name;
	}
}


TEST_F(ProgramFolderTest, MissingPicture_LeavesThatLabelAlone)
{
	_WritePictures("tracker");
	Window window;
	EXPECT_EQ("", window.ButtonsWith("tracker"));
	EXPECT_EQ("connect ", window.ButtonsWith("connect"));
	EXPECT_EQ("options ", window.ButtonsWith("options"));
	EXPECT_TRUE(window.HasLabels());
}


TEST_F(ProgramFolderTest, UnknownFolder_LeavesAllLabelsAlone)
{
	_WritePictures();
	sProgram = "";
	Window window;
	for (const char* name : {"connect", "tracker", "options"})
		EXPECT_EQ("", window.ButtonsWith(name));
	EXPECT_TRUE(window.HasLabels());
}


TEST_F(ProgramFolderTest, Downloads_AreCreatedBesideTheProgramAndKept)
{
	{
		const Window window;
		EXPECT_TRUE(BEntry(fFolder.PathOf("Downloads").c_str()).IsDirectory());
	}
	fFolder.AddFile("Downloads/kept", "");
	const Window window;
	EXPECT_TRUE(BEntry(fFolder.PathOf("Downloads/kept").c_str()).Exists());
}


TEST_F(ProgramFolderTest, UserWhoJoins_HasItsPictureOrItsDot)
{
	_WritePictures();
	const std::string picture = kPictures.at("chat").color;
	const std::string redDot("\xc8\0\0", 3);
	Window window;
	EXPECT_TRUE(window.UserShows(238, 1, picture));
	EXPECT_FALSE(window.UserShows(238, 1, redDot));
	EXPECT_TRUE(window.UserShows(239, 1, redDot));
	EXPECT_FALSE(window.UserShows(239, 0, redDot));
	EXPECT_FALSE(window.UserShows(239, 1, picture));
}


TEST_F(ProgramFolderTest, Options_ListThePicturesOfTheFolder)
{
	_WritePictures();
	Window window;
	window.Post(kMsgToolOptions);
	WindowProbe options(find_window<OptionsWindow>());
	EXPECT_EQ(int32(kPictures.size()), options.Find<BListView>("iconlist")->CountItems());
}


TEST_F(ProgramFolderTest, Files_HaveThePicturesOfTheFolder)
{
	static const char* const kFolderColor = "\xe8\x90\x98";

	fFolder.AddFolder("assets");
	fFolder.AddFile("assets/401.png", std::string("P6\n1 1\n255\n") + kFolderColor);
	Window window;
	window.Post(kMsgToolFiles);
	BMessage listing(kHLFileListReceived);
	listing.AddString("path", "");
	listing.AddString("name", "folder");
	listing.AddString("type", "fldr");
	window.Post(&listing);
	FileListWindow* files = find_window<FileListWindow>();
	WindowProbe::Settle(files);
	BListItem* item = static_cast<BListView*>(files->FindView("filelist"))->ItemAt(0);
	ASSERT_TRUE(item != NULL);
	const std::string row = drawn_row([item](BView* view, BRect frame) {
		item->DrawItem(view, frame, true);
	});
	EXPECT_NE(std::string::npos, row.find(pixel_of_color(kFolderColor)));
}


TEST_F(ProgramFolderTest, About_ShowsTheLogoOfTheFolder)
{
	fFolder.AddFile("logo.png", picture_file(40, 60));
	Window window;
	window.Post(kMsgToolAbout);
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


/*!	What tells the controller that a file may be fetched. */
static BMessage
granted_download(const RawServer& transfers, const std::string& name)
{
	BMessage ready(kHLDownloadReady);
	ready.AddUInt32("ref", 5);
	ready.AddUInt32("size", 4000000000u);
	ready.AddString("filename", name.c_str());
	ready.AddString("address", "127.0.0.1");
	ready.AddUInt16("port", static_cast<uint16>(transfers.Port() - 1));
	return ready;
}


TEST_F(ProgramFolderTest, Download_ArrivesUnderItsName)
{
	// Of all kinds; they need not be text.
	const std::set<std::string> names = {"read me", "100% <b>", "R\x8esum\x8e", "...", "~", "a\\b",
		"\x01\x1b[31m\t\r\n\x7f", std::string(255, 'n')};
	Window window;
	RawServer transfers;
	for (const std::string& name : names) {
		SCOPED_TRACE(name);
		BMessage ready = granted_download(transfers, name);
		window.Post(&ready);
		window.ExpectChatBegins("*** Downloading " + name + " (4000000000 bytes) ***\n", 0, 100, 0);
		ASSERT_TRUE(transfers.Accept());
		transfers.Send(wire_file_object("data of " + name));
		window.AwaitChat("*** Download complete: " + name + " ***\n", 0, 128, 0);

		std::ifstream file(fFolder.PathOf("Downloads/" + name), std::ios::binary);
		EXPECT_EQ("data of " + name, std::string(std::istreambuf_iterator<char>(file), {}));
	}
	EXPECT_EQ(names, names_in(fFolder.PathOf("Downloads")));
	EXPECT_EQ(std::set<std::string>{"Downloads"}, names_in(fFolder.Path()));
}


TEST_F(ProgramFolderTest, NameTooLongForAFile_LeavesNothing)
{
	Window window;
	RawServer transfers;
	const std::string name(256, 'n');
	BMessage ready = granted_download(transfers, name);
	window.Post(&ready);
	window.ExpectChatBegins("*** Downloading " + name + " (4000000000 bytes) ***\n", 0, 100, 0);
	ASSERT_TRUE(transfers.Accept());
	transfers.Send(wire_file_object("data"));
	EXPECT_TRUE(transfers.WaitForEnd());
	EXPECT_EQ(std::set<std::string>(), names_in(fFolder.PathOf("Downloads")));
}


TEST_F(ProgramFolderTest, UnknownFolder_TakesNoDownloads)
{
	sProgram = "";
	Window window;
	RawServer transfers;
	BMessage ready = granted_download(transfers, "name");
	window.Post(&ready);
	window.ExpectChatBegins("*** Download failed: name ***\n", 200, 0, 0);
	EXPECT_FALSE(transfers.HasCaller());
}
