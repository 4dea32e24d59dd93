# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A desktop of one's own: an X server without a screen, a window manager, a session bus and the accessibility bus.

Everything runs in a fresh home folder that is deleted at the end, and nothing of it outlives the `with` block, nor this
process however it ends. There can be one desktop per process, because the accessibility library connects once for all.
"""

import ctypes
import os
import shutil
import signal
import subprocess
import tempfile
import time

from gi.repository import Gio, GLib

from window import Window

PATIENCE = float(os.environ.get("PALIMBRA_PATIENCE", "30"))
"""Seconds that any one thing may take; only a failure ever takes that long."""

SCREEN_WIDTH, SCREEN_HEIGHT = 1024, 640

PR_SET_CHILD_SUBREAPER = 36

# A session bus that starts no services: nothing of the machine's real desktop takes part.
BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%s/session-bus</listen>
  <policy context="default">
    <allow user="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
"""


class NotHappened(AssertionError):
    """Something that had to happen did not."""


class Gone(Exception):
    """Something of a window that was asked has disappeared meanwhile."""


def wait_until(condition, what, patience=None):
    """Returns the first true value of `condition()`; raises NotHappened when `patience` seconds passed without one.

    A condition that meets something that is Gone does not hold, yet. `what` completes "waited for ..."; it may be a
    function, to tell what was there instead.
    """
    deadline = time.monotonic() + (PATIENCE if patience is None else patience)
    pause = 0.005
    while True:
        try:
            value = condition()
        except Gone:
            value = None
        if value:
            return value
        if time.monotonic() > deadline:
            raise NotHappened("waited for " + _told(what))
        time.sleep(pause)
        pause = min(pause * 1.5, 0.05)


def _told(what):
    try:
        return what() if callable(what) else what
    except Gone as gone:
        return "something, and met something that is gone: %s" % gone


class Program:
    """One running process. Its output goes to a file, and it dies when the driver does."""

    def __init__(self, command, environment, folder, log, pass_fds=()):
        self.log = log
        with open(log, "wb") as output:
            # Its own session, so that no signal from a terminal reaches it before its turn.
            self.process = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", *command], env=environment, cwd=folder,
                stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT, pass_fds=pass_fds,
                start_new_session=True)
        self.pid = self.process.pid

    def is_running(self):
        return self.process.poll() is None

    def output(self):
        with open(self.log, encoding="utf-8", errors="replace") as log:
            return log.read()

    def wait(self, patience=None):
        """Waits for the process to end and returns its status: as the shell gives it, or minus the signal."""
        wait_until(lambda: not self.is_running(),
            lambda: "process %d to end\n%s" % (self.pid, self.output()), patience)
        return self.process.returncode

    def stop(self):
        """Ends the process by any means."""
        if self.is_running():
            self.process.terminate()
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
        self.process.wait()

    def memory(self):
        """Bytes of memory that are this process's own (written pages, swapped ones included)."""
        kilobytes = 0
        with open("/proc/%d/smaps_rollup" % self.pid) as rollup:
            for line in rollup:
                if line.startswith(("Private_Dirty:", "Swap:")):
                    kilobytes += int(line.split()[1])
        return kilobytes * 1024

    def peak_memory(self):
        """The most bytes of memory that this process ever had, shared ones included."""
        with open("/proc/%d/status" % self.pid) as status:
            for line in status:
                if line.startswith("VmHWM:"):
                    return int(line.split()[1]) * 1024
        return 0

    def threads(self):
        """The names of the threads, sorted, without those that the toolkit keeps for a while after it needed some."""
        names = []
        for thread in os.listdir("/proc/%d/task" % self.pid):
            try:
                with open("/proc/%d/task/%s/comm" % (self.pid, thread)) as comm:
                    names.append(comm.read().strip())
            except (FileNotFoundError, ProcessLookupError):
                # It has ended meanwhile.
                pass
        return sorted(name for name in names if name != "Thread (pooled)")

    def descriptors(self):
        return len(os.listdir("/proc/%d/fd" % self.pid))

    def processor_seconds(self):
        with open("/proc/%d/stat" % self.pid) as stat:
            fields = stat.read().rpartition(")")[2].split()
        return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


class Desktop:
    """`with Desktop() as desktop:` gives a desktop that is ready, with a window manager and a screen reader's bus.

    With `accessible=False` nobody reads the screen, and any number of such desktops may follow one another.
    """

    def __init__(self, accessible=True):
        self.accessible = accessible
        self.folder = None
        self.environment = {}
        self._programs = []
        self._signals = {}
        self._session_bus = None
        self._guard = None
        self._display = None

    def __enter__(self):
        # Orphans of what is started here come back to this process, so that none is left.
        ctypes.CDLL(None).prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0)
        for number in (signal.SIGTERM, signal.SIGHUP):
            self._signals[number] = signal.signal(number, self._interrupted)
        try:
            self._make_home()
            self._start_display()
            self._start_session_bus()
            if self.accessible:
                self._start_accessibility_bus()
            self._start_window_manager()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self._guard is not None:
            self._guard.kill()
            self._guard.wait()
            self._guard.stdin.close()
        for program in reversed(self._programs):
            program.stop()
        self._end_orphans()
        for number, handler in self._signals.items():
            signal.signal(number, handler)
        if self.folder is not None:
            shutil.rmtree(self.folder, ignore_errors=True)

    def start(self, command, folder=None, environment=None):
        """Starts a program on this desktop and returns it as a Program. It is ended with the desktop at the latest."""
        return self._run(command, folder or self.folder + "/home", {**self.environment, **(environment or {})})

    # Windows

    def windows(self):
        """All windows that the window manager knows, minimised ones included, in the order in which they appeared."""
        # The list cannot be read when one of them disappears meanwhile.
        listed = wait_until(self._list_windows, "the list of windows")
        return [Window.from_list(self, line) for line in listed.splitlines() if line]

    def find_window(self, title, program=None):
        """The first window with exactly this title (of that program, if given), or None."""
        for window in self.windows():
            if window.listed_title == title and (program is None or window.pid == program.pid):
                return window
        return None

    def window(self, title, program=None, patience=None):
        """Waits for a window with exactly this title."""
        return wait_until(lambda: self.find_window(title, program),
            lambda: "a window \"%s\"; there are %s" % (title, [w.listed_title for w in self.windows()]), patience)

    def wait_without_window(self, title, program=None):
        wait_until(lambda: self.find_window(title, program) is None, "window \"%s\" to disappear" % title)

    def active_window_id(self):
        words = self.ask("xprop", "-root", "_NET_ACTIVE_WINDOW").split()
        return int(words[-1], 16) if words[-1].startswith("0x") else 0

    # Keyboard, mouse and screen

    def key(self, *keys):
        """Presses and releases keys such as "ctrl+k", "Tab", "Return" in whichever window has the focus."""
        self.ask("xdotool", "key", "--clearmodifiers", *keys)

    def type(self, text):
        self.ask("xdotool", "type", "--clearmodifiers", "--delay", "8", "--", text)

    def click(self, x, y, button=1, count=1, delay=40):
        """Clicks that often, with so many milliseconds in between."""
        self.ask("xdotool", "mousemove", str(x), str(y), "click", "--repeat", str(count), "--delay", str(delay),
            str(button))

    def point(self, x, y):
        """Moves the mouse without a click."""
        self.ask("xdotool", "mousemove", str(x), str(y))

    def screenshot(self, path):
        self.ask("import", "-silent", "-window", "root", "png:" + path)

    def stop_display(self):
        """Takes the screen away from whoever is on it."""
        self._display.process.kill()
        self._display.process.wait()

    def paint_background(self, top, bottom):
        """Paints the screen behind the windows, from one color at the top to the other."""
        # The tool paints and yet ends with an error, so its status says nothing.
        self._do("display", "-window", "root", "-size", "%dx%d" % (SCREEN_WIDTH, SCREEN_HEIGHT),
            "gradient:%s-%s" % (top, bottom))

    def ask(self, *command):
        """Runs a short command on this desktop and returns what it printed; an error raises NotHappened."""
        done = self._do(*command)
        if done.returncode != 0:
            raise NotHappened("%s failed: %s" % (" ".join(command), done.stderr.decode(errors="replace").strip()))
        return done.stdout.decode("utf-8", "replace")

    def _list_windows(self):
        done = self._do("wmctrl", "-l", "-p")
        # Never empty text, which would count as no list.
        return done.stdout.decode("utf-8", "replace") + "\n" if done.returncode == 0 else None

    def _do(self, *command):
        return subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
            timeout=PATIENCE, check=False)

    # Start and end

    def _make_home(self):
        self.folder = tempfile.mkdtemp(prefix="palimbra-desktop-")
        for name in ("home", "run", "log"):
            os.mkdir(os.path.join(self.folder, name), 0o700)
        self.environment = {
            "HOME": self.folder + "/home",
            "XDG_RUNTIME_DIR": self.folder + "/run",
            "PATH": "/usr/local/bin:/usr/bin:/bin",
            "LC_ALL": "C.UTF-8",
            "GSETTINGS_BACKEND": "memory",
            "QT_QPA_PLATFORM": "xcb",
        }

    def _start_display(self):
        reading, writing = os.pipe()
        try:
            server = self._display = self._run(["Xvfb", "-displayfd", str(writing), "-nolisten", "tcp", "-noreset", "-dpi", "96",
                "-screen", "0", "%dx%dx24" % (SCREEN_WIDTH, SCREEN_HEIGHT)], pass_fds=(writing,))
        finally:
            os.close(writing)
        with os.fdopen(reading) as numbers:
            display = numbers.readline().strip()
        if not display:
            raise NotHappened("the X server did not start:\n" + server.output())
        self.environment["DISPLAY"] = ":" + display

    def _start_session_bus(self):
        configuration = self.folder + "/session-bus.conf"
        with open(configuration, "w") as file:
            file.write(BUS_CONFIGURATION % self.folder)
        address = "unix:path=%s/session-bus" % self.folder
        bus = self._run(["dbus-daemon", "--nofork", "--nosyslog", "--config-file=" + configuration])
        wait_until(lambda: os.path.exists(self.folder + "/session-bus"),
            lambda: "the session bus\n" + bus.output())
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self._session_bus = wait_until(lambda: _connect(address), "the session bus to answer")

    def _start_accessibility_bus(self):
        launcher = self._run(["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"])
        accessible = wait_until(lambda: self._call("GetAddress", None, "(s)", "org.a11y.Bus"),
            lambda: "the accessibility bus\n" + launcher.output())[0]
        self._start_guard(children_of(launcher.pid))
        # As a screen reader does when it starts: toolkits offer their windows from then on.
        for name in ("IsEnabled", "ScreenReaderEnabled"):
            self._call("Set", GLib.Variant("(ssv)", ("org.a11y.Status", name, GLib.Variant("b", True))), "()",
                "org.freedesktop.DBus.Properties")
        os.environ.update({name: self.environment[name] for name in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS")})
        os.environ["AT_SPI_BUS_ADDRESS"] = accessible

    def _start_guard(self, strangers):
        """Has processes that were not started from here, and the folder, removed should this process be killed."""
        self._guard = subprocess.Popen(["sh", "-c", "read -r _; folder=$1; shift; kill \"$@\"; rm -rf \"$folder\"",
            "guard", self.folder, *map(str, strangers)], stdin=subprocess.PIPE, stderr=subprocess.DEVNULL,
            start_new_session=True)

    def _call(self, method, arguments, answer, interface):
        try:
            return self._session_bus.call_sync("org.a11y.Bus", "/org/a11y/bus", interface, method, arguments,
                GLib.VariantType(answer), Gio.DBusCallFlags.NONE, int(PATIENCE * 1000), None)
        except GLib.Error:
            return None

    def _start_window_manager(self):
        # As it comes, but that windows do not fly about while they are restored: one could not aim at them.
        configuration = self.folder + "/openbox.xml"
        with open("/etc/xdg/openbox/rc.xml") as usual, open(configuration, "w") as own:
            own.write(usual.read().replace("<animateIconify>yes<", "<animateIconify>no<"))
        manager = self._run(["openbox", "--sm-disable", "--config-file", configuration])
        # It keeps the list of windows from then on.
        wait_until(self._list_windows, lambda: "the window manager\n" + manager.output())

    def _run(self, command, folder="/", environment=None, pass_fds=()):
        log = "%s/log/%d-%s" % (self.folder, len(self._programs), os.path.basename(command[0]))
        program = Program(command, environment or self.environment, folder, log, pass_fds)
        self._programs.append(program)
        return program

    def _end_orphans(self):
        """Ends what the programs left behind: children of this process by now, of which it knows nothing."""
        known = {program.pid for program in self._programs}
        for _ in range(100):
            orphans = [pid for pid in children_of(os.getpid()) if pid not in known]
            if not orphans:
                return
            for pid in orphans:
                try:
                    os.kill(pid, signal.SIGKILL)
                    os.waitpid(pid, 0)
                except (ProcessLookupError, ChildProcessError):
                    pass

    @staticmethod
    def _interrupted(number, _):
        raise SystemExit(128 + number)


def children_of(pid):
    """The process ids whose parent is `pid`."""
    children = []
    for name in os.listdir("/proc"):
        if not name.isdigit():
            continue
        try:
            with open("/proc/%s/stat" % name) as stat:
                parent = int(stat.read().rpartition(")")[2].split()[1])
        except (FileNotFoundError, ProcessLookupError):
            continue
        if parent == pid:
            children.append(int(name))
    return children


def _connect(address):
    flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
    try:
        connection = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
    except GLib.Error:
        return None
    connection.set_exit_on_close(False)
    return connection
