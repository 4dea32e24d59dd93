/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Texts that grow: the text store, and the transcript of the chat window with all that shows it.

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
	Transcript()
		: fWindow(new ChatWindow(BRect(0, 0, 499, 399), be_app)),
		  fMessage(kMsgAppendChat),
		  fCount(0)
	{
		fMessage.AddString("text", kLine);
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
		for (int64 i = 0; i < count; i += kLinesPerFrame) {
			for (int j = 0; j < kLinesPerFrame; j++)
				fWindow->PostMessage(&fMessage);
			while (MainServer::Default()->ServeTurn())
				;
			FrameScheduler::Default()->FlushAll();
			ApplicationPrivate::ProcessEvents(0);
			fCount += kLinesPerFrame;
		}
	}

	bool IsComplete() const
	{
		const BTextView* view = dynamic_cast<BTextView*>(fWindow->FindView("chatview"));
		return view->TextLength() == static_cast<int32>(fCount * static_cast<int64>(strlen(kLine)));
	}

private:
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
