/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileItem.h"

#include <cstring>
#include <strings.h>

#include <Font.h>
#include <InterfaceDefs.h>
#include <View.h>

#include "RowPainter.h"


static const float kIconInset = 4.0f;
static const float kIconTextSpacing = 6.0f;
static const float kShapeSize = 10.0f;
static const float kShapeTextSpacing = 8.0f;
static const float kRightInset = 6.0f;
// Between the name and what stands at the right.
static const float kColumnSpacing = 8.0f;

static const char* const kStuffItExtensions[] = {".sit", ".sea", ".hqx"};
static const char* const kImageExtensions[] = {".jpg", ".png", ".gif", ".bmp", ".tif", ".psd",
	".pcx", ".jpeg", ".tiff"};


static bool
ends_in(const char* name, const char* extension)
{
	const size_t nameLength = strlen(name);
	const size_t length = strlen(extension);
	return nameLength >= length && strcasecmp(name + nameLength - length, extension) == 0;
}


template<size_t count>
static bool
ends_in_one_of(const char* name, const char* const (&extensions)[count])
{
	for (const char* extension : extensions) {
		if (ends_in(name, extension))
			return true;
	}
	return false;
}


static void
copy_code(char (&code)[5], const char* text)
{
	strncpy(code, text, sizeof(code) - 1);
	code[sizeof(code) - 1] = '\0';
}


FileItem::FileItem(const char* name, const char* type, const char* creator, int32 size,
	BBitmap* folderIcon, BBitmap* stuffItIcon, BBitmap* imageIcon)
	: BStringItem(name),
	  fSize(size),
	  fFolderIcon(folderIcon),
	  fStuffItIcon(stuffItIcon),
	  fImageIcon(imageIcon)
{
	copy_code(fType, type);
	copy_code(fCreator, creator);
}


FileItem::~FileItem() = default;


bool
FileItem::IsFolder() const
{
	return strcmp(fType, "fldr") == 0;
}


void
FileItem::DrawItem(BView* owner, BRect frame, bool complete)
{
	RowPainter painter(owner, frame, IsSelected());
	painter.DrawBackground(complete);

	_DrawSymbol(owner, &painter, frame.left + kIconInset);

	owner->SetFont(be_plain_font, B_FONT_ALL);
	const float baseline = painter.Baseline();
	// A name too long for the row would run into the size.
	BString name(FileName());
	owner->TruncateString(&name, B_TRUNCATE_END, _NameWidth(frame.Width()));
	owner->SetHighColor(painter.TextColor());
	owner->DrawString(name.String(), BPoint(frame.left + _TextLeft(), baseline));

	const BString size(_SizeText());
	const float sizeLeft = frame.right - kRightInset - owner->StringWidth(size.String());
	owner->SetHighColor(tint_color(ui_color(B_PANEL_BACKGROUND_COLOR), B_DARKEN_2_TINT));
	owner->DrawString(size.String(), BPoint(sizeLeft, baseline));
}


BString
FileItem::ToolTipText(float rowWidth) const
{
	const bool fits = _Fits(be_plain_font, FileName(), _NameWidth(rowWidth));
	return fits ? BString() : BString(FileName());
}


/*!	\return The picture for the kind of file that the type or the name's ending tells, \c NULL where
	there is none.
*/
const BBitmap*
FileItem::_Icon() const
{
	if (IsFolder())
		return fFolderIcon;
	if (fStuffItIcon != NULL && ends_in_one_of(FileName(), kStuffItExtensions))
		return fStuffItIcon;
	if (fImageIcon != NULL && ends_in_one_of(FileName(), kImageExtensions))
		return fImageIcon;
	return NULL;
}


/*!	Draws the picture, or else a square for a folder and a circle for a file.
	\param left Of either, in the view.
*/
void
FileItem::_DrawSymbol(BView* owner, RowPainter* painter, float left) const
{
	const BBitmap* icon = _Icon();
	if (icon != NULL) {
		painter->DrawIcon(icon, left);
		return;
	}

	if (IsFolder()) {
		const rgb_color color = make_color(220, 180, 50);
		const BRect square = painter->CenteredSquare(left, kShapeSize);
		owner->SetHighColor(color);
		owner->FillRect(square);
		owner->SetHighColor(tint_color(color, B_DARKEN_2_TINT));
		owner->StrokeRect(square);
	} else
		painter->DrawDisc(left, kShapeSize, make_color(120, 150, 200));
}


/*!	Where the name begins in the row. */
float
FileItem::_TextLeft() const
{
	if (_Icon() != NULL)
		return kIconInset + RowPainter::kIconSize + kIconTextSpacing;
	return kIconInset + kShapeSize + kShapeTextSpacing;
}


/*!	How much of a row's width is for the name. */
float
FileItem::_NameWidth(float rowWidth) const
{
	const float sizeWidth = be_plain_font->StringWidth(_SizeText().String());
	return rowWidth - kRightInset - sizeWidth - kColumnSpacing - _TextLeft();
}


BString
FileItem::_SizeText() const
{
	BString text;
	if (IsFolder())
		text = "folder";
	else if (fSize < 1024)
		text.SetToFormat("%" B_PRId32 " B", fSize);
	else if (fSize < 1024 * 1024)
		text.SetToFormat("%.1f KB", fSize / 1024.0);
	else
		text.SetToFormat("%.1f MB", fSize / 1048576.0);
	return text;
}
