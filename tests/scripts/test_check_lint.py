#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Whether scripts/lib/check-lint tells what clang-tidy finds, looks at nothing twice, and looks again when anything that
matters has changed."""
import json
import os
import shutil
import unittest

from tree import TreeTest, require

SCRIPT = "scripts/lib/check-lint"
SETTINGS = "Checks: '-*,modernize-use-nullptr'\nWarningsAsErrors: '*'\nHeaderFilterRegex: '/app/'\n"
CLEAN = '#include "app/Clean.h"\n#if __has_include("app/Perhaps.h")\n#define THERE 1\n#endif\nint* nothing() { return NOTHING; }\n'
FAULT = "int* nothing() { return 0; }\n"
MARKED = "// A mark\nint* marked() { return 0; } // NOLINT\n"


class CheckLint(TreeTest):
    copied = (SCRIPT,)

    def setUp(self):
        require("git", "clang-tidy", "clang++")
        super().setUp()
        self.under_git()
        self.write(".clang-tidy", SETTINGS)
        self.write("app/Clean.h", "#pragma once\n#define NOTHING nullptr\n")
        self.write("app/Clean.cpp", CLEAN)
        self.compile("app/Clean.cpp")

    def compile(self, *files, flags=()):
        """The compilation database of a build that compiles these files."""
        entries = [{"directory": str(self.root / "build/ci"), "file": str(self.root / file),
                    "arguments": ["/usr/bin/ccache", "/usr/bin/c++", "-I", str(self.root / "first"), "-I", str(self.root),
                                  *flags, "-o", "object.o", "-c", str(self.root / file)]} for file in files]
        self.write("build/ci/compile_commands.json", json.dumps(entries))

    def assert_known(self, known, of=1):
        output = self.assert_passes(SCRIPT)
        self.assertIn(f"{of} files are clean; {known} of them were known to be.", output)

    def test_tells_what_is_found_and_never_remembers_it(self):
        self.write("app/Fault.cpp", FAULT)
        self.compile("app/Clean.cpp", "app/Fault.cpp")
        for _ in range(2):
            output = self.assert_fails(SCRIPT)
            self.assertIn("Fault.cpp:1:25: error: use nullptr", output)
            self.assertNotIn("Clean.cpp", output)

    def test_knows_what_was_clean(self):
        self.assert_known(0)
        self.assert_known(1)

    def test_knows_it_in_another_clone(self):
        self.assert_known(0)
        other = self.root.parent / "clone"
        shutil.copytree(self.root, other)
        self.root = other
        self.compile("app/Clean.cpp")
        self.assert_known(1)

    def test_looks_again_when_something_changes(self):
        changes = {
            "a header": lambda: self.write("app/Clean.h", "#pragma once\n#define NOTHING 0\n#undef NOTHING\n"
                                                          "#define NOTHING nullptr\n"),
            "a comment": lambda: self.write("app/Clean.cpp", CLEAN + "// more\n"),
            "a definition": lambda: self.compile("app/Clean.cpp", flags=("-DMORE",)),
            "a warning": lambda: self.compile("app/Clean.cpp", flags=("-Wextra",)),
            "a header that comes before another": lambda: self.write("first/app/Clean.h", "#define NOTHING nullptr\n"),
            "a header that is asked for only": lambda: self.write("app/Perhaps.h", ""),
            "the settings": lambda: self.write(".clang-tidy", SETTINGS.replace("'-*,", "'-*,bugprone-*,")),
            "settings that are nearer": lambda: self.write("app/.clang-tidy", SETTINGS),
            "settings far above": lambda: self.write("../.clang-tidy", SETTINGS),
        }
        self.assert_known(0)
        for what, change in changes.items():
            with self.subTest(what):
                change()
                self.assert_known(0)
                self.assert_known(1)

    def test_finds_what_a_comment_has_hidden(self):
        self.write("app/Clean.h", MARKED + "#define NOTHING nullptr\n")
        self.assert_known(0)
        self.write("app/Clean.h", MARKED.replace(" // NOLINT", "") + "#define NOTHING nullptr\n")
        self.assertIn("Clean.h:2:24: error", self.assert_fails(SCRIPT))

    def test_looks_again_with_another_clang_tidy(self):
        self.assert_known(0)
        real = shutil.which("clang-tidy")
        tool = self.write("../bin/clang-tidy", f'#!/bin/sh\n[ "$1" = --version ] && echo 99 && exit\nexec {real} "$@"\n')
        tool.chmod(0o755)
        self.environment["PATH"] = f"{tool.resolve().parent}:{os.environ['PATH']}"
        self.assert_known(0)

    def test_remembers_nothing_where_it_cannot_write(self):
        self.environment["XDG_CACHE_HOME"] = str(self.write("no-folder", ""))
        for _ in range(2):
            self.assert_known(0)

    def test_fails_where_clang_tidy_does(self):
        tool = self.write("../bin/clang-tidy", '#!/bin/sh\n[ "$1" = --version ] && exit\necho broken >&2; exit 3\n')
        tool.chmod(0o755)
        self.environment["PATH"] = f"{tool.resolve().parent}:{os.environ['PATH']}"
        self.assertIn("broken", self.assert_fails(SCRIPT))

    def test_fails_where_a_file_is_not_compiled(self):
        self.write("menu/Forgotten.cpp", "")
        self.assertIn("menu/Forgotten.cpp", self.assert_fails(SCRIPT))

    def test_reads_no_header_that_another_compiler_has_read_ahead(self):
        self.write("build/ci/cmake_pch.hxx", "#define MISSING nullptr\n")
        self.write("build/ci/cmake_pch.hxx.gch", "gpch of another compiler")
        words = ("-Winvalid-pch", "-include", str(self.root / "build/ci/cmake_pch.hxx"))
        self.compile("app/Clean.cpp", flags=words)
        self.assert_known(0)
        self.write("app/Lacking.cpp", "int* nothing() { return MISSING; }\n")
        self.compile("app/Lacking.cpp", "app/Clean.cpp", flags=words)
        self.assertIn("use of undeclared identifier 'MISSING'", self.assert_fails(SCRIPT))
        self.write("app/First.h", "#define MISSING nullptr\n")
        self.compile("app/Lacking.cpp", "app/Clean.cpp", flags=("-include", str(self.root / "app/First.h")))
        self.assert_passes(SCRIPT)

    def test_leaves_what_newer_systems_compile_to_them(self):
        self.write("platform/linux/wayland/Fault.cpp", FAULT)
        self.write("platform/linux/openWaylandDesktop.cpp", FAULT)
        self.assert_known(0)
        self.compile("app/Clean.cpp", "platform/linux/wayland/Fault.cpp")
        self.assertIn("wayland/Fault.cpp:1:25: error", self.assert_fails(SCRIPT))

    def test_looks_there_at_nothing_else(self):
        self.write("app/Fault.cpp", FAULT)
        self.write("platform/linux/wayland/Clean.cpp", CLEAN)
        self.compile("app/Fault.cpp", "platform/linux/wayland/Clean.cpp")
        shutil.rmtree(self.root / ".git")
        output = self.assert_passes(SCRIPT, "build/ci", "--newer")
        self.assertIn("1 files are clean; 0 of them were known to be.", output)
        self.write("platform/linux/openWaylandDesktop.cpp", CLEAN)
        self.assertIn("openWaylandDesktop.cpp: ", self.assert_fails(SCRIPT, "build/ci", "--newer"))

    def test_fails_where_there_is_none_for_newer_systems(self):
        self.assertIn("nothing was checked", self.assert_fails(SCRIPT, "build/ci", "--newer"))

    def test_fails_where_git_does(self):
        shutil.rmtree(self.root / ".git")
        self.assertIn("nothing was checked", self.assert_fails(SCRIPT))

    def test_fails_where_there_is_no_file(self):
        (self.root / "app/Clean.cpp").unlink()
        self.assertIn("nothing was checked", self.assert_fails(SCRIPT))


if __name__ == "__main__":
    unittest.main()
