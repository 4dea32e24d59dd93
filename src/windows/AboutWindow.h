/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ABOUT_WINDOW_H
#define ABOUT_WINDOW_H


#include <Window.h>


class AboutView;


/*!	The box that says what the program is and what it stands on. Each opening builds a new one. */
class AboutWindow : public BWindow {
public:
	explicit AboutWindow(const char* appFolder);
	~AboutWindow() override;

	void MessageReceived(BMessage* message) override;

private:
	AboutView* fView;
};


#endif // ABOUT_WINDOW_H
