/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>
#include <Message.h>
#include <Path.h>
#include <String.h>

#include <gtest/gtest.h>


TEST(MessageTest, New_HasACodeAndNothingElse)
{
	BMessage message('test');
	EXPECT_EQ(uint32('test'), message.what);
	EXPECT_TRUE(message.IsEmpty());
	EXPECT_EQ(0, message.CountNames(B_ANY_TYPE));
	EXPECT_EQ(0u, BMessage().what);
}


TEST(MessageTest, EveryType_ComesBackAsItWent)
{
	BMessage message;
	EXPECT_EQ(B_OK, message.AddBool("bool", true));
	EXPECT_EQ(B_OK, message.AddInt16("int16", -16));
	EXPECT_EQ(B_OK, message.AddUInt16("uint16", 0xffff));
	EXPECT_EQ(B_OK, message.AddInt32("int32", INT32_MIN));
	EXPECT_EQ(B_OK, message.AddUInt32("uint32", UINT32_MAX));
	EXPECT_EQ(B_OK, message.AddInt64("int64", INT64_MIN));
	EXPECT_EQ(B_OK, message.AddString("string", "text"));
	EXPECT_EQ(B_OK, message.AddPointer("pointer", &message));

	EXPECT_TRUE(message.GetBool("bool"));
	EXPECT_EQ(-16, message.GetInt16("int16", 0));
	EXPECT_EQ(0xffff, message.GetUInt16("uint16", 0));
	EXPECT_EQ(INT32_MIN, message.GetInt32("int32", 0));
	EXPECT_EQ(UINT32_MAX, message.GetUInt32("uint32", 0));
	EXPECT_EQ(INT64_MIN, message.GetInt64("int64", 0));
	EXPECT_STREQ("text", message.GetString("string"));
	EXPECT_EQ(&message, message.GetPointer("pointer"));
	EXPECT_EQ(8, message.CountNames(B_ANY_TYPE));
}


TEST(MessageTest, AbsentField_GivesTheDefault)
{
	BMessage message;
	EXPECT_FALSE(message.GetBool("none"));
	EXPECT_TRUE(message.GetBool("none", true));
	EXPECT_EQ(5500, message.GetUInt16("none", 5500));
	EXPECT_EQ(NULL, message.GetString("none"));
	EXPECT_STREQ("???", message.GetString("none", "???"));
	EXPECT_EQ(NULL, message.GetPointer("none"));
}


TEST(MessageTest, WrongType_IsNotFound)
{
	BMessage message;
	message.AddInt16("port", 5500);
	EXPECT_EQ(7, message.GetUInt16("port", 7));
	EXPECT_EQ(9, message.GetInt32("port", 9));
	EXPECT_STREQ("default", message.GetString("port", "default"));
	EXPECT_FALSE(message.HasData("port", B_UINT16_TYPE));
	EXPECT_TRUE(message.HasData("port", B_INT16_TYPE));
}


TEST(MessageTest, SecondTypeUnderOneName_IsRefused)
{
	BMessage message;
	message.AddString("name", "text");
	EXPECT_EQ(B_BAD_TYPE, message.AddInt32("name", 1));
	EXPECT_STREQ("text", message.GetString("name"));
}


TEST(MessageTest, SeveralValues_KeepTheirOrder)
{
	BMessage message;
	for (int32 i = 0; i < 1000; i++) {
		BString name;
		name << "file " << i;
		message.AddString("name", name);
		message.AddInt32("size", i * 10);
	}

	type_code type = 0;
	int32 count = 0;
	EXPECT_EQ(B_OK, message.GetInfo("size", &type, &count));
	EXPECT_EQ(type_code(B_INT32_TYPE), type);
	EXPECT_EQ(1000, count);
	EXPECT_STREQ("file 999", message.GetString("name", 999, ""));
	EXPECT_STREQ("file 0", message.GetString("name", 0, ""));
	for (int32 i = 0; i < 1000; i++)
		ASSERT_EQ(i * 10, message.GetInt32("size", i, -1));
	EXPECT_EQ(5000, message.GetInt32("size", 500, -1));
}


