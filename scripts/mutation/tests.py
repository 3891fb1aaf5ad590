"""Runs the native tests against a changed program: the nearest ones first, each lot under limits of its own.

While they run, all files but those of one scratch folder are read-only, where the system allows that: a changed program may
delete what it was never asked to.
"""
import dataclasses
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess

PROGRAMS = ("module_tests", "platform_tests", "host_tests")
# What the program itself is linked from, and what it starts or loads.
_USES = {
    "module_tests": ("qxplatform", "module_tests"),
    "platform_tests": ("qxplatform", "platform_tests"),
    "host_tests": ("qxplatform", "QXUtils", "qxhost", "host_tests"),
    "end_to_end": ("qxplatform", "QXUtils", "qxhost"),
}
_MEMORY = 3 << 30  # bytes of a test program
_FILE = 8 << 30  # bytes of a file that it writes; one test makes a file of 4 GiB, which is empty all through
_SLOW = 0.5  # seconds of a suite that waits until the quick ones have passed

# The first argument is the folder that stays writable; the others are the command. Scratch files go to /tmp, which is
# that folder too unless the build is in it. A test wants to be refused /etc/passwd by its owner, so it gets a copy.
_PROTECTED = r"""
case $1 in
  /tmp/*) mount --bind /tmp /tmp ;;
  *) mount --bind "$1" /tmp ;;
esac && mount --bind "$1" "$1" && cp /etc/passwd "$1" && mount --bind "$1/passwd" /etc/passwd || exit 120
while read -r device point others; do
  case $point in
    "$1" | /tmp | /etc/passwd | /dev | /dev/* | /proc | /proc/* | /sys | /sys/*) ;;
    *) mount -o remount,bind,ro "$point" 2>/dev/null ;;
  esac
done </proc/self/mounts
shift
exec "$@"
"""


@dataclasses.dataclass(frozen=True)
class Lot:
    """Tests that run in one go."""

    name: str
    program: str
    suites: tuple  # empty: all
    seconds: float  # that it takes without a change


