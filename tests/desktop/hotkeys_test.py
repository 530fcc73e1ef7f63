"""Shortcuts in the running program, pressed by raw key codes on a private desktop.
   tests/desktop/run hotkeys."""

import ctypes
import json
import os
import plistlib
import shutil
import signal
import subprocess
import time
import unittest

PROGRAM = os.environ["ZV_PROGRAM"]
HOME = os.environ["HOME"]
FOLDER = os.path.join(HOME, "Folder")
PRESSED = os.path.join(HOME, "pressed")

# Key codes of the X server, by the place of the key.
E, Z, Y, S, F5 = 26, 52, 29, 39, 71
ALT, SUPER, CAPS_LOCK, NUM_LOCK, ESCAPE, DOWN, RIGHT = 64, 133, 66, 77, 9, 116, 114
# Modifiers as the X server counts them.
CAPS, NUM, ALT_BIT, SUPER_BIT = 2, 16, 8, 64
LOCK_STATES = (0, CAPS, NUM, CAPS | NUM)
NO_GROUP = {"shift": False, "option": False, "control": False, "noCommand": False}


def wait_until(condition, seconds=5.0, what="it"):
    end = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > end:
            raise AssertionError(what + " never happened")
        time.sleep(0.02)
    return result


def zv(*arguments):
    done = subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=False, timeout=20)
    if done.returncode != 0:
        raise AssertionError(f"zanthe-vell {arguments}: {done.returncode} {done.stderr}")
    return done.stdout


class Keyboard:
    """The user's fingers, and another program that holds combinations."""

    ERROR_HANDLER = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)
    errors = []
    on_error = ERROR_HANDLER(lambda *_: Keyboard.errors.append(True) or 0)

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtest = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XSetErrorHandler(self.on_error)
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

    def grab(self, code, modifiers):
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.x11.XGrabKey(self.display, code, modifiers, root, 0, 1, 1)
        self.x11.XSync(self.display, 0)

    def is_free(self, code, modifiers):
        """Whether yet another program could have the combination."""
        other = Keyboard()
        self.errors.clear()
        other.grab(code, modifiers)
        other.close()
        return not self.errors


def launcher(name):
    """An application that notes its name when it is started."""
    path = os.path.join(HOME, f"{name}.desktop")
    with open(path, "w", encoding="utf-8") as file:
        file.write(f"[Desktop Entry]\nType=Application\nName={name}\nExec=sh -c \"echo {name} >> {PRESSED}\"\n")
    os.chmod(path, 0o755)
    return path


def item(number, path, trigger=None, **flags):
    record = {"id": f"00000000-0000-0000-0000-{number:012X}", "kind": "FSObject", "children": [], "isHidden": False, "unrecognizedKeys": {},
              "location": {"path": path, "displayName": os.path.basename(path)}}
    if trigger:
        record["keyEquivalent"] = {"trigger": trigger, **NO_GROUP, **flags}
    return record


def set_menu(records):
    document = os.path.join(HOME, "menu.plist")
    with open(document, "wb") as file:
        plistlib.dump(records, file)
    zv("import", document)


def hotkeys():
    return json.loads(zv("hotkeys", "--json"))


def shortcuts(part="registrations"):
    return [entry["shortcut"] for entry in hotkeys()[part]]


def has_popup():
    found = subprocess.run(["xdotool", "search", "--onlyvisible", "--class", "zanthe-vell"], capture_output=True, text=True, check=False).stdout
    heights = [subprocess.run(["xdotool", "getwindowgeometry", "--shell", window], capture_output=True, text=True, check=False).stdout
               for window in found.split()]
    return sum(1 for text in heights if "HEIGHT=" in text and int(text.split("HEIGHT=")[1].split()[0]) > 40)


class HotkeysTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        os.makedirs(FOLDER, exist_ok=True)
        launchers = {name: launcher(name) for name in ("one", "zed", "plain")}
        cls.menu = [item(1, launchers["one"], {"character": "E"}, option=True), item(2, launchers["zed"], {"character": "Z"}),
                    item(3, launchers["plain"], {"named": "f5"}, noCommand=True), item(4, launchers["zed"], {"character": "E"}, option=True),
                    item(5, FOLDER)]

    def setUp(self):
        subprocess.run(["setxkbmap", "us"], check=True)
        if os.path.exists(PRESSED):
            os.remove(PRESSED)
        set_menu(self.menu)
        self.start()
        self.addCleanup(self.stop)

    def start(self):
        self.keyboard = Keyboard()
        # Launches of tests do not count: no window of notes opens.
        self.program = subprocess.Popen([PROGRAM], env={**os.environ, "XCTestSessionIdentifier": "1"})
        wait_until(lambda: subprocess.run([PROGRAM, "hotkeys"], capture_output=True, check=False).returncode == 0, 10, "the start")

    def stop(self):
        self.keyboard.close()
        self.end(signal.SIGTERM)

    def end(self, how):
        self.program.send_signal(how)
        self.program.wait(10)

    def pressed(self):
        if not os.path.exists(PRESSED):
            return []
        with open(PRESSED, encoding="utf-8") as file:
            return file.read().split()

    def expect(self, names):
        wait_until(lambda: len(self.pressed()) >= len(names), 5, f"{names} (there is {self.pressed()})")
        time.sleep(0.2)
        self.assertEqual(self.pressed(), names)

    def test_a_press_opens_its_item_once_however_long_it_is_held(self):
        self.keyboard.press(SUPER, ALT, E)
        self.expect(["one"])
        self.keyboard.key(F5, True)
        time.sleep(1.2)
        self.keyboard.key(F5, False)
        self.expect(["one", "plain"])
        self.keyboard.press(ALT, E)
        self.keyboard.press(SUPER, E)
        self.expect(["one", "plain"])

    def test_a_duplicate_of_our_own_is_a_conflict(self):
        report = hotkeys()
        self.assertEqual(report["conflicts"], [{"shortcut": "⌥⌘E", "item": "00000000-0000-0000-0000-000000000004"}])
        self.assertEqual([entry["shortcut"] for entry in report["registrations"]], ["⌥⌘E", "⌘Z", "F5"])
        self.assertIn("⌥⌘E     one.desktop\n", zv("hotkeys"))

    def test_the_locks_change_nothing(self):
        names = []
        for lock in (CAPS_LOCK, NUM_LOCK, CAPS_LOCK, NUM_LOCK):
            self.keyboard.press(lock)
            self.keyboard.press(SUPER, ALT, E)
            names.append("one")
            self.expect(names)

    def test_what_another_program_holds_is_a_conflict_until_it_leaves(self):
        other = Keyboard()
        self.stop()
        other.grab(Z, 64)
        self.start()
        self.assertIn("⌘Z", shortcuts("conflicts"))
        self.assertNotIn("⌘Z", shortcuts())

        other.close()
        set_menu(self.menu[:3])  # a change of the menu is a pass
        wait_until(lambda: shortcuts("conflicts") == [], 5, "the end of the conflict")
        self.keyboard.press(SUPER, Z)
        self.expect(["zed"])

    def test_the_server_holds_what_the_report_says_until_the_end_whatever_that_is(self):
        other = Keyboard()
        self.addCleanup(other.close)
        self.stop()
        other.grab(Z, SUPER_BIT | NUM)
        ours = [(E, SUPER_BIT | ALT_BIT), (F5, 0)]
        for end in (signal.SIGTERM, signal.SIGKILL):
            self.start()
            self.assertEqual(shortcuts(), ["⌥⌘E", "F5"])
            self.assertEqual(shortcuts("conflicts"), ["⌘Z", "⌥⌘E"])
            for code, modifiers in ours:
                for locks in LOCK_STATES:
                    self.assertFalse(self.keyboard.is_free(code, modifiers | locks), (code, locks))
            free = [locks for locks in LOCK_STATES if self.keyboard.is_free(Z, SUPER_BIT | locks)]
            self.assertEqual(free, [0, CAPS, CAPS | NUM], "of what it cannot have whole it keeps nothing")
            self.end(end)
            for code, modifiers in ours:
                wait_until(lambda: self.keyboard.is_free(code, modifiers), 2, "the end of its grabs")
        self.start()

    def test_a_pre_scan_switched_on_finds_the_shortcuts_below_the_menus_folders(self):
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

    def test_a_german_layout_moves_z(self):
        first_id = lambda: hotkeys()["registrations"][0]["id"]  # noqa: E731
        before = first_id()
        subprocess.run(["setxkbmap", "us"], check=True)
        self.keyboard.press(SUPER)
        time.sleep(0.5)
        self.assertEqual(first_id(), before, "nothing moved, so nothing is registered anew")
        subprocess.run(["setxkbmap", "de"], check=True)
        wait_until(lambda: first_id() > before, 5, "a new pass")
        time.sleep(0.5)
        self.assertEqual(first_id(), before + 3, "one for each change")
        self.keyboard.press(SUPER, Z)
        self.keyboard.press(SUPER, Y)
        self.expect(["zed"])

    def test_a_russian_layout_keeps_latin_shortcuts(self):
        subprocess.run(["setxkbmap", "us,ru", "-option", "grp:caps_toggle"], check=True)
        time.sleep(0.3)
        self.keyboard.press(CAPS_LOCK)
        time.sleep(0.3)
        self.keyboard.press(SUPER, Z)
        self.expect(["zed"])
        self.keyboard.press(CAPS_LOCK)
        subprocess.run(["setxkbmap", "ru", "-option", ""], check=True)
        time.sleep(0.3)
        self.keyboard.press(SUPER, ALT, E)
        self.expect(["zed", "one"])

    def test_a_file_renamed_to_carry_a_shortcut_has_it_once_its_folder_was_opened(self):
        path = launcher("filed")
        os.rename(path, os.path.join(FOLDER, "Filed-*[cmd+opt+S]*.desktop"))
        self.keyboard.press(SUPER, ALT, S)
        zv("show", "--at", "100,100")
        wait_until(lambda: has_popup() == 1, 5, "the menu")
        for _ in range(8):
            self.keyboard.press(DOWN)
            self.keyboard.press(RIGHT)  # acts on the folder alone
            time.sleep(0.2)
            if has_popup() == 2:
                break
        wait_until(lambda: "⌥⌘S" in shortcuts(), 5, "the file's shortcut")
        for _ in range(3):
            self.keyboard.press(ESCAPE)
        wait_until(lambda: has_popup() == 0, 5, "the end of the menu")
        self.assertEqual(self.pressed(), [])
        self.keyboard.press(SUPER, ALT, S)
        self.expect(["filed"])

    def test_a_key_held_while_our_menu_closes_fires_at_most_once(self):
        zv("show", "--at", "100,100")
        wait_until(lambda: has_popup() == 1, 5, "the menu")
        for code in (SUPER, ALT, E):
            self.keyboard.key(code, True)
        time.sleep(0.3)
        self.keyboard.press(ESCAPE)
        self.keyboard.key(E, True)
        wait_until(lambda: has_popup() == 0, 5, "the end of the menu")
        time.sleep(1.2)  # long enough to repeat
        for code in (E, ALT, SUPER):
            self.keyboard.key(code, False)
        time.sleep(0.3)
        during = self.pressed()
        self.assertLessEqual(len(during), 1)
        self.keyboard.press(SUPER, ALT, E)
        self.expect(during + ["one"])


if __name__ == "__main__":
    unittest.main(verbosity=2)
