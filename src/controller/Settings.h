/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef SETTINGS_H
#define SETTINGS_H


#include <String.h>
#include <SupportDefs.h>


class BMessage;


/*!	What the user has chosen: kept in memory only, every start begins with the defaults. Lives in
	the main window's thread.
*/
class Settings {
public:
	Settings();

	[[nodiscard]] bool Apply(const BMessage* message);

	const char* Nickname() const { return fNickname.String(); }
	const char* LoginNickname() const;
	uint16 IconID() const { return fIconID; }
	const char* TrackerAddress() const { return fTrackerAddress.String(); }

private:
	BString fNickname;
	uint16 fIconID;
	BString fTrackerAddress;
};


#endif // SETTINGS_H
