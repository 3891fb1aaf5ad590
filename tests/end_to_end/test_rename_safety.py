"""Situations in which no file may be lost: runs that are killed, interrupted or simultaneous, names that the
system cuts, undo files that are too long or cannot be written, and damaged files of rules."""

import os
import signal
import subprocess
import tempfile
import time
import unittest

from qxhost import COMMAND, IS_SLOW, IS_WINDOWS, TIMEOUT_SECONDS, windows_path
from test_rename import IGNORED, RENAMED, RenameTest

MOST_OF_UNDO_FILE = 5242880
MANY = 5000 if IS_SLOW else 10000  # files; the run takes long enough to be ended before it finishes


class SafetyTest(RenameTest):
    def start(self, *arguments, **keywords):
        return subprocess.Popen(COMMAND + ["--config", self.config, "rename", *arguments], cwd=self.folder,
                                stdin=subprocess.DEVNULL, env=dict(os.environ, LC_ALL="C.UTF-8"), **keywords)

    def write_config(self, name, content):
        os.makedirs(self.config, exist_ok=True)
        with open(os.path.join(self.config, name), "wb") as file:
            file.write(content)

    def read_config(self, name):
        with open(os.path.join(self.config, name), "rb") as file:
            return file.read()

    def write_undo(self, name, lines, restored=0):
        os.makedirs(os.path.join(self.config, "Undo"), exist_ok=True)
        path = os.path.join(self.config, "Undo", name)
        text = "[INFO]\r\nDate : 1000\r\nItems : %d\r\nHaveRestored : %d\r\n\r\n[FILES]\r\n" % (len(lines), restored)
        with open(path, "wb") as file:
            file.write((text + "".join(line + "\r\n" for line in lines)).encode("utf-16-le"))
        return path


class RunsBeside(SafetyTest):
    def test_each_of_several_runs_at_once_has_its_undo_file(self):
        names = ["file%d.txt" % number for number in range(4)]
        self.make(*names)
        runs = [self.start("--name", "new-[N]", "--run", name, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                for name in names]
        self.assertEqual([run.wait(TIMEOUT_SECONDS) for run in runs], [0] * 4)
        self.assertEqual(len(self.undo_files()), 4)
        for name in self.undo_files():
            self.rename("--undo", name)
        self.assertEqual(self.names(), names)

    def test_no_run_starts_where_no_undo_file_can_be_written_unless_it_needs_none(self):
        self.make("a.txt")
        self.write_config("Undo", b"a plain file")
        outcome = self.prose("--name", "b", "--run", "a.txt")
        self.assertEqual((outcome.status, outcome.stdout), (4, ""))
        self.assertIn("no undo file can be written", outcome.stderr)
        self.assertIn("--no-undo", outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])
        self.rename("--name", "b", "--run", "--no-undo", "a.txt")
        self.assertEqual(self.names(), ["b.txt"])

    def test_a_closed_output_costs_no_undo_file(self):
        self.make(*("file%03d" % number for number in range(700)))
        before = self.names()
        read, write = os.pipe()
        os.close(read)
        with tempfile.TemporaryFile() as items:
            items.write("\n".join(before).encode())
            items.seek(0)
            done = subprocess.run(COMMAND + ["--config", self.config, "rename", "--name", "[N]-" + "x" * 60, "--run",
                                             "--items", "-"], cwd=self.folder, stdin=items, stdout=write,
                                  stderr=subprocess.DEVNULL, timeout=TIMEOUT_SECONDS, check=False)
        os.close(write)
        self.assertEqual(done.returncode, 3)
        self.assertEqual(len(self.undo_files()), 1)
        self.assertNotIn("file000", self.names())
        self.rename("--undo", "last")
        self.assertEqual(self.names(), before)


