# SPDX-License-Identifier: MIT
"""How long the window of another program stands still."""

import ctypes
import select
import subprocess
import threading
import time

PAUSE = 0.01  # seconds; a standstill may look this much shorter than it is
# Of Xlib's headers.
CLIENT_MESSAGE = 33
FORMAT = 32
STRUCTURE_NOTIFY = 1 << 17


class Standstill:
    """Within its block the active window is asked again and again whether it still answers, as window
    managers do. The toolkits answer on the thread that draws and takes keys, so the longest wait is how
    long that one was busy without a break."""

    def __init__(self):
        self.longest = 0.0  # seconds
        self.ended = False
        self.window = int(subprocess.check_output(["xdotool", "getactivewindow"]))
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.protocols, self.ping = (self.x11.XInternAtom(self.display, name, 0)
                                     for name in (b"WM_PROTOCOLS", b"_NET_WM_PING"))
        self.x11.XSelectInput(self.display, self.root(), ctypes.c_long(STRUCTURE_NOTIFY))
        self.thread = threading.Thread(target=self.watch)

    def root(self):
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        return ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))

    def __enter__(self):
        self.thread.start()
        return self

    def __exit__(self, *_):
        self.ended = True
        self.thread.join()
        self.x11.XCloseDisplay(self.display)

    def watch(self):
        number = 0
        while not self.ended:
            number += 1
            asked = time.monotonic()
            event = (ctypes.c_long * 24)(CLIENT_MESSAGE, 0, 0, 0, self.window, self.protocols, FORMAT,
                                         self.ping, number, self.window)
            self.x11.XSendEvent(self.display, ctypes.c_ulong(self.window), 0, ctypes.c_long(0), event)
            self.x11.XFlush(self.display)
            while not self.is_answered(number):
                select.select([self.x11.XConnectionNumber(self.display)], [], [], 1)
            self.longest = max(self.longest, time.monotonic() - asked)
            time.sleep(PAUSE)

    def is_answered(self, number):
        """The window sends to the root what it was asked; much else is told there."""
        event = (ctypes.c_long * 24)()
        while self.x11.XPending(self.display):
            self.x11.XNextEvent(self.display, event)
            if event[0] & 0xFFFFFFFF == CLIENT_MESSAGE and list(event[7:9]) == [self.ping, number]:
                return True
        return False
