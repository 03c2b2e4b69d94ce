# SPDX-License-Identifier: MIT
"""What is looked at on each desktop. A check takes pictures and returns what was seen in words."""

import os
import subprocess
import sys
import time
from pathlib import Path

from desktops import Waits
from driver import GLib, extents, has_focus, press, wait_for
from measuring import SETTLING_SECONDS, growth, processor_times, proportional_memory, wake_ups
from trial import PLATFORMS, idle, is_within, measured

OTHER = """import gi; gi.require_version("Gtk", "3.0"); from gi.repository import Gtk
window = Gtk.Window(title="Other"); window.set_default_size(1000, 700); window.show_all(); Gtk.main()"""
STATES = "SELECT duration, state FROM Interval JOIN RawIntervalState r ON r.interval = Interval.pk"
RUNNING = ("SELECT task, maxDuration FROM Interval JOIN RawIntervalState r ON r.interval = Interval.pk"
           " WHERE state = 1")
SIZE = (900, 620)  # of a new window, as MainWindow.qml says
SECONDS = 30  # for which its cost is counted


def check_window(trial):
    trial.start()
    trial.wait_for_window()
    (inner, frame), screen = trial.window(), trial.stage.screen()
    trial.picture("window")
    return (f"{measured(inner)}, {'' if (inner['width'], inner['height']) == SIZE else 'NOT '}as wanted,"
            f" with its frame {measured(frame)}, {'' if is_within(frame, screen) else 'NOT '}whole on a screen"
            f" of {measured(screen)}")


def check_colours(trial):
    """Of title bar and list, light, dark and light again."""
    trial.running()
    seen = []
    for is_dark in (False, True, False):
        trial.stage.turn(is_dark)
        idle(2)
        frame = trial.stage.window()
        file = trial.picture("dark" if is_dark else "light")
        bar = trial.colour(file, frame["x"] + frame["width"] * 0.3, frame["y"] + 6)
        low = trial.colour(file, frame["x"] + frame["width"] - 12, frame["y"] + frame["height"] - 12)
        seen.append(f"{'dark' if is_dark else 'light'}: title bar {bar}, window {low}")
    return "; ".join(seen)


def check_text(trial):
    trial.running()
    trial.picture_of_text("text")
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
    idle(3)


def check_notification(trial):
    finish(trial)
    x, y = trial.stage.notification()
    trial.stage.point(x, y)
    idle(2)
    trial.picture("notification")
    trial.stage.point(x, y, button=1)
    idle(3)
    is_shown = trial.is_shown()
    trial.picture("notification-clicked")
    trial.end()
    return f"its click {'shows' if is_shown else 'does NOT show'} the window; buttons and icon: look"


def check_buttons(trial):
    """Each starts a focus on the same task, and shows no window."""
    seen = []

    def look(step, length):
        idle(2)
        trial.picture("pressed-" + step.replace(" ", "-").lower())
        is_started = trial.program.rows(RUNNING) == [(1, length)]
        seen.append(f"{step} {'starts' if is_started else 'does NOT start'} {length} s"
                    f"{', but shows the window' if trial.is_shown() else ''}")

    for text, length in (("5 more minutes", 300), ("Again", 1800)):
        finish(trial)
        trial.stage.press_button(text)
        look(text, length)
    kept = trial.stage.kept_button()
    if kept:
        trial.stage.keep_quiet(True)
        try:
            finish(trial)
            trial.stage.show_kept()
            idle(2)
            trial.stage.point(*kept, button=1)
            look("5 more minutes in the list", 300)
            trial.stage.key("Escape")
        finally:
            trial.stage.keep_quiet(False)
    trial.end()
    return "; ".join(seen) + "; that the notification has gone: look"


def check_quiet(trial):
    """Where a finish goes when the desktop is told not to disturb, and what a program is told then."""
    name, path = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
    trial.stage.keep_quiet(True)
    try:
        [capabilities] = trial.stage.call(name, path, name, "GetCapabilities")
        answer = trial.stage.call(name, path, name, "Notify", "(susssasa{sv}i)", "stage", 0, "", "Another", "",
                                  [], {}, -1)
        try:
            inhibited = trial.stage.call(name, path, "org.freedesktop.DBus.Properties", "Get", "(ss)", name,
                                         "Inhibited")
        except GLib.Error:
            inhibited = "unknown"
        finish(trial)
        trial.picture("quiet")
        trial.stage.show_kept()
        idle(2)
        trial.picture("quiet-kept")
        trial.stage.key("Escape")
    finally:
        trial.stage.keep_quiet(False)
    idle(2)
    trial.picture("quiet-ended")
    trial.end()
    return f"Notify answers {answer}, property Inhibited {inhibited}, capabilities {' '.join(capabilities)}; look"


def check_behind(trial):
    """Shown by a call, without a token, from behind another window."""
    trial.start()
    trial.wait_for_window()
    other = trial.stage.start_part([sys.executable, "-c", OTHER])
    try:
        idle(4)
        trial.picture("covered")
        trial.activate()
        idle(2)
        trial.picture("shown-from-behind")
        return ("in front" if trial.stage.is_in_front() else "NOT in front") + (
            "" if is_active(trial.program) else ", but accessibility does not tell that it is active")
    finally:
        other.terminate()


def is_active(program):
    return any("active" in [state.value_nick for state in window.getState().getStates()]
               for window in program.tree())


def check_end(trial):
    """The compositor dies; what runs is kept. The last, since nothing is left."""
    trial.start()
    before = trial.program.rows(STATES)[0]
    idle(3)
    trial.stage.display.kill()
    status, errors = trial.program.finished()
    spent, state = trial.program.rows(STATES)[0]
    return f"{spent:.0f} s in state {state}, of {before[0]:.0f} s before; exit status {status}, {errors!r}"


