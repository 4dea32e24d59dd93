/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef RESERVE_H
#define RESERVE_H


#include <cstddef>


// What a stranger makes the program take is taken only while enough is left for the windows: they may
// need memory and descriptors at any time, and cannot go on without. For any thread.


bool HasSpareDescriptors(size_t besides = 0);
bool HasSpareMemory();


#endif // RESERVE_H
