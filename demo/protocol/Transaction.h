/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef DEMO_TRANSACTION_H
#define DEMO_TRANSACTION_H


#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>


namespace demo {


/*!	One message of the control connection, in either direction: a type, the number of the request
	that it makes or answers, an error word, and fields of bytes. A value; knows no connection.
*/
class Transaction {
public:
	enum ParseResult { kIncomplete, kTooLarge, kComplete };

	// Bytes before the fields: the header and the number of fields.
	static constexpr size_t kHeaderSize = 22;
	// The most that a client may send at once; the longest chat line needs 65,561 bytes.
	static constexpr size_t kMaxSize = 128 * 1024;
	static constexpr size_t kMaxFieldSize = 65535;

	explicit Transaction(uint16_t type = 0);
	static Transaction Reply(uint32_t request);
	static Transaction ErrorReply(uint32_t request, const std::string& text);
	static ParseResult Parse(const uint8_t* bytes, size_t size, Transaction* _transaction,
		size_t* _consumed);

	uint16_t Type() const { return fType; }
	bool IsReply() const { return fIsReply; }
	uint32_t Id() const { return fId; }
	void SetId(uint32_t id) { fId = id; }
	uint32_t Error() const { return fError; }

	void AddText(uint16_t field, const std::string& text);
	void AddInt16(uint16_t field, uint16_t value);
	void AddInt32(uint16_t field, uint32_t value);

	uint16_t CountFields() const { return fFieldCount; }
	bool FindText(uint16_t field, std::string* _text) const;
	bool FindInt(uint16_t field, uint32_t* _value) const;

	std::vector<uint8_t> Flatten() const;

private:
	uint16_t fType;
	bool fIsReply = false;
	uint32_t fId = 0;
	uint32_t fError = 0;
	uint16_t fFieldCount = 0;
	// The fields as they travel: id, length, value, one after the other.
	std::string fFields;
};


} // namespace demo


#endif // DEMO_TRANSACTION_H
