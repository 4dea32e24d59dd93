# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Where attacks take place: the program on a desktop, its heartbeat, and servers of whoever means it harm."""

import collections
import contextlib
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

import hotline
import wire
from client import Client
from desktop import NotHappened, wait_until
from host import Host
from screen import Screen

MEBIBYTE = 1024 * 1024

# The program is started afresh after so many attacks, and when it has more memory or windows than these: what one attack
# has left in the chat should not be what the next one is measured by.
MOST_ATTACKS = 25
MOST_MEMORY = 400 * MEBIBYTE
MOST_WINDOWS = 40

# Letters of the lines by which a good server is seen; no two that follow one another are of the same length.
LINE_LENGTHS = (8, 13, 18, 23)
FULL_BLOCK = "\u2588"

# Seconds after which a key that has done nothing is pressed again: when nobody else has the focus, and when somebody has.
KEY_PATIENCE, FOCUS_PATIENCE = 8, 0.5

# Pixels: no line of a frame, and no letter.
LEAST_THICKNESS, LEAST_LENGTH = 6, 30

DARKNESS = bytes(1 if value < 128 else 0 for value in range(256))


class Figures:
    """What an attack did to the program: seconds, bytes, and how many of each."""

    def __init__(self):
        self.worst_gap = self.lag = self.seconds = 0.0
        self.slowest = ""
        self.memory_before = self.memory_peak = self.memory_after = 0
        self.threads_before = self.threads_after = []
        self.descriptors_before = self.descriptors_after = 0
        self.failure = None


