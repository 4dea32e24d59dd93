/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Settings.h"

#include <gtest/gtest.h>

#include <Message.h>


TEST(SettingsTest, AtFirst_AreTheDefaults)
{
	const Settings settings;
	EXPECT_STREQ("HaikuUser", settings.Nickname());
	EXPECT_STREQ("HaikuUser", settings.LoginNickname());
	EXPECT_EQ(137, settings.IconID());
	EXPECT_STREQ("hltracker.com", settings.TrackerAddress());
}


// One after the other, each upon what was saved before.
TEST(SettingsTest, Saving_TellsWhetherTheServerHasToHear)
{
	const struct {
		const char* nick;
		const char* tracker;
		int icon; // -1 for no field
		bool changed;
		std::string saved;
	} cases[] = {
		{"", "", -1, false, "HaikuUser 137 hltracker.com"},
		{"HaikuUser", "hltracker.com", 137, false, "HaikuUser 137 hltracker.com"},
		{"", "tracker.example", 137, false, "HaikuUser 137 tracker.example"},
		{"Ann", "", -1, true, "Ann 137 tracker.example"},
		{"", "", 5, true, "Ann 5 tracker.example"},
		{"ann", "other.example", 65535, true, "ann 65535 other.example"},
		{"ann", "", 0, true, "ann 0 other.example"},
		{"", "", 0, false, "ann 0 other.example"},
	};
	Settings settings;
	for (const auto& [nick, tracker, icon, changed, saved] : cases) {
		SCOPED_TRACE(saved);
		BMessage message;
		message.AddString("nick", nick);
		message.AddString("tracker", tracker);
		if (icon >= 0)
			message.AddUInt16("icon", static_cast<uint16>(icon));
		EXPECT_EQ(changed, settings.Apply(&message));
		EXPECT_EQ(saved,
			std::string(settings.LoginNickname()) + " " + std::to_string(settings.IconID()) + " "
				+ settings.TrackerAddress());
	}
	const BMessage empty;
	EXPECT_FALSE(settings.Apply(&empty));
	EXPECT_STREQ("ann", settings.Nickname());
}