TEST(MessageTest, IndexOutside_IsNotFound)
{
	BMessage message;
	message.AddInt32("value", 1);
	EXPECT_EQ(7, message.GetInt32("value", 1, 7));
	EXPECT_EQ(7, message.GetInt32("value", -1, 7));
	EXPECT_FALSE(message.HasData("value", B_INT32_TYPE, 1));
}


TEST(MessageTest, ValuesAddedAfterALook_AreFound)
{
	BMessage message;
	message.AddInt32("value", 0);
	EXPECT_EQ(0, message.GetInt32("value", 0, -1));
	message.AddString("other", "between");
	message.AddInt32("value", 1);
	EXPECT_EQ(1, message.GetInt32("value", 1, -1));
	EXPECT_EQ(0, message.GetInt32("value", 0, -1));
}


TEST(MessageTest, Fields_AreFoundInEveryOrder)
{
	const char* const names[] = {"socket", "nick", "icon", "text"};
	BMessage message;
	for (int32 i = 0; i < 4; i++)
		message.AddInt32(names[i], i);

	for (int32 first = 0; first < 4; first++) {
		for (int32 second = 0; second < 4; second++) {
			SCOPED_TRACE(names[first]);
			SCOPED_TRACE(names[second]);
			EXPECT_EQ(first, message.GetInt32(names[first], -1));
			EXPECT_EQ(second, message.GetInt32(names[second], -1));
			EXPECT_FALSE(message.HasData("absent", B_INT32_TYPE));
		}
	}
}


TEST(MessageTest, FieldAddedAfterALook_IsFoundWithAllOthers)
{
	BMessage message;
	message.AddInt32("first", 1);
	message.AddInt32("second", 2);
	message.AddInt32("third", 3);
	EXPECT_EQ(2, message.GetInt32("second", -1));
	message.AddInt32("fourth", 4);

	EXPECT_EQ(4, message.CountNames(B_INT32_TYPE));
	EXPECT_EQ(1, message.GetInt32("first", -1));
	EXPECT_EQ(3, message.GetInt32("third", -1));
	EXPECT_EQ(4, message.GetInt32("fourth", -1));
}


TEST(MessageTest, Copy_IsIndependentAndComplete)
{
	BMessage message('orig');
	message.AddString("text", "before");
	BMessage copy(message);
	message.AddString("text", "after");
	message.what = 'next';

	EXPECT_EQ(uint32('orig'), copy.what);
	EXPECT_EQ(NULL, copy.GetString("text", 1, NULL));
	EXPECT_STREQ("before", copy.GetString("text"));

	copy = message;
	EXPECT_EQ(uint32('next'), copy.what);
	EXPECT_STREQ("after", copy.GetString("text", 1, ""));
}


TEST(MessageTest, Copy_OfEverySize_HasItsBytes)
{
	for (int32 size : {0, 1, 100, 200, 250, 300, 65535, 1000000}) {
		SCOPED_TRACE(size);
		BMessage message;
		message.AddString("text", std::string(static_cast<size_t>(size), 'x').c_str());
		message.AddUInt16("last", 7);

		BMessage copy(message);
		message = BMessage('none');
		EXPECT_EQ(size, BString(copy.GetString("text")).Length());
		EXPECT_EQ(7, copy.GetUInt16("last", 0));

		BMessage assigned;
		assigned.AddString("old", "gone");
		assigned = copy;
		EXPECT_EQ(size, BString(assigned.GetString("text")).Length());
		EXPECT_EQ(NULL, assigned.GetString("old"));
	}
}


TEST(MessageTest, OwnValue_MayBeAddedAgain)
{
	BMessage message;
	message.AddString("text", "some text that is long enough to make the block grow soon");
	for (int i = 0; i < 100; i++)
		message.AddString("copy", message.GetString("text"));
	EXPECT_STREQ(message.GetString("text"), message.GetString("copy", 99, ""));
}


