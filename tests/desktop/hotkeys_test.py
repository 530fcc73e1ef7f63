"""Shortcuts in the running program, pressed by raw key codes on a private desktop.
   tests/desktop/run hotkeys."""

import ctypes
import json
import os
import shutil
import subprocess
import time
import unittest

import desktop
from desktop import HOME, Bus, Program, wait_until, windows, zv
from key_grab import KeyGrab

FOLDER = os.path.join(HOME, "Folder")
PRESSED = os.path.join(HOME, "pressed")

# Key codes of the X server, by the place of the key.
E, Z, Y, S, F5 = 26, 52, 29, 39, 71
ALT, SUPER, DOWN, RIGHT = 64, 133, 116, 114
SUPER_BIT = 64  # as the X server counts modifiers
NO_GROUP = {"shift": False, "option": False, "control": False, "noCommand": False}


class Keyboard:
    """The user's fingers."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtest = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))

    def close(self):
        self.x11.XCloseDisplay(self.display)

    def key(self, code, down):
        self.xtest.XTestFakeKeyEvent(self.display, code, int(down), ctypes.c_ulong(0))
        self.x11.XSync(self.display, 0)

    def press(self, *codes):
        """All down, then all up."""
        for code in codes:
            self.key(code, True)
        for code in reversed(codes):
            self.key(code, False)


def launcher(name):
    """An application that notes its name when it is started."""
    return desktop.launcher(name, f'sh -c "echo {name} >> {PRESSED}"')


def item(number, path, trigger=None, **flags):
    record = {"id": f"00000000-0000-0000-0000-{number:012X}", "kind": "FSObject", "children": [], "isHidden": False, "unrecognizedKeys": {},
              "location": {"path": path, "displayName": os.path.basename(path)}}
    if trigger:
        record["keyEquivalent"] = {"trigger": trigger, **NO_GROUP, **flags}
    return record


def hotkeys():
    return json.loads(zv("hotkeys", "--json"))


def shortcuts(part="registrations"):
    return [entry["shortcut"] for entry in hotkeys()[part]]


class HotkeysTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        os.makedirs(FOLDER, exist_ok=True)
        launchers = {name: launcher(name) for name in ("one", "zed", "plain")}
        cls.menu = [item(1, launchers["one"], {"character": "E"}, option=True), item(2, launchers["zed"], {"character": "Z"}),
                    item(3, launchers["plain"], {"named": "f5"}, noCommand=True), item(4, launchers["zed"], {"character": "E"}, option=True),
                    item(5, FOLDER, {"character": "S"}, option=True)]

    def setUp(self):
        subprocess.run(["setxkbmap", "us"], check=True)
        if os.path.exists(PRESSED):
            os.remove(PRESSED)
        desktop.import_menu(self.menu)
        self.keyboard = Keyboard()
        self.addCleanup(self.keyboard.close)

    def start(self):
        self.enterContext(Program())
        wait_until(lambda: Bus().has_owner(desktop.NAME), 10, "the start")

    def pressed(self):
        if not os.path.exists(PRESSED):
            return []
        with open(PRESSED, encoding="utf-8") as file:
            return file.read().split()

    def expect(self, names):
        wait_until(lambda: len(self.pressed()) >= len(names), 5, f"{names} (there is {self.pressed()})")
        time.sleep(0.2)
        self.assertEqual(self.pressed(), names)

    def test_a_press_opens_its_item_and_a_duplicate_of_our_own_is_a_conflict(self):
        self.start()
        report = hotkeys()
        self.assertEqual(report["conflicts"], [{"shortcut": "⌥⌘E", "item": "00000000-0000-0000-0000-000000000004", "title": "zed.desktop"}])
        self.assertEqual([entry["shortcut"] for entry in report["registrations"]], ["⌥⌘E", "⌘Z", "F5", "⌥⌘S"])
        self.assertIn("Alt+Super+E         one.desktop\n", zv("hotkeys"))
        self.keyboard.press(SUPER, ALT, E)
        self.expect(["one"])
        self.keyboard.press(F5)
        self.expect(["one", "plain"])

    def test_the_shortcut_of_a_folder_opens_it_at_the_pointer_ready_for_the_keyboard(self):
        self.start()
        path = launcher("filed")
        os.rename(path, os.path.join(FOLDER, "filed.desktop"))
        self.addCleanup(os.remove, os.path.join(FOLDER, "filed.desktop"))
        desktop.write(os.path.join(FOLDER, "later.txt"))  # a second row: a lower window would not count as a menu
        self.addCleanup(os.remove, os.path.join(FOLDER, "later.txt"))
        subprocess.run(["xdotool", "mousemove", "600", "300"], check=True)
        self.keyboard.press(SUPER, ALT, S)
        self.assertEqual(wait_until(windows, 5, "the folder's menu")[0][:2], (600, 300))
        desktop.keys("Return")  # its first entry is selected
        self.expect(["filed"])

    def test_what_another_program_holds_is_a_conflict_until_it_leaves(self):
        with KeyGrab(Z, SUPER_BIT):
            self.start()
            self.assertIn("⌘Z", shortcuts("conflicts"))
            self.assertNotIn("⌘Z", shortcuts())

        desktop.import_menu(self.menu[:3])  # a change of the menu is a pass
        wait_until(lambda: shortcuts("conflicts") == [], 5, "the end of the conflict")
        self.keyboard.press(SUPER, Z)
        self.expect(["zed"])

    def test_a_pre_scan_switched_on_finds_the_shortcuts_below_the_menus_folders(self):
        self.start()
        below = os.path.join(FOLDER, "Below")
        os.makedirs(below, exist_ok=True)
        path = launcher("deep")
        os.rename(path, os.path.join(below, "Deep-*[cmd+opt+Y]*.desktop"))
        os.symlink(FOLDER, os.path.join(below, "Up"))
        self.addCleanup(shutil.rmtree, below)
        self.addCleanup(zv, "prefs", "reset", "HotkeyPrescanDepth")
        zv("prefs", "write", "HotkeyPrescanDepth", "1")
        time.sleep(0.5)
        self.assertNotIn("⌥⌘Y", shortcuts(), "it is a level further down")
        zv("prefs", "write", "HotkeyPrescanDepth", "3")
        wait_until(lambda: shortcuts().count("⌥⌘Y") == 1, 5, "the file's shortcut, once")
        self.keyboard.press(SUPER, ALT, Y)
        self.expect(["deep"])

    def test_an_open_menu_takes_shortcuts_in_a_layout_without_their_letters(self):
        self.start()
        subprocess.run(["setxkbmap", "ru"], check=True)
        time.sleep(0.3)
        zv("show", "--at", "100,100")
        wait_until(windows, 5, "the menu")
        self.keyboard.press(SUPER, ALT, E)
        self.expect(["one"])
        self.assertEqual(windows(), [])

    def test_a_german_layout_moves_z(self):
        self.start()
        before = hotkeys()["registrations"][0]["id"]
        subprocess.run(["setxkbmap", "de"], check=True)
        wait_until(lambda: hotkeys()["registrations"][0]["id"] > before, 5, "a new pass")
        self.keyboard.press(SUPER, Z)
        self.keyboard.press(SUPER, Y)
        self.expect(["zed"])

    def test_a_file_renamed_to_carry_a_shortcut_has_it_once_its_folder_was_opened(self):
        self.start()
        path = launcher("filed")
        filed = os.path.join(FOLDER, "Filed-*[cmd+opt+Y]*.desktop")
        os.rename(path, filed)
        self.addCleanup(os.remove, filed)
        self.keyboard.press(SUPER, ALT, Y)
        zv("show", "--at", "100,100")
        wait_until(windows, 5, "the menu")
        for _ in range(8):
            self.keyboard.press(DOWN)
            self.keyboard.press(RIGHT)  # acts on the folder alone
            time.sleep(0.2)
            if len(windows()) == 2:
                break
        wait_until(lambda: "⌥⌘Y" in shortcuts(), 5, "the file's shortcut")
        desktop.close_menus()
        self.assertEqual(self.pressed(), [])
        self.keyboard.press(SUPER, ALT, Y)
        self.expect(["filed"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
