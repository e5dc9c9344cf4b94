#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Looks at the extension for GNOME's Shell as far as that goes without a Shell."""
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXTENSION = ROOT / "packaging/gnome-extension"
SCRIPT = EXTENSION / "extension.js"
MOST_LINES = 150
SHELLS = ["45", "46", "47", "48"]
# From where a Shell takes modules; relative ones would be our own files.
MODULES = re.compile(r"gi://\w+|resource:///org/gnome/shell/(?:ui|extensions)/\w+\.js")


def require(*tools):
    """The first of these programs that is there. Without any skips the test; where nothing may be missing, fails."""
    for tool in tools:
        if path := shutil.which(tool):
            return path
    if os.environ.get("TARNWICK_REQUIRE_TOOLS") == "1":
        raise RuntimeError(f"missing: {' or '.join(tools)}")
    raise unittest.SkipTest(f"missing: {' or '.join(tools)}")


def constant(name):
    """A text that the extension has a name for."""
    return re.search(rf"^const {name} = '([^']*)';", SCRIPT.read_text(encoding="utf-8"), re.M).group(1)


def program_name(name):
    """What the program calls itself among the programs of a desktop."""
    text = (ROOT / "platform/linux/xdg/DesktopNames.h").read_text(encoding="utf-8")
    return re.search(rf'\b{name} = QStringLiteral\("([^"]*)"\)', text).group(1)


def complaints_of(path):
    """What a JavaScript engine has against the syntax of a module; nothing it imports needs to be there."""
    engine = require("gjs", "node")
    with tempfile.TemporaryDirectory(prefix="tarnwick-extension-") as directory:
        module = pathlib.Path(directory) / "extension.mjs"
        shutil.copy(path, module)
        how = ["-m"] if engine.endswith("gjs") else ["--check"]
        result = subprocess.run([engine, *how, str(module)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                check=False, timeout=60)
    return [line for line in result.stdout.splitlines() if "SyntaxError" in line]


class TheMetadata(unittest.TestCase):
    def setUp(self):
        self.metadata = json.loads((EXTENSION / "metadata.json").read_text(encoding="utf-8"))

    def test_has_all_that_a_shell_wants(self):
        for key in ("uuid", "name", "description", "shell-version", "url", "settings-schema"):
            self.assertTrue(self.metadata.get(key), key)
        self.assertRegex(self.metadata["uuid"], r"^[\w.-]+@[\w.-]+$")

    def test_names_the_shells_that_have_its_modules(self):
        self.assertEqual(self.metadata["shell-version"], SHELLS)

    def test_names_the_installed_place(self):
        installed = (ROOT / "packaging/linux/install.cmake").read_text(encoding="utf-8")
        self.assertIn(f"gnome-shell/extensions/{self.metadata['uuid']}\"", installed)


class TheSchema(unittest.TestCase):
    def setUp(self):
        self.identifier = json.loads((EXTENSION / "metadata.json").read_text(encoding="utf-8"))["settings-schema"]
        self.file = EXTENSION / "schemas" / f"{self.identifier}.gschema.xml"

    def test_is_one_that_glib_takes(self):
        compiler = require("glib-compile-schemas")
        result = subprocess.run([compiler, "--strict", "--dry-run", self.file.parent], stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, check=False, timeout=60)
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_has_the_key_that_the_extension_binds(self):
        schema = ElementTree.parse(self.file).getroot().find("schema")
        self.assertEqual(schema.get("id"), self.identifier)
        keys = {key.get("name"): (key.get("type"), key.findtext("default")) for key in schema.iter("key")}
        self.assertEqual(keys, {constant("ACTION"): ("as", "['<Alt>z']")})


class TheScript(unittest.TestCase):
    def test_is_small(self):
        self.assertLessEqual(len(SCRIPT.read_text(encoding="utf-8").splitlines()), MOST_LINES)

    def test_is_a_module_of_javascript(self):
        self.assertEqual(complaints_of(SCRIPT), [])

    def test_would_be_complained_about_otherwise(self):
        with tempfile.NamedTemporaryFile("w", suffix=".js") as broken:
            broken.write(SCRIPT.read_text(encoding="utf-8") + "\nclass {\n")
            broken.flush()
            self.assertTrue(complaints_of(broken.name))

    def test_takes_what_it_needs_from_the_shell(self):
        imported = re.findall(r"^import\b[^']*'([^']*)';$", SCRIPT.read_text(encoding="utf-8"), re.M)
        self.assertTrue(imported)
        for module in imported:
            self.assertRegex(module, rf"^(?:{MODULES.pattern})$")

    def test_knows_the_program_by_its_names(self):
        self.assertEqual(constant("BUS_NAME"), program_name("BusName"))
        self.assertEqual(constant("OBJECT_PATH"), program_name("ObjectPath"))
        self.assertEqual(constant("ACTION"), program_name("PopUpAction"))
        self.assertEqual(constant("PROGRAM"), program_name("ApplicationName").lower())

    def test_tells_what_the_program_reads(self):
        reader = (ROOT / "platform/linux/session/PopUpParameter.cpp").read_text(encoding="utf-8")
        read = set(re.findall(r'map(?:, |\.value\()u"(\w+)"_s', reader))
        script = SCRIPT.read_text(encoding="utf-8")
        told = set(re.findall(r"\b(\w+): GLib\.Variant\.new_", script)) | set(re.findall(r"\btold\.(\w+) = ", script))
        self.assertEqual(told, read)

    def test_leaves_nothing_behind(self):
        script = SCRIPT.read_text(encoding="utf-8")
        enable, disable = (re.search(rf"^    {name}\(\) {{\n(.*?)^    }}$", script, re.M | re.S).group(1)
                           for name in ("enable", "disable"))
        self.assertEqual(enable.count("addKeybinding("), disable.count("removeKeybinding("))
        self.assertEqual(enable.count(".connect("), disable.count("global.display.disconnect("))
        kept = re.findall(r"^        this\.(_\w+) = (?!global\.display\.connect)", enable, re.M)
        self.assertTrue(kept)
        for name in kept:
            self.assertIn(f"this.{name} = null;", disable)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
