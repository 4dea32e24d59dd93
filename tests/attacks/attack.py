# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What an attack is."""

from arena import MEBIBYTE


class Attack:
    """Something that a stranger may do to the program. Its name is that of the function that does it, which says in one
    sentence what that is.

    `memory` is how many bytes more than before the program may have at most meanwhile; `ends_program` says that the
    program is to end by it.
    """

    def __init__(self, function, memory=300 * MEBIBYTE, ends_program=False):
        self.name = function.__name__
        self.what = function.__doc__
        self.memory = memory
        self.ends_program = ends_program
        self._function = function

    def play(self, arena):
        self._function(arena)


def attacks(*functions, **bounds):
    """Attacks that share their bounds."""
    return [Attack(function, **bounds) for function in functions]
