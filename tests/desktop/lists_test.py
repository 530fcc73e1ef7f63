#!/usr/bin/python3
"""The lists of what the machine has, in the running program. tests/desktop/run lists."""

import os
import plistlib
import subprocess
import time
import unittest

from gi.repository import Gio, GLib

PROGRAM = os.environ["ZV_PROGRAM"]
HOME = os.environ["HOME"]
APPLICATIONS = os.path.join(HOME, ".local/share/applications")
WATCHER = "org.kde.StatusNotifierWatcher"


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout.strip()


def wait_for(condition, seconds=5.0):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.05)
    return condition()


def write(path, text):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)


class BusMenu:
    """The menu as a desktop reads it that draws it itself."""

    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.owner = wait_for(self.item, 10)

    def ask(self, name, path, interface, method, arguments):
        return self.bus.call_sync(name, path, interface, method, arguments, None, Gio.DBusCallFlags.NONE, 5000, None).unpack()

    def item(self):
        try:
            items = self.ask(WATCHER, "/StatusNotifierWatcher", "org.freedesktop.DBus.Properties", "Get",
                             GLib.Variant("(ss)", (WATCHER, "RegisteredStatusNotifierItems")))[0]
        except GLib.Error:
            return None
        return items[0].split("/")[0] if items else None

    def call(self, method, arguments):
        return self.ask(self.owner, "/StatusNotifierItem/Menu", "com.canonical.dbusmenu", method, arguments)

    def open(self, *titles):
        """Opens the submenus one within the other; gives the last one's number."""
        number = 0
        self.call("AboutToShow", GLib.Variant("(i)", (0,)))
        for title in titles:
            number = wait_for(lambda: self.entries(number).get(title))[0]
            self.call("AboutToShow", GLib.Variant("(i)", (number,)))
        return number

    def entries(self, number):
        """Title to (number, properties)."""
        layout = self.call("GetLayout", GLib.Variant("(iias)", (number, 1, [])))[1]
        return {child[1].get("label", "-").replace("__", "_"): (child[0], child[1]) for child in layout[2]}

    def choose(self, number):
        self.call("Event", GLib.Variant("(isvu)", (number, "clicked", GLib.Variant("i", 0), 0)))


class ListsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        write(os.path.join(APPLICATIONS, "first.desktop"), "[Desktop Entry]\nType=Application\nName=First Thing\nName[en]=First Thing\nExec=xev -name first\n"
              "StartupWMClass=first\nIcon=utilities-terminal\n")
        for name, program in (("display", "no-such-program-zv"), ("mouse", "sh")):
            write(os.path.join(APPLICATIONS, f"xfce-{name}.desktop"), f"[Desktop Entry]\nType=Application\nName=The {name}\nExec={program}\nTryExec={program}\n"
                  "Categories=XFCE;Settings;X-XFCE-SettingsDialog;\nOnlyShowIn=XFCE;\n")
        document = os.path.join(HOME, "menu.plist")
        with open(document, "wb") as file:
            plistlib.dump({"MenuDesc": [{"Kind": kind} for kind in ("RunningApplications", "MountedVolumes", "IPAddress", "SystemPrefs")]}, file)
        run(PROGRAM, "import", document)
        cls.started = [subprocess.Popen(["xev", "-name", name, "-geometry", f"300x200+{x}+300"], stdout=subprocess.DEVNULL)
                       for name, x in (("first", 100), ("second", 500))]
        cls.windows = {name: wait_for(lambda: run("xdotool", "search", "--onlyvisible", "--name", f"^{name}$")) for name in ("first", "second")}
        for name, window in cls.windows.items():
            run("xprop", "-id", window, "-f", "WM_CLASS", "8s", "-set", "WM_CLASS", name)
        cls.started.append(subprocess.Popen([PROGRAM]))
        cls.menu = BusMenu()

    @classmethod
    def tearDownClass(cls):
        for process in cls.started:
            process.terminate()
            process.wait()

    def entries_when(self, expected, *titles):
        number = self.menu.open(*titles)
        wait_for(lambda: expected in self.menu.entries(number))
        return self.menu.entries(number)

    def test_running_applications_are_listed_by_name_and_come_to_the_front_when_chosen(self):
        entries = self.entries_when("First Thing", "Running Applications")
        self.assertIn("First Thing", entries)
        self.assertNotIn("Zanthe Vell", entries, "not ourselves")
        self.assertFalse([title for title in entries if "panel" in title.lower()], "a panel is no application")
        run("xdotool", "windowactivate", "--sync", self.windows["second"])
        self.menu.choose(entries["First Thing"][0])
        self.assertTrue(wait_for(lambda: run("xdotool", "getactivewindow") == self.windows["first"]))

    def test_an_application_that_has_ended_is_gone_the_next_time(self):
        third = subprocess.Popen(["xev", "-name", "third"], stdout=subprocess.DEVNULL)
        try:
            window = wait_for(lambda: run("xdotool", "search", "--onlyvisible", "--name", "^third$"))
            run("xprop", "-id", window, "-f", "WM_CLASS", "8s", "-set", "WM_CLASS", "third")
            self.assertIn("third", self.entries_when("third", "Running Applications"))
        finally:
            third.terminate()
            third.wait()
        self.assertTrue(wait_for(lambda: "third" not in self.menu.entries(self.menu.open("Running Applications"))))

    def test_volumes_open_as_submenus(self):
        root = self.entries_when("File System", "Mounted Volumes")
        title = next(iter(root))
        self.assertEqual(root[title][1].get("children-display"), "submenu")
        self.assertIn("usr", self.entries_when("usr", "Mounted Volumes", title))

    def test_addresses_are_this_machines(self):
        expected = run("hostname", "-I").split()
        number = self.menu.open("IP Address")
        wait_for(lambda: "Loading…" not in self.menu.entries(number))
        shown = [title.split(" — ")[0] for title in self.menu.entries(number)]
        self.assertEqual(sorted(shown), sorted(expected) if expected else ["No Items"])

    def test_a_settings_pane_that_cannot_open_says_why(self):
        entries = self.entries_when("The mouse", "System Settings")
        self.assertIn("The mouse", entries)
        number = entries["The display"][0]
        self.assertIn("no-such-program-zv is not installed.", self.menu.entries(number), "menus on the bus have no tool tips")


if __name__ == "__main__":
    unittest.main(verbosity=2)
