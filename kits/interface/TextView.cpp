/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextView.h>

#include <algorithm>
#include <cstring>

#include <GeometryConversion.h>
#include <StrictChecks.h>
#include <TextViewPeer.h>


/*!	Takes what \a mode says of a font over, and the color if there is one. */
static TextStyle
change_style(TextStyle style, const BFont* font, uint32 mode, const rgb_color* color)
{
	if (font != NULL && (mode & B_FONT_SIZE) != 0)
		style.font.SetSize(font->Size());
	if (font != NULL && (mode & (B_FONT_FACE | B_FONT_FAMILY_AND_STYLE)) != 0)
		style.font.SetFace(font->Face());
	if (color != NULL)
		style.color = *color;
	return style;
}


BTextView::BTextView(const char* name, uint32 flags)
	: BTextView(name, flags, new TextViewPeer)
{
}


/*!	\param peer Owned by the view. */
BTextView::BTextView(const char* name, uint32 flags, TextPeer* peer)
	: BView(peer, name, flags),
	  fTextPeer(peer),
	  fIsStylable(false),
	  fIsWrapping(true),
	  fIsSelectable(true),
	  fIsEditable(true),
	  fIsTypingHidden(false)
{
	fTextPeer->SetEditing(true, true);
}


/*!	\param runs NULL: parts with a style of their own get it from SetFontAndColor(). */
void
BTextView::SetText(const char* text, const text_run_array* /*runs*/)
{
	CHECK_LOCKED(Looper());
	fTextPeer->SetText(text != NULL ? text : "");
}


/*!	The text gets the style that SetFontAndColor() has set for it, otherwise that of what stands
	before it.
	Without memory for it the text stays as it was.
	Differs from Haiku: what is selected stays selected, and a caret stays where it is. The user may
	be reading what stands there, or be about to copy it.
*/
void
BTextView::Insert(int32 offset, const char* text, int32 length, const text_run_array* /*runs*/)
{
	CHECK_LOCKED(Looper());
	if (text == NULL || length <= 0)
		return;
	fTextPeer->Insert(_Clamp(offset), text,
		static_cast<int32>(strnlen(text, static_cast<size_t>(length))));
}


/*!	The bytes of the text and a NUL, which stay until it is changed. */
const char*
BTextView::Text() const
{
	CHECK_LOCKED(Looper());
	return fTextPeer->Text();
}


/*!	In bytes. */
int32
BTextView::TextLength() const
{
	CHECK_LOCKED(Looper());
	return fTextPeer->TextLength();
}


void
BTextView::Select(int32 start, int32 end)
{
	CHECK_LOCKED(Looper());
	start = _Clamp(start);
	end = _Clamp(end);
	if (start <= end)
		fTextPeer->Select(start, end);
}


void
BTextView::GetSelection(int32* _start, int32* _end) const
{
	CHECK_LOCKED(Looper());
	fTextPeer->GetSelection(_start, _end);
}


/*!	Styles what is selected. When nothing is, this is the style of the next insertion, or, in a text
	that is not stylable, of all of it.
*/
void
BTextView::SetFontAndColor(const BFont* font, uint32 mode, const rgb_color* color)
{
	CHECK_LOCKED(Looper());
	int32 start = 0;
	int32 end = 0;
	GetSelection(&start, &end);
	if (start < end)
		SetFontAndColor(start, end, font, mode, color);
	else if (fIsStylable)
		fTextPeer->SetStyle(change_style(fTextPeer->Style(), font, mode, color));
	else
		SetFontAndColor(0, TextLength(), font, mode, color);
}


/*!	In a text that is not stylable all has one style, and the range does not matter. */
void
BTextView::SetFontAndColor(int32 start, int32 end, const BFont* font, uint32 mode,
	const rgb_color* color)
{
	CHECK_LOCKED(Looper());
	if (!fIsStylable) {
		start = 0;
		end = TextLength();
		fTextPeer->SetStyle(change_style(fTextPeer->Style(), font, mode, color));
	}
	start = _Clamp(start);
	end = _Clamp(end);
	if (start < end) {
		fTextPeer->SetStyleOf(start, end,
			change_style(fTextPeer->StyleAt(start), font, mode, color));
	}
}


void
BTextView::GetFontAndColor(int32 offset, BFont* _font, rgb_color* _color) const
{
	CHECK_LOCKED(Looper());
	const TextStyle style = fTextPeer->StyleAt(_Clamp(offset));
	if (_font != NULL)
		*_font = style.font;
	if (_color != NULL)
		*_color = style.color;
}


/*!	Where the character at \a offset begins; in a text that scrolls this may lie outside of
	Bounds().
*/
BPoint
BTextView::PointAt(int32 offset, float* _height) const
{
	CHECK_LOCKED(Looper());
	const BRect place = rect_from_toolkit(fTextPeer->PlaceOf(_Clamp(offset)));
	if (_height != NULL)
		*_height = place.Height() + 1;
	return place.LeftTop();
}


/*!	Makes the character visible. */
void
BTextView::ScrollToOffset(int32 offset)
{
	CHECK_LOCKED(Looper());
	fTextPeer->ScrollToOffset(_Clamp(offset));
}


void
BTextView::SetStylable(bool stylable)
{
	CHECK_LOCKED(Looper());
	fIsStylable = stylable;
}


bool
BTextView::IsStylable() const
{
	CHECK_LOCKED(Looper());
	return fIsStylable;
}


// Differs from Haiku: without it, too, a paragraph of more than a kilobyte goes on in another row.
void
BTextView::SetWordWrap(bool wrap)
{
	CHECK_LOCKED(Looper());
	fIsWrapping = wrap;
	fTextPeer->SetWordWrap(wrap);
}


bool
BTextView::DoesWordWrap() const
{
	CHECK_LOCKED(Looper());
	return fIsWrapping;
}


void
BTextView::MakeSelectable(bool selectable)
{
	CHECK_LOCKED(Looper());
	fIsSelectable = selectable;
	fTextPeer->SetEditing(fIsEditable, selectable);
}


bool
BTextView::IsSelectable() const
{
	CHECK_LOCKED(Looper());
	return fIsSelectable;
}


// Differs from Haiku: a text of many lines takes no keys even so. Only the field of a text control
// is typed into.
void
BTextView::MakeEditable(bool editable)
{
	CHECK_LOCKED(Looper());
	fIsEditable = editable;
	fTextPeer->SetEditing(editable, fIsSelectable);
}


bool
BTextView::IsEditable() const
{
	CHECK_LOCKED(Looper());
	return fIsEditable;
}


/*!	For the field of a text control: what is typed shows as dots. */
void
BTextView::HideTyping(bool enabled)
{
	CHECK_LOCKED(Looper());
	fIsTypingHidden = enabled;
	fTextPeer->HideTyping(enabled);
}


bool
BTextView::IsTypingHidden() const
{
	CHECK_LOCKED(Looper());
	return fIsTypingHidden;
}


int32
BTextView::_Clamp(int32 offset) const
{
	return std::min<int32>(std::max<int32>(offset, 0), TextLength());
}
