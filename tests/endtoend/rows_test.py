#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Rows that have no room for their text: it ends in an ellipsis, and is the tool tip."""

import wire
from client import is_inside
from desktop import SCREEN_HEIGHT, SCREEN_WIDTH, wait_until
from support import ServedCase, main, setUpModule  # noqa: F401

LONG = "<b>Bartholomew</b> & the forty thieves of the old harbor"
# Of the widest letters, as many as a nick has bytes at most.
LONGEST = "W" * 63


class RowsTest(ServedCase):
    def setUp(self):
        super().setUp()
        users = [b"Adam", LONG.encode(), LONGEST.encode(), b"Zoey"]
        self.connection = self.log_in([wire.user_entry(number + 1, nick) for number, nick in enumerate(users)])
        self.window = self.client.users_window()
        wait_until(lambda: not self.window.is_minimized(), "the login to reveal the users")
        self.client.bring_to_front(self.window)

    def tool_tips(self):
        """The tool tips on the screen; they are windows of their own."""
        return [node for node in self.client.root().children() if node.role() == "tool tip"
            and node.has("showing")]

    def shown(self):
        return [tip.name() for tip in self.tool_tips()]

    def rest_on(self, nick):
        x, y, width, height = self.client.row("Users Online", nick).extents()
        self.desktop.point(x + width // 2, y + height // 2)

    def test_a_long_nick_is_the_tool_tip_of_its_row(self):
        self.rest_on(LONG)
        self.assert_soon(self.shown, [LONG])
        self.rest_on("Adam")
        self.assert_soon(self.shown, [])

    def test_the_next_row_has_its_own(self):
        self.rest_on(LONG)
        self.assert_soon(self.shown, [LONG])
        self.rest_on(LONGEST)
        self.assert_soon(lambda: [name.replace("\n", "") for name in self.shown()], [LONGEST])
        screen = (0, 0, SCREEN_WIDTH, SCREEN_HEIGHT)
        tip = self.tool_tips()[0]
        self.assertTrue(is_inside(tip.extents(), screen), tip.extents())

    def test_a_user_who_leaves_takes_it_along(self):
        self.rest_on(LONG)
        self.assert_soon(self.shown, [LONG])
        self.connection.send(wire.user_leave(2))
        self.assert_soon(self.client.users, ["Adam", LONGEST, "Zoey"])
        self.assert_soon(self.shown, [])

    def test_a_window_that_gets_wide_takes_it_away(self):
        self.client.place(self.window, 40, 60)
        self.rest_on(LONG)
        self.assert_soon(self.shown, [LONG])
        self.window.resize(600, 300)
        self.assert_soon(self.shown, [])


if __name__ == "__main__":
    main()
