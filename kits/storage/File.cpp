/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <File.h>

#include <cerrno>

#include <Directory.h>
#include <Entry.h>
#include <ErrnoPrivate.h>
#include <Path.h>


namespace {


ssize_t
count_or_error(ssize_t count)
{
	return count >= 0 ? count : status_for_errno(errno);
}


} // namespace


BFile::BFile()
	: fMode(0)
{
}


BFile::BFile(const entry_ref* ref, uint32 openMode)
	: BFile()
{
	SetTo(ref, openMode);
}


BFile::BFile(const BEntry* entry, uint32 openMode)
	: BFile()
{
	SetTo(entry, openMode);
}


BFile::BFile(const char* path, uint32 openMode)
	: BFile()
{
	SetTo(path, openMode);
}


BFile::BFile(const BDirectory* directory, const char* path, uint32 openMode)
	: BFile()
{
	SetTo(directory, path, openMode);
}


BFile::~BFile() = default;


status_t
BFile::SetTo(const entry_ref* ref, uint32 openMode)
{
	if (ref == NULL)
		return _SetError(B_BAD_VALUE);

	BEntry entry(ref);
	return SetTo(&entry, openMode);
}


status_t
BFile::SetTo(const BEntry* entry, uint32 openMode)
{
	if (entry == NULL)
		return _SetError(B_BAD_VALUE);

	BPath path(entry);
	return path.InitCheck() == B_OK ? SetTo(path.Path(), openMode) : _SetError(path.InitCheck());
}


/*!	\a openMode is one of reading, writing or both, and what else is wanted: see StorageDefs.h. A directory is no file:
	\c B_IS_A_DIRECTORY.
*/
status_t
BFile::SetTo(const char* path, uint32 openMode)
{
	if (path == NULL)
		return _SetError(B_BAD_VALUE);

	fMode = openMode;
	status_t status = _Open(path, int(openMode));
	if (status == B_OK && IsDirectory())
		return _SetError(B_IS_A_DIRECTORY);

	return status;
}


status_t
BFile::SetTo(const BDirectory* directory, const char* path, uint32 openMode)
{
	if (directory == NULL || path == NULL)
		return _SetError(B_BAD_VALUE);
	if (directory->InitCheck() != B_OK)
		return _SetError(B_BAD_VALUE);

	return SetTo(directory->_Resolve(path).c_str(), openMode);
}


bool
BFile::IsReadable() const
{
	return InitCheck() == B_OK && (fMode & O_ACCMODE) != B_WRITE_ONLY;
}


bool
BFile::IsWritable() const
{
	return InitCheck() == B_OK && (fMode & O_ACCMODE) != B_READ_ONLY;
}


/*!	The number of bytes read, 0 at the end. */
ssize_t
BFile::Read(void* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return count_or_error(read(_Descriptor(), buffer, size));
}


ssize_t
BFile::ReadAt(off_t location, void* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return count_or_error(pread(_Descriptor(), buffer, size, location));
}


ssize_t
BFile::Write(const void* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return count_or_error(write(_Descriptor(), buffer, size));
}


ssize_t
BFile::WriteAt(off_t location, const void* buffer, size_t size)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	return count_or_error(pwrite(_Descriptor(), buffer, size, location));
}


/*!	\return The new position from the start of the file. */
off_t
BFile::Seek(off_t offset, uint32 seekMode)
{
	if (InitCheck() != B_OK)
		return B_NO_INIT;

	off_t position = lseek(_Descriptor(), offset, int(seekMode));
	return position >= 0 ? position : status_for_errno(errno);
}


off_t
BFile::Position() const
{
	return const_cast<BFile*>(this)->Seek(0, SEEK_CUR);
}


/*!	Cuts the file, or fills it up with zero bytes. */
status_t
BFile::SetSize(off_t size)
{
	if (size < 0)
		return B_BAD_VALUE;
	if (InitCheck() != B_OK)
		return B_NO_INIT;
	if (ftruncate(_Descriptor(), size) != 0)
		return status_for_errno(errno);

	return B_OK;
}


status_t
BFile::GetSize(off_t* _size) const
{
	return BStatable::GetSize(_size);
}
