# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
"""Finds the small changes that can be made to a source of the library, and chooses a sample of them."""

import collections
import hashlib
import re
import sys

from clang import cindex

Kind = cindex.CursorKind
OPERATORS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-",
             "-": "+", "*": "/", "/": "*", "&": "|", "|": "&", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
SYMMETRIC = ("qMax", "qMin", "max", "min")
TEXT = re.compile(r"\bQ(String|ByteArray|Latin1String|Latin1Char|Char)|\bchar\b")  # no operator but + and +=
STATEMENTS = (Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR,
              Kind.UNEXPOSED_EXPR, Kind.CXX_DELETE_EXPR)
CONDITIONS = (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR)
LOOPS = (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT)
CASES = (Kind.CASE_STMT, Kind.DEFAULT_STMT)
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.FUNCTION_TEMPLATE, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION)
EMIT = "Q_EMIT "
LEAST_OF_FILE = 3  # in a sample

# text: one line that describes it and stays the same while other lines of the file change.
# symbol: the mangled name of the function that it is in, if there is one.
Change = collections.namedtuple("Change", "file line begin end new text symbol")


def changes_of(path, name, unit_path, arguments):
    """The changes of the file at path, as a source that includes it, or is it, sees it."""
    return _Finder(path, name, unit_path, arguments).changes


