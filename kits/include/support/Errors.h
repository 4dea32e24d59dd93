/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ERRORS_H
#define ERRORS_H


#include <climits>


// All are plain integers: where a function is overloaded they choose as an int does.

// Where the codes of each kit begin.
const int B_GENERAL_ERROR_BASE = INT_MIN;
const int B_OS_ERROR_BASE = B_GENERAL_ERROR_BASE + 0x1000;
const int B_APP_ERROR_BASE = B_GENERAL_ERROR_BASE + 0x2000;
const int B_STORAGE_ERROR_BASE = B_GENERAL_ERROR_BASE + 0x6000;

const int B_OK = 0;
const int B_ERROR = -1;

const int B_NO_MEMORY = B_GENERAL_ERROR_BASE;
const int B_IO_ERROR = B_GENERAL_ERROR_BASE + 1;
const int B_PERMISSION_DENIED = B_GENERAL_ERROR_BASE + 2;
const int B_BAD_INDEX = B_GENERAL_ERROR_BASE + 3;
const int B_BAD_TYPE = B_GENERAL_ERROR_BASE + 4;
const int B_BAD_VALUE = B_GENERAL_ERROR_BASE + 5;
const int B_MISMATCHED_VALUES = B_GENERAL_ERROR_BASE + 6;
const int B_NAME_NOT_FOUND = B_GENERAL_ERROR_BASE + 7;
const int B_TIMED_OUT = B_GENERAL_ERROR_BASE + 9;
const int B_INTERRUPTED = B_GENERAL_ERROR_BASE + 10;
const int B_WOULD_BLOCK = B_GENERAL_ERROR_BASE + 11;
const int B_NO_INIT = B_GENERAL_ERROR_BASE + 13;
const int B_BUSY = B_GENERAL_ERROR_BASE + 14;
const int B_NOT_ALLOWED = B_GENERAL_ERROR_BASE + 15;
const int B_BAD_DATA = B_GENERAL_ERROR_BASE + 16;

// Kernel kit
const int B_BAD_THREAD_ID = B_OS_ERROR_BASE + 0x100;
const int B_NO_MORE_THREADS = B_OS_ERROR_BASE + 0x101;
const int B_BAD_THREAD_STATE = B_OS_ERROR_BASE + 0x102;
const int B_BAD_PORT_ID = B_OS_ERROR_BASE + 0x200;

// Application kit
const int B_BAD_HANDLER = B_APP_ERROR_BASE + 3;

// Storage kit
const int B_FILE_ERROR = B_STORAGE_ERROR_BASE;
const int B_FILE_EXISTS = B_STORAGE_ERROR_BASE + 2;
const int B_ENTRY_NOT_FOUND = B_STORAGE_ERROR_BASE + 3;
const int B_NAME_TOO_LONG = B_STORAGE_ERROR_BASE + 4;
const int B_NOT_A_DIRECTORY = B_STORAGE_ERROR_BASE + 5;
const int B_DIRECTORY_NOT_EMPTY = B_STORAGE_ERROR_BASE + 6;
const int B_DEVICE_FULL = B_STORAGE_ERROR_BASE + 7;
const int B_READ_ONLY_DEVICE = B_STORAGE_ERROR_BASE + 8;
const int B_IS_A_DIRECTORY = B_STORAGE_ERROR_BASE + 9;
const int B_NO_MORE_FDS = B_STORAGE_ERROR_BASE + 10;
const int B_CROSS_DEVICE_LINK = B_STORAGE_ERROR_BASE + 11;
const int B_LINK_LIMIT = B_STORAGE_ERROR_BASE + 12;
const int B_BUSTED_PIPE = B_STORAGE_ERROR_BASE + 13;


#endif // ERRORS_H
