# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The desktop that clients are measured on: nobody reads its windows, and clients run as an ordinary user."""

import os
import pwd
import shutil

from desktop import Desktop

# Who runs the clients when root measures: some of them ask root whether that is meant.
ORDINARY = "nobody"


class Stage(Desktop):
    """A fresh home, display, window manager and session bus for one run of one client."""

    def __init__(self):
        super().__init__(accessible=False)
        self._prefix = []

    def __enter__(self):
        super().__enter__()
        if os.getuid() == 0:
            user = pwd.getpwnam(ORDINARY)
            self._prefix = ["setpriv", "--reuid=%d" % user.pw_uid, "--regid=%d" % user.pw_gid, "--clear-groups",
                "--pdeathsig=KILL", "--"]
            os.chmod(self.folder, 0o711)
            for name in ("home", "run"):
                self.hand_over(os.path.join(self.folder, name))
        return self

    def hand_over(self, path):
        """Gives a file or folder, with what is in it, to the user who runs the clients."""
        if not self._prefix:
            return
        shutil.chown(path, ORDINARY)
        for folder, folders, files in os.walk(path):
            for name in folders + files:
                shutil.chown(os.path.join(folder, name), ORDINARY)

    def bring(self, file):
        """Copies a program of ours to where the ordinary user can run it, and returns its new path."""
        return shutil.copy(file, self.folder + "/home")

    def start_client(self, command):
        """Starts a program as the ordinary user."""
        return self.start([*self._prefix, *command])
