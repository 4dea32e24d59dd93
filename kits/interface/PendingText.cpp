/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <PendingTextPrivate.h>

#include <cstring>


PendingText::PendingText()
	: fStart(0)
{
}


void
PendingText::Append(const char* text, int32 length, const TextStyle& style)
{
	if (length <= 0)
		return;
	fText.append(text, size_t(length));
	if (!fRuns.empty() && fRuns.back().style == style)
		fRuns.back().length += length;
	else
		fRuns.push_back({length, style});
}


void
PendingText::SetStyle(int32 start, int32 end, const TextStyle& style)
{
	if (start >= end)
		return;
	const size_t first = _SplitAt(start);
	const size_t last = _SplitAt(end);
	for (size_t i = first; i < last; i++)
		fRuns[i].style = style;
}


/*!	\param offset Lies before the end. */
const TextStyle&
PendingText::StyleAt(int32 offset) const
{
	size_t run = 0;
	for (int32 seen = fRuns[0].length; seen <= offset; seen += fRuns[run].length)
		run++;
	return fRuns[run].style;
}


void
PendingText::MakeEmpty()
{
	fText.clear();
	fStart = 0;
	fRuns.clear();
}


/*!	\return As many whole lines as fit into \a limit bytes, but at least one; all of what is there if it has no end. */
int32
PendingText::NextPiece(int32 limit) const
{
	if (Length() <= limit)
		return Length();
	const void* end = memrchr(Bytes(), '\n', size_t(limit));
	if (end == NULL)
		end = memchr(Bytes() + limit, '\n', size_t(Length() - limit));
	if (end == NULL)
		return Length();
	return int32(static_cast<const char*>(end) - Bytes()) + 1;
}


/*!	Removes bytes from the front, not more than NextRun(). */
void
PendingText::Remove(int32 length)
{
	fRuns.front().length -= length;
	if (fRuns.front().length == 0)
		fRuns.pop_front();
	fStart += size_t(length);
	if (IsEmpty()) {
		MakeEmpty();
	} else if (fStart > fText.size() / 2) {
		fText.erase(0, fStart);
		fStart = 0;
	}
}


/*!	\return The run that begins at \a offset. */
size_t
PendingText::_SplitAt(int32 offset)
{
	// What is styled was appended last.
	size_t run = fRuns.size();
	int32 start = Length();
	while (start > offset)
		start -= fRuns[--run].length;
	if (start == offset)
		return run;
	const Run tail = {fRuns[run].length - (offset - start), fRuns[run].style};
	fRuns[run].length = offset - start;
	fRuns.insert(fRuns.begin() + std::ptrdiff_t(run) + 1, tail);
	return run + 1;
}
