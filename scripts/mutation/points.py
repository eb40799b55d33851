"""The places of a source file at which one small change can be made, found in its syntax tree."""

import dataclasses
import re

from clang import cindex
from clang.cindex import CursorKind as Kind

# An operator and what stands in for it.
OPERATORS = {
    "<": ("<=", ">"), "<=": ("<", ">"), ">": (">=", "<"), ">=": (">", "<"), "==": ("!=",), "!=": ("==",),
    "&&": ("||",), "||": ("&&",), "+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "&": ("|",),
    "|": ("&",), "<<": (">>",), ">>": ("<<",), "+=": ("-=",), "-=": ("+=",), "|=": ("&=",), "&=": ("|=",),
}  # fmt: skip

# Returned by default anyhow.
DEFAULT_VALUES = {"", "{}", "false", "0", '""', "nullptr", "std::nullopt", "std::string()"}

# What is fixed while the compiler runs cannot be switched afterwards.
CONSTANT_CONTEXTS = {Kind.STATIC_ASSERT, Kind.ENUM_CONSTANT_DECL}

CONSTANT_NAME = re.compile(r"k[A-Z]")
ASSIGNMENTS = {"=", *(operator for operator in OPERATORS if operator.endswith("=") and operator[0] in "+-|&")}


@dataclasses.dataclass(frozen=True, order=True)
class Change:
    """One small change: the bytes from `begin` to `end` of `file` mean `changed` instead of `original`."""

    file: str
    begin: int
    end: int
    line: int
    kind: str
    original: str
    changed: str

    def overlaps(self, other):
        return self.file == other.file and self.begin < other.end and other.begin < self.end

    def planted(self, number):
        """The text that has both meanings, for the switch `number` to choose."""
        switch = f"VentlockMutant({number})"
        if self.kind == "return":
            return f"if ({switch}) {self.changed}; else {self.original}"
        if self.kind == "statement":
            return f"({switch} ? void() : void({self.original}))"
        if self.kind == "condition":
            return f"({switch} != bool({self.original}))"
        return f"({switch} ? ({self.changed}) : ({self.original}))"


def changes_of(file, arguments):
    """All changes of a file, which the compiler takes with these arguments."""
    unit = cindex.Index.create().parse(file, args=arguments)
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error and d.location.file]
    if errors:
        raise RuntimeError(f"{file} cannot be read: {errors[0]}")
    finder = _Finder(file)
    for cursor in unit.cursor.get_children():
        if cursor.location.file and cursor.location.file.name == file:
            finder.visit(cursor)
    return sorted(set(finder.changes))


