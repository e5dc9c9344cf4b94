#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks at what the bundle for macOS is made of, where no bundle can be built: its property lists, its icon, its preset."""
import json
import os
import pathlib
import plistlib
import re
import struct
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging/macos"
BUNDLE = (PACKAGING / "bundle.cmake").read_text(encoding="utf-8")
VERSION = re.search(r"project\(Tarnwick VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text()).group(1)
PRESETS = {preset["name"]: preset for preset in json.loads((ROOT / "CMakePresets.json").read_text())["configurePresets"]}
MACOS = PRESETS["macos"]["cacheVariables"]
IDENTIFIER = "example.quorlane.Tarnwick"


def values():
    """What CMake puts into Info.plist: the bundle's properties, and the variables of the preset."""
    found = dict(re.findall(r'^ {4}(MACOSX_BUNDLE_\w+|OUTPUT_NAME) "?([^"\s)]+)"?', BUNDLE, re.M))
    found = {name: value.replace("${PROJECT_VERSION}", VERSION) for name, value in found.items()}
    found["MACOSX_BUNDLE_EXECUTABLE_NAME"] = found["OUTPUT_NAME"]
    return found | MACOS


def filled(text):
    """As configure_file does it; a KeyError names what nothing gives a value to."""
    known = values()
    return re.sub(r"\$\{(\w+)\}", lambda match: known[match.group(1)], text)


class InfoTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        template = (PACKAGING / "Info.plist.in").read_text(encoding="utf-8")
        cls.info = plistlib.loads(filled(template).encode("utf-8"))

    def test_the_bundle_is_an_agent_without_an_icon_in_the_dock(self):
        self.assertIs(self.info["LSUIElement"], True)
        self.assertNotIn("LSBackgroundOnly", self.info)  # it has windows

    def test_the_bundle_is_an_application_under_its_name(self):
        expected = {
            "CFBundlePackageType": "APPL",
            "CFBundleIdentifier": IDENTIFIER,
            "CFBundleName": "Tarnwick",
            "CFBundleDisplayName": "Tarnwick",
            "CFBundleExecutable": "Tarnwick",
            "CFBundleVersion": VERSION,
            "CFBundleShortVersionString": VERSION,
            "CFBundleInfoDictionaryVersion": "6.0",
            "CFBundleDevelopmentRegion": "en",
            "NSPrincipalClass": "NSApplication",
            "LSApplicationCategoryType": "public.app-category.utilities",
        }
        self.assertEqual({key: self.info.get(key) for key in expected}, expected)

    def test_the_bundle_runs_from_the_system_that_it_is_built_for(self):
        self.assertEqual(self.info["LSMinimumSystemVersion"], "12.0")

    def test_pictures_are_drawn_in_high_resolution(self):
        self.assertIs(self.info["NSHighResolutionCapable"], True)

    def test_the_user_is_told_what_access_is_for(self):
        usage = {key: text for key, text in self.info.items() if key.endswith("UsageDescription")}
        self.assertEqual(list(usage), ["NSAccessibilityUsageDescription"])
        for text in usage.values():
            self.assertTrue(text.startswith("Tarnwick ") and text.endswith("."), text)
            self.assertIn("menu bar of the application in front", text)

    def test_every_key_is_spelt_as_the_system_reads_it(self):
        known = {"CFBundleIconFile", "LSUIElement", "LSMinimumSystemVersion", "LSApplicationCategoryType",
                 "NSHighResolutionCapable", "NSAccessibilityUsageDescription", "NSHumanReadableCopyright",
                 "NSPrincipalClass", "NSSupportsAutomaticGraphicsSwitching"}
        self.assertEqual({key for key in self.info if not key.startswith("CFBundle") or key in known}, known)

    def test_the_bundle_names_the_icon_that_it_holds(self):
        icon = PACKAGING / (self.info["CFBundleIconFile"] + ".icns")
        self.assertIn('"${folder}/%s"' % icon.name, BUNDLE)
        data = icon.read_bytes()
        kind, length = struct.unpack_from(">4sI", data)
        self.assertEqual((kind, length), (b"icns", len(data)))
        widths = {}
        position = 8
        while position < length:
            code, size = struct.unpack_from(">4sI", data, position)
            self.assertEqual(data[position + 8:position + 16], b"\x89PNG\r\n\x1a\n", code)
            widths[code.decode("ascii")] = struct.unpack_from(">II", data, position + 24)
            position += size
        # Each size of the system, once and at twice the resolution.
        self.assertEqual(widths, {"icp4": (16, 16), "icp5": (32, 32), "ic07": (128, 128), "ic08": (256, 256),
                                  "ic09": (512, 512), "ic10": (1024, 1024), "ic11": (32, 32), "ic12": (64, 64),
                                  "ic13": (256, 256), "ic14": (512, 512)})

    def test_the_status_items_pictures_are_in_the_bundle(self):
        for name in ("TarnwickMenuBarIcon.png", "TarnwickMenuBarInverseIcon.png"):
            self.assertTrue((ROOT / "resources" / name).is_file(), name)
            self.assertIn(f'"${{PROJECT_SOURCE_DIR}}/resources/{name}"', BUNDLE)


class EntitlementsTest(unittest.TestCase):
    def test_the_program_asks_for_nothing_and_is_not_in_the_sandbox(self):
        with open(PACKAGING / "Tarnwick.entitlements", "rb") as file:
            self.assertEqual(plistlib.load(file), {"com.apple.security.app-sandbox": False})


class SigningTest(unittest.TestCase):
    """With a codesign that writes down what it is asked for."""

    def signed(self, status=0, **environment):
        held = tempfile.TemporaryDirectory()
        self.addCleanup(held.cleanup)
        folder = pathlib.Path(held.name)
        codesign = folder / "codesign"
        codesign.write_text(f'#!/bin/sh\necho "$@" >>"{folder}/asked"\nexit {status}\n', encoding="utf-8")
        codesign.chmod(0o755)
        run = subprocess.run([PACKAGING / "sign", "A/Tarnwick.app"], check=False,
                             env={"PATH": f"{folder}:{os.environ['PATH']}", **environment})
        return run.returncode, (folder / "asked").read_text(encoding="utf-8").splitlines()

    def test_the_bundle_is_signed_once_everything_is_in_it(self):
        installing = re.search(r'install\(CODE "(.*?)"\)\n', BUNDLE, re.S).group(1)
        commands = re.findall(r'COMMAND \\"([^"]*)\\" (\S+)', installing)
        bundle = '\\"\\$ENV{DESTDIR}\\${CMAKE_INSTALL_PREFIX}/Tarnwick.app\\"'
        self.assertEqual(commands, [("${TARNWICK_MACDEPLOYQT}", bundle), ("${folder}/sign", bundle)])
        self.assertEqual(installing.count("COMMAND_ERROR_IS_FATAL ANY"), 2)

    def test_for_others_it_has_the_identity_the_entitlements_the_time_and_the_hardened_runtime(self):
        status, asked = self.signed(TARNWICK_SIGN_IDENTITY="Somebody")
        self.assertEqual(status, 0)
        self.assertEqual(asked[0], "--force --deep --options runtime --timestamp --entitlements "
                                   f"{PACKAGING}/Tarnwick.entitlements --sign Somebody A/Tarnwick.app")

    def test_without_an_identity_it_is_signed_ad_hoc_and_may_load_qt(self):
        status, asked = self.signed()
        self.assertEqual(status, 0)
        self.assertEqual(asked[0],
                         f"--force --deep --entitlements {PACKAGING}/Tarnwick.entitlements --sign - A/Tarnwick.app")

    def test_the_signature_is_checked(self):
        self.assertEqual(self.signed()[1][1:], ["--verify --deep --strict A/Tarnwick.app"])

    def test_what_cannot_be_signed_is_no_bundle(self):
        status, asked = self.signed(status=1)
        self.assertEqual((status, len(asked)), (1, 1))


class PresetTest(unittest.TestCase):
    def test_the_bundle_is_built_for_both_kinds_of_mac(self):
        self.assertEqual(MACOS["CMAKE_OSX_ARCHITECTURES"], "arm64;x86_64")
        self.assertEqual(MACOS["CMAKE_OSX_DEPLOYMENT_TARGET"], "12.0")

    def test_warnings_are_errors_as_scripts_test_says(self):
        self.assertEqual(MACOS["TARNWICK_WERROR"], "ON")

    def test_qt_is_looked_for_where_homebrew_puts_it(self):
        folders = MACOS["CMAKE_PREFIX_PATH"].split(";")
        self.assertEqual(folders[:1], ["/opt/homebrew/opt/qt"])
        self.assertIn("/usr/local/opt/qt", folders)


class DiskImageTest(unittest.TestCase):
    def test_cpack_makes_a_disk_image(self):
        settings = dict(re.findall(r'^set\((CPACK_\w+) "?([^"\n]+?)"?\)', BUNDLE, re.M))
        self.assertEqual(settings["CPACK_GENERATOR"], "DragNDrop")
        self.assertEqual(settings["CPACK_PACKAGE_FILE_NAME"], "Tarnwick-${PROJECT_VERSION}-macos")


if __name__ == "__main__":
    unittest.main()
