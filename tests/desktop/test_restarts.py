# SPDX-License-Identifier: MIT
"""How the program ends and begins: signals, second starts, a file that it refuses.

Usage: test_restarts.py BINARY [unittest arguments]"""

import os
import signal
import subprocess
import time
from pathlib import Path

from driver import Program, ProgramTest, extents, key, now, run_tests, toggle_maximised, wait_for, windows, xdotool


class Restarts(ProgramTest):
    def test_every_normal_end_pauses_and_the_next_launch_resumes(self):
        self.make_store(*self.task_with_interval(state=0, duration=100.0))
        spent = 100.0
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            self.program.launch()
            resumed = self.interval()[2]
            self.assertEqual(self.interval()[1], 1)
            time.sleep(1)
            ended = now()
            self.assertEqual(self.program.end(number), 0)
            duration, state, started, _ = self.interval()
            self.assertEqual((state, started), (0, None))
            self.assertAlmostEqual(duration - spent, ended - resumed, delta=0.3)
            spent = duration

    def test_a_second_start_shows_the_window_of_the_first(self):
        program = self.program.launch()
        self.assertEqual(oct(os.stat(os.path.dirname(program.file)).st_mode)[-3:], "700")
        xdotool("search", "--onlyvisible", "--name", "^Hearthmark$", "windowmove", "--sync", 33, 44)
        place = tuple(extents(program.find("Add Task")))
        for bus in (os.environ["DBUS_SESSION_BUS_ADDRESS"], "disabled:"):
            wait_for(lambda: key("alt+F4") or not program.find_all("Add Task"), "the window to hide")
            self.assertIsNone(program.process.poll())
            before = time.monotonic()
            second = subprocess.run([program.binary], timeout=5, check=False,
                                    env=program.environment(DBUS_SESSION_BUS_ADDRESS=bus))
            self.assertEqual(second.returncode, 0)
            self.assertLess(time.monotonic() - before, 1)
            wait_for(lambda: tuple(extents(program.find("Add Task"))) == place, "it at its place")
        window, = windows()
        toggle_maximised(window)
        wait_for(lambda: tuple(extents(program.find("Add Task"))) != place, "it to be large")
        large = tuple(extents(program.find("Add Task")))
        for hide in (lambda: key("alt+F4"), lambda: xdotool("windowminimize", window)):
            hide()
            wait_for(lambda: not windows(), "the window to go")
            subprocess.run([program.binary], env=program.environment(), timeout=5, check=True)
            wait_for(lambda: tuple(extents(program.find("Add Task"))) == large, "it, large")
        toggle_maximised(window)
        wait_for(lambda: tuple(extents(program.find("Add Task"))) == place, "it at its place")
        # One that hangs: the person is told so where there is neither a terminal nor a daemon.
        program.process.send_signal(signal.SIGSTOP)
        second = Program(program.binary, program.data).start()
        wait_for(lambda: len(windows()) == 2, "the message")
        wait_for(lambda: key("Escape") or second.process.poll(), "the end")
        self.assertRegex(second.finished()[1], "^Hearthmark is already running, but does not answer")
        program.end(signal.SIGKILL)
        # Where nothing could bring a hidden window back, it can still be seen.
        program.start(DBUS_SESSION_BUS_ADDRESS="disabled:")
        wait_for(windows, "the window")
        wait_for(lambda: key("alt+F4") or not windows(), "it to go")
        shown = subprocess.check_output(["xprop", "-root", "_NET_CLIENT_LIST"], text=True)
        self.assertIn("0x", shown)  # a panel has a button for it
        subprocess.run([program.binary], timeout=5, check=True,
                       env=program.environment(DBUS_SESSION_BUS_ADDRESS="disabled:"))
        wait_for(windows, "the window")
        wait_for(lambda: key("ctrl+q") or program.process.poll() is not None, "the end")
        self.assertEqual(program.finished()[0], 0)
        program.launch()

    def test_its_version_needs_neither_a_display_nor_a_store(self):
        asked = subprocess.run([self.program.binary, "--version"], capture_output=True, text=True, timeout=5,
                               env=self.program.environment(DISPLAY="none"), check=True)
        self.assertRegex(asked.stdout, r"^Hearthmark \d+\.\d+\.\d+\n$")
        self.assertEqual(os.listdir(self.program.data), [])

    def test_a_file_that_it_refuses_is_left_alone(self):
        self.make_store(*self.task_with_interval(state=2), "PRAGMA user_version = 1000")
        directory = Path(self.program.file).parent

        def contents():
            return {file.name: file.read_bytes() for file in directory.iterdir()}
        before = contents()
        status, errors = self.program.start().finished()
        self.assertEqual(status, -signal.SIGABRT)
        self.assertIn("Hearthmark/PersistentContainerFactory:20: Fatal error: Unresolved error ", errors)
        self.assertEqual(contents(), before)


if __name__ == "__main__":
    run_tests()
