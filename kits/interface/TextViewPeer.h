/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TEXT_VIEW_PEER_H
#define TEXT_VIEW_PEER_H


#include <memory>
#include <string>

#include <QTextCharFormat>

#include <PendingTextPrivate.h>
#include <TextMap.h>
#include <TextPeer.h>


class QTextCursor;
class QTextDocument;
class TextLayout;
class TextWidget;


/*!	A text of many lines. What is appended waits, and goes into the document with the next frame: as one edit, which is laid
	out once. How much goes at once is bounded, so is how much waits.
*/
class TextViewPeer : public TextPeer, private TextMap::Document {
public:
	TextViewPeer();
	~TextViewPeer() override;

	void SetText(const char* text, int32 length) override;
	void Insert(int32 offset, const char* text, int32 length) override;
	void Delete(int32 start, int32 end) override;
	const char* Text() override;
	int32 TextLength() override;

	void Select(int32 start, int32 end) override;
	void GetSelection(int32* _start, int32* _end) override;

	TextStyle Style() const override { return fStyle; }
	void SetStyle(const TextStyle& style) override { fStyle = style; }
	TextStyle StyleAt(int32 offset) override;
	void SetStyleOf(int32 start, int32 end, const TextStyle& style) override;

	QRect PlaceOf(int32 offset) override;
	void ScrollToOffset(int32 offset) override;

	void SetWordWrap(bool wrap) override;
	void SetEditing(bool editable, bool selectable) override;
	void HideTyping(bool /*hide*/) override {}

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	void FontChanged() override;
	void FlagsChanged() override;

protected:
	void Flush() override;

private:
	std::u16string BlockText(int32 block) const override;

	void _FlushAll();
	void _FlushPending(bigtime_t budget);
	void _MovePending(bigtime_t budget);
	void _Replace(int32 offset, int32 removed, const char* text, int32 length);
	void _Apply(QTextCursor& cursor, const TextMap::Edit& edit, const TextStyle& style);
	const QTextCharFormat& _FormatOf(const TextStyle& style);
	void _MakeFormat(const TextStyle& style);
	TextStyle _StyleOf(const QTextCharFormat& format);
	void _UserEdited();
	void _ReadDocument();

	TextWidget* fText;
	QTextDocument* fDocument;
	TextLayout* fLayout;
	std::unique_ptr<TextMap> fMap;
	PendingText fPending;
	TextStyle fStyle;
	// The format that was made last, and for which style.
	TextStyle fFormatStyle;
	QTextCharFormat fFormat;
	std::string fBytes;
	bool fBytesAreTrue;
	// The user has edited the document since it was last read.
	bool fDocumentIsAhead;
	bool fIsEditing;
	// The toolkit has not been told of what was moved before its frame.
	bool fSizeIsOld;
	bool fScrollsToEnd;
};


#endif // TEXT_VIEW_PEER_H
