"""The messages of `qxhost rename` about surprising rules, and related calls and options."""

import os
import unittest

from qxhost import IS_WINDOWS, windows_path
from test_rename import RenameTest


class Notes(RenameTest):
    def notes(self, *arguments):
        outcome = self.prose(*arguments)
        self.assertEqual(outcome.status, 0, outcome.stderr)
        return outcome.stderr

    def test_a_name_of_the_first_row_in_another_folder_says_that_folders_do_not_matter(self):
        self.make("one/a.txt", "two/a.txt", "one/b.txt")
        outcome = self.prose("--name", "x", "one/a.txt", "two/a.txt", "one/b.txt")
        self.assertIn("! a.txt   x.txt   <- another row gets this name as well\n", outcome.stdout)
        self.assertIn("! a.txt   x.txt   <- the first row gets this name; that it is in another folder does not "
                      "matter\n", outcome.stdout)
        self.assertIn("! b.txt   x.txt   <- the first row gets this name\n", outcome.stdout)

    def test_a_mistyped_property_is_reported_with_the_nearest_name(self):
        self.make("a.txt")
        self.assertEqual(self.notes("--name", "[N][?modifed]", "a.txt"),
                         "qxhost: note: there is no property \"modifed\", so its tag is empty. "
                         "Did you mean modified?\n")
        self.assertEqual(self.notes("--name", "[N]", "--extension", "x[?SIZE]", "a.txt"), "")

    def test_a_tag_of_a_property_needs_no_bracket_before_it(self):
        self.make("a.txt")
        cells = {event["name"]: event["value"] for event in self.run_json("columns", "a.txt").of("column")}
        outcome = self.rename("--name", "x?owner]", "a.txt")
        self.assertEqual(outcome.of("row")[0]["new"], cells["owner"] + ".txt")
        self.assertEqual(outcome.stderr, "")

    def test_a_search_that_takes_too_long_is_counted(self):
        names = ["a" * 60 + "b%d" % number for number in range(2)]
        self.make(*names, "short")
        self.assertIn("stopped in 2 names", self.notes("--regex", "--find", "(a+)+c", *names, "short"))
        self.assertEqual(self.notes("--regex", "--find", "a+c", *names, "short"), "")

    def test_switches_of_a_search_without_one_do_nothing_and_say_so(self):
        self.make("a.txt")
        for switch in (["--regex"], ["--replace-all"], ["--case-sensitive"], ["--parts", "name"]):
            with self.subTest(switch=switch):
                self.assertIn("do nothing without --find", self.notes(*switch, "a.txt"))
                self.assertEqual(self.notes(*switch, "--find", "b", "a.txt"), "")

    def test_what_is_no_expression_is_not_saved(self):
        for call in (["--save-profile", "Bad"], ["--save-pairs", "1"]):
            with self.subTest(call=call):
                self.assertIn("\"(\" is not a regular expression: ", self.refused("--regex", "--find", "(", *call))
        self.assertEqual(self.rename("--list-profiles").of("profile"), [])
        self.assertEqual(self.rename("--list-pairs").of("pairs"), [])

    def test_no_items_and_run_say_that_there_are_none(self):
        outcome = self.prose("--items", "-", "--run")
        self.assertEqual((outcome.status, outcome.stdout), (0, "There are no ITEMs: nothing was renamed\n"))

    if not IS_WINDOWS:
        def test_the_current_folder_is_named_as_the_reason(self):
            self.make("here/")
            outcome = self.process("--config", self.config, "rename", "--name", "there", "--run", self.path("here"),
                                   cwd=self.path("here"))
            self.assertEqual(outcome.status, 4)
            self.assertIn("to there: it is the current folder, or one above it (32)\n", outcome.stderr)


class Roots(RenameTest):
    def test_the_folder_tag_is_empty_at_a_root(self):
        name = self.scratch.split("/")[1]
        (row,) = self.rename("--name", "[F]x", "--extension", "", "/" + name).of("row")
        self.assertEqual((row["old"], row["new"]), (name, "x"))

    if not IS_WINDOWS:
        def test_a_name_that_begins_like_a_drive_says_how_it_is_written(self):
            self.make("a:b.txt")
            self.assertIn("\"a:b.txt\" is not a path; write ./a:b.txt\n", self.refused("--name", "x", "a:b.txt"))
            self.assertNotIn("write", self.refused("--name", "x", "a:c.txt"))
            self.assertEqual(self.rename("--name", "x", "./a:b.txt").of("row")[0]["new"], "x.txt")


