/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "EntryReader.h"

#include <algorithm>

#include <Message.h>

#include "HotlineProtocol.h"


// In bytes.
static const uint32 kNickOffset = 8;
static const uint32 kMaxFileNameLength = 255;


/*!	Reads the value of a \c kFieldUserList.
	\return \c false when it is shorter than \c kUserEntryHeaderSize. A nick is cut at 63 bytes and
	at the value's end.
*/
bool
ReadUserEntry(const HotlineParam& param, UserEntry* _entry)
{
	if (param.len < kUserEntryHeaderSize)
		return false;

	_entry->socket = HotlineReadUInt16(param.data);
	_entry->icon = HotlineReadUInt16(param.data + 2);
	_entry->color = HotlineReadUInt16(param.data + 4);
	const uint32 nickLength = std::min<uint32>(
		{HotlineReadUInt16(param.data + 6), kMaxNickLength, param.len - kNickOffset});
	_entry->nick.SetTo(reinterpret_cast<const char*>(param.data) + kNickOffset,
		static_cast<int32>(nickLength));
	return true;
}


/*!	Reads the value of a \c kFieldFileList.
	\return \c false when it is shorter than \c kFileEntryHeaderSize and its name, of which at most
	255 bytes count.
*/
bool
ReadFileEntry(const HotlineParam& param, FileEntry* _entry)
{
	if (param.len < kFileEntryHeaderSize)
		return false;

	const uint32 nameLength = std::min<uint32>(HotlineReadUInt32(param.data + 16),
		kMaxFileNameLength);
	if (param.len < kFileEntryHeaderSize + nameLength)
		return false;

	const char* text = reinterpret_cast<const char*>(param.data);
	_entry->type.SetTo(text, 4);
	_entry->creator.SetTo(text + 4, 4);
	_entry->size = HotlineReadUInt32(param.data + 8);
	_entry->name.SetTo(text + kFileEntryHeaderSize, static_cast<int32>(nameLength));
	return true;
}


void
AddUser(const UserEntry& user, BMessage* message)
{
	message->AddUInt16("socket", user.socket);
	message->AddUInt16("icon", user.icon);
	message->AddUInt16("color", user.color);
	message->AddString("nick", user.nick);
}
