# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A machine that has nothing left: descriptors, memory, threads, room on the disk."""

import os

import painter
import wire
from attack import attacks
from desktop import NotHappened, wait_until

MEBIBYTE = 1024 * 1024


def limit(arena, *limits):
    """Sets limits of the running program, by the arguments of prlimit."""
    arena.desktop.ask("prlimit", "--pid", str(arena.program.pid), *limits)


def no_descriptors(arena):
    """Leaves the program no descriptor but those that it has, and sends files, banners and people."""
    host = arena.meet(transfer=lambda transfer: (transfer.send(wire.file_object(b"n", b"data")), transfer.close()))
    arena.fetch(host, [b"file"], ())
    usual = arena.limit_of("nofile")
    limit(arena, "--nofile=%d:" % arena.program.descriptors())
    arena.desktop.key("Home", "Return", "Return", "Return")
    host.send(wire.transaction(wire.BANNER, [(wire.BANNER_TYPE, b"JPEG")]) * 20 + wire.agreement(b"Agree")
        + wire.message(3, b"stranger", b"hi") + wire.chat(b"line"))
    host.wait_for(wire.DOWNLOAD, 3)
    host.wait_until_read()
    limit(arena, "--nofile=%s:" % usual)


def no_descriptors_for_a_connection(arena):
    """Leaves the program no descriptor but those that it has, and has the user connect and ask the tracker."""
    usual = arena.limit_of("nofile")
    limit(arena, "--nofile=%d:" % arena.program.descriptors())
    arena.dial()
    arena.press_until(arena.other_windows, "ctrl+t")
    limit(arena, "--nofile=%s:" % usual)


def no_threads(arena):
    """Leaves the program no room for the stack of another thread, and sends files and banners."""
    host = arena.meet(transfer=lambda transfer: transfer.close())
    arena.fetch(host, [b"file"], ())
    limit(arena, "--as=%d:" % (arena.virtual_memory() + 4 * MEBIBYTE))
    arena.desktop.key("Home", "Return", "Return", "Return")
    host.send(wire.transaction(wire.BANNER, [(wire.BANNER_TYPE, b"JPEG")]) * 20 + wire.chat(b"line"))
    host.wait_for(wire.DOWNLOAD, 3)
    host.wait_until_read()
    limit(arena, "--as=unlimited:")


def flood_with_little_memory(arena, room, flood, count=1):
    """Leaves the program so much more memory, and floods it. The connection may end by that, the program may not."""
    limit(arena, "--as=%d:" % (arena.virtual_memory() + room))
    host = arena.meet()
    # Who has given up a connection need not read what is still coming.
    host.connection.stream.settimeout(3)
    try:
        for _ in range(count):
            host.send(flood)
        host.wait_until_read()
    except (OSError, NotHappened):
        # It has had enough.
        pass
    limit(arena, "--as=unlimited:")


def chat_with_little_memory(arena):
    """Leaves the program 60 MB more, and says 200 MB in the chat."""
    flood_with_little_memory(arena, 60 * MEBIBYTE, wire.chat(b"word " * 13107) * 320, 10)


def people_with_little_memory(arena):
    """Leaves the program 30 MB more, and has everybody come who can."""
    flood_with_little_memory(arena, 30 * MEBIBYTE,
        b"".join(wire.user_change(number, b"nick" * 15) for number in range(1, 20000)))


def sizes_with_little_memory(arena):
    """Leaves the program 20 MB more, and announces transactions of 16 MiB, and listings."""
    flood_with_little_memory(arena, 20 * MEBIBYTE, wire.transaction(wire.CHAT, [(wire.DATA, b"w" * 65535)] * 250), 5)


def messages_with_little_memory(arena):
    """Leaves the program 30 MB more, and writes in private as 500 people."""
    flood_with_little_memory(arena, 30 * MEBIBYTE,
        b"".join(wire.message(number, b"stranger", b"word " * 200) for number in range(1, 501)))


def pictures_with_little_memory(arena):
    """Leaves the program 40 MB more, and offers a picture that takes more to be decoded."""
    limit(arena, "--as=%d:" % (arena.virtual_memory() + 40 * MEBIBYTE))
    picture = painter.png(2048, 2048, 16, 6)
    host = arena.meet(transfer=lambda transfer: (transfer.send(picture), transfer.close()), size=len(picture))
    host.send(wire.transaction(wire.BANNER, [(wire.BANNER_TYPE, b"JPEG")]))
    host.wait_for_transfers()
    host.wait_until_read()
    limit(arena, "--as=unlimited:")


def no_room_on_the_disk(arena):
    """Leaves the program no room for files of more than 64 KB, and sends one of 1 MB."""
    limit(arena, "--fsize=65536:")
    host = arena.meet(transfer=lambda transfer: (transfer.send(wire.file_object(b"n", bytes(MEBIBYTE))), transfer.close()))
    arena.fetch(host, [b"too large"])
    host.wait_for_transfers()
    wait_until(lambda: "HL:Download" not in arena.program.threads(), "the download to end")
    limit(arena, "--fsize=unlimited:")
    if os.path.getsize(os.path.join(arena.downloads, "too large")) > 65536:
        raise AssertionError("the file is larger than there was room for")


ATTACKS = attacks(no_descriptors, no_descriptors_for_a_connection, no_threads, sizes_with_little_memory,
    people_with_little_memory, messages_with_little_memory, pictures_with_little_memory, chat_with_little_memory,
    no_room_on_the_disk)
