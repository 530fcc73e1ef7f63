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
from accessible import everything, showing
from desktop import Bus, BusMenu, Panel, Program, wait_until, write

HOME = desktop.HOME
FAKES = os.path.join(HOME, "fakes")
STARTED = os.path.join(HOME, "started")
ITEMS = os.path.join(HOME, ".local/share/zanthe-vell/Zanthe Vell Items")
NO_PROGRAM = 'scriptError("this desktop has no program for it")'
NO_EQUIVALENT = 'scriptError("this desktop has no equivalent")'


def install(*names):
    """Replaces the installed programs. They say so when they see the platform that the program chose for itself."""
    subprocess.run(["/bin/rm", "-rf", FAKES], check=True)
    os.makedirs(FAKES)
    for name in names:
        write(os.path.join(FAKES, name), f'#!/bin/sh\necho "{name}${{*:+ $*}}${{QT_QPA_PLATFORM:+ ($QT_QPA_PLATFORM)}}" >> {STARTED}\n', 0o755)


def started():
    try:
        with open(STARTED, encoding="utf-8") as file:
            lines = file.read().splitlines()
    except FileNotFoundError:
        return []
    if lines:
        os.remove(STARTED)
    return lines


def alerts():
    return list(showing(pyatspi.ROLE_ALERT, pyatspi.ROLE_DIALOG))


class Alert:
    """The one alert on the screen."""

    def __init__(self):
        self.alert = wait_until(alerts, 15, "an alert")[0]
        self.message = self.alert.name
        self.text = self.alert.description
        self.buttons = [each for each in everything(self.alert) if each.getRole() == pyatspi.ROLE_PUSH_BUTTON]
        self.titles = [button.name for button in self.buttons]

    def press(self, title):
        self.buttons[self.titles.index(title)].queryAction().doAction(0)
        wait_until(lambda: not alerts(), 5, "the alert closes")


def home_page():
    with open("/etc/os-release", encoding="utf-8") as file:
        values = dict(line.rstrip().split("=", 1) for line in file if "=" in line)
    return values.get("HOME_URL", "https://www.apple.com/macos/").strip('"')


def calls_in(log):
    """What a mock was called, without the times; it is forgotten then."""
    with open(log, encoding="utf-8") as file:
        lines = [" ".join(line.split()[1:]) for line in file]
    open(log, "w", encoding="utf-8").close()
    return lines


