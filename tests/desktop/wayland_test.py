"""The program in a Wayland session of its own. tests/desktop/run wayland; COMPOSITOR=kwin for KWin, where kwin-wayland and weston (for a window of its own) are installed: neither is light enough to be installed for it."""

import json
import os
import subprocess
import time
import unittest

from gi.repository import GLib

import desktop
from desktop import HOME, Bus, Program, wait_until, write, zv
from wayland import Pointer

ON_SWAY = "SWAYSOCK" in os.environ
GROUND = (0x40, 0x60, 0x80)
FOLDER = os.path.join(HOME, "Folder")
PRESSED = os.path.join(HOME, "pressed")
TYPED = os.path.join(HOME, "typed")


def pixel(x, y):
    """The colour there: of the whole picture's last three bytes, when it is one pixel."""
    return tuple(subprocess.run(["grim", "-t", "ppm", "-g", f"{x},{y} 1x1", "-"], capture_output=True, check=True).stdout[-3:])


def shows(*places):
    """Whether something is to be seen at each of the places on the second screen, which is empty."""
    return all(pixel(*place) != GROUND for place in places)


def is_empty(*places):
    return all(pixel(*place) == GROUND for place in places)


def keys(*names):
    for name in names:
        *held, key = name.split("+")
        subprocess.run(["wtype", *(word for modifier in held for word in ("-M", modifier)), "-k", key], check=True)
        time.sleep(0.05)


def sway(*words):
    return json.loads(subprocess.run(["swaymsg", "-r", *words], capture_output=True, check=True, text=True).stdout)


def text_of(path):
    if not os.path.exists(path):
        return ""
    with open(path, encoding="utf-8") as file:
        return file.read()


def item(number, name, command, trigger):
    flags = {"shift": False, "option": True, "control": False, "noCommand": False}
    path = desktop.launcher(name, command)
    return {"id": f"00000000-0000-0000-0000-{number:012X}", "kind": "FSObject", "children": [], "isHidden": False, "unrecognizedKeys": {},
            "location": {"path": path, "displayName": name}, "keyEquivalent": {"trigger": {"character": trigger}, **flags}}


