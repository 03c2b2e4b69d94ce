# SPDX-License-Identifier: MIT
"""The desktops: sway with waybar and mako, GNOME Shell with its extension for items in the panel, and
Plasma. sway and Plasma are nested in an X server."""

import json
import os
import shlex
import shutil
import subprocess
import sys
import time
from pathlib import Path

from driver import GLib, serve, sway, views, wait_for
from stage import HEIGHT, WIDTH, Nested, Stage


class Sway(Nested):
    def start_compositor(self, name):
        config = Path(os.environ["XDG_CONFIG_HOME"])
        config.mkdir()
        (config / "waybar").write_text(json.dumps({
            "modules-left": ["sway/workspaces"], "modules-right": ["tray", "clock"],
            "tray": {"show-passive-items": True}}))
        (config / "mako").mkdir()
        (config / "mako/config").write_text(f"icon-path={self.directory}/share/icons/hicolor\n"
                                            "default-timeout=8000\n[mode=do-not-disturb]\ninvisible=1\n")
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
        """With its frame."""
        view = next(view for view in views() if view["name"] == "Hearthmark")
        bar = view["deco_rect"]["height"]
        return {**view["rect"], "y": view["rect"]["y"] - bar, "height": view["rect"]["height"] + bar}

    def is_in_front(self):
        return any(view["focused"] and view["name"] == "Hearthmark" for view in views())

    def set_scale(self, scale):
        sway("output", "*", "scale", str(scale))

    def close_window(self):
        sway("kill")

    def item(self):
        """Where the panel has the program's: waybar's tray is left of its clock."""
        return self.screen()["width"] - 72, 14

    def notification(self):
        return self.screen()["width"] - 160, 50

    def press_button(self, text):
        """mako draws none: a menu of the person's choice is given their texts, and writes the chosen one."""
        subprocess.run(["makoctl", "menu", "grep", "--line-regexp", text], check=True)

    def keep_quiet(self, is_quiet):
        subprocess.run(["makoctl", "mode", "-a" if is_quiet else "-r", "do-not-disturb"], check=True,
                       stdout=subprocess.DEVNULL)

    def show_kept(self):
        """Nowhere to be seen: makoctl alone lists it."""


