"""The settings window as a person uses it: seen through AT-SPI, driven by pointer and keys."""

import json
import os
import plistlib
import subprocess
import sys
import time
import unittest

import pyatspi

import desktop
from accessible import act, find, found, middle, showing
from desktop import Bus, BusMenu, Panel, Program, keys, wait_until, zv
from key_grab import KeyGrab

HOME = desktop.HOME
LAUNCHED = os.path.join(HOME, "launched")
AUTOSTART = os.path.join(HOME, ".config/autostart/org.zanthevell.ZantheVell.desktop")


def click(element):
    desktop.click(*middle(element))


def type_text(text):
    subprocess.run(["xdotool", "type", "--delay", "20", text], check=True)
    time.sleep(0.4)


def drag(start, end):
    """Slowly enough for a drag to be taken for one."""
    (x0, y0), (x1, y1) = start, end
    subprocess.run(["xdotool", "mousemove", str(x0), str(y0), "mousedown", "1"], check=True)
    for step in range(1, 13):
        time.sleep(0.03)
        subprocess.run(["xdotool", "mousemove", str(x0 + (x1 - x0) * step // 12), str(y0 + (y1 - y0) * step // 12)], check=True)
    time.sleep(0.2)
    subprocess.run(["xdotool", "mouseup", "1"], check=True)


def menu():
    document = os.path.join(HOME, "exported.plist")
    zv("export", document)
    with open(document, "rb") as file:
        return plistlib.load(file)


def kinds():
    return [item["kind"] for item in menu()]


def pref(key):
    return zv("prefs", "read", key).strip()


def hotkeys(part):
    return json.loads(zv("hotkeys", "--json"))[part]


def choose(title, *pressed):
    """Opens the choices behind that title, presses keys among them, and takes the one they end at."""
    label = found(title, pyatspi.ROLE_LABEL)
    relation = next(each for each in label.getRelationSet() if each.getRelationType() == pyatspi.RELATION_LABEL_FOR)
    click(relation.getTarget(0))
    time.sleep(0.3)
    keys(*pressed, "Return")


def recorder():
    return wait_until(lambda: next((each for each in showing(pyatspi.ROLE_PUSH_BUTTON) if each.name.startswith("Shortcut: ")), None), 3, "the recorder")


def start_recording():
    act(recorder())
    wait_until(lambda: recorder().name == "Shortcut: Press keys…", 3, "it records")


class NextMenu:
    """What the next opening of the menu, read over the bus, has of the folder that is its first entry."""

    def __init__(self):
        bus = Bus()
        self.menu = BusMenu(bus, wait_until(bus.items, 10, "an icon in the panel")[0])

    def folder(self, within=None):
        """(title, properties) of what is in the folder, or in the one of that name within it."""
        self.menu.about_to_show()
        number, _ = self.menu.entries()[0]
        self.menu.about_to_show(number)
        if within:
            number = next(each for each, properties in self.menu.entries(number) if properties["label"] == within)
            self.menu.about_to_show(number)
        return [(properties["label"], properties) for _, properties in self.menu.entries(number)]

    def titles(self):
        return [title for title, _ in self.folder()]

    def has_icons(self):
        return any("icon-name" in properties or "icon-data" in properties for _, properties in self.folder())

    def has_submenus(self):
        """Whether a folder goes on below the first level."""
        return any("children-display" in properties for _, properties in self.folder("Zoo"))


class SettingsTest(unittest.TestCase):
    def setUp(self):
        self.set_up_menu()
        self.program = Program(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.program.__enter__()
        self.addCleanup(self.program.__exit__)
        wait_until(lambda: subprocess.run([desktop.PROGRAM, "settings"], capture_output=True, check=False).returncode == 0, 10, "it opens its settings")
        found("Zanthe Vell Settings")

    def set_up_menu(self):
        entry = desktop.launcher("Launch", f"touch {LAUNCHED}")
        if os.path.exists(LAUNCHED):
            os.remove(LAUNCHED)
        desktop.set_menu([("FSObject", "Launch", entry), ("Submenu", "Group", None), ("Restart", "Again", None)])
        for line in zv("prefs", "read").splitlines():
            zv("prefs", "reset", line.split()[0])
        zv("prefs", "write", "ReplaceAppleMenu", "false")

    def tab(self, name):
        click(found(name, pyatspi.ROLE_PAGE_TAB))
        time.sleep(0.2)

    def record(self, item, combination):
        click(found(item))
        start_recording()
        self.assertFalse(hotkeys("registrations"), "nothing is held while recording")
        keys(combination)

    def test_every_change_acts_at_once_and_is_kept(self):
        self.tab("General")
        for title, key in (("Icons", "ShowIcons"), ("Hidden files", "ShowHiddenFiles"), ("Folders first", "SortFoldersFirst")):
            before = pref(key)
            act(found(title, pyatspi.ROLE_CHECK_BOX))
            wait_until(lambda: pref(key) != before, 3, key)
        zv("prefs", "write", "RecentItemsLimit", "17")
        wait_until(lambda: find("17") or find("Recent items").name, 3, "a value that another process stored is shown")

        act(found("Open at login", pyatspi.ROLE_CHECK_BOX))
        wait_until(lambda: os.path.exists(AUTOSTART), 3, "the autostart entry")
        act(found("Open at login", pyatspi.ROLE_CHECK_BOX))
        wait_until(lambda: not os.path.exists(AUTOSTART), 3, "no autostart entry")

    def test_a_backup_is_restored_after_a_question_and_taken_back_where_it_was_done(self):
        desktop.set_menu([("Sleep", "Newer", None)])
        self.tab("Menu")
        self.tab("General")
        restore = found("Restore a Backup…", pyatspi.ROLE_PUSH_BUTTON)
        restore.queryComponent().grabFocus()
        keys("Down")
        self.assertEqual(kinds(), ["Sleep"], "a key on the button chooses nothing")

        def choose_newest():
            act(restore)
            time.sleep(0.3)
            keys("Down", "Return")

        choose_newest()
        found("Restore", pyatspi.ROLE_PUSH_BUTTON)
        keys("Escape")
        self.assertEqual(kinds(), ["Sleep"], "called off")
        choose_newest()
        act(found("Restore", pyatspi.ROLE_PUSH_BUTTON))
        wait_until(lambda: kinds() == ["FSObject", "Submenu", "Restart"], 3, "restored")
        act(found("Undo", pyatspi.ROLE_PUSH_BUTTON))
        wait_until(lambda: kinds() == ["Sleep"], 3, "taken back")
        wait_until(lambda: find("Undo", pyatspi.ROLE_PUSH_BUTTON) is None, 3, "the line is gone")
        keys("ctrl+shift+z", "ctrl+z")
        self.assertEqual(kinds(), ["Sleep"], "as the Undo command would")

    def test_an_item_is_added_by_keyboard_and_by_drag_and_taken_back(self):
        self.tab("Menu")
        click(found("Search the library"))
        type_text("mounted")
        keys("Return")
        wait_until(lambda: kinds() == ["FSObject", "Submenu", "Restart", "MountedVolumes"], 3, "what was searched is added at the end")

        keys("ctrl+a")
        type_text("running")
        drag(middle(found("Running Applications")), middle(found("Group")))
        wait_until(lambda: [child["kind"] for child in menu()[1]["children"]] == ["RunningApplications"], 3, "the drag ends within the submenu")

        click(found("Launch"))
        keys("ctrl+z")
        wait_until(lambda: not menu()[1]["children"], 3, "the drag is undone")
        keys("ctrl+z")
        wait_until(lambda: kinds() == ["FSObject", "Submenu", "Restart"], 3, "the first one too")
        keys("ctrl+shift+z")
        wait_until(lambda: kinds() == ["FSObject", "Submenu", "Restart", "MountedVolumes"], 3, "and done again")
        click(found("Again"))
        keys("alt+Up")
        wait_until(lambda: kinds() == ["FSObject", "Restart", "Submenu", "MountedVolumes"], 3, "moved by the keyboard")
        keys("ctrl+c", "ctrl+v")
        wait_until(lambda: kinds().count("Restart") == 2, 3, "copied and pasted")
        keys("Delete")
        wait_until(lambda: kinds().count("Restart") == 1, 3, "deleted")

    def test_a_recorded_shortcut_works_when_the_window_is_closed(self):
        self.tab("Menu")
        self.record("Launch", "ctrl+alt+k")
        held = wait_until(lambda: hotkeys("registrations"), 3, "the shortcut is held")
        self.assertEqual([entry["shortcut"] for entry in held], ["⌃⌥K"])
        self.record("Again", "ctrl+alt+k")  # our own shortcut can be pressed, and is a conflict
        wait_until(lambda: len(hotkeys("conflicts")) == 1, 3, "the conflict")

        click(found("Again"))
        keys("Escape")
        wait_until(lambda: find("Zanthe Vell Settings") is None, 3, "the window closes")
        self.assertFalse(os.path.exists(LAUNCHED))
        keys("ctrl+alt+k")
        wait_until(lambda: os.path.exists(LAUNCHED), 3, "the shortcut acts")

    def test_the_next_menu_shows_each_change(self):
        folder = os.path.join(HOME, "Things")
        os.makedirs(os.path.join(folder, "Zoo", "Deep"), exist_ok=True)
        for name in (*(f"file {number}" for number in range(60)), ".concealed", "Key-*[ctrl+opt+J]*"):
            open(os.path.join(folder, name), "w", encoding="utf-8").close()
        desktop.set_menu([("FSObject", "Things", folder)])

        def toggle(title):
            return lambda: act(found(title, pyatspi.ROLE_CHECK_BOX))

        self.tab("General")
        without_tray = "Nothing on this desktop shows status icons."
        wait_until(lambda: any(each.name.startswith(without_tray) for each in showing(pyatspi.ROLE_LABEL)), 3, "the note that no tray is there")
        with Panel():
            menu, bus = NextMenu(), Bus()
            wait_until(lambda: not any(each.name.startswith(without_tray) for each in showing(pyatspi.ROLE_LABEL)), 3, "goes with the panel")
            rows = (
                (toggle("Icons"), lambda: not menu.has_icons()),
                (toggle("Hidden files"), lambda: ".concealed" in menu.titles()),
                (toggle("Folders first"), lambda: menu.titles()[0] != "Zoo"),
                (toggle("Folders first"), lambda: menu.titles()[0] == "Zoo"),
                (lambda: choose("Items per folder", "Home"), lambda: len(menu.titles()) == 51),
                (lambda: choose("Levels of folders", "Home"), lambda: not menu.has_submenus()),
                (lambda: choose("Levels of folders", "Down"), menu.has_submenus),
                (lambda: choose("Recent items", "3"), lambda: pref("RecentItemsLimit") == "30"),
                (lambda: choose("Look for shortcuts in file names", "Down"), lambda: hotkeys("registrations")),
                (toggle("Icon in the panel"), lambda: not bus.items()),
                (toggle("Icon in the panel"), bus.items),
                (toggle("Corner of the panel"), desktop.windows),
                (toggle("Corner of the panel"), lambda: len(desktop.windows()) == 1),
            )
            for number, (change, follows) in enumerate(rows):
                with self.subTest(number):
                    change()
                    wait_until(follows, 4, f"row {number} is seen")

    def test_a_badge_says_who_has_the_combination(self):
        self.tab("Menu")
        self.record("Launch", "ctrl+alt+k")
        start_recording()
        wait_until(lambda: not hotkeys("registrations"), 3, "the combination is free")
        with KeyGrab():
            keys("Escape")
            launch = found("Launch", pyatspi.ROLE_TABLE_CELL)
            wait_until(lambda: launch.description == "Another app already uses this combination.", 3, "the badge")
        self.record("Again", "ctrl+alt+k")
        wait_until(lambda: found("Again", pyatspi.ROLE_TABLE_CELL).description == "“Launch” already uses this combination.", 3, "the other badge")
        self.assertEqual(recorder().name, "Shortcut: Ctrl+Alt+K")
        found("“Launch” already uses this combination.", pyatspi.ROLE_LABEL)
        act(found("Show", pyatspi.ROLE_PUSH_BUTTON))
        wait_until(lambda: found("Launch", pyatspi.ROLE_TABLE_CELL).getState().contains(pyatspi.STATE_SELECTED), 3, "its owner is shown")
        wait_until(lambda: not found("Launch", pyatspi.ROLE_TABLE_CELL).description, 3, "what the other app let go is ours")

    def test_a_title_is_kept_however_the_field_is_left(self):
        self.tab("Menu")
        leavings = (
            ("by a pause", lambda: None),
            ("for another item", lambda: click(found("Group"))),
            ("by closing the window", lambda: keys("Escape")),
        )
        for number, (how, leave) in enumerate(leavings):
            with self.subTest(how):
                click(found("Again" if number == 0 else f"Title {number - 1}"))
                click(found("Title", pyatspi.ROLE_TEXT))
                keys("ctrl+a")
                subprocess.run(["xdotool", "type", f"Title {number}"], check=True)
                leave()
                wait_until(lambda: menu()[2].get("title") == f"Title {number}", 3, f"a title left {how}")
                if number == 1:
                    wait_until(self.group_is_selected, 3, "what was clicked is selected")

    def group_is_selected(self):
        return found("Group", pyatspi.ROLE_TABLE_CELL).getState().contains(pyatspi.STATE_SELECTED)

    def test_a_change_made_elsewhere_is_shown_and_can_be_taken_back(self):
        self.tab("Menu")
        click(found("Again"))
        keys("alt+Up")
        wait_until(lambda: kinds() == ["FSObject", "Restart", "Submenu"], 3, "moved")
        desktop.set_menu([("Sleep", "From Elsewhere", None)])
        found("From Elsewhere")
        keys("ctrl+z")
        wait_until(lambda: kinds() == ["FSObject", "Restart", "Submenu"], 3, "the menu of before")
        keys("ctrl+z")
        wait_until(lambda: kinds() == ["FSObject", "Submenu", "Restart"], 3, "and the one before that")
        keys("ctrl+shift+z", "ctrl+shift+z")
        wait_until(lambda: kinds() == ["Sleep"], 3, "nothing is lost")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[1:], verbosity=2)
