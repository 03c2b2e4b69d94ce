# SPDX-License-Identifier: MIT
"""Types at the real shells, presses Tab, and looks at what a command is then given.

Usage: test_completions.py HEARTHMARKCTL COMPLETIONS"""

import os
import pty
import select
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
import unittest

PROGRAM, COMPLETIONS = (os.path.abspath(path) for path in sys.argv[1:3])
NAMES = ["plain", "Two words", "Say \"hi\" & 'bye'", "Dollar $HOME `id` \\ !x", "Broken\nline\tand tab",
         "Colon: a=b @c; *?", "Über Äpfel", "twice", "twice", "--json", "(done)", "End \""]
# What stands in the place of the program writes what it is given, and asks the real one for the rest.
STAND_IN = """#!/bin/sh
[ "$1" = tasks ] && exec '{program}' "$@"
printf '%s\\0' "$@" > '{output}~' && mv '{output}~' '{output}'
"""
SHELLS = {
    "bash": (["bash", "--norc", "--noprofile", "-i"],
             f". {COMPLETIONS}/hearthmarkctl.bash; bind 'set bell-style none'; set +H"),
    "zsh": (["zsh", "-f", "-i"],
            f"fpath=({COMPLETIONS} $fpath); autoload -U compinit; compinit -u -D; unsetopt beep banghist"),
    "fish": (["fish", "--no-config", "-i"], f"source {COMPLETIONS}/hearthmarkctl.fish"),
}


class Shell:
    def __init__(self, command, environment):
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.execvpe(command[0], command, environment)

    def read(self, seconds):
        """Until it is quiet for so long."""
        while select.select([self.terminal], [], [], seconds)[0]:
            try:
                os.read(self.terminal, 65536)
            except OSError:  # it has ended
                return

    def type(self, text, seconds=0.5):
        os.write(self.terminal, text.encode())
        self.read(seconds)

    def close(self):
        os.close(self.terminal)
        os.kill(self.pid, 9)
        os.waitpid(self.pid, 0)


class Completions(unittest.TestCase):
    def setUp(self):
        self.directory = tempfile.TemporaryDirectory()
        self.addCleanup(self.directory.cleanup)
        self.output = os.path.join(self.directory.name, "given")
        bin_directory = os.path.join(self.directory.name, "bin")
        os.makedirs(bin_directory)
        stand_in = os.path.join(bin_directory, "hearthmarkctl")
        with open(stand_in, "w", encoding="utf-8") as file:
            file.write(STAND_IN.format(program=PROGRAM, output=self.output))
        os.chmod(stand_in, 0o755)
        self.environment = {**os.environ, "XDG_DATA_HOME": self.directory.name, "HOME": self.directory.name,
                            "PATH": bin_directory + ":" + os.environ["PATH"], "TERM": "dumb", "LC_ALL": "C.UTF-8"}
        self.make_store()

    def make_store(self):
        os.makedirs(os.path.join(self.directory.name, "Hearthmark"))
        store = sqlite3.connect(os.path.join(self.directory.name, "Hearthmark", "Hearthmark.sqlite"))
        store.executescript("""PRAGMA application_id = 0x4874686d; PRAGMA user_version = 2;
            CREATE TABLE Task (pk INTEGER PRIMARY KEY, id TEXT, creationDate REAL, name TEXT, doneDate REAL)""")
        self.ids = [f"{number:08X}-0000-4000-8000-000000000000" for number in range(len(NAMES))]
        store.executemany("INSERT INTO Task (id, creationDate, name) VALUES (?, ?, ?)",
                          [(each, place, name) for place, (each, name) in enumerate(zip(self.ids, NAMES))])
        store.commit()
        store.close()

    def given(self, shell, line, then):
        if os.path.exists(self.output):
            os.remove(self.output)
        shell.type(line + "\t" + then + "\r", 0)
        deadline = time.monotonic() + 10
        while not os.path.exists(self.output) and time.monotonic() < deadline:
            shell.read(0.02)
        if not os.path.exists(self.output):
            shell.type("\x03")
            return None
        with open(self.output, encoding="utf-8") as file:
            return file.read().split("\0")[:-1]

    def test_names_reach_the_program_as_they_are(self):
        # What is typed before Tab, and what the program is given.
        rows = [("pl", ["plain"]), ("Two", ["Two words"]), ("Two\\ w", ["Two words"]), ("'Two w", ["Two words"]),
                ("\"Two w", ["Two words"]), ("Say", ["Say \"hi\" & 'bye'"]), ("'Say", ["Say \"hi\" & 'bye'"]),
                ("\"Say", ["Say \"hi\" & 'bye'"]), ("\"End", ["End \""]), ("Doll", ["Dollar $HOME `id` \\ !x"]),
                ("\"Doll", ["Dollar $HOME `id` \\ !x"]), ("Broken", ["Broken line and tab"]),
                ("Col", ["Colon: a=b @c; *?"]), ("Üb", ["Über Äpfel"]), ("\\(d", ["(done)"]),
                (self.ids[9][:8], [self.ids[9]])]
        for name, (command, preparation) in SHELLS.items():
            self.assertTrue(shutil.which(name), f"{name} is not installed")
            shell = Shell(command, self.environment)
            self.addCleanup(shell.close)
            shell.read(3)
            shell.type(preparation + "\r", 2)
            for typed, expected in rows:
                with self.subTest(shell=name, typed=typed):
                    self.assertEqual(self.given(shell, "hearthmarkctl start " + typed, ""), ["start", *expected])
            with self.subTest(shell=name, typed="options and commands"):
                self.assertEqual(self.given(shell, "hearthmarkctl hist", "last-w\t"), ["history", "last-week"])
                self.assertEqual(self.given(shell, "hearthmarkctl export --for", "cs\tlast-y\t"),
                                 ["export", "--format", "csv", "last-year"])

    def test_every_offered_name_means_one_task(self):
        offered = subprocess.check_output([PROGRAM, "tasks", "--offered"], env=self.environment, text=True)
        self.assertEqual(sorted(offered.splitlines()), sorted(
            [self.ids[7], self.ids[8], self.ids[9]] +
            [" ".join(name.splitlines()).replace("\t", " ") for name in NAMES[:7] + NAMES[10:]]))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
