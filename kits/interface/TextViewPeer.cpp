/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextViewPeer.h>

#include <algorithm>
#include <limits>

#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <ColorConversionPrivate.h>
#include <FontConversionPrivate.h>
#include <InterfaceDefs.h>
#include <OS.h>
#include <TextLayoutPrivate.h>
#include <TextWidgetPrivate.h>


// In bytes. What goes into the document at once, and what may wait.
static const int32 kPiece = 16 * 1024;
static const int32 kMaxPending = 1024 * 1024;

// How much of a frame the pieces may take after the first one, in microseconds; and in bytes, as what long lines cost comes only
// when they are wrapped. One that is a piece by itself has the frame to itself.
static const bigtime_t kFlushBudget = 8000;
static const bigtime_t kNoBudget = std::numeric_limits<bigtime_t>::max();
static const int32 kMaxFlush = 32 * kPiece;

// In bytes. The toolkit counts positions in an int, and notifies with sums of them.
static const int32 kMaxText = std::numeric_limits<int32>::max() / 2;

// In pixels, without a frame.
static const int kMinWidth = 80;
static const int kMinLines = 3;


static QString
to_toolkit(const std::u16string& units)
{
	return QString(reinterpret_cast<const QChar*>(units.data()), qsizetype(units.size()));
}


TextViewPeer::TextViewPeer()
	: TextPeer(new TextWidget),
	  fText(static_cast<TextWidget*>(Widget())),
	  fDocument(fText->document()),
	  fLayout(fText->Layout()),
	  fMap(new TextMap(this)),
	  fStyle{BFont(be_plain_font), ui_color(B_DOCUMENT_TEXT_COLOR)},
	  fFormatStyle(fStyle),
	  fFormat(),
	  fBytesAreTrue(true),
	  fDocumentIsAhead(false),
	  fIsEditing(false),
	  fSizeIsOld(false),
	  fScrollsToEnd(false)
{
	_MakeFormat(fStyle);
	QObject::connect(fDocument, &QTextDocument::contentsChange, fText,
		[this](int, int removed, int added) {
			if (!fIsEditing && (removed > 0 || added > 0))
				_UserEdited();
		});
}


TextViewPeer::~TextViewPeer() = default;


/*!	The text is seen from its start, and nothing of it is selected. */
void
TextViewPeer::SetText(const char* text, int32 length)
{
	fPending.MakeEmpty();
	fScrollsToEnd = false;
	fText->ForgetEnd();
	_ReadDocument();
	_Replace(0, fMap->CountBytes(), text, length);

	QTextCursor cursor = fText->textCursor();
	cursor.movePosition(QTextCursor::Start);
	fText->setTextCursor(cursor);
}


void
TextViewPeer::Insert(int32 offset, const char* text, int32 length)
{
	const int32 end = TextLength();
	if (length > kMaxText - end)
		return;
	fBytesAreTrue = false;
	if (offset < end) {
		_FlushAll();
		_Replace(offset, 0, text, length);
		return;
	}
	fPending.Append(text, length, fStyle);
	while (fPending.Length() > kMaxPending) {
		// How long the text has become is told with the frame: the toolkit lays out the last page to answer.
		const QSignalBlocker blocker(fLayout);
		_MovePending(kFlushBudget);
		fSizeIsOld = true;
	}
	ScheduleFlush();
}


void
TextViewPeer::Delete(int32 start, int32 end)
{
	_FlushAll();
	_Replace(start, end - start, "", 0);
}


const char*
TextViewPeer::Text()
{
	_ReadDocument();
	if (!fBytesAreTrue) {
		fBytes = fMap->Bytes(0, fMap->CountBytes());
		fBytes.append(fPending.Bytes(), size_t(fPending.Length()));
		fBytesAreTrue = true;
	}
	return fBytes.c_str();
}


int32
TextViewPeer::TextLength()
{
	_ReadDocument();
	return fMap->CountBytes() + fPending.Length();
}


void
TextViewPeer::Select(int32 start, int32 end)
{
	_FlushAll();
	QTextCursor cursor = fText->textCursor();
	cursor.setPosition(fMap->PositionAt(start));
	cursor.setPosition(fMap->PositionAt(end), QTextCursor::KeepAnchor);
	fText->setTextCursor(cursor);
}


void
TextViewPeer::GetSelection(int32* _start, int32* _end)
{
	_ReadDocument();
	const QTextCursor cursor = fText->textCursor();
	*_start = fMap->OffsetAt(cursor.selectionStart());
	*_end = fMap->OffsetAt(cursor.selectionEnd());
}


