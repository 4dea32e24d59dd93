/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <atomic>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include <Looper.h>
#include <Message.h>

#include "ClientFixture.h"
#include "Gate.h"
#include "Interposed.h"
#include "WaitFor.h"


static const uint32 kMsgHold = 'hold';


/*!	A target that can be kept busy, and that deletes the client on its own thread. */
class BusyTarget : public BLooper {
public:
	// Borrows the gate at which it is held.
	explicit BusyTarget(Gate* gate)
		: BLooper("busy target"),
		  fGate(gate)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		if (message->what == kMsgHold) {
			fGate->Enter();
			if (deletesClient) {
				client.reset();
				isDeleted.set_value();
			}
			if (quits)
				Quit();
		}
	}

	std::promise<void> isDeleted;
	std::unique_ptr<HotlineClient> client;
	bool deletesClient = false;
	bool quits = false;

private:
	Gate* const fGate;
};


class ClientTargetTest : public ClientTest {
public:
	Gate gate;
	BusyTarget* target;
	std::thread sender;

protected:
	ClientTargetTest()
		: target(new BusyTarget(&gate)),
		  fReads(0)
	{
		Interposed::receive = [this](int number, void* buffer, size_t size, int flags) {
			fReads++;
			return Interposed::RealReceive(number, buffer, size, flags);
		};
		target->Run();
	}

	// Has the client wait for room in the queue of its target, which is busy.
	void FillTheQueue()
	{
		target->PostMessage(kMsgHold);
		gate.WaitForArrival();
		client.reset(new HotlineClient(target));
		Connect();
		AcceptHandshake();
		server->ReadTransaction();

		const int kLines = 30000;
		std::string flood;
		for (int i = 0; i < kLines; i++)
			flood += Chat("x");
		sender = std::thread([this, flood] {
			server->Send(flood);
		});
		// Two reads for each message, of which the queue takes 20,000.
		ASSERT_TRUE(WaitFor(
			[&] {
				return fReads > 2 * 20001;
			},
			60));
	}

private:
	std::atomic<int> fReads;
};


TEST_F(ClientTargetTest, DeletedOnTheThreadOfATargetWithAFullQueue_Ends)
{
	target->deletesClient = true;
	target->quits = true;
	FillTheQueue();
	target->client = std::move(client);
	std::future<void> deletion = target->isDeleted.get_future();
	gate.Open();
	EXPECT_TRUE(server->WaitForEnd());
	sender.join();
	deletion.wait();
}


TEST_F(ClientTargetTest, DeletedElsewhereWhileTheTargetIsBusy_Ends)
{
	FillTheQueue();
	client.reset();
	EXPECT_TRUE(server->WaitForEnd());
	sender.join();
	target->quits = true;
	gate.Open();
}


TEST_F(ClientTargetTest, TargetThatQuits_LetsTheClientGoOn)
{
	target->quits = true;
	FillTheQueue();
	gate.Open();
	sender.join();
	// The flood is read to its end although nobody listens.
	client->SendChat("still here");
	EXPECT_EQ(server->ReadTransaction().substr(26), "still here");
	client.reset();
	EXPECT_TRUE(server->WaitForEnd());
}
