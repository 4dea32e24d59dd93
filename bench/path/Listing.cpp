/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Shows a folder of many files as the program does: connected, with its main window, in a file list
// window.

#include <string>

#include <Application.h>
#include <ApplicationPrivate.h>
#include <Message.h>
#include <OS.h>

#include "AppMessages.h"
#include "Fail.h"
#include "Figures.h"
#include "ListingMeasure.h"
#include "MainWindow.h"
#include "Partner.h"


static const char* const kRowCount = "10000";

// In microseconds.
static const bigtime_t kDeadline = 10000000;


static QListView*
await_list(const char* title)
{
	const bigtime_t deadline = system_time() + kDeadline;
	while (FindList(title) == NULL) {
		if (system_time() > deadline)
			Fail(title);
		ApplicationPrivate::ProcessEvents(10000);
	}
	Settle();
	return FindList(title);
}


int
main(int argumentCount, char** arguments)
{
	const std::string rowCount = argumentCount > 1 ? arguments[1] : kRowCount;
	Partner partner({"listing", rowCount});
	BApplication application("application/x-vnd.Palimbra-bench");
	ApplicationPrivate::Start(&application);
	MainWindow* window = new MainWindow();
	window->Show();

	BMessage connect(kMsgConnectServer);
	connect.AddString("address", "127.0.0.1");
	connect.AddInt16("port", static_cast<int16>(partner.Port()));
	window->PostMessage(&connect);
	await_list("Users Online (1)");
	window->PostMessage(kMsgToolFiles);
	QListView* list = await_list("Files");

	Figures figures;
	MeasureListing(list, std::stoi(rowCount), partner, figures);
	figures.Print();
	window->PostMessage(B_QUIT_REQUESTED);
	application.Run();
	return 0;
}
