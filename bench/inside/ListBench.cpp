/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Lists of rows, with and without a screen reader.


#include <vector>

#include <benchmark/benchmark.h>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <FrameScheduler.h>
#include <LayoutBuilder.h>
#include <ListView.h>
#include <QAccessible>
#include <QWidget>
#include <ScrollView.h>
#include <ViewPeer.h>
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

	~ListWindow() override { Clear(); }

	void Clear()
	{
		const BListItem** items = fList->Items();
		const std::vector<const BListItem*> rows(items, items + fList->CountItems());
		fList->MakeEmpty();
		for (const BListItem* row : rows)
			delete row;
		ShowFrame();
	}

	void Add(int64 count)
	{
		for (int64 i = 0; i < count; i++)
			fList->AddItem(new BStringItem("Logbook of the harbor.txt"));
		ShowFrame();
	}

	void AddOne() { Add(1); }

	void RemoveFirst()
	{
		delete fList->RemoveItem(int32(0));
		ShowFrame();
	}

	void ChangeFirst()
	{
		fList->InvalidateItem(0);
		ShowFrame();
	}

	// As a screen reader does that shows them all.
	void ReadAll()
	{
		QAccessible::setActive(true);
		QAccessibleInterface* list = QAccessible::queryAccessibleInterface(
			ViewPeer::Of(fList)->Widget());
		for (int i = 0; i < list->childCount(); i++)
			benchmark::DoNotOptimize(list->child(i)->text(QAccessible::Name));
	}

	static void ShowFrame()
	{
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


/*!	All rows of that many. */
static void
List_Clear(benchmark::State& state)
{
	ListWindow* window = new ListWindow();
	window->Show();
	for (auto _ : state) {
		state.PauseTiming();
		window->Add(state.range(0));
		if (state.range(1) != 0)
			window->ReadAll();
		state.ResumeTiming();
		window->Clear();
	}
	if (window->CountRows() != 0)
		Fail("clearing");
	QAccessible::setActive(false);
	window->Quit();
}
BENCHMARK(List_Clear)
	->ArgNames({"rows", "read"})
	->Args({5000, 0})
	->Args({5000, 1})
	->Args({65535, 0})
	->Args({65535, 1})
	->Iterations(2)
	->Unit(benchmark::kMillisecond);


/*!	One row, in a list of that many that were read or were not: \a change, and a frame. */
static void
change_one(benchmark::State& state, void (ListWindow::*change)())
{
	ListWindow* window = new ListWindow();
	window->Show();
	window->Add(state.range(0));
	if (state.range(1) != 0)
		window->ReadAll();
	for (auto _ : state)
		(window->*change)();
	QAccessible::setActive(false);
	window->Quit();
}


static void
set_arguments(benchmark::internal::Benchmark* benchmark)
{
	benchmark->ArgNames({"rows", "read"});
	for (const int64 rows : {1000, 20000}) {
		benchmark->Args({rows, 0});
		benchmark->Args({rows, 1});
	}
	benchmark->Iterations(20)->Unit(benchmark::kMicrosecond);
}


static void
List_RemoveOne(benchmark::State& state)
{
	change_one(state, &ListWindow::RemoveFirst);
}
BENCHMARK(List_RemoveOne)->Apply(set_arguments);


static void
List_AppendOne(benchmark::State& state)
{
	change_one(state, &ListWindow::AddOne);
}
BENCHMARK(List_AppendOne)->Apply(set_arguments);


static void
List_ChangeOne(benchmark::State& state)
{
	change_one(state, &ListWindow::ChangeFirst);
}
BENCHMARK(List_ChangeOne)->Apply(set_arguments);
