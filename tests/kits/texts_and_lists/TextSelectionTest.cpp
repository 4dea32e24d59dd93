/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <string>
#include <vector>


#include "ExpectSoon.h"
#include "Transcript.h"
#include "UserInput.h"
#include "WindowInput.h"


class TextSelectionTest : public Transcript {
protected:
	/*!	\return Where a key leads from one place to the next, with the key pressed \a count times.
	*/
	std::string Walk(int32 from, char key, int count, uint32 modifiers = 0)
	{
		SelectAt(from);
		std::string places;
		for (int i = 0; i < count; i++) {
			Press(key, modifiers);
			int32 start;
			int32 end;
			fText->GetSelection(&start, &end);
			// What moves is the end forwards, and the start backwards.
			places += std::to_string(start < from ? start : end) + " ";
		}
		return places;
	}

	// What the mouse does. Each returns the selection then.
	std::string Click(BPoint where)
	{
		click(fText, where);
		return Selection();
	}

	std::string ClickWithShift(BPoint where)
	{
		press_mouse(fText, where, B_SHIFT_KEY);
		return Release(where);
	}

	std::string DoubleClick(BPoint where)
	{
		double_click(fText, where);
		return Selection();
	}

	std::string TripleClick(BPoint where)
	{
		double_click(fText, where);
		press_mouse(fText, where);
		return Release(where);
	}

	std::string DragTo(BPoint where)
	{
		drag_mouse(fText, where);
		return Selection();
	}

	std::string Release(BPoint where)
	{
		release_mouse(fText, where);
		return Selection();
	}

	std::string Drag(BPoint from, BPoint to)
	{
		press_mouse(fText, from);
		DragTo(to);
		return Release(to);
	}
};


// #pragma mark - keyboard


TEST_F(TextSelectionTest, LeftAndRight_CrossTheEndsOfLines_AndLeaveASelectionToTheirSide)
{
	Append("ab\ncd\r\nef\rg");
	EXPECT_EQ(Walk(0, B_RIGHT_ARROW, 11), "1 2 3 4 5 7 8 9 10 11 11 ");
	EXPECT_EQ(Walk(11, B_LEFT_ARROW, 11), "10 9 8 7 5 4 3 2 1 0 0 ");
	EXPECT_EQ(Walk(1, B_RIGHT_ARROW, 6, B_SHIFT_KEY), "2 3 4 5 7 8 ");
	EXPECT_EQ(Selection(), "1..8");
	EXPECT_EQ(Walk(8, B_LEFT_ARROW, 4, B_SHIFT_KEY), "7 5 4 3 ");
	EXPECT_EQ(Selection(), "3..8");

	fText->SetText("some words");
	fText->Select(2, 6);
	EXPECT_EQ(Press(B_LEFT_ARROW), "2..2");
	fText->Select(2, 6);
	EXPECT_EQ(Press(B_RIGHT_ARROW), "6..6");
}


TEST_F(TextSelectionTest, LeftAndRight_TakeACharacterAsAWhole)
{
	// A letter with a mark behind it, an emoji beyond the BMP, a family of three, an invalid byte.
	Append("e\xcc\x81"
		   "\xf0\x9f\x98\x80"
		   "\xf0\x9f\x91\xa8\xe2\x80\x8d\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x91\xa7"
		   "\xff"
		   "z");
	EXPECT_EQ(Walk(0, B_RIGHT_ARROW, 5), "3 7 25 26 27 ");
	EXPECT_EQ(Walk(27, B_LEFT_ARROW, 5), "26 25 7 3 0 ");
}


TEST_F(TextSelectionTest, ByWords_StopsWhereWordsBegin)
{
	Append("one two, three\n\n  four");
	EXPECT_EQ(Walk(0, B_RIGHT_ARROW, 8, B_COMMAND_KEY), "4 7 9 14 15 16 18 22 ");
	EXPECT_EQ(Walk(22, B_LEFT_ARROW, 8, B_COMMAND_KEY), "18 16 15 14 9 7 4 0 ");
	EXPECT_EQ(Walk(4, B_RIGHT_ARROW, 3, B_COMMAND_KEY | B_SHIFT_KEY), "7 9 14 ");
	EXPECT_EQ(Selection(), "4..14");
	EXPECT_EQ(Press(B_LEFT_ARROW, B_COMMAND_KEY | B_SHIFT_KEY), "4..9");
}


