/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <GroupLayout.h>

#include <cmath>

#include <QBoxLayout>

#include <GeometryConversion.h>
#include <LayoutPeer.h>
#include <SpaceLayoutItem.h>
#include <View.h>
#include <ViewLayoutItem.h>


/*!	The place of nothing. It limits nothing around it, either. */
class EmptyItem : public QLayoutItem {
public:
	explicit EmptyItem(const BSpaceLayoutItem& item)
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


static QBoxLayout*
make_box(orientation orientation)
{
	return new QBoxLayout(
		orientation == B_HORIZONTAL ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}


static int
pixels_of_spacing(float spacing)
{
	return static_cast<int>(std::ceil(resolve_spacing(spacing)));
}

/*!	\param spacing Between two items, in pixels or as one of the B_USE_* constants. */
BGroupLayout::BGroupLayout(orientation orientation, float spacing)
	: BLayout(new LayoutPeer(make_box(orientation)))
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
	const BSpaceLayoutItem* space = dynamic_cast<BSpaceLayoutItem*>(item);
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
