# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Servers that go wrong before anybody is logged in."""

import random
import socket
import struct
import time

import hotline
import wire
from attack import attacks
from desktop import wait_until


def closes_at_once(arena):
    """Closes the connection as soon as there is one."""
    arena.connect().close()


def resets_at_once(arena):
    """Resets the connection as soon as there is one."""
    connection = arena.connect()
    connection.stream.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
    connection.close()


def closes_after_the_greeting(arena):
    """Reads the client's greeting and closes."""
    connection = arena.connect()
    connection.read_exactly(12)
    connection.close()


def closes_in_the_handshake(arena):
    """Closes in the middle of its own greeting."""
    connection = arena.connect()
    connection.send(b"TRTP\0")
    connection.close()


def answers_garbage(arena):
    """Answers the greeting with 64 KB of random bytes."""
    connection = arena.connect()
    connection.send(random.Random(1).randbytes(65536))
    connection.read_to_end()


def answers_as_a_web_server(arena):
    """Answers with a page of the web, as a server of another kind would."""
    connection = arena.connect()
    connection.send(b"HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n")
    connection.read_to_end()


def floods_from_the_first_byte(arena):
    """Shakes hands and sends zeros without an end, which are headers that announce nothing."""
    connection = arena.connect()
    connection.handshake()
    with hotline.Flood(connection, bytes(1 << 20)) as flood:
        wait_until(lambda: flood.sent > 32 << 20 or not flood.is_running(), "the flood to arrive")


def floods_with_ones(arena):
    """Shakes hands and sends bytes of 255 without an end, which are headers that announce 4 GiB."""
    connection = arena.connect()
    connection.handshake()
    with hotline.Flood(connection, b"\xff" * (1 << 20)) as flood:
        wait_until(lambda: flood.sent > 32 << 20 or not flood.is_running(), "the flood to arrive")


def trickles_the_greeting(arena):
    """Sends its greeting byte by byte, with pauses, and never the last one."""
    connection = arena.connect()
    for byte in b"TRTP\0\0\0":
        connection.send(bytes([byte]))
        time.sleep(0.2)


def never_answers(arena):
    """Accepts and never says a word; the next server has to be reached nevertheless."""
    arena.connect().read_exactly(12)


def closes_instead_of_a_login(arena):
    """Reads the login and closes."""
    connection = arena.connect()
    connection.handshake()
    connection.read_until(wire.LOGIN)
    connection.close()


def refuses_with_a_long_text(arena):
    """Refuses the login with a text of 64 KB, over and over."""
    connection = arena.connect()
    connection.handshake()
    login = connection.read_until(wire.LOGIN)
    for _ in range(20):
        connection.reply(login, [(wire.ERROR, b"No. " * 16383)], 1)
    connection.close()


def accepts_without_a_word(arena):
    """Accepts the login with a reply that has nothing in it."""
    connection = arena.connect()
    connection.handshake()
    connection.reply(connection.read_until(wire.LOGIN), [])
    connection.close()


def has_a_long_name(arena):
    """Has a name of 64 KB, which goes into titles and lines."""
    connection = arena.connect()
    connection.handshake()
    connection.accept_login(connection.read_until(wire.LOGIN), b"Name " * 13107)
    connection.read_until(wire.USER_LIST)


def has_a_name_of_lines(arena):
    """Has a name of line ends, control characters and marks that turn the direction."""
    connection = arena.connect()
    connection.handshake()
    connection.accept_login(connection.read_until(wire.LOGIN), "\r\n\t\x1b[2J\u202e\u2066\u0301".encode() * 4000)
    connection.read_until(wire.USER_LIST)


def accepts_a_thousand_times(arena):
    """Accepts the one login a thousand times, each time under another name."""
    connection = arena.connect()
    connection.handshake()
    login = connection.read_until(wire.LOGIN)
    for number in range(1000):
        connection.accept_login(login, b"Name %d" % number)
    connection.read_until(wire.USER_LIST)


def speaks_before_the_login(arena):
    """Sends chat, people, messages and agreements before it has accepted the login."""
    connection = arena.connect()
    connection.handshake()
    connection.send(b"".join(wire.chat(b"early") + wire.user_change(number, b"early") + wire.agreement(b"")
        + wire.message(1, b"early", b"early") + wire.broadcast(b"early") for number in range(1, 500)))
    connection.close()


ATTACKS = attacks(closes_at_once, resets_at_once, closes_after_the_greeting, closes_in_the_handshake, answers_garbage,
    answers_as_a_web_server, floods_from_the_first_byte, floods_with_ones, trickles_the_greeting, never_answers,
    closes_instead_of_a_login, refuses_with_a_long_text, accepts_without_a_word, has_a_long_name, has_a_name_of_lines,
    accepts_a_thousand_times, speaks_before_the_login)
