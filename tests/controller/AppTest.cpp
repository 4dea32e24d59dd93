/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "App.h"

#include <gtest/gtest.h>

#include <Message.h>
#include <OS.h>

#include "AboutWindow.h"
#include "ChatWindow.h"
#include "ControllerFixture.h"
#include "MainWindow.h"
#include "UserListWindow.h"


static const uint32 kMsgLook = 'look';

// In microseconds.
static const bigtime_t kPatience = 10000000;


/*!	Asks for the about window when it is ready, looks until that is there, and has the main window
	quit.
*/
class LookingApp : public App {
public:
	LookingApp()
		: fDeadline(system_time() + kPatience)
	{
	}

	void ReadyToRun() override
	{
		App::ReadyToRun();
		EXPECT_EQ(1, count_windows<MainWindow>());
		EXPECT_EQ(1, count_windows<ChatWindow>());
		EXPECT_EQ(1, count_windows<UserListWindow>());
		EXPECT_FALSE(find_window<MainWindow>()->IsHidden());
		PostMessage(B_ABOUT_REQUESTED);
		PostMessage(kMsgLook);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what != kMsgLook) {
			App::MessageReceived(message);
			return;
		}
		if (system_time() > fDeadline) {
			ADD_FAILURE() << "still running";
			Quit();
		}
		if (aboutWindows == 0) {
			aboutWindows = count_windows<AboutWindow>();
			if (aboutWindows > 0)
				find_window<MainWindow>()->PostMessage(B_QUIT_REQUESTED);
		}
		PostMessage(kMsgLook);
	}

	int32 aboutWindows = 0;

private:
	bigtime_t fDeadline;
};


TEST(AppTest, Application_LivesAsLongAsTheMainWindow)
{
	LookingApp app;
	EXPECT_STREQ("application/x-vnd.Haiku-Palimbra", app.Signature());
	// There is nobody yet to pass it on to.
	app.AboutRequested();
	EXPECT_EQ(0, app.CountWindows());

	app.Run();
	EXPECT_EQ(1, app.aboutWindows);
	EXPECT_EQ(0, app.CountWindows());
}
