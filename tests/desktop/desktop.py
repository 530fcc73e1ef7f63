"""The real program on a private desktop, seen and driven from outside."""

import json
import os
import plistlib
import signal
import subprocess
import time

from gi.repository import Gio, GLib

PROGRAM = os.environ["ZV_PROGRAM"]
HOME = os.environ["HOME"]
NAME = "org.zanthevell.ZantheVell"
WATCHER = ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", "org.kde.StatusNotifierWatcher")


def wait_until(condition, seconds=5.0, what=""):
    """Polls until the condition holds, and gives what it gave; fails after that many seconds."""
    end = time.monotonic() + seconds
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > end:
            raise AssertionError("it never happened: " + (what or getattr(condition, "__name__", "?")))
        time.sleep(0.02)


def output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=False).stdout


class Bus:
    """Calls on the session bus."""

    def __init__(self, address=None):
        member = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self.connection = Gio.DBusConnection.new_for_address_sync(address, member) if address else Gio.bus_get_sync(Gio.BusType.SESSION)

    def call(self, name, path, interface, method, arguments=None, reply=None):
        kind = GLib.VariantType(reply) if reply else None
        answer = self.connection.call_sync(name, path, interface, method, arguments, kind, Gio.DBusCallFlags.NO_AUTO_START, 5000, None)
        return answer.unpack()

    def has_owner(self, name):
        return self.call("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "NameHasOwner", GLib.Variant("(s)", (name,)))[0]

    def items(self):
        """The names of the registered status items."""
        try:
            answer = self.call(*WATCHER[:2], "org.freedesktop.DBus.Properties", "Get",
                               GLib.Variant("(ss)", (WATCHER[2], "RegisteredStatusNotifierItems")))
        except GLib.Error:
            return []
        return [item.split("/")[0] for item in answer[0]]


class BusMenu:
    """The menu as a desktop that draws it itself reads it."""

    def __init__(self, bus, owner):
        self.bus, self.owner = bus, owner
        self.updates = []
        self.subscription = bus.connection.signal_subscribe(
            None, "com.canonical.dbusmenu", "LayoutUpdated", "/StatusNotifierItem/Menu", None, Gio.DBusSignalFlags.NONE,
            lambda *arguments: self.updates.append(arguments[5].unpack()))

    def call(self, method, arguments):
        return self.bus.call(self.owner, "/StatusNotifierItem/Menu", "com.canonical.dbusmenu", method, arguments)

    def about_to_show(self, entry=0):
        return self.call("AboutToShow", GLib.Variant("(i)", (entry,)))[0]

    def entries(self, entry=0, depth=1):
        """(number, properties) of the entries of a submenu, separators left out."""
        layout = self.call("GetLayout", GLib.Variant("(iias)", (entry, depth, [])))[1]
        return [(child[0], child[1]) for child in layout[2] if child[1].get("type") != "separator"]

    def titles(self, entry=0):
        return [properties["label"] for _, properties in self.entries(entry)]

    def number(self, title, entry=0):
        return next(number for number, properties in self.entries(entry) if properties["label"] == title)

    def choose(self, entry):
        self.call("Event", GLib.Variant("(isvu)", (entry, "clicked", GLib.Variant("i", 0), 0)))

    def updates_so_far(self):
        """Signals that have arrived, and those that are on their way."""
        context = GLib.MainContext.default()
        end = time.monotonic() + 0.1
        while time.monotonic() < end:
            context.iteration(False)
        return self.updates


class Program:
    """One run of it."""

    # Launches of tests do not count: no window of notes opens on the second.
    TESTING = {"XCTestSessionIdentifier": "desktop"}

    def __init__(self, command=(PROGRAM,), **environment):
        merged = {key: value for key, value in {**os.environ, **self.TESTING, **environment}.items() if value is not None}
        self.log = open(os.path.join(HOME, ".program.log"), "w+", encoding="utf-8")
        self.process = subprocess.Popen(command, env=merged, stdout=self.log, stderr=self.log)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process.poll() is None:
            self.process.terminate()
        try:
            self.process.wait(5)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
            raise AssertionError("it did not end when asked to")
        self.log.close()

    def is_running(self):
        return self.process.poll() is None

    def ends(self, seconds=5):
        return self.process.wait(seconds)

    def kill(self):
        self.process.send_signal(signal.SIGKILL)
        self.process.wait()

    def said(self):
        self.log.flush()
        with open(self.log.name, encoding="utf-8") as log:
            return log.read()


class Panel:
    """A real panel with a StatusNotifier host; its systray is at the right end."""

    ICON = (1268, 13)

    def __enter__(self):
        self.log = open(os.path.join(HOME, ".panel.log"), "a", encoding="utf-8")
        self.process = subprocess.Popen(["xfce4-panel"], stdout=self.log, stderr=self.log)
        wait_until(lambda: Bus().has_owner(WATCHER[0]), 10, "the panel watches for status items")
        return self

    def __exit__(self, *_):
        # A plain kill: asked by name the panel would restart itself in some sessions.
        self.process.kill()
        self.process.wait()
        self.log.close()
        wait_until(lambda: not Bus().has_owner(WATCHER[0]), 15, "the panel is gone")


def write(path, text="", mode=0o644):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    os.chmod(path, mode)


def launcher(name, command, more=""):
    """An application of that name in the home folder, which runs a command when it is started."""
    path = os.path.join(HOME, f"{name}.desktop")
    write(path, f"[Desktop Entry]\nType=Application\nName={name}\nExec={command}\n{more}", 0o755)
    return path


def zv(*arguments):
    """Runs a command of the program; fails when it fails."""
    done = subprocess.run([PROGRAM, *arguments], capture_output=True, text=True, check=False, timeout=20)
    if done.returncode != 0:
        raise AssertionError(f"zanthe-vell {' '.join(arguments)}: {done.returncode} {done.stderr}")
    return done.stdout


def set_menu(items):
    """Puts a menu of (kind, title, path) in place."""
    records = []
    for kind, title, path in items:
        record = {"Kind": kind}
        if title:
            record["Title"] = title
        if path:
            record["Path"] = path
        records.append(record)
    import_menu({"MenuDesc": records})


def import_menu(document):
    path = os.path.join(HOME, "menu.plist")
    with open(path, "wb") as file:
        plistlib.dump(document, file)
    zv("import", path)


def menu_titles():
    """What the command line says that the menu holds."""
    return [item["title"] for item in json.loads(zv("menu", "--json"))["items"] if item["type"] != "separator"]


def geometries(*search):
    """(x, y, width, height) of the visible windows that a search finds."""
    found = []
    for window in output("xdotool", "search", "--onlyvisible", *search).split():
        facts = dict(line.split("=") for line in output("xdotool", "getwindowgeometry", "--shell", window).split() if "=" in line)
        if facts:
            found.append(tuple(int(facts[key]) for key in ("X", "Y", "WIDTH", "HEIGHT")))
    return sorted(found)


def windows(program="zanthe-vell"):
    """Where a program's windows are that are as large as a menu."""
    return [place for place in geometries("--class", program) if place[3] > 40]


def titled(title):
    """Where the windows with exactly that title are."""
    return geometries("--name", f"^{title}$")


def brightness(x, y, width, height):
    """The mean of a part of the screen, from 0 to 1."""
    picture = ["import", "-window", "root", "-crop", f"{width}x{height}+{x}+{y}", "png:-"]
    mean = ["convert", "png:-", "-colorspace", "Gray", "-format", "%[fx:mean]", "info:"]
    taken = subprocess.run(picture, capture_output=True, check=True).stdout
    return float(subprocess.run(mean, input=taken, capture_output=True, check=True).stdout)


def click(x, y, button=1):
    subprocess.run(["xdotool", "mousemove", str(x), str(y), "click", str(button)], check=True)


def keys(*names):
    for name in names:
        subprocess.run(["xdotool", "key", name], check=True)
        time.sleep(0.05)


def open_by_icon():
    """Clicks the icon until the menu is there. A panel takes a moment to show a new icon; a
    second click on one that is only slow would open the menu twice, so each has its time."""
    for _ in range(4):
        click(*Panel.ICON)
        try:
            return wait_until(windows, 6, "the menu")
        except AssertionError:
            continue
    raise AssertionError("the icon opens nothing")


def close_menus():
    for _ in range(6):
        if not windows():
            return
        keys("Escape")
    wait_until(lambda: not windows(), 2, "the menu closes")
