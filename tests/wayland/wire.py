# SPDX-License-Identifier: MIT
"""What a program and its compositor have told each other, as the library of both writes it down with WAYLAND_DEBUG=1."""
import re

WRITTEN = {"WAYLAND_DEBUG": "1"}  # the environment of a program that is to write it

_MESSAGE = re.compile(r"(\w+)#(\d+)\.(\w+)\((.*)\)$", re.M)
_OBJECT = re.compile(r"\b(\w+)#(\d+)")


def size_of_last_popup(written):
    """The pixels (width, height) that were given for the pop-up that came last; nothing before there are any."""
    buffers, shown, surface_of, last = {}, {}, {}, None
    for kind, number, message, arguments in _MESSAGE.findall(written):
        objects = [int(found) for _, found in _OBJECT.findall(arguments)]
        if message == "create_buffer":
            buffers[objects[0]] = tuple(map(int, arguments.split(", ")[2:4]))
        elif message == "attach" and objects:
            shown[int(number)] = buffers[objects[0]]
        elif message == "get_xdg_surface":
            surface_of[objects[0]] = objects[1]
            shown.pop(objects[1], None)
        elif (kind, message) == ("xdg_surface", "get_popup"):
            last = surface_of[int(number)]
    return shown.get(last)
