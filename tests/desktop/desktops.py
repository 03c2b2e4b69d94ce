# SPDX-License-Identifier: MIT
"""Where the tests run the program: an X display or a Wayland compositor and a session bus of their own."""

import contextlib
import glob
import os
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

from gi.repository import GLib


def wait_for(probe, what, seconds=10.0):
    """The first true value of the probe; probes of a changing tree may fail on the way."""
    deadline = time.monotonic() + seconds
    while True:
        # What the accessibility library remembers of the tree is renewed by events.
        while GLib.MainContext.default().pending():
            GLib.MainContext.default().iteration(False)
        try:
            value = probe()
        except Exception:  # a node that went away while it was being looked at
            value = None
        if value:
            return value
        if time.monotonic() > deadline:
            raise AssertionError(f"waited {seconds} s in vain for {what}")
        time.sleep(0.02)


class Desktop:
    """A display with a window manager, and a session bus. One for a test process, since the
    accessibility library connects once."""

    def __init__(self):
        self.directory = tempfile.mkdtemp(prefix="hearthmark-desktop-")
        os.chmod(self.directory, 0o700)
        self.processes = []
        os.environ["XDG_RUNTIME_DIR"] = self.directory
        self.start_display()
        os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
        os.environ["DBUS_SYSTEM_BUS_ADDRESS"] = "disabled:"
        os.environ["CANBERRA_DRIVER"] = "null"
        # Where it is noon now, so that no midnight comes.
        os.environ["TZ"] = f"<noon>{time.gmtime().tm_hour - 12}"
        time.tzset()
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        # With a display its registry would end when that does, and forget who listens.
        service = os.path.join(self.directory, "org.a11y.Bus.service")
        Path(service).write_text(Path("/usr/share/dbus-1/services/org.a11y.Bus.service").read_text().replace(
            "Exec=", "Exec=/usr/bin/env --unset=DISPLAY "))
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.start_bus("session.conf", [service])
        # Started before the program, which looks for it only once.
        self.accessibility_bus = subprocess.check_output(
            ["dbus-send", "--session", "--print-reply=literal", "--dest=org.a11y.Bus",
             "/org/a11y/bus", "org.a11y.Bus.GetAddress"], text=True).strip()

    def start_display(self):
        """What is started from here on is shown there."""
        os.environ.pop("WAYLAND_DISPLAY", None)
        reading, writing = os.pipe()
        # A server that resets itself, which it does by default when a client leaves it alone, turns
        # away whoever connects at that moment.
        self.display = self._start(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1200x800x24", "-nolisten", "tcp",
             "-noreset"], pass_fds=[writing])
        os.close(writing)
        os.environ["DISPLAY"] = ":" + os.read(reading, 16).decode().strip()
        self._start(["openbox"])
        # A window that comes before it is given no keyboard.
        wait_for(lambda: b"#" in subprocess.check_output(["xprop", "-root", "_NET_SUPPORTING_WM_CHECK"]),
                 "the window manager")

    def start_bus(self, name, services=()):
        """A bus that starts these services and no others of the machine; its address."""
        directory = os.path.join(self.directory, name + ".d")
        os.mkdir(directory)
        for service in services:
            shutil.copy(service, directory)
        configuration = os.path.join(self.directory, name)
        with open(configuration, "w", encoding="utf-8") as file:
            file.write(f"""<busconfig><type>session</type>
                <listen>unix:tmpdir={self.directory}</listen><servicedir>{directory}</servicedir>
                <policy context="default"><allow send_destination="*" eavesdrop="true"/>
                <allow eavesdrop="true"/><allow own="*"/></policy></busconfig>""")
        bus = self._start(["dbus-daemon", "--config-file", configuration, "--nofork",
                           "--print-address"], stdout=subprocess.PIPE)
        return bus.stdout.readline().decode().strip()

    def _start(self, command, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(command, stderr=subprocess.DEVNULL, **options)
        self.processes.append(process)
        return process

    def close(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self.directory, ignore_errors=True)


class Waits:
    """Of all threads of this process and of those on its desktop, the program among them: what they wait
    for a processor is nobody's fault."""

    def __init__(self):
        self.processes, self.waited = [os.getpid()], {}
        place = b"XDG_RUNTIME_DIR=" + os.environb[b"XDG_RUNTIME_DIR"] + b"\0"
        for file in glob.iglob("/proc/[0-9]*/environ"):
            with contextlib.suppress(OSError), open(file, "rb") as environment:
                if place in environment.read():
                    self.processes.append(file.split("/")[2])

    def seconds(self):
        """So far, in all."""
        for process in self.processes:
            for file in glob.iglob(f"/proc/{process}/task/*/schedstat"):
                with contextlib.suppress(OSError), open(file, encoding="ascii") as schedule:
                    self.waited[file] = int(schedule.read().split()[1]) / 1e9
        return sum(self.waited.values())


class WaylandDesktop(Desktop):
    """The same with a compositor of Wayland, which needs no graphics card."""

    def start_display(self):
        # Not in the directory of the rest, into which others cannot look.
        place = tempfile.mkdtemp(prefix="hearthmark-compositor-")
        self.places = [*getattr(self, "places", []), place]
        configuration, socket = os.path.join(place, "config"), os.path.join(place, "sway")
        with open(configuration, "w", encoding="utf-8") as file:
            file.write("xwayland disable\noutput * resolution 1200x800\n")
        # It refuses to be started by root.
        other = {"user": "nobody", "group": "nogroup", "extra_groups": []} if os.getuid() == 0 else {}
        if other:
            shutil.chown(place, "nobody", "nogroup")
        self.display = self._start(["sway", "--config", configuration], cwd="/", **other, env={
            **os.environ, "XDG_RUNTIME_DIR": place, "SWAYSOCK": socket, "WLR_BACKENDS": "headless",
            "WLR_LIBINPUT_NO_DEVICES": "1", "WLR_RENDERER": "pixman"})
        wait_for(lambda: os.path.exists(socket), "the compositor")
        os.environ.update(WAYLAND_DISPLAY=os.path.join(place, "wayland-1"), SWAYSOCK=socket)
        os.environ.pop("DISPLAY", None)
        # Holds a keyboard: without any, the first key of another that comes and goes may be lost.
        self._start(["wtype", "-s", "1000000"])

    def close(self):
        super().close()
        for place in self.places:
            shutil.rmtree(place, ignore_errors=True)
