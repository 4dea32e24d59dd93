# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The demo server as a process of a desktop."""

import os
import re

from desktop import NotHappened, wait_until

SERVER_NAME = "Lantern Café"
DEFAULT_PORT = 5500


class Demo:
    """A running demo server. `port` 0 takes any that is free; `self.port` is the one taken."""

    def __init__(self, desktop, build_folder, port, *options):
        self._command = [os.path.join(build_folder, "demo", "palimbra-demo"), *options, "--port"]
        self._desktop = desktop
        self.program = None
        self.port = port
        self.start()

    def start(self):
        """Starts the server, on the port that it had before if it was stopped."""
        self.program = self._desktop.start([*self._command, str(self.port)])
        line = wait_until(lambda: re.search(r"listening on 127\.0\.0\.1:(\d+)", self.program.output())
            or (not self.program.is_running() and "ended"), "the demo server")
        if line == "ended":
            raise NotHappened("the demo server did not start:\n" + self.program.output())
        self.port = int(line.group(1))
