# SPDX-License-Identifier: MIT
"""A desktop whose parts fail while the program runs: the window goes on answering, and the store stays
right. Usage: test_hostile_desktop.py BINARY [unittest arguments]"""

import contextlib
import os
import signal
import subprocess
import tempfile
import time

from driver import (ProgramTest, clipboard, key, lines_of, new_id, now, press, run_tests, type_text, wait_for,
                    windows, xdotool)
from players import Daemon, ITEM, Logind, PATIENCE, Panel, Questions, hanging_clipboard, start_session_bus

HOUR, DAY = 3600, 86400


def setUpModule():
    import pyatspi  # looks for the accessibility bus on the session bus of the moment
    pyatspi.Registry.getDesktop(0)


class HostileDesktop(ProgramTest):
    def setUp(self):
        super().setUp()
        self.bus = start_session_bus(self.desktop, self.id())
        self.clock = os.environ["HEARTHMARK_CLOCK_OFFSET"] = os.path.join(self.program.data, "clock")
        self.set_clock(0)

    def set_clock(self, offset, asleep=0):
        """Seconds that the clock is ahead, and that the machine has slept as its other clocks say."""
        self.offset = offset
        with open(self.clock + ".new", "w", encoding="utf-8") as file:
            file.write(f"{offset} {asleep}")
        os.rename(file.name, self.clock)

    @contextlib.contextmanager
    def answering(self, part):
        self.program.tree()
        questions = Questions(self.desktop.accessibility_bus, self.program.process)
        questions.start()
        yield
        self.assertTrue(questions.end() or self.program.process.poll(), "no answer at all")
        print(f"{part}: {len(questions.seconds)} answers, the longest took"
              f" {max(questions.seconds) * 1000:.0f} ms", flush=True)
        self.assertLess(max(questions.seconds), PATIENCE)

    def begin(self, *spent, **environment):
        """Launches with a task for each, whose interval has lasted so many seconds and goes on."""
        program = self.program
        if not os.path.exists(program.file):
            self.make_store()
        program.plant(*(statement for name, seconds, *limit in spent for statement in (
            ("INSERT INTO Task VALUES (NULL, ?, 0, ?)", (new_id(), name)),
            ("INSERT INTO Interval VALUES (NULL, ?, ?, ?, ?, last_insert_rowid())",
             (new_id(), now(), seconds, *(limit or [1800]))),
            "INSERT INTO RawIntervalState VALUES (NULL, 0, NULL, NULL, last_insert_rowid())")))
        program.start(**environment)
        wait_for(lambda: program.rows("SELECT 1 FROM RawIntervalState WHERE state = 1"), "the start")
        return program

    def intervals(self):
        """The time spent on each task, and when its running stretch began."""
        return {name: (spent, started) for name, spent, started in self.program.rows(
            "SELECT name, duration, started FROM Task t JOIN Interval i ON task = t.pk"
            " JOIN RawIntervalState ON interval = i.pk")}

    def quit(self, *finished):
        """What runs has then lasted until now; all else is as it was. What finished did so in time."""
        before, asked = self.intervals(), now() + self.offset
        self.assertEqual(self.program.end(), 0)
        after, ended = self.intervals(), now() + self.offset
        self.assertEqual(before.keys(), after.keys())
        for task, (spent, started) in before.items():
            least, most = (spent + max(0, at - (started or at)) for at in (asked, ended))
            self.assertTrue(least <= after[task][0] <= most, (task, least, after[task][0], most))
        self.assertTrue(all(1800 <= after[task][0] < 1802 for task in finished), after)
        self.assertEqual(self.program.rows("PRAGMA integrity_check"), [("ok",)])

    def test_the_session_bus_dies(self):
        daemon = Daemon("hangs")
        program = self.begin(("Before", 1797), ("After", 1790), ("On", 100))
        with self.answering("the session bus dies"):
            wait_for(lambda: daemon.called, "the first finish")
            self.bus.kill()
            for text in ("Before", "After (and 1 before it)"):
                program.find("Interval finished: " + text, "notification")
            program.add_task("New")
            program.press("Dismiss")
        self.quit("Before", "After")

    def test_the_notification_daemon_hangs_or_refuses_or_is_not_there(self):
        for manner in ("hangs", "refuses", "refuses what it is to show", "nobody"):
            start_session_bus(self.desktop, manner)
            daemon = Daemon(manner) if manner != "nobody" else None
            program = self.begin((manner, 1798), (f"{manner}, on", 100))
            with self.answering(f"notification daemon: {manner}"):
                if manner == "refuses":
                    window, = wait_for(windows, "the window")
                    xdotool("windowminimize", window)
                    wait_for(lambda: "ATTENTION" in subprocess.check_output(
                        ["xprop", "-id", window, "_NET_WM_STATE"], text=True), "it to ask for attention")
                    xdotool("windowactivate", window)
                program.find(f"Interval finished: {manner}", "notification")
                program.press("Show" if daemon else "Dismiss")
                wait_for(lambda: not program.find_all(role="notification"), "it to go")
                self.assertEqual(bool(program.find_all(manner, "heading")), daemon is not None)
                self.assertTrue(program.has_loaded("libcanberra"), "a sound of the program's")
                wait_for(lambda: manner != "hangs" or daemon.answered, "its late answer")
            self.quit(manner)
        self.begin(("no bus", 1798), DBUS_SESSION_BUS_ADDRESS="disabled:")
        wait_for(lambda: lines_of("a8431a", 600) > 20, "the banner, seen")
        self.quit("no bus")

    def test_the_panel_comes_late_and_starts_anew(self):
        program = self.begin(("On", 100))
        with self.answering("the panel comes late and starts anew"):
            time.sleep(2.5)  # until it is looked for elsewhere
            for _ in range(3):
                panel = Panel()
                wait_for(lambda: len(panel.labels()) >= 2, "two seconds")
                wait_for(lambda: key("alt+F4") or not program.find_all("Add Task"), "it to hide")
                panel.call(ITEM, "Activate", "(ii)", 0, 0)
                program.find("Add Task")
                panel.bus.close_sync()
        self.quit()

    def test_the_clipboard_is_taken_by_a_program_that_hangs_and_dies(self):
        program = self.begin(("On", 100))
        press(program.find("On", "list item"))
        with self.answering("the clipboard is taken by a program that hangs and dies"):
            for _ in range(2):
                program.press("Share")
                program.press("Copy")
                wait_for(lambda: not program.find_all("Copy") and b"On" in clipboard(), "the copy")
                key("ctrl+shift+n")
                editor = program.find("Note", "text")
                with hanging_clipboard():
                    key("x", "shift+F10")
                    program.find("Paste", "menu item")
                    key("Escape")
                key("ctrl+v", "y")
                wait_for(lambda: editor.queryText().getText(0, -1) == "xy", "what was typed")
                program.press("Discard")
        self.quit()

    def assert_shown(self, task):
        time.sleep(1.2)
        spent, started = self.intervals()[task]
        def is_right():
            shown = self.program.find(task, "list item").description.split(",")[0].split(":")
            seconds = sum(int(part) * 60 ** place for place, part in enumerate(shown[::-1]))
            return 0 <= spent + max(0, now() + self.offset - started) - seconds <= 2
        wait_for(is_right, "its time")
        for node in self.program.find_all():
            self.assertNotRegex(f"{node.name} {node.description}", r"-\d")

    def test_the_clock_jumps(self):
        program = self.begin(("Endless", 100, 0), ("Half an hour", 100))
        press(program.find("Endless", "list item"))
        before, written = self.intervals(), os.stat(program.file + "-wal").st_mtime_ns
        with self.answering("the clock jumps a day back, and by minutes"):
            for offset in (-DAY, 0, -60, 60, -120, 120, -180, 180, 0):
                self.set_clock(offset)
                self.assert_shown("Endless")
        self.assertEqual((self.intervals(), os.stat(program.file + "-wal").st_mtime_ns),
                         (before, written))
        with self.answering("the clock jumps a day forth"):
            self.set_clock(DAY)
            wait_for(lambda: self.intervals()["Half an hour"][1] is None, "its end")
            self.assertAlmostEqual(self.intervals()["Half an hour"][0],
                                   now() + DAY - before["Half an hour"][1] + 100, delta=1.5)
            for offset in (DAY, 0):
                self.set_clock(offset)
                self.assert_shown("Endless")
        self.quit()  # and started again by a clock that is a day ahead
        self.set_clock(DAY)
        self.begin()
        self.set_clock(0)
        self.assert_shown("Endless")
        self.quit()

    def start_logind(self):
        os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = self.desktop.start_bus(self.id() + ".system.conf")
        self.addCleanup(os.environ.__setitem__, "DBUS_SYSTEM_BUS_ADDRESS", "disabled:")
        return Logind()

    def test_the_machine_sleeps_for_an_hour_and_nobody_tells(self):
        self.begin(("On", 100))
        _, started = self.intervals()["On"]
        with self.answering("the machine sleeps and nobody tells"):
            slept = now()
            self.set_clock(HOUR, HOUR)
            wait_for(lambda: self.intervals()["On"][1] != started, "it to be noticed")
            self.assert_shown("On")
            self.assertAlmostEqual(self.intervals()["On"][0], 100 + slept - started, delta=1.5)
        self.quit()

    def test_the_machine_shuts_down(self):
        logind = self.start_logind()
        program = self.begin(("On", 100))
        wait_for(logind.is_delayed, "the delay")
        before = self.intervals()["On"]
        logind.tell(True, "PrepareForShutdown")
        self.assertEqual(program.finished()[0], 0)
        wait_for(lambda: not logind.is_delayed(), "the machine to go on")
        spent, started = self.intervals()["On"]
        self.assertIsNone(started)
        self.assertAlmostEqual(spent, before[0] + now() - before[1], delta=1)

    def test_the_display_goes_away(self):
        spent = 100
        self.begin(("On", spent))
        for number, prepare in ((signal.SIGTERM, lambda: None),
                                (signal.SIGKILL, lambda: self.program.press("Add Task")),
                                (signal.SIGKILL, lambda: key("alt+F4"))):
            self.program.find("On", "list item")
            prepare()
            time.sleep(0.5)
            _, started = self.intervals()["On"]
            self.desktop.display.send_signal(number)
            self.program.finished()
            ended = now()
            self.desktop.display.wait()
            self.desktop.start_display()
            (spent, nothing), before = self.intervals()["On"], spent
            self.assertIsNone(nothing)
            self.assertAlmostEqual(spent - before, ended - started, delta=0.5)
            self.begin()
            self.assertEqual(self.intervals()["On"][0], spent)
        self.quit()

    def test_the_machine_sleeps_for_an_hour(self):
        logind = self.start_logind()
        self.begin(("On", 100), ("Ended", 100))
        wait_for(logind.is_delayed, "the delay")
        before, (_, started) = self.interval(), self.intervals()["On"]
        with self.answering("the machine sleeps"):
            asleep = now()
            logind.tell(True)
            wait_for(lambda: not logind.is_delayed(), "the program to let it sleep")
            stamp = self.interval()[3]
            self.assertTrue(asleep <= stamp <= now())
            self.set_clock(HOUR)
            time.sleep(2.2)  # ticks come before the signal
            self.assertEqual(self.interval(), (*before[:3], stamp))
            self.program.press("Finish")  # of the newest, by a hand that is faster than the signal
            wait_for(lambda: self.intervals()["Ended"][1] is None, "its end")
            logind.tell(False)
            wait_for(logind.is_delayed, "the delay of the next sleep")
            (spent, resumed), (ended, _) = (self.intervals()[name] for name in ("On", "Ended"))
            self.assertAlmostEqual(spent, 100 + stamp - started, delta=0.001)
            self.assertAlmostEqual(ended, spent, delta=0.001)
            self.assertAlmostEqual(resumed, now() + HOUR, delta=0.5)
            self.assert_shown("On")
            logind.tell(True)
            wait_for(lambda: not logind.is_delayed(), "the program to let it sleep")
            # Nobody is left who would tell of the waking.
            logind.bus.close_sync()
            self.assert_shown("On")
            logind = Logind()
            wait_for(logind.is_delayed, "the delay")
            logind.tell(True)
            wait_for(lambda: not logind.is_delayed(), "the program to let it sleep")
        spent, _, started, stamp = self.interval()
        self.program.end(signal.SIGKILL)
        self.program.launch().end()
        self.assertEqual(self.interval()[:2], (spent + stamp - started, 2))

    def test_the_disk_fills(self):
        daemon, program, added = Daemon(), self.program, []
        def start(room):
            # A signal would end it at the first write that fails.
            program.process = subprocess.Popen(
                ["prlimit", f"--fsize={room}:", "env", "--ignore-signal=XFSZ", program.binary],
                env=program.environment(), stderr=subprocess.PIPE)
        def stored():
            return [name for name, in program.rows("SELECT name FROM Task")]
        self.make_store()
        for room in (100_000, 0):
            start(room)
            with self.answering("the disk fills") if room else contextlib.nullcontext():
                while room and program.process.poll() is None:
                    program.press("Add Task")
                    program.find("Task name")
                    type_text(name := f"Task {len(added)}")
                    key("ctrl+Return")
                    wait_for(lambda: program.process.poll() or name in stored(), "it, or the end")
                    added += [name] * (program.process.poll() is None)
            wait_for(lambda: program.process.poll(), "the end")
            status, errors = program.finished()
            self.assertEqual(status, -signal.SIGABRT)
            self.assertIn("Fatal error: Unresolved error", errors)
            self.assertEqual(daemon.taken.pop()[1][3], "Hearthmark has stopped")
            self.assertEqual(program.rows("PRAGMA integrity_check"), [("ok",)])
            self.assertEqual(stored(), added)
        self.assertGreater(len(added), 3)
        start("unlimited")
        program.find(added[-1], "list item")
        self.quit()


if __name__ == "__main__":
    tempfile.tempdir = "/dev/shm" if os.path.isdir("/dev/shm") else None  # no waiting for a disk
    run_tests()
