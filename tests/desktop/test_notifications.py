# SPDX-License-Identifier: MIT
"""Notifications of finished intervals, as a daemon gets them.

Usage: test_notifications.py BINARY [unittest arguments]"""

import os
import sys
import time
import unittest

from driver import Desktop, ProgramTest, click, key, now, wait_for
from players import Daemon


def setUpModule():
    unittest.addModuleCleanup(Desktop().close)


class Notifications(ProgramTest):
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
        daemon = Daemon()
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


if __name__ == "__main__":
    ProgramTest.binary = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
