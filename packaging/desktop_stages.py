# SPDX-License-Identifier: MIT
"""Desktops that need no screen, one after another, on which the program runs natively or through
XWayland: sway with waybar and mako, GNOME Shell, and Plasma nested in an X server."""

import json
import os
import shlex
import shutil
import subprocess
import sys
import time
from pathlib import Path

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tests", "desktop"))
from driver import EPOCH, Desktop, GLib, connect, serve, sway, views, wait_for

PACKAGING = Path(__file__).resolve().parent
ID = "org.hearthmark.Hearthmark"
WIDTH, HEIGHT = 2400, 1500  # of the screen, in pixels
APPEARANCE = "org.freedesktop.appearance"
PORTAL_XML = """<node><interface name="org.freedesktop.portal.Settings">
    <method name="ReadAll"><arg type="as" direction="in"/><arg type="a{sa{sv}}" direction="out"/></method>
    <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method></interface></node>"""


class Portal:
    """Says whether the desktop is dark, where none of its own runs."""

    def __init__(self):
        self.is_dark = False
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], "org.freedesktop.portal.Desktop",
                         "/org/freedesktop/portal/desktop", PORTAL_XML, self._answer)

    def _scheme(self):
        return GLib.Variant("u", 1 if self.is_dark else 2)

    def _answer(self, *call):
        call[-1].return_value(
            GLib.Variant("(a{sa{sv}})", ({APPEARANCE: {"color-scheme": self._scheme()}},))
            if call[4] == "ReadAll" else GLib.Variant("(v)", (GLib.Variant("v", self._scheme()),)))

    def turn(self, is_dark):
        self.is_dark = is_dark
        self.bus.emit_signal(None, "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings",
                             "SettingChanged",
                             GLib.Variant("(ssv)", (APPEARANCE, "color-scheme", self._scheme())))


class Stage(Desktop):
    """A desktop that needs its bus before its display, with what the program's package installs.
    Places and sizes are in the desktop's own units, except in pictures."""

    def __init__(self, scale, build):
        self.scale = scale
        self.build = build
        self.bus = None
        super().__init__()
        self.portal = Portal()

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
        """Icons and desktop entry, as the package has them."""
        share = Path(self.directory, "share")
        icons = share / "icons/hicolor"
        pictures = [(file.parent.name + "x" + file.parent.name, file)
                    for file in Path(self.build, "packaging/icons").glob("*/*.png")]
        drawings = [("scalable", PACKAGING / f"icons/{ID}.svg"), ("symbolic", PACKAGING / f"icons/{ID}-symbolic.svg")]
        for size, file in pictures + drawings:
            (icons / size / "apps").mkdir(parents=True, exist_ok=True)
            shutil.copy(file, icons / size / "apps")
        (share / "applications").mkdir()
        shutil.copy(PACKAGING / f"{ID}.desktop", share / "applications")
        (self.directory_of_programs / "hearthmark").symlink_to(Path(self.build, "hearthmark"))
        os.environ["XDG_DATA_DIRS"] = f"{share}:/usr/local/share:/usr/share"

    @property
    def directory_of_programs(self):
        place = Path(self.directory, "bin")
        place.mkdir(exist_ok=True)
        return place

    def start_display(self):
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus(
            "session.conf", ["/usr/share/dbus-1/services/org.a11y.Bus.service"])
        os.environ.update(HOME=self.directory, XDG_SESSION_TYPE="wayland", LIBGL_ALWAYS_SOFTWARE="1",
                          XDG_CONFIG_HOME=os.path.join(self.directory, "config"),
                          PATH=f"{self.directory_of_programs}:{os.environ['PATH']}")
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
        self.portal.turn(is_dark)

    def start_part(self, command, **environment):
        """One that shall not stand on the accessibility bus."""
        own = {name: value for name, value in os.environ.items() if "ACCESSIBILITY" not in name}
        return self._start(command, env={**own, **environment})


class Nested(Stage):
    """In an X server, whose pointer and keyboard it has."""

    outer = None

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

    def point(self, x, y, button=None, clicks=1):
        place = [int(each * self.pixels()) for each in (x, y)]
        # Some take no notice of a pointer that only jumps.
        self.xdotool("mousemove", *place, "mousemove_relative", "--", 1, 1, "sleep", 0.5)
        if button:
            self.xdotool("click", "--repeat", clicks, "--delay", 80, button)

    def key(self, keys):
        self.xdotool("key", keys)


