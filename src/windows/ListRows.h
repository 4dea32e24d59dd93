/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_ROWS_H
#define LIST_ROWS_H


#include <typeinfo>
#include <vector>

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


/*!	All at once, and from a list that has let go of them: what is told of each row would take very
	long where there are many, and nobody is to meet one that is gone.
*/
inline void
DeleteRows(BListView* list)
{
	const BListItem** items = list->Items();
	const std::vector<const BListItem*> rows(items, items + list->CountItems());
	list->MakeEmpty();
	for (const BListItem* row : rows)
		delete row;
}


#endif // LIST_ROWS_H
