# SPDX-License-Identifier: MIT
"""Other time trackers, where they are installed: our ten years in the form that each of them keeps, and how
something is made to run in it. The forms were learnt from their manuals and from files that they wrote."""

import contextlib
import os
import shutil
import sqlite3
import subprocess
import uuid
from datetime import datetime, timedelta, timezone

from driver import EPOCH
from measuring import Subject

TASK = "Letters"


def moment(seconds):
    return datetime.fromtimestamp(EPOCH + seconds, timezone.utc)


def rows(data, query):
    with contextlib.closing(sqlite3.connect(os.path.join(data, "Hearthmark", "Hearthmark.sqlite"))) as store:
        return store.execute(query).fetchall()


def make_file(data, *path):
    path = os.path.join(data, *path)
    os.makedirs(os.path.dirname(path))
    return open(path, "w", encoding="utf-8", newline="")


# KTimeTracker: a calendar with a to-do for each task and an event for each interval.


def component(kind, **properties):
    lines = [f"{name.replace('__', '-')}:{value}" for name, value in properties.items()]
    return "\r\n".join([f"BEGIN:{kind}", *lines, f"END:{kind}", ""])


def text(value):
    return value.replace("\\", "\\\\").replace(";", "\\;").replace(",", "\\,").replace("\n", "\\n")


def utc(seconds):
    return moment(seconds).strftime("%Y%m%dT%H%M%SZ")


def write_calendar(ours, data):
    notes = dict(rows(ours, "SELECT task, group_concat(text, char(10)) FROM Note GROUP BY task"))
    spent = dict(rows(ours, "SELECT task, sum(duration) FROM Interval GROUP BY task"))
    tasks = {pk: (str(uuid.uuid4()), name, created)
             for pk, name, created in rows(ours, "SELECT pk, name, creationDate FROM Task")}
    with make_file(data, "ktimetracker", "ktimetracker.ics") as file:
        file.write("BEGIN:VCALENDAR\r\nPRODID:-//Hearthmark//Benchmarks//EN\r\nVERSION:2.0\r\n")
        for pk, (identifier, name, created) in tasks.items():
            file.write(component(
                "VTODO", DTSTAMP=utc(created), X__KDE__ktimetracker__totalSessionTime=0,
                X__KDE__ktimetracker__totalTaskTime=round(spent.get(pk, 0) / 60), CREATED=utc(created),
                UID=identifier, SUMMARY=text(name), DESCRIPTION=text(notes.get(pk, "")), PERCENT__COMPLETE=0))
        for begun, duration, pk in rows(ours, "SELECT creationDate, duration, task FROM Interval"):
            identifier, name, _ = tasks[pk]
            file.write(component(
                "VEVENT", DTSTAMP=utc(begun), X__KDE__ktimetracker__duration=round(duration),
                CREATED=utc(begun), UID=uuid.uuid4(), SUMMARY=text(name), CATEGORIES="KTimeTracker",
                RELATED__TO=identifier, DTSTART=utc(begun), DTEND=utc(begun + duration), TRANSP="OPAQUE"))
        file.write("END:VCALENDAR\r\n")


def start_timer(_):
    for method in "addTask", "startTimerForTaskName":
        subprocess.run(["dbus-send", "--session", "--print-reply", "--reply-timeout=180000",
                        "--dest=org.kde.ktimetracker", "/KTimeTracker",
                        f"org.kde.ktimetracker.ktimetracker.{method}", f"string:{TASK}"],
                       stdout=subprocess.DEVNULL, check=True)


# gtimelog: a line for the end of each activity; two asterisks mean that it was none.


def line(at, activity):
    return f"{at.astimezone():%Y-%m-%d %H:%M}: {activity}\n"


def write_log(ours, data):
    last = None
    with make_file(data, "gtimelog", "timelog.txt") as file:
        for begun, duration, name in rows(ours, "SELECT i.creationDate, i.duration, t.name FROM Interval i"
                                                " JOIN Task t ON t.pk = i.task ORDER BY i.creationDate"):
            begun, ended = moment(begun), moment(begun + duration)
            if last is None or begun - last > timedelta(hours=4):
                file.write("\n" + line(begun, "arrived **"))
            elif last < begun:
                file.write(line(begun, "pause **"))
            file.write(line(ended, name))
            last = ended


def begin_day(subject):
    """What runs is what began with the last line; the program reads the file again."""
    directory = os.path.join(subject.data, "gtimelog")
    os.makedirs(directory, exist_ok=True)
    with open(os.path.join(directory, "timelog.txt"), "a", encoding="utf-8") as file:
        file.write("\n" + line(datetime.now(), "arrived **"))


WRITERS = {"ktimetracker": write_calendar, "gtimelog": write_log, "gnome-clocks": None}
RUNNING = {"ktimetracker": start_timer, "gtimelog": begin_day}


def make_peers(ours):
    """Those that are installed, empty and with the ten years of our store."""
    peers = []
    for name, write in WRITERS.items():
        if not shutil.which(name):
            print(f"{name} is not installed and is not compared with")
            continue
        peers.append(Subject(name, [name]))
        if write:
            peers.append(Subject(f"{name}, ten years", [name]))
            write(ours, peers[-1].data)
    return peers


def states(subject):
    found = {"nothing running": None}
    run = RUNNING.get(subject.command[0])
    if run:
        found["running, window visible"] = lambda: run(subject)
    return found
