/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "App.h"


int
main()
{
	App app;
	app.Run();
	return 0;
}
