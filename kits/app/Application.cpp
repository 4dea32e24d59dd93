/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <Application.h>

#include <limits.h>
#include <unistd.h>

#include <cstring>

#include <ApplicationPeer.h>
#include <ApplicationPrivate.h>
#include <ClientScope.h>
#include <Entry.h>
#include <LooperPrivate.h>
#include <MainServer.h>
#include <Roster.h>
#include <Window.h>
#include <WindowPeer.h>


BApplication* be_app = NULL;
BMessenger be_app_messenger;


/*!	One that cannot be asked, because a handler of its own is waiting, has the application asked
	again when that is left.
*/
static bool
ask_to_quit(BWindow* window)
{
	ClientScope scope(window);
	if (!scope.MayEnter()) {
		WindowPeer::Of(window)->Life()->AskApplicationAgain();
		return false;
	}
	return window->QuitRequested();
}


/*!	\param signature The program's MIME type. */
BApplication::BApplication(const char* signature)
	: BLooper(signature),
	  fSignature(signature),
	  fPeer(new ApplicationPeer),
	  fIsQuitting(false),
	  fIsReady(false)
{
	LooperPrivate::ServeByMainThread(this);
	MainServer::Default()->SetApplication(this);
	be_app = this;
	be_app_messenger = BMessenger(this);
	PostMessage(B_READY_TO_RUN);
}


/*!	Windows that are left are not deleted: they do that when they quit. */
BApplication::~BApplication()
{
	LooperPrivate::BeginDestruction(this);
	be_app_messenger = BMessenger();
	be_app = NULL;
	delete fPeer;
}


/*!	Serves the program until it quits. */
thread_id
BApplication::Run()
{
	LooperPrivate::Start(this);
	while (!fIsQuitting)
		ApplicationPeer::ProcessEvents();
	return Thread();
}


/*!	Ends Run(). */
void
BApplication::Quit()
{
	fIsQuitting = true;
}


/*!	Asks all windows to quit, the oldest first, until one refuses; those before it are gone then. */
bool
BApplication::QuitRequested()
{
	std::vector<BLooper*> windows;
	MainServer::Default()->GetWindows(windows);
	for (BLooper* looper : windows) {
		// A window that has been asked may have taken others with it.
		if (!looper->Lock())
			continue;

		BWindow* window = static_cast<BWindow*>(looper);
		if (!ask_to_quit(window)) {
			window->Unlock();
			return false;
		}
		window->Quit();
	}
	return true;
}


void
BApplication::DispatchMessage(BMessage* message, BHandler* handler)
{
	if (message->what != B_READY_TO_RUN || handler != this) {
		BLooper::DispatchMessage(message, handler);
		return;
	}
	if (!fIsReady) {
		fIsReady = true;
		ReadyToRun();
	}
}


void
BApplication::MessageReceived(BMessage* message)
{
	if (message->what == B_ABOUT_REQUESTED)
		AboutRequested();
	else
		BLooper::MessageReceived(message);
}


/*!	Called once, as the first thing in Run(). */
void
BApplication::ReadyToRun()
{
}


void
BApplication::AboutRequested()
{
}


int32
BApplication::CountWindows() const
{
	std::vector<BLooper*> windows;
	MainServer::Default()->GetWindows(windows);
	return static_cast<int32>(windows.size());
}


/*!	In order of creation. */
BWindow*
BApplication::WindowAt(int32 index) const
{
	std::vector<BLooper*> windows;
	MainServer::Default()->GetWindows(windows);
	if (index < 0 || index >= static_cast<int32>(windows.size()))
		return NULL;
	return static_cast<BWindow*>(windows[index]);
}


/*!	\return An error when the program's own file cannot be found. */
status_t
BApplication::GetAppInfo(app_info* _info) const
{
	char path[PATH_MAX];
	const ssize_t length = readlink("/proc/self/exe", path, sizeof(path) - 1);
	if (length < 0)
		return B_ERROR;
	path[length] = '\0';

	const status_t status = get_ref_for_path(path, &_info->ref);
	if (status != B_OK)
		return status;

	_info->thread = Thread();
	_info->team = team_id(getpid());
	_info->port = -1;
	_info->flags = 0;
	strncpy(_info->signature, fSignature.String(), sizeof(_info->signature) - 1);
	_info->signature[sizeof(_info->signature) - 1] = '\0';
	return B_OK;
}


// #pragma mark - ApplicationPrivate


void
ApplicationPrivate::Start(BApplication* application)
{
	LooperPrivate::Start(application);
}


void
ApplicationPrivate::ProcessEvents(bigtime_t timeout)
{
	ApplicationPeer::ProcessEvents(timeout);
}
