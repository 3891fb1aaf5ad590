import json
import os

from qxhost import IS_WINDOWS, HostTest

CONFIRM = {"event": "question", "kind": "box", "title": "Rename", "style": 33}


class ReplaceDialog(HostTest):
    """For both builds: the dialog opens and is closed by an answer."""

    def test_cancel_ends_the_command_and_keeps_no_history(self):
        self.make("a.txt")
        outcome = self.command(30010, "a.txt", answers=["cancel"])
        self.assertEqual([(event["kind"], event["title"], event["answer"]) for event in outcome.questions],
                         [("dialog", "Replace X with Y", "cancel")])
        self.assertFalse(os.path.exists(os.path.join(self.config, "histories.json")))

    def test_ok_with_an_empty_text_to_find_renames_nothing(self):
        self.make("a.txt")
        outcome = self.command(30010, "a.txt", answers=["ok"])
        self.assertEqual([event["answer"] for event in outcome.questions], ["ok"])
        self.assertEqual(self.names(), ["a.txt"])

    def test_without_an_answer_it_is_cancelled(self):
        self.make("a.txt")
        outcome = self.command(30010, "a.txt")
        self.assertEqual([event["answer"] for event in outcome.questions], ["cancel"])


if IS_WINDOWS:

    class FormsOfRealDialogs(HostTest):
        def test_a_form_is_refused_with_a_clear_message(self):
            self.make("a.txt")
            outcome = self.run_json("--form", "find=a", "command", "30010", self.path("a.txt"), answers=["ok"],
                                    status=2)
            self.assertIn("this build shows real dialogs", outcome.stderr)
            self.assertEqual(self.names(), ["a.txt"])

else:

    class Replace(HostTest):
        def replace(self, find, replace, *names, part=None, answers=("ok", "ok"), status=0):
            form = ["--form", "find=" + find, "--form", "replace=" + replace]
            if part is not None:
                form += ["--form", "part=" + part]
            return self.run_json(*form, "command", "30010", *[self.path(name) for name in names],
                                 answers=list(answers), status=status)

        def histories(self):
            with open(os.path.join(self.config, "histories.json"), encoding="utf-8") as file:
                return json.load(file)["QXUtils"]

        def test_the_base_name_is_searched_at_first(self):
            self.make("x-x.x", "dir.x/")
            outcome = self.replace("x", "yy", "x-x.x", "dir.x")
            self.assertEqual(outcome.questions[1],
                             dict(CONFIRM, text="Items to rename: 2. Rename them now?", answer="ok"))
            self.assertEqual(self.names(), ["dir.yy/", "yy-yy.x"])

        def test_files_move_up_by_one_in_one_run(self):
            self.make("img1", "img11", "img1111")
            outcome = self.replace("1", "11", "img1", "img11", "img1111")
            self.assertEqual(outcome.renames, [("img1", "img11", 0), ("img11", "img1111", 0),
                                               ("img1111", "img11111111", 0)])
            self.assertEqual({name: self.content(name) for name in self.names()},
                             {"img11": "img1", "img1111": "img11", "img11111111": "img1111"})

        def test_a_dry_run_predicts_the_results_planned_or_in_order(self):
            for mode, results, status in ([], [0, 0, 0], 0), (["--in-order"], [183, 183, 0], 4):
                with self.subTest(mode=mode):
                    self.setUp()
                    self.make("img1", "img11", "img1111")
                    call = [*mode, "--form", "find=1", "--form", "replace=11", "command", "30010",
                            *[self.path(name) for name in self.names()]]
                    dry = self.run_json("--dry-run", *call, answers=["ok", "ok"], status=status)
                    self.assertEqual([result for _, _, result in dry.renames], results)
                    self.assertEqual(self.names(), ["img1", "img11", "img1111"])
                    done = self.run_json(*call, answers=["ok", "ok"], status=status)
                    self.assertEqual(done.renames, dry.renames)
                    self.assertEqual(self.names()[-1], "img11111111")

        def test_part_2_is_the_extension_with_its_dot(self):
            self.make("a.txt.txt", "b.md")
            self.replace(".txt", ".bak", "a.txt.txt", "b.md", part="2")
            self.assertEqual(self.names(), ["a.txt.bak", "b.md"])

        def test_part_3_replaces_across_the_dot(self):
            self.make("ab.cd")
            self.replace("b.c", "-", "ab.cd", part="3")
            self.assertEqual(self.names(), ["a-d"])

        def test_without_a_part_a_file_keeps_its_name_and_a_folder_does_not(self):
            self.make("a.a", "a/")
            outcome = self.replace("a", "b", "a.a", "a", part="-1")
            self.assertEqual(outcome.renames, [("a", "b", 0)])

        def test_letter_case_counts(self):
            self.make("Aa.txt")
            self.replace("a", "x", "Aa.txt")
            self.assertEqual(self.names(), ["Ax.txt"])

        def test_an_answer_of_no_to_the_question_renames_nothing_and_keeps_the_history(self):
            self.make("a.txt")
            self.replace("a", "b", "a.txt", answers=["ok", "cancel"])
            self.assertEqual(self.names(), ["a.txt"])
            self.assertEqual(self.histories(), {"ReplaceXY_Replace": ["a"], "ReplaceXY_With": ["b"]})

        def test_histories_are_kept_newest_first_and_twenty_at_most(self):
            self.make("file.txt")
            for index in range(22):
                self.replace("find%d" % index, "with%d" % index, "file.txt", answers=["ok"])
            self.assertEqual(self.histories(), {
                "ReplaceXY_Replace": ["find%d" % index for index in range(21, 1, -1)],
                "ReplaceXY_With": ["with%d" % index for index in range(21, 1, -1)]})

        def test_a_history_keeps_texts_of_all_scripts(self):
            self.make("file.txt")
            self.replace("ä \"日本\" \\ 😀", " ", "file.txt", answers=["ok"])
            self.assertEqual(self.histories(), {"ReplaceXY_Replace": ["ä \"日本\" \\ 😀"], "ReplaceXY_With": [" "]})

        def test_a_field_that_is_none_is_a_bad_call_that_lists_the_fields(self):
            self.make("a.txt")
            outcome = self.run_json("--form", "search=a", "command", "30010", self.path("a.txt"), answers=["ok"],
                                    status=2)
            self.assertIn("there is no field search", outcome.stderr)
            self.assertIn("find=, replace=, part=1", outcome.stderr)
            self.assertEqual(self.names(), ["a.txt"])
            self.assertFalse(os.path.exists(os.path.join(self.config, "histories.json")))

        def test_a_value_that_is_none_is_a_bad_call_that_lists_the_fields(self):
            self.make("a.txt")
            outcome = self.replace("a", "b", "a.txt", part="4", status=2)
            self.assertIn("the field part cannot be 4", outcome.stderr)
            self.assertIn("find=a, replace=b, part=1", outcome.stderr)
            self.assertEqual(self.names(), ["a.txt"])

        def test_a_form_that_no_dialog_takes_is_noted(self):
            self.make("a.txt")
            outcome = self.run_json("--form", "find=a", "command", "30000", self.path("a.txt"), answers=["ok"])
            self.assertIn("there was no dialog for --form", outcome.stderr)
