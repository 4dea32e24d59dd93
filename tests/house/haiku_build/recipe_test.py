#!/usr/bin/env python3
"""The recipe of Haiku's package: sourced and run as a porter's tool does, on a platform that is played."""

import re
import subprocess
import unittest
import xml.etree.ElementTree as ElementTree

from played_platform import files_in, PlayedPlatform, program_files, ROOT

(RECIPE,) = (ROOT / "packaging/haiku").glob("*.recipe")
VERSION = re.search(r"project\(Palimbra VERSION ([0-9.]+)", (ROOT / "CMakeLists.txt").read_text(encoding="utf-8"))[1]
NAMES = """SUMMARY DESCRIPTION HOMEPAGE COPYRIGHT LICENSE REVISION SOURCE_URI SOURCE_DIR ARCHITECTURES SECONDARY_ARCHITECTURES
    PROVIDES REQUIRES BUILD_REQUIRES BUILD_PREREQUIRES POST_INSTALL_SCRIPTS""".split()

# What a porter's tool has set before it reads a recipe; an unset name or a failed command ends it.
PROLOGUE = """
    set -eu
    portVersion=%(version)s secondaryArchSuffix=%(suffix)s jobArgs=-j2
    package=%(package)s; appsDir=$package/apps
    relativePostInstallDir=boot/post-install; postInstallDir=$package/$relativePostInstallDir
    addAppDeskbarSymlink() { [ -e "$1" ]; mkdir -p "$package/deskbar"; ln -s "$1" "$package/deskbar/$2"; }
    cmake() {
        case $1 in --build|--install) command cmake "$@";; *) command cmake "$@" %(options)s;; esac
    }
    . %(recipe)s
"""


class RecipeTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.platform = PlayedPlatform()
        cls.addClassCleanup(cls.platform.remove)
        cls.package = cls.platform.folder / "package"
        cls.package.mkdir()
        # The build's folder lies within the sources, so these are a folder of links.
        cls.source = cls.platform.folder / "source"
        cls.source.mkdir()
        for entry in ROOT.iterdir():
            if not entry.name.startswith((".", "build")):
                (cls.source / entry.name).symlink_to(entry)

    def source_recipe(self, script, suffix=""):
        prologue = PROLOGUE % {"version": VERSION, "suffix": suffix, "package": self.package, "recipe": RECIPE,
            "options": " ".join(self.platform.cmake_options)}
        return self.platform.run("bash", "-c", prologue + script, folder=self.source)

    def variables(self, suffix=""):
        script = "".join(f'printf "%s\\0" "${name}"\n' for name in NAMES)
        return dict(zip(NAMES, self.source_recipe(script, suffix).split("\0")))

    def test_it_has_the_version_of_the_project(self):
        self.assertEqual(f"palimbra-{VERSION}.recipe", RECIPE.name)

    def test_what_linux_says_of_the_newest_release_is_that_version_too(self):
        metainfo = ElementTree.parse(ROOT / "packaging/org.palimbra.Palimbra.metainfo.xml")
        self.assertEqual(VERSION, metainfo.find("releases/release").get("version"))

    def test_every_variable_is_set_and_the_summary_is_short(self):
        variables = self.variables()
        for name, value in variables.items():
            self.assertTrue(value.strip(), name)
        self.assertLess(len(variables["SUMMARY"]), 70)
        self.assertNotRegex(variables["SUMMARY"], r"\n|\.$")
        self.assertEqual("MIT", variables["LICENSE"])
        self.assertIn(VERSION, variables["SOURCE_URI"])

    def test_names_of_packages_follow_the_architecture(self):
        for suffix in ("", "_x86"):
            with self.subTest(suffix):
                variables = self.variables(suffix)
                self.assertEqual([f"palimbra{suffix} = {VERSION}", f"app:Palimbra = {VERSION}"],
                    [line.strip() for line in variables["PROVIDES"].strip().splitlines()])
                self.assertEqual(f"haiku{suffix}", variables["REQUIRES"].strip())
                self.assertEqual(f"haiku{suffix}_devel", variables["BUILD_REQUIRES"].strip())
                self.assertEqual(["cmd:cmake", f"cmd:gcc{suffix}", "cmd:ninja"], variables["BUILD_PREREQUIRES"].split())

    def test_building_and_installing_make_the_package(self):
        self.source_recipe("BUILD")
        self.source_recipe("INSTALL")
        files = {f"apps/Palimbra/{name}" for name in program_files()}
        script = self.variables()["POST_INSTALL_SCRIPTS"]
        self.assertEqual(files | {script, "deskbar/Palimbra"}, files_in(self.package))
        self.assertEqual(self.package / "apps/Palimbra/palimbra", (self.package / "deskbar/Palimbra").readlink())

        # Run where nothing can be made, the script says what it would make: the folder behind the link.
        said = subprocess.run(["sh", "-c", f'mkdir() {{ echo "$@"; }}; . {self.package / script}'], capture_output=True, text=True,
            check=True).stdout
        self.assertTrue((self.package / script).stat().st_mode & 0o100)
        self.assertEqual(f"-p {(self.package / 'apps/Palimbra/Downloads').readlink()}\n", said)


if __name__ == "__main__":
    unittest.main()
