"""A program with a window whose menus no honest program has. It speaks to the accessibility bus
byte by byte, because every library would keep it from what it does here.

    hostile_menus.py BUS_ADDRESS TREE

It prints a line once it is registered; the trees are the functions at the end.
"""

import ctypes
import itertools
import os
import select
import signal
import socket
import struct
import sys
import time

METHOD_CALL, METHOD_RETURN, ERROR = 1, 2, 3
PATH, INTERFACE, MEMBER, REPLY_SERIAL, DESTINATION, SENDER, SIGNATURE = 1, 2, 3, 5, 6, 7, 8
ERROR_NAME = 4
REGISTRY = "org.a11y.atspi.Registry"
PREFIX = "/org/a11y/atspi/accessible/"
ACTIVE, SHOWING = 1 << 1, 1 << 25
FRAME, MENU, MENU_BAR, MENU_ITEM, APPLICATION, PANEL = 23, 33, 34, 35, 75, 39


# --- The D-Bus wire format, little-endian --------------------------------------------------------

def pad(data, alignment):
    return data + b"\0" * (-len(data) % alignment)


def text(value):
    raw = value if isinstance(value, bytes) else value.encode()
    return struct.pack("<I", len(raw)) + raw + b"\0"


def references(pairs):
    parts = [pad(text(bus), 4) + text(path) for bus, path in pairs]
    body = b"".join(pad(part, 8) for part in parts[:-1]) + b"".join(parts[-1:])
    return pad(struct.pack("<I", len(body)), 8) + body


def field(code, kind, value):
    raw = struct.pack("BB", code, 1) + kind.encode() + b"\0"
    if kind == "u":
        return raw + struct.pack("<I", value)
    if kind == "g":
        return raw + bytes([len(value)]) + value.encode() + b"\0"
    return raw + text(value)


def message(kind, serial, fields, body=b""):
    header = b""
    for entry in fields:
        header = pad(header, 8) + entry
    start = struct.pack("<BBBBIII", ord("l"), kind, 1, 1, len(body), serial, len(header))
    return pad(start + header, 8) + body


def take_message(buffer):
    """(kind, serial, fields, body, length) of the first message, or None if it is not all there."""
    if len(buffer) < 16:
        return None
    _, kind, _, _, body_length, serial, length = struct.unpack_from("<BBBBIII", buffer)
    start = (16 + length + 7) & ~7
    if len(buffer) < start + body_length:
        return None
    fields, at = {}, 16
    while at < 16 + length:
        at = (at + 7) & ~7
        code, signature = buffer[at], chr(buffer[at + 2])
        at += 4
        if signature == "u":
            fields[code] = struct.unpack_from("<I", buffer, at)[0]
            at += 4
        elif signature == "g":
            fields[code] = bytes(buffer[at + 1:at + 1 + buffer[at]]).decode()
            at += buffer[at] + 2
        else:
            size = struct.unpack_from("<I", buffer, at)[0]
            fields[code] = bytes(buffer[at + 4:at + 4 + size]).decode()
            at += 5 + size
    return kind, serial, fields, bytes(buffer[start:start + body_length]), start + body_length


class Connection:
    """One end of a stream of messages."""

    def __init__(self, stream):
        self.stream = stream
        self.name = ""
        self._buffer = bytearray()
        self._serials = itertools.count(1)

    @classmethod
    def to_bus(cls, address):
        place = dict(pair.split("=", 1) for pair in
                     address.split(",guid=")[0].removeprefix("unix:").split(","))
        stream = socket.socket(socket.AF_UNIX)
        stream.connect(place.get("path") or "\0" + place["abstract"])
        stream.sendall(b"\0AUTH EXTERNAL " + str(os.getuid()).encode().hex().encode() + b"\r\n")
        stream.recv(4096)
        stream.sendall(b"BEGIN\r\n")
        connection = cls(stream)
        answer = connection.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                 "org.freedesktop.DBus", "Hello")
        size = struct.unpack_from("<I", answer)[0]
        connection.name = answer[4:4 + size].decode()
        return connection

    @classmethod
    def accepted(cls, stream):
        """The serving end of a connection without a bus."""
        spoken = b""
        while b"BEGIN\r\n" not in spoken:
            said = stream.recv(4096)
            if not said:
                raise SystemExit("no one there")
            spoken += said
            if b"AUTH EXTERNAL" in said:
                stream.sendall(b"OK 0123456789abcdef0123456789abcdef\r\n")
            elif b"NEGOTIATE_UNIX_FD" in said:
                stream.sendall(b"ERROR\r\n")
        connection = cls(stream)
        connection._buffer += spoken.partition(b"BEGIN\r\n")[2]  # questions may follow at once
        return connection

    def send(self, kind, fields, body=b""):
        self.stream.sendall(message(kind, next(self._serials), fields, body))

    def call(self, bus, path, interface, member, signature="", body=b""):
        fields = [field(PATH, "o", path), field(DESTINATION, "s", bus),
                  field(INTERFACE, "s", interface), field(MEMBER, "s", member)]
        self.send(METHOD_CALL, fields + ([field(SIGNATURE, "g", signature)] if signature else []),
                  body)
        while True:
            self.receive()
            for kind, _, _, answer in self.messages():
                if kind in (METHOD_RETURN, ERROR):
                    return answer

    def receive(self):
        """Waits for something to come in."""
        received = self.stream.recv(1 << 20)
        if not received:
            raise SystemExit(0)
        self._buffer += received

    def messages(self):
        """What has come in."""
        at = 0
        while taken := take_message(memoryview(self._buffer)[at:]):
            at += taken[4]
            yield taken[:4]
        del self._buffer[:at]

    def answer(self, call, signature="", body=b""):
        _, serial, fields, _ = call
        reply = [field(REPLY_SERIAL, "u", serial)]
        if SENDER in fields:
            reply.append(field(DESTINATION, "s", fields[SENDER]))
        self.send(METHOD_RETURN, reply + ([field(SIGNATURE, "g", signature)] if signature else []),
                  body)

    def refuse(self, call):
        _, serial, fields, _ = call
        reply = [field(REPLY_SERIAL, "u", serial),
                 field(ERROR_NAME, "s", "org.freedesktop.DBus.Error.AccessDenied")]
        if SENDER in fields:
            reply.append(field(DESTINATION, "s", fields[SENDER]))
        self.send(ERROR, reply)


