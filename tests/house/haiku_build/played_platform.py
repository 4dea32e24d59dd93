"""Haiku's build tools and its name, played elsewhere: the tools note how they are called, and what compiles and links leaves an empty
file instead.
"""

import os
import subprocess
import tempfile
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


class PlayedPlatform:
    """Lives in a folder of its own until it is removed."""

    def __init__(self):
        self.temporary = tempfile.TemporaryDirectory()
        self.folder = Path(self.temporary.name)
        self.tools = self.folder / "tools"
        self.tools.mkdir()
        for name, script in TOOLS.items():
            (self.tools / name).write_text(NOTE + script, encoding="utf-8")
            (self.tools / name).chmod(0o755)
        toolchain = self.folder / "haiku.cmake"
        toolchain.write_text(f"set(CMAKE_SYSTEM_NAME Haiku)\nset(CMAKE_CXX_COMPILER {COMPILER})\n", encoding="utf-8")
        self.cmake_options = [f"-DCMAKE_TOOLCHAIN_FILE={toolchain}", f"-DCMAKE_CXX_COMPILER_LAUNCHER={self.tools}/compile",
            f"-DCMAKE_CXX_LINKER_LAUNCHER={self.tools}/link"]

    def remove(self):
        self.temporary.cleanup()

    def run(self, *command, folder=None):
        """What it said; AssertionError with that if it failed."""
        environment = dict(os.environ, PATH=f"{self.tools}:{os.environ['PATH']}")
        result = subprocess.run([str(part) for part in command], env=environment, cwd=folder, capture_output=True, text=True)
        if result.returncode != 0:
            raise AssertionError(f"{command[:4]}\n{result.stdout}{result.stderr}")
        return result.stdout

    def noted(self):
        """The calls since the last time, each a list of words."""
        log = self.tools / "log"
        calls = [line.split() for line in log.read_text(encoding="utf-8").splitlines()] if log.exists() else []
        log.unlink(missing_ok=True)
        return calls


def files_in(folder):
    return {str(path.relative_to(folder)) for path in folder.rglob("*") if path.is_file()}


def program_files():
    """What is in the program's folder."""
    pictures = {path.name for path in (ROOT / "assets").glob("*.png")} - {"logo.png"}
    return {"palimbra", "logo.png"} | {f"assets/{name}" for name in pictures}
