/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ButtonPeer.h>

#include <algorithm>

#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QStyleOptionButton>

#include <BitmapPeer.h>
#include <Button.h>
#include <ClientScope.h>
#include <TextConversion.h>


// In logical pixels. Pictures up to the largest size are shown as they are.
static const int kSmallestIcon = 16;
static const int kLargestIcon = 24;
// Of the ring that shows the focus, within the button.
static const int kRingInset = 3;
static const int kRingRadius = 2;


/*!	Shows by a ring of its own that it has the keyboard: QStyle draws the border of the default
	button in the same color, and Space presses the one, Return the other. Only for who uses the
	keyboard, as Qt does.
*/
class PushButton : public QPushButton {
protected:
	void paintEvent(QPaintEvent* event) override
	{
		QPushButton::paintEvent(event);

		QStyleOptionButton option;
		initStyleOption(&option);
		if (!option.state.testFlag(QStyle::State_HasFocus)
			|| !option.state.testFlag(QStyle::State_KeyboardFocusChange))
			return;

		// Lines run through the middle of pixels.
		const QRectF ring = QRectF(rect()).adjusted(kRingInset, kRingInset, -kRingInset,
			-kRingInset);
		QPainter painter(this);
		painter.setRenderHint(QPainter::Antialiasing);
		painter.setPen(palette().color(QPalette::Highlight));
		painter.drawRoundedRect(ring.adjusted(0.5, 0.5, -0.5, -0.5), kRingRadius, kRingRadius);
	}
};

/*!	Larger pictures are meant for screens with twice the pixels. */
static QSize
icon_size(QSize size)
{
	const int longest = std::max(size.width(), size.height());
	if (longest <= kLargestIcon)
		return size;

	const int wanted = std::clamp(longest / 2, kSmallestIcon, kLargestIcon);
	return size.scaled(wanted, wanted, Qt::KeepAspectRatio);
}


ButtonPeer::ButtonPeer()
	: ViewPeer(new PushButton),
	  fButton(static_cast<QPushButton*>(Widget()))
{
	QObject::connect(fButton, &QPushButton::clicked, [this] {
		// What is posted waits while the window is inside of a handler.
		const ClientScope scope(_Button()->Window());
		if (_Button()->IsEnabled())
			_Button()->Invoke();
	});
}


/*!	\param icon Copied; NULL for none. */
void
ButtonPeer::SetIcon(const BBitmap* icon)
{
	if (icon == NULL) {
		fButton->setIcon(QIcon());
	} else {
		const QImage& image = BitmapPeer::Of(icon)->Image();
		const QSize size = icon_size(image.size());
		QPixmap pixmap = QPixmap::fromImage(image);
		pixmap.setDevicePixelRatio(static_cast<qreal>(image.width()) / size.width());
		fButton->setIcon(QIcon(pixmap));
		fButton->setIconSize(size);
	}
	_UpdateName();
	InvalidateLayout();
}


void
ButtonPeer::SetDefault(bool isDefault)
{
	fButton->setDefault(isDefault);
	fButton->update();
}


bool
ButtonPeer::IsDefault() const
{
	return fButton->isDefault();
}


QSize
ButtonPeer::MinSize()
{
	return PreferredSize();
}


QSize
ButtonPeer::MaxSize()
{
	return PreferredSize();
}


QSize
ButtonPeer::PreferredSize()
{
	FlushNow();
	return fButton->sizeHint();
}


void
ButtonPeer::ToolTipChanged(const char* text)
{
	ViewPeer::ToolTipChanged(text);
	fToolTip = text;
	_UpdateName();
}


void
ButtonPeer::Flush()
{
	fButton->setText(text_from_bytes(_Button()->Label(), kMnemonicText));
	fButton->setEnabled(_Button()->IsEnabled());
	_UpdateName();
}


BButton*
ButtonPeer::_Button() const
{
	return static_cast<BButton*>(View());
}


/*!	For screen readers a button without a label is called by its tool tip. */
void
ButtonPeer::_UpdateName()
{
	const bool hasLabel = _Button()->Label()[0] != '\0';
	fButton->setAccessibleName(hasLabel ? QString() : text_from_bytes(fToolTip.String()));
}
