# SPDX-License-Identifier: MIT
"""What `hearthmarkctl status --follow` costs, and whether it is right: a minute beside the window, and half a
minute in which nothing runs.

Usage: following.py BINARY CTL"""

import os
import subprocess
import sys
import tempfile
import threading
import time

from desktops import Desktop, wait_for
from driver import Program
from measuring import processor_times, wake_ups

SECONDS = 60


def seconds_of(text):
    """Of 1:05/25:00."""
    parts = [int(part) for part in text.split("/")[0].split(":")]
    return sum(part * 60 ** place for place, part in enumerate(reversed(parts)))


def main(binary, ctl):
    desktop = Desktop()
    try:
        with tempfile.TemporaryDirectory() as data:
            measure(Program(binary, data), ctl)
    finally:
        desktop.close()


def measure(program, ctl):
    def run(*arguments):
        return subprocess.check_output([ctl, *arguments], env=program.environment(), text=True)

    program.launch()
    task = run("add", "Followed").split()[0]
    lines, followed = [], subprocess.Popen([ctl, "status", "--follow"], env=program.environment(),
                                           stdout=subprocess.PIPE, text=True)
    reader = threading.Thread(
        target=lambda: lines.extend((time.monotonic(), line) for line in followed.stdout))
    reader.start()

    def costs(seconds):
        """Wake-ups and milliseconds of the processor a second."""
        before = sum(wake_ups(followed.pid).values()), sum(processor_times(followed.pid).values())
        begin = time.monotonic()
        yield from window_and_line(seconds)
        lasted = time.monotonic() - begin
        print(f"  {(sum(wake_ups(followed.pid).values()) - before[0]) / lasted:.3f} wake-ups and "
              f"{(sum(processor_times(followed.pid).values()) - before[1]) / lasted:.3f} ms a second")

    def window_and_line(seconds):
        deadline = time.monotonic() + seconds
        while time.monotonic() < deadline:
            time.sleep(1)
            shown = [node.name for node in program.find_all() if node.name.endswith("/25:00")]
            if shown:
                yield seconds_of(shown[0]), seconds_of(lines[-1][1])

    time.sleep(1)
    print("idle:")
    list(costs(SECONDS / 2))
    del lines[:]
    run("start", task, "25")
    wait_for(lambda: lines, "a line")
    print("running:")
    apart = [abs(window - line) for window, line in costs(SECONDS)]
    program.end()
    followed.terminate()
    reader.join()
    times = [(moment, seconds_of(line)) for moment, line in lines if line.endswith(" Followed\n")]
    pauses = [later - earlier for (earlier, _), (later, _) in zip(times, times[1:])]
    in_order = [second for _, second in times] == list(range(len(times)))
    print(f"  {len(times)} lines, {'each second once and in order' if in_order else 'NOT EACH SECOND'}")
    print(f"  {min(pauses):.3f} to {max(pauses):.3f} s apart")
    print(f"  at most {max(apart)} s from the window, which was asked {len(apart)} times")


if __name__ == "__main__":
    main(*map(os.path.abspath, sys.argv[1:]))
