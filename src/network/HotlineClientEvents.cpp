/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "HotlineClient.h"

#include <Autolock.h>
#include <Message.h>

#include "HotlineProtocol.h"


static const uint16 kMaxNick = 63;


/*!	Reads a text whose lines end in carriage returns, as one whose lines end in line feeds. */
static void
read_lines(const HotlineParam& param, BString* _text)
{
	ReadParamText(param, _text);
	const int32 length = _text->Length();
	HotlineCR2LF(_text->LockBuffer(length), static_cast<uint32>(length));
	_text->UnlockBuffer(length);
}


static void
read_socket(const HotlineParam& param, uint16* _socket)
{
	uint32 number = *_socket;
	ReadParamNumber(param, &number);
	*_socket = static_cast<uint16>(number);
}


void
HotlineClient::_HandleChat()
{
	BString text;
	uint32 chatRef = 0;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldData)
			read_lines(param, &text);
		else if (param.type == kFieldChatRef)
			ReadParamNumber(param, &chatRef);
	}
	if (text.IsEmpty())
		return;

	BMessage message(kHLChatReceived);
	message.AddString("text", text);
	message.AddUInt32("chatRef", chatRef);
	_Notify(&message);
}


void
HotlineClient::_HandleMessage()
{
	BString text;
	BString nick;
	uint16 socket = 0;
	uint16 icon = 0;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		switch (param.type) {
			case kFieldData:
				read_lines(param, &text);
				break;
			case kFieldNick:
				ReadParamText(param, kMaxNick, &nick);
				break;
			case kFieldSocket:
				read_socket(param, &socket);
				break;
			case kFieldIcon:
				ReadParamUInt16(param, &icon);
				break;
		}
	}
	if (text.IsEmpty())
		return;

	BMessage message(kHLMsgReceived);
	message.AddString("text", text);
	message.AddString("nick", nick);
	message.AddUInt16("socket", socket);
	message.AddUInt16("icon", icon);
	_Notify(&message);
}


void
HotlineClient::_HandleUserChange()
{
	BString nick;
	uint16 socket = 0;
	uint16 icon = 0;
	uint16 color = 0;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		switch (param.type) {
			case kFieldNick:
				ReadParamText(param, kMaxNick, &nick);
				break;
			case kFieldSocket:
				read_socket(param, &socket);
				break;
			case kFieldIcon:
				ReadParamUInt16(param, &icon);
				break;
			case kFieldColor:
				ReadParamUInt16(param, &color);
				break;
		}
	}

	BMessage message(kHLUserChanged);
	message.AddUInt16("socket", socket);
	message.AddUInt16("icon", icon);
	message.AddUInt16("color", color);
	message.AddString("nick", nick);
	_Notify(&message);
}


void
HotlineClient::_HandleUserLeave()
{
	uint16 socket = 0;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldSocket)
			read_socket(param, &socket);
	}

	BMessage message(kHLUserLeft);
	message.AddUInt16("socket", socket);
	_Notify(&message);
}


/*!	Asks the user, or accepts on the user's behalf where the server has nothing to agree to. */
void
HotlineClient::_HandleAgreement()
{
	BString text;
	bool noAgreement = false;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldData)
			read_lines(param, &text);
		else if (param.type == kFieldNoAgreement && param.len >= 1 && param.data[0] != 0)
			noAgreement = true;
	}

	if (!noAgreement && !text.IsEmpty()) {
		BMessage message(kHLAgreement);
		message.AddString("text", text);
		_Notify(&message);
		return;
	}

	BString nick;
	uint16 icon;
	{
		BAutolock locker(fStateLock);
		nick = fConnNick;
		icon = fConnIcon;
	}
	SendAgreed(nick.String(), icon);
}


/*!	What the server may say with it is not shown. */
void
HotlineClient::_HandlePoliteQuit()
{
	_Notify(kHLPoliteQuit);
}


/*!	Unlike chat and messages a broadcast keeps its carriage returns. */
void
HotlineClient::_HandleBroadcast()
{
	BString text;
	ParameterWalker walker = fParser.Params();
	HotlineParam param;
	while (walker.Next(&param)) {
		if (param.type == kFieldData)
			ReadParamText(param, &text);
	}
	if (text.IsEmpty())
		return;

	BMessage message(kHLBroadcast);
	message.AddString("text", text);
	_Notify(&message);
}


void
HotlineClient::_HandleServerBanner()
{
	_Notify(kHLServerBanner);
	RequestBanner();
}
