from qxhost import HostTest

QUESTION = {"event": "question", "kind": "text", "title": "Rename Files of the Same Base Name",
            "text": "New base name:", "style": 0}


class SameBaseName(HostTest):
    def test_all_files_of_the_focused_base_name_get_the_new_one(self):
        self.make("a.c", "a.h", "a.tar.gz", "ab.c", "b.c", "a.dir/")
        outcome = self.command(30020, "a.c", answers=["text=new"])
        self.assertEqual(outcome.questions, [dict(QUESTION, answer="text=new")])
        self.assertEqual(self.names(), ["a.dir/", "a.tar.gz", "ab.c", "b.c", "new.c", "new.h"])
        self.assertEqual(outcome.renames, [("a.c", "new.c", 0), ("a.h", "new.h", 0)])

    def test_letter_case_of_the_base_name_counts(self):
        self.make("a.c", "A.h")
        self.command(30020, "a.c", answers=["text=new"])
        self.assertEqual(self.names(), ["A.h", "new.c"])

    def test_a_focused_folder_gives_the_base_name_and_only_files_match(self):
        self.make("lib.d/", "lib.c", "lib.h")
        self.run_json("--focus", self.path("lib.d"), "command", "30020", answers=["text=new"])
        self.assertEqual(self.names(), ["lib.d/", "new.c", "new.h"])

    def test_a_file_without_a_dot_is_refused_without_harm(self):
        self.make("a", "a.c")
        outcome = self.command(30020, "a.c", answers=["text=new"], status=4)
        self.assertEqual(outcome.renames, [("a", "", 123), ("a.c", "new.c", 0)])
        self.assertIn("(123)", outcome.stderr)
        self.assertEqual(self.names(), ["a", "new.c"])

    def test_the_focus_need_not_be_selected(self):
        self.make("a.c", "b.c", "b.h")
        self.run_json("--focus", self.path("b.h"), "command", "30020", self.path("a.c"), answers=["text=x"])
        self.assertEqual(self.names(), ["a.c", "x.c", "x.h"])

    def test_the_view_can_be_another_folder_than_the_focused_items(self):
        self.make("one/a.c", "two/a.h", "two/b.h")
        self.run_json("--view", self.path("two"), "command", "30020", self.path("one/a.c"), answers=["text=n"])
        self.assertEqual((self.names("one"), self.names("two")), (["a.c"], ["b.h", "n.h"]))

    def test_without_a_focused_item_it_asks_and_renames_nothing(self):
        self.make("a.c")
        outcome = self.command(30020, answers=["text=new"])
        self.assertEqual(outcome.questions, [dict(QUESTION, answer="text=new")])
        self.assertEqual(outcome.renames, [])
        self.assertEqual(self.names(), ["a.c"])

    def test_cancel_renames_nothing(self):
        self.make("a.c", "a.h")
        for answers in (["cancel"], []):
            outcome = self.command(30020, "a.c", answers=answers)
            self.assertEqual(outcome.questions, [dict(QUESTION, answer="cancel")])
            self.assertEqual(self.names(), ["a.c", "a.h"])

    def test_a_base_name_that_can_be_none_is_refused_without_harm(self):
        self.make("a.c", "x/")
        for text in ("..\\x\\b", "x/b", "a:b", "*", "a\tb"):
            with self.subTest(text=text):
                outcome = self.command(30020, "a.c", answers=["text=" + text], status=4)
                self.assertEqual(outcome.renames, [("a.c", text + ".c", 123)])
                self.assertEqual((self.names(), self.names("x")), (["a.c", "x/"], []))

    def test_a_button_is_not_an_answer_to_a_text(self):
        self.make("a.c")
        outcome = self.command(30020, "a.c", answers=["yes"], status=2)
        self.assertIn("asks for a text", outcome.stderr)
        self.assertEqual(self.names(), ["a.c"])
