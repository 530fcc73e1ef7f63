#!/usr/bin/python3
"""Uses the overlay as a person at the desktop does. Runs inside tests/desktop/session:
overlay_test.py PROBE [the unittest arguments]. Pictures go to $ZV_PICTURES if that is set."""

import os
import queue
import re
import subprocess
import sys
import threading
import time
import unittest

PROBE = None
AUTOHIDE = os.environ.get("AUTOHIDE", "0") != "0"


def run(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout


def wait_for(condition, seconds=5.0):
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        value = condition()
        if value:
            return value
        time.sleep(0.02)
    return condition()


class Program:
    """The probe, its commands and what it says."""

    def __init__(self, *arguments):
        self.process = subprocess.Popen([PROBE, *arguments], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True, bufsize=1)
        self.lines = queue.Queue()
        threading.Thread(target=self._read, daemon=True).start()

    def _read(self):
        for line in self.process.stdout:
            self.lines.put(line.strip())

    def tell(self, command):
        self.process.stdin.write(command + "\n")
        self.process.stdin.flush()

    def hear(self, seconds=3.0):
        try:
            return self.lines.get(timeout=seconds)
        except queue.Empty:
            return None

    def frames(self):
        self.tell("frames")
        numbers = [int(n) for n in self.hear().split()[1:]]
        return [tuple(numbers[i:i + 4]) for i in range(0, len(numbers), 4)]

    def end(self):
        self.process.terminate()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()


def move(x, y):
    run("xdotool", "mousemove", str(x), str(y))


def click(x, y, button=1):
    move(x, y)
    run("xdotool", "click", str(button))


def screenshot(name, crop=None):
    """The pixels of the part as rows of (red, green, blue)."""
    folder = os.environ.get("ZV_PICTURES", os.environ["HOME"])
    path = os.path.join(folder, name + ".png")
    run("import", "-window", "root", *(["-crop", crop, "+repage"] if crop else []), path)
    rows = {}
    for line in run("convert", path, "-depth", "8", "txt:").splitlines():
        found = re.match(r"(\d+),(\d+): \((\d+),(\d+),(\d+)", line)
        if found:
            x, y, *color = map(int, found.groups())
            rows.setdefault(y, []).append(tuple(color))
    return [rows[y] for y in sorted(rows)]


BANDS = {"green": (94, 189, 62), "yellow": (255, 185, 0), "orange": (247, 130, 0), "red": (226, 56, 56), "purple": (151, 57, 153), "blue": (0, 156, 223)}


def bands_in(rows):
    """The bands' names from the top down, each where its colour first stands out."""
    found = []
    for row in rows:
        for pixel in row:
            for name, color in BANDS.items():
                if name not in found and all(abs(a - b) < 26 for a, b in zip(pixel, color)):
                    found.append(name)
    return found


class OverlayTest(unittest.TestCase):
    CORNER = (0, 773, 44, 28)  # the panel is 27 pixels high with its border

    def setUp(self):
        self.others = []
        move(600, 400)
        self.program = Program()
        self.assertEqual(self.program.hear(), "ready")

    def tearDown(self):
        for other in self.others:
            other.terminate()
            other.wait()
        self.program.end()
        move(600, 400)

    def open_window(self, title):
        self.others.append(subprocess.Popen(["xev", "-name", title, "-geometry", "300x200+400+300"], stdout=subprocess.DEVNULL))
        window = wait_for(lambda: run("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split())
        run("xdotool", "windowactivate", "--sync", window[0])
        return window[0]


@unittest.skipIf(AUTOHIDE, "the panel is there all the time")
class OnAPanel(OverlayTest):
    def test_either_button_anywhere_on_the_corner_opens_the_menu_below_it(self):
        self.assertEqual(self.program.frames(), [self.CORNER])
        for x, y, button in [(0, 0, 1), (43, 26, 1), (20, 13, 3), (3, 20, 3)]:
            click(x, y, button)
            self.assertEqual(self.program.hear(), "click 0 767", (x, y, button))
        click(20, 13, 4)
        click(45, 13)
        self.assertIsNone(self.program.hear(0.5), "neither the wheel nor a click beside it")
        run("xdotool", "key", "Escape")

    def test_the_focus_stays_where_it_was(self):
        self.open_window("focused")
        before = run("xdotool", "getwindowfocus"), run("xdotool", "getactivewindow")
        for button in (1, 3):
            click(10, 10, button)
            self.assertEqual(self.program.hear(), "click 0 767")
        self.assertEqual((run("xdotool", "getwindowfocus"), run("xdotool", "getactivewindow")), before)

    def test_a_menu_that_opens_has_the_pointer(self):
        self.program.tell("menu on")
        click(10, 10)
        self.assertEqual(self.program.hear(), "click 0 767")
        time.sleep(0.3)
        click(20, 45)
        self.assertEqual({self.program.hear(), self.program.hear()}, {"chosen", "closed"})
        click(10, 10)
        self.assertEqual(self.program.hear(), "click 0 767")
        time.sleep(0.3)
        click(10, 10)
        self.assertEqual(self.program.hear(), "closed", "a second click closes it")
        self.assertIsNone(self.program.hear(0.3))

    def test_a_full_screen_window_hides_it_and_it_returns(self):
        self.open_window("wide")
        run("wmctrl", "-r", "wide", "-b", "add,fullscreen")
        self.assertTrue(wait_for(lambda: self.program.frames() == []))
        click(10, 10)
        self.assertIsNone(self.program.hear(0.3))
        self.assertNotIn("green", bands_in(screenshot("full-screen", "44x27+0+0")))
        run("wmctrl", "-r", "wide", "-b", "remove,fullscreen")
        self.assertTrue(wait_for(lambda: self.program.frames() == [self.CORNER], 2))
        click(10, 10)
        self.assertEqual(self.program.hear(), "click 0 767")
        self.assertTrue(wait_for(lambda: len(bands_in(screenshot("after-full-screen", "44x27+0+0"))) == 6))

    def test_it_returns_with_a_panel_that_was_restarted(self):
        run("xfce4-panel", "--quit")
        self.assertTrue(wait_for(lambda: self.program.frames() == []))
        OverlayTest.panel = subprocess.Popen(["xfce4-panel"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env={**os.environ, "NO_AT_BRIDGE": "1"})
        self.assertTrue(wait_for(lambda: self.program.frames() == [self.CORNER], 10))
        click(10, 10)
        self.assertEqual(self.program.hear(), "click 0 767")
        self.assertTrue(wait_for(lambda: len(bands_in(screenshot("restarted", "44x27+0+0"))) == 6))

    def test_the_preference_takes_it_away_and_brings_it_back(self):
        self.program.tell("replace off")
        self.assertEqual(self.program.frames(), [])
        click(10, 10)
        self.assertIsNone(self.program.hear(0.3), "the panel's own button gets it")
        run("xdotool", "key", "Escape")
        self.program.tell("replace on")
        self.assertEqual(self.program.frames(), [self.CORNER])
        click(10, 10)
        self.assertEqual(self.program.hear(), "click 0 767")

    def test_the_logo_stands_in_six_bands_in_place_of_the_panels_picture(self):
        move(600, 400)
        self.assertTrue(wait_for(lambda: bands_in(screenshot("logo", "44x27+0+0")) == list(BANDS)))
        self.program.tell("logo off")
        self.assertTrue(wait_for(lambda: "green" not in bands_in(screenshot("logo-off", "44x27+0+0"))))
        self.program.tell("logo on")
        self.assertTrue(wait_for(lambda: bands_in(screenshot("logo-again", "44x27+0+0")) == list(BANDS)))

    def test_the_logos_ground_is_the_panels_also_where_the_pointer_lights_it_up(self):
        self.assertTrue(wait_for(lambda: len(bands_in(screenshot("ground", "44x27+0+0"))) == 6))
        for name, pointer in [("ground-plain", (600, 400)), ("ground-lit", (60, 10))]:
            move(*pointer)
            time.sleep(0.6)
            rows = screenshot(name, "44x27+0+0")
            for y in range(7, 10):  # beside the topmost leaf
                self.assertEqual(rows[y][5], rows[y][18], f"{name}, row {y}: beneath the logo and right of it")

    def test_each_monitor_has_its_own(self):
        run("xrandr", "--setmonitor", "A", "640/100x800/100+0+0", "screen")
        run("xrandr", "--setmonitor", "B", "640/100x800/100+640+0", "none")
        try:
            time.sleep(1)
            second = Program("dock", "640", "0", "640", "30")
            self.others.append(second.process)
            self.assertTrue(wait_for(lambda: self.program.frames() == [self.CORNER, (640, 770, 44, 31)]), self.program.frames())
            click(650, 10)
            self.assertEqual(self.program.hear(), "click 640 764")
            click(10, 10)
            self.assertEqual(self.program.hear(), "click 0 767")
            second.end()
            self.others.remove(second.process)
            self.assertTrue(wait_for(lambda: self.program.frames() == [self.CORNER]))
        finally:
            run("xrandr", "--delmonitor", "B")
            run("xrandr", "--delmonitor", "A")
            time.sleep(1)

    def test_assistive_programs_find_and_press_it(self):
        import pyatspi

        def find():
            for application in pyatspi.Registry.getDesktop(0):
                if application and application.name == "overlay_probe":
                    return next((child for child in application if child and child.name == "Zanthe Vell"), None)
            return None

        item = wait_for(find)
        self.assertIsNotNone(item)
        self.assertEqual(item.getRole(), pyatspi.ROLE_MENU_ITEM)
        extents = item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.assertEqual((extents.x, extents.y, extents.width, extents.height), (0, -1, 44, 28))
        actions = item.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        actions.doAction(names.index("Press"))
        self.assertEqual(self.program.hear(), "click 0 767")


@unittest.skipUnless(AUTOHIDE, "needs a panel that hides itself")
class OnAPanelThatHides(OverlayTest):
    def test_it_comes_with_the_panel_stays_under_the_pointer_and_goes_with_it(self):
        self.assertTrue(wait_for(lambda: self.program.frames() == []))
        move(600, 0)
        self.assertTrue(wait_for(lambda: self.program.frames() == [self.CORNER]))
        self.assertTrue(wait_for(lambda: len(bands_in(screenshot("slid-in", "44x27+0+0"))) == 6))
        move(10, 10)
        for _ in range(40):
            self.assertEqual(self.program.frames(), [self.CORNER], "the panel must not take the pointer for gone")
            time.sleep(0.05)
        click(10, 10)
        self.assertEqual(self.program.hear(), "click 0 767")
        move(600, 400)
        self.assertTrue(wait_for(lambda: self.program.frames() == []))

    def test_it_is_under_the_pointer_that_calls_the_panel_at_the_corner(self):
        self.assertTrue(wait_for(lambda: self.program.frames() == []))
        move(0, 0)
        self.assertTrue(wait_for(lambda: self.program.frames() == [self.CORNER]))
        for _ in range(40):
            self.assertEqual(self.program.frames(), [self.CORNER])
            time.sleep(0.05)
        click(0, 0)
        self.assertEqual(self.program.hear(), "click 0 767")


if __name__ == "__main__":
    PROBE = sys.argv.pop(1)
    os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"
    unittest.main(verbosity=2)
