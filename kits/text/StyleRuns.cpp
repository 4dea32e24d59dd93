/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StyleRuns.h>

#include <algorithm>


StyleRuns::StyleRuns()
	: fByteCount(0)
{
}


/*!	\param offset Lies before the end. */
int32
StyleRuns::RunAt(int32 offset) const
{
	const auto above = std::upper_bound(fRuns.begin(), fRuns.end(), offset,
		[](int32 value, const Run& run) {
			return value < run.offset;
		});
	return static_cast<int32>(above - fRuns.begin()) - 1;
}


int32
StyleRuns::EndOf(int32 run) const
{
	return run + 1 < CountRuns() ? fRuns[run + 1].offset : fByteCount;
}


/*!	Follows a change of the text: \a length bytes of one style come in the place of \a removed ones.
*/
void
StyleRuns::Replace(int32 offset, int32 removed, int32 length, int32 style)
{
	size_t first = _SplitAt(offset);
	const size_t last = _SplitAt(offset + removed);
	fRuns.erase(fRuns.begin() + first, fRuns.begin() + last);
	for (size_t i = first; i < fRuns.size(); i++)
		fRuns[i].offset += length - removed;
	fByteCount += length - removed;
	if (length > 0) {
		fRuns.insert(fRuns.begin() + first, {offset, style});
		_JoinAt(first + 1);
	}
	_JoinAt(first);
}


void
StyleRuns::SetStyle(int32 start, int32 end, int32 style)
{
	if (start >= end)
		return;
	const size_t first = _SplitAt(start);
	const size_t last = _SplitAt(end);
	fRuns[first].style = style;
	fRuns.erase(fRuns.begin() + first + 1, fRuns.begin() + last);
	_JoinAt(first + 1);
	_JoinAt(first);
}


/*!	\return The run that begins at \a offset, one behind the last at the end. */
size_t
StyleRuns::_SplitAt(int32 offset)
{
	if (offset >= fByteCount)
		return fRuns.size();
	const size_t run = static_cast<size_t>(RunAt(offset));
	if (fRuns[run].offset == offset)
		return run;
	fRuns.insert(fRuns.begin() + run + 1, {offset, fRuns[run].style});
	return run + 1;
}


/*!	Makes a run part of the one before it when both have the same style. */
void
StyleRuns::_JoinAt(size_t run)
{
	if (run > 0 && run < fRuns.size() && fRuns[run - 1].style == fRuns[run].style)
		fRuns.erase(fRuns.begin() + run);
}
