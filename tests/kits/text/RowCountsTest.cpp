/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RowCounts.h"

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>


/*!	The rows of lines, and beside them a plain list of how many each line has. */
class RowCountsTest : public testing::Test {
protected:
	void SetCountLines(size_t count)
	{
		fRows.resize(count, 1);
		fCounts.SetCountLines(static_cast<int32>(count));
		ASSERT_EQ(Complaint(), "");
	}

	void Reset(size_t count)
	{
		fRows.assign(count, 1);
		fCounts.Reset(static_cast<int32>(count));
		ASSERT_EQ(Complaint(), "");
	}

	void SetRowsOf(size_t line, int32 rows)
	{
		fRows[line] = rows;
		fCounts.SetRowsOf(static_cast<int32>(line), rows);
		ASSERT_EQ(Complaint(), "");
	}

	std::string Complaint() const
	{
		if (fCounts.CountLines() != static_cast<int32>(fRows.size()))
			return "wrong number of lines";
		int32 row = 0;
		for (int32 line = 0; line < static_cast<int32>(fRows.size()); line++) {
			const int32 rows = fRows[static_cast<size_t>(line)];
			const std::string where = " line " + std::to_string(line);
			if (fCounts.RowsOf(line) != rows)
				return "wrong number of rows of" + where;
			if (fCounts.FirstRowOf(line) != row)
				return "wrong first row of" + where;
			for (const int32 end = row + rows; row < end; row++) {
				if (fCounts.LineAtRow(row) != line)
					return "row " + std::to_string(row) + " is not in" + where;
			}
		}
		return fCounts.CountRows() == row && fCounts.FirstRowOf(fCounts.CountLines()) == row
			? std::string()
			: "wrong number of rows";
	}

	std::vector<int32> fRows;
	RowCounts fCounts;
};


TEST_F(RowCountsTest, NewLines_HaveOneRowEach_AndNoLinesNone)
{
	EXPECT_EQ(fCounts.CountLines(), 0);
	EXPECT_EQ(fCounts.CountRows(), 0);
	EXPECT_EQ(fCounts.FirstRowOf(0), 0);

	// On both sides of the powers of two, where sums of different size begin.
	for (size_t count = 0; count <= 70; count++)
		SetCountLines(count);
	EXPECT_EQ(fCounts.CountRows(), 70);
	EXPECT_EQ(fCounts.LineAtRow(64), 64);
}


TEST_F(RowCountsTest, LineOfManyRows_IsFoundAtItsFirstAndLast)
{
	SetCountLines(10);
	SetRowsOf(3, 500);
	SetRowsOf(4, 7);
	const int32 places[][2] = {{2, 2}, {3, 3}, {502, 3}, {503, 4}, {509, 4}, {510, 5}};
	for (const auto& place : places)
		EXPECT_EQ(fCounts.LineAtRow(place[0]), place[1]) << place[0];
	EXPECT_EQ(fCounts.CountRows(), 515);
	// Fewer rows than before move the lines up.
	SetRowsOf(3, 2);
	SetRowsOf(3, 2);
	EXPECT_EQ(fCounts.FirstRowOf(4), 5);
	EXPECT_EQ(fCounts.CountRows(), 17);
}


TEST_F(RowCountsTest, LinesAfterLongOnes_AreSummedUp)
{
	SetCountLines(5);
	SetRowsOf(1, 4);
	SetRowsOf(4, 3);
	for (size_t count = 6; count <= 40; count++)
		SetCountLines(count);
	EXPECT_EQ(fCounts.FirstRowOf(40), 45);
}


TEST_F(RowCountsTest, CutOffOrResetAndAddedAgain_HasOneRow)
{
	SetCountLines(20);
	for (size_t i = 0; i < 20; i++)
		SetRowsOf(i, 3);
	SetCountLines(7);
	EXPECT_EQ(fCounts.CountRows(), 21);
	SetCountLines(20);
	EXPECT_EQ(fCounts.CountRows(), 34);
	SetCountLines(0);
	EXPECT_EQ(fCounts.CountRows(), 0);
	SetCountLines(12);
	SetRowsOf(0, 2);
	SetRowsOf(11, 6);
	Reset(12);
	EXPECT_EQ(fCounts.CountRows(), 12);
	SetRowsOf(3, 5);
	Reset(4);
	EXPECT_EQ(fCounts.CountRows(), 4);
}


TEST_F(RowCountsTest, RandomChanges_AlwaysFitTheModel)
{
	std::mt19937 random(2026);
	SetCountLines(1);
	for (int step = 0; step < 4000 && !HasFatalFailure(); step++) {
		switch (random() % 8) {
			case 0:
				SetCountLines(random() % 80);
				break;
			case 1:
				SetCountLines(fRows.size() + random() % 4);
				break;
			case 2:
				if (random() % 8 == 0)
					Reset(random() % 80);
				break;
			default:
				if (!fRows.empty())
					SetRowsOf(random() % fRows.size(), static_cast<int32>(1 + random() % 6));
		}
	}
}