class Tests:
    def __init__(self, build):
        self.build = build
        self.scratch = build.folder / "scratch"
        self.protection = self._find_protection()

    def _find_protection(self):
        self._clear_scratch()
        for options in (["-m"], ["-U", "-r", "-m"]):
            command = ["unshare", *options, "sh", "-c", _PROTECTED, "sh", str(self.scratch)]
            trial = [*command, "sh", "-c", f"touch {self.scratch}/a && ! touch {self.build.folder}/a"]
            if shutil.which("unshare") and subprocess.run(trial, capture_output=True).returncode == 0:
                return command
        return []

    def _clear_scratch(self):
        shutil.rmtree(self.scratch, ignore_errors=True)
        (self.scratch / "home").mkdir(parents=True)

    # --- the tests as they are

    def measure(self):
        """Passes all tests without a change and notes how long they take. Returns the names of those that fail."""
        kept = self.build.folder / "times.json"
        programs = [self.build.objects / "bin" / file.name for file in (self.build.objects / "bin").iterdir()]
        scripts = [*(self.build.tree / "tests" / "end_to_end").iterdir()]
        if kept.exists() and all(kept.stat().st_mtime > path.stat().st_mtime for path in programs + scripts):
            self.times = json.loads(kept.read_text())
            return []
        self.build.link_unchanged()
        self.times = {}
        failed = []
        for program in (*PROGRAMS, "end_to_end"):
            lot = Lot("all", program, (), 600)
            result = self._run_lot(lot, self.build.changed / "bin", ["--gtest_output=json:times.json"])
            if result.caught_by:
                failed.append(result.caught_by)
            elif program in PROGRAMS:
                suites = json.loads((self.scratch / "times.json").read_text())["testsuites"]
                self.times[program] = {}
                for suite in suites:
                    name = _plain_suite(suite["name"])
                    seconds, count = self.times[program].get(name, (0, 0))
                    self.times[program][name] = (seconds + float(suite["time"][:-1]), count + suite["tests"])
            else:
                self.times[program] = {"": (result.seconds, result.tests)}
        if not failed:
            kept.write_text(json.dumps(self.times))
        return failed

    # --- the lots of a file

    def lots_of(self, name):
        """The tests for a file of src/, the most likely to notice a change of it first."""
        area = pathlib.PurePath(name).parts[1]
        home = "platform_tests" if area == "platform" else "module_tests"
        of_files = self._suites_by_file(area)
        of_area = {suite for suites in of_files.values() for suite in suites if suite in self.times[home]}
        near = self._near(pathlib.PurePath(name).stem, of_files) & of_area
        slow = {suite for suite, (seconds, _) in self.times[home].items() if seconds > _SLOW}
        others = set(self.times[home]) - of_area
        lots = [
            self._lot("near", home, near),
            self._lot(area, home, of_area - near - slow),
            self._lot(f"slow of {area}", home, (of_area - near) & slow),
            self._lot(f"others of {home}", home, others),
        ]
        lots += [self._lot("all", program, set(self.times[program])) for program in self.times if program != home]
        return [lot for lot in lots if lot.suites]

    def _lot(self, name, program, suites):
        return Lot(name, program, tuple(sorted(suites)), sum(self.times[program][suite][0] for suite in suites))

    def _suites_by_file(self, area):
        suites = {}
        for path in sorted((self.build.tree / "tests" / area).glob("*.cpp")):
            found = re.findall(r"\b(?:TYPED_)?TEST(?:_[FP])?\(\s*(\w+),", path.read_text(encoding="utf-8"))
            suites[path.stem] = set(found)
        return suites

    @staticmethod
    def _near(stem, of_files):
        """The suites of the test files that begin with a source's name, or with as many words of it as one does."""
        words = stem.split("_")
        for count in range(len(words), 0, -1):
            beginning = "_".join(words[:count]) + "_"
            found = [suites for file, suites in of_files.items() if (file + "_").startswith(beginning)]
            if found:
                return set().union(*found)
        return set()

    # --- a changed program

    def run(self, lots):
        """Runs lots until one notices. Yields (lot, result) for each that was run; links what they need before."""
        for lot in lots:
            targets = _USES[lot.program]
            if not any(self.build.is_touched(target) for target in targets):
                continue
            if not self.build.link_changed(targets):
                yield lot, Result("the linker", 0, 0)
                return
            result = self._run_lot(lot, self.build.changed / "bin")
            yield lot, result
            if result.caught_by:
                return

    def _run_lot(self, lot, programs, options=()):
        self._clear_scratch()
        if lot.program == "end_to_end":
            folder = self.build.tree / "tests" / "end_to_end"
            command = ["python3", "-B", "-m", "unittest", "discover", "-f", "-v", "-s", str(folder)]
        else:
            command = [str(programs / lot.program), "--gtest_fail_fast", "--gtest_color=no", *options]
            if lot.suites and len(lot.suites) < len(self.times[lot.program]):
                command.append("--gtest_filter=" + ":".join(f"{s}.*:{s}/*:*/{s}.*:*/{s}/*" for s in lot.suites))
        home = str(self.scratch / "home")
        environment = dict(os.environ, HOME=home, XDG_CONFIG_HOME=home, LC_ALL="C.UTF-8")
        environment["QXHOST"] = str(programs / "qxhost")
        # The processor time is what finds a loop without an end, however busy the machine; the other limit is for a wait.
        limits = {
            resource.RLIMIT_CPU: 5 + int(3 * lot.seconds),
            resource.RLIMIT_AS: _MEMORY,
            resource.RLIMIT_FSIZE: _FILE,
            resource.RLIMIT_CORE: 0,
        }

        def set_limits():
            for limit, value in limits.items():
                resource.setrlimit(limit, (value, value))

        log = self.build.folder / "tests.log"
        started = resource.getrusage(resource.RUSAGE_CHILDREN)
        with open(log, "w") as output:
            process = subprocess.Popen(
                [*self.protection, *command],
                stdin=subprocess.DEVNULL,
                stdout=output,
                stderr=output,
                cwd=self.scratch,
                env=environment,
                start_new_session=True,
                preexec_fn=set_limits,
            )
            try:
                status = process.wait(timeout=30 + 10 * lot.seconds)
            except subprocess.TimeoutExpired:
                status = None
            finally:
                _kill_group(process)
        ended = resource.getrusage(resource.RUSAGE_CHILDREN)
        seconds = ended.ru_utime + ended.ru_stime - started.ru_utime - started.ru_stime
        return _result(status, log.read_text(encoding="utf-8", errors="replace"), seconds)


@dataclasses.dataclass(frozen=True)
class Result:
    caught_by: str  # the test that noticed, or empty
    tests: int  # that were run
    seconds: float


def _kill_group(process):
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass
    process.wait()


def _plain_suite(name):
    """Of `Instance/Suite/0` the suite."""
    parts = [part for part in name.split("/") if not part.isdigit()]
    return parts[-1]


def _result(status, log, seconds):
    begun = re.findall(r"^\[ RUN      \] (\S+)|^(test\w+) \(", log, re.M)
    names = [gtest or python for gtest, python in begun]
    if status == 0:
        return Result("", len(names), seconds)
    last = names[-1] if names else "the start of the program"
    if status is None or -status in (signal.SIGXCPU, signal.SIGKILL):
        return Result(f"{last} (time limit)", len(names), seconds)
    failed = re.search(r"^\[  FAILED  \] ([\w./]+)|^(?:FAIL|ERROR): (\w+)", log, re.M)
    if failed:
        return Result(failed[1] or failed[2], len(names), seconds)
    return Result(f"{last} ({_end_of(status)})", len(names), seconds)


def _end_of(status):
    return signal.Signals(-status).name if status < 0 else f"status {status}"
