# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Trackers whose listings are none."""

import random
import struct
import time

import hotline
from attack import attacks
from desktop import wait_until


def record(name=b"server", description=b"", port=5500, users=1):
    return bytes([127, 0, 0, 1]) + struct.pack(">HHHB", port, users, 0, len(name)) + name \
        + bytes([len(description)]) + description


def header(size, count, magic=b"HTRK"):
    return magic + struct.pack(">HHHHH", 1, 1, size, count, count)


def listing(records):
    """Records as a tracker sends them; what has no room in a listing is left out."""
    fitting = records[:min(len(records), 65531 // max(1, len(records[0])))]
    whole = b"".join(fitting)
    return header(len(whole) + 4, len(fitting)) + whole


def ask(arena, answer):
    """Has the program ask the tracker, and answers with these bytes; then the tracker closes."""
    connection = arena.open_tracker()
    connection.stream.settimeout(3)
    try:
        connection.send(answer)
    except OSError:
        # It has read enough.
        pass
    connection.close()
    wait_until(lambda: "TrackerFetch" not in arena.program.threads(), "the fetch to end")


def closes_at_every_step(arena):
    """Closes before, in and after every part of a listing."""
    whole = listing([record(b"server", b"description")] * 2)
    for length in (0, 3, 13, 14, 15, 24, 25, 31, 32, 43, len(whole) - 1):
        ask(arena, whole[:length])


def garbage_for_a_listing(arena):
    """Answers with random bytes, with and without the beginning of a listing."""
    noise = random.Random(5).randbytes(65531)
    ask(arena, noise)
    ask(arena, header(65535, 65535) + noise)
    ask(arena, header(0, 0) + noise)


def listing_without_an_end(arena):
    """Sends a listing that says nothing of its size, without an end."""
    connection = arena.open_tracker()
    connection.send(header(0, 0))
    with hotline.Flood(connection, record(b"endless", b"server") * 1000) as flood:
        wait_until(lambda: flood.sent > 8 << 20 or not flood.is_running(), "the flood to arrive")
    wait_until(lambda: "TrackerFetch" not in arena.program.threads(), "the fetch to end")


def as_many_servers_as_there_can_be(arena):
    """Lists servers that have neither a name nor a description, as many as a listing has room for."""
    ask(arena, listing([record(b"")] * 65535))


def counts_that_lie(arena):
    """Says that there are other numbers of servers and of bytes than there are."""
    servers = record(b"server", b"description") * 100
    for size, count in ((0, 65535), (3, 0), (4, 1), (5, 5), (65535, 1), (100, 65535), (len(servers) + 4, 3)):
        ask(arena, header(size, count) + servers)


def records_that_overrun(arena):
    """Lists servers whose names and descriptions are said to be longer than what comes."""
    cut = bytes([127, 0, 0, 1]) + struct.pack(">HHHB", 1, 1, 0, 255) + b"name"
    ask(arena, header(len(cut) + 4, 1) + cut)
    ask(arena, header(4096, 100) + cut + bytes(3000))


def names_that_are_expensive(arena):
    """Lists servers with names and descriptions of 255 bytes of Khmer, of marks, of line ends and of no UTF-8."""
    texts = ["\u1780\u17d2\u179a".encode() * 28, b"a" + b"\xcc\x81" * 127, b"\r\n\t\0" * 63, b"\xff\xc0" * 127,
        "\u202e\u2067".encode() * 42]
    ask(arena, listing([record(texts[number % 5], texts[(number + 1) % 5]) for number in range(127)]))


def listing_that_trickles(arena):
    """Sends a listing byte by byte, with pauses, and half of it."""
    connection = arena.open_tracker()
    for byte in listing([record(b"server")] * 5)[:40]:
        connection.send(bytes([byte]))
        time.sleep(0.05)
    connection.close()


def silence_in_ten_windows(arena):
    """Never answers any of ten windows that ask, until they are closed."""
    for _ in range(10):
        arena.open_tracker()
    arena.close_others()
    wait_until(lambda: not arena.other_windows(), "the windows to close")


ATTACKS = attacks(closes_at_every_step, garbage_for_a_listing, listing_without_an_end, as_many_servers_as_there_can_be,
    counts_that_lie, records_that_overrun, names_that_are_expensive, listing_that_trickles, silence_in_ten_windows)
