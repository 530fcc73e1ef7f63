"""The system's interfaces as declarations (*.d.ts) that were generated from its SDK's headers tell them.

Selectors are run together there: initWithTitle:action: is initWithTitleAction; types are JavaScript's. They lack
values of anonymous enumerations, macros, inline functions, variadic parts, and since when a name exists.
"""

import re
from dataclasses import dataclass, field
from itertools import combinations
from os.path import commonprefix

_BLOCK = re.compile(r"^declare (class|interface|const) (\w+)(?:<.*?>)?(?: extends ([\w, ]+?))?(?: implements ([\w, ]+))?:? \{\n(.*?)^\};?$", re.M | re.S)
_SINGLE = re.compile(r"^declare (function|const) (\w+)(.*);$", re.M)
_MEMBER = re.compile(r"^  (static )?(readonly )?(get |set )?(\w+)\$?\??(.*);$", re.M)
_VALUE = re.compile(r"^  (\w+): (-?\d+),$", re.M)
_GENERIC = re.compile(r"<[\w, ]*(?:This extends abstract new \(\.\.\.args: any\) → any)?>(?=\()")
# Frameworks that come with a linked one; Runtime holds the C library's names and those of Objective-C.
_BROUGHT = {"Cocoa": ["AppKit", "Foundation", "CoreFoundation", "Runtime"]}


def named_frameworks(root):
    """The frameworks that the build for the Mac names."""
    return re.search(r"set\(frameworks ([^)]*)\)", (root / "cmake/macOS.cmake").read_text())[1].split()


def linked_frameworks(root):
    """Those, and what comes with them."""
    named = named_frameworks(root)
    return named + [brought for name in named for brought in _BROUGHT.get(name, [])]


def run_together(selector):
    """initWithTitle:action: as the declarations spell it."""
    first, *rest = selector.split(":")
    return first + "".join(part[:1].upper() + part[1:] for part in rest)


def capital(name):
    return name[:1].upper() + name[1:]


def split_outside(text, separator):
    """The parts of a text between separators that stand in no bracket."""
    parts, depth = [""], 0
    for c in text:
        depth += (c in "([{<") - (c in ")]}>")
        if c == separator and depth == 0:
            parts.append("")
        else:
            parts[-1] += c
    return [part.strip() for part in parts if part.strip()]


def signature(text):
    """The types of the parameters, and of the result, of "(a: number, b: string): void"."""
    parameters, *result = split_outside(text, ":")
    named = [part for part in split_outside(parameters[1:-1], ",") if not part.startswith("this:")]
    return [split_outside(part, ":")[-1] for part in named], result[0] if result else "any"


@dataclass
class Callable:
    """A method or a function; a property is its getter and its setter."""

    owner: str
    parameters: list
    result: str


@dataclass
class Type:
    """A class or a protocol."""

    name: str
    framework: str
    parents: list = field(default_factory=list)  # names, each with whether it is a protocol
    members: dict = field(default_factory=dict)  # by whether static, name, and number of parameters

    def add(self, is_static, name, parameters, result):
        self.members.setdefault((is_static, name, len(parameters)), Callable(self.name, parameters, result))

    def read(self, body):
        for static, readonly, accessor, name, rest in _MEMBER.findall(body):
            is_static, rest = bool(static), _GENERIC.sub("", rest, 1)
            if name == "constructor" or not rest:
                continue
            if not rest.startswith("("):
                self._add_property(is_static, name, rest[1:].strip(), bool(readonly))
                continue
            parameters, result = signature(rest)
            if accessor == "set ":
                self.add(is_static, "set" + capital(name), parameters, "void")
            elif accessor:
                self._add_property(is_static, name, result, True)
            else:
                self.add(is_static, name, parameters, result)

    def _add_property(self, is_static, name, type_, is_readonly):
        self.add(is_static, name, [], type_)
        if type_ == "boolean":
            self.add(is_static, "is" + capital(name), [], type_)
        if not is_readonly:
            self.add(is_static, "set" + capital(name), [type_], "void")


