# SPDX-License-Identifier: MIT
"""A machine that sleeps for an hour, as logind tells of it on a system bus of the test's own, with a
wall clock that the test sets forward.

Usage: test_sleep.py BINARY [unittest arguments]"""

import os
import select
import signal
import sys
import time
import unittest
from pathlib import Path

from driver import Desktop, ProgramTest, now, serve, wait_for
from test_status_item import Panel

NAME, PATH, MANAGER = (
    "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.login1.Manager")
XML = f"""<node><interface name="{MANAGER}"><method name="Inhibit">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="h" direction="out"/></method></interface></node>"""
HOUR = 3600


def setUpModule():
    desktop = Desktop()
    unittest.addModuleCleanup(desktop.close)
    os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = desktop.start_bus("system.conf")


class Logind:
    """Notes who delays sleep, and tells of it."""

    def __init__(self):
        from gi.repository import Gio, GLib  # not before there is a bus
        self.gio, self.variant = Gio, GLib.Variant
        self.lock = None  # closed at its other end when the program lets go
        self.bus = serve(os.environ["DBUS_SYSTEM_BUS_ADDRESS"], NAME, PATH, XML, self._inhibit)

    def _inhibit(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        what, who, _why, mode = arguments.unpack()
        assert (what, who, mode) == ("sleep", "Hearthmark", "delay")
        self.lock, theirs = os.pipe()
        descriptors = self.gio.UnixFDList.new()
        descriptors.append(theirs)
        os.close(theirs)
        invocation.return_value_with_unix_fd_list(self.variant("(h)", (0,)), descriptors)

    def is_delayed(self):
        return self.lock is not None and not select.select([self.lock], [], [], 0)[0]

    def tell(self, is_starting):
        self.bus.emit_signal(None, PATH, MANAGER, "PrepareForSleep",
                             self.variant("(b)", (is_starting,)))


class Sleep(ProgramTest):
    def test_an_hour_asleep_adds_nothing(self):
        self.make_store(*self.task_with_interval(state=0, duration=100.0))
        logind, panel = Logind(), Panel()
        clock = Path(self.program.data, "clock")
        clock.write_text("+0")
        program = self.program.start(
            LD_PRELOAD=LIBRARY, FAKETIME_TIMESTAMP_FILE=str(clock), FAKETIME_NO_CACHE="1",
            FAKETIME_DONT_FAKE_MONOTONIC="1")
        program.tree()
        wait_for(logind.is_delayed, "the delay")
        wait_for(lambda: len(panel.labels()) == 2, "two seconds")
        _, state, started, visited = before = self.interval()
        self.assertEqual((state, visited), (1, None))

        logind.tell(True)
        asleep = now()
        wait_for(lambda: not logind.is_delayed(), "the program to let it sleep")
        stamp = self.interval()[3]
        self.assertAlmostEqual(stamp, asleep, delta=0.5)
        self.assertEqual(self.interval(), (*before[:3], stamp))
        clock.write_text(f"+{HOUR}")
        time.sleep(2.2)  # ticks come before the signal
        self.assertEqual(self.interval(), (*before[:3], stamp))

        panel.told.clear()
        logind.tell(False)
        woken = now() + HOUR
        wait_for(logind.is_delayed, "the delay of the next sleep")
        duration, state, resumed, _ = self.interval()
        self.assertAlmostEqual(duration, 100 + stamp - started, delta=0.001)
        self.assertAlmostEqual(resumed, woken, delta=0.5)
        self.assertEqual(state, 1)
        wait_for(lambda: len(panel.labels()) == 3, "three seconds")
        whole = int(duration)
        self.assertIn(panel.labels()[0], [f"1:{whole - 60 + more:02}/30:00" for more in (0, 1, 2)])
        self.assertEqual(len(set(panel.labels())), 3)

        logind.tell(True)
        wait_for(lambda: not logind.is_delayed(), "the program to let it sleep")
        duration, _, started, visited = self.interval()
        program.end(signal.SIGKILL)
        program.launch().end()
        self.assertEqual(self.interval()[:2], (duration + visited - started, 2))


if __name__ == "__main__":
    ProgramTest.binary, LIBRARY = os.path.abspath(sys.argv.pop(1)), sys.argv.pop(1)
    unittest.main(verbosity=2)
