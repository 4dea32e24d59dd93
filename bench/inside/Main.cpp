/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// What is measured inside of one process. The benchmarks run on the application's thread, with
// windows that no screen shows.

#include <cstdlib>

#include <benchmark/benchmark.h>

#include <Application.h>
#include <ApplicationPrivate.h>


int
main(int argumentCount, char** arguments)
{
	benchmark::Initialize(&argumentCount, arguments);
	if (benchmark::ReportUnrecognizedArguments(argumentCount, arguments))
		return 1;

	setenv("QT_QPA_PLATFORM", "offscreen", 0);
	BApplication application("application/x-vnd.Palimbra-bench");
	ApplicationPrivate::Start(&application);
	benchmark::RunSpecifiedBenchmarks();
	benchmark::Shutdown();
	return 0;
}
