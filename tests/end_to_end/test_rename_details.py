import json
import os
import subprocess

from qxhost import IS_WINDOWS, windows_path
from test_rename import IGNORED, RenameTest


def local_day(seconds):
    """Returns the local date, as formatted by the system's tool."""
    return subprocess.run(["date", "-d", "@%d" % seconds, "+%Y-%m-%d"], capture_output=True,
                          check=True).stdout.decode().strip()


class Dates(RenameTest):
    ACCESSED, MODIFIED = 1000000000, 1100000000  # in 2001 and 2004

    def new_name(self, template):
        self.make("a.txt")
        os.utime(self.path("a.txt"), (self.ACCESSED, self.MODIFIED))
        (row,) = self.rename("--name", template, "--extension", "", "a.txt").of("row")
        return row["new"]

    def test_modified_and_accessed_are_dates_of_their_own(self):
        self.assertEqual(self.new_name("[?modified,{yyyy-MM-dd}] [?accessed,{yyyy-MM-dd}]"),
                         local_day(self.MODIFIED) + " " + local_day(self.ACCESSED))

    # Under Wine files have no separate creation date.
    if not IS_WINDOWS:

        def test_created_is_the_date_of_creation(self):
            # The file system's creation time, or 0 if it does not store one; then there is no value.
            self.make("a.txt")
            born = int(subprocess.run(["stat", "-c", "%W", self.path("a.txt")], capture_output=True,
                                      check=True).stdout)
            expected = local_day(born) if born else ""
            self.assertEqual(self.new_name("x[?created,{yyyy-MM-dd}]"), "x" + expected)


class Histories(RenameTest):
    def file(self):
        return os.path.join(self.config, "histories.json")

    def stored(self):
        with open(self.file(), encoding="utf-8") as file:
            return json.load(file)["QXMultiRename"]

    def test_a_dry_run_keeps_no_template(self):
        self.make("a.txt")
        self.run_json("--dry-run", "rename", "--name", "x[C]", "--extension", "md", "--run", "a.txt")
        self.assertFalse(os.path.exists(self.file()))
        self.rename("--name", "y[C]", "--run", "a.txt")
        self.assertEqual(self.stored()["RuleFilename"], ["y[C]"])

    def test_a_blocked_run_keeps_no_template(self):
        self.make("a.txt", "b.txt")
        self.rename("--name", "x", "--run", "a.txt", "b.txt", status=4)
        self.assertFalse(os.path.exists(self.file()))

    def test_a_history_has_20_templates_the_newest_first_and_each_once(self):
        self.make("a.txt")
        self.rename("--name", "first[C]", "--extension", "e0", "--run", "a.txt")
        with open(self.file(), encoding="utf-8") as file:
            everything = json.load(file)
        everything["QXMultiRename"]["RuleFilename"] = ["n%d" % number for number in range(1, 25)]
        everything["QXMultiRename"]["RuleFileextension"] = ["e%d" % number for number in range(1, 20)]
        with open(self.file(), "w", encoding="utf-8") as file:
            json.dump(everything, file)
        self.rename("--name", "n3", "--extension", "e0", "--run", "first01.e0")
        self.assertEqual(self.stored()["RuleFilename"], ["n3", "n1", "n2"] + ["n%d" % number for number in range(4, 21)])
        self.assertEqual(self.stored()["RuleFileextension"], ["e%d" % number for number in range(0, 20)])


