#!/usr/bin/env python3
"""The field guide is the second home of every text that a user may meet, and support searches for it.

Every sentence in the code stands in the guide, and every one that the guide quotes in the code.
"""
import re
import sys
from pathlib import Path

PROJECT = Path(__file__).resolve().parents[2]
# Literals that stand beside one another are one text.
LITERAL = re.compile(r'//[^\n]*|#include[^\n]*|\'"\'|((?:"(?:\\.|[^"\\\n])*"\s*)+)')


def on_one_line(text):
    return " ".join(text.split())


def sentences(text, *gaps):
    """The parts between what differs from run to run that have three words and no sign of a format,
    a path or a command."""
    parts = (on_one_line(part).lstrip(' ."').rstrip(' "') for part in re.split("|".join(gaps), text))
    return {part for part in parts if part.count(" ") > 1 and not re.search(r"[%\\]", part)}


def sentences_of_source(source):
    found = set()
    for literals in filter(None, LITERAL.findall(source)):
        text = "".join(re.findall(r'"((?:\\.|[^"\\])*)"', literals))
        found |= sentences(re.sub(r"\\(.)", lambda escape: escape[1].replace("n", "\n"), text), "%s", "%d")
    return found


sources = [PROJECT / "platform" / "shell_runner.cpp"]
for folder in ("app", "drivers", "ui"):
    sources += [path for path in (PROJECT / folder).iterdir() if path.suffix in (".cpp", ".h")]
program = set().union(*(sentences_of_source(path.read_text(encoding="latin-1")) for path in sources))
# Of the two enciphered ones the other is never shown.
texts = (PROJECT / "catalogue" / "program_texts.cpp").read_text(encoding="utf-8")
program |= sentences_of_source(re.search(r"hardwarePrompt = .*?;", texts, re.DOTALL)[0])

guide = on_one_line((PROJECT / "docs" / "field-guide.md").read_text(encoding="utf-8"))
quoted = set().union(*(sentences(text, "…", "258", "5") for text in re.findall("“(.*?)”", guide)))

faults = [f"the guide lacks: {text}" for text in sorted(program) if text not in guide]
faults += [f"no text of the program: {text}" for text in sorted(quoted - program)]
if len(program) < 30:
    faults.append(f"only {len(program)} sentences were found in the code")
sys.exit("\n".join(faults) or 0)
