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
    "search": {"search", "menu", "ax", "foundation"},
    "mouse": {"mouse", "menu", "ax", "foundation"},
    "shortcut": {"shortcut", "menu", "ax", "foundation"},
    "prefs": {"prefs", "shortcut", "mouse", "menu", "ax", "foundation"},
    "app": {"app", "search", "prefs", "shortcut", "mouse", "menu", "ax", "foundation"},
}
SYSTEMS = ("platform/linux", "platform/macos")
# Everything that is checked. Inside platform/ the links of the CMake targets narrow it further: see Rooms.
LAYERS = {
    **CORE,
    "tools": {"tools", *CORE},
    "platform/qt": {"platform/qt", *CORE},
    **{system: {system, "platform/qt", *CORE} for system in SYSTEMS},
}
OUR_FOLDERS = {layer.split("/")[0] for layer in LAYERS} | {"tests", "bench"}
ENDINGS = {".h", ".cpp", ".mm", ".c"}

COMMENT_OR_TEXT = re.compile(r"""/\*.*?\*/|//[^\n]*|R"([^\s()\\]*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|"""
                             r"""(?<!\d)'(?:\\.|[^'\\\n])+'""", re.S)
INCLUDE = re.compile(r"^[ \t]*#[ \t]*(?:include|include_next|import)\b[ \t]*([^\n]*)", re.M)
QUOTED = re.compile(r'"([^"]+)"')
IN_ANGLE_BRACKETS = re.compile(r"<([^>]+)>")
# The C++ library and Qt, but for what Qt has for one system only.
PORTABLE_HEADER = re.compile(r"(?:[a-z][a-z0-9_]*|Q(?!DBus|tDBus|X11)\w+)$")
SYSTEM_CONDITION = re.compile(
    r"^\s*#\s*(?:if|ifdef|ifndef|elif).*\b(?:Q_OS_\w+|__linux__|__APPLE__|__unix__|_WIN32|TARGET_OS_\w+)\b", re.M)
# Functions of the other home system keep to its folder.
PLATFORM_FUNCTION_CALL = re.compile(r"\b(?:AXUIElement(?:Create|Copy|Get|Set|Perform|Is)\w+|CGEventTap\w+|"
                                    r"TISCopy\w+|LSSharedFileList\w+|UCKeyTranslate|CopySymbolicHotKeys)\s*\(")
OPEN_DESKTOP = re.compile(r"\bopenDesktop\b")
OPEN_DESKTOP_DEFINED = re.compile(r"^[ \t]*(?:\[\[nodiscard\]\]\s*)?Desktop\s+(openDesktop)\s*\([^;{}()]*\)\s*\{", re.M)
LIBRARY = re.compile(r"\btarnwick_add_library\s*\(\s*(\w+)([^)]*)\)")
LINKED = re.compile(r"\btarnwick_(\w+)")


def without_comments(text):
    def blank(match):
        return "\n" * match.group(0).count("\n") + " " if match.group(0).startswith("/") else match.group(0)
    return COMMENT_OR_TEXT.sub(blank, text)


def layer_of(name):
    """The folder that the rules speak of: of platform/ the next one, else the first."""
    return "/".join(name.split("/")[:2 if name.startswith("platform/") else 1])


class Rooms:
    """The folders in platform/ that are CMake targets, each with those that it may include: what its target links."""

    def __init__(self, root):
        folders, links = {}, {}  # of each target, both systems having a tarnwick_platform; of each folder
        for path in sorted(root.glob("platform/**/CMakeLists.txt")):
            text = re.sub(r"#[^\n]*", "", path.read_text(encoding="utf-8"))
            room = path.parent.relative_to(root).as_posix()
            for target, words in LIBRARY.findall(text):
                folders.setdefault(target, []).append(room)
                links.setdefault(room, []).extend(LINKED.findall(words))
        self._links = {room: [folder for target in targets for folder in folders.get(target, ())]
                       for room, targets in links.items()}

    def of(self, name):
        """The innermost room that a file is in, or nothing."""
        return next((str(folder) for folder in pathlib.PurePosixPath(name).parents if str(folder) in self._links), None)

    def below(self, room):
        """What the room links, directly or not: the room itself only where the links run in a circle."""
        found, ahead = set(), list(self._links[room])
        while ahead:
            folder = ahead.pop()
            if folder not in found:
                found.add(folder)
                ahead += self._links[folder]
        return found

    def problems(self):
        return [f"{room}/CMakeLists.txt: its links run in a circle" for room in self._links if room in self.below(room)]


