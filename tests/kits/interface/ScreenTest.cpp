/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Screen.h>

#include <gtest/gtest.h>

#include "ScriptedWindow.h"


TEST(ScreenTest, Frame_IsTheWholeScreenOfTheWindow)
{
	const OwnedWindow window;
	const BRect frame = BScreen(static_cast<BWindow*>(window)).Frame();
	EXPECT_EQ(0, frame.left);
	EXPECT_EQ(0, frame.top);
	EXPECT_GE(frame.Width(), 639);
	EXPECT_GE(frame.Height(), 479);
	EXPECT_EQ(frame, BScreen(static_cast<BWindow*>(NULL)).Frame());

	window->CenterOnScreen();
	const BRect inside = window->Frame();
	EXPECT_NEAR(frame.right, inside.left + inside.right, 2);
	EXPECT_NEAR(frame.bottom, inside.top + inside.bottom, 2);
}
