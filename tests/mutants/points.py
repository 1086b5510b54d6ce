"""Finds the points of a source at which a change can be tried, and puts the switches in.

A point is a place and a kind of change:

    statement   a call, an assignment or another expression statement is left out; `return;`, `break;`, `continue;` too
    comparison  is turned: == to !=, < to >=
    boundary    is moved: < to <=, >= to >
    logic       && to || and back
    condition   a condition without an operator of its own is turned
    boolean     true to false and back
    number      a number or a character is one higher
    constant    a named number is one higher

Left alone: declarations, constants, constexpr functions, case labels, template arguments, what stands in a macro, the
first value of what a call fills in (filled_in.py), and the NUL that an empty buffer is made of.
"""

import dataclasses
import re

import filled_in
from clang.cindex import Config, CursorKind, Index, TranslationUnit, TypeKind

if not Config.loaded and not Config.library_file:
    Config.set_library_file("libclang-14.so.1")

TURNED = {"==": "!=", "!=": "==", "<": ">=", ">=": "<", ">": "<=", "<=": ">"}
MOVED = {"<": "<=", "<=": "<", ">": ">=", ">=": ">"}
OTHER_LOGIC = {"&&": "||", "||": "&&"}
NUMBER = re.compile(rb"(0[xX][0-9a-fA-F]+|\d+(\.\d+)?)[uUlLfF]*|(u|U|L|u8)?'(\\.|[^'\\])+'")
COMMENT = re.compile(rb"//[^\n]*|/\*.*?\*/", re.DOTALL)
SWITCHES = "kestrelmoor::mutant::"

FUNCTIONS = {
    CursorKind.FUNCTION_DECL,
    CursorKind.CXX_METHOD,
    CursorKind.CONSTRUCTOR,
    CursorKind.DESTRUCTOR,
    CursorKind.CONVERSION_FUNCTION,
    CursorKind.FUNCTION_TEMPLATE,
}
ROOMS = {
    CursorKind.NAMESPACE,
    CursorKind.CLASS_DECL,
    CursorKind.STRUCT_DECL,
    CursorKind.CLASS_TEMPLATE,
    CursorKind.LINKAGE_SPEC,
    CursorKind.UNEXPOSED_DECL,
}
# A comparison by another operator than the one written stands under a `!` that is nowhere written.
WITHOUT_WORDS = {
    CursorKind.UNEXPOSED_EXPR,
    CursorKind.CALL_EXPR,
    CursorKind.MEMBER_REF_EXPR,
    CursorKind.UNARY_OPERATOR,
}
LITERALS = {CursorKind.INTEGER_LITERAL, CursorKind.FLOATING_LITERAL, CursorKind.CHARACTER_LITERAL}
JUMPS = {CursorKind.RETURN_STMT, CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT}
BRANCHES = {CursorKind.IF_STMT, CursorKind.WHILE_STMT, CursorKind.FOR_STMT, CursorKind.CXX_FOR_RANGE_STMT}
LABELS = {CursorKind.CASE_STMT, CursorKind.DEFAULT_STMT}
NUMBERS = {
    *(TypeKind.CHAR_U, TypeKind.UCHAR, TypeKind.CHAR16, TypeKind.CHAR32, TypeKind.USHORT, TypeKind.UINT),
    *(TypeKind.ULONG, TypeKind.ULONGLONG, TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.WCHAR, TypeKind.SHORT),
    *(TypeKind.INT, TypeKind.LONG, TypeKind.LONGLONG, TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.ENUM),
}


@dataclasses.dataclass(frozen=True)
class Point:
    """A change that can be tried at [start, end) of a source; `parts` are what stays of it, in order."""

    file: str
    line: int
    column: int
    kind: str
    start: int
    end: int
    parts: tuple
    operator: str
    said: str

    @property
    def key(self):
        return "%s:%d:%d:%s" % (self.file, self.line, self.column, self.kind)


def span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def inner(cursor):
    """The expression within brackets and what a compiler adds without a word of the source."""
    while True:
        children = [child for child in cursor.get_children() if child.kind.is_expression()]
        wrapped = cursor.kind == CursorKind.PAREN_EXPR or (
            len(children) == 1
            and span(children[0]) == span(cursor)
            and cursor.kind in WITHOUT_WORDS
        )
        if not wrapped or len(children) != 1:
            return cursor
        cursor = children[0]


