# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Servers that only feed a client: one client each, on a free port of 127.0.0.1, in threads of the measuring process."""

import socket
import threading

BLOCK = 65536


class Feeder:
    """Greets the client in a thread of its own. What is sent after that is bytes made beforehand.

    `with` ends it. A subclass greets and answers in `_talk()`, and calls `_ready.set()` when the client is in.
    """

    def __init__(self):
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.port = self._listener.getsockname()[1]
        self.connection = None
        self._ready = threading.Event()
        self._sending = threading.Lock()
        self._thread = threading.Thread(target=self._serve, daemon=True)
        self._thread.start()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for end in (self._listener, self.connection):
            if end is not None:
                try:
                    end.shutdown(socket.SHUT_RDWR)
                except OSError:
                    pass
        self._thread.join()
        for end in (self._listener, self.connection):
            if end is not None:
                end.close()

    def wait_for_client(self, patience=30):
        """Waits until a client is in and has all that it asked for."""
        if not self._ready.wait(patience):
            raise AssertionError("nobody came to port %d" % self.port)

    def send(self, data):
        """Sends it all, whole: what others send stands before or behind it."""
        with self._sending:
            self.connection.sendall(data)

    def _serve(self):
        try:
            self.connection, _ = self._listener.accept()
            self.connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            self._talk(self.connection.makefile("rb"))
        except OSError:
            pass

    def _talk(self, incoming):
        raise NotImplementedError
