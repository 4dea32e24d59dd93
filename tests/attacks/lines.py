# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Lines that are dropped, and ends that come in the middle of something."""

import contextlib
import select
import signal
import threading

import hotline
import wire
from attack import attacks
from desktop import wait_until
from trackers import ask, listing, record

FLOOD = b"".join(wire.chat(b"line %d" % number) + wire.user_change(number % 50 + 1, b"nick %d" % number)
    for number in range(20000))


class Trap:
    """Lets whoever comes to a server log in, and drops the line, for as long as the `with` block lasts."""

    def __init__(self, server):
        self.count = 0
        self._server = server
        self._is_open = True
        self._thread = threading.Thread(target=self._run, daemon=True)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._is_open = False
        self._thread.join()

    def _run(self):
        while self._is_open:
            if not select.select([self._server.listener], [], [], 0.05)[0]:
                continue
            connection = self._server.accept()
            # They may have changed their minds.
            with contextlib.suppress(OSError, EOFError):
                connection.handshake()
                connection.accept_login(connection.read_until(wire.LOGIN), b"Trap")
                self.count += 1
            connection.close()


def enter_trap(arena, window, count):
    """Has the user connect so often from that tracker's window to its first server, a trap; returns how often that was."""
    with Trap(arena.server) as trap:
        for _ in range(count):
            before = trap.count
            arena.press_until(lambda: trap.count > before, "Home", "Return", window=window)
        return trap.count


def drops_the_line_30_times(arena):
    """Drops the line right after the login, 30 times in a row; the user comes from the tracker's window."""
    ask(arena, listing([record(b"trap", port=arena.server.port)]))
    enter_trap(arena, max(arena.other_windows()), 30)


def drops_the_line_while_it_floods(arena):
    """Floods the chat and the list of users, and drops the line in the middle, three times."""
    for _ in range(3):
        connection = arena.log_in()
        connection.send(FLOOD[:len(FLOOD) // 2 + 7])
        connection.close()


def floods_while_the_user_leaves(arena):
    """Floods the chat and the list of users while the user disconnects."""
    connection = arena.log_in()
    with hotline.Flood(connection, FLOOD) as flood:
        wait_until(lambda: flood.sent > len(FLOOD), "the flood to arrive")
        arena.disconnect()


def floods_while_the_user_goes_elsewhere(arena):
    """Floods the chat and the list of users while the user connects to the next server."""
    connection = arena.log_in()
    flood = hotline.Flood(connection, FLOOD)
    flood.__enter__()
    wait_until(lambda: flood.sent > len(FLOOD), "the flood to arrive")
    arena.log_in()
    flood.__exit__()


def end_by(arena, number):
    """Ends the program by a signal in the middle of a flood; it is to end with status 0."""
    connection = arena.log_in()
    with hotline.Flood(connection, FLOOD) as flood:
        wait_until(lambda: flood.sent > len(FLOOD), "the flood to arrive")
        arena.program.process.send_signal(number)
        status = arena.program.wait()
    if status != 0:
        raise AssertionError("the program has ended with status %d by %s" % (status, signal.Signals(number).name))


def is_terminated_in_a_flood(arena):
    """Floods while the program is asked to end as a session's end does."""
    end_by(arena, signal.SIGTERM)


def loses_its_terminal_in_a_flood(arena):
    """Floods while the program's terminal is closed."""
    end_by(arena, signal.SIGHUP)


def is_interrupted_in_a_flood(arena):
    """Floods while Ctrl+C is pressed in the program's terminal."""
    end_by(arena, signal.SIGINT)


ATTACKS = attacks(drops_the_line_30_times, drops_the_line_while_it_floods, floods_while_the_user_leaves,
    floods_while_the_user_goes_elsewhere) + attacks(is_terminated_in_a_flood, loses_its_terminal_in_a_flood,
    is_interrupted_in_a_flood, ends_program=True)
