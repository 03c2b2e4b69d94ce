# SPDX-License-Identifier: MIT
"""What other programs see of the focus on the session bus and may do there, and calls at random.
Usage: test_focus_interface.py BINARY, with HEARTHMARK_RANDOM_CALLS and HEARTHMARK_RANDOM_SEED"""

import collections
import math
import os
import random
import time
from pathlib import Path

from gi.repository import Gio, GLib

from driver import ProgramTest, click, connect, key, new_id, run_tests, type_text, wait_for, windows
from players import PATIENCE, Questions

NAME, PATH, FOCUS = "org.hearthmark.Hearthmark", "/org/hearthmark/Hearthmark", "org.hearthmark.Focus"
PROPERTIES, INTROSPECTABLE = "org.freedesktop.DBus.Properties", "org.freedesktop.DBus.Introspectable"
XML = Path(__file__).parents[2] / "packaging" / "org.hearthmark.Focus.xml"
CALLS = int(os.environ.get("HEARTHMARK_RANDOM_CALLS", 10000))
SEED = int(os.environ.get("HEARTHMARK_RANDOM_SEED", random.SystemRandom().randrange(10 ** 6)))
METHODS = {"StartFocus": "(sd)", "Finish": "()", "Extend": "(d)", "AddTask": "(s)", "AddNote": "(ss)",
           "FindTasks": "(s)"}
NOTHING = {"TaskId": "", "TaskName": "", "IntervalId": "", "Start": 0.0, "SpentBefore": 0.0, "Length": 0.0}
STANDARD = "org.freedesktop.DBus.Error."
BUSY = ("TooManyCalls", STANDARD + "UnknownObject")  # what comes too fast is turned away by either

# By the toolkit, where no interface is named.
READING = ("Introspect", "Get", "GetAll", "Ping")


