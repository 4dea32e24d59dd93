/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SCREEN_READER_H
#define SCREEN_READER_H


#include <string>
#include <vector>

#include <Rect.h>


class BView;
class QAccessibleTextInterface;


enum text_boundary { kReadCharacter, kReadWord, kReadSentence, kReadParagraph, kReadRow, kReadAll };

/*!	What a screen reader does with a text, and hears of a text or a list. Its positions are UTF-16 units; for texts in ASCII they
	are bytes. It hears what its view tells; only the last one that was made does.
*/
class ScreenReader {
public:
	explicit ScreenReader(BView* view);
	~ScreenReader();

	int CountCharacters() const;
	int Caret() const;
	void SetCaret(int position);
	// As in "3..7", empty without one.
	std::string Selection() const;
	void Select(int start, int end);
	void RemoveSelection();

	std::string Text(int start, int end) const;
	// As in "3..7 text".
	std::string Before(int position, text_boundary boundary) const;
	std::string At(int position, text_boundary boundary) const;
	std::string After(int position, text_boundary boundary) const;
	std::string Attributes(int position) const;

	// In the view. -1 for a point outside.
	BRect PlaceOf(int position) const;
	int PositionAt(BPoint where) const;
	void ScrollTo(int start, int end);

	bool IsText() const;

	// What was told since this was asked last, as in "inserted 3 text", "removed 3 text", "caret 3"
	// or "selected 3..7"; of a list as in "rows removed 3..7", and "rows reset" when all may be
	// others.
	std::vector<std::string> Heard();

private:
	QAccessibleTextInterface* _Text() const;

	BView* fView;
};


#endif // SCREEN_READER_H