@unittest.skipUnless(ON_SWAY, "sway's own")
class SwayTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # A seat has a keyboard and a pointer only as long as a virtual one lives.
        cls.keyboard = subprocess.Popen(["wtype", "-s", "500000", "-k", "Escape"])
        cls.pointer = Pointer(2560, 800)
        cls.pointer.move(300, 300)
        cls.window = subprocess.Popen(["foot", "--app-id", "foot", "sh", "-c", f"cat > {TYPED}"], stderr=subprocess.DEVNULL)
        wait_until(lambda: "foot" in json.dumps(sway("-t", "get_tree")), 10, "a window")
        write(os.path.join(FOLDER, "Inner", "Deep", "deepest.txt"))
        folder = {"id": "00000000-0000-0000-0000-00000000000F", "kind": "FSObject", "children": [], "isHidden": False, "unrecognizedKeys": {},
                  "location": {"path": FOLDER, "displayName": "Folder"}}
        cls.menu = [folder, item(1, "one", f"sh -c 'env > {PRESSED}'", "E"), item(2, "two", f"touch {PRESSED}", "Z")]
        desktop.import_menu(cls.menu)

    @classmethod
    def tearDownClass(cls):
        for process in (cls.window, cls.keyboard):
            process.terminate()
            process.wait()

    def setUp(self):
        self.program = self.enterContext(Program())
        wait_until(lambda: Bus().has_owner(desktop.NAME), 10, "the start")
        if os.path.exists(PRESSED):
            os.remove(PRESSED)
        self.addCleanup(lambda: self.assertTrue(self.program.is_running(), self.program.said()))

    def has_keyboard_again(self, text):
        subprocess.run(["wtype", text + "\n"], check=True)
        wait_until(lambda: text in text_of(TYPED), 3, "the window has the keyboard again")

    def test_a_command_opens_the_menu_on_the_second_screen(self):
        zv("show", "--at", "1500,200")
        wait_until(lambda: shows((1510, 210)), 3, "the menu")
        keys("Down", "Right", "Right", "Right")
        wait_until(lambda: shows((1510, 210), (1590, 206), (1660, 206)), 3, "submenus, three deep")
        self.pointer.click(400, 700)  # beside it, on the other screen
        wait_until(lambda: is_empty((1510, 210), (1590, 206)), 3, "the menu has closed")
        self.has_keyboard_again("beside")

        self.pointer.move(1700, 300)
        zv("show")
        wait_until(lambda: shows((1760, 340)) and is_empty((1690, 290)), 3, "the menu at the pointer")
        keys("Escape")
        wait_until(lambda: is_empty((1760, 340)), 3, "closed")
        self.has_keyboard_again("escape")

    def test_shift_while_it_opens_is_option(self):
        desktop.import_menu([*self.menu, {**self.menu[1], "kind": "Sleep", "isOption": True}])
        self.addCleanup(desktop.import_menu, self.menu)
        heights = []
        for held in ("1", "1500"):
            shift = subprocess.Popen(["wtype", "-M", "shift", "-s", held, "-m", "shift"])
            time.sleep(0.2)
            zv("show", "--at", "1500,200")
            wait_until(lambda: shows((1510, 210)), 3, "the menu")
            time.sleep(0.3)
            heights.append(next(y for y in range(200, 800, 4) if is_empty((1510, y))))
            shift.wait()
            keys("Escape")
            wait_until(lambda: is_empty((1510, 210)), 3, "closed")
        self.assertNotEqual(*heights)

    def test_the_corner_opens_it_and_hides_under_a_full_screen(self):
        wait_until(lambda: shows((1282, 2)), 5, "the corner of the second screen")
        self.pointer.click(1300, 10)
        wait_until(lambda: shows((1300, 50)), 3, "the menu below it")
        self.pointer.click(1300, 10)
        wait_until(lambda: is_empty((1300, 50)), 3, "closed")
        time.sleep(0.3)
        self.assertTrue(is_empty((1300, 50)), "and not opened again")

        self.pointer.move(1300, 10)  # press, drag and release
        self.pointer.down()
        wait_until(lambda: shows((1300, 50)), 3, "the menu")
        self.pointer.glide(1300, 10, 1310, 80)
        time.sleep(0.2)
        self.pointer.up()
        wait_until(lambda: "HOME" in text_of(PRESSED), 5, "what it was let go on starts")
        self.assertNotIn("QT_WAYLAND", text_of(PRESSED), "in the environment that the program was started with")
        self.assertIn("XDG_ACTIVATION_TOKEN", text_of(PRESSED), "and with the right to come to the front")

        at_corner = pixel(2, 2)
        sway("fullscreen", "enable")
        wait_until(lambda: pixel(2, 2) != at_corner, 3, "the corner hides")
        sway("workspace", "9")
        with subprocess.Popen(["foot", "sh", "-c", "sleep 20"], stderr=subprocess.DEVNULL) as other:
            wait_until(lambda: pixel(2, 2) == at_corner, 5, "and comes back beside the window of another workspace, …")
            other.terminate()
        sway("workspace", "1")
        sway("fullscreen", "disable")
        wait_until(lambda: pixel(2, 2) == at_corner, 3, "… and with this one")

    def test_keys_by_its_connection(self):
        report = json.loads(zv("hotkeys", "--json"))
        self.assertEqual([entry["shortcut"] for entry in report["registrations"]], ["⌥⌘E"])
        self.assertEqual([entry["shortcut"] for entry in report["conflicts"]], ["⌥⌘Z"], "which the configuration mentions")
        for when in ("at first", "after a reload"):
            keys("logo+alt+e")
            wait_until(lambda: text_of(PRESSED), 5, f"the key works {when}")
            os.remove(PRESSED)
            sway("reload")
            time.sleep(0.5)

    def test_running_applications(self):
        write(os.path.join(HOME, ".local/share/applications/foot.desktop"), "[Desktop Entry]\nType=Application\nName=Some Terminal\nExec=foot\n")
        desktop.set_menu([("RunningApplications", None, None)])
        self.addCleanup(desktop.import_menu, self.menu)
        self.assertIn("Some Terminal", zv("menu", "--expand", "1"))


