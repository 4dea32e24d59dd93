#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What the system may run out of: memory and descriptors. The program goes on, says what it cannot, and recovers."""

import subprocess

import hotline
import wire
from desktop import wait_until
from support import ServedCase, main, setUpModule  # noqa: F401

MEBIBYTE = 1 << 20

OUT_OF_MEMORY = "\n*** Disconnected: out of memory ***\n"
LOST = "\n*** Connection lost ***\n"


class ShortageTest(ServedCase):
    def limit(self, resource, value):
        """Sets a limit of the running program."""
        subprocess.check_call(["prlimit", "--pid", str(self.client.program.pid), "--%s=%s" % (resource, value)])

    def assert_ends_in(self, block, endings):
        """A server that says this over and over, to a program with little memory, is left, and the next one is met."""
        connection = self.log_in()
        self.limit("as", "%d:" % (400 * MEBIBYTE))
        with hotline.Flood(connection, block) as flood:
            wait_until(lambda: not flood.is_running(), "the client to leave")
        wait_until(lambda: self.client.transcript().last_text(60).endswith(endings),
            lambda: "one of %r, not %r" % (endings, self.client.transcript().last_text(60)))
        self.log_in(name=b"Good").send(wire.chat(b"still here"))
        wait_until(lambda: self.client.transcript().last_text(20).endswith("\nstill here\n"), "the chat to go on")
        self.assert_quits()

    def test_a_chat_that_outgrows_the_memory(self):
        self.assert_ends_in(wire.chat(b"\r" * 60000), (OUT_OF_MEMORY, LOST))

    def test_a_conversation_that_outgrows_the_memory(self):
        self.assert_ends_in(wire.message(7, b"Ann", b"\r" * 60000), (OUT_OF_MEMORY, LOST))

    def test_descriptors(self):
        self.log_in()
        used = self.client.program.descriptors()
        self.client.press("Disconnect")
        self.client.wait_for_status("Not connected")
        self.limit("nofile", "%d:" % used)
        # A window needs one when it comes up.
        self.open_and_close_a_dialog()
        self.client.open_options()
        self.escape("Options")
        self.client.connect("127.0.0.1", self.server.port)
        self.client.wait_for_chat("*** Connection failed: Could not create socket ***\n")
        self.limit("nofile", "1024:")
        self.log_in(name=b"Good")
        self.assert_soon(self.client.program.descriptors, used)
        self.assert_quits()


if __name__ == "__main__":
    main()
