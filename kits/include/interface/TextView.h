/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_VIEW_H
#define TEXT_VIEW_H


#include <View.h>


class BFile;
class TextPeer;
struct text_run_array;


/*!	Shows text of many lines, styled or plain, to be read, selected and copied. Belongs to the
	thread of its window.
	The text is bytes, which are shown as UTF-8 and come back unchanged; all offsets and lengths are
	in bytes. What changes reaches the screen with the next frame; whoever reads the text has it at
	once.
*/
class BTextView : public BView {
public:
	BTextView(const char* name, uint32 flags = B_WILL_DRAW | B_PULSE_NEEDED);
	BTextView(const char* name, const BFont* initialFont, const rgb_color* initialColor,
		uint32 flags)
		= delete;
	BTextView(BRect frame, const char* name, BRect textRect, uint32 resizingMode, uint32 flags = 0)
		= delete;
	BTextView(BRect frame, const char* name, BRect textRect, const BFont* initialFont,
		const rgb_color* initialColor, uint32 resizingMode, uint32 flags)
		= delete;

	void SetText(const char* text, const text_run_array* runs = NULL);
	void SetText(const char* text, int32 length, const text_run_array* runs = NULL) = delete;
	void SetText(BFile* file, int32 offset, int32 length, const text_run_array* runs = NULL)
		= delete;
	void Insert(const char* text, const text_run_array* runs = NULL) = delete;
	void Insert(const char* text, int32 length, const text_run_array* runs = NULL) = delete;
	void Insert(int32 offset, const char* text, int32 length, const text_run_array* runs = NULL);

	const char* Text() const;
	int32 TextLength() const;

	virtual void Select(int32 start, int32 end);
	void GetSelection(int32* _start, int32* _end) const;

	void SetFontAndColor(const BFont* font, uint32 mode = B_FONT_ALL,
		const rgb_color* color = NULL);
	void SetFontAndColor(int32 start, int32 end, const BFont* font, uint32 mode = B_FONT_ALL,
		const rgb_color* color = NULL);
	void GetFontAndColor(BFont* _font, uint32* _mode, rgb_color* _color = NULL,
		bool* _isSameColor = NULL) const = delete;
	void GetFontAndColor(int32 offset, BFont* _font, rgb_color* _color = NULL) const;

	BPoint PointAt(int32 offset, float* _height = NULL) const;
	virtual void ScrollToOffset(int32 offset);

	void SetStylable(bool stylable);
	bool IsStylable() const;
	void SetWordWrap(bool wrap);
	bool DoesWordWrap() const;
	void MakeSelectable(bool selectable = true);
	bool IsSelectable() const;
	void MakeEditable(bool editable = true);
	bool IsEditable() const;
	void HideTyping(bool enabled);
	bool IsTypingHidden() const;

private:
	friend class BTextControl;

	BTextView(const char* name, uint32 flags, TextPeer* peer);

	int32 _Clamp(int32 offset) const;

	TextPeer* fTextPeer;
	bool fIsStylable;
	bool fIsWrapping;
	bool fIsSelectable;
	bool fIsEditable;
	bool fIsTypingHidden;
};


#endif // TEXT_VIEW_H
