# SPDX-License-Identifier: MIT
"""Shortcuts as toolkits publish them, and whether a mirrored menu has a sign for them."""
import dataclasses
import typing

CHORD = "several keys one after another"
ALONE = "a key without Ctrl, Alt or Shift"
SUPER = "a combination with Super that has no code"
NO_SIGN = "a key without a sign (Delete, Insert, Tab and the like)"
MODIFIER = "a modifier that menus do not know"

_PUNCTUATION = {
    "exclam": "!", "quotedbl": '"', "numbersign": "#", "dollar": "$", "percent": "%", "ampersand": "&",
    "apostrophe": "'", "parenleft": "(", "parenright": ")", "asterisk": "*", "plus": "+", "comma": ",", "minus": "-",
    "period": ".", "slash": "/", "colon": ":", "semicolon": ";", "less": "<", "equal": "=", "greater": ">",
    "question": "?", "at": "@", "bracketleft": "[", "backslash": "\\", "bracketright": "]", "asciicircum": "^",
    "underscore": "_", "grave": "`", "braceleft": "{", "bar": "|", "braceright": "}", "asciitilde": "~",
    "KP_Add": "+", "KP_Subtract": "-", "KP_Multiply": "*", "KP_Divide": "/", "KP_Decimal": ".", "KP_Separator": ",",
    "KP_Equal": "=",
}
# The keys that are drawn by name, as GTK and as Qt call them.
_NAMED = {
    "Return": "Return", "BackSpace": "Backspace", "Backspace": "Backspace", "Escape": "Esc", "Esc": "Esc",
    "space": "Space", "Space": "Space", "Page_Up": "PgUp", "Prior": "PgUp", "PgUp": "PgUp", "Page_Down": "PgDown",
    "Next": "PgDown", "PgDown": "PgDown", "Left": "Left", "Right": "Right", "Up": "Up", "Down": "Down", "Home": "Home",
    "End": "End", "XF86Eject": "Eject", "Eject": "Eject",
}
_SIGNS = set(_NAMED.values()) | {f"F{number}" for number in range(1, 14)}
_MODIFIERS = {"primary": "Ctrl", "control": "Ctrl", "ctrl": "Ctrl", "alt": "Alt", "mod1": "Alt", "shift": "Shift",
              "super": "Super", "meta": "Super"}
_ORDER = ("Super", "Ctrl", "Alt", "Shift")
# With Super: which others may be held.
_WITH_SUPER = ({"Ctrl"}, {"Ctrl", "Alt"}, set())


@dataclasses.dataclass(frozen=True)
class Published:
    """What an item says of its shortcut: the text to expect in the menu, or the reason why there can be none."""

    text: typing.Optional[str] = None
    apart: typing.Optional[str] = None


def of_gtk(binding):
    """From "mnemonic;path;accelerator"."""
    fields = binding.split(";")
    return _of_accelerator(fields[2].strip()) if len(fields) > 2 else Published()


def of_qt(binding, title):
    """From portable text. "Alt" and a letter of the title is what Qt gives for a mnemonic, and no shortcut."""
    if not binding:
        return Published()
    if ", " in binding:
        return Published(apart=CHORD)
    words = _split_at_plus(binding)
    modifiers = {_MODIFIERS[word.lower()] for word in words[:-1] if word.lower() in _MODIFIERS}
    key = words[-1]
    if modifiers == {"Alt"} and len(key) == 1 and key.lower() in title.lower():
        return Published()
    return _published(modifiers, _NAMED.get(key, key))


def _of_accelerator(text):
    if not text:
        return Published()
    modifiers = set()
    while text.startswith("<") and ">" in text:
        word, text = text[1:].split(">", 1)
        if word.lower() not in _MODIFIERS:
            return Published(apart=MODIFIER)
        modifiers.add(_MODIFIERS[word.lower()])
    return _published(modifiers, _key_of_keysym(text))


def _key_of_keysym(name):
    if name in _PUNCTUATION:
        return _PUNCTUATION[name]
    if name.startswith("KP_") and name[3:].isdigit():
        return name[3:]
    return _NAMED.get(name, name)


def _split_at_plus(text):
    """"Ctrl++" is Control and plus."""
    if text.endswith("+"):
        return [word for word in text[:-1].split("+") if word] + ["+"]
    return text.split("+")


def _published(modifiers, key):
    if len(key) > 1 and key not in _SIGNS:
        return Published(apart=NO_SIGN)
    if not modifiers:
        return Published(apart=ALONE)
    if "Super" in modifiers and modifiers - {"Super"} not in _WITH_SUPER:
        return Published(apart=SUPER)
    words = [word for word in _ORDER if word in modifiers]
    return Published(text="+".join([*words, key.upper() if len(key) == 1 else key]))
