# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A hostile server that answers by itself, so that an attack need only say what is wrong with the answers."""

import collections
import contextlib
import select
import socket
import threading

import wire
from desktop import wait_until
from hotline import Connection


class Host:
    """Reads what one client asks and answers it, from a thread of its own, for as long as the `with` block lasts.

    `listing` has the entries that are listed, `size` is what a transfer is announced to have, `transfer` is called with
    each connection that comes for one, in a thread of its own; what it does not close is closed at the end. `answers` has
    functions by kinds of requests, which are called in place of the usual answer.
    """

    def __init__(self, connection, transfers, listing=(), size=1000, transfer=None, answers=None):
        self.connection = connection
        self.listing = listing
        self.size = size
        self.asked = collections.Counter()
        self.begun = self.ended = 0
        self._transfers = transfers
        self._transfer = transfer
        self._answers = {wire.FILES: Host._list, wire.DOWNLOAD: Host._grant, wire.DOWNLOAD_BANNER: Host._grant,
            wire.UPLOAD: Host._grant, **(answers or {})}
        self._open = []
        self._is_ending = False
        self._doorkeeper = None
        self._lock = threading.Lock()

    def __enter__(self):
        self._start(self._serve_requests)
        self._doorkeeper = self._start(self._serve_transfers)
        return self

    def __exit__(self, *_):
        self._is_ending = True
        self._doorkeeper.join()
        for stream in [self.connection.stream, *self._open]:
            with contextlib.suppress(OSError):
                stream.shutdown(socket.SHUT_RDWR)
            stream.close()

    def send(self, data):
        """Sends that, between answers and never within one."""
        with self._lock:
            self.connection.send(data)

    def reply(self, request, fields, error=0):
        self.send(wire.transaction(wire.REPLY, fields, request.number, error))

    def wait_for(self, kind, count=1):
        """Waits until that has been asked so often."""
        wait_until(lambda: self.asked[kind] >= count,
            lambda: "%d requests of kind %d; there were %d" % (count, kind, self.asked[kind]))

    def wait_for_transfers_to_begin(self):
        """Waits until the first transfer has come."""
        wait_until(lambda: self.begun, "a transfer")

    def wait_for_transfers(self, count=1):
        """Waits until so many transfers have come and are over."""
        wait_until(lambda: self.ended >= count,
            lambda: "%d transfers; %d came, %d are over" % (count, self.begun, self.ended))

    def wait_until_read(self):
        """Waits until the client has read all that was sent: it accepts an empty agreement by itself."""
        before = self.asked[wire.AGREED]
        self.send(wire.agreement(b""))
        self.wait_for(wire.AGREED, before + 1)

    def _start(self, function, *arguments):
        thread = threading.Thread(target=function, args=arguments, daemon=True)
        thread.start()
        return thread

    def _serve_requests(self):
        # Until the client goes, or the attack is over.
        with contextlib.suppress(OSError, EOFError):
            while True:
                request = self.connection.read()
                self.asked[request.kind] += 1
                answer = self._answers.get(request.kind)
                if answer is not None:
                    answer(self, request)

    def _list(self, request):
        self.reply(request, [(wire.FILE, entry) for entry in self.listing])

    def _grant(self, request):
        self.reply(request, [(wire.REFERENCE, wire.long(request.number)), (wire.TRANSFER_SIZE, wire.long(self.size))])

    def _serve_transfers(self):
        while not self._is_ending:
            if not select.select([self._transfers], [], [], 0.05)[0]:
                continue
            stream, _ = self._transfers.accept()
            self._open.append(stream)
            self.begun += 1
            self._start(self._serve_transfer, Connection(stream))

    def _serve_transfer(self, transfer):
        # The client may go at any moment.
        with contextlib.suppress(OSError, EOFError):
            transfer.read_exactly(16)
            if self._transfer is not None:
                self._transfer(transfer)
        self.ended += 1