# Answers of a wrong form, whatever the question was.
GARBAGE = itertools.cycle([
    ("s", text("Neplatné")), ("u", struct.pack("<I", 0xffffffff)), (),
    ("a(so)", references([("", "/"), ("není jméno", "/org/a11y/atspi/null")])),
    ("(iiii)", struct.pack("<iiii", -1 << 31, (1 << 31) - 1, (1 << 31) - 1, (1 << 31) - 1)),
    ("au", struct.pack("<I", 0)), ("v", b"\1u\0\0" + struct.pack("<I", 7))])


# --- The program ---------------------------------------------------------------------------------

class Item:
    """An element of the tree."""

    def __init__(self, role, name="", binding="", children=(), place=(0, 0, 100, 20)):
        self.role, self.name, self.binding, self.children = role, name, binding, children
        self.place = place


class Program:
    def __init__(self, address, tree):
        self.bus = Connection.to_bus(address)
        self.elements = {"root": Item(APPLICATION, "Zlý program", "", ["frame"]),
                         "frame": Item(FRAME, "Zlý program", "", ["bar"])}
        self.refuses = False
        self.direct = None
        # Where it says that it takes connections, and the ends of those that fill that place.
        self.direct_address = None
        self.fillers = []
        # Where a menu is open all the time: x, y, width and height.
        self.open_menu = None
        self.is_garbage = False
        self.delay = 0  # seconds, before each answer about menus
        # What happens at which question about an element of the menus.
        self.at_question = {}
        self._questions = 0
        tree(self)
        self.window = open_window(self.open_menu)
        self.bus.call(REGISTRY, PREFIX + "root", "org.a11y.atspi.Socket", "Embed", "(so)",
                      pad(text(self.bus.name), 4) + text(PREFIX + "root"))
        print("registered", flush=True)

    def add(self, name, *item):
        self.elements[name] = Item(*item)

    def serve(self):
        connections = {self.bus.stream: self.bus}
        while True:
            streams = list(connections) + ([self.direct] if self.direct else [])
            for stream in select.select(streams, [], [])[0]:
                try:
                    if stream is self.direct:
                        stream = self.direct.accept()[0]
                        connections[stream] = Connection.accepted(stream)
                    else:
                        connections[stream].receive()
                    for call in connections[stream].messages():
                        if call[0] == METHOD_CALL:
                            self._answer(connections[stream], call)
                except (SystemExit, ConnectionError):
                    if stream is self.bus.stream:
                        raise SystemExit(0) from None
                    connections.pop(stream, None)

    def _answer(self, connection, call):
        _, _, fields, body = call
        member = fields[MEMBER]
        name = fields.get(PATH, "").removeprefix(PREFIX)
        element = self.elements.get(name)
        is_menu = element is not None and element.role in (MENU, MENU_ITEM)
        if (element is None or self.refuses
                or is_menu and self.direct and connection is self.bus):
            connection.refuse(call)
            return
        if is_menu:
            self._questions += 1
            self.at_question.get(self._questions, lambda: None)()
            time.sleep(self.delay)
        if self.is_garbage:
            connection.answer(call, *next(GARBAGE))
        elif member == "GetChildren":
            pairs = [(self.bus.name, PREFIX + child) for child in element.children]
            connection.answer(call, "a(so)", references(pairs))
        elif member == "GetRole":
            connection.answer(call, "u", struct.pack("<I", element.role))
        elif member == "GetState":
            connection.answer(call, "au", struct.pack("<III", 8, ACTIVE | SHOWING, 0))
        elif member == "GetExtents":
            connection.answer(call, "(iiii)", struct.pack("<iiii", *element.place))
        elif member == "GetKeyBinding":
            connection.answer(call, "s", text(element.binding))
        elif member == "Get" and b"Name\0" in body:
            connection.answer(call, "v", b"\1s\0\0" + text(element.name))
        elif member == "GetApplicationBusAddress" and self.direct_address:
            connection.answer(call, "s", text(self.direct_address))
        elif member == "GetApplicationBusAddress":
            connection.refuse(call)
        else:
            connection.answer(call)


