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
from accessible import act, find, found, middle
from desktop import Program, keys, wait_until, zv

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


class SettingsTest(unittest.TestCase):
    def setUp(self):
        entry = os.path.join(HOME, "Launch.desktop")
        with open(entry, "w", encoding="utf-8") as file:
            file.write(f"[Desktop Entry]\nType=Application\nName=Launch\nExec=touch {LAUNCHED}\n")
        os.chmod(entry, 0o755)
        if os.path.exists(LAUNCHED):
            os.remove(LAUNCHED)
        desktop.set_menu([("FSObject", "Launch", entry), ("Submenu", "Group", None), ("Restart", "Again", None)])
        zv("prefs", "write", "ReplaceAppleMenu", "false")
        self.program = Program(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.program.__enter__()
        self.addCleanup(self.program.__exit__)
        wait_until(lambda: subprocess.run([desktop.PROGRAM, "settings"], capture_output=True, check=False).returncode == 0, 10, "it opens its settings")
        found("Zanthe Vell Settings")

    def tab(self, name):
        click(found(name, pyatspi.ROLE_PAGE_TAB))
        time.sleep(0.2)

    def record(self, item, combination):
        click(found(item))
        click(found("Shortcut", pyatspi.ROLE_CHECK_BOX))
        wait_until(lambda: not hotkeys("registrations"), 3, "nothing is held while recording")
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
        self.record("Again", "ctrl+alt+k")  # what we hold ourselves can be pressed, and is a conflict
        wait_until(lambda: len(hotkeys("conflicts")) == 1, 3, "the conflict")

        click(found("Again"))
        keys("Escape")
        wait_until(lambda: find("Zanthe Vell Settings") is None, 3, "the window closes")
        self.assertFalse(os.path.exists(LAUNCHED))
        keys("ctrl+alt+k")
        wait_until(lambda: os.path.exists(LAUNCHED), 3, "the shortcut acts")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[1:], verbosity=2)
