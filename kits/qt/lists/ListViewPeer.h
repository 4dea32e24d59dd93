/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef LIST_VIEW_PEER_H
#define LIST_VIEW_PEER_H


#include <string>
#include <vector>

#include <QRect>
#include <QString>

#include <ListView.h>
#include <ViewPeer.h>


class ListModel;
class ListWidget;
class QHelpEvent;
class QPainter;


/*!	The rows of a list. What is appended or has changed is told to Qt with the next frame,
	what is removed at once: its owner deletes it next. Items are borrowed.
*/
class ListViewPeer : public ViewPeer {
public:
	explicit ListViewPeer(list_view_type type);
	~ListViewPeer() override;

	const std::vector<BListItem*>& Items() const { return fItems; }
	// How many of the rows Qt has been told of.
	int32 CountShown() const { return fShownCount; }

	void Add(BListItem* item);
	// The row is not selected any more afterwards.
	void Remove(int32 index);
	// Those that were selected know that they are not any more; the list is not told.
	void RemoveAll();
	// For rows none of which is selected.
	void Sort(int (*compare)(const void*, const void*));
	void Invalidate(int32 index);

	QRect FrameOf(int32 index);
	int32 IndexAt(const QPoint& place);
	void ScrollTo(int32 index);

	list_view_type Type() const { return fType; }
	// True when that changed something. The list is told of what the user does, not of this.
	bool Select(int32 index, bool extend);
	bool Deselect(int32 first, int32 last);
	std::vector<int32> Selection() const;

	QSize MinSize() override;
	QSize MaxSize() override;
	QSize PreferredSize() override;
	void FontChanged() override;
	void ColorsChanged() override;
	void FlagsChanged() override;
	void ToolTipChanged(const char* text) override;

	// For the widget and the model.
	void DrawRow(QPainter* painter, const QRect& frame, int32 index);
	int HeightOf(int32 index) const;
	QString NameOf(int32 index);
	QString DescriptionOf(int32 index);
	void ShowToolTip(QHelpEvent* event, const QRect& frame);
	void Scrolled() { HideToolTip(); }
	void InvokeSelection();

protected:
	void Flush() override;

private:
	BListView* _List() const { return static_cast<BListView*>(View()); }
	void _TellRows();
	void _MakeReaderForget();
	void _Update(BListItem* item, bool isFirst);
	void _SelectionChanged();
	std::vector<std::string> _StringsOf(int32 index);

	ListWidget* fRows;
	ListModel* fModel;
	list_view_type fType;
	std::vector<BListItem*> fItems;
	int32 fShownCount;
	// In pixels, of all rows as long as they are uniform.
	int fRowHeight;
	// Rows that look different now, as a range.
	int32 fFirstChanged;
	int32 fLastChanged;
	bool fIsDrawing;
	// The selection is being changed by the program, and whether that did something.
	bool fIsSelecting;
	bool fHasSelected;
	// Those that know of being selected.
	std::vector<BListItem*> fSelected;
};


#endif // LIST_VIEW_PEER_H
