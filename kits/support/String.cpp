/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <String.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>


namespace {


const char*
text_or_empty(const char* string)
{
	return string != NULL ? string : "";
}


size_t
bounded_length(const char* string, int32 maxLength)
{
	if (string == NULL || maxLength <= 0)
		return 0;

	return strnlen(string, size_t(maxLength));
}


// The kit speaks of the C locale's letters only, whatever the program's locale is.
char
to_lower(char c)
{
	return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}


char
to_upper(char c)
{
	return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}


bool
is_space(char c)
{
	return c == ' ' || (c >= '\t' && c <= '\r');
}


} // namespace


BString::BString(const char* string)
	: fText(text_or_empty(string))
{
}


BString::BString(const char* string, int32 maxLength)
	: fText(text_or_empty(string), bounded_length(string, maxLength))
{
}


/*!	The number of characters, taking each byte that does not continue a UTF-8 sequence for the start of one. */
int32
BString::CountChars() const
{
	return int32(std::count_if(fText.begin(), fText.end(), [](char c) {
		return (uint8(c) & 0xc0) != 0x80;
	}));
}


/*!	The byte at that index, 0 outside of the string. */
char
BString::ByteAt(int32 index) const
{
	return index < 0 || index >= Length() ? 0 : fText[size_t(index)];
}


BString&
BString::operator=(const char* string)
{
	return SetTo(string);
}


BString&
BString::operator=(char c)
{
	return SetTo(c, 1);
}


BString&
BString::SetTo(const char* string)
{
	fText.assign(text_or_empty(string));
	return *this;
}


BString&
BString::SetTo(const char* string, int32 maxLength)
{
	fText.assign(text_or_empty(string), bounded_length(string, maxLength));
	return *this;
}


BString&
BString::SetTo(const BString& string)
{
	fText = string.fText;
	return *this;
}


BString&
BString::SetTo(const BString& string, int32 maxLength)
{
	return SetTo(string.String(), maxLength);
}


BString&
BString::SetTo(char c, int32 count)
{
	fText.assign(size_t(std::max<int32>(count, 0)), c);
	return *this;
}


/*!	The string may be among its own arguments. */
BString&
BString::SetToFormat(const char* format, ...)
{
	va_list arguments;
	va_start(arguments, format);
	int length = vsnprintf(NULL, 0, format, arguments);
	va_end(arguments);
	if (length < 0)
		return *this;

	std::string text(size_t(length), 0);
	va_start(arguments, format);
	vsnprintf(text.data(), text.size() + 1, format, arguments);
	va_end(arguments);

	fText = std::move(text);
	return *this;
}


BString&
BString::CopyInto(BString& into, int32 fromOffset, int32 length) const
{
	if (fromOffset < 0 || fromOffset > Length() || length < 0)
		into.fText.clear();
	else
		into.fText = fText.substr(size_t(fromOffset), size_t(length));
	return into;
}


/*!	Copies at most \a length bytes, without a zero byte behind them. */
void
BString::CopyInto(char* into, int32 fromOffset, int32 length) const
{
	if (into != NULL && fromOffset >= 0 && fromOffset <= Length() && length > 0)
		fText.copy(into, size_t(length), size_t(fromOffset));
}


BString&
BString::operator+=(const BString& string)
{
	return Append(string);
}


BString&
BString::operator+=(const char* string)
{
	return Append(string);
}


BString&
BString::operator+=(char c)
{
	fText.push_back(c);
	return *this;
}


BString&
BString::Append(const BString& string)
{
	fText.append(string.fText);
	return *this;
}


BString&
BString::Append(const BString& string, int32 length)
{
	fText.append(string.fText, 0, size_t(std::max<int32>(length, 0)));
	return *this;
}


BString&
BString::Append(const char* string)
{
	fText.append(text_or_empty(string));
	return *this;
}


