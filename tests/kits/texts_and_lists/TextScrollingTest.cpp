/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <Font.h>

#include "ExpectSoon.h"
#include "Transcript.h"
#include "UserInput.h"


class TextScrollingTest : public Transcript {
protected:
	/*!	Lines of up to six rows. */
	void AppendLines(int count)
	{
		std::string text;
		for (int i = 0; i < count; i++) {
			text += "line " + std::to_string(i);
			for (int word = 0; word < i * 7 % 50; word++)
				text += " word";
			text += "\n";
		}
		Append(text);
	}

	void ScrollToEnd()
	{
		fText->ScrollToOffset(fText->TextLength());
		fText->PointAt(fText->TextLength());
	}

	/*!	\return Where each row begins. To ask lays all of them out. */
	std::vector<int32> Rows() const
	{
		std::vector<int32> rows;
		float y = -1e9f;
		for (int32 i = 0; i <= fText->TextLength(); i++) {
			const float place = fText->PointAt(i).y;
			if (place > y)
				rows.push_back(i);
			y = place;
		}
		return rows;
	}

	int RowOf(const std::vector<int32>& rows, int32 offset) const
	{
		return static_cast<int>(std::upper_bound(rows.begin(), rows.end(), offset) - rows.begin())
			- 1;
	}

	/*!	\return What is at the top after each turn, until it is what was there before. */
	std::vector<int32> Tops(const std::function<void()>& turn)
	{
		std::vector<int32> tops(1, Top());
		for (;;) {
			turn();
			if (Top() == tops.back())
				return tops;
			tops.push_back(Top());
		}
	}

	void ResizeTo(float width, float height)
	{
		fWindow->ResizeTo(width, height);
		ASSERT_SOON(fText->Bounds().Width() == width && fText->Bounds().Height() == height);
		fText->PointAt(fText->TextLength());
	}
};


TEST_F(TextScrollingTest, ByRows_ShowsEachRowOnce)
{
	AppendLines(60);
	const std::vector<int32> down = Tops([this]() {
		click_scroll_bar(fText, kScrollStepDown);
	});
	EXPECT_TRUE(IsSeen(fText->TextLength()));
	std::vector<int32> rows = Rows();
	ASSERT_GT(rows.size(), 150u);
	rows.resize(static_cast<size_t>(RowOf(rows, down.back())) + 1);
	EXPECT_EQ(down, rows);

	// From the end of a text of which nothing else has been seen.
	fText->SetText("");
	AppendLines(60);
	ScrollToEnd();
	std::vector<int32> up = Tops([this]() {
		click_scroll_bar(fText, kScrollStepUp);
	});
	std::reverse(up.begin(), up.end());
	EXPECT_EQ(up, rows);
}


TEST_F(TextScrollingTest, WheelAndPages_GoBySoManyRowsBothWays)
{
	const struct {
		const char* name;
		int rows;
		std::function<void()> up;
		std::function<void()> down;
	} cases[] = {
		{"wheel", 3, std::bind(turn_wheel, fText, 1), std::bind(turn_wheel, fText, -1)},
		{"page", scroll_state(fText).page, std::bind(click_scroll_bar, fText, kScrollPageUp),
			std::bind(click_scroll_bar, fText, kScrollPageDown)},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.name);
		fText->SetText("");
		AppendLines(60);
		ScrollToEnd();
		const std::vector<int32> up = Tops(entry.up);
		const std::vector<int32> down = Tops(entry.down);
		const std::vector<int32> rows = Rows();
		for (size_t i = 1; i + 1 < up.size(); i++)
			EXPECT_EQ(RowOf(rows, up[i - 1]) - RowOf(rows, up[i]), entry.rows) << i;
		for (size_t i = 1; i + 1 < down.size(); i++)
			EXPECT_EQ(RowOf(rows, down[i]) - RowOf(rows, down[i - 1]), entry.rows) << i;
		EXPECT_EQ(up.back(), 0);
		EXPECT_EQ(down.back(), up.front());
		EXPECT_TRUE(IsSeen(fText->TextLength()));
	}
}


TEST_F(TextScrollingTest, PlacesAskedForAbove_DoNotMoveTheText)
{
	AppendLines(60);
	ScrollToEnd();
	const int32 top = Top();
	// Only now it is known how many rows there are.
	const std::vector<int32> rows = Rows();
	EXPECT_EQ(Top(), top);
	click_scroll_bar(fText, kScrollStepUp);
	EXPECT_EQ(RowOf(rows, Top()), RowOf(rows, top) - 1);
	click_scroll_bar(fText, kScrollStepDown);
	EXPECT_EQ(Top(), top);

	fText->SetText("");
	AppendLines(60);
	fText->ScrollToOffset(fText->TextLength() / 2);
	const int32 middle = Top();
	Rows();
	click_scroll_bar(fText, kScrollStepDown);
	EXPECT_EQ(RowOf(rows, Top()), RowOf(rows, middle) + 1);
}


