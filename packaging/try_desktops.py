# SPDX-License-Identifier: MIT
"""Runs the program on GNOME Shell and on Plasma, without a screen, and takes a picture of each step.
Usage, by try-desktops.sh: try_desktops.py BINARY DIRECTORY"""

import json
import os
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "desktop"))
from gi.repository import GLib

from desktops import Desktop, wait_for
from driver import Program, connect, new_id

OTHER = """import gi; gi.require_version("Gtk", "3.0"); from gi.repository import Gtk
window = Gtk.Window(title="Other"); window.set_default_size(1000, 700); window.show_all(); Gtk.main()"""
STATES = "SELECT duration, state FROM Interval JOIN RawIntervalState r ON r.interval = Interval.pk"


class Stage(Desktop):
    """A desktop that needs its bus before its display, which may die and be started anew."""

    def start_bus(self, name, services=()):
        buses = self.__dict__.setdefault("buses", {})
        if name not in buses:
            buses[name] = super().start_bus(name, services)
        return buses[name]

    def call(self, name, path, interface, method, signature="()", *arguments):
        return connect(os.environ["DBUS_SESSION_BUS_ADDRESS"]).call_sync(
            name, path, interface, method, GLib.Variant(signature, arguments), None, 0, 10000).unpack()

    def start_display(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus(
            "session.conf", ["/usr/share/dbus-1/services/org.a11y.Bus.service"])
        os.environ.update(HOME=self.directory, XDG_SESSION_TYPE="wayland", LIBGL_ALWAYS_SOFTWARE="1",
                          XDG_CONFIG_HOME=os.path.join(self.directory, "config"))
        os.environ.pop("QT_QPA_PLATFORM", None)
        self.runs = getattr(self, "runs", 0) + 1
        place = os.path.join(self.directory, f"stage{self.runs}")
        self.start_compositor(os.path.basename(place))
        wait_for(lambda: os.path.exists(place), "the compositor", 60)
        os.environ.update(WAYLAND_DISPLAY=place, QT_QPA_PLATFORM="wayland")
        os.environ.pop("DISPLAY", None)
        time.sleep(3)
        self.start_shell()
        time.sleep(5)


class Gnome(Stage):
    def start_compositor(self, name):
        os.environ.update(XDG_CURRENT_DESKTOP="GNOME", GSETTINGS_BACKEND="keyfile",
                          DBUS_SYSTEM_BUS_ADDRESS=self.start_bus("system.conf"))
        self._start(["python3", "-m", "dbusmock", "--system", "--template", "logind"])
        settings = os.path.join(self.directory, "config", "glib-2.0", "settings")
        os.makedirs(settings, exist_ok=True)
        with open(os.path.join(settings, "keyfile"), "w", encoding="utf-8") as file:
            file.write("[org/gnome/shell]\nenabled-extensions=['ubuntu-appindicators@ubuntu.com']\n"
                       "welcome-dialog-last-shown-version='99'\n"
                       "[org/gnome/desktop/interface]\nenable-animations=false\n")
        time.sleep(1)
        self.display = self._start(["gnome-shell", "--headless", "--virtual-monitor", "1280x800",
                                    "--wayland", "--unsafe-mode", "--no-x11",
                                    "--wayland-display", name])

    def start_shell(self):
        wait_for(lambda: self.ask("Main.overview.hide(); 1") == 1, "the shell", 60)
        self._start(["gjs", "/usr/share/gnome-shell/org.gnome.Shell.Notifications"])
        time.sleep(3)
        # It misses a display manager, and says so where the program's notification is to stand.
        self.ask("Main.messageTray.getSources().forEach(source => source.destroy())")

    def ask(self, script):
        is_done, answer = self.call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell", "Eval",
                                    "(s)", script)
        return json.loads(answer or "null") if is_done else answer

    def close_window(self):
        self.ask("global.display.focus_window.delete(global.get_current_time())")

    def click_item(self):
        self.click("""let item = Object.entries(Main.panel.statusArea).find(
            ([name, _]) => name.startsWith('appindicator'))[1], place = item.get_transformed_position();
            let [x, y] = [place[0] + 20, place[1] + 14], clicks = 2;""")  # one opens the menu

    def click_notification(self):
        self.click("let [x, y] = [640, 70], clicks = 1;")

    def click(self, place):
        device = ("let kind = imports.gi.Clutter, now = imports.gi.GLib.get_monotonic_time;"
                  "global.mouse ??= kind.get_default_backend().get_default_seat().create_virtual_device("
                  "kind.InputDeviceType.POINTER_DEVICE);") + place
        self.ask(device + "global.mouse.notify_absolute_motion(now(), x, y)")
        time.sleep(0.5)
        self.ask(device + "for (; clicks; --clicks) for (let state of ['PRESSED', 'RELEASED'])"
                 "global.mouse.notify_button(now(), kind.BUTTON_PRIMARY, kind.ButtonState[state])")

    def take_picture(self, file):
        self.call("org.gnome.Shell", "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot",
                  "Screenshot", "(bbs)", False, False, file)


