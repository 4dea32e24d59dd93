#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Banners that are larger than any screen."""

import hotline
import wire
from desktop import wait_until
from support import ServedCase, main, setUpModule  # noqa: F401

MEGABYTE = 1024 * 1024


class BannersTest(ServedCase):
    def setUp(self):
        self.server, self.transfers = hotline.listen_on_two_ports()
        self.addCleanup(self.server.__exit__)
        self.addCleanup(self.transfers.close)
        self.client = self.start_client()
        self.connection = self.log_in()
        self.window = self.client.main_window()

    def send_banner(self, content):
        transfer = self.connection.begin_banner(self.transfers, len(content))
        transfer.send(content)
        transfer.close()

    def smallest(self):
        return self.window.size_limits()[0]

    def test_enormous_banners_take_neither_all_memory_nor_the_windows(self):
        plain = self.smallest()
        before = self.client.program.memory()
        for width, height in ((16000, 8), (1, 16000), (468, 60)):
            with self.subTest(width=width, height=height):
                limits = self.smallest()
                self.send_banner(hotline.picture(width, height))
                wait_until(lambda: self.smallest() != limits, "the window to take the banner in")
                self.connection.send(wire.chat(b"beside %d" % width))
                self.client.wait_for_chat("beside %d\n" % width)
                self.client.bring_to_front(self.window)
                self.desktop.key("ctrl+1")
                self.client.wait_for_focus_on(self.client.chat_window())
                self.assertLess(self.client.program.memory() - before, 160 * MEGABYTE)
        self.assertEqual(self.smallest(), (plain[0], plain[1] + 60))
        self.client.bring_to_front(self.window)
        self.desktop.key("ctrl+d")
        self.assert_soon(self.smallest, plain)
        self.assert_quits()

    def test_a_wide_banner_widens_the_window(self):
        width, height = self.smallest()
        self.send_banner(hotline.picture(16000, 8))
        self.assert_soon(lambda: self.smallest()[1], height + 8)
        self.assertGreaterEqual(self.smallest()[0], 16000)
        self.assert_soon(lambda: self.window.frame()[2:], self.smallest())


if __name__ == "__main__":
    main()
