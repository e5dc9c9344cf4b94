# SPDX-License-Identifier: MIT
"""What the tests of the scripts have in common: a small tree under git, with copies of the scripts."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def require(*tools):
    """Skips where one of the tools is missing; where nothing may be missing, fails."""
    missing = [tool for tool in tools if not shutil.which(tool)]
    if missing and os.environ.get("TARNWICK_REQUIRE_TOOLS") == "1":
        raise RuntimeError(f"missing: {', '.join(missing)}")
    if missing:
        raise unittest.SkipTest(f"missing: {', '.join(missing)}")


class TreeTest(unittest.TestCase):
    """Each test has a tree of its own."""

    copied = ()

    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="tarnwick-")
        self.addCleanup(directory.cleanup)
        self.root = pathlib.Path(directory.name).resolve() / "tree"
        self.environment = {**os.environ, "XDG_CACHE_HOME": str(self.root.parent / "cache"), "CI": "",
                            "GIT_CEILING_DIRECTORIES": str(self.root.parent)}
        for name in self.copied:
            self.write(name, (ROOT / name).read_text(encoding="utf-8"))
            shutil.copymode(ROOT / name, self.root / name)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def under_git(self):
        subprocess.run(["git", "init", "-q", self.root], check=True)

    def run_script(self, *words):
        """The status, and all that was printed."""
        result = subprocess.run([self.root / words[0], *map(str, words[1:])], env=self.environment, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        return result.returncode, result.stdout

    def assert_passes(self, *words):
        status, output = self.run_script(*words)
        self.assertEqual(status, 0, output)
        return output

    def assert_fails(self, *words):
        status, output = self.run_script(*words)
        self.assertNotEqual(status, 0, output)
        return output
