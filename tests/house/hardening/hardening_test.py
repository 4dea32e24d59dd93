#!/usr/bin/python3
# Copyright 2026, The Palimbra developers.
# Distributed under the terms of the MIT License.
"""What the build does against faults that are still there, as the program file shows it."""

import os
import platform
import re
import subprocess
import unittest

PROGRAM = os.environ["PALIMBRA_PROGRAM"]


def read(*options):
    return subprocess.run([*options, PROGRAM], check=True, capture_output=True, text=True).stdout


class HardeningTest(unittest.TestCase):
    def test_lies_anywhere_in_memory(self):
        self.assertRegex(read("readelf", "--file-header"), r"Type:\s+DYN")
        self.assertRegex(read("readelf", "--dynamic"), r"FLAGS_1\).*PIE")

    def test_tables_are_read_only_once_it_runs(self):
        self.assertIn("GNU_RELRO", read("readelf", "--program-headers", "--wide"))
        self.assertRegex(read("readelf", "--dynamic"), r"FLAGS\).*BIND_NOW")

    def test_no_part_can_be_both_written_and_run(self):
        flags = [line[64:] for line in read("readelf", "--program-headers", "--wide").splitlines()
            if line.split()[:1] in (["LOAD"], ["GNU_STACK"])]
        self.assertGreater(len(flags), 2)
        for segment in flags:
            self.assertNotRegex(segment, r"W\s?E")

    def test_stack_frames_and_copies_are_checked(self):
        symbols = read("nm", "--dynamic", "--undefined-only")
        for check in (r"__stack_chk_fail@", r"__(?!stack)\w+_chk@", r"__glibcxx_assert_fail"):
            self.assertTrue(re.search(check, symbols), check)

    def test_calls_by_pointer_reach_beginnings_only(self):
        marks = {"x86_64": "endbr64", "aarch64": "(bti|paciasp)"}
        code = read("objdump", "--disassemble=main", "--no-show-raw-insn")
        self.assertRegex(code, r"<main>:\n\s*[0-9a-f]+:\s*" + marks[platform.machine()])


if __name__ == "__main__":
    unittest.main(verbosity=2)
