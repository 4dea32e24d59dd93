/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef VIEW_LAYOUT_ITEM_H
#define VIEW_LAYOUT_ITEM_H


#include <QWidgetItem>


class BView;


/*!	A view's place in a layout. It asks the view for its sizes, so that those that the client
	overrides count, and takes the explicit ones where they are set.
*/
class ViewLayoutItem : public QWidgetItem {
public:
	explicit ViewLayoutItem(BView* view);

	QSize sizeHint() const override;
	QSize minimumSize() const override;
	QSize maximumSize() const override;
	Qt::Orientations expandingDirections() const override;
	bool hasHeightForWidth() const override { return false; }
	void setGeometry(const QRect& rect) override;

private:
	BView* fView;
};


#endif // VIEW_LAYOUT_ITEM_H
