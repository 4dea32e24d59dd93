# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A Hotline server for one client: no agreement, a user list, one file without end in sight, and whatever it is fed."""

import socket
import struct
import threading

import wire
from feeder import BLOCK, Feeder
from wire import long, short, transaction

NAME = "Bench"
ICONS = (128, 137, 142, 150, 163, 171, 180, 189)
FILE_NAME = "endless.bin"
FILE_SIZE = 0xfffff000


def chat_lines(lines):
    """The bytes of chat lines, given as pairs of nick and text."""
    return b"".join(wire.chat(b"%s:  %s" % (nick.encode(), text.encode())) for nick, text in lines)


def file_entry(name):
    return struct.pack(">4s4sIIHH", b"BINA", b"dosa", FILE_SIZE, 0, 0, len(name)) + name.encode()


class HotlineFeeder(Feeder):
    """`users` are the nicks in the user list, which the client asks for twice; it can be made to wait for them."""

    def __init__(self, users=(), holds_users=False):
        self._entries = [(wire.USER, wire.user_entry(index + 1, nick.encode(), ICONS[(index + 1) % len(ICONS)]))
            for index, nick in enumerate(users)]
        self._holds_users = holds_users
        self._asked_for_users = []
        self._transfers = None
        self._bytes_sent = 0
        super().__init__()

    def send_users(self):
        """Sends the user list as often as it has been asked for."""
        self.send(b"".join(transaction(wire.REPLY, self._entries, number) for number in self._asked_for_users))

    def serve_transfers(self):
        """Sends files from now on, as fast as they are taken, on the next port."""
        self._transfers = socket.create_server(("127.0.0.1", self.port + 1))
        threading.Thread(target=self._serve_transfers, daemon=True).start()

    @property
    def bytes_sent(self):
        """How much of files has been sent so far."""
        return self._bytes_sent

    def __exit__(self, *arguments):
        if self._transfers is not None:
            self._transfers.close()
        super().__exit__(*arguments)

    def _talk(self, incoming):
        if incoming.read(12)[:8] != b"TRTPHOTL":
            return
        self.send(b"TRTP\0\0\0\0")
        while True:
            header = incoming.read(20)
            if len(header) < 20:
                return
            kind, number, _, _, size = struct.unpack(">xxHIIII", header)
            incoming.read(size)
            self._answer(kind, number)

    def _answer(self, kind, number):
        if kind == wire.LOGIN:
            self._reply(number, [(wire.VERSION, short(190)), (wire.SERVER_NAME, NAME.encode())])
            self.send(transaction(wire.AGREEMENT, [(wire.NO_AGREEMENT, b"\x01")]))
        elif kind == wire.AGREED:
            self._reply(number, [])
        elif kind == wire.USER_LIST:
            self._asked_for_users.append(number)
            if len(self._asked_for_users) == 2:
                if not self._holds_users:
                    self.send_users()
                self._ready.set()
        elif kind == wire.FILES:
            self._reply(number, [(wire.FILE, file_entry(FILE_NAME))])
        elif kind == wire.DOWNLOAD:
            self._reply(number, [(wire.TRANSFER_SIZE, long(FILE_SIZE)), (wire.REFERENCE, long(1))])

    def _reply(self, number, fields):
        self.send(transaction(wire.REPLY, fields, number))

    def _serve_transfers(self):
        while True:
            try:
                connection, _ = self._transfers.accept()
            except OSError:
                return
            threading.Thread(target=self._send_file, args=(connection,), daemon=True).start()

    def _send_file(self, connection):
        name = FILE_NAME.encode()
        information = struct.pack(">4s4s4sII32x8x8xHH", b"AMAC", b"BINA", b"dosa", 0, 0x100, 0, len(name)) + name + b"\0\0"
        block = bytes(16 * BLOCK)
        left = FILE_SIZE
        with connection:
            try:
                connection.recv(16, socket.MSG_WAITALL)
                connection.sendall(struct.pack(">4sH16xH", b"FILP", 1, 2)
                    + struct.pack(">4s8xI", b"INFO", len(information)) + information
                    + struct.pack(">4s8xI", b"DATA", FILE_SIZE))
                while left > 0:
                    sent = connection.send(block[:left] if left < len(block) else block)
                    left -= sent
                    self._bytes_sent += sent
            except OSError:
                pass
