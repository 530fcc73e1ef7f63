"""From a command to the first painted frame of the menu, seen on the X screens that a compositor and an X server draw on."""

import array
import ctypes
import os
import shutil
import socket
import statistics
import struct
import subprocess
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tests", "desktop"))
import desktop  # noqa: E402
from desktop import Bus, Program, wait_until  # noqa: E402
from wayland import Client, text  # noqa: E402

from gi.repository import GLib  # noqa: E402

PLACE = (500, 300)
SEEN = (506, 312)  # within the menu
ROUNDS, RUNS = 5, 4


class Screen:
    """One pixel of an X screen."""

    def __init__(self, display):
        self.display = display
        self.x = ctypes.CDLL("libX11.so.6")
        self.x.XOpenDisplay.restype = self.x.XGetImage.restype = self.x.XDefaultRootWindow.restype = ctypes.c_void_p
        self.x.XGetPixel.restype = ctypes.c_ulong
        self.connection = ctypes.c_void_p(self.x.XOpenDisplay(display.encode()))
        self.root = ctypes.c_void_p(self.x.XDefaultRootWindow(self.connection))

    def pixel(self):
        image = ctypes.c_void_p(self.x.XGetImage(self.connection, self.root, *SEEN, 1, 1, ctypes.c_ulong(0xffffffff), 2))
        value = self.x.XGetPixel(image, 0, 0)
        self.x.XDestroyImage(image)
        return value

    def changed(self, ground, begin):
        """The milliseconds since then, as soon as the pixel has another colour."""
        while self.pixel() == ground:
            if time.perf_counter() - begin > 3:
                raise AssertionError("nothing came on " + self.display)
        return (time.perf_counter() - begin) * 1000

    def latency(self, bus):
        """In milliseconds, from a command to the first change of the pixel."""
        ground = self.pixel()
        begin = time.perf_counter()
        bus.connection.call(desktop.NAME, "/" + desktop.NAME.replace(".", "/"), desktop.NAME, "ShowMenuAt", GLib.Variant("(ii)", PLACE), None, 0, -1, None, None)
        bus.connection.flush_sync(None)
        found = self.changed(ground, begin)
        time.sleep(0.15)
        subprocess.run(["xdotool", "key", "Escape"], check=True, env={**os.environ, "DISPLAY": self.display})
        wait_until(lambda: self.pixel() == ground, 3, "the menu closes")
        time.sleep(0.1)
        return found


