/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
// Transfers files with the program's own threads, several one after another or at once.
// usage: bench_transfers download|upload SIZE turns|together PATH...

#include <atomic>
#include <cstring>
#include <vector>

#include <Looper.h>
#include <Message.h>
#include <OS.h>

#include "Clocks.h"
#include "Fail.h"
#include "Figures.h"
#include "Partner.h"
#include "TransferThreads.h"


/*!	Stands where the main window does and counts the transfers that have succeeded. */
class Target : public BLooper {
public:
	Target()
		: BLooper("target"),
		  fDone(0)
	{
	}

	void MessageReceived(BMessage* message) override
	{
		if (!message->GetBool("success", false))
			Fail("transfer");
		fDone++;
	}

	void WaitFor(size_t count) const
	{
		while (fDone < count)
			snooze(1000);
	}

private:
	std::atomic<size_t> fDone;
};


template<class Info>
static thread_id
start(status_t (*entry)(void*), const char* name, uint16 port, const char* path, Target* target)
{
	Info* info = new Info();
	info->address = "127.0.0.1";
	// Transfers travel on the port after that of the control connection.
	info->port = static_cast<uint16>(port - 1);
	info->ref = 1;
	info->localPath = path;
	info->filename = "cargo";
	info->target = target;
	const thread_id thread = spawn_thread(entry, name, B_NORMAL_PRIORITY, info);
	resume_thread(thread);
	return thread;
}


int
main(int argumentCount, char** arguments)
{
	if (argumentCount < 5)
		Fail("arguments");
	const bool isDownload = strcmp(arguments[1], "download") == 0;
	const bool inTurn = strcmp(arguments[3], "turns") == 0;
	const std::vector<const char*> paths(arguments + 4, arguments + argumentCount);

	Partner partner({isDownload ? "files" : "uploads", arguments[2]});
	Target* target = new Target();
	target->Run();

	const double wall = WallTime();
	const double cpu = ProcessTime();
	std::vector<thread_id> threads;
	for (const char* path : paths) {
		if (isDownload)
			threads.push_back(
				start<DownloadInfo>(DownloadThread, "HL:Download", partner.Port(), path, target));
		else
			threads.push_back(
				start<UploadInfo>(UploadThread, "HL:Upload", partner.Port(), path, target));
		if (inTurn)
			wait_for_thread(threads.back(), NULL);
	}
	for (const thread_id thread : threads)
		wait_for_thread(thread, NULL);
	const double usedCpu = ProcessTime() - cpu;
	const double usedWall = WallTime() - wall;
	target->WaitFor(paths.size());

	Figures figures;
	figures.Add("cpu_s", usedCpu);
	figures.Add("mb_per_s",
		std::stod(arguments[2]) * static_cast<double>(paths.size()) / usedWall / 1e6);
	figures.Print();
	return 0;
}
