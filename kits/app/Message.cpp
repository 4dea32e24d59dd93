/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Message.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include <Entry.h>
#include <String.h>


namespace {


const size_t kMaxNameLength = 255;
const size_t kMaxBlockSize = UINT32_MAX - 8;


size_t
aligned(size_t size)
{
	return (size + 7) & ~size_t(7);
}


} // namespace


/*	A field begins with this and its name, which ends with a zero byte; its first value follows at the next multiple of 8.
	Offsets count from the start of the block; 0 is none. The cursor is the value that was looked at last, so that walking
	through many values never starts over.
*/
struct BMessage::Field {
	type_code type;
	uint32 nextField;
	uint32 lastValue;
	int32 count;
	mutable int32 cursorIndex;
	mutable uint32 cursorValue;
	uint16 nameLength;
	char name[2];

	static size_t SizeFor(size_t nameLength)
	{
		return aligned(offsetof(Field, name) + nameLength + 1);
	}
};


/*	A value's size, and its data right behind. */
struct BMessage::Value {
	uint32 nextValue;
	uint32 size;

	const uint8* Data() const { return reinterpret_cast<const uint8*>(this + 1); }
	uint8* Data() { return reinterpret_cast<uint8*>(this + 1); }
};


BMessage::BMessage()
	: BMessage(uint32(0))
{
}


BMessage::BMessage(uint32 messageWhat)
	: what(messageWhat),
	  fBlock(fInline),
	  fSize(0),
	  fCapacity(kInlineSize),
	  fNext(NULL),
	  fHandlerToken(0),
	  fRunnerToken(0)
{
}


BMessage::BMessage(const BMessage& other)
	: BMessage(other.what)
{
	_CopyBlock(other.fBlock, other.fSize);
}


BMessage::~BMessage()
{
	_ForgetBlock();
}


BMessage&
BMessage::operator=(const BMessage& other)
{
	if (this != &other) {
		what = other.what;
		_CopyBlock(other.fBlock, other.fSize);
	}
	return *this;
}


/*!	Describes the field at \a index among those of a type, or of any with \c B_ANY_TYPE.
	\return \c B_BAD_INDEX behind the last one, \c B_NAME_NOT_FOUND when there is none at all.
*/
status_t
BMessage::GetInfo(type_code typeRequested, int32 index, char** _name, type_code* _type,
	int32* _count) const
{
	if (index < 0)
		return B_BAD_INDEX;
	if (fSize == 0)
		return B_NAME_NOT_FOUND;

	for (Field* field = _FieldAt(0); field != NULL; field = _FieldAt(field->nextField)) {
		if ((typeRequested == B_ANY_TYPE || typeRequested == field->type) && index-- == 0) {
			if (_name != NULL)
				*_name = field->name;
			if (_type != NULL)
				*_type = field->type;
			if (_count != NULL)
				*_count = field->count;
			return B_OK;
		}
		if (field->nextField == 0)
			break;
	}
	return CountNames(typeRequested) == 0 ? B_NAME_NOT_FOUND : B_BAD_INDEX;
}


status_t
BMessage::GetInfo(const char* name, type_code* _type, int32* _count) const
{
	if (name == NULL)
		return B_BAD_VALUE;

	const Field* field = _FindField(name, strlen(name), NULL);
	if (_count != NULL)
		*_count = field != NULL ? field->count : 0;
	if (field == NULL)
		return B_NAME_NOT_FOUND;

	if (_type != NULL)
		*_type = field->type;
	return B_OK;
}


int32
BMessage::CountNames(type_code type) const
{
	int32 count = 0;
	uint32 offset = 0;
	while (fSize > 0) {
		const Field* field = _FieldAt(offset);
		if (type == B_ANY_TYPE || type == field->type)
			count++;
		offset = field->nextField;
		if (offset == 0)
			break;
	}
	return count;
}


