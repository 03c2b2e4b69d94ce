# SPDX-License-Identifier: MIT
"""Exporting to files and importing in the running program. Usage: test_files.py BINARY [unittest arguments]"""

import json
import os
import shutil
import tempfile
import urllib.parse
from pathlib import Path

from gi.repository import GLib

from driver import Program, ProgramTest, key, new_id, run_tests, serve, wait_for

CHOOSER = """<node><interface name="org.freedesktop.portal.FileChooser">
    <method name="SaveFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    <method name="OpenFile"><arg type="s" direction="in"/><arg type="s" direction="in"/>
        <arg type="a{sv}" direction="in"/><arg type="o" direction="out"/></method>
    </interface></node>"""
FINISHED = [("INSERT INTO Task VALUES (1, ?, 0, 'Planted')", (new_id(),)),
            ("INSERT INTO Interval VALUES (1, ?, 0, 60, 1800, 1)", (new_id(),)),
            "INSERT INTO RawIntervalState VALUES (1, 3, 0, 60, 1)",
            ("INSERT INTO Note VALUES (1, ?, 0, 'A note', 1)", (new_id(),))]


class Portal:
    """Answers what it is told to: a path, None for a person who cancels, "waits" for one who does not
    come, or nothing at all."""

    def __init__(self, test):
        self.asked, self.answers = [], []
        self.bus = serve(os.environ["DBUS_SESSION_BUS_ADDRESS"], "org.freedesktop.portal.Desktop",
                         "/org/freedesktop/portal/desktop", CHOOSER, self.take)
        test.addCleanup(self.bus.close_sync)

    def take(self, _bus, sender, _path, _interface, method, parameters, invocation):
        parent, _title, options = parameters.unpack()
        request = (f"/org/freedesktop/portal/desktop/request/{sender[1:].replace('.', '_')}"
                   f"/{options['handle_token']}")
        self.asked.append((method, parent, options))
        answer = self.answers.pop(0)
        if answer != "never":
            invocation.return_value(GLib.Variant("(o)", (request,)))
        if answer not in ("never", "waits"):
            uris = {} if answer is None else {"uris": GLib.Variant(
                "as", ["file://" + urllib.parse.quote(os.fsencode(answer))])}
            self.bus.emit_signal(sender, request, "org.freedesktop.portal.Request", "Response",
                                 GLib.Variant("(ua{sv})", (int(answer is None), uris)))


class Files(ProgramTest):
    def setUp(self):
        super().setUp()
        self.home = tempfile.mkdtemp(prefix="hearthmark-home-")
        self.addCleanup(shutil.rmtree, self.home)

    def choose(self, item, program=None):
        program = program or self.program
        program.press("Application menu")
        program.press(item, "menu item")

    def said(self, text, seconds=10):
        wait_for(lambda: any(text in node.name for node in self.program.find_all()), text, seconds)

    def test_by_paths_everything_comes_into_another_store_and_goes_by_one_undo(self):
        self.make_store(*FINISHED)
        Path(self.home, "there.json").write_text("x", encoding="utf-8")
        self.program.launch(HOME=self.home)
        self.choose("Export Everything…")
        for path, said in (("nowhere/x.json", "There is no such folder."), ("~", "This is a folder."),
                           ("~/there.json", "There is such a file already.")):
            self.program.enter_path(path)
            self.said(said)
        self.assertEqual(Path(self.home, "there.json").read_text(encoding="utf-8"), "x")
        self.program.press("Replace")
        self.said("The file is written: ~/there.json")
        key("Return")
        self.assertEqual(os.listdir(self.home), ["there.json"])
        self.program.end()

        other = tempfile.mkdtemp(prefix="hearthmark-data-")
        self.addCleanup(shutil.rmtree, other)
        self.program = Program(self.binary, other).launch(HOME=self.home)
        for expected in ("1 task, 1 interval and 1 note would be added.", "Nothing in it is new."):
            self.choose("Import…")
            self.program.enter_path("there.json")
            self.said(expected)
            if self.program.find_all("Import", "push button"):
                self.program.press("Import")
                self.said("1 task, 1 interval and 1 note added. Ctrl+Z takes that back.")
            key("Escape")
            self.program.find("Planted", "list item")
        key("ctrl+z")
        wait_for(lambda: not self.program.find_all("Planted", "list item"), "the undo")
        document = Path(self.home, "there.json")
        document.write_text(document.read_text(encoding="utf-8").replace('"tasks"', '"tusks"'),
                            encoding="utf-8")
        self.choose("Import…")
        self.program.enter_path("there.json")
        self.said("Line ")
        key("Return")
        self.assertEqual(self.program.end(), 0)

    def test_the_desktops_dialog_is_asked_first(self):
        portal = Portal(self)
        odd = os.path.join(os.fsencode(self.home), b"50% \xfc.json")
        portal.answers = ["waits", odd, None, odd, "never"]
        self.make_store(*FINISHED)
        self.program.launch(HOME=self.home)
        self.choose("Export Everything…")
        wait_for(lambda: portal.asked, "the dialog")
        self.choose("Export Everything…")
        self.said("The file is written: ~/50% ")
        key("Return")
        method, parent, options = portal.asked[0]
        self.assertEqual(method, "SaveFile")
        self.assertRegex(parent, "^x11:[0-9a-f]+$")
        self.assertRegex(options["current_name"], r"^Hearthmark \d{4}-\d\d-\d\d\.json$")
        self.assertEqual(options["filters"], [("Everything (JSON)", [(0, "*.json")])])
        with open(odd, "rb") as file:
            self.assertEqual([task["name"] for task in json.load(file)["tasks"]], ["Planted"])
        self.choose("Import…")  # cancelled
        self.choose("Import…")
        self.said("Nothing in it is new.")
        self.assertEqual([method for method, *_ in portal.asked], ["SaveFile", "SaveFile", "OpenFile", "OpenFile"])
        key("Escape")
        self.choose("Export Everything…")
        self.said("Where the file is to be.", seconds=20)
        self.assertEqual(self.program.end(), 0)


if __name__ == "__main__":
    run_tests()
