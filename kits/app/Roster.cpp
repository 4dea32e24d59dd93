/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Roster.h>


app_info::app_info()
	: thread(-1),
	  team(-1),
	  port(-1),
	  flags(0),
	  signature{0}
{
}


app_info::~app_info() = default;
