/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ChatOutput.h"

#include <gtest/gtest.h>

#include "AppMessages.h"
#include "HostileTexts.h"
#include "PartTest.h"


class ChatOutputTest : public PartTest {};


TEST_F(ChatOutputTest, Color_IsPackedFromRedToAlpha)
{
	fChat.Append("text", {1, 2, 3, 255});
	fChat.Append("", {255, 0, 128, 4});
	const std::vector<BMessage> messages = fChatWindow->Messages();
	ASSERT_EQ(2u, messages.size());
	EXPECT_EQ(static_cast<uint32>(kMsgAppendChat), messages[0].what);
	EXPECT_STREQ("text", messages[0].GetString("text"));
	EXPECT_EQ(0x010203ff, messages[0].GetInt32("color", 0));
	EXPECT_EQ(static_cast<int32>(0xff008004), messages[1].GetInt32("color", 0));
}


TEST_F(ChatOutputTest, EveryKind_HasItsShapeAndColorAndItsTextAsItStands)
{
	for (const std::string& text : hostile_texts()) {
		SCOPED_TRACE(text);
		BMessage message;
		message.AddString("text", text.c_str());
		fChat.ShowChat(&message);
		EXPECT_EQ("000000 " + text + "\n", Said());
		fChat.ShowBroadcast(&message);
		EXPECT_EQ("c86400 \n*** Broadcast: " + text + " ***\n", Said());
		fChat.ShowServerMessage(&message);
		EXPECT_EQ("800080 \n*** Server message ***\n" + text + "\n", Said());
		fChat.ShowAgreement(&message);
		EXPECT_EQ("006400 \n*** Server agreement ***\n" + text + "\n", Said());
		message.AddString("nick", text.c_str());
		fChat.ShowPrivateMessage(&message);
		EXPECT_EQ("800080 \n*** Message from " + text + " ***\n" + text + "\n", Said());
		fChat.Announce("What", text.c_str(), {1, 2, 3, 255});
		EXPECT_EQ("010203 *** What: " + text + " ***\n", Said());
	}
}


TEST_F(ChatOutputTest, Enabling_SaysForWhichConnection)
{
	fChat.Enable(true, 7);
	fChat.Enable(false, 0);
	const std::vector<BMessage> messages = fChatWindow->Messages();
	ASSERT_EQ(2u, messages.size());
	EXPECT_EQ(static_cast<uint32>(kMsgEnableChat), messages[0].what);
	EXPECT_TRUE(messages[0].GetBool("enabled", false));
	EXPECT_EQ(7u, messages[0].GetUInt32("connection", 0));
	EXPECT_FALSE(messages[1].GetBool("enabled", true));
	EXPECT_EQ(99u, messages[1].GetUInt32("connection", 99));
}


// Where there is no room for it that connection ends; the program's own words end none.
TEST_F(ChatOutputTest, WhatOthersSay_IsOnBehalfOfTheirConnection)
{
	BMessage said;
	said.AddUInt32("connection", 7);
	fChat.ShowChat(&said);
	fChat.ShowBroadcast(&said);
	fChat.ShowServerMessage(&said);
	fChat.ShowPrivateMessage(&said);
	fChat.ShowAgreement(&said);
	fChat.Announce("What", "is up", {1, 2, 3, 255});
	const std::vector<BMessage> messages = fChatWindow->Messages();
	ASSERT_EQ(6u, messages.size());
	for (size_t i = 0; i < 5; i++)
		EXPECT_EQ(7u, messages[i].GetUInt32("connection", 0)) << i;
	EXPECT_EQ(99u, messages[5].GetUInt32("connection", 99));
}
