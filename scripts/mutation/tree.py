"""A private copy of the project: broken in one place at a time, built and tested as it always is.

The project's own build decides what a changed file makes new, and its own tests (by CTest) what is
run and with what: nothing here repeats a list of files, programs or tests.
"""

import contextlib
import dataclasses
import hashlib
import json
import os
import shlex
import shutil
import signal
import subprocess

# No warning ends a build, and the same objects make the same program.
COMMON = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache", "-DCMAKE_CXX_FLAGS=-w"]
WINDOWS = [*COMMON, "-DCMAKE_EXE_LINKER_FLAGS=-Wl,--no-insert-timestamp"]
OPTIONS = {
    # Built and linked several hundred times: quickly, and without the sanitizers.
    "host": [*COMMON, "-DINSTALLER_SANITIZE=OFF", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O0 -D_GLIBCXX_ASSERTIONS"],
    "checked": WINDOWS,
    "release": WINDOWS,
    "tools": COMMON,
}  # fmt: skip
INSTALLER = "installer.exe"
FIXTURE_LIMITS = (180,)  # seconds
SOUND_LIMITS = (600,)  # seconds

ENVIRONMENT = os.environ | {"GTEST_FAIL_FAST": "1", "GTEST_BRIEF": "1"}


class Failure(Exception):
    """Something that makes every further result worthless."""


@dataclasses.dataclass(frozen=True)
class Suite:
    """One test of CTest's."""

    name: str
    program: str  # what is run, below its build's folder: "all" by a script that is given the folder
    needs: tuple  # fixtures


class Build:
    """One preset's build of a tree."""

    def __init__(self, tree, preset):
        self.preset = preset
        self.folder = tree / "build" / preset
        self.environment = ENVIRONMENT | {"CCACHE_BASEDIR": str(tree)}
        self._run_or_fail(["cmake", "--preset", preset, "--log-level=WARNING", *OPTIONS[preset]], tree)

    def _run_or_fail(self, command, folder):
        run = subprocess.run(command, cwd=folder, env=self.environment, capture_output=True, text=True)
        if run.returncode != 0:
            raise Failure(f"{' '.join(command)}:\n{run.stdout}{run.stderr}")
        return run.stdout

    def make(self, *targets):
        """Whether these targets could be built."""
        return subprocess.run(["ninja", *targets], cwd=self.folder, env=self.environment,
                              capture_output=True).returncode == 0  # fmt: skip

    def make_or_fail(self, *targets):
        self._run_or_fail(["ninja", *targets], self.folder)

    def inputs(self, target):
        """Everything that a target is made from, and all that must be there beside it."""
        return self._run_or_fail(["ninja", "-t", "inputs", target], self.folder).splitlines()

    def programs(self):
        """The executables and libraries that are linked here."""
        lines = self._run_or_fail(["ninja", "-t", "targets", "all"], self.folder).splitlines()
        pairs = [line.split(": ", 1) for line in lines]
        return {target for target, rule in pairs if rule.startswith(("CXX_EXECUTABLE", "CXX_MODULE"))}

    def objects(self):
        """The object files of each source file."""
        objects = {}
        for entry in json.loads((self.folder / "compile_commands.json").read_text()):
            words = shlex.split(entry["command"])
            if "-o" in words:  # resources have another compiler
                objects.setdefault(entry["file"], []).append(words[words.index("-o") + 1])
        return objects

    def fingerprint(self, targets):
        """One value for the bytes of all these files."""
        digest = hashlib.sha256()
        for target in sorted(targets):
            digest.update((self.folder / target).read_bytes())
        return digest.hexdigest()

    def read_tests(self):
        """Sets `suites`, and who starts each fixture."""
        self.suites, self.starts = [], {}
        for test in json.loads(self._run_or_fail(["ctest", "--show-only=json-v1"], self.folder))["tests"]:
            properties = {each["name"]: each["value"] for each in test["properties"]}
            for fixture in properties.get("FIXTURES_SETUP", []):
                self.starts.setdefault(fixture, []).append(test["name"])
            targets = {str(self.folder): "all"} | {str(self.folder / name): name for name in self.programs()}
            program = next((targets[word] for word in test.get("command", []) if word in targets), "")
            self.suites.append(Suite(test["name"], program, tuple(properties.get("FIXTURES_REQUIRED", []))))

    def test(self, names, limits):
        """Whether all these tests pass within so many seconds: when they run into a limit, they have
        another try with the next one. Fixtures are left to the caller."""
        tries = (self._passes(names, limit) for limit in limits)
        return next((passed for passed in tries if passed is not None), False)

    def _passes(self, names, limit):
        """None when the limit ended it."""
        pattern = "^(" + "|".join(name.replace(".", "\\.") for name in names) + ")$"
        process = subprocess.Popen(
            ["ctest", "--no-tests=error", "--fixture-exclude-any", ".*", "--tests-regex", pattern],
            cwd=self.folder, env=self.environment, start_new_session=True,
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)  # fmt: skip
        try:
            return process.wait(limit) == 0
        except subprocess.TimeoutExpired:
            return None
        finally:
            # With all that it started; what runs under Wine by then is ended by the next test there.
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()


class Tree:
    """The copy of the project, with its builds."""

    def __init__(self, root, folder):
        self.folder = folder
        copy_sources(root, folder)

    def native_files(self):
        """What the native tests are made from, without the tests themselves."""
        self.host = Build(self.folder, "host")
        return self._own_sources(each for program in self.host.programs() for each in self.host.inputs(program))

    def installer_files(self):
        """What the installer is made from."""
        self.checked = Build(self.folder, "checked")
        return self._own_sources(self.checked.inputs(INSTALLER))

    def _own_sources(self, paths):
        sources = [path for path in paths if path.endswith(".cpp") and os.path.isabs(path)]
        below = {os.path.relpath(path, self.folder) for path in sources}
        return {path for path in below if not path.startswith((os.pardir, "tests" + os.sep))}

    def build_native(self):
        self.host.make_or_fail()
        self.host.read_tests()
        self.native_suites = [suite for suite in self.host.suites if suite.program]
        self._remember_objects(self.host)

    def build_windows(self, prefixes):
        """Builds all that the tests of these prefixes run."""
        self.release, self.tools = Build(self.folder, "release"), Build(self.folder, "tools")
        self.checked.make_or_fail()
        self.release.make_or_fail()
        self.tools.make_or_fail()
        self.checked.read_tests()
        self.windows_suites = [
            suite for prefix in prefixes for suite in self.checked.suites
            if suite.name.endswith(f".{prefix}") and suite.program
        ]  # fmt: skip
        if not self.windows_suites:
            raise Failure(f"no test runs in a prefix of {', '.join(prefixes)}")
        self._remember_objects(self.checked)
        programs = self.checked.programs()
        self.parts = {
            suite.program: programs & {suite.program, *self.checked.inputs(suite.program)}
            for suite in self.windows_suites
        }
        self.sound_programs = {suite: self._programs(suite) for suite in self.windows_suites}

    def _remember_objects(self, build):
        build.sound = {}
        for source, objects in build.objects().items():
            objects = [each for each in objects if (build.folder / each).exists()]
            if objects:
                build.sound[os.path.relpath(source, self.folder)] = (objects, build.fingerprint(objects))

    @contextlib.contextmanager
    def broken(self, change):
        """The tree with this break in it, and sound again afterwards."""
        path = self.folder / change.file
        source = path.read_text(encoding="utf-8")
        path.write_text(change.applied_to(source), encoding="utf-8")
        try:
            yield
        finally:
            path.write_text(source, encoding="utf-8")

    def compiles_to(self, build, change):
        """None when the break compiles to other code; else what became of it."""
        objects, sound = build.sound[change.file]
        if not build.make(*objects):
            return "does not compile"
        return "same code" if build.fingerprint(objects) == sound else None

    def passes_natively(self, suite):
        """Whether a native suite passes as the tree stands; the next one, with Wine."""
        return self.host.test([suite.name], SOUND_LIMITS)

    def passes_with_wine(self, suite):
        return (not self.runs_installer(suite) or self.make_shipped(suite)) and self.checked.test(
            [suite.name], SOUND_LIMITS
        )

    def try_natively(self, change, order):
        """What became of the break, and which suite saw it."""
        with self.broken(change):
            if outcome := self.compiles_to(self.host, change):
                return outcome, None
            if not self.host.make(*{suite.program for suite in self.native_suites}):
                return "does not compile", None
            for suite in order.sorted(self.native_suites, change.file):
                passed = self.host.test([suite.name], order.limits[suite.name])
                order.learn(suite, change.file, seen=not passed)
                if not passed:
                    return "seen", suite.name
        return "survived", None

    def try_with_wine(self, change, order):
        """The same, by the suites that run what the broken file is part of."""
        shipped, able = False, False
        with self.broken(change):
            if outcome := self.compiles_to(self.checked, change):
                return outcome, None
            for suite in order.sorted(self.windows_suites, change.file):
                if not self.checked.make(suite.program):
                    return "does not compile", None
                if self.runs_installer(suite) and not shipped:
                    if not self.release.make(INSTALLER) or not self.tools.make():
                        return "does not compile", None
                    if not self.make_shipped(suite):
                        return "seen", suite.name
                    shipped = True
                if self._programs(suite) == self.sound_programs[suite]:
                    continue
                able = True
                passed = self.checked.test([suite.name], order.limits[suite.name])
                order.learn(suite, change.file, seen=not passed)
                if not passed:
                    return "seen", suite.name
        return ("survived" if able else "same code"), None

    def _programs(self, suite):
        """What stands for every byte that the suite can run."""
        installers = (self.release.fingerprint([INSTALLER]), self.tools.fingerprint(self.tools.programs()))
        program = self.checked.fingerprint(self.parts[suite.program])
        return (program, *installers) if self.runs_installer(suite) else (program,)

    def runs_installer(self, suite):
        return bool(suite.needs)

    def make_shipped(self, suite):
        """Whether the installers of all products can be made, as the suite's fixtures do it."""
        names = [name for fixture in suite.needs for name in self.checked.starts[fixture]]
        return self.checked.test(names, FIXTURE_LIMITS)

    def remove_prefixes(self):
        """Removes what tests that were ended by force left of their prefixes."""
        subprocess.run([self.folder / "scripts" / "prefix.sh", "sweep"], check=False)


def copy_sources(root, folder):
    """Makes `folder` hold what belongs to the project, committed or not, beside its builds."""
    listing = subprocess.run(["git", "ls-files", "-coz", "--exclude-standard"], cwd=root, check=True,
                             capture_output=True).stdout.decode()  # fmt: skip
    wanted = {name for name in listing.split("\0") if name and (root / name).is_file()}
    for path in [path for path in folder.glob("**/*") if path.is_file()] if folder.exists() else []:
        name = path.relative_to(folder)
        if name.parts[0] != "build" and str(name) not in wanted:
            path.unlink()
    for name in wanted:
        source, target = root / name, folder / name
        if not target.exists() or target.read_bytes() != source.read_bytes():
            target.parent.mkdir(parents=True, exist_ok=True)
            # The copy is as old as now, so that builds notice it.
            shutil.copy(source, target)

