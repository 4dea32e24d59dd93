# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Plays attacks and prints what each did to the program, the longest silence first. What bench/attacks runs."""

import argparse
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.realpath(__file__))))
sys.path[:0] = [os.path.join(ROOT, folder) for folder in ("driver", "tests/endtoend", "tests/attacks")]

from arena import Arena  # noqa: E402
from desktop import Desktop  # noqa: E402
from groups import GROUPS, WITH_READER  # noqa: E402

# Seconds that no window should be silent for.
GOAL = 0.25

MEBIBYTE = 1024 * 1024

LINE = "%-42s %7s %6s %6s %7s %7s %9s %9s  %s"


def parsed_arguments():
    parser = argparse.ArgumentParser(prog="bench/attacks", description="Plays attacks on the program.")
    parser.add_argument("--group", nargs="+", choices=GROUPS, default=list(GROUPS), help="only these groups")
    parser.add_argument("--only", nargs="+", metavar="NAME", help="only attacks with that in their name")
    parser.add_argument("--list", action="store_true", help="say what there is")
    parser.add_argument("--build", default=os.path.join(ROOT, "build"), help="the folder of another build")
    return parser.parse_args()


def chosen(arguments):
    """The attacks that are wanted, by group."""
    wanted = arguments.only or [""]
    return {group: [attack for attack in GROUPS[group] if any(text in attack.name for text in wanted)]
        for group in arguments.group}


def row(name, figures):
    """A line of the table."""
    return LINE % (name, "%.0f" % (figures.worst_gap * 1000), "%.0f" % (figures.lag * 1000), "%.1f" % figures.seconds,
        "%+.0f" % ((figures.memory_peak - figures.memory_before) / MEBIBYTE),
        "%+.0f" % ((figures.memory_after - figures.memory_before) / MEBIBYTE),
        "%d > %d" % (len(figures.threads_before), len(figures.threads_after)),
        "%d > %d" % (figures.descriptors_before, figures.descriptors_after), figures.failure or "")


HEAD = LINE % ("attack", "gap ms", "lag ms", "s", "peak MB", "left MB", "threads", "descr.", "")


def play(groups, build):
    """Plays all of them, telling how they go, and returns pairs of a name and its figures."""
    played = []
    for group, attacks in groups.items():
        if not attacks:
            continue
        with Desktop(accessible=group == WITH_READER) as desktop, Arena(desktop, build) as arena:
            for attack in attacks:
                name = "%s: %s" % (group, attack.name)
                played.append((name, arena.try_attack(attack)))
                print(row(*played[-1]), flush=True)
    return played


def main():
    arguments = parsed_arguments()
    groups = chosen(arguments)
    if arguments.list:
        for group, attacks in groups.items():
            for attack in attacks:
                print("%-12s %-38s %s" % (group, attack.name, attack.what))
        return 0
    print(HEAD)
    played = play(groups, os.path.abspath(arguments.build))
    failed = [pair for pair in played if pair[1].failure]
    slow = [pair for pair in played if pair[1].worst_gap > GOAL]
    print("\nThe longest silences (goal: %.0f ms)\n%s" % (GOAL * 1000, HEAD))
    for pair in sorted(slow, key=lambda pair: -pair[1].worst_gap):
        print(row(*pair))
    print("\n%d attacks; %d went wrong, %d kept a window from answering for longer than the goal."
        % (len(played), len(failed), len(slow)))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
