"""Undo files of killed runs, damaged undo files, and undos that the names of files prevent."""

import os
import signal
import subprocess
import tempfile
import time
import unittest

from qxhost import COMMAND, IS_SLOW, IS_WINDOWS, TIMEOUT_SECONDS, windows_path
from test_rename_safety import MANY, MOST_OF_UNDO_FILE, SafetyTest

if not IS_WINDOWS:
    import fcntl

IGNORED_RESULT = 10  # of a rename to the same name


class Damaged(SafetyTest):
    def test_a_last_line_without_a_line_end_is_cut_and_names_no_file(self):
        self.make("whole.new", "victim")
        where = windows_path(self.folder)
        path = self.write_undo("u.dat", [where + "|whole.old|whole.new"])
        with open(path, "ab") as file:
            file.write((where + "|cut.old|victim").encode("utf-16-le"))
        with open(path, "rb") as file:
            before = file.read()
        outcome = self.rename("--undo", "last")
        self.assertIn("the last line of the undo file is cut; it is not undone", outcome.stderr)
        self.assertEqual(self.names(), ["victim", "whole.old"])
        with open(path, "rb") as file:
            self.assertEqual(file.read(), before)  # unchanged, so it is not marked as undone

    def test_a_file_of_which_the_end_is_not_read_stays_as_it_is(self):
        where = windows_path(self.folder)
        for rest in ("\0more|a|b\r\n", "\rmore|a|b\r\n"):
            with self.subTest(rest=rest):
                self.make("new")
                path = self.write_undo("u.dat", [where + "|old|new"])
                with open(path, "ab") as file:
                    file.write(rest.encode("utf-16-le"))
                size = os.path.getsize(path)
                self.rename("--undo", path)
                self.assertEqual(self.names(), ["old"])
                self.assertEqual(os.path.getsize(path), size)
                os.remove(self.path("old"))

    def test_a_file_of_any_length_is_taken_back_as_far_as_it_is_read_and_stays_whole(self):
        where = windows_path(self.folder)
        self.make("new")
        path = self.write_undo("u.dat", [where + "|old|new"])
        size = (256 << 20) + 4096
        with open(path, "ab") as file:
            line = (("Z:\\none\\%s|o|n\r\n" % ("x" * 3000)).encode("utf-16-le")) * 100
            while file.tell() <= MOST_OF_UNDO_FILE:
                file.write(line)
            file.truncate(size)
        outcome = self.rename("--undo", "last", status=4)
        self.assertIn("longer than 5242880 bytes", outcome.stderr)
        self.assertEqual((self.names(), os.path.getsize(path)), (["old"], size))

    def test_a_file_in_the_folder_that_is_no_list_of_renames_is_said_to_be_none(self):
        self.write_undo("good.dat", ["Z:\\x|a|b"])
        self.write_config("Undo/notes.txt", b"my notes")
        for call in ("--undo", "--delete-undo"):
            self.assertIn("notes.txt\" is not an undo file: it is in ", self.refused(call, "notes.txt"))
        self.assertIn("notes.txt", self.undo_files())


class Edited(SafetyTest):
    def test_a_new_name_that_is_a_path_names_no_file(self):
        self.make("deep/x", "here")
        where = windows_path(self.path("deep"))
        for name in ("..", ".", "..\\here", "../here"):
            with self.subTest(name=name):
                self.write_undo("u.dat", [where + "|old|" + name, where + "|y|x"])
                outcome = self.rename("--undo", "u.dat", status=4)
                self.assertIn("1 rename cannot be undone: no file has the name " + name, outcome.stderr)
                self.assertEqual((self.names(), self.names("deep")), (["deep/", "here"], ["y"]))
                os.rename(self.path("deep/y"), self.path("deep/x"))


