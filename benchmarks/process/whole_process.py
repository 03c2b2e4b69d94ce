# SPDX-License-Identifier: MIT
"""Measures whole programs on a display of their own and prints figures and ratios; nothing passes or
fails.

Usage: whole_process.py HEARTHMARK BARE_TIMER BARE_WINDOW TEN_YEAR_STORE [SECONDS] [STARTS]
SECONDS is how long each steady state is watched, 60 by default; STARTS how often each program is
started, 7 by default."""

import contextlib
import os
import select
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from driver import Desktop, Program, key, type_text

OTHERS = ["ktimetracker", "gtimelog", "gnome-clocks"]
IDLE_SECONDS = 1.0
# A program that has just started still looks round for a panel, and a window that is shown for its place.
SETTLING_SECONDS = 10.0
PATIENCE = 60.0  # seconds


class Windows:
    """Tells when the window manager has mapped the first window or unmapped the last one, as soon as
    it says so."""

    def __init__(self):
        look = ["xprop", "-root", "_NET_CLIENT_LIST"]
        while b"window id" not in subprocess.check_output(look):
            time.sleep(0.05)  # the window manager is still coming up
        self.process = subprocess.Popen([look[0], "-spy", *look[1:]], stdout=subprocess.PIPE)
        self.lines = self.process.stdout.fileno()
        self.wait(lambda line: b"window id" in line)

    def wait(self, is_awaited):
        deadline = time.monotonic() + PATIENCE
        line = b""
        while not is_awaited(line):
            if not select.select([self.lines], [], [], deadline - time.monotonic())[0]:
                raise TimeoutError(f"waited {PATIENCE} s in vain for a window to come or go")
            told = os.read(self.lines, 4096)
            if not told:
                raise RuntimeError("the display has gone")
            line = told.splitlines()[-1]
        return time.monotonic()

    def wait_for_one(self):
        return self.wait(lambda line: b"0x" in line)

    def wait_for_none(self):
        self.wait(lambda line: line and b"0x" not in line)

    def close(self):
        self.process.terminate()
        self.process.wait()


def of_threads(pid, read):
    """What the function reads in the directory of each thread."""
    found = {}
    for thread in os.listdir(f"/proc/{pid}/task"):
        with contextlib.suppress(FileNotFoundError):  # it has just ended
            found[thread] = read(f"/proc/{pid}/task/{thread}")
    return found


def processor_times(pid):
    """Milliseconds of each thread, as the scheduler has counted them."""
    def read(thread):
        with open(thread + "/schedstat", encoding="ascii") as file:
            return int(file.read().split()[0]) / 1e6
    return of_threads(pid, read)


def wake_ups(pid):
    """Of each thread: how often it was given a processor after it had waited."""
    def read(thread):
        with open(thread + "/status", encoding="ascii") as file:
            return next(int(line.split()[1]) for line in file if line.startswith("voluntary"))
    return of_threads(pid, read)


def growth(before, after):
    """Of the threads that are still there."""
    return sum(value - before.get(thread, 0) for thread, value in after.items())


def proportional_memory(pid):
    """MiB; what several processes share is divided among them."""
    with open(f"/proc/{pid}/smaps_rollup", encoding="ascii") as file:
        return next(int(line.split()[1]) for line in file if line.startswith("Pss:")) / 1024


def wait_until_idle(pid):
    """The processor time by when nothing more happens."""
    before = processor_times(pid)
    while True:
        time.sleep(IDLE_SECONDS)
        after = processor_times(pid)
        if growth(before, after) < 5 * IDLE_SECONDS:
            return sum(after.values())
        before = after


