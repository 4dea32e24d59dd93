/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <WindowPeer.h>

#include <algorithm>

#include <QApplication>
#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QWindow>

#include <Application.h>
#include <Button.h>
#include <ClientScope.h>
#include <GeometryConversion.h>
#include <LooperPrivate.h>
#include <MainServer.h>
#include <TextConversion.h>
#include <TopLevelWidget.h>
#include <ViewPeer.h>


// Windows have no larger sides, and of all that is in them the pixels are kept, four bytes each,
// seen or not.
static const int kMaxSide = 32767;
static const int kMaxPixels = 24 * 1024 * 1024;


/*!	Cuts the longer side where a window would have too many pixels. */
static QSize
bearable_size(QSize size)
{
	size = size.boundedTo(QSize(kMaxSide, kMaxSide));
	if (size.width() >= size.height())
		size.setWidth(std::min(size.width(), kMaxPixels / std::max(size.height(), 1)));
	else
		size.setHeight(std::min(size.height(), kMaxPixels / std::max(size.width(), 1)));
	return size;
}


static Qt::WindowFlags
flags_of_window(const BWindow* window)
{
	Qt::WindowFlags flags = Qt::CustomizeWindowHint | Qt::WindowTitleHint
		| Qt::WindowSystemMenuHint;
	flags |= window->IsModal() ? Qt::Dialog : Qt::Window;
	if ((window->Flags() & B_NOT_CLOSABLE) == 0)
		flags |= Qt::WindowCloseButtonHint;
	if ((window->Flags() & B_NOT_MINIMIZABLE) == 0 && !window->IsModal())
		flags |= Qt::WindowMinimizeButtonHint;
	if ((window->Flags() & (B_NOT_ZOOMABLE | B_NOT_RESIZABLE)) == 0)
		flags |= Qt::WindowMaximizeButtonHint;
	return flags;
}


/*!	The platform without a screen has none, and complains when it is asked to change it. */
static bool
windows_have_an_order()
{
	return QGuiApplication::platformName() != QLatin1String("offscreen");
}


WindowPeer::WindowPeer(BWindow* window, BRect frame)
	: fWindow(window),
	  fWidget(new TopLevelWidget(this, flags_of_window(window))),
	  fTopView(NULL),
	  fLife(window),
	  fTitleChanged(false),
	  fIsShown(false),
	  fIsMinimized(false),
	  fMinimizedChanged(false),
	  fShallActivate(false),
	  fIsCentered(false),
	  fHasWaited(false),
	  fWasSeen(false),
	  fWantedSize(rect_to_toolkit(frame).size()),
	  fDefaultButton(NULL)
{
	fWidget->setGeometry(rect_to_toolkit(frame));
	if (window->IsModal())
		fWidget->setWindowModality(Qt::ApplicationModal);

	// The view owns the widget from here on.
	class TopView : public BView {
	public:
		explicit TopView(QWidget* widget)
			: BView(new ViewPeer(widget), NULL, B_WILL_DRAW)
		{
		}
	};
	fTopView = new TopView(fWidget);
}


WindowPeer::~WindowPeer()
{
	delete fTopView;
}


WindowPeer*
WindowPeer::Of(const BWindow* window)
{
	return window->fPeer;
}


void
WindowPeer::SetTitle(const char* title)
{
	if (fTitle == title)
		return;
	fTitle = title;
	fTitleChanged = true;
	ScheduleFlush();
}


// #pragma mark - On the screen


void
WindowPeer::Show()
{
	fIsShown = true;
	ScheduleFlush();
}


void
WindowPeer::Vanish()
{
	fIsShown = false;
	fWidget->hide();
}


void
WindowPeer::Minimize(bool minimize)
{
	if (IsHidden() || fIsMinimized == minimize)
		return;
	fIsMinimized = minimize;
	fMinimizedChanged = true;
	ScheduleFlush();
}


void
WindowPeer::Activate(bool active)
{
	if (IsHidden())
		return;
	if (active)
		Minimize(false);
	fShallActivate = active;
	ScheduleFlush();
}


void
WindowPeer::ResizeTo(const QSize& size)
{
	fWantedSize = size;
	if ((fWindow->Flags() & B_NOT_RESIZABLE) != 0)
		UpdateLayout();
	else
		fWidget->resize(size);
}