class Sway(Nested):
    def start_compositor(self, name):
        config = Path(os.environ["XDG_CONFIG_HOME"])
        config.mkdir()
        (config / "waybar").write_text(json.dumps({
            "modules-left": ["sway/workspaces"], "modules-right": ["tray", "clock"],
            "tray": {"show-passive-items": True}}))
        (config / "mako").mkdir()
        (config / "mako/config").write_text(f"icon-path={self.directory}/share/icons/hicolor\n[mode=do-not-disturb]\ninvisible=1\n")
        (config / "sway").write_text(
            f"output * resolution {WIDTH}x{HEIGHT} scale {self.scale} bg #446688 solid_color\n"
            'for_window [app_id=".*"] floating enable\nfor_window [class=".*"] floating enable\n'
            f"exec env > {self.directory}/environment\n")
        os.environ.update(XDG_CURRENT_DESKTOP="sway", SWAYSOCK=name + "-control")
        self.start_outer()
        self.display = self._start(["sway", "--config", str(config / "sway")], env={
            **os.environ, "DISPLAY": self.outer, "WLR_BACKENDS": "x11", "WLR_RENDERER": "pixman"})
        self.read_environment(os.path.join(self.directory, "environment"))
        os.symlink(os.path.join(self.directory, "wayland-1"), name)

    def start_shell(self):
        self.start_part(["waybar", "-c", os.path.join(self.directory, "config", "waybar")])
        self.start_part(["mako"])

    def screen(self):
        return next(output["rect"] for output in sway("-t", "get_outputs"))

    def window(self):
        """What is the program's own, and that with its frame."""
        view = next(view for view in views()
                    if ID in (view.get("app_id") or "") or view["name"] == "Hearthmark")
        frame, inner = dict(view["rect"]), dict(view["window_rect"])
        inner["x"] += frame["x"]
        inner["y"] += frame["y"]
        frame["y"] -= view["deco_rect"]["height"]
        frame["height"] += view["deco_rect"]["height"]
        return inner, frame

    def set_scale(self, scale):
        sway("output", "*", "scale", str(scale))

    def close_window(self):
        sway("kill")

    def item(self):
        """Where the panel has the program's: waybar's tray is left of its clock."""
        return self.screen()["width"] - 72, 14

    def notification(self):
        return self.screen()["width"] - 160, 50

    def keep_quiet(self, is_quiet):
        subprocess.run(["makoctl", "mode", "-a" if is_quiet else "-r", "do-not-disturb"], check=True)

    def show_kept(self):
        print(subprocess.run(["makoctl", "list"], capture_output=True, text=True, check=False).stdout)