class FileManager:
    """A file manager that only notes what it shows."""

    NAME = "org.freedesktop.FileManager1"
    PATH = "/org/freedesktop/FileManager1"

    def __init__(self, bus):
        self.log = os.path.join(tempfile.mkdtemp(dir=HOME), "calls")
        self.process = subprocess.Popen(["/usr/bin/python3", "-m", "dbusmock", "--session", "-l", self.log, self.NAME, self.PATH, self.NAME],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        wait_until(lambda: bus.has_owner(self.NAME), 10)
        bus.call(self.NAME, self.PATH, "org.freedesktop.DBus.Mock", "AddMethod",
                 desktop.GLib.Variant("(sssss)", (self.NAME, "ShowItems", "ass", "", "")))

    def shown(self):
        return calls_in(self.log)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


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
        return [line for line in calls_in(self.log) if not line.startswith("Can")]

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
        entry = desktop.launcher("Launch", f'/bin/sh -c "echo launched >> {STARTED}"')
        handler = os.path.join(HOME, ".local/share/applications/handler.desktop")
        write(handler, f"[Desktop Entry]\nType=Application\nName=H\nExec=/bin/sh -c \"echo handler $0 >> {STARTED}\" %u\n"
              "MimeType=inode/directory;x-scheme-handler/https;text/plain;\n")
        write(os.path.join(HOME, ".config/mimeapps.list"),
              "[Default Applications]\ninode/directory=handler.desktop\nx-scheme-handler/https=handler.desktop\ntext/plain=handler.desktop\n")
        write(os.path.join(HOME, "Broken.desktop"), "no entry", 0o755)
        desktop.set_menu([(kind, kind, None) for kind in [*COMMANDS, "OpenWith"]]
                         + [("FSObject", "Launch", entry), ("FSObject", "Broken", os.path.join(HOME, "Broken.desktop")),
                            ("FSObject", "Vanishing", os.path.join(HOME, "vanishing.txt"))])
        desktop.zv("prefs", "write", "ReplaceAppleMenu", "false")

    @classmethod
    def tearDownClass(cls):
        cls.login.stop()

    def setUp(self):
        self.bus = Bus()
        install()
        started()
        self.login.calls()

    def surroundings(self, name, **more):
        return {"PATH": FAKES, "XDG_CURRENT_DESKTOP": name, "DBUS_SYSTEM_BUS_ADDRESS": self.login.address, **more}

    def program(self, name="XFCE", **more):
        return Program(QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", NO_AT_BRIDGE=None, **self.surroundings(name, **more))

    def command(self, *words, **more):
        """What a command of the program answers: its status, standard output, standard error."""
        done = subprocess.run([desktop.PROGRAM, *words], env={**os.environ, **self.surroundings("XFCE", **more)}, capture_output=True, text=True,
                              check=False, timeout=30)
        return done.returncode, done.stdout, done.stderr

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
            ("XFCE", "DockHiding", "xfce4-panel --preferences"), ("XFCE", "ForceQuit", "xfce4-taskmanager"), ("XFCE", "SoftwareUpdate", "update-manager"),
            ("XFCE", "AppStore", "synaptic-pkexec"), ("XFCE", "Restart", "xfce4-session-logout"),
            ("ubuntu:GNOME", "SimpleSystemPrefs", "gnome-control-center"),
        ]
        for name in dict.fromkeys(row[0] for row in rows):
            install("xfce4-panel", "xfce4-taskmanager", "update-manager", "synaptic-pkexec", "xfce4-session-logout", "gnome-control-center")
            with Panel(), self.program(name):
                for _, kind, command in (row for row in rows if row[0] == name):
                    self.expect_started(kind, command)
        self.assertEqual(self.login.calls(), [])

    def test_without_the_desktops_programs_there_are_alerts(self):
        with Panel(), self.program(DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nowhere"):
            for kind, text in (("AppStore", NO_PROGRAM), ("DockHiding", NO_EQUIVALENT), ("Lock Screen", NO_EQUIVALENT), ("LogOutForced", "sendFailed(-600)")):
                self.expect_alert(kind, text)
            self.choose("AboutThisMac")
            about = Alert()
            self.assertIn("Kernel: Linux", about.text)
            about.press("OK")

    def test_the_login_service_takes_what_no_desktop_takes(self):
        rows = [("RestartForced", "Reboot True"), ("LogOutForced", 'TerminateSession "auto"'), ("Lock Screen", 'LockSession "auto"')]
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
            time.sleep(3)  # the mock wakes up
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

    def test_command_reveals_instead(self):
        shown = f'ShowItems ["file://{HOME}/Launch.desktop"] ""'
        with FileManager(self.bus) as manager, Panel(), self.program():
            self.assertEqual(self.command("perform", "--command", "Launch"), (0, "", ""))
            self.assertEqual(wait_until(manager.shown, 10, "it is revealed"), [shown])
            wait_until(lambda: self.bus.has_owner(desktop.NAME), 10)
            self.assertEqual(self.command("show", "--at", "40,40"), (0, "", ""))
            wait_until(desktop.windows, 5, "the menu")
            desktop.keys("l", "a", "u", "Down")
            subprocess.run(["xdotool", "keydown", "ctrl", "key", "--delay", "50", "Return", "keyup", "ctrl"], check=True)
            self.assertEqual(wait_until(manager.shown, 10, "it is revealed"), [shown])
        self.assertEqual(started(), [])

    def test_on_a_command_line_the_same_failures_are_one_line(self):
        def not_completed(kind, failure):
            return f"“{kind}” could not be completed. {failure}"

        question = " Applications are closed without asking. Unsaved changes are lost."
        rows = [
            ("AppStore", not_completed("AppStore", NO_PROGRAM)), ("ForceQuit", not_completed("ForceQuit", NO_EQUIVALENT)),
            ("Sleep", not_completed("Sleep", "sendFailed(-600)")),
            ("Restart", "Do you want to restart the computer now?" + question),
            ("LogOut", "Do you want to quit all applications and log out now?" + question),
            ("CustomizeZantheVell", "Zanthe Vell is not running."), ("QuitZantheVell", "Zanthe Vell is not running."),
            ("OpenWith", "“OpenWith” cannot be chosen: Acts on the Finder selection. Zanthe delivered this through a contextual menu plug-in, "
             "which macOS no longer supports."),
            ("Broken", f"could not open file://{HOME}/Broken.desktop: no application entry that can be started"),
            ("Nothing", "there is no “Nothing” in the menu"),
        ]
        for title, failure in rows:
            self.assertEqual(self.command("perform", title, DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nowhere"), (1, "", f"zanthe-vell: {failure}\n"))
        self.login.replace("Suspend", "import dbus; raise dbus.exceptions.DBusException('No.', name='org.freedesktop.DBus.Error.AccessDenied')")
        self.assertEqual(self.command("perform", "Sleep"), (1, "", "zanthe-vell: “Sleep” could not be completed. sendFailed(-10004)\n"))
        self.login.replace("Suspend", "")
        self.assertEqual(self.command("perform", "Sleep"), (0, "", ""))
        status, text, failure = self.command("perform", "AboutThisMac")
        self.assertEqual((status, failure), (0, ""))
        self.assertIn("Kernel: Linux", text)
        self.assertEqual(self.command("perform", "Launch"), (0, "", ""))
        self.assertEqual(wait_until(started, 5, "it is launched"), ["launched"])
        install("xfce4-settings-manager")
        self.assertEqual(self.command("perform", "SimpleSystemPrefs"), (0, "", ""))
        self.assertEqual(started(), ["xfce4-settings-manager"])

    def add_files(self, *names):
        self.bus.call(desktop.NAME, "/org/zanthevell/ZantheVell", desktop.NAME, "AddFiles", desktop.GLib.Variant("(as)", (names,)))

    def test_adding_through_the_running_program_tells_what_went_wrong(self):
        with Panel(), self.program():
            wait_until(lambda: self.bus.has_owner(desktop.NAME), 10)
            for name in ("Added.txt", '"quoted"', "two\nlines", " .leading"):
                write(os.path.join(HOME, name), "x")
                self.add_files(os.path.join(HOME, name))
                wait_until(lambda: os.path.islink(os.path.join(ITEMS, name)), 5, name)
            for nothing in ((), ("Added.txt",), ("https://a.b/c",)):
                with self.assertRaisesRegex(desktop.GLib.Error, "No files or folders were sent to Zanthe Vell."):
                    self.add_files(*nothing)
            gone = ("“gone” could not be added to Zanthe Vell Items.", "“gone” — No such file or directory")
            self.add_files("/gone")
            alert = Alert()
            self.assertEqual((alert.message, alert.text), gone)
            desktop.keys("Escape")
            wait_until(lambda: not alerts(), 5, "Escape closes the alert")
            self.assertEqual(self.command("add", "--alert", "/gone", os.path.join(HOME, "Added.txt")), (0, "", ""))
            alert = Alert()
            self.assertEqual((alert.message, alert.text), ("1 of 2 items could not be added to Zanthe Vell Items.", gone[1]))
            alert.press("OK")
            self.assertTrue(os.path.islink(os.path.join(ITEMS, "Added 2.txt")))

    def test_adding_at_the_same_moment_overwrites_nothing(self):
        file = os.path.join(HOME, "Same.txt")
        write(file, "x")
        adding = [subprocess.Popen([desktop.PROGRAM, "add", file]) for _ in range(12)]
        self.assertEqual([process.wait(20) for process in adding], [0] * 12)
        names = {name for name in os.listdir(ITEMS) if name.startswith("Same")}
        self.assertEqual(names, {"Same.txt", *(f"Same {number}.txt" for number in range(2, 13))})

    def test_quitting_ends_the_program(self):
        with Panel(), self.program() as program:
            self.choose("QuitZantheVell")
            self.assertEqual(program.ends(), 0)


if __name__ == "__main__":
    sys.exit(unittest.main(verbosity=2))
