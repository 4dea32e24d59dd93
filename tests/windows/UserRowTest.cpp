/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <cmath>
#include <filesystem>

#include <gtest/gtest.h>

#include <Application.h>
#include <Bitmap.h>
#include <File.h>
#include <Font.h>
#include <InterfaceDefs.h>
#include <ListView.h>
#include <Message.h>
#include <Path.h>
#include <Roster.h>
#include <View.h>

#include "AppMessages.h"
#include "BuiltMessage.h"
#include "DrawnRow.h"
#include "MessageRecorder.h"
#include "UserItem.h"
#include "UserListWindow.h"
#include "WindowProbe.h"


static const uint16 kIcon = 128;
static const uint16 kOtherIcon = 137;
static const uint16 kNoIcon = 61001;
static const float kTextLeft = 4 + 16 + 6;
static const float kTextRight = 6;


static void
draw_nick(BView* view, BRect frame, const char* nick,
	color_which nickColor = B_LIST_ITEM_TEXT_COLOR)
{
	draw_line(view, frame, kTextLeft, nick, nickColor);
}


static void
draw_dot(BView* view, BRect frame, rgb_color color)
{
	const BRect dot(frame.left + 4, frame.top + (frame.Height() - 12) / 2, frame.left + 16,
		frame.top + (frame.Height() + 12) / 2);
	view->SetHighColor(color);
	view->FillEllipse(dot);
	view->SetHighColor(tint_color(color, B_DARKEN_2_TINT));
	view->StrokeEllipse(dot);
}


static std::string
drawn_with_dot(rgb_color color, const char* nick)
{
	return drawn_row([=](BView* view, BRect frame) {
		draw_dot(view, frame, color);
		draw_nick(view, frame, nick);
	});
}


static std::string
drawn_with_icon(const BBitmap* icon, const char* nick)
{
	return drawn_row([=](BView* view, BRect frame) {
		const float top = frame.top + (frame.Height() - 16) / 2;
		view->SetDrawingMode(B_OP_ALPHA);
		view->SetBlendingMode(B_PIXEL_ALPHA, B_ALPHA_OVERLAY);
		view->DrawBitmap(icon, BRect(frame.left + 4, top, frame.left + 19, top + 15));
		view->SetDrawingMode(B_OP_COPY);
		draw_nick(view, frame, nick);
	});
}


// The suite has a folder "assets" beside it, with the program's pictures.
class UserRowTest : public testing::Test {
protected:
	UserRowTest()
		: fTarget(new MessageRecorder()),
		  fWindow(new UserListWindow(BRect(660, 180, 880, 550), fTarget.get())),
		  fUsers(static_cast<UserListWindow*>(fWindow.Window()))
	{
	}

	std::string _Drawn(uint16 icon, uint16 color, const char* nick) const
	{
		UserItem item(1, icon, color, nick, fUsers);
		return drawn_item(&item);
	}

	void _Add(uint16 icon, uint16 color, const char* nick)
	{
		fWindow.Post(built_message(kMsgAddUser, "socket", static_cast<uint16>(7), "icon", icon,
			"color", color, "nick", nick));
	}

	RecorderOwner fTarget;
	WindowProbe fWindow;
	UserListWindow* fUsers;
};


TEST_F(UserRowTest, WithoutAPicture_HasADotAndTheNickBehind)
{
	EXPECT_TRUE(_Drawn(kNoIcon, 0, "Ann") == drawn_with_dot(make_color(50, 100, 180), "Ann"));
	EXPECT_TRUE(_Drawn(kNoIcon, 1, "Bob") == drawn_with_dot(make_color(200, 0, 0), "Bob"));
}


TEST_F(UserRowTest, WithAPicture_ShowsItInPlaceOfTheDot)
{
	const BBitmap* icon = fUsers->IconForID(kIcon);
	ASSERT_NE(nullptr, icon);
	EXPECT_TRUE(_Drawn(kIcon, 0, "Ann") == drawn_with_icon(icon, "Ann"));
	EXPECT_TRUE(_Drawn(kIcon, 1, "Ann") == drawn_with_icon(icon, "Ann"));
}