class Gnome(Stage):
    def start_compositor(self, name):
        os.environ.update(XDG_CURRENT_DESKTOP="GNOME", GSETTINGS_BACKEND="keyfile",
                          DBUS_SYSTEM_BUS_ADDRESS=self.start_bus("system.conf"))
        self._start(["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind"])
        settings = os.path.join(os.environ["XDG_CONFIG_HOME"], "glib-2.0", "settings")
        os.makedirs(settings)
        with open(os.path.join(settings, "keyfile"), "w", encoding="utf-8") as file:
            file.write("[org/gnome/shell]\nenabled-extensions=['ubuntu-appindicators@ubuntu.com']\n"
                       "welcome-dialog-last-shown-version='99'\n"
                       "[org/gnome/mutter]\nexperimental-features=['scale-monitor-framebuffer']\n"
                       "[org/gnome/desktop/interface]\nenable-animations=false\n")
        time.sleep(1)
        self.display = self._start(["gnome-shell", "--headless", "--virtual-monitor", f"{WIDTH}x{HEIGHT}",
                                    "--wayland", "--unsafe-mode", "--wayland-display",
                                    os.path.basename(name)])

    def start_shell(self):
        wait_for(lambda: self.ask("Main.overview.hide(); 1") == 1, "the shell", 60)
        for name in ("DISPLAY", "XAUTHORITY"):
            os.environ[name] = self.ask(f"imports.gi.GLib.getenv('{name}')") or ""
        if self.scale != 1:
            self.set_scale(self.scale)
        self._start(["gjs", "/usr/share/gnome-shell/org.gnome.Shell.Notifications"])
        time.sleep(3)
        # It misses a display manager, and says so where the program's notification is to stand.
        self.ask("Main.messageTray.getSources().forEach(source => source.destroy())")

    def ask(self, script):
        is_done, answer = self.call("org.gnome.Shell", "/org/gnome/Shell", "org.gnome.Shell", "Eval",
                                    "(s)", script)
        return json.loads(answer or "null") if is_done else answer

    def take_picture(self, file):
        self.call("org.gnome.Shell", "/org/gnome/Shell/Screenshot", "org.gnome.Shell.Screenshot",
                  "Screenshot", "(bbs)", False, False, file)

    def screen(self):
        return self.ask("let [width, height] = global.display.get_size(); ({x: 0, y: 0, width, height})")

    def window(self):
        """A frame that the program draws itself is a part of it."""
        inner, frame = self.ask("""let found = global.get_window_actors().map(actor => actor.meta_window).find(
            window => window.get_title() == 'Hearthmark'); let plain = ({x, y, width, height}) =>
            ({x, y, width, height}); let outer = found.get_frame_rect();
            [plain(found.frame_rect_to_client_rect(outer)), plain(outer)]""")
        return inner, frame

    def set_scale(self, scale):
        where = ("org.gnome.Mutter.DisplayConfig", "/org/gnome/Mutter/DisplayConfig",
                 "org.gnome.Mutter.DisplayConfig")
        serial, monitors, *_ = self.call(*where, "GetCurrentState")
        (connector, *_), modes, _ = monitors[0]
        mode, *_, scales, _ = modes[0]
        nearest = min(scales, key=lambda each: abs(each - scale))
        self.call(*where, "ApplyMonitorsConfig", "(uua(iiduba(ssa{sv}))a{sv})", serial, 1,
                  [(0, 0, nearest, 0, True, [(connector, mode, {})])],
                  {"layout-mode": GLib.Variant("u", 1)})

    def close_window(self):
        self.ask("global.display.focus_window.delete(global.get_current_time())")

    DEVICES = """let kind = imports.gi.Clutter, now = imports.gi.GLib.get_monotonic_time,
        seat = kind.get_default_backend().get_default_seat();
        global.mouse ??= seat.create_virtual_device(kind.InputDeviceType.POINTER_DEVICE);
        global.keys ??= seat.create_virtual_device(kind.InputDeviceType.KEYBOARD_DEVICE);"""

    def point(self, x, y, button=None, clicks=1):
        self.ask(self.DEVICES + f"global.mouse.notify_absolute_motion(now(), {x}, {y})")
        time.sleep(0.5)
        name = {1: "PRIMARY", 3: "SECONDARY"}.get(button)
        for _ in range(clicks if button else 0):
            self.ask(self.DEVICES + f"""for (let state of ['PRESSED', 'RELEASED'])
                global.mouse.notify_button(now(), kind.BUTTON_{name}, kind.ButtonState[state])""")

    def key(self, keys):
        names = {"ctrl": "Control_L", "shift": "Shift_L", "alt": "Alt_L"}
        names = [names.get(name, name) for name in keys.split("+")]
        self.ask(self.DEVICES + f"""let names = {json.dumps(names)};
            for (let name of names)
                global.keys.notify_keyval(now(), kind['KEY_' + name], kind.KeyState.PRESSED);
            for (let name of names.reverse())
                global.keys.notify_keyval(now(), kind['KEY_' + name], kind.KeyState.RELEASED);""")

    def item(self):
        return self.ask("""let item = Object.entries(Main.panel.statusArea).find(
            ([name, _]) => name.startsWith('appindicator'))[1], place = item.get_transformed_position();
            [place[0] + 20, place[1] + 14]""")

    def notification(self):
        return self.screen()["width"] / 2, 70

    def turn(self, is_dark):
        super().turn(is_dark)
        subprocess.run(["gsettings", "set", "org.gnome.desktop.interface", "color-scheme",
                        "prefer-dark" if is_dark else "default"], check=True)

    def keep_quiet(self, is_quiet):
        subprocess.run(["gsettings", "set", "org.gnome.desktop.notifications", "show-banners",
                        "false" if is_quiet else "true"], check=True)

    def show_kept(self):
        self.ask("Main.panel.statusArea.dateMenu.menu.open()")