class Finder:
    """Walks one source and keeps its points."""

    def __init__(self, path, name, arguments):
        self.name = name
        self.source = path.read_bytes()
        unit = Index.create().parse(
            str(path), args=arguments, options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        )
        wrong = [str(fault) for fault in unit.diagnostics if fault.severity >= 3]
        if wrong:
            raise ValueError("%s can't be read: %s" % (name, "; ".join(wrong[:3])))
        self.path = str(path)
        self.macros = [
            span(cursor)
            for cursor in unit.cursor.get_children()
            if cursor.kind == CursorKind.MACRO_INSTANTIATION and self.is_here(cursor)
        ]
        self.named_numbers = {}
        self.points = {}
        self.rooms(unit.cursor)

    def is_here(self, cursor):
        return cursor.location.file is not None and cursor.location.file.name == self.path

    def text(self, start, end):
        return self.source[start:end].decode("utf-8")

    # Where code stands.

    def rooms(self, cursor):
        for child in cursor.get_children():
            if child.kind in FUNCTIONS and self.is_here(child):
                self.function(child)
            elif child.kind in ROOMS and self.is_here(child):
                self.rooms(child)

    def function(self, cursor):
        body = [child for child in cursor.get_children() if child.kind == CursorKind.COMPOUND_STMT]
        head = self.text(cursor.extent.start.offset, cursor.location.offset)
        if not body or re.search(r"\b(constexpr|consteval)\b", head):
            return
        for child in cursor.get_children():
            if child.kind.is_expression() and child.extent.start.offset > cursor.location.offset:
                self.expression(child, cursor)
        self.statement(body[-1], cursor)

    # Statements.

    def statement(self, cursor, parent, behind=()):
        kind = cursor.kind
        if kind in BRANCHES:
            self.branch(cursor)
        elif kind in LABELS:
            for child in list(cursor.get_children())[1 if kind == CursorKind.CASE_STMT else 0 :]:
                self.statement(child, cursor)
        elif kind == CursorKind.DECL_STMT:
            for child in cursor.get_children():
                self.local(child, behind)
        elif kind.is_expression():
            self.left_out(cursor)
            self.expression(cursor, parent)
        elif kind in JUMPS:
            self.jump(cursor)
        else:
            children = list(cursor.get_children())
            for place, child in enumerate(children, 1):
                if child.kind.is_statement() or kind == CursorKind.COMPOUND_STMT:
                    self.statement(child, cursor, children[place:])
                elif child.kind.is_expression():
                    self.expression(child, cursor)

    def left_out(self, cursor):
        start, end = span(cursor)
        stop = re.compile(rb"\s*;").match(self.source, end)
        if stop:
            said = " ".join(self.text(start, end).split())
            place = (start, stop.end())
            self.add("statement", start, place, (place,), "", "without: " + said)

    def jump(self, cursor):
        values = list(cursor.get_children())
        if not values:
            self.left_out(cursor)
        for value in values:
            if value.type.get_canonical().kind == TypeKind.BOOL:
                self.condition(value)
            self.expression(value, cursor)

    def branch(self, cursor):
        """if, while, for: what stands between the brackets, then what is done."""
        opening, closing, stops = self.head(cursor)
        fixed = re.match(rb"if\s+constexpr\b", self.source[cursor.extent.start.offset : opening])
        declared = [span(child) for child in cursor.get_children() if child.kind == CursorKind.VAR_DECL]
        for child in cursor.get_children():
            start, end = span(child)
            if start > closing:
                self.statement(child, cursor)
            elif not fixed and not any(first < start and end < last for first, last in declared):
                self.in_head(cursor, child, (opening, closing, stops))

    def in_head(self, cursor, child, head):
        _, closing, stops = head
        start, end = span(child)
        if child.kind == CursorKind.DECL_STMT:
            self.statement(child, cursor)
        elif child.kind == CursorKind.VAR_DECL:
            self.local(child)
            if cursor.kind == CursorKind.IF_STMT and not [stop for stop in stops if stop > start]:
                said = "turned: " + self.text(start, end)
                self.add("condition", start, (closing, closing), (), child.spelling, said)
        elif child.kind.is_expression() and start != end:
            is_for = cursor.kind == CursorKind.FOR_STMT
            first, last = (stops[0], stops[1]) if is_for else (stops[-1] if stops else 0, closing)
            if cursor.kind != CursorKind.CXX_FOR_RANGE_STMT and first < start and end <= last:
                self.condition(child)
            self.expression(child, cursor)

    def head(self, cursor):
        """The offsets of a statement's brackets and of the semicolons directly between them."""
        depth, opening, stops = 0, None, []
        for token in cursor.get_tokens():
            offset = token.extent.start.offset
            if token.spelling in ("(", "[", "{"):
                depth += 1
                opening = offset if opening is None else opening
            elif token.spelling in (")", "]", "}"):
                depth -= 1
                if depth == 0:
                    return opening, offset, stops
            elif token.spelling == ";" and depth == 1:
                stops.append(offset)
        raise ValueError("%s:%d: no brackets" % (self.name, cursor.location.line))

    def local(self, cursor, behind=()):
        """A variable of a function: what it starts with may be changed, unless it is a constant or not used."""
        if cursor.kind != CursorKind.VAR_DECL:
            return
        head = self.text(cursor.extent.start.offset, cursor.location.offset)
        if "constexpr" in head:
            return
        # What stands ahead of the name belongs to the type.
        values = [
            child
            for child in cursor.get_children()
            if child.kind.is_expression() and child.extent.start.offset >= cursor.location.offset
        ]
        if cursor.type.get_canonical().kind == TypeKind.CONSTANTARRAY:
            values = [value for value in values if value.kind not in LITERALS]
        worked_out = any(self.is_worked_out(value) for value in values)
        if not worked_out and (cursor.type.is_const_qualified() or filled_in.is_filled_in(cursor, behind)):
            return
        for value in values:
            if cursor.type.get_canonical().kind == TypeKind.BOOL:
                self.condition(value)
            self.expression(value, cursor)

    @staticmethod
    def is_worked_out(cursor):
        """At run time, that is."""
        return any(
            node.kind in (CursorKind.CALL_EXPR, CursorKind.LAMBDA_EXPR, CursorKind.CXX_THIS_EXPR)
            or (
                node.kind in (CursorKind.DECL_REF_EXPR, CursorKind.MEMBER_REF_EXPR)
                and node.referenced is not None
                and node.referenced.kind in (CursorKind.VAR_DECL, CursorKind.PARM_DECL, CursorKind.FIELD_DECL)
                and not node.type.is_const_qualified()
            )
            for node in cursor.walk_preorder()
        )

    # Expressions.

    def expression(self, cursor, parent):
        kind = cursor.kind
        if not self.is_here(cursor):
            return
        if kind == CursorKind.LAMBDA_EXPR:
            for child in cursor.get_children():
                if child.kind == CursorKind.COMPOUND_STMT:
                    self.statement(child, cursor)
            return
        if kind in LITERALS:
            self.number(cursor, parent)
        elif kind == CursorKind.CXX_BOOL_LITERAL_EXPR:
            self.turned("boolean", cursor, "turned: " + self.text(*span(cursor)))
        elif kind == CursorKind.DECL_REF_EXPR:
            self.constant(cursor, parent)
            return
        elif kind == CursorKind.UNARY_OPERATOR and self.text(*span(cursor)).startswith("!"):
            self.condition(next(cursor.get_children()))
        elif kind == CursorKind.CONDITIONAL_OPERATOR:
            self.condition(next(cursor.get_children()))
        elif kind in (CursorKind.BINARY_OPERATOR, CursorKind.CALL_EXPR):
            self.operator(cursor)
        for child in cursor.get_children():
            if child.kind.is_expression() and child.extent.start.offset != child.extent.end.offset:
                self.expression(child, cursor)
            elif child.kind.is_statement():
                self.statement(child, cursor)

    def operator(self, cursor):
        """The operator between two operands; a call may be one too."""
        children = [child for child in cursor.get_children() if child.kind.is_expression()]
        if cursor.kind == CursorKind.CALL_EXPR:
            if not cursor.spelling.startswith("operator"):
                return
            children = [child for child in children if not self.is_operator_name(child)]
        if len(children) != 2:
            return
        left, right = sorted(map(span, children))
        if (left[0], right[1]) != span(cursor):
            return
        sign = COMMENT.sub(b"", self.source[left[1] : right[0]]).strip().decode()
        said = " ".join(self.text(*span(cursor)).split())
        place = self.source.index(sign.encode(), left[1])
        for kind, signs in (("comparison", TURNED), ("boundary", MOVED), ("logic", OTHER_LOGIC)):
            if sign in signs:
                parts = (span(cursor),) if kind == "comparison" else (left, right)
                self.add(kind, place, span(cursor), parts, sign, "%s for %s in: %s" % (signs[sign], sign, said))
        if sign in OTHER_LOGIC:
            for child in children:
                self.condition(child)

    def is_operator_name(self, cursor):
        return cursor.spelling.startswith("operator") and not re.search(rb"\w", self.source[slice(*span(cursor))])

    def condition(self, cursor):
        """Turns what is asked for true or false, unless a point of its own does."""
        core = inner(cursor)
        text = self.text(*span(core))
        if core.kind == CursorKind.UNARY_OPERATOR and text.startswith("!"):
            return
        if core.kind in (CursorKind.CXX_BOOL_LITERAL_EXPR, CursorKind.LAMBDA_EXPR, CursorKind.CONDITIONAL_OPERATOR):
            return
        before = len(self.points)
        if core.kind in (CursorKind.BINARY_OPERATOR, CursorKind.CALL_EXPR):
            self.operator(core)
        start, end = span(core)
        if len(self.points) == before and not any(
            (point.start, point.end) == (start, end) and point.kind in ("comparison", "logic")
            for point in self.points.values()
        ):
            self.turned("condition", core, "turned: " + " ".join(text.split()))

    def turned(self, kind, cursor, said):
        self.add(kind, span(cursor)[0], span(cursor), (span(cursor),), "", said)

    def number(self, cursor, parent):
        if parent.kind in (CursorKind.DECL_REF_EXPR, CursorKind.MEMBER_REF_EXPR):
            return  # an argument of a template
        start, end = span(cursor)
        if self.source[start:end] == b"u'\\0'" and parent.spelling == "basic_string":
            return
        if NUMBER.fullmatch(self.source[start:end]):
            self.turned("number", cursor, "%s + 1" % self.text(start, end))

    def constant(self, cursor, parent):
        named = cursor.referenced
        if named is None or parent.kind in (CursorKind.UNARY_OPERATOR, CursorKind.DECL_REF_EXPR):
            return
        if named.hash not in self.named_numbers:
            self.named_numbers[named.hash] = named.kind == CursorKind.ENUM_CONSTANT_DECL or (
                named.kind == CursorKind.VAR_DECL
                and named.type.get_canonical().kind in NUMBERS
                and "constexpr" in [token.spelling for token in named.get_tokens()]
            )
        if self.named_numbers[named.hash]:
            self.turned("constant", cursor, "%s + 1" % self.text(*span(cursor)))

    def add(self, kind, told_at, place, parts, operator, said):
        if any(start < place[1] and place[0] < end for start, end in self.macros):
            return
        line = self.source.count(b"\n", 0, told_at) + 1
        column = told_at - self.source.rfind(b"\n", 0, told_at)
        point = Point(self.name, line, column, kind, place[0], place[1], parts, operator, said)
        self.points.setdefault((place, kind), point)


