/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <LineEditPeer.h>

#include <QKeyEvent>
#include <QLineEdit>
#include <QWindow>

#include <CaretBlink.h>
#include <ClientScope.h>
#include <InterfaceDefs.h>
#include <KeyConversion.h>
#include <LooperPrivate.h>
#include <Message.h>
#include <OS.h>
#include <TextControl.h>
#include <TextConversion.h>
#include <Utf8.h>
#include <Window.h>


// In UTF-16 units. What a QLineEdit allows by itself is less than what fits into a field of the
// protocol.
static const int kMaxLength = 1024 * 1024;


/*!	Tells its peer of Return and of the window's focus. */
class LineEdit : public QLineEdit {
public:
	LineEdit()
		: fPeer(NULL)
	{
	}

	~LineEdit() override { QObject::disconnect(fFocusOfWindow); }

	void SetPeer(LineEditPeer* peer) { fPeer = peer; }

	bool event(QEvent* event) override
	{
		switch (event->type()) {
			case QEvent::FocusIn:
			case QEvent::InputMethod:
			case QEvent::KeyPress:
			case QEvent::MouseButtonPress:
				CaretBlink::Default()->GoOn();
				break;
			case QEvent::Show:
				_WatchWindow();
				break;
			default:
				break;
		}
		const bool result = QLineEdit::event(event);
		if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
			fPeer->FollowFocus();
		return result;
	}

protected:
	/*!	Return belongs to the control, unless it is a shortcut or the window has a default button. */
	void keyPressEvent(QKeyEvent* event) override
	{
		if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
			QLineEdit::keyPressEvent(event);
			return;
		}
		const BWindow* window = fPeer->View()->Window();
		const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
		// With the command key it is a shortcut, which no field sees.
		const bool isShortcut = (event->modifiers() & Qt::ControlModifier) != 0;
		const bool isButtons = isPlain && window != NULL && window->DefaultButton() != NULL;
		if (isShortcut || isButtons) {
			event->ignore();
			return;
		}
		if (!event->isAutoRepeat())
			fPeer->ReturnPressed(modifiers_from_toolkit(event->modifiers()));
	}

private:
	/*!	A window that is not active has a focus as well, and no widget is told when that changes. */
	void _WatchWindow()
	{
		QObject::disconnect(fFocusOfWindow);
		const QWindow* handle = window()->windowHandle();
		if (handle != NULL) {
			fFocusOfWindow = QObject::connect(handle, &QWindow::focusObjectChanged, this, [this] {
				fPeer->FollowFocus();
			});
		}
		fPeer->FollowFocus();
	}

	LineEditPeer* fPeer;
	QMetaObject::Connection fFocusOfWindow;
};


LineEditPeer::LineEditPeer(BTextControl* control)
	: TextPeer(new LineEdit),
	  fControl(control),
	  fField(static_cast<QLineEdit*>(Widget())),
	  fIsSetting(false),
	  fIsFocus(false)
{
	static_cast<LineEdit*>(fField)->SetPeer(this);
	fField->setMaxLength(kMaxLength);
	QObject::connect(fField, &QLineEdit::textChanged, fField, [this](const QString& text) {
		if (!fIsSetting)
			_TextEdited(text);
	});
}


void
LineEditPeer::SetText(const char* text)
{
	FollowFocus();
	fBytes = QByteArray(text);
	fIsSetting = true;
	fField->setText(text_from_bytes(text));
	fIsSetting = false;
}


void
LineEditPeer::Insert(int32 offset, const char* text, int32 length)
{
	QByteArray bytes = fBytes;
	bytes.insert(offset, text, length);
	SetText(bytes.constData());
}


const char*
LineEditPeer::Text()
{
	return fBytes.constData();
}


int32
LineEditPeer::TextLength()
{
	return static_cast<int32>(fBytes.size());
}


void
LineEditPeer::Select(int32 start, int32 end)
{
	const int position = _PositionAt(start);
	fField->setSelection(position, _PositionAt(end) - position);
}


void
LineEditPeer::GetSelection(int32* _start, int32* _end)
{
	const bool isEmpty = !fField->hasSelectedText();
	*_start = _OffsetAt(isEmpty ? fField->cursorPosition() : fField->selectionStart());
	*_end = _OffsetAt(isEmpty ? fField->cursorPosition() : fField->selectionEnd());
}


