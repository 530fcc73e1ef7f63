"""The menu on a desktop: icon, windows, bus, panels that come and go, bad weather."""

import os
import subprocess
import time
import unittest

import pyatspi
from gi.repository import GLib

import desktop
from accessible import found
from desktop import Bus, BusMenu, Panel, Program, click, keys, open_by_icon, wait_until, windows, write, zv

HOME = desktop.HOME
FOLDER = os.path.join(HOME, "Folder")
LAUNCHED = os.path.join(HOME, "launched")


class MenuTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        for name in ("apple.txt", "banana.txt", "R&D _x_.txt"):
            write(os.path.join(FOLDER, name))
        for name in ("deep.txt", "deeper.txt", "deepest.txt"):
            write(os.path.join(FOLDER, "Inner", name))
        entry = desktop.launcher("Launch", f"touch {LAUNCHED}", "Icon=utilities-terminal\n")
        desktop.set_menu([("FSObject", "Folder", FOLDER), ("Separator", None, None), ("FSObject", "Launch", entry), ("Sleep", None, None)])
        zv("prefs", "write", "ReplaceAppleMenu", "false")

    def setUp(self):
        self.bus = Bus()
        if os.path.exists(LAUNCHED):
            os.remove(LAUNCHED)

    def item(self):
        name = wait_until(self.bus.items, 5, "an icon in the panel")[0]
        time.sleep(0.3)  # the panel knows the icon; now it draws it
        return name

    def test_the_icon_opens_the_menu_in_which_an_entry_is_chosen(self):
        with Panel(), Program():
            self.item()
            x, y, width, height = open_by_icon()[0]
            self.assertGreaterEqual(y, 25, "the menu leaves the panel in sight")
            self.assertLessEqual(x + width, 1280, "and stays on the screen")
            keys("Down", "Right")
            wait_until(lambda: len(windows()) == 2, 3, "the folder's submenu")
            keys("Right")
            wait_until(lambda: len(windows()) == 3, 3, "the folder within")
            desktop.close_menus()

            open_by_icon()
            subprocess.run(["xdotool", "type", "--delay", "30", "lau"], check=True)
            keys("Return")
            wait_until(lambda: os.path.exists(LAUNCHED), 5, "what was typed and chosen runs")
            self.assertEqual(windows(), [])

    def test_a_file_is_dragged_from_an_entry_to_a_folder(self):
        self.addCleanup(lambda: os.rename(os.path.join(FOLDER, "Inner", "banana.txt"), os.path.join(FOLDER, "banana.txt")))
        with Panel(), Program():
            self.item()
            menu = open_by_icon()[0]
            keys("Down", "Right")
            left, top, _, height = wait_until(lambda: [each for each in windows() if each != menu], 3, "the folder's submenu")[0]
            (x, y), to = [(left + 60, top + height * (2 * row + 1) // 8) for row in (2, 0)]  # banana.txt and Inner, of four
            subprocess.run(["xdotool", "mousemove", str(x), str(y), "mousedown", "1"], check=True)
            for step in range(1, 11):
                place = [start + (end - start) * step // 10 for start, end in zip((x, y), to)]
                subprocess.run(["xdotool", "mousemove", *map(str, place)], check=True)
                time.sleep(0.03)
            time.sleep(0.2)
            subprocess.run(["xdotool", "mouseup", "1"], check=True)
            wait_until(lambda: os.path.exists(os.path.join(FOLDER, "Inner", "banana.txt")), 5, "it is moved there")
            wait_until(lambda: windows() == [], 3, "and the menu closes")

    def test_a_button_that_is_held_leaves_the_menu_usable(self):
        with Panel(), Program():
            self.item()
            open_by_icon()
            desktop.close_menus()
            subprocess.run(["xdotool", "mousemove", *map(str, Panel.ICON), "mousedown", "1"], check=True)
            time.sleep(0.5)
            subprocess.run(["xdotool", "mouseup", "1"], check=True)
            wait_until(windows, 3, "the menu")
            time.sleep(0.2)
            click(200, 500)
            wait_until(lambda: not windows(), 3, "the menu closes")

    def test_the_bus_serves_the_same_menu_lazily(self):
        with Panel(), Program():
            menu = BusMenu(self.bus, self.item())
            self.assertTrue(menu.about_to_show())
            self.assertEqual(menu.titles(), desktop.menu_titles())
            folder = menu.number("Folder")
            self.assertEqual(menu.titles(folder), ["Loading…"])
            menu.updates_so_far().clear()
            self.assertTrue(menu.about_to_show(folder))
            self.assertEqual(menu.titles(folder), ["Inner", "apple.txt", "banana.txt", "R&D __x__.txt"])
            self.assertEqual([update[1] for update in menu.updates_so_far()], [folder])
            write(os.path.join(FOLDER, "cherry.txt"))
            self.addCleanup(os.remove, os.path.join(FOLDER, "cherry.txt"))
            menu.about_to_show(folder)
            self.assertIn("cherry.txt", menu.titles(folder), "the next opening sees what has changed")
            menu.choose(menu.number("Launch"))
            wait_until(lambda: os.path.exists(LAUNCHED), 5, "what was chosen runs")

    def test_a_right_click_lets_the_panel_draw_the_menu(self):
        with Panel(), Program():
            self.item()
            open_by_icon()
            desktop.close_menus()

            click(*Panel.ICON, button=3)
            wait_until(lambda: windows("wrapper-2.0"), 5, "the panel's own drawing of the menu")
            keys("Escape")
            self.assertEqual(windows(), [])

    def test_what_stands_for_the_option_key_brings_the_commands_it_brings(self):
        ways = {
            "Shift and a click": ("Shift_L", lambda: click(*Panel.ICON)),
            "Alt": ("Alt_L", lambda: zv("show", "--at", "300,100")),
            "a middle click": (None, lambda: click(*Panel.ICON, button=2)),
        }
        with Panel(), Program():
            self.item()
            plain = open_by_icon()[0][3]
            desktop.close_menus()
            for name, (key, opens) in ways.items():
                with self.subTest(name):
                    try:
                        subprocess.run(["xdotool", "keydown" if key else "sleep", key or "0"], check=True)
                        opens()
                        height = wait_until(windows, 3, "the menu")[0][3]
                    finally:
                        subprocess.run(["xdotool", "keyup" if key else "sleep", key or "0"], check=True)
                    self.assertGreater(height, plain + 30, "with two commands more")
                    wait_until(lambda: [high for *_, high in windows()] == [height], 3, "the same menu after letting go of the key")
                    desktop.close_menus()

    def test_the_icon_comes_whenever_a_panel_does(self):
        with Program() as program:
            wait_until(lambda: self.bus.has_owner(desktop.NAME), 5, "the program runs without a panel")
            zv("show", "--at", "300,300")
            wait_until(windows, 3, "without a panel the menu opens, too")
            desktop.close_menus()
            for _ in range(2):
                with Panel():
                    self.item()
                    open_by_icon()
                    desktop.close_menus()
            self.assertTrue(program.is_running())

    def test_bad_weather(self):
        with self.subTest("no session bus"), Program(DBUS_SESSION_BUS_ADDRESS=None, XDG_RUNTIME_DIR=os.path.join(HOME, "empty")) as program:
            time.sleep(0.7)
            self.assertTrue(program.is_running(), program.said())
            with Program(DBUS_SESSION_BUS_ADDRESS=None, XDG_RUNTIME_DIR=os.path.join(HOME, "empty")) as second:
                self.assertEqual(second.ends(), 1, "the lock file tells that it runs")
        for name, environment in {
            "an X server that does not answer": {"DISPLAY": ":987"},
            "a Wayland that does not answer": {"DISPLAY": None, "WAYLAND_DISPLAY": "wayland-none"},
            "one that was asked for": {"DISPLAY": None, "WAYLAND_DISPLAY": "wayland-none", "QT_QPA_PLATFORM": "wayland"},
        }.items():
            with self.subTest(name), Program(**environment) as program:
                self.assertEqual(program.ends(), 1)
        with self.subTest("no icon theme"), Panel(), Program(XDG_DATA_DIRS="/nonexistent") as program:
            menu = BusMenu(self.bus, self.item())
            menu.about_to_show()
            self.assertIn("Folder", menu.titles(), "the menu on the bus serves")
            self.assertTrue(program.is_running(), program.said())

    def test_the_menu_is_dark_on_a_dark_desktop(self):
        portal = ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop")
        mock = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--session", *portal, "org.freedesktop.portal.Settings"],
                                stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            wait_until(lambda: self.bus.has_owner(portal[0]), 10, "the portal")
            self.bus.call(*portal, "org.freedesktop.DBus.Mock", "AddMethod",
                          GLib.Variant("(sssss)", ("org.freedesktop.portal.Settings", "Read", "ss", "v", "ret = dbus.UInt32(1, variant_level=1)")))
            with Program():
                wait_until(lambda: self.bus.has_owner(desktop.NAME))
                zv("show", "--at", "300,300")
                x, y, width, height = wait_until(windows)[0]
                wait_until(lambda: desktop.brightness(x, y, width, height) < 0.4, 3, "dark colours")
                desktop.close_menus()
        finally:
            mock.terminate()
            mock.wait()

    def test_assistive_tools_see_the_open_menu(self):
        with Program(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE=None):
            wait_until(lambda: self.bus.has_owner(desktop.NAME))
            zv("show", "--at", "300,300")
            wait_until(windows)
            for title in desktop.menu_titles():
                found(title, pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_MENU)
            found("Zanthe Vell", pyatspi.ROLE_POPUP_MENU)
            self.assertTrue(found("Folder", pyatspi.ROLE_MENU_ITEM).getState().contains(pyatspi.STATE_EXPANDABLE))
            subprocess.run(["xdotool", "type", "lau"], check=True)
            found("lau: 1 match", pyatspi.ROLE_NOTIFICATION)
            subprocess.run(["xdotool", "key", "Escape", "type", "deepest"], check=True)
            found("deepest: 1 match", pyatspi.ROLE_NOTIFICATION)
            found("deepest.txt, in Folder, Inner", pyatspi.ROLE_MENU_ITEM)
            desktop.close_menus()


if __name__ == "__main__":
    unittest.main(verbosity=1)
