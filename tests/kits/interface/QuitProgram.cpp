/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// A program that quits in the way that its argument names, and prints what happened on the way. It
// ends with status 0 when BApplication::Run() returns. ApplicationTest starts it.

#include <atomic>
#include <cstdio>
#include <string>
#include <unistd.h>

#include <Application.h>
#include <Message.h>
#include <OS.h>
#include <Roster.h>
#include <Window.h>


namespace {


std::atomic<int> sDyingCount(0);


void
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


status_t
wait_for_all_dying(void* count)
{
	while (sDyingCount < *static_cast<const int*>(count))
		snooze(1000);
	return B_OK;
}


void
wait_until_dying(int count)
{
	status_t result;
	const thread_id thread = spawn_thread(wait_for_all_dying, "wait", B_NORMAL_PRIORITY, &count);
	resume_thread(thread);
	wait_for_thread(thread, &result);
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


status_t
post_for_ever(void* data)
{
	BWindow* window = static_cast<BWindow*>(data);
	while (true)
		window->PostMessage('ping');
	return B_OK;
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
		if (fScenario.compare(0, 6, "order ") == 0)
			_CloseInOrder(fScenario.c_str() + 6);
		else if (fScenario == "controller")
			_Controller();
		else if (fScenario == "refusal")
			_Refusal();
		else if (fScenario == "waiting")
			_Waiting();
		else if (fScenario == "threads")
			_Threads();
		else if (fScenario == "info")
			_Info();
		else if (fScenario == "environment")
			_Environment();
		else
			PostMessage(B_QUIT_REQUESTED);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == 'stop')
			sDyingCount++;
		else if (message->what == 'agai')
			PostMessage(B_QUIT_REQUESTED);
		else
			BApplication::MessageReceived(message);
	}

	bool QuitRequested() override
	{
		const bool result = BApplication::QuitRequested();
		print(result ? "yes" : "no", "application");
		if (!result && fScenario == "refusal")
			PostMessage('agai');
		return result;
	}

private:
	// Three windows that wait for one another, and the application's own end behind them.
	void _CloseInOrder(const char* order)
	{
		const char* const names[] = {"0", "1", "2"};
		BWindow* windows[3];
		for (int i = 0; i < 3; i++) {
			windows[i] = new SlowWindow(names[i]);
			windows[i]->Show();
		}
		for (; *order != '\0'; order++)
			windows[*order - '0']->PostMessage(B_QUIT_REQUESTED);
		PostMessage(B_QUIT_REQUESTED);
	}

	void _Controller()
	{
		BWindow* controller = new ControllerWindow("main");
		BWindow* other = new TalkingWindow("other");
		controller->Show();
		other->Show();
		controller->PostMessage(B_QUIT_REQUESTED);
	}

	void _Refusal()
	{
		BWindow* first = new TalkingWindow("first");
		StubbornWindow* stubborn = new StubbornWindow("stubborn");
		BWindow* last = new TalkingWindow("last");
		stubborn->RefuseOnly(1);
		first->Show();
		stubborn->Show();
		last->Show();
		PostMessage(B_QUIT_REQUESTED);
	}

	void _Waiting()
	{
		BWindow* first = new TalkingWindow("first");
		BWindow* waiting = new WaitingWindow("waiting");
		first->Show();
		waiting->Show();
		waiting->PostMessage('wait');
	}

	void _Threads()
	{
		BWindow* window = new TalkingWindow("window");
		window->Show();
		for (int i = 0; i < 4; i++)
			resume_thread(spawn_thread(post_for_ever, "poster", B_NORMAL_PRIORITY, window));
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
};


} // namespace


int
main(int argumentCount, char** arguments)
{
	Program program(argumentCount > 1 ? arguments[1] : "");
	program.Run();
	return 0;
}
