/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <String.h>

#include <gtest/gtest.h>


TEST(StringTest, New_IsEmpty)
{
	BString string;
	EXPECT_STREQ("", string.String());
	EXPECT_EQ(0, string.Length());
	EXPECT_TRUE(string.IsEmpty());
}


TEST(StringTest, NullText_IsTheEmptyString)
{
	const char* none = NULL;
	EXPECT_EQ(0, BString(none).Length());
	EXPECT_EQ(0, BString("abc").SetTo(none).Length());
	EXPECT_STREQ("abc", BString("abc").Append(none).String());
	EXPECT_TRUE(BString() == none);
}


TEST(StringTest, LengthLimit_CutsButNeverReadsPastTheEnd)
{
	EXPECT_STREQ("ab", BString("abcd", 2).String());
	EXPECT_STREQ("abcd", BString("abcd", 100).String());
	EXPECT_STREQ("", BString("abcd", -1).String());
	EXPECT_STREQ("xyab", BString("xy").Append("abcd", 2).String());
}


TEST(StringTest, Assignment_TakesAllKinds)
{
	BString string;
	string = "text";
	EXPECT_STREQ("text", string.String());
	string = 'c';
	EXPECT_STREQ("c", string.String());
	string.SetTo('x', 3);
	EXPECT_STREQ("xxx", string.String());
	BString other("other");
	string = other;
	other << " changed";
	EXPECT_STREQ("other", string.String());
}


TEST(StringTest, Stream_WritesNumbersAndTruth)
{
	BString string;
	string << "a" << 'b' << BString("c") << -1 << 2u << 3L << 4UL << -5LL << 6ULL << true << 1.5;
	EXPECT_STREQ("abc-1234-56true1.50", string.String());
}


TEST(StringTest, Format_MayContainTheStringItself)
{
	BString string("x");
	string.SetToFormat("%s-%d-%s", string.String(), 7, string.String());
	EXPECT_STREQ("x-7-x", string.String());
}


TEST(StringTest, Format_HasNoLimit)
{
	BString large;
	large.SetTo('a', 100000);
	BString string;
	string.SetToFormat("<%s>", large.String());
	EXPECT_EQ(100002, string.Length());
	EXPECT_EQ('>', string.ByteAt(100001));
}


TEST(StringTest, Trim_TakesWhiteSpaceFromBothEndsOnly)
{
	EXPECT_STREQ("a b", BString(" \t\r\na b\v\f ").Trim().String());
	EXPECT_STREQ("", BString("  \n ").Trim().String());
	EXPECT_STREQ("", BString().Trim().String());
}


TEST(StringTest, Find_AnswersByteOffsets)
{
	BString string("one two one");
	EXPECT_EQ(0, string.FindFirst("one"));
	EXPECT_EQ(8, string.FindFirst("one", 1));
	EXPECT_EQ(8, string.FindLast("one"));
	EXPECT_EQ(4, string.FindFirst('t'));
	EXPECT_EQ(8, string.FindLast('o'));
	EXPECT_EQ(4, string.IFindFirst("TWO"));
	EXPECT_EQ(B_ERROR, string.FindFirst("three"));
	EXPECT_EQ(B_ERROR, string.FindFirst('x'));
	EXPECT_EQ(B_ERROR, string.FindFirst("one", 100));
	EXPECT_EQ(B_ERROR, string.FindFirst("one", -1));
}


TEST(StringTest, StartsAndEnds_CompareWhole)
{
	BString string("name.sit");
	EXPECT_TRUE(string.StartsWith("name"));
	EXPECT_TRUE(string.EndsWith(".sit"));
	EXPECT_TRUE(string.EndsWith(""));
	EXPECT_FALSE(string.EndsWith("a very long name.sit"));
	EXPECT_FALSE(string.StartsWith("name.sit.more"));
}


TEST(StringTest, Compare_OrdersBytes)
{
	BString string("b");
	EXPECT_LT(string.Compare("c"), 0);
	EXPECT_GT(string.Compare("a"), 0);
	EXPECT_EQ(0, string.ICompare("B"));
	EXPECT_TRUE(string == "b" && "b" == string && string != "c" && string < "c" && "a" < string);
	EXPECT_LT(BString("z").Compare("\xc3\xa4"), 0);
}


TEST(StringTest, ReplaceAll_DoesNotMeetItsOwnResult)
{
	EXPECT_STREQ("aaaa", BString("aa").ReplaceAll("a", "aa").String());
	EXPECT_STREQ("x_y_z", BString("x y z").ReplaceAll(' ', '_').String());
	EXPECT_STREQ("a\nb", BString("a\rb").ReplaceAll('\r', '\n').String());
	EXPECT_STREQ("a.b%c", BString("a.b.c").ReplaceAll(".", "%", 3).String());
	EXPECT_STREQ("same", BString("same").ReplaceAll("", "x").String());
	EXPECT_STREQ("ac", BString("abc").RemoveAll("b").String());
}


TEST(StringTest, Truncate_NeverLengthens)
{
	EXPECT_STREQ("ab", BString("abcd").Truncate(2).String());
	EXPECT_STREQ("abcd", BString("abcd").Truncate(9).String());
	EXPECT_STREQ("", BString("abcd").Truncate(-1).String());
}


TEST(StringTest, InsertAndRemove_OutsideOfTheString_ChangeNothing)
{
	EXPECT_STREQ("a-bc", BString("abc").Insert("-", 1).String());
	EXPECT_STREQ("abc-", BString("abc").Insert("-", 3).String());
	EXPECT_STREQ("abc", BString("abc").Insert("-", 4).String());
	EXPECT_STREQ("ac", BString("abc").Remove(1, 1).String());
	EXPECT_STREQ("a", BString("abc").Remove(1, 100).String());
	EXPECT_STREQ("abc", BString("abc").Remove(5, 1).String());
	EXPECT_STREQ("-abc", BString("abc").Prepend("-").String());
}


TEST(StringTest, ByteAt_OutsideOfTheString_IsZero)
{
	BString string("ab");
	EXPECT_EQ('b', string.ByteAt(1));
	EXPECT_EQ('b', string[1]);
	EXPECT_EQ(0, string.ByteAt(2));
	EXPECT_EQ(0, string.ByteAt(-1));
}


TEST(StringTest, CopyInto_TakesAPart)
{
	BString part;
	BString("abcdef").CopyInto(part, 2, 3);
	EXPECT_STREQ("cde", part.String());
	BString("abc").CopyInto(part, 2, 100);
	EXPECT_STREQ("c", part.String());

	char bytes[4] = "---";
	BString("abcdef").CopyInto(bytes, 1, 2);
	EXPECT_STREQ("bc-", bytes);
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


TEST(StringTest, CountChars_CountsCharactersNotBytes)
{
	BString string("a\xc3\xa4\xe2\x82\xac");
	EXPECT_EQ(6, string.Length());
	EXPECT_EQ(3, string.CountChars());
}


TEST(StringTest, InvalidBytes_AreKept)
{
	const char bytes[] = "\xff\xfe\x80\x01";
	EXPECT_STREQ(bytes, BString(bytes).String());
	EXPECT_STREQ("\xc4"
				 "a",
		BString("\xc4"
				"A")
			.ToLower()
			.String());
}
