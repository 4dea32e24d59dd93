/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ACCESSIBLE_TEXT_H
#define ACCESSIBLE_TEXT_H


#include <QAccessibleWidget>

#include <SupportDefs.h>


class TextWidget;


/*!	What a screen reader is given for a text view: its text with colors and faces, the caret and the
	selection, and where each character is. Words, sentences and rows are looked for in the
	paragraph that an offset is in, however long the text is; where that is divided into lines by
	soft ends nobody hears of it.
	Offsets are the text's positions. Main thread only.
*/
class AccessibleText : public QAccessibleWidget, public QAccessibleTextInterface {
public:
	// Has text views described so from now on. Doing it again changes nothing.
	static void Install();

	explicit AccessibleText(TextWidget* widget);

	QAccessible::State state() const override;
	void* interface_cast(QAccessible::InterfaceType type) override;

	void selection(int index, int* _start, int* _end) const override;
	int selectionCount() const override;
	void addSelection(int start, int end) override;
	void removeSelection(int index) override;
	void setSelection(int index, int start, int end) override;

	int cursorPosition() const override;
	void setCursorPosition(int position) override;

	QString text(QAccessible::Text kind) const override;
	QString text(int start, int end) const override;
	QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundary, int* _start,
		int* _end) const override;
	QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundary, int* _start,
		int* _end) const override;
	QString textAtOffset(int offset, QAccessible::TextBoundaryType boundary, int* _start,
		int* _end) const override;
	int characterCount() const override;

	QRect characterRect(int offset) const override;
	int offsetAtPoint(const QPoint& point) const override;
	void scrollToSubstring(int start, int end) override;
	QString attributes(int offset, int* _start, int* _end) const override;

private:
	// Of the text.
	struct Part {
		int32 start;
		int32 end;
	};

	TextWidget* _Widget() const;
	int32 _Cut(int offset) const;
	Part _PartAt(int32 offset, QAccessible::TextBoundaryType boundary) const;
	Part _PartOfParagraph(int32 line, int32 offset, QAccessible::TextBoundaryType boundary) const;
	QString _Take(const Part& part, int* _start, int* _end) const;
};


#endif // ACCESSIBLE_TEXT_H
