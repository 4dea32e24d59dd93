/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef STORAGE_DEFS_H
#define STORAGE_DEFS_H


#include <fcntl.h>
#include <limits.h>
#include <unistd.h>

#include <SupportDefs.h>


#define B_FILE_NAME_LENGTH (256)
#define B_MIME_TYPE_LENGTH (240)

// How a file is opened.
#define B_READ_ONLY O_RDONLY
#define B_WRITE_ONLY O_WRONLY
#define B_READ_WRITE O_RDWR
#define B_CREATE_FILE O_CREAT
#define B_ERASE_FILE O_TRUNC

enum node_flavor { B_FILE_NODE = 0x01 };


#endif // STORAGE_DEFS_H
