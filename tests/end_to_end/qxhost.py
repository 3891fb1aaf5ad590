"""Runs qxhost as a process over the built module.

The environment variable QXHOST holds the command, e.g. `build/native/bin/qxhost`, or
`scripts/wine build/windows/bin/qxhost.exe` (with a display: boxes are real there). The same tests run
for both builds; tests of a single build are in classes below `if IS_WINDOWS` or `if not IS_WINDOWS`.
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
    # Runs have another current folder, so parts that name a file are made absolute.
    return [os.path.abspath(part) if os.path.exists(part) else part for part in shlex.split(text)]


COMMAND = _command()
IS_WINDOWS = COMMAND[-1].lower().endswith(".exe")
TIMEOUT_SECONDS = 120

# Under sanitizers each file takes several times as long.
IS_SLOW = "ASAN_OPTIONS" in os.environ

# The value of the last event for each exit status: handled, not handled, handled with failed files.
RESULT_OF_STATUS = {0: 1, 1: 0, 4: 1}


def windows_path(path):
    """Returns a native path in the form that the module gets."""
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
        """Returns (old name, new name, result) for each rename, in order."""
        return [(event["from"].rpartition("\\")[2], event["to"], event["result"]) for event in self.of("rename")]

    @property
    def questions(self):
        return self.of("question")


class HostTest(unittest.TestCase):
    """A test with a new scratch folder: `folder` contains the files, `config` the settings."""

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
        """Creates files whose contents are their names, and folders for names that end in a slash."""
        for name in names:
            if name.endswith("/"):
                os.makedirs(self.path(name), exist_ok=True)
                continue
            os.makedirs(os.path.dirname(self.path(name)), exist_ok=True)
            with open(self.path(name), "w", encoding="utf-8") as file:
                file.write(name)

    def names(self, folder=""):
        """Returns the names in the folder, sorted; those of folders end in a slash."""
        result = []
        with os.scandir(self.path(folder)) as entries:
            for entry in entries:
                result.append(entry.name + ("/" if entry.is_dir() else ""))
        return sorted(result)

    def content(self, name):
        with open(self.path(name), encoding="utf-8") as file:
            return file.read()

    def process(self, *arguments, stdin=b"", cwd=None, command=None, user=None, largest_file=None):
        """Runs qxhost, or another command, with exactly these arguments. `user` is the id of the user and of
        the only group that it runs as; by default it runs as the tests' user. Files are limited to
        `largest_file` bytes (native build)."""
        more = {} if user is None else {"user": user, "group": user, "extra_groups": []}
        if largest_file is not None:
            # A write beyond the limit then fails without a signal, which this process already ignores.
            more["preexec_fn"] = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (largest_file, largest_file))
            more["restore_signals"] = False
        # Wine takes the encoding of file names from the locale.
        environment = dict(os.environ, LC_ALL="C.UTF-8")
        # Files, not pipes: the first program starts Wine's server, which would keep the pipes open after it.
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
        """Runs qxhost --json with the test's settings and checks its exit status."""
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
        """Runs a command, given by its number or name, with these items of the folder selected."""
        return self.run_json("command", str(command), *[self.path(name) for name in names], **keywords)