TEST(MessageTest, Data_KeepsEveryByte)
{
	const uint8 bytes[5] = {0, 1, 0xff, 0, 7};
	BMessage message;
	EXPECT_EQ(B_OK, message.AddData("data", B_RAW_TYPE, bytes, 5));
	const void* data = NULL;
	ssize_t size = 0;
	ASSERT_EQ(B_OK, message.FindData("data", B_RAW_TYPE, &data, &size));
	ASSERT_EQ(5, size);
	EXPECT_EQ(0, memcmp(bytes, data, 5));
	EXPECT_EQ(B_OK, message.FindData("data", B_ANY_TYPE, &data, &size));
}


TEST(MessageTest, DataNotFound_IsNull)
{
	BMessage message;
	const void* data = &message;
	ssize_t size = 5;
	EXPECT_EQ(B_NAME_NOT_FOUND, message.FindData("data", B_RAW_TYPE, &data, &size));
	EXPECT_EQ(NULL, data);
	EXPECT_EQ(0, size);
	const char* string = "x";
	EXPECT_EQ(B_NAME_NOT_FOUND, message.FindString("text", 0, &string));
	EXPECT_EQ(NULL, string);
}


TEST(MessageTest, NothingToAdd_IsRefused)
{
	BMessage message;
	EXPECT_EQ(B_BAD_VALUE, message.AddData("data", B_RAW_TYPE, NULL, 5));
	EXPECT_EQ(B_BAD_VALUE, message.AddData("data", B_RAW_TYPE, &message, 0));
	EXPECT_EQ(B_BAD_VALUE, message.AddString("text", static_cast<const char*>(NULL)));
	EXPECT_EQ(B_BAD_VALUE, message.AddInt32(NULL, 1));
	EXPECT_EQ(B_BAD_VALUE, message.AddInt32(std::string(256, 'n').c_str(), 1));
	EXPECT_TRUE(message.IsEmpty());
}


TEST(MessageTest, EmptyString_IsAValue)
{
	BMessage message;
	message.AddString("login", "");
	const char* login = NULL;
	EXPECT_EQ(B_OK, message.FindString("login", 0, &login));
	EXPECT_STREQ("", login);
	EXPECT_STREQ("", message.GetString("login", "default"));
}


TEST(MessageTest, DataWithoutZeroByte_IsNoString)
{
	BMessage message;
	message.AddData("text", B_STRING_TYPE, "abc", 3);
	const char* string = NULL;
	EXPECT_EQ(B_BAD_DATA, message.FindString("text", 0, &string));
	EXPECT_EQ(NULL, string);
}


TEST(MessageTest, GetInfo_WalksThroughTheFields)
{
	BMessage message;
	message.AddInt32("one", 1);
	message.AddString("two", "2");
	message.AddInt32("three", 3);
	message.AddInt32("three", 3);

	char* name = NULL;
	type_code type = 0;
	int32 count = 0;
	ASSERT_EQ(B_OK, message.GetInfo(B_ANY_TYPE, 1, &name, &type, &count));
	EXPECT_STREQ("two", name);
	EXPECT_EQ(type_code(B_STRING_TYPE), type);
	ASSERT_EQ(B_OK, message.GetInfo(B_INT32_TYPE, 1, &name, &type, &count));
	EXPECT_STREQ("three", name);
	EXPECT_EQ(2, count);
	EXPECT_EQ(B_BAD_INDEX, message.GetInfo(B_ANY_TYPE, 3, &name, &type));
	EXPECT_EQ(B_NAME_NOT_FOUND, message.GetInfo(B_BOOL_TYPE, 0, &name, &type));
	EXPECT_EQ(2, message.CountNames(B_INT32_TYPE));
}


TEST(MessageTest, Reference_ComesBackWhole)
{
	entry_ref ref;
	ASSERT_EQ(B_OK, get_ref_for_path("/proc/self", &ref));
	BMessage message;
	EXPECT_EQ(B_OK, message.AddRef("refs", &ref));
	BMessage copy(message);

	entry_ref found;
	EXPECT_EQ(B_OK, copy.FindRef("refs", &found));
	EXPECT_EQ(ref.device, found.device);
	EXPECT_EQ(ref.directory, found.directory);
	EXPECT_STREQ("/proc/self", BPath(&found).Path());
	EXPECT_EQ(B_NAME_NOT_FOUND, copy.FindRef("none", &found));
}
