# SPDX-License-Identifier: MIT
"""Hearthmark, driven by keys: what each key of a search costs with ten years, and a second of a focus while a
search is open."""

import statistics
import time

from driver import key, xdotool
from measuring import growth, print_steady, processor_times, wait_until_idle
from one_task import make_subject, select_task, start_focus

# The first key opens the field and folds all texts. Digits are in scattered names, the other words in the
# notes of all tasks, the last one in none.
TYPED = ["a", "p", "p", "e", "n", "d", "BackSpace", "space", "1", "9", "BackSpace", "7", "x", "Escape",
         "1", "9", "BackSpace", "BackSpace", "Escape"]
SETTLING_SECONDS = 0.4


def measure_keys(subject, windows):
    """Milliseconds of processor time of each."""
    found = []
    with subject.started(windows) as pid:
        wait_until_idle(pid)
        key("Down")
        wait_until_idle(pid)
        for each in TYPED:
            before = processor_times(pid)
            xdotool("key", each)
            time.sleep(SETTLING_SECONDS)
            found.append(growth(before, processor_times(pid)))
    return found


def print_search(hearthmark, ten_year_store, windows, timer, seconds, starts):
    subject = make_subject("Hearthmark, ten years", hearthmark, ten_year_store)
    keys = [statistics.median(each) for each in zip(*(measure_keys(subject, windows) for _ in range(starts)))]
    print("\nms of CPU for each key of a search with ten years, its picture included")
    print("  ".join(f"{name} {milliseconds:.1f}" for name, milliseconds in zip(TYPED, keys)))
    print(f"the most: {max(keys):.1f}")

    def run():
        select_task()
        start_focus(subject)

    def search():
        key("ctrl+f", "1")
        # The field's cursor blinks, which is none of the list's doing.
        key("Down")
    print_steady({subject: {"running, no search": run, "running, search open": search}}, windows, timer, seconds)
