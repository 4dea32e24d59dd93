/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DRAWN_ROW_H
#define DRAWN_ROW_H


#include <functional>
#include <string>

#include <Rect.h>
#include <Size.h>


class BView;


// What is drawn into the rectangle, a little smaller than the view around it.
using RowDrawing = std::function<void(BView*, BRect)>;
using ViewDrawing = std::function<void(BView*)>;

/*!	The pixels of a row on the screen, for comparing it with another.
	\param width Of the rectangle, at most as wide as it is by itself.
*/
std::string drawn_row(const RowDrawing& draw, float width = 289);
/*!	The same for a view whose Bounds() have this size. */
std::string drawn_view(BSize size, const ViewDrawing& draw);

/*!	A picture file of one color. */
std::string picture_file(int width, int height);


#endif // DRAWN_ROW_H
