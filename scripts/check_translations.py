#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that every catalogue in translations/ has every text that the sources look up, finished, and no other."""

import pathlib
import re
import sys
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDERS = ("shortcut", "mouse", "prefs", "app")
TABLE = "ShortcutRecorder"

TEXT = r'((?:"(?:[^"\\]|\\.)*"\s*)+)'
LOCALIZED = re.compile(r"\blocalized\(\s*" + TEXT)
NOOP = re.compile(r'\bQT_TRANSLATE_NOOP\(\s*"(\w+)",\s*' + TEXT)
WORD = re.compile(r"\bword\(\w+,\s*" + TEXT)
TR = re.compile(r"(?<![\w:])tr\(\s*" + TEXT)
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
            yield name, text


def main():
    used = set()
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).glob("*.cpp")):
            used |= set(texts_of(path))
    problems = []
    catalogues = sorted((ROOT / "translations").glob("*.ts"))
    for catalogue in catalogues:
        there = list(texts_in(catalogue, problems))
        problems += [f"{catalogue.name}: {name}: missing: {text!r}" for name, text in sorted(used - set(there))]
        problems += [f"{catalogue.name}: {name}: not used: {text!r}" for name, text in sorted(set(there) - used)]
        if len(there) != len(set(there)):
            problems.append(f"{catalogue.name}: a text is there twice")
    for problem in problems:
        print(problem)
    print(f"{len(used)} texts, {len(catalogues)} catalogues, {len(problems)} problems")
    return 1 if problems or not used or not catalogues else 0


if __name__ == "__main__":
    sys.exit(main())
