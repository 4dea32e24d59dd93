/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StringViewPeer.h>

#include <algorithm>

#include <QLabel>
#include <QPainter>
#include <QStringList>

#include <ColorConversion.h>
#include <StringView.h>
#include <TextConversion.h>
#include <TextCutting.h>


// In UTF-16 units. A line that is wider than any screen is not measured to its end.
static const qsizetype kMostMeasured = 1000;


/*!	A QLabel for screen readers, but drawn here: in lines that line feeds end, each cut where it says
	so.
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
		if (fMeasured.isValid() && fMeasuredText == text() && fMeasuredFont == font())
			return fMeasured;
		const QFontMetrics metrics = fontMetrics();
		const QStringList lines = _Lines();
		int width = 0;
		for (const QString& line : lines) {
			const QString shown = shown_text(front_of_text(line, kMostMeasured));
			width = std::max(width, metrics.size(Qt::TextSingleLine, shown).width());
		}
		fMeasuredText = text();
		fMeasuredFont = font();
		fMeasured = QSize(width, metrics.height() * static_cast<int>(lines.size()));
		return fMeasured;
	}

	QSize minimumSizeHint() const override { return sizeHint(); }

protected:
	void paintEvent(QPaintEvent* /*event*/) override
	{
		QPainter painter(this);
		painter.setPen(palette().color(foregroundRole()));
		const QFontMetrics metrics = fontMetrics();
		const QStringList lines = _Lines();
		QRect row(0, 0, width(), metrics.height());
		row.translate(0, (height() - row.height() * static_cast<int>(lines.size())) / 2);
		for (const QString& line : lines) {
			const QFontMetricsF exact(font());
			const QString cut = fElide != Qt::ElideNone ? elided_text(line, exact, fElide, width())
														: seen_front(line, exact, width());
			painter.drawText(row, Qt::AlignLeft | Qt::TextSingleLine, shown_text(cut));
			row.translate(0, row.height());
		}
	}

private:
	// What may be cut has no more lines than a screen has room for, either.
	QStringList _Lines() const
	{
		const int kMostShown = 4096;
		const QString shown = fElide == Qt::ElideRight ? front_of_text(text(), kMostShown) : text();
		return shown.split(QLatin1Char('\n'));
	}

	Qt::TextElideMode fElide;
	// The size is asked for several times whenever something is laid out.
	mutable QSize fMeasured;
	mutable QString fMeasuredText;
	mutable QFont fMeasuredFont;
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
	return PreferredSize();
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
