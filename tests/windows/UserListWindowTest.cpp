/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "UserListWindow.h"

#include <algorithm>
#include <random>
#include <utility>

#include <Font.h>
#include <ListView.h>
#include <ScrollView.h>
#include <StringView.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "UserItem.h"
#include "WindowTest.h"


class UserListWindowTest : public WindowTest {
protected:
	UserListWindowTest()
	{
		Open(new UserListWindow(BRect(660, 180, 880, 550), fTarget.get()));
		fList = fWindow->Find<BListView>("userlist");
	}

	void _Add(uint16 socket, const std::string& nick, uint16 icon = 0, uint16 color = 0)
	{
		fWindow->Post(built_message(kMsgAddUser, "socket", socket, "icon", icon, "color", color,
			"nick", nick));
	}

	void _Remove(uint16 socket) { fWindow->Post(built_message(kMsgRemoveUser, "socket", socket)); }

	std::vector<std::string> _Nicks()
	{
		std::vector<std::string> nicks;
		for (int32 i = 0; i < fList->CountItems(); i++)
			nicks.push_back(static_cast<BStringItem*>(fList->ItemAt(i))->Text());
		return nicks;
	}

	void _ExpectCount(const char* title, const char* label)
	{
		EXPECT_STREQ(title, fWindow->Window()->Title());
		EXPECT_EQ(label, fWindow->Label("countlabel"));
	}

	BListView* fList;
};


using Nicks = std::vector<std::string>;


TEST_F(UserListWindowTest, AtFirst_IsAnEmptyDocumentThatFollowsItsLayout)
{
	_ExpectCount("Users Online", "0 users online");
	EXPECT_EQ(0, fList->CountItems());
	EXPECT_EQ(B_DOCUMENT_WINDOW_LOOK, fWindow->Window()->Look());
	EXPECT_EQ(B_NORMAL_WINDOW_FEEL, fWindow->Window()->Feel());
	EXPECT_EQ(static_cast<uint32>(B_AUTO_UPDATE_SIZE_LIMITS), fWindow->Window()->Flags());
	EXPECT_EQ(B_SINGLE_SELECTION_LIST, fList->ListType());
	EXPECT_EQ(fList, fWindow->Find<BScrollView>("userscroll")->Target());
	EXPECT_EQ(B_FANCY_BORDER, fWindow->Find<BScrollView>("userscroll")->Border());
	BFont font;
	fWindow->Find<BStringView>("countlabel")->GetFont(&font);
	EXPECT_EQ(*be_bold_font, font);
}


TEST_F(UserListWindowTest, TitleAndLabel_CountTheUsers)
{
	_Add(1, "one");
	_ExpectCount("Users Online (1)", "1 user online");
	_Add(2, "two");
	_ExpectCount("Users Online (2)", "2 users online");
	_Remove(1);
	_ExpectCount("Users Online (1)", "1 user online");
	fWindow->Post(kMsgRemoveAll);
	_ExpectCount("Users Online (0)", "0 users online");
}


TEST_F(UserListWindowTest, Rows_StayInOrderOfArrival)
{
	_Add(30, "zoe");
	_Add(10, "adam");
	_Add(20, "mia");
	EXPECT_EQ((Nicks{"zoe", "adam", "mia"}), _Nicks());
}


TEST_F(UserListWindowTest, TheSameSocketTwice_IsOneRowWithTheLaterNick)
{
	_Add(1, "before");
	_Add(2, "other");
	_Add(1, "after");
	EXPECT_EQ((Nicks{"after", "other"}), _Nicks());
	_ExpectCount("Users Online (2)", "2 users online");
}


TEST_F(UserListWindowTest, MissingFields_HaveDefaults)
{
	fWindow->Post(kMsgAddUser);
	EXPECT_EQ(Nicks{"???"}, _Nicks());
	EXPECT_EQ(0, static_cast<UserItem*>(fList->ItemAt(0))->Socket());
}


TEST_F(UserListWindowTest, RemovingAStranger_OnlyRefreshesTheTitle)
{
	_Remove(7);
	_ExpectCount("Users Online (0)", "0 users online");
	_Add(1, "one");
	_Remove(7);
	EXPECT_EQ(Nicks{"one"}, _Nicks());
}


