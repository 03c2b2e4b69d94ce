# SPDX-License-Identifier: MIT
"""Hearthmark, driven by keys: what each range of the history costs with ten years, and a second of a focus while
its page is open."""

import statistics
import time

from driver import key, xdotool
from measuring import growth, print_steady, processor_times, wait_until_idle
from one_task import make_subject, select_task, start_focus

# The page opens with the week; the tabs before the chart are walked to the month, the year, back to the day. Of each
# the range before is shown, too.
STEPS = [("open", ["ctrl+h"]), ("week before", ["alt+Left"]), ("to the tabs", ["shift+Tab"] * 3),
         ("month", ["Right"]), ("month before", ["alt+Left"]), ("year", ["Right"]), ("year before", ["alt+Left"]),
         ("month", ["Left"]), ("week", ["Left"]), ("day", ["Left"]), ("day before", ["alt+Left"]),
         ("leave", ["ctrl+h"]), ("open again", ["ctrl+h"])]
SETTLING_SECONDS = 0.6


def measure_ranges(subject, windows):
    """Milliseconds of processor time of each."""
    found = []
    with subject.started(windows) as pid:
        wait_until_idle(pid)
        for _, keys in STEPS:
            before = processor_times(pid)
            xdotool("key", *keys)
            time.sleep(SETTLING_SECONDS)
            found.append(growth(before, processor_times(pid)))
    return found


def print_history(hearthmark, ten_year_store, windows, timer, seconds, starts):
    subject = make_subject("Hearthmark, ten years", hearthmark, ten_year_store)
    ranges = [statistics.median(each) for each in zip(*(measure_ranges(subject, windows) for _ in range(starts)))]
    print("\nms of CPU for each range of the history with ten years, its picture included")
    print("  ".join(f"{name} {milliseconds:.1f}" for (name, _), milliseconds in zip(STEPS, ranges)))

    def run():
        select_task()
        start_focus(subject)
    print_steady({subject: {"running, no history": run, "running, history open": lambda: key("ctrl+h")}}, windows,
                 timer, seconds)
