#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 KELGdiControl contributors
# SPDX-License-Identifier: MIT
"""Changes one thing at a time in src/ and reports which changes no test notices. See scripts/mutants --help."""

import argparse
import collections
import concurrent.futures
import fcntl
import hashlib
import json
import os
import pathlib
import queue
import resource
import signal
import sys
import threading
import time

from changes import changes_of, sample
from trial import Library, Stopped, Tree, run_or_exit, stopped

ROOT = pathlib.Path(__file__).resolve().parents[2]
WORK = ROOT / "build" / "mutants"
EXPLAINED = pathlib.Path(__file__).parent / "survivors.md"
MEMORY = 4 << 30  # bytes for a program: a change may make a loop endless
COUNTED = ("killed", "survived", "explained", "same code", "not compiled")


class Results:
    """What became of each change: kept while sources and tests stay the same, the survivors also beyond that."""

    def __init__(self, tree, is_again):
        self.file, self.lock = WORK / "results.json", threading.Lock()
        state = hashlib.sha256()
        for folder in ("include", "src", "tests"):
            for file in sorted((tree.source / folder).rglob("*")):
                if file.is_file() and "mutation" not in file.parts:
                    state.update(str(file.relative_to(tree.source)).encode() + b"\0" + file.read_bytes())
        known = json.loads(self.file.read_text()) if self.file.exists() else {}
        self.survivors = set(known.get("survivors", ()))
        self.state, self.results, self.seconds, self.reached = state.hexdigest(), {}, {}, {}
        if known.get("state") == self.state and not is_again:
            self.results, self.seconds, self.reached = known["results"], known["seconds"], known["reached"]

    def keep(self, text=None, result=None):
        with self.lock:
            if text is not None:
                self.results[text] = result
                (self.survivors.add if result == "survived" else self.survivors.discard)(text)
            new = self.file.with_suffix(".new")
            new.write_text(json.dumps({"state": self.state, "results": self.results, "seconds": self.seconds,
                                       "reached": self.reached, "survivors": sorted(self.survivors)}, indent=1))
            new.replace(self.file)

    def kills(self, file):
        """How many changes of the file each program has killed."""
        with self.lock:
            return collections.Counter(result.split("killed by ")[1].split(",")[0]
                                       for text, result in self.results.items()
                                       if text.startswith(f"`{file}`") and result.startswith("killed by "))


def is_named_after(program, file):
    one, two = program.name.removeprefix("kel"), pathlib.Path(file).stem.removesuffix("_p").removeprefix("kel")
    return one.startswith(two) or two.startswith(one)


def in_order(programs, change, results):
    """The programs that call the function, with the time that each may take. First the one that is expected to kill
    most in a second."""
    kills = results.kills(change.file)

    def gain(program):
        expected = kills[program.name] + (1 if is_named_after(program, change.file) else 0.02)
        return expected / (0.1 + results.seconds[program.name])

    calling = results.reached.get(change.symbol)  # of a template, and outside functions, it is not known
    return [(program, timeout_of(results.seconds[program.name])) for program in sorted(programs, key=gain, reverse=True)
            if calling is None or program.name in calling]


def timeout_of(seconds):
    return 15 + 5 * seconds


class Pool:
    """Tries changes in several libraries at the same time."""

    def __init__(self, tree, jobs):
        self.libraries = queue.Queue()
        self.executor = concurrent.futures.ThreadPoolExecutor(jobs)
        for number in range(jobs):
            self.libraries.put(Library(tree, WORK / "jobs" / str(number)))

    def each(self, function, values):
        """Calls function(library, value) for each value."""

        def call(value):
            if stopped.is_set():
                raise Stopped
            library = self.libraries.get()
            try:
                function(library, value)
            finally:
                self.libraries.put(library)

        futures = [self.executor.submit(call, value) for value in values]
        try:
            for future in concurrent.futures.as_completed(futures):
                future.result()
        except BaseException:
            stopped.set()
            self.executor.shutdown(cancel_futures=True)
            raise


def measure(pool, tree, programs, results):
    """Runs the programs without a change: each must pass. Its time and what it calls are known afterwards."""
    broken, instrumented = [], Library(tree, WORK / "jobs" / "instrumented")
    instrumented.build_instrumented()

    def run_one(_, program):
        start = time.monotonic()
        failure = instrumented.failure_of(program, 600)
        results.seconds[program.name] = round(time.monotonic() - start, 2)
        if failure:
            broken.append(f"{program.name}, {failure}")

    print(f"Running {len(programs)} programs without a change", flush=True)
    pool.each(run_one, programs)
    if broken:
        sys.exit("mutants: fails without a change: " + "; ".join(broken))
    results.reached = instrumented.reached()
    results.keep()


