#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that every catalogue in translations/ has every text that the sources look up, finished, and no other; that a
title ends in three full stops where it does so in English, and nowhere else; and that lupdate finds nothing to add and
nothing to take away.

    scripts/check_translations.py --update   lets lupdate write new texts into the catalogues, for translators
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("shortcut", "mouse", "prefs", "app", "platform")
TABLE = "ShortcutRecorder"

TEXT = r'((?:"(?:[^"\\]|\\.)*"\s*)+)'
LOCALIZED = re.compile(r"\blocalized\(\s*" + TEXT)
NOOP = re.compile(r'\bQT_TRANSLATE_NOOP\(\s*"(\w+)",\s*' + TEXT)
WORD = re.compile(r"\bword\(\w+,\s*" + TEXT)
TR = re.compile(r"(?<![\w:])tr\(\s*" + TEXT)
# What stands for "something is asked first" at the end of a title: three full stops, and no sign that looks like them.
DOTS = re.compile(r"(\.{2,}|[\s.]*…+)?\Z")
CLASS_METHOD = re.compile(r"^[\w:<>&*\s]*?\b(\w+)::~?\w+\(", re.M)


def joined(literals):
    return "".join(re.findall(r'"((?:[^"\\]|\\.)*)"', literals)).replace('\\"', '"').replace("\\n", "\n")


def texts_of(path):
    """The (context, text) pairs that one source file looks up."""
    source = path.read_text(encoding="utf-8")
    for match in LOCALIZED.finditer(source):
        yield TABLE, joined(match.group(1))
    for match in WORD.finditer(source):
        yield TABLE, joined(match.group(1))
    for match in NOOP.finditer(source):
        yield match.group(1), joined(match.group(2))
    for match in TR.finditer(source):
        methods = list(CLASS_METHOD.finditer(source, 0, match.start()))
        if methods:
            yield f"tarnwick::{methods[-1].group(1)}", joined(match.group(1))


def texts_in(catalogue, problems):
    for context in ElementTree.parse(catalogue).getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            translation = message.find("translation")
            text = message.findtext("source")
            if translation is None or translation.get("type") or not translation.text:
                problems.append(f"{catalogue.name}: {name}: not finished: {text!r}")
            elif DOTS.search(text).group() != DOTS.search(translation.text).group():
                problems.append(f"{catalogue.name}: {name}: not the same full stops: {text!r}, {translation.text!r}")
            yield name, text


def catalogue_problems(catalogue, used):
    problems = []
    there = list(texts_in(catalogue, problems))
    problems += [f"{catalogue.name}: {name}: missing: {text!r}" for name, text in sorted(used - set(there))]
    problems += [f"{catalogue.name}: {name}: not used: {text!r}" for name, text in sorted(set(there) - used)]
    if len(there) != len(set(there)):
        problems.append(f"{catalogue.name}: a text is there twice")
    return problems


def texts_of_sources():
    used = set()
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob("*.cpp")):
            used |= set(texts_of(path))
    return used


def lupdate_program():
    found = shutil.which("lupdate", path="/usr/lib/qt6/bin:/usr/lib64/qt6/bin:" + os.environ.get("PATH", ""))
    if not found and os.environ.get("TARNWICK_REQUIRE_TOOLS") == "1":
        sys.exit("missing: lupdate (qt6-l10n-tools)")
    return found


def run_lupdate(program, used, catalogues, directory):
    """What lupdate says. Texts that functions of our own look up are handed to it in a form that it knows."""
    known = directory / "texts.cpp"
    known.write_text("".join(f"const char* text{i} = QT_TRANSLATE_NOOP({json.dumps(context)}, "
                             f"{json.dumps(text, ensure_ascii=False)});\n"
                             for i, (context, text) in enumerate(sorted(used)) if context == TABLE))
    command = [program, "-locations", "none", "-I", str(ROOT), *(str(ROOT / folder) for folder in FOLDERS), str(known),
               "-ts", *map(str, catalogues)]
    result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=True)
    return result.stdout.splitlines()


def lupdate_problems(used, catalogues):
    program = lupdate_program()
    if not program:
        print("no lupdate here: not asked")
        return
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)
        copies = [pathlib.Path(shutil.copy(catalogue, directory)) for catalogue in catalogues]
        for line in run_lupdate(program, used, copies, directory):
            fine = line.startswith(("Scanning", "Updating")) or "(0 new and" in line or not line.strip()
            if not fine:
                yield f"lupdate: {line.strip()}"


def main():
    used = texts_of_sources()
    problems = []
    catalogues = sorted((ROOT / "translations").glob("*.ts"))
    if sys.argv[1:] == ["--update"]:
        with tempfile.TemporaryDirectory() as name:
            print("\n".join(run_lupdate(lupdate_program(), used, catalogues, pathlib.Path(name))))
        return 0
    for catalogue in catalogues:
        problems += catalogue_problems(catalogue, used)
    problems += lupdate_problems(used, catalogues)
    for problem in problems:
        print(problem)
    print(f"{len(used)} texts, {len(catalogues)} catalogues, {len(problems)} problems")
    return 1 if problems or not used or not catalogues else 0


if __name__ == "__main__":
    sys.exit(main())
