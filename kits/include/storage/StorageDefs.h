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
#define B_PATH_NAME_LENGTH (1024)
#define B_MIME_TYPE_LENGTH (240)

// How a file is opened.
#define B_READ_ONLY O_RDONLY
#define B_WRITE_ONLY O_WRONLY
#define B_READ_WRITE O_RDWR
#define B_FAIL_IF_EXISTS O_EXCL
#define B_CREATE_FILE O_CREAT
#define B_ERASE_FILE O_TRUNC
#define B_OPEN_AT_END O_APPEND

enum node_flavor {
	B_FILE_NODE = 0x01,
	B_SYMLINK_NODE = 0x02,
	B_DIRECTORY_NODE = 0x04,
	B_ANY_NODE = 0x07
};


#endif // STORAGE_DEFS_H
