/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerItem.h"

#include <cmath>

#include <gtest/gtest.h>

#include <Font.h>
#include <InterfaceDefs.h>
#include <String.h>
#include <View.h>

#include "DrawnRow.h"
#include "HostileTexts.h"


// The row of a server on 10.20.30.40:5500; eight pixels at least are between name and users.
static std::string
drawn_server(const std::string& description, const std::string& users,
	const std::string& name = "Harbor", bool isSelected = false)
{
	return drawn_row([=](BView* view, BRect frame) {
		if (isSelected)
			fill_selected(view, frame);
		font_height height;
		view->GetFontHeight(&height);
		const float line = height.ascent + height.descent + height.leading;
		const float nameY = frame.top + height.ascent + 2;
		const rgb_color dim = tint_color(ui_color(B_PANEL_BACKGROUND_COLOR), B_DARKEN_2_TINT);
		const rgb_color textColor = ui_color(
			isSelected ? B_LIST_SELECTED_ITEM_TEXT_COLOR : B_LIST_ITEM_TEXT_COLOR);
		view->SetFont(be_plain_font);
		const float left = frame.right - 6 - view->StringWidth(users.c_str());
		view->SetFont(be_bold_font);
		view->SetHighColor(textColor);
		BString cutName(name.c_str());
		view->TruncateString(&cutName, B_TRUNCATE_END, left - 8 - (frame.left + 6));
		view->DrawString(cutName.String(), BPoint(frame.left + 6, nameY));
		view->SetFont(be_plain_font);
		view->SetHighColor(dim);
		view->DrawString(users.c_str(), BPoint(left, nameY));
		view->DrawString("10.20.30.40:5500", BPoint(frame.left + 6, nameY + 2 * line + 1));
		view->SetHighColor(tint_color(textColor, 0.59f));
		BString cut(description.c_str());
		view->TruncateString(&cut, B_TRUNCATE_END, frame.Width() - 12);
		view->DrawString(cut.String(), BPoint(frame.left + 6, nameY + line + 1));
	});
}


static std::string
drawn_item_of(const std::string& description, uint16 users, const std::string& name = "Harbor")
{
	ServerItem item(name.c_str(), description.c_str(), "10.20.30.40", 5500, users);
	return drawn_item(&item);
}


TEST(ServerItemTest, Users_AreCountedWithTheirSingular)
{
	EXPECT_TRUE(drawn_item_of("ships", 0) == drawn_server("ships", "0 users"));
	EXPECT_TRUE(drawn_item_of("ships", 1) == drawn_server("ships", "1 user"));
	EXPECT_TRUE(drawn_item_of("ships", 2) == drawn_server("ships", "2 users"));
	EXPECT_TRUE(drawn_item_of("ships", 65535) == drawn_server("ships", "65535 users"));
	EXPECT_FALSE(drawn_item_of("ships", 1) == drawn_server("ships", "1 users"));
}


TEST(ServerItemTest, SelectedRow_HasTheColorsOfASelection)
{
	ServerItem item("Harbor", "ships", "10.20.30.40", 5500, 2);
	item.Select();
	for (const bool complete : {false, true})
		EXPECT_TRUE(
			drawn_item(&item, complete) == drawn_server("ships", "2 users", "Harbor", true));
}


// What was drawn there before stays; only a row that is complete is cleared first.
TEST(ServerItemTest, IncompleteRow_IsDrawnOverWhatIsThere)
{
	ServerItem item("Harbor", "ships", "10.20.30.40", 5500, 2);
	for (const bool complete : {false, true}) {
		const std::string drawn = drawn_row([&item, complete](BView* view, BRect frame) {
			view->SetHighColor(200, 100, 0);
			view->FillRect(frame);
			item.DrawItem(view, frame, complete);
		});
		EXPECT_EQ(complete, drawn == drawn_server("ships", "2 users"));
	}
}


TEST(ServerItemTest, LongName_IsCutBeforeTheUsers)
{
	const std::string name(255, 'n');
	EXPECT_TRUE(drawn_item_of("ships", 65535, name) == drawn_server("ships", "65535 users", name));
}


TEST(ServerItemTest, LongOrHostileDescription_IsDrawnAsItStandsAndCutAtItsEnd)
{
	std::vector<std::string> texts = hostile_texts();
	texts.push_back(std::string(200, 'w'));
	for (const std::string& text : texts) {
		SCOPED_TRACE(text);
		EXPECT_TRUE(drawn_item_of(text, 0) == drawn_server(text, "0 users"));
	}
}


TEST(ServerItemTest, LongAddress_IsCutAt63Bytes)
{
	const ServerItem item("", "", std::string(64, '1').c_str(), 65535, 0);
	EXPECT_EQ(std::string(63, '1'), item.Address());
	EXPECT_EQ(65535, item.Port());
	const std::string description(256, 'd');
	EXPECT_TRUE(
		drawn_item_of(description, 0) == drawn_server(description.substr(0, 255), "0 users"));
}


TEST(ServerItemTest, Row_IsThreeLinesHigh)
{
	ServerItem item("Harbor", "ships", "10.20.30.40", 5500, 0);
	BView view("owner", B_WILL_DRAW);
	item.Update(&view, be_plain_font);
	font_height height;
	be_plain_font->GetHeight(&height);
	EXPECT_FLOAT_EQ(3 * (height.ascent + height.descent + height.leading) + 8, item.Height());
}


static std::string
tool_tip_of(const char* name, const char* description, float width)
{
	return ServerItem(name, description, "10.20.30.40", 5500, 2).ToolTipText(width).String();
}


TEST(ServerItemTest, NameThatJustFits_HasNoToolTip)
{
	const char* name = "a <b>harbor</b> & more";
	const float width = 6 + std::ceil(be_bold_font->StringWidth(name)) + 8
		+ std::ceil(be_plain_font->StringWidth("2 users")) + 6;
	EXPECT_EQ("", tool_tip_of(name, "ships", width));
	EXPECT_EQ(name, tool_tip_of(name, "ships", width - 2));
}


TEST(ServerItemTest, DescriptionThatJustFits_HasNoToolTip)
{
	const char* description = "a <b>description</b> & more of what there is";
	const float width = 6 + std::ceil(be_plain_font->StringWidth(description)) + 6;
	EXPECT_EQ("", tool_tip_of("Harbor", description, width));
	EXPECT_EQ(description, tool_tip_of("Harbor", description, width - 1));
}


TEST(ServerItemTest, NameAndDescriptionThatDoNotFit_AreTwoLines)
{
	const std::string name(100, 'n');
	const std::string description(255, 'd');
	EXPECT_EQ(name + "\n" + description, tool_tip_of(name.c_str(), description.c_str(), 289));
}
