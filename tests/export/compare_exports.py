#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Compares the exports of random tasks with what SQLite reads: compare_exports.py <export_writer>

Two other readers must accept the JSON, and it must say what the rows say; the CSV must be the text
that is made here. Intervals may come in any order, and so may notes. The files of all tasks are read by
others, too, and what is imported from one is all that was exported.
"""

import datetime
import json
import os
import random
import sqlite3
import subprocess
import sys
import tempfile
import uuid
import zoneinfo
from decimal import Decimal
from pathlib import Path

import interval_files

TASKS = 1000
NUMBERS = [-0.0, 0.1 + 0.2, 5e-324, 1.7976931348623157e308, 2**53 + 1, 1e16, 9999999999999998.0, 1e-5,
           9.999999999999999e-6, 725760000.123, *range(1000)]
DATES = [252423993599.5, 252423993600.0, -63113904000.0, -63113904000.5, 9.99e17, 1e18, -1e300]
PIECES = ['"', '""', ",", "/", "\\", "\n", "\r\n", "\t", "\0", "\b\f", "\x1b", "\x7f", "\u2028",
          "\r", "=", "+1", "-", "@", ";", "\ufeff", "\uffff", "\U0010ffff", "🍅", "👩‍👧", "שלום", "\u202eمرحبا", "e\u0301", "word", " "]
HEADER = ("id,creationDate,name,interval.id,interval.creationDate,interval.duration,interval.maxDuration,"
          "interval.rawState.started,interval.rawState.state,note.id,note.creationDate,note.text")
QUERIES = ["SELECT upper(id), creationDate, name FROM Task WHERE pk = ?",
           "SELECT upper(id), creationDate, duration, maxDuration, started, state + 0.0 FROM Interval"
           " LEFT JOIN RawIntervalState ON interval = Interval.pk WHERE task = ?",
           "SELECT upper(id), creationDate, text FROM Note WHERE task = ?"]


def plant(database, dice):
    numbers = [*NUMBERS, *(dice.uniform(0, 1e9) for _ in range(1000))]
    numbers += [10 ** dice.uniform(*exponents) for exponents in [(-7, 18), (-320, 308)] * 500]
    numbers += [-number for number in numbers]
    dates = [*DATES * 50, *(number for number in numbers if abs(number) < 1e18), *[None] * 500]
    ids = [str(uuid.UUID(int=dice.getrandbits(128))) for _ in range(500)]
    ids += [*(text.upper() for text in ids), *[None] * 100]
    texts = [*("".join(dice.choices(PIECES, k=size % 8 if size % 9 else 50)) for size in range(1000)), *[None] * 100]
    tasks = [*range(1, TASKS + 1), *[None, TASKS + 1] * 50]  # the last is not there
    for table, count, *columns in [
            ("Task", TASKS, ids, dates, texts, [*dates, *[None] * 1000]),
            ("Interval", 10 * TASKS, ids, dates, numbers, numbers, tasks),
            ("RawIntervalState", 10 * TASKS, [0, 1, 2, 9, -1, 32767, -32768], dates, dates, [None]),
            ("Note", 3 * TASKS, ids, dates, texts, tasks)]:
        rows = zip(range(1, count + 1), *(dice.choices(column, k=count) for column in columns))
        database.executemany(f"INSERT INTO {table} VALUES (?{', ?' * len(columns)})", rows)
    database.execute("UPDATE RawIntervalState SET interval = pk WHERE pk % 5 > 0")
    database.commit()


def json_of(task, intervals, notes):
    def members(keys, values):
        return {key: value for key, value in zip(keys.split(), values) if value is not None}

    return members("id creationDate name intervals notes", [
        *task, [members("id creationDate duration maxDuration state", [
            *row[:4], members("started state", row[4:]) or None]) for row in intervals],
        [members("id creationDate text", row) for row in notes]])


def csv_of(task, intervals, notes):
    def number(value):
        return f"{Decimal(repr(value)):f}" if value == 0 or 1e-5 <= abs(value) < 1e16 else repr(value)

    def date(value):
        if value is None or abs(value) >= 1e18:
            return ""
        days, second = divmod(int(value // 1), 86400)
        cycles, day = divmod(days, 146097)  # after 400 years the calendar repeats
        time = datetime.datetime(2001, 1, 1) + datetime.timedelta(day, second)
        year = time.year + 400 * cycles
        return f"{'-' * (year < 0)}{abs(year):04}{time:-%m-%dT%H:%M:%SZ}"

    def fields(row):
        return f"{row[0] or ''},{date(row[1])}," + ("" if row[2] is None else f'"{row[2]}"')

    return [[f"{fields(task)},{row[0] or ''},{date(row[1])},{number(row[2])},{number(row[3])}"
             + ("" if row[5] is None else f",{date(row[4])},{row[5]:.0f}") + ",,," for row in intervals],
            [f"{fields(task)},,,,,,,{fields(row)}" for row in notes]]


def check(document, table, *rows):
    found, expected = json.loads(document, parse_int=float), json_of(*rows)
    for key in ("intervals", "notes"):
        found[key], expected[key] = sorted(found[key], key=repr), sorted(expected[key], key=repr)
    # As texts, which tell the order of the keys as well.
    assert repr(found) == repr(expected), f"{rows} is not {document}"
    rest = table.removeprefix(HEADER if any(rows[1:]) else HEADER + "\n")
    for lines in csv_of(*rows):
        while lines:
            lines.sort(key=lambda line: (rest.startswith("\n" + line), len(line)))
            rest = rest.removeprefix("\n" + lines.pop())
    assert rest == "", f"{rows} is not {table}"


documents = []
with tempfile.TemporaryDirectory() as root:
    subprocess.run([sys.argv[1], root, root], check=True)
    database = sqlite3.connect(Path(root, "Hearthmark.sqlite"))
    plant(database, random.Random(2001))
    subprocess.run([sys.argv[1], root, root], check=True)
    for zone in ["Europe/Berlin", "America/St_Johns", "Australia/Lord_Howe", "UTC"]:
        subprocess.run([sys.argv[1], root, root], check=True, env=os.environ | {"TZ": zone})
        interval_files.check_table(Path(root, "intervals.csv"), database, zoneinfo.ZoneInfo(zone))
    interval_files.check_calendar(Path(root, "intervals.ics"), database)
    for key in range(1, TASKS + 1):
        [task], *sets = [database.execute(query, [key]).fetchall() for query in QUERIES]
        documents.append(Path(root, f"{key}.json").read_bytes().decode())
        check(documents[-1], Path(root, f"{key}.csv").read_bytes().decode(), task, *sets)
    done = database.execute("SELECT upper(id), doneDate FROM Task"
                            " WHERE id IS NOT NULL AND doneDate IS NOT NULL ORDER BY pk").fetchall()
    interval_files.check_everything(Path(root, "everything.json"), documents, done)
    for table in ["Task", "Interval", "Note"]:
        keys = database.execute(f"SELECT pk FROM {table} WHERE id IS NOT NULL").fetchall()
        database.executemany(f"UPDATE {table} SET id = ? WHERE pk = ?", [(str(uuid.uuid4()), *key) for key in keys])
    database.commit()
    subprocess.run([sys.argv[1], root, root], check=True)
    document, other = Path(root, "everything.json"), Path(root, "other")
    other.mkdir()
    for _ in range(2):  # the second adds nothing
        subprocess.run([sys.argv[1], other, other, document], check=True)
        imported = sqlite3.connect(Path(other, "Hearthmark.sqlite"))
        assert not imported.execute("SELECT * FROM RawIntervalState WHERE state IN (0, 1)").fetchall()
        for query in interval_files.IMPORTED:
            expected = database.execute(query).fetchall()
            assert imported.execute(query).fetchall() == expected and len(expected) > 800, query
accepted = subprocess.check_output(["jq", "--slurp", "length"], input="".join(documents).encode())
assert int(accepted) == TASKS, accepted
