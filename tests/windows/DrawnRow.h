/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DRAWN_ROW_H
#define DRAWN_ROW_H


#include <functional>
#include <memory>
#include <string>

#include <InterfaceDefs.h>
#include <Rect.h>
#include <Size.h>


class BBitmap;
class BListItem;
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

/*!	The same for an item, drawn into a row that is complete or not. */
std::string drawn_item(BListItem* item, bool complete = true, float width = 289);

// What the rows of several lists have in common: the background of a selected one, the font and the
// baseline of a line in its middle, and a line of text there.
void fill_selected(BView* view, BRect frame);
float middle_baseline(BView* view, BRect frame);
void draw_line(BView* view, BRect frame, float left, const char* text, color_which color);

/*!	A picture file of one color, and the picture in it. */
std::unique_ptr<BBitmap> new_picture(int width, int height);
std::string picture_file(int width, int height);
/*!	A picture file of these pixels: red, green and blue, row by row from the top. */
std::string picture_file(int width, int height, const std::string& pixels);


#endif // DRAWN_ROW_H
