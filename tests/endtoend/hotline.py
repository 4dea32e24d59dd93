# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A server that does what a test tells it to, byte by byte."""

import socket
import struct
import threading
import zlib

import wire
from desktop import PATIENCE


def png_chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def picture(width, height):
    """A white PNG: however many pixels, it has few bytes."""
    compressor = zlib.compressobj()
    row = b"\0" + b"\xff" * -(-width // 8)
    rows = b"".join(compressor.compress(row) for _ in range(height)) + compressor.flush()
    header = struct.pack(">IIBBBBB", width, height, 1, 0, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + png_chunk(b"IDAT", rows) + png_chunk(b"IEND", b"")


class Request:
    """A transaction that the client sent."""

    def __init__(self, kind, number, fields):
        self.kind = kind
        self.number = number
        self.fields = fields


class Connection:
    """One client's connection, read and written by the test itself."""

    def __init__(self, stream):
        self.stream = stream
        stream.settimeout(PATIENCE)

    def read_exactly(self, count):
        data = b""
        while len(data) < count:
            piece = self.stream.recv(count - len(data))
            if not piece:
                raise EOFError("the client closed the connection after %d of %d bytes" % (len(data), count))
            data += piece
        return data

    def read_to_end(self):
        """Everything until the client closes the connection, in order or not."""
        data = b""
        try:
            while piece := self.stream.recv(4096):
                data += piece
        except ConnectionResetError:
            pass
        return data

    def handshake(self):
        greeting = self.read_exactly(12)
        if greeting != b"TRTPHOTL\x00\x01\x00\x02":
            raise AssertionError("not a handshake: %r" % greeting)
        self.send(b"TRTP\x00\x00\x00\x00")

    def read(self):
        """Reads one transaction."""
        kind, number, _, size, _, count = struct.unpack(">IIIIIH", self.read_exactly(22))
        body = self.read_exactly(size - 2)
        fields = []
        offset = 0
        for _ in range(count):
            field, length = struct.unpack_from(">HH", body, offset)
            fields.append((field, body[offset + 4:offset + 4 + length]))
            offset += 4 + length
        return Request(kind, number, dict(fields))

    def read_until(self, kind):
        """Reads up to the next transaction of that kind; what comes before it goes unanswered."""
        while True:
            request = self.read()
            if request.kind == kind:
                return request

    def send(self, data):
        self.stream.sendall(data)

    def reply(self, request, fields, error=0):
        self.send(wire.transaction(wire.REPLY, fields, request.number, error))

    def accept_login(self, request, name=b"Scripted"):
        self.reply(request, [(wire.VERSION, wire.short(190)), (wire.SERVER_NAME, name)])

    def welcome(self, name=b"Scripted", users=()):
        """Shakes hands, accepts the login and answers both requests for the user list."""
        self.handshake()
        self.accept_login(self.read_until(wire.LOGIN), name)
        for _ in range(2):
            self.reply(self.read_until(wire.USER_LIST), [(wire.USER, user) for user in users])

    def begin_banner(self, transfers, size):
        """Offers a picture of that many bytes and returns the connection on which they are waited for."""
        self.send(wire.transaction(wire.BANNER, [(wire.BANNER_TYPE, b"PNGf")]))
        self.reply(self.read_until(wire.DOWNLOAD_BANNER), [(wire.REFERENCE, wire.long(5)),
            (wire.TRANSFER_SIZE, wire.long(size))])
        stream, _ = transfers.accept()
        transfer = Connection(stream)
        request = transfer.read_exactly(16)
        if request[:4] != b"HTXF":
            raise AssertionError("not a request for a transfer: %r" % request)
        return transfer

    def close(self):
        self.stream.close()


class Server:
    """Listens on a free port of 127.0.0.1. `with Server() as server: ... server.accept()`."""

    def __init__(self, backlog=8):
        self.listener = socket.socket()
        self.listener.settimeout(PATIENCE)
        self.listener.bind(("127.0.0.1", 0))
        self.listener.listen(backlog)
        self.port = self.listener.getsockname()[1]
        self._open = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.listener.close()
        self.close_connections()

    def close_connections(self):
        """Leaves all who have come; others may come."""
        for stream in self._open:
            stream.close()
        self._open.clear()

    def accept(self):
        stream, _ = self.listener.accept()
        self._open.append(stream)
        return Connection(stream)

    def accept_question(self):
        """Accepts what asks for a tracker's listing, and leaves it without an answer."""
        connection = self.accept()
        if connection.read_exactly(6) != b"HTRK\x00\x01":
            raise AssertionError("not a question to a tracker")
        return connection

    def take_in_little(self):
        """Leaves those who connect from now on with little room for what is not read."""
        self.listener.setsockopt(socket.IPPROTO_TCP, socket.TCP_MAXSEG, 536)
        self.listener.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)

    def fill_up(self):
        """Makes every further attempt to connect wait: the few places for those not yet accepted are taken."""
        for _ in range(4):
            stream = socket.socket()
            stream.setblocking(False)
            stream.connect_ex(("127.0.0.1", self.port))
            self._open.append(stream)


def listen_on_two_ports():
    """A server, and a listener on the port that follows its own, where transfers are asked for."""
    while True:
        server = Server()
        transfers = socket.socket()
        try:
            transfers.bind(("127.0.0.1", server.port + 1))
        except OSError:
            transfers.close()
            server.listener.close()
            continue
        transfers.listen()
        transfers.settimeout(PATIENCE)
        return server, transfers


class Flood:
    """Sends the same block over and over, from a thread of its own, for as long as the `with` block lasts."""

    def __init__(self, connection, block):
        self.sent = 0
        self._connection = connection
        self._block = block
        self._stopping = threading.Event()
        self._thread = threading.Thread(target=self._run, daemon=True)

    def is_running(self):
        """Whether the client still takes what is sent."""
        return self._thread.is_alive()

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._stopping.set()
        try:
            self._connection.stream.shutdown(socket.SHUT_RDWR)
        except OSError:
            # The client has gone before.
            pass
        self._thread.join()

    def _run(self):
        view = memoryview(self._block)
        offset = 0
        try:
            while not self._stopping.is_set():
                count = self._connection.stream.send(view[offset:offset + 65536])
                self.sent += count
                offset = (offset + count) % len(view)
        except OSError:
            # The client has gone, or the test has ended.
            pass