def try_changes(pool, changes, programs, results):
    untried = [change for change in changes if change.text not in results.results]
    print(f"Trying {len(untried)} changes, {len(changes) - len(untried)} are known", flush=True)
    numbers, begin = iter(range(1, len(untried) + 1)), time.monotonic()

    def try_one(library, change):
        start = time.monotonic()
        result = library.try_change(change, in_order(programs, change, results))
        results.keep(change.text, result)
        with results.lock:
            print(f"{next(numbers)}/{len(untried)} {result} ({time.monotonic() - start:.1f} s): line {change.line} of "
                  f"{change.text}", flush=True)

    pool.each(try_one, untried)
    if untried:
        print(f"{(time.monotonic() - begin) / len(untried):.1f} s for each change")


def read_explained():
    """The lines "- CHANGE: reason" about changes that survive."""
    lines = EXPLAINED.read_text(encoding="utf-8").splitlines() if EXPLAINED.exists() else []
    return [line[2:] for line in lines if line.startswith("- `")]


def is_explained(change, explained):
    return any(line.startswith(f"{change.text}: ") for line in explained)


def print_outdated(found, results, explained):
    """Returns whether an explained change does not exist. found: all changes of the files, also those that were not
    tried."""
    is_missing = False
    for line in explained:
        if not any(line.startswith(f"`{file}`") for file in {change.file for change in found}):
            continue
        change = next((change for change in found if line.startswith(f"{change.text}: ")), None)
        result = results.results.get(change.text, "survived") if change else "does not exist"
        is_missing = is_missing or not change
        if result != "survived":
            print(f"\nsurvivors.md is outdated, {result}: {line}")
    return is_missing


def count(changes, results, explained):
    rows = collections.defaultdict(collections.Counter)
    for change in changes:
        result = results.results[change.text]
        kind = "killed" if result.startswith("killed") else result
        rows[change.file]["explained" if kind == "survived" and is_explained(change, explained) else kind] += 1
    return rows


def print_table(rows):
    """The score leaves out what no test can kill."""
    print("\n| file | tried |", " | ".join(COUNTED), "| score |")
    print("|------|------:|" + "------:|" * len(COUNTED) + "------:|")
    for file, row in [*sorted(rows.items()), ("all", sum(rows.values(), collections.Counter()))]:
        tried = row["killed"] + row["survived"]
        score = f"{100 * row['killed'] / tried:.0f}%" if tried else "-"
        print(f"| {file} | {sum(row.values())} |", " | ".join(str(row[kind]) for kind in COUNTED), f"| {score} |")


def report(changes, results, explained):
    survivors = [change for change in changes if results.results[change.text] == "survived"
                 and not is_explained(change, explained)]
    if survivors:
        print("\nNo test notices:")
    for change in survivors:
        print(f"- {change.text}")
    print_table(count(changes, results, explained))
    return 1 if survivors else 0


def find_changes(tree, files):
    changes = []
    for file in files:
        users = tree.users.get(pathlib.Path(file).name)
        if not users:
            sys.exit(f"mutants: {file} is no source of the library")
        own = pathlib.Path(file).name
        unit = own if own in tree.flags else users[0]
        arguments = [word for word in tree.flags[unit][1:] if word != "-fno-semantic-interposition"]
        changes += changes_of(tree.source / file, file, tree.source / "src" / unit, arguments)
    return changes


def with_names(changes):
    """The changes with the names of their functions as the linker's tools print them."""
    symbols = "\n".join(change.symbol for change in changes)
    names = run_or_exit("c++filt", input=symbols).split("\n")
    return [change._replace(symbol=name) for change, name in zip(changes, names)]


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutants", add_help=False)
    parser.add_argument("--sample", type=int, default=0)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--survivors", action="store_true")
    parser.add_argument("--jobs", type=int, default=2 * os.cpu_count())
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--again", action="store_true")
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()

    lock = (WORK / "lock").open("w")  # pylint: disable=consider-using-with
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit("mutants: is already running")
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))

    print("Building the library and the tests", flush=True)
    tree = Tree(ROOT, WORK)
    every = sorted(f"src/{name}" for name in tree.users)
    changes = found = find_changes(tree, arguments.files or every)
    results = Results(tree, arguments.again)
    if arguments.survivors:
        changes = [change for change in changes if change.text in results.survivors]
    if arguments.sample:
        changes = sample(changes, arguments.sample, arguments.seed)
    if arguments.list:
        print("\n".join(f"line {change.line} of {change.text}" for change in changes))
        return 0

    if not changes:
        if arguments.survivors and results.results:
            print("No change has survived")
            return 0
        sys.exit("mutants: nothing to try")
    tree.precompile()
    changes = with_names(changes)
    pool, programs = Pool(tree, max(1, arguments.jobs)), tree.programs()
    if not results.seconds:
        measure(pool, tree, programs, results)
    try_changes(pool, changes, programs, results)
    explained = read_explained()
    is_outdated = print_outdated(found, results, explained)
    return report(changes, results, explained) or int(is_outdated)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (KeyboardInterrupt, Stopped):
        sys.exit("mutants: stopped; the same command goes on")
