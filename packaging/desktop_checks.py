# SPDX-License-Identifier: MIT
"""What is looked at on each desktop. A check takes pictures and returns what was seen in words."""

import contextlib
import os
import shutil
import subprocess
import tempfile
import time

import desktop_stages  # first, since it says where the driver is
from driver import Program, extents, has_focus, new_id, press, wait_for

OTHER = """import gi; gi.require_version("Gtk", "3.0"); from gi.repository import Gtk
window = Gtk.Window(title="Other"); window.set_default_size(1000, 700); window.show_all(); Gtk.main()"""
STATES = "SELECT duration, state FROM Interval JOIN RawIntervalState r ON r.interval = Interval.pk"
SIZE = (900, 620)  # of a new window, as MainWindow.qml says


class Trial:
    """The program on a stage, with a task on which a focus runs, and another."""

    def __init__(self, stage, window, binary, name, directory):
        self.stage, self.name, self.directory = stage, name, directory
        self.window = window
        self.program = Program(binary, os.path.join(stage.directory, "data"))
        self.template = None

    def start(self, spent=1000, window=None, **environment):
        """Anew, on the same rows each time."""
        self.end()
        platform = {"native": "wayland", "x11": "xcb"}[window or self.window]
        if self.template is None:
            self.program.start(QT_QPA_PLATFORM=platform).find("Add Task", seconds=30)
            self.program.end()
            self.template = self.program.data + "-template"
            shutil.copytree(self.program.data, self.template)
        shutil.rmtree(self.program.data)
        shutil.copytree(self.template, self.program.data)
        past = time.time() - desktop_stages.EPOCH - 86400
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
        return self.program if self.program.process and self.program.process.poll() is None else self.start()

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
            times = self.stage.pixels()
            area = "{width}x{height}+{x}+{y}".format(**{key: int(value * times) for key, value in place.items()})
            subprocess.run(["convert", file, "-crop", area, "+repage", "-filter", "point", "-resize",
                            f"{enlarged * 100}%", file], check=True)
        return file

    def colour(self, file, x, y):
        times = self.stage.pixels()
        answer = subprocess.check_output(["convert", file, "-format",
                                          f"%[hex:p{{{int(x * times)},{int(y * times)}}}]", "info:"], text=True)
        return answer[:6]

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


def check_window(trial):
    trial.start()
    trial.wait_for_window()
    inner, frame = trial.stage.window()
    content = extents(trial.program.tree()[0])
    is_whole = is_within(frame, trial.stage.screen())
    trial.picture("window")
    return (f"its content {content.width}x{content.height} {'as wanted' if (content.width, content.height) == SIZE else 'NOT as wanted'},"
            f" window {measured(inner)}, with its frame {measured(frame)}, on a screen of"
            f" {measured(trial.stage.screen())}: {'whole' if is_whole else 'NOT whole'}")


def check_colours(trial):
    """Of title bar and list, light, dark and light again."""
    trial.running()
    seen = []
    for is_dark in (False, True, False):
        trial.stage.turn(is_dark)
        _idle(2)
        _, frame = trial.stage.window()
        file = trial.picture("dark" if is_dark else "light")
        bar = trial.colour(file, frame["x"] + frame["width"] * 0.3, frame["y"] + 6)
        low = trial.colour(file, frame["x"] + frame["width"] - 12, frame["y"] + frame["height"] - 12)
        seen.append(f"{'dark' if is_dark else 'light'}: title bar {bar}, window {low}")
    return "; ".join(seen)


def _idle(seconds):
    """Answers calls meanwhile."""
    until = time.monotonic() + seconds
    wait_for(lambda: time.monotonic() > until, "the time", seconds + 5)


def check_text(trial):
    trial.running()
    _, frame = trial.stage.window()
    trial.picture("text", {**frame, "width": frame["width"] * 0.5, "height": frame["height"] * 0.35}, 3)
    return "look at its picture"


def check_item(trial):
    trial.running()
    x, y = trial.stage.item()
    screen = trial.stage.screen()
    trial.stage.point(x, y)
    time.sleep(2)
    trial.picture("item", {"x": max(0, x - 300), "y": max(0, y - 100),
                           "width": min(600, screen["width"] - max(0, x - 300)), "height": 200}, 2)
    trial.stage.point(x, y, button=3)
    time.sleep(2)
    trial.picture("item-menu")
    trial.stage.key("Escape")
    time.sleep(1)
    return "look at its pictures"


