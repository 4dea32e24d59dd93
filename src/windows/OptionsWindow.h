/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef OPTIONS_WINDOW_H
#define OPTIONS_WINDOW_H


#include <Messenger.h>
#include <Window.h>


class BListView;
class BLooper;
class BScrollView;
class BStringView;
class BTextControl;
class IconItem;


/*!	The personal settings: nick, tracker and user icon, picked from the pictures of the assets
	folder.
	Saving posts them to the controller as kMsgOptionsSave; every other way of closing changes
	nothing.
*/
class OptionsWindow : public BWindow {
public:
	OptionsWindow(BRect frame, BLooper* target, const char* nick, uint16 icon, const char* tracker,
		const char* assetsDir);
	~OptionsWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _InitFields(const char* nick, const char* tracker);
	void _InitLayout();
	void _LoadIcons(const char* dir);
	void _ScrollToSelected();
	void _UpdateIconLabel();
	void _HandleIconSelected();
	void _HandleSave();

	BTextControl* fNickField;
	BTextControl* fTrackerField;
	BListView* fIconList;
	BScrollView* fIconScroll;
	BStringView* fIconLabel;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};
	// The number that is going to be saved, whether or not there is a picture for it.
	uint16 fSelectedIcon;
};


#endif // OPTIONS_WINDOW_H
