/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FilePanel.h>

#include <memory>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <gtest/gtest.h>

#include <Entry.h>
#include <Message.h>
#include <Messenger.h>
#include <Path.h>

#include "ExpectSoon.h"
#include "ScriptedWindow.h"
#include "TemporaryFolder.h"
#include "WindowInput.h"


static const uint32 kChosen = 'chsn';


/*!	A window that gets what is chosen in a panel, and a folder with files to choose from. */
class FilePanelTest : public testing::Test {
protected:
	FilePanelTest()
	{
		fFolder.AddFile("first.txt", "1");
		fFolder.AddFile("sm\xc3\xb8rrebr\xc3\xb8\xc3\xb8 & <b>%s", "2");
		ShowAndWait(fWindow);
		// It takes the keyboard when it comes onto the screen, from a panel that is there before
		// it.
		EXPECT_SOON(fWindow->IsActive());
		fWindow->onMessage = [this](BMessage* message) {
			fMarks.push_back(message->GetInt32("mark", -1));
			entry_ref ref;
			if (message->FindRef("refs", &ref) == B_OK)
				fPaths.push_back(BPath(&ref).Path());
			EXPECT_FALSE(message->HasData("refs", B_REF_TYPE, 1));
		};

		BMessage message(kChosen);
		message.AddInt32("mark", 7);
		BMessenger target(fWindow);
		entry_ref folder;
		get_ref_for_path(fFolder.Path().c_str(), &folder);
		fPanel.reset(new BFilePanel(B_OPEN_PANEL, &target, &folder, B_FILE_NODE, false, &message,
			NULL, false, true));
	}

	void TypeAndWait(const std::string& path)
	{
		ASSERT_TRUE(type_into_file_panel(path.c_str()));
		EXPECT_SOON(!fWindow->Received()->empty());
	}

	TemporaryFolder fFolder;
	OwnedWindow fWindow;
	std::unique_ptr<BFilePanel> fPanel;
	std::vector<std::string> fPaths;
	std::vector<int32> fMarks;
};


TEST_F(FilePanelTest, ChosenFile_ArrivesWithThePanelsMessage)
{
	EXPECT_FALSE(fPanel->IsShowing());
	fPanel->Show();
	EXPECT_TRUE(fPanel->IsShowing());
	EXPECT_EQ("Name|Size|Date Modified|", file_panel_columns());
	TypeAndWait(fFolder.PathOf("first.txt"));
	EXPECT_EQ(kChosen, fWindow->Received()->back());
	EXPECT_EQ(std::vector<int32>{7}, fMarks);
	EXPECT_EQ(std::vector<std::string>{fFolder.PathOf("first.txt")}, fPaths);
	EXPECT_FALSE(fPanel->IsShowing());
}


TEST_F(FilePanelTest, Canceled_SendsNothing_AndShownAgainANameInTheFolderIsEnough)
{
	const std::string name = "sm\xc3\xb8rrebr\xc3\xb8\xc3\xb8 & <b>%s";
	fPanel->Show();
	EXPECT_TRUE(cancel_file_panel());
	EXPECT_FALSE(fPanel->IsShowing());
	fPanel->Show();
	TypeAndWait(name);
	EXPECT_EQ(std::vector<std::string>{fFolder.PathOf(name)}, fPaths);
	EXPECT_EQ(1u, fWindow->Received()->size());
}


TEST_F(FilePanelTest, PipeOrMissingFile_CannotBeChosen)
{
	ASSERT_EQ(0, mkfifo(fFolder.PathOf("pipe").c_str(), 0600));
	fPanel->Show();
	type_into_file_panel(fFolder.PathOf("pipe").c_str());
	cancel_file_panel();
	fPanel->Show();
	ASSERT_TRUE(type_into_file_panel(fFolder.PathOf("missing").c_str()));
	EXPECT_TRUE(fPanel->IsShowing());
	TypeAndWait(fFolder.PathOf("first.txt"));
	EXPECT_EQ(std::vector<std::string>{fFolder.PathOf("first.txt")}, fPaths);
	EXPECT_EQ(1u, fWindow->Received()->size());
}


TEST_F(FilePanelTest, ShownAgain_StartsWhereTheLastChoiceWas)
{
	TemporaryFolder other;
	other.AddFile("second.txt", "2");
	other.AddFile("third.txt", "3");
	fPanel->Show();
	TypeAndWait(other.PathOf("second.txt"));
	fPanel->Show();
	ASSERT_TRUE(type_into_file_panel("third.txt"));
	EXPECT_SOON(fPaths.size() == 2);
	EXPECT_EQ(other.PathOf("third.txt"), fPaths.back());
}


// Also where the user is told that there is no such file: the window that the panel belongs to may
// close.
TEST_F(FilePanelTest, DeletedWhileOpen_IsGone)
{
	fPanel->Show();
	ASSERT_TRUE(type_into_file_panel(fFolder.PathOf("missing").c_str()));
	fPanel.reset();
	EXPECT_FALSE(cancel_file_panel());
}


TEST_F(FilePanelTest, Shortcuts_AreThoseOfAnyWindow)
{
	int asked = 0;
	fWindow->onQuitRequested = [&asked] {
		asked++;
		return false;
	};
	fPanel->Show();
	ASSERT_SOON(is_file_panel_active());
	EXPECT_TRUE(press_file_panel_key('q', B_COMMAND_KEY));
	EXPECT_SOON(asked > 0);
	EXPECT_TRUE(fPanel->IsShowing());
	EXPECT_TRUE(press_file_panel_key('w', B_COMMAND_KEY));
	EXPECT_FALSE(fPanel->IsShowing());
	EXPECT_EQ(1, asked);
}
