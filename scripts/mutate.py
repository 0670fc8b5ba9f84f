#!/usr/bin/env python3
"""Breaks the plain code in small ways, one at a time, and prints the breaks that no native test sees.

Plain code is all that is built natively: the product's files that do not touch Windows, and the desk.
Each break is made in a private copy below build/mutation, built there without the sanitizers and tried
by the native tests until one fails. A break that does not compile or that compiles to the same code is
not counted. The same seed gives the same breaks.

    scripts/mutate.py                           100 of all breaks
    scripts/mutate.py --count 0 --folder app    every break of one folder
"""

import argparse
import collections
import fcntl
import json
import os
import pathlib
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
TREE = ROOT / "build" / "mutation"
BUILD = TREE / "build" / "host"
FOLDERS = ("app", "catalogue", "desk", "drivers", "framework", "installed", "platform", "ui")

# Comments, preprocessor lines and texts in quotes are left alone.
HIDDEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|^[ \t]*#(?:\\\n|[^\n])*|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"'
    r"|(?<!\w)'(?:\\.|[^'\\\n])+'", re.MULTILINE | re.DOTALL)  # fmt: skip

OPERATORS = dict(zip("== != <= >= <  >  && || + - * / % += -= | & |= &=".split(),
                     "!= == <  >  <= >= || && - + + * / -= += & | &= |=".split(), strict=True))  # fmt: skip
OPERATOR = re.compile(r"(?<= )(?:[=!<>+\-|&]=|&&|\|\||[<>+\-*/%|&])(?=[ \n])")
NUMBER = re.compile(r"(?<![\w.'])(0[xX][0-9a-fA-F]+|\d+)(?![\w.'])")
TRUTH = re.compile(r"\b(?:true|false)\b")
NOT = re.compile(r"(?<![=!<>\w])!(?![=!])")
ENUMERATOR = re.compile(r"\b([A-Z]\w*)::([A-Z]\w*)\b(?![\w:({<])")
CONDITION = re.compile(r"\b(?:if|while) \((.+)\) \{$", re.MULTILINE)
SHORT = r"""[\w.:>*&"~\[\]-]+"""  # an argument without brackets or blanks: no declaration of a parameter
ARGUMENTS = re.compile(rf"(?<=[(\s])({SHORT}),\s+({SHORT})(?=[,)])")
# A line that is a statement and declares nothing.
STATEMENT = re.compile(
    r"^( +)(?!return|throw|delete|else|case|using)(?:[a-z*][\w.:>()\[\]-]* [-+|&]?= .+|[\w.:>\[\]-]+\(.*\)"
    r"|std::ignore = .+|(?:\+\+|--)\w+);\n", re.MULTILINE)  # fmt: skip
# A jump that ends a body; the last line of a function is none, since it must return.
JUMP = re.compile(r"(?<=\{\n)( +(?:return\b.*|break|continue);\n)(?= +\})", re.MULTILINE)

Break = collections.namedtuple("Break", "file start end after kind")


def find_breaks(file, source):
    """The breaks of a source: the characters from `start` to `end` become `after`."""

    def painted(match):
        text = re.sub(r"[^\n]", "~" if match[0][0] in "\"'R" else " ", match[0])
        return '"' + text[1:-1] + '"' if match[0][0] in "\"'R" else text

    shown = HIDDEN.sub(painted, source)
    relatives = collections.defaultdict(set)
    for match in ENUMERATOR.finditer(shown):
        relatives[match[1]].add(match[2])

    def changes():
        for match in OPERATOR.finditer(shown):
            yield *match.span(), OPERATORS.get(match[0], ""), "operator"
        for match in NUMBER.finditer(shown):
            yield *match.span(), f"({match[0]} + 1)", "number"
            yield *match.span(), f"({match[0]} - 1)", "number"
        for match in TRUTH.finditer(shown):
            yield *match.span(), "false" if match[0] == "true" else "true", "constant"
        for match in ENUMERATOR.finditer(shown):
            for other in sorted(relatives[match[1]] - {match[2]})[:2]:
                yield *match.span(), f"{match[1]}::{other}", "constant"
        for match in NOT.finditer(shown):
            yield *match.span(), "", "condition"
        for match in CONDITION.finditer(shown):
            yield *match.span(1), f"!({source[slice(*match.span(1))]})", "condition"
        position = 0
        while match := ARGUMENTS.search(shown, position):
            first, second = (source[slice(*match.span(group))] for group in (1, 2))
            between = source[match.end(1) : match.start(2)]
            yield *match.span(), second + between + first, "swapped arguments"
            position = match.start(2)
        for match in (*STATEMENT.finditer(shown), *JUMP.finditer(shown)):
            yield *match.span(), ";\n", "removed"
        for match in STATEMENT.finditer(shown):
            following = STATEMENT.match(shown, match.end())
            if following and following[1] == match[1]:
                both = source[slice(*following.span())] + source[slice(*match.span())]
                yield match.start(), following.end(), both, "swapped statements"

    return [Break(file, *change) for change in sorted(changes()) if source[change[0] : change[1]] != change[2]]


