# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What a server says, written down as bytes."""

import struct

REPLY = 0x00010000
CHAT_SEND, LOGIN, AGREED, FILES, DOWNLOAD, UPLOAD = 105, 107, 121, 200, 202, 203
DOWNLOAD_BANNER, USER_LIST = 212, 300
MESSAGE, CHAT, AGREEMENT, POLITE_QUIT, BANNER = 104, 106, 109, 111, 122
USER_CHANGE, USER_LEAVE, BROADCAST = 301, 302, 355

ERROR, DATA, NICK, SOCKET, ICON, REFERENCE, TRANSFER_SIZE, COLOR = 100, 101, 102, 103, 104, 107, 108, 112
BANNER_TYPE, NO_AGREEMENT, VERSION, SERVER_NAME, FILE, USER = 152, 154, 160, 162, 200, 300


def short(value):
    return struct.pack(">H", value)


def long(value):
    return struct.pack(">I", value)


def transaction(kind, fields, number=0, error=0):
    """The bytes of a transaction; fields are pairs of an id and the bytes of the value."""
    body = b"".join(struct.pack(">HH", field, len(value)) + value for field, value in fields)
    return struct.pack(">IIIIIH", kind, number, error, len(body) + 2, len(body) + 2, len(fields)) + body


def agreement(text):
    return transaction(AGREEMENT, [(DATA, text)])


def broadcast(text):
    return transaction(BROADCAST, [(DATA, text)])


def chat(text):
    return transaction(CHAT, [(DATA, text)])


def message(number, nick, text):
    """A private message, or with number 0 one of the server's."""
    return transaction(MESSAGE, [(SOCKET, short(number)), (NICK, nick), (DATA, text)])


def polite_quit(text):
    return transaction(POLITE_QUIT, [(DATA, text)])


def user_change(number, nick, icon=128, color=0):
    return transaction(USER_CHANGE, [(SOCKET, short(number)), (ICON, short(icon)), (COLOR, short(color)), (NICK, nick)])


def user_leave(number):
    return transaction(USER_LEAVE, [(SOCKET, short(number))])


def user_entry(number, nick, icon=128, color=0):
    return struct.pack(">HHHH", number, icon, color, len(nick)) + nick


def file_entry(name, kind=b"TEXT", size=1000):
    """A file of a listing; kind `fldr` is a folder."""
    return struct.pack(">4s4sIII", kind, b"ttxt", size, 0, len(name)) + name


def file_object(name, data, size=None, information=b""):
    """A file as it travels; `size` is what its data is said to have, `information` what follows its description."""
    description = b"AMAC????????" + bytes(60) + short(len(name)) + name + short(0) + information
    return (b"FILP" + short(1) + bytes(16) + short(2)
        + b"INFO" + bytes(8) + long(len(description)) + description
        + b"DATA" + bytes(8) + long(len(data) if size is None else size) + data)


def tracker_listing(servers):
    """What a tracker answers: pairs of a name and a port of 127.0.0.1."""
    records = b"".join(bytes([127, 0, 0, 1]) + struct.pack(">HHHB", port, 1, 0, len(name)) + name + b"\0"
        for name, port in servers)
    return b"HTRK" + struct.pack(">HHHHH", 1, 1, len(records) + 4, len(servers), len(servers)) + records
