/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <String.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#ifdef PALIMBRA_STRICT
#	include <cstdlib>
#	include <functional>
#endif


static const char*
text_or_empty(const char* string)
{
	return string != NULL ? string : "";
}


static size_t
bounded_length(const char* string, int32 maxLength)
{
	return strnlen(string, static_cast<size_t>(std::max<int32>(maxLength, 0)));
}


/*!	Haiku reads them where they were before the string has grown. In strict builds that ends the
	program, in others it is as if they were a copy.
*/
static void
refuse_own_bytes(const std::string& text, const char* added, const char* method)
{
#ifdef PALIMBRA_STRICT
	const char* const begin = text.c_str();
	const std::less_equal<const char*> notBehind;
	if (notBehind(begin, added) && notBehind(added, begin + text.size())) {
		fprintf(stderr, "%s: a string is added to itself\n", method);
		abort();
	}
#else
	static_cast<void>(text);
	static_cast<void>(added);
	static_cast<void>(method);
#endif
}


static bool
is_space(char c)
{
	return c == ' ' || (c >= '\t' && c <= '\r');
}


BString::BString(const char* string)
	: fText(text_or_empty(string))
{
}


BString&
BString::operator=(const char* string)
{
	fText.assign(text_or_empty(string));
	return *this;
}


/*!	Takes at most that many bytes, with a negative limit all, and none behind the first zero byte.
*/
BString&
BString::SetTo(const char* string, int32 maxLength)
{
	if (maxLength < 0)
		maxLength = INT32_MAX;
	fText.assign(text_or_empty(string), bounded_length(text_or_empty(string), maxLength));
	return *this;
}


/*!	The string may be among its own arguments. */
BString&
BString::SetToFormat(const char* format, ...)
{
	va_list arguments;
	va_start(arguments, format);
	const int length = vsnprintf(NULL, 0, format, arguments);
	va_end(arguments);
	if (length < 0)
		return *this;

	std::string text(static_cast<size_t>(length), 0);
	va_start(arguments, format);
	vsnprintf(text.data(), text.size() + 1, format, arguments);
	va_end(arguments);

	fText = std::move(text);
	return *this;
}


BString&
BString::Append(const char* string, int32 length)
{
	refuse_own_bytes(fText, string, "BString::Append()");
	fText.append(string, bounded_length(string, length));
	return *this;
}


/*!	Cuts at that many bytes; a string that is shorter stays as it is. */
BString&
BString::Truncate(int32 newLength, bool /*lazy*/)
{
	newLength = std::max<int32>(newLength, 0);
	if (newLength < Length())
		fText.resize(static_cast<size_t>(newLength));
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


bool
BString::operator==(const char* string) const
{
	return strcmp(String(), text_or_empty(string)) == 0;
}


/*!	The byte offset of the last such byte, or \c B_ERROR. */
int32
BString::FindLast(char c) const
{
	const size_t position = fText.rfind(c);
	return position == std::string::npos ? B_ERROR : static_cast<int32>(position);
}


bool
BString::EndsWith(const char* string) const
{
	const size_t length = strlen(string);
	return fText.size() >= length && fText.compare(fText.size() - length, length, string) == 0;
}


/*!	Gives access to the bytes, with room for \a maxLength of them and a zero byte, until
	UnlockBuffer().
*/
char*
BString::LockBuffer(int32 maxLength)
{
	if (maxLength > Length())
		fText.resize(static_cast<size_t>(maxLength));
	return fText.data();
}


/*!	Ends LockBuffer(). The string then has \a length bytes; with 0 or less, those before the first
	zero byte.
*/
BString&
BString::UnlockBuffer(int32 length)
{
	fText.resize(length <= 0 ? strlen(fText.c_str()) : static_cast<size_t>(length));
	return *this;
}


BString&
BString::operator<<(const char* string)
{
	refuse_own_bytes(fText, string, "BString::operator<<()");
	fText.append(text_or_empty(string));
	return *this;
}


BString&
BString::operator<<(const BString& string)
{
	refuse_own_bytes(fText, string.String(), "BString::operator<<()");
	fText.append(string.fText);
	return *this;
}


BString&
BString::operator<<(char c)
{
	fText.push_back(c);
	return *this;
}


BString&
BString::operator<<(int value)
{
	fText.append(std::to_string(value));
	return *this;
}
