/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_H
#define MESSAGE_H


#include <OS.h>
#include <SupportDefs.h>
#include <TypeConstants.h>


class BString;
struct entry_ref;


/*!	The fields of a message: names with a type and one value or several, behind one another in one
	block of bytes.
	The block lies inside of the object until it outgrows that, so that small ones are copied
	without asking for memory.
	An object belongs to one thread at a time, for reading too. What it hands out points into it
	until it is changed.
*/
class MessageBlock {
public:
	MessageBlock();
	MessageBlock(const MessageBlock& other);
	~MessageBlock();

	MessageBlock& operator=(const MessageBlock& other);

	void SetTo(const uint8* bytes, uint32 size);
	void MakeEmpty();

	bool IsEmpty() const { return fSize == 0; }
	uint32 Size() const { return fSize; }
	size_t MemoryOutside() const { return fBytes != fInside ? fCapacity : 0; }

	status_t Add(const char* name, type_code type, const void* data, size_t size, bool isFixedSize);
	status_t Find(const char* name, type_code type, int32 index, const void** _data,
		size_t* _size) const;

	int32 CountNames(type_code type) const;
	status_t GetInfo(type_code typeRequested, int32 index, char** _name, type_code* _type,
		int32* _count) const;
	status_t GetInfo(const char* name, type_code* _type, int32* _count) const;

private:
	struct Field;
	struct Value;

	static const uint32 kSizeInside = 256;
	static const uint32 kNone = UINT32_MAX;

	bool _Contains(const void* address) const;
	bool _MakeRoom(uint64 size, bool keepsOld, uint8** _outgrown);
	void _ForgetBytes();

	Field* _FieldAt(uint32 offset) const;
	Value* _ValueAt(uint32 offset) const;
	Field* _FirstField() const;
	Field* _NextField(const Field* field) const;
	Value* _FirstValue(const Field* field) const;
	uint32 _OffsetOf(const void* inside) const;
	Field* _FindField(const char* name, size_t length, Field** _last) const;
	Field* _NewField(const char* name, size_t length, type_code type, Field* last);

	// fInside, or memory of our own.
	uint8* fBytes;
	uint32 fSize;
	uint32 fCapacity;
	// The field that was looked for last, or kNone: the next one is mostly the one behind it.
	mutable uint32 fLastFound;
	alignas(8) uint8 fInside[kSizeInside];
};


/*!	A code and named, typed fields, each with one value or several.
	The fields stand behind one another in one block of bytes, which small messages hold inside
	themselves: copying is one copy of bytes. A message belongs to one thread at a time, for reading
	too. Texts, data and names that it hands out point into it and live until it is changed. A field
	is found only under the type with which it was added.
*/
class BMessage {
public:
	BMessage();
	BMessage(uint32 what);
	BMessage(const BMessage& other);
	virtual ~BMessage();

	BMessage& operator=(const BMessage& other);

	uint32 what;

	status_t GetInfo(type_code typeRequested, int32 index, char** _name, type_code* _type,
		int32* _count = NULL) const;
	status_t GetInfo(const char* name, type_code* _type, int32* _count = NULL) const;
	status_t GetInfo(const char* name, type_code* _type, bool* _isFixedSize) const = delete;
	status_t GetInfo(const char* name, type_code* _type, int32* _count,
		bool* _isFixedSize) const = delete;
	int32 CountNames(type_code type) const;
	bool IsEmpty() const { return fFields.IsEmpty(); }

	status_t AddBool(const char* name, bool value);
	status_t AddInt16(const char* name, int16 value);
	status_t AddUInt16(const char* name, uint16 value);
	status_t AddInt32(const char* name, int32 value);
	status_t AddUInt32(const char* name, uint32 value);
	status_t AddInt64(const char* name, int64 value);
	status_t AddString(const char* name, const char* string);
	status_t AddString(const char* name, const BString& string);
	status_t AddPointer(const char* name, const void* pointer);
	status_t AddRef(const char* name, const entry_ref* ref);
	status_t AddData(const char* name, type_code type, const void* data, ssize_t numBytes,
		bool isFixedSize = true, int32 count = 1);

	const char* FindString(const char* name, int32 index = 0) const = delete;
	status_t FindString(const char* name, const char** _string) const = delete;
	status_t FindString(const char* name, BString* _string) const = delete;
	status_t FindString(const char* name, int32 index, const char** _string) const;
	status_t FindString(const char* name, int32 index, BString* _string) const = delete;
	status_t FindPointer(const char* name, void** _pointer) const;
	status_t FindPointer(const char* name, int32 index, void** _pointer) const = delete;
	status_t FindRef(const char* name, entry_ref* _ref) const;
	status_t FindRef(const char* name, int32 index, entry_ref* _ref) const = delete;
	status_t FindData(const char* name, type_code type, const void** _data,
		ssize_t* _numBytes) const;
	status_t FindData(const char* name, type_code type, int32 index, const void** _data,
		ssize_t* _numBytes) const = delete;

	bool GetBool(const char* name, bool defaultValue = false) const;
	bool GetBool(const char* name, int32 index, bool defaultValue) const;
	int16 GetInt16(const char* name, int16 defaultValue) const;
	int16 GetInt16(const char* name, int32 index, int16 defaultValue) const;
	uint16 GetUInt16(const char* name, uint16 defaultValue) const;
	uint16 GetUInt16(const char* name, int32 index, uint16 defaultValue) const;
	int32 GetInt32(const char* name, int32 defaultValue) const;
	int32 GetInt32(const char* name, int32 index, int32 defaultValue) const;
	uint32 GetUInt32(const char* name, uint32 defaultValue) const;
	uint32 GetUInt32(const char* name, int32 index, uint32 defaultValue) const;
	int64 GetInt64(const char* name, int64 defaultValue) const;
	int64 GetInt64(const char* name, int32 index, int64 defaultValue) const;
	const char* GetString(const char* name, const char* defaultValue = NULL) const;
	const char* GetString(const char* name, int32 index, const char* defaultValue) const;
	const void* GetPointer(const char* name, const void* defaultValue = NULL) const;
	const void* GetPointer(const char* name, int32 index,
		const void* defaultValue = NULL) const = delete;

	bool HasData(const char* name, type_code type, int32 index = 0) const;

private:
	friend class LooperRecord;
	friend class MessageQueue;

	template<typename Type>
	Type _GetFixed(const char* name, type_code type, int32 index, Type defaultValue) const;

	MessageBlock fFields;

	// Of a copy in a queue: the one behind it, whom it is for, and the runner that sent it.
	BMessage* fNext;
	int32 fHandlerToken;
	int32 fRunnerToken;
};


#endif // MESSAGE_H
