# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A program's windows, asked and told over a connection to the X server of one's own, without starting a tool each time."""

from Xlib import X, Xatom, display, error
from Xlib.protocol import event


class Screen:
    """One connection to an X server. Windows are known by their numbers; one that has gone has no answers."""

    def __init__(self, name):
        self.display = display.Display(name)
        self.root = self.display.screen().root
        # Windows come and go: what is said to one that has just gone is lost, as it should be.
        self.display.set_error_handler(lambda *_: None)

    def atom(self, name):
        return self.display.intern_atom(name)

    def fileno(self):
        return self.display.fileno()

    def listed(self):
        """The numbers of all windows that the window manager knows, minimised ones included."""
        return list(self._property(self.root, "_NET_CLIENT_LIST", Xatom.WINDOW) or ())

    def process_of(self, number):
        """The id of the process that a window belongs to, or None."""
        values = self._property(self._window(number), "_NET_WM_PID", Xatom.CARDINAL)
        return values[0] if values else None

    def windows_of(self, process):
        return [number for number in self.listed() if self.process_of(number) == process]

    def title(self, number):
        value = self._property(self._window(number), "_NET_WM_NAME", self.atom("UTF8_STRING"))
        return bytes(value).decode("utf-8", "replace") if value is not None else ""

    def titles(self, process):
        return {number: self.title(number) for number in self.windows_of(process)}

    def close(self, number):
        """Presses a window's close box."""
        self.tell(number, "WM_DELETE_WINDOW", X.CurrentTime)
        self.display.flush()

    def active(self):
        """The number of the window that has the focus, or 0."""
        values = self._property(self.root, "_NET_ACTIVE_WINDOW", Xatom.WINDOW)
        return values[0] if values else 0

    def has_focus(self, number):
        """Whether keys go there; the window manager may be ahead of that."""
        focus = self.display.get_input_focus().focus
        return getattr(focus, "id", focus) == number

    def activate(self, number):
        """Brings a window to the front, as a task bar does."""
        message = event.ClientMessage(window=self._window(number), client_type=self.atom("_NET_ACTIVE_WINDOW"),
            data=(32, [2, X.CurrentTime, 0, 0, 0]))
        self.root.send_event(message, event_mask=X.SubstructureNotifyMask | X.SubstructureRedirectMask)
        self.display.flush()

    def tell(self, number, protocol, *values):
        """Says something to a window by that protocol; it leaves with the next flush."""
        window = self._window(number)
        data = [self.atom(protocol), *values]
        message = event.ClientMessage(window=window, client_type=self.atom("WM_PROTOCOLS"),
            data=(32, data + [0] * (5 - len(data))))
        window.send_event(message, event_mask=X.NoEventMask)

    def picture(self, number):
        """A window's size and its pixels, four bytes each, top row first; None if it cannot be seen."""
        window = self._window(number)
        try:
            geometry = window.get_geometry()
            image = window.get_image(0, 0, geometry.width, geometry.height, X.ZPixmap, 0xffffffff)
        except error.XError:
            return None
        return geometry.width, geometry.height, image.data

    def _window(self, number):
        return self.display.create_resource_object("window", number)

    def _property(self, window, name, kind):
        try:
            found = window.get_full_property(self.atom(name), kind)
        except error.XError:
            return None
        return found.value if found is not None else None
