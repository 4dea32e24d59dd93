# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What the chapters of the tour share: the desktop, the demo server, the client, and the pictures that are taken."""

import os
import time

from client import Client
from demo import DEFAULT_PORT, SERVER_NAME, Demo
from desktop import NotHappened, wait_until

NICK = "HaikuUser"


class Guide:
    def __init__(self, desktop, build, pictures):
        self.desktop = desktop
        self.build = build
        self.pictures = pictures
        self.count = 0
        self.demo = None
        self.client = None
        self.nick = NICK

    @property
    def program_folder(self):
        return os.path.join(self.build, "palimbra")

    def start_programs(self):
        try:
            self.demo = Demo(self.desktop, self.build, DEFAULT_PORT, "--still")
        except NotHappened:
            # Somebody else has the usual ports.
            self.demo = Demo(self.desktop, self.build, 0, "--still")
        self.client = Client(self.desktop, self.program_folder)

    def show(self, name, text):
        """Takes the next picture once the windows have stopped changing."""
        self.count += 1
        file = "%02d-%s.png" % (self.count, name)
        path = os.path.join(self.pictures, file)
        earlier = self._take(path)
        deadline = time.monotonic() + 3
        while time.monotonic() < deadline:
            now = self._take(path)
            if now == earlier:
                break
            earlier = now
        print("  %-26s %s" % (file, text), flush=True)

    def check(self, condition, text):
        if not condition:
            raise NotHappened(text)

    def enter(self):
        """Waits for the login, and accepts the agreement."""
        self.client.wait_for_login(SERVER_NAME)
        self.client.accept_agreement()
        self.client.wait_for_users(lambda users: self.nick in users, self.nick)

    def wait_for_height(self, window, height):
        wait_until(lambda: window.frame()[3] == height,
            lambda: "\"%s\" to be %d high, not %d" % (window.title(), height, window.frame()[3]))

    def _take(self, path):
        self.desktop.screenshot(path)
        with open(path, "rb") as file:
            return file.read()
