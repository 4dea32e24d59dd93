/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "EntryReader.h"

#include <algorithm>
#include <memory>

#include <gtest/gtest.h>

#include "HotlineProtocol.h"
#include "WireBytes.h"


// A parameter in memory of exactly its size.
class Value {
public:
	explicit Value(const std::string& bytes)
		: fBytes(new uint8[bytes.size()])
	{
		std::copy(bytes.begin(), bytes.end(), fBytes.get());
		param.type = 0;
		param.len = static_cast<uint16>(bytes.size());
		param.data = fBytes.get();
	}

	HotlineParam param;

private:
	std::unique_ptr<uint8[]> fBytes;
};


static std::string
user(unsigned int nickLength, const std::string& nick)
{
	return wire16(0x1234) + wire16(137) + wire16(0xFFFE) + wire16(nickLength) + nick;
}


TEST(UserEntryTest, WholeEntry_HasAllItsFields)
{
	UserEntry entry;
	ASSERT_TRUE(ReadUserEntry(Value(user(4, "Bert")).param, &entry));
	EXPECT_EQ(entry.socket, 0x1234);
	EXPECT_EQ(entry.icon, 137);
	EXPECT_EQ(entry.color, 0xFFFE);
	EXPECT_STREQ(entry.nick.String(), "Bert");
}


TEST(UserEntryTest, ShorterThan12Bytes_IsRefused)
{
	const std::string whole = user(3, "Ann");
	ASSERT_EQ(whole.size(), 11u);
	for (size_t size = 0; size <= whole.size(); size++) {
		SCOPED_TRACE(size);
		UserEntry entry;
		EXPECT_FALSE(ReadUserEntry(Value(whole.substr(0, size)).param, &entry));
	}
	UserEntry entry;
	ASSERT_TRUE(ReadUserEntry(Value(whole + "x").param, &entry));
	EXPECT_STREQ(entry.nick.String(), "Ann");
}


TEST(UserEntryTest, NickOver63Bytes_IsCut)
{
	const std::string nick(100, 'n');
	UserEntry entry;
	ASSERT_TRUE(ReadUserEntry(Value(user(100, nick)).param, &entry));
	EXPECT_EQ(std::string(entry.nick.String()), nick.substr(0, 63));
}


TEST(UserEntryTest, NickLengthPastTheEnd_IsBounded)
{
	for (const unsigned int length : {6u, 63u, 65535u}) {
		SCOPED_TRACE(length);
		UserEntry entry;
		ASSERT_TRUE(ReadUserEntry(Value(user(length, "Berta")).param, &entry));
		EXPECT_STREQ(entry.nick.String(), "Berta");
	}
}


// #pragma mark -


static std::string
file(uint32_t nameLength, const std::string& name)
{
	return "TEXT" + std::string("ttxt") + wire32(0xFFFFFFFE) + wire32(0xDEADBEEF)
		+ wire32(nameLength) + name;
}


TEST(FileEntryTest, WholeEntry_HasAllItsFields)
{
	FileEntry entry;
	ASSERT_TRUE(ReadFileEntry(Value(file(8, "read me\xFF")).param, &entry));
	EXPECT_STREQ(entry.type.String(), "TEXT");
	EXPECT_STREQ(entry.creator.String(), "ttxt");
	EXPECT_EQ(entry.size, 0xFFFFFFFEu);
	EXPECT_STREQ(entry.name.String(), "read me\xFF");
}


TEST(FileEntryTest, CutAtEachByte_IsRefused)
{
	const std::string whole = file(7, "read me");
	for (size_t size = 0; size < whole.size(); size++) {
		SCOPED_TRACE(size);
		FileEntry entry;
		EXPECT_FALSE(ReadFileEntry(Value(whole.substr(0, size)).param, &entry));
	}
}


TEST(FileEntryTest, MoreThanTheName_IsIgnored)
{
	FileEntry entry;
	ASSERT_TRUE(ReadFileEntry(Value(file(4, "read me")).param, &entry));
	EXPECT_STREQ(entry.name.String(), "read");
	ASSERT_TRUE(ReadFileEntry(Value(file(0, "")).param, &entry));
	EXPECT_STREQ(entry.name.String(), "");
}


TEST(FileEntryTest, NameScript_MakesTheLength255)
{
	const std::string name(255, 'f');
	FileEntry entry;
	EXPECT_FALSE(ReadFileEntry(Value(file(0x00010005, "hello")).param, &entry));
	EXPECT_FALSE(ReadFileEntry(Value(file(0x00010005, name.substr(1))).param, &entry));
	ASSERT_TRUE(ReadFileEntry(Value(file(0x00010005, name)).param, &entry));
	EXPECT_EQ(std::string(entry.name.String()), name);
	ASSERT_TRUE(ReadFileEntry(Value(file(0xFFFFFFFF, name + "more")).param, &entry));
	EXPECT_EQ(std::string(entry.name.String()), name);
}
