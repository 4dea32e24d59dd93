#!/usr/bin/env python3
"""The build for Haiku, as far as it can be played elsewhere: the platform's name, and stand-ins for its tools that note how
they are called. What compiles and links leaves an empty file instead."""

import os
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
COMPILER = os.environ.get("CXX", "c++")

# All of them write their names and arguments to a common log, a line for each call.
NOTE = '#!/bin/sh\nprintf "%s %s\\n" "${0##*/}" "$*" >>"$(dirname "$0")/log"\n'
TOOLS = {
    "rc": 'cp "$3" "$2"\n',
    "xres": 'cat "$3" >>"$2"\n',
    "mimeset": '[ -f "$2" ]\n',
    "compile": 'while [ $# -gt 0 ]; do case $1 in -o|-MF) : >"$2";; esac; shift; done\n',
    "link": 'while [ $# -gt 0 ]; do [ "$1" != -o ] || : >"$2"; shift; done\n',
}


class HaikuBuildTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.temporary.cleanup)
        cls.folder = Path(cls.temporary.name)
        cls.build, cls.tools = cls.folder / "build", cls.folder / "tools"
        cls.tools.mkdir()
        for name, script in TOOLS.items():
            (cls.tools / name).write_text(NOTE + script, encoding="utf-8")
            (cls.tools / name).chmod(0o755)
        toolchain = cls.folder / "haiku.cmake"
        toolchain.write_text(f"set(CMAKE_SYSTEM_NAME Haiku)\nset(CMAKE_CXX_COMPILER {COMPILER})\n", encoding="utf-8")
        cls.run_tool("cmake", "-S", ROOT, "-B", cls.build, "-G", "Ninja", f"-DCMAKE_TOOLCHAIN_FILE={toolchain}",
            f"-DCMAKE_CXX_COMPILER_LAUNCHER={cls.tools}/compile", f"-DCMAKE_CXX_LINKER_LAUNCHER={cls.tools}/link")
        cls.noted()
        cls.run_tool("cmake", "--build", cls.build)
        cls.calls = cls.noted()

    @classmethod
    def run_tool(cls, *command):
        environment = dict(os.environ, PATH=f"{cls.tools}:{os.environ['PATH']}")
        result = subprocess.run([str(part) for part in command], env=environment, capture_output=True, text=True)
        if result.returncode != 0:
            raise AssertionError(f"{command[:4]}\n{result.stdout}{result.stderr}")
        return result.stdout

    @classmethod
    def noted(cls):
        """The calls since the last time, each a list of words."""
        log = cls.tools / "log"
        calls = [line.split() for line in log.read_text(encoding="utf-8").splitlines()] if log.exists() else []
        log.unlink(missing_ok=True)
        return calls

    def calls_of(self, tool):
        return [call for call in self.calls if call[0] == tool]

    def expect_nowhere(self, pattern, call):
        for word in call:
            self.assertNotRegex(word.replace(str(self.folder), "").replace(str(ROOT), ""), pattern)

    def version(self):
        return re.search(r"project\(Palimbra VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]

    def expected_files(self):
        pictures = {path.name for path in (ROOT / "assets").glob("*.png")} - {"logo.png"}
        return {"palimbra", "logo.png"} | {f"assets/{name}" for name in pictures}

    def files_in(self, folder):
        return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}

    def test_the_program_folder_is_complete(self):
        self.assertEqual(self.expected_files(), self.files_in(self.build / "palimbra") - {"assets.stamp"})

    def test_every_source_of_the_client_is_compiled_and_nothing_else(self):
        compiled = {next(word for word in reversed(call) if word.endswith(".cpp")) for call in self.calls_of("compile")}
        self.assertEqual({str(path) for path in (ROOT / "src").rglob("*.cpp")}, compiled)

    def test_no_compiler_sees_the_kits_the_toolkit_or_a_fatal_warning(self):
        self.assertTrue(self.calls_of("compile"))
        for call in self.calls_of("compile"):
            self.expect_nowhere("kits/|[Qq]t|fontconfig|-Werror", call)

    def test_the_program_is_linked_with_the_kits_of_the_system(self):
        (link,) = self.calls_of("link")
        for library in ("be", "network", "tracker", "translation"):
            self.assertIn(f"-l{library}", link)
        self.expect_nowhere("[Qq]t|fontconfig|kits", link)

    def test_resources_are_made_then_joined_then_made_known(self):
        tools = [[Path(word).name for word in call] for call in self.calls if call[0] in ("rc", "xres", "mimeset")]
        self.assertEqual([["rc", "-o", "palimbra.rsrc", "palimbra.rdef"], ["xres", "-o", "palimbra", "palimbra.rsrc"],
            ["mimeset", "-f", "palimbra"]], tools)
        order = [call[0] for call in self.calls]
        self.assertLess(order.index("link"), order.index("xres"))

    def test_resources_say_what_the_project_says(self):
        text = (self.build / "src/palimbra.rdef").read_text(encoding="utf-8")
        self.assertNotIn("@", text)
        major, middle, minor = self.version().split(".")
        for expected in ('resource app_signature "application/x-vnd.Haiku-Palimbra";', f"major = {major},",
                f"middle = {middle},", f"minor = {minor},", "resource app_flags B_MULTIPLE_LAUNCH;",
                (ROOT / "packaging/haiku/icon.rdef").read_text(encoding="utf-8")):
            self.assertEqual(1, text.count(expected), expected)
        self.assertEqual(0, text.count("{") - text.count("}"))

    def test_the_code_has_the_signature_of_the_resources(self):
        (call,) = [call for call in self.calls_of("compile") if call[-1].endswith("/App.cpp")]
        self.assertIn('-DPALIMBRA_SIGNATURE="application/x-vnd.Haiku-Palimbra"', call)

    def test_resources_that_changed_are_joined_to_a_program_without_the_old_ones(self):
        self.assertIn("no work", self.run_tool("cmake", "--build", self.build))
        description = self.build / "src/palimbra.rdef"
        changed = description.read_text(encoding="utf-8").replace("short_info", "short_info /* changed */")
        description.write_text(changed, encoding="utf-8")
        self.noted()
        self.run_tool("cmake", "--build", self.build)
        self.assertEqual(["rc", "link", "xres", "mimeset"], [call[0] for call in self.noted()])
        self.assertEqual(changed, (self.build / "palimbra/palimbra").read_text(encoding="utf-8"))

    def test_the_installed_folder_is_complete_and_known(self):
        self.noted()
        prefix = self.folder / "apps"
        self.run_tool("cmake", "--install", self.build, "--prefix", prefix)
        self.assertEqual({f"Palimbra/{name}" for name in self.expected_files()}, self.files_in(prefix))
        self.assertEqual([["mimeset", "-f", str(prefix / "Palimbra/palimbra")]], self.noted())


if __name__ == "__main__":
    unittest.main()
