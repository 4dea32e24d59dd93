/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef FLOOR_MODEL_H
#define FLOOR_MODEL_H


#include <vector>

#include <QAbstractListModel>
#include <QString>


/*!	A file of a listing, as far as a row shows it. */
struct FloorRow {
	enum Kind : quint8 { kPlain, kFolder, kStuffIt, kImage };

	QString name;
	quint32 size;
	Kind kind;
};


/*!	The rows, told to the toolkit all at once. */
class FloorModel : public QAbstractListModel {
public:
	static std::vector<FloorRow> ReadRows(const std::vector<char>& payload);

	void SetRows(std::vector<FloorRow> rows);
	const FloorRow& RowAt(int index) const { return fRows[static_cast<size_t>(index)]; }

	int rowCount(const QModelIndex& parent = QModelIndex()) const override;
	QVariant data(const QModelIndex& index, int role) const override;

private:
	std::vector<FloorRow> fRows;
};


#endif // FLOOR_MODEL_H
