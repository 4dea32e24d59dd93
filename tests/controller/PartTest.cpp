/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "PartTest.h"

#include <cstdio>

#include "AppMessages.h"
#include "WaitFor.h"


PartTest::PartTest()
	: fTarget(new MessageRecorder()),
	  fChatWindow(new MessageRecorder()),
	  fChat(fChatWindow.get()),
	  fPostedSeen(0),
	  fSaidSeen(0)
{
}


std::vector<BMessage>
PartTest::Posted()
{
	std::vector<BMessage> messages = fTarget->Messages();
	messages.erase(messages.begin(), messages.begin() + static_cast<ptrdiff_t>(fPostedSeen));
	fPostedSeen += messages.size();
	return messages;
}


BMessage
PartTest::AwaitPosted()
{
	EXPECT_SOON(fTarget->Messages().size() > fPostedSeen);
	fPostedSeen++;
	return fTarget->Messages().at(fPostedSeen - 1);
}


std::string
PartTest::Said()
{
	std::string said;
	const std::vector<BMessage> messages = fChatWindow->Messages();
	for (; fSaidSeen < messages.size(); fSaidSeen++) {
		const BMessage& message = messages[fSaidSeen];
		EXPECT_EQ(static_cast<uint32>(kMsgAppendChat), message.what);
		const uint32 color = static_cast<uint32>(message.GetInt32("color", 0));
		EXPECT_EQ(0xffu, color & 0xff);
		char hexadecimal[8];
		snprintf(hexadecimal, sizeof(hexadecimal), "%06x ", static_cast<unsigned>(color >> 8));
		said += hexadecimal + std::string(message.GetString("text", ""));
	}
	return said;
}
