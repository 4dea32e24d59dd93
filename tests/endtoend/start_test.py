#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The first thing that a user sees, and the ways out of it."""

import os

from desktop import wait_until
from support import NOT_CONNECTED, ClientCase, main, setUpModule  # noqa: F401


class StartTest(ClientCase):
    def test_the_main_window_is_shown_and_the_two_others_wait_minimized(self):
        client = self.start_client()
        main_window = client.window("Palimbra")
        chat = client.window("Chat")
        users = client.window("Users Online")
        wait_until(chat.is_minimized, "the chat window to be minimized")
        wait_until(users.is_minimized, "the user list window to be minimized")
        wait_until(main_window.is_active, "the main window to have the focus")
        self.assertFalse(main_window.is_minimized())
        self.assert_soon(lambda: sorted(client.titles()), ["Chat", "Palimbra", "Users Online"])
        self.assert_soon(client.status, "Not connected")
        self.assert_soon(client.enabled_buttons, NOT_CONNECTED)
        self.assert_quits(client)

    def test_the_close_box_of_the_main_window_quits(self):
        client = self.start_client()
        client.main_window().close()
        self.assert_ended_well(client)

    def test_the_quit_item_of_the_menu_quits(self):
        client = self.start_client()
        menu = client.node("Palimbra").find(role="menu item", name="Server")
        menu.click()
        item = wait_until(lambda: menu.find(role="menu item", name="Quit", having=("showing",)), "the open menu")
        item.click()
        self.assert_ended_well(client)

    def test_the_shortcut_quits_from_any_window(self):
        client = self.start_client()
        chat = client.chat_window()
        chat.activate()
        client.wait_for_focus_on(chat)
        self.desktop.key("ctrl+q")
        self.assert_ended_well(client)


class ProgramFolderTest(ClientCase):
    def test_a_copy_of_the_program_folder_runs_anywhere(self):
        folder = self.copy_program()
        client = self.start_client(folder)
        self.assert_soon(client.status, "Not connected")
        self.assertTrue(os.path.isdir(os.path.join(folder, "Downloads")))
        self.assert_quits(client)

    def test_every_window_has_the_icon_that_lies_beside_the_program(self):
        client = self.start_client(self.copy_program())
        client.open_connect()
        wait_until(lambda: [window.has_icon() for window in self.desktop.windows()] == [True] * 4, "four icons")
        self.escape("Connect to Server")
        self.assert_quits(client)

    def test_without_an_icon_the_windows_have_none(self):
        client = self.start_client(self.copy_program("palimbra.png"))
        windows = (client.main_window(), client.chat_window(), client.users_window())
        self.assertEqual([window.has_icon() for window in windows], [False] * 3)
        self.assert_quits(client)

    def test_without_assets_the_buttons_show_their_labels_alone(self):
        pictures = []
        for left_out in ((), (), ("assets",)):
            client = self.start_client(self.copy_program(*left_out))
            client.wait_for_focus_on(client.main_window())
            self.assert_soon(client.enabled_buttons, NOT_CONNECTED)
            pictures.append(self.picture(client.button("Options")))
            self.assert_quits(client)
        self.assertEqual(pictures[0], pictures[1])
        self.assertNotEqual(pictures[0], pictures[2])


if __name__ == "__main__":
    main()
