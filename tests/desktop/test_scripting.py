# SPDX-License-Identifier: MIT
"""The program and hearthmarkctl together: each command with the program running, hidden, restarting and
not running, names that are hard to print, and the status that is followed.

Usage: test_scripting.py BINARY CTL [unittest arguments]"""

import os
import signal
import subprocess
import sys
import threading
import time

from driver import NAME, BusTest, Program, key, new_id, run_tests, wait_for, windows

DONE, COULD_NOT, USAGE, NOTHING_RUNS = range(4)


class Followed:
    """What `status --follow` writes, with the moment at which each line came."""

    def __init__(self, environment, *arguments):
        self.lines = []
        self.process = subprocess.Popen([CTL, "status", "--follow", *arguments], stdout=subprocess.PIPE,
                                        env=environment, text=True)
        self.reader = threading.Thread(target=self.read)
        self.reader.start()

    def read(self):
        for line in self.process.stdout:
            self.lines.append((time.monotonic(), line.rstrip("\n")))

    def last(self):
        return self.lines[-1][1]

    def wait(self, text, seconds=10):
        wait_for(lambda: text in self.last(), f"{text!r} after {self.lines[-3:]}", seconds)

    def end(self):
        self.process.terminate()
        self.process.wait()
        self.reader.join()
        self.process.stdout.close()

    def switches(self):
        """How often it has waited."""
        with open(f"/proc/{self.process.pid}/status", encoding="ascii") as status:
            return int(status.read().split("\nvoluntary_ctxt_switches:")[1].split()[0])


def jq(expression, text):
    """What another reader of JSON makes of it."""
    return subprocess.run(["jq", "--exit-status", "--raw-output", expression], input=text, text=True,
                          check=True, stdout=subprocess.PIPE).stdout.rstrip("\n")


