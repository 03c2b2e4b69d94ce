# SPDX-License-Identifier: MIT
"""Notes and the share sheet: test_notes_and_share.py BINARY EXPORT_WRITER [unittest arguments]"""

import subprocess
import sys
from pathlib import Path

from driver import (ProgramTest, click, clipboard, extents, has_focus, key, new_id, now, press, run_tests,
                    set_clipboard, type_text, wait_for, xdotool)

BLANKS = " \t\n\u00a0\u2003\u2028"
WRITINGS = "\u200fשלום \u202eمرحبا\u202c 👩\u200d👧 🍅"


class NotesAndShare(ProgramTest):
    def show_task(self, *notes, name="A", intervals=0):
        """The first interval has no state and the second one runs; the others are finished."""
        self.make_store(
            ("INSERT INTO Task VALUES (1, ?, 0, ?), (2, ?, 0, 'B')", (new_id(), name, new_id())),
            *[("INSERT INTO Interval VALUES (NULL, ?, 0.1, 60, 1800, 1)", (new_id(),))
              for _ in range(intervals)],
            "INSERT INTO RawIntervalState (state, interval)"
            " SELECT 2 * (pk > 2), pk FROM Interval WHERE pk > 1",
            *[("INSERT INTO Note VALUES (NULL, ?, ?, CAST(? AS TEXT), 1)", (new_id(), date, text))
              for date, text in enumerate(notes)])
        self.program.launch().resize(900, 760)
        self.select(name)
        return self.program

    def select(self, name):
        press(self.program.find(name, "list item"))
        self.program.find(name, "heading")

    def wait_for_typed(self, text, name="Note"):
        editor = self.program.find(name, "text").queryText()
        wait_for(lambda: editor.getText(0, -1).replace("\u2029", "\n") == text, repr(text))

    def wait_for_rows(self, *names):
        wait_for(lambda: self.program.names("Intervals and notes")[-len(names):] == [*names], names)

    def test_a_note_is_stored_without_the_blanks_around_it_and_a_blank_one_not_at_all(self):
        program = self.show_task("Old", intervals=3)
        program.press("Add Note")
        self.wait_for_rows("1:00/30:00", "Notes", "Note", "Save", "Discard", "Old")
        set_clipboard(BLANKS)
        key("ctrl+v")
        self.wait_for_typed(BLANKS)
        self.assertFalse(program.is_enabled("Save"))
        # What is not empty does not go by Escape.
        key("ctrl+Return", "Escape", "x", "ctrl+shift+n", "Escape", "y")
        self.wait_for_typed(BLANKS + "xy")
        key("ctrl+a", "BackSpace", "Escape")
        program.find("Add Note")
        text = f"first  line\u2028\u00a0{WRITINGS}\n\n\tend."
        set_clipboard(BLANKS + text + BLANKS)
        key("ctrl+shift+n", "ctrl+v")
        self.wait_for_typed(BLANKS + text + BLANKS)
        program.press("Save")
        self.wait_for_rows("1:00/30:00", "Notes", "Add Note", text, "Old")
        [(note, date, stored)] = program.rows("SELECT id, creationDate, text FROM Note WHERE pk > 1")
        self.assertRegex(note, "^([0-9A-F]+-){4}[0-9A-F]{12}$")
        self.assertAlmostEqual(date, now(), delta=30)
        self.assertEqual(stored, text)
        key("Return", "Y", "ctrl+Return")  # from the button, where the keyboard was left
        self.wait_for_rows("Notes", "Add Note", "Y", text, "Old")

    def test_marked_text_is_copied_and_not_deleted(self):
        long = "\n".join(map(str, range(600)))
        program = self.show_task(long, "Marked words")
        place = extents(program.find("Marked words", "list item"))
        for x in [9, 30, 50]:
            xdotool("mousemove", place.x + x, place.y + 14, *["mousedown", 1][:2 if x == 9 else 0])
        xdotool("mouseup", 1)
        key("ctrl+c")
        wait_for(lambda: 0 < len(clipboard()) < 12 and clipboard() in b"Marked words", "the mark")
        key("Delete")
        click(wait_for(lambda: [row for row in program.find_all(role="list item")
                                if row.name.startswith("0\n1\n")], "the long note")[0])
        key("ctrl+c")
        wait_for(lambda: clipboard() == long.encode(), "all of the note, of which a part is shown")
        set_clipboard("")
        row = next(each for each in program.find_all(role="list item") if each.name.startswith("0\n"))
        tops = [extents(row).y]
        for keys, way in [("Next", -1), ("Down", -1), ("Up", 1), ("Prior", 1)]:
            key(keys)
            wait_for(lambda: (extents(row).y - tops[-1]) * way > 20, f"{keys} to scroll the note")
            tops.append(extents(row).y)
        key("Return")
        program.find("The whole note", "list")
        key("Escape", "Tab", "space")
        program.find("The whole note", "list")
        key("End")
        program.find("599", "label")
        key("ctrl+c")
        wait_for(lambda: clipboard() == long.encode(), "all of the note")
        key("Delete", "shift+Tab")  # from the button to its row
        key("Delete")
        wait_for(lambda: program.rows("SELECT text FROM Note WHERE task = 1") == [("Marked words",)],
                 "the deletion of what is not marked")
        program.process.terminate()
        self.assertEqual(program.finished(), (0, ""))

    def test_a_half_typed_note_is_kept_and_saved_at_the_end(self):
        program = self.show_task("Old", "New")
        click(program.find("New", "list item"))
        key("ctrl+shift+n", "h", "a", "l", "f")
        program.press("30:00")
        wait_for(lambda: program.find("A", "list item").description > "2", "two ticks")
        program.press("Finish")  # which puts a row before the one that was clicked
        self.wait_for_rows("Notes", "Note", "Save", "Discard", "New", "Old")
        key("space", "2")
        self.wait_for_typed("half 2")
        click(program.find("Old", "list item"), button=3)
        program.press("Delete", "menu item")
        self.select("A")
        self.wait_for_typed("half 2")
        self.select("B")
        key("ctrl+shift+n", "b")
        self.select("A")
        self.wait_for_typed("half 2")
        key("ctrl+shift+n", "ctrl+z", "3")  # nothing of the other note is undone into this one
        self.wait_for_typed("half 23")
        click(program.find("A", "list item"), button=3)
        program.press("Delete", "menu item")
        program.press("Undo")
        self.wait_for_typed("half 23")
        self.assertEqual(program.rows("SELECT text FROM Note WHERE task"), [("New",)])
        program.process.terminate()
        self.assertEqual(program.finished(), (0, ""))
        self.assertEqual(program.rows("SELECT t.name, text FROM Task t JOIN Note n ON task = t.pk"
                                      " ORDER BY text"), [("A", "New"), ("B", "b"), ("A", "half 23")])

    def test_a_name_and_a_note_are_edited_where_they_stand(self):
        program = self.show_task("Old", "New")

        def stored():
            return program.rows("SELECT name FROM Task UNION ALL SELECT text FROM Note WHERE task")

        def wait_for_stored(*texts):
            wait_for(lambda: stored() == [(text,) for text in texts], texts)
        program.press("30:00")
        row = program.find("B", "list item")
        click(program.find("A", "list item"))
        key("Down", "Up", "F2")
        self.wait_for_typed("A", "Name of the task")
        key("ctrl+z", "BackSpace", "Return")
        self.assertFalse(program.is_enabled("Save"))
        seen = program.find("A", "list item").description
        type_text("Long name")
        wait_for(lambda: program.find("A", "list item").description > seen, "ticks beside the editor")
        key("BackSpace")
        self.wait_for_typed("Long nam", "Name of the task")
        key("Return")
        wait_for_stored("Long nam", "B", "Old", "New")
        wait_for(lambda: has_focus(program.find("Long nam", "list item")), "the keyboard where it was")
        key("F2", "x", "Escape", "Down", "F2")  # which selects the other task
        self.wait_for_typed("B", "Name of the task")
        self.assertTrue(has_focus(program.find("Name of the task", "text")))
        self.select("Long nam")
        click(program.find("Old", "list item"))
        key("F2", "End", "1", "Return")
        self.wait_for_typed("Old1\n", "Text of the note")
        for way in (5, 4):
            xdotool("click", "--repeat", 20, way)
        click(program.find("New", "list item"), button=3)
        program.press("Delete", "menu item")
        wait_for_stored("Long nam", "B", "Old")
        key("2")  # the keyboard has come from the row that went to the one that is edited
        self.wait_for_typed("Old1\n2", "Text of the note")
        press(row)
        self.select("Long nam")
        click(program.find("Text of the note", "text"))
        key("ctrl+End", "3", "ctrl+Return")
        wait_for_stored("Long nam", "B", "Old1\n23")
        program.find("Old1\n23", "list item")
        key("F2", "ctrl+End", "4")
        click(program.find("Save"))
        program.find("Old1\n234", "list item")
        # With nothing left to undo nothing but the text is undone, and with nothing left of it it goes.
        key("F2", "x", *["ctrl+z"] * 3, "ctrl+a", "Delete", "Delete")
        program.find("Delete")
        wait_for_stored("Long nam", "B", "Old1\n234")
        key("ctrl+Return")
        wait_for_stored("Long nam", "B")
        program.press("Undo")
        wait_for_stored("Long nam", "B", "Old1\n234")
        program.press("Edit note")
        key("4")
        program.press("Edit name")  # which saves the note
        wait_for_stored("Long nam", "B", "Old1\n2344")
        key("End", "e", "Return")
        wait_for(lambda: has_focus(program.find("Edit name", "push button")), "what edits it again")
        program.press("Edit note")
        key("5")
        program.process.terminate()
        self.assertEqual(program.finished(), (0, ""))
        wait_for_stored("Long name", "B", "Old1\n23445")

    def test_what_the_keyboard_acts_on_is_brought_on_screen(self):
        def wait_until_visible(name):
            place = extents(program.find("Intervals and notes", "list"))
            wait_for(lambda: extents(program.find(name)).y + extents(program.find(name)).height
                     <= place.y + place.height, f"{name!r} on screen")

        program = self.show_task(*map(str, range(200)), intervals=300)
        program.resize(900, 620)
        set_clipboard("line\n" * 4000)
        for change in ["ctrl+v", "ctrl+z", "ctrl+shift+z", "ctrl+Return"]:
            key("ctrl+shift+n")
            wait_until_visible("Save")
            key(change)
            wait_until_visible("Add Note" if change == "ctrl+Return" else "Save")
        pane = extents(program.find("Intervals and notes", "list"))
        xdotool("mousemove", pane.x + 100, pane.y + 100, "click", "--repeat", 100, 5)
        wait_for(lambda: not program.find_all("Add Note"), "the button to scroll away")
        key("ctrl+shift+n", "Tab")
        wait_until_visible("Save")
        click(program.find("Note", "text"))
        key("x")
        xdotool("click", "--repeat", 200, 5)
        wait_for(lambda: not program.find_all("Note"), "the editor to scroll away")
        type_text("yz")  # which it takes out of sight, and comes back
        self.wait_for_typed("xyz")

    def test_a_copy_is_exact_and_stays_when_the_window_is_hidden(self):
        name = f'a "b", c/d\\e\nf\r\ng\th\u0001\u007f\u2028{WRITINGS}'
        program = self.show_task(name, "", None, b"no UTF-8: \xff", name=name, intervals=2)
        program.rows(f"VACUUM INTO '{program.data}/Hearthmark.sqlite'")
        subprocess.run([EXPORT_WRITER, program.data, program.data], check=True)
        def share(tab):
            program.press("Share")
            press(program.find(tab, "page tab"))
            program.find(tab, "list")
            return Path(program.data, f"1.{tab.lower()}").read_bytes()

        def assert_copied(text):
            wait_for(lambda: not program.find_all("Copy"), "the sheet to close")
            self.assertEqual(clipboard(), text)

        finish = program.find("Finish")
        for tab in ["JSON", "CSV"]:
            text = share(tab)
            program.press("Copy")
            assert_copied(text)
            share(tab)
            key("ctrl+a", "ctrl+c", "Escape")  # what is marked is copied as it is shown
            assert_copied(text.decode(errors="replace").encode())
        text = share("JSON")
        press(finish)
        wait_for(lambda: self.interval()[1] == 2, "a change that is not shown, so not copied")
        key("ctrl+c")
        assert_copied(text)
        wait_for(lambda: key("alt+F4") or not program.find_all("Share"), "the window to hide")
        self.assertEqual(clipboard(), text)

    def test_closing_the_sheet_leaves_the_clipboard_as_it_was(self):
        program = self.show_task()
        set_clipboard("before")

        def to_sheet():
            wait_for(lambda: has_focus(program.find("JSON", "list")), "the sheet to take the keyboard back")
        for close in [lambda: program.press("Close"), lambda: key("Escape"),
                      lambda: click(program.find("Hearthmark", "heading")),  # beside the sheet
                      lambda: [program.press("Add Note"), to_sheet(), key("Escape")],  # behind it
                      lambda: press(program.find("B", "list item"))]:
            program.press("Share")
            program.find("CSV", "page tab")
            key("ctrl+a")
            close()
            wait_for(lambda: not program.find_all("Copy"), "the sheet to close")
        self.select("A")
        click(program.find("A", "list item"), button=3)
        program.press("Delete", "menu item")
        wait_for(lambda: not program.is_enabled("Share"), "nothing to share")
        key("ctrl+e", "ctrl+c")
        self.assertEqual(clipboard(), b"before")
        program.process.terminate()
        self.assertEqual(program.finished(), (0, ""))


if __name__ == "__main__":
    EXPORT_WRITER = sys.argv.pop(2)
    run_tests()