class Profiles(RenameTest):
    def test_pairs_that_are_given_take_the_place_of_those_of_the_profile(self):
        self.make("ab.txt")
        self.rename("--find", "a", "--replace", "1", "--save-profile", "P")
        self.assertEqual(self.rows(self.rename("--profile", "P", "ab.txt")), [("ab.txt", "1b.txt", 0)])
        self.assertEqual(self.rows(self.rename("--profile", "P", "--find", "b", "--replace", "2", "ab.txt")),
                         [("ab.txt", "a2.txt", 0)])

    def test_a_saved_list_takes_their_place_as_well_and_given_pairs_come_after_it(self):
        self.make("abc.txt")
        self.rename("--find", "a", "--replace", "1", "--save-profile", "P")
        self.rename("--find", "b", "--replace", "2", "--save-pairs", "1")
        outcome = self.rename("--profile", "P", "--pairs", "1", "--find", "2", "--replace", "3", "abc.txt")
        self.assertEqual(self.rows(outcome), [("abc.txt", "a3c.txt", 0)])

    def test_a_profile_that_is_saved_over_moves_to_the_end_of_the_list(self):
        for name in ("b", "c", "a"):
            self.rename("--name", name, "--save-profile", name)
        self.rename("--name", "new", "--save-profile", "B", answers=["yes"])
        self.assertEqual([(profile["name"], profile["filename"])
                          for profile in self.rename("--list-profiles").of("profile")],
                         [("c", "c"), ("a", "a"), ("B", "new")])


class Order(RenameTest):
    def test_a_preview_predicts_a_run_in_order(self):
        self.make("img", "img1")
        chain = ["--find", "img", "--replace", "img1", "img", "img1"]
        planned = self.prose(*chain)
        self.assertIn("2 rows: 2 to rename.", planned.stdout)
        predicted = self.process("--in-order", "--config", self.config, "rename", *chain)
        self.assertRegex(predicted.stdout, r"(?m)^\? img +img1 +<- .*\(183\)$")
        self.assertRegex(predicted.stdout, r"(?m)^  img1 +img11$")
        self.assertIn("2 rows: 1 to rename, 1 that would be refused (?)", predicted.stdout)
        self.assertEqual(self.names(), ["img", "img1"])
        outcome = self.run_json("--in-order", "rename", "--run", *chain, status=4)
        self.assertEqual(outcome.renames, [("img", "img1", 183), ("img1", "img11", 0)])
        self.assertEqual(self.names(), ["img", "img11"])


class TakenBack(RenameTest):
    def test_a_run_that_was_taken_back_before_is_said_to_be_and_is_tried_again(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        self.assertNotIn("undone before", self.prose("--undo", "last").stderr)
        again = self.prose("--undo", "last")
        self.assertEqual(again.status, 4)
        self.assertIn("undone before", again.stderr)
        self.assertIn("1 Failed", again.stdout)
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_row_that_failed_is_no_part_of_what_is_taken_back(self):
        self.make("a_", "b_", "b")
        self.rename("--find", "_", "--run", "a_", "b_", status=4)
        outcome = self.rename("--undo", "last")
        self.assertEqual(outcome.renames, [("a", "a_", 0)])

    def test_a_number_other_than_0_means_restored(self):
        folder = os.path.join(self.config, "Undo")
        os.makedirs(folder)
        with open(os.path.join(folder, "x.dat"), "wb") as file:
            file.write(("[INFO]\nDate : 0\nHaveRestored : -1\n[FILES]\n%s|a|b\n" % windows_path(self.folder))
                       .encode("utf-16-le"))
        self.assertEqual([undo["restored"] for undo in self.rename("--list-undo").of("undo")], [True])


class PartlyTakenBack(RenameTest):
    def test_what_failed_can_be_tried_again_and_the_call_says_so(self):
        self.make("a", "b")
        self.rename("--name", "new-[N]", "--run", "a", "b")
        self.make("b")
        outcome = self.prose("--undo", "last")
        self.assertEqual((outcome.status, self.names()), (4, ["a", "b", "new-b"]))
        self.assertIn("1 Restored, 1 Failed\nThe file counts as undone. The same call tries the failed renames again\n",
                      outcome.stdout)
        os.remove(self.path("b"))
        self.rename("--undo", "last", status=4)
        self.assertEqual(self.names(), ["a", "b"])


class Results(RenameTest):
    def test_ignored_rows_are_counted_apart(self):
        self.make("a_.txt", "b.txt")
        outcome = self.prose("--find", "_", "--run", "a_.txt", "b.txt")
        self.assertIn("1 Renamed, 1 Ignored", outcome.stdout)
        outcome = self.rename("--run", "b.txt")
        self.assertEqual(self.rows(outcome), [("b.txt", "b.txt", IGNORED)])
