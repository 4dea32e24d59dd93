/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APP_H
#define APP_H


#include <Application.h>
#include <Messenger.h>


class MainWindow;


/*!	The application: opens the main window, which does everything else. */
class App : public BApplication {
public:
	App();

	void ReadyToRun() override;
	void AboutRequested() override;

private:
	// Borrowed: a window deletes itself when it quits.
	MainWindow* fMainWindow;
	BMessenger fMessenger;
};


#endif // APP_H
