/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "OptionsWindow.h"

#include <functional>

#include <Button.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <ListView.h>
#include <StringView.h>
#include <TextControl.h>

#include "AppMessages.h"
#include "DrawnRow.h"
#include "HostileTexts.h"
#include "IconItem.h"
#include "JpegBytes.h"
#include "Keyboard.h"
#include "PictureBytes.h"
#include "ProcessCounts.h"
#include "TemporaryFolder.h"
#include "WindowInput.h"
#include "WindowTest.h"


using Icons = std::vector<int>;


class OptionsWindowTest : public WindowTest {
protected:
	void _AddIcon(const std::string& name) { fFolder.AddFile(name, picture_file(16, 16)); }

	void _Open(uint16 icon, const char* nick = "Ann", const char* tracker = "tracker.example")
	{
		_OpenWithFolder(icon, nick, tracker, fFolder.Path().c_str());
	}

	void _OpenWithFolder(uint16 icon, const char* nick, const char* tracker, const char* folder)
	{
		Open(new OptionsWindow(BRect(200, 150, 520, 550), fTarget.get(), nick, icon, tracker,
			folder));
		fWindow->Settle();
		fList = fWindow->Find<BListView>("iconlist");
	}

	Icons _Icons() const
	{
		Icons icons;
		for (int32 i = 0; i < fList->CountItems(); i++)
			icons.push_back(static_cast<IconItem*>(fList->ItemAt(i))->IconID());
		return icons;
	}

	std::string _Label() { return fWindow->Label("iconlabel"); }

	TemporaryFolder fFolder;
	BListView* fList = NULL;
};


TEST_F(OptionsWindowTest, AtFirst_ShowsWhatWasSet)
{
	_Open(137);
	EXPECT_STREQ("Options", fWindow->Window()->Title());
	EXPECT_EQ("Ann", fWindow->Text("nick"));
	EXPECT_EQ("tracker.example", fWindow->Text("tracker"));
	EXPECT_EQ("Current icon: 137", _Label());
	EXPECT_TRUE(fWindow->Find<BButton>("save")->IsDefault());
}


TEST_F(OptionsWindowTest, Headers_AreBoldAndFieldsLineUp)
{
	_Open(137);
	for (const char* name : {"header", "iconheader"}) {
		BFont font;
		fWindow->Find<BStringView>(name)->GetFont(&font);
		EXPECT_TRUE(font == *be_bold_font) << name;
	}
	EXPECT_EQ("Settings", fWindow->Label("header"));
	EXPECT_EQ("User Icon", fWindow->Label("iconheader"));
	for (const char* name : {"nick", "tracker"}) {
		const BTextControl* field = fWindow->Find<BTextControl>(name);
		EXPECT_FLOAT_EQ(field->StringWidth("Username:") + 8, field->Divider()) << name;
	}
}


TEST_F(OptionsWindowTest, Window_StandsInTheMiddleOfTheScreen)
{
	_Open(137);
	const BRect frame = fWindow->Window()->Frame();
	const WindowProbe other(new OptionsWindow(BRect(0, 0, 500, 600), fTarget.get(), "", 0, "", ""));
	const BRect otherFrame = other.Window()->Frame();
	EXPECT_NEAR(frame.left + frame.right, otherFrame.left + otherFrame.right, 2);
	EXPECT_NEAR(frame.top + frame.bottom, otherFrame.top + otherFrame.bottom, 2);
}


TEST_F(OptionsWindowTest, Icons_AreSortedByNumberAndTheCurrentOneSelected)
{
	for (const char* name : {"1.png", "10.png", "2.png", "0.png", "abc.png"})
		_AddIcon(name);
	fFolder.AddFile("readme.txt", "about icons");
	_Open(2);
	EXPECT_EQ((Icons{1, 2, 10}), _Icons());
	EXPECT_EQ(1, fList->CurrentSelection());
	EXPECT_EQ("Current icon: 2", _Label());
}


TEST_F(OptionsWindowTest, Names_AreReadForTheirNumber)
{
	for (const char* name : {"7.PNG", ".png", "png", "8.png.txt", "-3.png", "65536.png",
			 "4294967297.png", "9.jpg", "x5.png"})
		_AddIcon(name);
	for (const char* name : {"12abc.png", "65535.png", "20.x.png", "012.png"})
		_AddIcon(name);
	_Open(137);
	EXPECT_EQ((Icons{12, 12, 20, 65535}), _Icons());
}


TEST_F(OptionsWindowTest, LongName_CountsUpToFifteenBytes)
{
	_AddIcon("000000000000015.png");
	_AddIcon("0000000000000016.png");
	_Open(137);
	EXPECT_EQ(Icons{15}, _Icons());
}


TEST_F(OptionsWindowTest, WhatIsNoPicture_IsPassedOver)
{
	fFolder.AddFolder("5.png");
	fFolder.AddFile("6.png", "hello");
	fFolder.AddFile("7.png", "");
	fFolder.AddFile("8.png", picture_file(16, 16).substr(0, 8));
	fFolder.AddLink("9.png", "nowhere");
	fFolder.AddLink("11.png", "11.png");
	_AddIcon("3.png");
	// A link counts by its own name.
	_AddIcon("picture");
	fFolder.AddLink("4.png", "picture");
	_Open(137);
	EXPECT_EQ((Icons{3, 4}), _Icons());
}


