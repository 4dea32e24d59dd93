/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_MODEL_H
#define LIST_MODEL_H


#include <QAbstractListModel>

#include <SupportDefs.h>


class ListViewPeer;


/*!	What Qt knows of the rows. Texts are only for screen readers and for finding a row by
	typing.
*/
class ListModel : public QAbstractListModel {
public:
	explicit ListModel(ListViewPeer* peer);

	int rowCount(const QModelIndex& parent = QModelIndex()) const override;
	QVariant data(const QModelIndex& index, int role) const override;

	// Around a change of the peer's rows.
	void BeginInsert(int32 first, int32 count);
	void EndInsert() { endInsertRows(); }
	void BeginRemove(int32 index) { beginRemoveRows(QModelIndex(), index, index); }
	void EndRemove() { endRemoveRows(); }
	void BeginReset() { beginResetModel(); }
	void EndReset() { endResetModel(); }

private:
	ListViewPeer* fPeer;
};


#endif // LIST_MODEL_H
