#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Downloads and uploads: large ones, many at once, and the end of the program in the middle of one."""

import os
import signal

from demo import MEBIBYTE, pattern
from desktop import wait_until
from support import DemoCase, main, setUpModule  # noqa: F401

LARGE = "1 GiB"
LARGE_SIZE = 1024 * MEBIBYTE
PARTS = 10


class TransfersTest(DemoCase):
    def setUp(self):
        self.demo = self.start_demo("--still", "--answer-delay", "10", "--no-agreement", "--no-welcome", "--no-banner")
        # The downloads lie beside the program.
        self.folder = self.copy_program()
        self.client = self.start_client(self.folder)
        self.enter()
        for window, left, top in ((self.client.main_window(), 20, 40), (self.client.chat_window(), 20, 230),
                (self.client.users_window(), 800, 40)):
            self.client.place(window, left, top)
        self.root = self.client.open_files()
        self.client.place(self.root, 600, 230)

    def downloaded(self, name):
        return os.path.join(self.folder, "Downloads", name)

    def size_of_download(self, name):
        try:
            return os.path.getsize(self.downloaded(name))
        except FileNotFoundError:
            return 0

    def open_folder(self, name, title):
        window = self.client.open_folder(self.root, name, title)
        self.client.place(window, 620, 250)
        return window

    def start_download(self, window, name):
        self.client.choose(window, name)
        self.client.press_in(window, "Download")

    def start_upload(self, path):
        window = self.open_folder("Uploads", "Files — Uploads")
        self.client.choose_file(window, path)
        self.desktop.key("Return")
        self.desktop.wait_without_window("Open")

    def make_file(self, size, offset=0):
        """A file that begins that far into the pattern."""
        path = os.path.join(self.desktop.folder, "large.bin")
        self.addCleanup(os.remove, path)
        with open(path, "wb") as file:
            block = pattern(16 * MEBIBYTE)
            block = block[offset:] + block[:offset]
            for start in range(0, size, len(block)):
                file.write(block[:size - start])
        return path

    def stop_the_server(self):
        """Leaves the other side silent in the middle of whatever it does."""
        self.demo.program.process.send_signal(signal.SIGSTOP)
        self.addCleanup(self.wake_the_server)

    def wake_the_server(self):
        self.demo.program.process.send_signal(signal.SIGCONT)

    def chat_until(self, text):
        """Talks, and is answered, until the chat tells that; returns how much memory has grown by at most, in bytes."""
        before = self.client.program.memory()
        most = before
        said = 0
        while text not in self.client.transcript().last_text(2000):
            said += 1
            self.client.say("line %d" % said)
            self.client.wait_for_chat("HaikuUser:  line %d\n" % said)
            most = max(most, self.client.program.memory())
        self.assertGreater(said, 0)
        return most - before

    def assert_same(self, path, expected):
        """Compares a file with one, or with a pattern of that size."""
        block = pattern(min(expected, 16 * MEBIBYTE)) if isinstance(expected, int) else None
        size = expected if block is not None else os.path.getsize(expected)
        self.assertEqual(os.path.getsize(path), size)
        with open(path, "rb") as file, open(path if block is not None else expected, "rb") as other:
            for start in range(0, size, 16 * MEBIBYTE):
                wanted = block[:size - start] if block is not None else other.read(16 * MEBIBYTE)
                self.assertTrue(file.read(16 * MEBIBYTE) == wanted, "%s differs behind %d" % (path, start))

    # The one slow case: it takes about ten seconds.
    def test_a_gibibyte_comes_and_goes_while_the_chat_goes_on(self):
        sizes = self.open_folder("Sizes", "Files — Sizes (9)")
        self.start_download(sizes, LARGE)
        wait_until(lambda: self.size_of_download(LARGE) > 0, "the first bytes")
        self.assertLess(self.chat_until("*** Download complete: %s ***\n" % LARGE), 16 * MEBIBYTE)
        self.assert_same(self.downloaded(LARGE), LARGE_SIZE)
        os.remove(self.downloaded(LARGE))

        path = self.make_file(LARGE_SIZE, 12345)
        self.start_upload(path)
        self.assertLess(self.chat_until("*** Upload complete: large.bin ***\n"), 16 * MEBIBYTE)
        self.client.wait_for_chat("HaikuUser has left \"large.bin\" (%d bytes) in Uploads." % LARGE_SIZE)
        self.client.window("Files — Uploads").close()
        uploads = self.open_folder("Uploads", "Files — Uploads (1)")
        self.start_download(uploads, "large.bin")
        self.client.wait_for_chat("*** Download complete: large.bin ***\n")
        self.assert_same(self.downloaded("large.bin"), path)

    def test_ten_downloads_at_once(self):
        parts = self.open_folder("Parts", "Files — Parts (10)")
        descriptors, threads = self.client.program.descriptors(), self.client.program.threads()
        # All of them are asked for before the server answers the first one.
        self.stop_the_server()
        for number in range(1, PARTS + 1):
            self.start_download(parts, "part %d" % number)
        before = self.client.program.memory()
        self.wake_the_server()
        self.client.say("Meanwhile")
        self.client.wait_for_chat("HaikuUser:  Meanwhile\n")
        self.assertLess(self.client.program.memory() - before, 16 * MEBIBYTE)
        for number in range(1, PARTS + 1):
            self.client.wait_for_chat("*** Download complete: part %d ***\n" % number)
            self.assert_same(self.downloaded("part %d" % number), 16 * MEBIBYTE + number)
        self.assert_soon(self.client.program.threads, threads)
        self.assert_soon(self.client.program.descriptors, descriptors)

    def test_quitting_in_the_middle_of_a_download(self):
        sizes = self.open_folder("Sizes", "Files — Sizes (9)")
        self.start_download(sizes, LARGE)
        wait_until(lambda: self.size_of_download(LARGE) > MEBIBYTE, "the first mebibyte")
        self.stop_the_server()
        self.assertLess(self.size_of_download(LARGE), LARGE_SIZE)
        self.assertIn("HL:Download", self.client.program.threads())
        self.assert_quits()

    def test_quitting_in_the_middle_of_an_upload(self):
        path = os.path.join(self.desktop.folder, "sparse.bin")
        with open(path, "wb") as file:
            file.truncate(LARGE_SIZE)
        self.addCleanup(os.remove, path)
        self.start_upload(path)
        wait_until(lambda: "HL:Upload" in self.client.program.threads(), "the upload to start")
        self.stop_the_server()
        self.assertIn("HL:Upload", self.client.program.threads())
        self.assert_quits()

    def test_quitting_while_a_transfer_is_silent(self):
        trouble = self.open_folder("Trouble", "Files — Trouble (7)")
        self.start_download(trouble, "says nothing")
        self.client.wait_for_chat("*** Downloading says nothing")
        wait_until(lambda: "HL:Download" in self.client.program.threads(), "the download to wait")
        self.client.main_window().close()
        self.assert_ended_well(self.client)


if __name__ == "__main__":
    main()
