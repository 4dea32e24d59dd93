#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""One server at a time: nothing of a former one is seen, and leaving one waits for nobody."""

import contextlib
import socket
import threading

import hotline
import wire
from desktop import wait_until
from support import CONNECTED, NOT_CONNECTED, ClientCase, SlowNames, main, setUpModule  # noqa: F401

# Seconds, in place of the usual patience: what happens at once does not wait for a socket's time-out, which takes ten.
AT_ONCE = 6

FORMER = b"of the first"
FORMER_USERS = [wire.user_entry(number, FORMER) for number in range(1, 3001)]


def much_of_the_former():
    """More than the windows can follow: the later a user stands in the list, the longer a change takes."""
    changes = b"".join(wire.user_change(len(FORMER_USERS) - number, FORMER) for number in range(8)) * 2
    broadcast = wire.broadcast(FORMER)
    return (changes + wire.chat(FORMER) + broadcast) * 3000


@contextlib.contextmanager
def talking(former):
    """Has the first server say all that over and over, for as long as the `with` block lasts."""
    block = much_of_the_former()
    with hotline.Flood(former, block) as flood:
        wait_until(lambda: flood.sent > 2 * len(block), "the flood to arrive")
        yield


class Host:
    """Welcomes everybody who comes to a server, from a thread of its own, for as long as the `with` block lasts."""

    def __init__(self, server):
        self._server = server
        self._thread = threading.Thread(target=self._run, daemon=True)

    def __enter__(self):
        self._thread.start()
        return self

    def __exit__(self, *_):
        self._server.listener.shutdown(socket.SHUT_RDWR)
        self._thread.join()

    def _run(self):
        try:
            while True:
                connection = self._server.accept()
                try:
                    connection.welcome(b"Late", [wire.user_entry(1, FORMER)])
                except (EOFError, OSError):
                    # It has changed its mind.
                    pass
        except OSError:
            # Nobody can come any more.
            pass


class SwitchingCase(ClientCase):
    def setUp(self):
        self.first = self.start_server()
        self.second = self.start_server()
        self.names = SlowNames(self.desktop.folder)
        self.client = self.start_client(environment=self.names.environment)

    def fill_dialog(self, address, port):
        """Fills in the connect dialog, which the keyboard opens while connected as well; Return connects then."""
        self.shortcut("ctrl+k")
        self.client.wait_for_focus_on(self.client.window("Connect to Server"))
        self.client.fill_connect(address, port)

    def dial(self, address, port):
        self.fill_dialog(address, port)
        self.desktop.key("Return")

    def welcome_first(self):
        former = self.first.accept()
        former.welcome(b"First", FORMER_USERS)
        return former

    def accept_second(self, server=None):
        connection = (server or self.second).accept()
        connection.welcome(b"Second", [wire.user_entry(1, b"Sammy")])
        return connection

    def welcome_second(self, server=None):
        connection = self.accept_second(server)
        self.client.wait_for_login("Second")
        return connection

    def log_in_to_first(self):
        self.dial("127.0.0.1", self.first.port)
        connection = self.welcome_first()
        self.client.wait_for_login("First")
        return connection

    def log_in_to_second(self):
        self.dial("127.0.0.1", self.second.port)
        return self.welcome_second()

    def begin_late_banner(self):
        """The connection on which the first server is to send a banner, and the size of the window without it."""
        self.first, transfers = hotline.listen_on_two_ports()
        self.addCleanup(self.first.__exit__)
        self.addCleanup(transfers.close)
        plain = self.client.main_window().size_limits()
        return self.log_in_to_first().begin_banner(transfers, len(hotline.picture(468, 60))), plain

    def disconnect(self):
        self.shortcut("ctrl+d")

    def wait_for_the_former(self, left=()):
        """Waits until no thread of a connection is left but these: all has been posted then that ever will be."""
        self.assert_soon(lambda: [name for name in self.client.program.threads() if name.startswith("HL:")], [*left])

    def wait_for_the_main_window(self):
        """Waits until the main window has dealt with what was posted before: a dialog opens when its turn has come."""
        self.open_and_close_a_dialog()

    def chat_since(self, line):
        """What the chat says behind the last such line."""
        text = self.client.transcript().text()
        self.assertIn(line, text)
        return text.rpartition(line)[2]

    def assert_second_alone(self, connection, server=None):
        """Only the second server is seen, once nothing of a former one is under way any more."""
        port = (server or self.second).port
        self.wait_for_the_former(left=["HL:Receive"])
        # They are dealt with in the order in which they arrive, so these are the last ones.
        connection.send(wire.user_change(2, b"Last") + wire.chat(b"the last line"))
        self.client.wait_for_chat("the last line\n")
        self.client.wait_for_users(lambda users: users[-1:] == ["Last"], "the last one")
        self.assertEqual(self.client.users(), ["Sammy", "Last"])
        self.assertEqual(self.chat_since("*** Connecting to 127.0.0.1:%d ***\n" % port),
            "*** Connected — logging in ***\n*** Server: Second (v190) ***\n*** Logged in ***\nthe last line\n")
        self.client.wait_for_status("Connected to Second")
        self.client.window("Palimbra — Second")
        self.client.window("Users Online (2)")
        self.assert_soon(self.client.enabled_buttons, CONNECTED)
        self.assertTrue(self.client.entry().has("enabled"))

    def assert_not_connected(self):
        """Nobody is seen, once nothing of the connection is under way any more."""
        self.wait_for_the_former()
        self.wait_for_the_main_window()
        self.client.wait_for_status("Not connected")
        self.client.window("Palimbra")
        self.client.window("Users Online (0)")
        self.assertEqual(self.client.users_list().count_children(), 0)
        self.assert_soon(self.client.enabled_buttons, NOT_CONNECTED)
        self.assert_soon(lambda: self.client.entry().has("enabled"), False)


