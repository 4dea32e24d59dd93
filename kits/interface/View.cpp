/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <View.h>

#include <algorithm>
#include <cstring>

#include <QWidget>

#include <Bitmap.h>
#include <GeometryConversionPrivate.h>
#include <Layout.h>
#include <LayoutPeer.h>
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
	  fHideCount(0),
	  fLayout(NULL),
	  fToolTip(NULL)
{
	fPeer->fView = this;
	fPeer->FlagsChanged();
}


/*!	Deletes the children and the layout as well. */
BView::~BView()
{
	RemoveSelf();
	while (!fChildren.empty())
		delete fChildren.back();
	delete fLayout;
	delete fToolTip;
	delete fPeer;
}


/*!	The view has become part of a window; its children have not yet been told. */
void
BView::AttachedToWindow()
{
}


/*!	Its children have been told as well. */
void
BView::AllAttached()
{
}


/*!	The view is about to leave its window. */
void
BView::DetachedFromWindow()
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
	if (child == NULL || child == this || child->fParent != NULL)
		return;

	fChildren.insert(std::find(fChildren.begin(), fChildren.end(), before), child);
	child->fParent = this;

	QWidget* container = fPeer->Container();
	QWidget* widget = child->fPeer->Widget();
	widget->setParent(container);
	if (container->isVisible() && child->fHideCount == 0)
		widget->show();

	if (fWindow != NULL)
		child->_AttachTo(fWindow);
}


/*!	Gives a child back to the caller. */
bool
BView::RemoveChild(BView* child)
{
	const auto found = std::find(fChildren.begin(), fChildren.end(), child);
	if (child == NULL || found == fChildren.end())
		return false;

	if (fWindow != NULL)
		child->_Detach();
	fChildren.erase(std::find(fChildren.begin(), fChildren.end(), child));
	child->fParent = NULL;
	child->fPeer->Widget()->setParent(NULL);
	return true;
}


bool
BView::RemoveSelf()
{
	return fParent != NULL && fParent->RemoveChild(this);
}


BView*
BView::ChildAt(int32 index) const
{
	return index >= 0 && index < CountChildren() ? fChildren[size_t(index)] : NULL;
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


/*!	NULL for the views that stand in the window itself. */
BView*
BView::Parent() const
{
	if (fParent == NULL || WindowPeer::IsTopView(fParent))
		return NULL;
	return fParent;
}


// #pragma mark - Frame and input


BRect
BView::Bounds() const
{
	return rect_from_toolkit(fPeer->Widget()->rect());
}


/*!	Where the view stands in its parent. */
BRect
BView::Frame() const
{
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


void
BView::MouseDown(BPoint /*where*/)
{
}


void
BView::MouseUp(BPoint /*where*/)
{
}


/*!	Called while a button is down, and when the mouse comes and goes. */
void
BView::MouseMoved(BPoint /*where*/, uint32 /*code*/, const BMessage* /*dragMessage*/)
{
}


/*!	Called for the view that has the focus. A key that is left to this goes to the window. */
void
BView::KeyDown(const char* /*bytes*/, int32 /*numBytes*/)
{
	fPeer->RefuseKey();
}


/*!	Also a view that the keyboard alone does not reach can be given the focus. */
void
BView::MakeFocus(bool focus)
{
	if (focus)
		fPeer->FocusWidget()->setFocus(Qt::OtherFocusReason);
	else
		fPeer->FocusWidget()->clearFocus();
}


/*!	Whether the keyboard's input goes to this view, once its window is active. */
bool
BView::IsFocus() const
{
	const QWidget* widget = fPeer->FocusWidget();
	return fWindow != NULL && widget->window()->focusWidget() == widget;
}


void
BView::Show()
{
	fHideCount--;
	if (fHideCount == 0)
		fPeer->Widget()->setVisible(true);
}


void
BView::Hide()
{
	fHideCount++;
	if (fHideCount == 1)
		fPeer->Widget()->setVisible(false);
}


/*!	Whether the view, one around it or its window is hidden. */
bool
BView::IsHidden() const
{
	if (fHideCount > 0)
		return true;
	if (fParent != NULL)
		return fParent->IsHidden();
	return fWindow == NULL || fWindow->IsHidden();
}


void
BView::SetFlags(uint32 flags)
{
	fFlags = flags;
	fPeer->FlagsChanged();
}


/*!	One that is on the screen leaves it.
	\param text What shows while the mouse rests over the view; NULL or empty for nothing.
*/
void
BView::SetToolTip(const char* text)
{
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
	return compose_size(size_from_toolkit(fPeer->PreferredSize()), fExplicitPreferredSize);
}


BAlignment
BView::LayoutAlignment()
{
	BAlignment result(B_ALIGN_HORIZONTAL_CENTER, B_ALIGN_VERTICAL_CENTER);
	if (fExplicitAlignment.horizontal != B_ALIGN_HORIZONTAL_UNSET)
		result.horizontal = fExplicitAlignment.horizontal;
	if (fExplicitAlignment.vertical != B_ALIGN_VERTICAL_UNSET)
		result.vertical = fExplicitAlignment.vertical;
	return result;
}


void
BView::SetExplicitMinSize(BSize size)
{
	fExplicitMinSize = size;
	InvalidateLayout();
}


void
BView::SetExplicitMaxSize(BSize size)
{
	fExplicitMaxSize = size;
	InvalidateLayout();
}


void
BView::SetExplicitPreferredSize(BSize size)
{
	fExplicitPreferredSize = size;
	InvalidateLayout();
}


/*!	The view has this size, neither more nor less. */
void
BView::SetExplicitSize(BSize size)
{
	fExplicitMinSize = size;
	fExplicitMaxSize = size;
	fExplicitPreferredSize = size;
	InvalidateLayout();
}


void
BView::SetExplicitAlignment(BAlignment alignment)
{
	fExplicitAlignment = alignment;
	InvalidateLayout();
}


/*!	Owned by the view from now on; the one that it had is deleted. Its views stay children. */
void
BView::SetLayout(BLayout* layout)
{
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
	AllAttached();
}


void
BView::_Detach()
{
	DetachedFromWindow();
	for (size_t i = 0; i < fChildren.size(); i++)
		fChildren[i]->_Detach();
	WindowPeer::Of(fWindow)->ViewLeaves(this);
	fWindow->RemoveHandler(this);
	fWindow = NULL;
}
