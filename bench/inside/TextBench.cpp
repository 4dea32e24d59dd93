/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Texts that grow: the text store, and the transcript of the chat window with all that shows it.

#include <algorithm>
#include <cstring>
#include <string>

#include <benchmark/benchmark.h>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <FrameScheduler.h>
#include <MainServer.h>
#include <Message.h>
#include <TextStore.h>
#include <TextView.h>

#include "AppMessages.h"
#include "ChatWindow.h"
#include "Fail.h"


static const char* const kLine = " Bosun:  the tide turns at half past six, all hands\n";

// As many lines as a flood brings in a frame.
static const int kLinesPerFrame = 100;


static void
append_lines(TextStore& store, int64 count)
{
	const int32 length = static_cast<int32>(strlen(kLine));
	for (int64 i = 0; i < count; i++)
		benchmark::DoNotOptimize(store.Replace(store.CountBytes(), 0, kLine, length));
}


/*!	Behind that many lines. */
static void
TextStore_Append(benchmark::State& state)
{
	TextStore store;
	append_lines(store, state.range(0));
	for (auto _ : state)
		append_lines(store, 1);
}
// Bounded, as every line stays.
BENCHMARK(TextStore_Append)->Arg(1000)->Arg(100000)->Iterations(100000);


static void
TextStore_FindPosition(benchmark::State& state)
{
	TextStore store;
	append_lines(store, state.range(0));
	const int32 lineLength = static_cast<int32>(strlen(kLine));
	int32 offset = 0;
	for (auto _ : state) {
		benchmark::DoNotOptimize(store.PositionAt(offset));
		// Line ends far apart, which need no look at a line's text.
		offset = (offset + lineLength * 7919) % store.CountBytes();
	}
}
BENCHMARK(TextStore_FindPosition)->Arg(1000)->Arg(100000);


// #pragma mark - Transcript


/*!	The chat window, and the hands that fill it. */
class Transcript {
public:
	explicit Transcript(const std::string& line = kLine)
		: fLine(line),
		  fWindow(new ChatWindow(BRect(0, 0, 499, 399), be_app)),
		  fMessage(kMsgAppendChat),
		  fCount(0)
	{
		fMessage.AddString("text", fLine.c_str());
		fMessage.AddInt32("color", 255);
		fWindow->Show();
	}

	~Transcript()
	{
		fWindow->Lock();
		fWindow->Quit();
	}

	// Whole frames: posted, inserted, laid out, scrolled to and painted.
	void Append(int64 count)
	{
		while (count > 0) {
			const int64 lines = std::min<int64>(count, kLinesPerFrame);
			for (int64 i = 0; i < lines; i++)
				fWindow->PostMessage(&fMessage);
			while (MainServer::Default()->ServeTurn())
				;
			FrameScheduler::Default()->FlushAll();
			ApplicationPrivate::ProcessEvents(0);
			fCount += lines;
			count -= lines;
		}
	}

	bool IsComplete() const
	{
		const BTextView* view = dynamic_cast<BTextView*>(fWindow->FindView("chatview"));
		return view->TextLength() == static_cast<int32>(fCount * static_cast<int64>(fLine.size()));
	}

private:
	std::string fLine;
	ChatWindow* fWindow;
	BMessage fMessage;
	int64 fCount;
};


/*!	A line at the end of that many. */
static void
Transcript_Append(benchmark::State& state)
{
	Transcript transcript;
	transcript.Append(state.range(0));
	for (auto _ : state)
		transcript.Append(kLinesPerFrame);
	if (!transcript.IsComplete())
		Fail("appending");
	state.SetItemsProcessed(state.iterations() * kLinesPerFrame);
}
BENCHMARK(Transcript_Append)
	->Arg(1000)
	->Arg(100000)
	->Iterations(100)
	->Unit(benchmark::kMicrosecond);


/*!	As much as a server can send at once, in one line of a script that takes long to shape: laid out,
	scrolled to and painted.
*/
static void
Transcript_AppendKhmer(benchmark::State& state)
{
	std::string line;
	while (line.size() < 65000)
		line += "\u179f\u17bc\u1798\u179f\u17d2\u179c\u17b6\u1782\u1798\u1793\u17cd";
	Transcript transcript(line + "\n");
	for (auto _ : state)
		transcript.Append(1);
	if (!transcript.IsComplete())
		Fail("appending");
}
BENCHMARK(Transcript_AppendKhmer)->Iterations(20)->Unit(benchmark::kMillisecond);
