/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PENDING_TEXT_PRIVATE_H
#define PENDING_TEXT_PRIVATE_H


#include <deque>
#include <string>

#include <TextPeer.h>


/*!	Text that was appended and has not reached the document yet, in runs of one style. Sizes are in bytes. */
class PendingText {
public:
	PendingText();

	bool IsEmpty() const { return fStart == fText.size(); }
	int32 Length() const { return int32(fText.size() - fStart); }
	const char* Bytes() const { return fText.data() + fStart; }

	void Append(const char* text, int32 length, const TextStyle& style);
	void SetStyle(int32 start, int32 end, const TextStyle& style);
	const TextStyle& StyleAt(int32 offset) const;
	void MakeEmpty();

	// How much of the front should go next, and how much of that has one style.
	int32 NextPiece(int32 limit) const;
	int32 NextRun() const { return fRuns.front().length; }
	const TextStyle& NextStyle() const { return fRuns.front().style; }
	void Remove(int32 length);

private:
	struct Run {
		int32 length;
		TextStyle style;
	};

	size_t _SplitAt(int32 offset);

	std::string fText;
	// What is before it has been removed.
	size_t fStart;
	std::deque<Run> fRuns;
};


#endif // PENDING_TEXT_PRIVATE_H
