#!/usr/bin/python3
"""The lists of what the machine has, in the running program. tests/desktop/run lists."""

import os
import subprocess
import unittest

import desktop
from desktop import HOME, Bus, BusMenu, Program, output, wait_until, write

APPLICATIONS = os.path.join(HOME, ".local/share/applications")


def open_window(name, x=100):
    """A window of an application of that name: its process and its number."""
    process = subprocess.Popen(["xev", "-name", name, "-geometry", f"300x200+{x}+300"], stdout=subprocess.DEVNULL)
    window = wait_until(lambda: output("xdotool", "search", "--onlyvisible", "--name", f"^{name}$").strip())
    output("xprop", "-id", window, "-f", "WM_CLASS", "8s", "-set", "WM_CLASS", name)
    return process, window


class ListsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        write(os.path.join(APPLICATIONS, "first.desktop"), "[Desktop Entry]\nType=Application\nName=First Thing\nName[en]=First Thing\nExec=xev -name first\n"
              "StartupWMClass=first\nIcon=utilities-terminal\n")
        for name, program in (("display", "no-such-program-zv"), ("mouse", "sh")):
            write(os.path.join(APPLICATIONS, f"xfce-{name}.desktop"), f"[Desktop Entry]\nType=Application\nName=The {name}\nExec={program}\nTryExec={program}\n"
                  "Categories=XFCE;Settings;X-XFCE-SettingsDialog;\nOnlyShowIn=XFCE;\n")
        desktop.set_menu([(kind, None, None) for kind in ("RunningApplications", "MountedVolumes", "IPAddress", "SystemPrefs")])
        first, cls.first = open_window("first")
        second, cls.second = open_window("second", 500)
        cls.started = [first, second]
        cls.enterClassContext(Program())
        bus = Bus()
        cls.menu = BusMenu(bus, wait_until(bus.items, 10, "its icon")[0])

    @classmethod
    def tearDownClass(cls):
        for process in cls.started:
            process.terminate()
            process.wait()

    def open(self, *titles):
        """Opens the submenus one within the other; gives the last one's number."""
        number = 0
        self.menu.about_to_show()
        for title in titles:
            number = wait_until(lambda: self.entries(number).get(title))[0]
            self.menu.about_to_show(number)
        return number

    def entries(self, number):
        """Title to (number, properties)."""
        return {each[1]["label"].replace("__", "_"): each for each in self.menu.entries(number)}

    def entries_when(self, expected, *titles):
        number = self.open(*titles)
        return wait_until(lambda: expected in self.entries(number) and self.entries(number), 5, expected)

    def test_running_applications_are_listed_by_name_and_come_to_the_front_when_chosen(self):
        entries = self.entries_when("First Thing", "Running Applications")
        self.assertNotIn("Zanthe Vell", entries, "not ourselves")
        self.assertFalse([title for title in entries if "panel" in title.lower()], "a panel is no application")
        output("xdotool", "windowactivate", "--sync", self.second)
        self.menu.choose(entries["First Thing"][0])
        wait_until(lambda: output("xdotool", "getactivewindow").strip() == self.first, 5, "it comes to the front")

    def test_an_application_that_has_ended_is_gone_the_next_time(self):
        third, _ = open_window("third")
        try:
            self.entries_when("third", "Running Applications")
        finally:
            third.terminate()
            third.wait()
        wait_until(lambda: "third" not in self.entries(self.open("Running Applications")), 5, "it is gone")

    def test_volumes_open_as_submenus(self):
        root = self.entries_when("File System", "Mounted Volumes")
        title = next(iter(root))
        self.assertEqual(root[title][1].get("children-display"), "submenu")
        self.entries_when("usr", "Mounted Volumes", title)

    def test_addresses_are_this_machines(self):
        expected = output("hostname", "-I").split()
        number = self.open("IP Address")
        wait_until(lambda: "Loading…" not in self.entries(number))
        shown = [title.split(" — ")[0] for title in self.entries(number)]
        self.assertEqual(sorted(shown), sorted(expected) if expected else ["No Items"])

    def test_a_settings_pane_that_cannot_open_says_why(self):
        entries = self.entries_when("The mouse", "System Settings")
        number = entries["The display"][0]
        self.assertIn("no-such-program-zv is not installed.", self.entries(number), "menus on the bus have no tool tips")


if __name__ == "__main__":
    unittest.main(verbosity=2)
