/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Message.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>


static const size_t kMaxNameLength = UINT16_MAX;
static const size_t kMaxBlockSize = UINT32_MAX - 8;


static size_t
aligned(size_t size)
{
	return (size + 7) & ~static_cast<size_t>(7);
}

/*!	A field begins with this and its name, which ends with a zero byte; its first value follows at
	the next multiple of 8.
	Offsets count from the start of the block; 0 is none. The cursor is the value that was looked at
	last, so that walking through many values never starts over.
*/
struct MessageBlock::Field {
	type_code type;
	uint32 nextField;
	uint32 lastValue;
	uint32 count : 31;
	// Whether all values have the size of the first one.
	uint32 isFixedSize : 1;
	mutable uint32 cursorIndex;
	mutable uint32 cursorValue;
	uint16 nameLength;
	char name[2];

	bool HasName(const char* wanted, size_t length) const
	{
		return nameLength == length && memcmp(name, wanted, length) == 0;
	}

	static size_t SizeFor(size_t nameLength)
	{
		return aligned(offsetof(Field, name) + nameLength + 1);
	}
};


/*!	A value's size, and its data right behind. */
struct MessageBlock::Value {
	uint32 nextValue;
	uint32 size;

	const uint8* Data() const { return reinterpret_cast<const uint8*>(this + 1); }
	uint8* Data() { return reinterpret_cast<uint8*>(this + 1); }
};


MessageBlock::MessageBlock()
	: fBytes(fInside),
	  fSize(0),
	  fCapacity(kSizeInside),
	  fLastFound(kNone)
{
}


MessageBlock::MessageBlock(const MessageBlock& other)
	: MessageBlock()
{
	SetTo(other.fBytes, other.fSize);
}


MessageBlock::~MessageBlock()
{
	_ForgetBytes();
}


MessageBlock&
MessageBlock::operator=(const MessageBlock& other)
{
	if (this != &other)
		SetTo(other.fBytes, other.fSize);
	return *this;
}


/*!	Takes over a copy of another block, which may lie in this one. It is empty if there is no memory
	for that.
*/
void
MessageBlock::SetTo(const uint8* bytes, uint32 size)
{
	MakeEmpty();
	if (size > fCapacity) {
		uint8* grown = static_cast<uint8*>(malloc(size));
		if (grown == NULL)
			return;

		_ForgetBytes();
		fBytes = grown;
		fCapacity = size;
	}
	if (size > 0)
		memmove(fBytes, bytes, size);
	fSize = size;
}


void
MessageBlock::MakeEmpty()
{
	fSize = 0;
	fLastFound = kNone;
}


/*!	Adds a value to the field of that name, which is made if there is none.
	Differs from Haiku: a name has 65,535 bytes at most.
	\param isFixedSize Whether all values of the field have one size; the first one decides.
	\return \c B_BAD_TYPE when the field has another type, \c B_BAD_VALUE when its values have
	another size, or for a name that is NULL or too long.
*/
status_t
MessageBlock::Add(const char* name, type_code type, const void* data, size_t size, bool isFixedSize)
{
	if (name == NULL)
		return B_BAD_VALUE;
	size_t nameLength = strlen(name);
	if (nameLength > kMaxNameLength)
		return B_BAD_VALUE;

	Field* last = NULL;
	Field* field = _FindField(name, nameLength, &last);
	if (field != NULL && field->type != type)
		return B_BAD_TYPE;
	if (field != NULL && field->isFixedSize != 0 && _FirstValue(field)->size != size)
		return B_BAD_VALUE;
	if (size > kMaxBlockSize)
		return B_NO_MEMORY;

	uint32 fieldOffset = field != NULL ? _OffsetOf(field) : 0;
	uint32 lastOffset = last != NULL ? _OffsetOf(last) : 0;
	uint8* outgrown = NULL;
	size_t valueSize = aligned(sizeof(Value) + size);
	const bool keepsOld = _Contains(name) || _Contains(data);
	if (!_MakeRoom(Field::SizeFor(nameLength) + valueSize, keepsOld, &outgrown))
		return B_NO_MEMORY;

	if (field != NULL)
		field = _FieldAt(fieldOffset);
	else {
		field = _NewField(name, nameLength, type, last != NULL ? _FieldAt(lastOffset) : NULL);
		field->isFixedSize = isFixedSize;
	}

	Value* value = _ValueAt(fSize);
	value->nextValue = 0;
	value->size = static_cast<uint32>(size);
	memcpy(value->Data(), data, size);

	if (field->lastValue != 0)
		_ValueAt(field->lastValue)->nextValue = fSize;
	field->lastValue = fSize;
	field->count++;
	fSize += static_cast<uint32>(valueSize);

	free(outgrown);
	return B_OK;
}