class Repeated(SafetyTest):
    def exchange(self, *pairs):
        """Returns the arguments of a run that exchanges the two names of each pair."""
        rules = []
        for number, (left, right) in enumerate(pairs):
            for find, replace in ((left, "T%d" % number), (right, left), ("T%d" % number, right)):
                rules += ["--find", "^%s$" % find, "--replace", replace]
        return ["--regex", *rules, "--run", *(name for pair in pairs for name in pair)]

    def test_what_failed_is_tried_again_and_what_is_back_stays(self):
        self.make("a", "b", "x")
        self.rename(*self.exchange(("a", "b")), "x", "--find", "^x$", "--replace", "y")
        self.assertEqual((self.content("a"), self.content("b"), self.names()), ("b", "a", ["a", "b", "y"]))
        self.make("x")
        outcome = self.prose("--undo", "last")
        self.assertEqual((outcome.status, self.content("a"), self.content("b")), (4, "a", "b"))
        self.assertIn("2 Restored, 1 Failed\nThe file counts as undone. The same call tries the failed renames again\n",
                      outcome.stdout)
        os.remove(self.path("x"))
        outcome = self.prose("--undo", "last")
        self.assertEqual((outcome.status, self.names()), (0, ["a", "b", "x"]))
        self.assertIn("1 Restored, 2 Ignored\n2 files have their old names already\n", outcome.stdout)
        self.assertEqual((self.content("a"), self.content("b")), ("a", "b"))

    def test_an_exchange_that_was_taken_back_is_not_done_again(self):
        self.make("a", "b")
        self.rename(*self.exchange(("a", "b")))
        self.rename("--undo", "last")
        outcome = self.prose("--undo", "last")
        self.assertEqual((outcome.status, self.content("a"), self.content("b")), (4, "a", "b"))
        self.assertIn("2 Ignored\n2 files have their old names already\n", outcome.stdout)
        self.assertIn("undone before", outcome.stderr)
        outcome = self.rename("--undo", "last", status=4)
        self.assertEqual(outcome.renames, [("a", "a", IGNORED_RESULT), ("b", "b", IGNORED_RESULT)])

    def test_a_file_that_was_saved_anew_comes_back_once(self):
        self.make("a", "b")
        self.rename(*self.exchange(("a", "b")))
        with open(self.path("new"), "w", encoding="utf-8") as file:
            file.write("b, edited")
        os.replace(self.path("new"), self.path("a"))
        self.rename("--undo", "last")
        self.assertEqual((self.content("a"), self.content("b")), ("a", "b, edited"))
        self.rename("--undo", "last", status=4)
        self.assertEqual((self.content("a"), self.content("b")), ("a", "b, edited"))

    def test_a_file_of_the_window_which_notes_nothing_is_taken_back_once(self):
        self.make("a", "b")
        where = windows_path(self.folder)
        self.write_undo("u.dat", [where + "|b|a", where + "|a|b"])
        self.rename("--undo", "last")
        self.assertEqual((self.content("a"), self.content("b")), ("b", "a"))
        self.rename("--undo", "last", status=4)
        self.assertEqual((self.content("a"), self.content("b")), ("b", "a"))

    def test_a_file_elsewhere_says_that_it_is_not_marked(self):
        self.make("new")
        path = self.write_undo("u.dat", [windows_path(self.folder) + "|old|new"])
        elsewhere = self.path("elsewhere.dat")
        os.replace(path, elsewhere)
        outcome = self.prose("--undo", elsewhere)
        self.assertRegex(outcome.stdout, r"(?m)^The file is not in .*, so it does not record that it was undone$")

    def test_the_list_says_which_runs_were_cut_off(self):
        path = self.write_undo("u.dat", ["Z:\\none|a|b"])
        self.assertNotIn("cut off", self.prose("--list-undo").stdout)
        self.assertEqual([undo["cutOff"] for undo in self.rename("--list-undo").of("undo")], [False])
        with open(path, "rb") as file:
            text = file.read()
        with open(path, "wb") as file:
            file.write(";qxhost planned\r\n".encode("utf-16-le") + text)
        self.assertIn("1 rename, cut off or not at its end\n", self.prose("--list-undo").stdout)
        self.assertEqual([undo["cutOff"] for undo in self.rename("--list-undo").of("undo")], [True])


