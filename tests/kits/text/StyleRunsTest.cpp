/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "StyleRuns.h"

#include <algorithm>
#include <random>
#include <string>

#include <gtest/gtest.h>


namespace {

/*!	The runs of a text, and beside them the style of each of its bytes, a digit for each. */
class StyleRunsTest : public testing::Test {
protected:
	void Append(size_t length, char style) { Replace(fStyles.size(), 0, length, style); }

	void Replace(size_t offset, size_t removed, size_t length, char style)
	{
		fStyles.replace(offset, removed, length, style);
		fRuns.Replace(int32(offset), int32(removed), int32(length), style - '0');
		ASSERT_EQ(Complaint(), "");
	}

	void SetStyle(size_t start, size_t end, char style)
	{
		if (start < end)
			fStyles.replace(start, end - start, end - start, style);
		fRuns.SetStyle(int32(start), int32(end), style - '0');
		ASSERT_EQ(Complaint(), "");
	}

	std::string Complaint() const
	{
		if (fRuns.CountBytes() != int32(fStyles.size()))
			return "the lengths are wrong";
		size_t start = 0;
		int32 run = 0;
		for (; start < fStyles.size(); run++) {
			const size_t end = std::min(fStyles.find_first_not_of(fStyles[start], start),
				fStyles.size());
			const std::string where = " run " + std::to_string(run) + " of " + fStyles;
			if (run >= fRuns.CountRuns())
				return "there is no" + where;
			if (fRuns[run].offset != int32(start) || fRuns.EndOf(run) != int32(end))
				return "wrong place of" + where;
			if (fRuns[run].style != fStyles[start] - '0')
				return "wrong style of" + where;
			for (; start < end; start++) {
				if (fRuns.RunAt(int32(start)) != run)
					return "byte " + std::to_string(start) + " is not in" + where;
			}
		}
		return fRuns.CountRuns() == run ? std::string() : "too many runs of " + fStyles;
	}

	std::string fStyles;
	StyleRuns fRuns;
};

} // namespace


TEST_F(StyleRunsTest, Empty_HasNoRun)
{
	EXPECT_EQ(fRuns.CountRuns(), 0);
	EXPECT_EQ(fRuns.CountBytes(), 0);
}


TEST_F(StyleRunsTest, ChangesOfNothingInAnEmptyText_LeaveItEmpty)
{
	Replace(0, 0, 0, '1');
	SetStyle(0, 0, '1');
	EXPECT_EQ(fRuns.CountRuns(), 0);
}


TEST_F(StyleRunsTest, AppendedSameStyle_JoinsTheRun)
{
	Append(3, '1');
	Append(4, '1');
	EXPECT_EQ(fRuns.CountRuns(), 1);
	EXPECT_EQ(fRuns.EndOf(0), 7);
}


TEST_F(StyleRunsTest, AppendedOtherStyle_BeginsARun)
{
	Append(3, '1');
	Append(4, '2');
	EXPECT_EQ(fRuns.CountRuns(), 2);
	EXPECT_EQ(fRuns.EndOf(0), 3);
	EXPECT_EQ(fRuns.RunAt(2), 0);
	EXPECT_EQ(fRuns.RunAt(3), 1);
	EXPECT_EQ(fRuns[1].style, 2);
}


TEST_F(StyleRunsTest, AppendedNothing_ChangesNothing)
{
	Append(3, '1');
	Append(0, '2');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, InsertedInTheMiddle_SplitsTheRun)
{
	Append(6, '1');
	Replace(2, 0, 3, '2');
	EXPECT_EQ(fStyles, "112221111");
	EXPECT_EQ(fRuns.CountRuns(), 3);
}


TEST_F(StyleRunsTest, InsertedSameStyleInTheMiddle_LeavesOneRun)
{
	Append(6, '1');
	Replace(2, 0, 3, '1');
	Replace(0, 0, 1, '1');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, InsertedNothingInTheMiddle_LeavesOneRun)
{
	Append(6, '1');
	Replace(2, 0, 0, '2');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, InsertedBetweenRuns_JoinsTheOneOfItsStyle)
{
	Append(2, '1');
	Append(2, '2');
	Replace(2, 0, 1, '1');
	EXPECT_EQ(fRuns.EndOf(0), 3);
	Replace(3, 0, 1, '2');
	EXPECT_EQ(fRuns.EndOf(0), 3);
	EXPECT_EQ(fRuns.CountRuns(), 2);
}


