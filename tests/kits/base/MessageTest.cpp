/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Entry.h>
#include <Message.h>
#include <Path.h>
#include <String.h>

#include <gtest/gtest.h>


class MessageTest : public testing::Test {
protected:
	BMessage fMessage;
};


TEST_F(MessageTest, EveryType_ComesBackAsItWent_FromWhatWasNew)
{
	EXPECT_EQ(B_OK, fMessage.AddBool("bool", true));
	EXPECT_EQ(B_OK, fMessage.AddInt16("int16", -16));
	EXPECT_EQ(B_OK, fMessage.AddUInt16("uint16", 0xffff));
	EXPECT_EQ(B_OK, fMessage.AddInt32("int32", INT32_MIN));
	EXPECT_EQ(B_OK, fMessage.AddUInt32("uint32", UINT32_MAX));
	EXPECT_EQ(B_OK, fMessage.AddInt64("int64", INT64_MIN));
	EXPECT_EQ(B_OK, fMessage.AddString("string", "text"));
	EXPECT_EQ(B_OK, fMessage.AddPointer("pointer", &fMessage));

	EXPECT_TRUE(fMessage.GetBool("bool"));
	EXPECT_EQ(-16, fMessage.GetInt16("int16", 0));
	EXPECT_EQ(0xffff, fMessage.GetUInt16("uint16", 0));
	EXPECT_EQ(INT32_MIN, fMessage.GetInt32("int32", 0));
	EXPECT_EQ(UINT32_MAX, fMessage.GetUInt32("uint32", 0));
	EXPECT_EQ(INT64_MIN, fMessage.GetInt64("int64", 0));
	EXPECT_STREQ("text", fMessage.GetString("string"));
	EXPECT_EQ(&fMessage, fMessage.GetPointer("pointer"));
	EXPECT_EQ(8, fMessage.CountNames(B_ANY_TYPE));

	BMessage message('test');
	EXPECT_EQ(static_cast<uint32>('test'), message.what);
	EXPECT_TRUE(message.IsEmpty());
	EXPECT_EQ(0, message.CountNames(B_ANY_TYPE));
	EXPECT_EQ(0u, BMessage().what);
}


TEST_F(MessageTest, FieldOfAnotherNameTypeOrIndex_GivesTheDefault)
{
	fMessage.AddInt16("port", 5500);
	EXPECT_FALSE(fMessage.GetBool("none"));
	EXPECT_TRUE(fMessage.GetBool("none", true));
	EXPECT_EQ(5500, fMessage.GetUInt16("none", 5500));
	EXPECT_EQ(NULL, fMessage.GetString("none"));
	EXPECT_STREQ("???", fMessage.GetString("none", "???"));
	EXPECT_EQ(NULL, fMessage.GetPointer("none"));

	EXPECT_EQ(7, fMessage.GetUInt16("port", 7));
	EXPECT_EQ(9, fMessage.GetInt32("port", 9));
	EXPECT_STREQ("default", fMessage.GetString("port", "default"));
	EXPECT_FALSE(fMessage.HasData("port", B_UINT16_TYPE));
	EXPECT_TRUE(fMessage.HasData("port", B_INT16_TYPE));

	fMessage.AddInt32("value", 1);
	EXPECT_EQ(7, fMessage.GetInt32("value", 1, 7));
	EXPECT_EQ(7, fMessage.GetInt32("value", -1, 7));
	EXPECT_FALSE(fMessage.HasData("value", B_INT32_TYPE, 1));
}