class Sdk:
    def __init__(self, folder, frameworks):
        self.classes, self.protocols, self.structs, self.functions = {}, {}, {}, {}
        self.constants = {}  # type and framework of each
        self.enums = {}  # values by the names of their members
        for framework in frameworks:
            file = folder / f"{framework}.d.ts"
            self._read(framework, file.read_text(errors="replace").replace("=>", "→") if file.exists() else "")
        self._enums_with = {}
        for enum, members in self.enums.items():
            for member in members:
                self._enums_with.setdefault(member, []).append(enum)
        self._anywhere = {}
        for type_ in [*self.classes.values(), *self.protocols.values()]:
            for (_, name, count), member in type_.members.items():
                self._anywhere.setdefault((name, count), []).append(member)

    def _read(self, framework, text):
        for kind, name, extended, implemented, body in _BLOCK.findall(text):
            if kind == "const":
                self.enums.setdefault(name, {}).update((member, int(value)) for member, value in _VALUE.findall(body))
            elif kind == "class" and "constructor(init?" in body:
                self.structs.setdefault(name, framework)
            elif implemented != name:  # a protocol as a value
                is_protocol = kind == "interface"
                type_ = (self.protocols if is_protocol else self.classes).setdefault(name, Type(name, framework))
                type_.parents += [(parent, is_protocol) for parent in split_outside(extended, ",")]
                type_.parents += [(protocol, True) for protocol in split_outside(implemented, ",")]
                type_.read(body)
        for kind, name, rest in _SINGLE.findall(text):
            if kind == "const":
                self.constants.setdefault(name, (rest[2:], framework))
            elif name not in self.functions:
                self.functions[name] = Callable(framework, *signature(_GENERIC.sub("", rest, 1)))

    def type(self, name, is_protocol=False):
        if is_protocol:
            return self.protocols.get(name) or self.protocols.get(name + "Protocol")
        return self.classes.get(name)

    def lineage(self, name, is_protocol=False):
        """The type, its superclasses, and the protocols of all of them, the nearest first."""
        found, queue = [], [(name, is_protocol)]
        for entry in queue:
            type_ = self.type(*entry)
            if type_ and type_ not in found:
                found.append(type_)
                queue += type_.parents
        return found

    def is_kind_of(self, name, other):
        return any(type_.name == other for type_ in self.lineage(name))

    def member(self, owner, is_protocol, selector, is_static):
        key = (is_static, run_together(selector), selector.count(":"))
        return next((type_.members[key] for type_ in self.lineage(owner, is_protocol) if key in type_.members), None)

    def anywhere(self, selector):
        return self._anywhere.get((run_together(selector), selector.count(":")), [])

    def enumerators(self, name, enum=""):
        """The values that the enumerator of that full name may have, each with its enumeration.

        What the names of an enumeration share at either end is cut off in the declarations, so the likeliest are chosen.
        """
        found = []
        for start, end in combinations(range(len(name) + 1), 2):
            for candidate in self._enums_with.get(name[start:end], []) if end - start > 1 else []:
                likeness = 1000 if candidate == enum else _likeness(name[:start], name[start:end], name[end:], candidate)
                if likeness > 0:
                    found.append((likeness, candidate, self.enums[candidate][name[start:end]]))
        best = max(found, default=(0,))[0]
        return [(candidate, value) for likeness, candidate, value in sorted(found, reverse=True) if likeness >= best - 5]

    def framework_of(self, name):
        for kind in (self.classes, self.protocols):
            if name in kind:
                return kind[name].framework
        function = self.functions.get(name)
        return function.owner if function else self.constants.get(name, ("", self.structs.get(name)))[1]

    def knows(self, name):
        return bool(self.framework_of(name) or name in self.enums or self.type(name, True) or self.enumerators(name))


def _likeness(start, member, end, enum):
    """How much of what was cut off an enumerator the enumeration's own name tells."""
    bare = start[1:] if re.match(r"k[A-Z]", start) else start
    shared = len(commonprefix([bare, enum]))
    if shared < 2 or (end and not end[0].isupper()) or (len(end) > len(member) and end not in enum):
        return 0
    return 10 * shared - 20 * (len(bare) - shared) - (0 if end in enum else len(end))
