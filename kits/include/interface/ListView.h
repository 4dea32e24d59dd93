/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_VIEW_H
#define LIST_VIEW_H


#include <Invoker.h>
#include <ListItem.h>
#include <View.h>


class ListViewPeer;


enum list_view_type { B_SINGLE_SELECTION_LIST, B_MULTIPLE_SELECTION_LIST };


/*!	A list of rows that draw themselves. Belongs to the thread of its window.
	The list borrows its items: removing them, or deleting the list, deletes no item. A double click,
	Return or Space on a row sends the invocation message, a changed selection the selection
	message; both carry "index" (int32), "when" (int64, microseconds), "source" (pointer to the
	list) and "be:sender" (messenger of the list). The arrows move the selection, the page keys only
	scroll.
*/
class BListView : public BView, public BInvoker {
public:
	BListView(const char* name, list_view_type type = B_SINGLE_SELECTION_LIST,
		uint32 flags = B_WILL_DRAW | B_FRAME_EVENTS | B_NAVIGABLE);
	BListView(BRect frame, const char* name, list_view_type type = B_SINGLE_SELECTION_LIST,
		uint32 resizingMode = 0, uint32 flags = 0)
		= delete;
	BListView(list_view_type type = B_SINGLE_SELECTION_LIST) = delete;
	~BListView() override;

	virtual bool AddItem(BListItem* item);
	virtual bool AddItem(BListItem* item, int32 index) = delete;
	virtual BListItem* RemoveItem(int32 index);
	virtual bool RemoveItem(BListItem* item) = delete;

	BListItem* ItemAt(int32 index) const;
	int32 IndexOf(BListItem* item) const = delete;
	int32 IndexOf(BPoint point) const;
	int32 CountItems() const;
	virtual void MakeEmpty();
	const BListItem** Items() const;
	void SortItems(int (*compare)(const void* itemPointerA, const void* itemPointerB));

	void InvalidateItem(int32 index);
	BRect ItemFrame(int32 index);
	void ScrollToSelection();

	list_view_type ListType() const;
	void Select(int32 index, bool extend = false);
	void Select(int32 from, int32 to, bool extend = false) = delete;
	int32 CurrentSelection(int32 index = 0) const;
	void DeselectAll();

	virtual void SetSelectionMessage(BMessage* message);
	virtual void SetInvocationMessage(BMessage* message);
	status_t Invoke(BMessage* message = NULL) override;

	void AttachedToWindow() override;

private:
	friend class ListViewPeer;

	status_t _Send(const BMessage& message);
	void _SelectionChanged();

	ListViewPeer* fListPeer;
	BMessage* fSelectionMessage;
};


#endif // LIST_VIEW_H
