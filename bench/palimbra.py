# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Palimbra as its user drives it, by the keyboard alone: nobody reads its windows, which would cost it time."""

import os
import shutil

from desktop import wait_until


class Palimbra:
    NAME = "Palimbra"

    def __init__(self, desktop, folder):
        """Runs a copy of the program's folder, so that what it downloads goes with the desktop."""
        self.desktop = desktop
        self.folder = desktop.folder + "/home/palimbra"
        shutil.copytree(folder, self.folder)
        desktop.hand_over(self.folder)
        self.program = None

    def start(self, launcher=()):
        self.program = self.desktop.start_client([*launcher, os.path.join(self.folder, "palimbra")])
        return self.program

    def window(self, beginning):
        """Waits for the window whose title begins so."""
        return wait_until(lambda: self._find(beginning),
            lambda: "a window \"%s...\"\n%s" % (beginning, self.program.output()))

    def front(self, beginning):
        """Brings a window to the front, as a click in a task bar does, and waits for it to have the focus."""
        window = self.window(beginning)
        if not window.is_active():
            window.activate()
            wait_until(window.is_active, "\"%s\" to become active" % beginning)
        return window

    def connect(self, port):
        """Connects from the dialog and waits until the chat and the users are shown."""
        self.front("Palimbra")
        self.desktop.key("ctrl+k")
        dialog = self.window("Connect to Server")
        wait_until(dialog.is_active, "the connect dialog to become active")
        self.desktop.type("127.0.0.1")
        self.desktop.key("Tab", "ctrl+a")
        self.desktop.type(str(port))
        self.desktop.key("Return")
        self.desktop.wait_without_window("Connect to Server", self.program)
        for title in ("Chat", "Users Online"):
            window = self.window(title)
            wait_until(lambda: not window.is_minimized(), "\"%s\" to be shown" % title)

    def _find(self, beginning):
        for window in self.desktop.windows():
            if window.pid == self.program.pid and window.listed_title.startswith(beginning):
                return window
        return None
