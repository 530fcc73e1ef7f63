#!/usr/bin/python3
"""Uses the corner of the panel as a person at the desktop does. tests/desktop/run
overlay; pictures go to $ZV_PICTURES if that is set."""

import ctypes
import os
import re
import subprocess
import time
import unittest

os.environ["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1"

from desktop import HOME, NAME, Bus, Program, click, close_menus, keys, launcher, output, set_menu, wait_until, windows, zv  # noqa: E402

AUTOHIDE = os.environ.get("AUTOHIDE", "0") != "0"
PANEL_HEIGHT = 27  # with its border
OVERLAY_WIDTH = 44
GAP = 6  # between the overlay and its menu
CHOSEN = os.path.join(HOME, "chosen")


def move(x, y):
    output("xdotool", "mousemove", str(x), str(y))


def screenshot(name, crop=f"{OVERLAY_WIDTH}x{PANEL_HEIGHT}+0+0"):
    """The pixels of the part as rows of (red, green, blue)."""
    path = os.path.join(os.environ.get("ZV_PICTURES", HOME), name + ".png")
    output("import", "-window", "root", "-crop", crop, "+repage", path)
    rows = {}
    for line in output("convert", path, "-depth", "8", "txt:").splitlines():
        found = re.match(r"(\d+),(\d+): \((\d+),(\d+),(\d+)", line)
        if found:
            _, y, *color = map(int, found.groups())
            rows.setdefault(y, []).append(tuple(color))
    return [rows[y] for y in sorted(rows)]


BANDS = {"green": (94, 189, 62), "yellow": (255, 185, 0), "orange": (247, 130, 0), "red": (226, 56, 56), "purple": (151, 57, 153), "blue": (0, 156, 223)}


def bands_of(row):
    return [band for band, color in BANDS.items() if any(all(abs(a - b) < 26 for a, b in zip(pixel, color)) for pixel in row)]


def bands(name):
    """The bands' names from the top down, each where its colour first stands out."""
    return list(dict.fromkeys(band for row in screenshot(name) for band in bands_of(row)))


def panel_top():
    """Where the panel's upper edge is; it goes up when it hides. Nothing without a panel."""
    tops = [int(line.split()[3]) for line in output("wmctrl", "-lG").splitlines() if line.split()[5] == str(PANEL_HEIGHT)]
    return tops[0] if tops else None


class Dock:
    """A bare panel of another program. As long as it is, its left end is at x."""

    def __init__(self, x, width, height):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for function in ("XOpenDisplay", "XDefaultRootWindow", "XCreateSimpleWindow", "XInternAtom"):
            getattr(self.x11, function).restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        root = ctypes.c_void_p(self.x11.XDefaultRootWindow(self.display))
        window = ctypes.c_void_p(self.x11.XCreateSimpleWindow(self.display, root, x, 0, width, height, 0, 0, ctypes.c_ulong(0xD0D0D0)))
        self.set(window, b"_NET_WM_WINDOW_TYPE", b"ATOM", [self.atom(b"_NET_WM_WINDOW_TYPE_DOCK")])
        self.set(window, b"WM_NORMAL_HINTS", b"WM_SIZE_HINTS", [1, x, 0] + [0] * 15)  # 1: the user chose this place
        self.x11.XMapWindow(self.display, window)
        self.x11.XSync(self.display, 0)

    def atom(self, name):
        return self.x11.XInternAtom(self.display, name, 0)

    def set(self, window, name, kind, numbers):
        values = (ctypes.c_long * len(numbers))(*numbers)
        self.x11.XChangeProperty(self.display, window, ctypes.c_ulong(self.atom(name)), ctypes.c_ulong(self.atom(kind)), 32, 0, values, len(numbers))

    def close(self):
        self.x11.XCloseDisplay(self.display)


class OverlayTest(unittest.TestCase):
    ENVIRONMENT = {}

    def setUp(self):
        move(600, 400)
        chooser = launcher("chooser", f"touch {CHOSEN}")
        set_menu([("FSObject", "Chooser", chooser), ("FSObject", "Home", HOME)])
        self.start()
        self.addCleanup(move, 600, 400)
        self.addCleanup(close_menus)

    def start(self):
        self.program = self.enterContext(Program(**self.ENVIRONMENT))
        wait_until(lambda: Bus().has_owner(NAME), 10, "the start")

    def start_again(self):
        self.program.process.terminate()
        self.program.process.wait(10)
        self.start()

    def expect_menu(self, left=0, panel=PANEL_HEIGHT, why=None):
        """Exactly one menu, with its upper left corner where the overlay says."""
        there = wait_until(windows, 3, f"the menu ({why})")
        self.assertEqual([place[:2] for place in there], [(left, panel + GAP)], why)

    def expect_no_menu(self, why):
        time.sleep(0.4)
        self.assertEqual(windows(), [], why)

    def click_opens(self, x=10, y=10, button=1, **where):
        click(x, y, button)
        self.expect_menu(why=(x, y, button), **where)
        close_menus()

    def open_window(self, title):
        process = subprocess.Popen(["xev", "-name", title, "-geometry", "300x200+400+300"], stdout=subprocess.DEVNULL)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        window = wait_until(lambda: output("xdotool", "search", "--onlyvisible", "--name", f"^{title}$").split(), 5, "the window")
        output("xdotool", "windowactivate", "--sync", window[0])
        return window[0]

    def expect_bands(self, name):
        wait_until(lambda: bands(name) == list(BANDS), 5, "the logo")


@unittest.skipIf(AUTOHIDE, "the panel is there all the time")
class OnAPanel(OverlayTest):
    def test_either_button_anywhere_on_the_corner_opens_the_menu_below_it(self):
        for x, y, button in [(0, 0, 1), (43, 26, 1), (20, 13, 3), (3, 20, 3), (0, 26, 2)]:
            self.click_opens(x, y, button)
        click(20, 13, 4)
        self.expect_no_menu("the wheel is no click")
        click(OVERLAY_WIDTH, 13)
        self.expect_no_menu("beside it is the panel")
        keys("Escape")

    def test_the_focus_stays_where_it_was(self):
        self.open_window("focused")
        focus = lambda: (output("xdotool", "getwindowfocus"), output("xdotool", "getactivewindow"))  # noqa: E731
        before = focus()
        for button in (1, 3):
            click(10, 10, button)
            self.expect_menu()
            self.assertEqual(focus(), before, "while the menu is open")
            close_menus()
            self.assertEqual(focus(), before, "after it")

    def test_the_open_menu_has_the_pointer(self):
        click(10, 10)
        self.expect_menu()
        click(30, PANEL_HEIGHT + GAP + 14)
        wait_until(lambda: os.path.exists(CHOSEN), 5, "the first entry's program")
        self.assertEqual(windows(), [])
        click(10, 10)
        self.expect_menu()
        click(10, 10)
        wait_until(lambda: not windows(), 3, "a second click closes it")
        self.expect_no_menu("nor does it open again")

    def test_a_full_screen_window_hides_it_and_it_returns(self):
        self.open_window("wide")
        output("wmctrl", "-r", "wide", "-b", "add,fullscreen")
        wait_until(lambda: "green" not in bands("full-screen"), 3, "the end of the logo")
        click(10, 10)
        self.expect_no_menu("the window gets the click")
        output("wmctrl", "-r", "wide", "-b", "remove,fullscreen")
        self.expect_bands("after-full-screen")
        self.click_opens()

    def test_it_returns_with_a_panel_that_was_restarted(self):
        output("xfce4-panel", "--quit")
        wait_until(lambda: panel_top() is None, 5, "the end of the panel")
        click(10, 10)
        self.expect_no_menu("there is nothing")
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, "env": {**os.environ, "NO_AT_BRIDGE": "1"}}
        OverlayTest.panel = subprocess.Popen(["xfce4-panel"], **quiet)
        wait_until(lambda: panel_top() == 0, 10, "the panel")
        self.expect_bands("restarted")
        self.click_opens()

    def test_a_panel_that_grows_keeps_the_logo_in_its_place(self):
        size = lambda pixels: output("xfconf-query", "-c", "xfce4-panel", "-p", "/panels/panel-1/size", "-s", str(pixels))  # noqa: E731
        self.addCleanup(size, PANEL_HEIGHT - 1)
        self.expect_bands("before-it-grows")
        output("xfconf-query", "-c", "xfce4-panel", "-p", "/panels/panel-1/icon-size", "-s", "0")  # as large as fits
        size(40)
        wait_until(lambda: "41" in output("wmctrl", "-lG").split(), 5, "the larger panel")
        rows = lambda: [y for y, row in enumerate(screenshot("grown", "44x41+0+0")) if bands_of(row)]  # noqa: E731
        wait_until(lambda: len(rows()) > 24, 5, "a logo as large as the picture that stood there")
        self.assertAlmostEqual((rows()[0] + rows()[-1]) / 2, 20, delta=2)
        self.click_opens(10, 35, panel=41)

    def test_the_preferences_work_at_once(self):
        self.expect_bands("logo")
        zv("prefs", "write", "RainbowAppleLogo", "false")
        wait_until(lambda: "green" not in bands("logo-off"), 3, "the panel's own picture")
        self.click_opens()
        zv("prefs", "write", "RainbowAppleLogo", "true")
        self.expect_bands("logo-on")

        zv("prefs", "write", "ReplaceAppleMenu", "false")
        wait_until(lambda: "green" not in bands("replace-off"), 3, "the end of the logo")
        click(10, 10)
        self.expect_no_menu("the panel's own button gets it")
        keys("Escape")
        zv("prefs", "write", "ReplaceAppleMenu", "true")
        self.expect_bands("replace-on")
        self.click_opens()

    def test_the_logos_ground_is_the_panels_also_where_the_pointer_lights_it_up(self):
        self.expect_bands("ground")
        for name, pointer in [("ground-plain", (600, 400)), ("ground-lit", (60, 10))]:
            move(*pointer)
            time.sleep(0.6)
            rows = screenshot(name)
            for y in (3, 23):  # above and below the logo, across its background
                self.assertEqual(len(set(rows[y][8:20])), 1, f"{name}, row {y}: one colour")

    def test_each_monitor_has_its_own(self):
        output("xrandr", "--setmonitor", "A", "640/100x800/100+0+0", "screen")
        try:
            for name in ("B", "*B"):  # the second, then the first of the two
                output("xrandr", "--setmonitor", name, "640/100x800/100+640+0", "none")
                time.sleep(1)  # the panel shrinks to the first
                self.start_again()  # monitors divided by hand are not told
                second = Dock(640, 640, 30)
                wait_until(lambda: "30" in output("wmctrl", "-lG").split(), 3, "the second panel")
                time.sleep(0.3)
                self.click_opens(650, 10, left=640, panel=30)
                self.click_opens(10, 10)
                second.close()
                time.sleep(0.3)
                click(650, 10)
                self.expect_no_menu("the second panel has gone")
                self.click_opens(10, 10)
                output("xrandr", "--delmonitor", "B")
        finally:
            output("xrandr", "--delmonitor", "B")
            output("xrandr", "--delmonitor", "A")
            time.sleep(1)

    def test_assistive_programs_find_and_press_it(self):
        import pyatspi
        from accessible import found

        item = found("Zanthe Vell", pyatspi.ROLE_MENU_ITEM)
        states = item.getState()
        for state in (pyatspi.STATE_VISIBLE, pyatspi.STATE_ENABLED, pyatspi.STATE_SENSITIVE):
            self.assertTrue(states.contains(state), state)
        extents = item.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        self.assertEqual((extents.x, extents.y, extents.width, extents.height), (0, -1, OVERLAY_WIDTH, PANEL_HEIGHT + 1))
        actions = item.queryAction()
        names = [actions.getName(i) for i in range(actions.nActions)]
        actions.doAction(names.index("Press"))
        self.expect_menu()


