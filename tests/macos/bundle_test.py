#!/usr/bin/python3
"""What makes the program a Mac application: the property lists are valid and agree with the code."""

import os
import plistlib
import re
import stat
import subprocess
import unittest

ROOT = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
PACKAGING = os.path.join(ROOT, "packaging", "macos")
RESOURCES = os.path.join(ROOT, "app", "resources")


def read(*parts):
    with open(os.path.join(ROOT, *parts), encoding="utf-8") as file:
        return file.read()


def configured(**given):
    values = {"PROJECT_VERSION": "1.2.3", "ZV_FEED_URL": "", "ZV_UPDATE_KEY": "", **given}
    text = read("packaging", "macos", "Info.plist.in")
    return plistlib.loads(re.sub(r"\$\{(\w+)\}", lambda found: values[found[1]], text).encode())


class InformationTest(unittest.TestCase):
    def setUp(self):
        self.information = configured()

    def test_it_is_an_agent_of_the_version_that_is_built(self):
        self.assertIs(self.information["LSUIElement"], True)
        self.assertEqual(self.information["CFBundleShortVersionString"], "1.2.3")
        self.assertEqual(self.information["CFBundleVersion"], "1.2.3")
        self.assertEqual(self.information["LSMinimumSystemVersion"], "13.0")
        self.assertIn('"CMAKE_OSX_DEPLOYMENT_TARGET": "13.0"', read("CMakePresets.json"))

    def test_the_executable_is_the_one_that_is_built(self):
        name = re.search(r'OUTPUT_NAME "([^"]+)"', read("cmake", "macOS.cmake"))[1]
        self.assertEqual(self.information["CFBundleExecutable"], name)

    def test_the_service_is_a_message_that_the_provider_takes(self):
        (service,) = self.information["NSServices"]
        self.assertEqual(service["NSMenuItem"]["default"], "Add to Zanthe Vell Items")
        self.assertEqual(service["NSSendFileTypes"], ["public.item"])
        self.assertEqual(service["NSPortName"], self.information["CFBundleName"])
        provider = read("platform", "macos", "ServicesProvider.h")
        self.assertRegex(provider, rf"- \(void\){service['NSMessage']}:\(NSPasteboard\*\)\w+ userData:\(NSString\*\)\w+ error:\(NSString\*")

    def test_the_exported_type_is_the_one_that_is_dragged(self):
        (declared,) = self.information["UTExportedTypeDeclarations"]
        dragged = re.search(r'menuItemDragType = "([^"]+)"', read("app", "model", "MenuItem.h"))[1]
        self.assertEqual(declared["UTTypeIdentifier"], dragged)
        self.assertTrue(dragged.startswith(self.information["CFBundleIdentifier"]))

    def test_every_protected_thing_has_its_reason(self):
        for what in ("AppleEvents", "DesktopFolder", "DocumentsFolder", "DownloadsFolder", "RemovableVolumes", "NetworkVolumes"):
            reason = self.information[f"NS{what}UsageDescription"]
            self.assertTrue(reason.endswith(".") and len(reason) > 20, what)

    def test_updates_are_off_until_a_feed_and_a_key_are_given(self):
        self.assertEqual((self.information["SUFeedURL"], self.information["SUPublicEDKey"]), ("", ""))
        self.assertEqual(self.information["SUScheduledCheckInterval"], 86400)
        given = configured(ZV_FEED_URL="https://updates.zanthevell.org/feed.xml", ZV_UPDATE_KEY="A" * 43 + "=")
        self.assertEqual(given["SUFeedURL"], "https://updates.zanthevell.org/feed.xml")
        self.assertEqual(given["SUPublicEDKey"], "A" * 43 + "=")

    def test_cmake_knows_every_name_that_is_filled_in(self):
        names = set(re.findall(r"\$\{(\w+)\}", read("packaging", "macos", "Info.plist.in")))
        cmake = read("cmake", "macOS.cmake")
        for name in names - {"PROJECT_VERSION"}:
            self.assertRegex(cmake, rf"set\({name} .* CACHE ")


class ContentsTest(unittest.TestCase):
    def test_the_entitlements_are_the_events_alone(self):
        with open(os.path.join(PACKAGING, "ZantheVell.entitlements"), "rb") as file:
            self.assertEqual(plistlib.load(file), {"com.apple.security.automation.apple-events": True})

    def test_every_resource_of_the_bundle_is_there_and_valid(self):
        listed = re.findall(r'"\$\{CMAKE_SOURCE_DIR\}/((?:app|packaging)/[^"]+)"', re.search(r"set\(resources(.*?)\)\n", read("cmake", "macOS.cmake"), re.S)[1])
        names = {os.path.basename(path) for path in listed}
        self.assertLessEqual({"Begging.rtf", "Default Apple Menu.plist", "DockMenu.plist", "Library.plist", "ZantheVell.icns"}, names)
        for path in listed:
            with open(os.path.join(ROOT, path), "rb") as file:
                contents = file.read()
            if path.endswith(".plist"):
                self.assertTrue(plistlib.loads(contents), path)
            elif path.endswith(".rtf"):
                self.assertTrue(contents.startswith(b"{\\rtf1") and contents.rstrip().endswith(b"}"), path)
                self.assertEqual(contents.count(b"{"), contents.count(b"}"), path)
            elif path.endswith(".icns"):
                self.check_icon(contents)
            else:
                self.assertTrue(contents.decode("utf-8").strip(), path)

    def check_icon(self, contents):
        self.assertEqual(contents[:4], b"icns")
        self.assertEqual(int.from_bytes(contents[4:8], "big"), len(contents))
        at, kinds = 8, []
        while at < len(contents):
            size = int.from_bytes(contents[at + 4 : at + 8], "big")
            kinds.append(contents[at : at + 4])
            self.assertEqual(contents[at + 8 : at + 12], b"\x89PNG")
            at += size
        self.assertEqual(at, len(contents))
        self.assertIn(b"ic10", kinds)

    def test_every_resource_that_the_program_loads_is_in_the_bundle(self):
        listed = read("cmake", "macOS.cmake")
        sources = subprocess.run(["grep", "-rhoE", r'load\("[^"]+", "[^"]+"\)', os.path.join(ROOT, "app")], stdout=subprocess.PIPE, text=True).stdout
        found = re.findall(r'load\("([^"]+)", "([^"]+)"\)', sources)
        self.assertTrue(found)
        for name, extension in found:
            self.assertIn(f"{name}.{extension}", listed)


class ScriptsTest(unittest.TestCase):
    SCRIPTS = ("build", "release")

    def test_they_run_and_parse(self):
        for script in self.SCRIPTS:
            path = os.path.join(PACKAGING, script)
            self.assertTrue(os.stat(path).st_mode & stat.S_IXUSR, script)
            subprocess.run(["bash", "-n", path], check=True)

    def test_they_say_what_they_need_and_do_nothing_without_it(self):
        environment = {"PATH": os.environ["PATH"]}
        for script, expected in (("build", "Mac"), ("release", "application")):
            ended = subprocess.run([os.path.join(PACKAGING, script)], env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            if os.uname().sysname != "Darwin":
                self.assertNotEqual(ended.returncode, 0, script)
                self.assertIn(expected, ended.stdout)


if __name__ == "__main__":
    unittest.main()
