/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Errno.h>

#include <cerrno>


status_t
status_for_errno(int code)
{
	switch (code) {
		case 0:
			return B_OK;
		case ENOMEM:
			return B_NO_MEMORY;
		case EACCES:
			return B_PERMISSION_DENIED;
		case EPERM:
			return B_NOT_ALLOWED;
		case EINVAL:
			return B_BAD_VALUE;
		case EINTR:
			return B_INTERRUPTED;
		case EAGAIN:
			return B_WOULD_BLOCK;
		case EBUSY:
			return B_BUSY;
		case EBADF:
		case EFBIG:
			return B_FILE_ERROR;
		case ENOENT:
			return B_ENTRY_NOT_FOUND;
		case EEXIST:
			return B_FILE_EXISTS;
		case ENAMETOOLONG:
			return B_NAME_TOO_LONG;
		case ENOTDIR:
			return B_NOT_A_DIRECTORY;
		case ENOTEMPTY:
			return B_DIRECTORY_NOT_EMPTY;
		case ENOSPC:
			return B_DEVICE_FULL;
		case EROFS:
			return B_READ_ONLY_DEVICE;
		case EISDIR:
			return B_IS_A_DIRECTORY;
		case EMFILE:
		case ENFILE:
			return B_NO_MORE_FDS;
		case EXDEV:
			return B_CROSS_DEVICE_LINK;
		case ELOOP:
			return B_LINK_LIMIT;
		case EPIPE:
			return B_BUSTED_PIPE;
		case EIO:
			return B_IO_ERROR;
		default:
			return B_ERROR;
	}
}