TextStyle
TextViewPeer::StyleAt(int32 offset)
{
	_ReadDocument();
	if (offset >= TextLength())
		return fStyle;
	if (offset >= fMap->CountBytes())
		return fPending.StyleAt(offset - fMap->CountBytes());
	// A cursor's format is that of the character before it.
	QTextCursor cursor(fDocument);
	cursor.setPosition(fMap->PositionAt(offset) + 1);
	return _StyleOf(cursor.charFormat());
}


void
TextViewPeer::SetStyleOf(int32 start, int32 end, const TextStyle& style)
{
	_ReadDocument();
	const int32 pendingStart = fMap->CountBytes();
	if (start >= pendingStart) {
		fPending.SetStyle(start - pendingStart, end - pendingStart, style);
		return;
	}
	_FlushAll();
	QTextCursor cursor(fDocument);
	cursor.setPosition(fMap->PositionAt(start));
	cursor.setPosition(fMap->PositionAt(end), QTextCursor::KeepAnchor);
	// The toolkit reports the text as replaced, though only its format is another one.
	fIsEditing = true;
	cursor.setCharFormat(_FormatOf(style));
	fIsEditing = false;
}


/*!	\return The place of a character in the view, a pixel wide. */
QRect
TextViewPeer::PlaceOf(int32 offset)
{
	_FlushAll();
	QTextCursor cursor(fDocument);
	cursor.setPosition(fMap->PositionAt(offset));
	const QRect place = fText->cursorRect(cursor);
	return place.translated(fText->viewport()->pos());
}


/*!	Makes the line of a character visible. The end waits for the frame that shows what has been appended. */
void
TextViewPeer::ScrollToOffset(int32 offset)
{
	if (offset >= TextLength()) {
		fScrollsToEnd = true;
		ScheduleFlush();
		return;
	}
	_FlushAll();
	const int position = fMap->PositionAt(offset);
	const QTextBlock block = fDocument->findBlock(position);
	fLayout->blockBoundingRect(block);
	const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
	const int number = block.firstLineNumber() + (line.isValid() ? line.lineNumber() : 0);
	QScrollBar* bar = fText->verticalScrollBar();
	if (number < bar->value())
		bar->setValue(number);
	else if (number >= bar->value() + bar->pageStep())
		bar->setValue(number - bar->pageStep() + 1);
}