if not IS_WINDOWS:
    class Interruptions(SafetyTest):
        def setUp(self):
            """Restores default signals: a shell starts background jobs with signals ignored, which qxhost inherits."""
            super().setUp()
            for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
                self.addCleanup(signal.signal, number, signal.signal(number, signal.SIG_DFL))

        def interrupt(self, number, *arguments, when, items=()):
            """Runs qxhost, sends the signal once the file `when` exists, and returns its status and outputs."""
            with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
                run = subprocess.Popen(COMMAND + ["--config", self.config, "rename", *arguments], cwd=self.folder,
                                       stdin=subprocess.PIPE, stdout=out, stderr=err)
                run.stdin.write("\n".join(items).encode())
                run.stdin.close()
                end = time.monotonic() + TIMEOUT_SECONDS
                while not os.path.exists(when) and time.monotonic() < end:
                    pass
                run.send_signal(number)
                status = run.wait(TIMEOUT_SECONDS)
                out.seek(0)
                err.seek(0)
                return status, out.read().decode(), err.read().decode()

        def test_an_interrupted_run_keeps_what_it_did_in_its_undo_file(self):
            names = ["f%05d" % number for number in range(MANY)]
            for name in names:
                with open(self.path(name), "w", encoding="utf-8"):
                    pass
            for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
                with self.subTest(signal=number):
                    status, out, _ = self.interrupt(number, "--name", "x[N]", "--run", "--items", "-", items=names,
                                                    when=self.path("xf00000"))
                    self.assertEqual(status, 4)
                    left = [name for name in self.names() if name.startswith("f")]
                    done = MANY - len(left)
                    self.assertGreater(done, 0)
                    self.assertGreater(len(left), 0)
                    self.assertIn("\n%d Renamed, %d Failed: interrupted, and %d not tried\n" % (
                        done, len(left), len(left)), out)
                    self.assertIn("Undo it: ", out)
                    self.rename("--undo", "last")
                    self.assertEqual(self.names(), names)

        def test_an_interrupted_undo_is_not_marked_and_goes_on_the_next_time(self):
            names = ["f%05d" % number for number in range(MANY)]
            for name in names:
                with open(self.path("x" + name), "w", encoding="utf-8"):
                    pass
            where = windows_path(self.folder)
            self.write_undo("u.dat", ["%s|%s|x%s" % (where, name, name) for name in names])
            status, out, _ = self.interrupt(signal.SIGINT, "--undo", "last", when=self.path(names[0]))
            self.assertEqual(status, 4)
            self.assertRegex(out, r"\d+ Restored, \d+ Failed: interrupted, and \d+ not tried\n$")
            self.assertNotIn("undone", out)
            self.assertEqual(self.rename("--list-undo").of("undo")[0]["restored"], False)
            self.rename("--undo", "last", status=4)  # files restored the first time are not found
            self.assertEqual(self.names(), names)

        def test_a_program_that_was_started_to_ignore_signals_goes_on(self):
            names = ["f%05d" % number for number in range(MANY)]
            for name in names:
                with open(self.path(name), "w", encoding="utf-8"):
                    pass
            old = signal.signal(signal.SIGHUP, signal.SIG_IGN)
            try:
                status, _, _ = self.interrupt(signal.SIGHUP, "--name", "x[N]", "--run", "--items", "-", items=names,
                                              when=self.path("xf00000"))
            finally:
                signal.signal(signal.SIGHUP, old)
            self.assertEqual(status, 0)
            self.assertEqual(self.names(), ["x" + name for name in names])


class NamesThatAreCut(SafetyTest):
    def test_a_new_name_with_a_dot_or_blank_at_its_end_comes_back(self):
        self.make("Mr. Smith/", "Dr. Who")
        for name, template, shown in (("Mr. Smith", "[N3]", "Mr"), ("Dr. Who", "[N3] ", "Dr")):
            with self.subTest(name=name):
                outcome = self.rename("--name", template, "--extension", "", "--run", name)
                self.assertEqual(self.rows(outcome), [(name, shown, RENAMED)])
                self.assertEqual(outcome.stderr, "")
                self.assertNotIn(name, [entry.rstrip("/") for entry in self.names()])
                self.rename("--undo", "last")
                self.assertIn(name, [entry.rstrip("/") for entry in self.names()])

    def test_a_name_that_is_the_same_once_it_is_cut_stays_and_is_marked_so(self):
        self.make("x")
        outcome = self.prose("--name", "[N].", "x")
        self.assertEqual(outcome.stdout.split("\n")[1:], ["= x   x", "1 row: 0 to rename, 1 as before (=)", ""])

    def test_a_failed_undo_is_not_marked_as_taken_back(self):
        path = self.write_undo("u.dat", [windows_path(self.folder) + "|old|gone"])
        outcome = self.prose("--undo", "u.dat")
        self.assertEqual(outcome.status, 4)
        self.assertNotIn("undone", outcome.stdout)
        self.assertTrue(outcome.stdout.endswith("1 Failed\n"))
        with open(path, "rb") as file:
            self.assertIn("HaveRestored : 0", file.read().decode("utf-16-le"))

    if not IS_WINDOWS:
        def test_a_file_that_has_a_blank_at_its_end_stays_without_rules(self):
            self.make("y ")
            outcome = self.rename("--run", "y ")
            self.assertEqual(self.rows(outcome), [("y ", "y ", IGNORED)])
            self.assertEqual(self.names(), ["y "])
            self.assertEqual(self.prose("y ").stdout.split("\n")[1], "= y    y ")

        def test_an_old_name_with_a_dot_or_blank_at_its_end_comes_back_as_it_was(self):
            self.make("y ", "z.", "z.. ")
            for order in ((), ("--in-order",)):
                with self.subTest(order=order):
                    self.rename("--name", "n[C]", "--extension", "", "--run", "y ", "z.", "z.. ")
                    self.assertEqual(self.names(), ["n01", "n02", "n03"])
                    self.run_json(*order, "rename", "--undo", "last")
                    self.assertEqual(self.names(), ["y ", "z.", "z.. "])


