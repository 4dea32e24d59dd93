/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_H
#define WINDOW_H


#include <Looper.h>
#include <View.h>


class BButton;
class BLayout;
class WindowPeer;
struct screen_id;


enum window_type { B_TITLED_WINDOW = 1, B_MODAL_WINDOW = 3, B_DOCUMENT_WINDOW = 11 };

enum window_look { B_TITLED_WINDOW_LOOK = 1, B_MODAL_WINDOW_LOOK = 3, B_DOCUMENT_WINDOW_LOOK = 11 };

enum window_feel { B_NORMAL_WINDOW_FEEL = 0, B_MODAL_APP_WINDOW_FEEL = 1 };

enum {
	B_NOT_RESIZABLE = 0x00000002,
	B_NOT_CLOSABLE = 0x00000020,
	B_NOT_ZOOMABLE = 0x00000040,
	B_NOT_MINIMIZABLE = 0x00004000,
	// Nothing waits for a click here in any case.
	B_ASYNCHRONOUS_CONTROLS = 0x00080000,
	B_AUTO_UPDATE_SIZE_LIMITS = 0x00400000,
	B_CLOSE_ON_ESCAPE = 0x00800000
};

#define B_CURRENT_WORKSPACE 0


/*!	A window on the screen, and the looper of its views. It starts hidden, and takes messages from
	the first Show() on.
	Differs from Haiku: all windows are served by the main thread, in turn. Create it with new: it
	deletes itself when it quits. What is asked of it shows on the screen with the next frame;
	whoever reads it sees it at once.
*/
class BWindow : public BLooper {
public:
	BWindow(BRect frame, const char* title, window_type type, uint32 flags,
		uint32 workspace = B_CURRENT_WORKSPACE);
	BWindow(BRect frame, const char* title, window_look look, window_feel feel, uint32 flags,
		uint32 workspace = B_CURRENT_WORKSPACE);
	~BWindow() override;

	void Quit() override;
	void DispatchMessage(BMessage* message, BHandler* handler) override;

	void AddChild(BView* child, BView* before = NULL);
	void AddChild(BLayoutItem* child) = delete;
	int32 CountChildren() const;
	BView* ChildAt(int32 index) const;
	BView* FindView(const char* viewName) const;
	BView* FindView(BPoint point) const = delete;
	BView* CurrentFocus() const;

	virtual void Show();
	bool IsHidden() const;
	virtual void Minimize(bool minimize);
	bool IsMinimized() const;
	void Activate(bool active = true);
	bool IsActive() const;

	const char* Title() const;
	void SetTitle(const char* title);
	window_look Look() const { return fLook; }
	window_feel Feel() const { return fFeel; }
	bool IsModal() const { return fFeel == B_MODAL_APP_WINDOW_FEEL; }
	uint32 Flags() const { return fFlags; }

	void SetDefaultButton(BButton* button);
	BButton* DefaultButton() const;

	BRect Bounds() const;
	BRect Frame() const;
	void ResizeTo(float width, float height);
	void CenterOnScreen();
	void CenterOnScreen(BRect rect) = delete;
	void CenterOnScreen(screen_id screen) = delete;
	void GetSizeLimits(float* _minWidth, float* _maxWidth, float* _minHeight, float* _maxHeight);

	virtual void SetLayout(BLayout* layout);
	void InvalidateLayout(bool descendants = false);
	void Layout(bool force);

private:
	friend class BView;
	friend class WindowPeer;

	WindowPeer* fPeer;
	window_look fLook;
	window_feel fFeel;
	uint32 fFlags;
};


#endif // WINDOW_H
