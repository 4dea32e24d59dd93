/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FloorDelegate.h"

#include <cmath>

#include <QApplication>
#include <QPainter>

#include "FloorModel.h"


static const int kPictureSize = 16;
static const int kCircleSize = 11;
static const int kInset = 4;
static const int kRightInset = 6;
static const int kSpacing = 8;


static QPixmap
load_picture(const QString& path)
{
	return QPixmap(path).scaled(kPictureSize, kPictureSize, Qt::IgnoreAspectRatio,
		Qt::SmoothTransformation);
}


/*!	For files of no particular kind. */
static QPixmap
make_circle()
{
	QPixmap circle(kCircleSize, kCircleSize);
	circle.fill(Qt::transparent);
	QPainter painter(&circle);
	painter.setRenderHint(QPainter::Antialiasing);
	painter.setPen(Qt::NoPen);
	painter.setBrush(QColor(120, 150, 200));
	painter.drawEllipse(QRectF(0, 0, kCircleSize, kCircleSize));
	painter.setPen(QPen(QColor(93, 116, 154), 1));
	painter.setBrush(Qt::NoBrush);
	painter.drawEllipse(QRectF(0.5, 0.5, kCircleSize - 1, kCircleSize - 1));
	return circle;
}


static QString
text_for_size(const FloorRow& row)
{
	if (row.kind == FloorRow::kFolder)
		return QStringLiteral("folder");
	if (row.size < 1024)
		return QString::asprintf("%u B", row.size);
	if (row.size < 1024 * 1024)
		return QString::asprintf("%.1f KB", row.size / 1024.0);
	return QString::asprintf("%.1f MB", row.size / 1048576.0);
}


// #pragma mark -


FloorDelegate::FloorDelegate(const FloorModel* model, const QString& pictures)
	: fModel(model),
	  fFont(QApplication::font()),
	  fMetrics(fFont)
{
	fPictures[FloorRow::kPlain] = make_circle();
	fPictures[FloorRow::kFolder] = load_picture(pictures + QStringLiteral("/401.png"));
	fPictures[FloorRow::kStuffIt] = load_picture(pictures + QStringLiteral("/403.png"));
	fPictures[FloorRow::kImage] = load_picture(pictures + QStringLiteral("/406.png"));
}


void
FloorDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
	const QModelIndex& index) const
{
	const FloorRow& row = fModel->RowAt(index.row());
	const QRect& frame = option.rect;
	if (option.state & QStyle::State_Selected)
		painter->fillRect(frame, option.palette.highlight());

	const QPixmap& picture = fPictures[row.kind];
	const int left = frame.left() + kInset;
	painter->drawPixmap(left, frame.top() + (frame.height() - picture.height()) / 2, picture);

	const qreal baseline = frame.top()
		+ (frame.height() - 1 + std::ceil(fMetrics.ascent()) - std::ceil(fMetrics.descent())) / 2;
	const int textLeft = left + (row.kind == FloorRow::kPlain ? 18 : 22);
	const QString size = text_for_size(row);
	const qreal sizeLeft = frame.right() - kRightInset - fMetrics.horizontalAdvance(size);
	const qreal room = sizeLeft - kSpacing - textLeft;
	const bool fits = fMetrics.horizontalAdvance(row.name) <= room;

	painter->setFont(fFont);
	painter->setPen(Qt::black);
	painter->drawText(QPointF(textLeft, baseline),
		fits ? row.name : fMetrics.elidedText(row.name, Qt::ElideRight, room));
	painter->setPen(QColor(168, 168, 168));
	painter->drawText(QPointF(sizeLeft, baseline), size);
}


QSize
FloorDelegate::sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const
{
	return QSize(1,
		static_cast<int>(std::ceil(fMetrics.ascent()) + std::ceil(fMetrics.descent())) + 4);
}