/*!	Takes a field with all its values away. Everything that was found in the message is invalid then. */
status_t
BMessage::RemoveName(const char* name)
{
	if (name == NULL)
		return B_BAD_VALUE;

	const Field* removed = _FindField(name, strlen(name), NULL);
	if (removed == NULL)
		return B_NAME_NOT_FOUND;

	BMessage rest(what);
	uint32 offset = 0;
	do {
		const Field* field = _FieldAt(offset);
		offset = field->nextField;
		if (field == removed)
			continue;

		for (const Value* value = _FirstValue(field); value != NULL;
			 value = value->nextValue != 0 ? _ValueAt(value->nextValue) : NULL) {
			status_t status = rest._AddValue(field->name, field->type, value->Data(), value->size);
			if (status != B_OK)
				return status;
		}
	} while (offset != 0);

	_CopyBlock(rest.fBlock, rest.fSize);
	return B_OK;
}


status_t
BMessage::MakeEmpty()
{
	fSize = 0;
	return B_OK;
}


/*!	An empty string is a value, NULL is none: \c B_BAD_VALUE. */
status_t
BMessage::AddString(const char* name, const char* string)
{
	if (string == NULL)
		return B_BAD_VALUE;

	return _AddValue(name, B_STRING_TYPE, string, strlen(string) + 1);
}


status_t
BMessage::AddString(const char* name, const BString& string)
{
	return AddString(name, string.String());
}


status_t
BMessage::AddPointer(const char* name, const void* pointer)
{
	return _AddValue(name, B_POINTER_TYPE, &pointer, sizeof(pointer));
}


status_t
BMessage::AddRef(const char* name, const entry_ref* ref)
{
	if (ref == NULL)
		return B_BAD_VALUE;

	std::string flat;
	flat.append(reinterpret_cast<const char*>(&ref->device), sizeof(ref->device));
	flat.append(reinterpret_cast<const char*>(&ref->directory), sizeof(ref->directory));
	if (ref->fDirectoryPath != NULL)
		flat.append(ref->fDirectoryPath);
	flat.push_back(0);
	if (ref->name != NULL)
		flat.append(ref->name);
	flat.push_back(0);
	return _AddValue(name, B_REF_TYPE, flat.data(), flat.size());
}


status_t
BMessage::AddMessage(const char* name, const BMessage* message)
{
	if (message == NULL)
		return B_BAD_VALUE;

	std::string flat(reinterpret_cast<const char*>(&message->what), sizeof(message->what));
	flat.append(reinterpret_cast<const char*>(message->fBlock), message->fSize);
	return _AddValue(name, B_MESSAGE_TYPE, flat.data(), flat.size());
}


/*!	Adds one value of any type. \a isFixedSize and \a count are hints, which are not needed here. */
status_t
BMessage::AddData(const char* name, type_code type, const void* data, ssize_t numBytes,
	bool /*isFixedSize*/, int32 /*count*/)
{
	if (data == NULL || numBytes <= 0 || type == B_ANY_TYPE)
		return B_BAD_VALUE;

	return _AddValue(name, type, data, size_t(numBytes));
}


status_t
BMessage::FindString(const char* name, const char** _string) const
{
	return FindString(name, 0, _string);
}


/*!	\a _string receives a text that belongs to the message, NULL if there is none. */
status_t
BMessage::FindString(const char* name, int32 index, const char** _string) const
{
	const void* data = NULL;
	ssize_t size = 0;
	status_t status = FindData(name, B_STRING_TYPE, index, &data, &size);
	// Who adds data as a string may leave the zero byte out.
	if (status == B_OK && static_cast<const char*>(data)[size - 1] != 0)
		status = B_BAD_DATA;
	if (_string != NULL)
		*_string = status == B_OK ? static_cast<const char*>(data) : NULL;
	return status;
}


status_t
BMessage::FindString(const char* name, BString* _string) const
{
	return FindString(name, 0, _string);
}


status_t
BMessage::FindString(const char* name, int32 index, BString* _string) const
{
	const char* string = NULL;
	status_t status = FindString(name, index, &string);
	if (status == B_OK && _string != NULL)
		_string->SetTo(string);
	return status;
}


status_t
BMessage::FindPointer(const char* name, void** _pointer) const
{
	return FindPointer(name, 0, _pointer);
}


