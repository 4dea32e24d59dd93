# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The program's paths, each beside the least that does the same: bare loops of system calls, and the toolkit's floor."""

import contextlib
import functools
import json
import os
import shutil
import subprocess
import tempfile

from pair import Figure, Pair, Single

GIGABYTE = 1 << 30
MEGABYTE = 1 << 20


def pairs(build):
    programs = _Programs(os.path.join(build, "bench"))
    return [_receiving(programs), _download(programs), _upload(programs), _ten_downloads(programs), _listing(programs),
            _inside(programs)]


class _Programs:
    """The programs of the target "bench". Each does its work once and prints its figures."""

    def __init__(self, folder):
        self._folder = folder

    def run(self, name, *arguments):
        with tempfile.TemporaryDirectory(prefix="palimbra-home-") as home:
            environment = dict(os.environ, HOME=home, XDG_RUNTIME_DIR=home, QT_QPA_PLATFORM="offscreen")
            command = [os.path.join(self._folder, name), *map(str, arguments)]
            done = subprocess.run(command, env=environment, capture_output=True, text=True, timeout=300)
        if done.returncode != 0:
            raise RuntimeError(f"{' '.join(command)}: status {done.returncode}\n{done.stderr}")
        return json.loads(done.stdout)


@functools.lru_cache
def _place_for(size):
    """Where there is room for that many bytes, in all runs: in memory if possible, as a disk's own work differs every time."""
    memory = "/dev/shm"
    fits = os.path.isdir(memory) and shutil.disk_usage(memory).free > size + GIGABYTE
    return memory if fits else tempfile.gettempdir()


@contextlib.contextmanager
def _scratch(size):
    """An empty folder with room for that many bytes."""
    with tempfile.TemporaryDirectory(prefix="palimbra-bench-", dir=_place_for(size)) as folder:
        yield folder


def _receiving(programs):
    def side(name):
        return lambda quick: programs.run(name, 100_000 if quick else 1_000_000)

    return Pair(
        title="Receiving chat",
        what="1,000,000 chat transactions of 62 bytes from a feeder of its own process: the connection of the program, whose "
             "notifications are posted to a looper of the main thread that drops them, and a loop of the same four system "
             "calls per transaction. CPU of the receiving thread, up to the posted notification.",
        first=("Palimbra", side("bench_receive_path")),
        second=("bare loop", side("bench_receive_loop")),
        figures=[
            Figure("receive_us", "per transaction", "us CPU", limit=2.0),
            Figure("delivered_us", "the same with its delivery on the main thread", "us CPU"),
        ])


def _transfer_pair(title, what, transfer):
    """`transfer()` runs one of the programs on a new file and returns its processor seconds."""

    def palimbra(quick):
        seconds = transfer(quick, "bench_transfers", "turns")
        return {"cpu_s": seconds, "only_s": seconds}

    def loop(quick):
        return {"cpu_s": transfer(quick, "bench_transfer_loop", "second"),
                "only_s": transfer(quick, "bench_transfer_loop", "only")}

    return Pair(
        title=title,
        what=what,
        first=("Palimbra", palimbra),
        second=("bare loop", loop),
        figures=[
            Figure("cpu_s", "1 GiB", "s CPU", limit=1.05),
            Figure("only_s", "beside a loop in the only thread", "s CPU"),
        ],
        rounds=15)


def _download(programs):
    def transfer(quick, name, how):
        size = 128 * MEGABYTE if quick else GIGABYTE
        with _scratch(size) as folder:
            return programs.run(name, "download", size, how, os.path.join(folder, "cargo"))["cpu_s"]

    return _transfer_pair(
        title="Download",
        what="1 GiB from a sender of its own process into a file: the program's download thread, and a thread that does "
             "recv (16 KiB) and write, or a process that does so in its only thread. Into the same file system, in memory "
             "where there is room. CPU of the receiving process.",
        transfer=transfer)


