/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextLayoutPrivate.h>

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>


// In UTF-16 units.
static const int kLongWord = 1000;

// In pixels, before the text has its place.
static const qreal kUnlimited = 1 << 24;

// A state of a block.
static const int kHasLongWord = 1;


static bool
has_long_word(const QString& text)
{
	int length = 0;
	for (const QChar unit : text) {
		length = unit.isSpace() ? 0 : length + 1;
		if (length > kLongWord)
			return true;
	}
	return false;
}


TextLayout::TextLayout(QTextDocument* document)
	: QPlainTextDocumentLayout(document),
	  fWidth(0),
	  fBlockCount(document->blockCount())
{
}


void
TextLayout::FindLongWords(int from, int to)
{
	QTextBlock block = document()->findBlock(from);
	int start = from;
	while (block.isValid() && start <= to) {
		const int length = block.length();
		// The toolkit's state of a block is -1 until it is set.
		const bool isLong = length > kLongWord && has_long_word(block.text());
		if (isLong != (block.userState() == kHasLongWord))
			block.setUserState(isLong ? kHasLongWord : -1);
		// A block looks for its position from the root of a tree.
		start = start == from ? block.position() + length : start + length;
		block = block.next();
	}
}


QRectF
TextLayout::blockBoundingRect(const QTextBlock& block) const
{
	if (_WrapsAnywhere(block) && block.layout()->lineCount() == 0)
		_LayOut(block);
	return QPlainTextDocumentLayout::blockBoundingRect(block);
}


/*!	The toolkit's own version lays out a single changed block at once, in its own way. */
void
TextLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
	const QTextBlock first = document()->findBlock(from);
	const QTextBlock last = document()->findBlock(qMax(0, from + charsRemoved + charsAdded - 1));
	const bool sameCount = fBlockCount == document()->blockCount();
	fBlockCount = document()->blockCount();
	if (!sameCount || first != last || !_WrapsAnywhere(first)) {
		QPlainTextDocumentLayout::documentChanged(from, charsRemoved, charsAdded);
		return;
	}
	first.layout()->clearLayout();
	_LayOut(first);
	emit documentSizeChanged(documentSize());
	requestUpdate();
}


bool
TextLayout::_WrapsAnywhere(const QTextBlock& block) const
{
	return block.isValid() && block.userState() == kHasLongWord
		&& document()->defaultTextOption().wrapMode() != QTextOption::NoWrap;
}


/*!	Does what the toolkit's version does for the other blocks. */
void
TextLayout::_LayOut(QTextBlock block) const
{
	QTextOption option = document()->defaultTextOption();
	option.setWrapMode(QTextOption::WrapAnywhere);
	const qreal margin = document()->documentMargin();
	const qreal width = fWidth > 0 ? qMax<qreal>(fWidth - 2 * margin, 1) : kUnlimited;

	QTextLayout* layout = block.layout();
	layout->setTextOption(option);
	layout->beginLayout();
	qreal height = 0;
	for (;;) {
		QTextLine line = layout->createLine();
		if (!line.isValid())
			break;
		line.setLeadingIncluded(true);
		line.setLineWidth(width);
		line.setPosition(QPointF(margin, height));
		height += line.height();
		if (line.leading() < 0)
			height += qCeil(line.leading());
	}
	layout->endLayout();
	block.setLineCount(layout->lineCount());
}
