/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Receives chat lines as the program does, up to the notification that is posted to a looper of the
// main thread, which drops it.

#include <string>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <Looper.h>
#include <LooperPrivate.h>
#include <Message.h>

#include "Clocks.h"
#include "Fail.h"
#include "Figures.h"
#include "HotlineClient.h"
#include "Partner.h"


// In microseconds, for a turn of the main thread without anything to serve.
static const bigtime_t kPatience = 1000000;


/*!	Stands where the main window does, served as that is. */
class Target : public BLooper {
public:
	Target()
		: BLooper("target"),
		  fCount(0),
		  fIsConnected(false),
		  fHasEnded(false)
	{
		LooperPrivate::ServeByMainThread(this);
		LooperPrivate::Start(this);
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kHLChatReceived)
			fCount++;
		else if (message->what == kHLConnected)
			fIsConnected = true;
		else
			fHasEnded = true;
	}

	void AwaitConnection() const
	{
		while (!fIsConnected)
			_ServeSome();
	}

	void AwaitLines(long count) const
	{
		while (fCount < count)
			_ServeSome();
	}

private:
	void _ServeSome() const
	{
		ApplicationPrivate::ProcessEvents(kPatience);
		if (fHasEnded)
			Fail("connection ended");
	}

	long fCount;
	bool fIsConnected;
	bool fHasEnded;
};


int
main(int argumentCount, char** arguments)
{
	const long count = argumentCount > 1 ? atol(arguments[1]) : 1000000;
	Partner partner({"chat", std::to_string(count)});
	BApplication application("application/x-vnd.Palimbra-bench");
	ApplicationPrivate::Start(&application);
	Target* target = new Target();
	HotlineClient client(target);
	client.Connect("127.0.0.1", partner.Port(), NULL, NULL, "Mate", 128);
	target->AwaitConnection();

	const double begin = ProcessTime();
	partner.Go();
	target->AwaitLines(count);
	const double all = ProcessTime() - begin;

	Figures figures;
	figures.Add("receive_us", ThreadTimeOf("HL:Receive") / static_cast<double>(count) * 1e6);
	figures.Add("delivered_us", all / static_cast<double>(count) * 1e6);
	figures.Print();
	return 0;
}
