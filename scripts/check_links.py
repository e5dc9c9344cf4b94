#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that what the documents link to is there."""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LINK = re.compile(r"\]\((?!https?:)([^)#\s]+)")


def missing_in(document):
    for target in LINK.findall(document.read_text(encoding="utf-8")):
        if not (document.parent / target).exists():
            yield target


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