def finish(trial):
    """With the window hidden; the notification is there then, if the desktop shows it."""
    trial.start(spent=1794)
    trial.wait_for_window()
    trial.hide()
    wait_for(lambda: trial.program.rows(STATES)[0][1] >= 2, "the finish", 30)
    _idle(3)


def check_notification(trial):
    finish(trial)
    x, y = trial.stage.notification()
    trial.stage.point(x, y)
    _idle(2)
    trial.picture("notification")
    trial.stage.point(x, y, button=1)
    _idle(3)
    is_shown = trial.is_shown()
    trial.picture("notification-clicked")
    trial.end()
    return f"its click {'shows' if is_shown else 'does NOT show'} the window; buttons and icon: look"


def check_quiet(trial):
    """Where a finish goes when the desktop is told not to disturb, and what a program is told then."""
    name, path = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
    trial.stage.keep_quiet(True)
    try:
        [capabilities] = trial.stage.call(name, path, name, "GetCapabilities")
        answer = trial.stage.call(name, path, name, "Notify", "(susssasa{sv}i)", "stage", 0, "", "Another", "", [],
                                  {}, -1)
        try:
            inhibited = trial.stage.call(name, path, "org.freedesktop.DBus.Properties", "Get", "(ss)", name, "Inhibited")
        except Exception:
            inhibited = "unknown"
        finish(trial)
        trial.picture("quiet")
        trial.stage.show_kept()
        _idle(2)
        trial.picture("quiet-kept")
        trial.stage.key("Escape")
    finally:
        trial.stage.keep_quiet(False)
    _idle(2)
    trial.picture("quiet-ended")
    trial.end()
    return f"Notify answers {answer}, property Inhibited {inhibited}, capabilities {' '.join(capabilities)}; look"


def check_behind(trial):
    """Shown by a call, without a token, from behind another window."""
    trial.start()
    trial.wait_for_window()
    other = trial.stage.start_part(["/usr/bin/python3", "-c", OTHER])
    try:
        _idle(4)
        trial.picture("covered")
        trial.activate()
        _idle(2)
        trial.picture("shown-from-behind")
        return "in front" if is_active(trial.program) else "NOT in front"
    finally:
        other.terminate()


def is_active(program):
    return any("active" in [state.value_nick for state in window.getState().getStates()]
               for window in program.tree())


def check_end(trial):
    """The compositor dies; what runs is kept. The last, since nothing is left."""
    trial.start()
    before = trial.program.rows(STATES)[0]
    _idle(3)
    trial.stage.display.kill()
    status, errors = trial.program.finished()
    spent, state = trial.program.rows(STATES)[0]
    return f"{spent:.0f} s in state {state}, of {before[0]:.0f} s before; exit status {status}, {errors!r}"


def check_copy(trial):
    program = trial.start()
    program.press("Share")
    program.press("Copy")
    _idle(1)
    read = ["wl-paste", "--no-newline"] if "DISPLAY" not in os.environ or trial.window == "native" else [
        "xclip", "-selection", "clipboard", "-o"]

    def pasted():
        try:
            return len(subprocess.run(read, capture_output=True, timeout=5, check=False).stdout)
        except subprocess.TimeoutExpired:
            return "no answer"
    before = pasted()
    trial.end()
    _idle(1)
    return f"{before} bytes copied; after closing {pasted()}"


def check_sheets(trial):
    program = trial.start()

    def choose(item):
        program.press("Application menu")
        program.press(item, "menu item")

    steps = {"menu": lambda: program.press("Application menu"),
             "context-menu": lambda: press(program.find("Another gypsy task", "list item"), "ShowMenu"),
             "add-task": lambda: program.press("Add Task"), "share": lambda: program.press("Share"),
             "shortcuts": lambda: choose("Keyboard Shortcuts"), "about": lambda: choose("About Hearthmark"),
             "restore": lambda: choose("Restore from a backup…"),
             "correct-interval": lambda: press(program.find_all("Edit interval")[0]),
             "history": lambda: trial.stage.key("ctrl+h")}
    seen = []
    for name, show in steps.items():
        try:
            show()
            _idle(1)
            trial.picture(f"sheet-{name}")
            window = program.tree()[0]
            outer = extents(window)
            shown = [node for role in ("dialog", "popup menu", "menu") for node in program.find_all(role=role)]
            for node in shown:
                inner = extents(node)
                box = [{"x": each.x, "y": each.y, "width": each.width, "height": each.height}
                       for each in (inner, outer)]
                if inner.width and not is_within(*box):
                    seen.append(f"{name} is NOT whole: {measured(box[0])} in {measured(box[1])}")
            if not shown and name != "history":
                seen.append(f"{name}: nothing is told of it")
        except Exception as error:
            seen.append(f"{name} FAILED: {error}")
        trial.stage.key("Escape")
        _idle(0.5)
    return "; ".join(seen) or "all whole in the window, by what accessibility tells"


