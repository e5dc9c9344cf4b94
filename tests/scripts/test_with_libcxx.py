#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Which clang and libc++ scripts/lib/with-libcxx takes, when it fetches them, and what it says where it cannot. What apt
offers is played, and so is what would be in the packages."""
import os
import subprocess
import unittest

from tree import TreeTest, require

SCRIPT = "scripts/lib/with-libcxx"
NONE = 125

APT_CACHE = """
if [ "$1" = search ]; then
    for version in {versions}; do
        printf '%s\\n' "libc++-$version-dev - LLVM C++ Standard library" "clang-$version - C compiler"
    done
    echo "{other}"
else
    version=${{4#clang-}}
    printf '%s\\n' "clang-$version" "  Depends: libllvm$version" "libllvm$version" "libclang-cpp${{version}}t64" \\
        "libc++-$version-dev" "libc++abi-$version-dev" "libc6" "libstdc++-$version-dev" "gcc-$version-base" "libllvm1$version"
fi
"""
APT_GET = """
echo "apt-get $*" >>"{said}"
case "$*" in
    *--print-uris*) shift 2; for package; do echo "'http://mirror.invalid/$package.deb' $package.deb 1 SHA256:{revision}"; done ;;
    *" download "*) {download} ;;
esac
"""
# A package has its own name in it, and that of clang the compiler.
DPKG = """
case "$2" in
    */clang-*)
        version=${{2##*-}}
        bin=$3/usr/lib/llvm-${{version%.deb}}/bin
        mkdir -p "$bin" "$3/usr/lib/x86_64-linux-gnu"
        printf '%s\\n' '#!/bin/sh' '{compiler}' >"$bin/clang++"
        chmod 755 "$bin/clang++" ;;
esac
"""


class WithLibcxx(TreeTest):
    copied = (SCRIPT, "scripts/lib/packages.sh")

    def setUp(self):
        require("flock")
        super().setUp()
        self.said = self.root.parent / "said"
        self.folder = self.root.parent / "cache/tarnwick/libcxx"
        self.environment["PATH"] = f"{self.root.parent}/bin:{os.environ['PATH']}"
        self.play("id", "echo 0")
        self.offer("9", "13", "22")
        self.play_apt_get()
        self.play("dpkg", DPKG.format(compiler='echo "clang of $0, libraries of $LD_LIBRARY_PATH"'))

    def play(self, name, script):
        program = self.root.parent / "bin" / name
        program.parent.mkdir(exist_ok=True)
        program.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        program.chmod(0o755)

    def offer(self, *versions, other=""):
        self.play("apt-cache", APT_CACHE.format(versions=" ".join(versions), other=other))

    def play_apt_get(self, revision="a", download='shift 4; for package; do touch "$package.deb"; done'):
        self.play("apt-get", APT_GET.format(said=self.said, revision=revision, download=download))

    def downloads(self):
        lines = self.said.read_text(encoding="utf-8").splitlines() if self.said.exists() else []
        return [line.split(" download ")[1] for line in lines if "-o APT::Sandbox::User=root download " in line]

    def assert_refuses(self, *words):
        status, output = self.run_script(SCRIPT, *words)
        self.assertEqual(status, NONE, output)
        return output

    def test_it_tells_how_it_is_used(self):
        for words in ((), ("eldest", "true")):
            self.assertIn("Usage: scripts/lib/with-libcxx oldest|newest", self.assert_refuses(*words))

    def test_the_oldest_and_the_newest_are_found_by_their_numbers(self):
        for which, version in (("oldest", 9), ("newest", 22)):
            output = self.assert_passes(SCRIPT, which, "clang++")
            unpacked = f"{self.folder}/{version}/unpacked/usr/lib"
            self.assertIn(f"With clang and libc++ {version}, the {which} that apt offers:\n"
                          f"clang of {unpacked}/llvm-{version}/bin/clang++, "
                          f"libraries of {unpacked}/x86_64-linux-gnu:{unpacked}/llvm-{version}/lib\n", output)

    def test_what_is_of_the_version_is_fetched_and_nothing_else(self):
        self.assert_passes(SCRIPT, "newest")
        self.assertEqual(self.downloads(), ["clang-22 libc++-22-dev libc++abi-22-dev libclang-cpp22t64 libllvm22"])

    def test_a_version_without_its_clang_does_not_count(self):
        self.offer("13", "22", other="libc++-30-dev - LLVM C++ Standard library")
        self.assertIn("libc++ 22", self.assert_passes(SCRIPT, "newest", "true"))

    def test_they_are_fetched_once(self):
        for _ in range(2):
            self.assert_passes(SCRIPT, "oldest")
        self.assertEqual(len(self.downloads()), 1)

    def test_another_revision_is_fetched_anew(self):
        self.assert_passes(SCRIPT, "oldest")
        old = self.folder / "9/unpacked/old"
        old.touch()
        self.play_apt_get(revision="b")
        self.assert_passes(SCRIPT, "oldest")
        self.assertEqual(len(self.downloads()), 2)
        self.assertFalse(old.exists())

    def test_what_was_not_finished_is_begun_anew(self):
        self.play_apt_get(download="touch clang-9.deb; echo E: No network; exit 100")
        self.assertIn("E: No network\nclang and libc++ 9 could not be fetched", self.assert_refuses("oldest", "true"))
        self.play_apt_get()
        self.assert_passes(SCRIPT, "oldest", "clang++")
        self.assertEqual(len(self.downloads()), 2)

    def test_one_version_is_told(self):
        self.offer("14")
        self.assertIn("no two versions of libc++ with their clang here, only: 14.", self.assert_refuses("oldest", "true"))
        self.offer()
        self.assertIn("only: none.", self.assert_refuses("newest", "true"))

    def test_lists_that_are_not_there_are_asked_for(self):
        lists = self.root.parent / "lists"
        later = APT_CACHE.format(versions="13 22", other="")
        self.play("apt-cache", f'[ -e "{lists}" ] || exit 0\n{later}')
        self.play("apt-get", f'[ "$*" != "-q update" ] || touch "{lists}"\n'
                  + APT_GET.format(said=self.said, revision="a", download='shift 4; for package; do touch "$package.deb"; done'))
        self.assertIn("libc++ 22", self.assert_passes(SCRIPT, "newest", "true"))

    def test_a_clang_that_does_not_run_here_is_told_and_not_kept(self):
        self.play("dpkg", DPKG.format(compiler="echo libz3.so.4: no such file; exit 127"))
        for _ in range(2):
            self.assertIn("libz3.so.4: no such file\nclang 22 does not run here", self.assert_refuses("newest", "true"))

    def test_a_clang_that_takes_the_library_of_the_system_is_told(self):
        require("clang++")
        self.play("dpkg", DPKG.format(compiler='exec /usr/bin/clang++ "$@"'))
        self.assertIn("clang 9 does not run here with a libc++ of its own", self.assert_refuses("oldest", "true"))

    def test_a_command_gets_its_arguments_and_input_and_gives_its_status(self):
        result = subprocess.run([self.root / SCRIPT, "oldest", "sh", "-c", 'cat; echo "$1|$2"; exit 42', "sh", "a  b", "*"],
                                env=self.environment, input="typed\n", text=True, stdout=subprocess.PIPE, check=False)
        self.assertEqual((result.returncode, result.stdout), (42, "typed\na  b|*\n"))


if __name__ == "__main__":
    unittest.main()