TEST_F(TextSelectionTest, UpAndDown_KeepTheColumn_AndStayWhereNothingFollowsExceptToSelect)
{
	Append("123456\n12\n\n123456\n1234");
	EXPECT_EQ(Walk(5, B_DOWN_ARROW, 4), "9 10 16 22 ");
	EXPECT_EQ(Walk(16, B_UP_ARROW, 3), "10 9 5 ");
	// Going on sideways is a new column.
	SelectAt(5);
	Press(B_DOWN_ARROW);
	Press(B_LEFT_ARROW);
	Press(B_DOWN_ARROW);
	EXPECT_EQ(Press(B_DOWN_ARROW), "12..12");
	EXPECT_EQ(Walk(5, B_DOWN_ARROW, 3, B_SHIFT_KEY), "9 10 16 ");
	EXPECT_EQ(Selection(), "5..16");

	fText->SetText("abcd\nefgh");
	EXPECT_EQ(Walk(2, B_UP_ARROW, 1), "2 ");
	EXPECT_EQ(Walk(7, B_DOWN_ARROW, 1), "7 ");
	EXPECT_EQ(Walk(2, B_UP_ARROW, 1, B_SHIFT_KEY), "0 ");
	EXPECT_EQ(Walk(7, B_DOWN_ARROW, 1, B_SHIFT_KEY), "9 ");
}


TEST_F(TextSelectionTest, UpAndDown_GoByTheRowsOfAWrappedLine)
{
	Append("word word word word word word word word word word word word word word word word word");
	SelectAt(2);
	const int32 start = std::stoi(Press(B_DOWN_ARROW));
	EXPECT_GT(fText->PointAt(start).y, fText->PointAt(2).y);
	EXPECT_EQ(fText->PointAt(start).x, fText->PointAt(2).x);
	EXPECT_EQ(Press(B_UP_ARROW), "2..2");
}


TEST_F(TextSelectionTest, HomeAndEnd_AreThoseOfTheRow_AndWithCommandOfTheText)
{
	Append("first\nword word word word word word word word word word word word word word word");
	int32 second = 6;
	while (fText->PointAt(second).y == fText->PointAt(6).y)
		second++;
	EXPECT_EQ(Walk(8, B_END, 1), std::to_string(second - 1) + " ");
	EXPECT_EQ(fText->PointAt(second - 1).y, fText->PointAt(6).y);
	EXPECT_EQ(Walk(second + 3, B_HOME, 1), std::to_string(second) + " ");
	EXPECT_EQ(Walk(second + 3, B_END, 2),
		std::to_string(fText->TextLength()) + " " + std::to_string(fText->TextLength()) + " ");
	EXPECT_EQ(Walk(3, B_HOME, 2), "0 0 ");
	EXPECT_EQ(Walk(3, B_END, 2, B_SHIFT_KEY), "5 5 ");
	EXPECT_EQ(Selection(), "3..5");

	fText->SetText("first\nsecond\nthird");
	EXPECT_EQ(Walk(8, B_HOME, 1, B_COMMAND_KEY), "0 ");
	EXPECT_EQ(Walk(8, B_END, 1, B_COMMAND_KEY), "18 ");
	EXPECT_EQ(Walk(8, B_HOME, 1, B_COMMAND_KEY | B_SHIFT_KEY), "0 ");
	EXPECT_EQ(Selection(), "0..8");
	EXPECT_EQ(Walk(8, B_END, 1, B_COMMAND_KEY | B_SHIFT_KEY), "18 ");
	EXPECT_EQ(Selection(), "8..18");
}


TEST_F(TextSelectionTest, RightToLeftScripts_AreWalkedInReadingOrder)
{
	// Two bytes a letter.
	Append("abc\n\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd7\x9b\xd7\x9f\nx");
	EXPECT_GT(fText->PointAt(4).x, fText->PointAt(6).x);
	EXPECT_EQ(Walk(4, B_LEFT_ARROW, 9), "6 8 10 12 13 15 17 18 17 ");
	EXPECT_EQ(Walk(17, B_RIGHT_ARROW, 8), "15 13 12 10 8 6 4 3 ");
	EXPECT_EQ(Walk(4, B_LEFT_ARROW, 2, B_COMMAND_KEY), "13 17 ");
	EXPECT_EQ(Walk(17, B_RIGHT_ARROW, 2, B_COMMAND_KEY), "13 4 ");
	EXPECT_EQ(Walk(6, B_LEFT_ARROW, 2, B_SHIFT_KEY), "8 10 ");
	fText->Select(6, 10);
	EXPECT_EQ(Press(B_RIGHT_ARROW), "6..6");

	fText->SetText("say \xd9\x85\xd8\xb1\xd8\xad");
	EXPECT_EQ(Walk(3, B_RIGHT_ARROW, 5), "4 6 8 10 10 ");
	EXPECT_EQ(Walk(10, B_LEFT_ARROW, 4), "8 6 4 3 ");
}