class Calls(RenameTest):
    def test_a_dry_undo_says_that_nothing_was_renamed(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        outcome = self.process("--dry-run", "--config", self.config, "rename", "--undo", "last")
        self.assertIn("would rename ", outcome.stdout)
        self.assertTrue(outcome.stdout.endswith("\nNothing was renamed: this was a dry run\n"), outcome.stdout)
        self.assertNotIn("Restored", outcome.stdout)
        self.assertEqual(self.names(), ["b.txt"])

    def test_a_second_undo_names_the_list(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        self.assertIn("1 rename, undone\n", self.prose("--undo", "last").stdout)
        outcome = self.prose("--undo", "last")
        self.assertIn("note: this run has been undone before; --list-undo shows the others\n", outcome.stderr)

    def test_the_list_of_undo_files_names_the_folder_of_settings_in_its_proposal(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        self.assertIn("qxhost --config %s rename --undo NAME" % self.config, self.prose("--list-undo").stdout)

    def test_the_newest_undo_file_is_deleted_as_last_and_reported(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        self.rename("--name", "c", "--run", "b.txt")
        older, newest = self.undo_files()
        where = os.path.join(self.config, "Undo")
        outcome = self.rename("--delete-undo", "last")
        self.assertEqual(outcome.of("deleted"),
                         [{"event": "deleted", "file": windows_path(os.path.join(where, newest))}])
        outcome = self.rename("--delete-undo", "all")
        self.assertEqual(outcome.of("deleted"),
                         [{"event": "deleted", "file": windows_path(os.path.join(where, older))}])
        self.assertEqual(self.undo_files(), [])
        self.assertIn("there are no undo files", self.refused("--delete-undo", "last"))

    def test_switches_of_a_profile_can_be_switched_off(self):
        self.make("a.a.txt")
        self.rename("--find", ".", "--replace", "x", "--regex", "--replace-all", "--parts", "name",
                    "--save-profile", "P")
        for switches, name in (([], "xxx.txt"), (["--no-regex"], "axa.txt"), (["--regex=false"], "axa.txt"),
                               (["--no-regex", "--no-replace-all"], "axa.txt"), (["--regex"], "xxx.txt")):
            with self.subTest(switches=switches):
                outcome = self.rename("--profile", "P", *switches, "a.a.txt")
                self.assertEqual(outcome.of("row")[0]["new"], name)
        self.make("b.B.b")
        self.rename("--find", "B", "--replace", "x", "--replace-all", "--case-sensitive", "--save-profile", "Q")
        for switches, name in (([], "b.x.b"), (["--no-case-sensitive"], "x.x.x"),
                               (["--no-case-sensitive", "--no-replace-all"], "x.B.x")):
            with self.subTest(switches=switches):
                outcome = self.rename("--profile", "Q", *switches, "b.B.b")
                self.assertEqual(outcome.of("row")[0]["new"], name)

    def test_an_unknown_case_rule_of_a_profile_is_none_as_in_the_panel(self):
        self.make("aB.Txt")
        os.makedirs(self.config)
        with open(os.path.join(self.config, "MultiRenameProfiles.xml"), "w", encoding="utf-8") as file:
            file.write('<MultiRename><profile name="P"><filename>[N]</filename><extension>[E]</extension>'
                       '<counter startat="1" stepby="1" digits="2"/><case value="77"/></profile></MultiRename>')
        self.assertEqual(self.rename("--profile", "P", "aB.Txt").of("row")[0]["new"], "aB.Txt")
        self.assertEqual(self.rename("--list-profiles").of("profile")[0]["case"], "none")

    def test_lists_of_pairs_are_shown_and_those_without_a_key_are_not(self):
        self.rename("--find", " old", "--replace", "new", "--save-pairs", "3")
        path = os.path.join(self.config, "FindReplace.xml")
        with open(path, encoding="utf-8") as file:
            text = file.read()
        with open(path, "w", encoding="utf-8") as file:
            file.write(text.replace("</MultiRename>",
                                    '<FindReplace id="99"><item find="x" replace="y"/></FindReplace></MultiRename>'))
        pairs = [{"find": " old", "replace": "new"}]
        self.assertEqual(self.rename("--list-pairs").of("pairs"), [{"event": "pairs", "number": 3, "pairs": pairs}])
        self.assertEqual(self.prose("--list-pairs").stdout, "list 3\n  --find \" old\" --replace \"new\"\n")
        self.make("a.txt")
        self.assertIn("the lists are: 3\n", self.refused("--pairs", "4", "a.txt"))


if IS_WINDOWS:
    class Patterns(RenameTest):
        def test_items_with_a_star_or_question_mark_are_found_by_the_alphabet(self):
            self.make("b.jpg", "a.JPG", "c.txt", "d.jpgx")
            outcome = self.rename("--name", "x[C]", "*.jpg", "?.txt")
            self.assertEqual([row["old"] for row in outcome.of("row")], ["a.JPG", "b.jpg", "c.txt"])
            self.assertIn("no file or folder is named *.gif", self.refused("--name", "x", "*.gif"))

        def test_texts_of_rules_are_no_patterns(self):
            self.make("a.jpg")
            outcome = self.rename("--name", "[N]", "--find", "*", "--replace", "?", "a.jpg")
            self.assertEqual(outcome.of("row")[0]["new"], "a.jpg")


if __name__ == "__main__":
    unittest.main()
