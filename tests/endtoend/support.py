# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What the end-to-end tests share: one desktop per file, clients on it, and what must hold whenever a client has ended.

One file by hand: PYTHONPATH=driver PALIMBRA_BUILD=build /usr/bin/python3 tests/endtoend/start_test.py
"""

import os
import shutil
import sys
import tempfile
import unittest

import hotline
from client import Client
from demo import SERVER_NAME, Demo
from desktop import Desktop, NotHappened, wait_until

BUILD = os.path.abspath(os.environ["PALIMBRA_BUILD"])
PROGRAM_FOLDER = os.path.join(BUILD, "palimbra")

# The buttons of the main window that can be pressed.
NOT_CONNECTED = ["Connect", "Tracker", "Options"]
CONNECTED = ["Disconnect", "Chat", "Users", "Files", "Tracker", "Options"]

_desktop = None


def setUpModule():
    global _desktop
    _desktop = unittest.enterModuleContext(Desktop())


class SlowNames:
    """For clients that are started with its `environment`: "slow.test" is 127.0.0.1, as soon as the gate is opened."""

    def __init__(self, folder):
        self._folder = tempfile.mkdtemp(dir=folder)
        os.mkfifo(os.path.join(self._folder, "gate"))
        self.environment = {"LD_PRELOAD": os.path.join(BUILD, "tests/endtoend/libslow_resolver.so"),
            "PALIMBRA_RESOLVER": self._folder}

    def wait_until_asked(self):
        wait_until(lambda: os.path.exists(os.path.join(self._folder, "asked")), "the name to be asked for")

    def open_gate(self):
        """Answers whoever has asked."""
        with open(os.path.join(self._folder, "gate"), "w"):
            pass


class ClientCase(unittest.TestCase):
    """A case that starts clients. Whatever it leaves running is ended."""

    maxDiff = None

    @property
    def desktop(self):
        return _desktop

    def copy_program(self, *left_out):
        """A folder of its own for the program, far from the build, for it to write to."""
        parent = tempfile.mkdtemp(prefix="palimbra elsewhere é ")
        self.addCleanup(shutil.rmtree, parent)
        folder = os.path.join(parent, "a folder")
        shutil.copytree(PROGRAM_FOLDER, folder, ignore=shutil.ignore_patterns("Downloads", *left_out))
        return folder

    def start_client(self, folder=PROGRAM_FOLDER, environment=None):
        client = Client(self.desktop, folder, environment)
        self.addCleanup(lambda: sys.stderr.write(client.program.output()))
        self.addCleanup(client.program.stop)
        client.main_window()
        return client

    def start_demo(self, *options):
        demo = Demo(self.desktop, BUILD, 0, *options)
        self.addCleanup(demo.program.stop)
        return demo

    def start_server(self):
        """A server that does what the test tells it to."""
        server = hotline.Server()
        self.addCleanup(server.__exit__)
        return server

    def assert_soon(self, ask, expected):
        """Waits until `ask()` is what is expected; what the program shows may be a frame behind what it knows."""
        try:
            wait_until(lambda: ask() == expected, "")
        except NotHappened:
            self.assertEqual(ask(), expected)

    def assert_ended_well(self, client, patience=None):
        """Waits for the program's end: status 0, nothing to complain about, no process of it left."""
        self.assertEqual(client.program.wait(patience), 0, client.program.output())
        self.assertEqual(client.program.output(), "")
        self.assertEqual(processes_of_session(client.program.pid), [])

    def assert_quits(self, client=None):
        """Has the program quit by its main window."""
        client = client or self.client
        self.assertEqual(client.quit(), 0)
        self.assert_ended_well(client)

    def shortcut(self, *keys):
        """Presses keys in the main window."""
        self.client.bring_to_front(self.client.main_window())
        self.desktop.key(*keys)

    def escape(self, title):
        """Closes the window with the focus, which has that title."""
        self.desktop.key("Escape")
        self.desktop.wait_without_window(title)

    def open_and_close_a_dialog(self):
        self.shortcut("ctrl+k")
        self.client.wait_for_focus_on(self.client.window("Connect to Server"))
        self.escape("Connect to Server")

    def revealed(self):
        """The windows that a login reveals, each behind the shortcut that does so as well."""
        return ("ctrl+1", self.client.chat_window()), ("ctrl+2", self.client.users_window())

    def picture(self, node):
        """That part of the screen as a picture, to be compared with another."""
        path = os.path.join(self.desktop.folder, "part.ppm")
        x, y, width, height = node.extents()
        self.desktop.ask("import", "-silent", "-window", "root", "-crop", "%dx%d+%d+%d" % (width, height, x, y), path)
        with open(path, "rb") as file:
            return file.read()

    def save_screenshot(self):
        """Leaves a picture of the moment in the build folder and returns its path."""
        folder = os.path.join(BUILD, "endtoend")
        os.makedirs(folder, exist_ok=True)
        path = os.path.join(folder, self.id().replace("__main__.", "") + ".png")
        self.desktop.screenshot(path)
        return path


class DemoCase(ClientCase):
    """A case whose client meets the demo server, once that has been started."""

    def enter(self, accepts=False):
        """Connects until the client is among the users, by accepting an agreement if there is one."""
        self.client.connect("localhost", self.demo.port)
        self.client.wait_for_login(SERVER_NAME)
        if accepts:
            self.client.accept_agreement()
        self.client.wait_for_users(lambda users: "HaikuUser" in users, "HaikuUser")


class ServedCase(ClientCase):
    """A case whose client meets a server that does what the test tells it to."""

    def setUp(self):
        self.server = self.start_server()
        self.client = self.start_client()

    def connect(self):
        self.client.connect("127.0.0.1", self.server.port)
        return self.server.accept()

    def log_in(self, users=(), name=b"Scripted"):
        connection = self.connect()
        connection.welcome(name, users)
        self.client.wait_for_login(name.decode("utf-8", "replace"))
        return connection


class Result(unittest.TextTestResult):
    """Adds a picture of the screen to every failure."""

    def addFailure(self, test, err):
        self._explain(test)
        super().addFailure(test, err)

    def addError(self, test, err):
        self._explain(test)
        super().addError(test, err)

    def _explain(self, test):
        if isinstance(test, ClientCase):
            try:
                self.stream.writeln("see " + test.save_screenshot())
            except (AssertionError, OSError):
                self.stream.writeln("without a screenshot")


def processes_of_session(session):
    """The processes that belong to that session, which is the id of the program that began it."""
    processes = []
    for name in filter(str.isdigit, os.listdir("/proc")):
        try:
            with open("/proc/%s/stat" % name) as stat:
                if int(stat.read().rpartition(")")[2].split()[3]) == session:
                    processes.append(int(name))
        except (FileNotFoundError, ProcessLookupError):
            continue
    return processes


def names(node, role):
    """The names of what lies below a node in that role."""
    return [child.name() for child in node.walk() if child.role() == role]


def main():
    unittest.main(testRunner=unittest.TextTestRunner(verbosity=2, resultclass=Result))
