# SPDX-License-Identifier: MIT
"""Runs the program on sway, GNOME Shell and Plasma, without a screen, natively and through XWayland. Each
check leaves pictures and a line of table.txt: desktop, window system, scale, check, and what was seen.
Usage, by try-desktops.sh: try_desktops.py BINARY DIRECTORY [--desktop NAME]... [--window native|x11]...
[--scale SCALE]... [--check NAME]..."""

import argparse
import os
import signal
import sys
import traceback
from pathlib import Path

PLACE = Path(__file__).resolve().parent
sys.path[:0] = [str(PLACE / "desktops"), str(PLACE.parent / "tests/desktop"),
                str(PLACE.parent / "benchmarks/process")]
from checks import CHECKS
from stages import STAGES
from trial import Trial

SCALES = (1, 1.25, 1.5, 1.75, 2)


def try_one(arguments, desktop, window, scale):
    stage = STAGES[desktop](scale, os.path.dirname(arguments.binary))
    trial = Trial(stage, window, arguments.binary, f"{desktop}-{window}-{scale}", arguments.directory)
    try:
        for name, (check, is_at_each_scale) in CHECKS.items():
            if arguments.check and name not in arguments.check or scale != 1 and not is_at_each_scale:
                continue
            try:
                seen = check(trial)
            except Exception as error:  # the rest can be looked at all the same
                seen = f"FAILED: {error}".replace("\n", " ")
                traceback.print_exc()
                trial.picture(name + "-failed")
                trial.end()
            line = f"{desktop}, {window}, {scale}, {name}: {seen}"
            print(line, flush=True)
            with open(Path(arguments.directory, "table.txt"), "a", encoding="utf-8") as table:
                print(line, file=table)
        trial.end()
    finally:
        stage.close()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("binary", type=os.path.abspath)
    parser.add_argument("directory", type=os.path.abspath)
    parser.add_argument("--desktop", choices=STAGES, action="append")
    parser.add_argument("--window", choices=("native", "x11"), action="append")
    parser.add_argument("--scale", choices=SCALES, type=float, action="append")
    parser.add_argument("--check", choices=CHECKS, action="append")
    arguments = parser.parse_args()
    is_whole = True
    for desktop in arguments.desktop or STAGES:
        for window in arguments.window or ("native", "x11"):
            for scale in arguments.scale or SCALES:
                child = os.fork()  # the accessibility library connects once
                if child == 0:
                    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # so that the stage is closed
                    try:
                        try_one(arguments, desktop, window, int(scale) if scale == int(scale) else scale)
                    except BaseException:
                        traceback.print_exc()
                        os._exit(1)
                    os._exit(0)
                is_whole = os.waitpid(child, 0)[1] == 0 and is_whole
    sys.exit(not is_whole)


if __name__ == "__main__":
    main()
