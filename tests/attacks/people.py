# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Who is there, who comes and goes, and who writes in private."""

import struct

import wire
from attack import attacks

LONGEST = 65535


def crowd(count):
    return [wire.user_entry(number, b"nick %d" % number) for number in range(1, count + 1)]


def all_users_that_there_can_be(arena):
    """Lists 65,535 users."""
    host = arena.meet(crowd(LONGEST))
    host.wait_until_read()


def one_user_changes_100000_times(arena):
    """Changes the last of a thousand users 100,000 times."""
    host = arena.meet(crowd(1000))
    host.send(b"".join(wire.user_change(1000, b"nick %d" % number) for number in range(100000)))
    host.wait_until_read()


def nicks_of_64_kb(arena):
    """Has 500 users come whose nicks have 64 KB."""
    host = arena.meet()
    for number in range(1, 501):
        host.send(wire.user_change(number, b"nick" * 16383))
    host.wait_until_read()


def nicks_that_are_expensive(arena):
    """Has 2,000 users whose nicks are Khmer, turned around, marks or no UTF-8."""
    nicks = ["\u1780\u17d2\u179a" * 7, "\u202e\u2067a\u0301" * 6, "a" + "\u0301" * 31, "\U0001f468\u200d" * 9]
    host = arena.meet([wire.user_entry(number, nicks[number % 4].encode()) for number in range(1, 2001)])
    host.send(b"".join(wire.user_change(number, b"\xff\xc0\0\r\n\x1b" * 10) for number in range(1, 2001, 2)))
    host.wait_until_read()


def comes_and_goes(arena):
    """Has 20,000 users come and go at once."""
    host = arena.meet()
    host.send(b"".join(wire.user_change(number % LONGEST + 1, b"nick") + wire.user_leave(number % LONGEST + 1)
        for number in range(20000)))
    host.wait_until_read()


def all_have_one_number(arena):
    """Lists 10,000 users that have the same number, and changes and removes that one."""
    host = arena.meet([wire.user_entry(5, b"nick %d" % number) for number in range(10000)])
    host.send((wire.user_change(5, b"changed") + wire.user_leave(5)) * 1000)
    host.wait_until_read()


def strangers_leave(arena):
    """Says of 50,000 users who never came that they leave."""
    host = arena.meet(crowd(10))
    host.send(b"".join(wire.user_leave(number % 60000 + 100) for number in range(50000)))
    host.wait_until_read()


def icons_and_colors_of_any_number(arena):
    """Has users whose icons and colors are any number that there is."""
    host = arena.meet()
    host.send(b"".join(wire.user_change(number % 500 + 1, b"nick", number * 131 % 65536, number * 7919 % 65536)
        for number in range(20000)))
    host.wait_until_read()


def entries_that_lie(arena):
    """Lists users whose nicks are said to be longer than they are, and entries that are cut."""
    entries = [struct.pack(">HHHH", 1, 128, 0, length) + b"nick" * 2 for length in (0, 4, 63, 64, 255, 65535)]
    host = arena.meet(entries + [entries[0][:length] for length in range(12)] + [b"\xff" * LONGEST])
    host.wait_until_read()


def writes_as_1500_people(arena):
    """Writes in private as 1,500 different users, a word each."""
    host = arena.meet()
    host.send(b"".join(wire.message(number, b"stranger %d" % number, b"hi") for number in range(1, 1501)))
    host.wait_until_read()


def writes_20000_times(arena):
    """Writes 20,000 private lines as one user."""
    host = arena.meet()
    host.send(wire.message(7, b"writer", b"line") * 20000)
    host.wait_until_read()


def writes_at_length(arena):
    """Writes 50 private lines of 64 KB as a user whose nick has 64 KB."""
    host = arena.meet()
    for _ in range(50):
        host.send(wire.transaction(wire.MESSAGE, [(wire.SOCKET, b"\0\7"), (wire.NICK, b"nick" * 16383),
            (wire.DATA, b"text " * 13107)]))
    host.wait_until_read()


def writes_under_many_names(arena):
    """Writes 5,000 private lines as one user who has another name each time."""
    host = arena.meet()
    host.send(b"".join(wire.message(7, b"name %d" % number, b"line") for number in range(5000)))
    host.wait_until_read()


def writes_while_windows_close(arena):
    """Writes on while the windows of what was written are being closed."""
    host = arena.meet()
    for _ in range(10):
        host.send(b"".join(wire.message(number, b"writer %d" % number, b"line") for number in range(1, 21)) * 5)
        for number in arena.other_windows():
            arena.screen.close(number)
    host.wait_until_read()


def the_server_writes(arena):
    """Writes 20,000 lines as the server itself."""
    host = arena.meet()
    host.send(wire.message(0, b"", b"line") * 20000)
    host.wait_until_read()


PEOPLE = attacks(all_users_that_there_can_be, one_user_changes_100000_times, nicks_of_64_kb, nicks_that_are_expensive,
    comes_and_goes, all_have_one_number, strangers_leave, icons_and_colors_of_any_number, entries_that_lie)
MESSAGES = attacks(writes_as_1500_people, writes_20000_times, writes_at_length, writes_under_many_names,
    writes_while_windows_close, the_server_writes)
ATTACKS = PEOPLE + MESSAGES