@unittest.skipUnless(ON_SWAY, "sway's own")
class ScreensTest(unittest.TestCase):
    def test_screens_that_go_end_neither_the_menu_nor_the_program(self):
        """In a sway within sway, whose screens are windows that can be closed."""
        desktop.set_menu([("Sleep", None, None)])
        displays = set(os.listdir(os.environ["XDG_RUNTIME_DIR"]))
        inner = {**os.environ, "WLR_BACKENDS": "wayland", "WLR_WL_OUTPUTS": "2", "WLR_RENDERER": "pixman"}
        write(os.path.join(HOME, "inner.conf"), "xwayland disable\n")
        with subprocess.Popen(["sway", "-c", os.path.join(HOME, "inner.conf")], env=inner, stderr=subprocess.DEVNULL) as screens:
            self.addCleanup(screens.kill)
            wait_until(lambda: "WL-2" in json.dumps(sway("-t", "get_tree")), 10, "two screens")
            new = next(name for name in set(os.listdir(os.environ["XDG_RUNTIME_DIR"])) - displays if name.startswith("wayland-") and name[-1].isdigit())
            with Program(WAYLAND_DISPLAY=new, SWAYSOCK=None) as program:
                wait_until(lambda: Bus().has_owner(desktop.NAME), 10, "the start")
                for place, closed in (((800, 200), "WL-2"), ((100, 200), "WL-1")):
                    seen = (place[0] + 10, place[1] + 10)
                    ground = pixel(*seen)
                    zv("show", "--at", "%d,%d" % place)
                    wait_until(lambda: pixel(*seen) != ground, 3, f"the menu on {closed}")
                    sway(f'[title="{closed}"] kill')
                    wait_until(lambda: closed not in json.dumps(sway("-t", "get_tree")), 3, "the screen has gone")
                time.sleep(0.5)
                self.assertTrue(program.is_running(), program.said())
            screens.terminate()


@unittest.skipIf(ON_SWAY, "KWin's own")
class KWinTest(unittest.TestCase):
    ACCEL = ("org.kde.kglobalaccel", "/kglobalaccel", "org.kde.KGlobalAccel")

    @classmethod
    def setUpClass(cls):
        os.environ["DISPLAY"] = os.environ["DISPLAY_OF_SEAT"]  # for xdotool and import; the program is told of none
        cls.window = subprocess.Popen(["weston-terminal"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        desktop.import_menu([item(1, "one", f"touch {PRESSED}", "E"), item(2, "two", "true", "Z")])
        bus = Bus()
        other = GLib.Variant("(as)", (["other.program", "x", "Other", "X"],))
        bus.call(*cls.ACCEL, "doRegister", other)
        bus.call(*cls.ACCEL, "setShortcut", GLib.Variant("(asaiu)", (other.unpack()[0], [0x18000000 | ord("Z")], 6)))

    @classmethod
    def tearDownClass(cls):
        cls.window.terminate()
        cls.window.wait()

    def is_lit(self, x, y):
        return desktop.brightness(x, y, 4, 4) > 0.5

    def test_corner_command_keys_and_windows(self):
        with Program(DISPLAY=None):
            wait_until(lambda: self.is_lit(2, 2), 10, "the corner")
            report = json.loads(zv("hotkeys", "--json"))
            self.assertEqual([entry["shortcut"] for entry in report["conflicts"]], ["⌥⌘Z"], "which another program has")
            desktop.keys("super+alt+e")
            wait_until(lambda: os.path.exists(PRESSED), 5, "the key works")
            desktop.click(20, 10)
            wait_until(lambda: self.is_lit(4, 60), 3, "the menu below the corner")
            desktop.keys("Escape")
            zv("show", "--at", "1000,650")
            wait_until(lambda: self.is_lit(1004, 700), 3, "the menu at a place")
            desktop.click(1100, 100)
            wait_until(lambda: not self.is_lit(1004, 700), 3, "a click beside it closes it")
            desktop.set_menu([("RunningApplications", None, None)])
            self.assertIn("wayland-terminal", zv("menu", "--expand", "1"))


if __name__ == "__main__":
    unittest.main(verbosity=1)
