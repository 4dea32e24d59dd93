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


namespace {


class RowView : public BView {
public:
	explicit RowView(const RowDrawing& draw)
		: BView("row", B_WILL_DRAW),
		  fDraw(draw),
		  fDrawn(false)
	{
		SetExplicitSize(BSize(299, 59));
	}

	void Draw(BRect) override
	{
		fDraw(this, Bounds().InsetByCopy(5, 5));
		fDrawn = true;
	}

	bool IsDrawn() const { return fDrawn; }

private:
	RowDrawing fDraw;
	bool fDrawn;
};


} // namespace


std::string
drawn_row(const RowDrawing& draw)
{
	WindowProbe window(new BWindow(BRect(100, 100, 399, 159), "row", B_TITLED_WINDOW, 0));
	RowView* view = new RowView(draw);
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
