/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_WIDGET_PRIVATE_H
#define TEXT_WIDGET_PRIVATE_H


#include <QPlainTextEdit>


class TextLayout;


/*!	The widget of a text view. A text that was scrolled to its end stays there when its place changes. */
class TextWidget : public QPlainTextEdit {
public:
	TextWidget();

	TextLayout* Layout() const { return fLayout; }

	bool IsAtEnd() const;
	void ScrollToEnd();
	// The text is another one now, which is seen from its start.
	void ForgetEnd() { fFollowsEnd = false; }

protected:
	bool event(QEvent* event) override;
	void resizeEvent(QResizeEvent* event) override;
	void showEvent(QShowEvent* event) override;

private:
	void _FindEndAgain();

	TextLayout* fLayout;
	bool fFollowsEnd;
};


#endif // TEXT_WIDGET_PRIVATE_H
