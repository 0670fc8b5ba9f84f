#!/usr/bin/env python3
"""Breaks the decision code in many small ways and tells which breaks no native test sees.

Each break is made in a copy of one source file, compiled, linked with everything else and run
against the native decision tests. Breaks that do not compile are not counted. Survivors are
printed with their line; those that are known to change nothing stand, with the reason, in
scripts/mutations_without_effect.txt.

    scripts/mutate.py [--sample N] [--seed S] [--minimum PERCENT] [file.cpp ...]
"""

import argparse
import concurrent.futures
import json
import os
import random
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "mutation")
KNOWN = os.path.join(ROOT, "scripts", "mutations_without_effect.txt")

OPERATORS = {
    "==": "!=", "!=": "==", "<=": "<", ">=": ">", "<": "<=", ">": ">=", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "+", "/": "*", "%": "/", "+=": "-=", "-=": "+=", "++": "--",
    "--": "++", "true": "false", "false": "true", "!": "", "|": "&", "&": "|",
}

TOKEN = re.compile(
    r"""
      (?P<comment>//[^\n]*|/\*.*?\*/)
    | (?P<preprocessor>^\#[^\n]*)
    | (?P<raw>R"\((?:.|\n)*?\)")
    | (?P<string>"(?:\\.|[^"\\\n])*")
    | (?P<character>'(?:\\.|[^'\\\n])+')
    | (?P<number>\b(?:0[xX][0-9a-fA-F]+|\d+)[uUlL]*\b)
    | (?P<word>\btrue\b|\bfalse\b)
    | (?P<template><[\w:<>,\s*&\[\]]*>(?=[\s({&*>]))
    | (?P<operator>->|::|<<=?|>>=?|==|!=|<=|>=|&&|\|\||\+=|-=|\+\+|--|[-+*/%<>!|&])
    """,
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)


def mutations(text):
    """Yields (start, end, replacement) for each small break."""
    for match in TOKEN.finditer(text):
        kind, token = match.lastgroup, match.group()
        if kind == "string" and len(token) > 2:
            # One character in the middle; an escape is left whole.
            middle = len(token) // 2
            while middle > 1 and (token[middle] in "\\%\"" or token[middle - 1] in "\\%x"):
                middle -= 1
            if token[middle] not in '\\"%':
                other = "#" if token[middle] != "#" else "?"
                yield match.start(), match.end(), token[:middle] + other + token[middle + 1:]
        elif kind == "character" and len(token) == 3:
            yield match.start(), match.end(), "'" + ("#" if token[1] != "#" else "?") + "'"
        elif kind == "number":
            digits = token.rstrip("uUlL")
            yield match.start(), match.end(), f"({digits} + 1)"
        elif kind in ("operator", "word") and token in OPERATORS:
            before, after = text[match.start() - 1], text[match.end():match.end() + 1]
            binary = before == " " and after in (" ", "\n")
            if token in ("<", ">", "*", "&", "-", "+", "/", "|", "%") and not binary:
                continue  # templates, pointers, references, signs
            if token == "!" and (after in "= " or not before in "( !"):
                continue
            yield match.start(), match.end(), OPERATORS[token]


def prepare():
    """Builds the native tests plainly; returns the compile command of each decision file, and the
    objects, libraries of the link."""
    subprocess.run(
        ["cmake", "-S", ROOT, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
         "-DCMAKE_CXX_COMPILER=clang++", "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS", "-DINSTALLER_TESTS=ON"],
        check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", BUILD, "--target", "decision_tests"], check=True,
                   stdout=subprocess.DEVNULL)
    with open(os.path.join(BUILD, "compile_commands.json")) as file:
        commands = json.load(file)
    decisions, test_objects = {}, []
    for entry in commands:
        arguments = [a for a in shlex.split(entry["command"]) if a != "ccache"]
        target = os.path.join(entry["directory"], arguments[arguments.index("-o") + 1])
        if "CMakeFiles/decisions.dir" in target:
            decisions[os.path.relpath(entry["file"], ROOT)] = arguments
        elif "decision_tests.dir" in target:
            test_objects.append(target)
    # What every file reads first, once: compiling is where the time goes.
    headers = os.path.join(BUILD, "headers.h")
    with open(headers, "w", encoding="utf-8") as file:
        file.writelines(f"#include <{name}>\n" for name in
                        ("algorithm", "array", "cstdint", "map", "set", "string", "string_view", "vector"))
    options = next(iter(decisions.values()))
    subprocess.run([*options[:options.index("-MD") if "-MD" in options else options.index("-o")],
                    "-w", "-Wno-error", "-x", "c++-header", headers, "-o", headers + ".pch"],
                   check=True)
    libraries = [os.path.join(BUILD, name)
                 for name in ("libdecisions.a", "lib/libgtest_main.a", "lib/libgtest.a")]
    return decisions, test_objects, libraries


