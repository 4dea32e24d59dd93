#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Servers that say strange things, say too much, or say nothing."""

import itertools

import hotline
import wire
from desktop import wait_until
from support import ServedCase, main, setUpModule  # noqa: F401

MEGABYTE = 1024 * 1024

# Text that something on its way to the screen could take for more than text.
MARKUP = b"<b>bold</b> &amp; &File %s %n [*] \\n {}"


class TroubleCase(ServedCase):
    def select_a_line(self, connection):
        """The transcript with a line that the server has sent, and where that is selected."""
        connection.send(wire.chat(b"the selected line"))
        self.client.wait_for_chat("the selected line\n")
        transcript = self.client.transcript()
        start = transcript.text().index("the selected line")
        transcript.select_text(start, start + 17)
        self.assert_soon(transcript.selection, (start, start + 17))
        return transcript, (start, start + 17)

    def assert_alive(self):
        """Typing arrives, and is painted, and dialogs open and close."""
        entry = self.client.entry()
        self.client.click(entry, self.client.chat_window())
        wait_until(lambda: entry.has("focused"), "the entry to take the focus")
        before = self.picture(entry)
        self.desktop.type("still alive")
        wait_until(lambda: entry.text() == "still alive", lambda: "the typed text, not \"%s\"" % entry.text())
        wait_until(lambda: self.picture(entry) != before, "the typed text to be painted")
        self.desktop.key("ctrl+a", "BackSpace")
        wait_until(lambda: entry.text() == "", "the text to be deleted")

        self.open_and_close_a_dialog()


class StrangeTextTest(TroubleCase):
    def test_markup_appears_as_it_stands(self):
        shown = MARKUP.decode()
        connection = self.log_in([wire.user_entry(1, MARKUP)], MARKUP)
        self.client.window("Palimbra — " + shown)
        self.client.wait_for_users(lambda users: users == [shown], "the nick")
        connection.send(wire.chat(MARKUP) + wire.broadcast(MARKUP))
        self.client.wait_for_chat("\n%s\n\n*** Broadcast: %s ***\n" % (shown, shown))
        self.assertIn("*** Server: %s (v190) ***" % shown, self.client.chat_lines())
        connection.send(wire.agreement(MARKUP))
        self.client.window("Server Agreement")
        agreement = self.client.node("Server Agreement").find(role="text", having=("multi-line",))
        self.assert_soon(agreement.text, shown)

    def test_a_refusal_appears_as_it_stands(self):
        connection = self.connect()
        connection.handshake()
        connection.reply(connection.read_until(wire.LOGIN), [(wire.ERROR, MARKUP)], 1)
        self.client.wait_for_chat("*** Error: %s ***\n" % MARKUP.decode())

    def test_bytes_that_are_not_text_and_control_characters(self):
        connection = self.log_in([wire.user_entry(1, b"caf\xe9\xff")])
        self.client.wait_for_users(lambda users: users == ["caf\ufffd\ufffd"], "the nick")
        connection.send(wire.chat(b"a\xff\xfeb\x01\x1b[31m\x7fc") + wire.chat("日本 🎉 ß".encode()))
        self.client.wait_for_chat("a\ufffd\ufffdb\x01\x1b[31m\x7fc\n日本 🎉 ß\n")

    def test_a_long_nick_is_cut(self):
        self.log_in([wire.user_entry(1, b"n" * 70)])
        self.client.wait_for_users(lambda users: users == ["n" * 63], "the nick, cut")

    def test_twenty_words_of_65535_letters(self):
        connection = self.log_in()
        transcript, selection = self.select_a_line(connection)
        for letter in range(20):
            connection.send(wire.chat(bytes([ord("a") + letter]) * 65535))
        self.assert_alive()
        connection.send(wire.chat(b"the end"))
        self.client.wait_for_chat("\nthe end\n")
        lines = self.client.chat_lines()
        self.assertEqual([line[:1] for line in lines if len(line) == 65535], [chr(ord("a") + i) for i in range(20)])
        self.assert_soon(transcript.selection, selection)


