"""Every command chosen in the running program: its effect, or its alert as assistive tools read it.

The programs that the commands start are scripts that write themselves down, found through a
search path of the test's own; the login service is a mock on a bus of the test's own. Nothing
here can reach the machine that the test runs on."""

import os
import subprocess
import sys
import tempfile
import time
import unittest

import pyatspi

import desktop
from desktop import Bus, BusMenu, Panel, Program, wait_until

HOME = desktop.HOME
FAKES = os.path.join(HOME, "fakes")
STARTED = os.path.join(HOME, "started")
ITEMS = os.path.join(HOME, ".local/share/zanthe-vell/Zanthe Vell Items")
NO_PROGRAM = 'scriptError("this desktop has no program for it")'
NO_EQUIVALENT = 'scriptError("this desktop has no equivalent")'


def write(path, text, mode=0o644):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, mode)


def install(*names):
    """Replaces the installed programs."""
    subprocess.run(["/bin/rm", "-rf", FAKES], check=True)
    os.makedirs(FAKES)
    for name in names:
        write(os.path.join(FAKES, name), f'#!/bin/sh\necho "{name}${{*:+ $*}}" >> {STARTED}\n', 0o755)


def started():
    try:
        with open(STARTED, encoding="utf-8") as file:
            lines = file.read().splitlines()
    except FileNotFoundError:
        return []
    if lines:
        os.remove(STARTED)
    return lines


def descendants(accessible, role):
    """What goes away while one looks is not there."""
    try:
        found = [accessible] if accessible.getRole() == role else []
        for index in range(accessible.childCount):
            found += descendants(accessible.getChildAtIndex(index), role)
        return found
    except (AttributeError, desktop.GLib.Error):
        return []


def alerts():
    programs = [program for program in pyatspi.Registry.getDesktop(0) if program and program.name.lower() in ("zanthe vell", "zanthe-vell")]
    return [alert for program in programs for alert in descendants(program, pyatspi.ROLE_ALERT) + descendants(program, pyatspi.ROLE_DIALOG)
            if alert.getState().contains(pyatspi.STATE_SHOWING)]


class Alert:
    """The one alert on the screen."""

    def __init__(self):
        self.alert = wait_until(alerts, 15, "an alert")[0]
        self.message = self.alert.name
        self.text = self.alert.description
        self.buttons = descendants(self.alert, pyatspi.ROLE_PUSH_BUTTON)
        self.titles = [button.name for button in self.buttons]

    def press(self, title):
        self.buttons[self.titles.index(title)].queryAction().doAction(0)
        wait_until(lambda: not alerts(), 5, "the alert closes")


def home_page():
    with open("/etc/os-release", encoding="utf-8") as file:
        values = dict(line.rstrip().split("=", 1) for line in file if "=" in line)
    return values.get("HOME_URL", "https://www.apple.com/macos/").strip('"')


