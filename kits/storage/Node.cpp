/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Node.h>

#include <cerrno>

#include <ErrnoPrivate.h>


BNode::BNode()
	: fDescriptor(-1),
	  fStatus(B_NO_INIT)
{
}


BNode::~BNode()
{
	Unset();
}


status_t
BNode::GetStat(struct stat* _stat) const
{
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (_stat == NULL)
		return B_BAD_VALUE;
	if (fstat(fDescriptor, _stat) != 0)
		return status_for_errno(errno);

	return B_OK;
}


void
BNode::Unset()
{
	_SetError(B_NO_INIT);
}


/*!	Waits until what was written is on the disk. */
status_t
BNode::Sync()
{
	if (fStatus != B_OK)
		return B_NO_INIT;
	if (fsync(fDescriptor) != 0)
		return status_for_errno(errno);

	return B_OK;
}


/*!	\a flags are those of open(). */
status_t
BNode::_Open(const char* path, int flags)
{
	Unset();
	int descriptor = open(path, flags | O_CLOEXEC, 0666);
	if (descriptor < 0)
		return _SetError(status_for_errno(errno));

	fDescriptor = descriptor;
	fStatus = B_OK;
	return B_OK;
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
