"""The start of the program, taken apart by what others see of it: that it is loaded, the
name on the bus, the icon that registers, the menu that answers. All in milliseconds since
the process was started; the least of several runs counts, as others use the machine too."""

import os
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

from gi.repository import Gio, GLib

PROGRAM, BARE = os.environ["ZV_PROGRAM"], os.environ["ZV_BARE_START"]
WATCHER = "org.kde.StatusNotifierWatcher"
INTERFACE = Gio.DBusNodeInfo.new_for_xml(f"""<node><interface name="{WATCHER}">
<method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
<method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
<property name="RegisteredStatusNotifierItems" type="as" access="read"/>
<property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
<property name="ProtocolVersion" type="i" access="read"/>
</interface></node>""").interfaces[0]


class Observer:
    """A panel's watcher, and a look at who takes which name."""

    def __init__(self):
        self.bus = Gio.bus_get_sync(Gio.BusType.SESSION)
        self.seen = {}
        self.item = None
        self.bus.register_object("/StatusNotifierWatcher", INTERFACE, self.called, self.read, None)
        self.bus.call_sync("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName", GLib.Variant("(su)", (WATCHER, 0)), None, 0, -1, None)
        self.bus.signal_subscribe("org.freedesktop.DBus", "org.freedesktop.DBus", "NameOwnerChanged", None, None, 0, self.owner_changed)

    def called(self, _bus, sender, _path, _interface, method, _arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            self.item = sender
            self.note("the icon registers")
        invocation.return_value(None)

    def read(self, _bus, _sender, _path, _interface, name):
        return {"RegisteredStatusNotifierItems": GLib.Variant("as", []), "IsStatusNotifierHostRegistered": GLib.Variant("b", True)}.get(
            name, GLib.Variant("i", 0))

    def owner_changed(self, *arguments):
        name, _, owner = arguments[5].unpack()
        if name.startswith("org.zanthevell.") and owner:
            self.note("its name is on the bus")

    def note(self, what):
        self.seen.setdefault(what, (time.monotonic() - self.begin) * 1000)

    def run(self, program, last, **environment):
        """What was seen of one start, until `last` was; and what it took of the processor and of memory in all."""
        self.seen, self.item, self.begin = {}, None, time.monotonic()
        process = subprocess.Popen([program], env={**os.environ, "XCTestSessionIdentifier": "bench", **environment}, stderr=subprocess.DEVNULL)
        try:
            while last not in self.seen and time.monotonic() - self.begin < 20:
                GLib.MainContext.default().iteration(True)
            if self.item:
                self.bus.call_sync(self.item, "/StatusNotifierItem/Menu", "com.canonical.dbusmenu", "AboutToShow", GLib.Variant("(i)", (0,)), None, 0, -1, None)
                self.note("the menu answers")
        finally:
            process.terminate()
            _, process.returncode, self.used = os.wait4(process.pid, 0)
        return self.seen


def loading_time(runs):
    """Loading the program and its libraries, with the end of the process: a command that does next to nothing."""
    def once():
        begin = time.monotonic()
        subprocess.run([PROGRAM, "--version"], stdout=subprocess.DEVNULL, check=True)
        return (time.monotonic() - begin) * 1000

    return min(once() for _ in range(runs))


def least(observer, program, last, runs):
    all_seen = [observer.run(program, last) for _ in range(runs)]
    return {what: min(seen[what] for seen in all_seen if what in seen) for what in all_seen[0]}


def note(step, ours, bare):
    """Hands a cell of the table of speeds to bench/table, where that has asked for them."""
    if path := os.environ.get("ZV_BENCH_ROWS"):
        with open(path, "a", encoding="utf-8") as rows:
            print(f"start, {step}", 1, ours, "a bare program", bare, sep="\t", file=rows)


def with_a_catalogue(observer, runs):
    """A start and the menu in German, with our catalogue and without, in turn: the processor's time, as others use the machine, too."""
    with tempfile.TemporaryDirectory() as folder:
        bare = shutil.copy(PROGRAM, folder)
        os.symlink(os.path.realpath(os.path.join(os.path.dirname(PROGRAM), "resources")), os.path.join(folder, "resources"))
        used = {program: [] for program in (PROGRAM, bare)}
        for _ in range(runs):
            for program, each in used.items():
                observer.run(program, "the icon registers", LANG="C.UTF-8", LANGUAGE="de")
                each.append((observer.used.ru_utime + observer.used.ru_stime, observer.used.ru_maxrss))
    took = statistics.median(ours[0] / other[0] for ours, other in zip(*used.values()))
    held = statistics.median(ours[1] for ours in used[PROGRAM]) - statistics.median(other[1] for other in used[bare])
    print(f"{'in German, until the menu answers':40} {took:20.3f} of the processor's time without a catalogue, {held:+.0f} KB")


def main():
    runs = int(sys.argv[1]) if len(sys.argv) > 1 else 10
    subprocess.run([PROGRAM, "prefs", "write", "ReplaceAppleMenu", "false"], check=True)
    observer = Observer()
    bare = least(observer, BARE, "its name is on the bus", runs)["its name is on the bus"]
    print(f"{'a bare program: its name is on the bus':40} {bare:7.1f} ms   1.00")
    steps = {"it is loaded": loading_time(runs), **least(observer, PROGRAM, "the icon registers", runs)}
    before = 0.0
    for what, at in steps.items():
        print(f"{what:40} {at:7.1f} ms  {at / bare:5.2f} of the bare one's start, {at - before:.1f} ms after the step before")
        before = at
        note(what, at, bare)
    with_a_catalogue(observer, runs)


main()
