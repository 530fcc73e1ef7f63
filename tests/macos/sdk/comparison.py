"""Holds what was read of the front end against the system's own declarations."""

import re
from collections import Counter

# Names that the declarations cannot carry, by reason.
BEYOND = {
    name: why
    for why, names in {
        "inline functions and macros": "NSMakeRect NSMakeSize NSMakePoint NSMakeRange NSMaxRange NSEdgeInsetsMake NSMinX NSMinY NSMidX NSMidY"
        " NSMaxX NSMaxY NSWidth NSHeight CFBridgingRelease CFBridgingRetain CFSTR CGRectMake kCGNullWindowID htonl ntohl RENAME_EXCL XATTR_NOFOLLOW MNT_NOWAIT MNT_LOCAL IFF_UP IFF_LOOPBACK",
        "other names of types": "NSUInteger NSInteger NSRect NSPoint NSSize NSNotificationName NSAttributedStringKey NSModalResponse CGWindowID AEEventClass AEEventID AEAddressDesc",
        "sent by menus to whoever is first, declared nowhere": "undo: redo:",
        "newer than the declarations; asked for before it is used": "setPreferredImageVisibility:",
        "the update framework's": "allowedChannelsForUpdater: supportsGentleScheduledUpdateReminders"
        " standardUserDriverShouldHandleShowingScheduledUpdate:andInImmediateFocus: standardUserDriverWillHandleShowingUpdate:forUpdate:state:"
        " standardUserDriverDidReceiveUserAttentionForUpdate: standardUserDriverWillFinishUpdateSession",
        "not named like their enumeration": "NSViewWidthSizable NSViewHeightSizable",
        "numbers that differ between processors; named, never stated": "NSTextAlignmentRight NSTextAlignmentCenter",
    }.items()
    for name in names.split()
}
_SORTS = {  # of JavaScript's types: their counterparts here
    "string": ("string", "selector", "pointer"),
    "number": ("number", "boolean"),
    "interop.Enum": ("number", "boolean"),
    "boolean": ("boolean", "number"),
    "interop.Object": ("object", "string", "pointer", "block"),
    "this": ("object", "string", "pointer", "block"),
}


