# SPDX-License-Identifier: MIT
"""Measures whole programs on a display of their own and prints figures and ratios; nothing passes or
fails.

The DIRECTORY has the programs that the benchmarks build. SECONDS is how long each steady state is watched,
those of other programs half as long, STARTS how often each program is started. Extreme stores are measured
only when asked for."""

import argparse
import contextlib
import os
import subprocess

from command_line import print_command_line
from desktops import Desktop
from looking_back import print_history
from measuring import Subject, Windows, print_steady
from one_task import add_task, hide, make_subject, print_extremes, print_one_task, start_focus
from peers import make_peers, states as peers_states
from searching import print_search

PARTS = ["starts", "steady", "peers", "one-task", "search", "history", "command-line"]
EXTREMES = "extremes"
COMMANDS = 20


def ratios(subject, base):
    return "".join(f"{each / other:8.2f}" for each, other in zip(subject.figures(), base.figures()))


def print_starts(subjects, windows, starts):
    for _ in range(starts):
        for subject in list(subjects):
            try:
                subject.measure_start(windows)
            except TimeoutError as error:
                print(f"{subject.name} is left out: {error}")
                subjects.remove(subject)
    bare, empty, full, *others = subjects
    print(f"{'':28}{'starts':>6}{'exec to window':>16}{'CPU until idle':>16}{'PSS':>12}"
          "   as many times the bare window")
    for subject in subjects:
        mapped, processor, memory = subject.figures()
        print(f"{subject.name:28}{len(subject.mapped):6}{mapped:13.0f} ms{processor:13.0f} ms"
              f"{memory:8.1f} MiB" + ratios(subject, bare))
    for other in others:
        ours = full if other.name.endswith("ten years") else empty
        print(f"{ours.name + ' / ' + other.name:78}" + ratios(ours, other))


def states(subject, windows):
    def run():
        add_task()
        start_focus(subject)
    return {"nothing running": None, "running, window visible": run,
            "running, window hidden": lambda: hide(windows)}


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("hearthmark")
    parser.add_argument("directory")
    parser.add_argument("--only", choices=[*PARTS, EXTREMES], help="measure nothing else")
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--starts", type=int, default=5)
    return parser.parse_args()


def measure(given, windows):
    def is_asked_for(part):
        return part in ([given.only] if given.only else PARTS)
    bare = Subject("bare window", [os.path.join(given.directory, "bare_window")])
    ten_year_store = os.path.join(given.directory, "ten_year_store")
    empty = Subject("Hearthmark, empty", [given.hearthmark])
    full = make_subject("Hearthmark, ten years", given.hearthmark, ten_year_store)
    peers = make_peers(full.data) if is_asked_for("starts") or is_asked_for("peers") else []
    if is_asked_for("starts"):
        # Before the bare timer, with which they would share memory.
        print_starts([bare, empty, full, *peers], windows, given.starts)
    timer = subprocess.Popen([os.path.join(given.directory, "bare_timer")])
    try:
        if is_asked_for("steady"):
            print_steady({subject: states(subject, windows) for subject in (empty, full)}, windows, timer.pid,
                         given.seconds)
        if is_asked_for("peers"):
            print_steady({peer: peers_states(peer) for peer in peers}, windows, timer.pid, given.seconds / 2)
        if is_asked_for("one-task"):
            print_one_task(given.hearthmark, ten_year_store, windows, timer.pid, given.seconds, given.starts)
        if is_asked_for("search"):
            print_search(given.hearthmark, ten_year_store, windows, timer.pid, given.seconds, given.starts)
        if is_asked_for("history"):
            print_history(given.hearthmark, ten_year_store, windows, timer.pid, given.seconds, given.starts)
        if is_asked_for("command-line"):
            hearthmarkctl = os.path.join(os.path.dirname(os.path.abspath(given.hearthmark)), "hearthmarkctl")
            print_command_line(hearthmarkctl, full.data, COMMANDS)
        if is_asked_for(EXTREMES):
            print_extremes(given.hearthmark, ten_year_store, windows)
    finally:
        timer.terminate()
        timer.wait()


def main():
    given = arguments()
    # What assistive programs cost is theirs.
    with contextlib.closing(Desktop()):
        os.environ.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
        with contextlib.closing(Windows()) as windows:
            measure(given, windows)


if __name__ == "__main__":
    main()
