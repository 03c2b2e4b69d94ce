# SPDX-License-Identifier: MIT
"""The other ends of what the program says to the desktop, each on a bus connection of its own. Calls
come to them while somebody waits by wait_for()."""

import contextlib
import ctypes
import operator
import os
import select
import threading
import time

from gi.repository import Gio, GLib

from desktops import Waits
from driver import connect, serve, wait_for

NOTIFICATIONS, NOTIFICATIONS_PATH = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
NOTIFICATIONS_XML = f"""<node><interface name="{NOTIFICATIONS}">
    <method name="GetCapabilities"><arg type="as" direction="out"/></method>
    <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="as" direction="in"/><arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/>
    <arg type="u" direction="out"/></method>
    <method name="CloseNotification"><arg type="u" direction="in"/></method>
    <property name="Inhibited" type="b" access="read"/></interface></node>"""

ITEM, WATCHER = "org.kde.StatusNotifierItem", "org.kde.StatusNotifierWatcher"
MENU = "com.canonical.dbusmenu"
PATIENCE = 0.1  # seconds
WATCHER_XML = f"""<node><interface name="{WATCHER}">
    <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
    <property name="IsStatusNotifierHostRegistered" type="b" access="read"/></interface></node>"""

LOGIND, LOGIND_PATH, LOGIND_MANAGER = (
    "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")
LOGIND_XML = f"""<node><interface name="{LOGIND_MANAGER}"><method name="Inhibit">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="h" direction="out"/></method></interface></node>"""


SESSION, SESSION_PATH = "org.gnome.SessionManager", "/org/gnome/SessionManager"
SESSION_CLIENT = SESSION_PATH + "/Client1"
SESSION_XML = f"""<node><interface name="{SESSION}"><method name="RegisterClient">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="o" direction="out"/>
    </method></interface></node>"""
CLIENT_XML = f"""<node><interface name="{SESSION}.ClientPrivate"><method name="EndSessionResponse">
    <arg type="b" direction="in"/><arg type="s" direction="in"/></method></interface></node>"""

PORTAL, PORTAL_PATH = "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
APPEARANCE, COLOR_SCHEME = "org.freedesktop.appearance", "color-scheme"
DARK, LIGHT = GLib.Variant("u", 1), GLib.Variant("u", 2)
SETTINGS_XML = f"""<node><interface name="{SETTINGS}">
    <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{{sa{{sv}}}}" direction="out"/></method>
    <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method></interface></node>"""


class SettingsPortal:
    """Says one thing that the person has set."""

    def __init__(self, group=APPEARANCE, key=COLOR_SCHEME, value=LIGHT):
        self.group, self.key, self.value = group, key, value
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], PORTAL, PORTAL_PATH, SETTINGS_XML,
                         self._answer)

    def _answer(self, _bus, _sender, _path, _interface, method, _arguments, invocation):
        invocation.return_value(
            GLib.Variant("(a{sa{sv}})", ({self.group: {self.key: self.value}},)) if method == "ReadAll"
            else GLib.Variant("(v)", (GLib.Variant("v", self.value),)))

    def change(self, value):
        self.value = value
        self.bus.emit_signal(None, PORTAL_PATH, SETTINGS, "SettingChanged",
                             GLib.Variant("(ssv)", (self.group, self.key, value)))


class Daemon:
    """Takes notifications, unless it refuses each call or what it is to show, or hangs for five
    seconds. Whether it shows them it says where it has the capability "inhibitions"."""

    def __init__(self, manner="takes", capabilities=("actions", "body", "body-markup", "sound"), shows=True):
        self.manner = manner
        self.capabilities = capabilities
        self.called = self.answered = False
        self.taken = []  # when, and the arguments
        self.closed = []  # their numbers
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], NOTIFICATIONS, NOTIFICATIONS_PATH,
                         NOTIFICATIONS_XML, self._answer, lambda *_: GLib.Variant("b", not shows))

    def _answer(self, _bus, _sender, _path, _interface, *call):
        self.called = True
        if self.manner == "hangs":
            GLib.timeout_add_seconds(5, self._take, *call)
        elif self.manner == "refuses" or "show" in self.manner and call[0] == "Notify":
            call[-1].return_dbus_error("org.freedesktop.Notifications.Error.ExcessNotifications", "")
        else:
            self._take(*call)

    def _take(self, method, arguments, invocation):
        self.answered = True
        if method == "GetCapabilities":
            invocation.return_value(GLib.Variant("(as)", (self.capabilities,)))
        elif method == "CloseNotification":
            self.closed += arguments.unpack()
            invocation.return_value(None)
        else:
            self.taken.append((time.monotonic(), arguments.unpack()))
            invocation.return_value(GLib.Variant("(u)", (len(self.taken),)))
        return GLib.SOURCE_REMOVE

    def emit(self, name, signature, *arguments):
        self.bus.emit_signal(None, NOTIFICATIONS_PATH, NOTIFICATIONS, name,
                             GLib.Variant(signature, arguments))