class Comparison:
    def __init__(self, sdk, facts, sent):
        """sent: selectors that come from elsewhere."""
        self._sdk, self._facts = sdk, facts
        self._sent = facts.sent | sent | {name for _, sort, name in facts.names if sort == "selector"}
        self._own_selectors = {method.name for method in facts.implemented}
        self.findings, self.counts = set(), Counter()

    def run(self):
        facts = self._facts
        for use in facts.messages + facts.declared:
            self._count("messages and declarations", self._send, use)
        for use in facts.implemented:
            self._count("methods of our own", self._implemented, use)
        for use in facts.functions:
            self._count("functions", self._function, use)
        for constant in facts.constants:
            self._count("constants", self._constant, *constant)
        for named in facts.names:
            self._count("names", self._name, *named)

    def _count(self, sort, check, *arguments):
        self.counts[sort] += 1
        check(*arguments)

    def _find(self, place, name, text):
        if name not in BEYOND:
            self.findings.add(f"{place}: {text}")

    # Methods

    def _parents(self, owner):
        """The system's classes and protocols among what a class of ours inherits from; of protocols between <>, these."""
        if "<" in owner:
            return [(protocol, True) for protocol in re.findall(r"\w+", owner.split("<")[1])] + self._parents(owner.split("<")[0])
        if owner not in self._facts.parents:
            return [(owner, False)]
        return [found for name, is_protocol in self._facts.parents[owner] for found in ([(name, True)] if is_protocol else self._parents(name))]

    def _member(self, owners, use, is_static):
        return next(filter(None, (self._sdk.member(*owner, use.name, is_static) for owner in owners)), None)

    def _send(self, use):
        owners = [(use.owner, True)] if use.is_protocol else self._parents(use.owner)
        theirs = self._member(owners, use, use.is_static)
        is_anything = use.owner in ("id", "Class") or not any(self._sdk.type(*owner) for owner in owners)
        if theirs:
            self._signature(use, theirs)
        elif not is_anything:
            self._find(use.place, use.name, f"{_shown(use)} is not in the SDK{self._hint(owners, use)}")
        elif use.name not in self._own_selectors and not self._sdk.anywhere(use.name):
            self._find(use.place, use.name, f"{_shown(use)} is nowhere in the SDK")

    def _hint(self, owners, use):
        if self._member(owners, use, not use.is_static):
            return " but for " + ("objects" if use.is_static else "the class")
        others = sorted({member.owner for member in self._sdk.anywhere(use.name)})[:3]
        return f"; {', '.join(others)} has it" if others else ""

    def _implemented(self, use):
        theirs = self._member(self._parents(use.owner), use, use.is_static)
        if theirs:
            self._signature(use, theirs)
        elif use.name not in self._sent:
            self._find(use.place, use.name, f"{_shown(use)} is called by nobody")

    def _signature(self, use, theirs):
        shown = _shown(use) if use.owner else use.name
        for i, (js, kind) in enumerate(zip(theirs.parameters, use.parameters), 1):
            if not self.agrees(js, kind):
                self._find(use.place, use.name, f"{shown}: parameter {i} is {kind}, in the SDK {js}")
        is_void = theirs.result == "void"
        if (use.result.sort == "void") != is_void or not is_void and not self.agrees(theirs.result, use.result):
            self._find(use.place, use.name, f"{shown}: gives {use.result}, in the SDK {theirs.result}")

    def agrees(self, js, kind):
        """Whether a type of JavaScript's may stand for one of ours."""
        name = re.sub(r"<.*", "", next(part for part in js.split(" | ") + ["null"] if part not in ("null", "undefined") or part == js))
        if kind.sort in ("other", "void"):
            return True
        if "nullptr" in kind.spelling:
            return name not in ("number", "boolean") and name not in self._sdk.structs
        if "→" in js:
            return kind.sort in ("block", "pointer")
        if name in _SORTS:
            return kind.sort in _SORTS[name] or (name == "string" and kind.name == "id")
        if name in self._sdk.structs:
            return kind.sort in ("struct", "pointer")
        if kind.sort in ("object", "string"):
            return self._is_related(kind.name, name)
        if kind.sort == "pointer":
            return name not in self._sdk.classes or "__CF" in kind.name
        return name.startswith("interop.") and kind.sort in ("selector", "block")

    def _is_related(self, mine, theirs):
        """Up or down: an override may have narrower types."""
        mine = self._parents(mine) if mine not in ("id", "Class") else []
        known = [owner for owner in mine if self._sdk.type(*owner)]
        if not known or not (self._sdk.type(theirs) or self._sdk.type(theirs, True)):
            return True
        protocol = self._sdk.type(theirs, True)
        inherited = {type_.name for owner in known for type_ in self._sdk.lineage(*owner)}
        if self._sdk.type(theirs):
            return theirs in inherited or any(self._sdk.is_kind_of(theirs, name) for name, _ in known)
        return protocol.name in inherited

    # Functions, constants and names

    def _function(self, use):
        theirs = self._sdk.functions.get(use.name)
        if not theirs:
            self._find(use.place, use.name, f"{use.name}() is not in the SDK")
        elif len(theirs.parameters) != len(use.parameters):
            self._find(use.place, use.name, f"{use.name}() has {len(use.parameters)} parameters, in the SDK {len(theirs.parameters)}")
        else:
            self._signature(use, theirs)

    def _constant(self, place, name, enum, value):
        type_ = self._sdk.constants.get(name, ("interop.Enum", ""))[0]
        candidates = self._sdk.enumerators(name, enum) if "interop.Enum" in type_ else []
        if candidates and value is not None and value not in (stated for _, stated in candidates):
            self._find(place, name, f"{name} is {value}, in the SDK {candidates[0][1]} ({candidates[0][0]})")
        elif not candidates and name not in self._sdk.constants:
            self._find(place, name, f"{name} is not in the SDK")

    def _name(self, place, sort, name):
        if sort == "superclass":
            found = self._sdk.is_kind_of(*name.split(": "))
        elif sort == "selector":
            found = name in self._own_selectors or not name.strip(":") or self._sdk.anywhere(name)
        elif sort == "word":
            found = name.endswith("Ref") or self._sdk.knows(name)
        else:
            found = name in self._facts.parents or (name in self._sdk.structs if sort == "struct" else self._sdk.type(name, sort == "protocol"))
        if not found:
            self._find(place, name, f"the {sort} {name} is not in the SDK")

    def unused(self):
        """What is declared by hand without need."""
        for place, name in self._facts.declarations.items():
            if place not in self._facts.used and name not in self._own_selectors and not name.startswith("_"):
                self.findings.add(f"{place}: {name} is declared, and used by nothing")


def _shown(use):
    return f"{'+' if use.is_static else '-'}[{use.owner} {use.name}]"
