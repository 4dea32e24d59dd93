/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextWidgetPrivate.h>

#include <QScrollBar>
#include <QTextDocument>

#include <FocusBorderPrivate.h>
#include <TextLayoutPrivate.h>


TextWidget::TextWidget()
	: fLayout(NULL),
	  fFollowsEnd(false)
{
	QTextDocument* text = new QTextDocument(this);
	fLayout = new TextLayout(text);
	text->setDocumentLayout(fLayout);
	text->setDefaultFont(font());
	text->setUndoRedoEnabled(false);
	setDocument(text);
	setTabChangesFocus(true);
	setFrameShape(QFrame::NoFrame);
	setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
	setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}


bool
TextWidget::IsAtEnd() const
{
	return verticalScrollBar()->value() == verticalScrollBar()->maximum();
}


void
TextWidget::ScrollToEnd()
{
	fFollowsEnd = true;
	QScrollBar* bar = verticalScrollBar();
	if (bar->maximum() - bar->value() < bar->pageStep()) {
		bar->setValue(bar->maximum());
		return;
	}
	// Nothing of what is seen stays. The toolkit would lay out all the lines up to there to see how far that is.
	viewport()->setUpdatesEnabled(false);
	bar->setValue(bar->maximum());
	viewport()->setUpdatesEnabled(true);
}


bool
TextWidget::event(QEvent* event)
{
	const bool result = QPlainTextEdit::event(event);
	show_focus_by_border(this, event);
	return result;
}


void
TextWidget::resizeEvent(QResizeEvent* event)
{
	const bool follow = fFollowsEnd && IsAtEnd();
	fLayout->SetWidth(viewport()->width());
	QPlainTextEdit::resizeEvent(event);
	if (follow)
		_FindEndAgain();
}


void
TextWidget::showEvent(QShowEvent* event)
{
	const bool follow = fFollowsEnd && IsAtEnd();
	QPlainTextEdit::showEvent(event);
	if (follow)
		_FindEndAgain();
}


/*!	What comes into view is laid out for the first time after a change of the width, which moves the end. */
void
TextWidget::_FindEndAgain()
{
	int lines;
	do {
		lines = document()->lineCount();
		emit fLayout->documentSizeChanged(fLayout->documentSize());
		ScrollToEnd();
	} while (document()->lineCount() != lines);
}
