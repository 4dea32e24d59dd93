/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Transaction.h"


#include "ByteOrder.h"
#include "ProtocolCodes.h"
#include "Text.h"


namespace demo {


// The size in the header counts from behind it: the number of fields and the fields.
static const size_t kFixedSize = 20;
static const size_t kCountSize = 2;
static const size_t kFieldHeaderSize = 4;


Transaction::Transaction(uint16_t type)
	: fType(type)
{
}


/*!	A successful answer. Answers carry no type of their own, only the number of their request. */
Transaction
Transaction::Reply(uint32_t request)
{
	Transaction reply;
	reply.fIsReply = true;
	reply.fId = request;
	return reply;
}


Transaction
Transaction::ErrorReply(uint32_t request, const std::string& text)
{
	Transaction reply = Reply(request);
	reply.fError = 1;
	reply.AddText(kFieldErrorText, text);
	return reply;
}


/*!	Takes one transaction from the start of the given bytes.
	\param _consumed Receives the bytes that it took, only for \c kComplete.
	\return \c kTooLarge as soon as the header announces more than \c kMaxSize bytes.
*/
Transaction::ParseResult
Transaction::Parse(const uint8_t* bytes, size_t size, Transaction* _transaction, size_t* _consumed)
{
	if (size < kFixedSize)
		return kIncomplete;

	size_t dataSize = read_32(bytes + 12);
	if (dataSize > kMaxSize - kFixedSize)
		return kTooLarge;
	if (size < kFixedSize + dataSize)
		return kIncomplete;

	_transaction->fType = read_16(bytes + 2);
	_transaction->fIsReply = bytes[1] != 0;
	_transaction->fId = read_32(bytes + 4);
	_transaction->fError = read_32(bytes + 8);
	_transaction->fFieldCount = 0;
	_transaction->fFields.clear();
	if (dataSize >= kCountSize) {
		_transaction->fFieldCount = read_16(bytes + kFixedSize);
		_transaction->fFields.assign(reinterpret_cast<const char*>(bytes) + kHeaderSize,
			dataSize - kCountSize);
	}
	*_consumed = kFixedSize + dataSize;
	return kComplete;
}


/*!	Text that is too long for a field is cut between characters. */
void
Transaction::AddText(uint16_t field, const std::string& text)
{
	std::string value = cut_text(text, kMaxFieldSize);
	append_16(fFields, field);
	append_16(fFields, static_cast<uint16_t>(value.size()));
	fFields += value;
	fFieldCount++;
}


void
Transaction::AddInt16(uint16_t field, uint16_t value)
{
	append_16(fFields, field);
	append_16(fFields, 2);
	append_16(fFields, value);
	fFieldCount++;
}


void
Transaction::AddInt32(uint16_t field, uint32_t value)
{
	append_16(fFields, field);
	append_16(fFields, 4);
	append_32(fFields, value);
	fFieldCount++;
}


/*!	The first field with that id. The walk goes by the lengths and ends at the first field that
	does not fit; the announced number of fields is not consulted.
*/
bool
Transaction::FindText(uint16_t field, std::string* _text) const
{
	const auto* bytes = reinterpret_cast<const uint8_t*>(fFields.data());
	size_t offset = 0;
	while (fFields.size() - offset >= kFieldHeaderSize) {
		uint16_t id = read_16(bytes + offset);
		size_t length = read_16(bytes + offset + 2);
		offset += kFieldHeaderSize;
		if (length > fFields.size() - offset)
			return false;
		if (id == field) {
			_text->assign(fFields, offset, length);
			return true;
		}
		offset += length;
	}
	return false;
}


/*!	Numbers come with two or four bytes; any other length counts as missing. */
bool
Transaction::FindInt(uint16_t field, uint32_t* _value) const
{
	std::string value;
	if (!FindText(field, &value))
		return false;

	const auto* bytes = reinterpret_cast<const uint8_t*>(value.data());
	if (value.size() == 2) {
		*_value = read_16(bytes);
		return true;
	}
	if (value.size() == 4) {
		*_value = read_32(bytes);
		return true;
	}
	return false;
}


std::vector<uint8_t>
Transaction::Flatten() const
{
	std::string bytes;
	bytes.reserve(kHeaderSize + fFields.size());
	bytes.push_back(0);
	bytes.push_back(fIsReply ? 1 : 0);
	append_16(bytes, fType);
	append_32(bytes, fId);
	append_32(bytes, fError);
	auto dataSize = static_cast<uint32_t>(kCountSize + fFields.size());
	append_32(bytes, dataSize);
	append_32(bytes, dataSize);
	append_16(bytes, fFieldCount);
	bytes += fFields;
	return {bytes.begin(), bytes.end()};
}


} // namespace demo
