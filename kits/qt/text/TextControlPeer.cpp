/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <TextControlPeer.h>

#include <cmath>

#include <QHBoxLayout>
#include <QLabel>

#include <Font.h>
#include <TextConversion.h>


/*!	Between a label and its field, in pixels. */
static int
label_spacing()
{
	return static_cast<int>(std::ceil(be_plain_font->Size() / 2));
}


TextControlPeer::TextControlPeer()
	: ViewPeer(new QWidget),
	  fLabel(new QLabel),
	  fField(NULL),
	  fDivider(-1)
{
	fLabel->setTextFormat(Qt::PlainText);
	QHBoxLayout* layout = new QHBoxLayout(Widget());
	layout->setContentsMargins(0, 0, 0, 0);
	layout->setSpacing(0);
	layout->addWidget(fLabel);
}


void
TextControlPeer::SetField(QWidget* field)
{
	fField = field;
	Widget()->layout()->addWidget(field);
	Widget()->setFocusProxy(field);
	fLabel->setBuddy(field);
	FlagsChanged();
}


/*!	The field has the label as its name, for those who do not see how they stand. */
void
TextControlPeer::SetLabel(const char* label)
{
	fLabel->setText(text_from_bytes(label, kMnemonicText));
	if (fField != NULL)
		fField->setAccessibleName(text_from_bytes(label));
	_PlaceLabel();
}


void
TextControlPeer::SetEnabled(bool enabled)
{
	Widget()->setEnabled(enabled);
}


void
TextControlPeer::SetDivider(float width)
{
	fDivider = std::fmax(width, 0.0f);
	_PlaceLabel();
}


float
TextControlPeer::Divider() const
{
	if (fDivider >= 0)
		return fDivider;
	if (fLabel->text().isEmpty())
		return 0;
	return static_cast<float>(fLabel->sizeHint().width() + label_spacing());
}


QWidget*
TextControlPeer::FocusWidget() const
{
	return fField != NULL ? fField : Widget();
}


QSize
TextControlPeer::MaxSize()
{
	return QSize(QWIDGETSIZE_MAX, PreferredSize().height());
}


void
TextControlPeer::FontChanged()
{
	ViewPeer::FontChanged();
	_PlaceLabel();
}


void
TextControlPeer::FlagsChanged()
{
	if (fField == NULL)
		return;
	const bool navigable = View() == NULL || (View()->Flags() & B_NAVIGABLE) != 0;
	fField->setFocusPolicy(navigable ? Qt::StrongFocus : Qt::ClickFocus);
}


void
TextControlPeer::_PlaceLabel()
{
	fLabel->setFixedWidth(static_cast<int>(std::lround(Divider())));
	fLabel->setVisible(Divider() > 0);
	InvalidateLayout();
}
