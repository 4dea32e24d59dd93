/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The main function of suites with windows: there is an application, and the tests run on its
// thread. Windows are served while WaitFor() waits.

#include "WindowMain.h"

#include <cstdlib>
#include <vector>

#include <gtest/gtest.h>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <Messenger.h>
#include <Window.h>

#include "WaitFor.h"


// Those that the test has locked.
static std::vector<BMessenger> sHeld;


static void
let_windows_go()
{
	for (const BMessenger& window : sHeld) {
		BLooper* looper = NULL;
		window.Target(&looper);
		if (looper != NULL)
			looper->Unlock();
	}
	sHeld.clear();
}


static void
serve()
{
	const FreeWindows served;
	// In microseconds. A condition may also become true by what another thread does, without an
	// event.
	ApplicationPrivate::ProcessEvents(3000);
}


void
HoldWindows()
{
	let_windows_go();
	for (int32 i = 0; i < be_app->CountWindows(); i++) {
		BWindow* window = be_app->WindowAt(i);
		if (window->Lock())
			sHeld.emplace_back(window);
	}
}


FreeWindows::FreeWindows()
{
	let_windows_go();
}


FreeWindows::~FreeWindows()
{
	HoldWindows();
}


int
main(int argumentCount, char** arguments)
{
	testing::InitGoogleTest(&argumentCount, arguments);
	if (testing::GTEST_FLAG(list_tests))
		return RUN_ALL_TESTS();

	setenv("QT_QPA_PLATFORM", "offscreen", 0);
	BApplication application("application/x-vnd.Palimbra-tests");
	ApplicationPrivate::Start(&application);
	PassTimeWith(serve);
	return RUN_ALL_TESTS();
}
