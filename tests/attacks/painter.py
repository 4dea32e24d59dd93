# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Pictures that are small to send and large to show, byte by byte."""

import struct
import zlib

from hotline import png_chunk


def png(width, height, depth=1, color=0, pixels=None, extra=b"", interlaced=False):
    """A PNG whose rows are all zero; `pixels` replaces what is compressed of them, `extra` are chunks before it."""
    channels = {0: 1, 2: 3, 6: 4}[color]
    header = struct.pack(">IIBBBBB", width, height, depth, color, 0, 0, interlaced)
    if pixels is None:
        compressor = zlib.compressobj(9)
        row = bytes(1 + -(-width * depth * channels // 8))
        block = row * max(1, min(height, 1000000 // len(row)))
        pixels = b"".join(compressor.compress(block[:len(row) * min(height - start, len(block) // len(row))])
            for start in range(0, height, len(block) // len(row))) + compressor.flush()
    return b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + extra + png_chunk(b"IDAT", pixels) + png_chunk(b"IEND", b"")


def png_with_texts(count, size):
    """A PNG with that many comments, each of which is of that many bytes when it is unpacked."""
    text = png_chunk(b"zTXt", b"Comment\0\0" + zlib.compress(b"a" * size, 9))
    return png(8, 8, extra=text * count)


def _segment(marker, content):
    return struct.pack(">HH", marker, len(content) + 2) + content


def _table(kind, symbols):
    """A table of codes of which all have the same length; kind 0x10 is for what is not the first of a block."""
    length = max(1, len(symbols).bit_length())
    counts = bytes(len(symbols) if index == length - 1 else 0 for index in range(16))
    return _segment(0xffc4, bytes([kind]) + counts + bytes(symbols))


def jpeg(width, height, most):
    """A gray progressive JPEG with as many scans as `most` bytes have room for, each of which touches every block."""
    blocks = -(-width // 8) * -(-height // 8)
    frame = _segment(0xffdb, b"\0" + b"\1" * 64) \
        + _segment(0xffc2, struct.pack(">BHHB", 8, height, width, 1) + b"\1\x11\0") \
        + _table(0x00, [0]) + _table(0x10, [0xe0])
    # The first scan: each block differs in nothing from the one before it, which takes a bit.
    first = _segment(0xffda, b"\1\1\0\0\0\0") + bytes(-(-blocks // 8))
    # In each of the others runs of 32,767 empty blocks, which take a code of a bit and fourteen more.
    run = 32767
    bits = "".join("0" + format(min(run, blocks - start) - 16384, "014b") if blocks - start >= 16384 else ""
        for start in range(0, blocks, run))
    bits += "1" * (-len(bits) % 8)
    codes = int(bits, 2).to_bytes(len(bits) // 8, "big").replace(b"\xff", b"\xff\0") if bits else b""
    scan = _segment(0xffda, b"\1\1\0\1\x3f\0") + codes
    whole = b"\xff\xd8" + frame + first
    return whole + scan * ((most - len(whole) - 2) // len(scan)) + b"\xff\xd9"


def gif(width, height, frames):
    """A GIF of that many frames, each as large as the picture, of which only the first dot is there."""
    picture = b"," + struct.pack("<HHHHB", 0, 0, width, height, 0) + b"\2\2\x4c\1\0"
    return b"GIF89a" + struct.pack("<HHBBB", width, height, 0x80, 0, 0) + b"\0\0\0\xff\xff\xff" + picture * frames + b";"


def bitmap(width, height):
    """A BMP of one bit per dot that says that it has those dots, and has none."""
    return b"BM" + struct.pack("<IHHIIiiHHIIiiII", 62, 0, 0, 62, 40, width, height, 1, 1, 0, 0, 0, 0, 2, 2) \
        + b"\0\0\0\0\xff\xff\xff\0"


def portable(width, height):
    """A gray map that says so in words, of which only a comment follows."""
    return b"P2\n%d %d\n255\n# " % (width, height) + b"nothing " * 50000
