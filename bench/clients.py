# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What is measured of whole clients in real windows: Palimbra beside HexChat, and Palimbra by itself."""

import contextlib
import os
import select
import statistics
import subprocess
import threading
import time

import chatter
import hotline_feeder
import irc_feeder
from demo import Demo
from desktop import PATIENCE, NotHappened, wait_until
from hexchat import HexChat
from measure import ProcessClock, proportional_memory, unread_bytes
from pair import Figure, Pair, Single
from palimbra import Palimbra
from stage import Stage

# Of the windows that lines are shown in, in pixels.
CHAT_SIZE = (640, 400)
# Palimbra's main window has no other size.
MAIN_SIZE = (627, 79)

USERS = 100
FLOOD_PER_SECOND = 10000
EVERY_LINE = 0
USUAL_LINES = 500

# How many keys are typed in a run, and for how many seconds the lines have been coming by then.
KEYS = 60
FLOOD_AHEAD = 1.0
# How many bytes of them may wait to be read in the end: some two seconds' lines.
FLOOD_BEHIND = 2 << 20
# Of the strip at the bottom of the chat window that the entry is in, in pixels.
ENTRY_HEIGHT = 22
# Where the first row of a file list is, below the top of its window.
FIRST_ROW = 52


class Clients:
    """Starts and feeds either client. A run gets a desktop and a home of its own."""

    def __init__(self, build):
        self.build = build
        self.folder = os.path.join(build, "palimbra")
        self.screen = os.path.join(build, "bench", "bench_screen")

    # Start

    def start_palimbra(self, _):
        with Stage() as stage:
            return self._start(stage, Palimbra(stage, self.folder))

    def start_hexchat(self, _):
        with Stage() as stage:
            return self._start(stage, HexChat(stage, size=MAIN_SIZE))

    def _start(self, stage, client):
        eye = Helper(stage, [self.screen, "first-window"])
        eye.wait_for("ready")
        client.start(launcher=[stage.bring(self.screen), "launch"])
        shown = float(eye.next_line())
        after, silent = ProcessClock(client.program.pid).wait_until_idle()
        begin, before = (float(word) for word in client.program.output().split()[:2])
        return {"shown": (shown - begin) * 1e3, "idle": (silent - begin) * 1e3, "processor": (after - before) * 1e3}

    # Connected

    def palimbra(self, stage, feeder):
        client = Palimbra(stage, self.folder)
        client.start()
        client.connect(feeder.port)
        feeder.wait_for_client()
        client.window("Chat").resize(*CHAT_SIZE)
        return client

    def hexchat(self, stage, feeder, kept_lines=USUAL_LINES):
        client = HexChat(stage, feeder.port, CHAT_SIZE, kept_lines)
        client.start()
        feeder.wait_for_client()
        return client

    def memory_palimbra(self, _):
        with Stage() as stage, hotline_feeder.HotlineFeeder(chatter.nicks(USERS)) as feeder:
            return idle_memory(self.palimbra(stage, feeder))

    def memory_hexchat(self, _):
        with Stage() as stage, irc_feeder.IrcFeeder(chatter.nicks(USERS)) as feeder:
            return idle_memory(self.hexchat(stage, feeder))

    # Chat

    def chat_palimbra(self, quick):
        return self._chat(self._chat_palimbra, quick)

    def chat_hexchat(self, quick):
        return self._chat(self._chat_hexchat, quick)

    @staticmethod
    def _chat(run, quick):
        short, long = (run(count) for count in line_counts(quick))
        return {"short": short["processor"], "long": long["processor"], "user": long["user"],
            "growth": long["processor"] / short["processor"]}

    def kept_palimbra(self, quick):
        return self._chat_palimbra(line_counts(quick)[1])

    def kept_hexchat(self, quick):
        return self._chat_hexchat(line_counts(quick)[1], EVERY_LINE)

    def _chat_palimbra(self, count):
        with Stage() as stage, hotline_feeder.HotlineFeeder(chatter.nicks(USERS)) as feeder:
            data = hotline_feeder.chat_lines(chatter.lines(count))
            return cost_of_lines(self.palimbra(stage, feeder), feeder, data, count)

    def _chat_hexchat(self, count, kept_lines=USUAL_LINES):
        with Stage() as stage, irc_feeder.IrcFeeder(chatter.nicks(USERS)) as feeder:
            data = irc_feeder.chat_lines(chatter.lines(count))
            return cost_of_lines(self.hexchat(stage, feeder, kept_lines), feeder, data, count)

    # Users

    def users_palimbra(self, quick):
        with Stage() as stage, hotline_feeder.HotlineFeeder(many_users(quick), holds_users=True) as feeder:
            return {"processor": cost_of(self.palimbra(stage, feeder), feeder, feeder.send_users) * 1e3}

    def users_hexchat(self, quick):
        with Stage() as stage, irc_feeder.IrcFeeder(many_users(quick), holds_users=True) as feeder:
            return {"processor": cost_of(self.hexchat(stage, feeder), feeder, feeder.send_users) * 1e3}

    # Typing while much is going on

    def typing(self, quick):
        with Stage() as stage, hotline_feeder.HotlineFeeder(chatter.nicks(USERS)) as feeder:
            client = self.palimbra(stage, feeder)
            feeder.serve_transfers()
            self._open_files(client)
            window = client.front("Chat")
            _, _, _, height = window.frame()
            hand = Helper(stage, [self.screen, "type", window.id, 4, height - ENTRY_HEIGHT, 60, ENTRY_HEIGHT,
                20 if quick else KEYS])
            hand.wait_for("ready")
            self._begin_download(client, feeder)
            client.front("Chat")
            with Flood(feeder, FLOOD_PER_SECOND) as flood:
                time.sleep(FLOOD_AHEAD)
                begin, lines, received = time.monotonic(), flood.lines_sent, feeder.bytes_sent
                hand.go_on()
                times = sorted(float(line) * 1e3 for line in hand.rest())
                seconds = time.monotonic() - begin
                lines, received = flood.lines_sent - lines, feeder.bytes_sent - received
                behind = unread_bytes(feeder.port)
            if not times or times[0] < 0:
                raise AssertionError("what was typed never showed")
            if feeder.bytes_sent >= hotline_feeder.FILE_SIZE:
                raise AssertionError("the download ended before the typing did")
            if behind > FLOOD_BEHIND:
                raise AssertionError("%d bytes of chat lines were waiting to be read" % behind)
            return {"median": statistics.median(times), "most": times[int(len(times) * 0.95)], "worst": times[-1],
                "lines": lines / seconds, "download": received / seconds / 1e6}

    @staticmethod
    def _begin_download(client, feeder):
        left, top, _, _ = client.front("Files").frame()
        client.desktop.click(left + 40, top + FIRST_ROW, count=2)
        wait_until(lambda: feeder.bytes_sent > 0, "the download to begin")

    @staticmethod
    def _open_files(client):
        client.front("Palimbra")
        client.desktop.key("ctrl+3")
        wait_until(lambda: client.window("Files").listed_title == "Files (1)", "the file list")

    # Nothing to do

    def idle(self, quick):
        """Five programs over the same minute, each on a desktop of its own: none of them has anything to do."""
        with contextlib.ExitStack() as stack:
            clocks = [self._idle_client(stack) for _ in range(1 if quick else 5)]
            for clock in clocks:
                clock.wait_until_idle()
            begin = [(clock.seconds(), time.monotonic()) for clock in clocks]
            time.sleep(10 if quick else 60)
            shares = [(clock.seconds() - seconds) / (time.monotonic() - since) * 100
                for clock, (seconds, since) in zip(clocks, begin)]
            return {"share": statistics.median(shares), "least": min(shares), "worst": max(shares)}

    def _idle_client(self, stack):
        stage = stack.enter_context(Stage())
        demo = Demo(stage, self.build, 0, "--still", "--mute", "--no-agreement")
        client = Palimbra(stage, self.folder)
        client.start()
        client.connect(demo.port)
        for key, title in (("ctrl+3", "Files"), ("ctrl+t", "Tracker")):
            client.front("Palimbra")
            client.desktop.key(key)
            client.window(title)
        left, top, _, _ = client.front("Users Online").frame()
        stage.click(left + 40, top + 10, count=2)
        wait_until(lambda: len(stage.windows()) == 6, "a message window")
        client.front("Chat")
        return ProcessClock(client.program.pid)


