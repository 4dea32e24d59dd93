#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What a screen reader finds in the windows that open on request."""

import os

from client import is_inside
from demo import SERVER_NAME
from desktop import wait_until
from support import PROGRAM_FOLDER, DemoCase, main, names, setUpModule  # noqa: F401


def style_at(text, offset):
    attributes, _, _ = text.attributes_at(offset)
    return attributes.get("fg-color"), attributes.get("weight")


class AccessibleSecondaryTest(DemoCase):
    def setUp(self):
        self.demo = self.start_demo("--still", "--answer-delay", "10", "--no-agreement", "--no-welcome")
        self.client = self.start_client()

    def assert_rows(self, rows, window, expected):
        """The rows are those, each with its name and description, and those that can be seen say where they are."""
        self.assertEqual(rows.role(), "list")
        self.assert_soon(lambda: [(row.name(), row.description()) for row in rows.children()], expected)
        found = rows.children()
        self.assertEqual([row.role() for row in found], ["list item"] * len(expected))
        tops = [row.extents()[1] for row in found]
        self.assertEqual(tops, sorted(set(tops)))
        self.assertTrue(is_inside(rows.extents(), window.frame()))
        wait_until(lambda: is_inside(found[0].extents(), rows.extents()), "the first row to be inside of the list")

    def test_the_options_window(self):
        window = self.client.open_options()
        node = self.client.node("Options")
        self.assertEqual(node.role(), "frame")
        fields = [child for child in node.walk() if child.has("editable")]
        self.assertEqual([(field.role(), field.name(), field.text()) for field in fields],
            [("text", "Username:", "HaikuUser"), ("text", "Tracker:", "hltracker.com")])
        for field in fields:
            self.assertEqual([label.name() for label in field.related("labelled-by")], [field.name()])
        self.assert_soon(lambda: names(node, "label"),
            ["Settings", "Username:", "Tracker:", "User Icon", "Current icon: 137"])
        self.assert_soon(lambda: names(node, "push button"), ["Cancel", "Save"])
        self.assertIn("is-default", self.client.button("Save", "Options").states())

        rows = node.find(role="list").children()
        icons = sorted(int(name[:-4]) for name in os.listdir(os.path.join(PROGRAM_FOLDER, "assets")))
        self.assertEqual([row.name() for row in rows], [str(icon) for icon in icons])
        self.assertEqual([row.name() for row in rows if row.has("selected")], ["137"])
        self.client.choose(window, "139")
        wait_until(lambda: node.find(role="label", name="Current icon: 139"), "the label of the chosen icon")

    def test_the_tracker_window(self):
        address = "localhost:%d" % self.demo.tracker_port
        self.client.use_tracker(address)
        window = self.client.open_tracker(address)
        title = "Tracker — " + address
        node = self.client.node(title)
        self.assertEqual((node.role(), node.name()), ("frame", title))
        wait_until(lambda: names(node, "label") == ["8 servers"], lambda: "8 servers:\n" + node.tree())
        self.assert_soon(lambda: names(node, "push button"), ["Refresh"])
        rows = self.client.list(title)
        self.assertEqual(rows.child(6).name(), "n" * 255)
        self.assertRegex(rows.child(6).description(), r"^65535 users, d{9,}…, 127\.0\.0\.1:19$")
        at_home = "127.0.0.1:%d" % self.demo.port
        self.assert_rows(rows, window, [
            (SERVER_NAME, "11 users, A small community that answers when it is talked to, " + at_home),
            ("Harbour Office", "3 users, Tides, timetables and tall stories, 127.0.0.1:7"),
            ("The Closed Door", "0 users, Nobody answers here, 127.0.0.1:9"),
            ("Чайная «Сова»", "12 users, Открыто всю ночь, 127.0.0.1:11"),
            ("月の茶屋", "7 users, 静かに話しましょう, 127.0.0.1:13"),
            ("<b>Bold</b> & Co", "1 user, 100%s &ampersands [*], 127.0.0.1:17"),
            ("n" * 255, rows.child(6).description()),
            ("", "11 users, The same server, without a name, " + at_home),
        ])

    def test_the_about_window(self):
        self.client.bring_to_front(self.client.main_window())
        menu = self.client.node("Palimbra").find(role="menu item", name="Server")
        menu.click()
        item = wait_until(lambda: menu.find(role="menu item", name="About Palimbra", having=("showing",)),
            "the open menu")
        item.click()
        window = self.client.wait_for_focus_on(self.client.window("About Palimbra"))
        node = self.client.node("About Palimbra")
        self.assertEqual((node.role(), node.name()), ("dialog", "About Palimbra"))
        panel = node.find(role="label").name().split("\n")
        self.assertEqual(panel[0], "Palimbra - Hotline Client")
        self.assertEqual(len(panel), 5)
        # The credits are heard as they roll in.
        roll = wait_until(lambda: [label for label in names(node, "label")[1:] if "The client" in label], "the credits")
        wait_until(lambda: names(node, "label")[1:] != roll, "the credits to roll")
        self.assert_soon(lambda: names(node, "push button"), ["OK"])
        self.assertTrue(is_inside(self.client.button("OK", "About").extents(), window.frame()))
        self.assert_soon(lambda: {"is-default", "focused"} - self.client.button("OK", "About").states(), set())

    def test_a_private_conversation(self):
        self.enter()
        self.client.double_click(self.client.row("Users Online", "Juniper"), self.client.users_window())
        window = self.client.wait_for_focus_on(self.client.window("Message — Juniper"))
        node = self.client.node("Message — Juniper")
        self.assertEqual((node.role(), node.name()), ("frame", "Message — Juniper"))
        entry = node.find(role="text", having=("editable",))
        wait_until(lambda: entry.has("focused"), "the entry to have the focus")
        self.desktop.type("Hello")
        wait_until(lambda: entry.text() == "Hello", "the typed text")
        self.desktop.key("Return")
        self.client.wait_for_message("Juniper", "You: Hello\nJuniper: Just between us: ")
        transcript = self.client.conversation("Juniper")
        self.assertIn("read-only", transcript.states())
        self.assertNotIn("editable", transcript.states())
        for offset, color, weight in ((0, "0,0,180", "bold"), (5, "0,0,0", None), (11, "180,0,0", "bold")):
            with self.subTest(offset):
                self.assert_soon(lambda: style_at(transcript, offset), (color, weight))
        self.assertTrue(is_inside(transcript.extents(), window.frame()))

    def test_folders(self):
        self.enter()
        root = self.client.open_files()
        folder = "folder"
        size = self.client.row("Files (13)", "Read me.txt").description()
        self.assertRegex(size, r"^\d{3} B$")
        self.assert_rows(self.client.list("Files (13)"), root, [("Read me.txt", size), ("Sizes", folder),
            ("Names", folder), ("Many", folder), ("Very many", folder), ("Parts", folder), ("Pictures", folder),
            ("Archives", folder), ("Trouble", folder),
            ("A drawer", folder), ("Keeper's drawer", folder), ("Empty", folder), ("Uploads", folder)])
        self.assert_soon(lambda: names(self.client.node("Files (13)"), "label"), ["13 items"])
        title = "Files — Names (10)"
        names_window = self.client.open_folder(root, "Names", title)
        self.assert_rows(self.client.list(title), names_window, [("Grüße.txt", "33 B"), ("Чай с лимоном.txt", "50 B"),
            ("お茶の時間.txt", "41 B"), ("Φάρος.txt", "36 B"), ("100% wool & silk.txt", "42 B"),
            ("a name with   spaces.txt", "46 B"), ("<b>bold</b> %s.txt", "40 B"), ("R\ufffdsum\ufffd.txt", "30 B"),
            ("n" * 251 + ".txt", "24 B"), ("Odd ones", folder)])
        self.assert_soon(lambda: names(self.client.node(title), "push button"), ["Download", "Upload"])

    def test_the_file_chooser(self):
        self.enter()
        root = self.client.open_files()
        self.client.choose_file(root, "/nowhere/at all.txt")
        node = self.client.node("Open")
        self.assertEqual(node.role(), "dialog")
        field = node.find(role="text", name="File name:")
        self.assertEqual([label.name() for label in field.related("labelled-by")], ["File name:"])
        self.assertEqual(names(node, "push button")[-2:], ["Open", "Cancel"])
        self.assertIn("Parent Directory", names(node, "push button"))
        self.assertNotIn("", names(node, "push button"))


if __name__ == "__main__":
    main()
