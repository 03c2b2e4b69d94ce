# SPDX-License-Identifier: MIT
"""Random acts on the real program: keys, presses, clicks, texts, sizes, notifications, ends.
Usage: test_random_use.py BINARY, with HEARTHMARK_RANDOM_SECONDS and HEARTHMARK_RANDOM_SEED"""

import collections
import contextlib
import os
import random
import tempfile
import time

from driver import (ProgramTest, complaints, extents, has_focus, is_showing, key, new_id, now, press,
                    run_tests, type_text, wait_for, xdotool)
from players import Daemon, PATIENCE, Questions

SECONDS = float(os.environ.get("HEARTHMARK_RANDOM_SECONDS", 30))
SEED = int(os.environ.get("HEARTHMARK_RANDOM_SEED", random.SystemRandom().randrange(10 ** 6)))
MOST_TASKS = 60
LEFT_ALONE = "Restore and Restart"  # after which nobody answers to the old name
KEYS = """Tab shift+Tab Up Down Left Right Home End Page_Up Page_Down Return KP_Enter space Escape Delete
    BackSpace F1 F10 Menu shift+F10 shift+Up shift+Down shift+End shift+Return ctrl+Return ctrl+a ctrl+c ctrl+x
    ctrl+v ctrl+z ctrl+n ctrl+shift+n ctrl+1 ctrl+2 ctrl+f ctrl+shift+d ctrl+shift+f ctrl+e ctrl+question ctrl+Home ctrl+End""".split()
TEXTS = ["a", "Write the report", "ß–字", "שלום", " ", "<b>&amp;</b>", "%1 %2", "long " * 60]


