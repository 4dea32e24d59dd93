#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The windows under a window manager: minimizing, focus, dialogs, titles."""

import wire
from desktop import wait_until
from support import ServedCase, main, setUpModule  # noqa: F401


class WindowsTest(ServedCase):
    def assert_in_front(self, window):
        wait_until(lambda: not window.is_minimized(), "\"%s\" to be restored" % window.listed_title)
        self.client.wait_for_focus_on(window)

    def test_the_menu_reveals_the_two_windows_also_without_a_connection(self):
        for key, window in self.revealed():
            with self.subTest(key):
                self.shortcut(key)
                self.assert_in_front(window)

    def test_the_keyboard_opens_the_menus(self):
        main_window = self.client.main_window()
        for keys in (("F10", "Right"), ("Alt_L", "Right", "Down")):
            with self.subTest(keys):
                self.client.bring_to_front(main_window)
                self.desktop.key(*keys, "Return")
                self.assert_in_front(self.client.chat_window())
                self.client.chat_window().close()
                wait_until(self.client.chat_window().is_minimized, "the chat to be minimized")
        with self.subTest("Escape"):
            self.client.bring_to_front(main_window)
            self.desktop.key("F10", "Down", "Escape", "Escape", "space")
            self.client.wait_for_focus_on(self.client.window("Connect to Server"))

    def test_the_close_boxes_of_the_two_windows_minimize_them(self):
        self.log_in([wire.user_entry(1, b"Adam")])
        cases = (("Chat", "ctrl+1", self.client.chat_window()), ("Users", "ctrl+2", self.client.users_window()))
        for button, key, window in cases:
            with self.subTest(button):
                wait_until(lambda: not window.is_minimized(), "the login to reveal the window")
                for reveal in (lambda: self.client.press(button), lambda: self.desktop.key(key)):
                    window.close()
                    wait_until(window.is_minimized, "the close box to minimize the window")
                    self.client.bring_to_front(self.client.main_window())
                    reveal()
                    self.assert_in_front(window)

    def test_titles_and_text_change_while_minimized(self):
        connection = self.log_in([wire.user_entry(1, b"Adam")])
        chat, users = self.client.chat_window(), self.client.users_window()
        self.client.window("Users Online (1)")
        for window in (chat, users, self.client.main_window()):
            window.minimize()
            wait_until(window.is_minimized, "the window to be minimized")
        connection.send(wire.user_change(2, b"Bobby") + wire.chat(b"Adam: anybody here?"))
        self.client.window("Users Online (2)")
        self.client.wait_for_chat("Adam: anybody here?\n")
        self.assert_soon(self.client.users, ["Adam", "Bobby"])
        connection.send(wire.polite_quit(b"Bye"))
        self.client.window("Palimbra")
        self.client.window("Users Online (0)")
        for window in (chat, users):
            self.assertTrue(window.is_minimized())

    def test_the_login_reveals_both_windows(self):
        chat, users = self.client.chat_window(), self.client.users_window()
        self.log_in()
        for window in (chat, users):
            wait_until(lambda: not window.is_minimized(), "\"%s\" to be revealed" % window.listed_title)

    def test_windows_keep_to_their_smallest_size(self):
        self.log_in()
        for window in (self.client.main_window(), self.client.chat_window(), self.client.users_window()):
            with self.subTest(window.listed_title):
                smallest, _ = window.size_limits()
                self.assertGreater(min(smallest), 0)
                window.resize(1, 1)
                wait_until(lambda: window.frame()[2:] == smallest,
                    lambda: "size %s, not %s" % (smallest, window.frame()))

    def test_a_half_typed_line_waits_for_return(self):
        connection = self.log_in()
        chat = self.client.bring_to_front(self.client.chat_window())
        self.client.place(chat, 60, 200)
        entry, transcript = self.client.entry(), self.client.transcript()

        def wait_for_focus(has):
            wait_until(lambda: entry.has("focused") == has, "the entry to %s the focus" % ("have" if has else "lose"))

        def type_and_leave(text, leave, rest):
            self.client.click(entry, chat)
            wait_for_focus(True)
            self.desktop.type(text)
            self.assert_soon(entry.text, text)
            leave()
            wait_for_focus(False)
            self.client.click(entry, chat)
            wait_for_focus(True)
            self.desktop.key("End")
            self.desktop.type(rest)
            self.assert_soon(entry.text, text + rest)
            self.desktop.key("Return")
            self.assertEqual(connection.read_until(wire.CHAT_SEND).fields[wire.DATA], (text + rest).encode())
            self.assert_soon(entry.text, "")

        def by_way_of_another_window():
            self.client.bring_to_front(self.client.main_window())
            transcript.click()

        for text, leave, rest in (("click", lambda: self.client.click(transcript, chat), "ed"),
                ("tab", lambda: self.desktop.key("Tab"), ""), ("window", by_way_of_another_window, "s")):
            with self.subTest(text):
                type_and_leave(text, leave, rest)


