# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Transactions that are not what their headers say."""

import contextlib
import random
import struct

import wire
from attack import attacks

MEBIBYTE = 1024 * 1024


def header(kind, size, number=0, error=0, data_size=None, count=0):
    """The 22 bytes before the parameters, whatever they are worth."""
    return struct.pack(">IIIIIH", kind, number, error, size, size if data_size is None else data_size, count)


def send_as_far_as_it_goes(connection, data):
    """Sends to a client that may well have had enough, and may have stopped reading, and closes."""
    connection.stream.settimeout(3)
    with contextlib.suppress(OSError):
        connection.send(data)
    connection.close()


def announces_nothing(arena):
    """Sends headers whose size is 0, which leaves not even room for the count of parameters."""
    send_as_far_as_it_goes(arena.log_in(), header(wire.CHAT, 0) * 10000)


def announces_one_byte(arena):
    """Sends headers whose size is 1."""
    send_as_far_as_it_goes(arena.log_in(), header(wire.CHAT, 1) * 10000)


def announces_2_gib(arena):
    """Announces 2 GiB and sends 8 MiB of them."""
    send_as_far_as_it_goes(arena.log_in(), header(wire.CHAT, 1 << 31) + bytes(8 * MEBIBYTE))


def announces_4_gib(arena):
    """Announces the largest size that there is and sends 8 MiB."""
    send_as_far_as_it_goes(arena.log_in(), header(wire.CHAT, 0xffffffff) + bytes(8 * MEBIBYTE))


def announces_more_than_16_mib(arena):
    """Announces one byte more than 16 MiB, and sends them all."""
    send_as_far_as_it_goes(arena.log_in(), header(wire.CHAT, 16 * MEBIBYTE + 1) + bytes(16 * MEBIBYTE + 1))


def announces_16_mib_and_stops(arena):
    """Announces 16 MiB for everything that there is, sends a little of it and falls silent."""
    arena.log_in().send(header(wire.REPLY, 16 * MEBIBYTE) + bytes(100000))


def has_two_sizes(arena):
    """Sends transactions whose two sizes differ."""
    host = arena.meet()
    chat = wire.chat(b"two sizes")
    for size in (0, 1, 5, 1000, 0xffffffff):
        host.send(chat[:16] + wire.long(size) + chat[20:])
    host.wait_until_read()


def has_16000_parameters(arena):
    """Sends 50 transactions with 16,000 empty parameters each."""
    host = arena.meet()
    host.send(wire.transaction(wire.CHAT, [(wire.DATA, b"")] * 16000) * 50)
    host.wait_until_read()


def has_one_parameter_10000_times(arena):
    """Sends chat, people and agreements that say everything 10,000 times."""
    host = arena.meet()
    for kind in (wire.CHAT, wire.MESSAGE, wire.USER_CHANGE, wire.BROADCAST):
        host.send(wire.transaction(kind, [(wire.DATA, b"again"), (wire.NICK, b"again"), (wire.SOCKET, b"\0\5")] * 10000))
    host.wait_until_read()


def has_parameters_that_overrun(arena):
    """Sends parameters that say that they are longer than the transaction."""
    host = arena.meet()
    for kind in (wire.CHAT, wire.MESSAGE, wire.USER_CHANGE, wire.USER_LEAVE, wire.AGREEMENT, wire.BROADCAST, wire.REPLY):
        for length in (5, 255, 32768, 65535):
            body = struct.pack(">HH", wire.DATA, length) + b"text"
            host.send(header(kind, len(body) + 2, count=1) + body)
    host.wait_until_read()


def lies_about_the_count(arena):
    """Sends transactions whose count of parameters is wrong."""
    host = arena.meet()
    chat = wire.chat(b"counted")
    for count in (0, 2, 1000, 65535):
        host.send(chat[:20] + wire.short(count) + chat[22:])
    host.wait_until_read()


def sends_unknown_kinds(arena):
    """Sends transactions of 20,000 kinds that nobody knows."""
    host = arena.meet()
    host.send(b"".join(wire.transaction(kind, [(wire.DATA, b"unknown")]) for kind in range(1000, 21000)))
    host.wait_until_read()


def replies_to_nobody(arena):
    """Sends 50,000 replies to what was never asked, errors among them."""
    host = arena.meet()
    host.send(b"".join(wire.transaction(wire.REPLY, [(wire.ERROR, b"no")], number, number & 1)
        for number in range(1000, 51000)))
    host.wait_until_read()


def replies_a_thousand_times(arena):
    """Answers one question for the files with a thousand replies."""
    def reply(host, request):
        for _ in range(1000):
            host.reply(request, [(wire.FILE, wire.file_entry(b"again"))])

    host = arena.meet(answers={wire.FILES: reply})
    arena.open_files(host)
    host.wait_until_read()


def refuses_everything_at_length(arena):
    """Answers questions for the files with errors whose texts have 64 KB."""
    def refuse(host, request):
        host.reply(request, [(wire.ERROR, b"refused " * 8191)], 1)

    host = arena.meet(answers={wire.FILES: refuse})
    for _ in range(5):
        arena.open_files(host)
    host.wait_until_read()


def sends_random_transactions(arena):
    """Sends 20,000 transactions of known kinds with random parameters."""
    dice = random.Random(2)
    kinds = (wire.CHAT, wire.USER_CHANGE, wire.USER_LEAVE, wire.BROADCAST, wire.REPLY, wire.BANNER)
    fields = (wire.ERROR, wire.DATA, wire.NICK, wire.SOCKET, wire.ICON, wire.COLOR, wire.REFERENCE, wire.USER, wire.FILE)
    host = arena.meet()
    host.send(b"".join(wire.transaction(dice.choice(kinds),
        [(dice.choice(fields), dice.randbytes(dice.randrange(30))) for _ in range(dice.randrange(4))],
        dice.randrange(20), dice.randrange(2)) for _ in range(20000)))
    host.wait_until_read()


def sends_random_bytes(arena):
    """Sends 8 MiB of random bytes after the login."""
    send_as_far_as_it_goes(arena.log_in(), random.Random(3).randbytes(8 * MEBIBYTE))


def sends_half_and_closes(arena):
    """Closes in the middle of a transaction."""
    send_as_far_as_it_goes(arena.log_in(), wire.chat(b"half of it")[:25])


def sends_byte_by_byte(arena):
    """Sends 300 transactions in packets of one byte."""
    host = arena.meet()
    for byte in wire.chat(b"slowly") * 300:
        host.send(bytes([byte]))
    host.wait_until_read()


ATTACKS = attacks(announces_nothing, announces_one_byte, announces_2_gib, announces_4_gib, announces_more_than_16_mib,
    announces_16_mib_and_stops, has_two_sizes, has_16000_parameters, has_one_parameter_10000_times,
    has_parameters_that_overrun, lies_about_the_count, sends_unknown_kinds, replies_to_nobody, replies_a_thousand_times,
    refuses_everything_at_length, sends_random_transactions, sends_random_bytes, sends_half_and_closes,
    sends_byte_by_byte)
