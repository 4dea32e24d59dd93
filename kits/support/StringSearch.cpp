/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <String.h>

#include <algorithm>
#include <cstring>
#include <strings.h>


namespace {


const char*
text_or_empty(const char* string)
{
	return string != NULL ? string : "";
}


int
sign_of(int value)
{
	if (value == 0)
		return 0;

	return value < 0 ? -1 : 1;
}


int32
to_index(size_t position)
{
	return position == std::string::npos ? B_ERROR : int32(position);
}


} // namespace


int
BString::Compare(const BString& string) const
{
	return sign_of(fText.compare(string.fText));
}


int
BString::Compare(const char* string) const
{
	return sign_of(strcmp(String(), text_or_empty(string)));
}


int
BString::Compare(const char* string, int32 length) const
{
	return sign_of(strncmp(String(), text_or_empty(string), size_t(std::max<int32>(length, 0))));
}


int
BString::ICompare(const BString& string) const
{
	return ICompare(string.String());
}


int
BString::ICompare(const char* string) const
{
	return sign_of(strcasecmp(String(), text_or_empty(string)));
}


int32
BString::FindFirst(const BString& string) const
{
	return to_index(fText.find(string.fText));
}


/*!	The byte offset at which the text begins first, or \c B_ERROR; \c B_BAD_VALUE for NULL. */
int32
BString::FindFirst(const char* string) const
{
	return FindFirst(string, 0);
}


int32
BString::FindFirst(const BString& string, int32 fromOffset) const
{
	return FindFirst(string.String(), fromOffset);
}


int32
BString::FindFirst(const char* string, int32 fromOffset) const
{
	if (string == NULL)
		return B_BAD_VALUE;

	return fromOffset < 0 ? B_ERROR : to_index(fText.find(string, size_t(fromOffset)));
}


int32
BString::FindFirst(char c) const
{
	return to_index(fText.find(c));
}


int32
BString::FindFirst(char c, int32 fromOffset) const
{
	return fromOffset < 0 ? B_ERROR : to_index(fText.find(c, size_t(fromOffset)));
}


int32
BString::FindLast(const BString& string) const
{
	return to_index(fText.rfind(string.fText));
}


int32
BString::FindLast(const char* string) const
{
	return string == NULL ? B_BAD_VALUE : to_index(fText.rfind(string));
}


int32
BString::FindLast(char c) const
{
	return to_index(fText.rfind(c));
}


int32
BString::FindLast(char c, int32 beforeOffset) const
{
	return beforeOffset < 0 ? B_ERROR : to_index(fText.rfind(c, size_t(beforeOffset)));
}


int32
BString::IFindFirst(const char* string) const
{
	if (string == NULL)
		return B_BAD_VALUE;

	const char* found = strcasestr(String(), string);
	return found != NULL ? int32(found - String()) : B_ERROR;
}


bool
BString::StartsWith(const BString& string) const
{
	return fText.compare(0, string.fText.size(), string.fText) == 0;
}


bool
BString::StartsWith(const char* string) const
{
	return string != NULL && fText.compare(0, strlen(string), string) == 0;
}


bool
BString::EndsWith(const BString& string) const
{
	size_t length = string.fText.size();
	return fText.size() >= length
		&& fText.compare(fText.size() - length, length, string.fText) == 0;
}


bool
BString::EndsWith(const char* string) const
{
	return string != NULL && EndsWith(BString(string));
}


BString&
BString::ReplaceAll(char replaceThis, char withThis, int32 fromOffset)
{
	if (fromOffset >= 0 && fromOffset < Length())
		std::replace(fText.begin() + fromOffset, fText.end(), replaceThis, withThis);
	return *this;
}


BString&
BString::ReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset)
{
	if (replaceThis == NULL || withThis == NULL || replaceThis[0] == 0)
		return *this;
	if (fromOffset < 0 || fromOffset >= Length())
		return *this;

	size_t length = strlen(replaceThis);
	size_t position = size_t(fromOffset);
	std::string result = fText.substr(0, position);
	size_t found = fText.find(replaceThis, position);
	while (found != std::string::npos) {
		result.append(fText, position, found - position);
		result.append(withThis);
		position = found + length;
		found = fText.find(replaceThis, position);
	}
	result.append(fText, position, std::string::npos);

	fText = std::move(result);
	return *this;
}


BString&
BString::ReplaceFirst(const char* replaceThis, const char* withThis)
{
	if (replaceThis == NULL || withThis == NULL || replaceThis[0] == 0)
		return *this;

	size_t found = fText.find(replaceThis);
	if (found != std::string::npos)
		fText.replace(found, strlen(replaceThis), withThis);
	return *this;
}


// #pragma mark - comparison with the text on the left


bool
operator<(const char* a, const BString& b)
{
	return b.Compare(a) > 0;
}


bool
operator==(const char* a, const BString& b)
{
	return b == a;
}


bool
operator!=(const char* a, const BString& b)
{
	return b != a;
}
