# SPDX-License-Identifier: MIT
"""scripts/mutate on a project of one file."""
import pathlib
import subprocess
import sys
import tempfile
import textwrap
import unittest

MUTATE = pathlib.Path(__file__).resolve().parent.parent.parent / "scripts/mutate"

PRESETS = '{"version": 3, "configurePresets": [{"name": "ci", "generator": "Ninja", "binaryDir": "${sourceDir}/build/ci"}],' \
          ' "buildPresets": [{"name": "ci", "configurePreset": "ci"}]}'

CMAKE = """
    cmake_minimum_required(VERSION 3.22)
    project(Toy LANGUAGES CXX)
    enable_testing()
    add_executable(unit_sum unit.cpp code/sum.cpp)
    add_test(NAME unit_sum COMMAND unit_sum)
    set_tests_properties(unit_sum PROPERTIES LABELS unit)
    add_executable(adder adder.cpp code/sum.cpp)
    add_test(NAME desktop_sum COMMAND sh -c "[ `./adder` = 4 ]")
    set_tests_properties(desktop_sum PROPERTIES LABELS desktop)
    add_test(NAME desktop_broken COMMAND false)
    set_tests_properties(desktop_broken PROPERTIES LABELS desktop)
"""

SUM = """
    int sum(int one, int other)
    {
        return one + other;
    }
    int ten()
    {
        return 10;
    }
    int unused()
    {
        return 1;
    }
"""

UNIT = """
    #include <cstdio>
    int ten();
    int main()
    {
        if (ten() == 10)
            return 0;
        std::puts("[  FAILED  ] Sum.ten (0 ms)");
        return 1;
    }
"""

ADDER = """
    #include <cstdio>
    int sum(int, int);
    int main()
    {
        std::printf("%d", sum(2, 2));
    }
"""

HEAD = "# How it is written.\nprograms: adder\n\n== sum.cpp\ntests: desktop_sum unit_sum\n"
OF_UNIT = "Ten is eleven.\n-    return 10;\n+    return 11;\n"
OF_DESKTOP = "Two and two are five.\n {\n-    return one + other;\n+    return one + other + 1;\n"
OF_NOBODY = "Nobody looks at this one.\n-    return 1;\n+    return 2;\n"


class Mutate(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)
        for name, text in {"CMakePresets.json": PRESETS, "CMakeLists.txt": CMAKE, ".gitignore": "/build/\n",
                           "code/sum.cpp": SUM, "unit.cpp": UNIT, "adder.cpp": ADDER}.items():
            self.write(name, textwrap.dedent(text).lstrip("\n"))
        subprocess.run(["git", "init", "-q", self.root], check=True)

    def write(self, name, text):
        (self.root / name).parent.mkdir(parents=True, exist_ok=True)
        (self.root / name).write_text(text, encoding="utf-8")

    def mutate(self, faults, *options):
        """Its exit status and what it writes, without the seconds."""
        self.write("tests/faults/faults.txt", faults)
        before = self.files()
        ran = subprocess.run([sys.executable, MUTATE, "--project", self.root, *options], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True, check=False)
        self.assertEqual(self.files(), before, "the project itself stays as it is")
        return ran.returncode, ran.stdout

    def files(self):
        return {path.name: path.read_bytes() for path in self.root.glob("*.cpp")} | {
            path.name: path.read_bytes() for path in self.root.glob("code/*")}

    def test_says_what_is_noticed_by_which_test_and_what_survives(self):
        status, output = self.mutate(HEAD + OF_UNIT + OF_DESKTOP + OF_NOBODY)
        self.assertIn("1/3 noticed   sum.cpp: Ten is eleven. (unit_sum: Sum.ten, ", output)
        self.assertIn("2/3 noticed   sum.cpp: Two and two are five. (desktop_sum: it failed as a whole, ", output)
        self.assertIn("3/3 SURVIVED  sum.cpp: Nobody looks at this one. (", output)
        self.assertIn("2 of 3 faults are noticed: 67 %.\nSurvivors:\n  sum.cpp: Nobody looks at this one.\n", output)
        self.assertEqual(status, 1, "fewer than 90 %")
        # The copy is still there; a file that has moved is found in it, at its new place only.
        (self.root / "code/sum.cpp").rename(self.root / "sum.cpp")
        self.write("CMakeLists.txt", (self.root / "CMakeLists.txt").read_text().replace("code/", ""))
        status, output = self.mutate(HEAD + OF_UNIT + OF_DESKTOP + OF_NOBODY, "--labels", "unit", "--share", "30")
        self.assertIn("2/3 SURVIVED  sum.cpp: Two and two are five.", output)
        self.assertIn("1 of 3 faults are noticed: 33 %.", output)
        self.assertEqual(status, 0)
        status, output = self.mutate(HEAD + OF_UNIT + OF_NOBODY, "--only", "eleven")
        self.assertIn("1 of 1 faults are noticed: 100 %.", output)
        self.assertEqual(status, 0)

    def test_a_list_that_does_not_fit_is_an_error(self):
        rows = [
            (OF_UNIT.replace("10", "12"), "what it changes is there 0 times"),
            (OF_UNIT.replace("-    return 10;", "-}"), "what it changes is there 3 times"),
            (OF_UNIT.replace("11", "10"), "changes nothing"),
            ("-    return 10;\n", "a change without a sentence"),
            ("\n== total.cpp\ntests: unit_sum\n" + OF_UNIT, "no file has this name"),
            ("\n== sum.cpp\n" + OF_UNIT, "a fault without a file and its tests"),
        ]
        for faults, error in rows:
            with self.subTest(error):
                status, output = self.mutate(HEAD + faults, "--check")
                self.assertIn(error, output)
                self.assertEqual(status, 2)
        self.write("other/sum.cpp", "")
        self.assertIn("several files have this name", self.mutate(HEAD + OF_UNIT, "--check")[1])

    def test_a_fault_that_proves_nothing_is_an_error(self):
        rows = [
            (HEAD + OF_UNIT.replace("11;", "eleven;"), "Ten is eleven.: does not build"),
            (HEAD.replace("desktop_sum", "desktop_all") + OF_UNIT, "there is no test desktop_all"),
            (HEAD.replace("desktop_sum", "desktop_broken") + OF_NOBODY, "desktop_broken fails without a fault"),
        ]
        for faults, error in rows:
            with self.subTest(error):
                status, output = self.mutate(faults)
                self.assertIn(error, output)
                self.assertEqual(status, 2)

    def test_checks_and_lists(self):
        self.assertEqual(self.mutate(HEAD + OF_UNIT + OF_NOBODY, "--check"), (0, "2 faults in 1 files fit.\n"))
        self.assertEqual(self.mutate(HEAD + OF_UNIT, "--list"), (0, "sum.cpp: Ten is eleven. (desktop_sum unit_sum)\n"))


if __name__ == "__main__":
    unittest.main()
