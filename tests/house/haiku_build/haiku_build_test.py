#!/usr/bin/env python3
"""The build for Haiku, as far as it can be played elsewhere."""

import re
import unittest
from pathlib import Path

from played_platform import files_in, PlayedPlatform, program_files, ROOT


class HaikuBuildTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = PlayedPlatform()
        cls.addClassCleanup(cls.platform.remove)
        cls.folder = cls.platform.folder
        cls.build = cls.folder / "build"
        cls.platform.run("cmake", "-S", ROOT, "-B", cls.build, "-G", "Ninja", *cls.platform.cmake_options)
        cls.platform.noted()
        cls.platform.run("cmake", "--build", cls.build)
        cls.calls = cls.platform.noted()

    def calls_of(self, tool):
        return [call for call in self.calls if call[0] == tool]

    def expect_nowhere(self, pattern, call):
        for word in call:
            self.assertNotRegex(word.replace(str(self.folder), "").replace(str(ROOT), ""), pattern)

    def version(self):
        return re.search(r"project\(Palimbra VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]

    def test_the_program_folder_is_complete(self):
        self.assertEqual(program_files(), files_in(self.build / "palimbra") - {"assets.stamp"})

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
        self.assertIn("no work", self.platform.run("cmake", "--build", self.build))
        description = self.build / "src/palimbra.rdef"
        changed = description.read_text(encoding="utf-8").replace("short_info", "short_info /* changed */")
        description.write_text(changed, encoding="utf-8")
        self.platform.noted()
        self.platform.run("cmake", "--build", self.build)
        self.assertEqual(["rc", "link", "xres", "mimeset"], [call[0] for call in self.platform.noted()])
        self.assertEqual(changed, (self.build / "palimbra/palimbra").read_text(encoding="utf-8"))

    def test_the_installed_folder_is_complete_and_known(self):
        self.platform.noted()
        prefix = self.folder / "apps"
        self.platform.run("cmake", "--install", self.build, "--prefix", prefix)
        self.assertEqual({f"Palimbra/{name}" for name in program_files()}, files_in(prefix))
        self.assertEqual([["mimeset", "-f", str(prefix / "Palimbra/palimbra")]], self.platform.noted())


if __name__ == "__main__":
    unittest.main()