TEST_F(OptionsWindowTest, NoFolder_IsAnEmptyListAndTheRestWorks)
{
	for (const char* folder :
		{static_cast<const char*>(NULL), "", "/nowhere/at/all", "/dev/null"}) {
		_OpenWithFolder(137, "Ann", "", folder);
		EXPECT_EQ(Icons{}, _Icons());
		fWindow->Invoke("save");
		fWindow->WaitForEnd();
		EXPECT_EQ(137, fTarget->Messages().back().GetUInt16("icon", 0));
	}
	EXPECT_EQ(4, fTarget->CountMessages());
}


TEST_F(OptionsWindowTest, CurrentIconWithoutPicture_IsKept)
{
	_AddIcon("1.png");
	_Open(40000);
	EXPECT_LT(fList->CurrentSelection(), 0);
	EXPECT_EQ("Current icon: 40000", _Label());
	fWindow->Invoke("save");
	EXPECT_EQ(40000, fTarget->OnlyMessage().GetUInt16("icon", 0));
}


TEST_F(OptionsWindowTest, SelectedIcon_IsNamedAtOnceAndSaved)
{
	_AddIcon("1.png");
	_AddIcon("2.png");
	_Open(1);
	fList->Select(1);
	fWindow->Settle();
	EXPECT_EQ("Current icon: 2", _Label());
	fList->DeselectAll();
	fWindow->Settle();
	EXPECT_EQ("Current icon: 2", _Label());
	fWindow->Invoke("save");
	EXPECT_EQ(2, fTarget->OnlyMessage().GetUInt16("icon", 0));
}


TEST_F(OptionsWindowTest, Save_SendsTheFieldsAsTypedAndCloses)
{
	std::vector<std::string> texts = hostile_texts();
	texts.push_back("");
	for (const std::string& text : texts) {
		SCOPED_TRACE(text);
		_Open(137);
		fWindow->SetText("nick", text.c_str());
		fWindow->SetText("tracker", text.c_str());
		const std::string typed = fWindow->Text("nick");
		fWindow->Invoke("save");
		fWindow->WaitForEnd();
		fTarget->ExpectLast(built_message(kMsgOptionsSave, "nick", typed, "tracker", typed, "icon",
			static_cast<uint16>(137)));
	}
	EXPECT_EQ(static_cast<int32>(texts.size()), fTarget->CountMessages());
}


TEST_F(OptionsWindowTest, CancelEscapeAndCloseBox_SendNothing)
{
	_AddIcon("1.png");
	const std::function<void()> ways[] = {
		[this] {
			fWindow->Invoke("cancel");
		},
		[this] {
			press_window_key(fWindow->Window(), B_ESCAPE);
		},
		[this] {
			use_close_box(fWindow->Window());
		},
	};
	for (const std::function<void()>& close : ways) {
		_Open(137);
		fWindow->SetText("nick", "other");
		fList->Select(0);
		close();
		fWindow->WaitForEnd();
	}
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(OptionsWindowTest, Icon_HasSoManyPixelsAndBytesAtMost)
{
	const auto padded = [](size_t size) {
		const std::string picture = picture_file(16, 16);
		return picture + std::string(size - picture.size(), '\0');
	};
	fFolder.AddFile("1.png", picture_file(128, 128));
	fFolder.AddFile("2.png", picture_file(129, 128));
	fFolder.AddFile("3.png", picture_file(232, 18));
	fFolder.AddFile("4.png", picture_file(16385, 1));
	fFolder.AddFile("5.png", padded(65536));
	fFolder.AddFile("6.png", padded(65537));
	_Open(1);
	EXPECT_EQ((Icons{1, 3, 5}), _Icons());
}


TEST_F(OptionsWindowTest, PicturesThatAreNoIcons_AreNotDecoded)
{
	static const int kCount = 200;

	const std::string bombs[] = {make_black_png(2048, 2048), make_black_gif(2048, 2048),
		make_gray_jpeg(2048, 2048, 32)};
	for (const std::string& bomb : bombs)
		ASSERT_LT(bomb.size(), 65536u);
	for (int i = 1; i <= kCount; i++)
		fFolder.AddFile(std::to_string(i) + ".png", bombs[i % 3]);
	_AddIcon("1000.png");
	const size_t before = forget_peak_memory();
	_Open(1000);
	EXPECT_EQ(Icons{1000}, _Icons());
	EXPECT_LT(peak_memory(), before + 16 * 1024 * 1024);
}


TEST_F(OptionsWindowTest, AllIconsTogether_AreBounded)
{
	const std::string picture = make_black_png(128, 128);
	for (int i = 1; i <= 600; i++)
		fFolder.AddFile(std::to_string(i) + ".png", picture);
	_Open(1000);
	// 32 MiB.
	EXPECT_EQ(512u, _Icons().size());
}


TEST_F(OptionsWindowTest, FourThousandIcons_AreAllListed)
{
	static const int kCount = 4000;

	Icons expected;
	for (int i = kCount; i > 0; i--) {
		_AddIcon(std::to_string(i) + ".png");
		if (i % 10 == 0)
			fFolder.AddFile(std::to_string(i) + "-broken.png", "no picture");
		expected.insert(expected.begin(), i);
	}
	_Open(kCount);
	EXPECT_EQ(expected, _Icons());
	EXPECT_EQ(kCount - 1, fList->CurrentSelection());
	EXPECT_SOON(fList->Bounds().Intersects(fList->ItemFrame(kCount - 1)));
	EXPECT_FALSE(fList->Bounds().Intersects(fList->ItemFrame(0)));
}
