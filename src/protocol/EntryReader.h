/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef ENTRY_READER_H
#define ENTRY_READER_H


#include <String.h>
#include <SupportDefs.h>


class BMessage;
struct HotlineParam;


/*!	One user of a user list. */
struct UserEntry {
	uint16 socket;
	uint16 icon;
	// The user's status word, as the server sends it.
	uint16 color;
	BString nick;
};


/*!	One file or folder of a file list. */
struct FileEntry {
	// Codes of four characters.
	BString type;
	BString creator;
	// In bytes, for a folder in items.
	uint32 size;
	BString name;
};


bool ReadUserEntry(const HotlineParam& param, UserEntry* _entry);
bool ReadFileEntry(const HotlineParam& param, FileEntry* _entry);

// Adds the fields in which notifications tell of a user.
void AddUser(const UserEntry& user, BMessage* message);


#endif // ENTRY_READER_H
