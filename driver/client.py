# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The client as its user meets it: its windows, what they show, and the handles for a hand."""

import os

import accessible
from demo import COUNT_ROOT
from desktop import wait_until


def is_inside(inner, outer):
    """Whether the one rectangle (left, top, width, height) lies within the other."""
    return (inner[0] >= outer[0] and inner[1] >= outer[1] and inner[0] + inner[2] <= outer[0] + outer[2]
        and inner[1] + inner[3] <= outer[1] + outer[3])


class Client:
    """A running client. Its windows are found by their titles; what they show is read from the accessible tree."""

    def __init__(self, desktop, program_folder, environment=None):
        self.desktop = desktop
        self.program = desktop.start([os.path.join(program_folder, "palimbra")], environment=environment)
        self._root = None

    # Windows

    def window(self, title, patience=None):
        """Waits for the window with exactly this title, as the window manager knows it."""
        return self.desktop.window(title, self.program, patience)

    def main_window(self):
        return self._window_beginning("Palimbra")

    def chat_window(self):
        return self._window_beginning("Chat")

    def users_window(self):
        return self._window_beginning("Users Online")

    def titles(self):
        return [window.listed_title for window in self.desktop.windows() if window.pid == self.program.pid]

    def root(self):
        """The accessible application, whose children are the windows."""
        if self._root is None:
            self._root = accessible.application(self.desktop, self.program)
        return self._root

    def node(self, beginning):
        """Waits for the accessible window whose title begins so."""
        def find():
            return next((child for child in self.root().children() if child.name().startswith(beginning)), None)

        return wait_until(find, lambda: "an accessible window \"%s...\"; there are %s" % (beginning, self.titles()))

    # What they show

    def status(self):
        return self.node("Palimbra").find(role="label").name()

    def wait_for_status(self, text):
        wait_until(lambda: self.status() == text, lambda: "status \"%s\", not \"%s\"" % (text, self.status()))

    def wait_for_login(self, server_name):
        """Waits until the user is in: the title tells where, and the buttons say so."""
        self.window("Palimbra — " + server_name)
        wait_until(lambda: "Disconnect" in self.enabled_buttons() and "Connect" not in self.enabled_buttons(),
            "the login at %s:\n%s" % (server_name, self.titles()))
        self.wait_for_status("Connected to " + server_name)

    def transcript(self):
        """The chat window's text view."""
        return self.node("Chat").find(role="text", having=("multi-line",))

    def entry(self):
        """The chat window's entry line."""
        return self.node("Chat").find(role="text", having=("editable",))

    def chat_lines(self):
        return self.transcript().text().split("\n")

    def wait_for_chat(self, text):
        """Waits until the transcript contains that text."""
        wait_until(lambda: text in self.transcript().text(),
            lambda: "\"%s\" in the chat:\n%s" % (text, self.transcript().last_text(2000)))

    def users_list(self):
        return self.node("Users Online").find(role="list")

    def users(self):
        """The nicks in the user list, from the top."""
        return [row.name() for row in self.users_list().children()]

    def wait_for_users(self, condition, what):
        wait_until(lambda: condition(self.users()), lambda: "%s among the users %s" % (what, self.users()))

    def button(self, name, beginning="Palimbra"):
        """Waits for the button of that name in the window whose title begins so."""
        return wait_until(lambda: self.node(beginning).find(role="push button", name=name),
            "a button \"%s\" in \"%s...\"" % (name, beginning))

    def list(self, beginning):
        """The list in the window whose title begins so."""
        return self.node(beginning).find(role="list")

    def row(self, beginning, name):
        """Waits for the row of that name in the list of the window whose title begins so."""
        def find():
            return next((row for row in self.list(beginning).children() if row.name() == name), None)

        return wait_until(find,
            lambda: "a row \"%s\" in \"%s...\": %s" % (name, beginning, self.list(beginning).tree()))

    def conversation(self, nick):
        """The transcript of the private conversation with that user."""
        return self.node("Message — " + nick).find(role="text", having=("multi-line",))

    def wait_for_message(self, nick, text):
        """Waits until the conversation with that user contains that text."""
        wait_until(lambda: text in self.conversation(nick).text(),
            lambda: "\"%s\" in the conversation:\n%s" % (text, self.conversation(nick).text()))

    def enabled_buttons(self):
        """The names of the toolbar's buttons that can be pressed."""
        return [node.name() for node in self.node("Palimbra").walk()
            if node.role() == "push button" and node.has("enabled")]

    # What a user does

    def press(self, name):
        """Presses a button of the toolbar, as soon as it can be pressed."""
        button = self.button(name)
        wait_until(lambda: button.has("enabled"), "button \"%s\" to be enabled" % name)
        self.click(button, self.main_window())

    def press_in(self, window, name):
        """Presses a button of another window."""
        self.click(self.button(name, window.title()), window)

    def click(self, node, window, count=1):
        """Clicks at the middle of something in that window, once it is in front and has its place."""
        self.bring_to_front(window)
        wait_until(lambda: is_inside(node.extents(), window.frame()),
            lambda: "%r at %s to be inside of %s" % (node, node.extents(), window.frame()))
        node.click(count=count)

    def double_click(self, node, window):
        self.click(node, window, 2)

    def choose(self, window, name):
        """Selects the row of that name in the list of that window."""
        row = self.row(window.title(), name)
        self.bring_to_front(window)
        self.scroll_to(row)
        self.click(row, window)
        wait_until(lambda: row.has("selected"), "the row \"%s\" to be selected" % name)
        return row

    def scroll_to(self, row):
        """Turns the mouse's wheel over a list until that row is seen."""
        rows = row.parent()

        def is_seen():
            if is_inside(row.extents(), rows.extents()):
                return True
            rows.click(button=5 if row.extents()[1] > rows.extents()[1] else 4)
            return False

        wait_until(is_seen, lambda: "%r to be scrolled into view" % row)

    def open_options(self):
        self.press("Options")
        return self.wait_for_focus_on(self.window("Options"))

    def fill_option(self, name, text):
        """Types into a field of the options window, in place of what stands there."""
        field = self.node("Options").find(role="text", name=name)
        self.click(field, self.window("Options"))
        wait_until(lambda: field.has("focused"), "\"%s\" to have the focus" % name)
        self.desktop.key("ctrl+a")
        self.desktop.type(text)
        wait_until(lambda: field.text() == text, lambda: "\"%s\", not \"%s\"" % (text, field.text()))

    def save_options(self):
        self.press_in(self.window("Options"), "Save")
        self.desktop.wait_without_window("Options", self.program)

    def use_tracker(self, address):
        self.open_options()
        self.fill_option("Tracker:", address)
        self.save_options()

    def open_tracker(self, address):
        """Opens a tracker window, in front of others that there may be."""
        before = {window.id for window in self.desktop.windows()}
        self.press("Tracker")
        title = "Tracker — " + address
        window = wait_until(lambda: next((window for window in self.desktop.windows()
            if window.listed_title == title and window.id not in before), None), "another window \"%s\"" % title)
        return self.wait_for_focus_on(window)

    def open_files(self, count=COUNT_ROOT):
        """Opens the root folder, which has that many entries."""
        self.press("Files")
        return self.wait_for_focus_on(self.window("Files (%d)" % count))

    def open_folder(self, window, name, title):
        """Opens a folder from the window that lists it; `title` is what its own window is called in the end."""
        self.double_click(self.row(window.title(), name), window)
        return self.wait_for_focus_on(self.window(title))

    def choose_file(self, window, path):
        """Presses Upload and types the path into the file chooser. Return uploads it into the folder of that window."""
        self.press_in(window, "Upload")
        chooser = self.wait_for_focus_on(self.window("Open"))
        # The list of files is still filling itself while the field is looked for.
        field = wait_until(
            lambda: self.node("Open").find(role="text", having=("editable", "focused"), but_in=("split pane",)),
            "the focus on the name of the file")
        self.desktop.type(path)
        wait_until(lambda: field.text() == path, lambda: "\"%s\", not \"%s\"" % (path, field.text()))
        return chooser

    def place(self, window, left, top):
        """Moves a window, so that its content begins there."""
        window.move(left, top)
        wait_until(lambda: window.frame()[:2] == (left, top),
            lambda: "the window to be at %d, %d, not at %s" % (left, top, window.frame()))

    def open_connect(self):
        """Presses Connect and waits for the dialog to have the focus."""
        self.press("Connect")
        return self.wait_for_focus_on(self.window("Connect to Server"))

    def fill_connect(self, address, port=None):
        """Types into the dialog as it opens: the address has the focus, the port comes next."""
        self.desktop.type(address)
        if port is not None:
            self.desktop.key("Tab", "ctrl+a")
            self.desktop.type(str(port))

    def connect(self, address, port=None):
        self.open_connect()
        self.fill_connect(address, port)
        self.desktop.key("Return")
        self.desktop.wait_without_window("Connect to Server", self.program)

    def open_agreement(self):
        """Waits for the agreement, which comes up in front of the windows that the login has revealed."""
        return self.wait_for_focus_on(self.window("Server Agreement"))

    def accept_agreement(self):
        window = self.open_agreement()
        self.click(self.node("Server Agreement").find(role="push button", name="Accept"), window)
        self.desktop.wait_without_window("Server Agreement", self.program)

    def say(self, text):
        """Types a line into the chat and presses Return."""
        window = self.bring_to_front(self.chat_window())
        entry = self.entry()
        if not entry.has("focused"):
            self.click(entry, window)
        wait_until(lambda: entry.has("focused"), "the chat's entry to have the focus")
        self.desktop.type(text)
        wait_until(lambda: entry.text() == text, lambda: "\"%s\" in the entry, not \"%s\"" % (text, entry.text()))
        self.desktop.key("Return")
        wait_until(lambda: entry.text() == "", "the entry to be cleared")

    def bring_to_front(self, window):
        if not window.is_active():
            window.activate()
        return self.wait_for_focus_on(window)

    def wait_for_focus_on(self, window):
        wait_until(window.is_active, "\"%s\" to become the active window" % window.listed_title)
        return window

    def quit(self):
        """Quits by the keyboard from the main window and returns the status with which the program ended."""
        self.bring_to_front(self.main_window())
        self.desktop.key("ctrl+q")
        return self.program.wait()

    def _window_beginning(self, beginning):
        def find():
            return next((window for window in self.desktop.windows()
                if window.pid == self.program.pid and window.listed_title.startswith(beginning)), None)

        return wait_until(find, lambda: "a window \"%s...\"; there are %s" % (beginning, self.titles()))
