/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef WINDOW_TEST_H
#define WINDOW_TEST_H


#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "BuiltMessage.h"
#include "MessageRecorder.h"
#include "WaitFor.h"
#include "WindowProbe.h"


/*!	A case about one window at a time, which posts to a stand-in for the controller. */
class WindowTest : public testing::Test {
protected:
	WindowTest();

	// Shows a window, in place of the former one.
	void Open(BWindow* window);

	// Selects and invokes a row of a list in it.
	void InvokeRow(const char* list, int32 row);
	void CloseAndWait();
	// Closing only minimizes it.
	void ExpectMinimizedByClosing();
	// Wherever a window like it was to be, it is in the same place.
	void ExpectCenteredLike(BWindow* other);

	RecorderOwner fTarget;
	std::unique_ptr<WindowProbe> fWindow;
};


#endif // WINDOW_TEST_H
