/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */

// bench_screen first-window: prints "ready", then the monotonic time at which a window was shown.
// bench_screen type WINDOW LEFT TOP WIDTH HEIGHT COUNT: prints "ready" when it knows how the entry
// in that area of the window looks; types after each line that it reads, COUNT keys, and prints the
// seconds that each took to show.
// bench_screen launch PROGRAM ARGUMENTS...: prints the monotonic time and the processor seconds
// that the process has had, and becomes the program.

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <unistd.h>

#include "Display.h"
#include "KeyEcho.h"


using bench::Area;
using bench::Display;
using bench::KeyEcho;


/*!	A hand does not keep time with the screen: between 20 and 60 ms, in no rhythm. */
static void
rest(std::minstd_rand& random)
{
	const timespec time = {0, 20000000 + static_cast<long>(random() % 40000000)};
	nanosleep(&time, NULL);
}


static int
type_keys(char** arguments)
{
	Display display;
	const Area area = {int16_t(atoi(arguments[1])), int16_t(atoi(arguments[2])),
		static_cast<uint16_t>(atoi(arguments[3])), static_cast<uint16_t>(atoi(arguments[4]))};
	KeyEcho echo(display, xcb_window_t(strtoul(arguments[0], NULL, 0)), area);
	if (!echo.Calibrate()) {
		fprintf(stderr, "bench_screen: nothing shows of what is typed\n");
		return 1;
	}
	printf("ready\n");
	fflush(stdout);
	if (getchar() == EOF)
		return 1;

	std::minstd_rand random(1);
	const int count = atoi(arguments[5]);
	for (int i = 0; i < count; i++) {
		rest(random);
		printf("%.6f\n", echo.MeasureNext());
	}
	return 0;
}


static int
launch(char** command)
{
	timespec used;
	clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
	printf("%.6f %.6f\n", bench::Now(),
		static_cast<double>(used.tv_sec) + static_cast<double>(used.tv_nsec) / 1e9);
	fflush(stdout);
	execvp(command[0], command);
	perror(command[0]);
	return 127;
}


int
main(int count, char** arguments)
{
	if (count == 2 && strcmp(arguments[1], "first-window") == 0) {
		printf("%.6f\n", Display().WaitForFirstWindow());
		return 0;
	}
	if (count == 8 && strcmp(arguments[1], "type") == 0)
		return type_keys(arguments + 2);
	if (count >= 3 && strcmp(arguments[1], "launch") == 0)
		return launch(arguments + 2);
	fprintf(stderr,
		"usage: bench_screen first-window | type WINDOW LEFT TOP WIDTH HEIGHT COUNT"
		" | launch PROGRAM...\n");
	return 2;
}
