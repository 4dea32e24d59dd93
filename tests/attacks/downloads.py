# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Files that come from servers, and places where they should not go."""

import os
import threading
import time

import desktop
import wire
from attack import attacks
from desktop import wait_until


DATA = b"hostile data"


def entries_below(folder):
    """Every path below a folder, with what is there and its size, but for the downloads."""
    found = {}
    for parent, folders, files in os.walk(folder):
        if os.path.basename(parent) == "Downloads":
            continue
        found.update({os.path.join(parent, name): os.lstat(os.path.join(parent, name)).st_size for name in files})
        found.update({os.path.join(parent, name): None for name in folders})
    return found


def send_whole(transfer):
    transfer.send(wire.file_object(b"name", DATA))
    transfer.close()


def wait_for_the_end(arena, host):
    """Waits until all downloads that the user has asked for are over, or were refused."""
    # What is asked later comes later, and so does what is answered.
    arena.open_files(host)
    host.wait_until_read()
    host.send(wire.user_change(1, b"the last"))
    arena.window("Users Online (1)")
    wait_until(lambda: "HL:Download" not in arena.program.threads(), "the downloads to end")


def fetch_one(arena, transfer, name=b"file", size=1000):
    """Has the program fetch one file, which comes as `transfer` sends it, and waits until that is over."""
    host = arena.meet(transfer=transfer, size=size)
    arena.fetch(host, [name])
    host.wait_for_transfers()
    return host


def fetch_as(arena, *names):
    """Has the program fetch files of such names; nothing may appear outside of the downloads."""
    host = arena.meet(transfer=send_whole)
    before = entries_below(os.path.dirname(arena.folder))
    for name in names:
        arena.fetch(host, [name])
        arena.close_others()
    wait_for_the_end(arena, host)
    before[arena.downloads] = None
    after = entries_below(os.path.dirname(arena.folder))
    if after != before:
        raise AssertionError("outside of the downloads: %s" % sorted(set(after.items()) ^ set(before.items())))


def names_that_lead_up(arena):
    """Offers files whose names lead out of the folder for downloads."""
    fetch_as(arena, b"..", b"../palimbra", b"a/../../b", os.path.join(arena.folder, "absolute").encode())


def names_that_are_none(arena):
    """Offers files whose names are empty, dots, zeros or blanks."""
    fetch_as(arena, b".", b"\0", b"...", b" ", b"a\0b")


def names_that_are_long(arena):
    """Offers files whose names are as long as a name may be, and Khmer cut in the middle of a letter."""
    fetch_as(arena, b"n" * 255, b"n" * 254, ("\u1780" * 85).encode()[:254])


def names_of_control_characters(arena):
    """Offers files whose names are line ends and control characters, and no UTF-8."""
    fetch_as(arena, b"a\rb\nc", b"\x1b[2J\x07", b"\xff\xfe")


def forks_that_lie(arena):
    """Says that the fork is longer than what comes."""
    fetch_one(arena, lambda transfer: (transfer.send(wire.file_object(b"n", DATA, len(DATA) * 1000)), transfer.close()))


def forks_that_lie_the_other_way(arena):
    """Sends 16 MiB after a file that is said to be empty."""
    fetch_one(arena, lambda transfer: transfer.send(wire.file_object(b"n", DATA, 0) + bytes(16 << 20)))


def announces_4_gib(arena):
    """Announces a file of 4 GiB, sends 64 KB of it and closes."""
    fetch_one(arena, lambda transfer: (transfer.send(wire.file_object(b"n", bytes(65536), 0xffffffff)), transfer.close()),
        size=0xffffffff)


def description_of_64_kb(arena):
    """Describes a file in 64 KB."""
    fetch_one(arena, lambda transfer: (transfer.send(wire.file_object(b"n", DATA, information=bytes(65000))),
        transfer.close()))


def description_of_4_gib(arena):
    """Announces a description of 4 GiB and sends 8 MiB of it."""
    def send(transfer):
        transfer.send(b"FILP" + wire.short(1) + bytes(16) + wire.short(2))
        transfer.send(b"INFO" + bytes(8) + b"\xff" * 4 + bytes(8 << 20))
        transfer.close()

    fetch_one(arena, send)


def file_of_65535_forks(arena):
    """Sends an object that says that it has 65,535 forks, each without a byte."""
    def send(transfer):
        transfer.send(b"FILP" + wire.short(1) + bytes(16) + b"\xff\xff" + (b"MACR" + bytes(12)) * 65535)
        transfer.close()

    fetch_one(arena, send)


def garbage_for_a_file(arena):
    """Sends what is no file object."""
    fetch_one(arena, lambda transfer: (transfer.send(b"\xff" * 100000), transfer.close()))


