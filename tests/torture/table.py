# SPDX-License-Identifier: MIT
"""Prints the figures of one directory as a Markdown table."""
import json
import pathlib
import sys


def main(directory):
    print("| part | figure | measured | at most |")
    print("|---|---|---|---|")
    for file in sorted(pathlib.Path(directory).glob("*.jsonl")):
        for line in file.read_text(encoding="utf-8").splitlines():
            print(_row(json.loads(line)))


def _row(figure):
    unit = f" {figure['unit']}" if figure["unit"] else ""
    limit = "" if figure["limit"] is None else f"{figure['limit']}{unit}"
    return f"| {figure['part']} | {figure['what']} | {figure['value']}{unit} | {limit} |"


if __name__ == "__main__":
    main(sys.argv[1])
