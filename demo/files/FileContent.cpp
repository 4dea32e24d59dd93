/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileContent.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <unistd.h>


namespace demo {


TextContent::TextContent(std::string bytes)
	: FileContent(bytes.size()),
	  fBytes(std::move(bytes))
{
}


bool
TextContent::Read(uint64_t offset, uint8_t* buffer, size_t size) const
{
	memcpy(buffer, fBytes.data() + offset, size);
	return true;
}


// #pragma mark -


/*!	What stands at that place of every pattern, whatever its size. */
uint8_t
PatternContent::ByteAt(uint64_t offset)
{
	return static_cast<uint8_t>(offset * 131 + (offset >> 8) * 7 + (offset >> 16) * 29);
}


bool
PatternContent::Read(uint64_t offset, uint8_t* buffer, size_t size) const
{
	for (size_t i = 0; i < size; i++)
		buffer[i] = ByteAt(offset + i);
	return true;
}


// #pragma mark -


/*!	\param file A descriptor that is open for reading; it is closed with the content. */
DiskContent::DiskContent(int file, uint64_t size)
	: FileContent(size),
	  fFile(file)
{
}


DiskContent::~DiskContent()
{
	close(fFile);
}


/*!	Creates an empty file in the folder for temporary files. It has no name, so that nothing of it
	is left when it is closed, however the program ends.
	\return Its descriptor, owned by the caller; -1 on an error.
*/
int
DiskContent::CreateFile()
{
	const char* folder = getenv("TMPDIR");
	std::string path = folder != NULL && *folder != 0 ? folder : "/tmp";
	path += "/palimbra-demo-XXXXXX";
	int file = mkostemp(&path[0], O_CLOEXEC);
	if (file >= 0)
		unlink(path.c_str());
	return file;
}


bool
DiskContent::Read(uint64_t offset, uint8_t* buffer, size_t size) const
{
	while (size > 0) {
		ssize_t count = pread(fFile, buffer, size, static_cast<off_t>(offset));
		if (count < 0 && errno == EINTR)
			continue;
		if (count <= 0)
			return false;
		offset += static_cast<uint64_t>(count);
		buffer += count;
		size -= static_cast<size_t>(count);
	}
	return true;
}


// #pragma mark -


/*!	Before the first byte is read. */
void
ContentSequence::Append(const ContentReference& content)
{
	fParts.push_back(content);
	fSize += content->Size();
	fEnd = fSize;
}


/*!	Makes the sequence end early, although its size remains what it was. */
void
ContentSequence::CutAt(uint64_t size)
{
	fEnd = std::min(fSize, size);
}


ssize_t
ContentSequence::Read(uint8_t* buffer, size_t size)
{
	auto wanted = static_cast<size_t>(std::min<uint64_t>(size, fEnd - fPosition));
	size_t done = 0;
	while (done < wanted) {
		const FileContent& part = *fParts[fPart];
		if (fPartOffset == part.Size()) {
			fPart++;
			fPartOffset = 0;
			continue;
		}
		auto count = static_cast<size_t>(
			std::min<uint64_t>(wanted - done, part.Size() - fPartOffset));
		if (!part.Read(fPartOffset, buffer + done, count))
			return -1;
		fPartOffset += count;
		done += count;
	}
	fPosition += done;
	return static_cast<ssize_t>(done);
}


} // namespace demo