status_t
BMessage::FindPointer(const char* name, int32 index, void** _pointer) const
{
	if (_pointer != NULL)
		*_pointer = NULL;
	return _FindFixed(name, B_POINTER_TYPE, index, _pointer, sizeof(void*));
}


status_t
BMessage::FindRef(const char* name, entry_ref* _ref) const
{
	return FindRef(name, 0, _ref);
}


status_t
BMessage::FindRef(const char* name, int32 index, entry_ref* _ref) const
{
	if (_ref == NULL)
		return B_BAD_VALUE;

	const Value* value = NULL;
	status_t status = _FindValue(name, B_REF_TYPE, index, &value);
	if (status != B_OK)
		return status;

	const size_t kHeadSize = sizeof(_ref->device) + sizeof(_ref->directory);
	const char* bytes = reinterpret_cast<const char*>(value->Data());
	if (value->size < kHeadSize + 2 || bytes[value->size - 1] != 0)
		return B_BAD_DATA;

	const char* directoryPath = bytes + kHeadSize;
	size_t pathLength = strlen(directoryPath);
	if (kHeadSize + pathLength + 1 >= value->size)
		return B_BAD_DATA;

	entry_ref ref;
	memcpy(&ref.device, bytes, sizeof(ref.device));
	memcpy(&ref.directory, bytes + sizeof(ref.device), sizeof(ref.directory));
	if (pathLength > 0)
		ref.fDirectoryPath = strdup(directoryPath);
	ref.set_name(directoryPath + pathLength + 1);
	*_ref = ref;
	return B_OK;
}


status_t
BMessage::FindMessage(const char* name, BMessage* _message) const
{
	return FindMessage(name, 0, _message);
}


status_t
BMessage::FindMessage(const char* name, int32 index, BMessage* _message) const
{
	if (_message == NULL)
		return B_BAD_VALUE;

	const Value* value = NULL;
	status_t status = _FindValue(name, B_MESSAGE_TYPE, index, &value);
	if (status != B_OK)
		return status;
	if (value->size < sizeof(what))
		return B_BAD_DATA;

	memcpy(&_message->what, value->Data(), sizeof(what));
	_message->_CopyBlock(value->Data() + sizeof(what), value->size - uint32(sizeof(what)));
	return B_OK;
}


status_t
BMessage::FindData(const char* name, type_code type, const void** _data, ssize_t* _numBytes) const
{
	return FindData(name, type, 0, _data, _numBytes);
}


/*!	\a _data receives bytes that belong to the message, NULL if there are none; \c B_ANY_TYPE finds every type. */
status_t
BMessage::FindData(const char* name, type_code type, int32 index, const void** _data,
	ssize_t* _numBytes) const
{
	const Value* value = NULL;
	status_t status = _FindValue(name, type, index, &value);
	if (_data != NULL)
		*_data = status == B_OK ? value->Data() : NULL;
	if (_numBytes != NULL)
		*_numBytes = status == B_OK ? ssize_t(value->size) : 0;
	return status;
}


const char*
BMessage::GetString(const char* name, const char* defaultValue) const
{
	return GetString(name, 0, defaultValue);
}


const char*
BMessage::GetString(const char* name, int32 index, const char* defaultValue) const
{
	const char* string = NULL;
	return FindString(name, index, &string) == B_OK ? string : defaultValue;
}


const void*
BMessage::GetPointer(const char* name, const void* defaultValue) const
{
	return GetPointer(name, 0, defaultValue);
}


const void*
BMessage::GetPointer(const char* name, int32 index, const void* defaultValue) const
{
	void* pointer = NULL;
	return FindPointer(name, index, &pointer) == B_OK ? pointer : defaultValue;
}


bool
BMessage::HasString(const char* name, int32 index) const
{
	return HasData(name, B_STRING_TYPE, index);
}


bool
BMessage::HasPointer(const char* name, int32 index) const
{
	return HasData(name, B_POINTER_TYPE, index);
}


bool
BMessage::HasRef(const char* name, int32 index) const
{
	return HasData(name, B_REF_TYPE, index);
}


