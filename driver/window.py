# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A window as the window manager knows it."""


class Window:
    """One top-level window of a desktop. Everything is asked afresh, but for `listed_title`."""

    def __init__(self, desktop, number, pid, title):
        self.desktop = desktop
        self.id = number
        self.pid = pid
        self.listed_title = title

    @classmethod
    def from_list(cls, desktop, line):
        """From a line of `wmctrl -l -p`: id, workspace, process, host, title."""
        fields = line.split(None, 3)
        # The host is followed by one blank, and the title keeps the blanks of its own.
        title = fields[3].partition(" ")[2] if len(fields) > 3 else ""
        return cls(desktop, int(fields[0], 16), int(fields[2]), title)

    def title(self):
        return self.desktop.ask("xdotool", "getwindowname", str(self.id)).rstrip("\n")

    def exists(self):
        return any(window.id == self.id for window in self.desktop.windows())

    def is_minimized(self):
        return "Iconic" in self._property("WM_STATE")

    def is_active(self):
        return self.desktop.active_window_id() == self.id

    def is_modal(self):
        return "_NET_WM_STATE_MODAL" in self._property("_NET_WM_STATE")

    def offered_boxes(self):
        """The names of the boxes that the program wants on the title bar. Some window managers show them all."""
        values = self._property("_MOTIF_WM_HINTS").partition("=")[2].split(",")
        functions = int(values[1], 16)
        return [name for name, bit in (("close", 0x20), ("minimize", 0x08), ("zoom", 0x10)) if functions & bit]

    def has_icon(self):
        return "Icon (16 x 16):" in self._property("_NET_WM_ICON")

    def size_limits(self):
        """The smallest and the largest (width, height) that the program allows; None where it sets none."""
        limits = {}
        for line in self._property("WM_NORMAL_HINTS").splitlines():
            name, _, value = line.strip().partition(":")
            words = value.split()
            if name.endswith("minimum size") or name.endswith("maximum size"):
                limits[name.split()[-2]] = (int(words[0]), int(words[2]))
        return limits.get("minimum"), limits.get("maximum")

    def frame(self):
        """Left, top, width and height of the window without its decoration, in pixels of the screen."""
        values = {}
        for line in self.desktop.ask("xwininfo", "-id", str(self.id)).splitlines():
            name, _, value = line.strip().partition(":")
            values[name] = value.strip()
        return (int(values["Absolute upper-left X"]), int(values["Absolute upper-left Y"]), int(values["Width"]),
            int(values["Height"]))

    def activate(self):
        """Brings the window to the front, as a click in a task bar does."""
        self.desktop.ask("wmctrl", "-i", "-a", hex(self.id))

    def minimize(self):
        self.desktop.ask("xdotool", "windowminimize", str(self.id))

    def close(self):
        """Presses the close box."""
        self.desktop.ask("wmctrl", "-i", "-c", hex(self.id))

    def resize(self, width, height):
        self.desktop.ask("wmctrl", "-i", "-r", hex(self.id), "-e", "0,-1,-1,%d,%d" % (width, height))

    def move(self, left, top):
        """Asks for the window to be moved, so that its frame() begins there."""
        # Gravity 10: what is given is the place of the content, not of the decoration.
        self.desktop.ask("wmctrl", "-i", "-r", hex(self.id), "-e", "10,%d,%d,-1,-1" % (left, top))

    def screenshot(self, path):
        self.desktop.ask("import", "-silent", "-window", str(self.id), "png:" + path)

    def _property(self, name):
        return self.desktop.ask("xprop", "-id", str(self.id), name)
