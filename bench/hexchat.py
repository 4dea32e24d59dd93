# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""HexChat in a fresh home: told by its own files which server to join, and to do nothing that Palimbra does not do."""

import os

from desktop import wait_until
from irc_feeder import CHANNEL

# No log, no replay of earlier sessions, no spelling checker, no identity server, no tray icon, no question at the start.
SETTINGS = {
    "gui_input_spell": 0,
    "gui_slist_skip": 1,
    "gui_tray": 0,
    "gui_win_save": 0,
    "gui_win_state": 0,
    "identd_server": 0,
    "irc_logging": 0,
    "irc_nick1": "bench",
    "irc_nick2": "bench2",
    "irc_nick3": "bench3",
    "irc_user_name": "bench",
    "irc_real_name": "bench",
    "irc_who_join": 0,
    "text_replay": 0,
}

# Joins without being asked to (8), as the global user (2).
NETWORK = "v=2.16.1\n\nN=Bench\nE=UTF-8 (Unicode)\nF=10\nD=0\nS=127.0.0.1/%d\nJ=%s\n\n"


# The dictionary that it loads although spelling is not checked: without this, whichever is installed, of many megabytes.
DICTIONARY = {"en.aff": "SET UTF-8\n", "en.dic": "1\nword\n"}


class HexChat:
    """`port` of 0 starts it without a server. `kept_lines` of 0 keeps every line."""

    NAME = "HexChat"

    def __init__(self, desktop, port=0, size=(640, 400), kept_lines=500):
        self.desktop = desktop
        folder = desktop.folder + "/home/.config/hexchat"
        os.makedirs(folder, exist_ok=True)
        settings = dict(SETTINGS, gui_win_width=size[0], gui_win_height=size[1], text_max_lines=kept_lines)
        with open(folder + "/hexchat.conf", "w") as file:
            file.write("version = 2.16.1\n")
            file.writelines("%s = %s\n" % setting for setting in settings.items())
        dictionaries = desktop.folder + "/home/.config/enchant/hunspell"
        os.makedirs(dictionaries, exist_ok=True)
        for name, content in DICTIONARY.items():
            with open(os.path.join(dictionaries, name), "w") as file:
                file.write(content)
        if port != 0:
            with open(folder + "/servlist.conf", "w") as file:
                file.write(NETWORK % (port, CHANNEL))
        desktop.hand_over(desktop.folder + "/home")
        self.program = None

    def start(self, launcher=()):
        self.program = self.desktop.start_client([*launcher, "hexchat"])
        return self.program

    def window(self):
        """Waits for its one window."""
        return wait_until(self._find, lambda: "HexChat's window\n" + self.program.output())

    def _find(self):
        for window in self.desktop.windows():
            if window.pid == self.program.pid:
                return window
        return None
