from qxhost import HostTest

QUESTION = {"event": "question", "kind": "text", "title": "Rename", "text": "New extension for the selected files:",
            "style": 0}


class SetExtension(HostTest):
    def test_all_selected_files_get_the_extension_and_the_focused_ones_is_offered(self):
        self.make("a.txt", "b.md", "none")
        outcome = self.command(30060, "a.txt", "b.md", "none", answers=["text=log"])
        self.assertEqual(outcome.questions, [dict(QUESTION, default="txt", answer="text=log")])
        self.assertEqual(self.names(), ["a.log", "b.log", "none.log"])

    def test_one_leading_dot_is_dropped(self):
        self.make("a.txt")
        outcome = self.command(30060, "a.txt", answers=["text=.log"])
        self.assertEqual(outcome.renames, [("a.txt", "a.log", 0)])
        self.assertEqual(self.names(), ["a.log"])

    def test_the_dots_of_an_extension_without_letters_are_left_out(self):
        self.make("a.txt")
        outcome = self.command(30060, "a.txt", answers=["text=.."])
        self.assertEqual(outcome.renames, [("a.txt", "a", 0)])
        # The trailing dot is dropped.
        self.assertEqual(self.names(), ["a"])

    def test_ok_takes_the_offered_extension(self):
        self.make("a.txt", "b.md")
        outcome = self.command(30060, "a.txt", "b.md", answers=["ok"])
        self.assertEqual(outcome.questions, [dict(QUESTION, default="txt", answer="text=txt")])
        self.assertEqual(outcome.renames, [("b.md", "b.txt", 0)])

    def test_the_focused_item_offers_its_extension_even_if_it_is_not_selected(self):
        self.make("a.txt", "b.md")
        outcome = self.run_json("--focus", self.path("b.md"), "command", "30060", self.path("a.txt"),
                                answers=["ok"])
        self.assertEqual(outcome.questions, [dict(QUESTION, default="md", answer="text=md")])
        self.assertEqual(self.names(), ["a.md", "b.md"])

    def test_folders_and_files_that_have_the_extension_stay_out_of_it(self):
        self.make("a.txt", "b.log", "dir.d/")
        outcome = self.command(30060, "a.txt", "b.log", "dir.d", answers=["text=log"])
        self.assertEqual(outcome.renames, [("a.txt", "a.log", 0)])
        self.assertEqual(self.names(), ["a.log", "b.log", "dir.d/"])

    def test_an_empty_text_and_a_lone_dot_and_cancel_end_it(self):
        self.make("a.txt")
        for answer in ("text=", "text=.", "cancel"):
            with self.subTest(answer=answer):
                outcome = self.command(30060, "a.txt", answers=[answer])
                self.assertEqual(outcome.renames, [])
                self.assertEqual(self.names(), ["a.txt"])

    def test_with_nothing_selected_the_log_says_so_and_nothing_is_asked(self):
        self.make("dir/")
        for names in ([], ["dir"]):
            with self.subTest(names=names):
                outcome = self.command(30060, *names)
                self.assertEqual(outcome.events[:-1], [{"event": "log", "category": 0, "level": 10,
                                                        "text": "Command failed - No files selected"}])

    def test_the_log_line_in_prose(self):
        outcome = self.process("--config", self.config, "command", "30060")
        self.assertEqual((outcome.status, outcome.stdout), (0, "[info] Command failed - No files selected\n"))
