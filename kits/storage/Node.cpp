/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Node.h>

#include <cerrno>

#include <Errno.h>


BNode::BNode()
	: fDescriptor(-1),
	  fStatus(B_NO_INIT)
{
}


BNode::~BNode()
{
	_SetError(B_NO_INIT);
}


status_t
BNode::GetStat(struct stat* _stat) const
{
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (fstat(fDescriptor, _stat) != 0)
		return status_for_errno(errno);

	return B_OK;
}


/*!	Once in the node's life. \a flags are those of open(). */
status_t
BNode::_Open(const char* path, int flags)
{
	if (path == NULL)
		return _SetError(B_BAD_VALUE);

	fDescriptor = open(path, flags | O_CLOEXEC, 0666);
	fStatus = fDescriptor >= 0 ? B_OK : status_for_errno(errno);
	return fStatus;
}


/*!	Closes the node. */
status_t
BNode::_SetError(status_t error)
{
	if (fDescriptor >= 0)
		close(fDescriptor);
	fDescriptor = -1;
	fStatus = error;
	return error;
}
