/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#ifndef APPLICATION_H
#define APPLICATION_H


#include <Looper.h>
#include <Messenger.h>
#include <String.h>


class ApplicationPeer;
class BWindow;
struct app_info;


/*!	The program. Created once, before any window, view or font, on the main thread, whose events it
	serves in Run().
	It may be an object on the stack; unlike other loopers it does not delete itself.
*/
class BApplication : public BLooper {
public:
	BApplication(const char* signature);
	BApplication(const char* signature, status_t* _error) = delete;
	~BApplication() override;

	thread_id Run() override;
	void Quit() override;
	bool QuitRequested() override;
	void DispatchMessage(BMessage* message, BHandler* handler) override;
	void MessageReceived(BMessage* message) override;

	virtual void ReadyToRun();
	virtual void AboutRequested();

	int32 CountWindows() const;
	BWindow* WindowAt(int32 index) const;
	status_t GetAppInfo(app_info* _info) const;
	const char* Signature() const { return fSignature.String(); }

private:
	BString fSignature;
	ApplicationPeer* fPeer;
	bool fIsQuitting;
	bool fIsReady;
};


extern BApplication* be_app;
extern BMessenger be_app_messenger;


#endif // APPLICATION_H
