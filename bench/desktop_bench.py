"""The menu on a desktop, measured: openings against the panel's own menu, cold icons, start, memory."""

import os
import re
import statistics
import subprocess
import sys
import time
from typing import NamedTuple

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tests", "desktop"))
import desktop  # noqa: E402
from desktop import Bus, Panel, Program, keys, open_by_icon, wait_until, windows, zv  # noqa: E402

PROBE = os.environ["ZV_CLICK_LATENCY"]
HOME = desktop.HOME
PANEL_MENU = (12, 13)


class Times(NamedTuple):
    mapped: float
    first: float
    settled: float


def latency(x, y, *options):
    """Medians in milliseconds; nothing when no menu came."""
    said = subprocess.run([PROBE, str(x), str(y), *options], capture_output=True, text=True, check=False).stdout
    found = re.search(r"mapped ([\d.]+) first ([\d.]+) settled ([\d.]+)", said)
    return Times(*map(float, found.groups())) if found else None


def folder_of(name, count, endings=("txt", "png", "pdf", "odt", "mp3")):
    folder = os.path.join(HOME, name)
    os.makedirs(folder, exist_ok=True)
    for number in range(count):
        with open(os.path.join(folder, f"file {number}.{endings[number % len(endings)]}"), "w", encoding="utf-8"):
            pass
    return folder


def menu_of(count):
    folder = folder_of("Many", 250)
    names = sorted(os.listdir(folder))[:count]
    desktop.set_menu([("FSObject", name, os.path.join(folder, name)) for name in names])


def report(name, times, reference=None, aim=None):
    if not times:
        print(f"{name:44} nothing opened")
        return
    ratio = f"  {times.settled / reference.settled:5.2f} of the panel's" if reference else ""
    print(f"{name:44} mapped {times.mapped:6.2f} ms  settled {times.settled:6.2f} ms{ratio}" + (f"  aim {aim}" if aim else ""))


def first_submenu():
    """The times of a new program's first submenu."""
    with Program():
        wait_until(lambda: Bus().items())
        time.sleep(0.5)
        open_by_icon()
        keys("Down")
        return latency(0, 0, "--key", "Right", "--runs", "1")


def cold_icons():
    """What icons that nobody has drawn yet cost a folder of 250 entries before its first paint."""
    endings = ("txt", "png", "pdf", "odt", "mp3", "ods", "odp", "zip", "html", "cpp", "py", "sh", "mkv", "ogg", "svg", "css", "js", "iso", "ttf", "deb", "c", "xml")
    desktop.set_menu([("FSObject", "Cold", folder_of("Cold", 250, endings))])
    found = {"true": [], "false": []}
    with Panel():
        for _ in range(int(os.environ.get("ZV_ROUNDS", "7"))):
            for icons, times in found.items():
                zv("prefs", "write", "ShowIcons", icons)
                times.append(first_submenu())
    zv("prefs", "reset", "ShowIcons")
    for moment in ("mapped", "first", "settled"):
        shown, hidden = (statistics.median(getattr(times, moment) for times in found[icons] if times) for icons in ("true", "false"))
        print(f"250 cold icons, {moment:8} {shown:6.2f} ms, without icons {hidden:6.2f} ms, ratio {shown / hidden:.2f}")


def proportional_memory(process):
    with open(f"/proc/{process.pid}/smaps_rollup", encoding="utf-8") as rollup:
        return next(int(line.split()[1]) for line in rollup if line.startswith("Pss:")) / 1024


def start_to_icon():
    """Milliseconds from the start of the process to its registered icon; the best of five, as others use the machine too."""
    times = []
    for _ in range(5):
        begin = time.monotonic()
        with Program():
            bus = Bus()
            while not bus.items():
                pass
            times.append((time.monotonic() - begin) * 1000)
        wait_until(lambda: not Bus().items())
    return min(times)


def openings():
    with Panel():
        reference = latency(*PANEL_MENU)
        report("the panel's applications menu", reference)
        for count, aim in ((30, "2 / 4"), (250, "6 / 10")):
            menu_of(count)
            with Program():
                wait_until(lambda: Bus().items())
                time.sleep(1)
                report(f"{count} items, first opening", latency(*Panel.ICON, "--runs", "1"), reference)
                report(f"{count} items, warm", latency(*Panel.ICON), reference, aim)
        desktop.set_menu([("FSObject", "Huge", folder_of("Huge", 10000))])
        with Program():
            wait_until(lambda: Bus().items())
            open_by_icon()
            keys("Down")
            report("a folder of 250 out of 10,000", latency(0, 0, "--key", "Right"), None, "14 to map")


def memory():
    menu_of(30)
    with Panel(), Program() as program:
        wait_until(lambda: Bus().items())
        time.sleep(1)
        rest = proportional_memory(program.process)
        def open_and_close(times):
            for _ in range(times):
                zv("show", "--at", "300,100")
                wait_until(windows)
                keys("Escape")
                wait_until(lambda: not windows())
            time.sleep(1)
            return proportional_memory(program.process)

        warm = open_and_close(20)
        much = open_and_close(int(os.environ.get("ZV_OPENINGS", "500")))
        print(f"memory at rest {rest:.1f} MB (aim 28), after 20 openings {warm:.1f}, after 500 more {much:.1f}")


def start():
    with Panel():
        print(f"start to registered icon {start_to_icon():.0f} ms (aim 90)")


if __name__ == "__main__":
    zv("prefs", "write", "ReplaceAppleMenu", "false")
    only = {"--icons": [cold_icons], "--memory": [openings, cold_icons, start, memory]}
    for measure in only.get(sys.argv[-1], [openings, cold_icons, start]):
        measure()
