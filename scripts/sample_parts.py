#!/usr/bin/env python3
"""Makes stand-ins for the parts of media, to try the release engineer's desk with: whole files that
do nothing, where the example description looks for them."""
import argparse
import json
import struct
import subprocess
import sys
from pathlib import Path

MARKER = b"<#PRODUCT-STAMP>"


def wide(text):
    return text.encode("utf-16-le") + b"\0\0"


def padded(content, unit):
    return content + bytes(-len(content) % unit)


def node(key, kind, value_length, content):
    """A node of a version resource: its value, and the nodes below it."""
    body = padded(b"\0" * 6 + wide(key), 4) + content
    return struct.pack("<HHH", len(body), value_length, kind) + body[6:]


def version_resource():
    def text(key, room):
        return padded(node(key, 1, room, wide(" " * (room - 1))), 4)

    texts = text("ProductName", 112) + text("FileDescription", 126) + text("ProductVersion", 29)
    table = node("040904b0", 1, 0, texts)
    fixed = struct.pack("<13I", 0xFEEF04BD, *range(12))
    return node("VS_VERSION_INFO", 0, 52, fixed + node("StringFileInfo", 1, 0, table))


# Offsets in the executables made here.
FILE_FLAGS = 64 + 22
SUBSYSTEM_VERSION = 64 + 24 + 48
CHECKSUM = 64 + 24 + 64
CERTIFICATES = 64 + 24 + 96 + 4 * 8


def checksum(image):
    """The sum of its words, each carry added again: as 2**16 is 1 modulo 0xFFFF, the rest of the whole."""
    whole = int.from_bytes(image[:CHECKSUM] + bytes(4) + image[CHECKSUM + 4:], "little")
    return (whole - 1) % 0xFFFF + 1 + len(image)


def executable(block=MARKER + bytes(112), flags=0x8540, section=0xC0000040):
    """The headers of a Windows executable and one section with an empty block."""
    content = padded(block + version_resource(), 512)
    headers = b"MZ" + bytes(58) + struct.pack("<I", 64)
    headers += b"PE\0\0" + struct.pack("<HHIIIHH", 0x14C, 1, 0, 0, 0, 224, 0x102)
    optional = bytearray(224)
    struct.pack_into("<H", optional, 0, 0x10B)
    struct.pack_into("<HH", optional, 48, 5, 1)
    struct.pack_into("<H", optional, 70, flags)
    struct.pack_into("<I", optional, 92, 16)
    struct.pack_into("<II", optional, 96 + 5 * 8, 0x3000, 12)
    headers += optional + b".data\0\0\0" + struct.pack(
        "<IIIIIIHHI", len(content), 0x1000, len(content), 512, 0, 0, 0, 0, section)
    image = padded(headers, 512) + content
    return image[:CHECKSUM] + struct.pack("<I", checksum(image)) + image[CHECKSUM + 4:]


def signed(image):
    """With a signature behind it that says nothing."""
    image = bytearray(image) + struct.pack("<IHH", 8, 0x200, 2)
    struct.pack_into("<II", image, CERTIFICATES, len(image) - 8, 8)
    struct.pack_into("<I", image, CHECKSUM, checksum(image))
    return bytes(image)


def make_parts(tool, folder):
    """Every file that a run of any product needs."""
    products = subprocess.run([tool, "products", "--json"], capture_output=True, check=True).stdout
    program = executable(block=bytes(128))
    for product in json.loads(products):
        for name in product["files"]:
            kind = "drivers" if name.endswith(".fzx") else "common"
            path = folder / (product["code"].lower() if name == "Setup.Exe" else kind) / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(program if name.lower().endswith(".exe") else b"archive")


def make_desk(tools, folder):
    """What a release engineer starts from: a build, the parts, and a certificate to sign with."""
    (folder / "build/release").mkdir(parents=True)
    (folder / "build/release/installer.exe").write_bytes(executable())
    make_parts(tools / "installer-tool", folder / "parts")
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                    "-subj", "/CN=Trial", "-addext", "extendedKeyUsage=codeSigning",
                    "-keyout", folder / "key.pem", "-out", folder / "certificate.pem"],
                   capture_output=True, check=True)


if __name__ == "__main__":
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("folder", type=Path, help='such as "parts"')
    folder = parser.parse_args().folder
    try:
        make_parts(Path(__file__).resolve().parents[1] / "build/tools/installer-tool", folder)
    except OSError as error:
        sys.exit(f"sample_parts: FAILED: {error} (scripts/build.sh tools builds installer-tool)")
