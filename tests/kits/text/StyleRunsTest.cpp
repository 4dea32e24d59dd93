/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "StyleRuns.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>


/*!	The runs of a text, and beside them the style of each of its bytes, a digit for each. */
class StyleRunsTest : public testing::Test {
protected:
	void Append(size_t length, char style) { Replace(fStyles.size(), 0, length, style); }

	void Replace(size_t offset, size_t removed, size_t length, char style)
	{
		fStyles.replace(offset, removed, length, style);
		fRuns.Replace(static_cast<int32>(offset), static_cast<int32>(removed),
			static_cast<int32>(length), style - '0');
		ASSERT_EQ(Complaint(), "");
	}

	void SetStyle(size_t start, size_t end, char style)
	{
		if (start < end)
			fStyles.replace(start, end - start, end - start, style);
		fRuns.SetStyle(static_cast<int32>(start), static_cast<int32>(end), style - '0');
		ASSERT_EQ(Complaint(), "");
	}

	std::string Complaint() const
	{
		if (fRuns.CountBytes() != static_cast<int32>(fStyles.size()))
			return "the lengths are wrong";
		size_t start = 0;
		int32 run = 0;
		for (; start < fStyles.size(); run++) {
			const size_t end = std::min(fStyles.find_first_not_of(fStyles[start], start),
				fStyles.size());
			const std::string where = " run " + std::to_string(run) + " of " + fStyles;
			if (run >= fRuns.CountRuns())
				return "there is no" + where;
			if (fRuns[run].offset != static_cast<int32>(start)
				|| fRuns.EndOf(run) != static_cast<int32>(end))
				return "wrong place of" + where;
			if (fRuns[run].style != fStyles[start] - '0')
				return "wrong style of" + where;
			for (; start < end; start++) {
				if (fRuns.RunAt(static_cast<int32>(start)) != run)
					return "byte " + std::to_string(start) + " is not in" + where;
			}
		}
		return fRuns.CountRuns() == run ? std::string() : "too many runs of " + fStyles;
	}

	std::string fStyles;
	StyleRuns fRuns;
};


/*!	Bytes of a style put in the place of others, or, with none added, a range that is styled. */
struct StyleChange {
	size_t offset;
	size_t removed;
	size_t added;
	char style;
	bool isStyled = false;
};


static StyleChange
styled(size_t start, size_t end, char style)
{
	return {start, end, 0, style, true};
}


// Each change is compared with the plain model, in which neighbors of one style are one run.
TEST_F(StyleRunsTest, Changes_SplitAndJoinRuns)
{
	const struct {
		const char* name;
		std::string before;
		std::vector<StyleChange> changes;
		const char* after;
		int32 runs;
	} cases[] = {
		{"nothing in an empty text", "", {{0, 0, 0, '1'}, styled(0, 0, '1')}, "", 0},
		{"appended same style", "111", {{3, 0, 4, '1'}}, "1111111", 1},
		{"appended other style", "111", {{3, 0, 4, '2'}}, "1112222", 2},
		{"appended nothing", "111", {{3, 0, 0, '2'}}, "111", 1},
		{"inserted in the middle", "111111", {{2, 0, 3, '2'}}, "112221111", 3},
		{"inserted same style", "111111", {{2, 0, 3, '1'}, {0, 0, 1, '1'}}, "1111111111", 1},
		{"inserted nothing in the middle", "111111", {{2, 0, 0, '2'}}, "111111", 1},
		{"inserted between runs", "1122", {{2, 0, 1, '1'}, {3, 0, 1, '2'}}, "111222", 2},
		{"styled in the middle", "111111", {styled(2, 4, '2')}, "112211", 3},
		{"styled there as before", "112211", {styled(2, 4, '1')}, "111111", 1},
		{"styled at both ends", "11111", {styled(0, 2, '2'), styled(4, 5, '2')}, "22112", 3},
		{"styled as a whole", "22112", {styled(0, 5, '3')}, "33333", 1},
		{"styled over many runs", "112233445566", {styled(3, 9, '9')}, "112999999566", 5},
		{"styled as the first one", "112999999566", {styled(2, 10, '1')}, "111111111166", 2},
		{"styled nowhere", "1111", {styled(2, 2, '2'), styled(4, 4, '2'), styled(3, 1, '2')},
			"1111", 1},
		{"styled as it is", "11112222", {styled(1, 3, '1'), styled(4, 8, '2')}, "11112222", 2},
		{"deleted whole run", "111222211111", {{3, 4, 0, '3'}}, "11111111", 1},
		{"deleted across runs", "111222233333", {{2, 6, 0, '9'}}, "113333", 2},
		{"deleted end", "1112222", {{3, 4, 0, '2'}, {3, 0, 2, '1'}}, "11111", 1},
		{"deleted everything", "1112222", {{0, 7, 0, '1'}}, "", 0},
		{"replaced everything", "1112222", {{0, 7, 0, '1'}, {0, 0, 1, '5'}}, "5", 1},
		{"replaced by its own style", "1112222111", {{4, 2, 5, '2'}}, "1112222222111", 3},
		{"replaced by its neighbors' style", "1112222111", {{3, 4, 1, '1'}}, "1111111", 1},
	};
	for (const auto& entry : cases) {
		SCOPED_TRACE(entry.name);
		Replace(0, fStyles.size(), 0, '0');
		for (const char style : entry.before)
			Append(1, style);
		for (const StyleChange& change : entry.changes) {
			if (change.isStyled)
				SetStyle(change.offset, change.removed, change.style);
			else
				Replace(change.offset, change.removed, change.added, change.style);
		}
		EXPECT_EQ(fStyles, entry.after);
		EXPECT_EQ(fRuns.CountRuns(), entry.runs);
	}
}


TEST_F(StyleRunsTest, RandomChanges_AlwaysFitTheModel)
{
	std::mt19937 random(2026);
	for (int step = 0; step < 10000 && !HasFatalFailure(); step++) {
		const char style = static_cast<char>('0' + random() % 4);
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
