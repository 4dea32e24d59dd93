# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What is measured: two sides that do the same, and the figures that are taken from them."""

from dataclasses import dataclass, field
from typing import Callable, Dict, List, Optional, Tuple

Run = Callable[[bool], Dict[str, float]]
"""Does the work once, from scratch, and returns a value for every figure's key. Told whether a short version will do.

Raises whatever it likes when the work could not be done: then there is no figure, and the whole comparison fails.
"""


@dataclass
class Figure:
    """One number that every run yields."""

    key: str
    title: str
    unit: str
    """Written behind the numbers, such as "ms CPU"."""
    limit: Optional[float] = None
    """What the ratio of the first side to the second, or an absolute value, has to reach; None if it is only told."""
    bigger_is_better: bool = False
    absolute: bool = False
    """The limit is for the first side's own value, not for a ratio."""
    worst: bool = False
    """An absolute limit is for the worst of all runs, not for their median."""

    def is_reached(self, value):
        if self.limit is None:
            return True
        return value >= self.limit if self.bigger_is_better else value <= self.limit


@dataclass
class Pair:
    """Two sides, run in turn: one warm-up of each, then at least five times first, second."""

    title: str
    what: str
    """How it is measured, in a sentence or two, for the report."""
    first: Tuple[str, Run]
    second: Optional[Tuple[str, Run]]
    figures: List[Figure]
    warm_up: bool = True
    rounds: int = 5

    def sides(self):
        return [side for side in (self.first, self.second) if side is not None]


@dataclass
class Single(Pair):
    """One side alone, measured against absolute limits."""

    second: Optional[Tuple[str, Run]] = None
    figures: List[Figure] = field(default_factory=list)

    def __post_init__(self):
        for figure in self.figures:
            figure.absolute = True
