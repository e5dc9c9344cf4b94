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


def sizes_of_last_window(written):
    """Of the window that came last the least size (width, height) that it may have, and the one that it has, both with the
    frame that the program draws around it; nothing for what has not been told."""
    surface_of, least, has, last = {}, {}, {}, None
    for _, number, message, arguments in _MESSAGE.findall(written):
        if message == "get_toplevel":
            last = int(_OBJECT.search(arguments)[2])
            surface_of[last] = int(number)
        elif message in ("set_min_size", "set_window_geometry"):
            told = least if message == "set_min_size" else has
            told[int(number)] = tuple(map(int, arguments.split(", ")[-2:]))
    return least.get(last), has.get(surface_of.get(last))
