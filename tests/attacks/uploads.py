# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Servers that files are sent to."""

import os
import socket

import wire
from attack import attacks

MEBIBYTE = 1024 * 1024


def send_one(arena, transfer, size=64 * MEBIBYTE, answers=None):
    """Has the user send a file to a host whose transfers go that way; returns the host and the file's path."""
    path = os.path.join(os.path.dirname(arena.folder), "own file")
    with open(path, "wb") as file:
        file.truncate(size)
    host = arena.meet(transfer=transfer, answers=answers)
    arena.fetch(host, [b"file"], ("shift+Tab", "space"))
    arena.bring_to_front(arena.window("Open"))
    arena.desktop.type(path)
    arena.desktop.key("Return")
    host.wait_for(wire.UPLOAD)
    return host, path


def stops_reading(arena):
    """Reads the first bytes of a file and no more, until the attack is over."""
    host, _ = send_one(arena, lambda transfer: transfer.read_exactly(1000))
    host.wait_for_transfers()


def closes_at_once(arena):
    """Closes as soon as a file begins to come."""
    host, _ = send_one(arena, lambda transfer: transfer.close())
    host.wait_for_transfers()


def resets_in_the_middle(arena):
    """Resets the connection in the middle of a file."""
    def reset(transfer):
        transfer.read_exactly(MEBIBYTE)
        transfer.stream.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")
        transfer.close()

    host, _ = send_one(arena, reset)
    host.wait_for_transfers()


def file_that_shrinks(arena):
    """The file gets shorter while it is being sent."""
    def shrink(transfer):
        transfer.read_exactly(MEBIBYTE)
        os.truncate(os.path.join(os.path.dirname(arena.folder), "own file"), 2 * MEBIBYTE)
        transfer.read_to_end()
        transfer.close()

    host, _ = send_one(arena, shrink)
    host.wait_for_transfers()


def answers_on_the_wrong_side(arena):
    """Sends 16 MiB to who sends a file."""
    def talk(transfer):
        transfer.stream.settimeout(2)
        transfer.send(bytes(16 * MEBIBYTE))

    host, _ = send_one(arena, talk)
    host.wait_for_transfers()


def grants_1000_uploads(arena):
    """Grants 1,000 uploads of which one was asked for, and reads none of them."""
    def grant(host, request):
        for number in range(1000):
            host.reply(request, [(wire.REFERENCE, wire.long(number + 1))])

    host, _ = send_one(arena, None, answers={wire.UPLOAD: grant})
    host.wait_for_transfers()


def refuses(arena):
    """Refuses a file with a text of 64 KB."""
    def refuse(host, request):
        host.reply(request, [(wire.ERROR, b"refused " * 8191)], 1)

    host, _ = send_one(arena, None, answers={wire.UPLOAD: refuse})
    host.wait_until_read()


ATTACKS = attacks(stops_reading, closes_at_once, resets_in_the_middle, file_that_shrinks, answers_on_the_wrong_side,
    grants_1000_uploads, refuses)
