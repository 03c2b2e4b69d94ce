# SPDX-License-Identifier: MIT
"""Looking back in the running program. Usage: test_history.py BINARY [unittest arguments]"""

import csv
import datetime
from pathlib import Path

from driver import (EPOCH, ProgramTest, clipboard, extents, has_focus, is_showing, key, new_id, now, press,
                    run_tests, wait_for)


class History(ProgramTest):
    def cells(self):
        rows = [row for row in self.program.find_all("Tasks of the range", "list")[0] if is_showing(row)]
        return [(row.name, row.description) for row in sorted(rows, key=lambda row: extents(row).y)]

    def wait_for_page(self, title, *rows):
        self.program.find(title, "heading")
        wait_for(lambda: self.cells() == list(rows), f"{rows}")

    def test_looks_back_to_a_task_by_keys_and_counts_what_runs(self):
        first = datetime.datetime.fromtimestamp(now() + EPOCH).replace(day=1)
        before = first - datetime.timedelta(days=1)
        moment = before.timestamp() - EPOCH
        self.make_store(
            *[("INSERT INTO Task VALUES (?, ?, ?, ?)", (place, new_id(), -place, name))
              for place, name in enumerate(["Alpha", "Bravo"], 1)],
            *[("INSERT INTO Interval VALUES (?, ?, ?, ?, 0, ?)", (place, new_id(), *rest))
              for place, rest in enumerate([(moment, 100, 1), (moment, 300, 2), (moment - 86400, 200, 1)], 1)])
        program = self.program.launch()
        key("ctrl+h")
        program.press("Month", "page tab")
        self.wait_for_page(f"{first:%B %Y}")
        key("alt+Left")
        self.wait_for_page(f"{before:%B %Y}", ("Alpha", "5:00, 50.0%, 2 focuses"), ("Bravo", "5:00, 50.0%, 1 focus"))
        bar = f"{before:%a} {before.day} {before:%b}: 6:40"
        press(program.find(bar, "list item"))
        self.wait_for_page(f"{before:%B %Y}", ("Bravo", "5:00, 75.0%, 1 focus"), ("Alpha", "1:40, 25.0%, 1 focus"))
        program.press("Task", "table column header")
        self.wait_for_page(f"{before:%B %Y}", ("Alpha", "1:40, 25.0%, 1 focus"), ("Bravo", "5:00, 75.0%, 1 focus"))
        self.assertEqual(program.find("Task", "table column header").description, "sorted, least first")
        file = Path(self.program.data, "shown.csv")
        program.press("Export…")
        program.press("As a table (CSV)…", "menu item")
        program.enter_path(file)
        program.find(f"The file is written: {file}")
        key("Return")
        with open(file, encoding="utf-8", newline="") as lines:
            self.assertEqual(sorted((row["task.name"], row["seconds"]) for row in csv.DictReader(lines)),
                             [("Alpha", "100"), ("Bravo", "300")])
        key("ctrl+h", "ctrl+h")  # it comes back as it was, but for the choice, with the keyboard on the chart
        self.wait_for_page(f"{before:%B %Y}", ("Alpha", "5:00, 50.0%, 2 focuses"), ("Bravo", "5:00, 50.0%, 1 focus"))
        key("End")
        wait_for(lambda: has_focus(program.find(bar, "list item")), "the last bar to have the keyboard")
        key("ctrl+c")
        wait_for(lambda: f"{bar.replace(': ', chr(9))}\nTotal: 10:00" in clipboard().decode(), "the text")
        self.assertIn(b"\x89PNG", clipboard("-t", "image/png"))
        key(*["Tab"] * 5, "Down", "Return")
        program.find("Bravo", "heading")
        self.assertFalse(program.find_all("History"))
        key("ctrl+1")
        wait_for(lambda: program.section_of("Bravo") == "Running", "the focus")
        today = datetime.datetime.fromtimestamp(now() + EPOCH)
        text = f"{today:%a} {today.day} {today:%b}: "
        press(wait_for(lambda: [node for node in program.find_all(role="list item") if node.name.startswith(text)],
                       "the bar of today")[0])
        program.find(f"{today:%a} {today.day} {today:%b %Y}", "heading")
        wait_for(lambda: [name for name, _ in self.cells()] == ["Bravo"], "what runs")
        seen = self.cells()
        wait_for(lambda: self.cells() != seen, "the next second")
        key("Escape")
        program.find("Bravo", "heading")
        self.assertEqual(program.end(), 0)


if __name__ == "__main__":
    run_tests()
