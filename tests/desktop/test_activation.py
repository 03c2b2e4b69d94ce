# SPDX-License-Identifier: MIT
"""The program as the session bus starts it, what its desktop entry offers, and its start at login.

Usage: test_activation.py BINARY [unittest arguments]"""

import os
import shlex
import subprocess
import tempfile
from pathlib import Path

from gi.repository import GLib

from driver import NAME, BusTest, key, press, run_tests, type_text, wait_for, windows
from players import ITEM, Panel

PATH = "/org/hearthmark/Hearthmark"


class Activation(BusTest):
    def setUp(self):
        super().setUp()
        self.config = tempfile.TemporaryDirectory()
        self.addCleanup(self.config.cleanup)
        self.daemon("UpdateActivationEnvironment", "(a{ss})", {"XDG_CONFIG_HOME": self.config.name})
        self.panel = Panel()
        self.addCleanup(self.panel.bus.close_sync)

    def ask(self, method, signature, *arguments):
        """The program, which the bus starts where it does not run."""
        self.call(NAME, PATH, "org.freedesktop.Application", method, signature, *arguments)

    def act(self, action):
        self.ask("ActivateAction", "(sava{sv})", action, [], {})
        return self.started()

    def test_started_by_the_bus_it_works_without_a_window_until_it_is_asked_for_one(self):
        self.make_store(*self.task_with_interval(state=0, duration=100.0))
        asks = [lambda: self.ask("Activate", "(a{sv})", {}),
                lambda: self.panel.call(ITEM, "Activate", "(ii)", 0, 0),
                lambda: subprocess.run([self.binary], env=self.program.environment(), check=True)]
        for ask in asks:
            self.panel.item = None
            del self.panel.told[:]
            self.start_by_bus()
            wait_for(lambda: len(self.panel.labels()) >= 2, "two seconds")
            self.assertEqual((self.interval()[1], windows()), (1, []))
            ask()
            self.program.find("Planted", "list item")
            self.assertTrue(windows())
            self.program.end()
            self.assertEqual(self.interval()[1], 0)
        found, = self.call(NAME, PATH, "org.hearthmark.Focus", "FindTasks", "(s)", "plant")  # starts it, too
        self.started()
        self.assertEqual(([name for _, name, _ in found], windows()), (["Planted"], []))

    def test_a_start_that_the_bus_only_handed_its_environment_to_shows_the_window(self):
        opened, opener = (Path(self.config.name, name) for name in ("opened", "xdg-open"))
        opener.write_text(f"#!/bin/sh\nenv >{opened}.new\nmv {opened}.new {opened}\n")
        opener.chmod(0o700)
        told = {name: "told" for name in ("DBUS_STARTER_ADDRESS", "XDG_ACTIVATION_TOKEN",
                                          "DESKTOP_STARTUP_ID")}
        program = self.program.start(DBUS_STARTER_BUS_TYPE="session", **told,
                                     PATH=f"{self.config.name}:{os.environ['PATH']}")
        program.find("Add Task")
        # What it starts is not told the same, nor which window system was chosen for it.
        for tokens in (0, 1):
            if tokens:
                self.ask("Activate", "(a{sv})", {"activation-token": GLib.Variant("s", "told")})
                self.panel.call(ITEM, "ProvideXdgActivationToken", "(s)", "told")
            program.press("Application menu")
            program.press("About Hearthmark", "menu item")
            program.press("Open Folder")
            wait_for(opened.exists, "the folder")
            self.assertNotRegex(opened.read_text(), "told|STARTER|QT_QPA_PLATFORM=")
            opened.unlink()
            key("Escape")

    def test_actions_work_and_start_the_program(self):
        program = self.act("add-task")
        program.find("Task name")
        type_text("Letters")
        key("ctrl+Return")
        program.find("Letters", "list item")
        program.end()

        program = self.act("start-short-focus")
        row = program.find("Letters", "list item")
        self.assertEqual(program.rows("SELECT count(*) FROM Interval"), [(0,)])
        press(row)
        program.find("Letters", "heading")
        wait_for(lambda: key("alt+F4") or not windows(), "the window to hide")
        for _ in range(2):  # the second finds one running
            self.act("start-short-focus")
            wait_for(lambda: program.section_of("Letters") == "Running", "the focus")
            self.assertEqual(program.rows("SELECT maxDuration FROM Interval"), [(1800,)])
        with self.assertRaisesRegex(Exception, "InvalidArgs.*no action \"make-tea\""):
            self.act("make-tea")
        process = program.process
        self.ask("ActivateAction", "(sava{sv})", "quit", [], {})
        process.communicate(10)
        self.assertEqual(self.interval()[1], 0)

    def test_start_at_login_is_one_file_that_starts_it_without_a_window(self):
        import pyatspi

        def item():
            self.program.press("Application menu")
            return self.program.find("Start at Login", "check box")

        def is_on():
            states = item().getState()
            key("Escape")
            return states.contains(pyatspi.STATE_CHECKED)

        def says(text):
            wait_for(lambda: text in program.find("Start at Login", "check box").description, text)

        autostart = Path(self.config.name, "autostart")
        entry = autostart / f"{NAME}.desktop"
        program = self.program.start(XDG_CONFIG_HOME=self.config.name)
        autostart.touch()
        press(item())
        says(f"no folder {autostart}")
        key("Escape")
        self.assertFalse(is_on())
        autostart.unlink()
        press(item())
        wait_for(lambda: list(Path(self.config.name).rglob("*")) == [autostart, entry], "one file")
        self.assertTrue(is_on())
        content = entry.read_text(encoding="utf-8")
        entry.write_text(content + "Hidden=true\n", encoding="utf-8")
        self.assertFalse(is_on())
        press(item())
        wait_for(lambda: entry.read_text(encoding="utf-8") == content, "it on again")
        program.end()
        command = next(line[5:] for line in content.splitlines() if line.startswith("Exec="))
        subprocess.run(shlex.split(command), check=True)
        wait_for(self.started, "the program")
        wait_for(lambda: self.panel.item, "the item")
        self.assertFalse(windows())
        self.ask("Activate", "(a{sv})", {})
        press(item())
        wait_for(lambda: not list(autostart.iterdir()), "the file to go")
        self.install("")
        item()
        says("Only an installed Hearthmark")
        self.assertFalse(program.is_enabled("Start at Login", "check box"))


if __name__ == "__main__":
    run_tests()