TEST_F(UserListWindowTest, AfterClearing_TheListFillsAnew)
{
	for (uint16 socket = 0; socket < 50; socket++)
		_Add(socket, "user");
	fWindow->Post(kMsgRemoveAll);
	EXPECT_EQ(0, fList->CountItems());
	_Add(3, "again");
	EXPECT_EQ(Nicks{"again"}, _Nicks());
}


TEST_F(UserListWindowTest, InvokingNothing_PostsNothing)
{
	_Add(1, "one");
	fList->DeselectAll();
	fWindow->Post(kMsgUserInvoked);
	EXPECT_EQ(0, fTarget->CountMessages());
}


TEST_F(UserListWindowTest, InvokingAUser_AsksForAPrivateConversation)
{
	_Add(1, "one");
	_Add(0x8002, "two");
	InvokeRow("userlist", 1);
	fTarget->ExpectOnly(
		built_message(kMsgOpenPM, "socket", static_cast<uint16>(0x8002), "nick", "two"));
}


TEST_F(UserListWindowTest, ARowThatIsNoUser_IsSkipped)
{
	fList->AddItem(new BStringItem("no user"));
	_Add(0, "zero");
	EXPECT_EQ((Nicks{"no user", "zero"}), _Nicks());
	fList->Select(0);
	fWindow->Post(kMsgUserInvoked);
	EXPECT_EQ(0, fTarget->CountMessages());
	fWindow->Post(kMsgRemoveAll);
	EXPECT_EQ(0, fList->CountItems());
}


TEST_F(UserListWindowTest, HostileNick_IsKeptAsItStands)
{
	uint16 socket = 0;
	for (const std::string& nick : hostile_texts()) {
		_Add(socket, nick);
		EXPECT_EQ(nick, static_cast<BStringItem*>(fList->ItemAt(socket))->Text());
		socket++;
	}
}


TEST_F(UserListWindowTest, FiveThousandUsersTwice_AreFiveThousandRows)
{
	for (int round = 0; round < 2; round++) {
		for (uint16 socket = 1; socket <= 5000; socket++) {
			BMessage message = built_message(kMsgAddUser, "socket", socket, "nick",
				round == 0 ? "early" : "late");
			fWindow->Window()->PostMessage(&message);
		}
	}
	fWindow->Settle();
	EXPECT_EQ(Nicks(5000, "late"), _Nicks());
	_ExpectCount("Users Online (5000)", "5000 users online");
}


TEST_F(UserListWindowTest, WhoeverComesAndGoes_IsFoundAsByAWalk)
{
	std::mt19937 random(2026);
	std::vector<std::pair<uint16, std::string>> users;
	const auto walk = [&users](uint16 socket) {
		return std::find_if(users.begin(), users.end(), [socket](const auto& user) {
			return user.first == socket;
		});
	};
	for (int step = 0; step < 600; step++) {
		// Some of them are rows that are no users, which stay.
		if (step % 150 == 100) {
			fList->AddItem(new BStringItem("no user"));
			users.emplace_back(65535, "no user");
		}
		if (step == 250) {
			fWindow->Post(kMsgRemoveAll);
			users.clear();
		}
		const uint16 socket = static_cast<uint16>(random() % 60);
		const auto place = walk(socket);
		if (random() % 3 == 0) {
			_Remove(socket);
			if (place != users.end())
				users.erase(place);
		} else {
			const std::string nick = "user " + std::to_string(step);
			_Add(socket, nick);
			if (place != users.end())
				place->second = nick;
			else
				users.emplace_back(socket, nick);
		}
		Nicks expected;
		for (const auto& user : users)
			expected.push_back(user.second);
		ASSERT_EQ(expected, _Nicks()) << step;
	}
	EXPECT_GT(users.size(), 10u);
}


TEST_F(UserListWindowTest, Closing_MinimizesAndTheListGoesOn)
{
	ExpectMinimizedByClosing();
	_Add(1, "one");
	_ExpectCount("Users Online (1)", "1 user online");
}