/*!	Until the window is on the screen it stays in the center when its size changes. */
void
WindowPeer::CenterOnScreen()
{
	fIsCentered = !fWidget->isVisible();
	UpdateLayout();
	_PlaceInCenter();
}


/*!	A window whose limits do not follow its layout, or that has none, keeps those that it has.
	Differs from Haiku: no layout makes a window larger than what may be kept of it. One that has
	become too large by what it showed before gives that up.
*/
void
WindowPeer::UpdateLayout()
{
	QLayout* layout = fWidget->layout();
	if (layout == NULL || LooperPrivate::IsDying(fWindow))
		return;

	layout->activate();
	if ((fWindow->Flags() & B_AUTO_UPDATE_SIZE_LIMITS) == 0)
		return;

	QSize minSize = bearable_size(layout->totalMinimumSize());
	QSize maxSize = layout->totalMaximumSize().expandedTo(minSize);
	if ((fWindow->Flags() & B_NOT_RESIZABLE) != 0) {
		minSize = fWantedSize.expandedTo(minSize).boundedTo(maxSize);
		maxSize = minSize;
	}
	const QSize before = fWidget->size();
	const QSize after = before.expandedTo(minSize).boundedTo(maxSize);
	if (after != bearable_size(after)) {
		fWidget->setMinimumSize(0, 0);
		fWidget->setMaximumSize(minSize);
	}
	fWidget->setMinimumSize(minSize);
	fWidget->setMaximumSize(maxSize);
	if (fIsCentered && fWidget->size() != before)
		_PlaceInCenter();
}


void
WindowPeer::_PlaceInCenter()
{
	const QRect screen = fWidget->screen()->availableGeometry();
	QRect rect = fWidget->geometry();
	rect.moveCenter(screen.center());
	rect.moveTopLeft(
		QPoint(std::max(rect.left(), screen.left()), std::max(rect.top(), screen.top())));
	fWidget->setGeometry(rect);
}


// #pragma mark - Views


/*!	\param button NULL for none. */
void
WindowPeer::SetDefaultButton(BButton* button)
{
	if (fDefaultButton == button)
		return;

	BButton* previous = fDefaultButton;
	fDefaultButton = button;
	if (previous != NULL)
		previous->MakeDefault(false);
	if (button != NULL)
		button->MakeDefault(true);
}


/*!	The view that the keyboard's input goes to, or would go to if the window were active. */
BView*
WindowPeer::Focus() const
{
	std::vector<BView*> views = {fTopView};
	while (!views.empty()) {
		BView* view = views.back();
		views.pop_back();
		if (view->IsFocus() && view != fTopView)
			return view;
		for (int32 i = 0; i < view->CountChildren(); i++)
			views.push_back(view->ChildAt(i));
	}
	return NULL;
}


void
WindowPeer::ViewLeaves(const BView* view)
{
	if (view == fDefaultButton)
		fDefaultButton = NULL;
}


// #pragma mark - What the widget reports


void
WindowPeer::CloseRequested()
{
	fWindow->PostMessage(B_QUIT_REQUESTED);
}


/*!	A key that no view wanted.
	\return Whether the window did.
*/
bool
WindowPeer::KeyPressed(const QKeyEvent& event)
{
	const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
	const bool isPlain = modifiers == Qt::NoModifier;
	const bool isClosable = (fWindow->Flags() & B_NOT_CLOSABLE) == 0;
	switch (event.key()) {
		case Qt::Key_Return:
		case Qt::Key_Enter:
			if (!isPlain || fDefaultButton == NULL)
				return false;
			// Who keeps the key down means one press.
			if (!event.isAutoRepeat() && fDefaultButton->IsEnabled()) {
				const ClientScope scope(fWindow);
				fDefaultButton->Invoke();
			}
			return true;

		case Qt::Key_Escape:
			if (!isPlain || (fWindow->Flags() & B_CLOSE_ON_ESCAPE) == 0)
				return false;
			CloseRequested();
			return true;

		case Qt::Key_W:
			if (modifiers != Qt::ControlModifier || !isClosable)
				return false;
			CloseRequested();
			return true;

		case Qt::Key_Q:
			if (modifiers != Qt::ControlModifier)
				return false;
			be_app->PostMessage(B_QUIT_REQUESTED);
			return true;

		case Qt::Key_F10:
			return isPlain && _OpenFirstMenu();

		default:
			return false;
	}
}