def closes_at_every_step(arena):
    """Closes before, within and after every part of a file object."""
    whole = wire.file_object(b"name", DATA)
    lengths = iter([0, 1, 23, 24, 39, 40, 100, len(whole) - len(DATA) - 1, len(whole) - len(DATA), len(whole) - 1])

    def send(transfer):
        transfer.send(whole[:next(lengths)])
        transfer.close()

    host = arena.meet(transfer=send)
    arena.fetch(host, [b"file"])
    for count in range(1, 10):
        host.wait_for_transfers(count)
        arena.desktop.key("Return")
    host.wait_for_transfers(10)


def trickles(arena):
    """Sends a file byte by byte, with pauses."""
    def send(transfer):
        for byte in wire.file_object(b"name", DATA)[:40]:
            transfer.send(bytes([byte]))
            time.sleep(0.05)
        transfer.close()

    fetch_one(arena, send)


def two_of_one_name(arena):
    """Sends two files of one name at once, with different contents."""
    contents = iter([b"1" * 100000, b"2" * 100000])
    second = threading.Event()

    def send(transfer):
        whole = wire.file_object(b"name", next(contents))
        transfer.send(whole[:1000])
        second.wait(desktop.PATIENCE)
        transfer.send(whole[1000:])
        transfer.close()

    host = arena.meet(transfer=send)
    arena.fetch(host, [b"twin"], ("Home", "Return", "Return"))
    host.wait_for(wire.DOWNLOAD, 2)
    host.wait_for_transfers_to_begin()
    second.set()
    wait_for_the_end(arena, host)
    with open(os.path.join(arena.downloads, "twin"), "rb") as file:
        content = file.read()
    if len(set(content)) != 1 or len(content) != 100000:
        raise AssertionError("%d bytes, of both: %s" % (len(content), sorted(set(content))))


def fetch_onto(arena, make):
    """Has the program fetch a file whose name is taken by what `make` makes at that path."""
    os.makedirs(arena.downloads, exist_ok=True)
    path = os.path.join(arena.downloads, make.__name__)
    make(path)
    host = arena.meet(transfer=send_whole)
    arena.fetch(host, [make.__name__.encode()])
    wait_for_the_end(arena, host)


def onto_a_pipe(arena):
    """Sends a file of the name of a pipe that nobody reads."""
    fetch_onto(arena, os.mkfifo)


def onto_a_folder(arena):
    """Sends a file of the name of a folder."""
    fetch_onto(arena, os.mkdir)


def onto_a_device(arena):
    """Sends a file of the name of a link to a device that is always full."""
    def full(path):
        os.symlink("/dev/full", path)

    fetch_onto(arena, full)


def onto_a_link(arena):
    """Sends a file of the name of a link that leads to a link that leads to itself."""
    def link(path):
        os.symlink("itself", os.path.join(arena.downloads, "itself"))
        os.symlink("itself", path)

    fetch_onto(arena, link)


def two_hundred_at_once(arena):
    """Has as many of 200 files under way at once as the program takes, and closes them all."""
    over = threading.Event()

    def send(transfer):
        transfer.send(wire.file_object(b"name", bytes(100000), 200000))
        over.wait(desktop.PATIENCE)
        transfer.close()

    host = arena.meet(transfer=send)
    arena.fetch(host, [b"file %d" % number for number in range(200)], ("Home", *["Return", "Down"] * 200))
    host.wait_for(wire.DOWNLOAD, 200)
    host.wait_for_transfers_to_begin()
    over.set()
    wait_for_the_end(arena, host)


def grants_without_an_end(arena):
    """Grants 5,000 downloads of which one was asked for."""
    def grant(host, request):
        for _ in range(5000):
            host.reply(request, [(wire.REFERENCE, wire.long(5)), (wire.TRANSFER_SIZE, wire.long(1))])

    host = arena.meet(transfer=lambda transfer: transfer.close(), answers={wire.DOWNLOAD: grant})
    arena.fetch(host, [b"file"])
    host.wait_for(wire.DOWNLOAD)
    host.wait_until_read()
    host.wait_for_transfers()



ATTACKS = attacks(names_that_lead_up, names_that_are_none, names_that_are_long, names_of_control_characters,
    forks_that_lie, forks_that_lie_the_other_way, announces_4_gib, description_of_64_kb, description_of_4_gib,
    file_of_65535_forks, garbage_for_a_file, closes_at_every_step, trickles, two_of_one_name, onto_a_pipe, onto_a_folder,
    onto_a_device, onto_a_link, two_hundred_at_once, grants_without_an_end)
