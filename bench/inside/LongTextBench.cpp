/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What shows the beginning of a text that a server may send as long as it likes.

#include <string>

#include <benchmark/benchmark.h>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <FrameScheduler.h>
#include <LayoutBuilder.h>
#include <ListView.h>
#include <Message.h>
#include <StringView.h>

#include "AppMessages.h"
#include "FileItem.h"
#include "FileListWindow.h"


// As many bytes as a field of the protocol has room for.
static std::string
long_text(int64 kind)
{
	std::string text;
	while (text.size() < 65500) {
		// Khmer; or characters that no font has, in a row in which none is like the one before.
		if (kind == 0) {
			text += "\u179f\u17bc\u1798\u179f\u17d2\u179c\u17b6";
		} else {
			const size_t number = text.size() / 3 % 6000;
			text += '\xee';
			text += static_cast<char>(0x80 + number / 64 % 64);
			text += static_cast<char>(0x80 + number % 64);
		}
	}
	return text;
}


static void
show_frame()
{
	FrameScheduler::Default()->FlushAll();
	ApplicationPrivate::ProcessEvents(0);
}


/*!	A window full of such names: listed, laid out and painted. */
static void
LongText_Files(benchmark::State& state)
{
	const std::string name = long_text(state.range(0));
	BMessage listing(kMsgFileEntry);
	for (int i = 0; i < 30; i++)
		listing.AddString("name", name.c_str());
	FileListWindow* window = new FileListWindow(BRect(0, 0, 359, 349), be_app, "", NULL);
	window->Show();
	window->Lock();
	for (auto _ : state) {
		window->MessageReceived(&listing);
		show_frame();
	}
	window->Quit();
}
BENCHMARK(LongText_Files)->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);


static void
LongText_ToolTip(benchmark::State& state)
{
	const FileItem item(long_text(state.range(0)).c_str(), "TEXT", "ttxt", 10, NULL, NULL, NULL);
	for (auto _ : state)
		benchmark::DoNotOptimize(item.ToolTipText(300).Length());
}
BENCHMARK(LongText_ToolTip)->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);


/*!	With and without being cut where the window ends. */
static void
LongText_Label(benchmark::State& state)
{
	const std::string text = long_text(state.range(0));
	BWindow* window = new BWindow(BRect(0, 0, 299, 99), "Label", B_DOCUMENT_WINDOW, 0);
	BStringView* label = new BStringView("label", "");
	label->SetTruncation(state.range(1) != 0 ? B_TRUNCATE_END : B_NO_TRUNCATION);
	BLayoutBuilder::Group<>(window, B_VERTICAL, 0).Add(label);
	window->Show();
	window->Lock();
	for (auto _ : state) {
		label->SetText("");
		show_frame();
		label->SetText(text.c_str());
		show_frame();
	}
	window->Quit();
}
BENCHMARK(LongText_Label)
	->Args({0, 0})
	->Args({0, 1})
	->Args({1, 0})
	->Args({1, 1})
	->Iterations(5)
	->Unit(benchmark::kMillisecond);


static void
LongText_Title(benchmark::State& state)
{
	const std::string text = long_text(state.range(0));
	BWindow* window = new BWindow(BRect(0, 0, 299, 99), "Title", B_DOCUMENT_WINDOW, 0);
	window->Show();
	window->Lock();
	for (auto _ : state) {
		window->SetTitle("");
		window->SetTitle(text.c_str());
		show_frame();
	}
	window->Quit();
}
BENCHMARK(LongText_Title)->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);
