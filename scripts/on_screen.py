#!/usr/bin/env python3
"""Runs the installer on a screen and answers its dialogs: the demonstration and the pictures.

    on_screen.py demo [--by-hand]   what scripts/demo.sh shows; built before
    on_screen.py screenshots        the dialogs for scripts/screenshots.sh; built before
"""

import collections
import contextlib
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build"
PREFIX = ROOT / "scripts" / "prefix.sh"
# What this machine can run: 32-bit programs, or 64-bit ones that stand in for them.
TEMPLATE = subprocess.run([PREFIX, "templates"], stdout=subprocess.PIPE, text=True, check=True).stdout.split()[0]
SUFFIX = "-x64" if TEMPLATE == "x64" else ""
VIEW = "/reg:64" if SUFFIX else "/reg:32"
Dialog = collections.namedtuple("Dialog", "left top width height texts")
DRIVER = BUILD / f"checked{SUFFIX}" / "dialog_driver"


def stamp(product, installer):
    """The stamping tool stamps what ships alone, which is a 32-bit program."""
    if not SUFFIX:
        subprocess.run([BUILD / "tools" / "stamp", BUILD / "release" / "installer.exe", product, installer],
                       stdout=subprocess.DEVNULL, check=True)
        return
    products = json.loads(subprocess.run([BUILD / "tools" / "installer-tool", "products", "--json"],
                                         stdout=subprocess.PIPE, check=True).stdout)
    name = next(one["name"] for one in products if one["code"].lower() == product)
    before, mark, after = (BUILD / "release-x64" / "installer.exe").read_bytes().partition(b"<#PRODUCT-STAMP>")
    fields = product.encode().ljust(8, b"\0") + name.encode()
    installer.write_bytes(before + mark + fields + after[len(fields):])


def has_display():
    return subprocess.run(["xdpyinfo"], capture_output=True, check=False).returncode == 0


class Screen(contextlib.ExitStack):
    """A throw-away copy of a Wine prefix that shows windows, on the display that there is or, when there
    is none or `hidden` is asked for, on a virtual one. To be used in a `with` statement."""

    def __init__(self, dots_per_inch=96, hidden=False):
        super().__init__()
        self.name = f"{TEMPLATE}.{os.getpid()}"
        self.prefix = BUILD / "prefixes" / "running" / self.name
        hidden = hidden or not has_display()
        if hidden:
            os.environ["DISPLAY"] = self.virtual_display()
        # No pipes: what Wine leaves running would hold them open.
        self.callback(subprocess.run, [PREFIX, "stop", self.name], check=True)
        subprocess.run([PREFIX, "start", TEMPLATE, self.name], check=True, env=os.environ | {"SHOW_WINDOWS": "1"})
        self.set_registry(r"HKCU\Control Panel\Desktop", "LogPixels", dots_per_inch)
        if hidden:
            # No window manager there: Wine draws the frames.
            self.set_registry(r"HKCU\Software\Wine\X11 Driver", "Managed", "N")

    def virtual_display(self):
        server = self.enter_context(subprocess.Popen(
            ["Xvfb", "-displayfd", "1", "-screen", "0", "1280x1024x24"], stdin=subprocess.DEVNULL,
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True))
        self.callback(server.terminate)
        return ":" + server.stdout.readline().strip()

    def set_registry(self, key, name, value):
        """Sets a text or a number, in the 32-bit half of the registry."""
        kind = "REG_DWORD" if isinstance(value, int) else "REG_SZ"
        subprocess.run([PREFIX, "run", self.name, "reg", "add", key, "/v", name, "/t", kind, "/d", str(value),
                        "/f", VIEW], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                       stderr=subprocess.DEVNULL, check=False)


class Run(subprocess.Popen):
    """The run of a product's installer on a screen: on media, drive D, whose "Setup.Exe" records how it was
    started. To be used in a `with` statement. Iterated, it gives the dialogs, one after the other."""

    def __init__(self, screen, product, *arguments, without_setup=False):
        self.record = screen.prefix / "drive_c" / "record.txt"
        media = screen.prefix / "media"
        media.mkdir()
        stamp(product, media / "Install.exe")
        (media / "ProductData.ini").write_bytes(b"[Version Number]\r\nVersion Number=16.4.12000.0\r\n")
        if not without_setup:
            shutil.copy(DRIVER / "recorder.exe", media / "Setup.Exe")
        drive = screen.prefix / "dosdevices" / "d:"
        drive.unlink(missing_ok=True)
        drive.symlink_to(media)
        super().__init__(
            [PREFIX, "run", screen.name, DRIVER / "click_through.exe", r"D:\Install.exe",
             *(arguments or ("-dir", "D:\\"))], env=os.environ | {"RECORD_FILE": r"C:\record.txt"},
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="cp1252")

    def __exit__(self, *exception):
        if exception[0]:
            self.kill()
        super().__exit__(*exception)

    def __iter__(self):
        for line in self.stdout:
            kind, *values = line.rstrip("\n").split("\t")
            if kind == "end":
                return
            yield Dialog(*map(int, values[:4]), texts=values[4].split(" | "))
            self.act("")
        sys.exit("on_screen: click_through ended early")

    def act(self, action):
        """A button's label, "close", "key NUMBER" or "sees TEXT", as click_through takes it."""
        self.stdin.write(action + "\n")
        self.stdin.flush()

    def picture(self, dialog, path):
        """Writes a small PNG of the dialog, once it is drawn and stays so."""
        path.parent.mkdir(parents=True, exist_ok=True)
        before, shown = None, b""
        while shown != before:
            time.sleep(1)
            before = shown
            # Few colours, and the same bytes every time.
            subprocess.run(["import", "-window", "root", "-crop",
                            f"{dialog.width}x{dialog.height}+{dialog.left}+{dialog.top}", "+repage", "-strip",
                            "+dither", "-colors", "256", "-define", "png:exclude-chunks=date,time",
                            f"PNG8:{path}"], check=True)
            shown = path.read_bytes()


