/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_WIDGET_H
#define TEXT_WIDGET_H


#include <optional>

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QPoint>

#include <StyleRuns.h>
#include <TextCaret.h>
#include <TextLayout.h>
#include <TextPage.h>
#include <TextStore.h>


/*!	Shows a text of many lines, to be read, selected and copied. It is a widget of its own because
	QTextDocument takes most of the time and of the memory that a line of a transcript
	costs; laying out, shaping and drawing are QTextLayout's.
	A text that was scrolled to its end stays there when its size changes. Offsets are in bytes,
	positions are the text's.
*/
class TextWidget : public QAbstractScrollArea {
public:
	TextWidget();

	const TextStore& Text() const { return fText; }
	const StyleRuns& Styles() const { return fStyles; }
	const TextCaret& Caret() const { return fCaret; }
	QString TextBetween(int32 start, int32 end) const;

	// Changes show with ShowChanges() or ScrollToEnd().
	bool MakeRoom(const char* bytes, int32 length);
	void Replace(int32 offset, int32 removed, const char* bytes, int32 length, int32 style);
	void SetStyle(int32 start, int32 end, int32 style);
	void ShowChanges();

	const QTextCharFormat& FormatOf(int32 style) const { return fLayout.FormatOf(style); }
	void SetFormatOf(int32 style, const QTextCharFormat& format);
	void SetWordWrap(bool wrap);
	void SetSelectable(bool selectable);

	// For the user. A client that unselects something and selects it again before the next frame
	// leaves the caret as it was, and screen readers do not hear of it.
	void Select(int32 anchor, int32 position);
	void SelectForClient(int32 start, int32 end);
	void ScrollToPosition(int32 position);
	void ScrollToStart();
	void ScrollToEnd();
	// In coordinates of the viewport.
	QRectF PlaceOf(int32 position) { return fPage.PlaceOf(position); }
	int32 PositionAt(const QPointF& where) { return fPage.PositionAt(where); }
	TextCaret::Range RowAt(int32 position) const { return fCaret.RowAt(position); }
	// In UTF-16 units: what the screen costs at present.
	int32 CountLaidOut() const { return fLayout.CountUnits(); }

protected:
	bool event(QEvent* event) override;
	void changeEvent(QEvent* event) override;
	void resizeEvent(QResizeEvent* event) override;
	void scrollContentsBy(int dx, int dy) override;
	void paintEvent(QPaintEvent* event) override;
	void focusInEvent(QFocusEvent* event) override;
	void focusOutEvent(QFocusEvent* event) override;
	void keyPressEvent(QKeyEvent* event) override;
	void mousePressEvent(QMouseEvent* event) override;
	void mouseDoubleClickEvent(QMouseEvent* event) override;
	void mouseMoveEvent(QMouseEvent* event) override;
	void mouseReleaseEvent(QMouseEvent* event) override;
	void timerEvent(QTimerEvent* event) override;
	void wheelEvent(QWheelEvent* event) override;
	void contextMenuEvent(QContextMenuEvent* event) override;

private:
	void _Append(const char* bytes, int32 length, int32 style);
	void _UpdateView();
	bool _KeepPlace();
	void _RowsChanged(bool follow);
	void _Step(int action);
	QList<QTextLayout::FormatRange> _SelectionIn(int32 line) const;

	bool _Wants(const QKeyEvent* event) const;
	int32 _DragPosition(const QPointF& where);
	void _CaretMoved();
	void _SelectAll();
	void _Copy() const;
	void _OwnSelection() const;
	void _StartDrag();
	void _TellUnselected();
	void _TellAppended();
	void _TellExchanged(int32 position, const QString& removed, int32 added);

	TextStore fText;
	StyleRuns fStyles;
	TextLayout fLayout;
	TextPage fPage;
	TextCaret fCaret;
	// What the client has unselected since the last frame, which nobody was told of.
	std::optional<TextCaret> fUnselected;
	bool fIsSelectable;
	// There has once been no memory for what came.
	bool fIsFull;
	bool fFollowsEnd;
	// The scroll bar is being told of the page, not the other way around.
	bool fIsUpdating;
	// How much of the text screen readers have heard of, in positions.
	int32 fTold;
	// What stays at the top when lines are laid out anew, and where the row that has it begins; -1
	// when there is none.
	int32 fKeptPosition;
	int32 fKeptRow;
	// What the mouse is doing.
	enum { kNothing, kSelecting, kAboutToDrag } fMouse;
	QPoint fPressed;
	QPoint fDragged;
	QBasicTimer fTripleClick;
	QBasicTimer fAutoScroll;
};


#endif // TEXT_WIDGET_H
