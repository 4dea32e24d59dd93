/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <StartPreparation.h>

#include <QBuffer>
#include <QDBusConnection>
#include <QGuiApplication>
#include <QImageReader>

#include <OS.h>


static thread_id sThread = -1;


static void
load_picture_readers()
{
	// Asked about any picture, QImageReader loads them all.
	QBuffer nothing;
	nothing.open(QIODevice::ReadOnly);
	QImageReader(&nothing, "png").canRead();
}


static status_t
prepare(void* isOnScreen)
{
	load_picture_readers();
	if (isOnScreen != NULL)
		QDBusConnection::sessionBus();
	return B_OK;
}


void
prepare_start()
{
	// The platform without a screen has no screen readers.
	static bool sIsOnScreen = true;
	const bool isOnScreen = QGuiApplication::platformName() != QLatin1String("offscreen");
	sThread = spawn_thread(prepare, "start", B_NORMAL_PRIORITY, isOnScreen ? &sIsOnScreen : NULL);
	resume_thread(sThread);
}


void
end_start_preparation()
{
	wait_for_thread(sThread, NULL);
}
