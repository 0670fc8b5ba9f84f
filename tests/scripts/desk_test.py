#!/usr/bin/env python3
"""The release engineer's desk from a build to checked media, and each fault on the way.

desk_test.py FOLDER_OF_THE_TOOLS
"""
import hashlib
import json
import os
import resource
import signal
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts"))
from sample_parts import (CERTIFICATES, CHECKSUM, FILE_FLAGS, MARKER, SUBSYSTEM_VERSION, checksum,
                          executable, make_parts, wide)

TOOLS = Path(sys.argv[1]).resolve()
failures = []


def run(*words, program="installer-tool"):
    return subprocess.run([TOOLS / program, *map(str, words)], capture_output=True, text=True,
                          timeout=300, check=False)


def limit_file_size():
    """As on a full disk, writing breaks off."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (600, 600))


def expect(row, condition, seen):
    if not condition:
        failures.append(f"{row}: {seen}")


def faults(work):
    """Each: what it is, the words, the exit code, what the message says."""
    (work / "a folder").mkdir()
    (work / "a folder" / "notes").write_text("mine")
    good = executable()
    files = {
        "installer.exe": good,
        "cut.exe": good[:-600],
        "damaged.exe": good[:-1] + b"x",
        "plain.exe": executable(block=bytes(128)),
        "text.exe": b"no program",
        "data.ini": b"[Version Number]\r\nVersion Number=1.2.3.4\r\n",
        "nothing.ini": b"[Other]\r\nVersion Number=1.2.3.4\r\n",
        "valueless.ini": b"[Version Number]\r\nNumber=1.2.3.4\r\n",
        "wrong.json": b'{"instaler": "x"}',
        "stranger.json": b'{"products": {"zz": {}}}',
    }
    for name, content in files.items():
        (work / name).write_bytes(content)
    signed = bytearray(good) + bytes(8)
    struct.pack_into("<II", signed, CERTIFICATES, len(good), 8)
    struct.pack_into("<I", signed, CHECKSUM, checksum(signed))
    (work / "signed.exe").write_bytes(signed)
    encipher = run("encipher", "data.ini", "data.inx")
    expect("encipher", encipher.returncode == 0, encipher.stderr)
    (work / "dangling.exe").symlink_to(work / "none.exe")

    def stamp(source, *more):
        return ["stamp", source, "1k", *more, "out.exe"]

    def sign(command):
        return ["release", "out", "--installer", "installer.exe", "--sign-command", command]

    rows = [
        ("no command", [], 2, "subcommand"),
        ("unknown command", ["stmp"], 2, "stmp"),
        ("unknown option", ["products", "--jsn"], 2, "--jsn"),
        ("words missing", ["stamp", "installer.exe"], 2, "CODE"),
        ("dangling link", stamp("dangling.exe"), 1, "No such file"),
        ("a folder as installer", stamp("a folder"), 1, "it is a folder"),
        ("cut off", stamp("cut.exe"), 1, "cut off"),
        ("damaged", stamp("damaged.exe"), 1, "checksum"),
        ("no room for the stamp", stamp("plain.exe"), 1, "none of our installers"),
        ("text", stamp("text.exe"), 1, "no Windows executable"),
        ("signed", stamp("signed.exe"), 1, "is signed"),
        ("unknown code", ["stamp", "installer.exe", "zz", "out.exe"], 1, "installer-tool products"),
        ("name too long", stamp("installer.exe", "n" * 104), 1, "104 characters"),
        ("empty name", stamp("installer.exe", ""), 1, "leave it out"),
        ("wrong build", stamp("installer.exe", "--build", "16.4"), 1, "four numbers"),
        ("onto itself", ["stamp", "installer.exe", "1k", "installer.exe"], 1, "not overwritten"),
        ("onto a device", ["stamp", "installer.exe", "1k", "/dev/full"], 1, "no ordinary file"),
        ("enciphered twice", ["encipher", "data.inx", "out.inx"], 1, "enciphered already"),
        ("no section", ["encipher", "nothing.ini", "out.inx"], 1, "[Version Number]"),
        ("no value", ["encipher", "valueless.ini", "out.inx"], 1, "Version Number="),
        ("not enciphered", ["decipher", "data.ini", "out.ini"], 1, "cannot be deciphered"),
        ("unknown entry", ["layout", "wrong.json", "out"], 1, "instaler"),
        ("unknown product", ["layout", "stranger.json", "out"], 1, '"zz"'),
        ("verify nothing", ["verify", "a folder"], 1, "SHA256SUMS"),
        ("empty sign command", ["release", "out", "--sign-command", ""], 2, "is empty"),
        ("time stamp alone", ["release", "out", "--timestamp-command", "true"], 2, "--sign-command"),
        ("failing signature", sign("echo no token; false"), 1, "no token"),
        ("signature without effect", sign("true"), 1, "not signed"),
    ]
    before = sorted(os.listdir(work))
    for what, words, code, message in rows:
        result = run(*words)
        seen = f"exit code {result.returncode}, {result.stderr!r}"
        expect(what, result.returncode == code and message in result.stdout + result.stderr, seen)
        expect(what, sorted(os.listdir(work)) == before, f"left behind: {os.listdir(work)}")
        for line in result.stderr.splitlines():
            expect(what, "runtime error" not in line and "Sanitizer" not in line, line)
    result = subprocess.run([TOOLS / "installer-tool", *stamp("installer.exe")],
                            capture_output=True, text=True, check=False,
                            preexec_fn=limit_file_size)
    expect("full disk", result.returncode == 1 and "cannot be written" in result.stderr,
           result.stderr)
    expect("full disk", sorted(os.listdir(work)) == before, f"left behind: {os.listdir(work)}")
    expect("input", (work / "installer.exe").read_bytes() == good, "was changed")
    result = run("stamp", "none.exe", "1k", "out.exe", "--json")
    expect("error as JSON", "error" in json.loads(result.stdout), result.stdout)


def good_runs(work):
    """What the calls make when nothing is wrong."""
    (work / "lf.ini").write_bytes(b"[Version Number]\nVersion Number=1.2.3.4\n")
    run("encipher", "lf.ini", "lf.inx")
    run("decipher", "lf.inx", "lf.out")
    expect("line ends", (work / "lf.out").read_bytes() ==
           b"[Version Number]\r\nVersion Number=1.2.3.4\r\n", (work / "lf.out").read_bytes())
    rows = [
        # what, program, words, code, name, noted
        ("catalogue's name", "installer-tool", ["1k"], b"1k", b"Tavlink Serial Analyzer", ""),
        ("capitals", "installer-tool", ["1K"], b"1k", b"Tavlink Serial Analyzer", '"1k"'),
        ("special edition", "installer-tool", ["1q"], b"1Q", b"Bluetooth Protocol Viewer", ""),
        ("another name", "stamp", ["04", "Other"], b"04", b"Other", "title"),
    ]
    for what, program, words, code, name, noted in rows:
        words = ["installer.exe", *words, "made/here/out.exe", "--build", "17.1.2.3"]
        result = run(*(["stamp"] if program == "installer-tool" else []), *words, program=program)
        image = (work / "made/here/out.exe").read_bytes()
        block = image[image.index(MARKER):][16:128]
        expect(what, result.returncode == 0 and block == code.ljust(8, b"\0") + name.ljust(104, b"\0"),
               f"{block} {result.stderr}")
        expect(what, noted in result.stderr if noted else not result.stderr, result.stderr)
        expect(what, struct.unpack_from("<I", image, CHECKSUM)[0] == checksum(image),
               "wrong checksum")
        for text in (name.decode(), name.decode() + " Installation", "17.1.2.3"):
            expect(what, wide(text) in image, f"{text} is not in the version resource")
        expect(what, struct.pack("<HHHH", 1, 17, 3, 2) in image, "no product version")
    listed = run("--list", program="stamp").stdout.splitlines()
    expect("stamp --list", len(listed) == 23 and listed[0] == "04 Tavlink Classic Analyzer", listed)
    products = json.loads(run("products", "--json").stdout)
    silent = [product["code"] for product in products if product["endsSilently"]]
    expect("silent products", silent == ["16", "1r", "1u"], silent)


def media(work):
    """The example description gives 23 checked folders; a second run changes nothing."""
    (work / "layout.json").write_text(run("layout", "--example").stdout)
    (work / "build/release").mkdir(parents=True)
    (work / "build/release/installer.exe").write_bytes(executable())
    make_parts(TOOLS / "installer-tool", work / "parts")
    run("release", "out/release")
    sample = (work / "parts/1m/Setup.Exe").read_bytes()
    result = run("layout", "layout.json", "media")
    expect("layout", result.returncode == 0 and "23 made, 0 unchanged" in result.stdout,
           result.stdout + result.stderr)
    stamps = {path: path.stat().st_mtime_ns for path in (work / "media").rglob("*")}
    result = run("layout", "layout.json", "media")
    expect("layout again", "0 made, 23 unchanged" in result.stdout, result.stdout + result.stderr)
    expect("layout again", stamps == {path: path.stat().st_mtime_ns
                                      for path in (work / "media").rglob("*")}, "changed something")
    # A part that is no longer whole stops everything, and what is there stays.
    (work / "parts/1m/Setup.Exe").write_bytes(b"")
    result = run("layout", "layout.json", "media")
    expect("empty part", result.returncode == 1 and "Setup.Exe" in result.stderr, result.stderr)
    expect("empty part", (work / "media/1m/Setup.Exe").read_bytes() == sample, "media were changed")
    (work / "parts/1m/Setup.Exe").write_bytes(sample)
    linked = run("layout", "layout.json", "linked", "--link", "--product", "1m")
    expect("links", os.path.samefile(work / "linked/1m/Setup.Exe", work / "parts/1m/Setup.Exe"),
           linked.stderr)


def releases(work):
    """A release is reproducible, and each change behind its back is named."""
    installer = ["--installer", "installer.exe"]
    first = run("release", "release", *installer)
    run("release", "again", *installer, "--jobs", "1")
    expect("release", first.returncode == 0 and "UNSIGNED" in first.stdout, first.stderr)
    for path in (work / "release").rglob("*"):
        other = work / "again" / path.relative_to(work / "release")
        expect("reproducible", path.is_dir() or path.read_bytes() == other.read_bytes(), path)
    sums = (work / "release/SHA256SUMS").read_text().splitlines()
    image = (work / "release/1k/Install.exe").read_bytes()
    expect("checksums", len(sums) == 25 and
           f"{hashlib.sha256(image).hexdigest()}  1k/Install.exe" in sums, sums)
    bill = json.loads((work / "release/installers.cdx.json").read_text())
    expect("bill of materials", bill["bomFormat"] == "CycloneDX" and
           sum("hashes" in component for component in bill["components"]) == 23, bill)
    result = run("verify", "release")
    expect("verify", result.returncode == 0, result.stdout)

    def signing(image):
        signed = bytearray(image) + struct.pack("<IHH", 8, 0x200, 2)
        struct.pack_into("<II", signed, CERTIFICATES, len(image), 8)
        struct.pack_into("<I", signed, CHECKSUM, checksum(signed))
        return bytes(signed)

    weak = executable(flags=0, section=0xE0000040)
    (work / "weak.exe").write_bytes(weak)
    run("stamp", "weak.exe", "1k", "weak-1k.exe")
    linked = bytearray(image)
    struct.pack_into("<H", linked, FILE_FLAGS, 0x102)
    struct.pack_into("<HH", linked, SUBSYSTEM_VERSION, 4, 0)
    struct.pack_into("<I", linked, CHECKSUM, 0)
    rows = [
        ("changed", image[:-1] + b"x", ["differs from its checksum", "damaged or changed"]),
        ("cut off", image[:-600], ["differs from its checksum", "cut off"]),
        ("another product", (work / "release/1m/Install.exe").read_bytes(), ['stamped "1m"']),
        ("not stamped", executable(), ["is not stamped"]),
        ("without protections", (work / "weak-1k.exe").read_bytes(),
         ["ASLR", "NX", "written and run", "NO_SEH", "terminal servers"]),
        ("as other linkers leave it", bytes(linked), ["from a disc and from the net", "Windows XP"]),
        ("one signed", signing(image), ["some installers are signed"]),
    ]
    for what, content, messages in rows:
        path = work / "again/1k/Install.exe"
        path.write_bytes(content)
        result = run("verify", "again")
        for message in messages:
            expect(what, result.returncode == 1 and message in result.stdout, result.stdout)
        path.write_bytes(image)


def names_in(document):
    """The members of a document at every level; those of a run's parameters have names of their own."""
    if isinstance(document, list):
        return set().union(*map(names_in, document))
    if not isinstance(document, dict):
        return set()
    return set(document).union(*(names_in(value) for name, value in document.items() if name != "fields"))


