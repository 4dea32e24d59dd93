#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Quitting ends the program with status 0 whatever its threads are doing at that moment."""

import socket

import hotline
from desktop import wait_until
from support import ClientCase, main, setUpModule  # noqa: F401

TCP_SYN_SENT = "02"


def is_connecting_to(port):
    """Whether somebody on this machine waits for an answer from that port of 127.0.0.1."""
    address = "0100007F:%04X" % port
    with open("/proc/net/tcp") as table:
        return any(line.split()[2:4] == [address, TCP_SYN_SENT] for line in table)


class QuitTest(ClientCase):
    def setUp(self):
        self.server = self.start_server()

    def quit(self, client):
        client.bring_to_front(client.main_window())
        self.desktop.key("ctrl+q")

    def test_while_connecting(self):
        with hotline.Server(backlog=0) as full:
            full.fill_up()
            client = self.start_client()
            client.connect("127.0.0.1", full.port)
            client.wait_for_status("Connecting to 127.0.0.1:%d…" % full.port)
            wait_until(lambda: is_connecting_to(full.port), "the client to be connecting")
            self.quit(client)
            self.assert_ended_well(client)

    def test_while_a_server_accepts_and_says_nothing(self):
        client = self.start_client()
        client.connect("127.0.0.1", self.server.port)
        connection = self.server.accept()
        connection.read_exactly(12)
        self.quit(client)
        self.assert_ended_well(client)
        self.assertEqual(connection.stream.recv(1), b"")

    def test_while_the_login_goes_unanswered(self):
        client = self.start_client()
        client.connect("127.0.0.1", self.server.port)
        connection = self.server.accept()
        connection.handshake()
        connection.read_until(hotline.LOGIN)
        client.wait_for_status("Connected — logging in…")
        self.quit(client)
        self.assert_ended_well(client)

    def test_while_a_flood_arrives(self):
        client = self.start_client()
        client.connect("127.0.0.1", self.server.port)
        connection = self.server.accept()
        connection.welcome(users=[hotline.user_entry(number, b"nick %d" % number) for number in range(1, 51)])
        client.wait_for_login("Scripted")
        block = b"".join(hotline.user_change(1 + number % 50, b"nick %d" % number) + hotline.chat(b"line %d" % number)
            for number in range(20000))
        with hotline.Flood(connection, block) as flood:
            wait_until(lambda: flood.sent > len(block), "the flood to arrive")
            self.quit(client)
            self.assert_ended_well(client)

    def test_while_the_agreement_is_open(self):
        client = self.start_client()
        client.connect("127.0.0.1", self.server.port)
        connection = self.server.accept()
        connection.welcome()
        connection.send(hotline.transaction(hotline.AGREEMENT, [(hotline.DATA, b"Be kind.")]))
        client.window("Server Agreement")
        self.quit(client)
        self.assert_ended_well(client)
        # Quitting is no acceptance.
        rest = b""
        while True:
            try:
                piece = connection.stream.recv(4096)
            except ConnectionResetError:
                break
            if not piece:
                break
            rest += piece
        self.assertNotIn(hotline.AGREED.to_bytes(4, "big"), rest)

    def test_after_the_line_was_lost(self):
        client = self.start_client()
        client.connect("127.0.0.1", self.server.port)
        connection = self.server.accept()
        connection.welcome()
        client.wait_for_login("Scripted")
        connection.stream.shutdown(socket.SHUT_RDWR)
        client.wait_for_status("Disconnected")
        self.quit(client)
        self.assert_ended_well(client)

    def test_right_after_disconnecting(self):
        client = self.start_client()
        client.connect("127.0.0.1", self.server.port)
        self.server.accept().welcome()
        client.wait_for_login("Scripted")
        client.bring_to_front(client.main_window())
        self.desktop.key("ctrl+d", "ctrl+q")
        self.assert_ended_well(client)


if __name__ == "__main__":
    main()
