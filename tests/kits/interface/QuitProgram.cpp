/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// A program that quits in the way that its argument names, and prints what happened on the way. It
// ends with status 0 when BApplication::Run() returns. ApplicationTest starts it.

#include <atomic>
#include <cstdio>
#include <map>
#include <string>
#include <unistd.h>

#include <Application.h>
#include <Message.h>
#include <Messenger.h>
#include <OS.h>
#include <Roster.h>
#include <Window.h>

#include "RunThread.h"


static std::atomic<int> sDyingCount(0);


static void
print(const char* what, const char* who)
{
	printf("%s:%s ", what, who);
	fflush(stdout);
}


/*!	A window that says what happens to it. */
class TalkingWindow : public BWindow {
public:
	explicit TalkingWindow(const char* title)
		: BWindow(BRect(100, 100, 200, 200), title, B_TITLED_WINDOW, 0)
	{
	}
	~TalkingWindow() override { print("gone", Title()); }

	bool QuitRequested() override
	{
		print("asked", Title());
		return true;
	}
};


static void
wait_until_dying(int count)
{
	Join(RunThread([count] {
		while (sDyingCount < count)
			snooze(1000);
	}));
}


/*!	Waits in its destructor until three windows are in theirs. */
class SlowWindow : public TalkingWindow {
public:
	using TalkingWindow::TalkingWindow;
	~SlowWindow() override
	{
		sDyingCount++;
		wait_until_dying(3);
	}
};


/*!	Refuses, as windows do that are only ever put away. */
class StubbornWindow : public TalkingWindow {
public:
	using TalkingWindow::TalkingWindow;
	bool QuitRequested() override
	{
		TalkingWindow::QuitRequested();
		return fRefusals-- <= 0;
	}
	// It is still served when it has refused.
	void MessageReceived(BMessage* message) override
	{
		if (message->what == 'agai')
			be_app->PostMessage(B_QUIT_REQUESTED);
		else
			TalkingWindow::MessageReceived(message);
	}
	void RefuseOnly(int times) { fRefusals = times; }

private:
	int fRefusals = 1000000;
};


/*!	Asks the application to quit when it is asked itself, and takes its stubborn windows with it. */
class ControllerWindow : public TalkingWindow {
public:
	explicit ControllerWindow(const char* title)
		: TalkingWindow(title)
	{
		for (int i = 0; i < 2; i++) {
			fWindows[i] = new StubbornWindow(i == 0 ? "chat" : "users");
			fWindows[i]->Show();
			fWindows[i]->Minimize(true);
		}
	}
	~ControllerWindow() override
	{
		for (BWindow* window : fWindows) {
			if (window->Lock())
				window->Quit();
		}
	}

	bool QuitRequested() override
	{
		be_app->PostMessage(B_QUIT_REQUESTED);
		return TalkingWindow::QuitRequested();
	}

private:
	BWindow* fWindows[2];
};


/*!	Waits in a handler until the application has asked the other windows. */
class WaitingWindow : public TalkingWindow {
public:
	using TalkingWindow::TalkingWindow;
	void MessageReceived(BMessage* message) override
	{
		if (message->what != 'wait') {
			TalkingWindow::MessageReceived(message);
			return;
		}
		be_app->PostMessage(B_QUIT_REQUESTED);
		be_app->PostMessage('stop');
		wait_until_dying(1);
		print("waited", Title());
	}
};


template<class WindowType>
static WindowType*
show(const char* title)
{
	WindowType* window = new WindowType(title);
	window->Show();
	return window;
}


class Program : public BApplication {
public:
	explicit Program(const char* scenario)
		: BApplication("application/x-vnd.Palimbra-quit"),
		  fScenario(scenario)
	{
	}

	void ReadyToRun() override
	{
		static const std::map<std::string, void (Program::*)()> kScenarios = {
			{"controller", &Program::_Controller},
			{"refusal", &Program::_Refusal},
			{"waiting", &Program::_Waiting},
			{"threads", &Program::_Threads},
			{"info", &Program::_Info},
			{"environment", &Program::_Environment},
		};
		if (fScenario.compare(0, 6, "order ") == 0)
			_CloseInOrder(fScenario.c_str() + 6);
		else
			(this->*kScenarios.at(fScenario))();
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == 'stop')
			sDyingCount++;
		else
			BApplication::MessageReceived(message);
	}

	bool QuitRequested() override
	{
		const bool result = BApplication::QuitRequested();
		print(result ? "yes" : "no", "application");
		if (!result && fScenario == "refusal")
			fStubborn.SendMessage('agai');
		return result;
	}

private:
	// Three windows that wait for one another, and the application's own end behind them.
	void _CloseInOrder(const char* order)
	{
		const char* const names[] = {"0", "1", "2"};
		BWindow* windows[3];
		for (int i = 0; i < 3; i++)
			windows[i] = show<SlowWindow>(names[i]);
		for (; *order != '\0'; order++)
			windows[*order - '0']->PostMessage(B_QUIT_REQUESTED);
		PostMessage(B_QUIT_REQUESTED);
	}

	void _Controller()
	{
		BWindow* controller = show<ControllerWindow>("main");
		show<TalkingWindow>("other");
		controller->PostMessage(B_QUIT_REQUESTED);
	}

	void _Refusal()
	{
		show<TalkingWindow>("first");
		StubbornWindow* stubborn = show<StubbornWindow>("stubborn");
		stubborn->RefuseOnly(1);
		fStubborn = BMessenger(stubborn);
		show<TalkingWindow>("last");
		PostMessage(B_QUIT_REQUESTED);
	}

	void _Waiting()
	{
		show<TalkingWindow>("first");
		show<WaitingWindow>("waiting")->PostMessage('wait');
	}

	void _Threads()
	{
		const BMessenger window(show<TalkingWindow>("window"));
		for (int i = 0; i < 4; i++) {
			RunThread([window] {
				while (true)
					window.SendMessage('ping');
			});
		}
		PostMessage(B_QUIT_REQUESTED);
	}

	void _Info()
	{
		app_info info;
		const status_t status = GetAppInfo(&info);
		print(status == B_OK ? "ok" : "error", info.ref.name);
		print("signature", info.signature);
		PostMessage(B_QUIT_REQUESTED);
	}

	// Prints the last variable of the environment.
	void _Environment()
	{
		char** last = environ;
		while (last[1] != NULL)
			last++;
		print("last", *last);
		PostMessage(B_QUIT_REQUESTED);
	}

	const std::string fScenario;
	BMessenger fStubborn;
};


int
main(int argumentCount, char** arguments)
{
	Program program(argumentCount > 1 ? arguments[1] : "");
	program.Run();
	return 0;
}
