/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FONT_H
#define FONT_H


#include <SupportDefs.h>


class BString;


// What of a font is taken over.
enum {
	B_FONT_FAMILY_AND_STYLE = 0x00000001,
	B_FONT_SIZE = 0x00000002,
	B_FONT_FACE = 0x00000020,
	B_FONT_ALL = 0x000001ff
};

enum { B_ITALIC_FACE = 0x0001, B_BOLD_FACE = 0x0020, B_REGULAR_FACE = 0x0040 };


// How a text that is too long is cut.
enum { B_TRUNCATE_END = 0, B_TRUNCATE_BEGINNING = 1, B_TRUNCATE_MIDDLE = 2, B_NO_TRUNCATION = 4 };


/*!	In pixels: how far letters reach above the baseline and below it, and what is left free between
	two lines.
*/
// NOLINTNEXTLINE(readability-identifier-naming): Haiku's name
struct font_height {
	float ascent;
	float descent;
	float leading;
};


/*!	The system's typeface in a size in pixels, regular or bold. Texts are bytes, shown as UTF-8.
	There are no fonts before the application is there. An object belongs to one thread; it measures
	on the main thread.
*/
class BFont {
public:
	BFont();
	BFont(const BFont& font);
	BFont(const BFont* font);

	BFont& operator=(const BFont& font) = default;
	bool operator==(const BFont& font) const;

	void SetSize(float size);
	float Size() const { return fSize; }
	void SetFace(uint16 face);
	uint16 Face() const { return fFace; }

	float StringWidth(const char* string) const;
	float StringWidth(const char* string, int32 length) const;
	void GetHeight(font_height* _height) const;
	void TruncateString(BString* inOut, uint32 mode, float width) const;

private:
	float fSize;
	uint16 fFace;
};


extern const BFont* be_plain_font;
extern const BFont* be_bold_font;


#endif // FONT_H