class Deep(SafetyTest):
    if not IS_WINDOWS:
        def test_paths_that_are_too_long_after_a_run_come_back_in_one_undo(self):
            """Paths are limited to 4,096 bytes here, and the run makes the names of 29 folders 190 long or more."""
            depth = 30
            folders = ["/".join(["e" * 100] * level) for level in range(1, depth)]
            os.makedirs(self.path(folders[-1]))
            self.make(folders[-1] + "/f.txt")
            items = folders + [folders[-1] + "/f.txt"]
            outcome = self.prose("--run", "--regex", "--find", "^e", "--replace", "e" * 90 + "[", "--items", "-",
                                 "--name", "[N][C3,1]", stdin="\n".join(items).encode())
            self.assertIn("%d Renamed" % len(items), outcome.stdout)
            self.assertFalse(os.path.exists(self.path(folders[0])))
            outcome = self.prose("--undo", "last")
            self.assertEqual((outcome.status, outcome.stderr), (0, ""))
            self.assertIn("%d Restored\n" % len(items), outcome.stdout)
            self.assertEqual(self.content(items[-1]), items[-1])


class Kept(SafetyTest):
    def test_no_existing_file_is_overwritten_when_the_clock_was_set_back(self):
        self.make("a.txt")
        now = int(time.time())
        for second in range(-2, 12):
            name = time.strftime("MultiRenameUndoData-%Y-%m-%d-%H%M%S.dat", time.localtime(now + second))
            self.write_undo(name, ["Z:\\x|a|b"])
        before = {name: self.read_config("Undo/" + name) for name in self.undo_files()}
        self.rename("--name", "b", "--run", "a.txt")
        self.assertEqual({name: self.read_config("Undo/" + name) for name in before}, before)
        (name,) = set(self.undo_files()) - set(before)
        self.rename("--undo", name)
        self.assertEqual(self.names(), ["a.txt"])

    def test_the_file_of_a_run_contains_what_was_done_and_is_the_only_one(self):
        self.make("a_", "b_", "b")
        self.rename("--find", "_", "--run", "a_", "b_", status=4)
        (name,) = self.undo_files()
        text = self.read_config("Undo/" + name).decode("utf-16-le")
        self.assertTrue(text.startswith("[INFO]\r\n"))
        self.assertEqual(text.partition("[FILES]\r\n")[2], windows_path(self.folder) + "|a_|a\r\n")
        self.assertEqual([entry for entry in os.listdir(self.config) if entry.endswith(".tmp")], [])


