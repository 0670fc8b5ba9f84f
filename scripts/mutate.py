#!/usr/bin/env python3
"""Breaks the code in many small ways, one at a time, and tells which breaks no test sees.

Each break is made in a private copy of the project below build/mutation, built there as the
project is always built, and tried by the tests that run the broken file, until one fails. The
decisions and the release engineer's tools are tried natively, the tools by the tests of whole
programs too; the files that touch Windows with Wine. Not counted are breaks that do not compile,
that compile to the same code, and those that are known to change nothing:
scripts/mutations_without_effect.txt names them, with the reason.

    scripts/mutate.py --sample 200                            some of all breaks of the decisions
    scripts/mutate.py --side windows --sample 100             ... of what touches Windows: half an hour
    scripts/mutate.py --side windows app/install_log_win.cpp  all breaks of one file
    scripts/mutate.py --breaks before.json                    the same breaks again, to compare
"""

import argparse
import collections
import concurrent.futures
import contextlib
import fcntl
import json
import os
import pathlib
import random
import signal
import subprocess
import sys
import threading
import time

sys.dont_write_bytecode = True

from mutation.breaks import find_breaks  # noqa: E402
from mutation.tree import Failure, Tree  # noqa: E402

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "mutation"
KNOWN = ROOT / "scripts" / "mutations_without_effect.txt"
COUNTED = ("seen", "survived")


class Order:
    """Which suite to try first: the one that most probably sees the break, for the time it takes."""

    def __init__(self):
        self.seconds, self.limits = {}, {}
        self.tried, self.seen = collections.Counter(), collections.Counter()

    def measured(self, suite, seconds):
        self.seconds[suite.name] = seconds
        # A hanging dialog must not hold up the run; a busy machine must not look like one.
        self.limits[suite.name] = (1.5 * seconds + 5, 6 * seconds + 20)

    def learn(self, suite, file, seen):
        for key in (suite.name, (suite.name, file)):
            self.tried[key] += 1
            self.seen[key] += seen

    def chance(self, suite, file):
        overall = (self.seen[suite.name] + 1) / (self.tried[suite.name] + 2)
        here = (suite.name, file)
        return (self.seen[here] + overall) / (self.tried[here] + 1)

    def sorted(self, suites, file):
        return sorted(suites, key=lambda suite: self.seconds[suite.name] / self.chance(suite, file))


class Run:
    """Breaks shared out among the trees, until enough of them counted."""

    def __init__(self, breaks, sample, attempt):
        self.breaks, self.sample, self.attempt = breaks, sample, attempt
        self.results = [None] * len(breaks)
        self.next, self.lock, self.began = 0, threading.Lock(), time.monotonic()

    def take(self):
        with self.lock:
            counted = sum(result["result"] in COUNTED for result in self.results[: self.next] if result)
            if self.next >= len(self.breaks) or counted >= self.sample:
                return None
            self.next += 1
            return self.next - 1

    def stop(self):
        with self.lock:
            self.next = len(self.breaks)

    def work(self, tree):
        while (index := self.take()) is not None:
            change, began = self.breaks[index], time.monotonic()
            outcome, seen_by = self.attempt(tree, change)
            self.results[index] = {
                "file": change.file, "line": change.line, "text": change.text, "kind": change.kind,
                "before": change.before, "after": change.after, "result": outcome,
                "seen by": seen_by, "seconds": round(time.monotonic() - began, 1),
            }  # fmt: skip
            print(f"{time.monotonic() - self.began:6.0f} s  {outcome:16} {change.file}:{change.line}", flush=True)

    def finish(self):
        """The results up to the last one that the sample asks for, whoever was quicker."""
        kept, counted = [], 0
        for result in filter(None, self.results):
            if counted < self.sample:
                kept.append(result)
                counted += result["result"] in COUNTED
        return kept


def share_out(trees, work, stop):
    """Has every tree work in a thread of its own; one failure, or the user, ends them all."""
    with concurrent.futures.ThreadPoolExecutor(len(trees)) as pool:
        try:
            for done in concurrent.futures.as_completed([pool.submit(work, tree) for tree in trees]):
                done.result()
        except BaseException:
            stop()
            raise