TextStyle
LineEditPeer::Style() const
{
	return {BFont(be_plain_font), ui_color(B_DOCUMENT_TEXT_COLOR)};
}


void
LineEditPeer::SetStyle(const TextStyle& /*style*/)
{
}


TextStyle
LineEditPeer::StyleAt(int32 /*offset*/)
{
	return Style();
}


void
LineEditPeer::SetStyleOf(int32 /*start*/, int32 /*end*/, const TextStyle& /*style*/)
{
}


QRect
LineEditPeer::PlaceOf(int32 /*offset*/)
{
	return fField->rect();
}


void
LineEditPeer::ScrollToOffset(int32 offset)
{
	fField->setCursorPosition(_PositionAt(offset));
}


void
LineEditPeer::SetWordWrap(bool /*wrap*/)
{
}


void
LineEditPeer::SetEditing(bool editable, bool /*selectable*/)
{
	fField->setReadOnly(!editable);
}


/*!	Screen readers are told that this is a password. */
void
LineEditPeer::HideTyping(bool hide)
{
	fField->setEchoMode(hide ? QLineEdit::Password : QLineEdit::Normal);
}


/*!	The control's flags count. */
void
LineEditPeer::FlagsChanged()
{
}


void
LineEditPeer::BeginAnew()
{
	fStart = fBytes;
}


/*!	Only a change of the window's focus counts, which it keeps while it is not active or a menu is
	open.
*/
void
LineEditPeer::FollowFocus()
{
	if (View() == NULL)
		return;
	const ClientScope scope(View()->Window());
	const bool isFocus = View()->IsFocus();
	if (isFocus == fIsFocus)
		return;
	fIsFocus = isFocus;
	if (isFocus)
		BeginAnew();
	else
		_InvokeIfChanged();
}


/*!	Does nothing while the window is inside of a handler, which waits then. */
void
LineEditPeer::ReturnPressed(uint32 modifiers)
{
	FollowFocus();
	ClientScope scope(View()->Window());
	if (!scope.MayEnter())
		return;

	BMessage message(B_KEY_DOWN);
	message.AddInt64("when", system_time());
	message.AddInt32("modifiers", static_cast<int32>(modifiers));
	message.AddString("bytes", "\n");
	if (!LooperPrivate::PassesFilters(&message, View()))
		return;
	_InvokeIfChanged();
	fField->selectAll();
}


/*!	What stands in the field now is not invoked for again. */
void
LineEditPeer::_InvokeIfChanged()
{
	BWindow* window = View()->Window();
	if (fBytes == fStart || window == NULL || LooperPrivate::IsDying(window))
		return;
	ClientScope scope(window);
	fControl->Invoke();
	BeginAnew();
}


/*!	The line breaks of what was pasted become blanks, as on Haiku: they look like blanks in the
	field.
*/
void
LineEditPeer::_TextEdited(QString text)
{
	FollowFocus();
	if (text.contains(QLatin1Char('\n')) || text.contains(QLatin1Char('\r'))) {
		text.replace(QLatin1Char('\n'), QLatin1Char(' '))
			.replace(QLatin1Char('\r'), QLatin1Char(' '));
		const int position = fField->cursorPosition();
		fIsSetting = true;
		fField->setText(text);
		fField->setCursorPosition(position);
		fIsSetting = false;
	}
	fBytes = bytes_from_text(text);
}


int
LineEditPeer::_PositionAt(int32 offset) const
{
	return static_cast<int>(to_utf16(fBytes.constData(), static_cast<size_t>(offset)).size());
}


int32
LineEditPeer::_OffsetAt(int position) const
{
	size_t offset = 0;
	while (position > 0 && offset < static_cast<size_t>(fBytes.size())) {
		char32_t code = kReplacementCharacter;
		const size_t length = decode_utf8(fBytes.constData() + offset,
			static_cast<size_t>(fBytes.size()) - offset, &code);
		position -= length == 4 ? 2 : 1;
		offset += length == 0 ? 1 : length;
	}
	return static_cast<int32>(offset);
}
