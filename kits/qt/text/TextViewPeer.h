/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_VIEW_PEER_H
#define TEXT_VIEW_PEER_H


#include <vector>

#include <QTextCharFormat>

#include <TextPeer.h>


class TextWidget;


/*!	A text of many lines, which is read and not edited. What is appended shows with the next frame.
*/
class TextViewPeer : public TextPeer {
public:
	TextViewPeer();
	~TextViewPeer() override;

	void SetText(const char* text) override;
	void Insert(int32 offset, const char* text, int32 length) override;
	const char* Text() override;
	int32 TextLength() override;

	void Select(int32 start, int32 end) override;
	void GetSelection(int32* _start, int32* _end) override;

	TextStyle Style() const override { return fStyle; }
	void SetStyle(const TextStyle& style) override;
	TextStyle StyleAt(int32 offset) override;
	void SetStyleOf(int32 start, int32 end, const TextStyle& style) override;

	QRect PlaceOf(int32 offset) override;
	void ScrollToOffset(int32 offset) override;

	void SetWordWrap(bool wrap) override;
	void SetEditing(bool editable, bool selectable) override;
	void HideTyping(bool /*hide*/) override {}

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	void FontChanged() override;
	void FlagsChanged() override;

protected:
	void Flush() override;

private:
	void _Replace(int32 offset, int32 removed, const char* text, int32 length);
	int32 _StyleOfInsertion(int32 offset) const;
	int32 _OffsetAt(int32 position);
	int32 _PositionAt(int32 offset) const;
	int32 _NumberOf(const TextStyle& style);
	QTextCharFormat _FormatOf(const TextStyle& style);

	TextWidget* fText;
	// All that the text has had, by number.
	std::vector<TextStyle> fStyles;
	// That of what is inserted into an empty text or, if it is still to be used, next.
	TextStyle fStyle;
	int32 fStyleNumber;
	bool fIsStyleUnused;
	bool fScrollsToEnd;
	// The sides of what was selected when somebody asked for that: finding them in a long line takes
	// its time, and whoever appends asks each time.
	struct Place {
		int32 position;
		int32 offset;
	};
	Place fSides[2];
};


#endif // TEXT_VIEW_PEER_H
