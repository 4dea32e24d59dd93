/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <List.h>

#include <algorithm>


/*!	\a count is how many items are expected. */
BList::BList(int32 count)
{
	fItems.reserve(static_cast<size_t>(std::max<int32>(count, 0)));
}


BList::~BList() = default;


bool
BList::AddItem(void* item)
{
	fItems.push_back(item);
	return true;
}


/*!	Takes the first such item out. */
bool
BList::RemoveItem(void* item)
{
	auto found = std::find(fItems.begin(), fItems.end(), item);
	if (found == fItems.end())
		return false;

	fItems.erase(found);
	return true;
}


void*
BList::RemoveItem(int32 index)
{
	void* item = ItemAt(index);
	if (index >= 0 && index < CountItems())
		fItems.erase(fItems.begin() + index);
	return item;
}


void
BList::MakeEmpty()
{
	fItems.clear();
}


void*
BList::ItemAt(int32 index) const
{
	return index < 0 || index >= CountItems() ? NULL : fItems[index];
}
