/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef CANVAS_H
#define CANVAS_H


#include <string>
#include <vector>

#include <Font.h>
#include <GraphicsDefs.h>
#include <Rect.h>


class BBitmap;
class QPainter;


/*!	What a view draws with: its colors, font and modes, and, while it is being painted, a
	QPainter.
	Without a painter nothing is drawn. Main thread only.
*/
class Canvas {
public:
	Canvas();

	// Borrowed, until it is set to NULL.
	void SetPainter(QPainter* painter);
	QPainter* Painter() const { return fPainter; }
	// Gets the strings that are drawn, seen or not. Borrowed, until it is set to NULL.
	void SetRecorder(std::vector<std::string>* strings) { fRecorder = strings; }

	void DrawString(const char* string, BPoint location);
	void StrokeLine(BPoint start, BPoint end, const pattern& ink);
	void StrokeRect(BRect rect, const pattern& ink);
	void FillRect(BRect rect, const pattern& ink);
	void StrokeEllipse(BRect rect, const pattern& ink);
	void FillEllipse(BRect rect, const pattern& ink);
	// The bitmap fills the rectangle, whatever its own size.
	void DrawBitmap(const BBitmap* bitmap, BRect rect);

	rgb_color highColor;
	rgb_color lowColor;
	rgb_color viewColor;
	BFont font;

private:
	rgb_color _Ink(const pattern& ink) const;

	QPainter* fPainter;
	std::vector<std::string>* fRecorder;
};


#endif // CANVAS_H
