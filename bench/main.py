# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""Runs the comparisons that bench/compare has built: everything, or what its arguments name."""

import argparse
import importlib
import importlib.util
import os
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.realpath(__file__)))
sys.path[:0] = [os.path.join(ROOT, "bench"), os.path.join(ROOT, "driver")]

# Each exports pairs(build), a list.
MODULES = ("clients", "inside")


def all_pairs(build):
    pairs = []
    for name in MODULES:
        if importlib.util.find_spec(name) is not None:
            pairs += importlib.import_module(name).pairs(build)
    return pairs


def is_wanted(pair, wanted):
    return not wanted or any(text.lower() in pair.title.lower() for text in wanted)


def main():
    parser = argparse.ArgumentParser(prog="bench/compare", description="Measures Palimbra against its yardsticks.")
    parser.add_argument("--quick", action="store_true", help="one short pair of each; writes no page")
    parser.add_argument("--only", nargs="+", metavar="TITLE", help="only pairs with that in their title; writes no page")
    parser.add_argument("--list", action="store_true", help="say what there is")
    arguments = parser.parse_args()

    import comparison
    import report

    pairs = [pair for pair in all_pairs(os.path.join(ROOT, "build")) if is_wanted(pair, arguments.only)]
    if arguments.list or not pairs:
        print("\n".join(pair.title for pair in pairs) or "There is no such pair; --list tells which there are.")
        return 0 if pairs else 2
    result = comparison.Comparison(arguments.quick)
    result.run(pairs)
    report.print_table(result)
    if not arguments.quick and not arguments.only:
        report.write_page(result, os.path.join(ROOT, "docs", "benchmarks.md"))
    return 1 if result.failed else 0


if __name__ == "__main__":
    sys.exit(main())
