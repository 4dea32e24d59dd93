#!/usr/bin/env python3
"""What platform_headers finds and lets pass, with a few headers that stand in for Haiku's."""

import re
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
HERE = Path(__file__).resolve().parent
CLIENT = HERE.parents[2] / "src"

from stand_in import write_headers


class PlatformHeadersTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = Path(temporary.name)
        self.headers, self.source = self.folder / "headers", self.folder / "source"
        self.source.mkdir()
        write_headers(self.headers)

    def compile(self, width, *options, **sources):
        """The exit code and what was said."""
        for name, text in sources.items():
            (self.source / f"{name}.cpp").write_text(text, encoding="utf-8")
        result = subprocess.run([str(HERE.parent / "platform_headers"), "--headers", str(self.headers), "--width", width,
            "--source", str(self.source), *options], capture_output=True, text=True)
        return result.returncode, result.stdout + result.stderr

    def expect_pass(self, width, *options, **sources):
        code, said = self.compile(width, *options, **sources)
        self.assertEqual((0, f"{len(sources)} of {len(sources)} sources compile at {width} bits\n"), (code, said))

    def expect_failure(self, width, message, **sources):
        code, said = self.compile(width, **sources)
        self.assertEqual(1, code, said)
        self.assertRegex(said, message)
        return said

    def test_whatever_the_client_includes_of_the_standard_library_compiles(self):
        found = {name for path in CLIENT.rglob("*.[ch]*") for name in
            re.findall(r"#include <([a-z_]+)>", path.read_text(encoding="utf-8"))}
        self.assertIn("memory", found)
        code = "".join(f"#include <{name}>\n" for name in sorted(found)) + """
            #include <Message.h>
            #include <SupportDefs.h>
            static_assert(sizeof(size_t) == sizeof(void*), "");
            std::unique_ptr<int> gNumber(new int(std::min<int32>(1, 2)));
            std::mutex gLock;
            const void* Find(const BMessage& message) {
                std::lock_guard<std::mutex> locker(gLock);
                return message.GetPointer("name");
            }"""
        for width in ("32", "64"):
            self.expect_pass(width, fine=code)

    def test_the_types_are_those_of_the_platform(self):
        code = """
            #include <cstddef>
            #include <SupportDefs.h>
            #if !defined(__HAIKU__) || defined(__linux__) || defined(__unix__) || defined(_GNU_SOURCE)
            #error another platform
            #endif
            template<typename A, typename B> struct Same { static const bool kIs = false; };
            template<typename A> struct Same<A, A> { static const bool kIs = true; };
            static_assert(Same<size_t, unsigned long>::kIs, "");
            static_assert(Same<int32, %s>::kIs, "");"""
        self.expect_pass("32", types=code % "long")
        self.expect_pass("64", types=code % "int")

    def test_an_ambiguous_call_fails_with_its_message(self):
        for width in ("32", "64"):
            self.expect_failure(width, r"call\.cpp:2:.*call to member function 'GetPointer' is ambiguous",
                call='#include <Message.h>\nconst void* F(BMessage& message) { return message.GetPointer("a", 0u); }\n')

    def test_what_is_ambiguous_at_32_bits_alone_fails_there_alone(self):
        code = "#include <ListView.h>\nvoid F(BListView& list) { list.RemoveItem(0); }\n"
        self.expect_pass("64", remove=code)
        self.expect_failure("32", "call to member function 'RemoveItem' is ambiguous", remove=code)

    def test_headers_of_this_machine_are_out_of_reach(self):
        for header in ("sys/epoll.h", "linux/types.h", "bits/types.h", "gtest/gtest.h"):
            with self.subTest(header):
                self.expect_failure("64", f"'{re.escape(header)}' file not found", far=f"#include <{header}>\n")

    def test_headers_of_this_machine_that_are_named_by_their_path_are_told(self):
        self.expect_failure("64", "reads /usr/include/linux/limits.h, which is not Haiku's",
            path='#include "/usr/include/linux/limits.h"\n')

    def test_headers_that_the_platform_keeps_to_itself_are_out_of_reach(self):
        for header in ("private/shared/Secret.h", "Secret.h", "shared/Secret.h"):
            with self.subTest(header):
                self.expect_failure("64", f"'{header}' file not found", private=f"#include <{header}>\n")

    def test_headers_of_the_kits_are_out_of_reach(self):
        self.expect_failure("64", "'Window.h' file not found", kits="#include <Window.h>\n")

    def test_what_the_platform_adds_to_posix_comes_first_and_goes_on(self):
        self.expect_pass("64", bsd="#include <cstring>\nint gLength = BSD_CAME_FIRST + (int)std::strlen(\"\");\n")

    def test_warnings_that_were_asked_for_are_errors_unless_the_platform_causes_them(self):
        (self.headers / "os/support/Loose.h").write_text("inline int Loose(int unused) { return 1; }\n", encoding="utf-8")
        code = "#include <Loose.h>\nint F(int %s) { return 0; }\n"
        self.expect_pass("64", "-Wextra", "-Wall", loose=code % "")
        code, said = self.compile("64", "-Wextra", "-Wall", loose=code % "unused")
        self.assertEqual(1, code)
        self.assertRegex(said, r"loose.cpp:2:.*unused parameter")

    def test_definitions_arrive(self):
        self.expect_pass("64", "--define", 'NAME="a/b"', text="const char* const kName = NAME;\nextern const char* const* gName;\n")

    def test_all_errors_of_all_sources_are_told_by_source(self):
        said = self.expect_failure("64", "1 of 3 sources compile", first="int gA = a;\nint gB = b;\n", second="int gC = c;\n",
            third="extern int gD;\n")
        first, second = said.index("== first.cpp\n"), said.index("== second.cpp\n")
        self.assertLess(first, said.index("identifier 'a'"))
        self.assertLess(said.index("identifier 'b'"), second)
        self.assertLess(second, said.index("identifier 'c'"))
        self.assertNotIn("third.cpp", said)

    def test_another_folder_or_no_source_is_an_error(self):
        self.assertIn("has no sources", self.compile("64")[1])
        self.headers = self.source
        code, said = self.compile("64", any="int gA;\n")
        self.assertNotEqual(0, code)
        self.assertIn("has no os/ and posix/", said)


if __name__ == "__main__":
    unittest.main()
