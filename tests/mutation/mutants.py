#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
"""Changes one thing at a time in src/ and reports which changes no test notices. See scripts/mutants --help."""

import argparse
import collections
import hashlib
import json
import pathlib
import random
import re
import shutil
import subprocess
import sys

from clang import cindex

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutants"
SOURCE, BUILD, RESULTS = WORK / "source", WORK / "build", WORK / "results.json"
EXPLAINED = pathlib.Path(__file__).parent / "survivors.md"

Kind = cindex.CursorKind
OPERATORS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-",
             "-": "+", "*": "/", "/": "*", "&": "|", "|": "&", "+=": "-=", "-=": "+="}
STATEMENTS = (Kind.CALL_EXPR, Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR, Kind.UNARY_OPERATOR,
              Kind.UNEXPOSED_EXPR, Kind.CXX_DELETE_EXPR)
CONDITIONS = (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR)

Mutant = collections.namedtuple("Mutant", "file begin end new what line")


class Finder:
    """The mutants of one source file."""

    def __init__(self, file, arguments):
        self.file, self.text, self.mutants = file, (SOURCE / file).read_bytes(), []
        options = cindex.TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD
        unit = cindex.Index.create().parse(str(SOURCE / file), arguments, options=options)
        failed = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        if failed:
            sys.exit("mutants: " + "\n".join(failed))
        self.macros = []
        for cursor in unit.cursor.get_children():
            if self.is_here(cursor) and cursor.kind == Kind.MACRO_INSTANTIATION and cursor.spelling != "Q_EMIT":
                self.macros.append(self.span(cursor))
        for cursor in unit.cursor.get_children():
            if self.is_here(cursor) and not cursor.kind.is_preprocessing():
                self.visit(cursor)

    def is_here(self, cursor):
        return cursor.location.file is not None and cursor.location.file.name == str(SOURCE / self.file)

    @staticmethod
    def span(cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def add(self, begin, end, new, what):
        is_in_macro = any(first <= begin < last or first < end <= last for first, last in self.macros)
        if begin < end and not is_in_macro:
            line = self.text.count(b"\n", 0, begin) + 1
            self.mutants.append(Mutant(self.file, begin, end, new, what, line))

    def said(self, begin, end):
        return self.text[begin:end].decode()

    def visit(self, cursor):
        children = list(cursor.get_children())
        begin, end = self.span(cursor)
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR) and len(children) == 2:
            self.change_operator(self.span(children[0])[1], self.span(children[1])[0])
        elif cursor.kind == Kind.CALL_EXPR:
            arguments = list(cursor.get_arguments())
            if cursor.spelling.startswith("operator") and len(arguments) == 2:
                self.change_operator(self.span(arguments[0])[1], self.span(arguments[1])[0])
            else:
                self.swap_arguments(arguments)
        elif cursor.kind == Kind.UNARY_OPERATOR and self.said(begin, begin + 1) == "!":
            self.add(begin, begin + 1, "", "negation")
        elif cursor.kind == Kind.INTEGER_LITERAL:
            self.add(begin, end, f"({self.said(begin, end)} + 1)", "constant")
        elif cursor.kind == Kind.FLOATING_LITERAL:
            self.add(begin, end, f"({self.said(begin, end)} + 1)", "constant")
        elif cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            self.add(begin, end, "false" if self.said(begin, end) == "true" else "true", "constant")
        if cursor.kind in CONDITIONS and children and children[0].kind.is_expression():
            first, last = self.span(children[0])
            # A negation and a comparison are changed as such.
            if not re.match(r"!|[^&|]* [!=]= [^&|]*$", self.said(first, last)):
                self.add(first, last, f"!({self.said(first, last)})", "condition")
        if cursor.kind == Kind.COMPOUND_STMT:
            self.change_statements(children)
        elif cursor.kind in (Kind.IF_STMT, Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT):
            for child in children[1:]:
                if child.kind in STATEMENTS:
                    self.drop(child)
        for child in children:
            self.visit(child)

    def change_operator(self, begin, end):
        match = re.fullmatch(r"\s*([<>=!&|+*/-]{1,2})\s*", self.said(begin, end)) if begin < end else None
        if match and match[1] in OPERATORS:
            self.add(begin + match.start(1), begin + match.end(1), OPERATORS[match[1]], "operator")

    def swap_arguments(self, arguments):
        for one, two in zip(arguments, arguments[1:]):
            (a, b), (c, d) = self.span(one), self.span(two)
            if a < b <= c < d and one.type.get_canonical().spelling == two.type.get_canonical().spelling \
                    and self.said(a, b) != self.said(c, d):
                self.add(a, d, self.said(c, d) + self.said(b, c) + self.said(a, b), "arguments")

    def drop(self, statement):
        begin, end = self.span(statement)
        is_emit = self.said(max(0, begin - 7), begin).endswith("Q_EMIT ")
        self.add(begin, end, "", "dropped emit" if is_emit else "dropped statement")

    def change_statements(self, statements):
        for statement in statements:
            if statement.kind in STATEMENTS:
                self.drop(statement)
        for one, two in zip(statements, statements[1:]):
            (a, b), (c, d) = self.span(one), self.span(two)
            if one.kind in STATEMENTS and two.kind in STATEMENTS and b <= c:
                self.add(a, d, self.said(c, d) + self.said(b, c) + self.said(a, b), "order")


def describe(mutant, text):
    """One line that stays the same while other lines of the file change."""
    begin = text.rfind(b"\n", 0, mutant.begin) + 1
    end = text.find(b"\n", mutant.end)
    before = " ".join(text[begin:end].decode().split())
    after = " ".join((text[begin:mutant.begin] + mutant.new.encode() + text[mutant.end:end]).decode().split())
    return f"`{mutant.file}`, {mutant.what}: `{before}` -> `{after}`"


