"""The menu on a desktop, measured: openings against the panel's own menu, cold icons, start, memory."""

import itertools
import os
import re
import shutil
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
PANEL_ENTRIES = 28  # as many as find room below it
ENDINGS = ("txt", "png", "pdf", "odt", "mp3")


class Times(NamedTuple):
    mapped: float
    first: float
    settled: float


def latencies(x, y, *options):
    """In milliseconds, one a run in which a menu came."""
    said = subprocess.run([PROBE, str(x), str(y), *options], capture_output=True, text=True, check=False).stdout
    return [Times(*map(float, run)) for run in re.findall(r"mapped ([\d.]+) first ([\d.]+) settled ([\d.]+)", said)]


def medians(times):
    return Times(*map(statistics.median, zip(*times))) if times else None


def in_turns(sides, rounds=5, runs=4):
    """The medians of each side. They take turns, so that what else the machine does falls on all."""
    found = {name: [] for name in sides}
    for _ in range(rounds):
        for name, arguments in sides.items():
            found[name] += latencies(*arguments, "--runs", str(runs))
    return {name: medians(times) for name, times in found.items()}


def note(row, size, ours, peer="", theirs=0.0):
    """Hands a cell of the table of speeds, in milliseconds or megabytes, to bench/table, where that has asked for them."""
    if path := os.environ.get("ZV_BENCH_ROWS"):
        with open(path, "a", encoding="utf-8") as rows:
            print(row, size, ours, peer, theirs, sep="\t", file=rows)


class BareMenu:
    """A window without anything in it: as quick as a menu can be."""

    def __init__(self, *options):
        self.process = subprocess.Popen([os.environ["ZV_BARE_MENU"], *options])
        time.sleep(0.3)

    def side(self):
        return {"a bare window": (0, 0, "--signal", str(self.process.pid))}

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


