#!/usr/bin/env python3
"""Measures what scripts/benchmark.sh has built, prints a table and draws a chart.

    benchmark.py ROUNDS FOLDER CHART    FOLDER: where benchmarks.md goes; CHART: the picture's path
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "benchmark"
PROGRAMS = BUILD / "tools" / "benchmarks"
PREFIX = f"benchmark.{os.getpid()}"
MEDIA = BUILD / "media"
STAMP = ROOT / "build" / "tools" / "stamp"
SIZE_LIMIT = 300 * 1024

PAGE = """\
# Benchmarks

Written by `scripts/benchmark.sh`: medians of {rounds} rounds on {processors} processors under
{wine}, load {load:.2f} at the end. Within a round every program runs once, in
turns; a ratio is the median of the rounds' ratios. Where it disagrees with the medians beside it,
the machine was busy (a load above the number of processors): measure again on a quiet one.

{table}

![The ratios]({chart})

- The bare dialog is the installer's own dialog shown by a program of the same framework and
  manifest that does nothing else: what stands above 1 is the installer's work before it can ask.
  The empty dialog has neither controls nor the common controls' library; it shows what the dialog
  itself costs.
- The bare loops make the same calls of the registry and for file versions, and keep nothing.
- The discovery holds what it reports and no more: with ten times as many products to report, at
  10,000 entries, it holds {memory_of_many} bytes at most.
"""

# Its data come as rows of title, ratio and wanted ratio.
CHART = """\
set terminal pngcairo size 1000,520 font "DejaVu Sans,11"
set output "{chart}"
set title "Ratios: the installer beside the other (line: wanted at most)"
set datafile separator "\\t"
set style fill solid 0.8
set xrange [0:*]
set yrange [{last} + 0.6:-0.6]
set lmargin 50
set key off
set grid xtics
set ytics scale 0
$ratios << END
{ratios}
END
plot $ratios using (0):0:(0):2:($0-0.3):($0+0.3):yticlabels(1) with boxxyerror lc rgb "#4878a8", \\
    $ratios using 3:($0-0.4):(0):(0.8) with vectors nohead lw 3 lc rgb "#c03028", \\
    $ratios using (0.03):0:(sprintf("%.2f", $2)) with labels left textcolor rgb "white"
"""


@dataclass
class Row:
    """The installer beside something else; `ratio` is of the first to the second."""
    what: str
    beside: str
    installer: str
    other: str
    ratio: float
    wanted: float

    def __str__(self):
        return (f"| {self.what} | {self.beside} | {self.installer} | {self.other} | "
                f"{self.ratio:.2f} | <= {self.wanted:g} |")


def table(rows):
    return "\n".join(["| What | Beside | Installer | The other | Ratio | Wanted |",
                      "|---|---|--:|--:|--:|--:|", *map(str, rows)])


def measure(program, *arguments):
    """What one of the benchmark programs printed: the numbers of each line."""
    print("== benchmark:", program, *arguments, flush=True)
    results = BUILD / "results"
    # To files: what Wine leaves running would hold a pipe open.
    with open(results, "wb") as output, open(f"{results}.errors", "wb") as errors:
        ended = subprocess.run([ROOT / "scripts" / "in_prefix.sh", PREFIX,
                                PROGRAMS / f"{program}.exe", *arguments],
                               stdin=subprocess.DEVNULL, stdout=output, stderr=errors, check=False)
    if ended.returncode != 0:
        sys.exit(f"benchmark: FAILED: {pathlib.Path(f'{results}.errors').read_text()}")
    return [line.split() for line in results.read_text().splitlines()]


def lay_out_media():
    """The installers that are measured, and the same dialog and hand-over made with NSIS."""
    shutil.rmtree(MEDIA, ignore_errors=True)
    MEDIA.mkdir(parents=True)
    for rival in ("same_dialog", "same_hand_over"):
        subprocess.run(["makensis", "-V1", "-NOCD", f"-XOutFile {MEDIA / rival}.exe",
                        ROOT / "tools" / "benchmarks" / f"{rival}.nsi"], cwd=ROOT, check=True)
    shutil.copy(PROGRAMS / "hand_over.exe", MEDIA / "Setup.Exe")
    (MEDIA / "ProductData.ini").write_bytes(
        b"[Version Number]\r\nVersion Number=16.4.12000.0\r\n")
    products = subprocess.run([STAMP, "--list"], capture_output=True, text=True, check=True)
    names = dict(line.split(maxsplit=1) for line in products.stdout.splitlines())
    for code in ("04", "1q"):
        subprocess.run([STAMP, BUILD / "installer.exe", code, names[code], MEDIA / f"{code}.exe"],
                       check=True, stdout=subprocess.DEVNULL)


def starts(kind, rounds, product, what, rivals):
    """Rows for the time from a product's start, beside each rival: name, program, wanted ratio."""
    source = "Z:" + str(MEDIA).replace("/", "\\")
    (ours, _), *others = measure("start_benchmark", kind, str(rounds),
                                 f'"{source}\\{product}.exe" -dir "{source}"',
                                 *(str(program) for _, program, _ in rivals))
    return [Row(what, name, f"{ours} ms", f"{time} ms", float(ratio), wanted)
            for (name, _, wanted), (time, ratio) in zip(rivals, others, strict=True)]


