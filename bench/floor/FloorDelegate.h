/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FLOOR_DELEGATE_H
#define FLOOR_DELEGATE_H


#include <QAbstractItemDelegate>
#include <QFont>
#include <QFontMetricsF>
#include <QPixmap>


class FloorModel;


/*!	Draws what a row of the program's list of files shows: picture, name and size. All that can be
	made beforehand is.
*/
class FloorDelegate : public QAbstractItemDelegate {
public:
	FloorDelegate(const FloorModel* model, const QString& pictures);

	void paint(QPainter* painter, const QStyleOptionViewItem& option,
		const QModelIndex& index) const override;
	QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
	const FloorModel* fModel;
	const QFont fFont;
	const QFontMetricsF fMetrics;
	// By the kind of row.
	QPixmap fPictures[4];
};


#endif // FLOOR_DELEGATE_H
