/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef GEOMETRY_CONVERSION_H
#define GEOMETRY_CONVERSION_H


#include <QPointF>
#include <QRect>
#include <QSize>

#include <Rect.h>


// Between the kits' sizes, one less than the pixels that they cover, and Qt's. What is
// unlimited stays unlimited.
BRect rect_from_toolkit(const QRect& rect);
QRect rect_to_toolkit(BRect rect);
BPoint point_from_toolkit(const QPointF& point);
QPointF point_to_toolkit(BPoint point);
BSize size_from_toolkit(const QSize& size);
QSize size_to_toolkit(BSize size);

// The first size with what is set of the second one in its place.
BSize compose_size(BSize size, BSize explicitSize);

// The pixels of a spacing or an inset that may be one of the B_USE_* constants.
float resolve_spacing(float spacing);


#endif // GEOMETRY_CONVERSION_H
