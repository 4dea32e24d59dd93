# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""The chapters of the tour about people: connecting, the chat, who is there, private messages."""

from demo import DEFAULT_PORT, SERVER_NAME
from desktop import wait_until
from guide import Guide

BANNER_HEIGHT = 60


class Talking(Guide):
    def start(self):
        self.start_programs()
        self.client.wait_for_focus_on(self.client.window("Palimbra"))
        self.client.wait_for_status("Not connected")
        for window in (self.client.chat_window(), self.client.users_window()):
            wait_until(window.is_minimized, "\"%s\" to start minimized" % window.listed_title)
        self.show("start", "Palimbra has started: a slim bar; chat and user list wait minimized.")

    def connect(self):
        self.client.open_connect()
        self.client.fill_connect("localhost", None if self.demo.port == DEFAULT_PORT else self.demo.port)
        self.show("connect", "Connect was pressed and \"localhost\" typed. Return connects.")
        self.slim_height = self.client.main_window().frame()[3]
        self.desktop.key("Return")
        self.desktop.wait_without_window("Connect to Server", self.client.program)
        self.client.wait_for_login(SERVER_NAME)

    def agree(self):
        self.client.open_agreement()
        text = self.client.node("Server Agreement").find(role="text", having=("multi-line",))
        wait_until(lambda: SERVER_NAME in text.text(), lambda: "the agreement, which reads:\n" + text.text())
        self.show("agreement", "The server asks for its agreement to be read and accepted.")
        self.client.accept_agreement()
        self.client.wait_for_chat("*** Agreement accepted ***\n")
        self.client.wait_for_chat("Welcome to the %s, %s!" % (SERVER_NAME, self.nick))

    def look_around(self):
        self.wait_for_height(self.client.main_window(), self.slim_height + BANNER_HEIGHT)
        # The banner has made the main window grow over what was below it.
        self.client.place(self.client.main_window(), 60, 40)
        self.client.place(self.client.chat_window(), 60, 230)
        self.client.place(self.client.users_window(), 622, 230)
        self.client.wait_for_users(lambda users: len(users) > 5 and self.nick in users, self.nick)
        count = len(self.client.users())
        self.client.press("Chat")
        self.client.wait_for_focus_on(self.client.chat_window())
        self.show("logged-in", "Logged in: the server's name and its banner; %d users with icons and colors." % count)

    def say_and_hear(self, text, speaker):
        self.client.say(text)
        self.client.wait_for_chat("%s:  %s\n" % (self.nick, text))
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
        self.client.say("/message")
        self.client.wait_for_chat("*** Server message ***\nYour tea is ready.\n")
        self.show("broadcast", "A broadcast in orange, a refusal in red, a message of the server in purple.")
        self.client.say("/odd")
        self.client.wait_for_chat("Odd:  <b>bold</b> <img src=\"x\"> &amp; &lt;i&gt; &nbsp;\n")
        self.client.wait_for_chat("Odd:  [*] &File &&Edit _underlined_ \\n \\0\n")
        self.client.wait_for_chat("Odd:  a zero byte ")
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
        self.client.say("/rename Juniper")
        self.client.wait_for_users(lambda users: users[0] == "Juniper", "Juniper by her usual name")

    def write_to_somebody(self):
        self.client.double_click(self.client.row("Users Online", "Juniper"), self.client.users_window())
        window = self.client.wait_for_focus_on(self.client.window("Message — Juniper"))
        self.client.place(window, 240, 330)
        for text, answer in (("Which teapot shall I take?", "Juniper: Just between us: "),
                ("Thank you, I shall tell nobody.", "Juniper: I am listening. ")):
            entry = self.client.node("Message — Juniper").find(role="text", having=("editable",))
            wait_until(lambda: entry.has("focused"), "the entry of the conversation to have the focus")
            self.desktop.type(text)
            wait_until(lambda: entry.text() == text, "\"%s\" in the entry" % text)
            self.desktop.key("Return")
            self.client.wait_for_message("Juniper", "You: %s\n" % text)
            self.client.wait_for_message("Juniper", answer)
        self.show("conversation", "A double click on Juniper has opened a conversation; she answers.")

    def be_written_to(self):
        self.client.say("/whisper Dozing Otter")
        window = self.client.window("Message — Dozing Otter")
        self.client.wait_for_message("Dozing Otter", "Dozing Otter: ")
        self.client.wait_for_focus_on(window)
        self.client.place(window, 640, 120)
        self.show("whisper", "Dozing Otter has written in private: that conversation has come to the front by itself.")
        window.close()
        self.desktop.wait_without_window("Message — Dozing Otter")
        self.client.window("Message — Juniper").close()
        self.desktop.wait_without_window("Message — Juniper")

    def lose_the_line(self):
        self.client.say("/drop")
        self.client.wait_for_chat("*** Connection lost ***\n")
        self.client.wait_for_status("Disconnected")
        self.client.window("Users Online (0)")
        self.wait_for_height(self.client.main_window(), self.slim_height)
        self.show("connection-lost", "The server has dropped the line: a red line, an empty list, no banner.")

    def disconnect(self):
        self.client.press("Disconnect")
        self.client.wait_for_chat("*** Disconnected ***\n")
        self.client.window("Palimbra")
        self.client.wait_for_status("Not connected")
        self.client.window("Users Online (0)")
        self.wait_for_height(self.client.main_window(), self.slim_height)
        self.show("disconnected", "Disconnect was pressed: the plain title again, nobody in the list.")

    def quit(self):
        status = self.client.quit()
        output = self.client.program.output()
        self.check(status == 0 and output == "", "the program ended with status %d:\n%s" % (status, output))
        print("  Ctrl+Q has ended the program.")
