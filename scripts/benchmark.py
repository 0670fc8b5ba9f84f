#!/usr/bin/env python3
"""Measures the installer beside what it can be compared with, under Wine or in a virtual machine, and
prints a table. Rivals take turns within a round, so that what else the machine does falls on all."""

import argparse
import collections
import os
import pathlib
import re
import shutil
import subprocess
from operator import truediv
from statistics import median

ROOT = pathlib.Path(__file__).resolve().parent.parent
SCRIPTS = ROOT / "scripts"
SOURCES = ROOT / "tools" / "benchmarks"
BUILD = ROOT / "build" / "benchmark"
KIT = BUILD / "kit"
MEDIA = KIT / "media"


# The installer beside something else; `ratio` is of the first to the second.
Row = collections.namedtuple("Row", "what beside installer other ratio wanted")


def chart(rows):
    """A picture of the ratios (SVG): a bar each, and a line where it may end."""
    unit = 560 / max(1.4, *(row.ratio for row in rows))
    bars = "".join(
        f'<text x="410" y="{40 * at + 65}" text-anchor="end">{row.what} / {row.beside}</text>'
        f'<rect x="420" y="{40 * at + 46}" width="{row.ratio * unit:.0f}" height="28" fill="#4878a8"/>'
        f'<text x="428" y="{40 * at + 65}" fill="white">{row.ratio:.2f}</text>'
        f'<path d="M{420 + row.wanted * unit:.0f} {40 * at + 42}v36" stroke="#c03028" stroke-width="3"/>\n'
        for at, row in enumerate(rows))
    return (f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 1000 {40 * len(rows) + 50}" '
            'font-family="DejaVu Sans, sans-serif" font-size="13">\n<rect width="100%" height="100%" '
            'fill="white"/>\n<text x="500" y="26" text-anchor="middle" font-size="16">The installer beside '
            f'the other: ratios (line: wanted at most)</text>\n{bars}</svg>\n')


def lay_out_kit(rounds, image):
    """What is measured, the same dialog and launch made with NSIS, and the command file that measures."""
    shutil.rmtree(KIT, ignore_errors=True)
    if image:
        subprocess.run([SCRIPTS / "windows_kit.sh", KIT], check=True)
    MEDIA.mkdir(parents=True)
    for program in (BUILD / "tools" / "benchmarks").glob("*.exe"):
        shutil.copy(program, KIT)
    for rival in ("same_dialog", "same_launch"):
        subprocess.run(["makensis", "-V1", "-NOCD", f"-XOutFile {MEDIA / rival}.exe",
                        SOURCES / f"{rival}.nsi"], check=True)
    shutil.copy(KIT / "launched.exe", MEDIA / "Setup.Exe")
    (MEDIA / "ProductData.ini").write_bytes(b"[Version Number]\r\nVersion Number=16.4.12000.0\r\n")
    for code in ("04", "1q"):
        subprocess.run([ROOT / "build" / "tools" / "stamp", BUILD / "installer.exe", code,
                        MEDIA / f"{code}.exe"], check=True, stdout=subprocess.DEVNULL)
    commands = (SOURCES / "run.cmd").read_text(encoding="ascii").replace("ROUNDS", str(rounds))
    (KIT / "run.cmd").write_text(commands, encoding="ascii", newline="\r\n")


def measure(rounds, image):
    """What the benchmark programs printed, part by part: the columns of its lines."""
    if image:
        subprocess.run([SCRIPTS / "virtual_machine.sh", image, KIT, BUILD / "report"], check=True)
    else:
        # What Wine leaves running would hold a pipe open.
        subprocess.run([SCRIPTS / "prefix.sh", "run", "win64", "cmd", "/c", r"P:\build\benchmark\kit\run.cmd"],
                       stdin=subprocess.DEVNULL, check=True)
    report = (BUILD / "report" if image else KIT) / "report.txt"
    lines = [line.split() for line in report.read_text(encoding="ascii").splitlines()]
    if [len(line) for line in lines] != [4] * rounds + [3] * rounds + [2] * 10 + [3]:
        raise SystemExit(f"benchmark: FAILED: a program did not measure; it says why in {report}")
    parts = lines[:rounds], lines[rounds:2 * rounds], lines[-11:-6], lines[-6:-1], lines[-1:]
    return [[list(map(float, column)) for column in zip(*part)] for part in parts]


def table_rows(dialog, launch, discovery, index, memory):
    """The table, of the parts that the benchmark programs printed."""
    (of_few,), (held,), _ = memory
    size = (MEDIA / "04.exe").stat().st_size / 1024

    def row(what, beside, ours, other, wanted):
        return Row(what, beside, f"{median(ours):.2f} ms", f"{median(other):.2f} ms",
                   median(map(truediv, ours, other)), wanted)

    first, unattended = "Start to first dialog", "Start to launch, unattended"
    loop = "a bare loop of the reads"
    return [
        row(first, "its dialog, shown bare", dialog[0], dialog[1], 1.05),
        row(first, "an empty dialog", dialog[0], dialog[2], 1.05),
        row(first, "NSIS, same dialog", dialog[0], dialog[3], 1),
        row(unattended, "the one call of the shell", launch[0], launch[1], 1.05),
        row(unattended, "NSIS, starts it silently", launch[0], launch[2], 1),
        row("Discovery, 10,000 entries", loop, *discovery, 1.2),
        row("Index, 5,000 records", loop, *index, 1.3),
        Row("Size", "the 300 KB allowed", f"{size:.0f} KB", "300 KB", size / 300, 1),
        Row("Memory of the discovery", "a tenth of the entries", f"{held:.0f} bytes", f"{of_few:.0f} bytes",
            held / of_few, 1)]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("rounds", nargs="?", type=int, default=41, help="of every start (default: 41)")
    parser.add_argument("--image", help="the disk of a virtual machine that measures, as virtual_machine.sh takes it")
    parser.add_argument("--write-docs", action="store_true",
                        help="the results go into docs/benchmarks.md and docs/images/benchmark.svg")
    options = parser.parse_args()
    subprocess.run([SCRIPTS / "setup.sh", "nsis"], check=True)
    subprocess.run([SCRIPTS / "build.sh", "benchmark", "tools"], check=True)
    lay_out_kit(options.rounds, options.image)
    parts = measure(options.rounds, options.image)
    rows = table_rows(*parts)
    system = os.path.basename(options.image) if options.image else subprocess.run(
        ["wine", "--version"], capture_output=True, text=True, check=True).stdout.strip()
    measured = (f"Medians of {options.rounds} rounds on {os.cpu_count()} processors under {system}, load "
                f"{os.getloadavg()[0]:.2f} at the end; {parts[-1][-1][0]:.0f} bytes for ten times as many products.")
    table = "".join(["| What | Beside | Installer | The other | Ratio | Wanted |\n",
                     "|---|---|--:|--:|--:|--:|\n", *("| {} | {} | {} | {} | {:.2f} | <= {:g} |\n".format(*row) for row in rows)])
    print(table + measured)
    if options.write_docs:
        page = ROOT / "docs" / "benchmarks.md"
        text = re.sub(r"Medians of .*", measured, page.read_text(encoding="utf-8"))
        page.write_text(re.sub(r"(\|.*\n)+", table, text, count=1), encoding="utf-8")
        (ROOT / "docs" / "images" / "benchmark.svg").write_text(chart(rows), encoding="utf-8")


if __name__ == "__main__":
    try:
        main()
    except (OSError, ValueError, subprocess.CalledProcessError) as error:
        raise SystemExit(f"benchmark: FAILED: {error}") from None
