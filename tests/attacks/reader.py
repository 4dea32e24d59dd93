# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Attacks on somebody who has a screen reader: the program then tells it what it shows."""

import accessible
import wire
from attack import attacks
from desktop import wait_until

COUNT = 20000


def crowd(count):
    return [wire.user_entry(number, b"nick %d" % number) for number in range(1, count + 1)]


def read_users(arena, count):
    """Reads the first and the last of that many users, as a screen reader does; returns the list."""
    users = accessible.window(arena.desktop, arena.program, "Users Online (%d)" % count).find(role="list")
    wait_until(lambda: users.count_children() == count, lambda: "%d rows to be read" % count)
    for index in (0, count // 2, count - 1):
        if not users.child(index).name():
            raise AssertionError("row %d has no name" % index)
    return users


def many_users_are_read(arena):
    """Lists 20,000 users, some of whom are read, and drops the line."""
    host = arena.meet(crowd(COUNT))
    read_users(arena, COUNT)
    host.connection.close()


def many_users_change_while_they_are_read(arena):
    """Lists 5,000 users, and changes them while some are read."""
    host = arena.meet(crowd(5000))
    users = read_users(arena, 5000)
    host.send(b"".join(wire.user_change(number, b"changed %d" % number) for number in range(1, 5001)))
    wait_until(lambda: users.child(4999).name() == "changed 5000", "the last one to have changed")
    arena.disconnect()


def many_files_are_read(arena):
    """Lists 20,000 files, some of which are read, and closes the window."""
    host = arena.meet()
    host.listing = [wire.file_entry(b"file %d" % number) for number in range(COUNT)]
    arena.open_files(host)
    title = "Files (%d)" % COUNT
    arena.window(title)
    files = accessible.window(arena.desktop, arena.program, title).find(role="list")
    wait_until(lambda: files.count_children() == COUNT, "all files to be there")
    for index in (0, COUNT - 1):
        if not files.child(index).name():
            raise AssertionError("row %d has no name" % index)


def long_lines_are_read(arena):
    """Says 20 lines of 64 KB, which are read."""
    host = arena.meet()
    host.send((wire.chat(b"word " * 13107) + wire.chat("\u1780\u17d2".encode() * 10000)) * 10)
    host.wait_until_read()
    text = accessible.window(arena.desktop, arena.program, "Chat").find(role="text", having=("multi-line",))
    wait_until(lambda: text.last_text(100).count("\u1780") > 10, "the last line to be read")


def chat_floods_who_listens(arena):
    """Says 20,000 lines, each of which the screen reader is told of."""
    host = arena.meet()
    host.send(b"".join(wire.chat(b"line %d" % number) for number in range(20000)))
    host.wait_until_read()


ATTACKS = attacks(many_users_are_read, many_users_change_while_they_are_read, many_files_are_read, long_lines_are_read,
    chat_floods_who_listens)
