#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What a screen reader finds in every window."""

import wire
from client import is_inside
from desktop import wait_until
from support import ServedCase, main, names, setUpModule  # noqa: F401

TOOLBAR = ["Connect", "Disconnect", "Chat", "Users", "Files", "Tracker", "Options"]
MENUS = {
    "Server": ["Connect…", "Disconnect", "Options…", "About Palimbra", "Quit"],
    "Windows": ["Chat", "Users", "Files", "Tracker"],
}


class AccessibleTest(ServedCase):
    def assert_colored(self, text, offset, color):
        self.assert_soon(lambda: text.attributes_at(offset)[0].get("fg-color"), "%d,%d,%d" % color)

    def test_the_main_window(self):
        node = self.client.node("Palimbra")
        self.assert_soon(lambda: names(node, "push button"), TOOLBAR)
        self.assert_soon(lambda: names(node, "label"), ["Not connected"])
        for name, items in MENUS.items():
            menu = node.find(role="menu item", name=name)
            self.assertIsNotNone(menu, node.tree())
            self.assertEqual([item for item in names(menu, "menu item") if item != name], items)
        frame = self.client.main_window().frame()
        for child in node.walk():
            if child.role() in ("push button", "label"):
                wait_until(lambda: is_inside(child.extents(), frame),
                    lambda: "%r to be inside of %s, not at %s" % (child, frame, child.extents()))

    def test_the_connect_window(self):
        self.client.open_connect()
        node = self.client.node("Connect to Server")
        fields = [child for child in node.walk() if child.has("editable")]
        self.assertEqual([(child.role(), child.name()) for child in fields],
            [("text", "Address:"), ("text", "Port:"), ("text", "Login:"), ("password text", "Password:")])
        for field in fields:
            labels = field.related("labelled-by")
            self.assertEqual([label.name() for label in labels], [field.name()])
            self.assertEqual(labels[0].role(), "label")
        self.assert_soon(lambda: names(node, "push button"), ["Cancel", "Connect"])
        self.assert_soon(fields[1].text, "5500")
        self.client.click(fields[3], self.client.window("Connect to Server"))
        wait_until(lambda: fields[3].has("focused"), "the password field to have the focus")
        self.desktop.type("secret")
        wait_until(lambda: fields[3].count_characters() == 6, "six letters")
        self.assertNotIn("s", fields[3].text())

    def test_the_transcript_is_read_only_text_with_its_colors(self):
        connection = self.log_in()
        connection.send(wire.chat(b"Adam: hello") + wire.broadcast(b"Tea"))
        self.client.wait_for_chat("*** Broadcast: Tea ***\n")
        transcript = self.client.transcript()
        self.assertIn("read-only", transcript.states())
        self.assertNotIn("editable", transcript.states())
        self.assertIn("focusable", transcript.states())
        text = transcript.text()
        for line, color in (("*** Connecting to", (100, 100, 100)), ("*** Connected —", (0, 128, 0)),
                ("*** Server: Scripted", (0, 100, 0)), ("*** Logged in", (0, 128, 0)), ("Adam: hello", (0, 0, 0)),
                ("*** Broadcast: Tea", (200, 100, 0))):
            with self.subTest(line):
                self.assert_colored(transcript, text.index(line), color)
        entry = self.client.entry()
        self.assertIn("editable", entry.states())
        self.assertIn("enabled", entry.states())

    def test_a_caret_walks_through_the_transcript(self):
        self.log_in()
        transcript = self.client.transcript()
        self.client.click(transcript, self.client.chat_window())
        wait_until(lambda: transcript.has("focused"), "the transcript to have the focus")
        self.desktop.key("ctrl+Home")
        wait_until(lambda: transcript.caret() == 0, "the caret at the start")
        self.desktop.key("Right", "Right")
        wait_until(lambda: transcript.caret() == 2, "the caret two letters on")
        self.desktop.key("ctrl+End")
        wait_until(lambda: transcript.caret() == transcript.count_characters(), "the caret at the end")

    def test_the_user_list(self):
        nicks = ["Adam", "Bobby", "Чарли", "デイジー"]
        self.log_in([wire.user_entry(number + 1, nick.encode()) for number, nick in enumerate(nicks)])
        self.client.wait_for_users(lambda users: users == nicks, "all of them")
        node = self.client.node("Users Online")
        wait_until(lambda: node.name() == "Users Online (4)", "the counted title")
        wait_until(lambda: names(node, "label") == ["4 users online"], "the counted label")
        users = self.client.users_list()
        self.assertEqual(users.role(), "list")
        rows = users.children()
        self.assertEqual([row.role() for row in rows], ["list item"] * 4)
        window = self.client.users_window()
        for row in reversed(rows):
            wait_until(lambda: is_inside(row.extents(), users.extents()), lambda: "%r at %s" % (row, row.extents()))
            self.client.click(row, window)
            wait_until(lambda: row.has("selected"), "the click on \"%s\" to select it" % row.name())
        self.assert_soon(lambda: [row.has("selected") for row in rows], [True, False, False, False])
        self.assertEqual([row.extents()[3] for row in rows], [rows[0].extents()[3]] * 4)

    def test_rows_come_and_go(self):
        connection = self.log_in([wire.user_entry(1, b"Adam"), wire.user_entry(2, b"Bobby")])
        self.client.wait_for_users(lambda users: users == ["Adam", "Bobby"], "two")
        connection.send(wire.user_change(1, b"Countess"))
        self.client.wait_for_users(lambda users: users == ["Countess", "Bobby"], "the other name")
        connection.send(wire.user_change(3, b"Cy"))
        self.client.wait_for_users(lambda users: users == ["Countess", "Bobby", "Cy"], "one more")
        connection.send(wire.user_leave(1))
        self.client.wait_for_users(lambda users: users == ["Bobby", "Cy"], "one less")
        wait_until(lambda: names(self.client.node("Users Online"), "label") == ["2 users online"], "the new count")

    def test_the_agreement_window(self):
        connection = self.log_in()
        connection.send(wire.agreement(b"Be kind.\rStay."))
        self.client.window("Server Agreement")
        node = self.client.node("Server Agreement")
        self.assert_soon(lambda: names(node, "push button"), ["Decline", "Accept"])
        self.assert_soon(lambda: names(node, "label"), ["Please read and accept the server agreement to continue:"])
        text = node.find(role="text", having=("multi-line",))
        self.assertIn("read-only", text.states())
        self.assert_soon(text.text, "Be kind.\nStay.")

    def test_buttons_with_a_picture_alone_are_called_by_their_tool_tips(self):
        self.log_in()
        self.client.press("Files")
        self.client.window("Files")
        self.assert_soon(lambda: [(child.name(), child.description()) for child in self.client.node("Files").walk()
            if child.role() == "push button"], [("Download", "Download"), ("Upload", "Upload")])

    def test_windows_are_windows_and_have_exact_names(self):
        for title in ("Palimbra", "Chat", "Users Online"):
            self.assert_soon(self.client.window(title).title, title)
            node = self.client.node(title)
            self.assertEqual((node.role(), node.name()), ("frame", title))
        self.log_in([wire.user_entry(1, b"Adam")])
        for title in ("Palimbra — Scripted", "Chat", "Users Online (1)"):
            window = self.client.window(title)
            self.assert_soon(window.title, title)
            self.assert_soon(self.client.node(title).name, title)
            window.minimize()
            wait_until(window.is_minimized, "\"%s\" to be minimized" % title)
            self.assert_soon(self.client.node(title).name, title)
        self.client.main_window().activate()
        self.client.press("Disconnect")
        self.client.open_connect()
        self.assertEqual(self.client.node("Connect to Server").role(), "dialog")


if __name__ == "__main__":
    main()
