/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_PEER_H
#define WINDOW_PEER_H


#include <QRect>

#include <FrameScheduler.h>
#include <String.h>
#include <Window.h>
#include <WindowLife.h>


class QKeyEvent;
class QWidget;


/*!	What stands for a window: the top-level QWidget, which is also its top view's, and
	what the window wants to be with the next frame. The window owns it. Main thread only.
*/
class WindowPeer : public FrameClient {
public:
	WindowPeer(BWindow* window, BRect frame);
	~WindowPeer() override;

	static WindowPeer* Of(const BWindow* window);

	BView* TopView() const { return fTopView; }
	QWidget* Widget() const { return fWidget; }
	WindowLife* Life() { return &fLife; }

	void SetTitle(const char* title);
	const char* Title() const { return fTitle.String(); }

	void Show();
	bool IsHidden() const { return !fIsShown; }
	// Takes the window off the screen at once; it does not come back.
	void Vanish();
	void Minimize(bool minimize);
	bool IsMinimized() const { return fIsMinimized; }
	void Activate(bool active);

	void ResizeTo(const QSize& size);
	void CenterOnScreen();
	// Lays the window out and gives it the size limits that follow.
	void UpdateLayout();

	void SetDefaultButton(BButton* button);
	BButton* DefaultButton() const { return fDefaultButton; }
	BView* Focus() const;
	void ViewLeaves(const BView* view);

	// What the widget reports.
	void CloseRequested();
	bool KeyPressed(const QKeyEvent& event);
	void StateChanged();

protected:
	void Flush() override;

private:
	void _ShowWidget();
	void _FollowMinimized();
	void _MoveOntoScreen();
	void _BringToFront();
	void _SetTransientParent();
	void _PlaceInCenter();
	bool _OpenFirstMenu();

	BWindow* fWindow;
	QWidget* fWidget;
	BView* fTopView;
	WindowLife fLife;

	BString fTitle;
	bool fTitleChanged;
	bool fIsShown;
	bool fIsMinimized;
	bool fMinimizedChanged;
	bool fShallActivate;
	bool fIsCentered;
	// The first time minimized: it can wait until the others are on the screen.
	bool fHasWaited;
	// On the screen, not minimized, at least once.
	bool fWasSeen;
	// The size that was asked for, within the limits of the time.
	QSize fWantedSize;
	BButton* fDefaultButton;
};


#endif // WINDOW_PEER_H
