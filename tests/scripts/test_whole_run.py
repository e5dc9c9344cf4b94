#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What scripts/test runs in the Debian 13 and with which libc++, and what it says where it has none; all that it calls is stood in for."""
import unittest

from tree import TreeTest

ONE_LIBCXX = 'echo "apt offers no two versions." >&2\nexit 125'
NO_ROOT = 'echo "This machine lets nobody make namespaces." >&2\nexit 125'


class WholeRun(TreeTest):
    copied = ("scripts/test", "scripts/lib/meanwhile.sh")

    def setUp(self):
        super().setUp()
        self.log = self.root.parent / "log"
        self.tools = self.root.parent / "bin"
        self.environment["PATH"] = f"{self.tools}:{self.environment['PATH']}"
        self.write("scripts/lib/packages.sh", "need_packages() { :; }\n"
                   + "".join(f"{kind}_PACKAGES=(one)\n" for kind in ("BUILD", "RUN", "DEMO", "PACKAGE", "TEST", "FUZZ")))
        for name in ("check-apple-build", "check-format", "check-lint"):
            self.stand_in(f"scripts/lib/{name}", f'echo "{name} ${{IN_ROOT:-no}} ${{LIBCXX:+$LIBCXX }}$*" >>"{self.log}"')
        self.stand_in("scripts/lib/check-skipped", 'echo "Skipped: nothing of $*."')
        self.stand_in("scripts/lib/with-libcxx", f'echo "with-libcxx $*" >>"{self.log}"\n'
                                                 'which=$1\nshift\n[ $# -eq 0 ] || LIBCXX=$which exec "$@"')
        self.stand_in("scripts/in-root", 'shift\n[ $# -eq 0 ] || IN_ROOT=yes exec "$@"')
        for name in ("cmake", "ctest"):
            self.stand_in(self.tools / name, f'echo "{name} ${{IN_ROOT:-no}} $*" >>"{self.log}"')
        self.stand_in(self.tools / "ccache", "exit 1")

    def stand_in(self, name, text):
        self.write(name, f"#!/usr/bin/env bash\n{text}\n").chmod(0o755)

    def called(self, beginning):
        return [line for line in self.log.read_text(encoding="utf-8").splitlines() if line.startswith(beginning)]

    def test_builds_and_tests_in_the_root(self):
        output = self.assert_passes("scripts/test")
        self.assertIn("Skipped: nothing of build/ci build/asan build/fuzz build/trixie.", output)
        self.assertNotIn("Left out", output)
        self.assertEqual(self.called("cmake yes"), ["cmake yes --preset trixie", "cmake yes --build --preset trixie"])
        self.assertEqual(len(self.called("ctest yes --preset trixie ")), 1)
        self.assertEqual(len(self.called("ctest no --preset trixie")), 0)

    def test_compiles_apples_build_with_the_oldest_and_the_newest_library(self):
        self.assert_passes("scripts/test")
        self.assertEqual(self.called("with-libcxx")[:2], ["with-libcxx oldest", "with-libcxx newest"], "fetched before anything")
        self.assertEqual(self.called("check-apple-build"),
                         ["check-apple-build no oldest build/ci", "check-apple-build no newest build/ci"])

    def test_what_only_one_of_the_libraries_refuses_is_a_failure(self):
        for which in ("oldest", "newest"):
            self.stand_in("scripts/lib/check-apple-build", f'[ "$LIBCXX" != {which} ]')
            self.assertIn("Failed: Lint, and the other builds", self.assert_fails("scripts/test"))

    def test_where_there_are_no_two_libraries_the_one_that_is_there_is_taken(self):
        self.stand_in("scripts/lib/with-libcxx", ONE_LIBCXX)
        output = self.assert_passes("scripts/test")
        self.assertIn("apt offers no two versions.", output)
        self.assertIn("Left out: Apple's build with the oldest and the newest libc++", output)
        self.assertEqual(self.called("check-apple-build"), ["check-apple-build no build/ci"])

    def test_where_there_are_no_two_libraries_ci_fails(self):
        self.stand_in("scripts/lib/with-libcxx", ONE_LIBCXX)
        self.environment["CI"] = "true"
        self.assertIn("Failed: The oldest and the newest libc++", self.assert_fails("scripts/test"))

    def test_quick_does_not_enter_it(self):
        self.stand_in("scripts/in-root", "exit 1")
        self.assertIn("nothing of build/ci.", self.assert_passes("scripts/test", "--quick"))

    def test_where_there_can_be_none_it_is_told_what_was_left_out(self):
        self.stand_in("scripts/in-root", NO_ROOT)
        output = self.assert_passes("scripts/test")
        self.assertIn("This machine lets nobody make namespaces.", output)
        self.assertIn("Left out: build and tests in a Debian 13", output)
        self.assertIn("nothing of build/ci build/asan build/fuzz.", output)

    def test_where_there_can_be_none_ci_fails(self):
        self.stand_in("scripts/in-root", NO_ROOT)
        self.environment["CI"] = "true"
        output = self.assert_fails("scripts/test")
        self.assertIn("This machine lets nobody make namespaces.", output)
        self.assertIn("Failed: The build in a Debian 13", output)

    def test_a_build_that_fails_there_is_a_failure(self):
        self.stand_in(self.tools / "cmake", '[ "${IN_ROOT:-no}" = no ]')
        self.assertIn("Failed: The build in a Debian 13", self.assert_fails("scripts/test"))
        self.assertEqual(self.called("ctest yes"), [])

    def test_a_build_that_ends_as_if_there_were_no_root_is_a_failure(self):
        self.stand_in(self.tools / "cmake", '[ "${IN_ROOT:-no}" = no ] || exit 125')
        self.assertIn("Failed: The build in a Debian 13", self.assert_fails("scripts/test"))

    def test_tests_that_fail_there_are_a_failure(self):
        self.stand_in(self.tools / "ctest", '[ "${IN_ROOT:-no}" = no ]')
        self.assertIn("Failed: Tests in a Debian 13", self.assert_fails("scripts/test"))


if __name__ == "__main__":
    unittest.main()
