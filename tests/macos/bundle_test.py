#!/usr/bin/python3
"""What makes the program a Mac application: the property lists are valid and agree with the code."""

import os
import plistlib
import re
import stat
import shutil
import subprocess
import tempfile
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
        provider = read("platform", "macos", "program", "ServicesProvider.h")
        self.assertRegex(provider, rf"- \(void\){service['NSMessage']}:\(NSPasteboard\*\)\w+ userData:\(NSString\*( _Nullable)?\)\w+ error:\(NSString\*")

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


class CommandLineTest(unittest.TestCase):
    def test_the_port_for_commands_has_a_name_of_the_program_s(self):
        name = re.search(r'CFSTR\("([^"]+)"\)', read("platform", "macos", "program", "MessagePortServer.mm"))[1]
        self.assertTrue(name.startswith(configured()["CFBundleIdentifier"] + "."), "other programs' names are not taken")

    def test_the_link_that_the_documents_make_leads_to_what_is_built(self):
        executable = f'Zanthe Vell.app/Contents/MacOS/{configured()["CFBundleExecutable"]}"'
        for document in (("docs", "guide", "en", "mac.md"), ("docs", "guide", "de", "mac.md"), ("docs", "first-mac-build.md"), ("packaging", "linux", "zanthe-vell.1")):
            self.assertIn(executable, read(*document).replace("\\(dq", '"'), document)


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


# Mock tools, which only leave an empty file for their output and record their calls.
TOOLS = {
    "compiler": """out=a.out; last=
for a in "$@"; do [[ $last == -o ]] && out=$a; [[ $last == -MF ]] && : > "$a"; last=$a; done
printf '%s\\n' "$*" >> "$HERE/compiled"; mkdir -p "${out%/*}" 2> /dev/null; : > "$out"; chmod +x "$out\"""",
    "ar": 'for a in "$@"; do [[ $a == *.a ]] && : > "$a"; done; true',
    "ranlib": "true",
    "codesign": """printf '%s\\n' "$*" >> "$HERE/signed"; cd "${@: -1}" && find . -type f | sort > "$HERE/contents\"""",
    "ditto": 'cp -R "$1" "$2"',
}
TOOLCHAIN = """set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_SYSTEM_VERSION 22)
foreach(language CXX OBJCXX)
  set(CMAKE_${language}_COMPILER @HERE@/bin/compiler)
  set(CMAKE_${language}_COMPILER_ID AppleClang)
  set(CMAKE_${language}_COMPILER_VERSION 15.0.0)
  set(CMAKE_${language}_COMPILER_ID_RUN TRUE)
  set(CMAKE_${language}_COMPILER_WORKS TRUE)
  set(CMAKE_${language}_ABI_COMPILED TRUE)
  set(CMAKE_${language}_STANDARD_COMPUTED_DEFAULT 14)
  set(CMAKE_${language}_EXTENSIONS_COMPUTED_DEFAULT ON)
  set(CMAKE_${language}_COMPILE_FEATURES cxx_std_11 cxx_std_14 cxx_std_17 cxx_std_20)
endforeach()
set(CMAKE_AR @HERE@/bin/ar)
set(CMAKE_RANLIB @HERE@/bin/ranlib)
set(CMAKE_INSTALL_NAME_TOOL @HERE@/bin/ranlib)
set(CMAKE_OSX_SYSROOT @HERE@/sdk)
set(CMAKE_SHARED_LIBRARY_RUNTIME_CXX_FLAG "-Wl,-rpath,") # else CMake leaves it out where no Mac's version is known
"""