/*!	Looks a value up; \c B_ANY_TYPE finds every type. Walking through the values in order costs the
	same for each.
	\return \c B_NAME_NOT_FOUND, \c B_BAD_TYPE or \c B_BAD_INDEX, and nothing in \a _data and \a
	_size.
*/
status_t
MessageBlock::Find(const char* name, type_code type, int32 index, const void** _data,
	size_t* _size) const
{
	if (name == NULL)
		return B_BAD_VALUE;

	const Field* field = _FindField(name, strlen(name), NULL);
	if (field == NULL)
		return B_NAME_NOT_FOUND;
	if (type != B_ANY_TYPE && type != field->type)
		return B_BAD_TYPE;
	const uint32 wanted = static_cast<uint32>(index);
	if (index < 0 || wanted >= field->count)
		return B_BAD_INDEX;

	if (wanted < field->cursorIndex) {
		field->cursorIndex = 0;
		field->cursorValue = _OffsetOf(_FirstValue(field));
	}
	while (field->cursorIndex < wanted) {
		field->cursorValue = _ValueAt(field->cursorValue)->nextValue;
		field->cursorIndex++;
	}

	const Value* value = _ValueAt(field->cursorValue);
	*_data = value->Data();
	*_size = value->size;
	return B_OK;
}


/*!	How many fields there are of a type, or of any with \c B_ANY_TYPE. */
int32
MessageBlock::CountNames(type_code type) const
{
	int32 count = 0;
	for (const Field* field = _FirstField(); field != NULL; field = _NextField(field)) {
		if (type == B_ANY_TYPE || type == field->type)
			count++;
	}
	return count;
}


/*!	Describes the field at \a index among those of a type, or of any with \c B_ANY_TYPE.
	\return \c B_BAD_INDEX behind the last one, \c B_NAME_NOT_FOUND when there is none at all.
*/
status_t
MessageBlock::GetInfo(type_code typeRequested, int32 index, char** _name, type_code* _type,
	int32* _count) const
{
	for (Field* field = _FirstField(); field != NULL; field = _NextField(field)) {
		if (typeRequested != B_ANY_TYPE && typeRequested != field->type)
			continue;
		if (index-- != 0)
			continue;

		if (_name != NULL)
			*_name = field->name;
		return GetInfo(field->name, _type, _count);
	}
	return CountNames(typeRequested) == 0 ? B_NAME_NOT_FOUND : B_BAD_INDEX;
}


status_t
MessageBlock::GetInfo(const char* name, type_code* _type, int32* _count) const
{
	if (name == NULL)
		return B_BAD_VALUE;

	const Field* field = _FindField(name, strlen(name), NULL);
	if (_count != NULL)
		*_count = field != NULL ? static_cast<int32>(field->count) : 0;
	if (field == NULL)
		return B_NAME_NOT_FOUND;

	if (_type != NULL)
		*_type = field->type;
	return B_OK;
}


bool
MessageBlock::_Contains(const void* address) const
{
	const uintptr_t place = reinterpret_cast<uintptr_t>(address);
	const uintptr_t begin = reinterpret_cast<uintptr_t>(fBytes);
	return place >= begin && place < begin + fCapacity;
}


