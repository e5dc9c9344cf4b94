# SPDX-License-Identifier: MIT
"""What shortcuts are to be expected in the mirrored menu."""
import unittest

import keys
from keys import Published

_GTK = [
    ("a letter with Control", "n;<Alt>f:n;<Primary>n", Published("Ctrl+N")),
    ("Shift stands after Control", ";;<Shift><Control>s", Published("Ctrl+Shift+S")),
    ("Super stands first", ";;<Super><Primary>t", Published("Super+Ctrl+T")),
    ("a keysym with the name of a sign", ";;<Primary>plus", Published("Ctrl++")),
    ("a semicolon is written by name", ";;<Primary>semicolon", Published("Ctrl+;")),
    ("the keypad's keys look like the others", ";;<Primary>KP_Add", Published("Ctrl++")),
    ("digits of the keypad too", ";;<Alt>KP_7", Published("Alt+7")),
    ("a named key", ";;<Primary>Page_Up", Published("Ctrl+PgUp")),
    ("a function key", ";;<Shift>F3", Published("Shift+F3")),
    ("F13 is the last with a sign", ";;<Primary>F14", Published(apart=keys.NO_SIGN)),
    ("a key alone", ";;F5", Published(apart=keys.ALONE)),
    ("Delete has no sign, alone or not", ";;<Primary>Delete", Published(apart=keys.NO_SIGN)),
    ("Super with Shift has no code", ";;<Super><Shift>a", Published(apart=keys.SUPER)),
    ("an unknown modifier", ";;<Hyper>a", Published(apart=keys.MODIFIER)),
    ("a mnemonic only", "n;<Alt>f:n;", Published()),
    ("two fields only", "n;<Alt>f", Published()),
    ("nothing", "", Published()),
]

_QT = [
    ("a letter with Control", "Ctrl+N", "New", Published("Ctrl+N")),
    ("plus itself", "Ctrl++", "Zoom In", Published("Ctrl++")),
    ("Meta is Super", "Meta+Ctrl+L", "Lock", Published("Super+Ctrl+L")),
    ("a chord", "Ctrl+K, Ctrl+S", "Save All", Published(apart=keys.CHORD)),
    ("a mnemonic", "Alt+N", "New", Published()),
    ("Alt and a letter that the title has not", "Alt+Z", "New", Published("Alt+Z")),
    ("Alt and an arrow", "Alt+Left", "Back", Published("Alt+Left")),
    ("a key alone", "F11", "Full Screen", Published(apart=keys.ALONE)),
    ("Delete", "Shift+Del", "Delete", Published(apart=keys.NO_SIGN)),
    ("the keypad's keys look like the others", "Ctrl+Num++", "Zoom In", Published("Ctrl++")),
    ("nothing", "", "New", Published()),
]


class Keys(unittest.TestCase):
    def test_gtk_publishes_mnemonic_path_and_accelerator(self):
        for name, binding, expected in _GTK:
            with self.subTest(name):
                self.assertEqual(keys.of_gtk(binding), expected)

    def test_qt_publishes_portable_text(self):
        for name, binding, title, expected in _QT:
            with self.subTest(name):
                self.assertEqual(keys.of_qt(binding, title), expected)


if __name__ == "__main__":
    unittest.main()