class LoginService:
    """A login service on a system bus of the test's own, which can start nothing."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(dir=HOME)
        self.address = f"unix:path={self.folder}/bus"
        write(self.folder + "/bus.conf", f"<busconfig><type>session</type><listen>{self.address}</listen><policy context='default'>"
              "<allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/><allow own='*'/></policy></busconfig>")
        self.log = self.folder + "/calls"
        quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        self.processes = [subprocess.Popen(["dbus-daemon", "--nofork", "--nopidfile", f"--config-file={self.folder}/bus.conf"], **quiet)]
        wait_until(lambda: os.path.exists(self.folder + "/bus"))
        self.processes.append(subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--system", "--template", "logind", "-l", self.log],
                                               env={**os.environ, "DBUS_SYSTEM_BUS_ADDRESS": self.address}, **quiet))
        wait_until(lambda: "org.freedesktop.login1" in self.gdbus("org.freedesktop.DBus", "/", "org.freedesktop.DBus.ListNames"))

    def gdbus(self, name, path, method, *arguments):
        return desktop.output("gdbus", "call", "--address", self.address, "--dest", name, "--object-path", path, "--method", method, *arguments)

    def replace(self, method, code):
        self.gdbus("org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.DBus.Mock.AddMethod", "org.freedesktop.login1.Manager",
                   method, "b", "", code)

    def calls(self):
        with open(self.log, encoding="utf-8") as log:
            lines = [" ".join(line.split()[1:]) for line in log]
        open(self.log, "w", encoding="utf-8").close()
        return [line for line in lines if not line.startswith("Can")]

    def stop(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


COMMANDS = [
    "AboutThisMac", "AppStore", "GetMacOSXSoftware", "GetMacOSXSoftware2", "SoftwareUpdate", "SimpleSystemPrefs", "DockPrefs", "CustomizeZantheVell", "Sleep",
    "Restart", "Shutdown", "LogOut", "RestartForced", "ShutdownForced", "LogOutForced", "ForceQuit", "Lock Screen", "DockMagnification", "DockHiding",
    "DockPosLeft", "DockPosBottom", "DockPosRight", "RevealZantheVellItems", "QuitZantheVell",
]


class ActionsTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.login = LoginService()
        write(os.path.join(HOME, "vanishing.txt"), "x")
        entry = os.path.join(HOME, "Launch.desktop")
        write(entry, f"[Desktop Entry]\nType=Application\nName=Launch\nExec=/bin/sh -c \"echo launched >> {STARTED}\"\n", 0o755)
        handler = os.path.join(HOME, ".local/share/applications/handler.desktop")
        write(handler, f"[Desktop Entry]\nType=Application\nName=H\nExec=/bin/sh -c \"echo handler $0 >> {STARTED}\" %u\n"
              "MimeType=inode/directory;x-scheme-handler/https;text/plain;\n")
        write(os.path.join(HOME, ".config/mimeapps.list"),
              "[Default Applications]\ninode/directory=handler.desktop\nx-scheme-handler/https=handler.desktop\ntext/plain=handler.desktop\n")
        desktop.set_menu([(kind, kind, None) for kind in COMMANDS]
                         + [("FSObject", "Launch", entry), ("FSObject", "Vanishing", os.path.join(HOME, "vanishing.txt"))])
        desktop.zv("prefs", "write", "ReplaceAppleMenu", "false")

    @classmethod
    def tearDownClass(cls):
        cls.login.stop()

    def setUp(self):
        self.bus = Bus()
        install()
        started()
        self.login.calls()

    def program(self, name="XFCE", **more):
        return Program(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE=None, PATH=FAKES, XDG_CURRENT_DESKTOP=name,
                       **{"DBUS_SYSTEM_BUS_ADDRESS": self.login.address, **more})

    def open_menu(self):
        menu = BusMenu(self.bus, wait_until(self.bus.items, 10, "an icon in the panel")[0])
        menu.about_to_show()
        return menu

    def choose(self, title):
        menu = self.open_menu()
        menu.choose(menu.number(title))

    def expect_started(self, kind, command):
        self.choose(kind)
        wait_until(lambda: os.path.exists(STARTED), 10, f"{kind} starts {command}")
        time.sleep(0.05)
        self.assertEqual(started(), [command], kind)

    def expect_alert(self, kind, text):
        self.choose(kind)
        alert = Alert()
        self.assertEqual((alert.message, alert.text, alert.titles), (f"“{kind}” could not be completed.", text, ["OK"]), kind)
        alert.press("OK")

    def test_commands_start_the_desktops_programs(self):
        rows = [
            ("XFCE", "SimpleSystemPrefs", "xfce4-settings-manager"), ("XFCE", "DockPrefs", "xfce4-panel --preferences"),
            ("XFCE", "DockHiding", "xfce4-panel --preferences"), ("XFCE", "DockPosLeft", "xfce4-panel --preferences"),
            ("XFCE", "ForceQuit", "xfce4-taskmanager"), ("XFCE", "SoftwareUpdate", "update-manager"), ("XFCE", "AppStore", "synaptic-pkexec"),
            ("XFCE", "Restart", "xfce4-session-logout"), ("XFCE", "Shutdown", "xfce4-session-logout"), ("XFCE", "LogOut", "xfce4-session-logout"),
            ("XFCE", "RestartForced", "xfce4-session-logout --reboot"), ("XFCE", "ShutdownForced", "xfce4-session-logout --halt"),
            ("XFCE", "LogOutForced", "xfce4-session-logout --logout"), ("KDE", "AboutThisMac", "kinfocenter"),
            ("ubuntu:GNOME", "SimpleSystemPrefs", "gnome-control-center"), ("ubuntu:GNOME", "LogOut", "gnome-session-quit --logout"),
        ]
        for name in dict.fromkeys(row[0] for row in rows):
            install("xfce4-settings-manager", "xfce4-panel", "xfce4-taskmanager", "update-manager", "synaptic-pkexec", "xfce4-session-logout", "kinfocenter",
                    "gnome-control-center", "gnome-session-quit")
            with Panel(), self.program(name):
                for _, kind, command in (row for row in rows if row[0] == name):
                    self.expect_started(kind, command)
        self.assertEqual(self.login.calls(), [])

    def test_without_the_desktops_programs_there_are_alerts(self):
        with Panel(), self.program(DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nowhere"):
            for kind in ("AppStore", "SoftwareUpdate", "SimpleSystemPrefs", "DockPrefs"):
                self.expect_alert(kind, NO_PROGRAM)
            for kind in ("ForceQuit", "Lock Screen", "DockMagnification", "DockHiding", "DockPosLeft", "DockPosBottom", "DockPosRight"):
                self.expect_alert(kind, NO_EQUIVALENT)
            for kind in ("Sleep", "RestartForced", "ShutdownForced", "LogOutForced"):
                self.expect_alert(kind, "sendFailed(-600)")
            self.choose("AboutThisMac")
            about = Alert()
            self.assertIn("Kernel: Linux", about.text)
            about.press("OK")

    def test_the_login_service_takes_what_no_desktop_takes(self):
        rows = [("Sleep", "Suspend True"), ("RestartForced", "Reboot True"), ("ShutdownForced", "PowerOff True"),
                ("LogOutForced", 'TerminateSession "auto"'), ("Lock Screen", 'LockSession "auto"')]
        with Panel(), self.program(XDG_SESSION_ID=None):
            for kind, call in rows:
                self.choose(kind)
                self.assertEqual(wait_until(self.login.calls, 10, kind), [call])
            self.assertEqual(alerts(), [])

    def test_our_question_comes_before_what_the_desktop_does_not_ask(self):
        with Panel(), self.program():
            for kind, button, call in (("Restart", "Restart", "Reboot True"), ("Shutdown", "Shut Down", "PowerOff True")):
                self.choose(kind)
                question = Alert()
                self.assertEqual(question.titles, [button, "Cancel"])
                question.press("Cancel")
                self.assertEqual(self.login.calls(), [])
                self.choose(kind)
                Alert().press(button)
                self.assertEqual(wait_until(self.login.calls, 10, kind), [call])

    def test_a_service_that_denies_or_hangs_is_told_and_holds_nothing(self):
        with Panel(), self.program():
            self.login.replace("Suspend", "import dbus; raise dbus.exceptions.DBusException('No.', name='org.freedesktop.DBus.Error.AccessDenied')")
            self.expect_alert("Sleep", "sendFailed(-10004)")
            self.login.replace("Suspend", "import time; time.sleep(12)")
            self.choose("Sleep")
            begin = time.monotonic()
            self.assertIn("Sleep", self.open_menu().titles())
            self.assertLess(time.monotonic() - begin, 5, "the menu opens while the service thinks")
            alert = Alert()
            self.assertEqual(alert.text, "sendFailed(-1712)")
            alert.press("OK")
            time.sleep(3)  # until the mock has woken up
            self.login.replace("Suspend", "")

    def test_files_pages_and_the_items_folder_open(self):
        with Panel(), self.program():
            self.expect_started("Launch", "launched")
            for kind in ("GetMacOSXSoftware", "GetMacOSXSoftware2"):
                self.expect_started(kind, "handler " + home_page())
            self.expect_started("RevealZantheVellItems", "handler " + os.path.dirname(ITEMS))
            menu = self.open_menu()
            os.remove(os.path.join(HOME, "vanishing.txt"))
            menu.choose(menu.number("Vanishing"))
            time.sleep(1)
            self.assertEqual((started(), alerts()), ([], []), "what vanished does nothing, silently")

    def test_adding_through_the_running_program_tells_what_went_wrong(self):
        with Panel(), self.program():
            wait_until(lambda: self.bus.has_owner(desktop.NAME), 10)
            call = [desktop.NAME, "/org/zanthevell/ZantheVell", desktop.NAME, "AddFiles"]
            write(os.path.join(HOME, "Added.txt"), "x")
            self.bus.call(*call, desktop.GLib.Variant("(as)", ([os.path.join(HOME, "Added.txt")],)))
            wait_until(lambda: os.path.islink(os.path.join(ITEMS, "Added.txt")), 5)
            self.bus.call(*call, desktop.GLib.Variant("(as)", (["/gone"],)))
            alert = Alert()
            self.assertEqual((alert.message, alert.text), ("“gone” could not be added to Zanthe Vell Items.", "“gone” — No such file or directory"))
            alert.press("OK")

    def test_quitting_ends_the_program(self):
        with Panel(), self.program() as program:
            self.choose("QuitZantheVell")
            self.assertEqual(program.ends(), 0)


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=2))