class Plasma(Nested):
    def start_compositor(self, name):
        os.environ.update(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true", KDE_SESSION_VERSION="5",
                          DBUS_SYSTEM_BUS_ADDRESS="disabled:")
        self.start_outer()
        environment = os.path.join(self.directory, "environment")
        self.display = self.start_part(
            ["kwin_wayland", "--x11-display", self.outer, "--width", str(int(WIDTH / self.scale)),
             "--height", str(int(HEIGHT / self.scale)), "--scale", str(self.scale), "--no-lockscreen",
             "--xwayland", "--socket", os.path.basename(name),
             f"sh -c {shlex.quote(f'env > {environment}')}"], DISPLAY=self.outer)
        self.read_environment(environment)

    def start_shell(self):
        for part in ("/usr/lib/x86_64-linux-gnu/libexec/kactivitymanagerd", "kded5", "plasmashell"):
            self.start_part([part], QT_QUICK_BACKEND="software", QT_QPA_PLATFORM="wayland")
            time.sleep(3)
        wait_for(lambda: self.call("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                   "org.freedesktop.DBus.Peer", "Ping") == (), "the panel", 60)

    def run_script(self, script):
        """What it gives to tell()."""
        told = []
        bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], "org.hearthmark.Stage", "/",
                    """<node><interface name="org.hearthmark.Stage"><method name="tell">
                    <arg type="s" direction="in"/></method></interface></node>""",
                    lambda *call: (told.append(call[5].unpack()[0]), call[-1].return_value(None)))
        with open(os.path.join(self.directory, "script.js"), "w", encoding="utf-8") as file:
            file.write("function tell(what) { callDBus('org.hearthmark.Stage', '/', 'org.hearthmark.Stage',"
                       f" 'tell', JSON.stringify(what)); }}\n{script}")
        kwin, scripting = "org.kde.KWin", "org.kde.kwin.Scripting"
        time.sleep(0.3)
        [number] = self.call(kwin, "/Scripting", scripting, "loadScript", "(s)", file.name)
        self.call(kwin, f"/{number}", "org.kde.kwin.Script", "run")
        try:
            return json.loads(wait_for(lambda: told, "the script")[0]) if "tell(" in script else None
        finally:
            self.call(kwin, "/Scripting", scripting, "unloadScript", "(s)", file.name)
            bus.close_sync()

    def screen(self):
        return self.run_script("tell({x: 0, y: 0, width: workspace.displayWidth,"
                               " height: workspace.displayHeight});")

    def window(self):
        return self.run_script("""let plain = ({x, y, width, height}) => ({x, y, width, height});
            tell(workspace.clientList().filter(window => window.caption.startsWith('Hearthmark')).map(
                ({bufferGeometry, frameGeometry}) => [plain(bufferGeometry), plain(frameGeometry)])[0] || null);""")

    def set_scale(self, scale):
        subprocess.run(["kscreen-doctor", f"output.1.scale.{scale}"], check=True, timeout=20,
                       env={**os.environ, "QT_QPA_PLATFORM": "wayland"}, stderr=subprocess.DEVNULL)

    def close_window(self):
        self.run_script("workspace.activeClient.closeWindow();")

    def item(self):
        screen = self.screen()  # where the panel has it after a start, left of the keyboard's
        return screen["width"] - 218, screen["height"] - 22

    def notification(self):
        screen = self.screen()
        return screen["width"] - 250, screen["height"] - 105

    def turn(self, is_dark):
        super().turn(is_dark)
        self.start_part(["plasma-apply-colorscheme", "BreezeDark" if is_dark else "BreezeLight"],
                        QT_QPA_PLATFORM="offscreen").wait()

    def keep_quiet(self, is_quiet):
        where = "org.freedesktop.Notifications", "/org/freedesktop/Notifications"
        if is_quiet:
            [self.inhibition] = self.call(*where, where[0], "Inhibit", "(ssa{sv})", "stage", "a talk", {})
        else:
            self.call(*where, where[0], "UnInhibit", "(u)", self.inhibition)

    def show_kept(self):
        """In the panel, where the bell is."""
        screen = self.screen()
        self.point(screen["width"] - 190, screen["height"] - 22, button=1)


STAGES = {"sway": Sway, "gnome": Gnome, "plasma": Plasma}