class Plasma(Stage):
    screen = None  # the X server in which it is nested

    def start_compositor(self, name):
        os.environ.update(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true", KDE_SESSION_VERSION="5",
                          DBUS_SYSTEM_BUS_ADDRESS="disabled:")
        if self.screen is None:
            Desktop.start_display(self)
            self.screen = os.environ["DISPLAY"]
        self.display = self.start_part(
            ["kwin_wayland", "--x11-display", self.screen, "--width", "1200", "--height", "770",
             "--no-lockscreen", "--socket", name], DISPLAY=self.screen)

    def start_part(self, command, **environment):
        """One that shall not stand on the accessibility bus."""
        own = {name: value for name, value in os.environ.items() if "ACCESSIBILITY" not in name}
        return self._start(command, env={**own, **environment})

    def start_shell(self):
        for part in ("/usr/lib/x86_64-linux-gnu/libexec/kactivitymanagerd", "kded5", "plasmashell"):
            self.start_part([part], QT_QUICK_BACKEND="software")
            time.sleep(3)
        wait_for(lambda: self.call("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                   "org.freedesktop.DBus.Peer", "Ping") == (), "the panel", 60)

    def close_window(self):
        with open(os.path.join(self.directory, "close.js"), "w", encoding="utf-8") as file:
            file.write("workspace.activeClient.closeWindow();")
        kwin, scripting = "org.kde.KWin", "org.kde.kwin.Scripting"
        [number] = self.call(kwin, "/Scripting", scripting, "loadScript", "(s)", file.name)
        self.call(kwin, f"/{number}", "org.kde.kwin.Script", "run")
        self.call(kwin, "/Scripting", scripting, "unloadScript", "(s)", file.name)

    def click_item(self):
        self.click(982, 748)  # where the panel has it after a start, left of the keyboard's

    def click_notification(self):
        self.click(950, 665)

    def click(self, *place):
        subprocess.run(["xdotool", "mousemove", *map(str, place), "sleep", "0.5", "click", "1"],
                       env={**os.environ, "DISPLAY": self.screen}, check=True)

    def take_picture(self, file):
        subprocess.run(["import", "-display", self.screen, "-window", "root", file], check=True)


def try_on(stage, binary, directory):
    program = Program(binary, tempfile.mkdtemp(dir=stage.directory))
    steps = iter(range(1, 100))

    def note(step):
        """What is seen, what the program says, and what is kept."""
        time.sleep(2)
        name = f"{type(stage).__name__}-{next(steps):02}-{step.replace(' ', '-')}"
        if stage.display.poll() is None:
            stage.take_picture(os.path.join(directory, name + ".png"))
        is_front = program.process and any("active" in names for names in (
            [state.value_nick for state in window.getState().getStates()]
            for window in program.tree()))
        print(f"{name}: {'in front, ' * bool(is_front)}{program.rows(STATES)}", flush=True)

    def cover():
        other = stage._start(["python3", "-c", OTHER])
        time.sleep(4)
        return other

    def show():
        stage.call("org.hearthmark.Hearthmark", "/org/hearthmark/Hearthmark",
                   "org.freedesktop.Application", "Activate", "(a{sv})", {})

    program.start().find("Add Task")
    program.end()
    program.plant(("INSERT INTO Task VALUES (1, ?, 0, 'Letters')", (new_id(),)),
                  ("INSERT INTO Interval VALUES (1, ?, 0, 1780, 1800, 1)", (new_id(),)),
                  "INSERT INTO RawIntervalState VALUES (1, 0, NULL, NULL, 1)")
    program.start().find("Letters", "list item")
    note("started")
    cover()
    note("covered")
    show()
    note("shown from behind")
    stage.close_window()
    note("hidden")
    wait_for(lambda: program.rows(STATES)[0][1] == 2, "the finish", 30)
    note("finished")
    stage.click_notification()
    note("notification clicked")
    cover()
    stage.click_item()
    note("item clicked")
    program.end()
    program.plant("UPDATE Interval SET duration = 60", "UPDATE RawIntervalState SET state = 0")
    program.start().find("Letters", "list item")
    note("resumed")
    stage.display.kill()
    program.finished()
    note("compositor killed")
    stage.start_display()
    program.start().find("Letters", "list item")
    note("resumed after that")
    program.end()


def main(binary, directory):
    for kind in (Gnome, Plasma):
        if os.fork() == 0:  # the accessibility library connects once
            stage = kind()
            try:
                try_on(stage, binary, directory)
            finally:
                stage.close()
            os._exit(0)
        if os.wait()[1] != 0:
            sys.exit(f"{kind.__name__} could not be tried to its end.")


if __name__ == "__main__":
    main(os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]))
