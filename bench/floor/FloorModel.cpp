/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FloorModel.h"

#include <cstring>

#include <QtEndian>


static const size_t kFieldHeaderSize = 4;
static const size_t kEntryHeaderSize = 20;


static FloorRow::Kind
kind_of(const char* type, const QString& name)
{
	static const char* const kImageEndings[] = {".jpg", ".png", ".gif", ".bmp", ".tif", ".psd",
		".pcx", ".jpeg", ".tiff"};
	if (memcmp(type, "fldr", 4) == 0)
		return FloorRow::kFolder;
	const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
	if (dot < 0)
		return FloorRow::kPlain;
	const QStringView ending = QStringView(name).mid(dot);
	for (const char* known : {".sit", ".sea", ".hqx"}) {
		if (ending.compare(QLatin1String(known), Qt::CaseInsensitive) == 0)
			return FloorRow::kStuffIt;
	}
	for (const char* known : kImageEndings) {
		if (ending.compare(QLatin1String(known), Qt::CaseInsensitive) == 0)
			return FloorRow::kImage;
	}
	return FloorRow::kPlain;
}


/*!	What a file looks like is settled here, once, rather than whenever its row is drawn. */
std::vector<FloorRow>
FloorModel::ReadRows(const std::vector<char>& payload)
{
	std::vector<FloorRow> rows;
	const char* field = payload.data();
	const char* end = field + payload.size();
	while (static_cast<size_t>(end - field) >= kFieldHeaderSize + kEntryHeaderSize) {
		const char* entry = field + kFieldHeaderSize;
		const size_t size = qFromBigEndian<quint16>(field + 2);
		const size_t nameLength = qFromBigEndian<quint32>(entry + 16);
		if (static_cast<size_t>(end - entry) < size || size < kEntryHeaderSize + nameLength)
			break;
		FloorRow row;
		row.name = QString::fromUtf8(entry + kEntryHeaderSize, qsizetype(nameLength));
		row.size = qFromBigEndian<quint32>(entry + 8);
		row.kind = kind_of(entry, row.name);
		rows.push_back(std::move(row));
		field = entry + size;
	}
	return rows;
}


void
FloorModel::SetRows(std::vector<FloorRow> rows)
{
	beginResetModel();
	fRows = std::move(rows);
	endResetModel();
}


int
FloorModel::rowCount(const QModelIndex& parent) const
{
	return parent.isValid() ? 0 : static_cast<int>(fRows.size());
}


QVariant
FloorModel::data(const QModelIndex& index, int role) const
{
	return role == Qt::DisplayRole ? RowAt(index.row()).name : QVariant();
}