class FloodTest(TroubleCase):
    def test_a_flood_of_changes_keeps_memory_bounded_and_windows_alive(self):
        # The later a user stands in the list, the longer a change takes: the window cannot follow.
        count = 3000
        connection = self.log_in([wire.user_entry(number, b"nick") for number in range(1, count + 1)])
        self.client.window("Users Online (%d)" % count)
        block = b"".join(wire.user_change(count - number % 8, b"nick %d" % (number % 1000)) for number in range(40000))
        before = self.client.program.memory()
        with hotline.Flood(connection, block) as flood:
            wait_until(lambda: flood.sent > 5 * len(block), "the flood to arrive")
            self.assert_alive()
            sent = flood.sent
            wait_until(lambda: flood.sent > sent + 5 * len(block), "the flood to go on")
            self.assertLess(self.client.program.memory() - before, 24 * MEGABYTE)
        self.client.wait_for_status("Disconnected")

    def test_a_flood_of_chat_loses_nothing_and_leaves_the_selection_alone(self):
        connection = self.log_in()
        transcript, selection = self.select_a_line(connection)
        before = self.client.program.memory()
        count = 60000
        block = b"".join(wire.chat(b"line %d of the flood" % number) for number in range(count))
        connection.send(block[:len(block) // 2])
        self.assert_alive()
        connection.send(block[len(block) // 2:])
        self.client.wait_for_chat("line %d of the flood\n" % (count - 1))
        lines = [line for line in self.client.chat_lines() if line.endswith("of the flood")]
        self.assertEqual(lines, ["line %d of the flood" % number for number in range(count)])
        self.assert_soon(transcript.selection, selection)
        self.assertLess((self.client.program.memory() - before) / count, 2048)


class SilenceTest(TroubleCase):
    def test_a_silent_server_keeps_no_window_waiting(self):
        connection = self.connect()
        connection.read_exactly(12)
        for key, window in self.revealed():
            self.shortcut(key)
            self.client.wait_for_focus_on(window)
        self.client.open_connect()
        self.escape("Connect to Server")
        self.client.wait_for_status("Connecting to 127.0.0.1:%d…" % self.server.port)
        # The silence is still going on.
        connection.send(b"HTTP/1.1")
        self.client.wait_for_chat("*** Connection failed: Invalid server response ***\n")
        self.client.wait_for_status("Connection failed")

    def test_a_server_that_does_not_read_keeps_no_window_waiting(self):
        connection = self.log_in()
        # Each announcement is answered with a request of 22 bytes, until there is no room for more of them on the way.
        announcements = wire.transaction(wire.BANNER, [(wire.DATA, b"JPEG")]) * 4000
        for number in itertools.count():
            connection.send(announcements + wire.chat(b"block %d" % number))
            self.client.wait_for_chat("block %d\n" % number)
            if "HL:Send" in self.client.program.threads():
                break
        self.client.say("hello")
        self.client.press("Disconnect")
        self.client.wait_for_status("Not connected")
        self.assert_soon(lambda: "HL:Send" in self.client.program.threads(), False)

    def test_a_server_that_never_reads_is_lost(self):
        connection = self.log_in()
        announcements = wire.transaction(wire.BANNER, [(wire.DATA, b"JPEG")]) * 1000
        with hotline.Flood(connection, announcements):
            self.client.wait_for_chat("*** Connection lost ***\n")
        self.client.wait_for_status("Disconnected")
        self.shortcut("ctrl+k")
        self.client.wait_for_focus_on(self.client.window("Connect to Server"))

    def test_connecting_again_leaves_the_silent_server(self):
        silent = self.connect()
        silent.read_exactly(12)
        self.log_in(name=b"Second")
        self.assertEqual(silent.stream.recv(1), b"")
        self.client.window("Palimbra — Second")


if __name__ == "__main__":
    main()
