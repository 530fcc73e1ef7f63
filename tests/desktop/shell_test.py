"""Starting, starting once more, moving house and ending: the program among other processes."""

import contextlib
import json
import os
import plistlib
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

import pyatspi
from gi.repository import GLib

import desktop
from accessible import act, find, found
from desktop import Bus, BusMenu, Panel, Program, keys, titled, wait_until, zv
from key_grab import KeyGrab
from session_manager import SessionManager

HOME = desktop.HOME
DEFAULTS = os.path.join(HOME, ".config/zanthe-vell/org.zanthevell.ZantheVell.plist")
AUTOSTART = os.path.join(HOME, ".config/autostart/org.zanthevell.ZantheVell.desktop")
COPY = os.path.join(HOME, ".local/bin/zanthe-vell")
SETTINGS, NOTES, ALERT = "Zanthe Vell Settings", "Zanthe Vell Beta", "Zanthe Vell"
OWN = ("org.zanthevell.ZantheVell", "/org/zanthevell/ZantheVell")
NO_BUS = {"DBUS_SESSION_BUS_ADDRESS": None, "XDG_RUNTIME_DIR": os.path.join(HOME, "no-bus")}
FOR_THE_USER = {"XCTestSessionIdentifier": None}  # a launch that counts and may ask to move
RESTART_NEVER = 3  # among the session manager's hints


def set_launch_count(count):
    settings = {}
    if os.path.exists(DEFAULTS):
        with open(DEFAULTS, "rb") as file:
            settings = plistlib.load(file)
    settings["LaunchCount"] = count
    os.makedirs(os.path.dirname(DEFAULTS), exist_ok=True)
    with open(DEFAULTS, "wb") as file:
        plistlib.dump(settings, file)


def launch_count():
    with open(DEFAULTS, "rb") as file:
        return plistlib.load(file).get("LaunchCount")


def without_system_folder():
    """The start of a command for which the folder of everyone's programs cannot be written, as
    it is for most users. A superuser gets a view of the disk in which it is read-only."""
    folder = "/usr/local/bin"
    if not os.access(folder, os.W_OK):
        return []
    script = f'mount --bind {folder} {folder} && mount -o remount,bind,ro {folder} && exec "$@"'
    command = ["unshare", "-m", "sh", "-c", script, "sh"]
    if subprocess.run([*command, "true"], capture_output=True, check=False).returncode != 0:
        raise unittest.SkipTest(f"{folder} can be written here, and cannot be hidden")
    return command