def run(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False, **options)


def prepare():
    """A copy of the tree with its own build: the tree itself is never changed."""
    tracked = run("git", "-C", str(ROOT), "ls-files", "--cached", "--others", "--exclude-standard").stdout.splitlines()
    for name in tracked:
        old, new = ROOT / name, SOURCE / name
        if old.is_file() and not (new.exists() and new.read_bytes() == old.read_bytes()):
            new.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(old, new)
    for command in (["cmake", "-S", SOURCE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                     "-DCMAKE_CXX_FLAGS_DEBUG=-O1", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON", "-DKEL_BUILD_GALLERY=OFF",
                     "-DKEL_BUILD_EXAMPLES=OFF"], ["cmake", "--build", BUILD]):
        result = run(*map(str, command))
        if result.returncode:
            sys.exit(result.stdout)


def arguments_of(file):
    commands = json.loads((BUILD / "compile_commands.json").read_text())
    command = next(entry for entry in commands if entry["file"] == str(SOURCE / file))["command"].split()
    command = command[1 + next(i for i, word in enumerate(command) if word.endswith("++")):]
    for flag in ("-o", "-c"):
        at = command.index(flag)
        del command[at:at + 2]
    return [word for word in command if not word.startswith("-fno-semantic")]


def failed_test(*selection):
    """The first test that fails, or None."""
    result = run("ctest", "--test-dir", str(BUILD), "-j2", "--stop-on-failure", "--timeout", "120", "-L", "unit",
                 *selection)
    match = re.search(r"^\s*\d+ - (\S+) \(", result.stdout, re.MULTILINE)
    if result.returncode and not match and "No tests were found" not in result.stdout:
        sys.exit(result.stdout)
    return match[1] if match else None


def try_mutant(mutant, text):
    """What became of it: not compiled, killed by a test, or survived."""
    path = SOURCE / mutant.file
    try:
        path.write_bytes(text[:mutant.begin] + mutant.new.encode() + text[mutant.end:])
        if run("cmake", "--build", str(BUILD), "--target", "KELGdiControl").returncode:
            return "not compiled"
        stem = re.sub(r"(_p)?\.\w+$", "", path.name)
        own = "^" + re.sub(r"list$|cache$|router$", "", stem.removeprefix("kel"))
        return failed_test("-R", f"^(kel)?{own[1:]}") or failed_test() or "survived"
    finally:
        path.write_bytes(text)


def print_table(results, explained):
    rows = collections.defaultdict(collections.Counter)
    for description, outcome in results.items():
        kind = outcome if outcome in ("not compiled", "survived") else "killed"
        if kind == "survived" and description in explained:
            kind = "explained"
        rows[description.split("`")[1]][kind] += 1
    rows["all"] = sum(rows.values(), collections.Counter())
    print("| file | killed | survived | explained | not compiled | score |")
    print("|------|-------:|---------:|----------:|-------------:|------:|")
    for file, row in rows.items():
        tried = row["killed"] + row["survived"]
        score = f"{100 * row['killed'] / tried:.1f} %" if tried else "-"
        print(f"| {file} | {row['killed']} | {row['survived']} | {row['explained']} | {row['not compiled']} | {score} |")
    return rows["all"]["survived"]


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutants")
    parser.add_argument("--sample", type=int, default=0, metavar="N", help="try N mutants only")
    parser.add_argument("--seed", type=int, default=1, help="which N")
    parser.add_argument("--list", action="store_true", help="list the mutants, and try none")
    parser.add_argument("--again", action="store_true", help="forget the results of former runs")
    parser.add_argument("files", nargs="*", help="sources, such as src/kelpress.cpp; by default all")
    arguments = parser.parse_args()

    prepare()
    files = arguments.files or sorted(str(file.relative_to(SOURCE)) for file in (SOURCE / "src").glob("*.cpp"))
    mutants = [mutant for file in files for mutant in Finder(file, arguments_of(file)).mutants]
    if arguments.sample:
        mutants = random.Random(arguments.seed).sample(mutants, min(arguments.sample, len(mutants)))
    texts = {file: (SOURCE / file).read_bytes() for file in files}
    if arguments.list:
        print("\n".join(f"{mutant.file}:{mutant.line}: {describe(mutant, texts[mutant.file])}" for mutant in mutants))
        return 0
    broken = failed_test()
    if broken:
        sys.exit(f"mutants: {broken} fails without a change")

    # A result holds as long as sources and tests are the same.
    state = hashlib.sha256(b"".join(file.read_bytes() for folder in ("include", "src", "tests")
                                    for file in sorted((SOURCE / folder).rglob("*")) if file.is_file())).hexdigest()
    known = json.loads(RESULTS.read_text()) if RESULTS.exists() and not arguments.again else {}
    results = known.get("results", {}) if known.get("state") == state else {}
    explained = EXPLAINED.read_text(encoding="utf-8") if EXPLAINED.exists() else ""
    tried = {}
    for number, mutant in enumerate(mutants, 1):
        text = describe(mutant, texts[mutant.file])
        if text not in results:
            results[text] = try_mutant(mutant, texts[mutant.file])
            RESULTS.write_text(json.dumps({"state": state, "results": results}, indent=1))
        tried[text] = results[text]
        print(f"{number}/{len(mutants)} {mutant.file}:{mutant.line}: {results[text]}: {text}", flush=True)
    return 1 if print_table(tried, explained) else 0


if __name__ == "__main__":
    sys.exit(main())