class DialogTest(ServedCase):
    def focused(self, node):
        return next((child for child in node.walk() if {"focused", "focusable"} <= child.states()), None)

    def wait_for_focus(self, node, name):
        def what():
            return "the focus on \"%s\", not on %r" % (name, self.focused(node))

        wait_until(lambda: (self.focused(node) or node).name() == name, what)

    def count_dialogs(self):
        return self.client.titles().count("Connect to Server")

    def test_the_keyboard_walks_through_the_connect_window(self):
        self.client.open_connect()
        dialog = self.client.node("Connect to Server")
        for name in ("Address:", "Port:", "Login:", "Password:", "Cancel", "Connect", "Address:"):
            self.wait_for_focus(dialog, name)
            self.desktop.key("Tab")
        self.wait_for_focus(dialog, "Port:")
        self.desktop.key("shift+Tab", "shift+Tab")
        self.wait_for_focus(dialog, "Connect")

    def test_the_dialog_has_one_size_and_a_close_box_alone(self):
        dialog = self.client.open_connect()
        smallest, largest = dialog.size_limits()
        self.assertEqual(smallest, largest)
        self.assert_soon(lambda: dialog.frame()[2:], smallest)
        dialog.resize(700, 500)
        # Whatever the window manager makes of it has been done when the next request is answered.
        self.desktop.type("x")
        address = self.client.node("Connect to Server").find(name="Address:", having=("editable",))
        wait_until(lambda: address.text() == "x", "typing into the dialog")
        self.assertEqual(dialog.frame()[2:], smallest)
        self.assert_soon(dialog.offered_boxes, ["close"])
        self.assert_soon(self.client.main_window().offered_boxes, ["close", "minimize"])
        self.assert_soon(self.client.chat_window().offered_boxes, ["close", "minimize", "zoom"])

    def test_return_connects_from_any_field(self):
        for presses in range(4):
            with self.subTest(presses):
                self.client.open_connect()
                self.client.fill_connect("  127.0.0.1 ", self.server.port)
                dialog = self.client.node("Connect to Server")
                self.wait_for_focus(dialog, "Port:")
                self.desktop.key("shift+Tab", *["Tab"] * presses)
                self.wait_for_focus(dialog, ("Address:", "Port:", "Login:", "Password:")[presses])
                self.desktop.key("Return")
                self.desktop.wait_without_window("Connect to Server")
                self.client.wait_for_status("Connecting to 127.0.0.1:%d…" % self.server.port)
                connection = self.server.accept()
                self.assertEqual(connection.read_exactly(8), b"TRTPHOTL")
                connection.send(b"HTTP/1.1")
                self.client.wait_for_status("Connection failed")

    def test_login_and_password_arrive_as_typed(self):
        self.client.open_connect()
        self.client.fill_connect("127.0.0.1", self.server.port)
        self.desktop.key("Tab")
        self.desktop.type(" guest")
        self.desktop.key("Tab")
        self.desktop.type("s3cret ")
        self.desktop.key("Return")
        connection = self.server.accept()
        connection.handshake()
        login = connection.read()
        self.assertEqual(login.kind, wire.LOGIN)
        decoded = [bytes(255 - byte for byte in login.fields[field]) for field in (105, 106)]
        self.assertEqual(decoded, [b" guest", b"s3cret "])

    def test_an_address_of_blanks_leaves_the_dialog_open(self):
        dialog = self.client.open_connect()
        address = self.client.node("Connect to Server").find(name="Address:", having=("editable",))
        self.desktop.type("   ")
        self.desktop.key("Return")
        # What is typed next is handled after the Return, in the same window.
        self.desktop.type("x")
        wait_until(lambda: address.text() == "   x", "typing after the Return")
        self.assertTrue(dialog.exists())
        self.assert_soon(self.client.status, "Not connected")

    def test_escape_and_cancel_and_the_close_box_close_the_dialog(self):
        def cancel():
            button = self.client.node("Connect to Server").find(role="push button", name="Cancel")
            self.client.click(button, self.client.window("Connect to Server"))

        ways = {"Escape": lambda: self.desktop.key("Escape"), "Cancel": cancel,
            "close box": lambda: self.client.window("Connect to Server").close()}
        for name, close in ways.items():
            with self.subTest(name):
                self.client.open_connect()
                close()
                self.desktop.wait_without_window("Connect to Server")
        self.assert_soon(self.client.status, "Not connected")

    def test_a_new_dialog_starts_afresh(self):
        self.client.open_connect()
        self.client.fill_connect("somewhere", 7)
        self.escape("Connect to Server")
        self.client.open_connect()
        fields = [node for node in self.client.node("Connect to Server").walk() if node.has("editable")]
        self.assertEqual([(node.name(), node.text()) for node in fields],
            [("Address:", ""), ("Port:", "5500"), ("Login:", ""), ("Password:", "")])

    def test_the_dialog_blocks_the_other_windows(self):
        dialog = self.client.open_connect()
        main_window = self.client.main_window()
        wait_until(dialog.is_modal, "the dialog to be modal")
        self.client.button("Connect").click()
        self.client.button("Tracker").click()
        main_window.activate()
        wait_until(dialog.is_active, "the dialog to stay in front of the window that it blocks")
        self.desktop.key("ctrl+1", "ctrl+k")
        address = self.client.node("Connect to Server").find(name="Address:", having=("editable",))
        self.desktop.type("x")
        wait_until(lambda: "x" in address.text(), "typing into the dialog")
        self.assert_soon(self.count_dialogs, 1)
        self.assertTrue(self.client.chat_window().is_minimized())
        self.escape("Connect to Server")
        self.client.bring_to_front(main_window)
        self.desktop.key("ctrl+1")
        self.client.wait_for_focus_on(self.client.chat_window())

    def test_escape_declines_the_agreement(self):
        connection = self.connect()
        connection.welcome()
        connection.send(wire.agreement(b"Be kind.\rStay."))
        window = self.client.window("Server Agreement")
        self.client.wait_for_focus_on(window)
        text = self.client.node("Server Agreement").find(role="text", having=("multi-line",))
        self.assert_soon(text.text, "Be kind.\nStay.")
        self.escape("Server Agreement")
        self.client.wait_for_chat("*** Agreement declined — disconnecting ***\n")
        self.client.wait_for_status("Not connected")
        self.assertEqual(connection.stream.recv(1), b"")

    def test_the_agreement_comes_up_in_front_and_return_accepts_it(self):
        connection = self.connect()
        connection.handshake()
        connection.accept_login(connection.read_until(wire.LOGIN))
        # At once, as servers do: the windows that the login reveals are on their way to the front themselves.
        connection.send(wire.agreement(b"Be kind."))
        self.client.wait_for_login("Scripted")
        for window in (self.client.chat_window(), self.client.users_window()):
            wait_until(lambda: not window.is_minimized(), "\"%s\" to be revealed" % window.listed_title)
        self.client.open_agreement()
        self.desktop.key("Return")
        self.assertEqual(connection.read_until(wire.AGREED).fields[wire.NICK], b"HaikuUser")
        self.client.wait_for_chat("*** Agreement accepted ***\n")
        self.desktop.wait_without_window("Server Agreement")


if __name__ == "__main__":
    main()
