# SPDX-License-Identifier: MIT
"""The message format of D-Bus, written out by hand: a library would refuse to send what is wrong."""
import array
import collections
import os
import socket
import struct

CALL, RETURN, ERROR, SIGNAL = 1, 2, 3, 4
NO_REPLY_EXPECTED = 1

_PATH, _INTERFACE, _MEMBER, _ERROR_NAME, _REPLY_SERIAL, _DESTINATION, _SENDER, _SIGNATURE, _FDS = range(1, 10)
_FIELD_TYPES = {_PATH: "o", _INTERFACE: "s", _MEMBER: "s", _ERROR_NAME: "s", _REPLY_SERIAL: "u", _DESTINATION: "s",
                _SENDER: "s", _SIGNATURE: "g", _FDS: "u"}
_NUMBERS = {"y": "B", "b": "I", "n": "h", "q": "H", "i": "i", "u": "I", "x": "q", "t": "Q", "d": "d", "h": "I"}
_ALIGNMENT = {"y": 1, "g": 1, "v": 1, "n": 2, "q": 2, "x": 8, "t": 8, "d": 8, "(": 8, "{": 8}


def _first_type(signature):
    """The first complete type and the rest."""
    if signature[0] == "a":
        inner, rest = _first_type(signature[1:])
        return "a" + inner, rest
    if signature[0] in "({":
        depth = 0
        for index, letter in enumerate(signature):
            depth += (letter in "({") - (letter in ")}")
            if depth == 0:
                return signature[:index + 1], signature[index + 1:]
    return signature[0], signature[1:]


def _types(signature):
    while signature:
        first, signature = _first_type(signature)
        yield first


def _align(data, size):
    data.extend(bytes(-len(data) % size))


def _write(data, kind, value):
    _align(data, _ALIGNMENT.get(kind[0], 4))
    if kind[0] in _NUMBERS:
        data += struct.pack("<" + _NUMBERS[kind], value)
    elif kind[0] in "sog":
        text = value if isinstance(value, bytes) else value.encode()
        data += struct.pack("<B" if kind == "g" else "<I", len(text)) + text + b"\0"
    elif kind[0] == "v":
        signature, content = value
        _write(data, "g", signature)
        _write(data, signature, content)
    elif kind[0] == "a":
        _write_array(data, kind[1:], value)
    else:
        for part, content in zip(_types(kind[1:-1]), value):
            _write(data, part, content)


def _write_array(data, kind, values):
    place = len(data)
    data += bytes(4)
    _align(data, _ALIGNMENT.get(kind[0], 4))
    begin = len(data)
    for value in values:
        _write(data, kind, value)
    struct.pack_into("<I", data, place, len(data) - begin)


def body_of(signature, values):
    """The bytes of a message's content."""
    data = bytearray()
    for kind, value in zip(_types(signature), values):
        _write(data, kind, value)
    return bytes(data)


class Reader:
    """Reads values out of the content of a message."""

    def __init__(self, data):
        self._data = data
        self._at = 0

    def read(self, signature):
        return [self._one(kind) for kind in _types(signature)]

    def _align(self, size):
        self._at += -self._at % size

    def _one(self, kind):
        self._align(_ALIGNMENT.get(kind[0], 4))
        if kind[0] in _NUMBERS:
            value, = struct.unpack_from("<" + _NUMBERS[kind], self._data, self._at)
            self._at += struct.calcsize(_NUMBERS[kind])
            return value
        if kind[0] in "sog":
            length = self._one("y" if kind == "g" else "u")
            text = bytes(self._data[self._at:self._at + length]).decode()
            self._at += length + 1
            return text
        if kind[0] == "v":
            return self._one(self._one("g"))
        if kind[0] == "a":
            length = self._one("u")
            self._align(_ALIGNMENT.get(kind[1], 4))
            end = self._at + length
            values = []
            while self._at < end:
                values.append(self._one(kind[1:]))
            return values
        return [self._one(part) for part in _types(kind[1:-1])]


class Message:
    """What came: on which connection, its kind, its fields by number, its content."""

    def __init__(self, connection, data):
        self.connection = connection
        self.kind, self.flags = data[1], data[2]
        _, self.serial, length = struct.unpack_from("<III", data, 4)
        fields = dict(Reader(data[:16 + length]).read("yyyyuua(yv)")[6])
        self.path = fields.get(_PATH, "")
        self.interface = fields.get(_INTERFACE, "")
        self.member = fields.get(_MEMBER, "")
        self.sender = fields.get(_SENDER, "")
        self.reply_serial = fields.get(_REPLY_SERIAL, 0)
        self.signature = fields.get(_SIGNATURE, "")
        self._content = data[16 + length + -length % 8:]

    @property
    def arguments(self):
        return Reader(self._content).read(self.signature)

    @property
    def expects_reply(self):
        return self.kind == CALL and not self.flags & NO_REPLY_EXPECTED


