/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "FileObject.h"

#include <algorithm>
#include <memory>

#include "ByteOrder.h"
#include "FileTree.h"


namespace demo {


static const char* const kFormat = "FILP";
static const char* const kInformationFork = "INFO";
static const char* const kDataFork = "DATA";
static const char* const kResourceFork = "MACR";

static const size_t kHeaderSize = 24;
static const size_t kForkHeaderSize = 16;
// Where the information fork has what, counted from its start.
static const size_t kTypeOffset = 4;
static const size_t kCreatorOffset = 8;
static const size_t kNameSizeOffset = 70;
static const size_t kNameOffset = 72;
static const uint64_t kMaxInformationSize = 4096;


static ContentReference
text(const std::string& bytes)
{
	return std::make_shared<TextContent>(bytes);
}


static std::string
fork_header(const char* type, uint64_t size)
{
	std::string bytes = type;
	append_32(bytes, 0);
	append_32(bytes, 0);
	append_32(bytes, static_cast<uint32_t>(size));
	return bytes;
}


static std::string
information_fork(const FileRecord& file)
{
	std::string bytes = "AMAC" + file.type + file.creator;
	append_32(bytes, 0);
	append_32(bytes, 0);
	// Reserved bytes and two dates of eight bytes each, which nobody has set.
	bytes.append(32 + 8 + 8, '\0');
	append_16(bytes, 0);
	append_16(bytes, static_cast<uint16_t>(file.name.size()));
	bytes += file.name;
	append_16(bytes, static_cast<uint16_t>(file.comment.size()));
	return bytes + file.comment;
}


ContentSequence
flatten_file(const FileRecord& file)
{
	std::string start = kFormat;
	append_16(start, 1);
	start.append(16, '\0');
	append_16(start, file.resource != NULL ? 3 : 2);
	std::string information = information_fork(file);
	start += fork_header(kInformationFork, information.size()) + information;

	ContentSequence sequence;
	sequence.Append(text(start + fork_header(kDataFork, file.data->Size())));
	sequence.Append(file.data);
	if (file.resource != NULL) {
		sequence.Append(text(fork_header(kResourceFork, file.resource->Size())));
		sequence.Append(file.resource);
	}
	return sequence;
}


// #pragma mark -


/*!	\param announcedSize What the whole object is said to be, in bytes. */
FileObjectReader::FileObjectReader(Receiver& receiver, uint64_t announcedSize)
	: fReceiver(receiver),
	  fLeft(announcedSize)
{
}


/*!	Takes all of the bytes, which may end anywhere.
	\return \c kComplete after the last byte of the object, \c kBroken as soon as something is
		wrong; nothing is taken after either.
*/
FileObjectReader::State
FileObjectReader::Feed(const uint8_t* bytes, size_t size)
{
	while (size > 0 && fState != kComplete && fState != kBroken) {
		size_t taken = 0;
		if (fState == kReadingFork)
			taken = _FeedFork(bytes, size);
		else {
			size_t wanted = fState == kReadingHeader ? kHeaderSize : kForkHeaderSize;
			taken = std::min(size, wanted - fPending.size());
			fPending.append(reinterpret_cast<const char*>(bytes), taken);
			if (fPending.size() == wanted && fState == kReadingHeader)
				_HandleHeader();
			else if (fPending.size() == wanted)
				_HandleForkHeader();
		}
		bytes += taken;
		size -= taken;
	}
	// Something behind the end is as wrong as something that is missing.
	if (size > 0)
		fState = kBroken;
	return fState;
}


void
FileObjectReader::_HandleHeader()
{
	const auto* bytes = reinterpret_cast<const uint8_t*>(fPending.data());
	fForksLeft = read_16(bytes + 22);
	bool isGood = fPending.compare(0, 4, kFormat) == 0 && read_16(bytes + 4) == 1 && fForksLeft >= 1
		&& fForksLeft <= 3 && fLeft >= kHeaderSize;
	fLeft -= kHeaderSize;
	fPending.clear();
	fState = isGood ? kReadingForkHeader : kBroken;
}


void
FileObjectReader::_HandleForkHeader()
{
	const auto* bytes = reinterpret_cast<const uint8_t*>(fPending.data());
	fForkType = fPending.substr(0, 4);
	fForkLeft = read_32(bytes + 12);
	fPending.clear();

	bool isInformation = fForkType == kInformationFork;
	bool isData = fForkType == kDataFork;
	bool isKnown = isInformation || isData || fForkType == kResourceFork;
	bool isTwice = (isInformation && fHasInformation) || (isData && fHasData);
	bool fits = fLeft >= kForkHeaderSize && fForkLeft <= fLeft - kForkHeaderSize;
	if (!isKnown || isTwice || !fits || (isInformation && fForkLeft > kMaxInformationSize)) {
		fState = kBroken;
		return;
	}
	fLeft -= kForkHeaderSize + fForkLeft;
	fHasInformation |= isInformation;
	fHasData |= isData;
	if (isData)
		fDataSize = fForkLeft;
	fForksLeft--;
	fState = kReadingFork;
	if (fForkLeft == 0)
		_HandleForkEnd();
}


void
FileObjectReader::_HandleForkEnd()
{
	if (fForkType == kInformationFork && !_HandleInformation()) {
		fState = kBroken;
		return;
	}
	if (fForksLeft > 0)
		fState = kReadingForkHeader;
	else
		fState = fHasData && fHasInformation && fLeft == 0 ? kComplete : kBroken;
}


bool
FileObjectReader::_HandleInformation()
{
	std::string fork;
	fork.swap(fPending);
	if (fork.size() < kNameOffset)
		return false;
	size_t nameSize = read_16(reinterpret_cast<const uint8_t*>(fork.data()) + kNameSizeOffset);
	if (nameSize > fork.size() - kNameOffset)
		return false;
	fType = fork.substr(kTypeOffset, 4);
	fCreator = fork.substr(kCreatorOffset, 4);
	fName = fork.substr(kNameOffset, nameSize);
	return true;
}


/*!	\return The bytes that it took. */
size_t
FileObjectReader::_FeedFork(const uint8_t* bytes, size_t size)
{
	auto taken = static_cast<size_t>(std::min<uint64_t>(size, fForkLeft));
	if (fForkType == kInformationFork)
		fPending.append(reinterpret_cast<const char*>(bytes), taken);
	else if (fForkType == kDataFork && !fReceiver.HandleData(bytes, taken))
		fState = kBroken;
	fForkLeft -= taken;
	if (fForkLeft == 0 && fState != kBroken)
		_HandleForkEnd();
	return taken;
}


} // namespace demo