bool
BMessage::HasMessage(const char* name, int32 index) const
{
	return HasData(name, B_MESSAGE_TYPE, index);
}


bool
BMessage::HasData(const char* name, type_code type, int32 index) const
{
	const Value* value = NULL;
	return _FindValue(name, type, index, &value) == B_OK;
}


// #pragma mark - the block


/*!	Takes over a copy of another message's fields; they are gone if there is no memory for them. */
void
BMessage::_CopyBlock(const uint8* block, uint32 size)
{
	fSize = 0;
	if (size > fCapacity) {
		uint8* grown = static_cast<uint8*>(malloc(size));
		if (grown == NULL)
			return;

		_ForgetBlock();
		fBlock = grown;
		fCapacity = size;
	}
	// The other one may be a field of this one.
	memmove(fBlock, block, size);
	fSize = size;
}


void
BMessage::_ForgetBlock()
{
	if (fBlock != fInline)
		free(fBlock);
}


/*!	Makes the block large enough for that many more bytes. The old one, if there was one, is handed out rather than freed,
	because what is being added may point into it.
*/
bool
BMessage::_MakeRoom(uint64 size, uint8** _outgrown)
{
	if (size <= fCapacity - fSize)
		return true;

	uint64 needed = fSize + size;
	if (needed > kMaxBlockSize)
		return false;

	needed = std::min<uint64>(std::max<uint64>(needed, uint64(fCapacity) * 2), kMaxBlockSize);
	uint8* grown = static_cast<uint8*>(malloc(needed));
	if (grown == NULL)
		return false;

	memcpy(grown, fBlock, fSize);
	if (fBlock != fInline)
		*_outgrown = fBlock;
	fBlock = grown;
	fCapacity = uint32(needed);
	return true;
}


BMessage::Field*
BMessage::_FieldAt(uint32 offset) const
{
	return reinterpret_cast<Field*>(fBlock + offset);
}


BMessage::Value*
BMessage::_ValueAt(uint32 offset) const
{
	return reinterpret_cast<Value*>(fBlock + offset);
}


BMessage::Value*
BMessage::_FirstValue(const Field* field) const
{
	return _ValueAt(_OffsetOf(field) + uint32(Field::SizeFor(field->nameLength)));
}


uint32
BMessage::_OffsetOf(const void* inside) const
{
	return uint32(static_cast<const uint8*>(inside) - fBlock);
}


/*!	\a _last receives the last field if there is none of that name. */
BMessage::Field*
BMessage::_FindField(const char* name, size_t length, Field** _last) const
{
	if (fSize == 0)
		return NULL;

	Field* field = _FieldAt(0);
	while (field->nameLength != length || memcmp(field->name, name, length) != 0) {
		if (field->nextField == 0) {
			if (_last != NULL)
				*_last = field;
			return NULL;
		}
		field = _FieldAt(field->nextField);
	}
	return field;
}


/*!	Appends a field that has no value yet, for which the caller made room. */
BMessage::Field*
BMessage::_NewField(const char* name, size_t length, type_code type, Field* last)
{
	Field* field = _FieldAt(fSize);
	if (last != NULL)
		last->nextField = fSize;
	fSize += uint32(Field::SizeFor(length));

	field->type = type;
	field->nextField = 0;
	field->lastValue = 0;
	field->count = 0;
	field->cursorIndex = 0;
	field->cursorValue = fSize;
	field->nameLength = uint16(length);
	char* fieldName = reinterpret_cast<char*>(field) + offsetof(Field, name);
	memcpy(fieldName, name, length);
	fieldName[length] = 0;
	return field;
}


