/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "DrawnRow.h"

#include <LayoutBuilder.h>
#include <View.h>
#include <Window.h>

#include "UserInput.h"
#include "WaitFor.h"
#include "WindowProbe.h"


class DrawnView : public BView {
public:
	DrawnView(BSize size, const ViewDrawing& draw)
		: BView("drawn", B_WILL_DRAW),
		  fDraw(draw),
		  fIsDrawn(false)
	{
		SetExplicitMinSize(size);
		SetExplicitMaxSize(size);
	}

	void Draw(BRect) override
	{
		fDraw(this);
		fIsDrawn = true;
	}

	bool IsDrawn() const { return fIsDrawn; }

private:
	ViewDrawing fDraw;
	bool fIsDrawn;
};


std::string
drawn_row(const RowDrawing& draw, float width)
{
	return drawn_view(BSize(299, 59), [&draw, width](BView* view) {
		draw(view, BRect(5, 5, 5 + width, 54));
	});
}


std::string
drawn_view(BSize size, const ViewDrawing& draw)
{
	const BRect frame(100, 100, 100 + size.width, 100 + size.height);
	WindowProbe window(new BWindow(frame, "drawn", B_TITLED_WINDOW, 0));
	DrawnView* view = new DrawnView(size, draw);
	BLayoutBuilder::Group<>(window.Window(), B_VERTICAL, 0).Add(view);
	window.Window()->Show();
	WaitFor([view] {
		return view->IsDrawn();
	});
	return picture_of(view);
}


std::string
picture_file(int width, int height)
{
	std::string file = "P6\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
	for (int i = 0; i < width * height; i++)
		file += "\xe0\x30\x90";
	return file;
}
