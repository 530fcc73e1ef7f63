#!/usr/bin/python3
"""stubs.py TYPES SDK   Writes what the linker needs of the frameworks (*.tbd) into the folder SDK: the names of their
classes, functions and constants, as the declarations in the folder TYPES have them."""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(ROOT / "tests/macos/sdk"))
from sdk import Sdk, linked_frameworks  # noqa: E402

# Functions of Objective-C's runtime that the compiler calls by itself (clang, "Automatic Reference Counting", runtime support).
RUNTIME = """msgSend msgSendSuper msgSendSuper2 msgSend_fpret msgSend_stret msgSendSuper2_stret alloc alloc_init allocWithZone opt_new opt_self opt_class
opt_isKindOfClass opt_respondsToSelector retain release autorelease retainAutorelease retainAutoreleaseReturnValue autoreleaseReturnValue
retainAutoreleasedReturnValue unsafeClaimAutoreleasedReturnValue claimAutoreleasedReturnValue retainBlock storeStrong storeWeak initWeak loadWeak
loadWeakRetained destroyWeak copyWeak moveWeak autoreleasePoolPush autoreleasePoolPop enumerationMutation getProperty setProperty
setProperty_atomic setProperty_nonatomic setProperty_atomic_copy setProperty_nonatomic_copy copyStruct copyCppObjectAtomic sync_enter sync_exit
exception_throw exception_rethrow begin_catch end_catch terminate getClass lookUpClass ehtype_vtable""".split()
REGISTERS = [f"{what}_x{number}" for what in ("retain", "release") for number in range(29) if number not in (16, 17, 18)]
OTHERS = ["_objc_empty_cache", "_objc_empty_vtable", "__objc_personality_v0", "OBJC_EHTYPE_id", "object_getClass", "sel_isEqual", "sel_registerName"]
# Symbols missing in the declarations: those of literals (clang's CGObjC.cpp), and the last is from NSMakeRange in the
# headers that stand for the Mac's here.
UNNAMED = {"CoreFoundation": ["__CFConstantStringClassReference", "__NSArray0__", "__NSDictionary0__"], "Foundation": ["OBJC_EHTYPE_$_NSException", "_NSRangeExceptionRaise"]}


def write(folder, name, install_name, symbols, classes):
    folder.mkdir(parents=True, exist_ok=True)
    targets = "targets: [ x86_64-macos, arm64-macos ]"
    lines = ["--- !tapi-tbd", "tbd-version: 4", targets, f"install-name: '{install_name}'", "exports:", f"  - {targets}"]
    lines += [f"    {sort}: [ " + ", ".join(sorted(names)) + " ]" for sort, names in (("symbols", symbols), ("objc-classes", classes)) if names]
    (folder / f"{name}.tbd").write_text("\n".join([*lines, "...", ""]))


def main():
    types, into = map(Path, sys.argv[1:])
    frameworks = [name for name in linked_frameworks(ROOT) if name != "Runtime"]
    sdk = Sdk(types, frameworks)
    for framework in frameworks:
        symbols = {f"'_{name}'" for name in UNNAMED.get(framework, [])}
        symbols |= {f"'_{name}'" for name in [*sdk.functions, *sdk.constants] if sdk.framework_of(name) == framework}
        classes = {name for name, class_ in sdk.classes.items() if class_.framework == framework}
        version = "C" if framework in ("AppKit", "Foundation") else "A"
        folder = Path(f"System/Library/Frameworks/{framework}.framework")
        write(into / folder, framework, f"/{folder}/Versions/{version}/{framework}", symbols, classes)
    runtime = {f"'_objc_{name}'" for name in RUNTIME + REGISTERS} | {f"'_{name}'" for name in OTHERS}
    write(into / "usr/lib", "libobjc", "/usr/lib/libobjc.A.dylib", runtime, {"NSObject", "Protocol"})


if __name__ == "__main__":
    main()
