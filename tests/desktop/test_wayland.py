# SPDX-License-Identifier: MIT
"""A day with the program on Wayland, without X11: what only a compositor shows, and each way in which
its session ends. Usage: test_wayland.py BINARY [unittest arguments]"""

import os
import subprocess
import time

from desktops import WaylandDesktop
from driver import ProgramTest, now, press, run_tests, sway, type_text, views, wait_for
from players import Daemon, ITEM, Logind, Panel, SessionManager


class Wayland(ProgramTest):
    def player(self, kind):
        player = kind()
        self.addCleanup(player.bus.close_sync)
        return player

    def has_keyboard(self):
        return [view["focused"] for view in views()] == [True]

    def running(self):
        """Starts with a focus of 100 s paused, which goes on."""
        if not os.path.exists(self.program.file):
            self.make_store(*self.task_with_interval(state=0, duration=100.0))
        self.program.launch().find("Planted", "list item")
        return self.interval()

    def assert_paused(self, before, ended):
        spent, state, started, _ = self.interval()
        self.assertEqual((state, started), (0, None))
        self.assertAlmostEqual(spent - before[0], ended - before[2], delta=0.5)

    def test_a_day(self):
        program, daemon, panel = self.program.launch(), self.player(Daemon), self.player(Panel)
        self.assertFalse(program.has_loaded("LLVM"), "nothing is drawn by a graphics card")
        program.add_task("Letters")
        press(program.find("Letters", "list item"))
        program.press("30:00")
        spent = wait_for(lambda: program.listed()[1][2], "the time")
        wait_for(lambda: program.listed()[1][2] != spent, "a tick")
        program.end()
        program.plant("UPDATE Interval SET duration = 1796")

        program.launch()
        wait_for(lambda: daemon.taken, "the notification of the finish")
        spent, state, *_ = self.interval()
        self.assertEqual((int(spent), state), (1800, 2))
        for _ in range(2):  # from behind, and from hidden
            sway("workspace", "2")
            self.assertFalse(self.has_keyboard())
            daemon.emit("ActivationToken", "(us)", 1, "one that the compositor does not know")
            daemon.emit("ActionInvoked", "(us)", 1, "default")
            wait_for(self.has_keyboard, "the window in front, by the notification")
            program.find("Letters", "heading")
            sway("workspace", "3")
            self.assertFalse(self.has_keyboard())
            panel.call(ITEM, "Activate", "(ii)", 0, 0)
            wait_for(self.has_keyboard, "the window in front, by the item")
            sway("kill")
            wait_for(lambda: not views(), "the window to hide")
        subprocess.run([self.binary], env=program.environment(), check=True)
        wait_for(self.has_keyboard, "the window, by a second start")

        program.press("Add Note")
        wait_for(lambda: program.find_all("Discard"), "the editor")
        type_text("On the way")
        wait_for(lambda: program.is_enabled("Save"), "what was typed")
        program.press("Save")
        wait_for(lambda: program.rows("SELECT text FROM Note") == [("On the way",)], "the note")
        program.press("Share")
        program.press("Copy")
        copied = wait_for(lambda: subprocess.check_output(["wl-paste", "--no-newline"]), "the copy")
        self.assertIn(b'"On the way"', copied)
        self.assertEqual(program.end(), 0)

    def test_the_compositor_dies(self):
        for prepare in (lambda: None, lambda: self.program.press("Add Task"), lambda: sway("kill")):
            before = self.running()
            prepare()
            time.sleep(1)
            self.desktop.display.kill()
            self.program.finished()
            self.assert_paused(before, now())
            self.desktop.display.wait()
            self.desktop.start_display()

    def test_the_session_ends(self):
        os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = self.desktop.start_bus("system.conf")
        logind, session = self.player(Logind), self.player(SessionManager)

        def log_out():
            session.tell("QueryEndSession")
            wait_for(lambda: session.answers == [True], "its consent")
            self.assertIsNone(self.program.process.poll())
            session.tell("EndSession")
        for end in (log_out, lambda: logind.tell(True, "PrepareForShutdown")):
            before = self.running()
            wait_for(logind.is_delayed, "the delay")
            end()
            self.assertEqual(self.program.finished(), (0, ""))
            self.assert_paused(before, now())
            wait_for(lambda: not logind.is_delayed(), "the machine to go on")

    def test_without_a_display_it_says_so(self):
        daemon = self.player(Daemon)
        program = self.program.start(WAYLAND_DISPLAY="wayland-of-yesterday")
        wait_for(lambda: daemon.taken, "the notification")
        status, errors = program.finished()
        self.assertEqual(status, 1)
        for told in (errors, daemon.taken[0][1][4]):
            self.assertIn("Hearthmark found no display", told)


if __name__ == "__main__":
    run_tests(WaylandDesktop)
