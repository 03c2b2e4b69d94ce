# SPDX-License-Identifier: MIT
"""Notifications of finished intervals, as a daemon gets them and as the window shows those that no
daemon took.

Usage: test_notifications.py BINARY [unittest arguments]"""

import os
import sys
import time
import unittest

from driver import Desktop, ProgramTest, click, key, lines_of, now, serve, wait_for

NAME, PATH = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
XML = f"""<node><interface name="{NAME}">
    <method name="GetCapabilities"><arg type="as" direction="out"/></method>
    <method name="Notify"><arg type="s" direction="in"/><arg type="u" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="as" direction="in"/><arg type="a{{sv}}" direction="in"/><arg type="i" direction="in"/>
    <arg type="u" direction="out"/></method></interface></node>"""


def setUpModule():
    unittest.addModuleCleanup(Desktop().close)


class Daemon:
    """Takes notifications on a bus connection of its own."""

    def __init__(self, answers):
        from gi.repository import GLib  # not before there is a bus
        self.variant = GLib.Variant
        self.answers = answers
        self.taken = []  # when, and the arguments
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], NAME, PATH, XML, self._answer)

    def _answer(self, _bus, _sender, _path, _interface, method, arguments, invocation):
        if not self.answers:
            self.taken.append(invocation)  # for ever
        elif method == "GetCapabilities":
            invocation.return_value(self.variant("(as)", (["actions", "body", "body-markup", "sound"],)))
        else:
            self.taken.append((time.monotonic(), arguments.unpack()))
            invocation.return_value(self.variant("(u)", (len(self.taken),)))

    def emit(self, name, signature, *arguments):
        self.bus.emit_signal(None, PATH, NAME, name, self.variant(signature, arguments))


class Notifications(ProgramTest):
    def daemon(self, answers=True):
        daemon = Daemon(answers)
        self.addCleanup(daemon.bus.close_sync)
        return daemon

    def select(self, task):
        click(self.program.find(task, "list item"))
        self.program.find(task, "heading")

    def focus(self, task):
        self.select(task)
        self.program.press("30:00")
        self.program.find("Finish")

    def hide(self):
        wait_for(lambda: key("alt+F4") or not self.program.find_all("Add Task"), "it to hide")

    def test_a_finish_is_posted_once_a_second_later_and_shows_its_task(self):
        daemon = self.daemon()
        started = now()
        # Two end by themselves and in one save, one had ended before.
        self.make_store(
            "INSERT INTO Task VALUES (1, '8D5C1B66-0F3E-4A7B-9C55-2F9E1D1B7A10', 0, '<b>&\"')",
            "INSERT INTO Task VALUES (2, '8D5C1B66-0F3E-4A7B-9C55-2F9E1D1B7A11', 0, NULL)",
            *(f"INSERT INTO Interval VALUES ({i}, '8D5C1B66-0F3E-4A7B-9C55-2F9E1D1B7A2{i}',"
              f" {started}, {1797 if i < 3 else 0}, 1800, {min(i, 2)})" for i in (1, 2, 3)),
            *(f"INSERT INTO RawIntervalState VALUES ({i}, {2 if i > 2 else 0}, NULL, NULL, {i})"
              for i in (1, 2, 3)))
        program = self.program.launch()
        wait_for(lambda: not program.find_all("Finish") and len(daemon.taken) == 2, "two")
        texts = sorted(arguments[3] for _, arguments in daemon.taken)
        self.assertEqual(texts, ["-", "<b>&\""])
        for _, (name, replaced, _, _, body, actions, hints, expiration) in daemon.taken:
            self.assertEqual(
                (name, replaced, body, actions, expiration),
                ("Hearthmark", 0, "Interval finished", ["default", "Show"], -1))
            self.assertEqual((hints["desktop-entry"], hints["sound-name"]),
                             ("org.hearthmark.Hearthmark", "complete"))
        # By hand, with the window hidden when it is clicked.
        program.add_task("Letters")
        self.focus("Letters")
        pressed = time.monotonic()
        program.press("Finish")
        wait_for(lambda: len(daemon.taken) == 3, "the third")
        self.assertAlmostEqual(daemon.taken[2][0] - pressed, 1, delta=0.5)
        self.select("-")
        # There is no status item here to bring the window back. That is said once, and a click on it
        # does it.
        for clicked in (3, 4):
            self.hide()
            wait_for(lambda: len(daemon.taken) == 4, "what it says of that")
            daemon.emit("ActionInvoked", "(us)", clicked, "default")
            program.find("Letters", "heading")
        self.assertEqual(
            daemon.taken[3][1][3:5],
            ("Hearthmark", "Hearthmark keeps running. Start it again to bring its window back."))
        # What waits for its second when the program quits.
        self.focus("-")
        program.press("Finish")
        pressed = time.monotonic()
        self.assertEqual(program.end(), 0)
        wait_for(lambda: len(daemon.taken) == 5, "the last")
        self.assertLess(daemon.taken[4][0] - pressed, 0.9)
        self.assertEqual(daemon.taken[4][1][3], "-")

    def test_the_window_shows_what_nobody_took_and_never_waits(self):
        program = self.program
        for daemon in ("none", "hangs"):
            if daemon == "hangs":
                self.daemon(answers=False)
            with self.subTest(daemon=daemon):
                program.launch()
                if "Letters" not in program.names():
                    program.add_task("Letters")
                self.focus("Letters")
                program.press("Finish")
                longest, shown = 0.0, []
                until = time.monotonic() + 8
                while time.monotonic() < until and not shown:
                    asked = time.monotonic()
                    shown = program.find_all("Interval finished: Letters", "notification")
                    longest = max(longest, time.monotonic() - asked)
                self.assertTrue(shown)
                print(f"the window answered within {longest * 1000:.0f} ms")
                self.assertLess(longest, 1)
                program.press("Show" if daemon == "hangs" else "Dismiss")
                wait_for(lambda: not program.find_all(role="notification"), "it to go")
                self.assertEqual(program.end(), 0)

    def test_the_window_shows_it_without_a_bus(self):
        self.make_store(*self.task_with_interval(state=0, duration=1798.0))
        self.program.start(DBUS_SESSION_BUS_ADDRESS="disabled:")
        # Nobody tells then what is shown.
        wait_for(lambda: lines_of("a8431a", 600) > 20, "the banner")
        self.assertEqual(self.program.end(), 0)


if __name__ == "__main__":
    ProgramTest.binary = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
