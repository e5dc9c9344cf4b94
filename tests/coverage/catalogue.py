# SPDX-License-Identifier: MIT
"""The applications, and what is known about the differences."""
import fnmatch
import json
import pathlib

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


def packages(chosen):
    """The Debian packages of these applications, each once."""
    return list(dict.fromkeys(package for each in chosen for package in each["packages"]))


def explanation_of(difference, application, known):
    """The first explanation that covers a difference, or nothing. No pattern covers a whole application by silence."""
    for each in known:
        if application not in each["applications"] or difference["kind"] not in each["kinds"]:
            continue
        if any(fnmatch.fnmatchcase(difference["path"], pattern.replace("[", "[[]")) for pattern in each["entries"]):
            return each
    return None
