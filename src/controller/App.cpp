/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "App.h"

#include "AppMessages.h"
#include "Delivery.h"
#include "MainWindow.h"


// Given by the build, which writes it into the resources of Haiku's executable, too.
static const char* const kSignature = PALIMBRA_SIGNATURE;


App::App()
	: BApplication(kSignature),
	  fMainWindow(NULL)
{
}


void
App::ReadyToRun()
{
	fMainWindow = new MainWindow();
	fMessenger = BMessenger(fMainWindow);
	fMainWindow->Show();
}


/*!	The about window belongs to the controller, as all windows do. */
void
App::AboutRequested()
{
	BMessage request(kMsgToolAbout);
	Deliver(fMessenger, &request);
}