class SmallMenu:
    """jgmenu, if it is installed: a menu without a toolkit whose window is kept ready. It
    opens on a signal, so neither a panel nor a bus stands between it and the user."""

    SETTINGS = "stay_alive = 1\nhide_on_startup = 1\nicon_size = 16\ntint2_look = 0\n"
    ICONS = {"txt": "text-x-generic", "png": "image-x-generic", "pdf": "x-office-document", "odt": "x-office-document", "mp3": "audio-x-generic"}

    def __init__(self, titles):
        self.process = None
        if not shutil.which("jgmenu"):
            return
        settings, entries = os.path.join(HOME, "jgmenurc"), os.path.join(HOME, "jgmenu.csv")
        with open(settings, "w", encoding="utf-8") as file:
            file.write(self.SETTINGS)
        with open(entries, "w", encoding="utf-8") as file:
            file.writelines(f"{title},true,{self.ICONS[title.rsplit('.')[-1]]}\n" for title in titles)
        self.process = subprocess.Popen(["jgmenu", f"--config-file={settings}", f"--csv-file={entries}", "--hide-on-startup"],
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        time.sleep(2)

    def side(self):
        return {"jgmenu": (0, 0, "--signal", str(self.process.pid))} if self.process else {}

    def __enter__(self):
        return self

    def __exit__(self, *_):
        if self.process:
            self.process.terminate()
            self.process.wait()


def folder_of(name, count, endings=ENDINGS):
    folder = os.path.join(HOME, name)
    os.makedirs(folder, exist_ok=True)
    for number in range(count):
        with open(os.path.join(folder, f"file {number}.{endings[number % len(endings)]}"), "w", encoding="utf-8"):
            pass
    return folder


def give_panel_menu():
    """Launchers with icons, as on a whole Xfce, in place of the machine's applications; for the panels to come."""
    desktop.write(os.path.join(HOME, ".config/gtk-3.0/settings.ini"), "[Settings]\ngtk-menu-images=1\n")
    folder, menu = os.path.join(HOME, "Launchers"), os.path.join(HOME, "panel.menu")
    for number, icon in zip(range(PANEL_ENTRIES), itertools.cycle(SmallMenu.ICONS.values())):
        desktop.write(os.path.join(folder, f"{number}.desktop"), f"[Desktop Entry]\nType=Application\nName=launcher {number}\nExec=true\nIcon={icon}\n")
    desktop.write(menu, f"<Menu><Name>Launchers</Name><AppDir>{folder}</AppDir><Include><All/></Include></Menu>")
    for key, kind, value in (("custom-menu", "bool", "true"), ("custom-menu-file", "string", menu)):
        subprocess.run(["xfconf-query", "-c", "xfce4-panel", "-p", f"/plugins/plugin-1/{key}", "-n", "-t", kind, "-s", value], check=True)


def menu_of(count):
    folder = folder_of("Many", 1000)
    names = sorted(os.listdir(folder))[:count]
    desktop.set_menu([("FSObject", name, os.path.join(folder, name)) for name in names])
    return names


def report(name, times, references=None):
    if not times:
        print(f"{name:34} nothing opened")
        return
    ratios = "".join(f"  {times.settled / reference.settled:5.2f} of {whose}'s" for whose, reference in (references or {}).items() if reference)
    print(f"{name:34} mapped {times.mapped:6.2f} ms  settled {times.settled:6.2f} ms{ratios}", flush=True)


def first_submenu():
    """The times of a new program's first submenu."""
    with Program():
        wait_until(lambda: Bus().items())
        time.sleep(0.5)
        open_by_icon()
        keys("Down")
        return medians(latencies(0, 0, "--key", "Right", "--runs", "1"))


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
        note(f"250 icons never seen, {moment}", 250, shown, "without icons", hidden)


class Memory(NamedTuple):
    """In megabytes: with its part of what others use too, and what it has written to."""

    proportional: float
    private: float


def memory_of(process):
    with open(f"/proc/{process.pid}/smaps_rollup", encoding="utf-8") as rollup:
        lines = dict(line.split(":", 1) for line in rollup if ":" in line)
    return Memory(*(int(lines[name].split()[0]) / 1024 for name in ("Pss", "Private_Dirty")))


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


def first_opening():
    """The times of a new program's first menu."""
    with Program():
        wait_until(lambda: Bus().items())
        time.sleep(1)
        times = latencies(*Panel.ICON, "--runs", "1")
    wait_until(lambda: not Bus().items())
    return times


def in_the_corner(peers):
    """Where the click reaches the program itself, as it does the panel's own menu; through the
    icon it passes the panel's process for icons and the bus before."""
    zv("prefs", "write", "ReplaceAppleMenu", "true")
    time.sleep(1.5)
    times = in_turns({"ours": PANEL_MENU, **peers})
    zv("prefs", "write", "ReplaceAppleMenu", "false")
    return times["ours"]


def openings_of(count):
    names = menu_of(count)
    first = medians([times for _ in range(7) for times in first_opening()])
    with SmallMenu(names) as small, BareMenu() as bare, Program():
        wait_until(lambda: Bus().items())
        time.sleep(1)
        times = in_turns({"ours": Panel.ICON, "the panel": PANEL_MENU, **small.side(), **bare.side()})
        corner = in_the_corner({**small.side(), **bare.side()})
    references = {name: found for name, found in times.items() if name != "ours"}
    for name, found in references.items():
        report(f"{name}'s own menu", found)
    ways = {"first opening": first, "through the icon": times["ours"], "in the corner": corner}
    for way, found in ways.items():
        report(f"{count} items, {way}", found, references)
        for peer, reference in references.items():
            if found and reference:
                note(f"{way}, mapped", count, found.mapped, peer, reference.mapped)
                note(f"{way}, settled", count, found.settled, peer, reference.settled)


def way_of_the_icon():
    """What of an opening through the icon is the panel's and the bus's: a menu with nothing in it, through an icon."""
    with Panel(), BareMenu("--icon"):
        wait_until(lambda: Bus().items())
        time.sleep(1)
        times = in_turns({"bare": Panel.ICON, "the panel": PANEL_MENU})
    report("a bare window, through the icon", times["bare"], {"the panel": times["the panel"]})
    for moment in ("mapped", "settled"):
        note(f"a bare window through the icon, {moment}", 30, getattr(times["bare"], moment), "the panel", getattr(times["the panel"], moment))


def openings():
    give_panel_menu()
    way_of_the_icon()
    with Panel():
        for count in (10, 30, 100, 250, 1000) if "ZV_BENCH_ROWS" in os.environ else (30, 250):
            openings_of(count)
        desktop.set_menu([("FSObject", "Huge", folder_of("Huge", 10000))])
        with Program():
            wait_until(lambda: Bus().items())
            open_by_icon()
            keys("Down")
            report("a folder of 250 out of 10,000", medians(latencies(0, 0, "--key", "Right")))


def memory():
    menu_of(30)
    with Panel(), Program() as program:
        wait_until(lambda: Bus().items())
        time.sleep(1)
        rest = memory_of(program.process)
        def open_and_close(times):
            for _ in range(times):
                zv("show", "--at", "300,100")
                wait_until(windows)
                keys("Escape")
                wait_until(lambda: not windows())
            time.sleep(1)
            return memory_of(program.process)

        warm = open_and_close(20)
        openings_more = int(os.environ.get("ZV_OPENINGS", "500"))
        much = open_and_close(openings_more)
        for when, found in {"at rest": rest, "after 20 openings": warm, f"after {openings_more} more": much}.items():
            print(f"memory {when} {found.proportional:.1f} MB, its own {found.private:.1f} MB")
        note("memory at rest (MB)", 1, rest.proportional)
        note("its own memory at rest (MB)", 1, rest.private)
        note("memory after openings (MB)", openings_more, much.proportional)
        note("its own memory after openings (MB)", openings_more, much.private)


def used(process):
    """How often the program's threads have woken from waiting, and the nanoseconds of the processor that they took."""
    wakeups = spent = 0
    for task in os.scandir(f"/proc/{process.pid}/task"):
        with open(os.path.join(task, "status"), encoding="utf-8") as status:
            wakeups += next(int(line.split()[1]) for line in status if line.startswith("voluntary_ctxt_switches"))
        with open(os.path.join(task, "schedstat"), encoding="utf-8") as stat:
            spent += int(stat.read().split()[0])
    return wakeups, spent


def idle():
    """What the program does while nobody does anything, with its icon and its corner on a panel without a clock: the
    corner is looked at when the panel paints. The toolkit clears its cache of pictures half a minute after the start."""
    menu_of(30)
    of_panel = ["xfconf-query", "-c", "xfce4-panel", "-p", "/panels/panel-1/plugin-ids", "--force-array"]
    subprocess.run(of_panel + [word for plugin in "1234" for word in ("-t", "int", "-s", plugin)], check=True)
    zv("prefs", "write", "ReplaceAppleMenu", "true")
    seconds = int(os.environ.get("ZV_IDLE", "60"))
    states = {"at rest": ["true"], "screen blanked": ["xset", "s", "activate"]}
    with Panel(), Program() as program:
        wait_until(lambda: Bus().items())
        time.sleep(25)
        for state, enter in states.items():
            subprocess.run(enter, check=True)
            time.sleep(10)
            wakeups, spent = used(program.process)
            time.sleep(seconds)
            wakeups, spent = (now - before for now, before in zip(used(program.process), (wakeups, spent)))
            per_minute, percent = wakeups * 60 / seconds, spent / seconds / 1e7
            print(f"idle, {state}: {per_minute:.1f} wakeups a minute, {percent:.4f} % of a core", flush=True)
            note(f"idle, {state}: wakeups a minute", 1, per_minute)
            note(f"idle, {state}: % of a core", 1, percent)
        subprocess.run(["xset", "s", "reset"], check=True)
    zv("prefs", "write", "ReplaceAppleMenu", "false")


def start():
    with Panel():
        print(f"start to registered icon {start_to_icon():.0f} ms ")


if __name__ == "__main__":
    zv("prefs", "write", "ReplaceAppleMenu", "false")
    only = {"--icons": [cold_icons], "--memory": [memory], "--idle": [idle]}
    for measure in only.get(sys.argv[-1], [openings, cold_icons, start]):
        measure()
