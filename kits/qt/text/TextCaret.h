/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_CARET_H
#define TEXT_CARET_H


#include <algorithm>

#include <TextLayout.h>


/*!	Where the user is in a text, and what is selected: the text from the anchor to the caret.
	Positions are the text's. Main thread only.
*/
class TextCaret {
public:
	enum Step {
		kLeft,
		kRight,
		kWordLeft,
		kWordRight,
		kRowUp,
		kRowDown,
		kPageUp,
		kPageDown,
		kRowStart,
		kRowEnd,
		kTextStart,
		kTextEnd
	};

	// What is selected at once by the mouse; a line is what only hard ends end.
	enum Unit { kCharacter, kWord, kLine };

	struct Range {
		int32 start;
		int32 end;
	};

	// Both are borrowed.
	TextCaret(const TextStore* text, TextLayout* layout);

	int32 Position() const { return fPosition; }
	int32 Anchor() const { return fAnchor; }
	int32 Start() const { return std::min(fAnchor, fPosition); }
	int32 End() const { return std::max(fAnchor, fPosition); }
	bool HasSelection() const { return fAnchor != fPosition; }

	// Both are cut to the text, and go to the front of a character that they are inside of.
	void Set(int32 anchor, int32 position);
	// To the start of what was selected, in no time however long the line is.
	void Unselect();
	// With the selection or, when it is not to be extended, without it. A page has some rows.
	void Go(Step step, bool extends, int32 rowsPerPage);

	// The mouse selects units from where it went down to where it is.
	void BeginAt(int32 position, Unit unit);
	void DragTo(int32 position);
	void ExtendTo(int32 position);
	// Whether it wants to know which character the mouse is on, not which boundary is closest.
	bool SelectsUnits() const { return fUnit != kCharacter; }

	// The row that a position is in, without the end of the line.
	Range RowAt(int32 position) const;

private:
	int32 _Target(Step step, int32 rowsPerPage);
	int32 _Across(bool toTheRight, QTextLayout::CursorMode mode) const;
	bool _IsForward(bool toTheRight) const;
	int32 _ByRows(int32 rows);
	int32 _EndOfRow() const;
	int32 _Cut(int32 position) const;
	Range _UnitAt(int32 position) const;

	const TextStore* fText;
	TextLayout* fLayout;
	int32 fPosition;
	int32 fAnchor;
	// In pixels, for steps up and down; less than 0 when the last step was another one.
	qreal fColumn;
	// Whether the last such step went beyond the text.
	bool fIsAtEdge;
	Unit fUnit;
	Range fFirstUnit;
};


#endif // TEXT_CARET_H
