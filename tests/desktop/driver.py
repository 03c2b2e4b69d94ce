# SPDX-License-Identifier: MIT
"""Runs the real program, and drives it through the accessibility bus and the keyboard."""

import contextlib
import ctypes
import json
import os
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest
import uuid
from pathlib import Path

from gi.repository import Gio, GLib

from desktops import Desktop, wait_for

NAME, BUS = "org.hearthmark.Hearthmark", "org.freedesktop.DBus"
EPOCH = 978307200  # 2001-01-01T00:00:00Z, from where the store counts
# What a planted row means that does not name its columns, whatever else its table may have.
COLUMNS = {"Task": "Task (pk, id, creationDate, name)",
           "Interval": "Interval (pk, id, creationDate, duration, maxDuration, task)",
           "RawIntervalState": "RawIntervalState (pk, state, started, visited, interval)",
           "Note": "Note (pk, id, creationDate, text, task)"}


def now():
    return time.time() - EPOCH


def new_id():
    return str(uuid.uuid4()).upper()


def complaints(errors):
    """Less that of the toolkit about itself where a connection ends in two ways at once."""
    return re.sub("QNetworkReplyImplPrivate::error: Internal problem.*\n", "", errors.decode())


class Program:
    """One run of the program on a data directory."""

    def __init__(self, binary, data):
        self.binary = binary
        self.data = data
        self.process = None

    @property
    def file(self):
        return os.path.join(self.data, "Hearthmark", "Hearthmark.sqlite")

    def environment(self, **changes):
        return {**os.environ, "XDG_DATA_HOME": self.data, **changes}

    def start(self, **environment):
        self.process = subprocess.Popen([self.binary], env=self.environment(**environment),
                                        stdin=subprocess.DEVNULL, stderr=subprocess.PIPE)
        return self

    def launch(self, **environment):
        import pyatspi

        self.start(**environment)
        wait_for(lambda: any(window.getState().contains(pyatspi.STATE_ACTIVE) for window in self.tree()),
                 "the window to have the keyboard")
        return self

    def end(self, number=signal.SIGTERM, seconds=10):
        """Sends the signal and returns the exit status."""
        if self.process is None:
            return None
        if self.process.poll() is None:
            self.process.send_signal(number)
        return self.finished(seconds)[0]

    def finished(self, seconds=10):
        """Waits for the end; the exit status and what was written to standard error."""
        process, self.process = self.process, None
        _, errors = process.communicate(timeout=seconds)
        return process.returncode, complaints(errors)

    def has_loaded(self, library):
        with open(f"/proc/{self.process.pid}/maps", encoding="utf-8") as maps:
            return library in maps.read()

    # The store, read by another program as anyone may.

    def rows(self, query):
        with contextlib.closing(sqlite3.connect(self.file)) as database:
            return database.execute(query).fetchall()

    def plant(self, *statements):
        with sqlite3.connect(self.file) as database:
            for statement in statements:
                text, *values = statement if isinstance(statement, tuple) else (statement,)
                database.execute(re.sub(r"(?<=INTO )(\w+)(?= VALUES)", lambda table: COLUMNS[table[0]],
                                        text), *values)
        database.close()

    # The accessibility tree.

    def tree(self):
        import pyatspi  # connects at once, so not before there is a bus

        def application():
            for each in pyatspi.Registry.getDesktop(0):
                if each and each.get_process_id() == self.process.pid and each.childCount:
                    return each
            return None
        return wait_for(application, "the application on the accessibility bus")

    def resize(self, width, height):
        xdotool("search", "--onlyvisible", "--name", "^Hearthmark$", "windowsize", "--sync", width,
                height)

    def find_all(self, name=None, role=None, root=None):
        """Every showing node, in the order of the tree."""
        found = []

        def visit(node):
            if not is_showing(node):
                return
            if (name is None or node.name == name) and (role is None or role_of(node) == role):
                found.append(node)
            for child in node:
                visit(child)
        for window in root or self.tree():
            visit(window)
        return found

    def find(self, name, role=None, seconds=10):
        return wait_for(lambda: self.find_all(name, role), f"{role or 'node'} {name!r}", seconds)[0]

    def press(self, name, role="push button"):
        press(self.find(name, role))

    def is_enabled(self, name, role="push button"):
        import pyatspi

        return self.find(name, role).getState().contains(pyatspi.STATE_ENABLED)

    def listed(self, title="Tasks"):
        """What the list shows, top to bottom: (role, name, description)."""
        def look():
            rows = [row for row in self.find_all(title, "list")[0] if is_showing(row)]
            rows.sort(key=lambda row: extents(row).y)
            return [(role_of(row), row.name, row.description) for row in rows]
        return wait_for(look, "the rows of the list")

    def names(self, title="Tasks"):
        return [name for _, name, _ in self.listed(title)]

    def section_of(self, task):
        """The header above the task's row."""
        header = None
        for role, name, _ in self.listed():
            if role == "heading":
                header = name
            elif role == "list item" and name == task:
                return header
        return None

    def enter_path(self, path):
        """Into the sheet that asks for a file, where the desktop has no dialog."""
        wait_for(lambda: has_focus(self.find_all("File", "text")[0]), "the field")
        key("ctrl+a")
        type_text(path)
        key("Return")

    def add_task(self, name):
        self.press("Add Task")
        self.find("Task name")
        type_text(name)
        self.press("Save")
        wait_for(lambda: name in self.names(), f"the row of {name!r}")