class Subject:
    """A program to be measured, on data of its own."""

    def __init__(self, name, command, data=None):
        self.name = name
        self.command = command
        self.data = data or tempfile.mkdtemp(prefix="hearthmark-benchmark-")
        self.mapped, self.processor, self.memory = [], [], []

    def start(self):
        environment = {**os.environ, "XDG_DATA_HOME": self.data, "HOME": self.data}
        return subprocess.Popen(self.command, env=environment, stdin=subprocess.DEVNULL,
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def measure_start(self, windows):
        begun = time.monotonic()
        process = self.start()
        self.mapped.append((windows.wait_for_one() - begun) * 1000)
        self.processor.append(wait_until_idle(process.pid))
        self.memory.append(proportional_memory(process.pid))
        process.terminate()
        process.wait()
        windows.wait_for_none()

    def figures(self):
        return [statistics.median(each) for each in (self.mapped, self.processor, self.memory)]


def ratios(subject, base):
    return "".join(f"{each / other:8.2f}" for each, other in zip(subject.figures(), base.figures()))


def print_starts(subjects):
    bare, empty, _, *others = subjects
    print(f"{'':28}{'exec to window':>16}{'CPU until idle':>16}{'PSS':>12}   as many times the bare window")
    for subject in subjects:
        mapped, processor, memory = subject.figures()
        print(f"{subject.name:28}{mapped:13.0f} ms{processor:13.0f} ms{memory:8.1f} MiB"
              + ratios(subject, bare))
    for other in others:
        print(f"{empty.name} / {other.name:36}{'':16}" + ratios(empty, other))


def watch(pid, timer, seconds):
    """Processor time and wake-ups a second, and the same time of the bare timer beside it."""
    before = processor_times(pid), processor_times(timer), wake_ups(pid)
    time.sleep(seconds)
    after = processor_times(pid), processor_times(timer), wake_ups(pid)
    processor, bare, woken = map(growth, before, after)
    return processor / seconds, bare / seconds, woken / seconds


def start_focus(subject):
    key("ctrl+n")
    time.sleep(1)
    type_text("Letters")
    key("ctrl+Return")
    time.sleep(1)
    key("Return", "ctrl+1")
    running = Program(None, subject.data).rows("SELECT count(*) FROM RawIntervalState WHERE state = 1")
    if running != [(1,)]:
        raise RuntimeError(f"{subject.name}: no focus was started")


def print_steady(subject, windows, timer, seconds):
    process = subject.start()
    windows.wait_for_one()

    def hide():
        key("alt+F4")
        windows.wait_for_none()
    for state, reach in [("nothing running", lambda: None),
                         ("running, window visible", lambda: start_focus(subject)),
                         ("running, window hidden", hide)]:
        reach()
        time.sleep(SETTLING_SECONDS)
        processor, bare, woken = watch(process.pid, timer, seconds)
        print(f"{subject.name:24}{state:24}{woken:6.2f} wake-ups and{processor:6.2f} ms of CPU a second,"
              f" a bare timer{bare:6.2f} ms")
    process.terminate()
    process.wait()


def main():
    hearthmark, bare_timer, bare, ten_year_store = sys.argv[1:5]
    seconds = float(sys.argv[5]) if len(sys.argv) > 5 else 60
    starts = int(sys.argv[6]) if len(sys.argv) > 6 else 7
    # What assistive programs cost is theirs.
    desktop = Desktop()
    os.environ.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
    windows = Windows()
    empty = Subject("Hearthmark, empty", [hearthmark])
    full = Subject("Hearthmark, ten years", [hearthmark])
    subprocess.run([ten_year_store, full.data], check=True)
    subjects = [Subject("bare window", [bare]), empty, full]
    for other in OTHERS:
        if shutil.which(other):
            subjects.append(Subject(other, [other]))
        else:
            print(f"{other} is not installed and is not compared with")
    for _ in range(starts):
        for subject in subjects:
            subject.measure_start(windows)
    print_starts(subjects)
    timer = subprocess.Popen([bare_timer])
    for subject in (empty, full):
        print_steady(subject, windows, timer.pid, seconds)
    timer.terminate()
    timer.wait()
    windows.close()
    for subject in subjects:
        shutil.rmtree(subject.data)
    desktop.close()


if __name__ == "__main__":
    main()
