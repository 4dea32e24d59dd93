/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef TRACKER_WINDOW_H
#define TRACKER_WINDOW_H


#include <atomic>
#include <memory>

#include <Messenger.h>
#include <OS.h>
#include <String.h>
#include <Window.h>


class BListView;
class BLooper;
class BScrollView;
class BStringView;
class TrackerFetch;


/*!	The servers that one tracker knows.
	Each listing is fetched by a thread of the window's own, which posts the rows one by one; when
	the window closes it stops the thread and waits for it. Choosing a row posts kMsgConnectServer
	to the controller.
*/
class TrackerWindow : public BWindow {
public:
	TrackerWindow(BRect frame, BLooper* target, const char* trackerAddress);
	~TrackerWindow() override;

	void MessageReceived(BMessage* message) override;
	bool QuitRequested() override;

private:
	void _InitLayout();
	void _StartFetch();
	void _HandleServer(const BMessage* message);
	void _HandleDone();
	void _HandleError(const BMessage* message);
	void _ShowError(const char* error);
	void _HandleRefresh();
	void _HandleInvoke();

	// The fetch thread's.
	static status_t _FetchThreadEntry(void* data);
	status_t _FetchServers();

	BListView* fServerList;
	BScrollView* fServerScroll;
	BStringView* fStatusLabel;
	BLooper* fTarget;
	BMessenger fMessenger{fTarget};

	// Set before the fetch thread starts, which only reads it.
	BString fTrackerAddress;
	thread_id fFetchThread;
	// Read by the fetch thread, which ends early once it is false.
	std::atomic<bool> fRunning;
	// Set before each fetch thread starts, which takes a share in it.
	std::shared_ptr<TrackerFetch> fFetch;
};


#endif // TRACKER_WINDOW_H
