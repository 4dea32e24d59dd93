/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef PALIMBRA_STRING_H
#define PALIMBRA_STRING_H


#include <string>

#include <SupportDefs.h>


/*!	A string of bytes, by convention UTF-8, ended by a zero byte.
	Lengths and offsets count bytes. A NULL text is taken as the empty string. An object belongs to one thread; different
	objects are independent, copies too.
*/
class BString {
public:
	BString() = default;
	BString(const char* string);
	BString(const BString& string) = default;
	BString(BString&& string) noexcept = default;
	BString(const char* string, int32 maxLength);
	~BString() = default;

	const char* String() const { return fText.c_str(); }
	int32 Length() const { return int32(fText.size()); }
	int32 CountChars() const;
	bool IsEmpty() const { return fText.empty(); }
	char ByteAt(int32 index) const;

	BString& operator=(const BString& string) = default;
	BString& operator=(BString&& string) noexcept = default;
	BString& operator=(const char* string);
	BString& operator=(char c);

	BString& SetTo(const char* string);
	BString& SetTo(const char* string, int32 maxLength);
	BString& SetTo(const BString& string);
	BString& SetTo(const BString& string, int32 maxLength);
	BString& SetTo(char c, int32 count);
	BString& SetToFormat(const char* format, ...) __attribute__((__format__(__printf__, 2, 3)));

	BString& CopyInto(BString& into, int32 fromOffset, int32 length) const;
	void CopyInto(char* into, int32 fromOffset, int32 length) const;

	BString& operator+=(const BString& string);
	BString& operator+=(const char* string);
	BString& operator+=(char c);

	BString& Append(const BString& string);
	BString& Append(const BString& string, int32 length);
	BString& Append(const char* string);
	BString& Append(const char* string, int32 length);
	BString& Append(char c, int32 count);

	BString& Prepend(const BString& string);
	BString& Prepend(const char* string);
	BString& Insert(const char* string, int32 position);
	BString& Insert(const BString& string, int32 position);

	BString& Truncate(int32 newLength, bool lazy = true);
	BString& Remove(int32 from, int32 length);
	BString& RemoveAll(const char* string);

	bool operator<(const BString& string) const { return fText < string.fText; }
	bool operator==(const BString& string) const { return fText == string.fText; }
	bool operator!=(const BString& string) const { return fText != string.fText; }
	bool operator<(const char* string) const { return Compare(string) < 0; }
	bool operator==(const char* string) const { return Compare(string) == 0; }
	bool operator!=(const char* string) const { return Compare(string) != 0; }

	int Compare(const BString& string) const;
	int Compare(const char* string) const;
	int Compare(const char* string, int32 length) const;
	int ICompare(const BString& string) const;
	int ICompare(const char* string) const;

	int32 FindFirst(const BString& string) const;
	int32 FindFirst(const char* string) const;
	int32 FindFirst(const BString& string, int32 fromOffset) const;
	int32 FindFirst(const char* string, int32 fromOffset) const;
	int32 FindFirst(char c) const;
	int32 FindFirst(char c, int32 fromOffset) const;
	int32 FindLast(const BString& string) const;
	int32 FindLast(const char* string) const;
	int32 FindLast(char c) const;
	int32 FindLast(char c, int32 beforeOffset) const;
	int32 IFindFirst(const char* string) const;
	bool StartsWith(const BString& string) const;
	bool StartsWith(const char* string) const;
	bool EndsWith(const BString& string) const;
	bool EndsWith(const char* string) const;

	BString& ReplaceAll(char replaceThis, char withThis, int32 fromOffset = 0);
	BString& ReplaceAll(const char* replaceThis, const char* withThis, int32 fromOffset = 0);
	BString& ReplaceFirst(const char* replaceThis, const char* withThis);

	char operator[](int32 index) const { return fText[size_t(index)]; }
	void SetByteAt(int32 position, char to);

	char* LockBuffer(int32 maxLength);
	BString& UnlockBuffer(int32 length = -1);

	BString& ToLower();
	BString& ToUpper();
	BString& Trim();

	BString& operator<<(const char* string);
	BString& operator<<(const BString& string);
	BString& operator<<(char c);
	BString& operator<<(bool value);
	BString& operator<<(int value);
	BString& operator<<(unsigned int value);
	BString& operator<<(unsigned long value);
	BString& operator<<(long value);
	BString& operator<<(unsigned long long value);
	BString& operator<<(long long value);
	BString& operator<<(float value);
	BString& operator<<(double value);

private:
	std::string fText;
};


bool operator<(const char* a, const BString& b);
bool operator==(const char* a, const BString& b);
bool operator!=(const char* a, const BString& b);


#endif // PALIMBRA_STRING_H