TEST_F(TextSelectionTest, PageKeys_TurnThePageOrGoToTheEdge)
{
	Append("line\n", 100);
	SelectAt(0);
	const int page = scroll_state(fText).page;
	ASSERT_GT(page, 3);
	Press(B_PAGE_DOWN);
	EXPECT_EQ(Top(), page * 5);
	EXPECT_EQ(Selection(), std::to_string(page * 5) + ".." + std::to_string(page * 5));
	Press(B_PAGE_DOWN, B_SHIFT_KEY);
	EXPECT_EQ(Top(), 2 * page * 5);
	EXPECT_EQ(Selection(), std::to_string(page * 5) + ".." + std::to_string(2 * page * 5));
	Press(B_PAGE_UP, B_SHIFT_KEY);
	Press(B_PAGE_UP);
	EXPECT_EQ(Top(), 0);
	EXPECT_EQ(Selection(), "0..0");
	// Also when the caret is in the middle of the page.
	scroll_to(fText, 50);
	SelectAt(53 * 5);
	Press(B_PAGE_UP);
	EXPECT_EQ(Top(), (50 - page) * 5);
	const std::string caret = std::to_string((53 - page) * 5);
	EXPECT_EQ(Selection(), caret + ".." + caret);

	fText->SetText("one\ntwo\nthree");
	EXPECT_EQ(Walk(5, B_PAGE_DOWN, 1), "13 ");
	EXPECT_EQ(Walk(5, B_PAGE_UP, 1), "0 ");
	EXPECT_EQ(Walk(5, B_PAGE_UP, 1, B_SHIFT_KEY), "0 ");
	EXPECT_EQ(Selection(), "0..5");
}


TEST_F(TextSelectionTest, CaretThatIsMoved_IsSeen)
{
	Append("line\n", 100);
	SelectAt(500);
	Press(B_HOME, B_COMMAND_KEY);
	EXPECT_TRUE(IsSeen(0));
	for (int32 i = 1; i <= 40; i++) {
		Press(B_DOWN_ARROW);
		EXPECT_TRUE(IsSeen(i * 5)) << i;
	}
	Press(B_END, B_COMMAND_KEY | B_SHIFT_KEY);
	EXPECT_TRUE(IsSeen(500));
}


TEST_F(TextSelectionTest, SpacePagesAndLettersDoNothing_SoTheSelectionStays)
{
	Append("line\n", 100);
	fText->Select(1, 3);
	const int page = scroll_state(fText).page;
	Press(B_SPACE);
	EXPECT_EQ(Top(), page * 5);
	Press(B_SPACE);
	EXPECT_EQ(Top(), 2 * page * 5);
	Press(B_SPACE, B_SHIFT_KEY);
	EXPECT_EQ(Top(), page * 5);
	EXPECT_EQ(Selection(), "1..3");

	fText->SetText("text");
	fText->Select(1, 3);
	for (const char key : {'x', 'a', static_cast<char>(B_ENTER), static_cast<char>(B_BACKSPACE),
			 static_cast<char>(B_DELETE)})
		Press(key);
	EXPECT_STREQ(fText->Text(), "text");
	EXPECT_EQ(Selection(), "1..3");
}


// #pragma mark - mouse


TEST_F(TextSelectionTest, Click_SetsTheCaretAtTheCloserEdge)
{
	Append("mmmm\nmmmm");
	EXPECT_EQ(Click(Before(6)), "6..6");
	EXPECT_EQ(Click(Behind(6)), "7..7");
	// Beside a line it is its end, below the text that of the text.
	EXPECT_EQ(Click(BPoint(200, fText->PointAt(0).y + 5)), "4..4");
	EXPECT_EQ(Click(BPoint(8, 120)), "9..9");
}