def check_copy(trial):
    program = trial.start()
    trial.stage.key("ctrl+e")  # compositors take only what follows a key or a click
    program.press("Copy")
    idle(1)
    read = {"native": ["wl-paste", "--no-newline"], "x11": ["xclip", "-selection", "clipboard", "-o"]}[trial.way]

    def pasted():
        try:
            return len(subprocess.run(read, capture_output=True, timeout=5, check=False).stdout)
        except subprocess.TimeoutExpired:
            return "no answer"
    before = pasted()
    trial.end()
    idle(1)
    return f"{before} bytes copied; after closing {pasted()}"


def place_of(node):
    place = extents(node)
    return {"x": place.x, "y": place.y, "width": place.width, "height": place.height}


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
            idle(1)
            trial.picture(f"sheet-{name}")
            outer = place_of(program.tree()[0])
            for node in program.find_all(role="dialog") + program.find_all(role="popup menu"):
                inner = place_of(node)
                if inner["width"] and not is_within(inner, outer):
                    seen.append(f"{name} is NOT whole: {measured(inner)} in {measured(outer)}")
        except Exception as error:
            seen.append(f"{name} FAILED: {error}")
        trial.stage.key("Escape")
        idle(0.5)
    return "; ".join(seen) or "all whole in the window, by what accessibility tells"


def check_input_method(trial):
    """A composed character in the field of a new task, by ibus's own table of dead keys."""
    ibus = trial.stage.start_part(["ibus-daemon", "--panel=disable", "--config=disable"])
    try:
        time.sleep(2)
        subprocess.run(["ibus", "engine", "xkb:us:intl:eng"], capture_output=True, check=False)
        program = trial.start(QT_IM_MODULE="ibus")
        program.press("Add Task")
        field = wait_for(lambda: [node for node in program.find_all("Task name") if has_focus(node)],
                         "the field")[0]
        for keys in (trial.stage.DEAD_ACUTE, "e", "x"):
            trial.stage.key(keys)
            time.sleep(0.3)
        idle(1)
        text = field.queryText().getText(0, -1)
        trial.picture("input-method")
        loaded = program.has_loaded("ibusplatforminputcontext")
        trial.end()
        return f"{text!r} for dead acute, e, x; its module is {'' if loaded else 'NOT '}loaded"
    finally:
        ibus.terminate()


def check_scale_change(trial):
    trial.start()
    trial.wait_for_window()
    seen = []
    try:
        for scale in (1.5, 2, 1):
            trial.stage.set_scale(scale)
            idle(3)
            for step in ("changed", "shown-again"):
                inner, frame = trial.window()
                trial.picture(f"scale-{scale}-{step}")
                trial.picture_of_text(f"scale-{scale}-{step}-text")
                seen.append(f"{scale} {step}: {measured(inner)}"
                            f"{'' if is_within(frame, trial.stage.screen()) else ', NOT whole on the screen'}")
                if step == "changed":
                    trial.hide()
                    trial.activate()
                    trial.wait_for_window()
    finally:
        trial.stage.set_scale(trial.stage.scale)
    return "; ".join(seen)


def check_jump(trial):
    """Whether the window comes back where it was."""
    trial.start()
    trial.wait_for_window()
    places = [trial.stage.window()]
    for _ in range(3):
        trial.hide()
        trial.activate()
        trial.wait_for_window()
        places.append(trial.stage.window())
    return " then ".join(measured(place) for place in places)


def check_cost(trial):
    """Of both ways in turn on the same compositor, while a focus counts in view and nothing reads the
    window; with what the X server works for it."""
    trial.start()
    trial.end()
    readers = os.environ.pop("QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
    trial.stage.say_that_it_is_read(False)
    told = []
    try:
        for way in ("native", "x11") * 2:
            begun = time.monotonic()
            process = trial.program.start(QT_QPA_PLATFORM=PLATFORMS[way]).process
            wait_for(trial.is_shown, "the window")
            shown = (time.monotonic() - begun) * 1000
            idle(SETTLING_SECONDS)  # it asks this process for the desktop's colours
            watched = [process.pid, *(pid for pid in Waits().processes
                                      if Path(f"/proc/{pid}/comm").read_text(encoding="ascii") == "Xwayland\n")]
            before = [processor_times(pid) for pid in watched], wake_ups(process.pid)
            time.sleep(SECONDS)
            own, *servers = [growth(first, processor_times(pid)) / SECONDS
                             for first, pid in zip(before[0], watched)]
            told.append(f"{way} shown after {shown:.0f} ms, {proportional_memory(process.pid):.1f} MiB PSS,"
                        f" {own:.2f} ms/s, with the X server's {own + sum(servers):.2f},"
                        f" {growth(before[1], wake_ups(process.pid)) / SECONDS:.2f} wake-ups/s")
            trial.end()
    finally:
        trial.stage.say_that_it_is_read(True)
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = readers
    return "; ".join(told)


# By name; whether each is looked at at each scale, or at the first alone.
CHECKS = {"window": (check_window, True), "colours": (check_colours, False), "text": (check_text, True),
          "item": (check_item, False), "sheets": (check_sheets, True), "jump": (check_jump, False),
          "notification": (check_notification, False), "buttons": (check_buttons, False),
          "quiet": (check_quiet, False), "copy": (check_copy, False),
          "input-method": (check_input_method, False), "scale-change": (check_scale_change, False),
          "cost": (check_cost, False), "behind": (check_behind, False), "end": (check_end, False)}
