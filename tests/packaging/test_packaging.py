#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Installs the build in the folder that is given, and looks at what came out with the tools of those who take it."""
import configparser
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
NAME = "example.quorlane.Tarnwick"
BUILD = pathlib.Path()
VERSION = re.search(r"project\(Tarnwick VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text()).group(1)

INSTALLED = {
    "bin/tarnwick",
    "bin/tarnwick-inspect",
    f"share/applications/{NAME}.desktop",
    f"share/dbus-1/services/{NAME}.service",
    f"share/metainfo/{NAME}.metainfo.xml",
    f"share/icons/hicolor/48x48/apps/{NAME}.png",
    f"share/icons/hicolor/scalable/apps/{NAME}.svg",
    f"share/icons/hicolor/symbolic/apps/{NAME}-symbolic.svg",
    "share/man/man1/tarnwick.1.gz",
    "share/man/man1/tarnwick-inspect.1.gz",
    "share/doc/tarnwick/copyright",
    "share/gnome-shell/extensions/tarnwick@quorlane.example/extension.js",
    "share/gnome-shell/extensions/tarnwick@quorlane.example/metadata.json",
    "share/glib-2.0/schemas/org.gnome.shell.extensions.tarnwick.gschema.xml",
}


def require(tool):
    """Skips the test where the tool is missing; where nothing may be missing, fails."""
    if shutil.which(tool):
        return
    if os.environ.get("TARNWICK_REQUIRE_TOOLS") == "1":
        raise RuntimeError(f"missing: {tool}")
    raise unittest.SkipTest(f"missing: {tool}")


def output_of(*command, **options):
    """What a program prints, both ways; fails with that when the program does."""
    result = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, check=False, **options)
    if result.returncode != 0:
        raise AssertionError(f"{command[0]} ended with {result.returncode}:\n{result.stdout}")
    return result.stdout


def files_below(directory):
    return {str(path.relative_to(directory)) for path in directory.rglob("*") if not path.is_dir()}


def entry_of(path):
    entry = configparser.RawConfigParser(interpolation=None, delimiters="=")
    entry.optionxform = str
    entry.read(path, encoding="utf-8")
    return entry


class PackagingTest(unittest.TestCase):
    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="tarnwick-packaging-"))
        self.addCleanup(shutil.rmtree, self.directory)

    def install(self, prefix="prefix", **environment):
        output_of("cmake", "--install", BUILD, "--prefix", self.directory / prefix, "--strip",
                  env={**os.environ, **environment})
        return self.directory / prefix


class AnInstallation(PackagingTest):
    def test_has_everything_in_any_prefix(self):
        self.assertEqual(INSTALLED - files_below(self.install()), set())

    def test_is_found_by_what_it_says_of_itself(self):
        for prefix in ("plain", "with space"):
            with self.subTest(prefix):
                program = f"{self.install(prefix)}/bin/tarnwick"
                written = f'"{program}"' if " " in program else program
                share = self.directory / prefix / "share"
                entry = entry_of(share / f"applications/{NAME}.desktop")["Desktop Entry"]
                self.assertEqual((entry["Exec"], entry["TryExec"]), (written, program))
                service = entry_of(share / f"dbus-1/services/{NAME}.service")["D-BUS Service"]
                self.assertEqual((service["Name"], service["Exec"]), (NAME, written))

    def test_names_its_final_place_when_it_is_staged(self):
        staged = self.directory / "stage"
        output_of("cmake", "--install", BUILD, "--prefix", "/opt/tarnwick", env={**os.environ, "DESTDIR": str(staged)})
        self.assertEqual(INSTALLED - files_below(staged / "opt/tarnwick"), set())
        entry = entry_of(staged / f"opt/tarnwick/share/applications/{NAME}.desktop")
        self.assertEqual(entry["Desktop Entry"]["Exec"], "/opt/tarnwick/bin/tarnwick")

    def test_goes_without_a_trace(self):
        prefix = self.install()
        output_of("cmake", f"-DMANIFEST={BUILD}/install_manifest.txt", "-P", ROOT / "packaging/linux/uninstall.cmake")
        self.assertEqual(files_below(prefix), set())

    def test_runs_from_where_it_is(self):
        version = output_of(self.install() / "bin/tarnwick-inspect", "--version")
        self.assertEqual(version.strip(), f"tarnwick-inspect {VERSION}")


