/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Message.h>

#include <cstring>
#include <string>

#include <Entry.h>
#include <String.h>


BMessage::BMessage()
	: BMessage(0u)
{
}


BMessage::BMessage(uint32 messageWhat)
	: what(messageWhat),
	  fNext(NULL),
	  fHandlerToken(0),
	  fRunnerToken(0)
{
}


BMessage::BMessage(const BMessage& other)
	: what(other.what),
	  fFields(other.fFields),
	  fNext(NULL),
	  fHandlerToken(0),
	  fRunnerToken(0)
{
}


BMessage::~BMessage() = default;


BMessage&
BMessage::operator=(const BMessage& other)
{
	if (this != &other) {
		what = other.what;
		fFields = other.fFields;
	}
	return *this;
}


/*!	Describes the field at \a index among those of a type, or of any with \c B_ANY_TYPE. The name
	belongs to the message.
	\return \c B_BAD_INDEX behind the last one, \c B_NAME_NOT_FOUND when there is none at all.
*/
status_t
BMessage::GetInfo(type_code typeRequested, int32 index, char** _name, type_code* _type,
	int32* _count) const
{
	return fFields.GetInfo(typeRequested, index, _name, _type, _count);
}


status_t
BMessage::GetInfo(const char* name, type_code* _type, int32* _count) const
{
	return fFields.GetInfo(name, _type, _count);
}


int32
BMessage::CountNames(type_code type) const
{
	return fFields.CountNames(type);
}


/*!	An empty string is a value, NULL is none: \c B_BAD_VALUE. */
status_t
BMessage::AddString(const char* name, const char* string)
{
	if (string == NULL)
		return B_BAD_VALUE;

	return fFields.Add(name, B_STRING_TYPE, string, strlen(string) + 1, false);
}


status_t
BMessage::AddString(const char* name, const BString& string)
{
	return AddString(name, string.String());
}


status_t
BMessage::AddPointer(const char* name, const void* pointer)
{
	return fFields.Add(name, B_POINTER_TYPE, &pointer, sizeof(pointer), true);
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
	return fFields.Add(name, B_REF_TYPE, flat.data(), flat.size(), false);
}


/*!	Adds one value of any type.
	\param isFixedSize Of a field's first value: whether those that follow have to have its size.
	\param count A hint, which is not needed here.
	\return \c B_BAD_VALUE for a value of another size, too.
*/
status_t
BMessage::AddData(const char* name, type_code type, const void* data, ssize_t numBytes,
	bool isFixedSize, int32 /*count*/)
{
	if (data == NULL || numBytes <= 0 || type == B_ANY_TYPE)
		return B_BAD_VALUE;

	return fFields.Add(name, type, data, static_cast<size_t>(numBytes), isFixedSize);
}


/*!	\a _string receives a text that belongs to the message, NULL if there is none. */
status_t
BMessage::FindString(const char* name, int32 index, const char** _string) const
{
	const void* data = NULL;
	size_t size = 0;
	status_t status = fFields.Find(name, B_STRING_TYPE, index, &data, &size);
	// Who adds data as a string may leave the zero byte out.
	if (status == B_OK && static_cast<const char*>(data)[size - 1] != 0)
		status = B_BAD_DATA;
	*_string = status == B_OK ? static_cast<const char*>(data) : NULL;
	return status;
}


/*!	\a _pointer receives NULL if there is none. */
status_t
BMessage::FindPointer(const char* name, void** _pointer) const
{
	const void* data = NULL;
	status_t status = FindData(name, B_POINTER_TYPE, &data, NULL);
	*_pointer = status == B_OK ? *static_cast<void* const*>(data) : NULL;
	return status;
}


status_t
BMessage::FindRef(const char* name, entry_ref* _ref) const
{
	const void* data = NULL;
	size_t size = 0;
	*_ref = entry_ref();
	status_t status = fFields.Find(name, B_REF_TYPE, 0, &data, &size);
	if (status != B_OK)
		return status;

	const size_t kHeadSize = sizeof(_ref->device) + sizeof(_ref->directory);
	const char* bytes = static_cast<const char*>(data);
	if (size < kHeadSize + 2 || bytes[size - 1] != 0)
		return B_BAD_DATA;

	const char* directoryPath = bytes + kHeadSize;
	size_t pathLength = strlen(directoryPath);
	if (kHeadSize + pathLength + 1 >= size)
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


/*!	\a _data receives bytes that belong to the message, NULL if there are none; \c B_ANY_TYPE finds
	every type.
*/
status_t
BMessage::FindData(const char* name, type_code type, const void** _data, ssize_t* _numBytes) const
{
	const void* data = NULL;
	size_t size = 0;
	status_t status = fFields.Find(name, type, 0, &data, &size);
	*_data = data;
	if (_numBytes != NULL)
		*_numBytes = static_cast<ssize_t>(size);
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
	return _GetFixed(name, B_POINTER_TYPE, 0, defaultValue);
}


bool
BMessage::HasData(const char* name, type_code type, int32 index) const
{
	const void* data = NULL;
	size_t size = 0;
	return fFields.Find(name, type, index, &data, &size) == B_OK;
}


// #pragma mark - values of a fixed size


/*!	What is there under that name and type with another size is not looked at. */
template<typename Type>
Type
BMessage::_GetFixed(const char* name, type_code type, int32 index, Type defaultValue) const
{
	const void* data = NULL;
	size_t size = 0;
	if (fFields.Find(name, type, index, &data, &size) == B_OK && size == sizeof(Type))
		memcpy(&defaultValue, data, size);
	return defaultValue;
}


// clang-format off
// NOLINTBEGIN(bugprone-macro-parentheses): a type cannot stand in parentheses
#define DEFINE_ACCESS(Name, Type, typeCode) \
	status_t BMessage::Add##Name(const char* name, Type value) \
	{ \
		return fFields.Add(name, typeCode, &value, sizeof(value), true); \
	} \
	Type BMessage::Get##Name(const char* name, Type defaultValue) const \
	{ \
		return _GetFixed(name, typeCode, 0, defaultValue); \
	} \
	Type BMessage::Get##Name(const char* name, int32 index, Type defaultValue) const \
	{ \
		return _GetFixed(name, typeCode, index, defaultValue); \
	}
// NOLINTEND(bugprone-macro-parentheses)
// clang-format on

DEFINE_ACCESS(Bool, bool, B_BOOL_TYPE)
DEFINE_ACCESS(Int16, int16, B_INT16_TYPE)
DEFINE_ACCESS(UInt16, uint16, B_UINT16_TYPE)
DEFINE_ACCESS(Int32, int32, B_INT32_TYPE)
DEFINE_ACCESS(UInt32, uint32, B_UINT32_TYPE)
DEFINE_ACCESS(Int64, int64, B_INT64_TYPE)

#undef DEFINE_ACCESS
