# SPDX-License-Identifier: MIT
"""What the measurements of whole programs are made with: when their windows come and go, what the kernel
counts of them, and how long a window lets others wait for an answer."""

import contextlib
import os
import select
import statistics
import subprocess
import tempfile
import time

IDLE_SECONDS = 1.0
# A program that has just started still looks round for a panel, and a window that is shown for its place.
SETTLING_SECONDS = 10.0
PATIENCE = 180.0  # seconds
# A program that takes longer to its window is started only once.
SLOW = 10_000.0  # milliseconds


class Windows:
    """Tells when the window manager has mapped the first window or unmapped the last one, as soon as
    it says so."""

    def __init__(self):
        look = ["xprop", "-root", "_NET_CLIENT_LIST"]
        while b"window id" not in subprocess.check_output(look):
            time.sleep(0.05)  # the window manager is still coming up
        self.process = subprocess.Popen([look[0], "-spy", *look[1:]], stdout=subprocess.PIPE)
        self.lines = self.process.stdout.fileno()
        self.line = b""  # what it said last
        self.wait(lambda line: b"window id" in line)

    def wait(self, is_awaited):
        deadline = time.monotonic() + PATIENCE
        while not is_awaited(self.line):
            if not select.select([self.lines], [], [], deadline - time.monotonic())[0]:
                raise TimeoutError(f"waited {PATIENCE} s in vain for a window to come or go")
            told = os.read(self.lines, 4096)
            if not told:
                raise RuntimeError("the display has gone")
            self.line = told.splitlines()[-1]

    def wait_for_one(self):
        self.wait(lambda line: b"0x" in line)

    def wait_for_none(self):
        self.wait(lambda line: b"0x" not in line)

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
    """The processor time by when nothing more happens, or patience is at its end."""
    before = processor_times(pid)
    deadline = time.monotonic() + PATIENCE
    while True:
        time.sleep(IDLE_SECONDS)
        after = processor_times(pid)
        if growth(before, after) < 5 * IDLE_SECONDS or time.monotonic() > deadline:
            return sum(after.values())
        before = after


class Subject:
    """A program to be measured, on data of its own."""

    def __init__(self, name, command):
        self.name = name
        self.command = command
        self.directory = tempfile.TemporaryDirectory(prefix="hearthmark-benchmark-")
        self.data = self.directory.name
        self.mapped, self.processor, self.memory = [], [], []

    @contextlib.contextmanager
    def started(self, windows):
        """Gives the process, its window shown."""
        environment = {**os.environ, "XDG_DATA_HOME": self.data, "HOME": self.data}
        process = subprocess.Popen(self.command, env=environment, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            windows.wait_for_one()
            yield process.pid
        finally:
            process.terminate()
            process.wait()
            windows.wait_for_none()

    def measure_start(self, windows):
        if self.mapped and self.mapped[0] > SLOW:
            return
        begun = time.monotonic()
        with self.started(windows) as pid:
            self.mapped.append((time.monotonic() - begun) * 1000)
            self.processor.append(wait_until_idle(pid))
            self.memory.append(proportional_memory(pid))

    def figures(self):
        return [statistics.median(each) for each in (self.mapped, self.processor, self.memory)]


def watch(pid, timer, seconds):
    """Processor time and wake-ups a second, and the same time of the bare timer beside it."""
    before = processor_times(pid), processor_times(timer), wake_ups(pid)
    time.sleep(seconds)
    after = processor_times(pid), processor_times(timer), wake_ups(pid)
    return [grown / seconds for grown in map(growth, before, after)]


def print_states(subject, states, windows, timer, seconds, first):
    with subject.started(windows) as pid:
        wait_until_idle(pid)
        for state, reach in states.items():
            if reach:
                reach()
                time.sleep(SETTLING_SECONDS)
            processor, bare, woken = watch(pid, timer, seconds)
            ratio = processor / first.setdefault(state, processor)
            print(f"{subject.name:24}{state:24}{woken:6.2f} wake-ups and{processor:7.2f} ms of CPU a second,"
                  f" a bare timer{bare:6.2f} ms{ratio:8.2f}", flush=True)


def print_steady(states_of_subjects, windows, timer, seconds):
    """Of each subject by name of its state: what reaches that from the one before, or nothing. At the end of
    the line is how many times it takes the processor time of the first subject."""
    print(f"\nfor {seconds:.0f} s each, and as many times the first of them")
    first = {}
    for subject, states in states_of_subjects.items():
        try:
            print_states(subject, states, windows, timer, seconds, first)
        except TimeoutError as error:
            print(f"{subject.name}: {error}")
