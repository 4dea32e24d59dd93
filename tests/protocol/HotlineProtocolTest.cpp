/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineProtocol.h"

#include <cstring>
#include <string>

#include <gtest/gtest.h>

#include "HotlineNotifications.h"
#include "WireBytes.h"


static std::string
bytes_of(const void* data, size_t size)
{
	return std::string(static_cast<const char*>(data), size);
}


TEST(HotlineProtocolTest, Magics_AreThoseOfTheProtocol)
{
	EXPECT_EQ(bytes_of(kClientMagic, sizeof(kClientMagic)),
		"TRTPHOTL" + wire8(0) + wire8(1) + wire8(0) + wire8(2) + wire8(0));
	EXPECT_EQ(kClientMagicLen, 12u);
	EXPECT_EQ(bytes_of(kServerMagic, sizeof(kServerMagic)), "TRTP" + wire32(0));
	EXPECT_EQ(kServerMagicLen, 8u);
}


TEST(HotlineProtocolTest, PortsAndSizes_AreThoseOfTheProtocol)
{
	EXPECT_EQ(kDefaultPort, 5500);
	EXPECT_EQ(kTrackerPort, 5498);
	EXPECT_EQ(kTrackerUDPPort, 5499);
	EXPECT_EQ(kTransferPort, 5501);
	EXPECT_EQ(kHeaderSize, 22u);
	EXPECT_EQ(kParamHeaderSize, 4u);
	EXPECT_EQ(kUserEntryHeaderSize, 12u);
	EXPECT_EQ(kFileEntryHeaderSize, 20u);
}


TEST(HotlineProtocolTest, NotificationCodes_AreFourCharactersEach)
{
	const std::pair<uint32, const char*> codes[] = {{kHLConnected, "HLcn"},
		{kHLConnectFailed, "HLcf"}, {kHLLoggedIn, "HLli"}, {kHLDisconnected, "HLdc"},
		{kHLChatReceived, "HLch"}, {kHLMsgReceived, "HLmg"}, {kHLUserJoined, "HLuj"},
		{kHLUserChanged, "HLuc"}, {kHLUserLeft, "HLul"}, {kHLAgreement, "HLag"},
		{kHLServerInfo, "HLsi"}, {kHLTaskError, "HLte"}, {kHLPoliteQuit, "HLpq"},
		{kHLBroadcast, "HLbc"}, {kHLFileListReceived, "HLfl"}, {kHLDownloadReady, "HLdl"},
		{kHLUploadReady, "HLup"}, {kHLBannerReady, "HLbr"}, {kHLServerBanner, "HLsb"}};
	for (const auto& [code, characters] : codes)
		EXPECT_EQ(wire32(code), characters);
}


TEST(HotlineProtocolTest, Header_IsBigEndianAndBackAgain)
{
	HotlineHeader header;
	header.type = 0x00010000;
	header.trans = 0x01020304;
	header.flags = 0x05060708;
	header.totalSize = 0x090A0B0C;
	header.dataSize = 0x0D0E0F10;
	header.paramCount = 0x1112;

	uint8 buffer[kHeaderSize];
	HotlineWriteHeader(buffer, header);
	EXPECT_EQ(wire_dump(bytes_of(buffer, sizeof(buffer))),
		wire_dump(wire_header(0x00010000, 0x01020304, 0x05060708, 0x090A0B0C, 0x0D0E0F10, 0x1112)));

	HotlineHeader read;
	HotlineReadHeader(buffer, &read);
	EXPECT_EQ(read.type, header.type);
	EXPECT_EQ(read.trans, header.trans);
	EXPECT_EQ(read.flags, header.flags);
	EXPECT_EQ(read.totalSize, header.totalSize);
	EXPECT_EQ(read.dataSize, header.dataSize);
	EXPECT_EQ(read.paramCount, header.paramCount);
}


TEST(HotlineProtocolTest, Numbers_UseAllTheirBits)
{
	const uint8 bytes[] = {0xFE, 0xDC, 0xBA, 0x98};
	EXPECT_EQ(HotlineReadUInt16(bytes), 0xFEDC);
	EXPECT_EQ(HotlineReadUInt32(bytes), 0xFEDCBA98u);

	uint8 written[4];
	HotlineWriteUInt32(written, 0xFEDCBA98);
	EXPECT_EQ(bytes_of(written, 4), bytes_of(bytes, 4));
	HotlineWriteUInt16(written, 0xBA98);
	EXPECT_EQ(bytes_of(written, 2), bytes_of(bytes + 2, 2));
}


TEST(HotlineProtocolTest, EncodeCredential_ComplementsEveryByte)
{
	uint8 data[] = {0x00, 0x41, 0xFF, 0x55};
	HotlineEncodeCredential(data, 3);
	EXPECT_EQ(bytes_of(data, 4), "\xFF\xBE" + wire8(0) + "\x55");
}


TEST(HotlineProtocolTest, CR2LF_ReplacesAndRemovesNothing)
{
	char text[] = "a\r\nb\r";
	HotlineCR2LF(text, 4);
	EXPECT_STREQ(text, "a\n\nb\r");
}


struct Cut {
	const char* text;
	size_t limit;
	size_t expected;
};


TEST(HotlineProtocolTest, CutText_FallsBetweenCharacters)
{
	const Cut cuts[] = {
		{"abc", 5, 3},
		{"abc", 3, 3},
		{"abc", 2, 2},
		{"abc", 0, 0},
		// Of two, three and four bytes.
		{"a\xC3\xA4", 2, 1},
		{"a\xC3\xA4", 3, 3},
		{"\xE2\x82\xAC", 1, 0},
		{"\xE2\x82\xAC", 2, 0},
		{"x\xF0\x9F\x98\x80", 2, 1},
		{"x\xF0\x9F\x98\x80", 3, 1},
		{"x\xF0\x9F\x98\x80", 4, 1},
		{"x\xF0\x9F\x98\x80", 5, 5},
		// No characters at all.
		{"\x80\x80\x80\x80\x80\x80", 4, 4},
		{"\x80\x80", 1, 1},
		{"\xFF\xFF\xFF", 2, 2},
	};
	for (const Cut& cut : cuts) {
		SCOPED_TRACE(wire_dump(cut.text) + "at " + std::to_string(cut.limit));
		EXPECT_EQ(HotlineCutText(cut.text, strlen(cut.text), cut.limit), cut.expected);
	}
}