def formats(work):
    """docs/formats.md tells every member that is printed, and its description of a machine is read."""
    page = (Path(__file__).resolve().parents[2] / "docs/formats.md").read_text(encoding="utf-8")
    (work / "machine.json").write_text(page.split("```json\n")[1].split("```")[0])
    for words in (["products"], ["stamp", "--list"], ["stamp", "installer.exe", "1k", "f.exe"],
                  ["encipher", "data.ini", "f.inx"], ["decipher", "f.inx", "f.ini"],
                  ["release", "formats"], ["verify", "formats"],
                  ["layout", "layout.json", "media"], ["check", "--html", "runs.html"],
                  ["check", "--release", "media", "--installed", "machine.json"],
                  ["check", "media/1q/Install.exe", "media/1q", "--installed", "machine.json"]):
        result = run(*words, "--json")
        untold = {name for name in names_in(json.loads(result.stdout)) if f"`{name}`" not in page}
        expect(words, result.returncode == 0 and not untold, f"{untold} {result.stderr}")


with tempfile.TemporaryDirectory() as folder:
    os.chdir(folder)
    for part in (faults, good_runs, media, releases, formats):
        part(Path(folder))
for failure in failures:
    print("desk_test:", failure, file=sys.stderr)
sys.exit(1 if failures else 0)
