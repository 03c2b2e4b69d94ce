# SPDX-License-Identifier: MIT
"""The command line beside a time tracker that is nothing else, with the same ten years: from exec to exit, and
how much memory it takes at most."""

import os
import shutil
import statistics
import subprocess
import time
from collections import defaultdict
from datetime import datetime

from peers import moment, rows

YEAR = datetime.now().year - 1


def write_intervals(ours, data):
    """As timewarrior keeps them: a file for each month, a line for each interval, none over another."""
    os.makedirs(os.path.join(data, "data"))
    months = defaultdict(list)
    last = 0
    for begun, duration, name in rows(ours, "SELECT i.creationDate, i.duration, t.name FROM Interval i"
                                            " JOIN Task t ON t.pk = i.task ORDER BY i.creationDate"):
        begun = max(begun, last)
        last = begun + max(duration, 1)
        begin, end = (moment(at).strftime("%Y%m%dT%H%M%SZ") for at in (begun, last))
        months[moment(begun).strftime("%Y-%m")].append(f'inc {begin} - {end} # "{name}"\n')
    for month, lines in months.items():
        with open(os.path.join(data, "data", month + ".data"), "w", encoding="utf-8") as file:
            file.writelines(lines)
    # Without it the first use asks whether it may be made.
    with open(os.path.join(data, "timewarrior.cfg"), "w", encoding="utf-8"):
        pass


class Commands:
    def __init__(self, name, command, environment):
        self.name, self.command, self.environment = name, command, {**os.environ, **environment}
        self.milliseconds = []

    def run(self):
        begun = time.monotonic()
        subprocess.run(self.command, env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)
        self.milliseconds.append((time.monotonic() - begun) * 1000)

    def memory(self):
        """MiB. Measured by a small program, whose own would else be counted."""
        told = subprocess.run(["/usr/bin/time", "--quiet", "--format", "%M", *self.command], env=self.environment,
                              stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False, text=True)
        return int(told.stderr.split()[-1]) / 1024


def make_subjects(hearthmarkctl, data):
    ours = {"XDG_DATA_HOME": data}
    subjects = [Commands(" ".join(words), [hearthmarkctl, *words], ours) for words in
                (["status"], ["tasks", "chapter"], ["history", str(YEAR)], ["history", str(YEAR), "--json"])]
    if shutil.which("timew"):
        peer = os.path.join(data, "timewarrior")
        write_intervals(data, peer)
        theirs = {"TIMEWARRIORDB": peer}
        subjects += [Commands("timew", ["timew"], theirs),
                     Commands(f"timew summary {YEAR}",
                              ["timew", "summary", f"{YEAR}-01-01", "-", f"{YEAR + 1}-01-01"], theirs)]
    else:
        print("timew is not installed and is not compared with")
    return subjects


def print_command_line(hearthmarkctl, data, runs):
    subjects = make_subjects(hearthmarkctl, data)
    # In turn, so that what else the machine does meets all of them.
    for _ in range(runs):
        for subject in subjects:
            subject.run()
    history = statistics.median(subjects[2].milliseconds)
    print(f"\n{'ten years, ' + str(runs) + ' runs each':34}{'exec to exit':>16}{'least':>12}{'memory':>13}"
          f"   as many times history {YEAR}")
    for subject in subjects:
        median = statistics.median(subject.milliseconds)
        print(f"{subject.name:34}{median:13.1f} ms{min(subject.milliseconds):9.1f} ms{subject.memory():9.1f} MiB"
              f"{median / history:10.2f}")