class WhatOthersRead(PackagingTest):
    def setUp(self):
        super().setUp()
        self.share = self.install() / "share"

    def test_asks_kwin_to_tell_of_windows(self):
        entry = entry_of(self.share / f"applications/{NAME}.desktop")["Desktop Entry"]
        self.assertEqual(entry["X-KDE-Wayland-Interfaces"], "org_kde_plasma_window_management")

    def test_is_a_valid_desktop_entry(self):
        require("desktop-file-validate")
        self.assertEqual(output_of("desktop-file-validate", self.share / f"applications/{NAME}.desktop"), "")

    def test_is_valid_software_metadata(self):
        require("appstreamcli")
        output_of("appstreamcli", "validate", "--no-net", self.share / f"metainfo/{NAME}.metainfo.xml")

    def test_is_a_clean_man_page_for_each_program(self):
        require("mandoc")
        for program in ("tarnwick", "tarnwick-inspect"):
            with self.subTest(program):
                page = self.share / f"man/man1/{program}.1.gz"
                self.assertEqual(output_of("mandoc", "-T", "lint", "-W", "warning", page), "")
                self.assertIn(f"Tarnwick {VERSION}", output_of("mandoc", "-T", "ascii", page))

    def test_tells_every_option_of_the_inspector(self):
        require("mandoc")
        told = output_of("mandoc", "-T", "ascii", self.share / "man/man1/tarnwick-inspect.1.gz")
        told = re.sub(".\b", "", told)
        options = re.findall(r"--[a-z]+", output_of(self.share.parent / "bin/tarnwick-inspect", "--help"))
        self.assertIn("--all", options)
        for option in set(options) - {"--help-all"}:
            self.assertIn(option, told)

    def test_is_an_icon_of_each_size_that_belongs_to_the_drawing(self):
        output_of(sys.executable, ROOT / "scripts/render_icons", "--check")

    def test_has_the_version_of_the_build(self):
        self.assertIn(f'<release version="{VERSION}"', (self.share / f"metainfo/{NAME}.metainfo.xml").read_text())
        self.assertIn(f"## {VERSION} ", (ROOT / "CHANGELOG.md").read_text())


class TheDebianPackage(PackagingTest):
    def setUp(self):
        super().setUp()
        for tool in ("dpkg-deb", "dpkg-shlibdeps", "file"):
            require(tool)
        output_of("cpack", "--config", BUILD / "CPackConfig.cmake", "-B", self.directory)
        self.package = next(self.directory.glob("tarnwick_*.deb"))

    def field(self, name):
        return output_of("dpkg-deb", "--field", self.package, name).strip()

    def test_is_what_its_name_says(self):
        self.assertEqual(self.field("Package"), "tarnwick")
        self.assertTrue(self.field("Version").startswith(f"{VERSION}-1"))
        self.assertEqual(self.field("Maintainer"), "The Tarnwick authors <maintainers@tarnwick.example>")

    def test_depends_on_its_libraries_and_on_the_accessibility_bus(self):
        depends = [part.split()[0] for part in self.field("Depends").split(", ")]
        for name in ("at-spi2-core", "libsystemd0", "libxcb-xinput0", "libxkbcommon-x11-0"):
            self.assertIn(name, depends)
        self.assertTrue(any(name.startswith("libqt6widgets6") for name in depends))

    def test_holds_what_an_installation_holds(self):
        unpacked = self.directory / "unpacked"
        output_of("dpkg-deb", "--extract", self.package, unpacked)
        self.assertEqual(INSTALLED - files_below(unpacked / "usr"), set())
        entry = entry_of(unpacked / f"usr/share/applications/{NAME}.desktop")
        self.assertEqual(entry["Desktop Entry"]["Exec"], "/usr/bin/tarnwick")

    def test_is_clean_in_the_eyes_of_lintian(self):
        require("lintian")
        output_of("lintian", "--allow-root", "--fail-on", "error,warning", "--suppress-tags",
                  "initial-upload-closes-no-bugs", self.package)


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(f"usage: {sys.argv[0]} BUILD-FOLDER [test...]")
    BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
