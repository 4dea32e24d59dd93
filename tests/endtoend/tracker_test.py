#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Trackers that say nothing: no window waits for another one, and the program ends."""

import itertools

from desktop import wait_until
from support import ClientCase, SlowNames, main, setUpModule  # noqa: F401

FETCH_THREAD = "TrackerFetch"


class TrackerTest(ClientCase):
    def setUp(self):
        self.server = self.start_server()
        self.address = "127.0.0.1:%d" % self.server.port

    def fetch_threads(self, client):
        return client.program.threads().count(FETCH_THREAD)

    def open_silent(self, client):
        """A tracker window whose question has arrived, and the connection on which nobody answers it."""
        return client.open_tracker(self.address), self.server.accept_question()

    def assert_others_react(self, client):
        client.open_connect()
        self.escape("Connect to Server")
        client.bring_to_front(client.main_window())
        self.desktop.key("ctrl+1")
        client.wait_for_focus_on(client.chat_window())

    def close(self, window):
        window.close()
        wait_until(lambda: not window.exists(), "the window to disappear")

    def test_three_windows_on_a_silent_tracker_close_in_any_order(self):
        client = self.start_client()
        client.use_tracker(self.address)
        threads = client.program.threads()
        for order in itertools.permutations(range(3)):
            with self.subTest(order):
                opened = [self.open_silent(client) for _ in range(3)]
                for index in order:
                    self.close(opened[index][0])
                    self.assert_others_react(client)
                self.assert_soon(client.program.threads, threads)
                for _, connection in opened:
                    connection.close()
        self.assert_quits(client)

    def test_a_window_closes_while_the_name_is_resolved(self):
        names = SlowNames(self.desktop.folder)
        client = self.start_client(environment=names.environment)
        address = "slow.test:%d" % self.server.port
        client.use_tracker(address)
        window = client.open_tracker(address)
        names.wait_until_asked()
        self.close(window)
        self.assert_soon(lambda: self.fetch_threads(client), 0)
        # Only the resolver is left, which nobody waits for.
        self.assertEqual(client.program.threads().count("HL:Resolve"), 1)
        self.assert_others_react(client)
        self.assert_quits(client)


if __name__ == "__main__":
    main()