TEST_F(StyleRunsTest, StyledInTheMiddle_SplitsAndJoins)
{
	Append(9, '1');
	SetStyle(3, 6, '2');
	EXPECT_EQ(fRuns.CountRuns(), 3);
	SetStyle(3, 6, '1');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, StyledAtBothEnds_SplitsOnce)
{
	Append(9, '1');
	SetStyle(0, 2, '2');
	EXPECT_EQ(fRuns.CountRuns(), 2);
	SetStyle(7, 9, '2');
	EXPECT_EQ(fRuns.CountRuns(), 3);
	SetStyle(0, 9, '3');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, StyledOverManyRuns_TakesThemAll)
{
	for (int i = 0; i < 6; i++)
		Append(2, char('1' + i));
	SetStyle(3, 9, '9');
	EXPECT_EQ(fStyles, "112999999566");
	SetStyle(2, 10, '1');
	EXPECT_EQ(fStyles, "111111111166");
	EXPECT_EQ(fRuns.CountRuns(), 2);
}


TEST_F(StyleRunsTest, StyledNowhere_ChangesNothing)
{
	Append(4, '1');
	SetStyle(2, 2, '2');
	SetStyle(4, 4, '2');
	SetStyle(3, 1, '2');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, StyledAsItIs_ChangesNothing)
{
	Append(4, '1');
	Append(4, '2');
	SetStyle(1, 3, '1');
	SetStyle(4, 8, '2');
	EXPECT_EQ(fRuns.CountRuns(), 2);
}


TEST_F(StyleRunsTest, DeletedWholeRun_JoinsItsNeighbors)
{
	Append(3, '1');
	Append(4, '2');
	Append(5, '1');
	Replace(3, 4, 0, '3');
	EXPECT_EQ(fRuns.CountRuns(), 1);
	EXPECT_EQ(fRuns.EndOf(0), 8);
}


TEST_F(StyleRunsTest, DeletedAcrossRuns_KeepsWhatIsLeftOfThem)
{
	Append(3, '1');
	Append(4, '2');
	Append(5, '3');
	Replace(2, 6, 0, '9');
	EXPECT_EQ(fStyles, "113333");
	EXPECT_EQ(fRuns.CountRuns(), 2);
}


TEST_F(StyleRunsTest, DeletedEnd_ForgetsItsStyle)
{
	Append(3, '1');
	Append(4, '2');
	Replace(3, 4, 0, '2');
	EXPECT_EQ(fRuns.CountRuns(), 1);
	Append(2, '1');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, EverythingDeleted_LeavesNoRun)
{
	Append(3, '1');
	Append(4, '2');
	Replace(0, 7, 0, '1');
	EXPECT_EQ(fRuns.CountRuns(), 0);
	Append(1, '5');
	EXPECT_EQ(fRuns[0].style, 5);
}


TEST_F(StyleRunsTest, ReplacedByItsOwnStyle_StaysInItsRun)
{
	Append(3, '1');
	Append(4, '2');
	Append(3, '1');
	Replace(4, 2, 5, '2');
	EXPECT_EQ(fRuns.CountRuns(), 3);
	Replace(3, 7, 1, '1');
	EXPECT_EQ(fRuns.CountRuns(), 1);
}


TEST_F(StyleRunsTest, RandomChanges_AlwaysFitTheModel)
{
	std::mt19937 random(2026);
	for (int step = 0; step < 10000 && !HasFatalFailure(); step++) {
		const char style = char('0' + random() % 4);
		size_t start = random() % (fStyles.size() + 1);
		const size_t length = std::min<size_t>(random() % 8, fStyles.size() - start);
		const uint32 action = random() % 8;
		if (action == 0)
			start = fStyles.size();
		if (action < 4)
			SetStyle(start, std::min(start + length, fStyles.size()), style);
		else
			Replace(start, length, random() % 6, style);
		if (fStyles.size() > 100)
			Replace(random() % 50, 50, 0, style);
	}
}
