/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <GroupLayout.h>

#include <algorithm>
#include <cmath>

#include <QBoxLayout>
#include <QWidget>

#include <GeometryConversion.h>
#include <LayoutPeer.h>
#include <SpaceLayoutItem.h>
#include <View.h>
#include <ViewLayoutItem.h>


/*!	The place of nothing. It limits nothing around it, either. */
class EmptyItem : public QLayoutItem {
public:
	explicit EmptyItem(BSpaceLayoutItem& item)
		: fMinSize(size_to_toolkit(item.MinSize())),
		  fMaxSize(size_to_toolkit(item.MaxSize())),
		  fPreferredSize(size_to_toolkit(item.PreferredSize()))
	{
	}

	QSize sizeHint() const override { return fPreferredSize; }
	QSize minimumSize() const override { return fMinSize; }
	QSize maximumSize() const override { return fMaxSize; }
	Qt::Orientations expandingDirections() const override { return {}; }
	void setGeometry(const QRect& rect) override { fRect = rect; }
	QRect geometry() const override { return fRect; }
	bool isEmpty() const override { return true; }

private:
	const QSize fMinSize;
	const QSize fMaxSize;
	const QSize fPreferredSize;
	QRect fRect;
};


/*!	Across its items it grows as far as all of them do; what has to be larger than that is. */
class GroupBox : public QBoxLayout {
public:
	explicit GroupBox(orientation orientation)
		: QBoxLayout(orientation == B_HORIZONTAL ? LeftToRight : TopToBottom)
	{
	}

	// What grows is what may grow, as of a view.
	Qt::Orientations expandingDirections() const override { return {}; }

	QSize maximumSize() const override
	{
		QSize across(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
		for (int i = 0; i < count(); i++) {
			if (!itemAt(i)->isEmpty())
				across = across.boundedTo(itemAt(i)->maximumSize());
		}
		const QMargins margins = contentsMargins();
		across += QSize(margins.left() + margins.right(), margins.top() + margins.bottom());

		QSize size = QBoxLayout::maximumSize();
		if (direction() == TopToBottom)
			size.setWidth(std::min(across.width(), QWIDGETSIZE_MAX));
		else
			size.setHeight(std::min(across.height(), QWIDGETSIZE_MAX));
		return size.expandedTo(minimumSize());
	}
};


static int
pixels_of_spacing(float spacing)
{
	return static_cast<int>(std::ceil(resolve_spacing(spacing)));
}

/*!	\param spacing Between two items, in pixels or as one of the B_USE_* constants. */
BGroupLayout::BGroupLayout(orientation orientation, float spacing)
	: BLayout(new LayoutPeer(new GroupBox(orientation)))
{
	fPeer->Box()->setSpacing(pixels_of_spacing(spacing));
}


/*!	Around all items, in pixels or as one of the B_USE_* constants. */
void
BGroupLayout::SetInsets(float left, float top, float right, float bottom)
{
	fPeer->Box()->setContentsMargins(pixels_of_spacing(left), pixels_of_spacing(top),
		pixels_of_spacing(right), pixels_of_spacing(bottom));
}


void
BGroupLayout::SetInsets(float insets)
{
	SetInsets(insets, insets, insets, insets);
}


/*!	The view becomes a child of the owner, if it is not yet. The layout must have one.
	\return The view's place, which the layout owns.
*/
BLayoutItem*
BGroupLayout::AddView(BView* child, float weight)
{
	if (child == NULL || Owner() == NULL)
		return NULL;

	Owner()->AddChild(child);
	fPeer->AddItem(new ViewLayoutItem(child), weight);

	BLayoutItem* item = new BLayoutItem;
	item->fLayout = this;
	fItems.push_back(item);
	return item;
}


/*!	Takes over an empty space or another layout. */
bool
BGroupLayout::AddItem(BLayoutItem* item, float weight)
{
	if (item == NULL || item->fLayout != NULL)
		return false;

	BLayout* layout = dynamic_cast<BLayout*>(item);
	BSpaceLayoutItem* space = dynamic_cast<BSpaceLayoutItem*>(item);
	if (layout == NULL && space == NULL)
		return false;

	item->fLayout = this;
	fItems.push_back(item);
	if (layout != NULL) {
		fPeer->AddLayout(LayoutPeer::Of(layout), weight);
		layout->_SetOwner(Owner());
	} else {
		fPeer->AddItem(new EmptyItem(*space), weight);
	}
	return true;
}
