"""Runs qxhost as a process over the built module.

The environment variable QXHOST holds the command, e.g. `build/native/bin/qxhost`, or
`scripts/wine build/windows/bin/qxhost.exe` (with a display: boxes are real there). The same tests run
for both builds; what only one of them can do stands in a class below `if IS_WINDOWS` or `if not IS_WINDOWS`.
"""

import json
import os
import resource
import shlex
import shutil
import subprocess
import tempfile
import unittest


def _command():
    text = os.environ.get("QXHOST")
    if not text:
        raise RuntimeError("set QXHOST to the command that runs qxhost")
    # Runs have other current folders, so a part that names a file is made a full path.
    return [os.path.abspath(part) if os.path.exists(part) else part for part in shlex.split(text)]


COMMAND = _command()
IS_WINDOWS = COMMAND[-1].lower().endswith(".exe")
TIMEOUT_SECONDS = 120

# Each file takes some times as long under sanitizers.
IS_SLOW = "ASAN_OPTIONS" in os.environ

# The value of the last event by exit status: handled, not handled, handled with failed files.
RESULT_OF_STATUS = {0: 1, 1: 0, 4: 1}


def windows_path(path):
    """The path of this system as the module is given it."""
    return "Z:" + path.replace("/", "\\")


class Outcome:
    def __init__(self, status, stdout, stderr):
        self.status = status
        self.stdout = stdout
        self.stderr = stderr
        self.events = []

    def of(self, kind):
        return [event for event in self.events if event["event"] == kind]

    @property
    def renames(self):
        """(old name, new name, result) of each rename, in order."""
        return [(event["from"].rpartition("\\")[2], event["to"], event["result"]) for event in self.of("rename")]

    @property
    def questions(self):
        return self.of("question")


class HostTest(unittest.TestCase):
    """A test with a scratch folder of its own: `folder` for the files, `config` for the settings."""

    maxDiff = None

    def setUp(self):
        self.scratch = os.path.realpath(tempfile.mkdtemp(prefix="qxhost-"))
        self.addCleanup(shutil.rmtree, self.scratch)
        self.folder = os.path.join(self.scratch, "files")
        self.config = os.path.join(self.scratch, "config")
        os.mkdir(self.folder)

    def path(self, *names):
        return os.path.join(self.folder, *names)

    def make(self, *names):
        """Makes files, or folders for names that end in a slash, each file with its name as content."""
        for name in names:
            if name.endswith("/"):
                os.makedirs(self.path(name), exist_ok=True)
                continue
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            with open(self.path(name), "w", encoding="utf-8") as file:
                file.write(name)

    def names(self, folder=""):
        """The names in the folder, sorted; a folder with a slash behind it."""
        result = []
        with os.scandir(self.path(folder)) as entries:
            for entry in entries:
                result.append(entry.name + ("/" if entry.is_dir() else ""))
        return sorted(result)

    def content(self, name):
        with open(self.path(name), encoding="utf-8") as file:
            return file.read()

    def process(self, *arguments, stdin=b"", cwd=None, command=None, user=None, largest_file=None):
        """Runs qxhost, or another command in its place, with these arguments and nothing else. `user` is the number
        of whoever runs it, with the group of the same number alone; without it, who runs the tests. No file becomes
        larger than `largest_file` bytes (native build)."""
        more = {} if user is None else {"user": user, "group": user, "extra_groups": []}
        if largest_file is not None:
            # A write beyond the limit is an error then, and no signal, which this process ignores already.
            more["preexec_fn"] = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (largest_file, largest_file))
            more["restore_signals"] = False
        # Wine takes the encoding of file names from the locale.
        environment = dict(os.environ, LC_ALL="C.UTF-8")
        # Files and not pipes: Wine's server is started by the first program and holds a pipe open long after it.
        with tempfile.TemporaryFile() as given, tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            given.write(stdin)
            given.seek(0)
            done = subprocess.run((command or COMMAND) + list(arguments), stdin=given, stdout=out, stderr=err,
                                  cwd=cwd or self.folder, env=environment, timeout=TIMEOUT_SECONDS, check=False,
                                  **more)
            out.seek(0)
            err.seek(0)
            return Outcome(done.returncode, out.read().decode("utf-8"), err.read().decode("utf-8"))

    def run_json(self, *arguments, answers=(), status=0, **keywords):
        """Runs qxhost --json with the test's own settings, and holds it to its exit status."""
        call = ["--json", "--config", self.config]
        for answer in answers:
            call += ["--answer", answer]
        outcome = self.process(*call, *arguments, **keywords)
        self.assertEqual(outcome.status, status, outcome.stdout + outcome.stderr)
        outcome.events = [json.loads(line) for line in outcome.stdout.split("\n") if line]
        if status in RESULT_OF_STATUS:
            self.assertEqual(outcome.events[-1], {"event": "result", "value": RESULT_OF_STATUS[status]})
            self.assertEqual(len(outcome.of("result")), 1)
        return outcome

    def command(self, command, *names, **keywords):
        """Runs one command, given by its number or name, with these items of the folder selected."""
        return self.run_json("command", str(command), *[self.path(name) for name in names], **keywords)
