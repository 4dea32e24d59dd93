# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Writes down what a comparison gave: a table for the terminal, and the page in docs/."""

import os
import platform
import statistics
import subprocess

from comparison import number

# What stands below this line on the page is written by hand and stays.
MARKER = "<!-- What stands below is written by hand; bench/compare keeps it. -->"

ROOT = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))

PACKAGES = ("hexchat", "libqt6widgets6", "libgtk2.0-0", "libbenchmark-dev", "g++", "xvfb", "openbox", "libc6")

INTRODUCTION = """# Benchmarks

Written by `bench/compare`, which installs and builds what it needs, runs both sides of each pair in turn (first, second, first, second, …,
after a warm-up of each) and takes processor seconds and memory from the operating system's own accounts. Numbers are medians, with the
smallest and the largest in brackets; the ratio is first by second, pair by pair, and its median is what has to reach the limit. A limit
that is no ratio is for the median of the runs, or with "always" for the worst of them. Idleness is measured in a single run.
`bench/compare --quick` does a short version of everything in a few minutes and writes nothing here.
"""


def spread(values):
    """A median with the smallest and the largest value."""
    if not values:
        return "–"
    text = number(statistics.median(values))
    if len(values) > 1:
        text += " (%s–%s)" % (number(min(values)), number(max(values)))
    return text


def must_reach(figure):
    if figure.limit is None:
        return ""
    text = "%s %s" % ("≥" if figure.bigger_is_better else "≤", number(figure.limit))
    if figure.absolute:
        text += " " + figure.unit
        if figure.worst:
            text += " always"
    return text


def outcome(series):
    if series.figure.limit is None:
        return ""
    return "reached" if series.is_reached() else "**not reached**"


def all_series(comparison):
    return [series for group in comparison.series.values() for series in group]


def print_table(comparison):
    """The table for the terminal, a line per figure."""
    print()
    for series in all_series(comparison):
        figure = series.figure
        print("%s: %s [%s]" % (series.pair.title, figure.title, figure.unit))
        print("    %s %s" % (series.pair.first[0], spread(series.first))
            + (", %s %s" % (series.pair.second[0], spread(series.second)) if series.second else "")
            + (", ratio %s" % spread(series.ratios()) if series.second else "")
            + ("; must reach %s: %s" % (must_reach(figure), outcome(series).strip("*")) if figure.limit is not None
                else ""))
    for title in comparison.failed:
        print("%s: DID NOT RUN" % title)
    if comparison.quick:
        print("\nThe short version: with fewer lines, users, files and bytes than the titles say.")
    print("\nTook %d s." % comparison.seconds)


def write_page(comparison, path):
    """Replaces the part of the page that is not written by hand."""
    by_hand = ""
    if os.path.exists(path):
        with open(path, encoding="utf-8") as page:
            by_hand = page.read().partition(MARKER)[2]
    # Before the page itself is a change that the commit does not have.
    measured = "\n".join([INTRODUCTION, machine(), "", figures_table(comparison), pairs_table(comparison),
        explanations(comparison), MARKER])
    with open(path, "w", encoding="utf-8") as page:
        page.write(measured + (by_hand or "\n"))


def machine():
    lines = ["%s, %d processors, %s, Linux %s." % (processor(), os.cpu_count(), memory(), platform.release()),
        "Palimbra at %s, built as %s." % (revision(), build_type())]
    versions = ["%s %s" % (name, version) for name, version in ((name, package_version(name)) for name in PACKAGES)
        if version]
    lines.append("Versions: %s." % ", ".join(versions))
    return "\n".join(lines)


def figures_table(comparison):
    rows = ["## What was measured", "", "| pair | figure | first | second | ratio | must reach | |",
        "|---|---|---|---|---|---|---|"]
    for series in all_series(comparison):
        pair, figure = series.pair, series.figure
        second = "%s: %s" % (pair.second[0], spread(series.second)) if series.second else "–"
        rows.append("| %s | %s, %s | %s: %s | %s | %s | %s | %s |" % (pair.title, figure.title, figure.unit,
            pair.first[0], spread(series.first), second, spread(series.ratios()), must_reach(figure), outcome(series)))
    for title in comparison.failed:
        rows.append("| %s | **did not run** | | | | | |" % title)
    return "\n".join(rows) + "\n"


def pairs_table(comparison):
    rows = ["## Pair by pair", ""]
    for series in all_series(comparison):
        values = ", ".join(number(value) for value in series.judged())
        if values:
            kind = series.figure.unit if series.figure.absolute else "ratio"
            rows.append("- %s, %s (%s): %s" % (series.pair.title, series.figure.title, kind, values))
    return "\n".join(rows) + "\n"


def explanations(comparison):
    rows = ["## How", ""]
    for group in comparison.series.values():
        pair = group[0].pair
        rows.append("- **%s.** %s" % (pair.title, " ".join(pair.what.split())))
    return "\n".join(rows) + "\n"


def processor():
    with open("/proc/cpuinfo") as information:
        for line in information:
            if line.startswith("model name"):
                return line.partition(":")[2].strip()
    return platform.machine()


def memory():
    return "%.0f GiB of memory" % (os.sysconf("SC_PHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") / 2**30)


def revision():
    """The commit, and whether there were changes that it does not have."""
    done = subprocess.run(["git", "-C", ROOT, "describe", "--always", "--dirty", "--exclude=*"], capture_output=True, text=True,
        check=False)
    return done.stdout.strip() or "an unknown commit"


def build_type():
    with open(os.path.join(ROOT, "build", "CMakeCache.txt"), encoding="utf-8") as cache:
        for line in cache:
            if line.startswith("CMAKE_BUILD_TYPE:"):
                return line.partition("=")[2].strip()
    return "an unknown type"


def package_version(name):
    done = subprocess.run(["dpkg-query", "-W", "-f=${Version}", name], capture_output=True, text=True, check=False)
    return done.stdout.split(":")[-1] if done.returncode == 0 else ""