class Scripting(BusTest):
    def run_ctl(self, *arguments, **environment):
        return subprocess.run([CTL, *arguments], env=self.program.environment(**environment), text=True,
                              check=False, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60)

    def ctl(self, *arguments, status=DONE, says=""):
        """What it writes, to the one place or the other."""
        ended = self.run_ctl(*arguments)
        self.assertEqual(ended.returncode, status, (arguments, ended))
        text = ended.stderr if status else ended.stdout
        self.assertIn(says, text, arguments)
        return text

    def follow(self, *arguments, **environment):
        followed = Followed(self.program.environment(**environment), *arguments)
        self.addCleanup(followed.end)
        return followed

    def hide(self):
        self.program.launch()
        wait_for(lambda: key("alt+F4") or not windows(), "the window to hide")

    def test_each_command_does_its_work_or_says_why_not_wherever_the_program_is(self):
        commands = [  # in their order: how it ends, its words, what it says
            (NOTHING_RUNS, ["finish"], "No focus"), (NOTHING_RUNS, ["extend"], "No focus"),
            (DONE, ["add", "NAME"], "  NAME"), (DONE, ["note", "NAME", "one\ntwo"], "NAME"),
            (COULD_NOT, ["note", "NAME", " "], "text"), (COULD_NOT, ["start", "None"], "No task"),
            (USAGE, ["start", "NAME", "0"], ""), (USAGE, ["start"], "TASK"),
            (DONE, ["start", "NAME", "25"], "/25:00 NAME"), (DONE, ["status"], "/25:00 NAME"),
            (COULD_NOT, ["start", "NAME"], "/25:00 NAME"), (DONE, ["extend", "1h"], "/1:25:00 NAME"),
            (DONE, ["extend"], "/1:30:00 NAME"), (DONE, ["finish"], "/1:30:00 NAME"),
            (NOTHING_RUNS, ["status"], ""), (DONE, ["tasks"], "NAME"), (DONE, ["history"], "NAME"),
            (DONE, ["export", "--format", "csv"], "NAME")]
        for launch in (self.program.launch, self.hide, self.start_by_bus):
            name = launch.__name__
            launch()
            shown = len(windows())
            for status, words, says in commands:
                with self.subTest(name, words=words):
                    self.ctl(*[name if word == "NAME" else word for word in words], status=status,
                             says=says.replace("NAME", name))
            self.assertEqual(len(windows()), shown)
            self.program.end()
        self.assertEqual(self.program.rows("SELECT text FROM Note"), [("one\ntwo",)] * 3)
        # It does not run.
        for words in (["finish"], ["extend"], ["add", "New"], ["note", "hide", "text"]):
            self.ctl(*words, status=COULD_NOT, says="does not run")
        for words in (["tasks"], ["history"], ["export", "--format", "csv"]):
            self.ctl(*words, says="hide")
        self.assertEqual(self.run_ctl("tasks", DBUS_SESSION_BUS_ADDRESS="disabled:").returncode, DONE)
        self.assertIn("bus", self.run_ctl("start", "hide", DBUS_SESSION_BUS_ADDRESS="disabled:").stderr)
        self.assertFalse(self.daemon("NameHasOwner", "(s)", NAME)[0])
        # A start starts it, and what it had paused goes before.
        for status, task, says in ((DONE, "hide", "0/30:00 hide"), (COULD_NOT, "bus", "goes on with")):
            self.ctl("start", task, status=status, says=says)
            self.start_by_bus()
            self.assertEqual(windows(), [])
            self.program.end()
        self.assertEqual(self.program.rows("SELECT count(*) FROM Interval"), [(4,)])

    def test_what_a_command_said_while_the_program_restarted_is_so(self):
        added = []
        self.program.launch().end()
        stop = threading.Event()

        def restart():
            for number in (signal.SIGTERM, signal.SIGKILL, signal.SIGTERM):
                program = Program(self.binary, self.program.data).start()
                time.sleep(1)
                program.end(number)
            stop.set()
        restarting = threading.Thread(target=restart)
        restarting.start()
        try:
            while not stop.is_set():
                name = new_id()
                ended = self.run_ctl("add", name)
                self.assertIn(ended.returncode, (DONE, COULD_NOT), ended)
                if "may still" not in ended.stderr:
                    added.append((name, ended.returncode == DONE))
                time.sleep(0.1)  # as many as the program takes
        finally:
            restarting.join()
        stored = {name for name, in self.program.rows("SELECT name FROM Task")}
        self.assertEqual([each for each in added if each[1] != (each[0] in stored)], [])
        self.assertEqual({was_added for _, was_added in added}, {True, False})

    def test_names_that_are_hard_to_write(self):
        self.program.launch()
        for name in ('say "hi"', "it's $HOME `id` \\n", "two\nlines", "\u05e9\u05dc\u05d5\u05dd 25", "-dash",
                     "[a, {b}]", "status", "x" * 10000):
            with self.subTest(name[:40]):
                task = jq(".taskId", self.ctl("add", "--json", "--", name))
                followed = self.follow("--json")
                self.assertEqual(jq(".taskName", self.ctl("start", task, "--json")), name)
                self.assertEqual(jq(".taskName", self.ctl("status", "--json")), name)
                wait_for(lambda: jq(".taskName", followed.last()) == name, "its line")
                self.assertEqual(self.ctl("status").count("\n"), 1)
                self.assertEqual(jq(".class", self.ctl("status", "--waybar")), "running")
                self.ctl("note", task, "--", name)
                self.assertEqual(jq(".taskName", self.ctl("finish", "--json")), name)
                self.assertIn(name, jq(".. | strings", self.ctl("tasks", "--json")))
        self.assertEqual(self.program.rows("SELECT count(*) FROM Note n JOIN Task t ON n.task = t.pk"
                                           " WHERE n.text = t.name"), [(8,)])
        for name in ("", " ", "x" * 10001, os.fsdecode(b"\xff")):
            self.ctl("add", name, status=COULD_NOT)
        # Of two it is neither.
        twins = [self.ctl("add", "Twin").split()[0] for _ in range(2)]
        for command in (["start", "twin"], ["note", "twin", "text"]):
            listed = self.ctl(*command, status=COULD_NOT)
            self.assertTrue(all(twin in listed for twin in twins), listed)
        self.ctl("status", status=NOTHING_RUNS)
        self.ctl("start", twins[0].lower(), says="Twin")

    def test_what_is_followed_is_told_each_second_and_at_each_change(self):
        followed, idle = self.follow(), self.follow("--waybar")
        followed.wait("Nothing runs")
        self.program.launch()
        task = self.ctl("add", "Followed").split()[0]
        waited = idle.switches()
        self.ctl("start", task, "25")
        wait_for(lambda: followed.last().startswith("6/"), "six seconds")
        self.assertLessEqual(idle.switches() - waited, 9)
        lines = followed.lines[-7:]
        self.assertEqual([line for _, line in lines], [f"{each}/25:00 Followed" for each in range(7)])
        pauses = [later - earlier for (earlier, _), (later, _) in zip(lines, lines[1:])]
        self.assertTrue(all(0.5 < pause < 1.5 for pause in pauses), pauses)
        in_window = wait_for(lambda: [int(node.name.split("/")[0]) for node in self.program.find_all()
                                      if node.name.endswith("/25:00")], "the time in the window")
        self.assertLessEqual(abs(in_window[0] - int(followed.last().split("/")[0])), 1)
        self.ctl("extend", "5m")
        followed.wait("/30:00 Followed")
        # By force: up to the last stamp. A quit pauses, and a launch goes on.
        self.program.end(signal.SIGKILL)
        followed.wait("Interrupted: ")
        self.assertEqual(jq(".class", idle.last()), "interrupted")
        self.program.launch()
        followed.wait("Nothing runs")
        self.ctl("start", task, "25")
        followed.wait("1/25:00")
        self.program.end()
        followed.wait("Nothing runs")
        self.program.launch()
        followed.wait("3/25:00")
        # A reader that goes ends it, and so it does where there is nothing to tell.
        self.ctl("finish")
        headed = 'set -o pipefail; timeout 10 "$0" status --follow | head -n 1'
        self.assertEqual(subprocess.run(["bash", "-c", headed, CTL], env=self.program.environment(),
                                        stdout=subprocess.DEVNULL, check=False).returncode, DONE)

    def test_what_is_followed_survives_the_bus(self):
        address = f"unix:path={self.program.data}/bus"

        def start_bus():
            bus = subprocess.Popen(["dbus-daemon", "--session", "--nofork", f"--address={address}"],
                                   stderr=subprocess.DEVNULL)
            self.addCleanup(bus.wait)
            self.addCleanup(bus.kill)
            return bus
        elsewhere = {"DBUS_SESSION_BUS_ADDRESS": address}
        followed = self.follow(**elsewhere)
        followed.wait("Nothing runs")
        bus = start_bus()
        self.make_store()
        self.program.plant(("INSERT INTO Task VALUES (1, ?, 0, 'Planted')", (new_id(),)))
        self.program.start(**elsewhere)
        wait_for(lambda: self.run_ctl("start", "Planted", **elsewhere).returncode == DONE, "the start")
        followed.wait("1/30:00 Planted")
        bus.kill()
        followed.wait("3/30:00 Planted")
        start_bus()
        followed.wait("4/30:00 Planted")
        self.program.end()
        followed.wait("Nothing runs")
        self.program.start(**elsewhere)
        followed.wait("5/30:00 Planted")
        self.run_ctl("finish", **elsewhere)
        followed.wait("Nothing runs")


if __name__ == "__main__":
    CTL = sys.argv.pop(2)
    run_tests()
