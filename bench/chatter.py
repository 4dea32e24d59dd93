# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What people say, the same in every run: lines of a lively room, from a single word to a whole paragraph."""

import functools
import random

_WORDS = ("the a of to and in that it is was for on you with as have but be they all one at this from not so if about"
    " yes no well maybe never always tea lantern garden winter evening window letter server folder morning people"
    " remember bring listen finished yesterday tomorrow because somewhere thunderstorm upload download picture").split()

# How many words a line has, and how often: most lines are short, a few are long.
_LENGTHS = ((1, 8), (3, 14), (6, 22), (10, 26), (16, 18), (26, 9), (60, 3))


def nicks(count):
    return ["person%d" % (number + 1) for number in range(count)]


@functools.lru_cache
def lines(count, speakers=40):
    """That many pairs of nick and text, of some 80 bytes each."""
    source = random.Random(5500)
    who = nicks(speakers)
    lengths, weights = zip(*_LENGTHS)
    said = []
    for number in range(count):
        words = max(1, source.choices(lengths, weights)[0] + source.randint(-1, 1))
        said.append((source.choice(who), "%d %s" % (number + 1, " ".join(source.choices(_WORDS, k=words)))))
    return said
