/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <View.h>

#include <algorithm>
#include <cstring>

#include <QWidget>

#include <Bitmap.h>
#include <GeometryConversion.h>
#include <Layout.h>
#include <LayoutPeer.h>
#include <StrictChecks.h>
#include <ToolTipPrivate.h>
#include <ViewPeer.h>
#include <Window.h>
#include <WindowPeer.h>


/*!	\param layout Owned by the view; NULL for none. */
BView::BView(const char* name, uint32 flags, BLayout* layout)
	: BView(new ViewPeer, name, flags)
{
	if (layout != NULL)
		SetLayout(layout);
}


/*!	\param peer Owned by the view. */
BView::BView(ViewPeer* peer, const char* name, uint32 flags)
	: BHandler(name),
	  fPeer(peer),
	  fWindow(NULL),
	  fParent(NULL),
	  fFlags(flags),
	  fLayout(NULL),
	  fToolTip(NULL)
{
	fPeer->fView = this;
	fPeer->FlagsChanged();
}


/*!	Leaves its parent. Deletes the children and the layout as well. */
BView::~BView()
{
	if (fWindow != NULL)
		_Detach();
	if (fParent != NULL) {
		std::vector<BView*>& siblings = fParent->fChildren;
		siblings.erase(std::find(siblings.begin(), siblings.end(), this));
	}
	while (!fChildren.empty())
		delete fChildren.back();
	delete fLayout;
	delete fToolTip;
	delete fPeer;
}


/*!	The view has become part of a window; its children are told after it. */
void
BView::AttachedToWindow()
{
}


void
BView::MessageReceived(BMessage* message)
{
	BHandler::MessageReceived(message);
}


// #pragma mark - Hierarchy


/*!	Takes a view over that has no parent.
	\param before The child in front of which it goes; NULL for the end.
*/
void
BView::AddChild(BView* child, BView* before)
{
	CHECK_LOCKED(Looper());
	if (child == NULL || child == this || child->fParent != NULL)
		return;

	fChildren.insert(std::find(fChildren.begin(), fChildren.end(), before), child);
	child->fParent = this;

	QWidget* container = fPeer->Widget();
	QWidget* widget = child->fPeer->Widget();
	widget->setParent(container);
	if (container->isVisible())
		widget->show();

	if (fWindow != NULL)
		child->_AttachTo(fWindow);
}


int32
BView::CountChildren() const
{
	CHECK_LOCKED(Looper());
	return static_cast<int32>(fChildren.size());
}


BView*
BView::ChildAt(int32 index) const
{
	CHECK_LOCKED(Looper());
	return index >= 0 && index < CountChildren() ? fChildren[index] : NULL;
}


/*!	The view itself, or the first view of that name below it. */
BView*
BView::FindView(const char* name) const
{
	if (name == NULL)
		return NULL;
	if (Name() != NULL && strcmp(Name(), name) == 0)
		return const_cast<BView*>(this);

	for (BView* child : fChildren) {
		BView* found = child->FindView(name);
		if (found != NULL)
			return found;
	}
	return NULL;
}


// #pragma mark - Frame and input


BRect
BView::Bounds() const
{
	CHECK_LOCKED(Looper());
	return rect_from_toolkit(fPeer->Widget()->rect());
}


/*!	Where the view stands in its parent. */
BRect
BView::Frame() const
{
	CHECK_LOCKED(Looper());
	return rect_from_toolkit(fPeer->Widget()->geometry());
}


/*!	Called for views with B_FRAME_EVENTS. */
void
BView::FrameResized(float /*newWidth*/, float /*newHeight*/)
{
}


/*!	Called in a plain view, when it has to draw itself.
	\param updateRect The part that is needed; drawing elsewhere is not seen.
*/
void
BView::Draw(BRect /*updateRect*/)
{
}


/*!	Also a view that the keyboard alone does not reach can be given the focus. */
void
BView::MakeFocus(bool focus)
{
	CHECK_LOCKED(Looper());
	if (focus)
		fPeer->FocusWidget()->setFocus(Qt::OtherFocusReason);
	else
		fPeer->FocusWidget()->clearFocus();
}


/*!	Whether the keyboard's input goes to this view, once its window is active. */
bool
BView::IsFocus() const
{
	CHECK_LOCKED(Looper());
	const QWidget* widget = fPeer->FocusWidget();
	return fWindow != NULL && widget->window()->focusWidget() == widget;
}


/*!	One that is on the screen leaves it.
	\param text What shows while the mouse rests over the view; NULL or empty for nothing.
*/
void
BView::SetToolTip(const char* text)
{
	CHECK_LOCKED(Looper());
	const bool isEmpty = text == NULL || text[0] == '\0';
	if (isEmpty && fToolTip == NULL)
		return;

	if (isEmpty) {
		delete fToolTip;
		fToolTip = NULL;
	} else if (fToolTip != NULL)
		fToolTip->SetText(text);
	else
		fToolTip = new BToolTip(text);
	fPeer->ToolTipChanged(text);
}


/*!	What is to show while the mouse rests at a point.
	Differs from Haiku: asked in lists alone. Elsewhere it is the view's own tool tip that shows.
	\param _tip Stays the view's.
	\return \c false for nothing.
*/
bool
BView::GetToolTipAt(BPoint /*point*/, BToolTip** _tip)
{
	*_tip = fToolTip;
	return fToolTip != NULL;
}


// #pragma mark - Layout


BSize
BView::MinSize()
{
	return compose_size(size_from_toolkit(fPeer->MinSize()), fExplicitMinSize);
}


BSize
BView::MaxSize()
{
	return compose_size(size_from_toolkit(fPeer->MaxSize()), fExplicitMaxSize);
}


BSize
BView::PreferredSize()
{
	return size_from_toolkit(fPeer->PreferredSize());
}


void
BView::SetExplicitMinSize(BSize size)
{
	CHECK_LOCKED(Looper());
	fExplicitMinSize = size;
	InvalidateLayout();
}


void
BView::SetExplicitMaxSize(BSize size)
{
	CHECK_LOCKED(Looper());
	fExplicitMaxSize = size;
	InvalidateLayout();
}


/*!	Owned by the view from now on; the one that it had is deleted. Its views stay children. */
void
BView::SetLayout(BLayout* layout)
{
	CHECK_LOCKED(Looper());
	if (layout == fLayout)
		return;

	delete fLayout;
	fLayout = layout;
	if (layout != NULL)
		layout->_SetOwner(this);
}


/*!	The view's sizes have changed: everything around it is laid out again with the next frame. */
void
BView::InvalidateLayout(bool descendants)
{
	CHECK_LOCKED(Looper());
	if (descendants) {
		for (BView* child : fChildren)
			child->InvalidateLayout(true);
	}
	if (fLayout != NULL)
		LayoutPeer::Of(fLayout)->Invalidate();
	fPeer->InvalidateLayout();
}


// #pragma mark - Attaching


/*!	Tells the view and those below it that they have become part of a window. */
void
BView::_AttachTo(BWindow* window)
{
	fWindow = window;
	window->AddHandler(this);
	AttachedToWindow();
	for (size_t i = 0; i < fChildren.size(); i++) {
		// One that was added in AttachedToWindow() knows already.
		if (fChildren[i]->fWindow == NULL)
			fChildren[i]->_AttachTo(window);
	}
}


void
BView::_Detach()
{
	for (BView* child : fChildren)
		child->_Detach();
	WindowPeer::Of(fWindow)->ViewLeaves(this);
	fWindow->RemoveHandler(this);
	fWindow = NULL;
}