class LeavingTest(SwitchingCase):
    def test_a_kick_has_the_last_word(self):
        connection = self.log_in_to_first()
        # The main window is busy: it meets the end of the connection before it has dealt with the kick.
        connection.send(much_of_the_former() + wire.polite_quit(b"Goodbye"))
        connection.close()
        self.client.wait_for_chat("*** Server requested disconnect ***\n")
        self.assert_not_connected()
        self.disconnect()
        self.client.wait_for_chat("\n*** Disconnected ***\n")
        self.assertEqual(self.chat_since("\n*** Server requested disconnect ***\n"), "\n*** Disconnected ***\n")

    def test_disconnecting_in_the_middle_of_a_long_list(self):
        connection = self.log_in_to_first()
        self.client.press("Users")
        request = connection.read_until(wire.USER_LIST)
        users = self.client.users_list()
        self.client.bring_to_front(self.client.main_window())
        # More than wait for the windows at any one time: the rest is still on its way through the program.
        connection.reply(request, [(wire.USER, wire.user_entry(number, b"nick")) for number in range(1, 60001)])
        wait_until(lambda: users.count_children() > len(FORMER_USERS), "the list to arrive")
        self.desktop.key("ctrl+d")
        self.client.wait_for_status("Not connected")
        self.assert_not_connected()
        self.assertEqual(self.chat_since("*** Logged in ***\n"), "\n*** Disconnected ***\n")

    def test_disconnecting_before_the_name_is_found(self):
        self.dial("slow.test", self.first.port)
        self.names.wait_until_asked()
        status = self.client.node("Palimbra").find(role="label")
        with Host(self.first):
            self.disconnect()
            # At once, as the client that was let go of lives for a moment only.
            wait_until(lambda: status.name() == "Not connected", "the connection to be let go of")
            self.names.open_gate()
            self.assert_not_connected()
        self.assertEqual(self.chat_since("*** Connecting to slow.test:%d ***\n" % self.first.port),
            "\n*** Disconnected ***\n")

    def test_a_banner_that_comes_after_disconnecting(self):
        transfer, plain = self.begin_late_banner()
        self.disconnect()
        self.client.wait_for_status("Not connected")
        transfer.send(hotline.picture(468, 60))
        transfer.close()
        self.assert_not_connected()
        self.assertEqual(self.client.main_window().size_limits(), plain)


