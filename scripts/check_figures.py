#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Checks that whoever reads a figure in the documents is told a command that measures it, and one that is there.

A figure is a number with a unit. Its paragraph or table, the one before it or the heading of its section names a script, with
what it is told, or a file of the tests; or the paragraph links to the page of the figure. What is decided and not measured
stands in LIMITS. Whether the command prints that very figure is left to the eye. docs/coverage.md is written by a command.
"""
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
UNITS = "ms|µs|s|min|seconds?|minutes?|hours?|KiB|MiB|GiB|KB|MB|%|×|times|million"
FIGURE = re.compile(rf"(?<![\w.,/-])[−+]?\d[\d,.]*(?: to \d[\d,.]*)? ?(?:{UNITS})(?!\w)")
SCRIPT = re.compile(r"(?:`|^    )(?:[A-Z_]+=\S+ )*(scripts/[\w-]+)([^`\n]*)", re.MULTILINE)
FILE = re.compile(r"`((?:tests|bench)/[\w/]+\.\w+)`")
PAGE = re.compile(r"\]\((?:docs/)?(performance|coverage|doors|reliability)\.md\)")
# What is decided and not measured: the page, and the words around the number.
LIMITS = {
    "docs/debugging-menus.md": ["0.65 seconds later", "1.8 seconds if it was empty"],
    "docs/wayland.md": ["after a pause of 0.65 seconds"],
    "docs/reliability.md": ["holds nobody up for longer than 0.2 s", "more than 4 MiB in its place"],
}


def groups():
    """What scripts/bench can be told; it is the same as its --help."""
    text = (ROOT / "bench/run.py").read_text(encoding="utf-8")
    return set(re.findall(r'^    "([\w-]+)": \(', text, re.MULTILINE))


def names_a_command(text):
    """Whether it names one that is there; scripts/bench without a group measures everything."""
    for script, told in SCRIPT.findall(text):
        words = [word for word in told.split() if not word.startswith("-")]
        if (ROOT / script).exists() and (script != "scripts/bench" or not words or words[0] in groups()):
            return True
    return any((ROOT / file).exists() for file in FILE.findall(text))


def blocks(text):
    """(line, what may name the command, the paragraph) of each paragraph."""
    heading = before = ""
    line = 1
    for paragraph in re.split(r"(\n\s*\n)", text):
        if paragraph.startswith("#"):
            heading, before = paragraph, ""
        elif paragraph.strip():
            yield line, "\n\n".join((heading, before, paragraph)), paragraph
            before = paragraph
        line += paragraph.count("\n")


def without_limits(name, paragraph):
    joined = " ".join(paragraph.split())
    for words in LIMITS.get(name, []):
        joined = joined.replace(words, "")
    return joined


def problems_in(name, text):
    for line, around, paragraph in blocks(text):
        figures = FIGURE.findall(without_limits(name, paragraph))
        if figures and not names_a_command(around) and not PAGE.search(paragraph):
            yield f"{name}:{line}: nothing tells what measures {', '.join(sorted(set(figures)))}"


def main():
    documents = [ROOT / "README.md", *sorted({*(ROOT / "docs").glob("*.md")} - {ROOT / "docs/coverage.md"})]
    texts = {str(document.relative_to(ROOT)): document.read_text(encoding="utf-8") for document in documents}
    problems = [problem for name, text in texts.items() for problem in problems_in(name, text)]
    problems += [f"{name}: no such words any more: {words}" for name, limits in LIMITS.items() for words in limits
                 if words not in " ".join(texts[name].split())]
    print("".join(f"{problem}\n" for problem in problems) + f"{len(documents)} documents, {len(problems)} problems")
    return 1 if problems or not documents else 0


if __name__ == "__main__":
    sys.exit(main())
