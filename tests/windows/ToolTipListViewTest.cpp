/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ToolTipListView.h"

#include <algorithm>
#include <cstring>

#include "AppMessages.h"
#include "FileListWindow.h"
#include "RawServer.h"
#include "TrackerWindow.h"
#include "UserInput.h"
#include "UserListWindow.h"
#include "WindowInput.h"
#include "WindowTest.h"


// Too long for every window here, and with all that could be taken for something else than text.
static const std::string kLong = "<b>The</b> &amp; one  whose name is somewhat longer than the row";


static std::string
without_line_ends(std::string text)
{
	text.erase(std::remove(text.begin(), text.end(), '\n'), text.end());
	return text;
}


/*!	The lists of the windows, and what shows while the mouse rests over a row. */
class ToolTipListViewTest : public WindowTest {
protected:
	// One that shows would outlive its window for a moment, and be seen by the next case.
	void TearDown() override
	{
		fList->SetToolTip("");
		EXPECT_SOON(tool_tip_on_screen().empty());
	}

	void _Open(BWindow* window, const char* list)
	{
		Open(window);
		fList = fWindow->Find<BListView>(list);
		_WaitForWidth();
	}

	void _WaitForWidth()
	{
		EXPECT_TRUE(WaitFor([this]() {
			const float missing = fWindow->Window()->Bounds().Width() - fList->Bounds().Width();
			return missing >= 0 && missing < 40;
		}));
	}

	void _OpenUsers()
	{
		_Open(new UserListWindow(BRect(660, 180, 880, 550), fTarget.get()), "userlist");
	}

	void _AddUser(uint16 socket, const std::string& nick, uint16 color = 0)
	{
		fWindow->Post(built_message(kMsgAddUser, "socket", socket, "color", color, "nick", nick));
	}

	void _RemoveUser(uint16 socket)
	{
		fWindow->Post(built_message(kMsgRemoveUser, "socket", socket));
	}

	// A list of one user whose nick is too long, and shows.
	void _ShowLongNick()
	{
		_OpenUsers();
		_AddUser(1, kLong);
		EXPECT_EQ(kLong, _ToolTip(0));
	}

	// It is gone, or was none to begin with.
	void _ExpectGone()
	{
		EXPECT_FALSE(_HasToolTip());
		EXPECT_SOON(tool_tip_on_screen().empty());
	}

	// All of a name shows, broken into lines.
	void _ExpectBroken(const std::string& name)
	{
		_ListFiles({name});
		const std::string shown = _ToolTip(0);
		EXPECT_EQ(name, without_line_ends(shown));
		EXPECT_NE(name, shown);
	}

	void _OpenFiles(const std::vector<std::string>& names, const char* type = "TEXT")
	{
		_Open(new FileListWindow(BRect(200, 150, 560, 500), fTarget.get(), "", NULL), "filelist");
		_ListFiles(names, type);
	}

	void _ListFiles(const std::vector<std::string>& names, const char* type = "TEXT")
	{
		BMessage listing(kMsgFileEntry);
		for (const std::string& name : names) {
			listing.AddString("name", name.c_str());
			listing.AddString("type", type);
			listing.AddInt32("size", 10);
		}
		fWindow->Post(&listing);
	}

	/*!	\return What shows when the mouse rests over a row. */
	std::string _ToolTip(int32 row)
	{
		const BRect frame = fList->ItemFrame(row);
		rest_mouse(fList, BPoint(frame.right / 2, frame.top + 3));
		return tool_tip_on_screen();
	}

	/*!	\return Whether the list has a tool tip that shows, or would. */
	bool _HasToolTip() { return fList->ToolTip() != NULL; }

	BListView* fList = NULL;
};


// #pragma mark - Users


TEST_F(ToolTipListViewTest, NickThatFits_HasNone)
{
	_OpenUsers();
	_AddUser(1, "Ann");
	_AddUser(2, "");
	EXPECT_EQ("", _ToolTip(0));
	EXPECT_EQ("", _ToolTip(1));
}


TEST_F(ToolTipListViewTest, LongNick_IsItAsItStandsAlsoWhenSelected)
{
	_ShowLongNick();
	EXPECT_TRUE(is_tool_tip_whole());
	EXPECT_EQ(kLong, accessible_of_row(fList, 0).name);
	EXPECT_EQ("", accessible_of_row(fList, 0).description);
	fList->Select(0);
	EXPECT_EQ(kLong, _ToolTip(0));
}


