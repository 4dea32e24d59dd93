/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StringViewPeer.h>

#include <QLabel>
#include <QPainter>

#include <ColorConversion.h>
#include <StringView.h>
#include <TextConversion.h>


/*!	A QLabel for screen readers, but drawn here: in one line, whatever is in the text,
	and cut where it says so.
*/
class LabelWidget : public QLabel {
public:
	LabelWidget()
		: fElide(Qt::ElideNone)
	{
		setTextFormat(Qt::PlainText);
		setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
		setTextInteractionFlags(Qt::NoTextInteraction);
	}

	void SetElide(Qt::TextElideMode elide)
	{
		fElide = elide;
		update();
	}

	QSize sizeHint() const override
	{
		const QFontMetrics metrics = fontMetrics();
		return QSize(metrics.size(Qt::TextSingleLine, _ShownText()).width(), metrics.height());
	}

	QSize minimumSizeHint() const override { return sizeHint(); }

protected:
	void paintEvent(QPaintEvent* /*event*/) override
	{
		QPainter painter(this);
		painter.setPen(palette().color(foregroundRole()));
		QString text = _ShownText();
		if (fElide != Qt::ElideNone)
			text = fontMetrics().elidedText(text, fElide, width(), Qt::TextSingleLine);
		painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, text);
	}

private:
	// A screen has no room for more; measuring all of a very long text would take its time.
	QString _ShownText() const
	{
		const int kMostShown = 4096;
		return shown_text(fElide == Qt::ElideRight ? text().left(kMostShown) : text());
	}

	Qt::TextElideMode fElide;
};


StringViewPeer::StringViewPeer()
	: ViewPeer(new LabelWidget),
	  fLabel(static_cast<LabelWidget*>(Widget())),
	  fTruncation(B_NO_TRUNCATION)
{
}


void
StringViewPeer::SetTruncation(uint32 mode)
{
	fTruncation = mode;
	Qt::TextElideMode elide = Qt::ElideNone;
	if (mode == B_TRUNCATE_END)
		elide = Qt::ElideRight;
	else if (mode == B_TRUNCATE_BEGINNING)
		elide = Qt::ElideLeft;
	else if (mode == B_TRUNCATE_MIDDLE)
		elide = Qt::ElideMiddle;
	fLabel->SetElide(elide);
	InvalidateLayout();
}


/*!	A text that may be cut needs no width. */
QSize
StringViewPeer::MinSize()
{
	const QSize size = PreferredSize();
	return fTruncation == B_NO_TRUNCATION ? size : QSize(1, size.height());
}


QSize
StringViewPeer::MaxSize()
{
	return QSize(QWIDGETSIZE_MAX, PreferredSize().height());
}


QSize
StringViewPeer::PreferredSize()
{
	FlushNow();
	return fLabel->sizeHint();
}


void
StringViewPeer::ColorsChanged()
{
	QPalette palette = fLabel->palette();
	palette.setColor(QPalette::WindowText, color_to_toolkit(GetCanvas()->highColor));
	fLabel->setPalette(palette);
}


void
StringViewPeer::Flush()
{
	fLabel->setText(text_from_bytes(static_cast<BStringView*>(View())->Text()));
}
