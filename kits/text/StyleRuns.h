/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STYLE_RUNS_H
#define STYLE_RUNS_H


#include <vector>

#include <SupportDefs.h>
#include <TextRoom.h>


/*!	Which style each byte of a text has, by number. Styling the end takes the same time however long
	the text is. Belongs to one thread.
*/
class StyleRuns {
public:
	// Bytes of one style that stand next to each other.
	struct Run {
		int32 offset;
		int32 style;
	};

	StyleRuns();

	int32 CountBytes() const { return fByteCount; }
	int32 CountRuns() const { return static_cast<int32>(fRuns.size()); }

	// The run that an offset lies in, and where a run ends.
	int32 RunAt(int32 offset) const;
	const Run& operator[](int32 run) const { return fRuns[run]; }
	int32 EndOf(int32 run) const;

	bool MakeRoom(const TextRoom& room) { return room.Make(&fRuns, kMostAdded); }
	void Replace(int32 offset, int32 removed, int32 length, int32 style);
	void SetStyle(int32 start, int32 end, int32 style);

private:
	// By one change.
	static const size_t kMostAdded = 4;

	size_t _SplitAt(int32 offset);
	void _JoinAt(size_t run);

	// Without empty ones, each of another style than the one before it.
	std::vector<Run> fRuns;
	int32 fByteCount;
};


#endif // STYLE_RUNS_H
