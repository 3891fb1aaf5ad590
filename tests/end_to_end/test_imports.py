"""Checks that includes follow the tables of docs/architecture.md and that every entry of them is in use."""
import pathlib
import re
import unittest

TOP = pathlib.Path(__file__).parents[2]
SUFFIXES = {".h", ".cpp", ".def", ".rc"}
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)


def table(document, heading):
    """Returns the rows below a table's heading: lists of cells, each a list of its words in backticks."""
    lines = document.splitlines()
    at = lines.index(heading) + 2
    rows = []
    while at < len(lines) and lines[at].startswith("|"):
        rows.append([re.findall(r"`([^`]+)`", cell) for cell in lines[at].strip("|").split("|")])
        at += 1
    return rows


class Rules:
    """The includes that the document allows."""

    def __init__(self, document):
        self.row_of = {}  # folder to the number of its row
        self.allowed = []  # by row, the folders that it may include
        for row, (folders, allowed) in enumerate(table(document, "| folders | may include |")):
            self.allowed.append(allowed)
            for folder in folders:
                self.row_of[folder] = row
        self.back = {(file[0], target[0]) for file, target, _ in table(document, "| file | includes | because |")}

    def folder(self, path):
        """Returns the folder of the table that a file belongs to: the deepest one that contains it."""
        for parent in pathlib.PurePosixPath(path).parents:
            if str(parent) in self.row_of:
                return str(parent)
        return None

    def verdict(self, file, target):
        """Returns None if the file may include the target, otherwise the error."""
        source, goal = self.folder(file), self.folder(target)
        if source is None:
            return f"{file} is in no folder of the table"
        if goal is None:
            return f"{file} includes {target}, which is in no folder of the table"
        row = self.row_of[source]
        if row == self.row_of[goal] or goal in self.allowed[row] or (file, target) in self.back:
            return posix_verdict(file, target) or window_verdict(file, target)
        return f"{file} includes {target}: {source} may not include {goal}"


def posix_verdict(file, target):
    if (not target.startswith("src/platform/posix/") or file.startswith("src/platform/")
            or file.endswith("_posix.cpp")):
        return None
    return f"{file} includes {target}: only platform and *_posix.cpp may"


def window_verdict(file, target):
    name = file.rpartition("/")[2]
    if (not target.startswith("src/ui/") or file.startswith("src/ui/") or name.endswith(".rc")
            or name.endswith(("_windows.cpp", "_windows.h")) or name == "menu_rows.h"):
        return None
    return f"{file} includes {target}: only ui and the files of windows may"


def resolve(file, name, sources):
    """Returns the included file: in the folder of the including file, below src or below the top."""
    beside = (TOP / file).parent / name
    for path in (beside, TOP / "src" / name, TOP / name):
        relative = path.resolve().relative_to(TOP.resolve()).as_posix() if path.exists() else None
        if relative in sources or (relative and not relative.startswith(("src/", "host/"))):
            return relative
    return None


def sources():
    return {path.relative_to(TOP).as_posix() for folder in ("src", "host") for path in (TOP / folder).rglob("*")
            if path.suffix in SUFFIXES}


def imports():
    """Returns (file, included file) for all quoted includes; the second is None if it does not exist."""
    known = sources()
    for file in sorted(known):
        for name in INCLUDE.findall((TOP / file).read_text(encoding="utf-8")):
            yield file, resolve(file, name, known)


class Imports(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.rules = Rules((TOP / "docs" / "architecture.md").read_text(encoding="utf-8"))
        cls.imports = list(imports())

    def test_every_include_is_of_a_file_that_is_there(self):
        self.assertGreater(len(self.imports), 1000)
        self.assertEqual([file for file, target in self.imports if target is None], [])

    def test_imports_run_as_the_document_says(self):
        verdicts = (self.rules.verdict(file, target) for file, target in self.imports if target)
        self.assertEqual([verdict for verdict in verdicts if verdict], [])

    def test_every_arrow_of_the_document_is_in_use(self):
        used = {(self.rules.row_of[self.rules.folder(file)], self.rules.folder(target))
                for file, target in self.imports if target}
        listed = {(row, folder) for row, folders in enumerate(self.rules.allowed) for folder in folders}
        self.assertEqual(sorted(listed - used), [])
        self.assertEqual(sorted(self.rules.back - set(self.imports)), [])

    def test_every_folder_of_the_document_is_there(self):
        for folder in self.rules.row_of:
            self.assertTrue((TOP / folder).is_dir(), folder)


class Verdicts(unittest.TestCase):
    """The rules, applied to includes that do not occur in the tree."""

    @classmethod
    def setUpClass(cls):
        cls.rules = Rules((TOP / "docs" / "architecture.md").read_text(encoding="utf-8"))

    def test_arrows_that_must_not_be(self):
        for file, target in (
                ("src/platform/text.cpp", "src/data/data_reader.h"),
                ("src/data/data_reader.cpp", "src/frame/services/path_parts.h"),
                ("src/frame/services/path_parts.cpp", "src/filetools/links.h"),
                ("src/linesorter/engine/sort_file.cpp", "src/linesorter/tool/sort_lines_job.h"),
                ("src/linesorter/tool/sort_lines_job.cpp", "src/findreplace/engine/modes.h"),
                ("src/filetools/links.cpp", "src/security/ntfs_tools.h"),
                ("src/multirename/engine/rename_run.cpp", "src/multirename/form/panel_form.h"),
                ("src/multirename/form/panel_form.cpp", "src/multirename/window/rename_window.h"),
                ("src/filetools/links.cpp", "src/frame/dispatcher.h"),
                ("src/frame/dispatcher.cpp", "host/services/view.h"),
                ("src/frame/dispatcher.cpp", "tests/support/fake_host.h"),
                ("host/verbs/command_verb.cpp", "src/linesorter/tool/sort_lines_job.h"),
                ("host/system/paths.cpp", "host/services/view.h"),
                ("host/services/view.cpp", "host/verbs/run.h"),
                ("src/filetools/links.cpp", "src/platform/posix/user_interface.h"),
                ("src/filetools/replace_form.h", "src/ui/controls.h")):
            with self.subTest(file=file, target=target):
                self.assertIsNotNone(self.rules.verdict(file, target))

    def test_arrows_that_may_be(self):
        for file, target in (
                ("src/linesorter/tool/sort_lines_job.cpp", "src/linesorter/engine/sort_file.h"),
                ("src/filetools/replace_dlg_windows.cpp", "src/ui/dialog.h"),
                ("src/filetools/replace_dlg_posix.cpp", "src/platform/posix/user_interface.h"),
                ("host/rename/rename_properties.h", "host/verbs/run.h")):
            with self.subTest(file=file, target=target):
                self.assertIsNone(self.rules.verdict(file, target))


if __name__ == "__main__":
    unittest.main()
