#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A whole evening at the demo server."""

from demo import SERVER_NAME
from support import CONNECTED, NOT_CONNECTED, DemoCase, main, setUpModule  # noqa: F401

NICK = "HaikuUser"


class SessionTest(DemoCase):
    def setUp(self):
        self.demo = self.start_demo("--still", "--answer-delay", "10")
        self.client = self.start_client()

    def test_the_lines_of_a_login(self):
        self.enter(accepts=True)
        self.client.wait_for_chat("Welcome to the ")
        expected = [
            "*** Connecting to localhost:%d ***" % self.demo.port,
            "*** Connected — logging in ***",
            "*** Server: %s (v190) ***" % SERVER_NAME,
            "*** Logged in ***",
            "*** Agreement accepted ***",
            "Welcome to the %s, %s!" % (SERVER_NAME, NICK),
        ]
        self.assertEqual(self.client.chat_lines()[:len(expected)], expected)
        self.assert_soon(self.client.enabled_buttons, CONNECTED)
        self.client.wait_for_status("Connected to " + SERVER_NAME)
        self.client.window("Users Online (12)")

    def test_people_answer_join_change_and_leave(self):
        self.enter(accepts=True)
        before = self.client.users()
        self.client.say("Hello Juniper")
        self.client.wait_for_chat("%s:  Hello Juniper\nJuniper:  %s: Hello there!" % (NICK, NICK))
        self.client.say("/join Wanderer")
        self.client.wait_for_users(lambda users: users == before + ["Wanderer"], "Wanderer at the end")
        self.client.say("/rename Juniper")
        self.client.wait_for_users(lambda users: users[0] == "Juniper (watering)", "the other name in the same row")
        self.client.say("/leave Wanderer")
        self.client.wait_for_users(lambda users: users[1:] == before[1:], "the others as before")
        self.client.window("Users Online (12)")

    def test_what_the_server_says(self):
        self.enter(accepts=True)
        self.client.say("/broadcast Tea is ready")
        self.client.wait_for_chat("\n*** Broadcast: Tea is ready ***\n")
        self.client.say("/error No tea")
        self.client.wait_for_chat("*** Error: No tea ***\n")
        self.client.say("/unknown")
        self.client.wait_for_chat("only it is to be seen.\n")
        self.client.say("/empty")
        self.client.wait_for_chat("Five empty messages stood before this line.\n")
        self.client.wait_for_status("Connected to " + SERVER_NAME)

    def test_a_lost_line_and_another_connection(self):
        for command in ("/drop", "/half", "/reset"):
            with self.subTest(command):
                self.enter(accepts=True)
                self.client.say(command)
                self.client.wait_for_status("Disconnected")
                self.client.wait_for_chat("\n*** Connection lost ***\n")
                self.client.window("Users Online (0)")
                # Only a disconnect takes the server's name away.
                self.client.window("Palimbra — " + SERVER_NAME)
                self.assert_soon(self.client.enabled_buttons, NOT_CONNECTED)
                self.assert_soon(lambda: self.client.entry().has("enabled"), False)

    def test_a_polite_quit_disconnects(self):
        self.enter(accepts=True)
        self.client.say("/quit")
        self.client.wait_for_status("Not connected")
        self.client.wait_for_chat("\n*** Server requested disconnect ***\n")
        self.client.window("Palimbra")
        self.client.window("Users Online (0)")

    def test_disconnecting_by_button_and_by_keyboard(self):
        for way in ("button", "keyboard"):
            with self.subTest(way):
                self.enter(accepts=True)
                if way == "button":
                    self.client.press("Disconnect")
                else:
                    self.shortcut("ctrl+d")
                self.client.wait_for_status("Not connected")
                self.client.window("Palimbra")
                self.client.wait_for_chat("\n*** Disconnected ***\n")
                self.assert_soon(self.client.enabled_buttons, NOT_CONNECTED)

    def test_a_password_is_checked(self):
        for password, outcome in (("lamp", "*** Error: "), ("lantern", "*** Logged in ***\n")):
            with self.subTest(password):
                self.client.open_connect()
                self.client.fill_connect("localhost", self.demo.port)
                self.desktop.key("Tab")
                self.desktop.type("keeper")
                self.desktop.key("Tab")
                self.desktop.type(password)
                self.desktop.key("Return")
                self.client.wait_for_chat(outcome)

    def test_nobody_listens(self):
        self.demo.program.stop()
        self.client.connect("localhost", self.demo.port)
        self.client.wait_for_status("Connection failed")
        self.client.wait_for_chat("*** Connection failed: Could not connect to server ***\n")
        self.demo.start()
        self.enter(accepts=True)

    def test_quitting_in_the_middle_of_it(self):
        self.enter(accepts=True)
        self.client.say("/flood 100000")
        self.assert_quits()


if __name__ == "__main__":
    main()