class Gnome(Stage):
    DEAD_ACUTE = "dead_acute"
    DEVICES = """let kind = imports.gi.Clutter, now = imports.gi.GLib.get_monotonic_time,
        seat = kind.get_default_backend().get_default_seat();
        global.mouse ??= seat.create_virtual_device(kind.InputDeviceType.POINTER_DEVICE);
        global.keys ??= seat.create_virtual_device(kind.InputDeviceType.KEYBOARD_DEVICE);"""

    def start_compositor(self, name):
        os.environ.update(XDG_CURRENT_DESKTOP="GNOME", GSETTINGS_BACKEND="keyfile",
                          DBUS_SYSTEM_BUS_ADDRESS=self.start_bus("system.conf"))
        self._start([sys.executable, "-m", "dbusmock", "--system", "--template", "logind"])
        settings = os.path.join(os.environ["XDG_CONFIG_HOME"], "glib-2.0", "settings")
        os.makedirs(settings)
        with open(os.path.join(settings, "keyfile"), "w", encoding="utf-8") as file:
            file.write("[org/gnome/shell]\nenabled-extensions=['ubuntu-appindicators@ubuntu.com']\n"
                       "welcome-dialog-last-shown-version='99'\n"
                       "[org/gnome/mutter]\nexperimental-features=['scale-monitor-framebuffer']\n"
                       "[org/gnome/desktop/input-sources]\nsources=[('xkb', 'us+intl')]\n"
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
        self.ask(self.DEVICES)  # early, since the first key of a new one may be lost

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
        return self.ask("""global.get_window_actors().map(actor => actor.meta_window).filter(
            window => window.get_title() == 'Hearthmark').map(window => {
                let {x, y, width, height} = window.get_frame_rect(); return {x, y, width, height};})[0] ?? null""")

    def is_in_front(self):
        return self.ask("global.display.focus_window?.get_title() == 'Hearthmark'")

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

    def point(self, x, y, button=None):
        self.ask(self.DEVICES + f"global.mouse.notify_absolute_motion(now(), {x}, {y})")
        time.sleep(0.5)
        if button:
            name = {1: "PRIMARY", 3: "SECONDARY"}[button]
            self.ask(self.DEVICES + f"""for (let state of ['PRESSED', 'RELEASED'])
                global.mouse.notify_button(now(), kind.BUTTON_{name}, kind.ButtonState[state])""")

    def key(self, keys):
        names = keys.replace("ctrl", "Control_L").split("+")
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

    def button(self, text):
        return self.ask(f"""let find = actor => actor.label == {json.dumps(text)} ? actor
            : actor.get_children().map(find).find(found => found), found = find(Main.messageTray),
            [x, y] = found.get_transformed_position(); [x + found.width / 2, y + found.height / 2]""")

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
    VERSION, SCRIPT = "6", "/Scripting/Script"
    WINDOWS, ACTIVE = "windowList()", "activeWindow"  # for scripts
    MENU = "plasma-"  # without which it knows no program
    ITEM = 175  # where the panel has it after a start, from the right

    def start_compositor(self, name):
        os.environ.update(XDG_CURRENT_DESKTOP="KDE", KDE_FULL_SESSION="true",
                          KDE_SESSION_VERSION=self.VERSION, XDG_MENU_PREFIX=self.MENU,
                          DBUS_SYSTEM_BUS_ADDRESS="disabled:")
        self.start_outer()
        environment = os.path.join(self.directory, "environment")
        self.display = self.start_part(
            ["kwin_wayland", "--x11-display", self.outer, "--width", str(WIDTH), "--height", str(HEIGHT),
             "--no-lockscreen", "--xwayland", "--socket", os.path.basename(name),
             f"sh -c {shlex.quote(f'env > {environment}')}"], DISPLAY=self.outer)
        self.read_environment(environment)

    def start_shell(self):
        for part in ("/usr/lib/x86_64-linux-gnu/libexec/kactivitymanagerd", "kded" + self.VERSION,
                     "plasmashell"):
            self.start_part([part], QT_QUICK_BACKEND="software", QT_QPA_PLATFORM="wayland")
            time.sleep(3)
        wait_for(lambda: self.call("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                                   "org.freedesktop.DBus.Peer", "Ping") == (), "the panel", 60)
        if self.scale != 1:  # only then are X11's programs told
            self.set_scale(self.scale)

    def run_script(self, script):
        """What it gives to tell()."""
        told = []
        bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], "org.hearthmark.Stage", "/",
                    """<node><interface name="org.hearthmark.Stage"><method name="tell">
                    <arg type="s" direction="in"/></method></interface></node>""",
                    lambda *call: (told.append(call[5].unpack()[0]), call[-1].return_value(None)))
        with open(os.path.join(self.directory, "script.js"), "w", encoding="utf-8") as file:
            file.write("function tell(what) { callDBus('org.hearthmark.Stage', '/', 'org.hearthmark.Stage',"
                       " 'tell', JSON.stringify(what)); }\n"
                       f"let windows = workspace.{self.WINDOWS}, active = workspace.{self.ACTIVE};\n{script}")
        kwin, scripting = "org.kde.KWin", "org.kde.kwin.Scripting"
        time.sleep(0.3)
        [number] = self.call(kwin, "/Scripting", scripting, "loadScript", "(s)", file.name)
        self.call(kwin, f"{self.SCRIPT}{number}", "org.kde.kwin.Script", "run")
        try:
            return json.loads(wait_for(lambda: told, "the script")[0]) if "tell(" in script else None
        finally:
            self.call(kwin, "/Scripting", scripting, "unloadScript", "(s)", file.name)
            bus.close_sync()

    def screen(self):
        return self.run_script("let {width, height} = workspace.virtualScreenSize;"
                               "tell({x: 0, y: 0, width, height});")

    def window(self):
        return self.run_script("""let found = windows.filter(
            window => window.caption.startsWith('Hearthmark')).map(
            ({frameGeometry: {x, y, width, height}}) => ({x, y, width, height})); tell(found[0] || null);""")

    def is_in_front(self):
        return self.run_script("tell((active || {}).caption == 'Hearthmark');")

    def set_scale(self, scale):
        subprocess.run(["kscreen-doctor", f"output.1.scale.{scale}"], check=True, timeout=20,
                       env={**os.environ, "QT_QPA_PLATFORM": "wayland"}, stderr=subprocess.DEVNULL)

    def close_window(self):
        self.run_script("active.closeWindow();")

    def from_corner(self, right, bottom):
        """Of the panel, to which all that is looked for here is bound."""
        screen = self.screen()
        return screen["width"] - right, screen["height"] - bottom

    def item(self):
        return self.from_corner(self.ITEM, 22)

    def notification(self):
        return self.from_corner(250, 105)

    def button(self, text):
        return self.from_corner({"5 more minutes": 151, "Again": 65}[text], 99)

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
        """In the panel, where the bell is, left of the item."""
        x, y = self.item()
        self.point(x - 28, y, button=1)

    def kept_button(self):
        return self.from_corner(120, 311)


class Plasma5(Plasma):
    VERSION, SCRIPT = "5", "/"
    WINDOWS, ACTIVE = "clientList()", "activeClient"
    MENU = "kf5-"
    ITEM = 218


STAGES = {"sway": Sway, "gnome": Gnome, "plasma": Plasma if shutil.which("kded6") else Plasma5}
