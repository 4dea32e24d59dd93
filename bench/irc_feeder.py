# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""An IRC server for one client: it is welcomed, joins one channel, gets the names of those who are there, and is fed."""

from feeder import Feeder

CHANNEL = "#bench"
NAMES_PER_LINE = 30


def chat_lines(lines):
    """The bytes of chat lines, given as pairs of nick and text."""
    return b"".join(b":%s!~%s@127.0.0.1 PRIVMSG %s :%s\r\n"
        % (nick.encode(), nick.encode(), CHANNEL.encode(), text.encode()) for nick, text in lines)


class IrcFeeder(Feeder):
    """`users` are the nicks of those in the channel; the client can be made to wait for them."""

    def __init__(self, users=(), holds_users=False):
        self._users = list(users)
        self._holds_users = holds_users
        self._nick = "bench"
        super().__init__()

    def send_users(self):
        self.send(self._names([self._nick, *self._users]))

    def _talk(self, incoming):
        greeted = False
        for line in incoming:
            command, _, rest = line.decode("utf-8", "replace").strip().partition(" ")
            command = command.upper()
            if command == "NICK":
                self._nick = rest.lstrip(":")
            elif command == "USER" and not greeted:
                greeted = True
                self._welcome()
            elif command == "PING":
                self.send(b":bench PONG bench %s\r\n" % rest.encode())
            elif command == "JOIN" and rest.lstrip(":") == CHANNEL:
                self.send(b":%s!~b@127.0.0.1 JOIN :%s\r\n" % (self._nick.encode(), CHANNEL.encode()))
                if not self._holds_users:
                    self.send_users()
                self._ready.set()

    def _welcome(self):
        nick = self._nick
        replies = ("001 %s :Welcome" % nick, "002 %s :Your host is bench" % nick, "003 %s :Created today" % nick,
            "004 %s bench 1 i nt" % nick, "005 %s CHANTYPES=# PREFIX=(ov)@+ NETWORK=Bench :are supported" % nick,
            "422 %s :No message of the day" % nick)
        self.send("".join(":bench %s\r\n" % reply for reply in replies).encode())

    def _names(self, nicks):
        lines = []
        for index in range(0, len(nicks), NAMES_PER_LINE):
            lines.append(":bench 353 %s = %s :%s\r\n"
                % (self._nick, CHANNEL, " ".join(nicks[index:index + NAMES_PER_LINE])))
        lines.append(":bench 366 %s %s :End of names\r\n" % (self._nick, CHANNEL))
        return "".join(lines).encode()
