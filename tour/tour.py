#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""A guided tour: the real program in real windows on a virtual display, used from outside as a person would use it.

Leaves numbered pictures in screenshots/ and says what each shows. Every step is checked by what the windows say, through
their titles and the accessible tree; the first that does not happen ends the tour with a status other than 0.
"""

import argparse
import os
import shutil
import sys
import time

PROJECT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True

from client import Client  # noqa: E402
from demo import DEFAULT_PORT, SERVER_NAME, Demo  # noqa: E402
from desktop import Desktop, NotHappened, wait_until  # noqa: E402

NICK = "HaikuUser"


class Tour:
    def __init__(self, desktop, build, pictures):
        self.desktop = desktop
        self.build = build
        self.pictures = pictures
        self.count = 0
        self.demo = None
        self.client = None

    def show(self, name, text):
        """Takes the next picture once the windows have stopped changing."""
        self.count += 1
        file = "%02d-%s.png" % (self.count, name)
        path = os.path.join(self.pictures, file)
        earlier = self._take(path)
        deadline = time.monotonic() + 3
        while time.monotonic() < deadline:
            now = self._take(path)
            if now == earlier:
                break
            earlier = now
        print("  %-26s %s" % (file, text), flush=True)

    def _take(self, path):
        self.desktop.screenshot(path)
        with open(path, "rb") as file:
            return file.read()

    def play(self):
        self.start()
        self.connect()
        self.agree()
        self.look_around()
        self.chat()
        self.hear_the_server()
        self.see_people_come_and_go()
        self.lose_the_line()
        self.reconnect()
        self.disconnect()
        self.quit()

    def start(self):
        try:
            self.demo = Demo(self.desktop, self.build, DEFAULT_PORT, "--still")
        except NotHappened:
            # Somebody else has the usual port.
            self.demo = Demo(self.desktop, self.build, 0, "--still")
        self.client = Client(self.desktop, os.path.join(self.build, "palimbra"))
        self.client.wait_for_focus_on(self.client.window("Palimbra"))
        self.client.wait_for_status("Not connected")
        for window in (self.client.chat_window(), self.client.users_window()):
            wait_until(window.is_minimized, "\"%s\" to start minimized" % window.listed_title)
        self.show("start", "Palimbra has started: a slim bar; chat and user list wait minimized.")

    def type_address(self):
        self.client.open_connect()
        self.client.fill_connect("localhost", None if self.demo.port == DEFAULT_PORT else self.demo.port)

    def press_return(self):
        self.desktop.key("Return")
        self.desktop.wait_without_window("Connect to Server", self.client.program)

    def connect(self):
        self.type_address()
        self.show("connect", "Connect was pressed and \"localhost\" typed. Return connects.")
        self.press_return()
        self.client.wait_for_login(SERVER_NAME)

    def agree(self):
        self.client.open_agreement()
        text = self.client.node("Server Agreement").find(role="text", having=("multi-line",)).text()
        if SERVER_NAME not in text:
            raise NotHappened("the agreement reads:\n" + text)
        self.show("agreement", "The server asks for its agreement to be read and accepted.")
        self.client.accept_agreement()
        self.client.wait_for_chat("*** Agreement accepted ***\n")
        self.client.wait_for_chat("Welcome to the %s, %s!" % (SERVER_NAME, NICK))

    def look_around(self):
        self.client.window("Palimbra — " + SERVER_NAME)
        self.client.wait_for_users(lambda users: len(users) > 5 and NICK in users, NICK)
        count = len(self.client.users())
        self.client.press("Chat")
        self.client.wait_for_focus_on(self.client.chat_window())
        self.show("logged-in", "Logged in: the server's name in the title, %d users with icons and colors." % count)

    def say_and_hear(self, text, speaker):
        self.client.say(text)
        self.client.wait_for_chat("%s:  %s\n" % (NICK, text))
        after = self.client.transcript().text().rindex(text)
        wait_until(lambda: "\n%s:  " % speaker in self.client.transcript().text()[after:],
            "an answer of %s to \"%s\"" % (speaker, text))

    def chat(self):
        self.say_and_hear("Hello, Juniper!", "Juniper")
        self.say_and_hear("The Keeper, is there any tea left?", "The Keeper")
        self.show("chat", "Juniper and The Keeper are talked to in the chat, and answer.")

    def hear_the_server(self):
        self.client.say("/broadcast The kettle is on, everybody!")
        self.client.wait_for_chat("*** Broadcast: The kettle is on, everybody! ***\n")
        self.client.say("/error")
        self.client.wait_for_chat("*** Error: The teapot is empty. ***\n")
        self.show("broadcast", "A broadcast in orange, a refusal of the server in red.")
        self.client.say("/odd")
        self.client.wait_for_chat("Odd:  <b>bold</b> <img src=\"x\"> &amp; &lt;i&gt; &nbsp;\n")
        self.client.wait_for_chat("Odd:  [*] &File &&Edit _underlined_ \\n \\0\n")
        self.show("odd-text", "Whatever somebody types is shown as it stands.")

    def see_people_come_and_go(self):
        before = len(self.client.users())
        self.client.say("/join Wanderer")
        self.client.wait_for_users(lambda users: "Wanderer" in users, "Wanderer")
        self.client.say("/rename Juniper")
        self.client.wait_for_users(lambda users: "Juniper (watering)" in users, "Juniper by her other name")
        self.client.say("/status 2")
        self.show("joined", "Wanderer has joined, Juniper has changed her name; %d were here before." % before)
        self.client.say("/leave Wanderer")
        self.client.wait_for_users(lambda users: "Wanderer" not in users, "nobody called Wanderer")
        self.show("left", "Wanderer has left again.")

    def lose_the_line(self):
        self.client.say("/drop")
        self.client.wait_for_chat("*** Connection lost ***\n")
        self.client.wait_for_status("Disconnected")
        self.client.window("Users Online (0)")
        self.show("connection-lost", "The server has dropped the line: a red line in the chat, an empty list.")

    def reconnect(self):
        self.type_address()
        self.press_return()
        self.client.wait_for_login(SERVER_NAME)
        self.client.accept_agreement()
        self.client.wait_for_users(lambda users: NICK in users, NICK)
        self.client.press("Users")
        self.client.wait_for_focus_on(self.client.users_window())
        self.show("reconnected", "Connected once more, with Connect and a Return.")

    def disconnect(self):
        self.client.press("Disconnect")
        self.client.wait_for_chat("*** Disconnected ***\n")
        self.client.window("Palimbra")
        self.client.wait_for_status("Not connected")
        self.client.window("Users Online (0)")
        self.show("disconnected", "Disconnect was pressed: the plain title again, nobody in the list.")

    def quit(self):
        status = self.client.quit()
        if status != 0:
            raise NotHappened("the program ended with status %d:\n%s" % (status, self.client.program.output()))
        print("  Ctrl+Q has ended the program.")


def empty_folder(path):
    """Makes sure that the folder is there and holds no pictures of an earlier tour."""
    os.makedirs(path, exist_ok=True)
    for name in os.listdir(path):
        if name.endswith(".png"):
            os.remove(os.path.join(path, name))


def main():
    parser = argparse.ArgumentParser(description="Plays a guided tour of Palimbra on a virtual display.")
    parser.add_argument("--build", default=os.path.join(PROJECT, "build"), help="the build folder")
    parser.add_argument("--screenshots", default=os.path.join(PROJECT, "screenshots"), help="where the pictures go")
    arguments = parser.parse_args()
    pictures = os.path.abspath(arguments.screenshots)
    empty_folder(pictures)

    with Desktop() as desktop:
        desktop.paint_background("#5b83a8", "#33597d")
        tour = Tour(desktop, os.path.abspath(arguments.build), pictures)
        try:
            tour.play()
        except NotHappened as problem:
            tour.show("failed", "This is how far it came.")
            print("The tour ended early: %s" % problem, file=sys.stderr)
            if tour.client is not None:
                print(tour.client.program.output(), file=sys.stderr)
            return 1
    print("%d pictures in %s" % (tour.count, pictures))
    return 0


if __name__ == "__main__":
    sys.exit(main())
