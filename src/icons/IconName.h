/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ICON_NAME_H
#define ICON_NAME_H


#include <SupportDefs.h>


/*!	\return The number of the icon in a file of that name; 0 if it is none. Any thread. */
uint16 IconNumber(const char* fileName);


#endif // ICON_NAME_H
