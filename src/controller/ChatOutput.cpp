/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ChatOutput.h"

#include <Looper.h>
#include <Message.h>
#include <String.h>

#include "AppMessages.h"
#include "ChatColors.h"
#include "ConnectionMark.h"
#include "Delivery.h"


ChatOutput::ChatOutput(BLooper* chatWindow)
	: fChatWindow(chatWindow)
{
}


/*!	\param connection The number of the connection on which it was said, 0 for the program's own words:
	where there is no room for it, that connection ends.
*/
void
ChatOutput::Append(const char* text, rgb_color color, uint32 connection)
{
	const uint32 packed = static_cast<uint32>(color.red) << 24
		| static_cast<uint32>(color.green) << 16 | static_cast<uint32>(color.blue) << 8
		| color.alpha;
	BMessage message(kMsgAppendChat);
	message.AddString("text", text);
	message.AddInt32("color", static_cast<int32>(packed));
	AddConnection(&message, connection);
	Deliver(fChatWindow, &message);
}


/*!	Appends a line of the program's own. */
void
ChatOutput::Announce(const char* what, const char* detail, rgb_color color)
{
	BString line;
	line << "*** " << what << ": " << detail << " ***\n";
	Append(line.String(), color);
}


/*!	\param connection The number of the connection that what is typed from now on is meant for. */
void
ChatOutput::Enable(bool enabled, uint32 connection)
{
	BMessage message(kMsgEnableChat);
	message.AddBool("enabled", enabled);
	AddConnection(&message, connection);
	Deliver(fChatWindow, &message);
}


void
ChatOutput::ShowChat(const BMessage* message)
{
	BString line(message->GetString("text", ""));
	line << "\n";
	Append(line.String(), kChatColor, ConnectionOf(message));
}


void
ChatOutput::ShowBroadcast(const BMessage* message)
{
	BString line;
	line << "\n*** Broadcast: " << message->GetString("text", "") << " ***\n";
	Append(line.String(), kBroadcastColor, ConnectionOf(message));
}


void
ChatOutput::ShowServerMessage(const BMessage* message)
{
	BString line;
	line << "\n*** Server message ***\n" << message->GetString("text", "") << "\n";
	Append(line.String(), kServerMessageColor, ConnectionOf(message));
}


/*!	What a user says for whom there is no window. */
void
ChatOutput::ShowPrivateMessage(const BMessage* message)
{
	BString line;
	line << "\n*** Message from " << message->GetString("nick", "???") << " ***\n"
		 << message->GetString("text", "") << "\n";
	Append(line.String(), kServerMessageColor, ConnectionOf(message));
}


/*!	What a server asks for in so many windows already. */
void
ChatOutput::ShowAgreement(const BMessage* message)
{
	BString line;
	line << "\n*** Server agreement ***\n" << message->GetString("text", "") << "\n";
	Append(line.String(), kServerColor, ConnectionOf(message));
}