def demo(by_hand):
    shot = BUILD / "demo" / "install-product.png"
    print(r"== Install.exe -dir D:\, on sample media", flush=True)
    if by_hand and not has_display():
        sys.exit("demo: FAILED: --by-hand takes a display, and there is none")
    with Screen() as screen:
        with Run(screen, "07") as run:
            for number, dialog in enumerate(run):
                print(f'  dialog "{dialog.texts[0]}"', *dialog.texts[1:], sep="\n    ", flush=True)
                if number == 0:
                    run.picture(dialog, shot)
                if by_hand:
                    print("  (it is yours: answer it on your display)", flush=True)
                else:
                    print('  clicks "Install"', flush=True)
                    run.act("Install")
        if not run.record.exists():
            sys.exit(None if by_hand else "demo: FAILED: nothing was handed over")
        # "path" parameters
        parameters = run.record.read_text(encoding="cp1252").splitlines()[0].split('" ', 1)[1]
    switch, fields = parameters.split(" ", 1)
    print("== Setup.Exe was started with", parameters, sep="\n    ")
    print("== field by field", switch, *filter(None, fields.split("`")), sep="\n    ")
    print(f"== screenshot: {shot}")


def take(dots_per_inch, product, *dialogs, installed=(), arguments=(), without_setup=False, windows=""):
    """Pictures of a run. `dialogs`: what is done in each, "picture NAME" or an action; `installed`: the
    versions in the list that Windows keeps; `windows`: what Wine shall report."""
    suffix = "" if dots_per_inch == 96 else f"-{dots_per_inch}dpi"
    with Screen(dots_per_inch, hidden=True) as screen:
        if windows:
            screen.set_registry(r"HKCU\Software\Wine\AppDefaults\Install.exe", "Version", windows)
        for version in installed:
            for name, value in (("DisplayName", f"Tavlink Classic Analyzer {version}"),
                                ("DisplayVersion", f"{version}.0.0"), ("UninstallString", r"C:\uninstall.exe"),
                                ("InstallLocation", r"C:\Tavlink")):
                screen.set_registry(rf"HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall\{version}",
                                    name, value)
        with Run(screen, product, *arguments, without_setup=without_setup) as run:
            for dialog, actions in zip(run, dialogs, strict=True):
                for action in actions:
                    if action.startswith("picture "):
                        print(f'  {action}{suffix}: "{dialog.texts[0]}"', flush=True)
                        run.picture(dialog, ROOT / "docs" / "images" / f"{action[8:]}{suffix}.png")
                    else:
                        run.act(action)


def screenshots():
    for dots_per_inch in (96, 120, 144, 192):
        print(f"== at {dots_per_inch} DPI", flush=True)
        take(dots_per_inch, "04", ["picture install-product", "Cancel"])
        take(dots_per_inch, "04", ["key 40", "key 32", "picture uninstall-prompt", "No, Skip"], ["Cancel"],
             installed=("12.10", "13.0", "14.2"))
    print("== at 96 DPI alone", flush=True)
    take(96, "04", ["picture uninstall-prompt-one", "No, Skip"], ["Cancel"], installed=("14.2",))
    take(96, "0q", ["picture install-product-live", "Cancel"])
    take(96, "1d", ["picture install-product-viewer", "Cancel"])
    take(96, "04", ["picture command-line-error", "OK"], arguments=("-installdir", r"C:\Tavlink"))
    take(96, "04", ["picture operating-system-question", "No"], windows="win2k")
    take(96, "04", ["Install"], ["picture setup-missing", "OK"], without_setup=True)


def main():
    # Asked to end, it still takes down what it has put up.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
    try:
        if sys.argv[1:] == ["screenshots"]:
            screenshots()
        elif sys.argv[1:] in (["demo"], ["demo", "--by-hand"]):
            demo(by_hand=len(sys.argv) == 3)
        else:
            print(__doc__.strip())
            sys.exit(0 if "--help" in sys.argv else 2)
    except subprocess.CalledProcessError as error:
        sys.exit(f"on_screen: FAILED: {error}")
    except KeyboardInterrupt:
        sys.exit(130)  # as the shell counts it


if __name__ == "__main__":
    main()