def measure_all(rounds):
    """The rows of the table, and the bytes that the discovery holds with many products to report."""
    rows = starts("dialog", rounds, "04", "Start to first dialog", [
        ("its dialog, shown bare", PROGRAMS / "bare_dialog.exe", 1.05),
        ("an empty dialog", PROGRAMS / "empty_dialog.exe", 1.05),
        ("NSIS, same dialog", MEDIA / "same_dialog.exe", 1)])
    rows += starts("hand-over", rounds, "1q", "Start to hand-over, unattended", [
        ("NSIS, starts it silently", MEDIA / "same_hand_over.exe", 1)])
    discovery, index, memory = measure("registry_benchmark")
    for what, wanted, (ours, bare, ratio) in (("Discovery, 10,000 entries", 1.2, discovery),
                                              ("Index, 5,000 records", 1.3, index)):
        rows.append(Row(what, "a bare loop of the reads", f"{ours} ms", f"{bare} ms",
                        float(ratio), wanted))
    size = (MEDIA / "04.exe").stat().st_size
    rows.append(Row("Size", f"the {SIZE_LIMIT // 1024} KB allowed", f"{size / 1024:.0f} KB",
                    f"{SIZE_LIMIT // 1024} KB", size / SIZE_LIMIT, 1))
    of_few, held, of_many = memory
    rows.append(Row("Memory of the discovery", "a tenth of the entries", f"{held} bytes",
                    f"{of_few} bytes", int(held) / int(of_few), 1))
    return rows, of_many


def main():
    if len(sys.argv) != 4 or not sys.argv[1].isdecimal():
        print(__doc__, file=sys.stderr)
        return 2
    rounds = int(sys.argv[1])
    folder, chart = map(pathlib.Path, sys.argv[2:])
    prefix = ROOT / "scripts" / "prefix.sh"
    lay_out_media()
    subprocess.run([prefix, "start", "win64", PREFIX], check=True)
    try:
        rows, memory_of_many = measure_all(rounds)
    finally:
        subprocess.run([prefix, "stop", PREFIX], check=False)
    print(table(rows))

    chart.parent.mkdir(parents=True, exist_ok=True)
    ratios = "\n".join(f"{row.what} / {row.beside}\t{row.ratio}\t{row.wanted}" for row in rows)
    subprocess.run(["gnuplot"], text=True, check=True,
                   input=CHART.format(chart=chart, last=len(rows) - 1, ratios=ratios))
    wine = subprocess.run(["wine", "--version"], capture_output=True, text=True, check=True)
    page = folder / "benchmarks.md"
    page.write_text(PAGE.format(
        rounds=rounds, processors=os.cpu_count(), wine=wine.stdout.strip(),
        load=os.getloadavg()[0], table=table(rows), memory_of_many=memory_of_many,
        chart=chart.relative_to(folder)), encoding="utf-8")
    print(f"benchmark: {page} and {chart} are written")
    return 0


if __name__ == "__main__":
    # Asked to end, it still takes down what it has put up.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    sys.exit(main())
