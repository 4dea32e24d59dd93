/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListModel.h>

#include <ListViewPeer.h>


ListModel::ListModel(ListViewPeer* peer)
	: fPeer(peer)
{
}


int
ListModel::rowCount(const QModelIndex& parent) const
{
	return parent.isValid() ? 0 : fPeer->CountShown();
}


QVariant
ListModel::data(const QModelIndex& index, int role) const
{
	if (index.row() < 0 || index.row() >= fPeer->CountShown())
		return QVariant();
	switch (role) {
		case Qt::DisplayRole:
		case Qt::AccessibleTextRole:
			return fPeer->NameOf(index.row());
		case Qt::AccessibleDescriptionRole:
			return fPeer->DescriptionOf(index.row());
		default:
			return QVariant();
	}
}


void
ListModel::BeginInsert(int32 first, int32 count)
{
	beginInsertRows(QModelIndex(), first, first + count - 1);
}
