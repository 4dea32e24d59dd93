/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The protocol's bytes: taking them apart and putting them together.

#include <algorithm>
#include <cstring>
#include <vector>

#include <benchmark/benchmark.h>

#include <String.h>

#include "EntryReader.h"
#include "Fail.h"
#include "HotlineProtocol.h"
#include "ParameterWalker.h"
#include "TransactionBuilder.h"
#include "TransactionParser.h"


static const char* const kText = " Bosun:  the tide turns at half past six";


/*!	A received transaction of that many texts. */
static std::vector<uint8>
make_transaction(uint32 type, int count)
{
	const uint16 length = static_cast<uint16>(strlen(kText));
	const size_t paramSize = kParamHeaderSize + length;
	std::vector<uint8> bytes(kHeaderSize + static_cast<size_t>(count) * paramSize);
	for (int i = 0; i < count; i++) {
		uint8* param = bytes.data() + kHeaderSize + static_cast<size_t>(i) * paramSize;
		HotlineWriteUInt16(param, kFieldData);
		HotlineWriteUInt16(param + 2, length);
		std::copy(kText, kText + length, param + kParamHeaderSize);
	}

	HotlineHeader header = {};
	header.type = type;
	header.totalSize = static_cast<uint32>(sizeof(uint16) + bytes.size() - kHeaderSize);
	header.dataSize = header.totalSize;
	header.paramCount = static_cast<uint16>(count);
	HotlineWriteHeader(bytes.data(), header);
	return bytes;
}


static void
Protocol_WalkParameters(benchmark::State& state)
{
	const int count = static_cast<int>(state.range(0));
	const std::vector<uint8> bytes = make_transaction(kSrvChat, count);
	for (auto _ : state) {
		ParameterWalker walker(bytes.data() + kHeaderSize, bytes.size() - kHeaderSize);
		HotlineParam param;
		while (walker.Next(&param))
			benchmark::DoNotOptimize(param);
	}
	state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(Protocol_WalkParameters)->Arg(1)->Arg(1000);


/*!	From the first byte of a chat transaction to its parameters, in the two steps in which it is
	received.
*/
static void
Protocol_ParseTransaction(benchmark::State& state)
{
	const std::vector<uint8> bytes = make_transaction(kSrvChat, 1);
	TransactionParser parser;
	for (auto _ : state) {
		size_t position = 0;
		TransactionParser::Result result = TransactionParser::kNeedsMore;
		while (result == TransactionParser::kNeedsMore) {
			const uint32 size = parser.BytesNeeded();
			memcpy(parser.Room(), bytes.data() + position, size);
			position += size;
			result = parser.Advance(size);
		}
		ParameterWalker walker = parser.Params();
		HotlineParam param;
		BString text;
		while (walker.Next(&param))
			ReadParamText(param, &text);
		benchmark::DoNotOptimize(text.String());
		if (!parser.Reset() || result != TransactionParser::kComplete)
			Fail("parsing");
	}
}
BENCHMARK(Protocol_ParseTransaction);


static void
Protocol_BuildTransaction(benchmark::State& state)
{
	const uint16 length = static_cast<uint16>(strlen(kText));
	for (auto _ : state) {
		TransactionBuilder builder;
		builder.BuildParamInt16(kFieldSocket, 7);
		builder.BuildParam(kFieldData, kText, length);
		HotlineHeader header = {};
		header.type = kCmdSendMsg;
		header.totalSize = builder.DataLength();
		header.dataSize = builder.DataLength();
		header.paramCount = builder.CountParams();
		HotlineWriteHeader(builder.Header(), header);
		benchmark::DoNotOptimize(builder.Header());
	}
}
BENCHMARK(Protocol_BuildTransaction);


static void
Protocol_ReadUserEntry(benchmark::State& state)
{
	uint8 value[] = {0, 7, 0, 128, 0, 0, 0, 5, 'B', 'o', 's', 'u', 'n'};
	const HotlineParam param = {kFieldUserList, static_cast<uint16>(sizeof(value)), value};
	for (auto _ : state) {
		UserEntry entry;
		if (!ReadUserEntry(param, &entry))
			Fail("reading");
		benchmark::DoNotOptimize(entry.nick.String());
	}
}
BENCHMARK(Protocol_ReadUserEntry);


static void
Protocol_ReadFileEntry(benchmark::State& state)
{
	uint8 value[] = {'T', 'E', 'X', 'T', 't', 't', 'x', 't', 0, 0, 4, 0, 0, 0, 0, 0, 0, 0, 0, 7,
		'L', 'o', 'g', 'b', 'o', 'o', 'k'};
	const HotlineParam param = {kFieldFileList, static_cast<uint16>(sizeof(value)), value};
	for (auto _ : state) {
		FileEntry entry;
		if (!ReadFileEntry(param, &entry))
			Fail("reading");
		benchmark::DoNotOptimize(entry.name.String());
	}
}
BENCHMARK(Protocol_ReadFileEntry);