TEST_F(MessageTest, SeveralValues_KeepTheirOrder)
{
	for (int32 i = 0; i < 1000; i++) {
		BString name;
		name << "file " << i;
		fMessage.AddString("name", name);
		fMessage.AddInt32("size", i * 10);
	}

	type_code type = 0;
	int32 count = 0;
	EXPECT_EQ(B_OK, fMessage.GetInfo("size", &type, &count));
	EXPECT_EQ(type_code(B_INT32_TYPE), type);
	EXPECT_EQ(1000, count);
	EXPECT_STREQ("file 999", fMessage.GetString("name", 999, ""));
	EXPECT_STREQ("file 0", fMessage.GetString("name", 0, ""));
	for (int32 i = 0; i < 1000; i++)
		ASSERT_EQ(i * 10, fMessage.GetInt32("size", i, -1));
	EXPECT_EQ(5000, fMessage.GetInt32("size", 500, -1));
}


TEST_F(MessageTest, Fields_AreFoundInEveryOrder)
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


TEST_F(MessageTest, AddedAfterALook_IsFoundWithAllOthers)
{
	fMessage.AddInt32("first", 1);
	fMessage.AddInt32("second", 2);
	fMessage.AddInt32("third", 3);
	EXPECT_EQ(2, fMessage.GetInt32("second", -1));
	fMessage.AddInt32("fourth", 4);
	fMessage.AddInt32("second", 5);

	EXPECT_EQ(4, fMessage.CountNames(B_INT32_TYPE));
	EXPECT_EQ(1, fMessage.GetInt32("first", -1));
	EXPECT_EQ(2, fMessage.GetInt32("second", 0, -1));
	EXPECT_EQ(5, fMessage.GetInt32("second", 1, -1));
	EXPECT_EQ(3, fMessage.GetInt32("third", -1));
	EXPECT_EQ(4, fMessage.GetInt32("fourth", -1));
}


TEST_F(MessageTest, Copy_IsIndependentAndComplete)
{
	BMessage message('orig');
	message.AddString("text", "before");
	BMessage copy(message);
	message.AddString("text", "after");
	message.what = 'next';

	EXPECT_EQ(static_cast<uint32>('orig'), copy.what);
	EXPECT_EQ(NULL, copy.GetString("text", 1, NULL));
	EXPECT_STREQ("before", copy.GetString("text"));

	copy = message;
	EXPECT_EQ(static_cast<uint32>('next'), copy.what);
	EXPECT_STREQ("after", copy.GetString("text", 1, ""));
}


TEST_F(MessageTest, Copy_OfEverySize_HasItsBytes)
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


TEST_F(MessageTest, OwnValue_MayBeAddedAgain)
{
	fMessage.AddString("text", "some text that is long enough to make the block grow soon");
	for (int i = 0; i < 100; i++)
		fMessage.AddString("copy", fMessage.GetString("text"));
	EXPECT_STREQ(fMessage.GetString("text"), fMessage.GetString("copy", 99, ""));
}


TEST_F(MessageTest, Data_KeepsEveryByte_AndWhereThereIsNoneTheValueIsNull)
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

	data = &fMessage;
	EXPECT_EQ(B_NAME_NOT_FOUND, fMessage.FindData("none", B_RAW_TYPE, &data, &size));
	EXPECT_EQ(NULL, data);
	EXPECT_EQ(0, size);
	const char* string = "x";
	EXPECT_EQ(B_NAME_NOT_FOUND, fMessage.FindString("text", 0, &string));
	EXPECT_EQ(NULL, string);
	void* pointer = &fMessage;
	EXPECT_EQ(B_NAME_NOT_FOUND, fMessage.FindPointer("none", &pointer));
	EXPECT_EQ(NULL, pointer);
}


TEST_F(MessageTest, NothingOrASecondType_IsNotAdded)
{
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddData("data", B_RAW_TYPE, NULL, 5));
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddData("data", B_RAW_TYPE, &fMessage, 0));
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddString("text", static_cast<const char*>(NULL)));
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddInt32(NULL, 1));
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddInt32(std::string(65536, 'n').c_str(), 1));
	EXPECT_TRUE(fMessage.IsEmpty());

	fMessage.AddString("name", "text");
	EXPECT_EQ(B_BAD_TYPE, fMessage.AddInt32("name", 1));
	EXPECT_STREQ("text", fMessage.GetString("name"));
}


