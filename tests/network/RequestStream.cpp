/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "RequestStream.h"

#include <algorithm>
#include <iterator>

#include "WireBytes.h"


static const std::string kMagic("TRTPHOTL\0\1\0\2", 12);
static const size_t kHeader = 22;
static const size_t kParamHeader = 4;
// More than any request has: three parameters.
static const uint32_t kMaxSize = 2 + 3 * (4 + 65535);

static const uint32_t kLogin = 107;
static const uint32_t kTypes[] = {105, 107, 108, 121, 200, 202, 203, 212, 300, 303, 304};
// Chat lines and messages, nicknames, names of files.
static const uint32_t kTextFields[] = {101, 102, 201};

// How much of what came before is shown with a complaint.
static const size_t kTrail = 8;
static const size_t kShownBytes = 96;


template<typename Numbers>
static bool
contains(const Numbers& numbers, uint32_t number)
{
	return std::find(std::begin(numbers), std::end(numbers), number) != std::end(numbers);
}


static std::string
name_of(const RequestStream::Request& request)
{
	return "type " + std::to_string(request.type) + ", id " + std::to_string(request.id);
}


RequestStream::RequestStream()
	: fAccepted(false),
	  fOffset(0),
	  fNextId(1)
{
}


void
RequestStream::Add(const char* bytes, size_t size)
{
	if (!fComplaint.empty())
		return;
	fBytes.append(bytes, size);
	_Judge();
}


bool
RequestStream::HasHandshake() const
{
	return fAccepted || (fComplaint.empty() && fBytes.size() == kMagic.size());
}


void
RequestStream::AcceptHandshake()
{
	if (!HasHandshake() || fAccepted)
		return;
	fAccepted = true;
	fBytes.clear();
}


bool
RequestStream::Next(Request* _request)
{
	if (fRequests.empty())
		return false;
	*_request = fRequests.front();
	fRequests.pop_front();
	return true;
}


bool
RequestStream::IsUnfinished() const
{
	return !fBytes.empty() && (fAccepted || !HasHandshake());
}


void
RequestStream::_Judge()
{
	if (!fAccepted) {
		_JudgeHandshake();
		return;
	}

	while (fBytes.size() - fOffset >= kHeader && _JudgeHeader()) {
		const size_t size = kHeader - 2 + _Number(12, 4);
		if (fBytes.size() - fOffset < size || !_JudgeParams(size))
			break;
		const Request request = {_Number(0, 4), _Number(4, 4)};
		fRequests.push_back(request);
		fTrail.push_back(request);
		if (fTrail.size() > kTrail)
			fTrail.pop_front();
		fNextId++;
		fOffset += size;
	}
	fBytes.erase(0, fOffset);
	fOffset = 0;
}


void
RequestStream::_JudgeHandshake()
{
	const size_t size = std::min(fBytes.size(), kMagic.size());
	if (fBytes.compare(0, size, kMagic, 0, size) != 0)
		_Complain("not a handshake");
	else if (fBytes.size() > kMagic.size())
		_Complain("more than the handshake before it was accepted");
}


bool
RequestStream::_JudgeHeader()
{
	const uint32_t type = _Number(0, 4);
	const uint32_t id = _Number(4, 4);
	const uint32_t size = _Number(12, 4);
	std::string fault;
	if (!contains(kTypes, type))
		fault = "no client sends this type";
	else if (fNextId == 1 && type != kLogin)
		fault = "before the login";
	else if (id > 0 && id < fNextId)
		fault = "an id that was used before";
	else if (id != fNextId)
		fault = "the id should be " + std::to_string(fNextId);
	else if (fNextId > 1 && type == kLogin)
		fault = "another login";
	else if (_Number(8, 4) != 0)
		fault = "an error code in a request";
	else if (size != _Number(16, 4))
		fault = "two different sizes";
	else if (size < 2 + kParamHeader * _Number(20, 2) || size > kMaxSize)
		fault = "an impossible size";
	if (fault.empty())
		return true;
	_Complain(name_of({type, id}) + ": " + fault);
	return false;
}


/*!	\param size Of the whole transaction, all of which has come. */
bool
RequestStream::_JudgeParams(size_t size)
{
	uint32_t count = 0;
	size_t position = kHeader;
	while (position + kParamHeader <= size) {
		const uint32_t field = _Number(position, 2);
		const size_t length = _Number(position + 2, 2);
		position += kParamHeader;
		if (length > size - position)
			break;
		const char* value = fBytes.data() + fOffset + position;
		if (contains(kTextFields, field) && length > 0
			&& std::count(value, value + length, *value) != static_cast<std::ptrdiff_t>(length))
			_Complain("a text of more than one letter in field " + std::to_string(field));
		position += length;
		count++;
	}

	if (position != size)
		_Complain("parameters that do not fill the size");
	else if (count != _Number(20, 2))
		_Complain("a wrong number of parameters");
	return fComplaint.empty();
}


void
RequestStream::_Complain(const std::string& complaint)
{
	if (!fComplaint.empty())
		return;
	fComplaint = complaint + "\n";
	for (const Request& request : fTrail)
		fComplaint += "after " + name_of(request) + "\n";
	fComplaint += wire_dump(fBytes.substr(fOffset, kShownBytes));
}


/*!	\param position Counts from the beginning of the transaction. */
uint32_t
RequestStream::_Number(size_t position, size_t size) const
{
	uint32_t number = 0;
	for (size_t i = fOffset + position; i < fOffset + position + size; i++)
		number = number << 8 | static_cast<uint8_t>(fBytes[i]);
	return number;
}
