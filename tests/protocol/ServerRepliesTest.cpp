/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerReplies.h"

#include "ReadingTest.h"
#include "WireRecords.h"


static bool
read_error(ParameterWalker params, BMessage* message)
{
	ReadTaskError(params, message);
	return true;
}


static bool
read_info(ParameterWalker params, BMessage* message)
{
	ServerInfo info;
	info.name = "Before";
	info.version = 1;
	ReadServerInfo(params, &info, message);
	return true;
}


static bool
read_list(ParameterWalker params, BMessage* message)
{
	ReadFileList(params, "//a/b", message);
	return true;
}


static bool
read_download(ParameterWalker params, BMessage* message)
{
	return ReadDownload(params, "folder/a name", message);
}


static bool
read_upload(ParameterWalker params, BMessage* message)
{
	return ReadUpload(params, "na/me", "/home/x/name", message);
}


static std::string
transfer(uint32 reference, uint32 size)
{
	return wire_param(107, wire32(reference)) + wire_param(108, wire32(size));
}


TEST(ServerRepliesTest, TaskError_IsTheErrorFieldAlone)
{
	expect_readings(read_error,
		{
			{wire_param(100, "Not allowed\r<b>%s"), "HLte error=CSTR Not allowed\r<b>%s"},
			{wire_param(101, "not this"), "HLte error=CSTR "},
		});
}


TEST(ServerRepliesTest, ServerInfo_KeepsWhatIsAbsent)
{
	expect_readings(read_info,
		{
			{wire_param(160, wire16(190)) + wire_param(162, "A <b>%s & \xFF"),
				"HLsi serverName=CSTR A <b>%s & \xFF version=USHT 190"},
			{wire_param(999, "x"), "HLsi serverName=CSTR Before version=USHT 1"},
			{wire_param(160, "\x01") + wire_param(162, std::string(300, 's')),
				"HLsi serverName=CSTR " + std::string(255, 's') + " version=USHT 1"},
			{wire_param(162, ""), "HLsi serverName=CSTR  version=USHT 1"},
		});
}


TEST(ServerRepliesTest, Users_AreReadOneByOne)
{
	const std::string params = wire_param(300, wire_user(0xFEDC, 137, 2, "Anna"))
		+ wire_param(101, "unknown")
		// One of 11 bytes is left out.
		+ wire_param(300, wire_user(2, 137, 2, "Ann"))
		+ wire_param(300, wire_user(3, 137, 2, std::string(70, 'n')))
		+ wire_param(300, wire_user(4, 137, 2, "\xFF<b>%s"));
	ParameterWalker walker(reinterpret_cast<const uint8*>(params.data()), params.size());
	for (const std::string& expected :
		{std::string("65244 icon=USHT 137 color=USHT 2 nick=CSTR Anna"),
			"3 icon=USHT 137 color=USHT 2 nick=CSTR " + std::string(63, 'n'),
			std::string("4 icon=USHT 137 color=USHT 2 nick=CSTR \xFF<b>%s")}) {
		BMessage message;
		ASSERT_TRUE(ReadNextUser(&walker, &message));
		EXPECT_EQ("HLuj socket=USHT " + expected, MessageRecorder::Describe(&message));
	}
	BMessage message('none');
	EXPECT_FALSE(ReadNextUser(&walker, &message));
	EXPECT_EQ("none", MessageRecorder::Describe(&message));
}


TEST(ServerRepliesTest, FileList_IsOneMessageOfParallelFields)
{
	const std::string scripted = "TEXTttxt" + wire32(1) + wire32(0) + wire32(0x00010005);
	expect_readings(read_list,
		{
			{wire_param(200, wire_file("fldr", "n/a ", 12, "docs"))
					+ wire_param(200, wire_file("TEXT", "ttxt", 0xFFFFFFFF, "\xFF"))
					+ wire_param(200, wire_file("????", "xxxx", 0, "")),
				"HLfl path=CSTR //a/b name=CSTR docs \xFF  type=CSTR fldr TEXT ???? "
				"creator=CSTR n/a  ttxt xxxx size=LONG 12 -1 0"},
			// What is too short is left out.
			{wire_param(200, "TEXTttxt") + wire_param(200, scripted + "hello")
					+ wire_param(200, scripted + std::string(255, 'f')),
				"HLfl path=CSTR //a/b name=CSTR " + std::string(255, 'f')
					+ " type=CSTR TEXT creator=CSTR ttxt size=LONG 1"},
			{wire_param(101, ""), "HLfl path=CSTR //a/b"},
		});
}


// The transaction's own count of them has two bytes.
TEST(ServerRepliesTest, FileListBeyondWhatCanBeCounted_IsCut)
{
	std::string params;
	for (int i = 0; i < 65536; i++)
		params += wire_param(200, wire_file("TEXT", "ttxt", 1, ""));
	BMessage message;
	ReadFileList(ParameterWalker(reinterpret_cast<const uint8*>(params.data()),
					 static_cast<uint32>(params.size())),
		"", &message);
	int32 count = 0;
	ASSERT_EQ(B_OK, message.GetInfo("name", NULL, &count));
	EXPECT_EQ(65535, count);
}


TEST(ServerRepliesTest, Download_HasTheNameBehindTheLastSlash)
{
	expect_readings(read_download,
		{
			{transfer(0xFEDCBA98, 0x89ABCDEF),
				"HLdl ref=ULNG 4275878552 size=ULNG 2309737967 filename=CSTR a name"},
			{wire_param(107, wire32(1)), "HLdl ref=ULNG 1 size=ULNG 0 filename=CSTR a name"},
			// Longer numbers are their first four bytes, shorter ones none.
			{wire_param(107, wire32(5) + "more") + wire_param(108, wire32(6) + "more"),
				"HLdl ref=ULNG 5 size=ULNG 6 filename=CSTR a name"},
			{wire_param(107, "\x01\x02\x03"), ""},
			{transfer(0, 9), ""},
			{wire_param(108, wire32(9)), ""},
		});
	BMessage message;
	const std::string params = transfer(1, 2);
	ParameterWalker walker(reinterpret_cast<const uint8*>(params.data()), params.size());
	ASSERT_TRUE(ReadDownload(walker, "name", &message));
	EXPECT_EQ("HLdl ref=ULNG 1 size=ULNG 2 filename=CSTR name",
		MessageRecorder::Describe(&message));
}


TEST(ServerRepliesTest, Upload_HasBothItsNames)
{
	expect_readings(read_upload,
		{
			{transfer(0x80000000, 9),
				"HLup ref=ULNG 2147483648 filename=CSTR na/me localpath=CSTR /home/x/name"},
			{wire_param(108, wire32(9)), ""},
		});
}


TEST(ServerRepliesTest, Banner_NeedsAReferenceAndASize)
{
	expect_readings(ReadBannerDownload,
		{
			{transfer(7, 8), "HLbr ref=ULNG 7 size=ULNG 8"},
			{transfer(7, 0), ""},
			{transfer(0, 8), ""},
			{wire_param(107, wire32(7)), ""},
		});
}