def seen_by_tests(job):
    """True when a test fails, False when all pass, None when the break does not compile."""
    name, text, (start, end, replacement), decisions, test_objects, libraries = job
    with tempfile.TemporaryDirectory(dir=BUILD) as folder:
        source = os.path.join(folder, os.path.basename(name))
        with open(source, "w", encoding="utf-8") as file:
            file.write(text[:start] + replacement + text[end:])
        mutant, program = os.path.join(folder, "m.o"), os.path.join(folder, "tests")
        command = list(decisions[name])
        command[command.index("-o") + 1] = mutant
        command[command.index("-c") + 1] = source
        command += ["-w", "-Wno-error", "-include-pch", os.path.join(BUILD, "headers.h.pch")]
        if subprocess.run(command, cwd=BUILD, capture_output=True).returncode != 0:
            return None
        # The broken object stands before the library that holds the sound one.
        subprocess.run(["clang++", "-fuse-ld=lld", "-o", program, mutant, *test_objects, *libraries, "-lpthread"],
                       check=True, capture_output=True)
        try:
            run = subprocess.run([program, "--gtest_fail_fast", "--gtest_brief=1"], cwd=folder,
                                 capture_output=True, timeout=5)
        except subprocess.TimeoutExpired:
            return True
        return run.returncode != 0


def known_reasons():
    """Line text and replacement of each break that is known to change nothing, to its reason."""
    reasons = {}
    if os.path.exists(KNOWN):
        with open(KNOWN, encoding="utf-8") as file:
            for line in file:
                if line.strip() and not line.startswith("#"):
                    change, reason = line.rstrip("\n").split(" ## ")
                    reasons[change.strip()] = reason
    return reasons


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--sample", type=int, help="try only this many breaks, chosen at random")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--minimum", type=float, default=85)
    parser.add_argument("files", nargs="*")
    options = parser.parse_args()

    subprocess.run([os.path.join(ROOT, "scripts", "setup.sh"), "lld"], check=True)
    print("building the native tests...", flush=True)
    decisions, test_objects, libraries = prepare()
    jobs = []
    for name in sorted(decisions):
        if options.files and name not in options.files:
            continue
        with open(os.path.join(ROOT, name), encoding="utf-8") as file:
            text = file.read()
        jobs += [(name, text, m, decisions, test_objects, libraries) for m in mutations(text)]
    if options.sample and options.sample < len(jobs):
        jobs = random.Random(options.seed).sample(jobs, options.sample)

    reasons, seen, harmless, survivors = known_reasons(), 0, [], []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for number, (job, result) in enumerate(zip(jobs, pool.map(seen_by_tests, jobs)), 1):
            name, text, (start, end, replacement), *_ = job
            begin = text.rfind("\n", 0, start) + 1
            line = text[begin:text.index("\n", start)].strip()
            if result:
                seen += 1
            elif result is False:
                change = f"{name}: {line} | {text[start:end]} -> {replacement}"
                if change in reasons:
                    harmless.append(change)
                else:
                    survivors.append(f"{name}:{text.count(chr(10), 0, start) + 1}: {change}")
            if number % 50 == 0:
                print(f"{number} of {len(jobs)} breaks tried", flush=True)
    for survivor in survivors:
        print("survived:", survivor)
    for change in harmless:
        print("changes nothing:", change, "##", reasons[change])
    tried = seen + len(survivors) + len(harmless)
    share = 100 * seen / tried if tried else 0
    print(f"{seen} of {tried} breaks seen: {share:.1f} %")
    return 0 if share >= options.minimum else 1


if __name__ == "__main__":
    sys.exit(main())
