/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef MESSAGE_BLOCK_H
#define MESSAGE_BLOCK_H


#include <SupportDefs.h>
#include <TypeConstants.h>


/*!	The fields of a message: names with a type and one value or several, behind one another in one block of bytes.
	The block lies inside of the object until it outgrows that, so that small ones are copied without asking for memory.
	An object belongs to one thread at a time, for reading too. What it hands out points into it until it is changed.
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

	status_t Add(const char* name, type_code type, const void* data, size_t size);
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


#endif // MESSAGE_BLOCK_H