class FocusInterface(ProgramTest):
    def setUp(self):
        super().setUp()
        self.bus, self.follower = (connect(os.environ["DBUS_SESSION_BUS_ADDRESS"]) for _ in range(2))
        self.told, self.values = [], {}
        for interface, signal in [(FOCUS, None), (PROPERTIES, None),
                                  ("org.freedesktop.DBus", "NameOwnerChanged")]:
            self.follower.signal_subscribe(None, interface, signal, None, None, 0, self.hear)

    def hear(self, _connection, _sender, _path, _interface, signal, arguments):
        arguments = arguments.unpack()
        if signal == "PropertiesChanged" and arguments[0] == FOCUS:
            self.told.append(set(arguments[1]))
            self.values.update(arguments[1])
        elif signal in ("Started", "Finished"):
            self.told.append((signal, arguments[1], round(arguments[3])))
        elif signal == "NameOwnerChanged" and arguments[0] == NAME:
            self.told.append(bool(arguments[2]))

    def call(self, method, *arguments, interface=FOCUS, signature=None, path=PATH):
        """The answer, or the error, of ours without what all have before their names."""
        message = Gio.DBusMessage.new_method_call(NAME, path, interface, method)
        message.set_body(GLib.Variant(signature or METHODS.get(method, "()"), arguments))
        reply, _ = self.bus.send_message_with_reply_sync(message, 0, 20000, None)
        error = reply.get_error_name()
        return error.removeprefix(FOCUS + ".Error.") if error else reply.get_body() and reply.get_body().unpack()

    def now(self):
        """The properties, after all that was told before."""
        values = self.call("GetAll", FOCUS, interface=PROPERTIES, signature="(s)")[0]
        self.follower.call_sync(NAME, PATH, PROPERTIES, "GetAll", GLib.Variant("(s)", (FOCUS,)), None, 0, -1)
        while GLib.MainContext.default().iteration(False):
            pass
        return values

    def news(self):
        self.now()
        told, self.told = self.told, []
        return told

    def test_the_program_describes_itself_as_the_file_that_is_installed(self):
        self.program.launch()
        described, = self.call("Introspect", interface=INTROSPECTABLE)

        def text(xml):
            result = GLib.String()
            Gio.DBusNodeInfo.new_for_xml(xml).lookup_interface(FOCUS).generate_xml(0, result)
            return result.str
        self.assertEqual(text(described), text(XML.read_text(encoding="utf-8")))
        self.assertEqual(self.now(), NOTHING)
        for method, signature in METHODS.items():
            arguments = [{"s": "", "d": math.nan}[kind] for kind in signature.strip("()")]
            self.assertNotEqual(self.call(method, *arguments), STANDARD + "UnknownMethod")

    def test_each_change_is_told_once_wherever_it_was_made_and_time_alone_is_none(self):
        program = self.program.launch()
        self.news()
        task, = self.call("AddTask", "  Ünïcode \"quoted\"\n\u202eright to left ")
        name = "Ünïcode \"quoted\"\n\u202eright to left"
        interval, = self.call("StartFocus", task.lower(), 1500.2)
        everything = set(NOTHING)
        self.assertEqual(self.news(), [everything - {"SpentBefore"}, ("Started", name, 1500)])
        began = self.values["Start"]
        self.assertAlmostEqual(began, time.time(), delta=5)
        self.assertEqual(self.now(), {"TaskId": task, "TaskName": name, "IntervalId": interval, "Start": began,
                                      "SpentBefore": 0, "Length": 1500})
        self.assertEqual((self.call("StartFocus", task, 60.0), self.call("Extend", 60.0)),
                         ("FocusRunning", (1560.0,)))
        self.assertEqual(self.news(), [{"Length"}])
        time.sleep(2.5)
        self.assertEqual(self.news(), [], "clients count the seconds themselves")
        key("ctrl+shift+f")
        wait_for(lambda: not self.now()["TaskId"], "the end by the window's key")
        spent = program.rows("SELECT duration FROM Interval")[0][0]
        self.assertEqual(self.news(), [everything - {"SpentBefore"}, ("Finished", name, round(spent))])
        self.assertEqual(self.call("Finish"), "NothingRuns")
        self.call("StartFocus", task, 1.0)
        wait_for(lambda: not self.now()["TaskId"], "the end by its length")
        self.assertEqual(self.news()[1::2], [("Started", name, 1), ("Finished", name, 1)])
        # Hidden it works as well, and a quit pauses what runs before the name goes.
        key("alt+F4")
        wait_for(lambda: not windows(), "the window to go")
        self.call("StartFocus", task, 600.0)
        self.news()
        program.end()
        wait_for(lambda: False in self.told, "the name to go")
        self.assertEqual((self.told, {**NOTHING, **self.values}), ([everything - {"SpentBefore"}, False], NOTHING))
        program.start()
        wait_for(lambda: True in self.told, "the name")
        resumed = self.now()  # asked while it starts
        self.assertEqual((resumed["TaskName"], resumed["Length"], self.told[2:]), (name, 600.0, [True]))
        self.assertGreater(resumed["SpentBefore"], 0)

    def test_what_is_open_typed_and_selected_stays(self):
        self.make_store(*self.task_with_interval(state=2))
        program = self.program.launch()
        click(program.find("Planted", "list item"))
        program.find("Planted", "heading")
        program.press("Add Task")
        program.find("Task name")
        type_text("half a na")
        task, = self.call("AddTask", "from elsewhere")
        self.call("StartFocus", task, 60.0)
        self.call("AddNote", task, "note")
        self.assertEqual(self.call("FindTasks", "ELSE from")[0], [(task, "from elsewhere", False)])
        type_text("me")
        program.press("Save")
        wait_for(lambda: "half a name" in program.names(), "what was typed on both sides of it")
        self.assertTrue({"Planted", "from elsewhere"} <= set(program.names()))
        program.find("Planted", "heading")

    def test_what_comes_too_fast_is_turned_away(self):
        program = self.program.launch()
        describe = Gio.DBusMessage.new_method_call(NAME, PATH, INTROSPECTABLE, "Introspect")
        describe.set_flags(Gio.DBusMessageFlags.NO_REPLY_EXPECTED)
        for _ in range(4000):
            self.bus.send_message(describe.copy(), 0)
        self.assertEqual(self.call("Introspect", interface=INTROSPECTABLE), STANDARD + "UnknownObject")
        time.sleep(1)
        answers = []

        def note(bus, result):
            try:
                answers.append(bus.call_finish(result) and "done")
            except GLib.Error as error:
                answers.append(Gio.DBusError.get_remote_error(error))
        for _ in range(100):
            self.bus.call(NAME, PATH, FOCUS, "AddTask", GLib.Variant("(s)", ("a",)), None, 0, 20000, None, note)
        wait_for(lambda: len(answers) == 100, "all answers")
        self.assertEqual(set(answers), {"done", FOCUS + ".Error.TooManyCalls"})
        self.assertIn(answers.count("done"), range(20, 30))
        self.assertEqual(program.rows("SELECT COUNT(*) FROM Task"), [(answers.count("done"),)])

    # Random calls, and what they have to do.

    def expected(self, method, signature, arguments):
        """The error, or what comes of it."""
        if METHODS.get(method) != signature:
            return None
        value = arguments[0] if arguments else None
        texts = [argument.strip() if isinstance(argument, str) else argument for argument in arguments]
        if signature in ("(d)", "(sd)"):
            seconds = arguments[-1]
            length = math.isfinite(seconds) and math.floor(abs(seconds) + 0.5) * math.copysign(1, seconds)
            if not 1 <= length <= 86400:
                return "InvalidArgument"
        if method in ("Finish", "Extend"):
            if not self.focus:
                return "NothingRuns"
            if method == "Extend":
                self.pending = lambda _: self.focus.update(Length=self.focus["Length"] + length)
            else:
                self.pending = lambda _: self.focus.clear()
        elif method == "AddTask":
            if not 1 <= len(texts[0]) <= 10000:
                return "InvalidArgument"
            self.pending = lambda made: self.tasks.update({made: texts[0]})
        elif method == "FindTasks":
            return "InvalidArgument" if len(value) > 200 else "found"
        elif method == "AddNote" and not 1 <= len(texts[1].encode()) <= 1000000:
            return "InvalidArgument"
        elif value.upper() not in self.tasks:
            return "NoSuchTask"
        elif method == "AddNote":
            self.pending = lambda made: self.notes.update({made: (value.upper(), texts[1])})
        elif self.focus:
            return "FocusRunning"
        else:
            self.pending = lambda made: self.focus.update(TaskId=value.upper(), IntervalId=made, Length=length)
        return "done"

    def text(self):
        if self.random.random() < 0.03:
            return self.random.choice("nü") * self.random.choice([500000, 500001, 1000000, 1000001])
        return self.random.choice([
            "", " \n", "a", "Büro %1 <b>", "\u202e\u05d0\U0001f600", "\ufdd0\U0010ffff", "x" * 200, "é" * 10000,
            "é" * 10001, "'\"; DROP TABLE Task", new_id(), "../../", FOCUS,
            self.random.choice(list(self.tasks)), self.random.choice(list(self.tasks)).lower()])

    def argument(self, kind):
        # What is a length is one that no test waits for.
        numbers = [0, -1, 0.49, 600, 4999.6, 4999.6, 86400, 86400.5, 1e308, math.nan, math.inf, -math.inf, 2 ** 31]
        number = self.random.choice(numbers)
        whole = int(number) % 200 if math.isfinite(number) else 7
        return {"s": self.text, "d": lambda: float(number), "b": lambda: number == 0, "o": lambda: "/a/b",
                "g": lambda: "a{sv}", "as": lambda: [self.text()[:1000]] * (whole % 9),
                "ay": lambda: b"\xff" * whole, "v": lambda: GLib.Variant("d", float(number)),
                "a{sv}": lambda: {self.text()[:50]: GLib.Variant("s", self.text())},
                "(sd)": lambda: (self.text(), 1.0),
                "av": lambda: [GLib.Variant("av", [GLib.Variant("s", "deep")])] * (whole % 9)
                }.get(kind, lambda: whole)()

    def random_call(self):
        if self.random.random() < 0.3:
            method, interface, path = self.random.choices(list(METHODS), [4, 2, 2, 1, 1, 1])[0], FOCUS, PATH
            kinds = list(METHODS[method].strip("()"))
        else:
            method = self.random.choice([*METHODS, "Get", "GetAll", "Set", "Introspect", "Ping", "finish",
                                         "deleteLater", "Started", "A" * 255])
            interface = self.random.choice([FOCUS, FOCUS, None, PROPERTIES, INTROSPECTABLE, FOCUS + "s",
                                            "org.freedesktop.DBus.Peer"])
            path = self.random.choice([PATH, PATH, PATH, "/", "/org", PATH + "/a", "/" + "a" * 5000])
            kinds = self.random.choices(["s", "d", "b", "i", "y", "x", "o", "g", "as", "ay", "v", "a{sv}",
                                         "(sd)", "av"], k=self.random.choice([0, 1, 1, 2, 2, 3, 20]))
            if method in ("Get", "Set"):
                kinds = ["s", "s", "v"][:2 if method == "Get" else 3]
        arguments = [self.argument(kind) for kind in kinds]
        if kinds == ["s"] and self.random.random() < 0.02:
            arguments[0] = "n" * 5000000
        if method in ("StartFocus", "AddNote") and kinds[:1] == ["s"] and self.random.random() < 0.6:
            arguments[0] = self.random.choice(list(self.tasks))
        if interface == PROPERTIES and kinds[:2] == ["s", "s"]:
            arguments[:2] = FOCUS, self.random.choice([*NOTHING, "None"])
        return method, interface, path, "(" + "".join(kinds) + ")", arguments

    def test_random_calls_do_what_was_asked_for_and_nothing_else(self):
        print(f"{CALLS} calls, seed {SEED} ...", end=" ", flush=True)
        self.random = random.Random(SEED)
        self.make_store(*self.task_with_interval(state=2))
        program = self.program.launch()
        self.tasks, self.notes, self.focus = dict(program.rows("SELECT id, name FROM Task")), {}, {}
        questions = Questions(self.desktop.accessibility_bus, program.process)
        done, changes = collections.Counter(), 0
        questions.start()
        buses = [self.bus, *(connect(os.environ["DBUS_SESSION_BUS_ADDRESS"]) for _ in range(3))]
        for _ in range(CALLS):
            self.bus = self.random.choice(buses)  # each is let through so often
            method, interface, path, signature, arguments = self.random_call()
            self.pending = None
            at_us = path == PATH and interface in (FOCUS, None)
            expected = self.expected(method, signature, arguments) if at_us else None
            answer = self.call(method, *arguments, interface=interface, signature=signature, path=path)
            shown = [str(argument)[:50] for argument in arguments]
            what = f"{interface} {method}{signature} {shown} at {path[:50]}: {answer}"
            if answer in BUSY or not at_us:
                pass
            elif isinstance(answer, str):
                self.assertTrue(answer == expected if expected else answer.startswith(STANDARD), what)
            elif expected == "done":
                self.pending(*answer)
                changes += method in ("StartFocus", "Finish", "Extend")
            else:
                self.assertTrue(expected == "found" or method in READING, what)
            done[answer if isinstance(answer, str) else method] += 1
        self.assertTrue(questions.end(), "it did not answer")
        self.assertLess(max(questions.seconds), PATIENCE, "an answer of the window took too long")
        values = self.now()
        self.assertEqual({key: values[key] for key in self.focus} or values, self.focus or NOTHING)
        self.assertEqual({**NOTHING, **self.values}, values)
        self.assertEqual(len([each for each in self.told if isinstance(each, set)]), changes)
        program.process.terminate()
        self.assertEqual(program.finished(), (0, ""))
        for query, right in [("PRAGMA integrity_check", [("ok",)]), ("PRAGMA foreign_key_check", []),
                             ("SELECT id, name FROM Task", list(self.tasks.items())),
                             ("SELECT COUNT(*) FROM Interval", [(1 + done["StartFocus"],)]),
                             ("SELECT n.id, t.id, text FROM Note n JOIN Task t ON task = t.pk ORDER BY n.pk",
                              [(note, *rest) for note, rest in self.notes.items()])]:
            self.assertEqual(sorted(program.rows(query)), sorted(right))
        print(f"slowest answer of the window {max(questions.seconds) * 1000:.0f} ms, {dict(done)}", end=" ")


if __name__ == "__main__":
    run_tests()
