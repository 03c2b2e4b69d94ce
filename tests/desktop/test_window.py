# SPDX-License-Identifier: MIT
"""What the window looks like, what it says to assistive programs, and that no tick disturbs either.

Usage: test_window.py BINARY [unittest arguments]"""

import re
import time
from pathlib import Path

from driver import (ProgramTest, click, extents, key, lines_of, new_id, now, press, run_tests,
                    type_text, wait_for, xdotool)
from players import DARK, LIGHT, SettingsPortal


class Window(ProgramTest):
    def test_follows_the_desktop_from_dark_to_light(self):
        portal = SettingsPortal(value=DARK)
        self.addCleanup(portal.bus.close_sync)
        self.program.launch()
        wait_for(lambda: lines_of("292521", 300) > 200, "the dark pane")
        portal.change(LIGHT)
        wait_for(lambda: lines_of("fffefc", 300) > 200, "the light pane")

    def test_every_button_is_inside_the_smallest_window_with_large_text(self):
        name = "A task with a name\nthat is very much longer than the list is wide"
        self.make_store(("INSERT INTO Task VALUES (1, ?, 0, ?)", (new_id(), name)))
        program, data = self.program, Path(self.program.data)
        (data / "kdeglobals").write_text("[General]\nfont=DejaVu Sans,16,-1,5,50,0,0,0,0,0\n")
        program.start(XDG_CONFIG_HOME=data, QT_QPA_PLATFORMTHEME="kde", XDG_CURRENT_DESKTOP="KDE",
                      KDE_SESSION_VERSION="5")
        press(program.find(name, "list item"))
        program.resize(640, 420)
        window = program.tree()[0]

        def see(button):
            def is_inside():
                inner, outer = extents(program.find_all(button, "push button")[0]), extents(window)
                return (outer.width == 640 and inner.x >= outer.x and inner.y >= outer.y
                        and inner.x + inner.width <= outer.x + outer.width
                        and inner.y + inner.height <= outer.y + outer.height)
            wait_for(is_inside, f"{button!r} inside the window")

        def choose(item):
            program.press("Application menu")
            program.press(item, "menu item")

        for show, buttons in [(lambda: key("ctrl+n"), ["Close", "Save"]),
                              (lambda: key("ctrl+e"), ["Close", "Copy"]),
                              (lambda: key("F1"), ["Close"]),
                              (lambda: choose("About Hearthmark"), ["Open Folder", "Close"]),
                              (lambda: choose("Restore from a backup…"), ["Restore and Restart"]),
                              (lambda: key("Delete"), ["Undo", "Add Task", "Share"])]:
            show()
            for button in buttons:
                see(button)
            key("Escape")
            wait_for(lambda: not program.find_all(role="dialog"), "the sheet to close")
        program.find("Task deleted: " + name.replace("\n", " "), "notification")
        border = program.find("Border between list and task")
        place, list_of_tasks = extents(border), program.find("Tasks", "list")
        usual = extents(list_of_tasks).width
        for steps, width in [(-500, 290), (500, 320), (-12, 308)]:
            place = extents(border)
            xdotool("mousemove", place.x + 4, place.y + 100, "mousedown", 1,
                    "mousemove_relative", "--sync", "--", steps // 2, 0,
                    "mousemove_relative", "--sync", "--", steps // 2, 0, "mouseup", 1)
            wait_for(lambda: extents(list_of_tasks).width == width, f"a width of {width}")
        border.queryComponent().grabFocus()
        key("Left")
        wait_for(lambda: extents(list_of_tasks).width == 292, "a step to the left")
        key("Return")
        wait_for(lambda: extents(list_of_tasks).width == usual, "the usual width")

    def test_ticks_disturb_nothing(self):
        """A menu, a scrolled list, a half typed text: all stay as they are while time goes on. What is
        not visible has no delegates, however many tasks there are."""
        self.make_store(
            *[("INSERT INTO Task VALUES (?, ?, ?, ?)", (pk, new_id(), pk, f"Task {pk}"))
              for pk in range(1, 10_001)],
            ("INSERT INTO Interval VALUES (1, ?, 0, 0, 3600, 10000)", (new_id(),)),
            "INSERT INTO RawIntervalState VALUES (1, 0, NULL, NULL, 1)")
        program = self.program.launch()
        program.find("Task 10000", "list item")
        self.assertEqual(program.section_of("Task 10000"), "Running")
        place = extents(program.find("Task 9997", "list item"))
        xdotool("mousemove", place.x + 40, place.y + 20, "click", "--repeat", 10, 5)
        wait_for(lambda: "Task 10000" not in program.names(), "the list to scroll")
        wait_for(lambda: program.names() == (time.sleep(0.3) or program.names()), "it to stand still")
        click(program.find(program.names()[5], "list item"), button=3)
        program.find("Delete", "menu item")
        before, rows = program.names(), program.find_all("Tasks", "list")[0].childCount
        self.assertLess(rows, 40)
        time.sleep(3)
        self.assertTrue(program.find_all("Delete", "menu item"))
        self.assertEqual((program.names(), program.find_all("Tasks", "list")[0].childCount), (before, rows))
        key("Escape")
        key("ctrl+n")
        editor = program.find("Task name")
        type_text("half")
        time.sleep(3)
        type_text(" typed")
        text = editor.queryText()
        wait_for(lambda: text.getText(0, -1) == "half typed", "the typed text")

    def test_starts_and_finishes_are_announced_and_ticks_are_not(self):
        import pyatspi

        announced, others = [], []

        def hear(event):
            if event.type.major == "announcement":
                announced.append(event.any_data)
            elif event.type.minor != "showing":
                if event.source.getRole() != pyatspi.ROLE_NOTIFICATION:
                    others.append(f"{event.type} {event.source.name}")
            elif event.detail1 and event.source.getRole() == pyatspi.ROLE_NOTIFICATION:
                announced.append(event.source.name)
        self.make_store(("INSERT INTO Task VALUES (1, ?, 0, 'A')", (new_id(),)))
        program = self.program.launch()
        press(program.find("A", "list item"))
        program.find("A", "heading")
        kinds = ["object:state-changed:showing", "object:property-change", "object:text-changed",
                 "object:announcement"]
        pyatspi.Registry.registerEventListener(hear, *kinds)
        self.addCleanup(pyatspi.Registry.deregisterEventListener, hear, *kinds)
        start, finish = "Focus started: A, 30:00", r"Focus finished: A, \d+"
        # Nobody takes the notification, so the banner speaks too; the last two come quickly.
        both = rf"{finish}\|Interval finished: A"
        for keys, text, seconds in zip(
                ["ctrl+1", "ctrl+shift+f"] * 2, [start, both, start, finish], [3, 3, 0, 0]):
            key(keys)
            wait_for(lambda: re.fullmatch(text, "|".join(announced)), f"{text}, not {announced}")
            time.sleep(0.5)
            wait_for(lambda: others.clear() or True, "the rest of what the change itself brought")
            time.sleep(seconds)
            wait_for(lambda: True, "what came meanwhile")
            self.assertRegex("|".join(announced + others), f"^{text}$")
            announced.clear()

    def test_who_remembers_texts_reads_no_old_second_and_hears_of_the_rest(self):
        from gi.repository import Atspi, GLib
        import pyatspi

        self.make_store(*self.task_with_interval(state=0),
                        ("UPDATE Interval SET creationDate = ?", (now(),)))
        program = self.program.launch()
        press(program.find("Planted", "list item"))
        program.find("Planted", "heading")
        nodes = [node for node in program.find_all() if node.getRoleName() != "notification"]
        looks = []

        def look():
            looks.append([(node.name, node.description) for node in nodes])
            if len(looks) == 4:
                Atspi.event_quit()
            return len(looks) < 4
        look()
        GLib.timeout_add(1100, look)
        Atspi.event_main()  # without which nothing is remembered
        look()
        ticking = [texts for texts in zip(*looks) if texts[0] != texts[-1]]
        self.assertEqual(len(ticking), 6)
        for texts in ticking:
            self.assertEqual(len(set(texts[:4])), 4, texts)

        told = []
        hear, kind = lambda event: told.append(event.source.name), "object:property-change:accessible-name"
        pyatspi.Registry.registerEventListener(hear, kind)
        self.addCleanup(pyatspi.Registry.deregisterEventListener, hear, kind)
        program.press("Application menu")
        program.press("Restore from a backup…", "menu item")
        press(wait_for(lambda: program.find_all("Backups", "list")[0][0], "a backup"))
        wait_for(lambda: "Would be changed back: 1 interval" in told, "its summary")


if __name__ == "__main__":
    run_tests()
