#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that what the documents link to is there, and the files and folders that they name by their paths from the top."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LINK = re.compile(r"\]\((?!https?:)([^)#\s]+)")
# In a document `menu/Menu` is a class by its place, `menu/` a folder, `tests/data/*.menu` some files.
NAMED = re.compile(r"`([\w.-]+/[\w./*-]*)`")
ENDINGS = ("", ".h", ".cpp", ".mm")
NOT_OURS = {"build"}


def is_there(name):
    folder = name.split("/")[0]
    if folder in NOT_OURS or not (ROOT / folder).is_dir():
        return True  # not from the top
    return any(path for ending in ENDINGS for path in ROOT.glob(name.rstrip("/") + ending))


def missing_in(document):
    text = document.read_text(encoding="utf-8")
    for target in LINK.findall(text):
        if not (document.parent / target).exists():
            yield target
    for name in NAMED.findall(text):
        if not is_there(name):
            yield name


def main():
    documents = sorted([*ROOT.glob("*.md"), *ROOT.glob("docs/*.md"), *ROOT.glob("tests/**/*.md")])
    problems = [f"{document.relative_to(ROOT)}: there is no {target}"
                for document in documents for target in missing_in(document)]
    for problem in problems:
        print(problem)
    print(f"{len(documents)} documents, {len(problems)} problems")
    return 1 if problems or not documents else 0


if __name__ == "__main__":
    sys.exit(main())
