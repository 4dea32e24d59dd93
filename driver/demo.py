# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The demo server as a process of a desktop."""

import os
import re

from desktop import NotHappened, wait_until

SERVER_NAME = "Lantern Café"
DEFAULT_PORT = 5500

# What its root folder lists.
COUNT_ROOT = 13

MEBIBYTE = 1024 * 1024


def pattern(size):
    """What the demo's files of sizes hold. The bytes repeat after 16 MiB."""
    row = bytes(column * 131 & 255 for column in range(256))
    rows = [bytes(byte + shift & 255 for byte in row) for shift in range(256)]
    count = min(size, 16 * MEBIBYTE)
    block = b"".join(rows[(line & 255) * 7 + (line >> 8) * 29 & 255] for line in range(-(-count // 256)))
    return (block * -(-size // (16 * MEBIBYTE)))[:size] if size > len(block) else block[:size]


class Demo:
    """A running demo server. `port` 0 takes any that are free; `self.port` and `self.tracker_port` are the ones taken."""

    def __init__(self, desktop, build_folder, port, *options):
        self._command = [os.path.join(build_folder, "demo", "palimbra-demo"), *options]
        self._desktop = desktop
        self.program = None
        self.port = port
        self.tracker_port = None
        self.start()

    def start(self):
        """Starts the server, on the ports that it had before if it was stopped."""
        ports = ["--port", str(self.port)]
        if self.tracker_port is not None:
            ports += ["--tracker-port", str(self.tracker_port)]
        self.program = self._desktop.start([*self._command, *ports])
        lines = wait_until(lambda: re.search(r"listening on \S+:(\d+)\ntracker on \S+:(\d+)\n", self.program.output())
            or (not self.program.is_running() and "ended"), "the demo server")
        if lines == "ended":
            raise NotHappened("the demo server did not start:\n" + self.program.output())
        self.port, self.tracker_port = int(lines.group(1)), int(lines.group(2))
