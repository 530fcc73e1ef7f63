"""Adds "Add to Zanthe Vell Items" to the context menu of Files (needs python3-nautilus)."""
import gettext
import subprocess

from gi.repository import GObject, Nautilus

translated = gettext.translation("zanthe-vell", fallback=True).gettext


class AddToZantheVellItems(GObject.GObject, Nautilus.MenuProvider):
    def get_file_items(self, *arguments):
        # Older versions hand in the window before the files.
        paths = [file.get_location().get_path() for file in arguments[-1]]
        if not paths or None in paths:
            return []
        item = Nautilus.MenuItem(name="ZantheVell::Add", label=translated("Add to Zanthe Vell Items"), icon="org.zanthevell.ZantheVell")
        item.connect("activate", lambda _: subprocess.Popen(["zanthe-vell", "add", "--alert", "--", *paths]))
        return [item]