TEST_F(TextScrollingTest, ScrollBar_SaysHowMuchThereIs_AndIsDraggedToItsEnds)
{
	EXPECT_EQ(scroll_state(fText).max, 0);
	Append("line\n", 100);
	const ScrollState start = scroll_state(fText);
	EXPECT_EQ(start.value, 0);
	EXPECT_EQ(start.step, 1);
	EXPECT_EQ(start.max + start.page, 101);
	float height;
	fText->PointAt(0, &height);
	EXPECT_EQ(start.page, static_cast<int>((fText->Bounds().Height() + 1 - 8) / height));
	ScrollToEnd();
	EXPECT_EQ(scroll_state(fText).value, start.max);
	scroll_to(fText, 30);
	EXPECT_EQ(Top(), 30 * 5);

	fText->SetText("");
	AppendLines(60);
	scroll_to(fText, scroll_state(fText).max);
	// What is laid out on the way may turn out to be longer.
	for (int i = 0; i < 10 && !IsSeen(fText->TextLength()); i++)
		scroll_to(fText, scroll_state(fText).max);
	EXPECT_TRUE(IsSeen(fText->TextLength()));
	EXPECT_EQ(scroll_state(fText).value, scroll_state(fText).max);
	scroll_to(fText, 0);
	EXPECT_EQ(Top(), 0);
}


TEST_F(TextScrollingTest, Resized_TheSameTextIsAtTheTopOrTheEnd)
{
	AppendLines(60);
	fText->ScrollToOffset(2000);
	click_scroll_bar(fText, kScrollPageDown);
	const int32 top = Top();
	ASSERT_GT(top, 0);
	for (const float width : {180.0f, 500.0f, 300.0f}) {
		SCOPED_TRACE(width);
		ResizeTo(width, 150);
		const std::vector<int32> rows = Rows();
		EXPECT_EQ(Top(), rows[static_cast<size_t>(RowOf(rows, top))]);
	}
	// Higher and lower, and all of the rows are still where they were.
	const int32 before = Top();
	ResizeTo(300, 250);
	EXPECT_EQ(Top(), before);
	ResizeTo(300, 100);
	EXPECT_EQ(Top(), before);

	ScrollToEnd();
	for (const float height : {60.0f, 400.0f, 150.0f}) {
		ResizeTo(height + 120, height);
		EXPECT_TRUE(IsSeen(fText->TextLength())) << height;
		EXPECT_EQ(scroll_state(fText).value, scroll_state(fText).max) << height;
	}
}


TEST_F(TextScrollingTest, ChangedOutsideOfTheView_TheSameTextIsAtTheTop)
{
	AppendLines(60);
	fText->ScrollToOffset(2000);
	const int32 top = Top();
	const ScrollState before = scroll_state(fText);
	Append("news\n", 3);
	EXPECT_EQ(Top(), top);
	EXPECT_EQ(scroll_state(fText).max, before.max + 3);
	EXPECT_EQ(scroll_state(fText).value, before.value);

	fText->SetText("");
	Append("line\n", 100);
	scroll_to(fText, 50);
	ASSERT_EQ(Top(), 250);
	fText->Insert(100, "new\nlines\n", 10);
	fText->PointAt(fText->TextLength());
	EXPECT_EQ(Top(), 260);
	EXPECT_EQ(scroll_state(fText).value, 52);
}


TEST_F(TextScrollingTest, ShorterText_IsShownFromItsStart)
{
	AppendLines(60);
	ScrollToEnd();
	fText->SetText("one\ntwo\n");
	fText->PointAt(0);
	EXPECT_EQ(Top(), 0);
	EXPECT_TRUE(IsSeen(8));
	EXPECT_EQ(scroll_state(fText).max, 0);
	fText->SetText("");
	fText->PointAt(0);
	EXPECT_EQ(scroll_state(fText).max, 0);
}