class SwitchingTest(SwitchingCase):
    def test_what_the_former_server_goes_on_saying(self):
        former = self.log_in_to_first()
        self.fill_dialog("127.0.0.1", self.second.port)
        with talking(former):
            self.desktop.key("Return")
            connection = self.welcome_second()
        self.assert_second_alone(connection)

    def test_a_banner_that_comes_late(self):
        transfer, plain = self.begin_late_banner()
        connection = self.log_in_to_second()
        transfer.send(hotline.picture(468, 60))
        transfer.close()
        self.assert_second_alone(connection)
        self.assertEqual(self.client.main_window().size_limits(), plain)

    def answer_former_agreement(self, answer):
        """Presses a button of the first server's agreement while connected to the second; returns that connection."""
        self.log_in_to_first().send(wire.agreement(FORMER))
        agreement = self.client.open_agreement()
        connection = self.log_in_to_second()
        self.client.press_in(agreement, answer)
        self.desktop.wait_without_window("Server Agreement")
        self.wait_for_the_main_window()
        return connection

    def test_declining_the_former_agreement(self):
        self.assert_second_alone(self.answer_former_agreement("Decline"))

    def test_accepting_the_former_agreement(self):
        connection = self.answer_former_agreement("Accept")
        self.assert_second_alone(connection)
        self.client.say("hello")
        self.assertEqual(connection.read().kind, wire.CHAT_SEND)

    def switch_before_the_name_is_found(self, port):
        """Leaves a name for the second server, and has it found as soon as that is logged in to."""
        self.dial("slow.test", port)
        self.names.wait_until_asked()
        self.dial("127.0.0.1", self.second.port)
        connection = self.accept_second()
        self.names.open_gate()
        return connection

    def test_the_former_server_fails_late(self):
        # Nobody listens there.
        with socket.socket() as taken:
            taken.bind(("127.0.0.1", 0))
            self.assert_second_alone(self.switch_before_the_name_is_found(taken.getsockname()[1]))

    def test_the_former_server_is_found_late(self):
        with Host(self.first):
            self.assert_second_alone(self.switch_before_the_name_is_found(self.first.port))


class TrackerRowsTest(SwitchingCase):
    def open_listing(self, servers):
        """Opens a tracker that lists those servers, where the windows that a login reveals do not cover its rows."""
        tracker = self.start_server()
        address = "127.0.0.1:%d" % tracker.port
        self.client.use_tracker(address)
        for (key, window), left in zip(self.revealed(), (440, 780)):
            self.shortcut(key)
            self.client.place(self.client.wait_for_focus_on(window), left, 230)
        self.window = self.client.open_tracker(address)
        self.client.place(self.window, 20, 40)
        connection = tracker.accept()
        connection.read_exactly(6)
        connection.send(wire.tracker_listing(servers))
        self.client.bring_to_front(self.window)
        self.client.row(self.window.title(), servers[-1][0].decode())

    def place_of(self, name):
        """The middle of a row, on the screen."""
        left, top, width, height = self.client.row(self.window.title(), name).extents()
        return left + width // 2, top + height // 2

    def double_click(self, place):
        self.desktop.click(*place, count=2)

    def test_two_rows_at_once(self):
        self.open_listing([(b"First", self.first.port), (b"Second", self.second.port)])
        places = self.place_of("First"), self.place_of("Second")
        for place in places:
            self.double_click(place)
        former = self.first.accept()
        self.assert_second_alone(self.welcome_second())
        self.assertEqual(former.read_exactly(12)[:4], b"TRTP")
        self.assertEqual(former.stream.recv(1), b"")

    def test_two_rows_and_the_first_server_talks(self):
        self.open_listing([(b"First", self.first.port), (b"Second", self.second.port)])
        places = self.place_of("First"), self.place_of("Second")
        self.double_click(places[0])
        with talking(self.welcome_first()):
            self.double_click(places[1])
            connection = self.welcome_second()
        self.assert_second_alone(connection)

    def test_one_row_twice(self):
        self.open_listing([(b"First", self.first.port)])
        place = self.place_of("First")
        self.double_click(place)
        with talking(self.welcome_first()):
            self.double_click(place)
            connection = self.welcome_second(self.first)
        self.assert_second_alone(connection, self.first)


