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
	BList(const BList&) = delete;
	virtual ~BList();

	BList& operator=(const BList&) = delete;

	bool AddItem(void* item);
	bool AddItem(void* item, int32 index) = delete;
	bool RemoveItem(void* item);
	void* RemoveItem(int32 index);
	void MakeEmpty();

	void* ItemAt(int32 index) const;
	int32 CountItems() const { return static_cast<int32>(fItems.size()); }

private:
	std::vector<void*> fItems;
};


#endif // LIST_H
