/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Receives chat lines as the program does, up to the notification that is posted to a looper of the main thread, which drops it.

#include <poll.h>
#include <string>

#include <Looper.h>
#include <LooperPrivate.h>
#include <MainServer.h>
#include <Message.h>

#include "Clocks.h"
#include "Fail.h"
#include "Figures.h"
#include "HotlineClient.h"
#include "Partner.h"


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

	void ServeUntil(const bool& flag) const
	{
		while (!flag && !fHasEnded)
			_ServeSome();
	}

	void ServeUntil(long count) const
	{
		while (fCount < count && !fHasEnded)
			_ServeSome();
		if (fHasEnded)
			Fail("connection ended");
	}

	const bool& IsConnected() const { return fIsConnected; }

private:
	static void _ServeSome()
	{
		pollfd wake = {MainServer::Default()->WakeDescriptor(), POLLIN, 0};
		if (poll(&wake, 1, -1) > 0)
			MainServer::Default()->ServeTurn();
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
	Target* target = new Target();
	HotlineClient client(target);
	client.Connect("127.0.0.1", partner.Port(), NULL, NULL, "Mate", 128);
	target->ServeUntil(target->IsConnected());

	const double begin = ProcessTime();
	partner.Go();
	target->ServeUntil(count);
	const double all = ProcessTime() - begin;

	Figures figures;
	figures.Add("receive_us", ThreadTimeOf("HL:Receive") / double(count) * 1e6);
	figures.Add("delivered_us", all / double(count) * 1e6);
	figures.Print();
	return 0;
}