def include_problem(name, written, rooms):
    """What is wrong with including what is written so, or nothing."""
    ours, system = QUOTED.match(written), IN_ANGLE_BRACKETS.match(written)
    if not ours and not system:
        return f"an include names its header: {written}"
    header = (ours or system).group(1)
    if ours and header == f"moc_{pathlib.PurePosixPath(name).stem}.cpp":
        return None  # what Qt's compiler makes of the file's own header
    parts = header.split("/")
    if (parts[0] in OUR_FOLDERS) != bool(ours) or {"", ".", ".."} & set(parts):
        return f"a header of ours, and no other, is in quotes and has its path from the top: {header}"
    if header.endswith(".cpp"):
        return f"a source is compiled, not included: {header}"
    if ours:
        return own_header_problem(name, header, rooms)
    if layer_of(name) in {*CORE, "tools"} and not PORTABLE_HEADER.match(header):
        return f"system headers belong to platform/: {header}"
    return None


def own_header_problem(name, header, rooms):
    if layer_of(header) not in LAYERS[layer_of(name)]:
        return f"{layer_of(name)}/ may not include {header}"
    room, target = rooms.of(name), rooms.of(header)
    if target not in {room, None} and target not in rooms.below(room):
        return f"{room}/ does not link {target}/, and may not include {header}"
    return None


def open_desktop_problems(name, text):
    """Where openDesktop() is named, beside its one declaration, its one call, and one definition for each system."""
    named = [match.start() for match in OPEN_DESKTOP.finditer(text)]
    if name in {"app/main.cpp", "app/Desktop.h"}:
        return named[1:]
    if layer_of(name) in SYSTEMS:
        defined = {match.start(1) for match in OPEN_DESKTOP_DEFINED.finditer(text)}
        return [position for position in named if position not in defined]
    return named


def check_file(root, name, rooms, problems):
    text = without_comments((root / name).read_text(encoding="utf-8"))
    layer = layer_of(name)

    def report(position, message):
        problems.append(f"{name}:{text.count(chr(10), 0, position) + 1}: {message}")

    if layer not in LAYERS or (name.startswith("platform/") and not rooms.of(name)):
        report(0, "no layer, or no target, has this folder")
        return 0
    for match in INCLUDE.finditer(text):
        problem = include_problem(name, match.group(1), rooms)
        if problem:
            report(match.start(), problem)
    if layer in CORE:
        for match in SYSTEM_CONDITION.finditer(text):
            report(match.start(), "the core has no condition on an operating system")
    if layer in CORE or layer in {"platform/linux", "platform/qt"}:
        for match in PLATFORM_FUNCTION_CALL.finditer(text):
            report(match.start(), "this function's own name occurs in platform/macos/ only")
    for position in open_desktop_problems(name, text):
        report(position, "only app/main.cpp calls openDesktop(), once")
    return len(OPEN_DESKTOP_DEFINED.findall(text))


def check(root):
    """The number of files, and what is wrong with them."""
    rooms = Rooms(root)
    problems = rooms.problems()
    defined = dict.fromkeys(SYSTEMS, 0)
    names = [path.relative_to(root).as_posix() for folder in sorted({layer.split("/")[0] for layer in LAYERS})
             for path in sorted((root / folder).rglob("*")) if path.suffix in ENDINGS]
    for name in names:
        definitions = check_file(root, name, rooms, problems)
        if layer_of(name) in defined:
            defined[layer_of(name)] += definitions
    problems += [f"{system}/: {number} definitions of openDesktop()" for system, number in defined.items()
                 if number != 1]
    return len(names), problems


def main():
    count, problems = check(ROOT)
    for problem in problems:
        print(problem)
    if count == 0:
        print("no source file found")
        return 1
    print(f"{count} files checked, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
