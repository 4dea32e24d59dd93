/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Lists of rows.


#include <benchmark/benchmark.h>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <FrameScheduler.h>
#include <LayoutBuilder.h>
#include <ListView.h>
#include <ScrollView.h>
#include <Window.h>

#include "Fail.h"


// Added in one frame.
static const int kRowsPerFrame = 100;


/*!	A window with a list in it, which has its rows. */
class ListWindow : public BWindow {
public:
	ListWindow()
		: BWindow(BRect(0, 0, 299, 399), "List", B_DOCUMENT_WINDOW, B_AUTO_UPDATE_SIZE_LIMITS),
		  fList(new BListView("list"))
	{
		BLayoutBuilder::Group<>(this, B_VERTICAL, 0)
			.Add(new BScrollView("scroll", fList, 0, false, true));
	}

	~ListWindow() override
	{
		while (fList->CountItems() > 0)
			delete fList->RemoveItem(fList->CountItems() - 1);
	}

	void Add(int64 count)
	{
		for (int64 i = 0; i < count; i++)
			fList->AddItem(new BStringItem("Logbook of the harbor.txt"));
		FrameScheduler::Default()->FlushAll();
		ApplicationPrivate::ProcessEvents(0);
	}

	int32 CountRows() const { return fList->CountItems(); }

private:
	BListView* fList;
};


/*!	A row at the end of that many. */
static void
List_AddItem(benchmark::State& state)
{
	ListWindow* window = new ListWindow();
	window->Show();
	window->Add(state.range(0));
	for (auto _ : state)
		window->Add(kRowsPerFrame);
	if (window->CountRows() != state.range(0) + state.iterations() * kRowsPerFrame)
		Fail("adding");
	state.SetItemsProcessed(state.iterations() * kRowsPerFrame);
	window->Quit();
}
BENCHMARK(List_AddItem)->Arg(100)->Arg(10000)->Iterations(100)->Unit(benchmark::kMicrosecond);