def _upload(programs):
    def transfer(quick, name, how):
        size = 128 * MEGABYTE if quick else GIGABYTE
        with _scratch(size) as folder:
            path = os.path.join(folder, "cargo")
            block = bytes(range(256)) * 4096
            with open(path, "wb") as file:
                for _ in range(size // len(block)):
                    file.write(block)
            return programs.run(name, "upload", size, how, path)["cpu_s"]

    return _transfer_pair(
        title="Upload",
        what="A file of 1 GiB to a receiver of its own process, which drops it: the program's upload thread, and a thread that "
             "does read (16 KiB) and send, or a process that does so in its only thread. CPU of the sending process.",
        transfer=transfer)


def _ten_downloads(programs):
    def side(how):
        def run(quick):
            size = 16 * MEGABYTE if quick else 256 * MEGABYTE
            with _scratch(10 * size) as folder:
                paths = [os.path.join(folder, str(i)) for i in range(10)]
                return programs.run("bench_transfers", "download", size, how, *paths)
        return run

    return Pair(
        title="Ten downloads",
        what="Ten downloads of 256 MiB each with the program's threads, at once and one after another: bytes of all of them "
             "by the time until the last one has ended.",
        first=("at once", side("together")),
        second=("one after another", side("turns")),
        figures=[Figure("mb_per_s", "throughput", "MB/s", limit=0.95, bigger_is_better=True)])


def _listing(programs):
    sizes = set()

    def side(name):
        def run(quick):
            figures = programs.run(name, 2_000 if quick else 10_000)
            sizes.add((figures["width"], figures["height"]))
            if len(sizes) > 1:
                raise AssertionError("the lists are not of the same size: %s" % sorted(sizes))
            return figures
        return run

    return Pair(
        title="A folder of 10,000 files",
        what="A reply of 10,000 entries, from its first byte until its rows are painted and all is at rest: connected, with "
             "the program's windows, and a list view with a model and a delegate of its own, which reads the same reply. "
             "Then scrolled to the end by three rows at a time, each step painted. On the toolkit's offscreen platform.",
        first=("Palimbra", side("bench_listing_path")),
        second=("toolkit's floor", side("bench_listing_floor")),
        figures=[
            Figure("fill_ms", "filled and painted", "ms CPU", limit=3.0),
            Figure("step_us", "one step of scrolling", "us CPU", limit=1.3),
        ])


# What bench_inside measures: its name there, what it is, and how many of it each iteration does.
INSIDE = [
    ("Message_Build", "message: build a chat notification", 1),
    ("Message_Copy", "message: copy it", 1),
    ("Message_Read", "message: read its two fields", 1),
    ("Message_ReadArray/10000", "message: read a value of a field of 10,000", 10_000),
    ("Message_PostAndDeliver", "message: post and deliver", 100),
    ("Protocol_ParseTransaction", "protocol: cut and read a chat transaction", 1),
    ("Protocol_WalkParameters/1000", "protocol: walk one parameter of 1,000", 1000),
    ("Protocol_BuildTransaction", "protocol: build a private message", 1),
    ("Protocol_ReadUserEntry", "protocol: read a user of a list", 1),
    ("Protocol_ReadFileEntry", "protocol: read a file of a list", 1),
    ("TextStore_Append/1000", "text store: append a line to 1,000", 1),
    ("TextStore_Append/100000", "text store: append a line to 100,000", 1),
    ("TextStore_FindPosition/100000", "text store: find a position in 100,000 lines", 1),
    ("Transcript_Append/1000", "chat window: append and show a line after 1,000", 100),
    ("Transcript_Append/100000", "chat window: append and show a line after 100,000", 100),
    ("List_AddItem/100", "list: add and show a row after 100", 100),
    ("List_AddItem/10000", "list: add and show a row after 10,000", 100),
]


def _inside(programs):
    def run(quick):
        found = programs.run("bench_inside", "--benchmark_format=json",
                             "--benchmark_min_time=" + ("0.01" if quick else "0.1"))
        to_ns = {"ns": 1, "us": 1e3, "ms": 1e6}
        times = {measured["name"].partition("/iterations")[0]: measured["cpu_time"] * to_ns[measured["time_unit"]]
                 for measured in found["benchmarks"]}
        return {name: times[name] / count for name, _, count in INSIDE}

    return Single(
        title="Inside of the process",
        what="Google Benchmark, each of these many times in one process, without a network; windows are on the toolkit's "
             "offscreen platform.",
        first=("Palimbra", run),
        figures=[Figure(name, title, "ns CPU") for name, title, _ in INSIDE])
