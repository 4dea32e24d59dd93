/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <List.h>

#include <algorithm>
#include <cstdlib>


/*!	\a count is how many items are expected. */
BList::BList(int32 count)
{
	fItems.reserve(size_t(std::max<int32>(count, 0)));
}


BList::BList(const BList& other) = default;
BList::~BList() = default;
BList& BList::operator=(const BList& other) = default;


bool
BList::AddItem(void* item, int32 index)
{
	if (index < 0 || index > CountItems())
		return false;

	fItems.insert(fItems.begin() + index, item);
	return true;
}


bool
BList::AddItem(void* item)
{
	fItems.push_back(item);
	return true;
}


bool
BList::AddList(const BList* newItems)
{
	if (newItems == NULL)
		return false;

	// A copy, because it may be this list.
	std::vector<void*> items = newItems->fItems;
	fItems.insert(fItems.end(), items.begin(), items.end());
	return true;
}


/*!	Takes the first such item out. */
bool
BList::RemoveItem(void* item)
{
	int32 index = IndexOf(item);
	if (index < 0)
		return false;

	fItems.erase(fItems.begin() + index);
	return true;
}


void*
BList::RemoveItem(int32 index)
{
	if (index < 0 || index >= CountItems())
		return NULL;

	void* item = fItems[size_t(index)];
	fItems.erase(fItems.begin() + index);
	return item;
}


bool
BList::RemoveItems(int32 index, int32 count)
{
	if (index < 0 || index > CountItems() || count < 0)
		return false;

	count = std::min(count, CountItems() - index);
	fItems.erase(fItems.begin() + index, fItems.begin() + index + count);
	return true;
}


bool
BList::ReplaceItem(int32 index, void* newItem)
{
	if (index < 0 || index >= CountItems())
		return false;

	fItems[size_t(index)] = newItem;
	return true;
}


void
BList::MakeEmpty()
{
	fItems.clear();
}


/*!	\a compareFunc is given pointers to two items, which are pointers themselves. */
void
BList::SortItems(int (*compareFunc)(const void*, const void*))
{
	if (compareFunc != NULL && !fItems.empty())
		qsort(fItems.data(), fItems.size(), sizeof(void*), compareFunc);
}


bool
BList::SwapItems(int32 indexA, int32 indexB)
{
	int32 count = CountItems();
	if (indexA < 0 || indexA >= count || indexB < 0 || indexB >= count)
		return false;

	std::swap(fItems[size_t(indexA)], fItems[size_t(indexB)]);
	return true;
}


void*
BList::ItemAt(int32 index) const
{
	return index < 0 || index >= CountItems() ? NULL : fItems[size_t(index)];
}


void*
BList::FirstItem() const
{
	return fItems.empty() ? NULL : fItems.front();
}


void*
BList::LastItem() const
{
	return fItems.empty() ? NULL : fItems.back();
}


int32
BList::IndexOf(void* item) const
{
	return IndexOf(const_cast<const void*>(item));
}


int32
BList::IndexOf(const void* item) const
{
	auto found = std::find(fItems.begin(), fItems.end(), item);
	return found == fItems.end() ? -1 : int32(found - fItems.begin());
}
