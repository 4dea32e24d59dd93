/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ListView.h>

#include <algorithm>

#include <GeometryConversion.h>
#include <ListViewPeer.h>
#include <Message.h>
#include <OS.h>
#include <StrictChecks.h>
#include <Window.h>


BListView::BListView(const char* name, list_view_type type, uint32 flags)
	: BView(new ListViewPeer(type), name, flags),
	  fListPeer(static_cast<ListViewPeer*>(ViewPeer::Of(this))),
	  fSelectionMessage(NULL)
{
}


BListView::~BListView()
{
	delete fSelectionMessage;
}


// #pragma mark - Rows


/*!	The item shows with the next frame. */
bool
BListView::AddItem(BListItem* item)
{
	CHECK_LOCKED(Looper());
	if (item == NULL)
		return false;
	fListPeer->Add(item);
	return true;
}


/*!	Deselects the row before, which is reported as any change of the selection is.
	\return The item, which is the caller's again; NULL for an index that there is not.
*/
BListItem*
BListView::RemoveItem(int32 index)
{
	CHECK_LOCKED(Looper());
	BListItem* item = ItemAt(index);
	if (item == NULL)
		return NULL;
	if (item->IsSelected() && fListPeer->Deselect(index, index))
		_SelectionChanged();
	fListPeer->Remove(index);
	return item;
}


/*!	Removes all rows, whose items are the caller's again. Deselects them before, which is not
	reported.
*/
void
BListView::MakeEmpty()
{
	CHECK_LOCKED(Looper());
	fListPeer->RemoveAll();
}


/*!	NULL for an index that there is not. */
BListItem*
BListView::ItemAt(int32 index) const
{
	CHECK_LOCKED(Looper());
	return index >= 0 && index < CountItems() ? fListPeer->Items()[index] : NULL;
}


/*!	-1 where there is no row. */
int32
BListView::IndexOf(BPoint point) const
{
	CHECK_LOCKED(Looper());
	return fListPeer->IndexAt(point_to_toolkit(point).toPoint());
}


int32
BListView::CountItems() const
{
	CHECK_LOCKED(Looper());
	return static_cast<int32>(fListPeer->Items().size());
}


/*!	The items, CountItems() of them, good until one is added or removed. */
const BListItem**
BListView::Items() const
{
	CHECK_LOCKED(Looper());
	return const_cast<const BListItem**>(fListPeer->Items().data());
}


/*!	Deselects all rows before, which is reported.
	\param compare Gets pointers to the pointers to two items; less than zero says that the first
	one stands first.
*/
void
BListView::SortItems(int (*compare)(const void* itemPointerA, const void* itemPointerB))
{
	CHECK_LOCKED(Looper());
	DeselectAll();
	fListPeer->Sort(compare);
}


/*!	The row is drawn again with the next frame. */
void
BListView::InvalidateItem(int32 index)
{
	CHECK_LOCKED(Looper());
	if (ItemAt(index) != NULL)
		fListPeer->Invalidate(index);
}


/*!	Where a row stands; this may lie outside of Bounds(). */
BRect
BListView::ItemFrame(int32 index)
{
	CHECK_LOCKED(Looper());
	return ItemAt(index) != NULL ? rect_from_toolkit(fListPeer->FrameOf(index)) : BRect();
}


void
BListView::ScrollToSelection()
{
	CHECK_LOCKED(Looper());
	const int32 index = CurrentSelection();
	if (index >= 0)
		fListPeer->ScrollTo(index);
}


// #pragma mark - Selection


list_view_type
BListView::ListType() const
{
	CHECK_LOCKED(Looper());
	return fListPeer->Type();
}


/*!	\param extend Adds to what is selected, where the list's type allows that. */
void
BListView::Select(int32 index, bool extend)
{
	CHECK_LOCKED(Looper());
	if (ItemAt(index) != NULL && fListPeer->Select(index, extend))
		_SelectionChanged();
}


/*!	\param index Which of the selected rows, counted from 0 in the order of the list.
	\return Its index in the list; -1 when there is none.
*/
int32
BListView::CurrentSelection(int32 index) const
{
	CHECK_LOCKED(Looper());
	const std::vector<int32> selection = fListPeer->Selection();
	const int32 count = static_cast<int32>(selection.size());
	return index >= 0 && index < count ? selection[index] : -1;
}


void
BListView::DeselectAll()
{
	CHECK_LOCKED(Looper());
	if (CountItems() > 0 && fListPeer->Deselect(0, CountItems() - 1))
		_SelectionChanged();
}


// #pragma mark - Messages


/*!	\param message Owned by the list; NULL for none. */
void
BListView::SetSelectionMessage(BMessage* message)
{
	CHECK_LOCKED(Looper());
	if (message == fSelectionMessage)
		return;
	delete fSelectionMessage;
	fSelectionMessage = message;
}


/*!	\param message Owned by the list; NULL for none. */
void
BListView::SetInvocationMessage(BMessage* message)
{
	CHECK_LOCKED(Looper());
	SetMessage(message);
}


/*!	Sends the given message, or the invocation message, whatever is selected. */
status_t
BListView::Invoke(BMessage* message)
{
	CHECK_LOCKED(Looper());
	if (message == NULL)
		message = Message();
	return message != NULL ? _Send(*message) : B_BAD_VALUE;
}


/*!	The messages go to the window if they have no other target. */
void
BListView::AttachedToWindow()
{
	BView::AttachedToWindow();
	if (!Messenger().IsValid())
		SetTarget(Window());
}


status_t
BListView::_Send(const BMessage& message)
{
	BMessage copy(message);
	copy.AddInt64("when", system_time());
	copy.AddPointer("source", this);
	const BMessenger sender(this);
	copy.AddData("be:sender", B_MESSENGER_TYPE, &sender, sizeof(sender));
	const std::vector<int32> selection = fListPeer->Selection();
	for (int32 index : selection)
		copy.AddInt32("index", index);
	if (selection.empty() && ListType() == B_SINGLE_SELECTION_LIST)
		copy.AddInt32("index", -1);
	return BInvoker::Invoke(&copy);
}


void
BListView::_SelectionChanged()
{
	if (fSelectionMessage != NULL)
		_Send(*fSelectionMessage);
}