class BuildTest(unittest.TestCase):
    """The Mac's build with pretended tools: what CMake makes of cmake/macOS.cmake."""

    def setUp(self):
        self.here = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.here)
        os.makedirs(os.path.join(self.here, "bin"))
        os.makedirs(os.path.join(self.here, "sdk"))
        os.makedirs(os.path.join(self.here, "Sparkle.framework"))
        self.write("Sparkle.framework/Sparkle", "")
        self.write("toolchain.cmake", TOOLCHAIN.replace("@HERE@", self.here))
        for name, text in TOOLS.items():
            os.chmod(self.write(f"bin/{name}", f"#!/bin/bash\nHERE={self.here}\n{text}\n"), 0o755)

    def write(self, name, text):
        path = os.path.join(self.here, name)
        with open(path, "w", encoding="utf-8") as file:
            file.write(text)
        return path

    def lines(self, name):
        with open(os.path.join(self.here, name), encoding="utf-8") as file:
            return file.read().splitlines()

    def build(self, *options):
        environment = {**os.environ, "PATH": f"{self.here}/bin:{os.environ['PATH']}"}
        preset = ["-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_OSX_ARCHITECTURES=arm64;x86_64", "-DCMAKE_OSX_DEPLOYMENT_TARGET=13.0", "-DZV_CCACHE="]
        made = ["cmake", "-S", ROOT, "-B", f"{self.here}/build", "-G", "Ninja", "--toolchain", f"{self.here}/toolchain.cmake", *preset, *options]
        for command in (made, ["cmake", "--build", f"{self.here}/build"]):
            ended = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            self.assertEqual(ended.returncode, 0, ended.stdout[-2000:])

    def test_it_makes_a_whole_signed_application_of_both_processors(self):
        self.build("-DZV_FEED_URL=https://updates.zanthevell.org/feed?a=1&b=2", f"-DZV_SPARKLE={self.here}/Sparkle.framework")
        with open(os.path.join(self.here, "build", "Zanthe Vell.app", "Contents", "Info.plist"), "rb") as file:
            self.assertEqual(plistlib.load(file)["SUFeedURL"], "https://updates.zanthevell.org/feed?a=1&b=2")
        contents = self.lines("contents")
        for name in ("Begging.rtf", "Default Apple Menu.plist", "DockMenu.plist", "Library.plist", "Licences.txt", "ZantheVell.icns"):
            self.assertIn(f"./Contents/Resources/{name}", contents, "is there before the application is signed")
        for name in ("man/man1/zanthe-vell.1", "completions/_zanthe-vell", "completions/zanthe-vell.bash", "completions/zanthe-vell.fish"):
            self.assertIn(f"./Contents/Resources/{name}", contents)
        self.assertIn("./Contents/Frameworks/Sparkle.framework/Sparkle", contents)
        compiled = self.lines("compiled")
        commands = [name for name in os.listdir(os.path.join(ROOT, "cli")) if name.endswith(".cpp")]
        self.assertLessEqual({f"/cli/{name}" for name in commands}, {line[line.rfind("/cli/") :] for line in compiled if "/cli/" in line})
        objective = [line for line in compiled if line.endswith(".mm")]
        self.assertEqual(len(objective), sum(len([name for name in names if name.endswith(".mm")]) for _, _, names in os.walk(os.path.join(ROOT, "platform", "macos"))))
        for line in objective:
            self.assertIn("-D__ASSERT_MACROS_DEFINE_VERSIONS_WITHOUT_UNDERSCORES=0", line)
            self.assertRegex(line, r"-fobjc-arc .*-std=c\+\+2|-std=c\+\+2.* -fobjc-arc")
        self.assertTrue(all("-arch arm64 -arch x86_64" in line and "-mmacosx-version-min=13.0" in line for line in compiled))
        self.assertTrue(any("-Wl,-rpath,@executable_path/../Frameworks" in line for line in compiled))
        framework, application = self.lines("signed")
        self.assertTrue(framework.endswith("/Sparkle.framework") and "--entitlements" not in framework, framework)
        self.assertTrue(application.endswith("/Zanthe Vell.app") and "--entitlements" in application and "--deep" not in application, application)
        self.build("-DZV_FEED_URL=https://updates.zanthevell.org/other", "-DZV_SIGNING_IDENTITY=Apple Development: Somebody")
        self.assertEqual(len(self.lines("signed")), 4, "a changed property list is signed anew")
        self.assertTrue(all("--sign Apple Development: Somebody" in line for line in self.lines("signed")[2:]))


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