def measure(trees, suites, passes):
    """Runs every suite on the sound code; how long each took is what the breaks are judged by."""
    order, waiting, lock = Order(), list(suites), threading.Lock()

    def work(tree):
        while True:
            with lock:
                if not waiting:
                    return
                suite = waiting.pop()
            began = time.monotonic()
            if not passes(tree, suite):
                raise Failure(f"{suite.name} fails without any break")
            order.measured(suite, time.monotonic() - began)
            print(f"{order.seconds[suite.name]:6.1f} s  {suite.name}", flush=True)

    share_out(trees, work, stop=waiting.clear)
    return order


def without_known(breaks):
    """Leaves out what is known to change nothing; warns of what is known of lines that are gone."""
    lines = KNOWN.read_text(encoding="utf-8").splitlines()
    known = {line.split(" ## ")[0] for line in lines if line.strip() and not line.startswith("#")}
    names = [f"{each.file}: {each.change}" for each in breaks]
    files = {each.file for each in breaks}
    for name in sorted(known - set(names)):
        file = name.split(": ")[0]
        if file in files or not (ROOT / file).exists():
            print(f"mutate: {KNOWN.name} names a break that is none any more: {name}", file=sys.stderr)
    return [each for each, name in zip(breaks, names) if name not in known]


def replayed(breaks, file):
    """The breaks of an earlier run that can still be made, wherever their lines stand now."""
    waiting = collections.defaultdict(list)
    for each in breaks:
        waiting[each.text, each.before, each.after].append(each)
    again, lost = [], 0
    with open(file, encoding="utf-8") as earlier:
        for entry in json.load(earlier)["breaks"]:
            if entry["result"] not in COUNTED:
                continue
            candidates = waiting[entry["text"], entry["before"], entry["after"]]
            # Of equal lines the one in the same file, and there the nearest.
            candidates.sort(key=lambda each: (each.file != entry["file"], abs(each.line - entry["line"])))
            if candidates:
                again.append(candidates.pop(0))
            else:
                lost += 1
    print(f"{len(again)} breaks of {file} again; the lines of {lost} others are gone")
    return again


def report(results):
    """Prints what was found; returns the share of the breaks that were seen, in per cent."""
    for result in results:
        if result["result"] == "survived":
            change = f"{' '.join(result['before'].split())} -> {' '.join(result['after'].split())}"
            print(f"survived: {result['file']}:{result['line']}: {result['text']} | {change}  ({result['kind']})")
    counts = collections.Counter((result["file"], result["result"]) for result in results)
    for file in sorted({file for file, _ in counts}):
        seen, survived = counts[file, "seen"], counts[file, "survived"]
        if seen + survived:
            print(f"{seen:5} of {seen + survived:4} seen: {file}")
    totals = collections.Counter(result["result"] for result in results)
    tried = totals["seen"] + totals["survived"]
    share = 100 * totals["seen"] / tried if tried else 100.0
    print(f"{totals['seen']} of {tried} breaks seen: {share:.1f} % (not counted: {totals['does not compile']} did "
          f"not compile, {totals['same code']} compiled to the same code)")  # fmt: skip
    return share


def parse_options():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("files", nargs="*", help="only these source files")
    parser.add_argument("--side", choices=("native", "windows"), default="native",
                        help="break the decisions, or what touches Windows (default: native)")
    parser.add_argument("--wine", action="store_true",
                        help="what survives natively is tried with Wine as well")
    parser.add_argument("--prefixes", nargs="+", default=["win64"], metavar="PREFIX",
                        help="Wine prefixes to try, in this order (default: win64)")
    parser.add_argument("--sample", type=int, help="so many breaks that count, chosen at random")
    parser.add_argument("--seed", type=int, default=1, help="of the choice (default: 1)")
    parser.add_argument("--breaks", metavar="FILE", help="the breaks of an earlier run's results")
    parser.add_argument("--list", action="store_true", help="print the breaks, try none")
    parser.add_argument("--minimum", type=float, default=85, metavar="PERCENT",
                        help="fail when fewer are seen (default: 85)")
    parser.add_argument("--results", type=pathlib.Path, metavar="FILE",
                        help="where the results go (default: build/mutation/SIDE.json)")
    parser.add_argument("--workers", type=int, default=os.cpu_count(), help="default: one a processor")
    return parser.parse_args()  # fmt: skip


