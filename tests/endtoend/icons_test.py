#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Folders with many icons, and with much that is none."""

import os

from desktop import wait_until
from support import NOT_CONNECTED, PROGRAM_FOLDER, ClientCase, main, setUpModule  # noqa: F401

COUNT_MANY = 2000
FIRST_OF_MANY = 1000


class IconsTest(ClientCase):
    def setUp(self):
        self.folder = self.copy_program("assets")
        self.assets = os.path.join(self.folder, "assets")
        os.mkdir(self.assets)
        with open(os.path.join(PROGRAM_FOLDER, "assets", "137.png"), "rb") as file:
            self.picture = file.read()

    def add(self, name, content):
        path = os.path.join(self.assets, name)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def icons_in_options(self, count):
        """Opens the options and returns the names of that many rows."""
        client = self.start_client(self.folder)
        client.open_options()
        rows = client.list("Options")
        self.assert_soon(rows.count_children, count)
        shown = [row.name() for row in rows.children()]
        self.escape("Options")
        self.assertEqual(client.quit(), 0)
        # The toolkit's decoder complains by itself.
        complaints = client.program.output().splitlines()
        self.assertEqual([line for line in complaints if not line.startswith("libpng error: ")], [])
        return shown

    def test_two_thousand_icons(self):
        numbers = range(FIRST_OF_MANY, FIRST_OF_MANY + COUNT_MANY)
        for number in numbers:
            self.add("%d.png" % number, self.picture)
        self.assertEqual(self.icons_in_options(COUNT_MANY), [str(number) for number in numbers])

    def test_whatever_is_no_icon_is_passed_over(self):
        self.add("7.png", self.picture)
        self.add("137.png", self.picture)
        self.add("1.png", self.picture[:len(self.picture) // 2])
        self.add("2.png", b"")
        self.add("3.png", b"no picture at all")
        self.add("4.png", self.picture[:8] + bytes(1000))
        os.mkdir(os.path.join(self.assets, "5.png"))
        os.mkfifo(os.path.join(self.assets, "6.png"))
        os.chmod(self.add("8.png", self.picture), 0)
        os.symlink("7.png", os.path.join(self.assets, "9.png"))
        os.symlink("nowhere", os.path.join(self.assets, "10.png"))
        os.symlink("11.png", os.path.join(self.assets, "11.png"))
        os.symlink("/dev/zero", os.path.join(self.assets, "12.png"))
        self.add("0.png", self.picture)
        self.add("65536.png", self.picture)
        self.add("13.PNG", self.picture)
        self.add("picture.png", self.picture)
        # Nobody keeps files from the super-user.
        expected = ["7", "8", "9", "137"] if os.geteuid() == 0 else ["7", "9", "137"]
        self.assertEqual(self.icons_in_options(len(expected)), expected)

    def test_a_fifo_in_place_of_a_toolbar_icon(self):
        for name in ("2000.png", "401.png", "210.png"):
            os.mkfifo(os.path.join(self.assets, name))
        client = self.start_client(self.folder)
        wait_until(lambda: client.enabled_buttons() == NOT_CONNECTED, "the buttons")
        self.assert_quits(client)


if __name__ == "__main__":
    main()