TEST_F(TextSelectionTest, ClickWithShift_ExtendsFromTheAnchor)
{
	Append("some words\nmore words");
	Click(Before(5));
	EXPECT_EQ(ClickWithShift(Before(13)), "5..13");
	EXPECT_EQ(ClickWithShift(Before(2)), "2..5");
	EXPECT_EQ(Press(B_RIGHT_ARROW, B_SHIFT_KEY), "3..5");
}


TEST_F(TextSelectionTest, ClickWithShiftAfterWords_ExtendsByWords)
{
	Append("some words and more words");
	DoubleClick(Before(6));
	EXPECT_EQ(ClickWithShift(Before(17)), "5..19");
	EXPECT_EQ(ClickWithShift(Before(2)), "0..10");
	// A key ends that.
	Press(B_LEFT_ARROW);
	EXPECT_EQ(ClickWithShift(Before(12)), "0..12");
}


TEST_F(TextSelectionTest, Drag_SelectsBothWays_AndToTheEdgeOfAShortText)
{
	Append("some words\nmore words");
	EXPECT_EQ(Drag(Before(2), Before(14)), "2..14");
	Click(Before(0));
	EXPECT_EQ(Drag(Before(14), Before(2)), "2..14");
	EXPECT_EQ(Press(B_LEFT_ARROW, B_SHIFT_KEY), "1..14");

	click(fText, Before(0));
	EXPECT_EQ(Drag(Before(5), BPoint(40, -30)), "0..5");
	Click(Before(0));
	EXPECT_EQ(Drag(Before(5), BPoint(40, 130)), "5..21");
}


TEST_F(TextSelectionTest, DoubleClick_SelectsTheWord)
{
	Append("some words, (more)");
	EXPECT_EQ(DoubleClick(Before(6)), "5..10");
	EXPECT_EQ(DoubleClick(Behind(9)), "5..10");
	EXPECT_EQ(DoubleClick(Before(0)), "0..4");
	EXPECT_EQ(DoubleClick(Before(14)), "13..17");
}


TEST_F(TextSelectionTest, DoubleClickThatIsDragged_SelectsWords)
{
	Append("some words and more");
	press_mouse_again(fText, Before(7));
	EXPECT_EQ(DragTo(Before(12)), "5..14");
	EXPECT_EQ(DragTo(Before(6)), "5..10");
	EXPECT_EQ(DragTo(Before(2)), "0..10");
	Release(Before(2));
	EXPECT_EQ(DragTo(Before(18)), "0..10");
}


TEST_F(TextSelectionTest, TripleClick_SelectsTheLine)
{
	Append("first\nsome words\nlast");
	EXPECT_EQ(TripleClick(Before(8)), "6..17");
	EXPECT_EQ(ClickWithShift(Before(1)), "0..17");
	EXPECT_EQ(TripleClick(Before(19)), "17..21");
}


TEST_F(TextSelectionTest, DragBeyondTheEdge_ScrollsByItself)
{
	Append("line\n", 100);
	SelectAt(0);
	fText->ScrollToOffset(0);
	press_mouse(fText, Before(0));
	DragTo(BPoint(10, fText->Bounds().Height() + 20));
	EXPECT_SOON(Top() >= 5 * 5);
	Release(BPoint(10, fText->Bounds().Height() + 20));
	const int32 top = Top();
	int32 start;
	int32 end;
	fText->GetSelection(&start, &end);
	EXPECT_EQ(start, 0);
	EXPECT_GT(end, top);

	// Back again, above the upper edge.
	Click(BPoint(200, 60));
	press_mouse(fText, BPoint(200, 60));
	DragTo(BPoint(10, -20));
	EXPECT_SOON(Top() == 0);
	Release(BPoint(10, -20));
	fText->GetSelection(&start, &end);
	EXPECT_EQ(start, 0);
}


TEST_F(TextSelectionTest, ClickIntoTheSelection_ClearsItOnRelease_ButADragLeavesIt)
{
	Append("some words");
	fText->Select(0, 10);
	press_mouse(fText, Before(4));
	EXPECT_EQ(Selection(), "0..10");
	EXPECT_EQ(Release(Before(4)), "4..4");

	fText->SetText("some words and more");
	fText->Select(0, 10);
	press_mouse(fText, Before(4));
	cancel_next_drag(fText);
	DragTo(BPoint(100, 100));
	EXPECT_EQ(Release(BPoint(100, 100)), "0..10");
	EXPECT_STREQ(fText->Text(), "some words and more");
}


