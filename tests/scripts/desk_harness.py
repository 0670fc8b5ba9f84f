"""What the tests of the desk have in common: a desk in a folder of its own, where they run, and the
calls. The folder of the tools is the first argument of each."""
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "scripts"))
from sample_parts import make_desk

TOOLS = Path(sys.argv.pop(1)).resolve()


def run(*words, program="installer-tool", shell='exec "$@"'):
    return subprocess.run(["bash", "-c", shell, "bash", TOOLS / program, *map(str, words)],
                          capture_output=True, text=True, timeout=300, check=False)


class DeskTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        os.chdir(folder.name)
        make_desk(TOOLS, Path())
        Path("layout.json").write_text(run("layout", "--example").stdout)

    def expect(self, result, code, *messages):
        seen = result.stdout + result.stderr
        for message in messages:
            self.assertIn(message, seen)
        self.assertNotRegex(seen, "runtime error|Sanitizer")
        self.assertEqual(result.returncode, code, seen)
