/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRANSCRIPT_H
#define TRANSCRIPT_H


#include <string>

#include <gtest/gtest.h>

#include <TextView.h>

#include "WindowWithView.h"


/*!	For tests of a text as a chat has it: only to be read, beside a scroll bar, with the keyboard.
*/
class Transcript : public ViewInAWindow {
protected:
	void SetUp() override;

	void Append(const std::string& text, int times = 1);
	// Until the screen shows what has changed.
	bool WaitUntilShown();
	// As in "3..7", in bytes.
	std::string Selection() const;
	// Returns the selection then.
	std::string Press(char key, uint32 modifiers = 0);
	void SelectAt(int32 offset) { fText->Select(offset, offset); }

	// Within a character, near its left and its right edge, on the line of the first one.
	BPoint Before(int32 offset) const;
	BPoint Behind(int32 offset) const;

	// Where the first row that is seen begins, for texts in ASCII.
	int32 Top() const;
	bool IsSeen(int32 offset) const;

	BTextView* fText;
};


#endif // TRANSCRIPT_H
