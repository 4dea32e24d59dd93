# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The chapters of the tour about choices: the options, a server in the tracker window, About."""

from demo import DEFAULT_PORT, SERVER_NAME
from desktop import wait_until
from guide import Guide

NEW_NICK = "Lamplighter"
NEW_ICON = "144"


class Choosing(Guide):
    def change_options(self):
        window = self.client.open_options()
        self.client.fill_option("Username:", NEW_NICK)
        self.tracker = "localhost"
        if self.demo.port != DEFAULT_PORT:
            self.tracker += ":%d" % self.demo.tracker_port
        self.client.fill_option("Tracker:", self.tracker)
        self.client.choose(window, NEW_ICON)
        wait_until(lambda: self.client.node("Options").find(role="label", name="Current icon: " + NEW_ICON),
            "the label to name the chosen icon")
        self.show("options", "Options: another nick, the demo's tracker, another icon.")
        self.client.save_options()
        self.client.wait_for_users(lambda users: NEW_NICK in users and self.nick not in users, NEW_NICK)
        self.nick = NEW_NICK
        self.client.bring_to_front(self.client.users_window())
        self.show("other-nick", "Saved while connected: everybody sees the new nick and icon at once.")

    def find_a_server(self):
        title = "Tracker — " + self.tracker
        window = self.client.open_tracker(self.tracker)
        self.client.place(window, 240, 180)
        wait_until(lambda: self.client.node(title).find(role="label", name="8 servers"), "eight servers")
        row = self.client.row(title, SERVER_NAME)
        self.show("tracker", "The tracker lists servers with descriptions, addresses and numbers of users.")
        self.client.double_click(row, window)
        self.enter()
        window.close()
        self.desktop.wait_without_window(title)
        self.client.press("Users")
        self.client.wait_for_focus_on(self.client.users_window())
        self.show("reconnected", "A double click in the tracker's list has connected again.")

    def look_at_about(self):
        self.client.bring_to_front(self.client.main_window())
        menu = self.client.node("Palimbra").find(role="menu item", name="Server")
        menu.click()
        item = wait_until(lambda: menu.find(role="menu item", name="About Palimbra", having=("showing",)),
            "the open menu")
        self.show("menu", "The Server menu.")
        item.click()
        self.client.wait_for_focus_on(self.client.window("About Palimbra"))
        self.show("about", "About Palimbra; the credits roll.")
        self.desktop.key("Return")
        self.desktop.wait_without_window("About Palimbra", self.client.program)
