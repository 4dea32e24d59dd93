/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <CaretBlink.h>

#include <QApplication>
#include <QPointer>


// In milliseconds.
static const int kRestAfter = 10000;


CaretBlink*
CaretBlink::Default()
{
	static QPointer<CaretBlink> sDefault;
	if (sDefault.isNull())
		sDefault = new CaretBlink(qApp);
	return sDefault;
}


CaretBlink::CaretBlink(QObject* application)
	: QObject(application),
	  fRestAfter(kRestAfter),
	  fBlinkTime(-1)
{
}


void
CaretBlink::GoOn()
{
	if (fBlinkTime >= 0)
		QApplication::setCursorFlashTime(fBlinkTime);
	fBlinkTime = -1;
	fTimer.start(fRestAfter, this);
}


void
CaretBlink::timerEvent(QTimerEvent* /*event*/)
{
	fTimer.stop();
	fBlinkTime = QApplication::cursorFlashTime();
	QApplication::setCursorFlashTime(0);
}