if not IS_WINDOWS:
    class CutOff(SafetyTest):
        def kill(self, *arguments, items, when):
            """Starts a run and kills it as soon as `when` returns true."""
            with tempfile.TemporaryFile() as given:
                given.write("\n".join(items).encode())
                given.seek(0)
                run = subprocess.Popen(COMMAND + ["--config", self.config, "rename", "--run", "--items", "-",
                                                  *arguments], cwd=self.folder, stdin=given,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                end = time.monotonic() + TIMEOUT_SECONDS
                while not when() and time.monotonic() < end:
                    pass
                run.send_signal(signal.SIGKILL)
                self.assertEqual(run.wait(TIMEOUT_SECONDS), -signal.SIGKILL)

        def make_all(self, names):
            for name in names:
                with open(self.path(name), "w", encoding="utf-8") as file:
                    file.write(name)

        def wrong(self, names):
            """Returns the names of files that were created with another name."""
            return [name for name in names if self.content(name) != name]

        def test_a_run_that_is_killed_is_taken_back(self):
            names = ["f%05d" % number for number in range(MANY)]
            self.make_all(names)
            self.kill("--name", "x[N]", items=names, when=lambda: os.path.exists(self.path("xf00000")))
            left = sum(name.startswith("f") for name in self.names())
            self.assertGreater(left, 0)
            outcome = self.prose("--undo", "last")
            self.assertEqual((outcome.status, outcome.stderr), (0, ""))
            self.assertIn("\n%d Restored" % (MANY - left), outcome.stdout)
            self.assertIn("The run was cut off: %d renames had not been done" % left, outcome.stdout)
            self.assertEqual(self.names(), names)

        def test_a_run_in_many_folders_that_is_killed_is_taken_back(self):
            """Two threads rename files of different folders, so those that were renamed are not the first ones."""
            names = ["d%02d/f%05d" % (number // 7 % 50, number) for number in range(MANY)]
            for folder in range(50):
                os.mkdir(self.path("d%02d" % folder))
            self.make_all(names)
            half = names[MANY // 2].replace("/f", "/xf")
            self.kill("--name", "x[N]", items=names, when=lambda: os.path.exists(self.path(half)))
            left = sum(os.path.exists(self.path(name)) for name in names)
            self.assertGreater(left, 0)
            outcome = self.prose("--undo", "last")
            self.assertEqual((outcome.status, outcome.stderr), (0, ""))
            self.assertIn("\n%d Restored" % (MANY - left), outcome.stdout)
            self.assertEqual(self.wrong(names), [])

        def test_a_chain_that_is_killed_is_taken_back_and_what_was_not_done_stays_as_it_is(self):
            names = ["%05d" % number for number in range(MANY)]
            self.make_all(names)
            self.kill("--name", "[C]", "--start", "1", "--digits", "5", items=names,
                      when=lambda: os.path.exists(self.path("%05d" % MANY)))
            outcome = self.prose("--undo", "last")
            self.assertEqual((outcome.status, outcome.stderr), (0, ""))
            self.assertRegex(outcome.stdout, r"(?m)^\d+ Restored, \d+ Ignored$")
            self.assertRegex(outcome.stdout, r"(?m)^The run was cut off: \d+ renames had not been done$")
            self.assertEqual((self.names(), self.wrong(names)), (names, []))

        def test_exchanged_names_that_are_killed_come_back_to_their_own_files(self):
            names = ["%04d" % number for number in range(10000)
                     if not IS_SLOW or number // 1000 < 5 and number % 10 < 5]
            self.make_all(names)

            def has_begun():
                try:
                    return self.content("1000") != "1000"
                except FileNotFoundError:
                    return True

            self.kill("--regex", "--find", "^(.)(..)(.)$", "--replace", "$3$2$1", items=names, when=has_begun)
            self.rename("--undo", "last")
            self.assertEqual((self.names(), self.wrong(names)), (names, []))

        def test_a_plan_of_which_nothing_was_done_changes_nothing(self):
            """The run was killed before its first rename: the plan is written, all files are unchanged."""
            self.make("a", "b", "c")
            before = [(name, os.stat(self.path(name)).st_ino) for name in self.names()]
            where = windows_path(self.folder)
            path = self.write_undo("u.dat", [where + "|a|b", where + "|b|a", where + "|c|d"])
            with open(path, "rb") as file:
                text = file.read().decode("utf-16-le")
            notes = ";qxhost files of 3\r\n" + "".join(
                ";%d %d\r\n" % (number + 1, before[number][1]) for number in range(2))
            with open(path, "wb") as file:
                file.write((";qxhost planned\r\n" + text + notes).encode("utf-16-le"))
            outcome = self.rename("--undo", "last")
            self.assertEqual([result for _, _, result in outcome.renames], [10, 10, 10])
            self.assertEqual([(name, os.stat(self.path(name)).st_ino) for name in self.names()], before)

        def test_no_run_starts_if_its_undo_file_cannot_be_written_whole(self):
            names = ["f%03d" % number for number in range(400)]
            self.make(*names)
            outcome = self.process("--config", self.config, "rename", "--name", "x[N]", "--run", "--items", "-",
                                   stdin="\n".join(names).encode(), largest_file=4096)
            self.assertEqual(outcome.status, 4)
            self.assertIn("no undo file can be written", outcome.stderr)
            self.assertEqual((self.names(), self.undo_files()), (names, []))

        def test_a_reader_who_does_not_read_keeps_no_undo_file_from_being_written(self):
            names = ["f%05d" % number for number in range(5000)]
            self.make_all(names)
            with tempfile.TemporaryFile() as given:
                given.write("\n".join(names).encode())
                given.seek(0)
                run = subprocess.Popen(COMMAND + ["--config", self.config, "rename", "--run", "--items", "-", "--name",
                                                  "x[N]"], cwd=self.folder, stdin=given, stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL)
                end = time.monotonic() + TIMEOUT_SECONDS

                def is_written():
                    return any(self.read_config("Undo/" + name).startswith(b"[\0I\0") for name in self.undo_files()
                               if name.endswith(".dat"))

                while not is_written() and time.monotonic() < end:
                    time.sleep(0.01)
                self.assertTrue(is_written())
                run.kill()
                run.wait(TIMEOUT_SECONDS)
                run.stdout.close()
            self.assertEqual(self.names(), ["x" + name for name in names])
            self.rename("--undo", "last")
            self.assertEqual(self.names(), names)

    LAST_DIGITS = 2 if IS_SLOW else 5

    class Together(SafetyTest):
        """Simultaneous calls wait for each other.

        The files have numbers of five digits, of which a run exchanges the first and the last.
        """
        EXCHANGE = ("--regex", "--find", "^(.)(...)(.)$", "--replace", "$3$2$1")

        def make_all(self, count):
            names = ["%05d" % number for number in range(count) if number % 10 < LAST_DIGITS]
            for name in names:
                with open(self.path(name), "w", encoding="utf-8") as file:
                    file.write(name)
            return names

        def run_all(self, names):
            with tempfile.TemporaryFile() as given:
                given.write("\n".join(names).encode())
                given.seek(0)
                return subprocess.Popen(COMMAND + ["--config", self.config, "rename", "--run", "--items", "-",
                                                   *self.EXCHANGE], cwd=self.folder, stdin=given,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

        def wait_for(self, condition):
            end = time.monotonic() + TIMEOUT_SECONDS
            while not condition() and time.monotonic() < end:
                pass
            self.assertTrue(condition())

        def is_exchanged(self):
            try:
                return self.content("10000") != "10000"
            except FileNotFoundError:
                return True

        def wrong(self, names):
            return [name for name in names if self.content(name) != name]

        def test_an_undo_waits_for_the_run_that_it_takes_back(self):
            names = self.make_all(20000)
            run = self.run_all(names)
            self.wait_for(self.is_exchanged)
            outcome = self.prose("--undo", "last")
            self.assertEqual(run.wait(TIMEOUT_SECONDS), 0)
            self.assertEqual((outcome.status, outcome.stderr), (0, ""))
            self.assertEqual((self.names(), self.wrong(names)), (names, []))

        def test_of_two_undos_at_once_the_second_finds_nothing_left(self):
            names = self.make_all(10000)
            self.assertEqual(self.run_all(names).wait(TIMEOUT_SECONDS), 0)
            undos = [self.start("--undo", "last", stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
                     for _ in range(2)]
            self.assertEqual(sorted(undo.wait(TIMEOUT_SECONDS) for undo in undos), [0, 4])
            self.assertEqual((self.names(), self.wrong(names)), (names, []))

        def test_the_file_of_a_run_is_not_deleted_before_its_end(self):
            names = self.make_all(20000)
            run = self.run_all(names)
            self.wait_for(self.is_exchanged)
            self.rename("--delete-undo", "last")
            self.assertEqual((run.wait(TIMEOUT_SECONDS), self.undo_files()), (0, []))

        def test_a_run_that_waits_is_planned_after_its_turn_has_come(self):
            self.make("a", "b")
            os.makedirs(os.path.join(self.config, "Undo"))
            self.write_config("Undo/qxhost.lock", b"")
            with open(os.path.join(self.config, "Undo", "qxhost.lock"), "rb") as lock:
                fcntl.flock(lock, fcntl.LOCK_EX)
                run = self.start("--name", "b", "--run", "a", stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                self.assertIn(b"waiting for the end of another run", run.stderr.readline())
                os.rename(self.path("b"), self.path("c"))
                os.remove(lock.name)
            out, _ = run.communicate(timeout=TIMEOUT_SECONDS)
            self.assertEqual((run.returncode, self.names()), (0, ["b", "c"]))
            self.assertIn(b"Undo it: ", out)
            self.rename("--undo", "last")
            self.assertEqual(self.names(), ["a", "c"])

        def test_a_reader_who_does_not_read_keeps_no_undo_from_being_marked(self):
            names = self.make_all(5000)
            self.assertEqual(self.run_all(names).wait(TIMEOUT_SECONDS), 0)
            (name,) = self.undo_files()
            undo = self.start("--undo", "last", stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            self.wait_for(lambda: "HaveRestored : 1".encode("utf-16-le") in self.read_config("Undo/" + name))
            undo.kill()
            undo.wait(TIMEOUT_SECONDS)
            undo.stdout.close()
            self.assertEqual((self.names(), self.wrong(names)), (names, []))
            self.rename("--undo", "last", status=4)
            self.assertEqual((self.names(), self.wrong(names)), (names, []))

    class Large(SafetyTest):
        def test_a_killed_exchange_whose_file_is_near_the_limit_comes_back(self):
            """16,000 files whose names form one cycle. The lines are within the limit, the notes beyond it."""
            names = ["f%05d" % number for number in range(16000)]
            deep = "d" * (140 - len(windows_path(self.folder)))
            folder = self.path(deep)
            os.makedirs(folder)
            for name in names:
                with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
                    file.write(name)
            items = names[1:] + names[:1]
            with tempfile.TemporaryFile() as given:
                given.write("\n".join(deep + "/" + name for name in items).encode())
                given.seek(0)
                run = subprocess.Popen(COMMAND + ["--config", self.config, "rename", "--run", "--items", "-", "--name",
                                                  "f[C0,1,5]"], cwd=self.folder, stdin=given,
                                       stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
                end = time.monotonic() + TIMEOUT_SECONDS
                aside = os.path.join(folder, items[0] + ".qxhost-tmp")
                while time.monotonic() < end and not os.path.exists(aside):
                    pass
                run.send_signal(signal.SIGKILL)
                _, problems = run.communicate(timeout=TIMEOUT_SECONDS)
            self.assertEqual((run.returncode, problems), (-signal.SIGKILL, b""))
            self.rename("--undo", "last")
            self.assertEqual(sorted(os.listdir(folder)), names)
            self.assertEqual([name for name in names if self.content(deep + "/" + name) != name], [])

    class NamesWithoutUndo(SafetyTest):
        def test_an_old_name_that_no_restore_gives_is_warned_of(self):
            self.make("a:b", "c")
            outcome = self.rename("--name", "n[C]", "--run", "./a:b", "c")
            self.assertIn("the undo of 1 rename of 2 cannot be kept", outcome.stderr)
            self.assertIn("no file may have a name with one of", outcome.stderr)
            self.rename("--undo", "last", status=4)
            self.assertEqual(self.names(), ["c", "n01"])

        def test_a_run_of_which_nothing_can_be_taken_back_has_no_undo_file_and_offers_none(self):
            for old in ("a|b", "a:b"):
                with self.subTest(old=old):
                    self.setUp()
                    self.make(old)
                    outcome = self.prose("--name", "n", "--run", "./" + old)
                    self.assertIn("the run cannot be undone", outcome.stderr)
                    self.assertNotIn("Undo it", outcome.stdout)
                    self.assertEqual((outcome.status, self.undo_files(), self.names()), (0, [], ["n"]))


if __name__ == "__main__":
    unittest.main()