class WindowAttributes(ctypes.Structure):
    """XSetWindowAttributes."""

    _fields_ = [("background_pixmap", ctypes.c_ulong), ("background_pixel", ctypes.c_ulong),
                ("border_pixmap", ctypes.c_ulong), ("border_pixel", ctypes.c_ulong),
                ("bit_gravity", ctypes.c_int), ("win_gravity", ctypes.c_int),
                ("backing_store", ctypes.c_int), ("backing_planes", ctypes.c_ulong),
                ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int),
                ("event_mask", ctypes.c_long), ("do_not_propagate_mask", ctypes.c_long),
                ("override_redirect", ctypes.c_int), ("colormap", ctypes.c_ulong),
                ("cursor", ctypes.c_ulong)]


def open_menu_window(x11, display, root, place):
    """A window that says it is a menu, and lies over its program's for good."""
    override_redirect = 1 << 9
    atom_type, replace = 4, 0
    window = x11.XCreateSimpleWindow(display, root, *place, 0, 0, 0x44cc44)
    x11.XChangeWindowAttributes(display, window, override_redirect,
                                ctypes.byref(WindowAttributes(override_redirect=1)))
    names = (b"_NET_WM_WINDOW_TYPE", b"_NET_WM_WINDOW_TYPE_POPUP_MENU")
    name, popup_menu = (x11.XInternAtom(display, name, 0) for name in names)
    x11.XChangeProperty(display, window, name, atom_type, 32, replace,
                        ctypes.byref(ctypes.c_ulong(popup_menu)), 1)
    x11.XMapWindow(display, window)


def open_window(menu=None):
    """A plain window of class "hostile", so that the program can be in front; with a menu that is
    open there if a place is given."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    root = x11.XDefaultRootWindow(display)
    window = x11.XCreateSimpleWindow(display, root, 40, 40, 300, 200, 0, 0, 0xcc4444)

    class ClassHint(ctypes.Structure):
        _fields_ = [("name", ctypes.c_char_p), ("window_class", ctypes.c_char_p)]

    x11.XSetClassHint(display, window, ctypes.byref(ClassHint(b"hostile", b"Hostile")))
    x11.XMapWindow(display, window)
    if menu:
        open_menu_window(x11, display, root, menu)
    x11.XFlush(display)
    return display


# --- The trees -----------------------------------------------------------------------------------

def honest(program):
    program.add("bar", MENU_BAR, "", "", ["file"])
    program.add("file", MENU, "Soubor", "Alt+S", ["new", "open"])
    program.add("new", MENU_ITEM, "Zbrusu nový", "Ctrl+N")
    program.add("open", MENU_ITEM, "Otevřít", "Ctrl+O")


def cycle(program):
    """Elements that lead back to the bar, to themselves and to another program's."""
    honest(program)
    program.elements["file"].children = ["bar", "file", "root", "new", "loop", "new", "open"]
    program.add("loop", MENU, "Dokola", "", ["file", "loop", "inner"])
    program.add("inner", MENU_ITEM, "Uvnitř", "Ctrl+I", ["loop"])


def many(program):
    honest(program)
    names = [f"item{number}" for number in range(100_000)]
    for number, name in enumerate(names):
        program.add(name, MENU_ITEM, f"Položka {number}", "Ctrl+M")
    program.elements["file"].children = ["new", "open"] + names


def huge(program):
    honest(program)
    program.elements["file"].children = ["new", "title", "binding", "open"]
    program.add("title", MENU_ITEM, "x" * (1 << 20), "Ctrl+X")
    program.add("binding", MENU_ITEM, "Dlouhá zkratka", "Ctrl+" * (1 << 18) + "X")


