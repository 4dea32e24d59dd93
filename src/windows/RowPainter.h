/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ROW_PAINTER_H
#define ROW_PAINTER_H


#include <GraphicsDefs.h>
#include <Rect.h>


class BBitmap;
class BView;


/*!	Draws what the rows of all lists have in common. Made for one drawing of one row, in the thread
	of its window; borrows the view. What it draws changes the view's high color.
*/
class RowPainter {
public:
	// Pictures are shown at this width and height, in pixels.
	static constexpr float kIconSize = 16.0f;

	RowPainter(BView* owner, BRect frame, bool isSelected);

	void DrawBackground(bool complete);
	void DrawIcon(const BBitmap* icon, float left);
	void DrawDisc(float left, float size, rgb_color color);

	BRect CenteredSquare(float left, float size) const;
	float Baseline() const;
	rgb_color TextColor() const;

private:
	BView* fOwner;
	BRect fFrame;
	bool fIsSelected;
};


#endif // ROW_PAINTER_H
