#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Kills a writing process at random moments and checks what its store holds.

    kill_test.py <kill_writer> [kills] [seed]

After each kill the file must be intact and hold every operation that had returned, and the one
under way either whole or not at all. The next writer goes on with what the killed one left.
"""

import copy
import random
import shutil
import sqlite3
import subprocess
import sys
import tempfile
import time
from pathlib import Path

KILLS_OF_STORE = 20
PAUSED, RUNNING, FINISHED = 0, 1, 2


class Model:
    """What a store holds, row by row, and what each operation does to it."""

    def __init__(self):
        self.tasks = {}  # id: [name, creationDate]
        self.intervals = {}  # id: [creationDate, duration, maxDuration, task, state, started, visited]
        self.notes = {}  # id: [creationDate, text, task]

    def __eq__(self, other):
        return vars(self) == vars(other)

    def createTask(self, name, now, task):
        self.tasks[task] = [name, float(now)]

    def deleteTask(self, task):
        del self.tasks[task]
        self.intervals = {i: row for i, row in self.intervals.items() if row[3] != task}
        self.notes = {i: row for i, row in self.notes.items() if row[2] != task}

    def addInterval(self, interval, now, maximum, task):
        self.intervals[interval] = [float(now), 0.0, float(maximum), task, RUNNING, float(now), None]

    def finishInterval(self, interval, now):
        row = self.intervals[interval]
        row[1] = self.total(row, float(now))
        row[4:6] = [FINISHED, None]

    def deleteInterval(self, interval, _now):
        self.intervals[interval][3] = None

    def addNote(self, note, now, text, task):
        self.notes[note] = [float(now), text, task]

    def deleteNote(self, note):
        self.notes[note][2] = None

    def finishDueIntervals(self, now):
        for row in self.running():
            total = self.total(row, float(now))
            if row[2] != 0 and row[2] <= total:
                row[1] = total
                row[4:6] = [FINISHED, None]

    def markRunningIntervalsVisited(self, now):
        for row in self.running():
            row[6] = float(now)

    def excludeTime(self, start, end):
        for row in self.running():
            row[1] = self.total(row, float(start))
            row[5] = float(end)

    def finishIntervalsLeftRunning(self):
        for row in self.running():
            if row[3] is not None:
                row[1] = self.total(row, row[5] if row[6] is None else row[6])
                row[4:6] = [FINISHED, None]

    def resumePausedIntervals(self, now):
        for row in self.intervals.values():
            if row[4] == PAUSED and row[3] is not None:
                row[4:6] = [RUNNING, float(now)]

    def pauseRunningIntervals(self, now):
        for row in self.running():
            row[1] = self.total(row, float(now))
            row[4:6] = [PAUSED, None]

    def running(self):
        return [row for row in self.intervals.values() if row[4] == RUNNING]

    @staticmethod
    def total(row, at):
        return row[1] + max(at - row[5], 0.0) if row[4] == RUNNING else row[1]


def read_store(directory):
    """Reads a copy, so that the next writer finds the log as the killed one left it."""
    model = Model()
    with tempfile.TemporaryDirectory() as place:
        for file in directory.glob("Hearthmark.sqlite*"):
            if not file.name.endswith("-shm"):
                shutil.copy(file, place)
        if not (directory / "Hearthmark.sqlite").exists():
            return model
        database = sqlite3.connect(Path(place) / "Hearthmark.sqlite")
        rows = database.execute("PRAGMA integrity_check").fetchall()
        assert rows == [("ok",)], f"integrity: {rows}"
        rows = database.execute("PRAGMA foreign_key_check").fetchall()
        assert rows == [], f"dangling references: {rows}"
        tables = {
            "tasks": "SELECT id, name, creationDate FROM Task",
            "intervals": "SELECT Interval.id, Interval.creationDate, duration, maxDuration, Task.id,"
                         " state, started, visited FROM Interval LEFT JOIN Task ON task = Task.pk"
                         " LEFT JOIN RawIntervalState ON interval = Interval.pk",
            "notes": "SELECT Note.id, Note.creationDate, text, Task.id FROM Note"
                     " LEFT JOIN Task ON task = Task.pk",
        }
        for table, query in tables.items():
            rows = database.execute(query).fetchall()
            getattr(model, table).update((row[0], list(row[1:])) for row in rows)
            assert len(rows) == len(getattr(model, table)), f"{table} appear twice"
        (states,) = database.execute("SELECT count(*) FROM RawIntervalState").fetchone()
        assert states == len(model.intervals), "states without an interval"
        database.close()
    return model


def run_and_kill(writer, directory, seed, delay):
    """The lines that the writer could write."""
    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen([writer, directory, str(seed)], stdout=output)
        time.sleep(delay)
        assert process.poll() is None, f"the writer ended by itself: {process.returncode}"
        process.kill()
        process.wait()
        output.seek(0)
        # What follows the last line end was not told in full and counts as not told.
        return [line.split("\t") for line in output.read().decode().split("\n")[:-1]]


def check(before, lines, found):
    """Returns how many operations had returned, and whether the store holds the one under way."""
    counts = [len(before.tasks), len(before.intervals), len(before.intervals), len(before.notes)]
    assert not lines or lines[0] == ["loaded", *map(str, counts)], f"{lines[0]} of {counts}"
    expected = copy.deepcopy(before)
    done = 0
    under_way = None
    for first, *words in lines[1:]:
        if first == "begin":
            under_way = words
        else:
            # A new task's identifier is known once the operation has returned.
            getattr(expected, under_way[0])(*under_way[1:], *words)
            under_way = None
            done += 1
    if found == expected:
        return done, False
    assert under_way is not None, f"the store lacks one of {done} operations that had returned"
    if under_way[0] == "createTask":
        under_way.append(next((i for i in found.tasks if i not in expected.tasks), None))
    getattr(expected, under_way[0])(*under_way[1:])
    assert found == expected, f"after {done} operations the store holds a part of {under_way}"
    return done, True


def main():
    writer = sys.argv[1]
    kills = int(sys.argv[2]) if len(sys.argv) > 2 else 200
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1 << 30)
    print(f"seed {seed}", flush=True)
    moments = random.Random(seed)
    returned = whole = 0
    with tempfile.TemporaryDirectory() as root:
        for kill in range(kills):
            directory = Path(root) / f"store{kill // KILLS_OF_STORE}"
            if kill % KILLS_OF_STORE == 0:
                model = Model()
            # Half of the kills meet the opening of the store, the others the operations.
            delay = moments.uniform(0, 0.02 if kill % 2 == 0 else 0.5)
            try:
                lines = run_and_kill(writer, directory, seed + kill, delay)
                found = read_store(directory)
                done, is_whole = check(model, lines, found)
            except AssertionError as finding:
                sys.exit(f"kill {kill}, {delay:.4f} s after the start: {finding}")
            model = found
            returned += done
            whole += is_whole
    print(f"{kills} kills, {returned} operations had returned and are there; {whole} more were"
          " under way and are there too, the others not at all")


main()
