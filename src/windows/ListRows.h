/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_ROWS_H
#define LIST_ROWS_H


#include <typeinfo>

#include <ListView.h>


// What the windows do with the rows of their lists, which they own.


/*!	\return The row as what it is; \c NULL if it is none, or of another kind.
	Comparing exact types instead of asking for a cast keeps a walk over some thousand rows short.
*/
template<class Row>
const Row*
RowCast(const BListItem* item)
{
	const bool isRow = item != NULL && typeid(*item) == typeid(Row);
	return isRow ? static_cast<const Row*>(item) : NULL;
}


template<class Row>
const Row*
SelectedRow(const BListView* list)
{
	return RowCast<Row>(list->ItemAt(list->CurrentSelection()));
}


inline void
DeleteRows(BListView* list)
{
	for (int32 i = list->CountItems() - 1; i >= 0; i--)
		delete list->RemoveItem(i);
}


#endif // LIST_ROWS_H
