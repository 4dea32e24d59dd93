/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <String.h>

#include <cstring>

#include <gtest/gtest.h>


TEST(StringTest, NewAndNullText_AreTheEmptyString)
{
	BString string;
	EXPECT_STREQ("", string.String());
	EXPECT_EQ(0, string.Length());
	EXPECT_TRUE(string.IsEmpty());
	const char* none = NULL;
	EXPECT_EQ(0, BString(none).Length());
	EXPECT_EQ(0, BString("abc").SetTo(none, 3).Length());
	EXPECT_STREQ("abc", (BString("abc") << none).String());
	EXPECT_TRUE(string == none);
}


TEST(StringTest, LengthLimit_CutsButNeverReadsPastTheEnd)
{
	BString string("old");
	EXPECT_STREQ("ab", string.SetTo("abcd", 2).String());
	EXPECT_STREQ("abcd", string.SetTo("abcd", 100).String());
	EXPECT_STREQ("abcd", string.SetTo("abcd", -1).String());
	EXPECT_STREQ("", string.SetTo("abcd", 0).String());
	EXPECT_STREQ("xyab", BString("xy").Append("abcd", 2).String());
}


TEST(StringTest, Assignment_IsIndependent)
{
	BString string;
	string = "text";
	EXPECT_STREQ("text", string.String());
	BString other("other");
	string = other;
	other << " changed";
	EXPECT_STREQ("other", string.String());
}


TEST(StringTest, Stream_WritesTextsAndNumbers)
{
	BString string;
	string << "a" << 'b' << BString("c") << -1 << 23;
	EXPECT_STREQ("abc-123", string.String());
}


TEST(StringTest, Format_MayContainTheStringItself_AndHasNoLimit)
{
	BString string("x");
	string.SetToFormat("%s-%d-%s", string.String(), 7, string.String());
	EXPECT_STREQ("x-7-x", string.String());
	const std::string large(100000, 'a');
	string.SetToFormat("<%s>", large.c_str());
	EXPECT_EQ("<" + large + ">", string.String());
}


TEST(StringTest, Trim_TakesWhiteSpaceFromBothEndsOnly)
{
	EXPECT_STREQ("a b", BString(" \t\r\na b\v\f ").Trim().String());
	EXPECT_STREQ("", BString("  \n ").Trim().String());
	EXPECT_STREQ("", BString().Trim().String());
}


TEST(StringTest, FindLastAndComparisons_SeeEveryByte)
{
	EXPECT_EQ(8, BString("one two one").FindLast('o'));
	EXPECT_EQ(B_ERROR, BString("one two one").FindLast('x'));

	const BString name("name.sit");
	EXPECT_TRUE(name.EndsWith(".sit"));
	EXPECT_TRUE(name.EndsWith(""));
	EXPECT_FALSE(name.EndsWith("a very long name.sit"));
	EXPECT_FALSE(name.EndsWith(".si"));

	const BString string("b");
	EXPECT_TRUE(string == "b");
	EXPECT_TRUE(string != "c");
	EXPECT_FALSE(string == "");
	EXPECT_FALSE(string != "b");
	const char bytes[] = "\xff\xfe\x80\x01";
	EXPECT_STREQ(bytes, BString(bytes).String());
}


TEST(StringTest, Truncate_NeverLengthens)
{
	EXPECT_STREQ("ab", BString("abcd").Truncate(2).String());
	EXPECT_STREQ("abcd", BString("abcd").Truncate(9).String());
	EXPECT_STREQ("", BString("abcd").Truncate(-1).String());
}


TEST(StringTest, LockBuffer_WritesInPlace)
{
	BString string("abc");
	char* buffer = string.LockBuffer(10);
	memcpy(buffer, "abcdefg", 8);
	EXPECT_STREQ("abcdefg", string.UnlockBuffer().String());
	EXPECT_EQ(7, string.Length());

	string.LockBuffer(20);
	EXPECT_STREQ("abc", string.UnlockBuffer(3).String());
}


TEST(StringTest, UnlockBufferWithZero_KeepsTheTextUpToItsEnd)
{
	for (const int32 length : {0, -1, -7}) {
		SCOPED_TRACE(length);
		BString string("abcdefg");
		memcpy(string.LockBuffer(10), "abcd", 5);
		string.UnlockBuffer(length);
		EXPECT_STREQ("abcd", string.String());
		EXPECT_EQ(4, string.Length());
	}
}


/*!	On Haiku it is an error that one may not notice. */
TEST(StringTest, AddedToItself_IsRefusedInStrictBuilds)
{
	BString string("ab");
#ifdef PALIMBRA_STRICT
	EXPECT_DEATH(string << string, "operator<<");
	EXPECT_DEATH(string << string.String() + 1, "operator<<");
	EXPECT_DEATH(string.Append(string.String(), 1), "Append");
#else
	EXPECT_STREQ("abab", (string << string).String());
	EXPECT_STREQ("ababbab", (string << string.String() + 1).String());
	EXPECT_STREQ("ababbabab", string.Append(string.String(), 2).String());
#endif
}
