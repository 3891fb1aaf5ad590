"""A private copy of the sources, built without optimisation, and programs of it with one file changed.

Below the folder:
  tree     the copy; a changed file is in it only while it is compiled, and has its old time again after that
  objects  the build of the copy as it is; a change never writes here
  changed  objects and programs of the change under test; programs that it does not touch are the built ones
"""
import collections
import contextlib
import filecmp
import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

# What the tests need: the file below bin/ of each, by its target.
FILES = {
    "qxplatform": "libqxplatform.so",
    "QXUtils": "libQXUtils.so",
    "qxhost": "qxhost",
    "module_tests": "module_tests",
    "platform_tests": "platform_tests",
    "host_tests": "host_tests",
}
_SETTINGS = {
    "CMAKE_BUILD_TYPE": "None",
    "CMAKE_CXX_FLAGS": "-O1 -w",
    "CMAKE_EXE_LINKER_FLAGS": "-Wl,--strip-debug",
    "CMAKE_SHARED_LINKER_FLAGS": "-Wl,--strip-debug",
    "CMAKE_EXPORT_COMPILE_COMMANDS": "ON",
    "QX_BATCHES": "OFF",
    "CCACHE": "",
    "QX_WERROR": "OFF",
}


class BuildError(Exception):
    pass


class Build:
    def __init__(self, source, folder):
        self.source = pathlib.Path(source)
        self.folder = pathlib.Path(folder)
        self.tree = self.folder / "tree"
        self.objects = self.folder / "objects"
        self.changed = self.folder / "changed"

    def prepare(self):
        """Brings the copy and its build up to date."""
        self.tree.mkdir(parents=True, exist_ok=True)
        _copy(self.source, self.tree, {".git", "build", "__pycache__"})
        settings = [f"-D{name}={value}" for name, value in _SETTINGS.items()]
        self._run_long("configure", ["cmake", "--preset", "native", "-B", self.objects, *settings], cwd=self.tree)
        self._run_long("build", ["ninja", "-C", self.objects, *FILES])
        self._read_commands()

    def _run_long(self, name, command, **options):
        log = self.folder / f"{name}.log"
        print(f"{name}: {log}", flush=True)
        with open(log, "w") as output:
            if subprocess.run(command, stdout=output, stderr=output, **options).returncode != 0:
                raise BuildError(f"{name} failed: see {log}")

    def _ninja(self, *arguments):
        command = ["ninja", "-C", self.objects, *arguments]
        output = subprocess.run(command, check=True, capture_output=True, text=True).stdout
        return [line for line in output.splitlines() if not line.startswith("ninja: ")]

    def _read_commands(self):
        self.compile_commands = {}  # by object, below `objects`
        for entry in json.loads((self.objects / "compile_commands.json").read_text()):
            command = shlex.split(entry["command"])
            self.compile_commands[command[command.index("-o") + 1]] = command
        self.link_commands = {}  # by target
        for target in FILES:
            line = self._ninja("-t", "commands", target)[-1]
            command = line.removeprefix(": && ").removesuffix(" && :")
            self.link_commands[target] = shlex.split(command.replace(r"\$", "$"))
        self.dependents = collections.defaultdict(set)  # the objects that read a source, which is below `tree`
        precompiled = set()
        current = None
        for line in self._ninja("-t", "deps"):
            if not line.startswith(" "):
                current = line.split(":")[0]
                continue
            path = os.path.normpath(self.objects / line.strip())
            if path.startswith(f"{self.tree}/src/"):
                name = os.path.relpath(path, self.tree)
                if current.endswith(".o"):
                    self.dependents[name].add(current)
                else:
                    precompiled.add(name)
        # A change of these would mean to build everything anew.
        for name in precompiled:
            self.dependents.pop(name, None)

    def sources(self):
        """The product's sources that this build reads, as paths below the tree."""
        return sorted(self.dependents)

    def read(self, name):
        return (self.tree / name).read_text(encoding="utf-8")

    def compile_changed(self, name, text):
        """Compiles all that reads the file with this text instead. Returns false if it does not compile."""
        self._begin(sorted(self.dependents[name]))
        with self._file_changed(name, text):
            return all(self._compile(one) for one in self.changed_objects)

    def is_same_program(self):
        """Whether the compiled code is what it was: a place that this build leaves out, or that changes nothing."""
        return all(
            filecmp.cmp(self.changed / one, self.objects / one, shallow=False) for one in self.changed_objects
        )

    def link_unchanged(self):
        """Links all programs in the way of changed ones, without a change."""
        self._begin([])
        if not all(self._link(target) for target in FILES):
            raise BuildError(f"linking failed: see {self.folder}/compiler.log")

    def _begin(self, objects):
        shutil.rmtree(self.changed, ignore_errors=True)
        (self.changed / "bin").mkdir(parents=True)
        for file in (self.objects / "bin").iterdir():
            os.link(file, self.changed / "bin" / file.name)
        self.changed_objects = objects
        self.linked = set()

    @contextlib.contextmanager
    def _file_changed(self, name, text):
        path = self.tree / name
        old, times = path.read_bytes(), path.stat()
        try:
            path.write_text(text, encoding="utf-8")
            yield
        finally:
            path.write_bytes(old)
            os.utime(path, ns=(times.st_atime_ns, times.st_mtime_ns))

    def _compile(self, one):
        output = self.changed / one
        output.parent.mkdir(parents=True, exist_ok=True)
        command = list(self.compile_commands[one])
        command[command.index("-o") + 1] = str(output)
        # The list of headers that the compiler writes belongs to the build.
        for option in ("-MF", "-MT"):
            if option in command:
                command[command.index(option) + 1] = f"{output}.d"
        return self._quietly(command)

    def _quietly(self, command):
        with open(self.folder / "compiler.log", "w") as log:
            return subprocess.run(command, cwd=self.objects, stdout=log, stderr=log).returncode == 0

    def is_touched(self, target):
        """Whether the change is in what a target is linked from."""
        return any(self._place_of(one, self.link_commands[target]) for one in self.changed_objects)

    @staticmethod
    def _place_of(one, command):
        """The argument of a link command by which an object gets into the file: itself or its library."""
        if one in command:
            return one
        library = re.search(r"CMakeFiles/([^/]+)\.dir/", one)[1]
        return next((argument for argument in command if argument.endswith(f"/lib{library}.a")), None)

    def link_changed(self, targets):
        """Links those of the targets that the change touches. Returns false if one cannot be linked."""
        wanted = [target for target in targets if target not in self.linked and self.is_touched(target)]
        return all(self._link(target) for target in wanted)

    def _link(self, target):
        self.linked.add(target)
        output = self.changed / "bin" / FILES[target]
        output.unlink()
        command = list(self.link_commands[target])
        command[command.index("-o") + 1] = str(output)
        for one in self.changed_objects:
            place = self._place_of(one, command)
            if place == one:
                command[command.index(one)] = str(self.changed / one)
            elif place:
                # In front of its library, from which the linker does not take a second one then.
                command.insert(command.index(place), str(self.changed / one))
        return self._quietly(command)


def _copy(source, target, left_out):
    """Makes a folder like another; files that are alike keep their times."""
    names = {entry.name for entry in os.scandir(source)} - left_out
    for entry in os.scandir(target):
        if entry.name not in names:
            shutil.rmtree(entry.path) if entry.is_dir(follow_symlinks=False) else os.unlink(entry.path)
    for name in names:
        old, new = source / name, target / name
        if old.is_dir():
            new.mkdir(exist_ok=True)
            _copy(old, new, left_out)
        elif not new.exists() or not filecmp.cmp(old, new, shallow=False):
            shutil.copy(old, new)
