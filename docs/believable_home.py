"""A home folder as a person might have it, for the guide's commands and its pictures."""

import os
import plistlib

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
