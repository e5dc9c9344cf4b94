#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws the rooms of the program into docs/architecture.md, from the CMake targets that they are: pictures of which may
use which, and a table of what each is for, which is the first comment of its CMakeLists.txt. With --check it writes
nothing and fails when the page has something else."""

import pathlib
import sys

import check_layers

ROOT = pathlib.Path(__file__).resolve().parent.parent
PAGE = "docs/architecture.md"
CORE = tuple(reversed(check_layers.CORE))
SYSTEMS = check_layers.SYSTEMS
QT = "platform/qt"
BEGIN = "<!-- drawn by scripts/draw_rooms.py -->\n"
END = "<!-- end of what is drawn -->\n"


class Room:
    """One target: its folder, its sentence, and the targets that it links."""

    def __init__(self, root, path):
        text = path.read_text(encoding="utf-8")
        self.folder = path.parent.relative_to(root).as_posix()
        found = check_layers.LIBRARY.search(text)
        self.target = found.group(1) if found else None
        self.linked = check_layers.LINKED.findall(found.group(2)) if found else []
        first = text.split("\n", 1)[0]
        self.sentence = first[1:].strip() if first.startswith("#") else ""


def read_rooms(root):
    """The rooms by their folders; of those of a system, and of each core folder, all."""
    paths = [root / folder / "CMakeLists.txt" for folder in CORE] + sorted(root.glob("platform/**/CMakeLists.txt"))
    return {room.folder: room for room in (Room(root, path) for path in paths if path.exists()) if room.target}


def links_of(rooms):
    """For each folder the folders whose targets it links."""
    folders = {room.target: room.folder for room in rooms.values()}
    return {folder: {folders[target] for target in room.linked if target in folders} - {folder}
            for folder, room in rooms.items()}


def reachable(links, start):
    found, ahead = set(), [start]
    while ahead:
        for folder in links.get(ahead.pop(), ()):
            if folder not in found:
                found.add(folder)
                ahead.append(folder)
    return found


def reduced(links):
    """Without the arrows that others lead round: what one may use directly is shown only where nothing between may."""
    return {folder: {below for below in direct
                     if not any(below in reachable(links, other) for other in direct - {below})}
            for folder, direct in links.items()}


def lifted(links, groups):
    """The links between groups, and between what is in none."""
    def group_of(folder):
        return next((group for group in groups if folder == group or folder.startswith(f"{group}/")), folder)
    result = {}
    for folder, direct in links.items():
        group = group_of(folder)
        result.setdefault(group, set()).update({group_of(below) for below in direct} - {group})
    return result


def within(links, folders):
    return {folder: links[folder] & set(folders) for folder in folders}


def name_of(folder):
    return folder.replace("/", "_")


def label_of(folder, group):
    return folder.removeprefix(f"{group}/")


def picture(groups, links):
    """Mermaid's text: each group, a title with its folders, in a box of its own, and the arrows that are needed."""
    lines = ["```mermaid", "flowchart TB"]
    for title, folders in groups:
        lines.append(f"    subgraph {name_of(title)}_box [{title}]")
        lines += [f"        {name_of(folder)}[{label_of(folder, title)}]" for folder in folders]
        lines.append("    end")
    drawn = reduced(links)
    lines += [f"    {name_of(folder)} --> {name_of(below)}" for folder in links for below in sorted(drawn[folder])]
    return "\n".join([*lines, "```", ""])


def top_down(folders, links):
    """Each after all that may use it, those of one height by their names."""
    def height(folder):
        return len(reachable(links, folder))
    return sorted(folders, key=lambda folder: (-height(folder), folder))


def rooms_in(group, links):
    return top_down([folder for folder in links if folder == group or folder.startswith(f"{group}/")], links)


def draw(root):
    """What stands between the markers."""
    rooms = read_rooms(root)
    links = links_of(rooms)
    core = [folder for folder in CORE if folder in rooms]
    whole = lifted(links, (QT, *SYSTEMS))
    order = [*SYSTEMS, QT, *core]
    parts = [picture([("the core", core), ("platform", [*SYSTEMS, QT])], within(whole, order))]
    for system in SYSTEMS:
        folders = rooms_in(system, links)
        qt = rooms_in(QT, links)
        parts.append(f"The rooms of `{system}`, above those of `{QT}`:\n")
        parts.append(picture([(system, folders), (QT, qt)], within(links, [*folders, *qt])))
    table = ["| Room | What it is for |", "|---|---|"]
    for folder in [*core, *rooms_in(QT, links), *(room for system in SYSTEMS for room in rooms_in(system, links))]:
        table.append(f"| `{folder}` | {rooms[folder].sentence} |")
    return "\n" + "\n".join([*parts, *table, ""])


def problems_of(root):
    return [f"{room.folder}/CMakeLists.txt: its first line is no comment that says what the room is for"
            for room in read_rooms(root).values() if not room.sentence]


def drawn_page(root):
    """The page as it is to be; nothing without its markers."""
    page = (root / PAGE).read_text(encoding="utf-8")
    before, begin, rest = page.partition(BEGIN)
    _, end, after = rest.partition(END)
    return before + begin + draw(root) + end + after if begin and end else None


def main(words):
    problems = problems_of(ROOT)
    page = drawn_page(ROOT)
    if page is None:
        problems.append(f"{PAGE}: there is no {BEGIN.strip()} ... {END.strip()}")
    elif "--check" not in words:
        (ROOT / PAGE).write_text(page, encoding="utf-8")
    elif page != (ROOT / PAGE).read_text(encoding="utf-8"):
        problems.append(f"{PAGE}: the rooms have changed, draw them again with scripts/draw_rooms.py")
    for problem in problems:
        print(problem)
    print(f"{len(read_rooms(ROOT))} rooms, {len(problems)} problems")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
