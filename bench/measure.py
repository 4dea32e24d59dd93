# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What the operating system has on its books about another process: processor time, memory, bytes that wait to be read."""

import os
import time

QUIET = 0.5
"""Seconds without a trace of processor time after which a process counts as idle."""

TRACE = 0.001
"""Seconds of processor time that do not count: a blinking caret takes up to half of them each time."""


class NeverIdle(AssertionError):
    """A process went on working for longer than anybody waits."""


class ProcessClock:
    """The processor time of all threads of a process, to the nanosecond, as the kernel's scheduler counts it."""

    def __init__(self, pid):
        self.pid = pid
        # What clock_getcpuclockid() makes of a process: its complement, shifted, with the scheduler's clock (2).
        self._clock = (~pid << 3) | 2

    def seconds(self):
        return time.clock_gettime(self._clock)

    def user_seconds(self):
        """What the process took of them outside of the kernel. Sampled a hundred times a second, so only for long runs."""
        with open("/proc/%d/stat" % self.pid) as stat:
            ticks = int(stat.read().rpartition(")")[2].split()[11])
        return ticks / os.sysconf("SC_CLK_TCK")

    def wait_until_idle(self, is_finished=lambda: True, patience=120.0):
        """Waits until the process has done nothing for QUIET seconds, and `is_finished()` is true.

        Returns its processor seconds and the monotonic time, both of the moment when it fell silent.
        """
        deadline = time.monotonic() + patience
        silent_at, silent_since = self.seconds(), time.monotonic()
        while True:
            time.sleep(0.005)
            seconds, now = self.seconds(), time.monotonic()
            if seconds - silent_at > TRACE or not is_finished():
                silent_at, silent_since = seconds, now
            elif now - silent_since >= QUIET:
                return silent_at, silent_since
            if now > deadline:
                raise NeverIdle("process %d was busy for %g seconds" % (self.pid, patience))


def proportional_memory(pid):
    """Bytes of memory, with every shared page divided by the number of its users (PSS), and what is swapped out."""
    kilobytes = 0
    with open("/proc/%d/smaps_rollup" % pid) as rollup:
        for line in rollup:
            if line.startswith(("Pss:", "SwapPss:")):
                kilobytes += int(line.split()[1])
    return kilobytes * 1024


def unread_bytes(port):
    """Bytes that stand in the sockets of the connections on loopback with that server port, on either side."""
    count = 0
    wanted = ":%04X" % port
    with open("/proc/net/tcp") as table:
        next(table)
        for line in table:
            fields = line.split()
            if fields[1].endswith(wanted) or fields[2].endswith(wanted):
                sending, receiving = fields[4].split(":")
                if fields[3] == "01":
                    count += int(sending, 16) + int(receiving, 16)
    return count
