/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include "ListingMeasure.h"

#include <QApplication>
#include <QEvent>
#include <QListView>
#include <QScrollBar>
#include <QTimer>

#include "Clocks.h"
#include "Fail.h"
#include "Figures.h"
#include "Partner.h"


// In milliseconds.
static const int kSettleTime = 300;
static const int kFillDeadline = 20000;

// A notch of a wheel.
static const int kRowsPerStep = 3;


/*!	Counts how often the rows are painted. */
class PaintCounter : public QObject {
public:
	explicit PaintCounter(QWidget* widget)
		: fCount(0)
	{
		widget->installEventFilter(this);
	}

	int Count() const { return fCount; }

	bool eventFilter(QObject* watched, QEvent* event) override
	{
		if (event->type() == QEvent::Paint)
			fCount++;
		return QObject::eventFilter(watched, event);
	}

private:
	int fCount;
};


static void
process_events_for(int milliseconds)
{
	QTimer timer;
	timer.setSingleShot(true);
	timer.start(milliseconds);
	while (timer.isActive())
		QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}


static void
wait_for_rows(QListView* list, int rowCount)
{
	const PaintCounter counter(list->viewport());
	const double deadline = WallTime() + kFillDeadline / 1000.0;
	while (list->model() == NULL || list->model()->rowCount() < rowCount || counter.Count() == 0) {
		process_events_for(kSettleTime);
		if (WallTime() > deadline)
			Fail("listing");
	}
	Settle();
}


/*!	\return How many steps there were. */
static int
scroll_through(QListView* list)
{
	const PaintCounter counter(list->viewport());
	QScrollBar* bar = list->verticalScrollBar();
	const int step = kRowsPerStep * list->visualRect(list->model()->index(0, 0)).height();
	int count = 0;
	while (bar->value() < bar->maximum()) {
		bar->setValue(bar->value() + step);
		count++;
		while (counter.Count() < count)
			QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
	}
	return count;
}


// #pragma mark -


QListView*
FindList(const char* title)
{
	for (const QWidget* window : QApplication::topLevelWidgets()) {
		if (window->isVisible() && window->windowTitle().startsWith(QLatin1String(title)))
			return window->findChild<QListView*>();
	}
	return NULL;
}


void
Settle()
{
	process_events_for(kSettleTime);
}


/*!	Adds "fill_ms", and "step_us" for each step of three rows; both are CPU. */
void
MeasureListing(QListView* list, int rowCount, Partner& partner, Figures& figures)
{
	const double fillBegin = ProcessTime();
	partner.Go();
	wait_for_rows(list, rowCount);
	figures.Add("fill_ms", (ProcessTime() - fillBegin) * 1e3);

	const double scrollBegin = ProcessTime();
	const int steps = scroll_through(list);
	figures.Add("step_us", (ProcessTime() - scrollBegin) / steps * 1e6);

	figures.Add("width", list->viewport()->width());
	figures.Add("height", list->viewport()->height());
	if (list->viewport()->width() < 100 || steps < rowCount / kRowsPerStep - 20)
		Fail("listing is too small");
}
