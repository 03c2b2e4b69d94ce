# SPDX-License-Identifier: MIT
"""What only shows in the real process: its work by the accessibility bus alone and by the keyboard alone.

Usage: test_program.py BINARY [unittest arguments]"""

import os
import re
import time

from desktops import Waits
from driver import ProgramTest, clipboard, extents, has_focus, key, new_id, press, run_tests, type_text, wait_for


class Use(ProgramTest):
    def test_accessibility_bus_alone(self):
        program = self.program.launch()

        def write(name, text):
            program.find(name, "text").queryEditableText().insertText(0, text, len(text))

        for text in ["Running", "Not running", "No tasks in progress.",
                     "Add your first task by pressing the button below 👇",
                     "Select or create a task to see more."]:
            program.find(text)
        program.press("Application menu")
        updates = program.find("Check for Updates…", "menu item")
        self.assertEqual(updates.description, "This build has no update feed.")
        self.assertFalse(program.is_enabled(updates.name, "menu item"))
        program.press("About Hearthmark", "menu item")
        program.find(os.path.dirname(program.file))
        key("Return")
        for name in ["Letters", "Report"]:
            program.press("Add Task")
            program.find("Task name")
            self.assertFalse(program.is_enabled("Save"))
            write("Task name", name)
            program.press("Save")
            program.find(name, "list item")
        self.assertEqual(program.listed(), [
            ("heading", "Running", ""), ("label", "No tasks in progress.", ""),
            ("heading", "Not running", ""), ("list item", "Report", "0, 1 of 2"),
            ("list item", "Letters", "0, 2 of 2")])

        press(program.find("Report", "list item"))
        for text in ["Start a focus", "Running interval(s)", "Other invervals"]:
            program.find(text)
        self.assertTrue(program.is_enabled("30:00") and program.is_enabled("1:00:00"))
        program.press("30:00")
        wait_for(lambda: program.section_of("Report") == "Running", "the row to move")
        bar = program.find("Progress", "progress bar").queryValue()
        self.assertEqual((bar.minimumValue, bar.maximumValue), (0, 1))
        early = wait_for(lambda: 0 < bar.currentValue < 0.01 and bar.currentValue, "progress")
        wait_for(lambda: early < bar.currentValue, "more of it")
        press(program.find("Letters", "list item"))
        wait_for(lambda: program.find_all("Letters", "heading"), "the other task's pane")
        self.assertFalse(program.is_enabled("30:00") or program.is_enabled("1:00:00"))

        self.watch_counting(program)

        press(program.find("Report", "list item"))
        program.find("Report", "heading")
        top = extents(program.find("Start a focus")).y
        program.press("Finish")
        wait_for(lambda: program.section_of("Report") == "Not running", "the row to go back")
        self.assertEqual(extents(program.find("Start a focus")).y, top)
        bars = [bar.name for bar in program.find("Focus of the last 14 days", "list")]
        self.assertEqual(len(bars), 14)
        self.assertRegex(bars[-1], rf"^\S+ {time.localtime().tm_mday} \S+: [0-9:]+$")
        self.assertTrue(program.is_enabled("30:00"))
        program.press("Add Note")
        write("Note", "All by voice.")
        program.press("Save")
        program.find("All by voice.", "list item")
        program.press("Share")
        press(program.find("CSV", "page tab"))
        program.press("Copy")
        wait_for(lambda: b"Report" in clipboard(), "the copy")
        press(program.find("Letters", "list item"))
        program.find("Letters", "heading")
        press(program.find("Report", "list item"), "ShowMenu")
        program.press("Delete", "menu item")
        wait_for(lambda: program.section_of("Report") is None, "the row to go")
        self.assertEqual(program.rows("SELECT name FROM Task"), [("Letters",)])
        self.assertEqual(program.rows("SELECT count(*) FROM Interval"), [(0,)])
        program.press("Undo")
        wait_for(lambda: program.rows("SELECT text FROM Note WHERE task") == [("All by voice.",)],
                 "its return")
        program.press("Application menu")
        program.press("Quit", "menu item")
        self.assertEqual(program.finished()[0], 0)

    def test_a_past_interval_is_added_corrected_moved_and_all_of_it_undone(self):
        program = self.program
        self.make_store(("INSERT INTO Task VALUES (1, ?, 0, 'Letters'), (2, ?, 5, 'Report')",
                         (new_id(), new_id())))
        program.launch()
        press(program.find("Letters", "list item"))
        program.find("Letters", "heading")
        stored = "SELECT duration, maxDuration, task FROM Interval JOIN RawIntervalState r" \
                 " ON r.interval = Interval.pk WHERE state = 2"
        key("ctrl+shift+i")
        program.find("Add an Interval", "heading")
        key("Down", "Tab", "ctrl+a")
        type_text("70:00")
        program.find("There was not so much time since the start.")
        self.assertFalse(program.is_enabled("Save"))
        key("ctrl+a")
        type_text("20:00")
        key("Return")
        wait_for(lambda: program.rows(stored) == [(1200, 0, 1)], "the new interval")
        press(program.find("Edit interval"))
        program.find("Correct the Interval", "heading")
        key("Tab", "Tab")
        type_text("25")
        key("shift+Tab", "shift+Tab", "shift+Tab", "space")
        program.find("Report", "list item")
        key("r", "Return")
        program.find("Task: Report", "push button")
        program.press("Save")
        wait_for(lambda: program.rows(stored) == [(1200, 1500, 2)], "the corrected one")
        key("ctrl+z")
        wait_for(lambda: program.rows(stored) == [(1200, 0, 1)], "what it was")
        key("ctrl+z")
        wait_for(lambda: program.rows(stored) == [], "nothing")
        key("ctrl+shift+z", "ctrl+shift+z")
        wait_for(lambda: program.rows(stored) == [(1200, 1500, 2)], "all of it")

    def test_the_only_task_that_starts_pushes_the_other_header_down(self):
        program = self.program.launch()
        program.add_task("Letters")
        press(program.find("Letters", "list item"))
        program.press("30:00")
        wait_for(lambda: program.section_of("Letters") == "Running", "the row to move")
        row = program.find("Letters", "list item")
        wait_for(lambda: extents(program.find("Not running", "heading")).y
                 >= extents(row).y + extents(row).height > extents(row).y + 60, "room for the header", 3)

    def watch_counting(self, program):
        """The text must take every value in order, a second apart."""
        row = program.find("Report", "list item")
        first = int(row.description.split(",")[0])
        changes, waits = [], Waits()
        while len(changes) <= 8:
            text = row.description.split(",")[0]
            if not changes or text != changes[-1][1]:
                changes.append((time.monotonic(), text, waits.seconds()))
            time.sleep(0.005)
        expected = [f"{s // 60}:{s % 60:02}" if s >= 60 else str(s)
                    for s in range(first, first + len(changes))]
        self.assertEqual([text for _, text, _ in changes], expected)
        gaps = [(b[0] - a[0], b[2] - a[2]) for a, b in zip(changes[1:], changes[2:])]
        self.assertTrue(all(abs(gap - 1) <= 0.2 + waited for gap, waited in gaps), gaps)

    def test_keyboard_alone(self):
        program = self.program.launch()
        for keys, name in [("Return", "One"), ("ctrl+n", "Two")]:
            key(keys)
            program.find("Task name")
            key("space", "ctrl+Return")  # a blank name is not saved
            type_text(name)
            key("ctrl+Return")
            program.find(name, "list item")
            # The first task stands under the keyboard at once, and stays there.
            key("Return")
            program.find("One", "heading")
        self.assertEqual(program.rows("SELECT name FROM Task"), [("One",), ("Two",)])
        key("Up", "Return")
        program.find("Two", "heading")
        key("Down", "Return")
        program.find("One", "heading")
        for keys, maximum in [("ctrl+1", 1800), ("ctrl+2", 3600)]:
            key(keys)
            wait_for(lambda: program.section_of("One") == "Running", "the focus")
            key("ctrl+shift+f")
            wait_for(lambda: program.section_of("One") == "Not running", "its end")
            self.assertEqual(program.rows("SELECT max(maxDuration) FROM Interval"), [(maximum,)])
        key("ctrl+shift+n")
        program.find("Note", "text")
        type_text("By hand.")
        key("ctrl+Return")
        program.find("By hand.", "list item")
        wait_for(lambda: key("Tab") or time.sleep(0.2) or has_focus(program.find("One", "list item")),
                 "the way round to the list")
        for task, step, other in [("One", "Up", "Two"), ("Two", "Down", "One")]:
            key("ctrl+e")
            program.find("JSON", "list")
            key("ctrl+c")
            wait_for(lambda: f'"{task}"'.encode() in clipboard(), "the copy")
            key(step, "Return")
            program.find(other, "heading")
        for keys, name in [("ctrl+e", "JSON"), ("F1", "Keyboard Shortcuts"), ("ctrl+n", "Task name")]:
            key(keys)
            program.find(name)
            key("ctrl+n", "F1", "x", "Escape")
            wait_for(lambda: not program.find_all(role="dialog"), "the one sheet to close")
        key("Delete")
        wait_for(lambda: program.rows("SELECT name FROM Task") == [("Two",)], "the deletion")
        program.find("Task deleted: One", "notification")
        key("ctrl+z")
        wait_for(lambda: program.rows("SELECT count(*) FROM Interval WHERE task") == [(2,)], "undo")
        program.find("One", "heading")
        key("Down")
        key("Delete")
        wait_for(lambda: program.rows("SELECT name FROM Task") == [("Two",)], "the deletion")
        wait_for(lambda: not program.find_all("One"), "the placeholder of a task that is gone")
        self.assertFalse(program.is_enabled("30:00"))
        key("ctrl+shift+n")
        time.sleep(0.2)
        self.assertTrue(has_focus(program.find("Two", "list item")), "no note can be written")
        key("Delete")
        wait_for(lambda: has_focus(program.find("Add Task")), "the keyboard where it can do something")
        key("ctrl+q")
        self.assertEqual(program.finished()[0], 0)

    def test_own_length_continue_and_five_minutes_more(self):
        program = self.program.launch()
        program.add_task("Letters")
        press(program.find("Letters", "list item"))
        field = program.find("Own length", "text")
        key("ctrl+3")  # there is none yet
        wait_for(lambda: has_focus(field), "the keyboard in the field")
        type_text("25:61")
        program.find("Not a length: try 25, 1:30:00 or 90 min.")
        key("Return", "Escape")
        type_text("1 s")
        program.find("Enter starts 1")
        self.assertEqual(program.rows("SELECT count(*) FROM Interval"), [(0,)])
        for keys, count in [("Return", 1), ("ctrl+3", 2)]:
            key(keys)
            wait_for(lambda: program.rows("SELECT state, duration >= 1 FROM Interval i JOIN RawIntervalState r"
                                          " ON r.interval = i.pk") == [(2, 1)] * count, "its end")
        field.queryComponent().grabFocus()
        type_text("45 s")
        key("Return")
        program.press("Five more minutes")
        self.assertEqual(program.rows("SELECT maxDuration FROM Interval"), [(1,), (1,), (345,)])
        program.press("Finish")
        wait_for(lambda: program.section_of("Letters") == "Not running", "its end")
        row = wait_for(lambda: [row for row in program.find_all(role="list item") if "/5:45" in row.name],
                       "its row")[0]
        self.assertRegex(row.description, r"^\d\d:\d\d$")
        row.queryComponent().grabFocus()
        key("Tab", "space")
        wait_for(lambda: program.section_of("Letters") == "Running" and has_focus(row), "its continuation")
        (old, length), (_, rest) = program.rows("SELECT duration, maxDuration FROM Interval")[2:]
        self.assertEqual(rest, length - int(old))

    def test_keys_that_go_far_or_the_way_they_point(self):
        numbers = range(1, 31)
        self.make_store(
            *[("INSERT INTO Task VALUES (?, ?, ?, ?)", (pk, new_id(), pk, f"Task {pk}")) for pk in numbers],
            *[("INSERT INTO Note VALUES (?, ?, ?, ?, 30)", (pk, new_id(), pk, f"Note {pk}")) for pk in numbers])
        program = self.program

        def focused():
            return [node.name for node in program.find_all() if has_focus(node)]

        def reach(keys, name):
            key(*keys.split())
            wait_for(lambda: re.fullmatch(name, focused()[-1]), f"{keys} to reach {name}", 3)

        def tab_to(name):
            wait_for(lambda: name in focused() or key("Tab") or time.sleep(0.2), f"Tab to reach {name}")

        def reach_day(keys, day):
            key(*keys.split())
            wait_for(lambda: has_focus(program.find("Focus of the last 14 days", "list")[day]), keys, 3)

        for language, back, forth in [("C.UTF-8", "Left", "Right"), ("ar_EG.UTF-8", "Right", "Left")]:
            program.start(LC_ALL=language)
            wait_for(lambda: has_focus(program.find("Task 30", "list item")), "the keyboard")
            tab_to("Focus of the last 14 days")
            for keys, day in [(back, 12), ("Home", 0), (forth, 1), ("End", 13)]:
                reach_day(keys, day)
            for first, last, rows in [("Task 30", "Task 1", "Task"), ("Note 30", "Note 1", "Note")]:
                tab_to(first)
                reach("End", last)
                reach("Home", first)
                reach("Next", rows + " (1[0-9]|2[0-8]|[2-9])")
                self.assertTrue(program.find_all(first), "the page begins with it")
                reach("Prior", first)
                self.assertTrue(program.find_all("Running" if rows == "Task" else "Add Note"))
                key("Return")
                reach("Down", rows + " 29")
                reach("Menu Return", rows + " 28")
                tab_to("Undo")
                reach("Return", "Task 29" if rows == "Task" else "Task 30")
            for place, keys in [("Focus of the last 14 days", ["Next", "Prior"]), ("30:00", ["End", "Left"])]:
                tab_to(place)
                for each, headings in zip(keys, [0, 1]):
                    key(each)
                    wait_for(lambda: len(program.find_all("Task 30", "heading")) == headings, each)
            program.press("Application menu")
            for keys, item in [("Up", "Quit"), ("Down", "About.*"), ("k", "Keyboard.*"), ("End", "Quit")]:
                reach(keys, item)
            key("Escape")
            tab_to("Task 30")
            reach("End", "Task 1")
            key("Return", "ctrl+1")
            wait_for(lambda: program.section_of("Task 1") == "Running", "it under the first header")
            key("ctrl+shift+f")
            tab_to("Show")
            reach("Return", "Task 1")
            reach("ctrl+e shift+Tab", "JSON")
            reach(forth, "CSV")
            reach(back, "JSON")
            program.end()


if __name__ == "__main__":
    run_tests()
