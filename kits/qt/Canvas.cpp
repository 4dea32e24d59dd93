/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Canvas.h>

#include <cstring>

#include <QPainter>

#include <BitmapPeer.h>
#include <ColorConversion.h>
#include <FontConversion.h>
#include <GeometryConversion.h>
#include <TextConversion.h>
#include <TextCutting.h>


/*!	Of the two patterns that there are. */
static bool
is_solid_low(const pattern& ink)
{
	return memcmp(&ink, &B_SOLID_LOW, sizeof(ink)) == 0;
}


Canvas::Canvas()
	: highColor(make_color(0, 0, 0)),
	  lowColor(make_color(255, 255, 255)),
	  viewColor(make_color(255, 255, 255)),
	  fPainter(NULL),
	  fRecorder(NULL)
{
}


void
Canvas::SetPainter(QPainter* painter)
{
	fPainter = painter;
}


/*!	\param location Where the baseline starts. */
void
Canvas::DrawString(const char* string, BPoint location)
{
	if (fRecorder != NULL)
		fRecorder->emplace_back(string);
	if (fPainter == NULL)
		return;

	fPainter->setFont(font_to_toolkit(font));
	fPainter->setPen(color_to_toolkit(highColor));
	const QPointF place = point_to_toolkit(location);
	const QPointF left = fPainter->worldTransform().map(place);
	// There may be much more than is seen.
	const QString seen = seen_front(text_from_bytes(string), QFontMetricsF(fPainter->font()),
		std::max<qreal>(fPainter->window().width() - left.x(), 0));
	fPainter->drawText(place, shown_text(seen));
}


/*!	Both ends are drawn. */
void
Canvas::StrokeLine(BPoint start, BPoint end, const pattern& ink)
{
	if (fPainter == NULL)
		return;

	fPainter->setPen(QPen(color_to_toolkit(_Ink(ink)), 1));
	fPainter->drawLine(point_to_toolkit(start).toPoint(), point_to_toolkit(end).toPoint());
}


void
Canvas::StrokeRect(BRect rect, const pattern& ink)
{
	if (fPainter == NULL || !rect.IsValid())
		return;

	// QPainter's outline goes around its rectangle, one pixel further to the right and the
	// bottom.
	fPainter->setPen(QPen(color_to_toolkit(_Ink(ink)), 1));
	fPainter->setBrush(Qt::NoBrush);
	fPainter->drawRect(rect_to_toolkit(rect).adjusted(0, 0, -1, -1));
}


void
Canvas::FillRect(BRect rect, const pattern& ink)
{
	if (fPainter != NULL && rect.IsValid())
		fPainter->fillRect(rect_to_toolkit(rect), color_to_toolkit(_Ink(ink)));
}


void
Canvas::StrokeEllipse(BRect rect, const pattern& ink)
{
	if (fPainter == NULL || !rect.IsValid())
		return;

	fPainter->setRenderHint(QPainter::Antialiasing, true);
	fPainter->setPen(QPen(color_to_toolkit(_Ink(ink)), 1));
	fPainter->setBrush(Qt::NoBrush);
	fPainter->drawEllipse(QRectF(rect_to_toolkit(rect)).adjusted(0.5, 0.5, -0.5, -0.5));
	fPainter->setRenderHint(QPainter::Antialiasing, false);
}


void
Canvas::FillEllipse(BRect rect, const pattern& ink)
{
	if (fPainter == NULL || !rect.IsValid())
		return;

	fPainter->setRenderHint(QPainter::Antialiasing, true);
	fPainter->setPen(Qt::NoPen);
	fPainter->setBrush(color_to_toolkit(_Ink(ink)));
	fPainter->drawEllipse(QRectF(rect_to_toolkit(rect)));
	fPainter->setRenderHint(QPainter::Antialiasing, false);
}


void
Canvas::DrawBitmap(const BBitmap* bitmap, BRect rect)
{
	if (fPainter == NULL || !rect.IsValid())
		return;

	const QRect target = rect_to_toolkit(rect);
	const qreal ratio = fPainter->device()->devicePixelRatio();
	fPainter->drawImage(target, BitmapPeer::Of(bitmap)->Scaled(target.size() * ratio));
}


rgb_color
Canvas::_Ink(const pattern& ink) const
{
	return is_solid_low(ink) ? lowColor : highColor;
}