BString&
BString::Append(const char* string, int32 length)
{
	fText.append(text_or_empty(string), bounded_length(string, length));
	return *this;
}


BString&
BString::Append(char c, int32 count)
{
	fText.append(size_t(std::max<int32>(count, 0)), c);
	return *this;
}


BString&
BString::Prepend(const BString& string)
{
	fText.insert(0, string.fText);
	return *this;
}


BString&
BString::Prepend(const char* string)
{
	fText.insert(0, text_or_empty(string));
	return *this;
}


BString&
BString::Insert(const char* string, int32 position)
{
	if (position >= 0 && position <= Length())
		fText.insert(size_t(position), text_or_empty(string));
	return *this;
}


BString&
BString::Insert(const BString& string, int32 position)
{
	if (position >= 0 && position <= Length())
		fText.insert(size_t(position), string.fText);
	return *this;
}


/*!	Cuts at that many bytes; a string that is shorter stays as it is. */
BString&
BString::Truncate(int32 newLength, bool /*lazy*/)
{
	newLength = std::max<int32>(newLength, 0);
	if (newLength < Length())
		fText.resize(size_t(newLength));
	return *this;
}


BString&
BString::Remove(int32 from, int32 length)
{
	if (from >= 0 && from < Length() && length > 0)
		fText.erase(size_t(from), size_t(length));
	return *this;
}


BString&
BString::RemoveAll(const char* string)
{
	return ReplaceAll(string, "");
}


void
BString::SetByteAt(int32 position, char to)
{
	if (position >= 0 && position < Length())
		fText[size_t(position)] = to;
}


/*!	Gives access to the bytes, with room for \a maxLength of them and a zero byte, until UnlockBuffer(). */
char*
BString::LockBuffer(int32 maxLength)
{
	if (maxLength > Length())
		fText.resize(size_t(maxLength));
	return fText.data();
}


/*!	Ends LockBuffer(). The string then has \a length bytes, or with -1 those before the first zero byte. */
BString&
BString::UnlockBuffer(int32 length)
{
	if (length < 0)
		length = int32(strlen(fText.c_str()));
	fText.resize(size_t(length));
	return *this;
}


BString&
BString::ToLower()
{
	std::transform(fText.begin(), fText.end(), fText.begin(), to_lower);
	return *this;
}


BString&
BString::ToUpper()
{
	std::transform(fText.begin(), fText.end(), fText.begin(), to_upper);
	return *this;
}


/*!	Takes white space away from both ends. */
BString&
BString::Trim()
{
	auto end = std::find_if_not(fText.rbegin(), fText.rend(), is_space).base();
	fText.erase(end, fText.end());
	fText.erase(fText.begin(), std::find_if_not(fText.begin(), fText.end(), is_space));
	return *this;
}


BString&
BString::operator<<(const char* string)
{
	return Append(string);
}


BString&
BString::operator<<(const BString& string)
{
	return Append(string);
}


BString&
BString::operator<<(char c)
{
	return *this += c;
}


BString&
BString::operator<<(bool value)
{
	return Append(value ? "true" : "false");
}


BString&
BString::operator<<(int value)
{
	return Append(std::to_string(value).c_str());
}


BString&
BString::operator<<(unsigned int value)
{
	return Append(std::to_string(value).c_str());
}


BString&
BString::operator<<(unsigned long value)
{
	return Append(std::to_string(value).c_str());
}


BString&
BString::operator<<(long value)
{
	return Append(std::to_string(value).c_str());
}


BString&
BString::operator<<(unsigned long long value)
{
	return Append(std::to_string(value).c_str());
}


BString&
BString::operator<<(long long value)
{
	return Append(std::to_string(value).c_str());
}


/*!	Numbers with a fraction are shown with two digits behind the point. */
BString&
BString::operator<<(float value)
{
	return *this << double(value);
}


BString&
BString::operator<<(double value)
{
	BString text;
	return Append(text.SetToFormat("%.2f", value));
}
