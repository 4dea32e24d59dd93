/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_WITH_VIEW_H
#define WINDOW_WITH_VIEW_H


#include <vector>

#include <gtest/gtest.h>

#include <Message.h>
#include <Window.h>


class BGroupLayout;


/*!	A window on the screen with views below one another, which keeps the messages that it gets.
	Quit() it in the end.
*/
class WindowWithView : public BWindow {
public:
	WindowWithView(float width, float height);

	// Before Show().
	void Add(BView* view);
	void ShowIt();

	void MessageReceived(BMessage* message) override;
	int32 Count(uint32 what) const;
	const BMessage& Last() const { return fMessages.back(); }

private:
	BGroupLayout* fLayout;
	std::vector<BMessage> fMessages;
};


/*!	Has a window locked for as long as it lives, which may be shown. */
class LockedWindow {
public:
	explicit LockedWindow(BWindow* window);
	LockedWindow(const LockedWindow&) = delete;
	~LockedWindow();

	LockedWindow& operator=(const LockedWindow&) = delete;

private:
	BWindow* fWindow;
};


/*!	For tests of a view in a window, which is closed in the end. */
class ViewInAWindow : public testing::Test {
protected:
	void TearDown() override;

	WindowWithView* fWindow;
};


/*!	The border of the view tells whether it has the keyboard. */
void ExpectFocusByBorder(WindowWithView* window, BView* view);


#endif // WINDOW_WITH_VIEW_H
