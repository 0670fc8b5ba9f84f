#!/usr/bin/env python3
"""Writes the outputs that the documents show: runs each command that stands in a comment
"<!-- shown: COMMAND -->" and puts what it says into the block below. The commands run in order in a
folder of their own, with a sample build in it."""

import argparse
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
from sample_parts import make_desk

ROOT = Path(__file__).resolve().parents[1]
DOCUMENTS = [ROOT / "README.md", ROOT / "docs" / "release-guide.md"]
SHOWN = re.compile(r"(<!-- shown: ([^\n]*) -->\n```\n)(.*?)(```\n)", re.DOTALL)


def prepare(folder, tools):
    for place, source in (("build/tools", tools), ("scripts", ROOT / "scripts"), ("tests", ROOT / "tests")):
        (folder / place).parent.mkdir(parents=True, exist_ok=True)
        (folder / place).symlink_to(source)
    make_desk(tools, folder)


def shown(command):
    result = subprocess.run(["bash", "-c", command], stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False, timeout=300)
    return f"$ {command}\n" + re.sub(" +$", "", result.stdout, flags=re.MULTILINE)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--check", action="store_true", help="change nothing; fail when a document shows something else")
    parser.add_argument("tools", type=Path, help="folder of installer-tool")
    options = parser.parse_args()
    if not (options.tools / "installer-tool").exists():
        parser.error(f"there is no {options.tools / 'installer-tool'}: scripts/build.sh tools builds it")
    differs = False
    with tempfile.TemporaryDirectory() as folder:
        prepare(Path(folder), options.tools.resolve())
        os.chdir(folder)
        for document in DOCUMENTS:
            before = document.read_text(encoding="utf-8")
            after = SHOWN.sub(lambda match: match[1] + shown(match[2]) + match[4], before)
            if after != before:
                print(f"guide_outputs: {document} {'shows something else' if options.check else 'written'}")
                differs = True
                if not options.check:
                    document.write_text(after, encoding="utf-8")
    return 1 if options.check and differs else 0


sys.exit(main())
