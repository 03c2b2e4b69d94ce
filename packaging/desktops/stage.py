# SPDX-License-Identifier: MIT
"""What all desktops have in common that the program is tried on."""

import os
import shutil
import subprocess
import time
from pathlib import Path

from desktops import Desktop
from driver import GLib, connect, wait_for
from players import DARK, LIGHT, SettingsPortal

PACKAGING = Path(__file__).resolve().parent.parent
ID = "org.hearthmark.Hearthmark"
WIDTH, HEIGHT = 2400, 1500  # of the screen, in pixels


class Stage(Desktop):
    """A desktop that needs its bus before its display, with what the program's package installs.
    Places and sizes are in the desktop's own units, except in pictures."""

    def __init__(self, scale, build):
        self.scale = scale
        self.build = build
        self.bus = None
        super().__init__()
        self.portal = SettingsPortal()

    def start_bus(self, name, services=()):
        buses = self.__dict__.setdefault("buses", {})
        if name not in buses:
            buses[name] = super().start_bus(name, services)
        return buses[name]

    def call(self, name, path, interface, method, signature="()", *arguments):
        """By one connection, since an inhibition ends with that which asked for it."""
        self.bus = self.bus or connect(os.environ["DBUS_SESSION_BUS_ADDRESS"])
        return self.bus.call_sync(name, path, interface, method, GLib.Variant(signature, arguments), None, 0,
                                  10000).unpack()

    def install(self):
        """Program, icons and desktop entry, as the package has them."""
        share, programs = Path(self.directory, "share"), Path(self.directory, "bin")
        icons = {file: f"{file.parent.name}x{file.parent.name}"
                 for file in Path(self.build, "packaging/icons").glob("*/*.png")}
        icons[PACKAGING / f"icons/{ID}.svg"] = "scalable"
        icons[PACKAGING / f"icons/{ID}-symbolic.svg"] = "symbolic"
        for file, size in icons.items():
            (share / "icons/hicolor" / size / "apps").mkdir(parents=True, exist_ok=True)
            shutil.copy(file, share / "icons/hicolor" / size / "apps")
        (share / "applications").mkdir()
        shutil.copy(PACKAGING / f"{ID}.desktop", share / "applications")
        programs.mkdir()
        (programs / "hearthmark").symlink_to(Path(self.build, "hearthmark"))
        os.environ.update(XDG_DATA_DIRS=f"{share}:/usr/local/share:/usr/share",
                          PATH=f"{programs}:{os.environ['PATH']}")

    def start_display(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus(
            "session.conf", ["/usr/share/dbus-1/services/org.a11y.Bus.service"])
        os.environ.update(HOME=self.directory, XDG_SESSION_TYPE="wayland", LIBGL_ALWAYS_SOFTWARE="1",
                          XDG_CONFIG_HOME=os.path.join(self.directory, "config"),
                          # With dead keys, which an input method composes.
                          XKB_DEFAULT_LAYOUT="us", XKB_DEFAULT_VARIANT="intl")
        for name in ("QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY"):
            os.environ.pop(name, None)
        self.install()
        place = os.path.join(self.directory, "stage")
        self.start_compositor(place)
        wait_for(lambda: os.path.exists(place), "the compositor", 60)
        os.environ.update(WAYLAND_DISPLAY=place)
        time.sleep(3)
        self.start_shell()
        time.sleep(3)

    def read_environment(self, file):
        """Of what the compositor started: there it names its X server."""
        lines = wait_for(lambda: Path(file).read_text(encoding="utf-8").splitlines(), "the environment")
        for name, _, value in (line.partition("=") for line in lines):
            if name in ("DISPLAY", "XAUTHORITY"):
                os.environ[name] = value

    def pixels(self):
        """In a unit."""
        return WIDTH / self.screen()["width"]

    def turn(self, is_dark):
        self.portal.change(DARK if is_dark else LIGHT)

    def say_that_it_is_read(self, is_read):
        """Whether there is something that reads windows to people."""
        self.call("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set", "(ssv)",
                  "org.a11y.Status", "IsEnabled", GLib.Variant("b", is_read))

    def press_button(self, text):
        """Of the notification that shows."""
        self.point(*self.notification())  # some show their buttons only then
        time.sleep(1)
        self.point(*self.button(text), button=1)

    def kept_button(self):
        """Where the list of what was not shown has that of five minutes. Most lists have none."""

    def start_part(self, command, **environment):
        """One that shall not stand on the accessibility bus."""
        own = {name: value for name, value in os.environ.items() if "ACCESSIBILITY" not in name}
        return self._start(command, env={**own, **environment})


class Nested(Stage):
    """In an X server, whose pointer and keyboard it has."""

    outer = None
    DEAD_ACUTE = "apostrophe"  # by the key on which the layout has it

    def start_outer(self):
        reading, writing = os.pipe()
        self._start(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{WIDTH}x{HEIGHT}x24",
                     "-nolisten", "tcp", "-noreset"], pass_fds=[writing])
        os.close(writing)
        self.outer = ":" + os.read(reading, 16).decode().strip()

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env={**os.environ, "DISPLAY": self.outer}, check=True)

    def take_picture(self, file):
        subprocess.run(["import", "-display", self.outer, "-window", "root", file], check=True)

    def point(self, x, y, button=None):
        place = [int(each * self.pixels()) for each in (x, y)]
        # Some take no notice of a pointer that only jumps.
        self.xdotool("mousemove", *place, "mousemove_relative", "--", 1, 1, "sleep", 0.5)
        if button:
            self.xdotool("click", button)

    def key(self, keys):
        self.xdotool("key", keys)
