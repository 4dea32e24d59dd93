/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PALIMBRA_STRING_H
#define PALIMBRA_STRING_H


#include <string>

#include <SupportDefs.h>


/*!	A string of bytes, by convention UTF-8, ended by a zero byte.
	Lengths and offsets count bytes. A NULL text is taken as the empty string. An object belongs to
	one thread; different objects are independent, copies too.
*/
class BString {
public:
	BString() = default;
	BString(const char* string);
	BString(const char* string, int32 maxLength) = delete;
	BString(const BString& string) = default;
	BString(BString&& string) noexcept = default;
	~BString() = default;

	const char* String() const { return fText.c_str(); }
	int32 Length() const { return static_cast<int32>(fText.size()); }
	bool IsEmpty() const { return fText.empty(); }

	BString& operator=(const BString& string) = default;
	BString& operator=(BString&& string) noexcept = default;
	BString& operator=(const char* string);
	BString& operator=(char c) = delete;
	BString& SetTo(const char* string) = delete;
	BString& SetTo(const BString& string) = delete;
	BString& SetTo(const char* string, int32 maxLength);
	BString& SetTo(const BString& string, int32 maxLength) = delete;
	BString& SetTo(char c, int32 count) = delete;
	BString& SetToFormat(const char* format, ...) __attribute__((__format__(__printf__, 2, 3)));

	BString& Append(const BString& string) = delete;
	BString& Append(const char* string) = delete;
	BString& Append(const BString& string, int32 length) = delete;
	BString& Append(const char* string, int32 length);
	BString& Append(char c, int32 count) = delete;
	BString& Truncate(int32 newLength, bool lazy = true);
	BString& Trim();

	bool operator==(const char* string) const;
	bool operator!=(const char* string) const { return !(*this == string); }

	int32 FindLast(const BString& string) const = delete;
	int32 FindLast(const char* string) const = delete;
	int32 FindLast(char c) const;
	int32 FindLast(const BString& string, int32 beforeOffset) const = delete;
	int32 FindLast(const char* string, int32 beforeOffset) const = delete;
	int32 FindLast(char c, int32 beforeOffset) const = delete;

	bool EndsWith(const BString& string) const = delete;
	bool EndsWith(const char* string) const;
	bool EndsWith(const char* string, int32 length) const = delete;

	char* LockBuffer(int32 maxLength);
	BString& UnlockBuffer(int32 length = -1);

	BString& operator<<(const char* string);
	BString& operator<<(const BString& string);
	BString& operator<<(char c);
	BString& operator<<(bool value) = delete;
	BString& operator<<(int value);
	BString& operator<<(unsigned int value) = delete;
	BString& operator<<(unsigned long value) = delete;
	BString& operator<<(long value) = delete;
	BString& operator<<(unsigned long long value) = delete;
	BString& operator<<(long long value) = delete;
	BString& operator<<(float value) = delete;
	BString& operator<<(double value) = delete;

private:
	std::string fText;
};


#endif // PALIMBRA_STRING_H