class Panel:
    """Takes items and notes what they tell."""

    def __init__(self):
        self.item = None
        self.told = []  # when, which signal, with what
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], WATCHER, "/StatusNotifierWatcher",
                         WATCHER_XML, self._register, lambda *_: GLib.Variant("b", True))
        for interface in (ITEM, MENU):
            self.bus.signal_subscribe(None, interface, None, None, None, 0, self._note)

    def _register(self, _bus, sender, _path, _interface, _method, arguments, invocation):
        assert arguments.unpack() == (sender,), "the item stands under its unique name"
        self.item = sender
        invocation.return_value(None)

    def _note(self, _bus, _sender, _path, _interface, signal, arguments):
        self.told.append((time.monotonic(), signal, arguments.unpack()))

    def call(self, interface, method, signature, *arguments):
        path = "/StatusNotifierItem" + ("/Menu" if interface == MENU else "")
        target = "org.freedesktop.DBus.Properties" if method == "Get" else interface
        return self.bus.call_sync(self.item, path, target, method,
                                  GLib.Variant(signature, arguments), None, 0, 5000).unpack()

    def menu(self):
        """Its lines from top to bottom: the text, if any, and the number."""
        _, (_, _, lines) = self.call(MENU, "GetLayout", "(iias)", 0, -1, [])
        return [(properties.get("label"), number) for number, properties, _ in lines]

    def choose(self, number):
        self.call(MENU, "Event", "(isvu)", number, "clicked", GLib.Variant("i", 0), 0)

    def get(self, name, interface=ITEM):
        return self.call(interface, "Get", "(ss)", interface, name)[0]

    def labels(self):
        return [told[0] for _, signal, told in self.told if signal == "XAyatanaNewLabel"]


class Logind:
    """Notes who delays sleep and shutdown, and tells of them."""

    def __init__(self):
        self.lock = None  # closed at its other end when the program lets go
        self.bus = serve(os.environ["DBUS_SYSTEM_BUS_ADDRESS"], LOGIND, LOGIND_PATH, LOGIND_XML,
                         self._inhibit)

    def _inhibit(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        what, who, _why, mode = arguments.unpack()
        assert (what, who, mode) == ("shutdown:sleep", "Hearthmark", "delay")
        self.lock, theirs = os.pipe()
        descriptors = Gio.UnixFDList.new()
        descriptors.append(theirs)
        os.close(theirs)
        invocation.return_value_with_unix_fd_list(GLib.Variant("(h)", (0,)), descriptors)

    def is_delayed(self):
        return self.lock is not None and not select.select([self.lock], [], [], 0)[0]

    def tell(self, is_starting, what="PrepareForSleep"):
        self.bus.emit_signal(None, LOGIND_PATH, LOGIND_MANAGER, what,
                             GLib.Variant("(b)", (is_starting,)))


class SessionManager:
    """Takes the program as a client, and ends the session for it."""

    def __init__(self):
        self.answers = []  # whether each agreed
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], SESSION, SESSION_PATH, SESSION_XML,
                         self._register)
        node = Gio.DBusNodeInfo.new_for_xml(CLIENT_XML)
        self.bus.register_object(SESSION_CLIENT, node.interfaces[0], self._note)

    def _register(self, *call):
        is_program = call[5].unpack()[0] == "org.hearthmark.Hearthmark"
        path = SESSION_CLIENT if is_program else SESSION_PATH + "/Another"
        call[-1].return_value(GLib.Variant("(o)", (path,)))

    def _note(self, *call):
        self.answers.append(call[5].unpack()[0])
        call[-1].return_value(None)

    def tell(self, signal):
        self.bus.emit_signal(None, SESSION_CLIENT, SESSION + ".ClientPrivate", signal,
                             GLib.Variant("(u)", (0,)))


def start_session_bus(desktop, name):
    """A session bus that may die, since the accessibility bus to which it leads stays."""
    address = os.environ["DBUS_SESSION_BUS_ADDRESS"] = desktop.start_bus(name)
    answer = GLib.Variant("(s)", (desktop.accessibility_bus,))
    serve(address, "org.a11y.Bus", "/org/a11y/bus",
          """<node><interface name="org.a11y.Bus"><method name="GetAddress">
          <arg type="s" direction="out"/></method></interface></node>""",
          lambda *call: call[-1].return_value(answer))
    return desktop.processes[-1]


@contextlib.contextmanager
def hanging_clipboard():
    """A program that owns the clipboard and never answers, and then dies."""
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    display = ctypes.c_void_p(x11.XOpenDisplay(None))
    window = x11.XCreateSimpleWindow(display, x11.XDefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0)
    x11.XSetSelectionOwner(display, x11.XInternAtom(display, b"CLIPBOARD", 0), window, 0)
    x11.XSync(display, 0)
    yield
    x11.XCloseDisplay(display)


class Questions(threading.Thread):
    """Asks the program for its windows, which its main thread answers, until it is told to end, and
    notes how long that took: the work of that thread, or all but what somebody waited for a processor, if
    that is longer."""

    def __init__(self, accessibility_bus, process):
        super().__init__(daemon=True)
        self.bus, bus = connect(accessibility_bus), "org.freedesktop.DBus"
        self.name = wait_for(lambda: next(
            name for name in self._ask(bus, "ListNames", "()")[0] if name[0] == ":" and process.pid
            in self._ask(bus, "GetConnectionUnixProcessID", "(s)", name)), "its connection")
        self.worked = open(f"/proc/{process.pid}/schedstat", encoding="ascii")
        self.waits = Waits()
        self.ended = threading.Event()
        self.seconds = []

    def _ask(self, interface, method, signature, *arguments, to=None):
        return self.bus.call_sync(to or interface, "/org/a11y/atspi/accessible/root", interface, method,
                                  GLib.Variant(signature, arguments), None, 0, 20000, None).unpack()

    def _clocks(self):
        self.worked.seek(0)
        return int(self.worked.read().split()[0]) / 1e9, time.monotonic() - self.waits.seconds()

    def run(self):
        with contextlib.suppress(Exception):  # the program ended, as the test may want
            while not self.ended.wait(0.01):
                before = self._clocks()
                self._ask("org.a11y.atspi.Accessible", "GetChildren", "()", to=self.name)
                self.seconds.append(max(map(operator.sub, self._clocks(), before)))

    def end(self):
        """Whether all were answered."""
        is_asking = self.is_alive()
        self.ended.set()
        self.join()
        return is_asking