@unittest.skipIf(AUTOHIDE, "the panel is there all the time")
class OnADesktopOfTwiceTheScale(OverlayTest):
    ENVIRONMENT = {"QT_SCALE_FACTOR": "2"}

    def test_the_corner_and_its_menu_are_where_they_should_be(self):
        self.expect_bands("scaled")
        for x in (2, 2 * OVERLAY_WIDTH - 2):
            click(x, 10)
            there = wait_until(windows, 3, "the menu")
            self.assertEqual([place[0] for place in there], [0])
            self.assertAlmostEqual(there[0][1], PANEL_HEIGHT + 2 * GAP, delta=1)  # the toolkit counts in twos
            close_menus()
        click(2 * OVERLAY_WIDTH + 2, 10)
        self.expect_no_menu("beside it is the panel")
        keys("Escape")


@unittest.skipUnless(AUTOHIDE, "needs a panel that hides itself")
class OnAPanelThatHides(OverlayTest):
    def expect_panel_stays(self):
        for _ in range(40):
            self.assertEqual(panel_top(), 0, "the panel must not take the pointer for gone")
            time.sleep(0.05)

    def is_hidden(self):
        """All of it, not on its way."""
        top = panel_top()
        return top is not None and top <= -PANEL_HEIGHT

    def is_shown(self):
        return panel_top() == 0

    def test_it_comes_with_the_panel_stays_under_the_pointer_and_goes_with_it(self):
        wait_until(self.is_hidden, 5, "the panel hides")
        click(10, 20)
        self.expect_no_menu("only the desktop is there")
        move(600, 0)
        wait_until(self.is_shown, 5, "the panel comes")
        self.expect_bands("slid-in")
        move(10, 10)
        self.expect_panel_stays()
        self.click_opens()
        move(600, 400)
        wait_until(self.is_hidden, 5, "the panel hides again")

    def test_the_menu_keeps_off_a_panel_that_is_shown_at_the_side(self):
        self.addCleanup(Dock(1240, 40, 800).close)  # it claims no room
        move(1262, 300)
        zv("show")
        left, _, width, _ = wait_until(windows, 3, "the menu")[0]
        self.assertEqual(left + width, 1240)

    def test_it_is_under_the_pointer_that_calls_the_panel_at_the_corner(self):
        wait_until(self.is_hidden, 5, "the panel hides")
        move(0, 0)
        wait_until(self.is_shown, 5, "the panel comes")
        self.expect_panel_stays()
        self.click_opens(0, 0)


if __name__ == "__main__":
    unittest.main(verbosity=2)
