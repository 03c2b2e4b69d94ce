# SPDX-License-Identifier: MIT
"""Searching in the running program. Usage: test_search.py BINARY [unittest arguments]"""

from driver import Program, ProgramTest, has_focus, key, new_id, press, run_tests, type_text, wait_for, windows


class Search(ProgramTest):
    def shown(self):
        return [(name, description) for role, name, description in self.program.listed()
                if role in ("list item", "label")]

    def wait_for_rows(self, *expected):
        def are_shown():
            self.seen = self.shown()
            return self.seen == list(expected)
        try:
            wait_for(are_shown, expected)
        except AssertionError as error:
            raise AssertionError(f"{error}, but {self.seen}") from None

    def field(self):
        return self.program.find("Search tasks and notes", "text")

    def wait_for_keyboard(self, name, role="list item"):
        wait_for(lambda: has_focus(self.program.find(name, role)), f"{name!r} to have the keyboard")

    def test_finds_by_words_of_names_and_notes_and_goes_there_by_keys_alone(self):
        self.make_store(*[("INSERT INTO Task VALUES (?, ?, ?, ?)", (place, new_id(), -place, name))
                          for place, name in enumerate(["Alpha", "Bravo", "Charlie", "Delta"], 1)],
                        ("INSERT INTO Note VALUES (1, ?, 0, 'first line\nThe Résumé of <b>\nlast', 2)", (new_id(),)))
        program = self.program.launch()
        none = ("No tasks in progress.", "")
        everything = [none, *((name, f"0, {place} of 4")
                              for place, name in enumerate(["Alpha", "Bravo", "Charlie", "Delta"], 1))]
        self.wait_for_rows(*everything)
        key("Down")  # to the second
        type_text("R")
        self.wait_for_keyboard("Search tasks and notes", "text")
        self.wait_for_rows(none, ("Bravo", "0, 1 of 2, matches"), ("Charlie", "0, 2 of 2, matches"))
        type_text("esume b")
        self.wait_for_rows(none, ("Bravo", "0, 1 of 1, in a note: The Résumé of <b>"))
        self.assertEqual(self.field().description, "1 match")
        type_text("x")
        self.wait_for_rows(none, ("No matches", ""))
        self.assertEqual(self.field().description, "No matches")
        key("ctrl+z")
        key("ctrl+f")
        type_text("a")
        self.wait_for_rows(none, *((name, place + ", matches") for name, place in everything[1:]))
        key("Down", "Down", "Down", "Down", "Up")
        self.wait_for_keyboard("Charlie")
        key("Home", "Up")
        self.wait_for_keyboard("Search tasks and notes", "text")
        key("ctrl+a")
        type_text("char")
        key("Return")
        self.wait_for_keyboard("Charlie")
        program.find("30:00", "push button")
        key("ctrl+1")
        wait_for(lambda: program.section_of("Charlie") == "Running", "the focus")
        type_text("z")
        wait_for(lambda: program.section_of("No matches") is None and "No matches" in program.names(), "no match")
        self.assertEqual(program.section_of("Charlie"), "Running", "whatever is searched for")
        key("ctrl+shift+f", "Escape")
        self.wait_for_keyboard("Charlie")
        self.assertFalse(program.find_all("Search tasks and notes"))
        wait_for(lambda: self.shown()[1:] and len(self.shown()) == 5, "all of them")
        key("Delete", "ctrl+f")
        type_text("charlie")
        wait_for(lambda: "No matches" in program.names(), "no match")
        press(program.find("Clear the search", "push button"))
        wait_for(lambda: self.field().description == "", "all of them")
        key("ctrl+z")
        wait_for(lambda: "No matches" in program.names(), "what was typed to be back")
        key(*["ctrl+z"] * 10)
        wait_for(lambda: self.field().description == "", "the beginning of the text")
        key("alt+F4")
        wait_for(lambda: not windows(), "the window to be hidden")
        self.assertEqual(program.rows("SELECT count(*) FROM Task"), [(3,)], "changes of the text alone")
        Program(program.binary, program.data).start().finished()
        self.wait_for_keyboard("Search tasks and notes", "text")
        self.assertEqual(program.end(), 0)

    def test_what_is_done_is_folded_and_found(self):
        self.make_store(*[("INSERT INTO Task VALUES (?, ?, ?, ?)", (place, new_id(), -place, name))
                          for place, name in enumerate(["Alpha", "Bravo", "Charlie"], 1)])
        program = self.program.launch()
        none = ("No tasks in progress.", "")
        press(program.find("Bravo", "list item"))
        box = program.find("Done", "check box")
        press(box)
        self.wait_for_rows(none, ("Alpha", "0, 1 of 2"), ("Charlie", "0, 2 of 2"))
        import pyatspi
        self.assertTrue(box.getState().contains(pyatspi.STATE_CHECKED))
        press(program.find("Alpha", "list item"))
        program.find("Alpha", "heading")
        key("ctrl+shift+d")
        self.wait_for_rows(none, ("Charlie", "0, 1 of 1"))
        self.wait_for_keyboard("Charlie")
        key("Down")
        self.wait_for_keyboard("Done (2)", "push button")
        key("Delete", "F2", "Menu", "space")
        self.wait_for_rows(none, ("Charlie", "0, 1 of 3"), ("Alpha", "0, 2 of 3, done"), ("Bravo", "0, 3 of 3, done"))
        self.wait_for_keyboard("Done (2)", "push button")
        self.assertEqual(program.find("Done (2)", "push button").description, "unfolded")
        press(program.find("Charlie", "list item"))
        program.find("Charlie", "heading")
        key("Up", "Return", "ctrl+shift+d")
        self.wait_for_keyboard("Done (3)", "push button")  # not down there with the task
        key("ctrl+z")
        wait_for(lambda: program.section_of("Charlie") == "Not running", "it to be back")
        key("Return")
        self.wait_for_rows(none, ("Charlie", "0, 1 of 1"))
        type_text("bra")
        self.wait_for_rows(none, ("Bravo", "0, 1 of 1, done, matches"))
        key("Return")
        program.find("Bravo", "heading")
        key("Escape")
        self.wait_for_keyboard("Done (2)", "push button")
        key("ctrl+1")
        wait_for(lambda: program.section_of("Bravo") == "Running", "the focus")
        self.assertFalse(program.is_enabled("Done", "check box"))
        key("ctrl+z")  # Alpha
        wait_for(lambda: not program.find_all("Done (1)"), "nothing to be done")
        self.assertEqual(program.rows("SELECT count(doneDate) FROM Task"), [(0,)])
        press(program.find("Application menu", "push button"))
        press(program.find("Search", "menu item"))
        self.wait_for_keyboard("Search tasks and notes", "text")
        type_text("char")
        wait_for(lambda: [name for name, _ in self.shown()] == ["Bravo", "Charlie"], "what runs, and the match")
        program.add_task("Delta")
        wait_for(lambda: program.section_of("Delta") == "Not running", "the new task, which no search hides")
        self.assertEqual(program.end(), 0)


if __name__ == "__main__":
    run_tests()
