/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextViewPeer.h>

#include <algorithm>
#include <cstring>
#include <limits>

#include <ColorConversion.h>
#include <FontConversion.h>
#include <InterfaceDefs.h>
#include <TextWidget.h>


// In bytes. Positions are counted in an int, and sums of them are.
static const int32 kMaxText = std::numeric_limits<int32>::max() / 2;

// In bytes. What comes behind those of a character may become part of it.
static const int32 kLongestCharacter = 4;

// In pixels, without a frame.
static const int kMinWidth = 80;
static const int kMinLines = 3;


TextViewPeer::TextViewPeer()
	: TextPeer(new TextWidget),
	  fText(static_cast<TextWidget*>(Widget())),
	  fStyle{BFont(be_plain_font), ui_color(B_DOCUMENT_TEXT_COLOR)},
	  fStyleNumber(_NumberOf(fStyle)),
	  fIsStyleUnused(false),
	  fScrollsToEnd(false),
	  fSides{{0, 0}, {0, 0}}
{
}


TextViewPeer::~TextViewPeer() = default;


/*!	The text is seen from its start, and nothing of it is selected. */
void
TextViewPeer::SetText(const char* text)
{
	fScrollsToEnd = false;
	_Replace(0, TextLength(), "", 0);
	_Replace(0, 0, text, static_cast<int32>(strlen(text)));
	fText->Select(0, 0);
	fText->ScrollToStart();
}


/*!	What would not fit, in memory either, is left out. */
void
TextViewPeer::Insert(int32 offset, const char* text, int32 length)
{
	if (length <= kMaxText - TextLength() && fText->MakeRoom(text, length))
		_Replace(offset, 0, text, length);
}


const char*
TextViewPeer::Text()
{
	return fText->Text().Bytes();
}


int32
TextViewPeer::TextLength()
{
	return fText->Text().CountBytes();
}


void
TextViewPeer::Select(int32 start, int32 end)
{
	fText->SelectForClient(_PositionAt(start), _PositionAt(end));
	ScheduleFlush();
}


void
TextViewPeer::GetSelection(int32* _start, int32* _end)
{
	*_start = _OffsetAt(fText->Caret().Start());
	*_end = _OffsetAt(fText->Caret().End());
}


void
TextViewPeer::SetStyle(const TextStyle& style)
{
	fIsStyleUnused = true;
	if (style == fStyle)
		return;
	fStyle = style;
	fStyleNumber = _NumberOf(style);
}


TextStyle
TextViewPeer::StyleAt(int32 offset)
{
	if (offset >= TextLength())
		return fStyles[_StyleOfInsertion(offset)];
	const StyleRuns& runs = fText->Styles();
	return fStyles[runs[runs.RunAt(offset)].style];
}


void
TextViewPeer::SetStyleOf(int32 start, int32 end, const TextStyle& style)
{
	const int32 number = _NumberOf(style);
	const StyleRuns& runs = fText->Styles();
	const int32 run = runs.RunAt(start);
	if (runs[run].style == number && runs.EndOf(run) >= end)
		return;
	fText->SetStyle(start, end, number);
	ScheduleFlush();
}


/*!	\return The place of a character in the view, a pixel wide. */
QRect
TextViewPeer::PlaceOf(int32 offset)
{
	FlushNow();
	const QRect place = fText->PlaceOf(fText->Text().PositionAt(offset)).toRect();
	return place.translated(fText->viewport()->pos());
}


/*!	Makes the line of a character visible. The end waits for the frame that shows what has been
	appended.
*/
void
TextViewPeer::ScrollToOffset(int32 offset)
{
	if (offset >= TextLength()) {
		fScrollsToEnd = true;
		ScheduleFlush();
		return;
	}
	FlushNow();
	fText->ScrollToPosition(fText->Text().PositionAt(offset));
}


void
TextViewPeer::SetWordWrap(bool wrap)
{
	fText->SetWordWrap(wrap);
}


/*!	\param editable Makes no difference: the text takes no keys. */
void
TextViewPeer::SetEditing(bool /*editable*/, bool selectable)
{
	fText->SetSelectable(selectable);
}


QSize
TextViewPeer::MinSize()
{
	const int frame = 2 * fText->frameWidth();
	const int margin = 2 * TextPage::kMargin;
	return QSize(kMinWidth, kMinLines * fText->fontMetrics().lineSpacing() + margin)
		+ QSize(frame, frame);
}


QSize
TextViewPeer::MaxSize()
{
	return QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
}


QSize
TextViewPeer::PreferredSize()
{
	return fText->sizeHint();
}


void
TextViewPeer::FontChanged()
{
	// Formats say what differs from the view's font.
	for (size_t i = 0; i < fStyles.size(); i++)
		fText->SetFormatOf(static_cast<int32>(i), _FormatOf(fStyles[i]));
	TextPeer::FontChanged();
}


/*!	The keyboard reaches every text, so that it can be read and copied without a mouse. */
void
TextViewPeer::FlagsChanged()
{
	fText->setFocusPolicy(Qt::StrongFocus);
}


void
TextViewPeer::Flush()
{
	if (fScrollsToEnd)
		fText->ScrollToEnd();
	else
		fText->ShowChanges();
	fScrollsToEnd = false;
}


void
TextViewPeer::_Replace(int32 offset, int32 removed, const char* text, int32 length)
{
	fText->Replace(offset, removed, text, length, _StyleOfInsertion(offset));
	if (length > 0)
		fIsStyleUnused = false;
	for (Place& side : fSides) {
		if (side.offset + kLongestCharacter > offset)
			side = {0, 0};
	}
	ScheduleFlush();
}


/*!	\return The number of the style that a text gets at that offset. */
int32
TextViewPeer::_StyleOfInsertion(int32 offset) const
{
	const StyleRuns& runs = fText->Styles();
	if (fIsStyleUnused || runs.CountBytes() == 0)
		return fStyleNumber;
	return runs[runs.RunAt(std::max<int32>(offset - 1, 0))].style;
}


int32
TextViewPeer::_OffsetAt(int32 position)
{
	for (const Place& side : fSides) {
		if (side.position == position)
			return side.offset;
	}
	fSides[1] = fSides[0];
	fSides[0] = {position, fText->Text().OffsetAt(position)};
	return fSides[0].offset;
}


int32
TextViewPeer::_PositionAt(int32 offset) const
{
	for (const Place& side : fSides) {
		if (side.offset == offset)
			return side.position;
	}
	return fText->Text().PositionAt(offset);
}


/*!	A text has a few styles. */
int32
TextViewPeer::_NumberOf(const TextStyle& style)
{
	const auto found = std::find(fStyles.begin(), fStyles.end(), style);
	const int32 number = static_cast<int32>(found - fStyles.begin());
	if (found == fStyles.end()) {
		fStyles.push_back(style);
		fText->SetFormatOf(number, _FormatOf(style));
	}
	return number;
}


QTextCharFormat
TextViewPeer::_FormatOf(const TextStyle& style)
{
	QTextCharFormat format;
	format.setForeground(color_to_toolkit(style.color));
	const BFont& viewFont = GetCanvas()->font;
	const QFont& font = font_to_toolkit(style.font);
	if (style.font.Size() != viewFont.Size())
		format.setProperty(QTextFormat::FontPixelSize, font.pixelSize());
	if (style.font.Face() != viewFont.Face()) {
		format.setFontWeight(font.weight());
		format.setFontItalic(font.italic());
	}
	return format;
}
