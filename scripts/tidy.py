#!/usr/bin/env python3
"""Runs clang-tidy over the product and the tools, as many sources at a time as there are processors:
over what is built natively, and as clang builds it for Windows over the rest, there with the static
analyser. A source that passed is not looked at again until it, a header of ours that it includes,
.clang-tidy, this script or the compiler's command changes.

    tidy.py [--all]    --all looks at every source again, and at the desk's, whose libraries take
                       minutes to read: before a release
"""

import argparse
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
NATIVE = ROOT / "build" / "host"
WINDOWS = ROOT / "build" / "clang-windows"
PASSED = ROOT / "build" / "lint"
DESK = ROOT / "desk"
FOLDERS = {"app", "catalogue", "desk", "drivers", "framework", "installed", "platform", "tools", "ui"}
# Beside .clang-tidy. No sanitizer and no fuzzer runs these sources, so the analyser reads them.
WINDOWS_CHECKS = ",".join((
    "clang-analyzer-*",
    "-misc-misplaced-const",  # a constant handle is what is meant
    "-misc-no-recursion",  # the registry is a tree
    "-performance-no-int-to-ptr",  # messages carry pointers in integers
    "-readability-implicit-bool-conversion",  # BOOL
    "-readability-inconsistent-declaration-parameter-name",  # WinMain's are the platform's
    "-readability-make-member-function-const",  # a handle may be constant, what it stands for changes
    "-readability-named-parameter",  # the platform's callbacks have more than each needs
    "-readability-redundant-string-cstr",  # cuts a buffer at its terminator
    "-readability-use-anyofallof",  # a loop that clicks what it finds asks for nothing
))
INCLUDE = re.compile(rb'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


@functools.cache
def with_headers(path):
    """The file and every header of ours that it includes, directly or not."""
    found, waiting = set(), [path]
    while waiting:
        file = waiting.pop()
        if file not in found and file.is_file():
            found.add(file)
            waiting += [ROOT / name.decode() for name in INCLUDE.findall(file.read_bytes())]
    return sorted(found)


def fingerprint(entry, version):
    digest = hashlib.sha256(version + entry["command"].encode())
    for file in [ROOT / ".clang-tidy", pathlib.Path(__file__), *with_headers(pathlib.Path(entry["file"]))]:
        digest.update(file.read_bytes())
    return digest.hexdigest()


def sources_of(build):
    """What is compiled there of our own, but for the tests."""
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        file = pathlib.Path(entry["file"])
        if (file.suffix == ".cpp" and file.is_relative_to(ROOT)
                and file.relative_to(ROOT).parts[0] in FOLDERS):
            yield file, entry


def findings(entry, version, again):
    """What clang-tidy says about a source; empty when nothing."""
    stamp = PASSED / fingerprint(entry, version)
    if stamp.exists() and not again:
        return ""
    windows = pathlib.Path(entry["directory"]) == WINDOWS
    build = ["-p", WINDOWS, f"--checks={WINDOWS_CHECKS}"] if windows else ["-p", NATIVE]
    result = subprocess.run(["clang-tidy", *build, "--quiet", entry["file"]],
                            capture_output=True, text=True)
    if result.returncode == 0:
        stamp.touch()
        return ""
    return result.stdout.replace(f"{ROOT}/", "") or result.stderr


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--all", action="store_true")
    options = parser.parse_args()
    PASSED.mkdir(parents=True, exist_ok=True)
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, check=True).stdout
    native = dict(sources_of(NATIVE))
    windows = {file: entry for file, entry in sources_of(WINDOWS) if file not in native}
    sources = [entry for file, entry in (native | windows).items()
               if options.all or not file.is_relative_to(DESK)]
    # A header's finding comes with every source that includes it.
    seen, told = {}, time.monotonic()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda entry: findings(entry, version, options.all), sources)
        for done, said in enumerate(results, 1):
            if time.monotonic() - told >= 20:
                told = time.monotonic()
                print(f"lint: clang-tidy, {done} of {len(sources)} files", file=sys.stderr)
            for finding in re.split(r"\n(?=\S+:\d+:\d+: (?:error|warning))", said.strip()):
                seen.setdefault(finding, None)
    seen.pop("", None)
    print(*seen, sep="\n", end="\n" if seen else "")
    return 1 if seen else 0


if __name__ == "__main__":
    sys.exit(main())
