#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Compares sums of the history with those of a reader of our own: compare_history.py <history_writer>

It reads the rows of the store, and knows the zones by Python's own library: 50 random ranges in each of four.
"""

import datetime
import os
import random
import sqlite3
import subprocess
import sys
import tempfile
import uuid
from collections import defaultdict
from pathlib import Path
from zoneinfo import ZoneInfo

# With changes of an hour in both hemispheres, of half an hour, and at midnight.
ZONES = ["Europe/Berlin", "America/Havana", "Australia/Lord_Howe", "Africa/Cairo"]
EPOCH = datetime.datetime(2001, 1, 1, tzinfo=datetime.timezone.utc)
YEARS = range(2019, 2026)
PARTS = [lambda time: (time.hour, time.fold), datetime.datetime.date, datetime.datetime.date,
         lambda time: time.month]


def first_day(unit, day, first_of_week):
    """Python counts weekdays from Monday, and we from Sunday."""
    return [day, day - datetime.timedelta((day.weekday() + 1 - first_of_week) % 7), day.replace(day=1),
            day.replace(month=1, day=1)][unit]


def end_of(unit, first):
    return first + datetime.timedelta([1, 7][unit]) if unit < 2 else \
        (first.replace(day=28) + datetime.timedelta([0, 0, 4, 345][unit])).replace(day=1)


def parts_of(unit, first, zone):
    """All that there are, found by walking through them."""
    found = []
    moment = datetime.datetime.combine(first, datetime.time(), zone).astimezone(datetime.timezone.utc)
    moment -= datetime.timedelta(hours=3)
    while (local := moment.astimezone(zone)).date() < end_of(unit, first):
        if local.date() >= first and PARTS[unit](local) not in found:
            found.append(PARTS[unit](local))
        moment += datetime.timedelta(minutes=15)
    return found


def changes_of(zone):
    """The days on which its clocks change."""
    days = [datetime.date(year, 1, 1) + datetime.timedelta(day) for year in YEARS for day in range(365)]
    def offset(day):
        return datetime.datetime.combine(day, datetime.time(), zone).utcoffset()
    return [day for day in days if offset(day) != offset(day + datetime.timedelta(1))]


def plant(database, dice):
    begin, end = ((datetime.datetime(year, 1, 1, tzinfo=datetime.timezone.utc) - EPOCH).total_seconds()
                  for year in (YEARS[0], YEARS[-1] + 1))
    # On the quarters of hours, too, where parts begin.
    moments = [dice.uniform(begin, end) for _ in range(15000)]
    moments += [dice.randrange(int(begin), int(end), 900) for _ in range(15000)]
    for change in (change for zone in ZONES for change in changes_of(ZoneInfo(zone))):
        noon = (datetime.datetime.combine(change, datetime.time(12), datetime.timezone.utc) - EPOCH).total_seconds()
        moments += [noon + 900 * dice.randrange(-96, 96) for _ in range(30)]
    database.executemany("INSERT INTO Task (pk, id, creationDate, name) VALUES (?, ?, ?, 'task')",
                         ((key, str(uuid.UUID(int=dice.getrandbits(128))), -key) for key in range(1, 301)))
    database.executemany("INSERT INTO Interval (creationDate, duration, maxDuration, task) VALUES (?, ?, 0, ?)",
                         ((dice.choice([moment] * 99 + [None]), dice.uniform(0, 9000),
                           dice.choice([*range(1, 301)] * 2 + [None])) for moment in moments))
    database.execute("UPDATE Task SET doneDate = 1 WHERE pk % 3 = 0")
    database.commit()


def expected(rows, unit, first, chosen, zone):
    parts = {part: [] for part in parts_of(unit, first, zone)}
    part_of = PARTS[unit]
    for created, duration, task in rows:
        local = created.astimezone(zone)
        if first <= local.date() < end_of(unit, first):
            parts[part_of(local)].append((duration, task))
    tasks = defaultdict(lambda: [0, 0])
    for place, part in enumerate(parts.values()):
        for duration, task in part if chosen in (-1, place) else ():
            tasks[task][0] += duration
            tasks[task][1] += 1
    return [sum(duration for duration, _ in part) for part in parts.values()], tasks


dice = random.Random(2001)
with tempfile.TemporaryDirectory() as root:
    subprocess.run([sys.argv[1], root], check=True, stdin=subprocess.DEVNULL)
    database = sqlite3.connect(Path(root, "Hearthmark.sqlite"))
    plant(database, dice)
    rows = [(EPOCH + datetime.timedelta(seconds=created), duration, task) for created, duration, task in
            database.execute("SELECT creationDate, duration, task FROM Interval"
                             " WHERE creationDate NOT NULL AND task NOT NULL")]
    for name in ZONES:
        zone = ZoneInfo(name)
        changes = changes_of(zone)
        ranges = []
        for _ in range(50):
            unit, day = dice.randrange(4), dice.choice([dice.choice(changes), datetime.date(
                dice.choice(YEARS), dice.randrange(1, 13), dice.randrange(1, 29))])
            ranges.append((unit, day, dice.choice([0, 1, 6]), dice.randrange(-1, 7)))
        given = "".join(f"{unit} {(day - datetime.date(1970, 1, 1)).days} {week} {chosen}\n"
                        for unit, day, week, chosen in ranges)
        lines = subprocess.run([sys.argv[1], root], check=True, input=given, capture_output=True, text=True,
                               env={**os.environ, "TZ": name}).stdout.splitlines()
        assert len(lines) == len(ranges)
        for (unit, day, week, chosen), line in zip(ranges, lines):
            parts, tasks = expected(rows, unit, first_day(unit, day, week), chosen, zone)
            found, numbers = ([float(each) for each in side.split()] for side in line.split("|"))
            what = f"{name}, unit {unit}, {day}, week from {week}, part {chosen}"
            assert [round(each, 3) for each in found] == [round(each, 3) for each in parts], f"{what}: {found} is not {parts}"
            found = {key: [round(spent, 3), focuses]
                     for key, spent, focuses in zip(numbers[::3], numbers[1::3], numbers[2::3])}
            assert found == {key: [round(spent, 3), focuses] for key, (spent, focuses) in tasks.items()}, what
