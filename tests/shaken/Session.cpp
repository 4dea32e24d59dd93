/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "Session.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <unistd.h>

#include <Button.h>
#include <ListView.h>
#include <Messenger.h>
#include <OS.h>
#include <TextControl.h>
#include <TextView.h>
#include <Window.h>

#include "AppMessages.h"
#include "UserItem.h"


static const uint32 kMsgStep = 'step';

// In microseconds.
static const bigtime_t kPatience = 60 * 1000000LL;
static const bigtime_t kPause = 200;


Session::Session(unsigned seed, uint16 port, uint16 trackerPort)
	: fRandom(seed),
	  fPort(port),
	  fTrackerPort(trackerPort),
	  fNext(0),
	  fHasActed(false),
	  fHasFinished(false),
	  fDeadline(0),
	  fSaidBefore(0),
	  fVisits(0),
	  fLines(0)
{
	_Plan();
}


void
Session::ReadyToRun()
{
	App::ReadyToRun();
	fDeadline = system_time() + kPatience;
	PostMessage(kMsgStep);
}


void
Session::MessageReceived(BMessage* message)
{
	if (message->what == kMsgStep)
		_TakeStep();
	else
		App::MessageReceived(message);
}


/*!	\param isDone \c NULL where nothing is to be waited for. */
void
Session::_Add(const std::string& name, const std::function<void()>& action,
	const std::function<bool()>& isDone)
{
	fSteps.push_back({name, action, isDone});
}


void
Session::_TakeStep()
{
	if (fNext == fSteps.size())
		return;

	const Step& step = fSteps[fNext];
	if (!fHasActed) {
		fHasActed = true;
		fSaidBefore = _Transcript("Chat", "chatview").size();
		step.action();
	} else if (step.isDone == NULL || step.isDone()) {
		fHasActed = false;
		fNext++;
	} else if (system_time() > fDeadline)
		_GiveUp();
	else
		snooze(kPause);
	PostMessage(kMsgStep);
}


void
Session::_GiveUp()
{
	fprintf(stderr, "step %zu, \"%s\", does not end. The chat:\n%s\nWindows:", fNext,
		fSteps[fNext].name.c_str(), _Transcript("Chat", "chatview").c_str());
	_With("", [](BWindow* window) {
		fprintf(stderr, " \"%s\"", window->Title());
	});
	fprintf(stderr, "\n");
	_exit(1);
}


/*!	\param use Called for every window whose title begins so, while it is locked.
	\return Whether there is one.
*/
bool
Session::_With(const std::string& title, const std::function<void(BWindow*)>& use)
{
	bool isThere = false;
	for (int32 i = 0; i < CountWindows(); i++) {
		BWindow* window = WindowAt(i);
		if (window == NULL || !window->Lock())
			continue;
		if (strncmp(window->Title(), title.c_str(), title.size()) == 0) {
			isThere = true;
			use(window);
		}
		window->Unlock();
	}
	return isThere;
}


bool
Session::_HasWindow(const std::string& title)
{
	return _With(title, [](BWindow*) {});
}


void
Session::_PostToMain(BMessage* message)
{
	_With("Palimbra", [message](BWindow* window) {
		window->PostMessage(message);
	});
}


void
Session::_PostToMain(uint32 what)
{
	BMessage message(what);
	_PostToMain(&message);
}


void
Session::_PostTo(const std::string& title, uint32 what)
{
	_With(title, [what](BWindow* window) {
		window->PostMessage(what);
	});
}


void
Session::_Press(const std::string& title, const char* control)
{
	_With(title, [control](BWindow* window) {
		dynamic_cast<BControl&>(*window->FindView(control)).Invoke();
	});
}


/*!	Types a text and presses Return. */
void
Session::_Type(const std::string& title, const char* field, const std::string& text)
{
	_With(title, [field, &text](BWindow* window) {
		BTextControl& control = dynamic_cast<BTextControl&>(*window->FindView(field));
		control.MakeFocus(true);
		control.SetText(text.c_str());
		control.Invoke();
	});
}


void
Session::_Say(const std::string& text)
{
	_Type("Chat", "chatinput", text);
}


std::string
Session::_Transcript(const std::string& title, const char* textView)
{
	std::string text;
	_With(title, [&](BWindow* window) {
		text = dynamic_cast<BTextView&>(*window->FindView(textView)).Text();
	});
	return text;
}


/*!	How often the chat has that text. */
size_t
Session::_CountInChat(const std::string& text)
{
	const std::string transcript = _Transcript("Chat", "chatview");
	size_t count = 0;
	for (size_t at = transcript.find(text); at != std::string::npos;
		 at = transcript.find(text, at + 1))
		count++;
	return count;
}


/*!	Whether that text has come into the chat since the step began. */
bool
Session::_HasSaid(const std::string& text)
{
	return _Transcript("Chat", "chatview").find(text, fSaidBefore) != std::string::npos;
}


/*!	How many rows there are in the one of the windows that has most. Of two that show one folder the
	first gets its listing.
*/
int32
Session::_CountRows(const std::string& title, const char* list)
{
	int32 rows = 0;
	_With(title, [&](BWindow* window) {
		rows = std::max(rows, dynamic_cast<BListView&>(*window->FindView(list)).CountItems());
	});
	return rows;
}


void
Session::_Connect()
{
	fVisits++;
	BMessage connect(kMsgConnectServer);
	connect.AddString("address", "127.0.0.1");
	connect.AddInt16("port", static_cast<int16>(fPort));
	_PostToMain(&connect);
}


/*!	With somebody of the user list. */
void
Session::_OpenConversation()
{
	BMessage open(kMsgOpenPM);
	_With("Users Online", [&](BWindow* window) {
		const BListView& list = dynamic_cast<BListView&>(*window->FindView("userlist"));
		const UserItem& user = dynamic_cast<UserItem&>(
			*list.ItemAt(static_cast<int32>(_Choose(static_cast<size_t>(list.CountItems())))));
		fPartner = user.Text();
		open.AddUInt16("socket", user.Socket());
		open.AddString("nick", user.Text());
	});
	_PostToMain(&open);
}
