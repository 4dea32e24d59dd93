/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_H
#define LIST_H


#include <vector>

#include <SupportDefs.h>


/*!	An ordered list of plain pointers. It does not own what they point to.
	A list belongs to one thread at a time. Indices outside of the list answer false or NULL.
*/
class BList {
public:
	BList(int32 count = 20);
	BList(const BList& other);
	virtual ~BList();

	BList& operator=(const BList& other);

	bool AddItem(void* item, int32 index);
	bool AddItem(void* item);
	bool AddList(const BList* newItems);
	bool RemoveItem(void* item);
	void* RemoveItem(int32 index);
	bool RemoveItems(int32 index, int32 count);
	bool ReplaceItem(int32 index, void* newItem);
	void MakeEmpty();

	void SortItems(int (*compareFunc)(const void*, const void*));
	bool SwapItems(int32 indexA, int32 indexB);

	void* ItemAt(int32 index) const;
	void* ItemAtFast(int32 index) const { return fItems[size_t(index)]; }
	void* FirstItem() const;
	void* LastItem() const;

	bool HasItem(void* item) const { return IndexOf(item) >= 0; }
	bool HasItem(const void* item) const { return IndexOf(item) >= 0; }
	int32 IndexOf(void* item) const;
	int32 IndexOf(const void* item) const;
	int32 CountItems() const { return int32(fItems.size()); }
	bool IsEmpty() const { return fItems.empty(); }

private:
	std::vector<void*> fItems;
};


#endif // LIST_H
