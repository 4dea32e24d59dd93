/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <RowCounts.h>


static size_t
lowest_bit(size_t number)
{
	return number & (~number + 1);
}


RowCounts::RowCounts()
	: fSums(1, 0),
	  fRowCount(0)
{
}


void
RowCounts::SetCountLines(int32 count)
{
	if (count < CountLines()) {
		fRowCount = FirstRowOf(count);
		fSums.resize(static_cast<size_t>(count) + 1);
	}
	while (CountLines() < count)
		_AddLine();
}


void
RowCounts::Reset(int32 count)
{
	fSums.resize(1);
	fRowCount = 0;
	SetCountLines(count);
}


int32
RowCounts::RowsOf(int32 line) const
{
	return FirstRowOf(line + 1) - FirstRowOf(line);
}


void
RowCounts::SetRowsOf(int32 line, int32 rows)
{
	const int32 added = rows - RowsOf(line);
	if (added == 0)
		return;
	for (size_t i = static_cast<size_t>(line) + 1; i < fSums.size(); i += lowest_bit(i))
		fSums[i] += added;
	fRowCount += added;
}


/*!	\param line May be the number of lines: then this is the number of rows. */
int32
RowCounts::FirstRowOf(int32 line) const
{
	int32 rows = 0;
	for (size_t i = static_cast<size_t>(line); i > 0; i -= lowest_bit(i))
		rows += fSums[i];
	return rows;
}


/*!	\param row Lies before the end. */
int32
RowCounts::LineAtRow(int32 row) const
{
	size_t step = 1;
	while (step * 2 < fSums.size())
		step *= 2;
	size_t line = 0;
	for (; step > 0; step /= 2) {
		if (line + step < fSums.size() && fSums[line + step] <= row) {
			line += step;
			row -= fSums[line];
		}
	}
	return static_cast<int32>(line);
}


void
RowCounts::_AddLine()
{
	const size_t added = fSums.size();
	int32 sum = 1;
	for (size_t part = 1; part < lowest_bit(added); part *= 2)
		sum += fSums[added - part];
	fSums.push_back(sum);
	fRowCount++;
}