class LongUndoFiles(SafetyTest):
    def make_long(self):
        """Writes an undo file whose last readable line is cut inside its new name, after `victim`."""
        where = windows_path(self.folder)
        fill = "Z:\\none\\%s|o|n" % ("x" * 3000)
        path = self.write_undo("u.dat", ["%s|whole.old|whole.new" % where])
        last = ("%s|cut.old|victim" % where).encode("utf-16-le")
        with open(path, "ab") as file:
            line = (fill + "\r\n").encode("utf-16-le")
            while file.tell() + 2 * len(line) + len(last) < MOST_OF_UNDO_FILE:
                file.write(line)
            rest = (MOST_OF_UNDO_FILE - file.tell() - len(last)) // 2
            file.write(("Z:\\none\\%s|o|n\r\n" % ("x" * (rest - 14))).encode("utf-16-le"))
            file.write(last)
            self.assertEqual(file.tell(), MOST_OF_UNDO_FILE)
            file.write(" and more\r\n".encode("utf-16-le"))
        return path

    def test_the_line_that_is_cut_names_no_file_and_the_file_stays_whole(self):
        for elsewhere in (False, True):
            with self.subTest(elsewhere=elsewhere):
                self.make("whole.new", "victim")
                path = self.make_long()
                if elsewhere:
                    os.rename(path, os.path.join(self.scratch, "moved.dat"))
                    path = os.path.join(self.scratch, "moved.dat")
                size = os.path.getsize(path)
                outcome = self.rename("--undo", path, status=4)
                self.assertIn("longer than 5242880 bytes", outcome.stderr)
                self.assertEqual(self.names(), ["victim", "whole.old"])
                self.assertEqual(os.path.getsize(path), size)
                os.remove(self.path("whole.old"))

    def test_a_preview_and_a_run_say_beforehand_what_cannot_be_taken_back(self):
        deep = "d" * 200 + "/" + "e" * 200 + "/" + "f" * 60
        count = 5000
        self.make(deep + "/")
        names = [deep + "/" + "n" * 50 + "%04d" % number for number in range(count)]
        for name in names:
            with open(self.path(name), "w", encoding="utf-8"):
                pass
        items = "\n".join(names).encode()
        note = r"note: some \d+ of these renames could not be undone"
        for dry in ([], ["--dry-run"]):
            run = ["--run"] if dry else []
            outcome = self.process(*dry, "--config", self.config, "rename", "--find", "n", "--replace", "m", *run,
                                   "--items", "-", stdin=items)
            self.assertEqual(outcome.status, 0)
            self.assertRegex(outcome.stderr, note)
        outcome = self.process("--config", self.config, "rename", "--find", "n", "--items", "-",
                               stdin=b"\n".join(items.split(b"\n")[:100]))
        self.assertEqual(outcome.stderr, "")


class SavedBeside(SafetyTest):
    def test_several_calls_at_once_lose_nothing_of_each_other(self):
        for option, list_option, event in (("--save-profile", "--list-profiles", "profile"),
                                           ("--save-pairs", "--list-pairs", "pairs")):
            with self.subTest(option=option):
                runs = [self.start("--find", "a", option, str(number), stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL) for number in range(1, 13)]
                self.assertEqual([run.wait(TIMEOUT_SECONDS) for run in runs], [0] * 12)
                self.assertEqual(len(self.rename(list_option).of(event)), 12)

    def test_pairs_that_lose_their_quotes_are_said_to(self):
        outcome = self.rename("--find", '"a"', "--replace", "b", "--save-pairs", "1")
        self.assertIn("note: the list does not store the pairs as they were given", outcome.stderr)
        outcome = self.rename("--find", "a", "--replace", " b ", "--save-pairs", "1")
        self.assertEqual(outcome.stderr, "")


class DamagedFiles(SafetyTest):
    DAMAGE = (b"<MultiRename><profile name=\"mine\">", b"not XML at all", b"")

    def test_damaged_profiles_are_reported_and_never_replaced(self):
        self.make("a.txt")
        for content in self.DAMAGE:
            for call in (["--name", "x", "--save-profile", "New"], ["--list-profiles"], ["--delete-profile", "mine"],
                         ["--profile", "mine", "a.txt"]):
                with self.subTest(content=content, call=call):
                    self.write_config("MultiRenameProfiles.xml", content)
                    self.assertIn("MultiRenameProfiles.xml is damaged", self.refused(*call))
                    self.assertEqual(self.read_config("MultiRenameProfiles.xml"), content)

    def test_a_file_that_cannot_be_read_is_not_said_to_be_damaged(self):
        for name, call in (("MultiRenameProfiles.xml", ["--list-profiles"]), ("FindReplace.xml", ["--list-pairs"])):
            os.makedirs(os.path.join(self.config, name))
            message = self.refused(*call)
            self.assertRegex(message, r"cannot read .*%s: .*\(\d+\)" % name.replace(".", r"\."))
            self.assertNotIn("damaged", message)

    def test_damaged_lists_of_pairs_are_reported_and_never_replaced(self):
        self.make("a.txt")
        for call in (["--find", "a", "--save-pairs", "1"], ["--list-pairs"], ["--pairs", "1", "a.txt"]):
            with self.subTest(call=call):
                self.write_config("FindReplace.xml", self.DAMAGE[0])
                self.assertIn("FindReplace.xml is damaged", self.refused(*call))
                self.assertEqual(self.read_config("FindReplace.xml"), self.DAMAGE[0])


if __name__ == "__main__":
    unittest.main()
