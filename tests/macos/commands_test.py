#!/usr/bin/python3
"""The Mac's command line at work where another implementation of the system's interfaces can
carry it: a process a command, without windows. Usage: commands_test.py PROGRAM"""

import json
import os
import plistlib
import shutil
import subprocess
import sys
import tempfile
import unittest

PROGRAM = os.path.abspath(sys.argv.pop(1))
CONFIGURATION = "/etc/GNUstep/GNUstep.conf"


class Commands(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.home)
        self.items = os.path.join(self.home, "Library", "Zanthe Vell Items")
        os.makedirs(os.path.join(self.items, "Sub"))
        for name in ("Example-*[cmd+opt+E]*.txt", "File 10", "File 9"):
            open(os.path.join(self.items, name), "w", encoding="utf-8").close()
        with open(CONFIGURATION, encoding="utf-8") as given, open(os.path.join(self.home, "configuration"), "w", encoding="utf-8") as own:
            for line in given:
                own.write(f"GNUSTEP_USER_DEFAULTS_DIR={self.home}/Defaults\n" if line.startswith("GNUSTEP_USER_DEFAULTS_DIR=") else line)

    def run_program(self, *arguments, **options):
        environment = {**os.environ, "HOME": self.home, "GNUSTEP_CONFIG_FILE": os.path.join(self.home, "configuration"), "LC_ALL": "C.UTF-8"}
        ended = subprocess.run([PROGRAM, *arguments], env=environment, cwd=self.home, capture_output=True, text=True, timeout=60, **options)
        self.assertNotRegex(ended.stderr, "Uncaught exception|does not recognize|main thread")
        return ended

    def done(self, *arguments):
        ended = self.run_program(*arguments)
        self.assertEqual(ended.returncode, 0, ended.stderr)
        return ended.stdout

    def failed(self, *arguments):
        ended = self.run_program(*arguments)
        self.assertEqual(ended.returncode, 1, ended.stdout)
        return next(line for line in ended.stderr.splitlines() if line.startswith("zanthe-vell: "))

    def test_the_menu_is_printed_with_its_folders_and_lists(self):
        shown = self.done("menu", "--expand", "1")
        self.assertTrue(shown.startswith("About This Mac\n"), shown)
        self.assertIn("Zanthe Vell Items ▸\n  Sub ▸\n    (Loading…)\n  Example.txt", shown)
        self.assertLess(shown.index("  File 9\n"), shown.index("  File 10\n"))
        self.assertLess(shown.index("Recent Items ▸\n  (No Items)"), shown.index("Running Applications ▸\n  (No Items)"))
        self.assertIn("⌘,", shown)
        entries = json.loads(self.done("menu", "--json", "--option"))["items"]
        self.assertIn({"type": "item", "title": "Quit Zanthe Vell", "enabled": True}, [{key: entry.get(key) for key in ("type", "title", "enabled")} for entry in entries])

    def test_settings_are_there_for_the_next_command(self):
        self.done("prefs", "write", "ShowIcons", "false")
        self.assertEqual(self.done("prefs", "read", "ShowIcons"), "false\n")
        self.done("prefs", "reset", "ShowIcons")
        self.assertEqual(self.done("prefs", "read", "ShowIcons"), "true\n")

    def test_the_menu_goes_out_and_in(self):
        self.done("export", "menu.plist")
        self.done("import", "menu.plist")
        with open(os.path.join(self.home, "menu.plist"), "rb") as file:
            document = plistlib.load(file)
        with open(os.path.join(self.home, "menu.plist"), "wb") as file:
            plistlib.dump(document[:2], file)
        self.assertEqual(self.done("import", "menu.plist"), "Imported 2 items.\n")
        self.assertEqual(len(plistlib.loads(self.done("export", "-").encode())), 2)
        kept = os.path.join(self.home, "Library", "Application Support", "Zanthe Vell", "Backups")
        self.assertEqual(len(os.listdir(kept)), 1, "what was replaced is kept")

    def test_files_are_added(self):
        self.done("add", "configuration")
        self.assertIn("configuration", os.listdir(self.items))
        self.assertIn("“gone”", self.failed("add", "gone"))

    def test_entries_act_and_say_what_went_wrong(self):
        self.assertIn("reveal", self.done("perform", "--command", "Zanthe Vell Items", "File 9"))
        self.assertIn("needs permission", self.failed("perform", "Sleep"))
        self.assertIn("there is no “x” in “Zanthe Vell Items”", self.failed("perform", "Zanthe Vell Items", "x"))

    def test_without_the_program_nobody_is_asked(self):
        for arguments in (("quit",), ("hotkeys",)):
            self.assertEqual(self.failed(*arguments), "zanthe-vell: Zanthe Vell is not running.")
        said = self.done("doctor")
        self.assertRegex(said, r"Program +limited")
        self.assertRegex(said, r"Resources +ok")
        self.assertNotRegex(said, "Accessibility|Hotkeys")

    def test_the_running_program_is_asked(self):
        for arguments, did in (
            (("show",), "shows its menu\n"),
            (("show", "--at", "10,20"), "shows its menu at 10\n"),
            (("settings",), "opens its settings\n"),
            (("quit",), "quits\n"),
            (("hotkeys",), "F5      /x\n\nTo take a file’s shortcut away, rename the file without “-*[…]*”.\n"),
        ):
            self.assertEqual(self.done("--running", *arguments), did)
        self.assertIn("1 files are not taken.", self.failed("--running", "add", "--alert", "configuration"))
        checks = {check["name"]: check for check in json.loads(self.done("--running", "doctor", "--json"))}
        self.assertEqual((checks["Program"]["state"], checks["Automation"]["state"], checks["Accessibility"]["state"]), ("ok", "ok", "limited"))
        self.assertIn("⌥⌘E", checks["Hotkeys"]["explanation"])


if __name__ == "__main__":
    unittest.main()
