# SPDX-License-Identifier: MIT
"""Stands between a program and the X server, as the proxies of sandboxes stand between a program and a service.

    display_relay.py NUMBER SERVER [EXTENSION]

Listens as display NUMBER and hands everything on to display SERVER, so that the server takes the windows of what comes
in here for windows of this process. Who asks for EXTENSION here is told that the server does not have it.
"""
import os
import socket
import sys
import threading


def _path(number):
    return f"/tmp/.X11-unix/X{number}"


def pump(source, sink, passed=bytes):
    """Hands on what `passed` gives for what comes, until one end closes, and closes both. Memory that is shared with the
    server comes as descriptors beside the data.
    """
    try:
        while True:
            data, descriptors, _, _ = socket.recv_fds(source, 65536, 16)
            if not data:
                break
            data = passed(data)
            sent = socket.send_fds(sink, [data], descriptors)
            for descriptor in descriptors:
                os.close(descriptor)
            sink.sendall(data[sent:])
    except OSError:
        pass
    for end in (source, sink):
        try:
            end.shutdown(socket.SHUT_RDWR)
        except OSError:
            pass


def _without(extension):
    """An extension's name is in one request only, the question for it: there the name of one takes its place that no server
    has.
    """
    return lambda data: data.replace(extension, extension[::-1])


def _serve(number, server, extension=None):
    listening = socket.socket(socket.AF_UNIX)
    listening.bind("\0" + _path(number))  # leaves no file behind
    listening.listen()
    print("ready", flush=True)
    while True:
        client, _ = listening.accept()
        upstream = socket.socket(socket.AF_UNIX)
        upstream.connect(_path(server))
        for arguments in ((client, upstream, _without(extension) if extension else bytes), (upstream, client)):
            threading.Thread(target=pump, args=arguments, daemon=True).start()


if __name__ == "__main__":
    _serve(int(sys.argv[1]), int(sys.argv[2]), *(name.encode() for name in sys.argv[3:]))
