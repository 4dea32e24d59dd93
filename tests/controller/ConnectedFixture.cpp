/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ConnectedFixture.h"

#include "AppMessages.h"


void
ConnectedFixture::LogIn()
{
	BMessage connect(kMsgConnectServer);
	connect.AddString("address", "127.0.0.1");
	connect.AddInt16("port", static_cast<int16>(fServer.Port()));
	Post(&connect);
	AwaitChat("*** Connecting to 127.0.0.1:" + std::to_string(fServer.Port()) + " ***\n", 100, 100,
		100);
	fServer.AcceptAndLogIn("Harbor");
	AwaitChat("*** Connected — logging in ***\n", 0, 128, 0);
	AwaitChat("*** Server: Harbor (v190) ***\n", 0, 100, 0);
	AwaitChat("*** Logged in ***\n", 0, 128, 0);
	fServer.ReadRequest(300);
	fServer.ReadRequest(300);
}
