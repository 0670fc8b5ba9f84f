#!/usr/bin/env -S python3 -B
"""What a customer gets: installers and media that are signed, whole, and all or nothing.

delivery_test.py FOLDER_OF_THE_TOOLS    signs with a certificate of its own
"""
import json
import os
import shutil
import struct
import subprocess
import unittest
from pathlib import Path

from desk_harness import DeskTest, run
from sample_parts import CHECKSUM, FILE_FLAGS, SUBSYSTEM_VERSION, executable, signed

SIGN = "osslsigncode sign -certs certificate.pem -key key.pem -h sha256 -n {name} -in {in} -out {out}"
DEMANDED = ["--require-signature", "--ca-file", "certificate.pem"]


def files(folder):
    return {path.relative_to(folder).as_posix(): path.read_bytes()
            for path in Path(folder).rglob("*") if path.is_file()}


def times(folder):
    return {path: path.stat().st_mtime_ns for path in Path(folder).rglob("*")}


class Delivery(DeskTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        for words in (["release", "plain"], ["release", "signed", "--sign-command", SIGN, *DEMANDED],
                      ["layout", "layout.json", "media", "--release", "signed"]):
            made = run(*words)
            assert made.returncode == 0, made.stderr
        assert "23 made, 0 unchanged" in made.stdout, made.stdout

    def copy(self, source):
        shutil.rmtree("copy", ignore_errors=True)
        shutil.copytree(source, "copy")
        return Path("copy")

    def test_media_hold_what_was_signed(self):
        for code in ("1k", "04"):
            self.assertEqual(Path(f"media/{code}/Install.exe").read_bytes(),
                             Path(f"signed/{code}/Install.exe").read_bytes())
        self.expect(run("verify", "signed", *DEMANDED), 0, "signed by /CN=Trial")
        before = times("media")
        self.expect(run("layout", "layout.json", "media", "--release", "signed"), 0, "0 made, 23 un")
        self.assertEqual(times("media"), before)
        subprocess.run(["sha256sum", "--check", "--strict", "--quiet", "MANIFEST.sha256"],
                       cwd="media/1k", check=True)

    def test_signatures_are_told(self):
        forged = self.copy("signed")
        installer = forged / "1k/Install.exe"
        image = installer.read_bytes()
        installer.write_bytes(image.replace(b"Serial Analyzer\0", b"Serial AnalyzeX\0"))
        self.expect(run("verify", forged), 1, "1k/Install.exe: signature is broken")
        self.expect(run("verify", "signed"), 0, "not verified: self-signed certificate")
        self.expect(run("verify", "signed", "--require-signature"), 1, "not verified")
        self.expect(run("verify", "plain", *DEMANDED), 1, "1k/Install.exe: not signed")

    def test_a_set_is_held_against_its_list(self):
        self.expect(run("check", "--release", "media", *DEMANDED), 0, "signed by /CN=Trial")
        copy = self.copy("media")
        shutil.rmtree(copy / "04")
        shutil.copy(copy / "1m/Install.exe", copy / "1w/Install.exe")
        (copy / "1k/Setup.Exe").write_bytes(b"")
        (copy / "07/Install.exe").unlink()
        (copy / "0g/ProductData.inx").unlink()
        self.expect(run("check", "--release", copy, *DEMANDED), 1, "product 04 are missing",
                    "is that of product 1m", "Setup.Exe: differs", "no stamped installer",
                    "ProductData.inx: is missing")
        self.expect(run("check", "--release", "media", "--strict"), 1)

    def test_a_failed_signature_keeps_the_others(self):
        Path("sign.sh").write_text('echo >>calls\n[ "$(wc -l <calls)" -ne 12 ] || exit 1\n'
                                   'osslsigncode sign -certs certificate.pem -key key.pem -in "$1" -out "$2"')
        again = ["release", "late", "--jobs", "1", "--sign-command", "sh sign.sh {in} {out}"]
        self.expect(run(*again), 1, "11 of 23 installers are signed and kept")
        self.expect(run(*again), 0)
        self.assertEqual(len(Path("calls").read_text()), 24)
        self.expect(run("verify", "late", *DEMANDED), 0)

    def test_a_time_stamp_is_tried_again(self):
        command = "test -e tried || { touch tried; echo no service; false; }"
        self.expect(run("layout", "layout.json", "own", "--product", "1k", "--sign-command", SIGN,
                        "--timestamp-command", command, "--set", "release=",
                        "--set", "installer=build/release/installer.exe"), 0)

    def test_unsigned_does_not_replace_signed(self):
        before = files("media"), files("signed")
        self.expect(run("layout", "layout.json", "media", "--release", "plain"), 1, "is signed")
        self.expect(run("release", "signed"), 1, "is signed")
        self.assertEqual(before, (files("media"), files("signed")))

    def test_only_its_own_is_replaced(self):
        for source, words in (("plain", ["release", "copy"]),
                              ("media", ["layout", "layout.json", "copy", "--release", "plain"])):
            for name, content in (("1k/notes", b"mine"), ("1k/Install.exe", executable())):
                folder = self.copy(source)
                (folder / name).write_bytes(content)
                before = files(folder)
                self.expect(run(*words), 1, name.partition("/")[2], "left alone")
                self.assertEqual(files(folder), before)

    def test_a_release_is_reproducible_and_listed(self):
        self.expect(run("release", "again", "--jobs", "1"), 0, "UNSIGNED")
        self.assertEqual(files("again"), files("plain"))
        subprocess.run(["sha256sum", "--check", "--strict", "--quiet", "SHA256SUMS"], cwd="again",
                       check=True)
        bill = json.loads(Path("again/installers.cdx.json").read_text())
        self.assertEqual(bill["bomFormat"], "CycloneDX")
        self.assertEqual(sum("hashes" in component for component in bill["components"]), 23)

    def test_what_is_wrong_with_an_installer_is_told(self):
        image = Path("plain/1k/Install.exe").read_bytes()
        linked = bytearray(image)
        struct.pack_into("<H", linked, FILE_FLAGS, 0x102)
        struct.pack_into("<HH", linked, SUBSYSTEM_VERSION, 4, 0)
        struct.pack_into("<I", linked, CHECKSUM, 0)
        Path("weak.exe").write_bytes(executable(flags=0, section=0xE0000040))
        self.expect(run("stamp", "weak.exe", "1k", "weak-1k.exe"), 0)
        rows = [
            ("changed", image[:-1] + b"x", "differs from its checksum", "damaged or changed"),
            ("cut off", image[:-600], "differs from its checksum", "cut off"),
            ("another product", Path("plain/1m/Install.exe").read_bytes(), 'stamped "1m"'),
            ("not stamped", executable(), "is not stamped"),
            ("without protections", Path("weak-1k.exe").read_bytes(),
             "ASLR", "NX", "written and run", "NO_SEH", "terminal servers"),
            ("as other linkers leave it", linked, "from a disc and from the net", "Windows XP"),
            ("one signed", signed(image), "some installers are signed"),
        ]
        for what, content, *messages in rows:
            with self.subTest(what):
                copy = self.copy("plain")
                (copy / "1k/Install.exe").write_bytes(content)
                self.expect(run("verify", copy), 1, *messages)

    def test_a_changed_release_is_seen(self):
        image = run("stamp", "build/release/installer.exe", "1k", "x.exe", "--build", "9.9.9.9")
        changes = {
            "another build": (lambda copy: shutil.copy("x.exe", copy / "1k/Install.exe"), "builds"),
            "a product less": (lambda copy: shutil.rmtree(copy / "1k"), "1k/Install.exe"),
            "a linked folder": (lambda copy: (copy / "x").symlink_to("/usr"), "x: is a link"),
            "another file": (lambda copy: (copy / "1k/x").write_text("x"), "1k/x"),
        }
        self.expect(image, 0)
        for what, (change, message) in changes.items():
            with self.subTest(what):
                copy = self.copy("plain")
                change(copy)
                # Listed as somebody does who changes files and the list with them.
                subprocess.run("find . -type f ! -name SHA256SUMS -printf '%P\\n' | sort | "
                               "xargs sha256sum > ../sums && mv ../sums SHA256SUMS",
                               shell=True, cwd=copy, check=True)
                self.expect(run("verify", copy), 1, message)

    def test_all_that_is_missing_is_told_at_once(self):
        shutil.copytree("parts", "fewer/parts")
        for name in ("1k/Setup.Exe", "1m/Setup.Exe"):
            Path("fewer/parts", name).unlink()
        Path("fewer/parts/04/Setup.Exe").write_bytes(b"MZ")
        Path("fewer/parts/07/Setup.Exe").write_bytes(b"")
        Path("fewer/contents").mkdir()
        Path("fewer/contents/linked").symlink_to("/usr")
        Path("fewer/layout.json").write_text(Path("layout.json").read_text())
        copy = self.copy("media")
        before = files(copy)
        for folder in ("none", copy):
            result = run("layout", "fewer/layout.json", folder, "--release", "signed", "--set",
                         "07.contents=fewer/contents", "--set", "0g.installerName=Install")
            self.expect(result, 1, "1k/Setup.Exe", "1m/Setup.Exe", "04/Setup.Exe", "is empty",
                        "linked", "ending in .exe")
        self.assertFalse(Path("none").exists())
        self.assertEqual(files(copy), before)

    @unittest.skipIf(os.geteuid() != 0, "an ordinary user mounts nothing")
    def test_a_folder_that_cannot_be_moved_changes_nothing(self):
        copy = self.copy("media")
        before = files(copy)
        words = ["layout", "layout.json", copy, "--release", "signed", "--build", "17.0.0.0"]
        subprocess.run(["mount", "--bind", copy / "1k", copy / "1k"], check=True)
        try:
            self.expect(run(*words), 1, "nothing was changed")
        finally:
            subprocess.run(["umount", copy / "1k"], check=True)
        self.assertEqual(files(copy), before)
        self.expect(run(*words), 0, "23 made")

    def test_a_killed_run_is_cleared_by_the_next(self):
        for name in ("KILL", "HUP"):
            killed = run("release", "killed", "--jobs", "1", "--sign-command", f"kill -{name} $PPID")
            self.assertNotEqual(killed.returncode, 0)
        self.assertEqual(killed.returncode, 1, killed.stderr)
        self.assertEqual(os.listdir("killed"), [])

    def test_links_are_followed(self):
        Path("real").mkdir()
        Path("link").symlink_to("real")
        Path("dangling").symlink_to("nowhere")
        self.expect(run("release", "link"), 0)
        self.assertTrue(Path("link").is_symlink() and Path("real/SHA256SUMS").exists())
        self.expect(run("release", "dangling"), 1, "is a link")

    def test_what_the_command_line_sets(self):
        self.expect(run("layout", "layout.json", "set", "--release", "plain", "--product", "1k",
                        "--product", "1w", "--build", "17.1.2.3", "--launcher", "--link",
                        "--set", "1w.installerName=Start.exe"), 0)
        self.assertTrue(os.path.samefile("set/1k/Setup.Exe", "parts/1k/Setup.Exe"))
        self.assertEqual(Path("set/1w/ProductData.ini").read_bytes(),
                         b"[Version Number]\r\nVersion Number=17.1.2.3\r\n")
        self.assertIn(b'"%~dp0Start.exe" -dir "%~dp0\\"\r\n',
                      Path("set/1w/install.cmd").read_bytes())
        media = json.loads(Path("set/media.json").read_text())["media"]
        self.assertEqual([(one["code"], one["build"]) for one in media],
                         [("1k", "17.1.2.3"), ("1w", "17.1.2.3")])


if __name__ == "__main__":
    unittest.main(verbosity=2)  # names what it skips
