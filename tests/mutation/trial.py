# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
"""Builds the library with a change and runs the tests on it."""

import collections
import json
import os
import pathlib
import re
import select
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time

# The changed library is compiled for nothing but speed.
FLAGS = ("-O0", "-g0")
# The long ones run fewer of their cases, as under emulation.
SMALLER = {"KEL_MATRIX_CELLS": "5000", "KEL_FUZZ_SCRIPTS": "10000", "KEL_MONKEY_STEPS": "900",
           "QTEST_DISABLE_STACK_DUMP": "1"}
PROMISING = 3  # programs that run before the optimiser is asked whether the change means anything
FAILED = re.compile(rb"^(?:FAIL!  |XPASS  |QFATAL ) ?: \w+::(\w+)\(", re.MULTILINE)
HANG, CRASH, EXIT = "hangs", "crashes", "exits with an error"

Program = collections.namedtuple("Program", "name path environment")
stopped = threading.Event()


class Stopped(Exception):
    """The user has stopped the run: the trial has no result."""


def run(*command, **options):
    """Runs a command in a session of its own, so that Ctrl-C reaches the run itself alone."""
    result = subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True, errors="replace", check=False, start_new_session=True, **options)
    if stopped.is_set():
        raise Stopped
    return result


def run_or_exit(*command, **options):
    result = run(*command, **options)
    if result.returncode:
        sys.exit(result.stdout)
    return result.stdout