class Heartbeat:
    """The process that asks the program's windows whether they answer."""

    def __init__(self, desktop):
        script = os.path.join(os.path.dirname(__file__), "heartbeat.py")
        self._process = subprocess.Popen(["setpriv", "--pdeathsig", "KILL", "/usr/bin/python3", "-B", script],
            env=desktop.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def watch(self, pid):
        self._ask("watch %d" % pid)

    def begin(self):
        self._ask("begin")

    def end(self):
        return self._ask("end")

    def stop(self):
        self._process.stdin.close()
        self._process.stdout.close()
        self._process.wait()

    def _ask(self, question):
        self._process.stdin.write(question + "\n")
        self._process.stdin.flush()
        return json.loads(self._process.stdout.readline())


class Arena:
    """`with Arena(desktop, build) as arena:` has a program running that any number of attacks may be tried on."""

    def __init__(self, desktop, build):
        self.desktop = desktop
        self.client = None
        self.folder = None
        self.screen = Screen(desktop.environment["DISPLAY"])
        self.heartbeat = Heartbeat(desktop)
        self._build = build
        self._attacks = 0
        self._lines = 0
        self._letter = None
        self._servers = contextlib.ExitStack()

    def __enter__(self):
        self.server, self.transfers = hotline.listen_on_two_ports()
        self.tracker = hotline.Server()
        self.start_program()
        return self

    def __exit__(self, *_):
        self._servers.close()
        self.stop_program()
        self.heartbeat.stop()
        for server in (self.server, self.tracker):
            server.__exit__()
        self.transfers.close()

    # The program

    def start_program(self):
        """Starts a program in a folder of its own, and gets to know it."""
        self.stop_program()
        self._turn_away()
        self.folder = os.path.join(tempfile.mkdtemp(dir=self.desktop.folder), "palimbra")
        shutil.copytree(os.path.join(self._build, "palimbra"), self.folder,
            ignore=shutil.ignore_patterns("Downloads"))
        self.client = Client(self.desktop, self.folder)
        self._attacks = self._lines = 0
        self._letter = None
        self.main_window, self.chat, self._users = map(self.window, ("Palimbra", "Chat", "Users Online"))
        # What is made once and for all is made before anybody counts.
        self.prove_good_server()
        self.use_tracker()
        self.calm_down()
        self.heartbeat.watch(self.program.pid)

    def stop_program(self):
        if self.client is not None:
            self.program.stop()
            self.client = None

    @property
    def program(self):
        return self.client.program

    @property
    def downloads(self):
        return os.path.join(self.folder, "Downloads")

    def virtual_memory(self):
        """Bytes of address space that the program has."""
        return resident(self.program.pid, "VmSize:")

    def limit_of(self, name):
        """The limit of the program of that name, as prlimit knows it."""
        return self.desktop.ask("prlimit", "--pid", str(self.program.pid), "--" + name, "--output=SOFT",
            "--noheadings").strip()

    # What a user does

    def dial(self, port=None):
        """Asks the program to connect to a port, the attackers' usual one if none is given."""
        def dialog():
            return self.screen.title(self.screen.active()) == "Connect to Server" and self.screen.active()

        self.press_until(lambda: "Connect to Server" in self.titles(), "ctrl+k")
        front = wait_until(dialog, "the dialog to come up")
        self.bring_to_front(front)
        self.client.fill_connect("127.0.0.1", port or self.server.port)
        self.desktop.key("Return")
        self.wait_until_gone(front)
        # A key that was pressed again may have been served twice.
        for number, title in self.screen.titles(self.program.pid).items():
            if title == "Connect to Server":
                self.screen.close(number)

    def connect(self):
        """Has the program connect, and returns the connection on which nothing has been said yet."""
        self.dial()
        return self.server.accept()

    def log_in(self, users=(), name=b"Hostile"):
        """Has the program log in, and returns the connection."""
        connection = self.connect()
        connection.welcome(name, users)
        self.window("Palimbra — " + name.decode("utf-8", "replace"))
        return connection

    def meet(self, users=(), **answers):
        """Has the program log in at a host that gives those answers; it ends with the attack."""
        return self._servers.enter_context(Host(self.log_in(users), self.transfers, **answers))

    def disconnect(self):
        self.press_until(lambda: self.screen.title(self.main_window) == "Palimbra", "ctrl+d")

    def press_until(self, condition, *keys, window=None):
        """Presses keys in a window, again when another window has come up at that very moment."""
        window = window or self.main_window

        def is_done():
            return condition() or self.screen.active() != window

        for _ in range(5):
            self.bring_to_front(window, unless=condition)
            if condition():
                return True
            self.desktop.key(*keys)
            with contextlib.suppress(NotHappened):
                wait_until(is_done, "", KEY_PATIENCE)
                return wait_until(condition, "", FOCUS_PATIENCE)
        raise NotHappened("%s has no effect; there are %s" % (keys, self.titles()))

    def open_files(self, host):
        """Asks for the files of the server; who answers decides what comes of it."""
        before = host.asked[wire.FILES]
        self.press_until(lambda: host.asked[wire.FILES] > before, "ctrl+3")

    def fetch(self, host, names, keys=("Home", "Return"), kind=b"TEXT"):
        """Has the program list those files, and presses those keys in the list."""
        host.listing = [wire.file_entry(name, kind) for name in names]
        self.open_files(host)
        title = "Files (%d)" % len(names)
        self.bring_to_front(self.window(title))
        if keys:
            self.desktop.key(*keys)

    def use_tracker(self):
        """Has the program ask the hostile tracker from now on."""
        self.press_until(lambda: "Options" in self.titles(), "F10", "Up", "Up", "Up", "Return")
        options = self.window("Options")
        self.bring_to_front(options)
        self.desktop.key("Tab", "ctrl+a")
        self.desktop.type("127.0.0.1:%d" % self.tracker.port)
        self.desktop.key("Return")
        self.wait_until_gone(options)

    def open_tracker(self):
        """Opens a tracker window, and returns the connection on which it has asked for the listing."""
        before = len(self.other_windows())
        self.press_until(lambda: len(self.other_windows()) > before, "ctrl+t")
        return self.tracker.accept_question()

    # Windows, which have numbers

    def titles(self):
        return list(self.screen.titles(self.program.pid).values())

    def window(self, title):
        """Waits for a window with exactly this title, and returns its number."""
        def find():
            titles = self.screen.titles(self.program.pid)
            return next((number for number in titles if titles[number] == title), None)

        return wait_until(find, lambda: "a window \"%s\"; there are %s\n%s" % (title, self.titles(),
            self.program.output()))

    def wait_until_gone(self, number):
        wait_until(lambda: number not in self.screen.windows_of(self.program.pid),
            lambda: "\"%s\" to disappear" % self.screen.title(number))

    def other_windows(self):
        """The windows that come and go."""
        return set(self.screen.windows_of(self.program.pid)) - {self.main_window, self.chat, self._users}

    def close_others(self):
        for number in self.other_windows():
            self.screen.close(number)

    def bring_to_front(self, number, unless=lambda: False):
        """Activates a window until it has the focus, or that holds; another one may come up meanwhile."""
        def is_active():
            if unless():
                return True
            if self.screen.active() == number and self.screen.has_focus(number):
                return True
            self.screen.activate(number)
            return False

        wait_until(is_active, lambda: "\"%s\" to become the active window, not \"%s\"" % (self.screen.title(number),
            self.screen.title(self.screen.active())))

    # Before and after

    def prove_good_server(self):
        """Logs in at a server that means well: a line goes there, and one that comes from there is seen."""
        connection = self.log_in([wire.user_entry(1, b"Gentle")], b"Good")
        self.window("Users Online (1)")
        connection.send(wire.user_change(2, b"Second"))
        self.window("Users Online (2)")
        self.bring_to_front(self.chat)
        self._say(connection)
        count = LINE_LENGTHS[self._lines % len(LINE_LENGTHS)]
        self._lines += 1
        connection.send(wire.chat((FULL_BLOCK * count).encode()))
        if self._letter is None:
            # On a window that has shown nothing yet there is nothing else like it.
            runs = wait_until(lambda: thick_runs(self.screen.picture(self.chat)), "the first line of a good server")
            self._letter = runs[0] / count
        wait_until(lambda: any(abs(run - self._letter * count) < 2 for run in thick_runs(self.screen.picture(self.chat))),
            lambda: "%d blocks to be seen, not %s" % (count, thick_runs(self.screen.picture(self.chat))))
        self.disconnect()
        connection.read_to_end()

    def _say(self, connection):
        """Types a line until it arrives: another window may take the focus meanwhile."""
        def has_arrived():
            return select.select([connection.stream], [], [], 0)[0] or self.screen.active() != self.chat

        for _ in range(5):
            self.bring_to_front(self.chat)
            self.desktop.key("h", "i", "Return")
            with contextlib.suppress(NotHappened):
                wait_until(has_arrived, "", KEY_PATIENCE)
            if self.screen.active() == self.chat:
                break
        said = connection.read_until(wire.CHAT_SEND)
        if not said.fields[wire.DATA].endswith(b"hi"):
            raise AssertionError("\"%s\" was said, not \"hi\"" % said.fields[wire.DATA])

    def calm_down(self):
        """Closes what an attack has opened, so that the program is as it was at the start."""
        self._servers.close()
        for server in (self.server, self.tracker):
            server.close_connections()
        self._turn_away()
        self.close_others()
        self.window("Palimbra")

    def try_attack(self, attack):
        """Plays an attack, and returns the figures. What went wrong beyond them stands in their `failure`."""
        self._prepare()
        figures = Figures()
        before = self._counts()
        figures.memory_before, figures.threads_before, figures.descriptors_before = before
        _forget_peak(self.program.pid)
        self.heartbeat.begin()
        started = time.monotonic()
        try:
            attack.play(self)
            if self.program.is_running():
                self.prove_good_server()
                self._measure_the_end(figures)
            if not self.program.is_running() and not attack.ends_program:
                raise AssertionError("the program has ended with status %d" % self.program.wait())
        except (AssertionError, OSError, EOFError) as error:
            figures.failure = "%s: %s" % (type(error).__name__, _first_line(error))
        beat = self.heartbeat.end() if self.program.is_running() else {"worst": 0, "lag": 0, "slowest": "", "answers": 0}
        figures.seconds = time.monotonic() - started
        figures.worst_gap, figures.lag, figures.slowest = beat["worst"], beat["lag"], beat["slowest"][:40]
        if self.program.is_running() and beat["answers"] == 0:
            figures.failure = figures.failure or "no window was heard of"
        if not self.program.is_running() and not attack.ends_program:
            figures.failure = "the program has ended with status %d: %s" % (self.program.process.returncode,
                self.program.output()[-300:])
        self._servers.close()
        self._attacks = MOST_ATTACKS if figures.failure or attack.ends_program else self._attacks + 1
        return figures

    def _turn_away(self):
        """Closes what has come and found nobody."""
        for listener in (self.server.listener, self.transfers, self.tracker.listener):
            while select.select([listener], [], [], 0)[0]:
                listener.accept()[0].close()

    def _prepare(self):
        """Starts a program if there is none, or one that has been through much."""
        if self.client is None or not self.program.is_running() or self._attacks >= MOST_ATTACKS \
                or self.program.memory() > MOST_MEMORY or len(self.titles()) > MOST_WINDOWS:
            self.start_program()

    def _counts(self):
        return resident(self.program.pid), self.program.threads(), self.program.descriptors()

    def _measure_the_end(self, figures):
        """Waits until the program is as it was, as far as it ever gets there, and takes the figures."""
        self.calm_down()

        def is_as_before():
            self._turn_away()
            figures.memory_after, figures.threads_after, figures.descriptors_after = self._counts()
            return len(figures.threads_after) <= len(figures.threads_before) \
                and figures.descriptors_after <= figures.descriptors_before + 1

        wait_until(is_as_before, lambda: "%d descriptors and threads %s, not %d and %s" % (figures.descriptors_after,
            figures.threads_after, figures.descriptors_before, figures.threads_before))
        figures.memory_peak = resident(self.program.pid, "VmHWM:")


def resident(pid, name="VmRSS:"):
    """Bytes of a process that are in memory, or another line of its status that is in kilobytes."""
    with open("/proc/%d/status" % pid) as status:
        return next(int(line.split()[1]) * 1024 for line in status if line.startswith(name))


def _forget_peak(pid):
    with open("/proc/%d/clear_refs" % pid, "w") as file:
        file.write("5")


def _first_line(error):
    return str(error).strip().replace("\n", " | ")[:200]


def thick_runs(picture):
    """The lengths in pixels of dark runs that as many rows of a picture have as a block has at least."""
    if picture is None:
        return []
    width, height, data = picture
    rows = collections.Counter()
    for row in range(height):
        # The green of every pixel tells dark from light.
        greens = data[row * width * 4 + 1:(row + 1) * width * 4:4]
        rows.update({len(run) for run in greens.translate(DARKNESS).split(b"\0")})
    return [length for length, count in rows.items() if count >= LEAST_THICKNESS and length >= LEAST_LENGTH]
