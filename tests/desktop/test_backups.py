# SPDX-License-Identifier: MIT
"""Going back to a backup in the running program. Usage: test_backups.py BINARY [unittest arguments]"""

import os
import re
import shutil
import signal
import subprocess

from driver import ProgramTest, has_focus, key, press, run_tests, wait_for
from players import Daemon


class Backups(ProgramTest):
    def test_a_restore_brings_a_day_back_keeps_the_present_and_restarts(self):
        self.make_store(*self.task_with_interval(state=1),
                        "UPDATE RawIntervalState SET started = 0, visited = 60")
        folder = os.path.join(os.path.dirname(self.program.file), "Backups")
        os.makedirs(folder, exist_ok=True)
        oldest = os.path.join(folder, "Hearthmark-2001-02-02.sqlite")
        for copy in oldest, os.path.join(folder, "Hearthmark-2001-02-03.sqlite"):
            shutil.copy(self.program.file, copy)
        self.program.plant("UPDATE Task SET name = 'Planted since'")
        program = self.program.launch()  # backs up before it ends what was left running
        press(program.find("Planted since", "list item"))
        program.press("1:00:00")
        wait_for(lambda: program.section_of("Planted since") == "Running", "the focus")
        program.add_task("Since then")
        key("ctrl+shift+n", "h", "a", "l", "f")
        process = program.process.pid
        program.press("Application menu")
        program.press("Restore from a backup…", "menu item")
        wait_for(lambda: has_focus(program.find("Backups", "list")), "the list to have the keyboard")
        key("End")
        program.find("Would be removed: 1 task, 1 interval\nWould be changed back: 1 task, 1 interval")
        os.remove(oldest)
        program.press("Restore and Restart")
        wait_for(lambda: any(node.name.startswith("Nothing was restored: ") for node in program.find_all()),
                 "the reason")
        self.assertEqual(program.rows("SELECT count(*) FROM RawIntervalState WHERE state = 1"), [(1,)])
        key("Up")
        program.find("Would be removed: 1 task, 1 interval, 1 note\nWould be changed back: 1 task, 1 interval")
        program.press("Restore and Restart")
        wait_for(lambda: program.names() and "Since then" not in program.names(), "that day")
        self.assertEqual((program.process.pid, program.process.poll()), (process, None))
        program.find("Planted", "list item")
        self.assertEqual(program.rows("SELECT duration FROM Interval"), [(60.0,)])
        self.assertEqual(program.end(signal.SIGTERM), 0)

        _, daily, *_, kept = sorted(os.listdir(folder))
        self.assertRegex(kept, re.escape(daily.removesuffix(".sqlite")) + r"T\d\d-\d\d-\d\d\.sqlite$")
        states = subprocess.check_output(
            ["sqlite3", os.path.join(folder, kept),
             "SELECT state || '/' || maxDuration FROM RawIntervalState JOIN Interval i ON interval = i.pk"
             " UNION ALL SELECT text FROM Note WHERE task"],
            text=True)
        self.assertEqual(states.split(), ["2/1800.0", "0/3600.0", "half"],
                         "the focus is kept as paused, and what was typed as a note")

    def test_a_backup_that_fails_is_shown_and_the_store_is_used(self):
        daemon = Daemon()
        self.make_store(*self.task_with_interval(state=0))
        folder = os.path.join(os.path.dirname(self.program.file), "Backups")
        os.symlink("Backups", folder)
        self.program.launch().find("Planted", "list item")
        wait_for(lambda: daemon.taken, "the notification")
        title, body = daemon.taken[0][1][3:5]
        self.assertEqual(title, "Hearthmark could not back up its data")
        self.assertTrue(body.startswith("The path leads nowhere. "), body)
        self.program.press("Application menu")
        self.program.press("Restore from a backup…", "menu item")
        self.program.find("The backups cannot be read: Too many levels of symbolic links: " + folder)
        self.assertEqual(self.program.end(), 0)


if __name__ == "__main__":
    run_tests()