# Mock tools that record whole calls, in order.
RELEASE_TOOLS = {
    "uname": "echo Darwin",
    "codesign": "called codesign",
    "ditto": '[[ $1 == -c ]] && : > "${@: -1}" || cp -R "$1" "$2"; called ditto',
    "spctl": "called spctl",
    "sleep": "true",
    "hdiutil": """called hdiutil; tries=$(grep -c ^hdiutil "$HERE/called"); [[ $tries -gt $BUSY ]] || { echo "hdiutil: create failed - Resource busy"; exit 1; }
: > "${@: -1}\"""",
    "plutil": """python3 -c 'import json, plistlib, sys
contents = open(sys.argv[2], "rb").read()
print((json.loads if contents.lstrip().startswith(b"{") else plistlib.loads)(contents)[sys.argv[1]])' "$2" "${@: -1}\"""",
    # The real tool also exits with success after a refusal.
    "xcrun": """called "$1"; case "$*" in *submit*) echo '{"id":"a-number","status":"'$STATUS'","message":"Processing complete"}' ;; *log*) echo "its reasons" ;; esac""",
}


class ReleaseTest(unittest.TestCase):
    """The release script with pretended tools."""

    def setUp(self):
        self.here = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.here)
        self.application = os.path.join(self.here, "Zanthe Vell.app")
        framework = os.path.join(self.application, "Contents", "Frameworks", "Sparkle.framework", "Versions", "B")
        for folder in ("Contents/MacOS", f"{framework}/XPCServices/Installer.xpc", f"{framework}/Updater.app"):
            os.makedirs(os.path.join(self.application, folder))
        open(os.path.join(framework, "Autoupdate"), "w", encoding="utf-8").close()
        with open(os.path.join(self.application, "Contents", "Info.plist"), "wb") as file:
            plistlib.dump({"CFBundleShortVersionString": "1.2.3"}, file)
        os.makedirs(os.path.join(self.here, "bin"))
        for name, text in RELEASE_TOOLS.items():
            path = os.path.join(self.here, "bin", name)
            with open(path, "w", encoding="utf-8") as file:
                file.write(f"#!/bin/bash\nHERE={self.here}\ncalled() {{ echo \"$1 $ARGUMENTS\" >> \"$HERE/called\"; }}\nARGUMENTS=\"$*\"\n{text}\n")
            os.chmod(path, 0o755)

    def release(self, status="Accepted", busy=0):
        environment = {**os.environ, "PATH": f"{self.here}/bin:{os.environ['PATH']}", "SIGNING_IDENTITY": "Somebody", "NOTARY_PROFILE": "profile", "STATUS": status, "BUSY": str(busy)}
        ended = subprocess.run([os.path.join(PACKAGING, "release"), self.application], env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        with open(os.path.join(self.here, "called"), encoding="utf-8") as file:
            return ended, file.read().splitlines()

    def test_it_signs_from_the_inside_out_and_makes_an_image_that_is_notarised_and_stapled(self):
        ended, called = self.release(busy=2)
        self.assertEqual(ended.returncode, 0, ended.stdout)
        signed = [line.rsplit("/", 1)[1] for line in called if "--sign" in line]
        self.assertEqual(signed, ["Installer.xpc", "Updater.app", "Autoupdate", "Sparkle.framework", "Zanthe Vell.app", "Zanthe Vell 1.2.3.dmg"])
        stapled = [line.rsplit("/", 1)[1] for line in called if "stapler staple" in line]
        self.assertEqual(stapled, ["Zanthe Vell.app", "Zanthe Vell 1.2.3.dmg"])
        self.assertEqual(sum(line.startswith("hdiutil") for line in called), 3, "a busy disk is tried again")

    def test_what_the_notary_service_refuses_goes_no_further(self):
        ended, called = self.release(status="Invalid")
        self.assertNotEqual(ended.returncode, 0)
        self.assertIn("its reasons", ended.stdout)
        self.assertIn("the notary service says Invalid", ended.stdout)
        self.assertFalse([line for line in called if "stapler" in line or line.startswith("hdiutil")])

    def test_a_disk_that_stays_busy_ends_it(self):
        ended, called = self.release(busy=9)
        self.assertNotEqual(ended.returncode, 0)
        self.assertFalse([line for line in called if "--sign" in line and ".dmg" in line])


if __name__ == "__main__":
    unittest.main()