// #pragma mark - copying


TEST_F(TextSelectionTest, Copy_TakesWhatIsSelected)
{
	Append("<b>caf\xc3\xa9</b>\r\n\xff\xf0\x9f\x98\x80\rlast\n");
	set_clipboard("before");
	SelectAt(3);
	Press('C', B_COMMAND_KEY);
	EXPECT_EQ(clipboard(), "before");

	fText->Select(3, 8);
	Press('C', B_COMMAND_KEY);
	EXPECT_EQ(clipboard(), "caf\xc3\xa9");
	EXPECT_EQ(Press('A', B_COMMAND_KEY), "0..25");
	Press('C', B_COMMAND_KEY);
	EXPECT_EQ(clipboard(), "<b>caf\xc3\xa9</b>\n\xef\xbf\xbd\xf0\x9f\x98\x80\nlast\n");
}


TEST_F(TextSelectionTest, ContextMenu_CopiesAndSelectsAll)
{
	open_context_menu(fText, BPoint(10, 10));
	EXPECT_EQ(shown_menu_items(), "(Copy)|(Select All)|");
	Press(B_ESCAPE);

	Append("some words");
	open_context_menu(fText, BPoint(10, 10));
	EXPECT_EQ(shown_menu_items(), "(Copy)|Select All|");
	Press(B_DOWN_ARROW);
	EXPECT_EQ(Press(B_ENTER), "0..10");

	set_clipboard("before");
	open_context_menu(fText, BPoint(10, 10));
	EXPECT_EQ(shown_menu_items(), "Copy|Select All|");
	Press(B_DOWN_ARROW);
	Press(B_ENTER);
	EXPECT_EQ(clipboard(), "some words");
}


TEST_F(TextSelectionTest, NotSelectable_IsOnlyScrolled)
{
	Append("line\n", 100);
	fText->MakeSelectable(false);
	set_clipboard("before");
	Drag(Before(0), Before(12));
	DoubleClick(Before(6));
	for (const char key : {'A', 'C'})
		Press(key, B_COMMAND_KEY);
	Press(B_RIGHT_ARROW, B_SHIFT_KEY);
	Press(B_END, B_COMMAND_KEY | B_SHIFT_KEY);
	open_context_menu(fText, BPoint(10, 10));
	EXPECT_EQ(shown_menu_items(), "");
	EXPECT_EQ(Selection(), "0..0");
	EXPECT_EQ(clipboard(), "before");

	Press(B_PAGE_DOWN);
	EXPECT_EQ(Top(), scroll_state(fText).page * 5);
	Press(B_END);
	EXPECT_TRUE(IsSeen(500));
	Press(B_HOME);
	EXPECT_EQ(Top(), 0);
	Press(B_DOWN_ARROW);
	EXPECT_EQ(Top(), 5);
}


TEST_F(TextSelectionTest, SelectedEndsOfLines_AreSeen)
{
	Append("a\n\nb\n");
	const BPoint behindLetter(fText->PointAt(1).x + 1, fText->PointAt(1).y + 5);
	const BPoint onEmptyLine(fText->PointAt(2).x + 2, fText->PointAt(2).y + 5);
	fText->Select(0, 1);
	const unsigned selected = pixel_of(fText, BPoint(fText->PointAt(0).x, behindLetter.y));
	EXPECT_NE(pixel_of(fText, behindLetter), selected);
	fText->Select(0, 2);
	EXPECT_EQ(pixel_of(fText, behindLetter), selected);
	EXPECT_NE(pixel_of(fText, onEmptyLine), selected);
	fText->Select(0, 3);
	EXPECT_EQ(pixel_of(fText, onEmptyLine), selected);
}


TEST_F(TextSelectionTest, Caret_IsSeenWithTheKeyboardOnly)
{
	Append("\n\n\n");
	const std::string withCaret = picture_of(fText);
	SelectAt(2);
	EXPECT_NE(picture_of(fText), withCaret);
	fText->MakeSelectable(false);
	const std::string without = picture_of(fText);
	EXPECT_NE(without, withCaret);
	SelectAt(0);
	EXPECT_EQ(picture_of(fText), without);
}
