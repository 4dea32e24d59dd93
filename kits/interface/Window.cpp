/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Window.h>

#include <QWidget>

#include <Button.h>
#include <GeometryConversion.h>
#include <Layout.h>
#include <LayoutPeer.h>
#include <LooperPrivate.h>
#include <StrictChecks.h>
#include <WindowPeer.h>


static window_look
look_of_type(window_type type)
{
	switch (type) {
		case B_MODAL_WINDOW:
			return B_MODAL_WINDOW_LOOK;
		case B_DOCUMENT_WINDOW:
			return B_DOCUMENT_WINDOW_LOOK;
		default:
			return B_TITLED_WINDOW_LOOK;
	}
}


/*!	\param frame Of the inside, without what the window manager puts around it, in pixels of the
	screen.
*/
BWindow::BWindow(BRect frame, const char* title, window_type type, uint32 flags, uint32 workspace)
	: BWindow(frame, title, look_of_type(type),
		type == B_MODAL_WINDOW ? B_MODAL_APP_WINDOW_FEEL : B_NORMAL_WINDOW_FEEL, flags, workspace)
{
}


BWindow::BWindow(BRect frame, const char* title, window_look look, window_feel feel, uint32 flags,
	uint32 /*workspace*/)
	: BLooper(title),
	  fPeer(NULL),
	  fLook(look),
	  fFeel(feel),
	  fFlags(flags)
{
	CHECK_MAIN_THREAD();
	LooperPrivate::ServeByMainThread(this);
	fPeer = new WindowPeer(this, frame);
	fPeer->TopView()->_AttachTo(this);
	SetTitle(title);
}


/*!	Deletes the views. Windows are not deleted but told to Quit(). */
BWindow::~BWindow()
{
	LooperPrivate::BeginDestruction(this);
	delete fPeer;
}


/*!	Takes the window off the screen and deletes it.
	Differs from Haiku: where one of the window's handlers is running this returns, and the window
	is deleted when that handler is left; it may not use what the window no longer has.
*/
void
BWindow::Quit()
{
	CHECK_LOCKED(this);
	if (LooperPrivate::IsDying(this))
		return;
	fPeer->Vanish();
	fPeer->Life()->Quit();
}


void
BWindow::DispatchMessage(BMessage* message, BHandler* handler)
{
	WindowLife* life = fPeer->Life();
	life->EnterHandler();
	BLooper::DispatchMessage(message, handler);
	life->LeaveHandler();
}


// #pragma mark - Views


void
BWindow::AddChild(BView* child, BView* before)
{
	CHECK_MAIN_THREAD();
	fPeer->TopView()->AddChild(child, before);
}


int32
BWindow::CountChildren() const
{
	return fPeer->TopView()->CountChildren();
}


BView*
BWindow::ChildAt(int32 index) const
{
	return fPeer->TopView()->ChildAt(index);
}


/*!	The first view of that name, however deep; NULL when there is none. */
BView*
BWindow::FindView(const char* viewName) const
{
	CHECK_MAIN_THREAD();
	return fPeer->TopView()->FindView(viewName);
}


BView*
BWindow::CurrentFocus() const
{
	CHECK_MAIN_THREAD();
	return fPeer->Focus();
}


// #pragma mark - On the screen


/*!	The first time this lets the window take messages, too. */
void
BWindow::Show()
{
	CHECK_MAIN_THREAD();
	if (!LooperPrivate::IsStarted(this)) {
		CHECK_LOCKED(this);
		LooperPrivate::Start(this);
	}
	fPeer->Show();
}


bool
BWindow::IsHidden() const
{
	CHECK_MAIN_THREAD();
	return fPeer->IsHidden();
}


/*!	Does nothing while the window is hidden, and nothing to a modal one. */
void
BWindow::Minimize(bool minimize)
{
	CHECK_MAIN_THREAD();
	if (!IsModal())
		fPeer->Minimize(minimize);
}


bool
BWindow::IsMinimized() const
{
	CHECK_MAIN_THREAD();
	return fPeer->IsMinimized();
}


/*!	Brings the window to the front, also when it is minimized, and gives it the keyboard, unless a
	modal window is open; or takes the wish back.
*/
void
BWindow::Activate(bool active)
{
	CHECK_MAIN_THREAD();
	fPeer->Activate(active);
}


/*!	Whether the window has the keyboard. */
bool
BWindow::IsActive() const
{
	CHECK_MAIN_THREAD();
	return fPeer->Widget()->isActiveWindow();
}


const char*
BWindow::Title() const
{
	CHECK_MAIN_THREAD();
	return fPeer->Title();
}


/*!	\param title Bytes, shown as UTF-8. */
// Differs from Haiku: on the screen a title of more than 1,000 characters ends in an ellipsis.
void
BWindow::SetTitle(const char* title)
{
	CHECK_MAIN_THREAD();
	fPeer->SetTitle(title != NULL ? title : "");
}


/*!	\param button Pressed by Return wherever the focus is; NULL for none. */
void
BWindow::SetDefaultButton(BButton* button)
{
	CHECK_MAIN_THREAD();
	fPeer->SetDefaultButton(button);
}


BButton*
BWindow::DefaultButton() const
{
	CHECK_MAIN_THREAD();
	return fPeer->DefaultButton();
}


// #pragma mark - Size


BRect
BWindow::Bounds() const
{
	CHECK_MAIN_THREAD();
	return rect_from_toolkit(fPeer->Widget()->rect());
}


/*!	Where the inside of the window is on the screen. */
BRect
BWindow::Frame() const
{
	CHECK_MAIN_THREAD();
	return rect_from_toolkit(fPeer->Widget()->geometry());
}


/*!	The window is kept within its limits. */
void
BWindow::ResizeTo(float width, float height)
{
	CHECK_MAIN_THREAD();
	fPeer->ResizeTo(size_to_toolkit(BSize(width, height)));
}


void
BWindow::CenterOnScreen()
{
	CHECK_MAIN_THREAD();
	fPeer->CenterOnScreen();
}


void
BWindow::GetSizeLimits(float* _minWidth, float* _maxWidth, float* _minHeight, float* _maxHeight)
{
	CHECK_MAIN_THREAD();
	const BSize minSize = size_from_toolkit(fPeer->Widget()->minimumSize());
	const BSize maxSize = size_from_toolkit(fPeer->Widget()->maximumSize());
	*_minWidth = minSize.width;
	*_maxWidth = maxSize.width;
	*_minHeight = minSize.height;
	*_maxHeight = maxSize.height;
}


/*!	Owned by the window from now on. */
void
BWindow::SetLayout(BLayout* layout)
{
	CHECK_MAIN_THREAD();
	fPeer->TopView()->SetLayout(layout);
}


void
BWindow::InvalidateLayout(bool descendants)
{
	CHECK_MAIN_THREAD();
	fPeer->TopView()->InvalidateLayout(descendants);
}


/*!	Lays out at once what has become invalid. */
void
BWindow::Layout(bool force)
{
	CHECK_MAIN_THREAD();
	if (force)
		InvalidateLayout();
	fPeer->UpdateLayout();
}