def choose_breaks(options, files):
    """The breaks to try, in their order."""
    if unknown := set(options.files) - files:
        raise Failure(f"not among the files of this side: {', '.join(sorted(unknown))}")
    breaks = [each for file in sorted(set(options.files) or files)
              for each in find_breaks(file, (ROOT / file).read_text(encoding="utf-8"))]  # fmt: skip
    breaks = without_known(breaks)
    if options.breaks:
        breaks = replayed(breaks, options.breaks)
    if options.sample:
        random.Random(options.seed).shuffle(breaks)
    return breaks


def ready_to_try(options, trees, stack):
    """Builds the sound code, sees its tests pass, and returns what tries one break in one tree."""
    natively, with_wine = options.side == "native", options.side == "windows" or options.wine
    print("building the sound code...", flush=True)
    for tree in trees:  # one after the other: the later ones find what the first one compiled
        if natively:
            tree.build_native()
        if with_wine:
            stack.callback(tree.remove_prefixes)
            tree.build_windows(options.prefixes)
    print("running the tests on it...", flush=True)
    if natively:
        native_order = measure(trees, trees[0].native_suites, Tree.passes_natively)
    if with_wine:
        wine_order = measure(trees, trees[0].windows_suites, Tree.passes_with_wine)

    def attempt(tree, change):
        outcome = tree.try_natively(change, native_order) if natively else ("survived", None)
        if outcome[0] == "survived" and with_wine:
            outcome = tree.try_with_wine(change, wine_order)
        return outcome

    return attempt


def try_breaks(options, trees, breaks, attempt):
    """Tries the breaks, keeps and prints the results; returns the share of those seen."""
    print(f"trying {options.sample or len(breaks)} of {len(breaks)} breaks...", flush=True)
    trial = Run(breaks, options.sample or len(breaks), attempt)
    try:
        share_out(trees, trial.work, trial.stop)
    finally:  # a run that is ended early has its results as well
        target = options.results or FOLDER / f"{options.side}.json"
        outcome = {"side": options.side, "seed": options.seed, "breaks": trial.finish()}
        target.write_text(json.dumps(outcome, indent=1) + "\n", encoding="utf-8")
        share = report(outcome["breaks"])
        print(f"all results: {target}")
    return share


def run(options, stack):
    subprocess.run([ROOT / "scripts" / "setup.sh", "lld"], check=True)
    workers = 1 if options.list else options.workers
    trees = [Tree(ROOT, FOLDER / f"tree{number}") for number in range(1, workers + 1)]
    files = [tree.native_files() for tree in trees][0]
    if options.side == "windows" or options.wine:
        installer_files = [tree.installer_files() for tree in trees][0]
    if options.side == "windows":
        files = installer_files - files
    breaks = choose_breaks(options, files)
    if options.list:
        for each in breaks:
            print(f"{each.file}:{each.line}: {each.change}  ({each.kind})")
        return 0
    attempt = ready_to_try(options, trees, stack)
    return 0 if try_breaks(options, trees, breaks, attempt) >= options.minimum else 1


def main():
    options = parse_options()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(2))  # so that what was started is ended
    FOLDER.mkdir(parents=True, exist_ok=True)
    with open(FOLDER / "lock", "w", encoding="utf-8") as lock, contextlib.ExitStack() as stack:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            return run(options, stack)
        except BlockingIOError:
            print("mutate: FAILED: another run is under way here", file=sys.stderr)
        except Failure as failure:
            print(f"mutate: FAILED: {failure}", file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main())