def run(*command):
    return subprocess.run(command, cwd=TREE, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True, errors="replace", check=False)  # fmt: skip


def must(*command):
    result = run(*command)
    if result.returncode != 0:
        sys.exit(f"mutate: FAILED without any break: {' '.join(map(str, command))}\n{result.stdout[-3000:]}")


def tests_of(file):
    """The command that runs the tests of a file until one fails or waits for ever, without those that
    only the desk's programs or a browser could fail."""
    left_out = "page" if file.startswith("desk/") else "page|desk|guide_outputs"
    return ("ctest", "--test-dir", BUILD, "--stop-on-failure", "--timeout", "60",
            "--exclude-regex", f"^({left_out})$")  # fmt: skip


def objects():
    """The object file of each source that is built."""
    entries = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
    return {os.path.relpath(entry["file"], TREE): BUILD / re.search(r" -o (\S+)", entry["command"])[1]
            for entry in entries}  # fmt: skip


def outcome(change, source, made, sound):
    """What becomes of one break; `made`: the object file, `sound`: what it is without the break."""
    path = TREE / change.file
    path.write_text(source[: change.start] + change.after + source[change.end :], encoding="utf-8")
    try:
        if run("ninja", "-C", BUILD).returncode != 0:
            return "not compiled"
        if made.read_bytes() == sound:
            return "without effect"
        return "unseen" if run(*tests_of(change.file)).returncode == 0 else "seen"
    finally:
        path.write_text(source, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=100, metavar="N",
                        help="so many breaks that count, chosen at random; 0: all (default: 100)")
    parser.add_argument("--seed", type=int, default=1, metavar="S", help="of the choice (default: 1)")
    parser.add_argument("--folder", action="append", metavar="F", help="only this folder or file")
    parser.add_argument("--minimum", type=float, default=85, metavar="PERCENT",
                        help="fail when fewer are seen (default: 85)")
    options = parser.parse_args()  # fmt: skip
    sources = {}
    for folder in options.folder or FOLDERS:
        place = ROOT / folder
        for path in [place] if place.is_file() else sorted(place.rglob("*.cpp")):
            if not path.stem.endswith("_win"):
                sources[str(path.relative_to(ROOT))] = path.read_text(encoding="utf-8")
    breaks = [change for file, source in sources.items() for change in find_breaks(file, source)]
    random.Random(options.seed).shuffle(breaks)

    subprocess.run([ROOT / "scripts" / "setup.sh", "--without-wine", "rsync"], check=True)
    TREE.mkdir(parents=True, exist_ok=True)
    lock = open(f"{TREE}.lock", "w", encoding="utf-8")
    fcntl.flock(lock, fcntl.LOCK_EX)
    must("rsync", "-rpc", "--delete-after", "--filter=:- .gitignore", "--exclude=.git", f"{ROOT}/", TREE)
    os.environ |= {"CMAKE_CXX_COMPILER_LAUNCHER": "", "GTEST_FAIL_FAST": "1"}
    must("cmake", "--preset", "host", "-DINSTALLER_SANITIZE=OFF", "-DCMAKE_BUILD_TYPE=",
         "-DCMAKE_CXX_FLAGS=-O2 -w -D_GLIBCXX_ASSERTIONS", "-DCMAKE_CXX_COMPILER_LAUNCHER=")  # fmt: skip
    must("ninja", "-C", BUILD)
    must(*tests_of("desk/"))
    made, counts = objects(), collections.Counter()
    sound = {file: made[file].read_bytes() for file in sources if file in made}
    for change in breaks:
        if change.file not in sound:  # not built natively after all
            continue
        if options.count and counts["seen"] + counts["unseen"] >= options.count:
            break
        source = sources[change.file]
        result = outcome(change, source, made[change.file], sound[change.file])
        counts[result] += 1
        counts[change.file.split("/")[0], result] += 1
        if result == "unseen":
            line = source.count("\n", 0, change.start) + 1
            before, after = (" ".join(text.split()) for text in (source[change.start : change.end], change.after))
            print(f"unseen: {change.file}:{line}: {before} -> {after or 'nothing'} ({change.kind})", flush=True)
    for folder in FOLDERS:
        if tried := counts[folder, "seen"] + counts[folder, "unseen"]:
            print(f"{counts[folder, 'seen']:5} of {tried:4} seen: {folder}")
    tried = counts["seen"] + counts["unseen"]
    share = 100 * counts["seen"] / tried if tried else 100
    print(f"{counts['seen']} of {tried} breaks seen: {share:.1f} % (not counted: {counts['not compiled']} did not "
          f"compile, {counts['without effect']} compiled to the same code)")  # fmt: skip
    return 0 if share >= options.minimum else 1


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"mutate: FAILED: {error}")
