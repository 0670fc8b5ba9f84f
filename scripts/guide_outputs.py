#!/usr/bin/env python3
"""Writes the outputs that the documents show: runs each command that stands in a comment
"<!-- shown: COMMAND -->" and puts what it says into the block below. The commands run in order in a
folder of their own, with a sample build in it.

guide_outputs.py [--check] TOOLS    TOOLS: folder of installer-tool; --check changes nothing and ends
                                    with exit code 1 when a document shows something else
"""
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parent))
from sample_parts import executable, make_parts

ROOT = Path(__file__).resolve().parents[1]
DOCUMENTS = ["README.md", "docs/release-guide.md"]
SHOWN = re.compile(r"(<!-- shown: ([^\n]*) -->\n```\n)(.*?)(```\n)", re.DOTALL)


def prepare(folder, tools):
    for place, source in (("build/tools", tools), ("scripts", ROOT / "scripts"), ("tests", ROOT / "tests")):
        (folder / place).parent.mkdir(parents=True, exist_ok=True)
        (folder / place).symlink_to(source)
    (folder / "build/release").mkdir()
    (folder / "build/release/installer.exe").write_bytes(executable())
    make_parts(tools / "installer-tool", folder / "parts")


def shown(command):
    result = subprocess.run(["bash", "-c", command], stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False, timeout=300)
    lines = [line.rstrip() for line in result.stdout.splitlines()]
    return f"$ {command}\n" + "".join(line + "\n" for line in lines)


def main():
    words = sys.argv[1:]
    checks = "--check" in words
    words = [word for word in words if word != "--check"]
    if len(words) != 1 or words[0].startswith("-"):
        asked = words in (["-h"], ["--help"])
        print(__doc__.strip(), file=sys.stdout if asked else sys.stderr)
        return 0 if asked else 2
    tools = Path(words[0]).resolve()
    differing = []
    with tempfile.TemporaryDirectory() as folder:
        prepare(Path(folder), tools)
        os.chdir(folder)
        for name in DOCUMENTS:
            document = ROOT / name
            before = document.read_text(encoding="utf-8")
            after = SHOWN.sub(lambda match: match[1] + shown(match[2]) + match[4], before)
            if after != before:
                differing.append(name)
                if not checks:
                    document.write_text(after, encoding="utf-8")
    for name in differing:
        print(f"guide_outputs: {name} {'differs; run guide_outputs.py' if checks else 'written'}")
    return 1 if checks and differing else 0


sys.exit(main())
