/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Messages: what every event of the connection and every action of the user costs before anybody
// acts on it.

#include <benchmark/benchmark.h>

#include <Looper.h>
#include <LooperPrivate.h>
#include <MainServer.h>
#include <Message.h>

#include "Fail.h"


static const uint32 kMsgSample = 'smpl';

// A chat line of a usual length.
static const char* const kText = " Bosun:  the tide turns at half past six, all hands\n";


/*!	Takes messages and reads nothing of them. */
class Sink : public BLooper {
public:
	Sink()
		: BLooper("sink"),
		  fCount(0)
	{
	}

	void MessageReceived(BMessage* /*message*/) override { fCount++; }

	int64 Count() const { return fCount; }

private:
	int64 fCount;
};


static void
fill(BMessage& message)
{
	message.AddString("text", kText);
	message.AddUInt32("chatRef", 0);
}


static void
Message_Build(benchmark::State& state)
{
	for (auto _ : state) {
		BMessage message(kMsgSample);
		fill(message);
		benchmark::DoNotOptimize(message);
	}
}
BENCHMARK(Message_Build);


static void
Message_Copy(benchmark::State& state)
{
	BMessage message(kMsgSample);
	fill(message);
	for (auto _ : state) {
		BMessage copy(message);
		benchmark::DoNotOptimize(copy);
	}
}
BENCHMARK(Message_Copy);


static void
Message_Read(benchmark::State& state)
{
	BMessage message(kMsgSample);
	fill(message);
	for (auto _ : state) {
		benchmark::DoNotOptimize(message.GetString("text", ""));
		benchmark::DoNotOptimize(message.GetUInt32("chatRef", 1));
	}
}
BENCHMARK(Message_Read);


/*!	All values of a field, as a listing has one for every file. */
static void
Message_ReadArray(benchmark::State& state)
{
	BMessage message(kMsgSample);
	for (int64 i = 0; i < state.range(0); i++)
		message.AddString("name", kText);
	for (auto _ : state) {
		const char* name;
		for (int32 i = 0; message.FindString("name", i, &name) == B_OK; i++)
			benchmark::DoNotOptimize(name);
	}
	state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(Message_ReadArray)->Arg(100)->Arg(10000);


/*!	To a looper of the main thread, as windows are, in bursts. */
static void
Message_PostAndDeliver(benchmark::State& state)
{
	static const int kBurst = 100;
	Sink* sink = new Sink();
	LooperPrivate::ServeByMainThread(sink);
	LooperPrivate::Start(sink);
	BMessage message(kMsgSample);
	fill(message);

	for (auto _ : state) {
		for (int i = 0; i < kBurst; i++)
			sink->PostMessage(&message);
		while (MainServer::Default()->ServeTurn())
			;
	}
	if (sink->Count() != state.iterations() * kBurst)
		Fail("delivery");
	state.SetItemsProcessed(state.iterations() * kBurst);
	sink->Lock();
	sink->Quit();
}
BENCHMARK(Message_PostAndDeliver);
