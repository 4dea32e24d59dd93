#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The file chooser: the keys of any window, and that it leaves nothing behind."""

import os

from support import ServedCase, main, setUpModule  # noqa: F401


class ChooserTest(ServedCase):
    def setUp(self):
        super().setUp()
        self.log_in()

    def open_chooser(self):
        """Opens it from a folder of which the server never says what is in it."""
        self.client.press("Files")
        self.files = self.client.wait_for_focus_on(self.client.window("Files"))
        return self.open_chooser_again()

    def open_chooser_again(self):
        self.client.press_in(self.files, "Upload")
        return self.client.wait_for_focus_on(self.client.window("Open"))

    def stored(self):
        """The files in the user's home folder, without what may be thrown away."""
        home = self.desktop.environment["HOME"]
        return sorted(os.path.join(folder, name) for folder, _, names in os.walk(home) for name in names
            if not os.path.relpath(folder, home).startswith(".cache"))

    def test_the_shortcuts_are_those_of_any_window(self):
        self.open_chooser()
        self.desktop.key("ctrl+w")
        self.desktop.wait_without_window("Open")
        self.assertTrue(self.files.exists())
        self.open_chooser_again()
        self.desktop.key("ctrl+q")
        self.assert_ended_well(self.client)

    def test_it_stores_nothing(self):
        before = self.stored()
        self.open_chooser()
        self.escape("Open")
        self.assertEqual(self.client.quit(), 0)
        self.assertEqual(self.stored(), before)


if __name__ == "__main__":
    main()
