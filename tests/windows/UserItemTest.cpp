/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "UserItem.h"

#include <gtest/gtest.h>

#include <View.h>

#include "HostileTexts.h"
#include "MessageRecorder.h"
#include "UserListWindow.h"
#include "WindowProbe.h"


static const rgb_color kDefaultDot = {50, 100, 180, 255};
static const rgb_color kRed = {200, 0, 0, 255};


// Keeps the colors that are drawn with, in order.
class ColorRecorder : public BView {
public:
	ColorRecorder()
		: BView("recorder", B_WILL_DRAW, NULL)
	{
	}

	void SetHighColor(rgb_color color) override
	{
		fColors.push_back(color);
		BView::SetHighColor(color);
	}
	using BView::SetHighColor;

	std::vector<rgb_color> fColors;
};


// There is no assets folder beside this suite, so every user has a dot.
class UserItemTest : public testing::Test {
protected:
	UserItemTest()
		: fTarget(new MessageRecorder()),
		  fWindow(new UserListWindow(BRect(660, 180, 880, 550), fTarget.get()))
	{
	}

	std::unique_ptr<UserItem> _NewItem(uint16 color)
	{
		return std::unique_ptr<UserItem>(
			new UserItem(1, 128, color, "nick", static_cast<UserListWindow*>(fWindow.Window())));
	}

	static void _ExpectColors(UserItem* item, bool complete, const std::vector<rgb_color>& expected)
	{
		ColorRecorder view;
		item->DrawItem(&view, BRect(0, 0, 199, 17), complete);
		ASSERT_EQ(expected.size(), view.fColors.size());
		for (size_t i = 0; i < expected.size(); i++)
			EXPECT_TRUE(expected[i] == view.fColors[i]) << "color " << i;
	}

	RecorderOwner fTarget;
	WindowProbe fWindow;
};


static rgb_color
outline(rgb_color dot)
{
	return tint_color(dot, B_DARKEN_2_TINT);
}


TEST_F(UserItemTest, StatusWord_ColorsTheDotByItsValueAndTheNickByOneBit)
{
	const rgb_color plain = ui_color(B_LIST_ITEM_TEXT_COLOR);
	const struct {
		uint16 status;
		rgb_color dot;
		rgb_color text;
	} cases[] = {
		{0, kDefaultDot, plain},
		{1, kRed, plain},
		{2, {128, 0, 128, 255}, kRed},
		{3, {0, 128, 0, 255}, kRed},
		{4, kDefaultDot, plain},
		{6, kDefaultDot, kRed},
		{0x8001, kDefaultDot, plain},
		{0xffff, kDefaultDot, kRed},
	};
	for (const auto& expected : cases) {
		SCOPED_TRACE(expected.status);
		_ExpectColors(_NewItem(expected.status).get(), false,
			{expected.dot, outline(expected.dot), expected.text});
	}
}


TEST_F(UserItemTest, SelectedRow_HasTheColorsOfASelectionButAnAdministratorStaysRed)
{
	const struct {
		uint16 status;
		rgb_color dot;
		rgb_color text;
	} cases[] = {
		{0, kDefaultDot, ui_color(B_LIST_SELECTED_ITEM_TEXT_COLOR)},
		{2, {128, 0, 128, 255}, kRed},
	};
	for (const auto& expected : cases) {
		SCOPED_TRACE(expected.status);
		const std::unique_ptr<UserItem> item = _NewItem(expected.status);
		item->Select();
		_ExpectColors(item.get(), false,
			{ui_color(B_LIST_SELECTED_BACKGROUND_COLOR), expected.dot, outline(expected.dot),
				expected.text});
	}
}


TEST_F(UserItemTest, CompleteRedraw_FillsTheBackground)
{
	const ColorRecorder view;
	_ExpectColors(_NewItem(0).get(), true,
		{view.ViewColor(), kDefaultDot, outline(kDefaultDot), ui_color(B_LIST_ITEM_TEXT_COLOR)});
}


TEST_F(UserItemTest, Changes_ShowWithTheNextDrawing)
{
	const std::unique_ptr<UserItem> item = _NewItem(0);
	item->SetColor(1);
	item->SetNick("other");
	item->SetIcon(7);
	EXPECT_STREQ("other", item->Text());
	EXPECT_EQ(1, item->Socket());
	_ExpectColors(item.get(), false, {kRed, outline(kRed), ui_color(B_LIST_ITEM_TEXT_COLOR)});
}


TEST_F(UserItemTest, AnyNick_CanBeDrawn)
{
	std::vector<std::string> nicks = hostile_texts();
	nicks.push_back("");
	nicks.push_back(std::string(65535, 'x'));
	for (const std::string& nick : nicks) {
		SCOPED_TRACE(nick.substr(0, 80));
		const std::unique_ptr<UserItem> item = _NewItem(0);
		item->SetNick(nick.c_str());
		ColorRecorder view;
		item->DrawItem(&view, BRect(0, 0, 199, 17), true);
		EXPECT_EQ(nick, item->Text());
	}
}
