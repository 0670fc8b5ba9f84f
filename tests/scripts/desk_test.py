#!/usr/bin/env -S python3 -B
"""The desk's calls: what they make and print, and what they say to each fault.

desk_test.py FOLDER_OF_THE_TOOLS
"""
import json
import os
import struct
import unittest
from pathlib import Path

from desk_harness import ROOT, DeskTest, run
from sample_parts import CHECKSUM, MARKER, checksum, executable, signed, wide


def stamp(source, *more):
    return ["stamp", source, "1k", *more, "out.exe"]


def sign(command):
    return ["release", "new", "--sign-command", command]


def names_in(document):
    """The members of a document at every level; those of a run's parameters have names of their own."""
    if isinstance(document, list):
        return set().union(*map(names_in, document))
    if not isinstance(document, dict):
        return set()
    return set(document).union(*(names_in(value) for name, value in document.items() if name != "fields"))


class Desk(DeskTest):
    def test_a_fault_is_named_and_leaves_nothing_behind(self):
        good = executable()
        files = {
            "a folder/notes": b"mine",
            "installer.exe": good,
            "cut.exe": good[:-600],
            "damaged.exe": good[:-1] + b"x",
            "plain.exe": executable(block=bytes(128)),
            "signed.exe": signed(good),
            "text.exe": b"no program",
            "data.ini": b"[Version Number]\r\nVersion Number=1.2.3.4\r\n",
            "tick.ini": b"[Version Number]\r\nVersion Number=1.2`3\r\n",
            "nothing.ini": b"[Other]\r\nVersion Number=1.2.3.4\r\n",
            "valueless.ini": b"[Version Number]\r\nNumber=1.2.3.4\r\n",
            "broken.json": b'{\n  "build" 1}',
            "wrong.json": b'{"instaler": "x"}',
            "stranger.json": b'{"products": {"zz": {}}}',
        }
        Path("a folder").mkdir()
        for name, content in files.items():
            Path(name).write_bytes(content)
        Path("dangling.exe").symlink_to("none.exe")
        self.expect(run("encipher", "data.ini", "data.inx"), 0)
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
            ("code in capitals", ["stamp", "installer.exe", "1K", "out.exe", "--strict"], 1, "stamped as"),
            ("name too long", stamp("installer.exe", "n" * 104), 1, "104 characters"),
            ("name in Cyrillic", stamp("installer.exe", "\u0416"), 1, "\u0416"),
            ("empty name", stamp("installer.exe", ""), 1, "leave it out"),
            ("wrong build", stamp("installer.exe", "--build", "16.4"), 1, "four numbers"),
            ("onto itself", ["stamp", "installer.exe", "1k", "installer.exe"], 1, "not overwritten"),
            ("onto a device", ["stamp", "installer.exe", "1k", "/dev/full"], 1, "no ordinary file"),
            ("enciphered twice", ["encipher", "data.inx", "out.inx"], 1, "enciphered already"),
            ("a sign in the build", ["encipher", "tick.ini", "out.inx"], 1, '"`"'),
            ("no section", ["encipher", "nothing.ini", "out.inx"], 1, "[Version Number]"),
            ("no value", ["encipher", "valueless.ini", "out.inx"], 1, "Version Number="),
            ("not enciphered", ["decipher", "data.ini", "out.ini"], 1, "cannot be deciphered"),
            ("no JSON", ["layout", "broken.json", "new"], 1, "line 2, column"),
            ("unknown entry", ["layout", "wrong.json", "new"], 1, "instaler"),
            ("unknown setting", ["layout", "layout.json", "new", "--set", "nam=x"], 1, "nam"),
            ("unknown product", ["layout", "stranger.json", "new"], 1, '"zz"'),
            ("verify nothing", ["verify", "a folder"], 1, "SHA256SUMS"),
            ("a folder of other files", ["release", "a folder"], 1, "left alone"),
            ("empty sign command", sign(""), 2, "is empty"),
            ("time stamp alone", ["release", "new", "--timestamp-command", "true"], 2, "--sign-command"),
            ("failing signature", sign("echo no token; false"), 1, "no token"),
            ("signature without effect", sign("true"), 1, "not signed"),
        ]
        before = sorted(Path().rglob("*"))
        for what, words, code, message in rows:
            with self.subTest(what):
                self.expect(run(*words), code, message)
                self.assertEqual(sorted(Path().rglob("*")), before)
        full_disk = run(*stamp("installer.exe"), shell="trap '' XFSZ; ulimit -f 1; exec \"$@\"")
        self.expect(full_disk, 1, "cannot be written")
        self.assertEqual(sorted(Path().rglob("*")), before)
        self.expect(run("products", shell='exec "$@" >/dev/full'), 1)
        self.assertEqual(Path("installer.exe").read_bytes(), good)
        self.assertEqual(Path("a folder/notes").read_bytes(), b"mine")
        self.assertIn("error", json.loads(run(*stamp("none.exe"), "--json").stdout))

    def test_data_are_enciphered_with_the_lines_that_windows_reads(self):
        Path("lf.ini").write_bytes(b"[Version Number]\nVersion Number=1.2.3.4\n")
        self.expect(run("encipher", "lf.ini", "lf.inx"), 0)
        self.expect(run("decipher", "lf.inx", "lf.out"), 0)
        self.assertEqual(Path("lf.out").read_bytes(),
                         b"[Version Number]\r\nVersion Number=1.2.3.4\r\n")

    def test_a_product_is_told_by_stamp_title_and_version(self):
        rows = [
            # what, program, words, code, name, the notes
            ("catalogue's name", "installer-tool", ["1k"], b"1k", b"Tavlink Serial Analyzer", r"\A\Z"),
            ("capitals", "installer-tool", ["1K"], b"1k", b"Tavlink Serial Analyzer", '"1k"'),
            ("special edition", "installer-tool", ["1q"], b"1Q", b"Bluetooth Protocol Viewer", r"\A\Z"),
            ("another name", "stamp", ["04", "Other"], b"04", b"Other", "title"),
        ]
        for what, program, words, code, name, noted in rows:
            with self.subTest(what):
                result = run(*(["stamp"] if program == "installer-tool" else []),
                             "build/release/installer.exe", *words, "made/here/out.exe",
                             "--build", "17.1.2.3", program=program)
                self.expect(result, 0)
                self.assertRegex(result.stderr, noted)
                image = Path("made/here/out.exe").read_bytes()
                block = image[image.index(MARKER):][16:128]
                self.assertEqual(block, code.ljust(8, b"\0") + name.ljust(104, b"\0"))
                self.assertEqual(struct.unpack_from("<I", image, CHECKSUM)[0], checksum(image))
                for text in (name.decode(), name.decode() + " Installation", "17.1.2.3"):
                    self.assertIn(wide(text), image)
                self.assertIn(struct.pack("<HHHH", 1, 17, 3, 2), image)
        listed = run("--list", program="stamp").stdout.splitlines()
        self.assertEqual([len(listed), listed[0]], [23, "04 Tavlink Classic Analyzer"])
        products = json.loads(run("products", "--json").stdout)
        self.assertEqual([product["code"] for product in products if product["endsSilently"]],
                         ["16", "1r", "1u"])

    def test_formats_are_those_that_their_page_tells(self):
        page = (ROOT / "docs/formats.md").read_text(encoding="utf-8")
        Path("machine.json").write_text(page.split("```json\n")[1].split("```")[0])
        for words in (["products"], ["stamp", "--list"],
                      ["stamp", "build/release/installer.exe", "1k", "f.exe"],
                      ["release", "out/release"], ["verify", "out/release"],
                      ["layout", "layout.json", "media"],
                      ["decipher", "media/1k/ProductData.inx", "f.ini"], ["encipher", "f.ini", "f.inx"],
                      ["check", "--html", "runs.html"],
                      ["check", "--release", "media", "--installed", "machine.json"],
                      ["check", "media/1q/Install.exe", "media/1q", "--installed", "machine.json"]):
            with self.subTest(words):
                result = run(*words, "--json")
                self.expect(result, 0)
                self.assertEqual({name for name in names_in(json.loads(result.stdout))
                                  if f"`{name}`" not in page}, set())


if __name__ == "__main__":
    unittest.main()
