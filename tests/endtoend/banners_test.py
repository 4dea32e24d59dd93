#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Banners that are larger than any screen, and pictures that are built to be no good."""

import os
import struct
import tempfile
import threading
import zlib

import hotline
import wire
from desktop import SCREEN_HEIGHT, SCREEN_WIDTH, wait_until
from support import ServedCase, main, setUpModule  # noqa: F401

MEGABYTE = 1024 * 1024
MAX_BANNER = 512 * 1024


def segment(marker, content):
    return bytes((0xff, marker)) + struct.pack(">H", len(content) + 2) + content


def huffman_table(kind, symbol):
    """One code, a single 0, for the symbol."""
    return segment(0xc4, bytes((kind, 1)) + bytes(15) + bytes((symbol,)))


def endless_jpeg(width, height):
    """A gray progressive JPEG that goes over its pixels again and again, in a few bytes each time."""
    def scan(first, last, bits, size):
        return segment(0xda, bytes((1, 1, 0, first, last, bits))) + bytes(size)

    blocks = -(-width // 8) * -(-height // 8)
    frame = struct.pack(">BHHBBBB", 8, height, width, 1, 1, 0x11, 0)
    parts = [b"\xff\xd8", segment(0xdb, b"\0" + b"\1" * 64), segment(0xc2, frame),
        huffman_table(0x00, 0x00), huffman_table(0x10, 0xe0), scan(0, 0, 0, blocks // 8 + 1), scan(1, 63, 1, 2)]
    again = scan(1, 63, 0x10, 2 * (blocks // 16384 + 1))
    parts += [again] * ((MAX_BANNER - sum(map(len, parts)) - 2) // len(again))
    return b"".join(parts) + b"\xff\xd9"


def png_with_texts(width, height):
    """Texts that take a gigabyte when they are unpacked, in front of the pixels."""
    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    plain = hotline.picture(width, height)
    header = 8 + 25
    text = chunk(b"zTXt", b"text\0\0" + zlib.compress(bytes(7900000), 9))
    return plain[:header] + text * ((MAX_BANNER - len(plain)) // len(text)) + plain[header:]


def svg_with_image(path):
    return b"""<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="468" height="60">
<image width="468" height="60" xlink:href="%s" href="%s"/></svg>""" % (path.encode(), path.encode())


class BannersTest(ServedCase):
    def setUp(self):
        self.server, self.transfers = hotline.listen_on_two_ports()
        self.addCleanup(self.server.__exit__)
        self.addCleanup(self.transfers.close)
        self.client = self.start_client()
        self.connection = self.log_in()
        self.window = self.client.main_window()
        self.plain = self.smallest()

    def send_banner(self, content):
        transfer = self.connection.begin_banner(self.transfers, len(content))
        transfer.send(content)
        transfer.close()

    def smallest(self):
        return self.window.size_limits()[0]

    def assert_shown(self, height):
        self.assert_soon(self.smallest, (self.plain[0], self.plain[1] + height))

    def assert_refused(self, content):
        """A connection has one banner at a time: this one has been dealt with when the next one, which fails, is fetched."""
        shown = self.smallest()
        self.send_banner(content)
        self.connection.begin_banner(self.transfers, 1).close()
        self.connection.send(wire.chat(b"beside"))
        self.client.wait_for_chat("beside\n")
        self.assertEqual(self.smallest(), shown)

    def test_banners_that_the_screen_has_no_room_for(self):
        before = self.client.program.memory()
        self.send_banner(hotline.picture(468, 50))
        self.assert_shown(50)
        for width, height in ((16000, 8), (1, 16000), (300, 30000), (SCREEN_WIDTH + 1, 8), (8, SCREEN_HEIGHT - 100),
                (70000, 2), (1, 70000), (30000, 30000)):
            with self.subTest(width=width, height=height):
                self.assert_refused(hotline.picture(width, height))
                self.client.bring_to_front(self.window)
                self.desktop.key("ctrl+1")
                self.client.wait_for_focus_on(self.client.chat_window())
                self.assertLess(self.client.program.memory() - before, 100 * MEGABYTE)
        self.send_banner(hotline.picture(468, 60))
        self.assert_shown(60)
        top, height = self.window.frame()[1::2]
        self.assertGreaterEqual(top, 0)
        self.assertLessEqual(top + height, SCREEN_HEIGHT)
        self.client.bring_to_front(self.window)
        self.desktop.key("ctrl+d")
        self.assert_soon(self.smallest, self.plain)
        self.assert_quits()

    def test_a_banner_as_wide_as_the_screen_widens_the_window(self):
        self.send_banner(hotline.picture(SCREEN_WIDTH, 8))
        self.assert_soon(lambda: self.smallest()[1], self.plain[1] + 8)
        self.assertGreaterEqual(self.smallest()[0], SCREEN_WIDTH)
        self.assert_soon(lambda: self.window.frame()[2:], self.smallest())

    def test_a_picture_that_is_built_to_take_forever(self):
        self.assert_refused(endless_jpeg(2048, 2048))
        self.send_banner(hotline.picture(468, 60))
        self.assert_shown(60)
        self.assert_quits()

    def test_texts_in_a_picture_are_not_unpacked(self):
        before = self.client.program.memory()
        self.send_banner(png_with_texts(468, 40))
        self.assert_shown(40)
        self.assertLess(self.client.program.peak_memory() - before, 100 * MEGABYTE)
        self.assert_quits()

    def test_a_drawing_has_no_file_opened(self):
        folder = tempfile.mkdtemp()
        self.addCleanup(os.rmdir, folder)
        pipe = os.path.join(folder, "pipe")
        os.mkfifo(pipe)
        self.addCleanup(os.remove, pipe)
        opened = threading.Event()

        def wait_for_reader():
            with open(pipe, "wb"):
                opened.set()

        writer = threading.Thread(target=wait_for_reader, daemon=True)
        writer.start()
        for path in (pipe, "file://" + pipe):
            self.assert_refused(svg_with_image(path))
        self.send_banner(hotline.picture(468, 60))
        self.assert_shown(60)
        self.assertFalse(opened.is_set())
        with open(pipe, "rb"):
            writer.join()
        self.assert_quits()


if __name__ == "__main__":
    main()
