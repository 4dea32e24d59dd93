# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Listings of files that are none."""

import struct

import wire
from attack import attacks


def show(arena, entries, title=None):
    """Has the program ask for the files and get these entries; waits for the title of the window."""
    host = arena.meet()
    host.listing = entries
    arena.open_files(host)
    host.wait_until_read()
    if title is not None:
        arena.window(title)
    return host


def all_files_that_there_can_be(arena):
    """Lists 65,535 files."""
    show(arena, [wire.file_entry(b"file %d" % number) for number in range(65535)], "Files (65535)")


def more_files_than_can_be_counted(arena):
    """Lists 700,000 files without a name, which is what fits into the largest transaction."""
    entry = wire.file_entry(b"")
    body = (struct.pack(">HH", wire.FILE, len(entry)) + entry) * 699000

    def reply(host, request):
        host.send(struct.pack(">IIIIIH", wire.REPLY, request.number, 0, len(body) + 2, len(body) + 2, 65535) + body)

    host = arena.meet(answers={wire.FILES: reply})
    arena.open_files(host)
    host.wait_until_read()
    arena.window("Files (65535)")


def names_of_64_kb(arena):
    """Lists 100 files whose names have 64 KB."""
    show(arena, [wire.file_entry(b"name" * 16000) for _ in range(100)])


def names_that_are_paths(arena):
    """Lists files with the names of other places, and folders as well."""
    names = [b"..", b".", b"/", b"a/b", b"../../etc/passwd", b"/etc/passwd", b"a\0b", b"", b"\\", b"~", b"-rf"]
    show(arena, [wire.file_entry(name, kind) for name in names for kind in (b"TEXT", b"fldr")])


def names_that_are_expensive(arena):
    """Lists 2,000 files whose names are Khmer, turned around, marks or no UTF-8."""
    names = ["\u1780\u17d2\u179a".encode() * 28, "\u202e\u2067a\u0301".encode() * 25, b"a" + b"\xcc\x81" * 127,
        b"\xff\xc0\r\n\t" * 50]
    show(arena, [wire.file_entry(names[number % 4]) for number in range(2000)], "Files (2000)")


def entries_that_lie(arena):
    """Lists entries that are cut, too long, or whose names are said to be longer than they are."""
    entry = wire.file_entry(b"name")
    lengths = [struct.pack(">4s4sIII", b"TEXT", b"ttxt", 1, 0, length) + b"name" for length in (5, 255, 65536, 1 << 31)]
    show(arena, [entry[:length] for length in range(24)] + lengths + [b"\xff" * 65535])


def kinds_that_nobody_knows(arena):
    """Lists files whose kinds, creators and sizes are any bytes that there are."""
    show(arena, [wire.file_entry(b"file", bytes([byte] * 4), 0xffffffff - byte) for byte in range(256)], "Files (256)")


def listing_without_an_end(arena):
    """Answers one question with 200 listings, the first of which is the answer."""
    def reply(host, request):
        for _ in range(200):
            host.reply(request, [(wire.FILE, wire.file_entry(b"again"))] * 500)

    host = arena.meet(answers={wire.FILES: reply})
    arena.open_files(host)
    host.wait_until_read()


def listing_in_every_window(arena):
    """Answers with 20,000 files, in six windows at once."""
    entries = [wire.file_entry(b"file %d" % number) for number in range(20000)]
    host = show(arena, entries)
    for _ in range(5):
        arena.open_files(host)
    host.wait_until_read()


def listing_that_never_comes(arena):
    """Never answers the question for the files."""
    host = arena.meet(answers={wire.FILES: lambda *_: None})
    arena.open_files(host)
    arena.open_files(host)


def folder_in_itself(arena):
    """Lists folders whose names are paths, which are opened one in another."""
    name = b"folder/../" * 20
    host = arena.meet()
    arena.fetch(host, [name], keys=(), kind=b"fldr")
    for depth in range(5):
        before = host.asked[wire.FILES]
        arena.desktop.key("Home", "Return")
        host.wait_for(wire.FILES, before + 1)


ATTACKS = attacks(all_files_that_there_can_be, more_files_than_can_be_counted, names_of_64_kb, names_that_are_paths, names_that_are_expensive,
    entries_that_lie, kinds_that_nobody_knows, listing_without_an_end, listing_in_every_window, listing_that_never_comes,
    folder_in_itself)
