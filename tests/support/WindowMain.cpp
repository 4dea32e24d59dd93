/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The main function of suites with windows: there is an application, and the tests run on its
// thread. Windows are served while WaitFor() waits.

#include <cstdlib>

#include <gtest/gtest.h>

#include <Application.h>
#include <ApplicationPrivate.h>

#include "WaitFor.h"


static void
serve()
{
	// In microseconds. A condition may also become true by what another thread does, without an
	// event.
	ApplicationPrivate::ProcessEvents(3000);
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