void
TextViewPeer::SetWordWrap(bool wrap)
{
	fText->setLineWrapMode(wrap ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
}


/*!	Text that is only read keeps a caret, with which a screen reader walks through it. */
void
TextViewPeer::SetEditing(bool editable, bool selectable)
{
	fText->setReadOnly(!editable);
	fDocument->setUndoRedoEnabled(editable);
	if (editable)
		return;
	Qt::TextInteractionFlags flags = Qt::NoTextInteraction;
	if (selectable)
		flags = Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard;
	fText->setTextInteractionFlags(flags);
}


QSize
TextViewPeer::MinSize()
{
	const int frame = 2 * fText->frameWidth();
	const int margin = int(2 * fDocument->documentMargin());
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
	TextPeer::FontChanged();
	fDocument->setDefaultFont(fText->font());
	// It says what differs from the view's font.
	_MakeFormat(fFormatStyle);
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
	_FlushPending(kFlushBudget);
	if (!fPending.IsEmpty())
		ScheduleFlush();
}


std::u16string
TextViewPeer::BlockText(int32 block) const
{
	return fDocument->findBlockByNumber(block).text().toStdU16String();
}


void
TextViewPeer::_FlushAll()
{
	_ReadDocument();
	if (!fPending.IsEmpty() || fSizeIsOld || fScrollsToEnd)
		_FlushPending(kNoBudget);
}


/*!	Moves pieces of what waits into the document: one, and more while the time lasts.
	\param budget In microseconds; kNoBudget for all that waits.
*/
void
TextViewPeer::_FlushPending(bigtime_t budget)
{
	_MovePending(budget);
	if (fSizeIsOld) {
		fSizeIsOld = false;
		emit fLayout->documentSizeChanged(fLayout->documentSize());
		emit fLayout->update();
	}
	if (fScrollsToEnd) {
		fText->ScrollToEnd();
		fScrollsToEnd = !fPending.IsEmpty();
	}
}


/*!	The same without scrolling: every end of the text that is scrolled to is laid out. */
void
TextViewPeer::_MovePending(bigtime_t budget)
{
	_ReadDocument();
	if (fPending.IsEmpty())
		return;

	// The end of a selection would move with what is inserted there, in every copy of its cursor.
	const QTextCursor before = fText->textCursor();
	const int start = fMap->CountPositions();
	const bool selectionTouchesEnd = before.hasSelection() && before.selectionEnd() == start;
	const int anchor = before.anchor();
	const int position = before.position();

	fIsEditing = true;
	const bigtime_t begin = system_time();
	QTextCursor cursor(fDocument);
	cursor.beginEditBlock();
	int32 moved = 0;
	do {
		int32 piece = fPending.NextPiece(kPiece);
		moved += piece <= kPiece ? piece : kMaxFlush;
		while (piece > 0) {
			const int32 run = std::min(piece, fPending.NextRun());
			_Apply(cursor, fMap->Replace(fMap->CountBytes(), 0, fPending.Bytes(), run),
				fPending.NextStyle());
			fPending.Remove(run);
			piece -= run;
		}
	} while (!fPending.IsEmpty()
		&& (budget == kNoBudget || (moved < kMaxFlush && system_time() - begin < budget)));
	fLayout->FindLongWords(start, fMap->CountPositions());
	cursor.endEditBlock();
	fIsEditing = false;

	if (selectionTouchesEnd) {
		QTextCursor selection = fText->textCursor();
		selection.setPosition(anchor);
		selection.setPosition(position, QTextCursor::KeepAnchor);
		fText->setTextCursor(selection);
	}
}


/*!	Changes the document, into which everything has been flushed. */
void
TextViewPeer::_Replace(int32 offset, int32 removed, const char* text, int32 length)
{
	fBytesAreTrue = false;
	fIsEditing = true;
	const TextMap::Edit edit = fMap->Replace(offset, removed, text, length);
	QTextCursor cursor(fDocument);
	cursor.beginEditBlock();
	_Apply(cursor, edit, fStyle);
	fLayout->FindLongWords(edit.position, edit.position + int32(edit.inserted.size()));
	cursor.endEditBlock();
	fIsEditing = false;
}


void
TextViewPeer::_Apply(QTextCursor& cursor, const TextMap::Edit& edit, const TextStyle& style)
{
	cursor.setPosition(edit.position);
	if (edit.removed > 0)
		cursor.setPosition(edit.position + edit.removed, QTextCursor::KeepAnchor);
	cursor.insertText(to_toolkit(edit.inserted), _FormatOf(style));
}


/*!	The toolkit's format for a style; good until the next one is asked for. */
const QTextCharFormat&
TextViewPeer::_FormatOf(const TextStyle& style)
{
	if (!(style == fFormatStyle))
		_MakeFormat(style);
	return fFormat;
}


/*!	What is like the view's own font is not mentioned: a format with a font costs as much memory as the line. */
void
TextViewPeer::_MakeFormat(const TextStyle& style)
{
	fFormatStyle = style;
	fFormat = QTextCharFormat();
	fFormat.setForeground(color_to_toolkit(style.color));
	const BFont& viewFont = GetCanvas()->font;
	const QFont& font = font_to_toolkit(style.font);
	if (style.font.Size() != viewFont.Size())
		fFormat.setProperty(QTextFormat::FontPixelSize, font.pixelSize());
	if (style.font.Face() != viewFont.Face()) {
		fFormat.setFontWeight(font.weight());
		fFormat.setFontItalic(font.italic());
	}
}


TextStyle
TextViewPeer::_StyleOf(const QTextCharFormat& format)
{
	TextStyle style = {GetCanvas()->font, ui_color(B_DOCUMENT_TEXT_COLOR)};
	if (format.hasProperty(QTextFormat::ForegroundBrush))
		style.color = color_from_toolkit(format.foreground().color());
	if (format.hasProperty(QTextFormat::FontPixelSize))
		style.font.SetSize(float(format.intProperty(QTextFormat::FontPixelSize)));
	if (format.hasProperty(QTextFormat::FontWeight)) {
		uint16 face = format.fontItalic() ? B_ITALIC_FACE : 0;
		face |= format.fontWeight() >= QFont::Bold ? B_BOLD_FACE : 0;
		style.font.SetFace(face != 0 ? face : uint16(B_REGULAR_FACE));
	}
	return style;
}


void
TextViewPeer::_UserEdited()
{
	fDocumentIsAhead = true;
	fBytesAreTrue = false;
}


/*!	Takes over what the user has edited. Bytes that are not UTF-8 do not survive that. */
void
TextViewPeer::_ReadDocument()
{
	if (!fDocumentIsAhead)
		return;
	fDocumentIsAhead = false;
	QByteArray bytes;
	for (QTextBlock block = fDocument->firstBlock(); block.isValid(); block = block.next()) {
		bytes += block.text().toUtf8();
		if (block.next().isValid())
			bytes += '\n';
	}
	fMap.reset(new TextMap(this));
	// The document is as this edit would make it.
	static_cast<void>(fMap->Replace(0, 0, bytes.constData(), int32(bytes.size())));
}
