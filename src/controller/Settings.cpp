/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Settings.h"

#include <Message.h>


static const char* const kDefaultNickname = "HaikuUser";
static const uint16 kDefaultIcon = 137;
static const char* const kDefaultTracker = "hltracker.com";


Settings::Settings()
	: fNickname(kDefaultNickname),
	  fIconID(kDefaultIcon),
	  fTrackerAddress(kDefaultTracker)
{
}


/*!	Takes over what a kMsgOptionsSave has. An empty field leaves its setting as it was.
	\return Whether the nick or the icon has changed, which are what a server hears of.
*/
bool
Settings::Apply(const BMessage* message)
{
	const char* tracker = message->GetString("tracker", "");
	if (tracker[0] != '\0')
		fTrackerAddress = tracker;

	bool changed = false;
	const char* nick = message->GetString("nick", "");
	if (nick[0] != '\0' && fNickname != nick) {
		fNickname = nick;
		changed = true;
	}
	const uint16 icon = message->GetUInt16("icon", fIconID);
	if (icon != fIconID) {
		fIconID = icon;
		changed = true;
	}
	return changed;
}


/*!	Nobody logs in without a name. */
const char*
Settings::LoginNickname() const
{
	return fNickname.IsEmpty() ? kDefaultNickname : fNickname.String();
}
