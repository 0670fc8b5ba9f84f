#!/usr/bin/env python3
"""Measures the installer beside what it can be compared with, under Wine, and prints a table. Rivals take
turns within a round, so that what else the machine does falls on all of them."""

import argparse
import collections
import os
import pathlib
import re
import shutil
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "benchmark"
PROGRAMS = BUILD / "tools" / "benchmarks"
MEDIA = BUILD / "media"
PREFIX = f"benchmark.{os.getpid()}"
SIZE_LIMIT = 300 * 1024


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


def measure(program, *arguments):
    """What one of the benchmark programs printed: the numbers of each line."""
    print("== benchmark:", program, *arguments, flush=True)
    # To a file: what Wine leaves running would hold a pipe open.
    with open(BUILD / "results", "w+", encoding="utf-8") as results:
        subprocess.run([ROOT / "scripts" / "prefix.sh", "run", PREFIX, PROGRAMS / f"{program}.exe", *arguments],
                       stdin=subprocess.DEVNULL, stdout=results, check=True)
        results.seek(0)
        return [line.split() for line in results]


def lay_out_media():
    """The installers that are measured, and the same dialog and launch made with NSIS."""
    shutil.rmtree(MEDIA, ignore_errors=True)
    MEDIA.mkdir(parents=True)
    for rival in ("same_dialog", "same_launch"):
        subprocess.run(["makensis", "-V1", "-NOCD", f"-XOutFile {MEDIA / rival}.exe",
                        ROOT / "tools" / "benchmarks" / f"{rival}.nsi"], check=True)
    shutil.copy(PROGRAMS / "launched.exe", MEDIA / "Setup.Exe")
    (MEDIA / "ProductData.ini").write_bytes(b"[Version Number]\r\nVersion Number=16.4.12000.0\r\n")
    for code in ("04", "1q"):
        subprocess.run([ROOT / "build" / "tools" / "stamp", BUILD / "installer.exe", code,
                        MEDIA / f"{code}.exe"], check=True, stdout=subprocess.DEVNULL)


def starts(kind, rounds, product, what, rivals):
    """Rows for the time from a product's start, beside each rival: name, command, wanted ratio."""
    source = "Z:" + str(MEDIA).replace("/", "\\")
    (ours, _), *others = measure("start_benchmark", kind, str(rounds),
                                 f'"{source}\\{product}.exe" -dir "{source}"',
                                 *(str(command) for _, command, _ in rivals))
    return [Row(what, name, f"{ours} ms", f"{time} ms", float(ratio), wanted)
            for (name, _, wanted), (time, ratio) in zip(rivals, others, strict=True)]


def measure_all(rounds):
    """The rows of the table, and the bytes that the discovery holds with many products to report."""
    rows = starts("dialog", rounds, "04", "Start to first dialog", [
        ("its dialog, shown bare", PROGRAMS / "bare_dialog.exe", 1.05),
        ("an empty dialog", PROGRAMS / "empty_dialog.exe", 1.05),
        ("NSIS, same dialog", MEDIA / "same_dialog.exe", 1)])
    setup = str(MEDIA / "Setup.Exe").replace("/", "\\")
    rows += starts("launch", rounds, "1q", "Start to launch, unattended", [
        ("the one call of the shell", f'"{PROGRAMS / "bare_launch.exe"}" Z:{setup}', 1.05),
        ("NSIS, starts it silently", MEDIA / "same_launch.exe", 1)])
    discovery, index, (of_few, held, of_many) = measure("registry_benchmark")
    for what, wanted, (ours, bare, ratio) in (("Discovery, 10,000 entries", 1.2, discovery),
                                              ("Index, 5,000 records", 1.3, index)):
        rows.append(Row(what, "a bare loop of the reads", f"{ours} ms", f"{bare} ms", float(ratio), wanted))
    size = (MEDIA / "04.exe").stat().st_size
    rows.append(Row("Size", f"the {SIZE_LIMIT // 1024} KB allowed", f"{size / 1024:.0f} KB",
                    f"{SIZE_LIMIT // 1024} KB", size / SIZE_LIMIT, 1))
    rows.append(Row("Memory of the discovery", "a tenth of the entries", f"{held} bytes",
                    f"{of_few} bytes", int(held) / int(of_few), 1))
    return rows, of_many


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("rounds", nargs="?", type=int, default=41, help="of every start (default: 41)")
    parser.add_argument("--write-docs", action="store_true",
                        help="the results go into docs/benchmarks.md and docs/images/benchmark.svg")
    options = parser.parse_args()
    scripts = ROOT / "scripts"
    subprocess.run([scripts / "setup.sh", "nsis"], check=True)
    subprocess.run([scripts / "build.sh", "benchmark", "tools"], check=True)
    lay_out_media()
    subprocess.run([scripts / "prefix.sh", "start", "win64", PREFIX], check=True)
    try:
        rows, memory_of_many = measure_all(options.rounds)
    finally:
        subprocess.run([scripts / "prefix.sh", "stop", PREFIX], check=False)
    wine = subprocess.run(["wine", "--version"], capture_output=True, text=True, check=True).stdout.strip()
    measured = (f"Medians of {options.rounds} rounds on {os.cpu_count()} processors under {wine}, load "
                f"{os.getloadavg()[0]:.2f} at the end; {memory_of_many} bytes for ten times as many products.")
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
    except (OSError, subprocess.CalledProcessError) as error:
        raise SystemExit(f"benchmark: FAILED: {error}") from None
