#!/usr/bin/python3
"""bundle_check.py TYPES APPLICATION PROCESSOR   Looks at an application that was linked against stubs: how it is loaded, what it
needs of the system, and what lies in its bundle. The declarations in the folder TYPES know the system's selectors."""

import plistlib
import re
import subprocess
import sys
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests/macos/sdk"))
from comparison import BEYOND  # noqa: E402
from sdk import Sdk, linked_frameworks, named_frameworks  # noqa: E402

TYPES, APPLICATION, PROCESSOR = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3]
PROGRAM = APPLICATION / "Contents/MacOS/Zanthe Vell"


def told(tool, *options):
    return subprocess.run([f"llvm-{tool}-14", *options, PROGRAM], capture_output=True, text=True, check=True).stdout


class BundleTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.header = told("objdump", "--macho", "--private-headers")

    def values(self, command, name):
        """Of one name in all the load commands of a kind."""
        found = re.findall(rf"cmd {command}\n(?:(?!Load command).*\n)*?\s*{name} (.*)", self.header)
        return [re.sub(r" \(offset.*", "", value) for value in found]

    def test_it_is_a_program_for_the_oldest_system_and_the_processor(self):
        self.assertRegex(self.header, rf"{PROCESSOR.upper()} .* EXECUTE .*TWOLEVEL.* PIE")
        self.assertEqual(len(re.findall("cmd LC_MAIN", self.header)), 1)
        self.assertEqual(self.values("LC_BUILD_VERSION", "minos"), ["13.0"])

    def test_it_finds_the_frameworks_that_lie_in_its_bundle(self):
        self.assertEqual(self.values("LC_RPATH", "path"), ["@executable_path/../Frameworks"])

    def test_it_loads_what_the_build_names_and_the_system_s_libraries(self):
        loaded = self.values("LC_LOAD_DYLIB", "name")
        frameworks = [name.split("/")[-1] for name in loaded if name.startswith("/System/Library/Frameworks/")]
        self.assertEqual(set(frameworks), set(linked_frameworks(ROOT)) - {"Runtime"})
        self.assertEqual([name for name in frameworks if name in named_frameworks(ROOT)], named_frameworks(ROOT))
        self.assertEqual({name for name in loaded if not name.startswith("/System/")}, {"/usr/lib/libSystem.B.dylib", "/usr/lib/libobjc.A.dylib"})

    def test_every_selector_is_the_system_s_or_its_own(self):
        sdk = Sdk(TYPES, linked_frameworks(ROOT))
        own = set(re.findall(r"[-+]\[\w+(?:\(\w+\))? ([\w:]+)\]", told("nm")))
        sources = "".join(file.read_text() for file in (ROOT / "platform/macos").rglob("*.[hm]*"))
        own |= set(re.findall(r"@property[^;]*?\b(\w+);", sources))
        size, offset = re.search(r"sectname __objc_methname\n.*\n.*\n\s*size (\w+)\n\s*offset (\d+)", self.header).groups()
        named = PROGRAM.read_bytes()[int(offset) :][: int(size, 16)].decode().split("\0")[:-1]
        self.assertGreater(len(named), 500)
        named = [name for name in named if not re.match("T.+,", name)]  # what a property is, beside its name
        unknown = [name for name in named if name[0] not in "._" and name not in own and name not in BEYOND and not sdk.anywhere(name)]
        updates = " ".join(file.read_text() for file in (ROOT / "platform/macos").rglob("SparkleInterface.h")).lower()
        self.assertEqual([name for name in unknown if not all(part.removeprefix("set") in updates for part in name.lower().split(":"))], [])

    def test_the_bundle_has_what_the_program_reads(self):
        information = plistlib.loads((APPLICATION / "Contents/Info.plist").read_bytes())
        self.assertEqual(information["CFBundleExecutable"], PROGRAM.name)
        listed = re.search(r"set\(resources(.*?)\)\n", (ROOT / "cmake/macOS.cmake").read_text(), re.S)[1]
        for name in re.findall(r'/([^/"]+)"', listed):
            self.assertTrue((APPLICATION / "Contents/Resources" / name).is_file(), name)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
