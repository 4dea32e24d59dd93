/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ROW_COUNTS_H
#define ROW_COUNTS_H


#include <vector>

#include <SupportDefs.h>
#include <TextRoom.h>


/*!	How many rows each line of a text takes on the screen, and in which line a row is. A line has
	one row until it is known to have more. Everything but Reset() takes as many steps as the number
	of lines has digits. Belongs to one thread.
*/
class RowCounts {
public:
	RowCounts();

	int32 CountLines() const { return static_cast<int32>(fSums.size()) - 1; }
	int32 CountRows() const { return fRowCount; }

	bool MakeRoom(const TextRoom& room, size_t lines) { return room.Make(&fSums, lines); }
	// What is cut off and added again has one row.
	void SetCountLines(int32 count);
	// All have one row again.
	void Reset(int32 count);

	int32 RowsOf(int32 line) const;
	void SetRowsOf(int32 line, int32 rows);

	// Where a line begins, and which line a row is in.
	int32 FirstRowOf(int32 line) const;
	int32 LineAtRow(int32 row) const;

private:
	void _AddLine();

	// A binary indexed tree: each entry is the sum of as many lines before it as its lowest bit
	// says. The first one is unused.
	std::vector<int32> fSums;
	int32 fRowCount;
};


#endif // ROW_COUNTS_H
