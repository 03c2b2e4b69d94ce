# SPDX-License-Identifier: MIT
"""What files of all tasks must say, by other readers of them and of the store, for compare_exports.py."""

import csv
import datetime
import json
import re
import subprocess
import zoneinfo

import icalendar

NOW, FROM, TO = 725760000, -6e10, 9e10  # as in export_writer.cpp
EPOCH = datetime.datetime(2001, 1, 1)
REFERENCE = 978307200  # in Unix time
STATES = {0: "paused", 1: "running", 2: "finished"}
ROWS = """SELECT upper(Task.id), name, upper(Interval.id), Interval.creationDate, duration, maxDuration, state, started
          FROM Interval JOIN Task ON task = Task.pk LEFT JOIN RawIntervalState ON interval = Interval.pk
          WHERE Interval.creationDate >= ? AND Interval.creationDate < ? ORDER BY Interval.creationDate, Interval.pk"""
# What an import takes along: each row with an id, in a task with one.
IMPORTED = [
    "SELECT upper(id), name, creationDate, doneDate FROM Task WHERE id IS NOT NULL ORDER BY 1",
    """SELECT upper(Interval.id), upper(Task.id), Interval.creationDate, duration, maxDuration,
       CASE WHEN state IN (0, 1) THEN 2 ELSE state END, CASE WHEN state IN (0, 1) THEN NULL ELSE started END
       FROM Interval JOIN Task ON task = Task.pk LEFT JOIN RawIntervalState ON interval = Interval.pk
       WHERE Interval.id IS NOT NULL AND Task.id IS NOT NULL ORDER BY 1""",
    """SELECT upper(Note.id), upper(Task.id), Note.creationDate, text FROM Note JOIN Task ON task = Task.pk
       WHERE Note.id IS NOT NULL AND Task.id IS NOT NULL ORDER BY 1"""]


def rows(database):
    for row in database.execute(ROWS, [FROM, TO]):
        spent, running = row[4], row[6] == 1 and row[7] is not None
        if running and NOW > row[7]:
            spent += NOW - row[7]
        state = "" if row[6] == 1 and not running else STATES.get(row[6], "")
        yield *row[:4], row[3] + spent, spent, row[5], state


def local_text(date, zone):
    second = int(date // 1)
    if abs(second + REFERENCE) >= 1e11:
        return ""
    cycles, rest = divmod(second, 146097 * 86400)  # after 400 years the calendar repeats
    # Before the calendar of Python begins, offsets are those of old.
    year_one = -63113904000
    known = EPOCH + datetime.timedelta(seconds=max(second, year_one + 86400))
    offset = known.replace(tzinfo=datetime.timezone.utc).astimezone(zone).utcoffset().total_seconds()
    offset, mark = (int(offset), "") if offset % 60 == 0 else (0, "Z")
    shown = EPOCH + datetime.timedelta(seconds=rest + offset)
    year = shown.year + 400 * cycles
    mark = mark or f"{'-' if offset < 0 else '+'}{abs(offset) // 3600:02}:{abs(offset) // 60 % 60:02}"
    return f"{'-' * (year < 0)}{abs(year):04}{shown:-%m-%dT%H:%M:%S}{mark}"


def check_table(path, database, zone):
    with open(path, encoding="utf-8", newline="") as file:
        header, *found = csv.reader(file, strict=True)
    assert header == "task.id task.name interval.id start end seconds length state".split(), header
    expected = list(rows(database))
    assert len(found) == len(expected) > 5000, (len(found), len(expected))
    for cells, row in zip(found, expected):
        name = (row[1] or "").replace("\0", "\ufffd")
        name = "'" * name.startswith(tuple("=+-@\t\r")) + name
        texts = [row[0] or "", name, row[2] or "", local_text(row[3], zone), local_text(row[4], zone)]
        assert cells[:5] + cells[7:] == [*texts, row[7]], (cells, row)
        assert [float(cell) for cell in cells[5:7]] == [*row[5:7]], (cells, row)
    query = "SELECT json_array(" + ", ".join(f'hex("{name}")' for name in header) + ") FROM read"
    output = subprocess.check_output(["sqlite3", ":memory:", f".import --csv '{path}' read", query])
    by_sqlite = [[bytes.fromhex(cell).decode() for cell in json.loads(line)] for line in output.splitlines()]
    assert by_sqlite == found


def check_calendar(path, database):
    def moment(date):
        try:
            return EPOCH.replace(tzinfo=datetime.timezone.utc) + datetime.timedelta(seconds=date // 1)
        except OverflowError:
            return None

    def shown(name):
        name = re.sub("[\0-\x08\x0b-\x1f\x7f]", "\ufffd", re.sub("\r\n?", "\n", name))
        return name.replace("\u2028", "LS").replace("\\", "BS")

    text = path.read_bytes()
    assert max(len(line) for line in text.split(b"\r\n")) == 75 and b"\n" not in text.replace(b"\r\n", b"")
    assert all(line.decode() for line in text.split(b"\r\n")[:-1])
    # That reader takes a line separator for the end of a line, and a comma after a backslash for both.
    plain = re.sub(rb"\\(\r\n )?\\", rb"\1BS", text.replace("\u2028".encode(), b"LS"))
    events = icalendar.Calendar.from_ical(plain).walk("VEVENT")
    expected = [(row[2], moment(row[3]), moment(row[4]), row[1]) for row in rows(database)]
    expected = [event for event in expected if all(event[:3])]
    assert len(events) == len(expected) > 1000, (len(events), len(expected))
    for event, (identifier, start, end, name) in zip(events, expected):
        assert event["UID"] == identifier + "@hearthmark.org", event
        assert event["DTSTART"].dt == start and event["DTSTAMP"].dt == max(start, end), (event, start, end)
        assert ("DTEND" in event) == (end > start) and ("DTEND" not in event or event["DTEND"].dt == end), event
        assert event.get("SUMMARY") == (name and shown(name)), (event, name)


def check_everything(path, documents, done):
    tasks = ",".join("\n    " + re.sub("\n(?=[^\n])", "\n    ", document) for document in documents)
    found = path.read_bytes().decode()
    start = f'{{\n  "format" : "org.hearthmark.everything",\n  "version" : 1,\n  "tasks" : [{tasks}\n  ],\n  "done" : {{\n'
    assert found.startswith(start) and found.endswith("\n  }\n}\n")
    pairs = json.loads(found[len(start) - 2:-2], parse_int=float, object_pairs_hook=list)
    assert pairs == [(key, float(date)) for key, date in done]
    whole = ["jq", "-c", '[.format, .version, (.tasks | length)]', path]
    assert json.loads(subprocess.check_output(whole)) == ["org.hearthmark.everything", 1, len(documents)]
