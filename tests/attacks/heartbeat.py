#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Asks all windows of a program, over and over, whether they still answer. A process of its own, so that nobody starves it.

It is asked by lines: "watch PID" from now on, "begin" a measurement, "end" it; each is answered by a line of JSON. Windows
are asked by the protocol with which a window manager finds out that one hangs; toolkits answer it from their event loop.
"""

import contextlib
import json
import os
import select
import time

from Xlib import X
from Xlib.error import ConnectionClosedError

from screen import Screen

# Seconds from one round of questions to the next, when all answers have come.
PACE = 0.02

# Windows that are asked in a round; the others come in the next ones.
MOST_AT_ONCE = 64

# Seconds that the end of a measurement waits for the answers that are still missing.
LAST_PATIENCE = 30


class Heartbeat:
    """Times are seconds. A question that has no answer yet counts for as long as it has been waiting."""

    def __init__(self):
        self._screen = Screen(None)
        self._ping = self._screen.atom("_NET_WM_PING")
        self._client_list = self._screen.atom("_NET_CLIENT_LIST")
        # The answers are sent to the root window, for those who watch its structure or what lies in it.
        self._screen.root.change_attributes(
            event_mask=X.StructureNotifyMask | X.SubstructureNotifyMask | X.PropertyChangeMask)
        self._process = None
        self._windows = []
        self._next = 0
        self._serial = 0
        self._waiting = {}
        self._asked_at = 0
        self._overslept = 0
        self._begin()

    def run(self):
        """Serves until nobody asks any more."""
        commands = b""
        last = time.monotonic()
        while True:
            readable, _, _ = select.select([0, self._screen], [], [], self._pause())
            now = time.monotonic()
            # What this process overslept is the machine's doing, and is taken off what it measures meanwhile.
            self._overslept = max(0, now - last - PACE)
            self._lag = max(self._lag, self._overslept)
            last = now
            self._read_answers()
            if 0 in readable:
                piece = os.read(0, 4096)
                if not piece:
                    return
                commands += piece
                while b"\n" in commands:
                    line, commands = commands.split(b"\n", 1)
                    self._obey(line.decode().split())
                last = time.monotonic()
            self._ask()

    def _pause(self):
        if self._waiting or not self._windows:
            return PACE
        return max(0, min(PACE, self._asked_at + PACE - time.monotonic()))

    def _obey(self, words):
        answer = {}
        if words[0] == "watch":
            self._process = int(words[1])
            self._find_windows()
        elif words[0] == "begin":
            self._begin()
        elif words[0] == "end":
            answer = self._end()
        print(json.dumps(answer), flush=True)

    def _begin(self):
        self._worst = self._lag = 0
        self._count = 0
        self._slowest = 0

    def _end(self):
        deadline = time.monotonic() + LAST_PATIENCE
        while self._waiting and time.monotonic() < deadline:
            select.select([self._screen], [], [], PACE)
            self._read_answers()
        now = time.monotonic()
        for window, asked_at in self._waiting.values():
            self._count_gap(window, now - asked_at)
        return {"worst": self._worst, "lag": self._lag, "answers": self._count, "missing": len(self._waiting),
            "windows": len(self._windows), "slowest": self._slowest and self._screen.title(self._slowest)}

    def _find_windows(self):
        self._windows = self._screen.windows_of(self._process)
        # Who has gone owes no answer any more.
        for window, asked_at in self._waiting.values():
            if window not in self._windows:
                self._count_gap(window, time.monotonic() - asked_at - self._overslept)
        self._waiting = {serial: question for serial, question in self._waiting.items() if question[0] in self._windows}

    def _ask(self):
        now = time.monotonic()
        if self._waiting or now < self._asked_at + PACE or not self._windows:
            return
        self._asked_at = now
        for _ in range(min(MOST_AT_ONCE, len(self._windows))):
            self._next = (self._next + 1) % len(self._windows)
            self._serial += 1
            window = self._windows[self._next]
            self._waiting[self._serial] = window, now
            self._screen.tell(window, "_NET_WM_PING", 0, window, self._serial)
        self._screen.display.flush()

    def _read_answers(self):
        display = self._screen.display
        have_changed = False
        while display.pending_events():
            what = display.next_event()
            kind = what.type & 0x7f
            if kind == X.PropertyNotify:
                have_changed = have_changed or what.atom == self._client_list
            elif kind == X.ClientMessage and what.data[0] == 32 and what.data[1][0] == self._ping:
                self._take(what.data[1][3])
        if have_changed:
            self._find_windows()

    def _take(self, serial):
        question = self._waiting.pop(serial, None)
        if question is not None:
            self._count += 1
            self._count_gap(question[0], time.monotonic() - question[1] - self._overslept)

    def _count_gap(self, window, gap):
        if gap > self._worst:
            self._worst = gap
            self._slowest = window


if __name__ == "__main__":
    # A machine with other work must not make it look as if a window had been slow; not everybody may ask for that.
    with contextlib.suppress(PermissionError):
        os.nice(-10)
    # The display ends with the desktop.
    with contextlib.suppress(ConnectionClosedError):
        Heartbeat().run()