class RandomUse(ProgramTest):
    def setUp(self):
        super().setUp()
        self.random = random.Random(SEED)
        self.count, self.slowest, self.began = 0, 0, time.monotonic()
        self.acts = collections.deque(maxlen=20)
        self.daemon = Daemon()
        opener = os.path.join(self.program.data, "xdg-open")
        with open(opener, "w", opener=lambda *how: os.open(*how, 0o700), encoding="ascii") as file:
            file.write("#!/bin/sh\n")
        os.environ["PATH"] = f"{self.program.data}:{os.environ['PATH']}"
        os.environ["XDG_CONFIG_HOME"] = self.program.data
        os.environ["HOME"] = self.program.data  # where files are exported to

    # Acts: each says what it does, and then does it.

    def nodes(self, interface):
        return [node for node in self.program.find_all() if interface in node.get_interfaces()]

    def press_something(self):
        node = self.random.choice(self.nodes("Action"))
        action = node.queryAction()
        name = self.random.choice([action.getName(each) for each in range(action.nActions)])
        yield f"{name} of {node.getRoleName()} {node.name[:40]!r}"
        if node.name != LEFT_ALONE:
            press(node, name)

    def press_keys(self):
        keys = self.random.choices(KEYS, k=self.random.randint(1, 4))
        yield " ".join(keys)
        key(*(keys if not self.program.find_all(LEFT_ALONE) else ["Escape"]))

    def click_something(self):
        place = extents(self.random.choice(self.program.find_all()))
        x, y = (start + self.random.randrange(max(1, length)) for start, length in
                ((place.x, place.width), (place.y, place.height)))
        button, repeat = self.random.choice([1, 1, 1, 2, 3, 3, 4, 5]), self.random.choice([1, 1, 2, 3])
        yield f"{repeat} clicks of {button} at {x},{y}"
        # What scrolled away is nowhere, or beside the window.
        if self.is_at(self.program.tree()[0], x, y) and not any(
                self.is_at(node, x, y) for node in self.program.find_all(LEFT_ALONE)):
            xdotool("mousemove", x, y, "click", "--repeat", repeat, "--delay", 20, button)

    @staticmethod
    def is_at(node, x, y):
        place = extents(node)
        return 0 <= x - place.x < place.width and 0 <= y - place.y < place.height

    def drag(self):
        window = extents(self.program.tree()[0])
        (x, y), (to_x, to_y) = ((window.x + self.random.randrange(window.width),
                                 window.y + self.random.randrange(window.height)) for _ in range(2))
        yield f"drag from {x},{y} to {to_x},{to_y}"
        xdotool("mousemove", x, y, "mousedown", 1, "mousemove", to_x, to_y, "mouseup", 1)

    def type_something(self):
        text = self.random.choice(TEXTS)
        yield f"type {text[:20]!r}"
        type_text(text)

    def write_something(self):
        text = self.random.choice(TEXTS) * self.random.choice([1, 1, 1, 40])
        editor = self.random.choice(self.nodes("EditableText"))
        yield f"write {len(text)} characters into {editor.name!r}"
        editor.queryEditableText().insertText(0, text, len(text))

    def add_and_start(self):
        yield "add a task and start a focus"
        key("Escape", "Escape", "ctrl+n")
        type_text(self.random.choice(TEXTS))
        key("ctrl+Return", "Escape", self.random.choice(["ctrl+1", "ctrl+2"]))

    def resize(self):
        size = self.random.randint(640, 1200), self.random.randint(420, 800)
        yield f"size {size}"
        xdotool("search", "--onlyvisible", "--name", "^Hearthmark$", "windowsize", *size)

    def click_a_notification(self):
        number = self.random.randint(1, max(1, len(self.daemon.taken)))
        yield f"click notification {number}"
        self.daemon.emit("ActionInvoked", "(us)", number, "default")

    def hide(self):
        yield "close the window"
        key("Escape", "Escape", "Escape", "alt+F4")
        wait_for(lambda: not self.is_there(), "it to go", 2)

    def quit(self):
        yield "quit"
        key("Escape", "Escape", "Escape", "ctrl+q")
        wait_for(lambda: self.program.process.poll() is not None, "the end", 2)

    def act(self):
        acts, weights = zip(
            (self.press_something, 20), (self.press_keys, 20), (self.click_something, 10), (self.drag, 3),
            (self.type_something, 4), (self.write_something, 4), (self.add_and_start, 4), (self.resize, 4),
            (self.click_a_notification, 2), (self.hide, 0.5), (self.quit, 0.3))
        self.count += 1
        try:
            for what in self.random.choices(acts, weights)[0]():
                self.acts.append(f"{time.monotonic() - self.began:8.1f} {what}")
        except Exception as error:  # what was to be used went away, or there is none
            self.acts.append(f"{'':8} which failed: {type(error).__name__}")

    # What has to hold.

    def begin(self):
        # The top of a list that only grows would soon be too far to be scrolled to.
        old = f"SELECT pk FROM Task ORDER BY pk DESC LIMIT -1 OFFSET {MOST_TASKS}"
        self.program.plant(
            f"DELETE FROM RawIntervalState WHERE interval IN (SELECT pk FROM Interval WHERE task IN ({old}))",
            *(f"DELETE FROM {table} WHERE task IN ({old})" for table in ("Interval", "Note")),
            f"DELETE FROM Task WHERE pk IN ({old})")
        self.program.launch()
        os.set_blocking(self.program.process.stderr.fileno(), False)
        self.questions = Questions(self.desktop.accessibility_bus, self.program.process)
        self.questions.start()

    def assert_fine(self):
        errors = complaints(self.program.process.stderr.read() or b"")
        self.assertFalse(errors, errors[:1000])
        if not self.questions.is_alive():
            wait_for(lambda: self.program.process.poll() is not None, "an answer, or the end")
        seconds, self.questions.seconds = self.questions.seconds, []
        self.slowest = max([self.slowest, *seconds])
        self.assertLess(self.slowest, PATIENCE, "an answer took too long")

    def assert_ended(self):
        """As whoever quits wants it."""
        self.questions.end()
        self.assert_fine()
        self.assertEqual(self.program.finished(), (0, ""))
        for query, right in [
                ("PRAGMA integrity_check", [("ok",)]), ("PRAGMA foreign_key_check", []),
                ("SELECT * FROM RawIntervalState WHERE state NOT IN (0, 2) OR started IS NOT NULL", [])]:
            self.assertEqual(self.program.rows(query), right)

    def end(self):
        self.program.process.terminate()
        self.assert_ended()

    def is_there(self):
        return any(is_showing(window) for window in self.program.tree())

    def bring_back(self):
        """Starts it, which also shows a window that was closed."""
        process = self.program.process
        with contextlib.suppress(AssertionError):
            wait_for(lambda: process.poll() is not None or self.is_there(), "either", 1)
        if process.poll() is not None:
            self.assert_ended()
            self.begin()
        elif not self.is_there():
            self.assertEqual(self.program.start().finished(), (0, ""))
            self.program.process = process
            wait_for(self.is_there, "the window")

    def assert_shown(self):
        """What runs stands on top of the list."""
        state = []

        def is_shown():
            key("Escape")  # what opened late, too
            running = {name for name, in self.program.rows(
                "SELECT name FROM Task t JOIN Interval i ON task = t.pk JOIN RawIntervalState"
                " ON interval = i.pk WHERE state = 1")}
            place = extents(self.program.find_all("Tasks", "list")[0])
            xdotool("mousemove", place.x + 20, place.y + 20, "click", "--repeat", 100, "--delay", 1, 4)
            rows = self.program.listed()
            end = [*(row[:2] for row in rows), ("heading", "Not running")].index(("heading", "Not running"))
            shown = {name for role, name, _ in rows[:end] if role == "list item"}
            state[:] = rows[0], shown, running
            return rows[0][1] == "Running" and shown <= running and bool(shown) == bool(running)
        try:
            wait_for(is_shown, "what runs to be shown")
        except AssertionError:
            print("The first row, what is shown to run, and what runs:", *state, sep="\n", flush=True)
            raise

    def test_nothing_it_is_used_for_does_harm(self):
        # Some are done; some end soon, or half way through.
        self.make_store(*(statement for number, left in enumerate([0, 20, SECONDS / 2] * 4) for statement in (
            ("INSERT INTO Task VALUES (NULL, ?, ?, ?)", (new_id(), now() - number, f"Task {number}" * (number + 1))),
            ("INSERT INTO Note VALUES (NULL, ?, ?, ?, ?)", (new_id(), now(), "Note\n" * number, number + 1)),
            ("INSERT INTO Interval VALUES (NULL, ?, ?, ?, 1800, ?)",
             (new_id(), now(), max(0, 1800 - left), number + 1)),
            ("INSERT INTO RawIntervalState VALUES (NULL, ?, NULL, NULL, last_insert_rowid())",
             (0 if left else 2,)))))
        try:
            self.begin()
            while time.monotonic() < self.began + SECONDS:
                for _ in range(20):
                    self.act()
                    self.bring_back()
                    self.assert_fine()
                self.assert_shown()
            self.end()
            self.begin()
            self.assert_shown()
            self.end()
        except BaseException:
            print(f"After {self.count} acts, the last of which were:", *self.acts, sep="\n", flush=True)
            with contextlib.suppress(Exception):  # it may have ended
                for node in self.program.find_all():
                    print(node.getRoleName(), repr(node.name[:40]), "with the keyboard" * has_focus(node), flush=True)
            raise
        print(f"{self.count} acts, the slowest answer took {self.slowest * 1000:.0f} ms", flush=True)


if __name__ == "__main__":
    tempfile.tempdir = "/dev/shm" if os.path.isdir("/dev/shm") else None  # no waiting for a disk
    print(f"HEARTHMARK_RANDOM_SEED={SEED}", flush=True)
    run_tests()
