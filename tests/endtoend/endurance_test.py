#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Very long listings, and very many connections."""

from client import is_inside
from demo import SERVER_NAME
from desktop import wait_until
from support import ClientCase, main, setUpModule  # noqa: F401

CONNECTIONS = 500
CLICKS_AT_ONCE = 50


class EnduranceTest(ClientCase):
    def setUp(self):
        self.demo = self.start_demo("--still", "--no-agreement", "--no-welcome", "--no-banner")
        self.client = self.start_client()

    def test_a_listing_of_20000_files_opens_scrolls_and_closes(self):
        self.client.connect("localhost", self.demo.port)
        self.client.wait_for_login(SERVER_NAME)
        root = self.client.open_files()
        self.client.place(root, 600, 230)
        title = "Files — Very many (20000)"
        window = self.client.open_folder(root, "Very many", title)
        rows = self.client.list(title)
        self.assert_soon(rows.count_children, 20000)
        for index in (0, 9999, 19999):
            self.assertEqual(rows.child(index).name(), "file %04d.dat" % (index + 1))
        self.client.click(rows.child(0), window)
        for key, index in (("End", 19999), ("Home", 0), ("Next", None), ("End", 19999)):
            self.desktop.key(key)
            if index is not None:
                row = rows.child(index)
                wait_until(lambda: row.has("selected") and is_inside(row.extents(), rows.extents()),
                    lambda: "%r to be selected and seen, at %s" % (row, row.extents()))
        window.close()
        wait_until(lambda: not window.exists(), "the window to close")
        # The others have not waited for it.
        self.client.say("Still here")
        self.client.wait_for_chat("HaikuUser:  Still here\n")
        self.assert_quits()

    def test_500_connections_in_a_row_leave_nothing_behind(self):
        address = "localhost:%d" % self.demo.tracker_port
        self.client.use_tracker(address)
        tracker = self.client.open_tracker(address)
        self.client.place(tracker, 20, 300)
        row = self.client.row("Tracker — " + address, SERVER_NAME)
        # Once, so that what is made for good is made; then what the login reveals is moved out of the way.
        self.client.double_click(row, tracker)
        self.client.wait_for_login(SERVER_NAME)
        for window, left, top in ((self.client.chat_window(), 560, 40), (self.client.users_window(), 700, 80),
                (self.client.main_window(), 20, 40)):
            self.client.place(window, left, top)
        self.disconnect()
        threads, descriptors = self.client.program.threads(), self.client.program.descriptors()

        x, y, width, height = row.extents()
        # The window manager swallows clicks now and then, when it brings the window back to the front.
        while (count := self.count_connections()) < CONNECTIONS:
            self.desktop.click(x + width // 2, y + height // 2, count=2 * CLICKS_AT_ONCE, delay=10)
            wait_until(lambda: self.count_connections() > count, "more connections than %d" % count)
        self.client.wait_for_login(SERVER_NAME)
        self.assertGreater(self.count_lines("*** Logged in ***"), 1)
        self.disconnect()
        self.assert_soon(self.client.program.threads, threads)
        self.assert_soon(self.client.program.descriptors, descriptors)
        self.assert_quits()

    def count_connections(self):
        return self.count_lines("*** Connecting to 127.0.0.1:")

    def count_lines(self, beginning):
        return sum(line.startswith(beginning) for line in self.client.chat_lines())

    def disconnect(self):
        self.client.press("Disconnect")
        self.client.wait_for_status("Not connected")
        self.assert_soon(lambda: any(name.startswith("HL:") for name in self.client.program.threads()), False)


if __name__ == "__main__":
    main()