def check_input_method(trial):
    """A composed character in the field of a new task, by ibus's own table of dead keys."""
    if not shutil.which("ibus-daemon"):
        return "ibus is not installed"
    ibus = trial.stage.start_part(["ibus-daemon", "--panel=disable", "--config=disable"])
    try:
        time.sleep(2)
        engine = subprocess.run(["ibus", "engine", "xkb:us:intl:eng"], capture_output=True, text=True,
                                check=False)
        program = trial.start(QT_IM_MODULE="ibus")
        program.press("Add Task")
        field = wait_for(lambda: [node for node in program.find_all("Task name") if has_focus(node)],
                         "the field")[0]
        for keys in ("dead_acute", "e", "x"):
            trial.stage.key(keys)
            time.sleep(0.3)
        _idle(1)
        text = field.queryText().getText(0, -1)
        trial.picture("input-method")
        loaded = program.has_loaded("ibusplatforminputcontext")
        trial.end()
        return f"{text!r} for dead acute, e, x; its module is loaded: {loaded}{engine.stderr.strip()}"
    finally:
        ibus.terminate()


def check_scale_change(trial):
    trial.start()
    trial.wait_for_window()
    seen = []
    try:
        for scale in (1.5, 2, 1):
            trial.stage.set_scale(scale)
            _idle(3)
            for step in ("changed", "shown-again"):
                inner, frame = trial.stage.window()
                trial.picture(f"scale-{scale}-{step}")
                seen.append(f"{scale} {step}: {measured(inner)}"
                            f"{'' if is_within(frame, trial.stage.screen()) else ', NOT whole on the screen'}")
                if step == "changed":
                    trial.hide()
                    trial.activate()
                    trial.wait_for_window()
    finally:
        trial.stage.set_scale(trial.stage.scale)
    return "; ".join(seen) + "; sharp: look"


def check_jump(trial):
    """Whether the window comes back where it was."""
    trial.start()
    trial.wait_for_window()
    places = [trial.stage.window()[1]]
    for _ in range(3):
        trial.hide()
        trial.activate()
        trial.wait_for_window()
        places.append(trial.stage.window()[1])
    return " then ".join(measured(place) for place in places)


def check_cost(trial):
    """Of both ways on the same compositor, while a focus counts in view."""
    told = []
    for window in ("native", "x11"):
        process = trial.start(window=window).process
        time.sleep(5)
        place, seconds = f"/proc/{process.pid}", 20

        def of_threads(file, read):
            return sum(read(open(f"{place}/task/{thread}/{file}", encoding="ascii").read())
                       for thread in os.listdir(place + "/task"))

        def spent():
            return (of_threads("schedstat", lambda text: int(text.split()[0]) / 1e6),
                    of_threads("status", lambda text: int(text.split("\nvoluntary_ctxt_switches:")[1].split()[0])))
        before = spent()
        time.sleep(seconds)
        worked, woken = ((after - first) / seconds for after, first in zip(spent(), before))
        with open(place + "/smaps_rollup", encoding="ascii") as rollup:
            memory = int(rollup.read().split("\nPss:")[1].split()[0]) / 1024
        told.append(f"{window} {memory:.1f} MiB PSS, {worked:.2f} ms/s, {woken:.2f} wake-ups/s")
    trial.end()
    return "; ".join(told)


# By name; whether each is looked at at each scale, or at the first alone.
CHECKS = {"window": (check_window, True), "colours": (check_colours, False), "text": (check_text, True),
          "item": (check_item, False), "sheets": (check_sheets, True), "jump": (check_jump, False),
          "notification": (check_notification, False), "quiet": (check_quiet, False),
          "copy": (check_copy, False), "input-method": (check_input_method, False),
          "scale-change": (check_scale_change, False), "cost": (check_cost, False),
          "behind": (check_behind, False), "end": (check_end, False)}
