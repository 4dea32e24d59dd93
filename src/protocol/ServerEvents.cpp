/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ServerEvents.h"

#include <Message.h>
#include <String.h>

#include "EntryReader.h"
#include "HotlineNotifications.h"
#include "HotlineProtocol.h"


/*!	Reads a text whose lines end in carriage returns, as one whose lines end in line feeds. */
static void
read_lines(const HotlineParam& param, BString* _text)
{
	ReadParamText(param, _text);
	const int32 length = _text->Length();
	HotlineCR2LF(_text->LockBuffer(length), static_cast<uint32>(length));
	_text->UnlockBuffer(length);
}


/*!	Reads what is said of a user, field by field.
	\param _text Receives the text that comes with it, unless it is \c NULL.
*/
static void
read_user(ParameterWalker params, UserEntry* _user, BString* _text)
{
	HotlineParam param;
	while (params.Next(&param)) {
		switch (param.type) {
			case kFieldData:
				if (_text != NULL)
					read_lines(param, _text);
				break;
			case kFieldNick:
				ReadParamText(param, kMaxNickLength, &_user->nick);
				break;
			case kFieldSocket:
			{
				uint32 number = _user->socket;
				ReadParamNumber(param, &number);
				_user->socket = static_cast<uint16>(number);
				break;
			}
			case kFieldIcon:
				ReadParamUInt16(param, &_user->icon);
				break;
			case kFieldColor:
				ReadParamUInt16(param, &_user->color);
				break;
		}
	}
}


bool
ReadChat(ParameterWalker params, BMessage* _message)
{
	BString text;
	uint32 chatRef = 0;
	HotlineParam param;
	while (params.Next(&param)) {
		if (param.type == kFieldData)
			read_lines(param, &text);
		else if (param.type == kFieldChatRef)
			ReadParamNumber(param, &chatRef);
	}
	if (text.IsEmpty())
		return false;

	_message->what = kHLChatReceived;
	_message->AddString("text", text);
	_message->AddUInt32("chatRef", chatRef);
	return true;
}


bool
ReadPrivateMessage(ParameterWalker params, BMessage* _message)
{
	BString text;
	UserEntry sender = {};
	read_user(params, &sender, &text);
	if (text.IsEmpty())
		return false;

	_message->what = kHLMsgReceived;
	_message->AddString("text", text);
	_message->AddString("nick", sender.nick);
	_message->AddUInt16("socket", sender.socket);
	_message->AddUInt16("icon", sender.icon);
	return true;
}


bool
ReadUserChange(ParameterWalker params, BMessage* _message)
{
	UserEntry user = {};
	read_user(params, &user, NULL);
	_message->what = kHLUserChanged;
	AddUser(user, _message);
	return true;
}


bool
ReadUserLeave(ParameterWalker params, BMessage* _message)
{
	UserEntry user = {};
	read_user(params, &user, NULL);
	_message->what = kHLUserLeft;
	_message->AddUInt16("socket", user.socket);
	return true;
}


/*!	\return \c false also where the server says that nothing has to be agreed to. */
bool
ReadAgreement(ParameterWalker params, BMessage* _message)
{
	BString text;
	bool noAgreement = false;
	HotlineParam param;
	while (params.Next(&param)) {
		if (param.type == kFieldData)
			read_lines(param, &text);
		else if (param.type == kFieldNoAgreement && param.len >= 1 && param.data[0] != 0)
			noAgreement = true;
	}
	if (noAgreement || text.IsEmpty())
		return false;

	_message->what = kHLAgreement;
	_message->AddString("text", text);
	return true;
}


/*!	Unlike chat and messages a broadcast keeps its carriage returns. */
bool
ReadBroadcast(ParameterWalker params, BMessage* _message)
{
	BString text;
	HotlineParam param;
	while (params.Next(&param)) {
		if (param.type == kFieldData)
			ReadParamText(param, &text);
	}
	if (text.IsEmpty())
		return false;

	_message->what = kHLBroadcast;
	_message->AddString("text", text);
	return true;
}
