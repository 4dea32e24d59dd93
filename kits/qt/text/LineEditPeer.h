/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LINE_EDIT_PEER_H
#define LINE_EDIT_PEER_H


#include <QByteArray>
#include <QString>

#include <TextPeer.h>


class BTextControl;
class QLineEdit;


/*!	The field of a text control: one line, in one style. Has the control invoked on Return, and when
	the window's focus leaves the field, if the user has changed the text.
*/
class LineEditPeer : public TextPeer {
public:
	// The control is borrowed.
	explicit LineEditPeer(BTextControl* control);

	void SetText(const char* text) override;
	void Insert(int32 offset, const char* text, int32 length) override;
	const char* Text() override;
	int32 TextLength() override;

	void Select(int32 start, int32 end) override;
	void GetSelection(int32* _start, int32* _end) override;

	TextStyle Style() const override;
	void SetStyle(const TextStyle& style) override;
	TextStyle StyleAt(int32 offset) override;
	void SetStyleOf(int32 start, int32 end, const TextStyle& style) override;

	QRect PlaceOf(int32 offset) override;
	void ScrollToOffset(int32 offset) override;

	void SetWordWrap(bool wrap) override;
	void SetEditing(bool editable, bool selectable) override;
	void HideTyping(bool hide) override;

	void FlagsChanged() override;

	// What the text is now is where changes are counted from.
	void BeginAnew();

	// What the widget reports: the window's focus may have come or gone, and Return.
	void FollowFocus();
	void ReturnPressed(uint32 modifiers);

private:
	void _InvokeIfChanged();
	void _TextEdited(QString text);
	int _PositionAt(int32 offset) const;
	int32 _OffsetAt(int position) const;

	BTextControl* fControl;
	QLineEdit* fField;
	// As they came, until the user changes something.
	QByteArray fBytes;
	bool fIsSetting;
	// While the field has its window's focus: the text when it got that, or was last told to begin
	// anew.
	bool fIsFocus;
	QByteArray fStart;
};


#endif // LINE_EDIT_PEER_H
