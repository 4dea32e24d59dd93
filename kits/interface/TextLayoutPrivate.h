/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_LAYOUT_PRIVATE_H
#define TEXT_LAYOUT_PRIVATE_H


#include <QPlainTextDocumentLayout>


/*!	Lays out the lines of a text. Looking for the place to wrap a word of 65,535 letters takes a fifth of a second, so that
	blocks with overlong words wrap anywhere.
*/
class TextLayout : public QPlainTextDocumentLayout {
public:
	explicit TextLayout(QTextDocument* document);

	/*!	Looks for overlong words in the blocks between two positions. To be called in the edit block that changes them. */
	void FindLongWords(int from, int to);

	// The width that is laid out to, in pixels.
	void SetWidth(qreal width) { fWidth = width; }

	QRectF blockBoundingRect(const QTextBlock& block) const override;

protected:
	void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
	bool _WrapsAnywhere(const QTextBlock& block) const;
	void _LayOut(QTextBlock block) const;

	qreal fWidth;
	int fBlockCount;
};


#endif // TEXT_LAYOUT_PRIVATE_H
