#!/usr/bin/env python3
"""Runs the installer on a screen and answers its dialogs: the demonstration and the pictures.

    on_screen.py demo [--by-hand]   what scripts/demo.sh shows; built before
    on_screen.py screenshots        what scripts/screenshots.sh draws; built before
"""

import argparse
import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build"
DRIVER = BUILD / "checked" / "dialog_driver"
STAMP = BUILD / "tools" / "stamp"
IMAGES = ROOT / "docs" / "images"

# Few colours, and the same bytes every time.
SMALL_PNG = ["-strip", "+dither", "-colors", "256", "-define", "png:exclude-chunks=date,time"]


class Failure(Exception):
    """Ends the program; its text is for the person who started it."""


def run_quietly(*command, **options):
    """Runs a program to its end; what it printed is shown only when it fails."""
    result = subprocess.run([str(part) for part in command], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
    if result.returncode != 0:
        raise Failure(f"{command[0]} failed:\n{result.stdout.decode(errors='replace')}")
    return result.stdout


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


class Screen:
    """A throw-away copy of a Wine prefix that shows windows, on the display that there is or, when
    there is none or `hidden` is asked for, on a virtual one. To be used in a `with` statement."""

    def __init__(self, name, dots_per_inch=96, hidden=False):
        self.name = f"{name}.{os.getpid()}"
        self.dots_per_inch = dots_per_inch
        self.prefix = BUILD / "prefixes" / "running" / self.name
        self.environment = dict(os.environ, WINEPREFIX=str(self.prefix), WINEDEBUG="-all",
                                LC_ALL="C.UTF-8")
        self.virtual = hidden or not self.has_display()
        self.resources = contextlib.ExitStack()

    @staticmethod
    def has_display():
        try:
            return subprocess.run(["xdpyinfo"], capture_output=True).returncode == 0
        except FileNotFoundError:
            return False

    def __enter__(self):
        # Taken down again when only a part of it could be put up.
        with contextlib.ExitStack() as resources:
            resources.callback(self.prefix_script, "stop", self.name)
            self.prefix_script("start", "win64", self.name)
            self.set_registry(r"HKCU\Control Panel\Desktop", "LogPixels", self.dots_per_inch)
            self.delete_registry(r"HKCU\Software\Wine\Drivers", "Graphics")
            # A server that has run without windows goes on without them.
            self.wine("wineboot", "-e", "-f")
            subprocess.run(["wineserver", "-k", "-w"], env=self.environment, check=False)
            if self.virtual:
                self.environment["DISPLAY"] = self.start_virtual_display(resources)
                # No window manager there: Wine draws the frames.
                self.set_registry(r"HKCU\Software\Wine\X11 Driver", "Managed", "N")
            self.resources = resources.pop_all()
        return self

    def __exit__(self, *exception):
        self.resources.close()

    @staticmethod
    def start_virtual_display(resources):
        server = resources.enter_context(subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24"], stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True))
        resources.callback(server.terminate)
        number = server.stdout.readline().strip()
        if not number:
            raise Failure("Xvfb, the virtual display, did not start")
        return ":" + number

    @staticmethod
    def prefix_script(*arguments):
        # No pipes: what Wine leaves running would hold them open.
        if subprocess.run([ROOT / "scripts" / "prefix.sh", *arguments], check=False).returncode:
            raise Failure(f"prefix.sh {' '.join(arguments)} failed")

    def wine(self, *command):
        """Runs a Windows program to its end; true when it succeeded."""
        return subprocess.run(["wine", *command], env=self.environment, stdin=subprocess.DEVNULL,
                              stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                              check=False).returncode == 0

    def set_registry(self, key, name, value):
        """Sets a text or a number, in the 32-bit half of the registry."""
        kind = "REG_DWORD" if isinstance(value, int) else "REG_SZ"
        if not self.wine("reg", "add", key, "/v", name, "/t", kind, "/d", str(value), "/f",
                         "/reg:32"):
            raise Failure(f"cannot set {name} of {key}")

    def delete_registry(self, key, name=None):
        """Deletes a value or a whole key, if it is there."""
        self.wine("reg", "delete", key, *(["/v", name] if name else []), "/f", "/reg:32")


class Media:
    """Fresh installation media for a product, with a "Setup.Exe" that records how it was started."""

    def __init__(self, screen, product):
        folder = screen.prefix / "shown"  # goes with it
        shutil.rmtree(folder, ignore_errors=True)
        self.folder = folder / "media"
        self.folder.mkdir(parents=True)
        self.records = folder / "records.txt"
        self.installer = self.folder / "Install.exe"
        self.setup = self.folder / "Setup.Exe"
        names = dict(line.split(maxsplit=1)
                     for line in run_quietly(STAMP, "--list").decode().splitlines())
        run_quietly(STAMP, BUILD / "release" / "installer.exe", product, names[product],
                    self.installer)
        (self.folder / "ProductData.ini").write_bytes(
            b"[Version Number]\r\nVersion Number=16.4.12000.0\r\n")
        shutil.copy(DRIVER / "recorder.exe", self.setup)

    def handed_over(self):
        """The parameters that "Setup.Exe" was started with; None when it was not."""
        if not self.records.exists():
            return None
        # "path" parameters
        return self.records.read_text(encoding="cp1252").splitlines()[0].split('" ', 1)[1]


@dataclass
class Dialog:
    left: int
    top: int
    width: int
    height: int
    title: str
    texts: list


class Run:
    """A run of the installer. Its dialogs come one after the other: `next_dialog`, then any number
    of `act`, which says what to do on the dialog that is up. To be used in a `with` statement."""

    def __init__(self, screen, media, *arguments):
        self.screen = screen
        self.errors = open(screen.prefix / "shown" / "click_through.log", "w+b")
        self.process = subprocess.Popen(
            ["wine", str(DRIVER / "click_through.exe"), windows_path(media.installer), *arguments],
            env=dict(screen.environment, RECORD_FILE=windows_path(media.records)),
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self.errors,
            encoding="cp1252")
        self.up = False

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        self.process.stdin.close()
        if exception[0]:
            self.process.kill()
        self.process.wait()
        self.process.stdout.close()
        self.errors.close()

    def next_dialog(self):
        """Leaves the dialog that is up, waits for the next one; None at the end of the run."""
        if self.up:
            self.say("")
        dialog = None
        for line in self.process.stdout:
            kind, *values = line.rstrip("\n").split("\t")
            if kind == "dialog":
                dialog = Dialog(*map(int, values[:4]), title=values[4], texts=[])
            elif kind == "text":
                dialog.texts.append(values[0])
            elif kind == "?":
                self.up = True
                return dialog
            elif kind == "end":
                self.up = False
                return None
        self.errors.seek(0)
        raise Failure(self.errors.read().decode("cp1252").strip() or "click_through ended early")

    def act(self, action):
        """A button's label, "close", "key NUMBER" or "sees TEXT", as click_through takes it."""
        self.say(action)

    def say(self, line):
        self.process.stdin.write(line + "\n")
        self.process.stdin.flush()

    def picture(self, dialog, path):
        """Writes a small PNG of the dialog, once it is drawn and stays so."""
        path.parent.mkdir(parents=True, exist_ok=True)
        place = f"{dialog.width}x{dialog.height}+{dialog.left}+{dialog.top}"
        before, shown = None, b""
        while shown != before:
            time.sleep(1)
            before = shown
            run_quietly("import", "-window", "root", "-crop", place, "+repage", *SMALL_PNG,
                        f"PNG8:{path}", env=self.screen.environment)
            shown = path.read_bytes()


def demo(by_hand):
    shot = BUILD / "demo" / "install-product.png"
    print("== the installer, on sample media", flush=True)
    if by_hand and not Screen.has_display():
        raise Failure("--by-hand takes a display, and there is none")
    with Screen("demo") as screen:
        media = Media(screen, "07")
        with Run(screen, media, "-dir", windows_path(media.folder)) as run:
            while dialog := run.next_dialog():
                print(f'  dialog "{dialog.title}"', *dialog.texts, sep="\n    ", flush=True)
                if not shot.exists():
                    run.picture(dialog, shot)
                if by_hand:
                    print("  (it is yours: answer it on your display)", flush=True)
                else:
                    print('  clicks "Install"', flush=True)
                    run.act("Install")
        parameters = media.handed_over()
    if parameters is None:
        if by_hand:
            print("== nothing was handed over")
            return
        raise Failure("nothing was handed over")
    switch, fields = parameters.split(" ", 1)
    print("== Setup.Exe was started with", parameters, sep="\n    ")
    print("== field by field", switch, *filter(None, fields.split("`")), sep="\n    ")
    print(f"== screenshot: {shot}")


class Photographer:
    """Takes the pictures of docs/images at one resolution."""

    def __init__(self, screen):
        self.screen = screen
        self.suffix = "" if screen.dots_per_inch == 96 else f"-{screen.dots_per_inch}dpi"

    @contextlib.contextmanager
    def run(self, product, *arguments, without_setup=False):
        """A run of a product's installer that must end with the last dialog that was met."""
        media = Media(self.screen, product)
        if without_setup:
            media.setup.unlink()
        # A drive of its own, so that the paths in the pictures are those of a user.
        drive = self.screen.prefix / "dosdevices" / "d:"
        drive.unlink(missing_ok=True)
        drive.symlink_to(media.folder)
        with Run(self.screen, media, *(arguments or ("-dir", "D:"))) as run:
            yield run
            if dialog := run.next_dialog():
                raise Failure(f'"{dialog.title}" is one dialog too many')

    def shoot(self, run, name, *answers, before=()):
        """Waits for the next dialog, acts as `before` says, takes the picture, answers; without a
        name there is no picture."""
        dialog = run.next_dialog()
        if dialog is None:
            raise Failure(f"the run ended before {name or answers}")
        for action in before:
            run.act(action)
        if name:
            print(f'  {name}{self.suffix}: "{dialog.title}"', flush=True)
            run.picture(dialog, IMAGES / f"{name}{self.suffix}.png")
        for action in answers:
            run.act(action)

    def have_installed(self, *versions):
        """These versions of the product, and no others, in the list that Windows keeps."""
        programs = r"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall"
        self.screen.delete_registry(programs)
        for version in versions:
            for name, value in {"DisplayName": f"Tavlink Classic Analyzer {version}",
                                "DisplayVersion": f"{version}.0.0",
                                "UninstallString": r"C:\uninstall.exe",
                                "InstallLocation": r"C:\Tavlink"}.items():
                self.screen.set_registry(rf"{programs}\{version}", name, value)

    def at_every_resolution(self):
        with self.run("04") as run:
            self.shoot(run, "install-product", "Cancel")
        self.have_installed("12.10", "13.0", "14.2")
        with self.run("04") as run:
            down, blank = "key 40", "key 32"
            self.shoot(run, "uninstall-prompt", "No, Skip", before=(down, blank))
            self.shoot(run, None, "Cancel")

    def once(self):
        self.have_installed("14.2")
        with self.run("04") as run:
            self.shoot(run, "uninstall-prompt-one", "No, Skip")
            self.shoot(run, None, "Cancel")
        self.have_installed()
        with self.run("0q") as run:
            self.shoot(run, "install-product-live", "Cancel")
        with self.run("1d") as run:
            self.shoot(run, "install-product-viewer", "Cancel")
        with self.run("04", "-installdir", r"C:\Tavlink") as run:
            self.shoot(run, "command-line-error", "OK")
        release = r"HKCU\Software\Wine\AppDefaults\Install.exe"
        self.screen.set_registry(release, "Version", "win2k")
        with self.run("04") as run:
            self.shoot(run, "operating-system-question", "No")
        self.screen.delete_registry(release)
        with self.run("04", without_setup=True) as run:
            self.shoot(run, None, "Install")
            self.shoot(run, "setup-missing", "OK")


def screenshots():
    for dots_per_inch in (96, 120, 144, 192):
        print(f"== at {dots_per_inch} DPI", flush=True)
        with Screen(f"screenshots-{dots_per_inch}", dots_per_inch, hidden=True) as screen:
            photographer = Photographer(screen)
            photographer.at_every_resolution()
            if dots_per_inch == 96:
                photographer.once()
    print("== architecture", flush=True)
    drawn = run_quietly("dot", "-Tpng", ROOT / "docs" / "architecture.dot")
    subprocess.run(["convert", "-", *SMALL_PNG, IMAGES / "architecture.png"], input=drawn,
                   check=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    commands = parser.add_subparsers(dest="command", required=True)
    commands.add_parser("demo").add_argument("--by-hand", action="store_true")
    commands.add_parser("screenshots")
    options = parser.parse_args()
    try:
        if options.command == "demo":
            demo(options.by_hand)
        else:
            screenshots()
    except Failure as failure:
        print(f"{options.command}: FAILED: {failure}", file=sys.stderr)
        return 1
    except KeyboardInterrupt:
        return 130  # as the shell counts it
    return 0


if __name__ == "__main__":
    # Asked to end, it still takes down what it has put up.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    sys.exit(main())