TEST_F(UserRowTest, PictureOfAnotherSize_FillsTheSameSquare)
{
	app_info info;
	be_app->GetAppInfo(&info);
	BPath path(&info.ref);
	path.GetParent(&path);
	path.Append("assets/61002.png");
	{
		const std::string bytes = picture_file(40, 24);
		BFile file(path.Path(), B_WRITE_ONLY | B_CREATE_FILE | B_ERASE_FILE);
		ASSERT_EQ(static_cast<ssize_t>(bytes.size()), file.Write(bytes.data(), bytes.size()));
	}
	const std::string expected = drawn_row([](BView* view, BRect frame) {
		const float top = frame.top + (frame.Height() - 16) / 2;
		view->SetHighColor(0xe0, 0x30, 0x90);
		view->FillRect(BRect(frame.left + 4, top, frame.left + 19, top + 15));
		draw_nick(view, frame, "Ann");
	});
	EXPECT_TRUE(_Drawn(61002, 0, "Ann") == expected);
	std::filesystem::remove(path.Path());
}


TEST_F(UserRowTest, TheSameSocketTwice_ShowsTheLaterNickIconAndColor)
{
	fWindow.Window()->Show();
	_Add(kIcon, 0, "before");
	_Add(kOtherIcon, 0, "after");
	BListView* list = fWindow.Find<BListView>("userlist");
	ASSERT_EQ(1, list->CountItems());
	EXPECT_TRUE(
		drawn_item(list->ItemAt(0)) == drawn_with_icon(fUsers->IconForID(kOtherIcon), "after"));

	_Add(kNoIcon, 1, "at last");
	ASSERT_EQ(1, list->CountItems());
	EXPECT_TRUE(drawn_item(list->ItemAt(0)) == drawn_with_dot(make_color(200, 0, 0), "at last"));
}


TEST_F(UserRowTest, NickThatJustFits_IsDrawnWholeAndHasNoToolTip)
{
	const char* nick = "Ann <&> of the harbor";
	UserItem item(1, kNoIcon, 0, nick, fUsers);
	const float width = kTextLeft + std::ceil(be_plain_font->StringWidth(nick)) + kTextRight;
	EXPECT_STREQ("", item.ToolTipText(width).String());
	EXPECT_TRUE(drawn_item(&item, false, width) == drawn_with_dot(make_color(50, 100, 180), nick));
}


TEST_F(UserRowTest, NickWithAPixelTooFew_EndsInAnEllipsisAndIsTheToolTip)
{
	const char* nick = "Ann <&> of the harbor";
	const float textWidth = std::ceil(be_plain_font->StringWidth(nick)) - 1;
	const float width = kTextLeft + textWidth + kTextRight;
	BString cut(nick);
	be_plain_font->TruncateString(&cut, B_TRUNCATE_END, textWidth);
	ASSERT_TRUE(cut.EndsWith("…"));
	for (const bool isSelected : {false, true}) {
		UserItem item(1, kNoIcon, 0, nick, fUsers);
		if (isSelected)
			item.Select();
		EXPECT_STREQ(nick, item.ToolTipText(width).String());
		const std::string drawn = drawn_item(&item, false, width);
		EXPECT_TRUE(drawn == drawn_row([&](BView* view, BRect frame) {
			frame.right = frame.left + width;
			if (isSelected)
				fill_selected(view, frame);
			draw_dot(view, frame, make_color(50, 100, 180));
			draw_nick(view, frame, cut.String(),
				isSelected ? B_LIST_SELECTED_ITEM_TEXT_COLOR : B_LIST_ITEM_TEXT_COLOR);
		}));
	}
}


// A picture leaves the nick as much room as a dot.
TEST_F(UserRowTest, LongNickBesideAPicture_EndsInAnEllipsis)
{
	const std::string nick(63, 'w');
	BString cut(nick.c_str());
	be_plain_font->TruncateString(&cut, B_TRUNCATE_END, 289 - kTextLeft - kTextRight);
	EXPECT_TRUE(
		_Drawn(kIcon, 0, nick.c_str()) == drawn_with_icon(fUsers->IconForID(kIcon), cut.String()));
}
