/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "WindowTest.h"

#include <ListView.h>

#include "WindowMain.h"


WindowTest::WindowTest()
	: fTarget(new MessageRecorder)
{
}


void
WindowTest::Open(BWindow* window)
{
	fWindow.reset(new WindowProbe(window));
	window->Show();
	HoldWindows();
}


void
WindowTest::InvokeRow(const char* list, int32 row)
{
	BListView* view = fWindow->Find<BListView>(list);
	view->Select(row);
	view->Invoke();
	fWindow->Settle();
}


void
WindowTest::CloseAndWait()
{
	fWindow->Window()->PostMessage(B_QUIT_REQUESTED);
	fWindow->WaitForEnd();
}


void
WindowTest::ExpectMinimizedByClosing()
{
	fWindow->Post(B_QUIT_REQUESTED);
	EXPECT_TRUE(fWindow->IsAlive());
	EXPECT_SOON(fWindow->Window()->IsMinimized());
}


void
WindowTest::ExpectCenteredLike(BWindow* other)
{
	const WindowProbe probe(other);
	EXPECT_EQ(other->Frame(), fWindow->Window()->Frame());
}