class ShellTest(unittest.TestCase):
    def setUp(self):
        self.bus = Bus()
        zv("prefs", "write", "ReplaceAppleMenu", "false")
        wait_until(lambda: not self.is_running(), 5, "the one before has ended")

    def is_running(self):
        return self.bus.has_owner(desktop.NAME)

    def process(self):
        """The process that has the program's name."""
        return self.bus.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetConnectionUnixProcessID", GLib.Variant("(s)", (desktop.NAME,)))[0]

    @contextlib.contextmanager
    def started(self, command=(desktop.PROGRAM,), **environment):
        with Program(command, **environment) as program:
            wait_until(self.is_running, 10, "it is on the bus")
            yield program

    def activate(self):
        self.bus.call(*OWN, "org.freedesktop.Application", "Activate", GLib.Variant("(a{sv})", ({},)))

    def test_a_second_start_and_the_desktop_open_the_settings_of_the_first(self):
        with self.started() as first:
            with Program() as second:
                self.assertEqual(second.ends(), 0)
            wait_until(lambda: titled(SETTINGS), 5, "the settings of the first")
            self.activate()
            time.sleep(0.3)
            self.assertEqual(len(titled(SETTINGS)), 1, "brought forward, not opened again")
            keys("Escape")
            wait_until(lambda: not titled(SETTINGS), 3, "they close")
            self.activate()
            wait_until(lambda: titled(SETTINGS), 5, "they open once more")
            self.assertTrue(first.is_running())

    def test_of_two_starts_in_the_same_instant_one_stays(self):
        for _ in range(3):
            with Program() as one, Program() as other:
                wait_until(lambda: not (one.is_running() and other.is_running()), 8, "one of them ends")
                time.sleep(0.2)
                stays, ended = (one, other) if one.is_running() else (other, one)
                self.assertEqual(ended.process.poll(), 0)
                self.assertTrue(stays.is_running())
                self.assertEqual(self.process(), stays.process.pid)

    def test_the_settings_open_at_start_when_nothing_else_leads_to_the_program(self):
        zv("prefs", "write", "ShowStatusItem", "false")
        self.addCleanup(zv, "prefs", "reset", "ShowStatusItem")
        with self.started():
            wait_until(lambda: titled(SETTINGS), 5, "the settings")
        zv("prefs", "write", "ShowStatusItem", "true")
        with self.started():
            time.sleep(0.5)
            self.assertEqual(titled(SETTINGS), [])

    def test_the_notes_come_up_on_the_second_launch_and_not_on_the_third(self):
        set_launch_count(1)
        with self.started():
            time.sleep(0.3)
        self.assertEqual(launch_count(), 1, "a launch of a test does not count")
        with self.started(**FOR_THE_USER):
            x, y, width, height = wait_until(lambda: titled(NOTES), 5, "the notes")[0]
            self.assertEqual(width, 480)
            self.assertLessEqual(height, 560)
            self.assertAlmostEqual(x + width / 2, 640, delta=20, msg="in the middle")
            self.assertAlmostEqual(y + height / 2, 400, delta=45, msg="title bar and all")
            self.assertEqual(launch_count(), 2)
        with self.started(**FOR_THE_USER):
            wait_until(lambda: launch_count() == 3, 5, "the third launch counts")
            time.sleep(0.5)
            self.assertEqual(titled(NOTES), [])

    def test_signals_end_it_and_leave_nothing_behind(self):
        record = {"id": "00000000-0000-0000-0000-000000000001", "kind": "Restart", "children": [], "isHidden": False, "unrecognizedKeys": {},
                  "keyEquivalent": {"trigger": {"character": "K"}, "shift": False, "option": True, "control": True, "noCommand": True}}
        desktop.import_menu([record])
        grab = KeyGrab()
        with Panel():
            for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
                with self.subTest(number.name), self.started() as program:
                    wait_until(self.bus.items, 5, "its icon")
                    wait_until(lambda: not grab.is_free(), 5, "it holds the combination")
                    program.process.send_signal(number)
                    self.assertEqual(program.ends(), 0, program.said())
                    wait_until(lambda: not self.bus.items(), 3, "the icon is gone")
                    self.assertTrue(grab.is_free(), "and the combination free")
                    self.assertFalse(self.is_running())

    def test_the_end_of_the_session_ends_it_and_asks_for_no_second_start(self):
        session = SessionManager()
        self.addCleanup(session.close)
        with Panel(), Program(SESSION_MANAGER=session.address) as program:
            self.assertTrue(session.serve(lambda: session.saved and self.is_running(), 20), "it belongs to the session")
            self.activate()
            wait_until(lambda: titled(SETTINGS), 5, "an open window")
            wait_until(self.bus.items, 5, "its icon")
            session.end_session()
            self.assertEqual(program.ends(), 0, program.said())
            wait_until(lambda: not self.bus.items(), 3, "the icon is gone")
            self.assertEqual(session.properties["RestartStyleHint"][0][0], RESTART_NEVER)

    def test_killed_it_leaves_no_lock_with_a_bus_or_without(self):
        os.makedirs(NO_BUS["XDG_RUNTIME_DIR"], mode=0o700, exist_ok=True)
        lock = os.path.join(NO_BUS["XDG_RUNTIME_DIR"], "zanthe-vell.lock")
        for name, environment in {"bus": {}, "no bus": NO_BUS}.items():
            is_up = self.is_running if not environment else lambda: os.path.exists(lock)
            with self.subTest(name):
                with Program(**environment) as killed:
                    wait_until(is_up, 10, "it runs")
                    killed.kill()
                with Program(**environment) as again:
                    wait_until(is_up, 10, "it starts again")
                    time.sleep(0.5)
                    self.assertTrue(again.is_running(), again.said())
        self.assertFalse(os.path.exists(f"{HOME}/.dbus"), "a bus was started for it, which nobody ends")

    def test_the_doctor_tells_what_is_here(self):
        def told(**environment):
            merged = {key: value for key, value in {**os.environ, **environment}.items() if value is not None}
            answer = subprocess.run([desktop.PROGRAM, "doctor", "--json"], env=merged, capture_output=True, text=True, check=False, timeout=20)
            return {check["name"]: check["explanation"] for check in json.loads(answer.stdout)}

        here = told()
        data = f"kept in {HOME}/.local/share/zanthe-vell"
        self.assertEqual([here[name] for name in ("Settings", "Items", "Backups")],
                         [f"kept in {HOME}/.config/zanthe-vell", f"{data}/Zanthe Vell Items", f"{data}/Backups"])
        self.assertEqual(here["Display"], "An X server shows menus and windows.")
        self.assertIn("does not answer", told(DISPLAY=":4077")["Display"])
        self.assertIn("There is no display", told(DISPLAY=None)["Display"])
        self.assertIn("no message bus", told(**NO_BUS)["Session bus"])
        self.assertFalse(os.path.exists(f"{HOME}/.dbus"), "asking starts no bus")

    @contextlib.contextmanager
    def own_bus(self, address):
        command = ["dbus-daemon", "--nofork", "--nopidfile", f"--config-file={HOME}/.bus/session.conf", f"--address={address}"]
        with subprocess.Popen(command) as daemon:
            try:
                yield wait_until(lambda: self.bus_at(address), 5, "the bus")
            finally:
                daemon.kill()
        os.remove(address.removeprefix("unix:path="))

    def bus_at(self, address):
        try:
            return Bus(address)
        except GLib.Error:  # no socket yet, or nobody listens
            return None

    def test_it_comes_back_to_a_bus_that_was_restarted_and_stays_alone_meanwhile(self):
        environment = {"DBUS_SESSION_BUS_ADDRESS": f"unix:path={HOME}/own-bus", "XDG_RUNTIME_DIR": HOME}
        names = [desktop.NAME, "org.kde.StatusNotifierItem-"]
        with contextlib.ExitStack() as stack:
            for start in ("late", "again"):
                if start == "late":
                    program = stack.enter_context(Program(**environment))
                    wait_until(lambda: os.path.exists(f"{HOME}/zanthe-vell.lock"), 10, "it runs")
                with Program(**environment) as second:
                    self.assertTrue(program.is_running(), program.said())
                    self.assertEqual(second.ends(), 1, "there is no bus to ask the first by")
                with self.subTest(start), self.own_bus(environment["DBUS_SESSION_BUS_ADDRESS"]) as bus:
                    listed = lambda bus=bus: bus.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "ListNames")[0]
                    wait_until(lambda: all(any(name in other for other in listed()) for name in names), 5, "its name and its icon")
                    with Program(**environment) as second:
                        self.assertEqual(second.ends(), 0, "the first is asked to open its settings")
                    wait_until(lambda: titled(SETTINGS), 5, "an open window")

    def test_without_a_display_it_says_so_and_does_not_stay(self):
        with Program(DISPLAY=None) as unseen:
            self.assertEqual(unseen.ends(), 1)
            self.assertIn("There is no display to show a menu on.", unseen.said())

    def test_without_a_home_it_runs_and_says_in_a_line_what_cannot_be_kept(self):
        account = tempfile.mkdtemp(dir=HOME)
        folders = {f"XDG_{kind}_HOME": os.path.join(account, kind) for kind in ("CONFIG", "DATA", "CACHE", "STATE")}
        for name, environment in {"missing": {"HOME": None, **folders}, "not to be written": {"HOME": "/proc/nonexistent"}}.items():
            with self.subTest(name), Panel(), self.started(**FOR_THE_USER, **environment) as program:
                menu = BusMenu(self.bus, wait_until(self.bus.items, 5, "its icon")[0])
                menu.about_to_show()
                self.assertIn("Customize Zanthe Vell…", menu.titles(), "the menu serves")
                lines = [line for line in program.said().splitlines() if line and "volume monitor" not in line]  # GIO's own
                self.assertLessEqual(len(lines), 1, program.said())

    def test_the_autostart_entry_starts_the_program(self):
        with self.started(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1"):
            self.activate()
            found(SETTINGS)
            act(found("Open at login", pyatspi.ROLE_CHECK_BOX))
            wait_until(lambda: os.path.exists(AUTOSTART), 3, "the autostart entry")
        subprocess.run(["gio", "launch", AUTOSTART], check=True, env={**os.environ, **Program.TESTING})
        wait_until(self.is_running, 10, "what the desktop starts at login")
        self.assertEqual(os.path.realpath(f"/proc/{self.process()}/exe"), os.path.realpath(desktop.PROGRAM))
        zv("quit")
        os.remove(AUTOSTART)


class RelocationTest(unittest.TestCase):
    """A copy in a folder that will be emptied."""

    setUpProcess, is_running, process, started = ShellTest.setUp, ShellTest.is_running, ShellTest.process, ShellTest.started

    def setUp(self):
        self.setUpProcess()
        set_launch_count(20)
        self.folder = tempfile.mkdtemp(dir="/tmp", prefix="zanthe-vell-download.")
        self.addCleanup(shutil.rmtree, self.folder)
        self.download = os.path.join(self.folder, "zanthe-vell")
        shutil.copy(desktop.PROGRAM, self.download)
        resources = os.path.join(os.path.dirname(desktop.PROGRAM), "resources")
        if os.path.isdir(resources):
            shutil.copytree(resources, os.path.join(self.folder, "resources"))
        self.command = [*without_system_folder(), self.download]

    @contextlib.contextmanager
    def asking(self):
        with self.started(self.command, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", **FOR_THE_USER) as program:
            wait_until(lambda: titled(ALERT), 10, "the question")
            yield program

    def menu_titles(self):
        menu = BusMenu(self.bus, wait_until(self.bus.items, 5, "the icon")[0])
        menu.about_to_show()
        return menu.titles()

    def test_not_now_goes_on_from_where_it_is(self):
        with Panel(), self.asking() as program:
            self.assertIsNotNone(found(f"Copy Zanthe Vell to {os.path.dirname(COPY)}?"))
            self.assertIsNotNone(find("Copy to Applications Folder", pyatspi.ROLE_PUSH_BUTTON))
            self.assertEqual(self.bus.items(), [], "nothing is built while it asks")
            bus_settings = subprocess.run([desktop.PROGRAM], check=False, timeout=10)
            self.assertEqual(bus_settings.returncode, 0)
            time.sleep(0.3)
            self.assertEqual(titled(SETTINGS), [], "a second start brings the question forward, no more")
            keys("Escape")
            wait_until(lambda: not titled(ALERT), 3, "the question is answered")
            self.assertEqual(self.menu_titles(), desktop.menu_titles())
            self.assertTrue(program.is_running())
            self.assertFalse(os.path.exists(COPY))

    def test_told_to_quit_while_it_asks_it_ends(self):
        count = launch_count()
        with self.asking() as program:
            zv("quit")
            self.assertEqual(program.ends(), 0)
        with self.asking() as program:
            program.process.terminate()
            self.assertEqual(program.ends(), 0)
        self.assertEqual(launch_count(), count, "and builds nothing on the way out")

    def test_the_copy_takes_over(self):
        os.makedirs(os.path.dirname(COPY), exist_ok=True)
        with open(COPY, "w", encoding="utf-8") as older:
            older.write("an older one")
        self.addCleanup(os.remove, COPY)
        with Panel(), self.asking() as program:
            keys("Return")
            self.assertEqual(program.ends(15), 0, program.said())
            wait_until(lambda: self.is_running() and os.path.realpath(f"/proc/{self.process()}/exe") == COPY, 10, "the copy runs")
            self.assertEqual(self.menu_titles(), desktop.menu_titles())
            self.assertEqual(titled(ALERT), [], "and asks nothing")
            zv("quit")
            wait_until(lambda: not self.is_running(), 5, "it ends")
        self.assertEqual(os.listdir(os.path.dirname(COPY)), ["zanthe-vell"], "nothing temporary stays")
        with open(self.download, "rb") as download, open(COPY, "rb") as copy:
            self.assertEqual(download.read(), copy.read())
        self.assertTrue(os.path.exists(os.path.join(HOME, ".local/share/zanthe-vell/Begging.rtf")), "its resources moved along")
        entry = os.path.join(HOME, ".local/share/applications/org.zanthevell.ZantheVell.desktop")
        subprocess.run(["gio", "launch", entry], check=True, env={**os.environ, **Program.TESTING})
        wait_until(self.is_running, 10, "its entry starts it")
        zv("quit")


if __name__ == "__main__":
    unittest.main(verbosity=2)
