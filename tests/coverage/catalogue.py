# SPDX-License-Identifier: MIT
"""The applications, and what is known about the differences."""
import fnmatch
import json
import pathlib

MODULE = "appmenu-gtk3-module"
_HERE = pathlib.Path(__file__).resolve().parent


def applications(listed="applications.json"):
    """By name, in the order of the list."""
    return {each["name"]: each for each in json.loads((_HERE / listed).read_text(encoding="utf-8"))}


def doors():
    """Programs that publish little by themselves, as installed and with what can be switched on."""
    return applications("doors.json")


def explanations():
    """What is written down about differences: application, entries (patterns), kind, reason."""
    return json.loads((_HERE / "explanations.json").read_text(encoding="utf-8"))


def truth_of(application, known):
    """The application whose menus tell what those of this one are; nothing when its own do."""
    return known[application["truth"]] if "truth" in application else None


def takes_module(application):
    """Whether the module of GTK can be loaded into it that has its menus exported."""
    return application["toolkit"] in ("GTK 3", "wxGTK 3")


def packages(chosen, known, module=False):
    """The Debian packages of these applications, each once; with `module` also that of the module of GTK."""
    needed = [each for one in chosen for each in (truth_of(one, known), one) if each]
    names = [package for each in needed for package in each["packages"]]
    if module and any(map(takes_module, chosen)):
        names.append(MODULE)
    return list(dict.fromkeys(names))


def explanation_of(difference, application, known):
    """The first explanation that covers a difference, or nothing. No pattern covers a whole application by silence."""
    for each in known:
        if application not in each["applications"] or difference["kind"] not in each["kinds"]:
            continue
        if any(fnmatch.fnmatchcase(difference["path"], pattern.replace("[", "[[]")) for pattern in each["entries"]):
            return each
    return None
