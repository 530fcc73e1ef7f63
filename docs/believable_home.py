"""A home folder as a person might have it, for the guide's commands and its pictures."""

import os
import plistlib
import subprocess

FILES = {
    "Documents/Invoices/2026-10.txt": "October\n",
    "Documents/Invoices/2026-11.txt": "November\n",
    "Documents/Letter to Ada.txt": "Dear Ada,\n",
    "Documents/Notes.md": "# Notes\n",
    "Documents/Taxes/2025/Summary.txt": "Summary\n",
    "Downloads/holiday.jpg": "",
    "Music/Song.ogg": "",
    "Pictures/Cat.png": "",
    "Projects/Garden/Plan.txt": "Beans\n",
    "Projects/Website/index.html": "<title>Home</title>\n",
    "Videos/Birthday.webm": "",
    ".local/share/zanthe-vell/Zanthe Vell Items/Shopping List-*[cmd+opt+L]*.txt": "Bread\n",
}


def make(home):
    for name, content in FILES.items():
        path = os.path.join(home, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "w", encoding="utf-8") as file:
            file.write(content)


def store(home, settings):
    """Puts settings in the place of the user's own."""
    folder = os.path.join(home, ".config/zanthe-vell")
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, "org.zanthevell.ZantheVell.plist"), "wb") as file:
        plistlib.dump(settings, file)


def add_script_menu(program, environment, title, printed):
    """A script menu below the home folder's entry, whose script prints that text."""
    home, name = environment["HOME"], "4DBF7F7B-923F-4FF0-ACE3-20916E0129E9"
    script, menu = f"{home}/.local/share/zanthe-vell/.Zanthe Vell Items/{name}.menu.sh", f"{home}/.menu.plist"
    os.makedirs(os.path.dirname(script), 0o700, exist_ok=True)
    with open(script, "w", encoding="utf-8") as file:
        file.write(f"#!/bin/sh\ncat <<'END'\n{printed}END\n")
    os.chmod(script, 0o700)
    items = plistlib.loads(subprocess.run([program, "export", "-"], check=True, env=environment, stdout=subprocess.PIPE).stdout)
    place = [item.get("title") for item in items].index("Home") + 1
    items.insert(place, {"kind": "FSObject", "id": name, "title": title, "location": {"path": script, "displayName": title, "bookmark": b""},
                         "children": [], "isHidden": False, "unrecognizedKeys": {}})
    with open(menu, "wb") as file:
        plistlib.dump(items, file)
    subprocess.run([program, "import", menu], check=True, env=environment, stdout=subprocess.DEVNULL)
    os.remove(menu)
