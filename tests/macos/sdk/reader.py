"""What Objective-C++ files use and declare of the system, read by libclang with the flags of tests/macos/check."""

import ctypes
import functools
import os
import re
from dataclasses import dataclass, field

from clang import cindex
from clang.cindex import CursorKind as C, TypeKind as T

_FRONT_END, _DECLARATIONS = "platform/macos/", ("tests/macos/compat/", "tests/macos/decl/", "tests/macos/sdk/faults.h")
_METHODS = (C.OBJC_INSTANCE_METHOD_DECL, C.OBJC_CLASS_METHOD_DECL)
_INTERFACES = (C.OBJC_INTERFACE_DECL, C.OBJC_CATEGORY_DECL, C.OBJC_PROTOCOL_DECL)
_WRAPPERS = (C.UNEXPOSED_EXPR, C.PAREN_EXPR)
_ASSIGNED = re.compile(r"\s*(?:[-+*/|&^]|<<|>>)?=[^=]")
_QUALIFIERS = re.compile(r"\b(?:const|volatile|__strong|__weak|__autoreleasing|__unsafe_unretained|_Nullable|_Nonnull|__kindof)\b *")


@dataclass(frozen=True)
class Kind:
    """A type, as far as the two languages share it."""

    sort: str  # number boolean string selector object block pointer struct void other
    name: str = ""
    spelling: str = ""

    def __str__(self):
        return self.spelling or self.sort


@dataclass
class Use:
    """A message, a method or a function, as the front end, or what is declared for it, takes it to be."""

    place: str
    owner: str  # a class, a protocol, protocols between <>, id, or Class
    name: str
    is_static: bool
    parameters: list
    result: Kind
    is_protocol: bool = False


@dataclass
class Facts:
    messages: list = field(default_factory=list)  # to the system's objects
    declared: list = field(default_factory=list)  # by hand, of the system's classes
    implemented: list = field(default_factory=list)
    functions: list = field(default_factory=list)
    constants: set = field(default_factory=set)  # place, name, enumeration, value
    names: set = field(default_factory=set)  # place, sort, name
    parents: dict = field(default_factory=dict)  # of classes of our own: names, each with whether it is a protocol
    sent: set = field(default_factory=set)  # selectors of all messages
    used: set = field(default_factory=set)  # places of declarations
    declarations: dict = field(default_factory=dict)  # names by place

    def add(self, other):
        for name, mine in vars(self).items():
            mine.extend(getattr(other, name)) if isinstance(mine, list) else mine.update(getattr(other, name))


def sort_of(cursor):
    """Nothing for a cursor that the Python side has no name for."""
    try:
        return cursor.kind
    except ValueError:
        return None


def bare(spelling):
    return _QUALIFIERS.sub("", spelling).strip()


def kind_of(type_):
    spelling, canonical = bare(type_.spelling), type_.get_canonical()
    name, kind = bare(canonical.spelling), canonical.kind
    if spelling in ("BOOL", "bool", "Boolean") or kind == T.BOOL:
        return Kind("boolean", name, spelling)
    if kind == T.OBJCOBJECTPOINTER:
        name = re.sub(r"[ *]*(<.*)?[ *]*$", "", name)
        return Kind("string" if name in ("NSString", "NSMutableString", "NSConstantString") else "object", name, spelling)
    if kind == T.ENUM or T.CHAR_U.value <= kind.value <= T.LONGDOUBLE.value:
        return Kind("number", name, spelling)
    sorts = {T.OBJCSEL: "selector", T.VOID: "void", T.BLOCKPOINTER: "block", T.OBJCID: "object", T.OBJCCLASS: "object", T.RECORD: "struct",
             T.POINTER: "pointer", T.LVALUEREFERENCE: "pointer", T.INCOMPLETEARRAY: "pointer", T.CONSTANTARRAY: "pointer", T.NULLPTR: "pointer"}
    sort = "selector" if spelling == "SEL" else sorts.get(kind, "other")
    return Kind(sort, {T.OBJCID: "id", T.OBJCCLASS: "Class"}.get(kind, name), spelling)


