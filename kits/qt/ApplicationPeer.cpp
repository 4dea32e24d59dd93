/*
 * Copyright 2026, The Palimbra developers.
 * Distributed under the terms of the MIT License.
 */
#include <ApplicationPeer.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits.h>
#include <malloc.h>
#include <unistd.h>

#include <QApplication>
#include <QBasicTimer>
#include <QEvent>
#include <QIcon>
#include <QPixmap>
#include <QSocketNotifier>
#include <QTimer>
#include <QTimerEvent>
#include <QToolTip>

#include <Application.h>
#include <Bitmap.h>
#include <BitmapPeer.h>
#include <DescriptorReserve.h>
#include <FontConversion.h>
#include <FontPreparation.h>
#include <FrameScheduler.h>
#include <MainServer.h>
#include <Palette.h>
#include <QuitSignals.h>
#include <StartPreparation.h>
#include <String.h>
#include <ThreadPrivate.h>
#include <TranslationUtils.h>
#include <WindowLife.h>


// In milliseconds: how long a burst gathers before it is served.
static const int kPause = 1;


// Qt gets the program's path, which the window manager names its windows by, and none of
// its arguments.
static char sProgramPath[PATH_MAX] = "application";
static char* sArguments[] = {sProgramPath, NULL};
static int sArgumentCount = 1;


static std::unique_ptr<QApplication>
make_application()
{
	// Each further one keeps 64 MiB of addresses for itself, of which a limit may leave few.
	mallopt(M_ARENA_MAX, 2);

	const ssize_t length = readlink("/proc/self/exe", sProgramPath, sizeof(sProgramPath) - 1);
	if (length > 0)
		sProgramPath[length] = '\0';

	prepare_fonts();
	QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
	QGuiApplication::setDesktopSettingsAware(false);
	QApplication::setStyle(QStringLiteral("fusion"));
	return std::make_unique<QApplication>(sArgumentCount, sArguments);
}


/*!	The picture beside the program that has its name, in the sizes in which title bars and task bars
	show it: they scale worse. Programs without one have no icon.
*/
static void
set_icon()
{
	BString path;
	path.SetToFormat("%s.png", sProgramPath);
	const std::unique_ptr<BBitmap> bitmap(BTranslationUtils::GetBitmapFile(path.String()));
	if (bitmap == NULL)
		return;

	const QImage& image = BitmapPeer::Of(bitmap.get())->Image();
	QIcon icon;
	for (const int size : {16, 24, 32, 48, 64, 128}) {
		icon.addPixmap(QPixmap::fromImage(
			image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
	}
	QGuiApplication::setWindowIcon(icon);
}


/*!	Sets the icon as soon as the first window is on the screen, which need not wait for it. Deletes
	itself then.
*/
class IconSetter : public QObject {
public:
	explicit IconSetter(QObject* application)
		: QObject(application)
	{
		application->installEventFilter(this);
	}

	bool eventFilter(QObject* /*object*/, QEvent* event) override
	{
		if (event->type() == QEvent::Expose) {
			parent()->removeEventFilter(this);
			// Behind the window's own painting.
			startTimer(0);
		}
		return false;
	}

	void timerEvent(QTimerEvent* event) override
	{
		killTimer(event->timerId());
		set_icon();
		deleteLater();
	}
};


/*!	Gives the main server its turns from Qt's event loop.
	In a burst, when another thread posts as fast as the main one serves, each message would wake it
	anew. So a turn that comes right after one which left nothing waits for a moment, and serves
	what has gathered by then. Input, painting and timers do not wait.
*/
class ServerWatch : public QObject {
public:
	explicit ServerWatch(MainServer* server)
		: fServer(server),
		  fNotifier(server->WakeDescriptor(), QSocketNotifier::Read),
		  fServedAll(0)
	{
		connect(&fNotifier, &QSocketNotifier::activated, this, &ServerWatch::_Woken);
	}

	void timerEvent(QTimerEvent* /*event*/) override
	{
		fPause.stop();
		fNotifier.setEnabled(true);
		_ServeTurn();
	}

private:
	void _Woken()
	{
		if (system_time() >= fServedAll + kPause * 1000) {
			_ServeTurn();
			return;
		}

		fNotifier.setEnabled(false);
		fPause.start(kPause, Qt::PreciseTimer, this);
	}

	void _ServeTurn()
	{
		if (!fServer->ServeTurn())
			fServedAll = system_time();
	}

	MainServer* const fServer;
	QSocketNotifier fNotifier;
	QBasicTimer fPause;
	bigtime_t fServedAll;
};


/*!	How wait_for_thread() waits. Windows and timers go on meanwhile. */
static void
wait_on_main_thread(bool (*done)(void*), void* cookie)
{
	while (!done(cookie))
		ApplicationPeer::ProcessEvents();
}


/*!	Nobody waits for threads that are still under way when the process ends, nor for any when Qt ends
	it because the display has gone: they would find destroyed what they use. Nothing is destroyed
	then.
*/
static void
end_at_once(int status, void* /*data*/)
{
	if (be_app == NULL && !have_others_started())
		return;
	fflush(NULL);
	_exit(status);
}


// #pragma mark -


ApplicationPeer::ApplicationPeer()
	: fApplication(make_application())
{
	// QApplication sets the user's locale. Formats in the client keep their decimal point.
	setlocale(LC_NUMERIC, "C");
	prepare_start();

	QGuiApplication::setQuitOnLastWindowClosed(false);
	QApplication::setPalette(make_palette());
	QToolTip::setPalette(QApplication::palette());
	init_fonts();
	new IconSetter(fApplication.get());

	MainServer* server = MainServer::Default();
	fServerWatch = std::make_unique<ServerWatch>(server);
	server->SetWaitHook(wait_on_main_thread);
	reserve_descriptors(fApplication.get());
	watch_quit_signals(fApplication.get());
	on_exit(end_at_once, NULL);
}


ApplicationPeer::~ApplicationPeer()
{
	MainServer::Default()->SetWaitHook(NULL);
	FrameScheduler::Default()->Stop();
	exit_fonts();
	end_start_preparation();
	// Once more: what was registered last is called first.
	on_exit(end_at_once, NULL);
}


void
ApplicationPeer::ProcessEvents()
{
	QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
	WindowLife::DeleteWaiting();
}


/*!	\param timeout In microseconds. */
void
ApplicationPeer::ProcessEvents(bigtime_t timeout)
{
	QTimer timer;
	timer.setSingleShot(true);
	timer.start(static_cast<int>((timeout + 999) / 1000));
	ProcessEvents();
}
