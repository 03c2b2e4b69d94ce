# SPDX-License-Identifier: MIT
"""The status item as a panel sees it on the session bus, and notifications of finished intervals as a
daemon gets them. Usage: test_status_item_and_notifications.py BINARY [unittest arguments]"""

import os
import re
import signal
import subprocess
import time
from collections import Counter
from pathlib import Path

from gi.repository import GLib

from desktops import Waits
from driver import (ProgramTest, click, extents, key, lines_of, new_id, now, press, run_tests, screen,
                    toggle_maximised, wait_for, windows, xdotool)
from players import Daemon, ITEM, MENU, Panel, SettingsPortal


class StatusItem(ProgramTest):
    def setUp(self):
        super().setUp()
        self.panel = Panel()
        self.addCleanup(self.panel.bus.close_sync)

    def launch(self):
        self.program.launch()
        wait_for(lambda: self.panel.item, "the item")
        return self.program, self.panel

    def test_tells_what_changes_once_a_second_and_nothing_else(self):
        program, panel = self.launch()
        program.add_task("<Letters>")
        press(program.find("<Letters>", "list item"))
        self.assertEqual([panel.get(name) for name in ("Title", "XAyatanaLabel", "Status")],
                         ["Hearthmark", "Hearthmark!", "Active"])
        for side, _, pixels in panel.get("IconPixmap"):
            place = 4 * (side * (side // 2) + side // 11)  # on the disc, beside the mark
            self.assertEqual((len(pixels), bytes(pixels[place:place + 4])),
                             (4 * side * side, b"\xff\x2e\x24\x1d"))
        self.assertEqual(panel.told, [])
        waits = Waits()
        started, waited = time.monotonic(), waits.seconds()
        program.press("30:00")
        wait_for(lambda: len(panel.labels()) >= 5, "five seconds")
        told, labels = list(panel.told), panel.labels()
        self.assertAlmostEqual(told[0][0] - started, 1, delta=0.4 + waits.seconds() - waited)
        self.assertEqual(labels, [f"{second + 1}/30:00" for second in range(len(labels))])
        self.assertEqual(Counter(signal for _, signal, _ in told), {
            "XAyatanaNewLabel": len(labels), "NewToolTip": len(labels) + 1, "NewIcon": 1})
        title, text = panel.get("ToolTip")[2:]
        self.assertIn(title, panel.labels()[-2:])
        self.assertEqual(text, "<span>&lt;Letters&gt;</span>")
        program.press("Finish")
        wait_for(lambda: panel.labels()[-1] == panel.get("XAyatanaLabel") == "Hearthmark!", "the end")
        # No daemon here shows that it finished.
        wait_for(lambda: panel.get("Status") == "NeedsAttention", "the dot")
        window, = windows()
        toggle_maximised(window)
        wait_for(lambda: extents(program.find("Add Task")).y > 700, "it to be large")
        xdotool("windowminimize", window)
        wait_for(lambda: not windows(), "the window to go")
        panel.call(ITEM, "Activate", "(ii)", 0, 0)
        wait_for(lambda: panel.get("Status") == "Active", "it to go")
        wait_for(lambda: extents(program.find("Add Task")).y > 700, "it, large")
        self.assertEqual(panel.get("XAyatanaLabel"), "Hearthmark!")

    def test_the_menu_follows_the_title_and_quits(self):
        self.make_store(*self.task_with_interval(state=0, duration=100.0))
        program, panel = self.launch()
        _, (root, _, children) = panel.call(MENU, "GetLayout", "(iias)", 0, -1, [])
        lines = [properties for _, properties, _ in children]
        self.assertEqual([line.get("label", line.get("type")) for line in lines][1:], [
            "separator", "Finish", "Add Task…", "separator", "Show Hearthmark", "Check for Updates…", "separator", "Quit"])
        self.assertFalse(lines[0]["enabled"])
        self.assertTrue(panel.call(MENU, "AboutToShow", "(i)", root)[0])
        with self.assertRaisesRegex(Exception, "InvalidArgs"):
            panel.call(MENU, "GetProperty", "(is)", children[0][0], "icon-name")
        wait_for(lambda: len(panel.labels()) >= 4, "four seconds")
        told = [(when, items[0][0][1]["label"]) for when, signal, items in panel.told
                if signal == "ItemsPropertiesUpdated"]
        self.assertIn(told[-1][1], panel.labels()[-2:])
        self.assertTrue(all(b[0] - a[0] > 0.9 for a, b in zip(told, told[1:])), told)
        panel.choose(children[-1][0])
        self.assertEqual(program.finished()[0], 0)
        self.assertEqual(self.interval()[1], 0)
        for language, direction in (("en_GB", "ltr"), ("ar_EG", "rtl")):
            panel.item = None
            program.launch(LC_ALL=f"{language}.UTF-8")
            wait_for(lambda: panel.item, "the item")
            self.assertEqual(panel.get("TextDirection", MENU), direction)
            program.end()

    def test_a_rest_is_counted_alike_everywhere_after_a_crash_and_a_quit(self):
        self.make_store(*self.task_with_interval(state=2, duration=720.5))
        program, panel = self.launch()

        def count():
            press(program.find("Planted", "list item"))
            for second in ("1/18:00", "2/18:00"):
                wait_for(lambda: panel.get("XAyatanaLabel") == second and len(program.find_all(second)) == 2,
                         f"{second} in panel, list and pane")

        def go_on(number):
            press(program.find("Planted", "list item"))
            wait_for(lambda: len(program.find_all("Continue 18:00", "push button")) == number, "the rest")
            program.press("Continue 18:00")
            count()

        go_on(1)
        for end, number in ((signal.SIGKILL, 2), (signal.SIGTERM, None)):
            program.end(end)
            panel.item = None
            self.launch()
            if number:
                go_on(number)  # the crash took what no stamp had seen
        press(program.find("Planted", "list item"))
        wait_for(lambda: re.fullmatch("[3-9]/18:00", panel.get("XAyatanaLabel"))
                 and len(program.find_all(panel.get("XAyatanaLabel"))) == 2, "it to go on")
        self.assertEqual(program.rows("SELECT count(*), max(maxDuration) FROM Interval WHERE pk > 1"), [(2, 1080)])

    def test_the_menu_starts_goes_on_finishes_and_adds_with_the_window_hidden(self):
        tasks = (("Old", 100, 1800), ("&_" + "n" * 50 + "\nx", 300, 1800), ("Left", 400, 720),
                 ("Report", 200, 1800))
        self.make_store(*(statement for pk, (name, created, duration) in enumerate(tasks, 1)
                          for statement in (
            ("INSERT INTO Task VALUES (?, ?, 0, ?)", (pk, new_id(), name)),
            ("INSERT INTO Interval VALUES (?, ?, ?, ?, 1800, ?)", (pk, new_id(), created, duration, pk)),
            ("INSERT INTO RawIntervalState VALUES (?, 2, NULL, NULL, ?)", (pk, pk)))))
        program, panel = self.launch()
        program.find("Left", "list item")
        xdotool("windowminimize", *windows())
        wait_for(lambda: not windows(), "the window to go")
        idle = panel.menu()
        name = "&__" + "n" * 38 + "…"
        self.assertEqual([text for text, _ in idle if text][1:], [
            "Continue 18:00 – Left", "Start 30:00 – Left", "Start 1:00:00 – Left",
            f"Start 30:00 – {name}", f"Start 1:00:00 – {name}",
            "Start 30:00 – Report", "Start 1:00:00 – Report",
            "Add Task…", "Show Hearthmark", "Check for Updates…", "Quit"])
        number = dict(idle)

        def running():
            return program.rows("SELECT maxDuration, task FROM Interval JOIN RawIntervalState"
                                " ON interval = Interval.pk WHERE state = 1")
        for text, expected in (("Continue 18:00 – Left", (1080, 3)),
                               (f"Start 1:00:00 – {name}", (3600, 2))):
            panel.told.clear()
            panel.choose(number[text])
            wait_for(lambda: running() == [expected], text)
            wait_for(lambda: any(signal == "LayoutUpdated" for _, signal, _ in panel.told), "the news")
            lines = panel.menu()
            self.assertEqual([text for text, _ in lines if text][1:3], ["Finish", "Add Task…"])
            panel.choose(number["Start 30:00 – Report"])  # no longer there
            panel.choose(dict(lines)["Finish"])
            wait_for(lambda: not running(), "the end")
            self.assertFalse(windows())
            number = dict(panel.menu())
        self.assertEqual(number["Add Task…"], dict(idle)["Add Task…"])
        self.assertEqual(len(program.rows("SELECT pk FROM Interval")), 6)
        panel.choose(number["Add Task…"])
        program.find("Task name")


class DockedItem(ProgramTest):
    """Where there is a tray of the older kind alone."""

    def start_tray(self):
        tray = subprocess.Popen(["trayer", "--edge", "top", "--align", "left", "--height", "30"])
        self.addCleanup(tray.wait)
        self.addCleanup(tray.kill)
        return tray

    @staticmethod
    def look():
        """The item's place, and its pixels."""
        pixels, ground = screen(), bytes.fromhex("2e241d") * 20
        top, left = divmod(pixels.index(ground) // 3, 1200)
        return left, top, pixels[pixels.index(ground):pixels.rindex(ground)]

    def test_counts_brings_the_window_back_and_moves_to_the_next_tray(self):
        tray = self.start_tray()
        self.make_store(*self.task_with_interval(state=0))
        program = self.program.launch()
        for button in (1, 3):
            wait_for(self.look, "the item")
            seen = set()
            wait_for(lambda: seen.add(self.look()[2]) or len(seen) == 4, "three seconds", 5)
            wait_for(lambda: key("alt+F4") or not program.find_all("Add Task"), "the window to hide")
            left, top, _ = self.look()
            xdotool("mousemove", left + 10, top + 5, "click", button)
            if button == 3:
                program.press("Show Hearthmark", "menu item")
            program.find("Add Task")
            tray.kill()
            wait_for(lambda: lines_of("2e241d", 20) == 0, "the item to go")
            tray = self.start_tray()


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
        self.addCleanup(lambda: daemon.bus.close_sync())
        started = now()
        # Two end by themselves and in one save, one had ended before.
        self.make_store(
            "INSERT INTO Task VALUES (1, '8D5C1B66-0F3E-4A7B-9C55-2F9E1D1B7A10', 0, '<b>&\"')",
            "INSERT INTO Task VALUES (2, '8D5C1B66-0F3E-4A7B-9C55-2F9E1D1B7A11', 0, NULL)",
            *(f"INSERT INTO Interval VALUES ({i}, '8D5C1B66-0F3E-4A7B-9C55-2F9E1D1B7A2{i}',"
              f" {started}, {1797 if i < 3 else 0}, 1800, {min(i, 2)})" for i in (1, 2, 3)),
            *(f"INSERT INTO RawIntervalState VALUES ({i}, {2 if i > 2 else 0}, NULL, NULL, {i})"
              for i in (1, 2, 3)))
        program = self.program.launch(XDG_DATA_DIRS="/nowhere")
        wait_for(lambda: not program.find_all("Finish") and len(daemon.taken) == 2, "two")
        texts = sorted(arguments[3] for _, arguments in daemon.taken)
        self.assertEqual(texts, ["-", "<b>&\""])
        for _, (name, replaced, icon, _, body, actions, hints, expiration) in daemon.taken:
            self.assertEqual(
                (name, replaced, icon, body, actions, expiration),
                ("Hearthmark", 0, "org.hearthmark.Hearthmark", "Interval finished",
                 ["default", "Show", "more", "5 more minutes", "again", "Again"], -1))
            # Nothing has that name where the program was not installed.
            *form, pixels = hints["image-data"]
            self.assertEqual((form, len(pixels)), ([48, 48, 4 * 48, True, 8, 4], 4 * 48 * 48))
            self.assertEqual((hints["desktop-entry"], hints["sound-name"]),
                             ("org.hearthmark.Hearthmark", "complete"))
        self.assertFalse(program.has_loaded("libcanberra"), "the daemon makes the sound")
        # By hand, with the window hidden when it is clicked.
        program.add_task("Letters")
        self.focus("Letters")
        waits = Waits()
        pressed, waited = time.monotonic(), waits.seconds()
        program.press("Finish")
        wait_for(lambda: len(daemon.taken) == 3, "the third")
        self.assertAlmostEqual(daemon.taken[2][0] - pressed, 1, delta=0.5 + waits.seconds() - waited)
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
        daemon.bus.close_sync()
        daemon = Daemon(capabilities=["body"])
        program.launch()
        self.focus("-")
        program.press("Finish")
        wait_for(lambda: daemon.taken and program.has_loaded("libcanberra"), "a sound of the program's")
        self.assertEqual(daemon.taken[0][1][5], ["default", "Show"], "it has no buttons")

    def test_what_the_desktop_keeps_from_the_person_stands_in_the_window_and_is_not_heard(self):
        settings = os.path.join(self.program.data, "gsettings")  # in the place of GNOME's
        Path(settings).write_text('#!/bin/sh\n[ "$*" = "get org.gnome.desktop.notifications show-banners" ]'
                                  ' && echo $SHOWS\n')
        os.chmod(settings, 0o700)
        self.make_store(*self.task_with_interval(state=0))
        for desktop, capabilities, shows, is_heard in (
                # Not as Plasma: its theme of the toolkit, where it is installed, loads libcanberra.
                ("", ["inhibitions"], False, False), ("", ["inhibitions"], True, True),
                ("GNOME", ["sound"], False, False), ("GNOME", ["sound"], True, False),
                ("", [], True, True), ("without sounds", [], True, False)):
            if desktop == "without sounds":
                portal = SettingsPortal("org.gnome.desktop.sound", "event-sounds", GLib.Variant("b", False))
                self.addCleanup(portal.bus.close_sync)
            with self.subTest(desktop, capabilities=capabilities, shows=shows):
                daemon = Daemon(capabilities=["body", *capabilities], shows=shows)
                self.program.plant("UPDATE Interval SET duration = 1798", "UPDATE RawIntervalState SET state = 0")
                program = self.program.launch(XDG_CURRENT_DESKTOP=desktop, SHOWS=str(shows).lower(),
                                              PATH=f"{self.program.data}:{os.environ['PATH']}")
                wait_for(lambda: daemon.taken, "the finish")
                if shows and is_heard:
                    wait_for(lambda: program.has_loaded("libcanberra"), "a sound of the program's")
                if shows:
                    time.sleep(0.5)
                    self.assertEqual(program.has_loaded("libcanberra"), is_heard)
                    self.assertFalse(program.find_all("Interval finished: Planted"))
                else:
                    program.find("Interval finished: Planted", "notification")
                    self.assertFalse(program.has_loaded("libcanberra"))
                program.end()
                daemon.bus.close_sync()

    def test_its_buttons_go_on_without_the_window(self):
        daemon = Daemon()
        self.addCleanup(lambda: daemon.bus.close_sync())
        started = now()
        self.make_store(
            *(f"INSERT INTO Task VALUES ({i}, '{new_id()}', {i}, 'Task {i}')" for i in (1, 2)),
            f"INSERT INTO Interval VALUES (1, '{new_id()}', {started}, 1499, 1500, 1)",
            "INSERT INTO RawIntervalState VALUES (1, 0, NULL, NULL, 1)")
        panel = Panel()
        self.addCleanup(panel.bus.close_sync)
        program = self.program.launch()
        wait_for(lambda: len(daemon.taken) == 1, "the finish")
        self.hide()

        def lengths():
            return [length for length, in program.rows("SELECT maxDuration FROM Interval ORDER BY pk")]

        def invoke(number, button):
            # In a list of those that have expired, and until the program knows by which daemon it is shown.
            wait_for(lambda: daemon.emit("NotificationClosed", "(uu)", number, 1)
                     or daemon.emit("ActionInvoked", "(us)", number, button)
                     or number in daemon.closed, "it to close")
        invoke(1, "again")
        wait_for(lambda: lengths() == [1500, 1500], "the same length")
        daemon.emit("ActionInvoked", "(us)", 1, "more")  # gone by now
        panel.choose(dict(panel.menu())["Finish"])
        wait_for(lambda: len(daemon.taken) == 2, "the finish")
        invoke(2, "more")
        wait_for(lambda: lengths() == [1500, 1500, 300], "five minutes and no more")
        panel.choose(dict(panel.menu())["Finish"])
        wait_for(lambda: len(daemon.taken) == 3, "the finish")
        panel.choose(dict(panel.menu())["Start 30:00 – Task 1"])
        wait_for(lambda: "Finish" in dict(panel.menu()), "another focus")
        invoke(3, "again")
        wait_for(lambda: len(daemon.taken) == 4, "an answer")
        self.assertEqual(daemon.taken[3][1][3:5],
                         ("No focus was started", "A focus is running already."))
        self.assertEqual(lengths(), [1500, 1500, 300, 1800])
        self.assertFalse(windows())

    def test_why_it_cannot_go_on_is_told_in_time_and_as_the_daemon_reads_it(self):
        for manner, capabilities, text in (("takes", ["body"], "<&>"),
                                           ("takes", ["body", "body-markup"], "&lt;&amp;&gt;"),
                                           ("hangs", [], None)):
            daemon = Daemon(manner, capabilities)
            started = time.monotonic()
            self.program.start(XDG_DATA_HOME="/dev/null/<&>")
            wait_for(lambda: self.program.process.poll(), "the end")
            self.assertLess(time.monotonic() - started, 2)
            self.assertIn("/dev/null/<&>", self.program.finished()[1])
            if text:
                self.assertIn(f"/dev/null/{text}", daemon.taken[0][1][4])
            daemon.bus.close_sync()


if __name__ == "__main__":
    run_tests()