def find(path, name, arguments):
    """The points of a source in the order of their places; an outer one ahead of what it holds."""
    points = Finder(path, name, arguments).points.values()
    return sorted(points, key=lambda point: (point.start, -point.end, ORDER[point.kind]))


# Where two stand in the same place, the outer one.
ORDER = {
    kind: place
    for place, kind in enumerate(
        ("statement", "condition", "comparison", "boundary", "logic", "boolean", "number", "constant")
    )
}


def switched(point, number, parts):
    """The source of a point with its switch; `parts` are its parts' sources."""
    on = "%sOn(%dU)" % (SWITCHES, number)
    if point.kind == "statement":
        return "{ if (!%s) { %s } }" % (on, parts[0])
    if point.kind in ("number", "constant"):
        return "%sPlus(%dU, %s)" % (SWITCHES, number, parts[0])
    if point.kind == "boundary":
        left, right = parts
        both = (on, left, MOVED[point.operator], right, left, point.operator, right)
        return "(%s ? (%s) %s (%s) : (%s) %s (%s))" % both
    if point.kind == "logic":
        # Both are told by the other one: not (not a and not b) is a or b.
        sides = ["static_cast<bool>(%s) != %s" % (part, on) for part in parts]
        return "(((%s) %s (%s)) != %s)" % (sides[0], point.operator, sides[1], on)
    if point.kind == "condition" and not parts:
        return "; static_cast<bool>(%s) != %s" % (point.operator, on)
    return "(static_cast<bool>(%s) != %s)" % (parts[0], on)


def rewritten(source, numbered):
    """The source with every switch in; `numbered` holds (point, number), outer ones first."""

    def holds(place, point):
        return place[0] <= point.start < place[1] and point.end <= place[1]

    def render(start, end, within):
        text, at = "", start
        while within:
            (point, number), *others = within
            inside = [other for other in others if holds((point.start, point.end), other[0])]
            within = [other for other in others if other not in inside]
            parts = [
                render(*part, [other for other in inside if holds(part, other[0])])
                for part in point.parts
            ]
            text += source[at : point.start].decode("utf-8") + switched(point, number, parts)
            at = point.end
        return text + source[at:end].decode("utf-8")

    return render(0, len(source), numbered)
