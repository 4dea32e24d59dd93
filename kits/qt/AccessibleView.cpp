/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <AccessibleView.h>

#include <string>

#include <TextConversion.h>
#include <ViewPeer.h>
#include <ViewWidget.h>


static QAccessibleInterface*
new_accessible_view(const QString&, QObject* object)
{
	ViewWidget* widget = dynamic_cast<ViewWidget*>(object);
	return widget != NULL ? new AccessibleView(widget) : NULL;
}


void
AccessibleView::Install()
{
	QAccessible::installFactory(new_accessible_view);
}


AccessibleView::AccessibleView(ViewWidget* widget)
	: QAccessibleWidget(widget)
{
}


QAccessible::Role
AccessibleView::role() const
{
	return _DrawnText().isEmpty() ? QAccessibleWidget::role() : QAccessible::StaticText;
}


QString
AccessibleView::text(QAccessible::Text kind) const
{
	const QString text = QAccessibleWidget::text(kind);
	return kind == QAccessible::Name && text.isEmpty() ? _DrawnText() : text;
}


/*!	\return A line for each string that is drawn. */
QString
AccessibleView::_DrawnText() const
{
	QString text;
	for (const std::string& string : static_cast<ViewWidget*>(widget())->Peer()->DrawnStrings()) {
		if (string.empty())
			continue;
		if (!text.isEmpty())
			text += QLatin1Char('\n');
		text += text_from_bytes(string.c_str());
	}
	return text;
}