class BusStarted:
    """A process that is not ours."""

    returncode = 0

    def __init__(self, pid):
        self.pid = pid

    def poll(self):
        return None if os.path.exists(f"/proc/{self.pid}") else 0

    def send_signal(self, number):
        os.kill(self.pid, number)

    def communicate(self, timeout):
        wait_for(lambda: self.poll() is not None, "its end", timeout)
        return None, b""


def run_tests(make_desktop=Desktop, **options):
    """Those of the script that is run, with the program that its first argument names."""
    ProgramTest.binary = os.path.abspath(sys.argv.pop(1))
    ProgramTest.desktop = make_desktop()
    try:
        unittest.main(verbosity=2, **options)
    finally:
        ProgramTest.desktop.close()


class ProgramTest(unittest.TestCase):
    binary = desktop = None

    def setUp(self):
        data = tempfile.mkdtemp(prefix="hearthmark-data-")
        self.addCleanup(shutil.rmtree, data)
        self.program = Program(self.binary, data)
        self.addCleanup(lambda: self.program.process and self.program.end(signal.SIGKILL))

    def make_store(self, *statements):
        """A store that the program made, with rows of our own."""
        self.program.launch().end()
        self.program.plant(*statements)

    def task_with_interval(self, state, duration=0.0):
        return [("INSERT INTO Task VALUES (1, ?, 0, 'Planted')", (new_id(),)),
                ("INSERT INTO Interval VALUES (1, ?, 0, ?, 1800, 1)", (new_id(), duration)),
                ("INSERT INTO RawIntervalState VALUES (1, ?, NULL, NULL, 1)", (state,))]

    def interval(self):
        return self.program.rows("SELECT i.duration, r.state, r.started, r.visited FROM Interval i"
                                 " JOIN RawIntervalState r ON r.interval = i.pk")[0]


class BusTest(ProgramTest):
    """The bus can start the program."""

    def setUp(self):
        super().setUp()
        self.bus = connect(os.environ["DBUS_SESSION_BUS_ADDRESS"])
        self.addCleanup(self.bus.close_sync)
        self.daemon("UpdateActivationEnvironment", "(a{ss})", {"XDG_DATA_HOME": self.program.data})
        self.install(f"[D-BUS Service]\nName={NAME}\nExec={self.binary}\n")

    def call(self, name, path, interface, method, signature, *arguments):
        return self.bus.call_sync(name, path, interface, method, GLib.Variant(signature, arguments), None, 0,
                                  10000).unpack()

    def daemon(self, method, signature, *arguments):
        return self.call(BUS, "/org/freedesktop/DBus", BUS, method, signature, *arguments)

    def install(self, service):
        Path(self.desktop.directory, "session.conf.d", f"{NAME}.service").write_text(service, encoding="utf-8")
        self.daemon("ReloadConfig", "()")

    def start_by_bus(self):
        self.daemon("StartServiceByName", "(su)", NAME, 0)
        return self.started()

    def started(self):
        """The program that has the name on the bus."""
        self.program.process = BusStarted(self.daemon("GetConnectionUnixProcessID", "(s)", NAME)[0])
        return self.program


