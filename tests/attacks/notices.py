# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What a server announces: agreements, broadcasts, requests to leave."""

import wire
from attack import attacks


def agreements_without_an_end(arena):
    """Shows 500 agreements."""
    host = arena.meet()
    host.send(b"".join(wire.agreement(b"Agreement %d" % number) for number in range(500)))
    host.wait_until_read()


def agreements_of_64_kb(arena):
    """Shows 20 agreements of 64 KB, of words and of one word."""
    host = arena.meet()
    host.send((wire.agreement(b"words " * 10922) + wire.agreement(b"w" * 65535)) * 10)
    host.wait_until_read()


def agreements_that_are_expensive(arena):
    """Shows 64 KB of Khmer, of marks and of line ends as agreements."""
    host = arena.meet()
    for piece in ("\u1780\u17d2\u179a", "\u0301", "\r", "\u202e\u2067"):
        host.send(wire.agreement((piece * 65535).encode()[:65535]))
    host.wait_until_read()


def empty_agreements(arena):
    """Shows 5,000 agreements that have no text, each of which the client accepts by itself."""
    host = arena.meet()
    for _ in range(50):
        host.send(wire.agreement(b"") * 100)
    host.wait_until_read()


def broadcasts(arena):
    """Announces 20,000 things to everybody."""
    host = arena.meet()
    host.send(wire.broadcast(b"attention") * 20000)
    host.wait_until_read()


def broadcasts_of_64_kb(arena):
    """Announces 64 KB of words and of line ends, 20 times each."""
    host = arena.meet()
    host.send((wire.broadcast(b"words " * 10922) + wire.broadcast(b"\r" * 65535)) * 20)
    host.wait_until_read()


def asks_to_leave(arena):
    """Asks 5,000 times to leave."""
    connection = arena.log_in()
    connection.send(wire.polite_quit(b"leave") * 5000)
    connection.close()


def asks_to_leave_at_length(arena):
    """Asks to leave in 64 KB, while chat comes as well."""
    connection = arena.log_in()
    connection.send((wire.chat(b"line") + wire.polite_quit(b"leave " * 10922)) * 20)
    connection.close()


def subjects_and_invitations(arena):
    """Sends 20,000 subjects of rooms, invitations and news, which this client does not know."""
    host = arena.meet()
    host.send(b"".join(wire.transaction(kind, [(wire.DATA, b"subject"), (114, wire.long(kind))])
        for kind in (102, 113, 117, 118, 119)) * 4000)
    host.wait_until_read()


ATTACKS = attacks(agreements_without_an_end, agreements_of_64_kb, agreements_that_are_expensive, empty_agreements,
    broadcasts, broadcasts_of_64_kb, asks_to_leave, asks_to_leave_at_length, subjects_and_invitations)