TEST_F(ToolTipListViewTest, NextRow_HasItsOwn)
{
	_OpenUsers();
	_AddUser(1, kLong);
	_AddUser(2, kLong + " (2)");
	_AddUser(3, "Ann");
	EXPECT_EQ(kLong, _ToolTip(0));
	EXPECT_EQ(kLong + " (2)", _ToolTip(1));
	_ToolTip(2);
	EXPECT_SOON(tool_tip_on_screen().empty());
}


TEST_F(ToolTipListViewTest, BelowTheRows_IsNone)
{
	_ShowLongNick();
	rest_mouse(fList, BPoint(20, fList->ItemFrame(0).bottom + 5));
	EXPECT_SOON(tool_tip_on_screen().empty());
}


TEST_F(ToolTipListViewTest, UserWhoLeaves_TakesItAway)
{
	_OpenUsers();
	_AddUser(1, "Ann");
	_AddUser(2, kLong);
	_AddUser(3, kLong + " (3)");
	EXPECT_EQ(kLong, _ToolTip(1));
	_RemoveUser(2);
	_ExpectGone();
	EXPECT_EQ(kLong + " (3)", _ToolTip(1));
	// This moves the row away from under the mouse.
	_RemoveUser(1);
	_ExpectGone();
}


TEST_F(ToolTipListViewTest, EmptiedList_TakesItAway)
{
	_ShowLongNick();
	fWindow->Post(kMsgRemoveAll);
	EXPECT_SOON(tool_tip_on_screen().empty());
}


TEST_F(ToolTipListViewTest, ChangedNick_TakesItAway)
{
	_ShowLongNick();
	_AddUser(1, "Ann");
	_ExpectGone();
	EXPECT_EQ("", _ToolTip(0));
	_AddUser(1, kLong + " again");
	EXPECT_EQ(kLong + " again", _ToolTip(0));
}


TEST_F(ToolTipListViewTest, ChangedStatusAndNewUser_LeaveIt)
{
	_ShowLongNick();
	_AddUser(1, kLong, 2);
	_AddUser(2, "Ann");
	EXPECT_TRUE(_HasToolTip());
}


TEST_F(ToolTipListViewTest, WidenedWindow_HasRoomAndNone)
{
	_ShowLongNick();
	fWindow->Window()->ResizeTo(700, 370);
	_WaitForWidth();
	EXPECT_SOON(tool_tip_on_screen().empty());
	EXPECT_FALSE(_HasToolTip());
	EXPECT_EQ("", _ToolTip(0));

	fWindow->Window()->ResizeTo(300, 370);
	_WaitForWidth();
	EXPECT_EQ(kLong, _ToolTip(0));
}


TEST_F(ToolTipListViewTest, HostileNick_IsShownAsItIsDrawn)
{
	_OpenUsers();
	const std::string end(60, 'x');
	const struct {
		const char* nick;
		const char* shown;
	} cases[] = {
		{"%s%n[*]", "%s%n[*]"},
		{"\x01\x1b[31m\x7f", "\ufffd\ufffd[31m\ufffd"},
		{"\xff\x80", "\ufffd\ufffd"},
		{"two  blanks", "two  blanks"},
		{"a\xe2\x80\xa8"
		 "b\r",
			"a\ufffdb\ufffd"},
	};
	for (const auto& user : cases) {
		SCOPED_TRACE(user.nick);
		_AddUser(1, user.nick + end);
		EXPECT_EQ(user.shown + end, _ToolTip(0));
	}
}


// #pragma mark - Files


TEST_F(ToolTipListViewTest, LongNameOfAFileOrAFolder_IsItAsItStands)
{
	for (const char* type : {"TEXT", "fldr"}) {
		SCOPED_TRACE(type);
		_OpenFiles({kLong, "Read me"}, type);
		EXPECT_EQ(kLong, _ToolTip(0));
		EXPECT_EQ(kLong, accessible_of_row(fList, 0).name);
		_ToolTip(1);
		EXPECT_SOON(tool_tip_on_screen().empty());
	}
}


TEST_F(ToolTipListViewTest, AnotherListing_TakesItAway)
{
	_OpenFiles({kLong});
	EXPECT_EQ(kLong, _ToolTip(0));
	_ListFiles({"other " + kLong});
	_ExpectGone();
	EXPECT_EQ("other " + kLong, _ToolTip(0));
}


