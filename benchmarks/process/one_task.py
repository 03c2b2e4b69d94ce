# SPDX-License-Identifier: MIT
"""Hearthmark, driven by keys: what a task costs that holds ten years by itself, beside a fresh one, and what
stores do that nobody is known to have."""

import statistics
import subprocess
import time

from driver import Program, key, now, type_text
from measuring import Subject, growth, print_steady, processor_times, wait_until_idle
from standstill import Standstill

WATCHED_SECONDS = 10.0
SENTENCE = "The second argument needs an example; see what the appendix says."
TEN_MEGABYTES = 10_000_000 // (len(SENTENCE) + 1)


def add_task():
    key("ctrl+n")
    time.sleep(1)
    type_text("Letters")
    key("ctrl+Return")
    time.sleep(1)
    key("Return")


def select_task():
    key("Down", "Return")


def start_focus(subject):
    def running():
        return Program(None, subject.data).rows("SELECT count(*) FROM RawIntervalState WHERE state = 1")[0][0]
    before = running()
    key("ctrl+1")
    time.sleep(1)
    if running() != before + 1:
        raise RuntimeError(f"{subject.name}: no focus was started")


def hide(windows):
    key("alt+F4")
    windows.wait_for_none()


def make_subject(name, hearthmark, ten_year_store, *shape):
    subject = Subject(name, [hearthmark])
    subprocess.run([ten_year_store, subject.data, *map(str, shape)], check=True)
    return subject


def measure_selecting(subject, windows):
    """Milliseconds: processor time of a start and of selecting, and the longest standstill meanwhile, of
    another start, since asking costs time as well."""
    with subject.started(windows) as pid:
        start = wait_until_idle(pid)
        before = processor_times(pid)
        select_task()
        wait_until_idle(pid)
        selecting = growth(before, processor_times(pid))
    with subject.started(windows) as pid:
        wait_until_idle(pid)
        with Standstill() as standstill:
            select_task()
            time.sleep(3)
    return start, selecting, standstill.longest * 1000


def print_one_task(hearthmark, ten_year_store, windows, timer, seconds, starts):
    fresh = make_subject("Fresh task", hearthmark, ten_year_store, 1, 0, 0)
    full = make_subject("Ten years in one task", hearthmark, ten_year_store, 1, 40_000, 10_000)
    found = {subject: [] for subject in (fresh, full)}
    for _ in range(starts):
        for subject, measured in found.items():
            measured.append(measure_selecting(subject, windows))
    print(f"\n{'':24}{'CPU of start':>16}{'of selecting':>16}{'/ start':>9}{'longest standstill':>22}")
    for subject, measured in found.items():
        start, selecting, standstill = map(statistics.median, zip(*measured))
        print(f"{subject.name:24}{start:13.0f} ms{selecting:13.0f} ms{selecting / start:9.2f}"
              f"{standstill:19.0f} ms")

    def states(subject):
        def run():
            select_task()
            time.sleep(WATCHED_SECONDS)
            start_focus(subject)
        return {"running, window visible": run, "running, window hidden": lambda: hide(windows)}
    print_steady({subject: states(subject) for subject in (fresh, full)}, windows, timer, seconds)


def print_extremes(hearthmark, ten_year_store, windows):
    """The processor time has that of asking in it, some 10 ms a second."""
    fresh, long, wide, lines, paragraph = (
        make_subject(name, hearthmark, ten_year_store, *shape)
        for name, *shape in [("fresh task", 1, 0, 0), ("100,000 intervals in one task", 1, 100_000, 0),
                             ("300 tasks with 5 running", 300, 5, 0), ("a note of 10 MB, in lines", 1, 0, 1),
                             ("a note of 10 MB, in one", 1, 0, 1)])
    Program(None, wide.data).plant(
        ("UPDATE Interval SET creationDate = ?, duration = 0, maxDuration = 1e9", (now(),)),
        # Paused, which the start resumes; what was left running is finished by it.
        "UPDATE RawIntervalState SET state = 0")
    for subject, end in (lines, "\n"), (paragraph, " "):
        Program(None, subject.data).plant(("UPDATE Note SET text = ?", ((SENTENCE + end) * TEN_MEGABYTES,)))
    print(f"\nin {WATCHED_SECONDS:.0f} s each: CPU, longest standstill"
          f"{'after the start':>24}{'selecting a task':>26}{'a focus':>26}")
    for subject in fresh, long, wide, lines, paragraph:
        print(f"{subject.name:34}", end="", flush=True)
        with subject.started(windows) as pid:
            # A task that runs is offered no other focus.
            focus = (lambda: None) if subject is wide else (lambda subject=subject: start_focus(subject))
            for reach in (lambda: None, select_task, focus):
                before = processor_times(pid)
                with Standstill() as standstill:
                    reach()
                    time.sleep(WATCHED_SECONDS)
                processor = growth(before, processor_times(pid))
                print(f"{processor:13.0f} ms{standstill.longest * 1000:8.0f} ms", end="", flush=True)
        print()