class Connection:
    """A connection to a bus. What is sent goes out when `flush` finds room for it."""

    def __init__(self, address):
        self._socket = socket.socket(socket.AF_UNIX)
        self._socket.connect(_socket_name(address))
        self._greet()
        self._socket.setblocking(False)
        self._in = bytearray()
        self._out = collections.deque()
        self._serial = 0
        self.name = ""
        self.call("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "Hello")

    def _greet(self):
        self._socket.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        self._expect(b"OK")
        self._socket.sendall(b"NEGOTIATE_UNIX_FD\r\n")
        self._expect(b"AGREE_UNIX_FD")
        self._socket.sendall(b"BEGIN\r\n")

    def _expect(self, word):
        line = b""
        while not line.endswith(b"\r\n"):
            line += self._socket.recv(1)
        if not line.startswith(word):
            raise OSError(line)

    def fileno(self):
        return self._socket.fileno()

    def close(self):
        self._socket.close()

    def receive(self):
        """The messages that have come. Fails with EOFError when the bus has thrown us out."""
        while True:
            try:
                data = self._socket.recv(1 << 20)
            except BlockingIOError:
                break
            except ConnectionError as error:
                raise EOFError from error
            if not data:
                raise EOFError
            self._in += data
        messages = []
        while (size := self._next_size()) and len(self._in) >= size:
            messages.append(Message(self, bytes(self._in[:size])))
            del self._in[:size]
        return messages

    def _next_size(self):
        if len(self._in) < 16:
            return 0
        content, _, fields = struct.unpack_from("<III", self._in, 4)
        return 16 + fields + -fields % 8 + content

    @property
    def wants_to_write(self):
        return bool(self._out)

    def flush(self):
        while self._out:
            data, descriptors = self._out[0]
            control = [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", descriptors))] if descriptors else []
            try:
                sent = self._socket.sendmsg([data], control)
            except BlockingIOError:
                return
            except ConnectionError as error:
                raise EOFError from error
            if sent == len(data):
                self._out.popleft()
            else:
                self._out[0] = memoryview(data)[sent:], ()

    def call(self, destination, path, interface, member, signature="", values=()):
        fields = {_PATH: path, _INTERFACE: interface, _MEMBER: member, _DESTINATION: destination}
        return self._send(CALL, 0, fields, signature, body_of(signature, values))

    def reply(self, call, signature="", values=(), body=None, length=None, descriptors=(), serial=None):
        """`body` instead of `values`; `length` is the size that it is said to have, and `serial` the call's."""
        fields = {_REPLY_SERIAL: serial or call.serial, _DESTINATION: call.sender}
        body = body_of(signature, values) if body is None else body
        self._send(RETURN, NO_REPLY_EXPECTED, fields, signature, body, length, descriptors)

    def refuse(self, call, name="org.freedesktop.DBus.Error.Failed"):
        fields = {_REPLY_SERIAL: call.serial, _DESTINATION: call.sender, _ERROR_NAME: name}
        self._send(ERROR, NO_REPLY_EXPECTED, fields, "s", body_of("s", ["no"]))

    def tell(self, destination, signature, body):
        """A signal for one listener, who did not ask for it."""
        fields = {_PATH: "/", _INTERFACE: "org.a11y.atspi.Event.Object", _MEMBER: "ChildrenChanged",
                  _DESTINATION: destination}
        self._send(SIGNAL, NO_REPLY_EXPECTED, fields, signature, body)

    def _send(self, kind, flags, fields, signature, body, length=None, descriptors=()):
        self._serial += 1
        if signature:
            fields[_SIGNATURE] = signature
        if descriptors:
            fields[_FDS] = len(descriptors)
        length = len(body) if length is None else length
        field_values = [(number, (_FIELD_TYPES[number], value)) for number, value in fields.items()]
        head = bytearray(body_of("yyyyuua(yv)", [ord("l"), kind, flags, 1, length, self._serial, field_values]))
        _align(head, 8)
        if descriptors or len(body) < 4096:
            self._out.append((bytes(head) + body, descriptors))
        else:
            self._out += [(bytes(head), ()), (body, ())]  # not copied: it may be large, and sent often
        return self._serial


def _socket_name(address):
    """The socket of the first address that is one of a file or an abstract name."""
    for one in address.split(";"):
        kind, _, options = one.partition(":")
        pairs = dict(option.split("=", 1) for option in options.split(","))
        if kind == "unix" and "path" in pairs:
            return pairs["path"]
        if kind == "unix" and "abstract" in pairs:
            return "\0" + pairs["abstract"]
    raise ValueError(address)