TEST_F(ToolTipListViewTest, LongestName_IsBrokenIntoLinesThatFitOnTheScreen)
{
	const std::string wide(255, 'W');
	const std::string narrow(255, 'i');
	_OpenFiles({});
	for (const std::string& name : {wide, narrow}) {
		SCOPED_TRACE(name);
		_ExpectBroken(name);
		EXPECT_TRUE(is_tool_tip_whole());
	}
}


// Wherever the end of a line falls, it falls between them.
TEST_F(ToolTipListViewTest, CharactersOfSeveralBytes_StayWhole)
{
	_OpenFiles({});
	for (size_t shift = 0; shift < 12; shift++) {
		SCOPED_TRACE(shift);
		std::string name(shift, 'i');
		while (name.size() < 240)
			name += "\u00df\u20ac\U0001f600";
		_ExpectBroken(name);
	}
}


TEST_F(ToolTipListViewTest, LongNameOfWords_IsBrokenBetweenThem)
{
	_OpenFiles({});
	for (size_t length = 3; length < 12; length++) {
		SCOPED_TRACE(length);
		const std::string word = std::string(length, 'o') + " ";
		std::string words;
		while (words.size() < 240)
			words += word;
		_ExpectBroken(words);
		EXPECT_EQ(std::string::npos, tool_tip_on_screen().find("o\n"));
	}
}


TEST_F(ToolTipListViewTest, BrokenCharacters_AreBrokenIntoLinesAsWell)
{
	_OpenFiles({std::string(255, '\x80')});
	const std::string shown = without_line_ends(_ToolTip(0));
	EXPECT_EQ(255 * strlen("\ufffd"), shown.size());
	EXPECT_TRUE(is_tool_tip_whole());
}


TEST_F(ToolTipListViewTest, EndlessName_IsCut)
{
	std::string marks = "a";
	std::string shapeless(60, 'w');
	while (marks.size() < 65000) {
		marks += "\u0301";
		shapeless += "\u200b";
	}
	std::string lines;
	while (lines.size() < 65000)
		lines += "line\n";
	for (const std::string& name : {std::string(65535, 'w'), marks, shapeless, lines}) {
		SCOPED_TRACE(name.substr(0, 20));
		_OpenFiles({name});
		const std::string shown = _ToolTip(0);
		EXPECT_EQ(shown.size() - strlen("…"), shown.rfind("…"));
		EXPECT_TRUE(is_tool_tip_whole());
	}
}


// #pragma mark - Servers


class ServerToolTipTest : public ToolTipListViewTest {
protected:
	// The fetch ends at once: the test posts in its place.
	ServerToolTipTest()
	{
		const std::string address = "127.0.0.1:" + std::to_string(fTracker.Port());
		_Open(new TrackerWindow(BRect(150, 100, 450, 450), fTarget.get(), address.c_str()),
			"serverlist");
		EXPECT_TRUE(fTracker.Accept());
		fTracker.Hangup();
	}

	void _AddServer(const std::string& name, const std::string& description)
	{
		fWindow->Post(built_message(kMsgTrackerServer, "name", name, "desc", description, "ip",
			"10.20.30.40"));
	}

	RawServer fTracker;
};


TEST_F(ServerToolTipTest, ServerThatFits_HasNone)
{
	_AddServer("Harbor", "ships");
	EXPECT_EQ("", _ToolTip(0));
}


TEST_F(ServerToolTipTest, NameOrDescriptionThatIsTooLong_IsIt)
{
	_AddServer(kLong, "ships");
	_AddServer("Harbor", kLong);
	_AddServer(kLong, kLong + " ship");
	EXPECT_EQ(kLong, _ToolTip(0));
	EXPECT_EQ(kLong, _ToolTip(1));
	EXPECT_EQ(kLong + "\n" + kLong + " ship", _ToolTip(2));
	EXPECT_EQ(kLong, accessible_of_row(fList, 0).name);
}


TEST_F(ServerToolTipTest, LongestNameAndDescription_FitOnTheScreen)
{
	const std::string wide(255, 'W');
	_AddServer(wide, wide);
	EXPECT_EQ(wide + wide, without_line_ends(_ToolTip(0)));
	EXPECT_TRUE(is_tool_tip_whole());
}


TEST_F(ServerToolTipTest, Refresh_TakesItAway)
{
	_AddServer(kLong, "ships");
	EXPECT_EQ(kLong, _ToolTip(0));
	fWindow->Post(kMsgTrackerRefresh);
	EXPECT_SOON(tool_tip_on_screen().empty());
}