/*!	The labels have no letters to be opened by, so one key opens the bar and the arrows do the rest.
	\return \c false when no menu bar is to be seen.
*/
bool
WindowPeer::_OpenFirstMenu()
{
	QMenuBar* bar = fWidget->findChild<QMenuBar*>();
	if (bar == NULL || !bar->isVisible() || bar->actions().isEmpty())
		return false;

	QAction* entrance = bar->actions().constFirst();
	bar->setActiveAction(entrance);
	QMenu* menu = entrance->menu();
	if (menu == NULL)
		return true;
	for (QAction* item : menu->actions()) {
		if (!item->isSeparator()) {
			menu->setActiveAction(item);
			break;
		}
	}
	return true;
}


/*!	The window manager has minimized or restored the window, or has done what it was told. */
void
WindowPeer::StateChanged()
{
	if (fWidget->isVisible() && !fMinimizedChanged)
		fIsMinimized = fWidget->isMinimized();
}


// #pragma mark - Flushing


void
WindowPeer::Flush()
{
	if (LooperPrivate::IsDying(fWindow))
		return;

	if (fTitleChanged) {
		fTitleChanged = false;
		fWidget->setWindowTitle(text_from_bytes(fTitle.String(), kTitleText));
		// Minimized windows would have no name for a screen reader, and others one without "[*]".
		fWidget->setAccessibleName(text_from_bytes(fTitle.String()));
	}

	if (fIsShown && !fWidget->isVisible())
		_ShowWidget();
	else if (fMinimizedChanged)
		_FollowMinimized();

	if (fShallActivate && fWidget->isVisible() && !fIsMinimized) {
		fShallActivate = false;
		_BringToFront();
	}
}


void
WindowPeer::_ShowWidget()
{
	if (fIsMinimized && !fHasWaited) {
		fHasWaited = true;
		ScheduleFlush();
		return;
	}

	UpdateLayout();
	if (fWindow->IsModal())
		_SetTransientParent();
	if (fIsMinimized)
		fWidget->showMinimized();
	else {
		_MoveOntoScreen();
		fWidget->show();
		// Otherwise it would end up behind windows that were activated just before.
		fShallActivate = true;
	}
	fMinimizedChanged = false;
	fIsCentered = false;
}


void
WindowPeer::_FollowMinimized()
{
	fMinimizedChanged = false;
	if (!fIsMinimized)
		_MoveOntoScreen();
	Qt::WindowStates states = fWidget->windowState();
	states.setFlag(Qt::WindowMinimized, fIsMinimized);
	fWidget->setWindowState(states);
}


// Differs from Haiku: a window that would come up beyond an edge of the screen is moved to it,
// once. Screens are small where pixels are large, and what is typed into a chat is typed at the
// window's bottom.
void
WindowPeer::_MoveOntoScreen()
{
	if (fWasSeen)
		return;
	fWasSeen = true;

	QRect rect = fWidget->geometry();
	const QScreen* screen = QGuiApplication::screenAt(rect.topLeft());
	if (screen == NULL)
		screen = fWidget->screen();
	const QRect limits = screen->availableGeometry();
	// The left and the top come last: they are seen also of what is too large.
	rect.moveBottomRight(
		QPoint(std::min(rect.right(), limits.right()), std::min(rect.bottom(), limits.bottom())));
	rect.moveTopLeft(
		QPoint(std::max(rect.left(), limits.left()), std::max(rect.top(), limits.top())));
	if (rect != fWidget->geometry())
		fWidget->setGeometry(rect);
}


/*!	A modal window stays on top of those that it blocks. */
void
WindowPeer::_BringToFront()
{
	QWidget* front = QApplication::activeModalWidget();
	if (front == NULL)
		front = fWidget;
	if (windows_have_an_order()) {
		fWidget->raise();
		front->raise();
	}
	front->activateWindow();
}


/*!	Window managers keep a modal window above the one that it belongs to: the first one of the
	program.
*/
void
WindowPeer::_SetTransientParent()
{
	std::vector<BLooper*> loopers;
	MainServer::Default()->GetWindows(loopers);
	for (BLooper* looper : loopers) {
		const BWindow* window = static_cast<BWindow*>(looper);
		if (LooperPrivate::IsDying(looper) || window->IsModal() || window->IsHidden())
			continue;

		fWidget->winId();
		fWidget->windowHandle()->setTransientParent(Of(window)->Widget()->windowHandle());
		return;
	}
}