class AtOnceTest(SwitchingCase):
    def disconnect_at_once(self):
        self.disconnect()
        wait_until(lambda: self.client.status() == "Not connected", "the connection to be let go of", AT_ONCE)
        self.assert_soon(self.client.enabled_buttons, NOT_CONNECTED)

    def quit_at_once(self):
        self.shortcut("ctrl+q")
        self.assert_ended_well(self.client, AT_ONCE)

    def close_at_once(self):
        self.client.main_window().close()
        self.assert_ended_well(self.client, AT_ONCE)

    # A name that is never found

    def ask_for_a_name(self):
        self.dial("slow.test", self.first.port)
        self.names.wait_until_asked()
        self.client.wait_for_status("Connecting to slow.test:%d…" % self.first.port)

    def test_disconnecting_while_a_name_is_looked_up(self):
        self.ask_for_a_name()
        self.disconnect_at_once()
        self.log_in_to_second()
        self.quit_at_once()

    def test_quitting_while_a_name_is_looked_up(self):
        self.ask_for_a_name()
        self.quit_at_once()

    def test_closing_while_a_name_is_looked_up(self):
        self.ask_for_a_name()
        self.close_at_once()

    # A server that does not read

    def say_much(self):
        """Sends 18 lines of 50,000 letters: more than there is room for on the way, less than the client keeps."""
        self.first.take_in_little()
        connection = self.log_in_to_first()
        window = self.client.bring_to_front(self.client.chat_window())
        entry = self.client.entry()
        self.client.click(entry, window)
        self.desktop.type("0123456789" * 10)
        self.desktop.key("ctrl+a", "ctrl+c", "End", *["ctrl+v"] * 9)
        self.desktop.key("ctrl+a", "ctrl+c", "End", *["ctrl+v"] * 49)
        wait_until(lambda: entry.count_characters() == 50000, "a long line")
        self.desktop.key("ctrl+a", "ctrl+c")
        for _ in range(18):
            self.desktop.key("ctrl+v")
            wait_until(lambda: entry.count_characters() == 50000, "the line to be there")
            self.desktop.key("Return")
            wait_until(lambda: entry.count_characters() == 0, "the line to be sent")
        wait_until(lambda: "HL:Send" in self.client.program.threads(), "a line to wait for the server")
        return connection

    def test_disconnecting_while_a_server_does_not_read(self):
        self.say_much()
        self.disconnect_at_once()
        self.assert_not_connected()
        self.quit_at_once()

    def test_quitting_while_a_server_does_not_read(self):
        self.say_much()
        self.quit_at_once()

    def test_closing_while_a_server_does_not_read(self):
        self.say_much()
        self.close_at_once()

    # A tracker that says nothing

    def open_tracker(self, host):
        address = "%s:%d" % (host, self.first.port)
        self.client.use_tracker(address)
        return self.client.open_tracker(address)

    def open_silent_tracker(self):
        """A tracker window whose question has arrived, and the connection on which nobody answers it."""
        return self.open_tracker("127.0.0.1"), self.first.accept_question()

    def close_tracker_at_once(self, window):
        window.close()
        wait_until(lambda: not window.exists(), "the window to disappear", AT_ONCE)

    def test_closing_a_tracker_that_says_nothing(self):
        window, connection = self.open_silent_tracker()
        self.close_tracker_at_once(window)
        wait_until(lambda: "TrackerFetch" not in self.client.program.threads(), "the fetch to end", AT_ONCE)
        self.assertEqual(connection.stream.recv(1), b"")
        self.quit_at_once()

    def test_quitting_while_trackers_say_nothing(self):
        for _ in range(3):
            self.open_silent_tracker()
        self.quit_at_once()

    def test_closing_a_tracker_while_its_name_is_looked_up(self):
        window = self.open_tracker("slow.test")
        self.names.wait_until_asked()
        self.close_tracker_at_once(window)
        self.quit_at_once()

    def test_quitting_while_a_trackers_name_is_looked_up(self):
        self.open_tracker("slow.test")
        self.names.wait_until_asked()
        self.quit_at_once()


if __name__ == "__main__":
    main()