status_t
BMessage::_AddValue(const char* name, type_code type, const void* data, size_t size)
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
	if (size > kMaxBlockSize)
		return B_NO_MEMORY;

	uint32 fieldOffset = field != NULL ? _OffsetOf(field) : 0;
	uint32 lastOffset = last != NULL ? _OffsetOf(last) : 0;
	uint8* outgrown = NULL;
	size_t valueSize = aligned(sizeof(Value) + size);
	if (!_MakeRoom(Field::SizeFor(nameLength) + valueSize, &outgrown))
		return B_NO_MEMORY;

	if (field != NULL)
		field = _FieldAt(fieldOffset);
	else
		field = _NewField(name, nameLength, type, last != NULL ? _FieldAt(lastOffset) : NULL);

	Value* value = _ValueAt(fSize);
	value->nextValue = 0;
	value->size = uint32(size);
	memcpy(value->Data(), data, size);

	if (field->lastValue != 0)
		_ValueAt(field->lastValue)->nextValue = fSize;
	field->lastValue = fSize;
	field->count++;
	fSize += uint32(valueSize);

	free(outgrown);
	return B_OK;
}


status_t
BMessage::_FindValue(const char* name, type_code type, int32 index, const Value** _value) const
{
	if (name == NULL)
		return B_BAD_VALUE;

	const Field* field = _FindField(name, strlen(name), NULL);
	if (field == NULL)
		return B_NAME_NOT_FOUND;
	if (type != B_ANY_TYPE && type != field->type)
		return B_BAD_TYPE;
	if (index < 0 || index >= field->count)
		return B_BAD_INDEX;

	if (index < field->cursorIndex) {
		field->cursorIndex = 0;
		field->cursorValue = _OffsetOf(_FirstValue(field));
	}
	while (field->cursorIndex < index) {
		field->cursorValue = _ValueAt(field->cursorValue)->nextValue;
		field->cursorIndex++;
	}
	*_value = _ValueAt(field->cursorValue);
	return B_OK;
}


/*!	Finds a value of a fixed size. What is there under that name and type with another size is \c B_BAD_DATA. */
status_t
BMessage::_FindFixed(const char* name, type_code type, int32 index, void* _data, size_t size) const
{
	if (_data == NULL)
		return B_BAD_VALUE;

	const Value* value = NULL;
	status_t status = _FindValue(name, type, index, &value);
	if (status != B_OK)
		return status;
	if (value->size != size)
		return B_BAD_DATA;

	memcpy(_data, value->Data(), size);
	return B_OK;
}


// #pragma mark - values of a fixed size


// clang-format off
#define DEFINE_ACCESS(Name, Type, typeCode) \
	status_t BMessage::Add##Name(const char* name, Type value) \
	{ \
		return _AddValue(name, typeCode, &value, sizeof(value)); \
	} \
	status_t BMessage::Find##Name(const char* name, Type* _value) const \
	{ \
		return _FindFixed(name, typeCode, 0, _value, sizeof(Type)); \
	} \
	status_t BMessage::Find##Name(const char* name, int32 index, Type* _value) const \
	{ \
		return _FindFixed(name, typeCode, index, _value, sizeof(Type)); \
	} \
	Type BMessage::Get##Name(const char* name, Type defaultValue) const \
	{ \
		return Get##Name(name, 0, defaultValue); \
	} \
	Type BMessage::Get##Name(const char* name, int32 index, Type defaultValue) const \
	{ \
		Type value; \
		return Find##Name(name, index, &value) == B_OK ? value : defaultValue; \
	} \
	bool BMessage::Has##Name(const char* name, int32 index) const \
	{ \
		return HasData(name, typeCode, index); \
	}
// clang-format on

DEFINE_ACCESS(Bool, bool, B_BOOL_TYPE)
DEFINE_ACCESS(Int8, int8, B_INT8_TYPE)
DEFINE_ACCESS(UInt8, uint8, B_UINT8_TYPE)
DEFINE_ACCESS(Int16, int16, B_INT16_TYPE)
DEFINE_ACCESS(UInt16, uint16, B_UINT16_TYPE)
DEFINE_ACCESS(Int32, int32, B_INT32_TYPE)
DEFINE_ACCESS(UInt32, uint32, B_UINT32_TYPE)
DEFINE_ACCESS(Int64, int64, B_INT64_TYPE)
DEFINE_ACCESS(UInt64, uint64, B_UINT64_TYPE)
DEFINE_ACCESS(Float, float, B_FLOAT_TYPE)
DEFINE_ACCESS(Double, double, B_DOUBLE_TYPE)

#undef DEFINE_ACCESS