class Helper:
    """A program of ours on a stage, which says line by line what it has done."""

    def __init__(self, stage, command):
        self._process = subprocess.Popen([str(word) for word in command], env=stage.environment, bufsize=0,
            stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def next_line(self):
        readable, _, _ = select.select([self._process.stdout], [], [], PATIENCE)
        if not readable:
            self._process.kill()
            raise NotHappened("bench_screen saw nothing for %d seconds" % PATIENCE)
        line = self._process.stdout.readline()
        if not line:
            raise AssertionError("bench_screen ended with %d" % self._process.wait())
        return line.decode().strip()

    def wait_for(self, text):
        while self.next_line() != text:
            pass

    def go_on(self):
        self._process.stdin.write(b"\n")

    def rest(self):
        lines = self._process.stdout.read().decode().split()
        self._process.stdin.close()
        self._process.wait()
        return lines


class Flood:
    """Chat lines at a steady pace, for as long as the `with` block lasts."""

    def __init__(self, feeder, per_second):
        self.lines_sent = 0
        self._feeder = feeder
        self._batch = per_second // 100
        self._blocks = self._make_blocks()
        self._stop = threading.Event()
        self._thread = threading.Thread(target=self._run, daemon=True)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._stop.set()
        self._thread.join()

    def _make_blocks(self):
        lines = chatter.lines(100 * self._batch)
        return [hotline_feeder.chat_lines(lines[start:start + self._batch])
            for start in range(0, len(lines), self._batch)]

    def _run(self):
        begin = time.monotonic()
        number = 0
        while not self._stop.wait(max(0.0, begin + number / 100 - time.monotonic())):
            self._feeder.send(self._blocks[number % len(self._blocks)])
            number += 1
            self.lines_sent = number * self._batch


def line_counts(quick):
    return (5000, 20000) if quick else (20000, 100000)


def many_users(quick):
    return chatter.nicks(2000 if quick else 5000)


def cost_of(client, feeder, send):
    """Processor seconds that the client takes for what `send()` sends, from the first byte until it is idle again."""
    clock = ProcessClock(client.program.pid)
    before, _ = clock.wait_until_idle()
    send()
    after, _ = clock.wait_until_idle(lambda: unread_bytes(feeder.port) == 0)
    return after - before


def cost_of_lines(client, feeder, data, count):
    clock = ProcessClock(client.program.pid)
    clock.wait_until_idle()
    memory, user = proportional_memory(client.program.pid), clock.user_seconds()
    seconds = cost_of(client, feeder, lambda: feeder.send(data))
    return {"processor": seconds / count * 1e6, "user": (clock.user_seconds() - user) / count * 1e6,
        "bytes": (proportional_memory(client.program.pid) - memory) / count}


def idle_memory(client):
    ProcessClock(client.program.pid).wait_until_idle()
    return {"memory": proportional_memory(client.program.pid) / 2**20}


def pairs(build):
    clients = Clients(build)
    palimbra, hexchat = Palimbra.NAME, HexChat.NAME
    return [
        Pair("Start", """From the exec() of the program, with everything in the file cache, until its first window is
            shown (MapNotify of the window manager's frame), and until its process has taken no processor time for half a
            second. HexChat, as Debian installs it with what it recommends, starts without a server, in the smallest window
            that it allows; Palimbra starts with its main window and two minimized ones.""",
            (palimbra, clients.start_palimbra), (hexchat, clients.start_hexchat),
            [Figure("shown", "to the first window", "ms", 0.7), Figure("idle", "to idle", "ms"),
                Figure("processor", "to idle", "ms CPU", 0.7)]),
        Pair("Memory at idle", """Proportional set size (PSS) from smaps_rollup, connected, %d users listed, all three windows
            shown; HexChat in one window with the same users.""" % USERS,
            (palimbra, clients.memory_palimbra), (hexchat, clients.memory_hexchat),
            [Figure("memory", "PSS", "MiB", 1.1)]),
        Pair("Chat lines", """The same lines of 1 to 60 plain English words, sent at once over loopback to connected clients
            that have been idle; processor time from the first byte until nothing is unread and the client is idle. Windows
            of 640 x 400 pixels. HexChat keeps its usual 500 lines and writes no log; Palimbra keeps all.""",
            (palimbra, clients.chat_palimbra), (hexchat, clients.chat_hexchat),
            [Figure("short", "20,000 lines (quick: 5,000)", "us CPU each", 0.6),
                Figure("long", "100,000 lines (quick: 20,000)", "us CPU each", 0.6),
                Figure("user", "the same, outside of the kernel", "us CPU each"),
                Figure("growth", "a line of the long flood by one of the short", "times", 1.1, absolute=True)]),
        Pair("Memory per kept line", """What the proportional set size has grown by after 100,000 of the same lines, by line;
            HexChat is told to keep every line, too.""",
            (palimbra, clients.kept_palimbra), (hexchat, clients.kept_hexchat),
            [Figure("bytes", "growth", "bytes each", 1.0)]),
        Pair("5,000 users", """Connected, idle, the user list being waited for; then the list comes: to Palimbra twice, as it
            asks twice, as a reply of 5,000 entries; to HexChat once, as the channel's names.""",
            (palimbra, clients.users_palimbra), (hexchat, clients.users_hexchat),
            [Figure("processor", "to idle", "ms CPU", 1.2)]),
        Single("Typing under load", """A key pressed by XTEST in the chat's entry, until the letter is on the screen (its pixels
            read every half millisecond, wherever the caret blinks), while chat lines arrive at 10,000 a second and
            a file as fast as it is taken. %d keys a run, 20 to 60 ms apart.""" % KEYS,
            (palimbra, clients.typing), figures=[Figure("median", "median", "ms"),
                Figure("most", "95 % of the keys", "ms", 50, worst=True), Figure("worst", "slowest key", "ms", 250, worst=True),
                Figure("lines", "lines sent", "per second"), Figure("download", "sent of the file", "MB per second")]),
        Single("Idle", """Processor time over a minute of the connected program with its chat, user list, file list, tracker and
            a message window open, the banner shown and a caret in the chat's entry, which blinks for the first ten seconds. Five
            programs at once, each on a desktop of its own.""",
            (palimbra, clients.idle), figures=[Figure("share", "of one core, the middle one of five", "%", 0.1),
                Figure("least", "of one core, the least", "%"), Figure("worst", "of one core, the most", "%", 0.1)],
            warm_up=False, rounds=1),
    ]
