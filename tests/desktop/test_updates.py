# SPDX-License-Identifier: MIT
"""Updates from a server of this test: test_updates.py BINARY VERSION [unittest arguments]"""

import os
import ssl
import subprocess
import sys
import threading
import time
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path

from driver import ProgramTest, key, press, role_of, run_tests, wait_for

FEED, PACKAGE, KEPT = "/appcast.xml", "/hearthmark_amd64.deb", "Hearthmark/updates"
HALF, DRIP, SLOWLY = os.urandom(1_500_000), [b" "] * 100, [os.urandom(149_999), b" "] * 10
REST = b"".join(SLOWLY)
ITEM = "Check for Updates…", "menu item"


class Handler(BaseHTTPRequestHandler):
    def do_GET(self):
        """The status and the parts that were set for the path, with a pause after each blank."""
        self.server.asked.append(self.path)
        status, *parts = self.server.answers[self.path]
        self.send_response(status)
        if status == 302:
            self.send_header("Location", parts.pop())
        self.end_headers()
        with self.server.answering:
            for part in parts:
                self.wfile.write(part)
                time.sleep(0.3 if part == b" " else 0)


class Updates(ProgramTest):
    def setUp(self):
        super().setUp()
        self.directory, self.certificate, self.opened = (
            Path(self.program.data, name) for name in ["with blanks", "server.pem", "opened"])
        self.directory.mkdir()
        self.package = self.directory / "package.deb"
        self.script("xdg-open", f'(echo "$1"; grep SigBlk /proc/self/status) >{self.opened}')
        self.package.write_bytes(HALF + REST)
        subprocess.run(
            ["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", self.certificate,
             "-out", self.certificate, "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1"],
            check=True, capture_output=True)
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(self.certificate)
        self.server = ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.address = f"127.0.0.1:{self.server.server_port}"
        self.server.asked, self.server.answering = [], threading.Lock()
        self.server.handle_error = lambda *_: None  # whoever is sent too much hangs up
        self.server.socket = context.wrap_socket(
            self.server.socket, server_side=True, do_handshake_on_connect=False)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        self.addCleanup(lambda: [self.server.shutdown(), self.server.server_close()])

    def script(self, name, *lines):
        """A program that the program finds."""
        file = Path(self.program.data, name)
        file.write_text("\n".join(["#!/bin/sh", *lines]))
        file.chmod(0o700)

    def serve(self, version="9.10", change=("", ""), **answers):
        """A feed with what the release script says of the package, and the package."""
        item = subprocess.run(
            ["../../packaging/sign-release.sh", "test_key_not_for_releases.pem", version,
             self.package, f"https://{self.address}{PACKAGE}"], text=True, check=True,
            input='<b>New</b> & "better"', stdout=subprocess.PIPE, cwd=Path(__file__).parent).stdout
        feed = ('<rss xmlns:hearthmark="https://hearthmark.org/appcast"><channel>'
                f'{item.replace(*change)}</channel></rss>').encode()
        self.server.answers = {
            FEED: (200, feed), "/moved": (200, feed), PACKAGE: (200, HALF + REST), **answers}

    def launch(self, **changes):
        self.program.start(**{
            "SSL_CERT_FILE": str(self.certificate), "XDG_CACHE_HOME": str(self.directory), "no_proxy": "*",
            "HEARTHMARK_UPDATE_FEED": f"https://{self.address}{FEED}",
            "PATH": f"{self.program.data}:{os.environ['PATH']}", **changes})
        self.program.tree()

    def can_check(self):
        self.program.press("Application menu")
        can = self.program.is_enabled(*ITEM)
        key("Escape")
        wait_for(lambda: not self.program.find_all(*ITEM), "the menu to close")
        return can

    def check(self, *steps):
        """Looks for updates, then finds the texts and presses the buttons of these names."""
        self.program.press("Application menu")
        self.program.press(*ITEM)
        for node in map(self.program.find, steps):
            if role_of(node) == "push button":
                press(node)

    def test_only_what_is_newer_complete_and_signed_is_installed(self):
        no_feed = "The update server's answer is not a complete update feed."
        too_much = "The update server sends more than it may, so the transfer was stopped."
        short = "The package is shorter than the update feed says."
        insecure = "The update server leads to an address that is not secure."
        unsigned = "The package is not signed as version 9.10 of Hearthmark, so it was thrown away."
        rows = [
            ({}, "Version 9.10 is available (3.0 MB).", '<b>New</b> & "better"', "Later"),
            ({"version": VERSION}, "Hearthmark is up to date.", f"Version {VERSION} is the newest one.",
             "Close"),
            ({FEED: (302, f"https://{self.address}/moved")}, "Later"),
            ({FEED: (200, *DRIP)}, "Checking for updates…", "Cancel"),
            ({FEED: (200, *DRIP)}, "The update server answers too slowly or not at all.", "Close"),
            ({FEED: (200, b" " * 500_001)}, too_much, "Close"),
            ({FEED: (503, HALF)}, "The update server answers with error 503.", "Close"),
            ({PACKAGE: (404, *DRIP)}, "Install", "The update server answers with error 404.", "Close"),
            ({FEED: (302, f"http://{self.address}/moved")}, insecure, "Close"),
            ({"change": ("<item>", "")}, no_feed, "Close"),
            ({PACKAGE: (200, HALF, *DRIP)}, "Install", "1.5 MB of 3.0 MB", "Cancel"),
            ({PACKAGE: (200, HALF)}, "Install", short, "Close"),
            ({PACKAGE: (200, REST + HALF)}, "Install", unsigned, "Close"),
            ({"change": ("3000000", "2999999")}, "Install", too_much, "Close"),
            # One that was signed as an older version.
            ({"version": "0.0.9", "change": ("0.0.9", "9.10")}, "Install", unsigned, "Close")]
        unknown = "The update server cannot prove who it is: it has no trusted certificate."
        link = self.directory / "link" / KEPT
        link.parent.mkdir(parents=True)
        link.symlink_to(self.directory)
        for environment, rows in [
                ({}, rows), ({"SSL_CERT_FILE": ""}, [({}, unknown, "Close")]),
                ({"XDG_CACHE_HOME": str(self.directory / "link")},
                 [({}, "Install", "The update cannot be stored: Operation not supported.", "Close")])]:
            self.launch(**environment)
            for served, *steps in rows:
                with self.subTest(str(served)[:60], steps=steps):
                    self.serve(**served)
                    self.check(*steps)
                    wait_for(lambda: not self.program.find_all(role="dialog"), "the sheet to close")
                    wait_for(lambda: not self.server.answering.locked(), "the transfer to end")
                    self.assertTrue(self.can_check())
                    self.assertFalse([*self.directory.glob(KEPT + "/*")])
            self.program.process.terminate()
            self.assertEqual((self.program.finished(), self.opened.exists()), ((0, ""), False))
        self.assertTrue(self.package.exists())

    def test_a_newer_version_is_handed_to_the_installer(self):
        kept = self.directory / KEPT
        kept.mkdir(parents=True)
        file, long_ago = kept / PACKAGE[1:], time.time() - 100_000
        for name in "old.deb", "new.deb", "theirs", file.name:
            kept.joinpath(name).write_bytes(REST + HALF)
            os.utime(kept / name, (long_ago, long_ago) if name != "new.deb" else None)
        self.launch()
        self.assertEqual((self.can_check(), self.server.asked), (True, []))
        # Slowly, but it goes on.
        self.serve(**{PACKAGE: (200, HALF, *SLOWLY)})
        self.check("A new version of Hearthmark")
        self.assertFalse(self.can_check())
        key("Return")
        self.program.find("Ready to install")
        self.program.find(f"The package was handed to the system's installer. It lies at {file}.")
        wait_for(lambda: self.opened.read_text() == f"{file.as_uri()}\nSigBlk:\t{0:016x}\n", "the installer")
        self.assertEqual(file.read_bytes(), HALF + REST)
        self.assertEqual({each.name: oct(each.stat().st_mode)[-3:] for each in [kept, *kept.iterdir()]},
                         {"updates": "700", file.name: "600", "new.deb": "644", "theirs": "644"})
        key("Return")
        wait_for(self.can_check, "the sheet to close")
        # Again: what may be in use stays as it is.
        before = file.stat().st_ino, self.server.asked.count(PACKAGE)
        nobody = f"No program here installs packages. The package lies at {file}."
        for opener, types, sentence in [
                ("exit 3", "echo installer.desktop", nobody),
                ("exit 4", "exit 0", nobody),
                (f"rm {self.opened}", "exit 0", nobody),
                ("sleep 6; exit 1", "[ $3 = application/x-deb ] && echo installer.desktop",
                 f"The package was handed to the system's installer. It lies at {file}.")]:
            self.script("xdg-open", opener)
            self.script("xdg-mime", types)
            self.check("Install", sentence, f"sudo apt install '{file}'")
            self.assertEqual((file.stat().st_ino, self.server.asked.count(PACKAGE)), before)
            self.assertTrue(self.opened.exists())
            self.script("xdg-open", f'echo "$1" >{self.opened}')
            self.program.press("Open Folder")
            wait_for(lambda: self.opened.read_text() == f"{kept.as_uri()}\n", "the folder")
            self.program.press("Close")
            wait_for(self.can_check, "the sheet to close")
        # Another package, of the same name.
        self.package.write_bytes(REST + HALF)
        self.serve("9.11", **{PACKAGE: (200, REST + HALF)})
        self.check("Install", f"sudo apt install '{kept}/hearthmark-9.11-1.deb'")
        self.assertEqual((file.stat().st_ino, file.read_bytes()), (before[0], HALF + REST))
        self.program.press("Close")
        # One whose name would be more than a name.
        harmful = "/.profile%20-o.deb"
        self.serve("9.12", (PACKAGE, harmful), **{harmful: (200, REST + HALF)})
        self.check("Install", f"sudo apt install '{kept}/hearthmark-9.12.deb'")


if __name__ == "__main__":
    VERSION = sys.argv.pop(2)
    run_tests(failfast=True)