def sample(changes, count, seed):
    """Some of every file, the others in proportion; the same ones while the file does not change."""
    by_file = collections.defaultdict(list)
    for change in changes:
        by_file[change.file].append(change)
    for of_file in by_file.values():
        of_file.sort(key=lambda change: hashlib.sha256(f"{seed}:{change.text}".encode()).digest())
    least = max(1, min(LEAST_OF_FILE, count // max(1, len(by_file))))
    counts = {file: min(least, len(of_file)) for file, of_file in by_file.items()}
    for _ in range(min(count, len(changes)) - sum(counts.values())):
        counts[max(counts, key=lambda file: 1 - counts[file] / len(by_file[file]))] += 1
    chosen = {change for file, of_file in by_file.items() for change in of_file[:counts[file]]}
    return [change for change in changes if change in chosen]


def _span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


class _Finder:
    def __init__(self, path, name, unit_path, arguments):
        self.path, self.name, self.text = str(path), name, path.read_bytes()
        self.changes, self.found, self.function = [], collections.Counter(), ""
        self.symbol = ""
        options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        unit = cindex.Index.create().parse(str(unit_path), arguments, options=options)
        failed = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        if failed:
            sys.exit("mutants: " + "\n".join(failed))
        here = [cursor for cursor in unit.cursor.get_children()
                if cursor.location.file is not None and cursor.location.file.name == self.path]
        self.macros = [_span(cursor) for cursor in here
                       if cursor.kind == Kind.MACRO_INSTANTIATION and cursor.spelling != EMIT.strip()]
        for cursor in here:
            if not cursor.kind.is_preprocessing():
                self.visit(cursor)
        self.changes.sort(key=lambda change: (change.begin, change.end))

    def said(self, begin, end):
        return self.text[begin:end].decode()

    def add(self, begin, end, new, what):
        is_in_macro = any(first <= begin < last or first < end <= last for first, last in self.macros)
        if begin >= end or is_in_macro:
            return
        first = self.text.rfind(b"\n", 0, begin) + 1
        last = self.text.find(b"\n", end)
        before = " ".join(self.said(first, last).split())
        after = " ".join((self.said(first, begin) + new + self.said(end, last)).split())
        where = f"`{self.name}`, `{self.function}`" if self.function else f"`{self.name}`"
        text = f"{where}, {what}: `{before}` -> `{after}`"
        self.found[text] += 1
        if self.found[text] > 1:
            text += f" ({self.found[text]})"
        line = self.text.count(b"\n", 0, begin) + 1
        self.changes.append(Change(self.name, line, begin, end, new, text, self.symbol))

    def visit(self, cursor):
        outer = self.function, self.symbol
        if cursor.kind in FUNCTIONS:
            parent = cursor.semantic_parent
            is_member = parent is not None and parent.kind != Kind.TRANSLATION_UNIT and parent.spelling
            self.function = f"{parent.spelling}::{cursor.spelling}" if is_member else cursor.spelling
            self.symbol = cursor.mangled_name
        children = list(cursor.get_children())
        self.change_expression(cursor, children)
        if cursor.kind in CONDITIONS and children and children[0].kind.is_expression():
            self.negate(children[0])
        if cursor.kind == Kind.COMPOUND_STMT:
            self.change_statements(children)
        elif cursor.kind == Kind.IF_STMT:
            self.drop_each(children[1:])
        elif cursor.kind in LOOPS or cursor.kind in CASES:
            self.drop_each(children[-1:])
        for child in children:
            self.visit(child)
        self.function, self.symbol = outer

    def change_expression(self, cursor, children):
        begin, end = _span(cursor)
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.change_operator(*children)
        elif cursor.kind == Kind.CALL_EXPR:
            arguments = list(cursor.get_arguments())
            if cursor.spelling.startswith("operator") and len(arguments) == 2:
                self.change_operator(*arguments)
            elif cursor.spelling not in SYMMETRIC:
                self.swap_arguments(arguments)
        elif cursor.kind == Kind.UNARY_OPERATOR and self.said(begin, begin + 1) == "!":
            self.add(begin, begin + 1, "!!", "condition")
        elif cursor.kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL):
            self.add(begin, end, f"({self.said(begin, end)} + 1)", "constant")
        elif cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            self.add(begin, end, "false" if self.said(begin, end) == "true" else "true", "constant")

    def operator_between(self, one, two):
        """The first byte of a binary operator, and the operator; None if the code is written differently."""
        begin, end = _span(one)[1], _span(two)[0]
        match = re.fullmatch(r"\s*([<>=!&|+*/-]{1,2})\s*", self.said(begin, end)) if begin < end else None
        return (begin + match.start(1), match[1]) if match and match[1] in OPERATORS else None

    def change_operator(self, one, two):
        found = self.operator_between(one, two)
        if not found:
            return
        begin, operator = found
        types = one.type.get_canonical().spelling + " " + two.type.get_canonical().spelling
        if operator[0] != "+" or not TEXT.search(types):
            self.add(begin, begin + len(operator), OPERATORS[operator], "operator")

    def negate(self, condition):
        # A negation and a comparison for equality are changed as such.
        core = condition
        while core.kind == Kind.UNEXPOSED_EXPR and len(list(core.get_children())) == 1:
            core = next(core.get_children())
        begin, end = _span(condition)
        children = list(core.get_arguments() if core.kind == Kind.CALL_EXPR else core.get_children())
        operator = self.operator_between(*children) if len(children) == 2 else None
        is_negation = core.kind == Kind.UNARY_OPERATOR and self.said(begin, begin + 1) == "!"
        if not is_negation and not (operator and operator[1] in ("==", "!=")):
            self.add(begin, end, f"!({self.said(begin, end)})", "condition")

    def swap(self, one, two, what):
        (a, b), (c, d) = one, two
        if a < b <= c < d and self.said(a, b) != self.said(c, d):
            self.add(a, d, self.said(c, d) + self.said(b, c) + self.said(a, b), what)

    def swap_arguments(self, arguments):
        for one, two in zip(arguments, arguments[1:]):
            if one.type.get_canonical().spelling == two.type.get_canonical().spelling:
                self.swap(_span(one), _span(two), "arguments")

    def statement(self, cursor):
        begin, end = _span(cursor)
        if self.said(max(0, begin - len(EMIT)), begin) == EMIT:
            begin -= len(EMIT)
        return begin, end

    def drop_each(self, statements):
        for statement in statements:
            if statement.kind in STATEMENTS:
                begin, end = self.statement(statement)
                is_emit = self.said(begin, end).startswith(EMIT)
                self.add(begin, end, "", "dropped emit" if is_emit else "dropped statement")

    def change_statements(self, statements):
        self.drop_each(statements)
        for one, two in zip(statements, statements[1:]):
            if one.kind in STATEMENTS and two.kind in STATEMENTS:
                self.swap(self.statement(one), self.statement(two), "order")
