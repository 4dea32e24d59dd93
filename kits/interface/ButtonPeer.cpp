/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ButtonPeer.h>

#include <algorithm>

#include <QIcon>
#include <QPixmap>
#include <QPushButton>

#include <BitmapPeer.h>
#include <Button.h>
#include <TextConversionPrivate.h>


// In logical pixels. Pictures up to the largest size are shown as they are.
static const int kSmallestIcon = 16;
static const int kLargestIcon = 24;


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
	: ViewPeer(new QPushButton),
	  fButton(static_cast<QPushButton*>(Widget()))
{
	QObject::connect(fButton, &QPushButton::clicked, [this] {
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
		pixmap.setDevicePixelRatio(qreal(image.width()) / size.width());
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
	fButton->setText(text_from_bytes(_Button()->Label(), MNEMONIC_TEXT));
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
