# SPDX-License-Identifier: MIT
"""Hearthmark, driven by keys: what each key of a search costs with ten years, what it costs to be done with a
task, and a second of a focus while a search is open."""

import statistics
import time

from driver import Program, key, xdotool
from measuring import growth, print_steady, processor_times, wait_until_idle
from one_task import make_subject, select_task, start_focus

# The first key opens the field and folds all texts. The words are in the notes of all tasks, digits in some
# names, "q" and "z" in every second name, "x" behind the others in none.
TYPED = ["a", "p", "p", "e", "n", "d", "BackSpace", "space", "1", "9", "BackSpace", "7", "x", "Escape",
         "q", "BackSpace", "z", "e", "Escape"]
# Done, done no longer, that taken back and done again.
MARKED = ["ctrl+shift+d", "ctrl+shift+d", "ctrl+z", "ctrl+shift+z"]
SETTLING_SECONDS = 0.4


def measure_keys(subject, windows, keys):
    """Milliseconds of processor time of each, with a task selected in the list."""
    found = []
    with subject.started(windows) as pid:
        wait_until_idle(pid)
        key("Down", "Return")
        wait_until_idle(pid)
        for each in keys:
            before = processor_times(pid)
            xdotool("key", each)
            time.sleep(SETTLING_SECONDS)
            found.append(growth(before, processor_times(pid)))
    return found


def scatter_names(subject):
    """So that every second task matches a first letter, and no two of them stand side by side."""
    Program(None, subject.data).plant(
        "UPDATE Task SET name = CASE pk % 2 WHEN 0 THEN 'zebra ' ELSE 'quux ' END || name")


def print_search(hearthmark, ten_year_store, windows, timer, seconds, starts):
    subject = make_subject("Hearthmark, ten years", hearthmark, ten_year_store)
    scatter_names(subject)
    for what, keys in [("a search", TYPED), ("being done with a task", MARKED)]:
        times = [statistics.median(each) for each in zip(*(measure_keys(subject, windows, keys) for _ in range(starts)))]
        print(f"\nms of CPU for each key of {what} with ten years, its picture included")
        print("  ".join(f"{name} {milliseconds:.1f}" for name, milliseconds in zip(keys, times)))
        print(f"the most: {max(times):.1f}")

    def run():
        select_task()
        start_focus(subject)

    def search():
        key("ctrl+f", "1")
        # The field's cursor blinks, which is none of the list's doing.
        key("Down")
    print_steady({subject: {"running, no search": run, "running, search open": search}}, windows, timer, seconds)