TEST_F(TextScrollingTest, RowsOfDifferentHeights_AreEachSeenOnce_HoweverHigh)
{
	BFont large;
	large.SetSize(40);
	for (int i = 0; i < 30; i++) {
		fText->SetFontAndColor(i % 3 == 0 ? &large : be_plain_font);
		Append("row of words\n");
	}
	ScrollToEnd();
	EXPECT_TRUE(IsSeen(fText->TextLength()));
	for (int32 row = Top() / 13; row > 0; row--) {
		click_scroll_bar(fText, kScrollStepUp);
		EXPECT_EQ(Top(), (row - 1) * 13);
	}
	for (int32 i = 0; i < 30; i++) {
		fText->ScrollToOffset(i * 13);
		EXPECT_TRUE(IsSeen(i * 13)) << i;
	}

	fText->SetText("");
	large.SetSize(300);
	Append("before\n");
	fText->SetFontAndColor(&large);
	Append("X\n");
	fText->SetFontAndColor(be_plain_font);
	Append("after");
	ScrollToEnd();
	EXPECT_TRUE(IsSeen(fText->TextLength()));
	click_scroll_bar(fText, kScrollStepUp);
	EXPECT_EQ(Top(), 7);
	click_scroll_bar(fText, kScrollStepUp);
	EXPECT_EQ(Top(), 0);
	click_scroll_bar(fText, kScrollStepDown);
	click_scroll_bar(fText, kScrollStepDown);
	EXPECT_TRUE(IsSeen(fText->TextLength()));
}


TEST_F(TextScrollingTest, PagesOfRowsOfDifferentHeights_LeaveNoRowOut)
{
	BFont large;
	large.SetSize(40);
	for (int i = 0; i < 60; i++) {
		fText->SetFontAndColor(i % 4 < 2 ? &large : be_plain_font);
		Append("row of words\n");
	}
	fText->ScrollToOffset(0);
	while (!IsSeen(fText->TextLength())) {
		int32 next = Top();
		while (IsSeen(next))
			next += 13;
		click_scroll_bar(fText, kScrollPageDown);
		ASSERT_TRUE(IsSeen(next)) << next;
	}
	while (Top() > 0) {
		const int32 last = Top() - 13;
		click_scroll_bar(fText, kScrollPageUp);
		ASSERT_TRUE(IsSeen(last)) << last;
	}
	fText->Select(0, 0);
	for (int32 turns = 0; !IsSeen(fText->TextLength()) && turns < 60; turns++) {
		int32 next = Top();
		while (IsSeen(next))
			next += 13;
		Press(B_PAGE_DOWN);
		ASSERT_TRUE(IsSeen(next)) << next;
	}
	EXPECT_TRUE(IsSeen(fText->TextLength()));
}


TEST_F(TextScrollingTest, OtherScripts_EachLineCanBeScrolledTo)
{
	std::vector<int32> starts;
	for (int i = 0; i < 20; i++) {
		for (const char* line : {"plain\n", "\xe4\xbd\xa0\xe5\xa5\xbd\n",
				 "\xf0\x9f\x98\x80 \xf0\x9f\x91\xa8\xe2\x80\x8d\xf0\x9f\x91\xa9\n",
				 "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d\n", "e\xcc\x81\xcc\xa7\n"}) {
			starts.push_back(fText->TextLength());
			Append(line);
		}
	}
	ScrollToEnd();
	EXPECT_TRUE(IsSeen(fText->TextLength()));
	for (size_t i = starts.size(); i > 0; i--) {
		fText->ScrollToOffset(starts[i - 1]);
		EXPECT_TRUE(IsSeen(starts[i - 1])) << i;
	}
	for (const int32 start : starts) {
		fText->ScrollToOffset(start);
		EXPECT_TRUE(IsSeen(start)) << start;
	}
}


TEST_F(TextScrollingTest, SmallerStyleOfWhatIsSeen_LeavesTheLineAtTheTop)
{
	BFont large;
	large.SetSize(40);
	fText->SetFontAndColor(&large);
	AppendLines(60);
	fText->ScrollToOffset(3000);
	const int32 top = Top();
	fText->SetFontAndColor(0, fText->TextLength(), be_plain_font);
	fText->PointAt(top);
	const std::vector<int32> rows = Rows();
	const int row = RowOf(rows, Top());
	EXPECT_EQ(Top(), rows[static_cast<size_t>(row)]);
	EXPECT_LE(std::abs(row - RowOf(rows, top)), 6);
}


TEST_F(TextScrollingTest, WithoutWrapping_EachLineIsARow)
{
	AppendLines(60);
	fText->ScrollToOffset(2000);
	fText->SetWordWrap(false);
	fText->PointAt(0);
	EXPECT_EQ(Rows().size(), 61u);
	ScrollToEnd();
	EXPECT_EQ(scroll_state(fText).value, 61 - scroll_state(fText).page);
	fText->SetWordWrap(true);
	EXPECT_GT(Rows().size(), 150u);
}