TEST_F(MessageTest, LongName_IsAsGoodAsAnyOther)
{
	for (const size_t length : {255, 256, 65535}) {
		SCOPED_TRACE(length);
		const std::string name(length, 'n');
		EXPECT_EQ(B_OK, fMessage.AddInt32(name.c_str(), 1));
		EXPECT_EQ(B_OK, fMessage.AddInt32(name.c_str(), 2));
		EXPECT_EQ(2, fMessage.GetInt32(name.c_str(), 1, 0));
		EXPECT_FALSE(fMessage.HasData((name + "x").c_str(), B_INT32_TYPE));
	}
	EXPECT_EQ(3, fMessage.CountNames(B_INT32_TYPE));
}


TEST_F(MessageTest, DataOfAFixedSize_TakesNoValueOfAnother)
{
	EXPECT_EQ(B_OK, fMessage.AddData("fixed", B_RAW_TYPE, "abc", 3));
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddData("fixed", B_RAW_TYPE, "abcd", 4));
	EXPECT_EQ(B_BAD_VALUE, fMessage.AddData("fixed", B_RAW_TYPE, "ab", 2, false));
	EXPECT_EQ(B_OK, fMessage.AddData("fixed", B_RAW_TYPE, "def", 3));
	EXPECT_TRUE(fMessage.HasData("fixed", B_RAW_TYPE, 1));
	EXPECT_FALSE(fMessage.HasData("fixed", B_RAW_TYPE, 2));

	EXPECT_EQ(B_OK, fMessage.AddData("loose", B_RAW_TYPE, "abc", 3, false));
	EXPECT_EQ(B_OK, fMessage.AddData("loose", B_RAW_TYPE, "abcd", 4));
	EXPECT_EQ(B_OK, fMessage.AddString("text", "long"));
	EXPECT_EQ(B_OK, fMessage.AddString("text", "longer"));
}


TEST_F(MessageTest, String_MayBeEmptyButEndsWithAZeroByte)
{
	fMessage.AddString("login", "");
	const char* string = NULL;
	EXPECT_EQ(B_OK, fMessage.FindString("login", 0, &string));
	EXPECT_STREQ("", string);
	EXPECT_STREQ("", fMessage.GetString("login", "default"));
	fMessage.AddData("text", B_STRING_TYPE, "abc", 3);
	EXPECT_EQ(B_BAD_DATA, fMessage.FindString("text", 0, &string));
	EXPECT_EQ(NULL, string);
}


TEST_F(MessageTest, GetInfo_WalksThroughTheFields)
{
	fMessage.AddInt32("one", 1);
	fMessage.AddString("two", "2");
	fMessage.AddInt32("three", 3);
	fMessage.AddInt32("three", 3);

	char* name = NULL;
	type_code type = 0;
	int32 count = 0;
	ASSERT_EQ(B_OK, fMessage.GetInfo(B_ANY_TYPE, 1, &name, &type, &count));
	EXPECT_STREQ("two", name);
	EXPECT_EQ(type_code(B_STRING_TYPE), type);
	ASSERT_EQ(B_OK, fMessage.GetInfo(B_INT32_TYPE, 1, &name, &type, &count));
	EXPECT_STREQ("three", name);
	EXPECT_EQ(2, count);
	EXPECT_EQ(B_BAD_INDEX, fMessage.GetInfo(B_ANY_TYPE, 3, &name, &type));
	EXPECT_EQ(B_NAME_NOT_FOUND, fMessage.GetInfo(B_BOOL_TYPE, 0, &name, &type));
	EXPECT_EQ(2, fMessage.CountNames(B_INT32_TYPE));
}


TEST_F(MessageTest, Reference_ComesBackWhole)
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
	EXPECT_EQ(NULL, found.name);
}
