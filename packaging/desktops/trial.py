# SPDX-License-Identifier: MIT
"""The program on a desktop, and how it is looked at."""

import contextlib
import os
import shutil
import subprocess
import time

from driver import EPOCH, Program, extents, new_id, press, wait_for

PLATFORMS = {"native": "wayland", "x11": "xcb"}


class Trial:
    """The program on a stage, with a task on which a focus runs, and another."""

    def __init__(self, stage, way, binary, name, directory):
        self.stage, self.way, self.name, self.directory = stage, way, name, directory
        self.program = Program(binary, os.path.join(stage.directory, "data"))
        self.template = None

    def start(self, spent=1000, **environment):
        """Anew, on the same rows each time."""
        self.end()
        platform = PLATFORMS[self.way]
        if self.template is None:
            self.program.start(QT_QPA_PLATFORM=platform).find("Add Task", seconds=30)
            self.program.end()
            self.template = self.program.data + "-template"
            shutil.copytree(self.program.data, self.template)
        shutil.rmtree(self.program.data)
        shutil.copytree(self.template, self.program.data)
        past = time.time() - EPOCH - 86400
        self.program.plant(
            ("INSERT INTO Task VALUES (1, ?, 0, 'Letters, glyphs, quay & jump')", (new_id(),)),
            ("INSERT INTO Task VALUES (2, ?, 0, 'Another gypsy task')", (new_id(),)),
            ("INSERT INTO Interval VALUES (1, ?, 0, ?, 1800, 1)", (new_id(), spent)),
            ("INSERT INTO Interval VALUES (2, ?, ?, 1500, 1500, 1)", (new_id(), past)),
            "INSERT INTO RawIntervalState VALUES (1, 0, NULL, NULL, 1)",
            "INSERT INTO Note VALUES (1, '" + new_id() + "', 0, 'A note on the quay', 1)")
        self.program.start(QT_QPA_PLATFORM=platform, **environment)
        press(self.program.find("Letters, glyphs, quay & jump", "list item", seconds=30))
        self.program.find("Letters, glyphs, quay & jump", "heading")
        time.sleep(1)
        return self.program

    def running(self):
        """As an earlier check has left it."""
        is_running = self.program.process and self.program.process.poll() is None
        return self.program if is_running else self.start()

    def end(self):
        if self.program.process:
            with contextlib.suppress(Exception):
                self.program.end()

    def picture(self, step, place=None, enlarged=1):
        """Of the whole screen, or of a place on it in the desktop's units; its file."""
        file = os.path.join(self.directory, f"{self.name}-{step}.png")
        with contextlib.suppress(OSError):
            os.remove(file)
        self.stage.take_picture(file)
        if place:
            pixels = {side: int(value * self.stage.pixels()) for side, value in place.items()}
            area = "{width}x{height}+{x}+{y}".format(**pixels)
            subprocess.run(["convert", file, "-crop", area, "+repage", "-filter", "point", "-resize",
                            f"{enlarged * 100}%", file], check=True)
        return file

    def colour(self, file, x, y):
        x, y = (int(each * self.stage.pixels()) for each in (x, y))
        return subprocess.check_output(["convert", file, "-format", f"%[hex:p{{{x},{y}}}]", "info:"], text=True)[:6]

    def window(self):
        """What is the program's own, and that with its frame, whoever draws it."""
        frame, content = self.stage.window(), extents(self.program.tree()[0])
        border = (frame["width"] - content.width) / 2
        return {"x": frame["x"] + border, "y": frame["y"] + frame["height"] - border - content.height,
                "width": content.width, "height": content.height}, frame

    def picture_of_text(self, step):
        """Of the top left of the window, three times as large."""
        inner, _ = self.window()
        self.picture(step, {**inner, "width": 400, "height": 220}, 3)

    def activate(self):
        self.stage.call("org.hearthmark.Hearthmark", "/org/hearthmark/Hearthmark",
                        "org.freedesktop.Application", "Activate", "(a{sv})", {})

    def hide(self):
        self.stage.close_window()
        wait_for(lambda: not self.is_shown(), "the window to hide")

    def is_shown(self):
        try:
            return bool(self.stage.window())
        except Exception:
            return False

    def wait_for_window(self):
        wait_for(self.is_shown, "the window", 10)
        time.sleep(1)


def is_within(inner, outer, by=1):
    return (inner["x"] >= outer["x"] - by and inner["y"] >= outer["y"] - by
            and inner["x"] + inner["width"] <= outer["x"] + outer["width"] + by
            and inner["y"] + inner["height"] <= outer["y"] + outer["height"] + by)


def measured(place):
    return "{width:g}x{height:g} at {x:g},{y:g}".format(**place)


def idle(seconds):
    """Answers calls meanwhile."""
    until = time.monotonic() + seconds
    wait_for(lambda: time.monotonic() > until, "the time", seconds + 5)