def connect(address):
    """A connection of its own to the bus."""
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)


def serve(address, name, path, xml, answer, get_property=None):
    """A connection that has the name, with one object whose calls go to the function. They come while
    somebody waits by wait_for()."""
    bus = connect(address)
    bus.register_object(path, Gio.DBusNodeInfo.new_for_xml(xml).interfaces[0], answer, get_property,
                        None)
    Gio.bus_own_name_on_connection(bus, name, 0, None, None)
    return bus


def role_of(node):
    """By the name that older accessibility libraries have for it, too."""
    role = node.getRoleName()
    return "push button" if role == "button" else role


def is_showing(node):
    import pyatspi

    return node is not None and node.getState().contains(pyatspi.STATE_SHOWING)


def has_focus(node):
    import pyatspi

    return node.getState().contains(pyatspi.STATE_FOCUSED)


def extents(node):
    import pyatspi

    return node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def press(node, name="Press"):
    action = node.queryAction()
    names = [action.getName(index) for index in range(action.nActions)]
    action.doAction(names.index(name))


def click(node, button=1):
    place = extents(node)
    xdotool("mousemove", place.x + place.width // 3, place.y + 12, "click", button)


def key(*names):
    xdotool("key", "--clearmodifiers", *names)


def type_text(text):
    if "SWAYSOCK" in os.environ:
        subprocess.run(["wtype", "--", text], check=True)
    else:
        xdotool("type", "--delay", "5", "--", text)


def xdotool(*arguments):
    subprocess.run(["xdotool", *map(str, arguments)], check=True)


def sway(*command):
    """Has the compositor do it; what it answers."""
    return json.loads(subprocess.check_output(["swaymsg", "--raw", *command]))


def views(node=None):
    """Those that the compositor knows: not hidden ones."""
    node = node or sway("--type", "get_tree")
    inner = [view for child in node["nodes"] + node["floating_nodes"] for view in views(child)]
    return [node] * ("pid" in node and node["type"] != "root") + inner


def toggle_maximised(window):
    """As a panel asks the window manager."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    toggle, *states = 2, *(x11.XInternAtom(display, b"_NET_WM_STATE_MAXIMIZED_" + way, 0)
                           for way in (b"HORZ", b"VERT"))
    message, to_managers = 33, 0x180000
    event = (ctypes.c_long * 24)(message, 0, 0, 0, int(window),
                                 x11.XInternAtom(display, b"_NET_WM_STATE", 0), 32, toggle, *states)
    x11.XSendEvent(display, ctypes.c_ulong(x11.XDefaultRootWindow(display)), 0, to_managers, event)
    x11.XCloseDisplay(display)


def windows():
    """Those that can be seen; not minimised, not hidden."""
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Hearthmark$"], text=True,
                          check=False, stdout=subprocess.PIPE).stdout.split()


def screen():
    """Its pixels, three bytes each."""
    return subprocess.check_output(["import", "-window", "root", "-depth", "8", "rgb:-"])


def lines_of(colour, width):
    """How many lines on the screen hold so many pixels of the colour side by side."""
    return screen().count(bytes.fromhex(colour) * width)


def set_clipboard(text):
    subprocess.run(["xclip", "-selection", "clipboard"], input=text.encode(), check=True,
                   stderr=subprocess.DEVNULL)


def clipboard(*target):
    return subprocess.check_output(["xclip", "-selection", "clipboard", "-o", *target], timeout=10)
