/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "DrawnRow.h"

#include <Bitmap.h>
#include <DataIO.h>
#include <Font.h>
#include <LayoutBuilder.h>
#include <ListItem.h>
#include <TranslationUtils.h>
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
drawn_item(BListItem* item, bool complete, float width)
{
	return drawn_row(
		[item, complete](BView* view, BRect frame) {
			item->DrawItem(view, frame, complete);
		},
		width);
}


void
fill_selected(BView* view, BRect frame)
{
	view->SetHighColor(ui_color(B_LIST_SELECTED_BACKGROUND_COLOR));
	view->FillRect(frame);
}


float
middle_baseline(BView* view, BRect frame)
{
	view->SetFont(be_plain_font);
	font_height height;
	view->GetFontHeight(&height);
	return frame.top + (frame.Height() + height.ascent - height.descent) / 2;
}


void
draw_line(BView* view, BRect frame, float left, const char* text, color_which color)
{
	const float y = middle_baseline(view, frame);
	view->SetHighColor(ui_color(color));
	view->DrawString(text, BPoint(frame.left + left, y));
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


static std::string
little_endian(uint32 value)
{
	return {static_cast<char>(value), static_cast<char>(value >> 8), static_cast<char>(value >> 16),
		static_cast<char>(value >> 24)};
}


std::string
picture_file(int width, int height)
{
	std::string pixels;
	for (int i = 0; i < width * height; i++)
		pixels += "\xe0\x30\x90";
	return picture_file(width, height, pixels);
}


std::string
picture_file(int width, int height, const std::string& pixels)
{
	std::string rows;
	for (size_t y = static_cast<size_t>(height); y > 0; y--) {
		for (size_t x = 0; x < static_cast<size_t>(width); x++) {
			const size_t at = ((y - 1) * static_cast<size_t>(width) + x) * 3;
			rows += {pixels.at(at + 2), pixels.at(at + 1), pixels.at(at)};
		}
		// A row has a multiple of four bytes.
		rows.append(static_cast<size_t>(width % 4), '\0');
	}
	const uint32 headers = 54;
	std::string file("BM");
	file += little_endian(headers + static_cast<uint32>(rows.size())) + little_endian(0);
	// Where the rows begin, and the size of the header that follows.
	file += little_endian(headers) + little_endian(40);
	file += little_endian(static_cast<uint32>(width)) + little_endian(static_cast<uint32>(height));
	// One plane, of 24 bits, which are not compressed.
	file += little_endian(24 << 16 | 1);
	file += little_endian(0);
	return file + std::string(20, '\0') + rows;
}


std::unique_ptr<BBitmap>
new_picture(int width, int height)
{
	const std::string file = picture_file(width, height);
	BMemoryIO stream(file.data(), file.size());
	return std::unique_ptr<BBitmap>(BTranslationUtils::GetBitmap(&stream));
}
