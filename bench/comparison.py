# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Runs pairs, first and second side in turn, and keeps what every run gave."""

import statistics
import sys
import time
import traceback

from desktop import NotHappened


class Series:
    """The values of one figure, run by run, of both sides."""

    def __init__(self, pair, figure):
        self.pair = pair
        self.figure = figure
        self.first = []
        self.second = []

    def ratios(self):
        """The first side's value by the second's, pair by pair."""
        return [first / second for first, second in zip(self.first, self.second) if second > 0]

    def judged(self):
        """The values that the limit is for: ratios or, of a figure with an absolute limit, the first side's own."""
        return self.first if self.figure.absolute else self.ratios()

    def verdict(self):
        """The value that has to be within the limit: the median, or the worst; None when there is none."""
        values = self.judged()
        if not values:
            return None
        if self.figure.worst:
            return min(values) if self.figure.bigger_is_better else max(values)
        return statistics.median(values)

    def is_reached(self):
        verdict = self.verdict()
        return verdict is not None and self.figure.is_reached(verdict)


class Comparison:
    """The pairs that were run, with a series for every figure, and those that could not be run."""

    def __init__(self, quick):
        self.quick = quick
        self.series = {}
        self.failed = {}
        self.seconds = 0.0

    def run(self, pairs):
        started = time.monotonic()
        for index, pair in enumerate(pairs):
            say("[%d/%d] %s" % (index + 1, len(pairs), pair.title))
            try:
                self.series[pair.title] = self._run_pair(pair)
            except Exception:
                self.failed[pair.title] = traceback.format_exc()
                say("        did not run:\n" + self.failed[pair.title])
        self.seconds = time.monotonic() - started

    def _run_pair(self, pair):
        rounds = 1 if self.quick else pair.rounds
        if pair.warm_up and not self.quick:
            for side in pair.sides():
                self._run_side(side)
        collected = [Series(pair, figure) for figure in pair.figures]
        for number in range(rounds):
            self._run_round(pair, collected)
            say("        %d of %d: %s" % (number + 1, rounds, ", ".join(last_of(series) for series in collected)))
        return collected

    def _run_side(self, side):
        """Once more, and says so, when something on the desktop did not come about in time."""
        try:
            return side[1](self.quick)
        except NotHappened as reason:
            say("        %s is run again: %s" % (side[0], reason))
            return side[1](self.quick)

    def _run_round(self, pair, collected):
        first = self._run_side(pair.first)
        second = self._run_side(pair.second) if pair.second is not None else {}
        for series in collected:
            series.first.append(first[series.figure.key])
            if series.figure.key in second:
                series.second.append(second[series.figure.key])


def last_of(series):
    """What the latest run gave, in a few words."""
    text = "%s %s" % (series.figure.title, number(series.first[-1]))
    if series.second:
        text += "/%s" % number(series.second[-1])
        if series.second[-1] > 0:
            text += "=%.2f" % (series.first[-1] / series.second[-1])
    return text


def number(value):
    """Three digits that matter, without an exponent."""
    if value == 0:
        return "0"
    if abs(value) >= 100:
        return "{:,.0f}".format(value)
    return "%.3g" % value


def say(text):
    print(text, flush=True, file=sys.stdout)