class Tree:
    """A copy of the tree with its own build. Neither is ever changed."""

    def __init__(self, root, work):
        self.root, self.work = root, work
        self.source, self.build = work / "source", work / "build"
        self.copy()
        run_or_exit("cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    f"-DCMAKE_CXX_FLAGS_DEBUG={' '.join(FLAGS)}", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON",
                    # Programs and plugins prefer a library from LD_LIBRARY_PATH to that of the build.
                    "-DCMAKE_EXE_LINKER_FLAGS=-Wl,--enable-new-dtags",
                    "-DCMAKE_MODULE_LINKER_FLAGS=-Wl,--enable-new-dtags", "-DKEL_BUILD_GALLERY=OFF",
                    "-DKEL_BUILD_EXAMPLES=OFF")
        run_or_exit("cmake", "--build", self.build)
        self.read_commands()

    def copy(self):
        listed = run_or_exit("git", "-C", self.root, "ls-files", "--cached", "--others", "--exclude-standard")
        tracked = {name for name in listed.splitlines() if (self.root / name).is_file()}
        for name in tracked:
            old, new = self.root / name, self.source / name
            if not (new.exists() and new.read_bytes() == old.read_bytes()):
                new.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(old, new)
        for file in list(self.source.rglob("*")):
            if file.is_file() and str(file.relative_to(self.source)) not in tracked:
                file.unlink()

    def read_commands(self):
        """How the sources of the library are compiled, and how it is linked."""
        self.flags, self.objects = {}, {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            words = shlex.split(entry["command"])
            target, file = words[words.index("-o") + 1], pathlib.Path(entry["file"])
            if "/KELGdiControl.dir/" in target and file.parent == self.source / "src":
                at = words.index("-o")
                self.flags[file.name] = words[:at] + words[at + 4:]
                self.objects[file.name] = target
        links = run_or_exit("ninja", "-C", self.build, "-t", "commands", "KELGdiControl").splitlines()
        link = next(line for line in links if " -shared " in line)
        self.link = [word for word in shlex.split(link) if word not in (":", "&&")]

        self.users = collections.defaultdict(list)
        for name, target in self.objects.items():
            for line in run_or_exit("ninja", "-C", self.build, "-t", "deps", target).splitlines():
                file = pathlib.Path(line.strip())
                if file.parent == self.source / "src":
                    self.users[file.name].append(name)

    def precompile(self):
        """Qt's headers, once for each set of flags: compiling them takes most of the time of a source."""
        lines = {line for folder in ("src", "include") for file in (self.source / folder).glob("*.*")
                 for line in file.read_text().splitlines() if re.match(r"#include <(?!KEL)", line)}
        self.headers = {}
        for flags in {tuple(flags) for flags in self.flags.values()}:
            header = self.work / "headers" / str(len(self.headers)) / "all.h"
            header.parent.mkdir(parents=True, exist_ok=True)
            header.write_text("\n".join(sorted(lines)) + "\n")
            run_or_exit(*flags, "-w", "-x", "c++-header", header, "-o", f"{header}.gch", cwd=self.build)
            self.headers[flags] = header

    def programs(self):
        result = []
        for line in (self.build / "tests" / "tests.list").read_text().splitlines():
            name, program, _, *environment = line.split()
            path = next(file for file in (self.build / "tests").rglob(program) if file.is_file())
            result.append(Program(name, path, dict(setting.split("=", 1) for setting in environment)))
        return result


class Library:
    """The library with a change, in a folder of its own."""

    def __init__(self, tree, folder):
        self.tree, self.folder = tree, folder
        shutil.rmtree(folder, ignore_errors=True)
        for part in ("objects", "lib", "run", "reached"):
            (folder / part).mkdir(parents=True)
        shutil.copytree(tree.source / "src", folder / "src")
        self.file = folder / "lib" / "libKELGdiControl.so.1"
        if not self.build(next(iter(tree.flags))):
            sys.exit("mutants: the library cannot be built without a change")

    def build(self, changed):
        """Whether the library could be built with the file that has changed."""
        sources = self.tree.users[changed]
        return all(self.compile(source, self.object_of(source)) for source in sources) and self.link(sources)

    def object_of(self, source):
        return self.folder / "objects" / f"{source}.o"

    def link(self, sources, *more):
        """Links the objects of these sources instead of those of the build."""
        own = {self.tree.objects[source]: self.object_of(source) for source in sources}
        link = [own.get(word, word) for word in self.tree.link]
        link[link.index("-o") + 1] = self.file
        return run(*link, *more, cwd=self.tree.build).returncode == 0

    def compile(self, source, target, *flags):
        common = self.tree.flags[source]
        # Only the same flags can use the precompiled headers.
        headers = () if flags else ("-include", self.tree.headers[tuple(common)])
        return run(*common, "-w", *flags, *headers, "-c", self.folder / "src" / source, "-o", target,
                   cwd=self.tree.build).returncode == 0

    def is_same_code(self, changed, text):
        """Whether the optimiser makes the same of the changed file and of its text before: it means the same."""
        path, target, code = self.folder / "src" / changed, self.folder / "optimised.o", []
        for variant in (path.read_bytes(), text):
            path.write_bytes(variant)
            for source in self.tree.users[changed]:
                if not self.compile(source, target, "-O2"):
                    return False
                code.append(target.read_bytes())
        return code[:len(code) // 2] == code[len(code) // 2:]

    def build_instrumented(self):
        """The library without a change; the programs leave behind which of its functions they call."""
        source, marks = pathlib.Path(__file__).with_name("reached.cpp"), self.folder / "reached.o"
        run_or_exit("c++", "-std=c++17", "-O2", "-fPIC", "-c", source, "-o", marks)
        for source in self.tree.flags:
            if not self.compile(source, self.object_of(source), "-finstrument-functions"):
                sys.exit(f"mutants: {source} cannot be compiled without a change")
        if not self.link(self.tree.flags, marks):
            sys.exit("mutants: the instrumented library cannot be linked")

    def reached(self):
        """The programs that call a function of the library, by its name."""
        programs_of = collections.defaultdict(set)
        marks = {file.name: file.read_bytes() for file in (self.folder / "reached").iterdir()}
        for line in run_or_exit("nm", "--demangle", "--defined-only", self.file).splitlines():
            address, kind, name = line.split(maxsplit=2)
            if kind in "tTwW":
                programs_of[name].update(program for program, of_program in marks.items()
                                         if of_program[int(address, 16)])
        return {name: sorted(programs) for name, programs in programs_of.items()}

    def try_change(self, change, programs_in_order):
        """What became of it: "not compiled", "same code", "survived" or "killed by ..."."""
        name = pathlib.Path(change.file).name
        path = self.folder / "src" / name
        text = path.read_bytes()
        try:
            path.write_bytes(text[:change.begin] + change.new.encode() + text[change.end:])
            if not self.build(name):
                return "not compiled"
            for number, (program, timeout) in enumerate(programs_in_order):
                if number == PROMISING and self.is_same_code(name, text):
                    return "same code"
                failure = self.failure_of(program, timeout)
                if failure:
                    return f"killed by {program.name}, {failure}"
            is_asked = len(programs_in_order) > PROMISING
            return "same code" if not is_asked and self.is_same_code(name, text) else "survived"
        finally:
            path.write_bytes(text)

    def failure_of(self, program, timeout):
        """The function that fails, or how the program ends otherwise; None if it passes. A failure counts if it is
        there again, so that a loaded machine kills nothing."""
        failure = self.first_failure(program, timeout)
        if failure in (None, HANG, CRASH, EXIT):
            return failure
        return self.first_failure(program, timeout, failure) or self.first_failure(program, timeout)

    def first_failure(self, program, timeout, *functions):
        environment = {**os.environ, **program.environment, **SMALLER, "LD_LIBRARY_PATH": str(self.file.parent),
                       "KEL_REACHED": str(self.folder / "reached" / program.name)}
        deadline, said = time.monotonic() + timeout, b""
        with subprocess.Popen([program.path, *functions], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, env=environment, cwd=self.folder / "run",
                              start_new_session=True) as process:
            try:
                while True:
                    if stopped.is_set():
                        raise Stopped
                    if time.monotonic() > deadline:
                        return HANG
                    if select.select([process.stdout], [], [], 0.2)[0]:
                        part = os.read(process.stdout.fileno(), 1 << 16)
                        said = said[said.rfind(b"\n") + 1:] + part
                        match = FAILED.search(said)
                        if match:
                            return match[1].decode()
                        if not part:
                            break
                    elif process.poll() is not None:
                        break  # one that it started still holds its output
                code = process.wait(max(1, deadline - time.monotonic()))
                return CRASH if code < 0 else EXIT if code else None
            except subprocess.TimeoutExpired:
                return HANG
            finally:
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass
