#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Quitting ends the program with status 0 whatever its threads are doing at that moment, and whoever asks for it."""

import os
import signal
import socket

import hotline
import wire
from client import Client
from desktop import Desktop, wait_until
from support import PROGRAM_FOLDER, ServedCase, main, setUpModule  # noqa: F401

TCP_SYN_SENT = "02"


def is_connecting_to(port):
    """Whether somebody on this machine waits for an answer from that port of 127.0.0.1."""
    address = "0100007F:%04X" % port
    with open("/proc/net/tcp") as table:
        return any(line.split()[2:4] == [address, TCP_SYN_SENT] for line in table)


class QuitTest(ServedCase):
    def assert_quits(self):
        self.shortcut("ctrl+q")
        self.assert_ended_well(self.client)

    def test_while_connecting(self):
        with hotline.Server(backlog=0) as full:
            full.fill_up()
            self.client.connect("127.0.0.1", full.port)
            self.client.wait_for_status("Connecting to 127.0.0.1:%d…" % full.port)
            wait_until(lambda: is_connecting_to(full.port), "the client to be connecting")
            self.assert_quits()

    def test_while_a_server_accepts_and_says_nothing(self):
        connection = self.connect()
        connection.read_exactly(12)
        self.assert_quits()
        self.assertEqual(connection.stream.recv(1), b"")

    def test_while_the_login_goes_unanswered(self):
        connection = self.connect()
        connection.handshake()
        connection.read_until(wire.LOGIN)
        self.client.wait_for_status("Connected — logging in…")
        self.assert_quits()

    def test_while_a_flood_arrives(self):
        connection = self.log_in([wire.user_entry(number, b"nick %d" % number) for number in range(1, 51)])
        block = b"".join(wire.user_change(1 + number % 50, b"nick %d" % number) + wire.chat(b"line %d" % number)
            for number in range(20000))
        with hotline.Flood(connection, block) as flood:
            wait_until(lambda: flood.sent > len(block), "the flood to arrive")
            self.assert_quits()

    def test_while_the_agreement_is_open(self):
        connection = self.connect()
        connection.welcome()
        connection.send(wire.agreement(b"Be kind."))
        self.client.window("Server Agreement")
        self.assert_quits()
        # Quitting is no acceptance.
        self.assertNotIn(wire.AGREED.to_bytes(4, "big"), connection.read_to_end())

    def test_after_the_line_was_lost(self):
        self.log_in().stream.shutdown(socket.SHUT_RDWR)
        self.client.wait_for_status("Disconnected")
        self.assert_quits()

    def test_right_after_disconnecting(self):
        self.log_in()
        self.shortcut("ctrl+d", "ctrl+q")
        self.assert_ended_well(self.client)

    def test_by_a_signal_as_by_the_menu(self):
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number):
                connection = self.log_in()
                block = b"".join(wire.chat(b"line %d" % number) for number in range(20000))
                with hotline.Flood(connection, block) as flood:
                    wait_until(lambda: flood.sent > len(block), "the flood to arrive")
                    os.kill(self.client.program.pid, number)
                    self.assert_ended_well(self.client)
            self.client = self.start_client()

    def test_without_the_display(self):
        with Desktop(accessible=False) as desktop:
            client = Client(desktop, PROGRAM_FOLDER)
            client.main_window()
            desktop.stop_display()
            self.assertEqual(client.program.wait(), 1)
            self.assertIn("The X11 connection broke", client.program.output())


if __name__ == "__main__":
    main()