class _Finder:
    def __init__(self, file):
        self.file = file
        with open(file, "rb") as opened:
            self.source = opened.read()
        self.changes = []

    def text(self, begin, end):
        return self.source[begin:end].decode()

    def text_of(self, cursor):
        return self.text(cursor.extent.start.offset, cursor.extent.end.offset)

    def add(self, kind, begin, end, changed):
        if 0 <= begin < end:
            self.changes.append(Change(self.file, begin, end, self.source.count(b"\n", 0, begin) + 1, kind,
                                       self.text(begin, end), changed))

    def add_for(self, kind, cursor, changed):
        self.add(kind, cursor.extent.start.offset, cursor.extent.end.offset, changed)

    def visit(self, cursor):
        if cursor.kind in CONSTANT_CONTEXTS or self.is_constexpr(cursor):
            return
        children = list(cursor.get_children())
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            left, right = children
            self.operator(left.extent.start.offset, left.extent.end.offset, right.extent.start.offset,
                          right.extent.end.offset)
        elif cursor.kind == Kind.CALL_EXPR and cursor.spelling.startswith("operator"):
            self.overloaded_operator(children)
        elif cursor.kind == Kind.UNARY_OPERATOR:
            self.unary_operator(cursor)
        elif cursor.kind in (Kind.INTEGER_LITERAL, Kind.STRING_LITERAL, Kind.CXX_BOOL_LITERAL_EXPR):
            self.literal(cursor)
        elif cursor.kind == Kind.DECL_REF_EXPR and CONSTANT_NAME.match(cursor.spelling):
            self.constant(cursor)
        elif cursor.kind == Kind.RETURN_STMT and children:
            if self.text_of(children[0]) not in DEFAULT_VALUES:
                self.add_for("return", cursor, "return {}")
        self.condition(cursor, children)
        self.statements(cursor, children)
        for child in children[1:] if cursor.kind == Kind.CASE_STMT else children:
            self.visit(child)

    def is_constexpr(self, cursor):
        """A constant or function of the compiler's own time, or a choice of that time."""
        if cursor.kind in (Kind.VAR_DECL, Kind.FUNCTION_DECL, Kind.CXX_METHOD):
            return re.match(r"(\w+ |\[\[\w+\]\] )*const(expr|eval|init)\b", self.text_of(cursor)) is not None
        return cursor.kind == Kind.IF_STMT and self.text_of(cursor).startswith("if constexpr")

    def operator(self, begin, operator_begin, operator_end, end):
        operator = self.text(operator_begin, operator_end)
        for other in OPERATORS.get(operator.strip(), ()):
            changed = operator.replace(operator.strip(), other)
            self.add("operator", begin, end, self.text(begin, operator_begin) + changed + self.text(operator_end, end))

    def overloaded_operator(self, children):
        signs = [child for child in children if child.spelling.startswith("operator")
                 and self.text_of(child) in OPERATORS]
        if len(signs) != 1 or len(children) != 3:
            return
        begin = min(child.extent.start.offset for child in children)
        end = max(child.extent.end.offset for child in children)
        self.operator(begin, signs[0].extent.start.offset, signs[0].extent.end.offset, end)

    def unary_operator(self, cursor):
        text = self.text_of(cursor)
        if text.startswith("!"):
            self.add_for("negation", cursor, f"bool({text[1:]})")
        for sign, other in (("++", "--"), ("--", "++")):
            if text.startswith(sign):
                self.add_for("operator", cursor, other + text[2:])
            elif text.endswith(sign):
                self.add_for("operator", cursor, text[:-2] + other)

    def literal(self, cursor):
        text = self.text_of(cursor)
        if text in ("true", "false"):
            self.add_for("literal", cursor, "false" if text == "true" else "true")
        elif cursor.kind == Kind.INTEGER_LITERAL and text[:1].isdigit():
            self.add_for("literal", cursor, f"{text} + 1")
            self.add_for("literal", cursor, f"{text} - 1")
        elif cursor.kind == Kind.STRING_LITERAL and text.startswith('"') and text != '""' and "\\0" not in text:
            self.add_for("literal", cursor, '""')

    def constant(self, cursor):
        declared = cursor.referenced
        if declared is None or declared.kind != Kind.VAR_DECL:
            return
        constant = declared.type.get_canonical()
        name = self.text_of(cursor)
        if constant.spelling in ("const int", "const short", "const long", "const unsigned long"):
            self.add_for("constant", cursor, f"{name} + 1")
            self.add_for("constant", cursor, f"{name} - 1")
        elif constant.spelling.startswith("const std::basic_string_view<char"):
            self.add_for("constant", cursor, "std::string_view()")

    def condition(self, cursor, children):
        if cursor.kind in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
            condition = children[0]
        elif cursor.kind == Kind.DO_STMT:
            condition = children[-1]
        else:
            return
        if condition.kind.is_expression():
            self.add_for("condition", condition, f"!({self.text_of(condition)})")

    def statements(self, cursor, children):
        if cursor.kind == Kind.COMPOUND_STMT:
            statements = children
        elif cursor.kind == Kind.IF_STMT:
            statements = children[1:]
        elif cursor.kind in (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT, Kind.CASE_STMT,
                             Kind.DEFAULT_STMT):  # fmt: skip
            statements = children[-1:]
        else:
            return
        for statement in statements:
            if self.has_effect(statement):
                self.add_for("statement", statement, "")

    def has_effect(self, statement):
        """A call or an assignment that stands for itself."""
        children = list(statement.get_children())
        if statement.kind == Kind.UNEXPOSED_EXPR and len(children) == 1 and children[0].extent == statement.extent:
            return self.has_effect(children[0])
        if statement.kind == Kind.BINARY_OPERATOR and len(children) == 2:
            sign = self.text(children[0].extent.end.offset, children[1].extent.start.offset).strip()
            return sign in ASSIGNMENTS
        return statement.kind in (Kind.CALL_EXPR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR)
