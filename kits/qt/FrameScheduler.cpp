/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <FrameScheduler.h>

#include <algorithm>

#include <QBasicTimer>
#include <QObject>
#include <QTimerEvent>

#include <OS.h>


// In microseconds. Also when a flush takes longer than a frame something else gets its turn before
// the next one.
static const bigtime_t kFrame = 16000;
static const bigtime_t kLeastPause = 4000;


/*!	A QBasicTimer that runs while something waits. */
class FrameTimer : public QObject {
public:
	explicit FrameTimer(FrameScheduler* scheduler)
		: fScheduler(scheduler)
	{
	}

	bool IsRunning() const { return fTimer.isActive(); }
	void Start(bigtime_t delay)
	{
		fTimer.start(static_cast<int>((delay + 999) / 1000), Qt::PreciseTimer, this);
	}

protected:
	void timerEvent(QTimerEvent* /*event*/) override
	{
		fTimer.stop();
		fScheduler->FlushAll();
	}

private:
	FrameScheduler* fScheduler;
	QBasicTimer fTimer;
};


// #pragma mark - FrameClient


FrameClient::FrameClient()
	: fIsScheduled(false)
{
}


FrameClient::~FrameClient()
{
	if (fIsScheduled)
		FrameScheduler::Default()->Remove(this);
}


void
FrameClient::ScheduleFlush()
{
	if (!fIsScheduled)
		FrameScheduler::Default()->Add(this);
}


void
FrameClient::FlushNow()
{
	if (fIsScheduled) {
		FrameScheduler::Default()->Remove(this);
		Flush();
	}
}


// #pragma mark - FrameScheduler


FrameScheduler::FrameScheduler()
	: fIsFlushing(false),
	  fLastStart(0),
	  fLastEnd(0)
{
}


FrameScheduler*
FrameScheduler::Default()
{
	static FrameScheduler* const sScheduler = new FrameScheduler;
	return sScheduler;
}


void
FrameScheduler::Add(FrameClient* client)
{
	client->fIsScheduled = true;
	fWaiting.push_back(client);
	_Start();
}


void
FrameScheduler::Remove(FrameClient* client)
{
	client->fIsScheduled = false;
	std::replace(fWaiting.begin(), fWaiting.end(), client, static_cast<FrameClient*>(NULL));
	std::replace(fFlushing.begin(), fFlushing.end(), client, static_cast<FrameClient*>(NULL));
}


/*!	A client that asks again meanwhile waits for the next frame. */
void
FrameScheduler::FlushAll()
{
	if (fIsFlushing)
		return;

	fIsFlushing = true;
	fLastStart = system_time();
	fFlushing.swap(fWaiting);
	for (size_t i = 0; i < fFlushing.size(); i++) {
		FrameClient* client = fFlushing[i];
		if (client == NULL)
			continue;
		fFlushing[i] = NULL;
		client->fIsScheduled = false;
		client->Flush();
	}
	fFlushing.clear();
	fIsFlushing = false;
	fLastEnd = system_time();

	if (!fWaiting.empty())
		_Start();
}


void
FrameScheduler::Stop()
{
	fTimer.reset();
}


void
FrameScheduler::_Start()
{
	if (fTimer == NULL)
		fTimer = std::make_unique<FrameTimer>(this);
	if (fIsFlushing || fTimer->IsRunning())
		return;

	const bigtime_t due = std::max(fLastStart + kFrame, fLastEnd + kLeastPause);
	fTimer->Start(std::max(static_cast<bigtime_t>(0), due - system_time()));
}
