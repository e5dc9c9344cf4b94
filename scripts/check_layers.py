#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks the rules of the layout: who may include whom, and where the operating system may be named."""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# Each core folder with the folders whose headers it may include, itself included.
CORE = {
    "foundation": {"foundation"},
    "ax": {"ax", "foundation"},
    "menu": {"menu", "ax", "foundation"},
    "mouse": {"mouse", "menu", "ax", "foundation"},
    "shortcut": {"shortcut", "menu", "ax", "foundation"},
    "prefs": {"prefs", "shortcut", "mouse", "menu", "ax", "foundation"},
    "app": {"app", "prefs", "shortcut", "mouse", "menu", "ax", "foundation"},
}
FOLDERS = set(CORE) | {"platform", "tests", "tools", "bench"}
ENDINGS = {".h", ".cpp", ".mm", ".c"}

INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\s*([<"])([^>"]+)[>"]', re.M)
SYSTEM_CONDITION = re.compile(
    r"^\s*#\s*(?:if|ifdef|ifndef|elif).*\b(?:Q_OS_\w+|__linux__|__APPLE__|__unix__|_WIN32|TARGET_OS_\w+)\b", re.M)
SYSTEM_HEADER = re.compile(
    r"^(?:X11/|xcb/|xkbcommon/|systemd/|dbus/|gio/|glib|gtk/|atspi/|QDBus|QtDBus|QX11|qpa/|private/|"
    r"ApplicationServices/|Carbon/|Cocoa/|AppKit/|Foundation/|CoreFoundation/|CoreGraphics/|CoreServices/|"
    r"Quartz/|HIToolbox/|ServiceManagement/|objc/)")
# Functions of the other home system keep to its folder.
PLATFORM_FUNCTION_CALL = re.compile(r"\b(?:AXUIElement(?:Create|Copy|Get|Set|Perform|Is)\w+|CGEventTap\w+|"
                                    r"TISCopy\w+|LSSharedFileList\w+|UCKeyTranslate|CopySymbolicHotKeys)\s*\(")


def without_comments(text):
    text = re.sub(r"/\*.*?\*/", lambda m: "\n" * m.group(0).count("\n"), text, flags=re.S)
    return re.sub(r"//[^\n]*", "", text)


def check_file(path, name, problems):
    text = without_comments(path.read_text(encoding="utf-8"))
    folder = name.split("/")[0]

    def report(position, message):
        problems.append(f"{name}:{text.count(chr(10), 0, position) + 1}: {message}")

    for match in INCLUDE.finditer(text):
        header = match.group(2)
        target = header.split("/")[0] if match.group(1) == '"' and "/" in header else None
        if folder in CORE:
            if target in FOLDERS and target not in CORE[folder]:
                report(match.start(), f"{folder}/ may not include {header}")
            if SYSTEM_HEADER.match(header):
                report(match.start(), f"the core knows no operating system: {header}")
        elif folder == "tools" and SYSTEM_HEADER.match(header):
            report(match.start(), f"system headers belong to platform/: {header}")
        if folder == "platform" and target in {"tests", "tools", "bench"}:
            report(match.start(), f"platform/ may not include {header}")

    if folder in CORE:
        for match in SYSTEM_CONDITION.finditer(text):
            report(match.start(), "the core has no condition on an operating system")
    if folder in CORE or name.startswith(("platform/linux/", "platform/qt/")):
        for match in PLATFORM_FUNCTION_CALL.finditer(text):
            report(match.start(), "this function's own name occurs in platform/macos/ only")
    for match in re.finditer(r"\bopenDesktop\s*\(", text):
        line = text[text.rfind("\n", 0, match.start()) + 1:text.find("\n", match.start())]
        defines = name.startswith("platform/") and not line.strip().endswith(";")
        if name not in {"app/main.cpp", "app/Desktop.h"} and not defines:
            report(match.start(), "only app/main.cpp calls openDesktop()")


def main():
    problems = []
    count = 0
    for folder in sorted(set(CORE) | {"platform", "tools"}):
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in ENDINGS:
                check_file(path, path.relative_to(ROOT).as_posix(), problems)
                count += 1
    for problem in problems:
        print(problem)
    if count == 0:
        print("no source file found")
        return 1
    print(f"{count} files checked, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
