#!/usr/bin/env python3
"""Runs clang-tidy over the natively built sources of the product and the tools, as many at a time as
there are processors. A source that passed is not looked at again until it, a header of ours that it
includes, .clang-tidy or the compiler's command changes.

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

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "host"
PASSED = ROOT / "build" / "lint"
DESK = ROOT / "tools" / "desk"
FOLDERS = {"app", "catalogue", "drivers", "framework", "installed", "platform", "tools", "ui"}
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
    for file in [ROOT / ".clang-tidy", *with_headers(pathlib.Path(entry["file"]))]:
        digest.update(file.read_bytes())
    return digest.hexdigest()


def findings(entry, version, again):
    """What clang-tidy says about a source; empty when nothing."""
    stamp = PASSED / fingerprint(entry, version)
    if stamp.exists() and not again:
        return ""
    result = subprocess.run(["clang-tidy", "-p", str(BUILD), "--quiet", entry["file"]],
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
    commands = json.loads((BUILD / "compile_commands.json").read_text(encoding="utf-8"))
    sources = [entry for entry in commands
               if pathlib.Path(entry["file"]).is_relative_to(ROOT)
               and pathlib.Path(entry["file"]).relative_to(ROOT).parts[0] in FOLDERS
               and (options.all or not pathlib.Path(entry["file"]).is_relative_to(DESK))]
    # A header's finding comes with every source that includes it.
    seen = {}
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for said in pool.map(lambda entry: findings(entry, version, options.all), sources):
            for finding in re.split(r"\n(?=\S+:\d+:\d+: (?:error|warning))", said.strip()):
                seen.setdefault(finding, None)
    seen.pop("", None)
    print(*seen, sep="\n", end="\n" if seen else "")
    return 1 if seen else 0


if __name__ == "__main__":
    sys.exit(main())
