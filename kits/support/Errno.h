/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ERRNO_H
#define ERRNO_H


#include <SupportDefs.h>


/*!	The kit's code for a value of \c errno, which on Haiku are the same numbers. */
status_t status_for_errno(int code);


#endif // ERRNO_H
