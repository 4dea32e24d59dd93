#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Plays a group of attacks on the real program: no window stops, nothing is left, and a good server works afterwards.

One group by hand:
PYTHONPATH=driver:tests/endtoend PALIMBRA_BUILD=build-test /usr/bin/python3 tests/attacks/attacks_test.py texts
"""

import os
import signal
import sys
import unittest

import wire
from arena import Arena, Heartbeat
from attack import Attack
from desktop import Desktop, wait_until
from groups import GROUPS, WITH_READER

BUILD = os.path.abspath(os.environ["PALIMBRA_BUILD"])

# Seconds, wide enough for a machine with other work to do.
LONGEST_GAP = 2

MEBIBYTE = 1024 * 1024


class AttacksTest(unittest.TestCase):
    group = None

    def setUp(self):
        self.desktop = self.enterContext(Desktop(accessible=self.group == WITH_READER))
        self.arena = self.enterContext(Arena(self.desktop, BUILD))

    def assert_held(self, attack, figures):
        self.assertIsNone(figures.failure, attack.what)
        self.assertLess(figures.worst_gap, LONGEST_GAP, "\"%s\" did not answer" % figures.slowest)
        self.assertLess(figures.memory_peak - figures.memory_before, attack.memory)

    def test_attacks(self):
        for attack in GROUPS[self.group]:
            with self.subTest(attack.name):
                self.assert_held(attack, self.arena.try_attack(attack))


class HeartbeatTest(unittest.TestCase):
    """Whether the heartbeat, and what else finds an attack's success, would find it."""

    def setUp(self):
        self.desktop = self.enterContext(Desktop(accessible=False))
        self.arena = self.enterContext(Arena(self.desktop, BUILD))

    def test_a_program_that_stands_still_is_noticed(self):
        def stands_still(arena):
            """Stops the program until a timer of the machine's own lets it go on."""
            arena.program.process.send_signal(signal.SIGSTOP)
            arena.desktop.ask("sh", "-c", "sleep 0.5; kill -CONT %d" % arena.program.pid)

        figures = self.arena.try_attack(Attack(stands_still))
        self.assertIsNone(figures.failure)
        self.assertGreater(figures.worst_gap, 0.4)

    def test_a_program_that_ends_is_noticed(self):
        def ends(arena):
            """Ends the program as a crash does."""
            arena.program.process.kill()
            arena.program.wait()

        self.assertIn("ended with status -9", self.arena.try_attack(Attack(ends)).failure)
        # The next one has a program again.
        self.assertIsNone(self.arena.try_attack(Attack(lambda arena: arena.meet())).failure)

    def test_memory_that_was_needed_is_noticed(self):
        def takes(arena):
            """Says 20 MB in the chat, which are kept."""
            host = arena.meet()
            host.send(wire.chat(b"w" * 65535) * 320)
            host.wait_until_read()

        figures = self.arena.try_attack(Attack(takes))
        self.assertIsNone(figures.failure)
        self.assertGreater(figures.memory_peak - figures.memory_before, 20 * MEBIBYTE)
        self.assertGreater(figures.memory_after - figures.memory_before, 20 * MEBIBYTE)

    def test_minimised_windows_answer_too(self):
        self.desktop.ask("xdotool", "windowminimize", str(self.arena.chat))
        heartbeat = Heartbeat(self.desktop)
        self.addCleanup(heartbeat.stop)
        heartbeat.watch(self.arena.program.pid)
        heartbeat.begin()
        beat = wait_until(lambda: (beat := heartbeat.end())["answers"] >= 6 and beat, "two rounds of answers")
        self.assertEqual((beat["windows"], beat["missing"]), (3, 0))


def main():
    if len(sys.argv) != 2 or sys.argv[1] not in [*GROUPS, "heartbeat"]:
        sys.exit("usage: attacks_test.py heartbeat | " + " | ".join(GROUPS))
    AttacksTest.group = sys.argv[1]
    case = HeartbeatTest if sys.argv[1] == "heartbeat" else AttacksTest
    result = unittest.TextTestRunner(verbosity=2).run(unittest.defaultTestLoader.loadTestsFromTestCase(case))
    sys.exit(not result.wasSuccessful())


if __name__ == "__main__":
    main()