class BareSurface(Client):
    """A layer surface of one colour at the menu's place: the least that any program there must wait for."""

    WIDTH, HEIGHT = 200, 100

    def __init__(self):
        super().__init__()
        self.compositor, memory, self.shell = self.bind("wl_compositor", 4), self.bind("wl_shm"), self.bind("zwlr_layer_shell_v1")
        size, pool, self.buffer = 4 * self.WIDTH * self.HEIGHT, self.new(), self.new()
        file = os.memfd_create("bare")
        os.write(file, b"\xff\x00\xff\xff" * (size // 4))
        self.socket.sendmsg([struct.pack("=IHHIi", memory, 0, 16, pool, size)], [(socket.SOL_SOCKET, socket.SCM_RIGHTS, array.array("i", [file]))])
        self.send(pool, 0, struct.pack("=IiiiiI", self.buffer, 0, self.WIDTH, self.HEIGHT, 4 * self.WIDTH, 0))
        self.sync()

    def show(self):
        surface, role = self.new(), self.new()
        self.send(self.compositor, 0, struct.pack("=I", surface))
        self.send(self.shell, 0, struct.pack("=IIII", role, surface, 0, 3) + text("bare"))
        self.send(role, 0, struct.pack("=II", self.WIDTH, self.HEIGHT))
        self.send(role, 1, struct.pack("=I", 1 | 4))  # top and left
        self.send(role, 3, struct.pack("=iiii", PLACE[1], 0, 0, PLACE[0]))
        self.send(surface, 6)  # commit
        serial = None
        while not serial:
            serial = next((event[:4] for target, opcode, event in list(self.events()) if (target, opcode) == (role, 0)), None)
        self.send(role, 6, serial)
        self.send(surface, 1, struct.pack("=Iii", self.buffer, 0, 0))
        self.send(surface, 2, struct.pack("=iiii", 0, 0, self.WIDTH, self.HEIGHT))
        self.send(surface, 6)
        return surface, role

    def latency(self, screen):
        ground, begin = screen.pixel(), time.perf_counter()
        surface, role = self.show()
        found = screen.changed(ground, begin)
        time.sleep(0.15)
        self.send(role, 7)
        self.send(surface, 0)
        self.sync()
        wait_until(lambda: screen.pixel() == ground, 3, "the bare surface goes")
        time.sleep(0.1)
        return found


def latencies(screen, environment):
    bus = Bus()
    with Program(**environment):
        wait_until(lambda: bus.has_owner(desktop.NAME), 20, "the start")
        time.sleep(0.7)
        screen.latency(bus)  # the first one loads fonts and pictures
        found = [screen.latency(bus) for _ in range(RUNS)]
    wait_until(lambda: not bus.has_owner(desktop.NAME), 5, "the end")
    return found


class Server:
    """An X server of our own, with the compositing manager that X11 desktops have, where one is wanted."""

    def __init__(self, manager=None):
        read, write = os.pipe()
        self.processes = [self.start("Xvfb", "-displayfd", str(write), "-screen", "0", "1280x800x24", "-nolisten", "tcp", pass_fds=[write])]
        self.display = ":" + os.read(read, 8).decode().strip()
        if manager:
            self.processes.append(self.start(*manager, env={**os.environ, "DISPLAY": self.display}))
            time.sleep(0.5)

    @staticmethod
    def start(*command, **how):
        return subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **how)

    def side(self):
        return Screen(self.display), {"DISPLAY": self.display, "WAYLAND_DISPLAY": None, "XDG_SESSION_TYPE": "x11"}

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()


def note(others, wayland):
    """Hands a cell of the table of speeds for each peer to bench/table, where that has asked for them."""
    if path := os.environ.get("ZV_BENCH_ROWS"):
        with open(path, "a", encoding="utf-8") as rows:
            for name, time_there in others.items():
                print(f"first frame after show on {sys.argv[1]}", 1, wayland, name, time_there, sep="\t", file=rows)


def main():
    desktop.set_menu([("Sleep", None, None), ("LogOut", None, None), ("RecentApplications", None, None)])
    servers = {"X11": Server()}
    if shutil.which("picom"):
        servers["X11 with picom"] = Server(["picom", "--backend", "xrender", "--config", "/dev/null"])
    sides = {"wayland": (Screen(os.environ["DISPLAY_OF_SEAT"]), {"DISPLAY": None}), **{name: server.side() for name, server in servers.items()}}
    bare = BareSurface() if "SWAYSOCK" in os.environ else None  # KWin configures none for so plain a client
    found = {name: [] for name in [*sides, *(["bare surface"] if bare else [])]}
    for _ in range(ROUNDS):  # in turns, so that what else the machine does falls on all
        for name, (screen, environment) in sides.items():
            found[name] += latencies(screen, environment)
    for server in servers.values():
        server.end()
        if bare:
            found["bare surface"] += [bare.latency(sides["wayland"][0]) for _ in range(RUNS)]
    wayland = statistics.median(found.pop("wayland"))
    note({name: statistics.median(times) for name, times in found.items()}, wayland)
    ratios = "".join(f"  {wayland / statistics.median(times):5.2f} of {name}'s {statistics.median(times):.1f}" for name, times in found.items())
    print(f"first frame after show on {sys.argv[1]:5} {wayland:6.2f} ms{ratios}  aim 2", flush=True)


if __name__ == "__main__":
    main()