def odd(program):
    """Valid for the wire, and yet no title anybody would write."""
    honest(program)
    program.elements["file"].children = ["new", "controls", "signs", "markup", "open"]
    program.add("controls", MENU_ITEM, "\1Pří\7kaz\x1b[31m\n\x7f", "Ctrl+1")
    program.add("signs", MENU_ITEM, "\u202e\ufffe\U0010ffff\ufeffa\u0301\u0301\u0301", "Ctrl+2")
    program.add("markup", MENU_ITEM, "<b>tučně</b> &amp; <img src='file:///etc/passwd'>", "Ctrl+3")


def broken(program):
    """Bytes that are no UTF-8; the bus ends a connection that sends them."""
    honest(program)
    program.elements["file"].children = ["new", "broken", "open"]
    program.add("broken", MENU_ITEM, b"\xff\xfe\xc3\x28\xed\xa0\x80", "Ctrl+B")


def bound_socket(program):
    """A socket at the place where the program says that it takes connections."""
    path = os.path.join(os.environ["XDG_RUNTIME_DIR"], f"hostile-{os.getpid()}")
    program.direct_address = f"unix:path={path}"
    bound = socket.socket(socket.AF_UNIX)
    bound.bind(path)
    return bound


def taking_nobody_in(program):
    """A place of its own whose queue is full: who connects to it waits without end."""
    honest(program)
    full = bound_socket(program)
    full.listen(0)
    program.fillers.append(full)
    try:
        while True:
            filler = socket.socket(socket.AF_UNIX)
            program.fillers.append(filler)
            filler.setblocking(False)
            filler.connect(full.getsockname())
    except BlockingIOError:
        pass


def taking_nobody_in_silently(program):
    taking_nobody_in(program)
    program.delay = 3600


def directly(program):
    """Menus that are only told of on a connection without a bus in between."""
    honest(program)
    program.direct = bound_socket(program)
    program.direct.listen()


def broken_directly(program):
    """Bytes that are no UTF-8, and no bus in between that could end anything."""
    directly(program)
    broken(program)


def always_open(program):
    """A menu that no choice closes, and another with more shortcuts."""
    program.open_menu = (0, 1000, 200, 60)
    program.add("bar", MENU_BAR, "", "", ["open", "file"])
    program.add("open", MENU, "Otevřené", "Alt+O", ["even", "odd"], (0, 980, 100, 20))
    program.add("even", MENU_ITEM, "Sudá volba", "", (), (0, 1000, 200, 30))
    program.add("odd", MENU_ITEM, "Lichá volba", "", (), (0, 1030, 200, 30))
    program.add("file", MENU, "Soubor", "Alt+S", ["first", "second", "third"])
    program.add("first", MENU_ITEM, "První odjinud", "Ctrl+1")
    program.add("second", MENU_ITEM, "Druhá odjinud", "Ctrl+2")
    program.add("third", MENU_ITEM, "Třetí odjinud", "Ctrl+3")


def dying(program):
    honest(program)
    program.at_question[5] = lambda: os._exit(0)


def stopping(program):
    honest(program)
    program.at_question[5] = lambda: os.kill(os.getpid(), signal.SIGSTOP)


def without_menu_bar(program):
    program.elements["frame"].children = ["panel"]
    program.add("panel", PANEL)


def refusing(program):
    honest(program)
    program.refuses = True


# Menus that are open while somebody watches what is clicked.

def popped_up(program):
    program.open_menu = (900, 700, 200, 60)
    program.add("bar", MENU_BAR, "", "", ["file"])
    program.add("file", MENU, "Soubor", "Alt+S", ["new"])
    program.add("new", MENU_ITEM, "Zbrusu nový", "Ctrl+N", (), program.open_menu)


def popped_up_garbage(program):
    popped_up(program)
    program.is_garbage = True


def popped_up_slow(program):
    popped_up(program)
    program.delay = 0.3


def popped_up_silent(program):
    popped_up(program)
    program.delay = 3600


def popped_up_taking_nobody_in(program):
    taking_nobody_in_silently(program)
    popped_up(program)


def popped_up_dying(program):
    popped_up(program)
    program.at_question[3] = lambda: os._exit(0)


def popped_up_huge(program):
    """A title without end, and places beyond any screen."""
    popped_up(program)
    last = (1 << 31) - 1
    program.elements["file"].children = ["far", "wide", "negative", "long"]
    program.add("far", MENU_ITEM, "Zbrusu nový", "", (), (last, -last, last, last))
    program.add("wide", MENU_ITEM, "Zbrusu nový", "", (), (900, 700, last, last))
    program.add("negative", MENU_ITEM, "Zbrusu nový", "", (), (900, 700, -last, -5))
    program.add("long", MENU_ITEM, "Zbrusu nový" * 100_000, "", (), program.open_menu)


if __name__ == "__main__":
    Program(sys.argv[1], globals()[sys.argv[2]]).serve()