def innermost(cursor):
    """The expression without the conversions that the compiler put around it; they take no room, unlike a literal's brackets."""
    children = list(cursor.get_children())
    if sort_of(cursor) not in _WRAPPERS or len(children) != 1:
        return cursor
    return innermost(children[0]) if sort_of(cursor) == C.PAREN_EXPR or children[0].extent == cursor.extent else cursor


def type_of(cursor):
    """Of an expression without the conversions around it; a property has its type in its declaration alone."""
    inner = innermost(cursor)
    declared = inner.referenced if sort_of(inner) == C.MEMBER_REF_EXPR else None
    return inner.type if not declared else declared.result_type if sort_of(declared) in _METHODS else declared.type


def setter_of(property):
    return f"set{property.spelling[:1].upper()}{property.spelling[1:]}:"


def children_of(cursor, *kinds):
    return [child for child in cursor.get_children() if sort_of(child) in kinds]


class Reader:
    """Reads files one by one; in the folder `made` is what `check --flags` put there."""

    def __init__(self, root, made):
        self._root = root
        self._flags = ["-x", "objective-c++", f"-I{root}", *(made / "flags").read_text().splitlines()]
        self._pch = ["-include-pch", str(made / "appkit.pch")]
        self._index = cindex.Index.create(excludeDecls=True)
        self._lib = cindex.conf.lib
        self._lib.clang_Cursor_getReceiverType.restype = cindex.Type
        self._lib.clang_Cursor_getReceiverType.argtypes = [cindex.Cursor]
        self._lib.clang_Cursor_getReceiverType.errcheck = cindex.Type.from_result
        self._lib.clang_Cursor_Evaluate.restype = ctypes.c_void_p
        self._lib.clang_Cursor_Evaluate.argtypes = [cindex.Cursor]
        for name, result in (("getKind", ctypes.c_int), ("getAsLongLong", ctypes.c_longlong), ("dispose", None)):
            function = getattr(self._lib, f"clang_EvalResult_{name}")
            function.restype, function.argtypes = result, [ctypes.c_void_p]

    def read(self, file):
        """What a file of the front end uses and implements."""
        return self._read(file, self._pch, (_FRONT_END, os.path.relpath(file, self._root)), self._walk)

    def read_declarations(self, file):
        """What the headers that the file includes declare by hand."""
        return self._read(file, [], _DECLARATIONS, self._declaration)

    def _read(self, file, headers, folders, visit):
        self.facts, self._folders, self._paths = Facts(), folders, {}
        unit = self._index.parse(str(file), self._flags + headers)
        errors = [str(told) for told in unit.diagnostics if told.severity >= cindex.Diagnostic.Error]
        if errors:
            raise RuntimeError("\n".join(errors[:5]))
        for cursor in unit.cursor.get_children():
            if self._path(cursor).startswith(folders):
                visit(cursor)
        return self.facts

    def _path(self, cursor):
        """Relative to the project, where it lies there."""
        name = cursor.location.file.name if cursor.location.file else ""
        if name not in self._paths:
            self._paths[name] = os.path.relpath(name, self._root) if name else ""
        return self._paths[name]

    def _place(self, cursor):
        return f"{self._path(cursor)}:{cursor.location.line}:{cursor.location.column}"

    def _is_ours(self, cursor):
        return self._path(cursor).startswith(self._folders)

    # Uses

    def _walk(self, cursor):
        kind = sort_of(cursor)
        if kind in _VISITS:
            _VISITS[kind](self, cursor)
        for child in cursor.get_children():
            self._walk(child)

    def _refer(self, cursor):
        """The system's declaration that an expression refers to; nothing for one of ours, or of a C++ library."""
        declared = cursor.referenced
        if declared is None or self._is_ours(declared):
            return None
        scope = declared.semantic_parent
        while scope and sort_of(scope) in (C.ENUM_DECL, C.LINKAGE_SPEC, C.UNEXPOSED_DECL, *_INTERFACES):
            scope = scope.semantic_parent
        if scope and sort_of(scope) != C.TRANSLATION_UNIT:
            return None
        self.facts.used.add(self._place(declared))
        return declared

    def _message(self, cursor):
        self.facts.sent.add(cursor.spelling)
        if cursor.referenced and self._is_ours(cursor.referenced):
            return
        declared = self._refer(cursor)
        receiver = self._lib.clang_Cursor_getReceiverType(cursor)
        is_static = sort_of(declared) == C.OBJC_CLASS_METHOD_DECL if declared else receiver.kind == T.OBJCINTERFACE
        arguments = [kind_of(type_of(argument)) for argument in self._arguments(cursor)]
        self._send(cursor, receiver.get_canonical().spelling, cursor.spelling, is_static, arguments, kind_of(cursor.type))

    @staticmethod
    def _arguments(message):
        """Those that the selector counts; before them stands the receiver, but for super."""
        children, count = list(message.get_children()), message.spelling.count(":")
        while len(children) > count and sort_of(children[0]) in (C.OBJC_CLASS_REF, C.TYPE_REF):
            del children[0]
        is_before = len(children) > count and message.referenced and sort_of(message.referenced) == C.OBJC_INSTANCE_METHOD_DECL
        return children[is_before : count + is_before]

    def _send(self, cursor, owner, selector, is_static, arguments, result):
        owner = bare(owner).replace("*", "").strip()
        self.facts.messages.append(Use(self._place(cursor), owner, selector, is_static, arguments, result))

    def _property(self, cursor):
        """A read, or in front of an assignment a write."""
        self.facts.sent |= {cursor.spelling, setter_of(cursor)}
        declared, receiver = self._refer(cursor), next(cursor.get_children(), None)
        if not declared or sort_of(declared) not in (C.OBJC_PROPERTY_DECL, *_METHODS):
            return
        # A class before the dot is no expression.
        owner = type_of(receiver).get_canonical().spelling if receiver else re.match(r"\w*", self._source(cursor))[0]
        if sort_of(declared) in _METHODS:
            arguments = [kind_of(argument.type) for argument in declared.get_arguments()]
            self._send(cursor, owner, declared.spelling, not receiver, arguments, kind_of(declared.result_type))
        elif _ASSIGNED.match(self._source(cursor, 9)):
            self._send(cursor, owner, setter_of(declared), not receiver, [kind_of(declared.type)], Kind("void"))
        else:
            self._send(cursor, owner, declared.spelling, not receiver, [], kind_of(declared.type))

    @staticmethod
    @functools.lru_cache(2)
    def _bytes(file):
        with open(file, "rb") as opened:
            return opened.read()

    def _source(self, cursor, after=0):
        """The text of an expression, or of what follows it."""
        start, end = cursor.extent.start.offset, cursor.extent.end
        return self._bytes(end.file.name)[end.offset if after else start : end.offset + after].decode(errors="replace")

    def _call(self, cursor):
        declared = self._refer(cursor)
        if declared and sort_of(declared) == C.FUNCTION_DECL and not declared.spelling.startswith(("__", "operator")):
            arguments = [kind_of(type_of(argument)) for argument in cursor.get_arguments()]
            self.facts.functions.append(Use(self._place(cursor), "", declared.spelling, False, arguments, kind_of(cursor.type)))

    def _constant(self, cursor):
        if declared := self._refer(cursor):
            self._add_constant(declared, self._place(cursor))

    def _add_constant(self, declared, place):
        if sort_of(declared) == C.ENUM_CONSTANT_DECL:
            self.facts.constants.add((place, declared.spelling, declared.semantic_parent.spelling, declared.enum_value))
        elif sort_of(declared) == C.VAR_DECL:
            self.facts.constants.add((place, declared.spelling, "", self._value_of(declared)))

    def _value_of(self, cursor):
        result = self._lib.clang_Cursor_Evaluate(cursor)
        if not result:
            return None
        value = self._lib.clang_EvalResult_getAsLongLong(result) if self._lib.clang_EvalResult_getKind(result) == 1 else None
        self._lib.clang_EvalResult_dispose(result)
        return value

    def _class_name(self, cursor):
        if not self._is_ours(cursor.referenced):
            self.facts.names.add((self._place(cursor), "protocol" if cursor.kind == C.OBJC_PROTOCOL_REF else "class", cursor.spelling))

    def _selector(self, cursor):
        self.facts.names.add((self._place(cursor), "selector", re.sub(r"\s|@selector|[()]", "", self._source(cursor))))

    # Declarations and implementations

    def _interface(self, cursor):
        """A class or protocol of ours, or what it declares of the system's."""
        name = self._extended(cursor)
        if sort_of(cursor) == C.OBJC_CATEGORY_DECL and name not in self.facts.parents:
            self._methods(cursor, name, self.facts.declared)
            return
        supers = [(child.spelling, False) for child in children_of(cursor, C.OBJC_SUPER_CLASS_REF)]
        self.facts.parents[name] = self.facts.parents.get(name, []) + supers + [(child.spelling, True) for child in children_of(cursor, C.OBJC_PROTOCOL_REF)]

    @staticmethod
    def _extended(cursor):
        """The class of a category, else the name itself."""
        classes = children_of(cursor, C.OBJC_CLASS_REF)
        return classes[0].spelling if classes and sort_of(cursor) in (C.OBJC_CATEGORY_DECL, C.OBJC_CATEGORY_IMPL_DECL) else cursor.spelling

    def _implementation(self, cursor):
        self._methods(cursor, self._extended(cursor), self.facts.implemented)

    def _methods(self, cursor, owner, into):
        for method in children_of(cursor, *_METHODS):
            parameters = [kind_of(argument.type) for argument in method.get_arguments()]
            is_static, is_protocol = sort_of(method) == C.OBJC_CLASS_METHOD_DECL, sort_of(cursor) == C.OBJC_PROTOCOL_DECL
            into.append(Use(self._place(method), owner, method.spelling, is_static, parameters, kind_of(method.result_type), is_protocol))

    def _declaration(self, cursor):
        kind, place = sort_of(cursor), self._place(cursor)
        if kind in _INTERFACES:
            name = self._extended(cursor)
            self.facts.names.add((place, "protocol" if kind == C.OBJC_PROTOCOL_DECL else "class", name))
            self.facts.names.update((place, "superclass", f"{name}: {child.spelling}") for child in children_of(cursor, C.OBJC_SUPER_CLASS_REF))
            self._methods(cursor, name, self.facts.declared)
            self.facts.declarations.update((self._place(method), method.spelling) for method in children_of(cursor, *_METHODS))
        elif kind == C.FUNCTION_DECL and not cursor.spelling.startswith("operator"):
            arguments = [kind_of(argument.type) for argument in cursor.get_arguments()]
            self.facts.functions.append(Use(place, "", cursor.spelling, False, arguments, kind_of(cursor.result_type)))
            self.facts.declarations[place] = cursor.spelling
        elif kind in (C.VAR_DECL, C.ENUM_CONSTANT_DECL):
            self._add_constant(cursor, place)
            self.facts.declarations[place] = cursor.spelling
        elif kind == C.TYPEDEF_DECL and cursor.type.get_canonical().kind == T.RECORD:
            self.facts.names.add((place, "struct", cursor.spelling))
        elif kind in (C.ENUM_DECL, C.LINKAGE_SPEC, C.UNEXPOSED_DECL):
            for child in cursor.get_children():
                self._declaration(child)


_VISITS = {C.OBJC_MESSAGE_EXPR: Reader._message, C.MEMBER_REF_EXPR: Reader._property, C.CALL_EXPR: Reader._call, C.DECL_REF_EXPR: Reader._constant,
           C.OBJC_CLASS_REF: Reader._class_name, C.OBJC_SUPER_CLASS_REF: Reader._class_name, C.OBJC_PROTOCOL_REF: Reader._class_name,
           C.OBJC_SELECTOR_EXPR: Reader._selector, C.OBJC_IMPLEMENTATION_DECL: Reader._implementation,
           C.OBJC_CATEGORY_IMPL_DECL: Reader._implementation, **dict.fromkeys(_INTERFACES, Reader._interface)}
