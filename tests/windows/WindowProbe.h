/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_PROBE_H
#define WINDOW_PROBE_H


#include <string>

#include <Message.h>
#include <Messenger.h>
#include <Window.h>


class BLooper;


/*!	A test's hands and eyes on one window: finds its views by name, uses its controls, looks at what
	they show.
	Owns the window, as far as it has not quit by itself.
*/
class WindowProbe {
public:
	explicit WindowProbe(BWindow* window);
	WindowProbe(const WindowProbe&) = delete;
	~WindowProbe();

	WindowProbe& operator=(const WindowProbe&) = delete;

	BWindow* Window() const { return fWindow; }
	bool IsAlive() const { return fMessenger.IsValid(); }
	void WaitForEnd() const;

	// Waits until the window, or whoever else is served by the main thread, has handled all that
	// was posted to it so far.
	void Settle();
	static void Settle(BLooper* looper);

	// Posts and waits until the window has handled it.
	void Post(BMessage* message);
	void Post(const BMessage& message);
	void Post(uint32 what);

	template<class View>
	View* Find(const char* name) const;

	void Invoke(const char* control);
	std::string Text(const char* control) const;
	void SetText(const char* control, const char* text);
	bool IsEnabled(const char* control) const;
	// What a user does with the keyboard, and with a click into a view.
	void Type(const char* control, const char* text);
	void Press(char key, uint32 modifiers = 0);
	void ClickInto(const char* view);
	bool HasFocus(const BView* view) const;
	std::string Transcript(const char* textView) const;
	std::string Label(const char* stringView) const;

	// Checks the layout at the smallest size that the window allows and at a larger one: every view
	// has its place inside of the window, at least its minimal size, and shares no pixel with
	// another, and the views fill the window.
	void ExpectTidyAtTwoSizes();
	// Checks that the user may make it as wide as a screen.
	void ExpectMayBeWide();

private:
	void _ResizeTo(float width, float height);
	std::string _Untidiness() const;

	BWindow* fWindow;
	BMessenger fMessenger;
};


template<class View>
View*
WindowProbe::Find(const char* name) const
{
	return dynamic_cast<View*>(fWindow->FindView(name));
}


#endif // WINDOW_PROBE_H