/*!	Makes room for that many more bytes.
	\param keepsOld Whether what is being added lies in the bytes that are outgrown: then these are
		handed out rather than freed, if they are not inside of the object.
*/
bool
MessageBlock::_MakeRoom(uint64 size, bool keepsOld, uint8** _outgrown)
{
	if (size <= fCapacity - fSize)
		return true;

	uint64 needed = fSize + size;
	if (needed > kMaxBlockSize)
		return false;

	needed = std::min<uint64>(std::max<uint64>(needed, static_cast<uint64>(fCapacity) * 2),
		kMaxBlockSize);
	// Large memory grows in place, without being copied.
	const bool inPlace = fBytes != fInside && !keepsOld;
	uint8* grown = static_cast<uint8*>(inPlace ? realloc(fBytes, needed) : malloc(needed));
	if (grown == NULL)
		return false;

	if (!inPlace) {
		memcpy(grown, fBytes, fSize);
		if (fBytes != fInside)
			*_outgrown = fBytes;
	}
	fBytes = grown;
	fCapacity = static_cast<uint32>(needed);
	return true;
}


void
MessageBlock::_ForgetBytes()
{
	if (fBytes != fInside)
		free(fBytes);
}


MessageBlock::Field*
MessageBlock::_FieldAt(uint32 offset) const
{
	return reinterpret_cast<Field*>(fBytes + offset);
}


MessageBlock::Value*
MessageBlock::_ValueAt(uint32 offset) const
{
	return reinterpret_cast<Value*>(fBytes + offset);
}


MessageBlock::Field*
MessageBlock::_FirstField() const
{
	return fSize > 0 ? _FieldAt(0) : NULL;
}


MessageBlock::Field*
MessageBlock::_NextField(const Field* field) const
{
	return field->nextField != 0 ? _FieldAt(field->nextField) : NULL;
}


MessageBlock::Value*
MessageBlock::_FirstValue(const Field* field) const
{
	return _ValueAt(_OffsetOf(field) + static_cast<uint32>(Field::SizeFor(field->nameLength)));
}


uint32
MessageBlock::_OffsetOf(const void* inside) const
{
	return static_cast<uint32>(static_cast<const uint8*>(inside) - fBytes);
}


/*!	Looks from the field that was found last to the end, and then from the start: whoever adds or
	reads many values does so field by field, or takes one of each in turn.
	\param _last Receives the last field of all if there is none of that name.
*/
MessageBlock::Field*
MessageBlock::_FindField(const char* name, size_t length, Field** _last) const
{
	Field* const start = fLastFound != kNone ? _FieldAt(fLastFound) : _FirstField();
	Field* last = NULL;
	Field* field = start;
	while (field != NULL && !field->HasName(name, length)) {
		last = field;
		field = _NextField(field);
	}
	if (field == NULL) {
		field = _FirstField();
		while (field != start && !field->HasName(name, length))
			field = _NextField(field);
		if (field == start)
			field = NULL;
	}

	if (field != NULL)
		fLastFound = _OffsetOf(field);
	else if (_last != NULL)
		*_last = last;
	return field;
}


/*!	Appends a field that has no value yet, for which the caller made room. */
MessageBlock::Field*
MessageBlock::_NewField(const char* name, size_t length, type_code type, Field* last)
{
	Field* field = _FieldAt(fSize);
	if (last != NULL)
		last->nextField = fSize;
	fSize += static_cast<uint32>(Field::SizeFor(length));

	field->type = type;
	field->nextField = 0;
	field->lastValue = 0;
	field->count = 0;
	field->isFixedSize = 0;
	field->cursorIndex = 0;
	field->cursorValue = fSize;
	field->nameLength = static_cast<uint16>(length);
	char* fieldName = reinterpret_cast<char*>(field) + offsetof(Field, name);
	memcpy(fieldName, name, length);
	fieldName[length] = 0;
	return field;
}
