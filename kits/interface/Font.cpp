/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Font.h>

#include <string>

#include <FontConversion.h>
#include <String.h>
#include <TextConversion.h>
#include <TextCutting.h>


const BFont* be_plain_font = NULL;
const BFont* be_bold_font = NULL;


/*!	The plain font. */
BFont::BFont()
	: fSize(be_plain_font != NULL ? be_plain_font->fSize : 12),
	  fFace(B_REGULAR_FACE)
{
}


BFont::BFont(const BFont& font) = default;


/*!	\param font NULL for the plain font. */
BFont::BFont(const BFont* font)
	: BFont()
{
	if (font != NULL)
		*this = *font;
}


bool
BFont::operator==(const BFont& font) const
{
	return fSize == font.fSize && fFace == font.fFace;
}


/*!	\param size In pixels. */
void
BFont::SetSize(float size)
{
	fSize = size;
}


void
BFont::SetFace(uint16 face)
{
	fFace = face;
}


/*!	The width in pixels; 0 for NULL. */
float
BFont::StringWidth(const char* string) const
{
	const QString shown = shown_text(text_from_bytes(string));
	return static_cast<float>(metrics_of_font(*this).horizontalAdvance(shown));
}


float
BFont::StringWidth(const char* string, int32 length) const
{
	return StringWidth(std::string(string, static_cast<size_t>(length)).c_str());
}


/*!	In whole pixels. */
void
BFont::GetHeight(font_height* _height) const
{
	*_height = height_of_font(*this);
}


/*!	Cuts the string so that it is at most \a width pixels wide, and says so with an ellipsis. One
	that fits stays as it is.
*/
// Differs from Haiku: behind some thousand characters that have no width nothing else fits.
void
BFont::TruncateString(BString* inOut, uint32 mode, float width) const
{
	if (mode == B_NO_TRUNCATION)
		return;

	Qt::TextElideMode elide = Qt::ElideRight;
	if (mode == B_TRUNCATE_BEGINNING)
		elide = Qt::ElideLeft;
	else if (mode == B_TRUNCATE_MIDDLE)
		elide = Qt::ElideMiddle;

	const QString text = text_from_bytes(inOut->String());
	const QString cut = elided_text(text, metrics_of_font(*this), elide, width);
	if (cut != text)
		*inOut = bytes_from_text(cut).constData();
}
