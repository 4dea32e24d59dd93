/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// The user list, with few users and with as many as there are sockets.

#include <benchmark/benchmark.h>

#include <Application.h>
#include <ListView.h>
#include <Message.h>

#include "AppMessages.h"
#include "Fail.h"
#include "UserListWindow.h"


/*!	The window, which is served directly, and the hands that fill it. */
class Users {
public:
	explicit Users(int64 count)
		: fWindow(new UserListWindow(BRect(0, 0, 219, 369), be_app))
	{
		fWindow->Lock();
		for (int64 i = 0; i < count; i++)
			Add(i);
	}

	~Users() { fWindow->Quit(); }

	// Or change, where that socket has a user.
	void Add(int64 socket)
	{
		BMessage message(kMsgAddUser);
		message.AddUInt16("socket", static_cast<uint16>(socket));
		message.AddString("nick", "Bosun");
		fWindow->MessageReceived(&message);
	}

	void Remove(int64 socket)
	{
		BMessage message(kMsgRemoveUser);
		message.AddUInt16("socket", static_cast<uint16>(socket));
		fWindow->MessageReceived(&message);
	}

	int32 Count() const
	{
		return dynamic_cast<BListView*>(fWindow->FindView("userlist"))->CountItems();
	}

private:
	UserListWindow* fWindow;
};


/*!	One comes behind that many, and leaves again. */
static void
Users_ComeAndLeave(benchmark::State& state)
{
	Users users(state.range(0));
	for (auto _ : state) {
		users.Add(state.range(0));
		users.Remove(state.range(0));
	}
	if (users.Count() != state.range(0))
		Fail("coming and leaving");
}
BENCHMARK(Users_ComeAndLeave)->Arg(10)->Arg(65000);


/*!	The last of that many. */
static void
Users_Change(benchmark::State& state)
{
	Users users(state.range(0));
	for (auto _ : state)
		users.Add(state.range(0) - 1);
	if (users.Count() != state.range(0))
		Fail("changing");
}
BENCHMARK(Users_Change)->Arg(10)->Arg(65000);
