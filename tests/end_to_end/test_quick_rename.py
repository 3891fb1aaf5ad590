import os
import re

from qxhost import IS_WINDOWS, HostTest, windows_path

# Command, old names (folders end in a slash), new names. No two names of a row differ in case only, so that
# they can be in one folder on every system.
TRANSFORMS = [
    (30000, ["one.Txt", "größe_ä.md", "straße", "a b/"], ["ONE.TXT", "GRÖßE_Ä.MD", "STRAßE", "A B/"]),
    (30001, ["ONE.Txt", "GRÖßE Ä.MD", "README", "Dir.D/"], ["one.txt", "größe ä.md", "readme", "dir.d/"]),
    (30030, ["one.Txt", "two.a.b", "Dir.d/"], ["ONE.Txt", "TWO.A.b", "DIR.D/"]),
    (30031, ["One.txt", "two.a.b", "noext"], ["One.TXT", "two.a.B", "noext"]),
    (30040, ["ONE.Txt", "TWO.A.B", "Dir.D/"], ["one.Txt", "two.a.B", "dir.d/"]),
    (30041, ["One.TXT", "TWO.A.B", "NOEXT"], ["One.txt", "TWO.A.b", "NOEXT"]),
    (30002, ["hello-wORLD.TXT", "a--b.c", "_abc.d", "the end of it.Md"],
     ["Hello-World.txt", "A--b.c", "_abc.d", "The End Of It.md"]),
    (30003, ["a_b_c.t_x", "_x", "d_e.f_g/"], ["a b c.t_x", " x", "d e.f g/"]),
    (30004, ["a_b_c.t_x", "_x", "d_e.f_g/"], ["a.b.c.t_x", ".x", "d.e.f.g/"]),
    (30005, ["a b.c d", "x y", "日本 語.txt"], ["a_b.c d", "x_y", "日本_語.txt"]),
    (30006, ["a b.c d", "x y", "e f.g h/"], ["a.b.c d", "x.y", "e.f.g.h/"]),
    (30007, ["a.b.txt", "one.txt", "d.e.f/"], ["a_b.txt", "one.txt", "d_e_f/"]),
    (30008, ["a.b.txt", "one.txt", "d.e.f/"], ["a b.txt", "one.txt", "d e f/"]),
    (30011, ["a-b-c.t-x", "x-y", "d-e.f-g/"], ["a b c.t-x", "x y", "d e.f g/"]),
    (30012, ["a b c.t x", "x y", "d e.f g/"], ["a-b-c.t x", "x-y", "d-e.f-g/"]),
    (30050, ["my_file.name.TXT", "ALL CAPS.Md", "a_b.c_d"], ["My File Name.txt", "All Caps.md", "A B.c d"]),
]


class Transforms(HostTest):
    def test_each_command_renames_on_the_disk(self):
        for number, before, after in TRANSFORMS:
            with self.subTest(number=number):
                self.setUp()
                self.make(*before)
                outcome = self.command(number, *before, answers=["ok"])
                self.assertEqual(self.names(), sorted(after))
                changed = [(old.rstrip("/"), new.rstrip("/"), 0) for old, new in zip(before, after) if old != new]
                self.assertEqual(outcome.renames, changed)
                self.assertEqual(outcome.stderr, "")

    def test_the_files_keep_their_content(self):
        self.make("one.txt", "two.txt")
        self.command(30000, "one.txt", "two.txt", answers=["ok"])
        self.assertEqual((self.content("ONE.TXT"), self.content("TWO.TXT")), ("one.txt", "two.txt"))

    def test_a_folder_is_scanned_whole_and_a_file_of_that_name_up_to_its_last_dot(self):
        self.make("one/a b.c d/", "two/a b.c d")
        self.command(30005, "one/a b.c d", "two/a b.c d", answers=["ok"])
        self.assertEqual((self.names("one"), self.names("two")), (["a_b.c_d/"], ["a_b.c d"]))

    def test_the_dot_that_tidying_adds_to_a_name_without_an_extension_is_left_out(self):
        self.make("read_me")
        outcome = self.command(30050, "read_me", answers=["ok"])
        self.assertEqual(outcome.renames, [("read_me", "Read Me", 0)])
        # The trailing dot is dropped.
        self.assertEqual(self.names(), ["Read Me"])


class Confirmation(HostTest):
    QUESTION = {"event": "question", "kind": "box", "title": "Rename",
                "text": "Items to rename: 2. Rename them now?", "style": 33}

    def test_the_question_names_the_number_of_items_that_change(self):
        self.make("a.txt", "b.txt", "C.TXT")
        outcome = self.command(30000, "a.txt", "C.TXT", "b.txt", answers=["ok"])
        self.assertEqual(outcome.questions, [dict(self.QUESTION, answer="ok")])
        self.assertEqual(outcome.renames, [("a.txt", "A.TXT", 0), ("b.txt", "B.TXT", 0)])

    def test_cancel_leaves_everything_as_it_is(self):
        self.make("a.txt", "b.txt")
        outcome = self.command(30000, "a.txt", "b.txt", answers=["cancel"])
        self.assertEqual(outcome.questions, [dict(self.QUESTION, answer="cancel")])
        self.assertEqual(outcome.renames, [])
        self.assertEqual(self.names(), ["a.txt", "b.txt"])

    def test_without_an_answer_and_a_terminal_it_is_cancelled(self):
        self.make("a.txt", "b.txt")
        outcome = self.command(30000, "a.txt", "b.txt")
        self.assertEqual(outcome.questions, [dict(self.QUESTION, answer="cancel")])
        self.assertEqual(self.names(), ["a.txt", "b.txt"])

    def test_nothing_is_asked_where_no_name_changes(self):
        self.make("A.TXT", "B")
        outcome = self.command(30000, "A.TXT", "B", answers=["ok"])
        self.assertEqual(outcome.questions, [])
        self.assertIn("answers that were not used: 1", outcome.stderr)

    def test_an_answer_that_the_box_does_not_have_is_a_bad_call_and_renames_nothing(self):
        for answer in ("yes", "no", "text=x", "choice=x"):
            with self.subTest(answer=answer):
                self.setUp()
                self.make("a.txt")
                outcome = self.command(30000, "a.txt", answers=[answer], status=2)
                self.assertIn('"Rename" cannot be answered with ' + answer, outcome.stderr)
                self.assertIn("ok, cancel", outcome.stderr)
                self.assertEqual(self.names(), ["a.txt"])


class Renames(HostTest):
    def test_a_target_that_exists_is_not_replaced_and_the_others_go_on(self):
        self.make("a_b.txt", "a b.txt", "c_d.txt")
        outcome = self.command(30003, "a_b.txt", "c_d.txt", answers=["ok"], status=4)
        self.assertEqual(outcome.renames, [("a_b.txt", "a b.txt", 183), ("c_d.txt", "c d.txt", 0)])
        self.assertEqual(self.names(), ["a b.txt", "a_b.txt", "c d.txt"])
        self.assertEqual((self.content("a b.txt"), self.content("a_b.txt")), ("a b.txt", "a_b.txt"))
        # The system's text is between them.
        self.assertRegex(outcome.stderr, "^qxhost: cannot rename " +
                         re.escape(windows_path(self.path("a_b.txt"))) + r" to a b\.txt: .+exists\. \(183\)\n$")

    def test_a_name_changes_its_case_only(self):
        self.make("a.txt")
        self.assertEqual(self.command(30000, "a.txt", answers=["ok"]).renames, [("a.txt", "A.TXT", 0)])
        self.assertEqual(self.names(), ["A.TXT"])

    def test_an_item_below_a_renamed_folder_goes_before_it(self):
        self.make("old dir/some file.txt", "old dir/in ner/x y.txt")
        outcome = self.command(30005, "old dir", "old dir/some file.txt", "old dir/in ner", "old dir/in ner/x y.txt",
                               answers=["ok"])
        self.assertEqual([result for _, _, result in outcome.renames], [0, 0, 0, 0])
        self.assertEqual(outcome.of("rename")[3]["from"],
                         windows_path(self.path("old dir", "in ner", "x y.txt")))
        self.assertEqual(self.names("old_dir"), ["in_ner/", "some_file.txt"])
        self.assertEqual(self.names("old_dir/in_ner"), ["x_y.txt"])

    def test_items_are_renamed_in_the_order_in_which_they_are_selected(self):
        self.make("c.x", "a.x", "b.x")
        outcome = self.command(30000, "c.x", "a.x", "b.x", answers=["ok"])
        self.assertEqual([old for old, _, _ in outcome.renames], ["c.x", "a.x", "b.x"])

    def test_an_item_that_is_given_twice_is_selected_once(self):
        self.make("a.txt")
        outcome = self.command(30000, "a.txt", "a.txt", answers=["ok"])
        self.assertEqual(outcome.renames, [("a.txt", "A.TXT", 0)])

    def test_a_dry_run_says_what_would_be_and_does_nothing(self):
        self.make("a.txt", "b.txt")
        outcome = self.run_json("--dry-run", "command", "30000", self.path("a.txt"), self.path("b.txt"),
                                answers=["ok"])
        self.assertEqual(outcome.renames, [("a.txt", "A.TXT", 0), ("b.txt", "B.TXT", 0)])
        self.assertEqual(self.names(), ["a.txt", "b.txt"])

    def test_a_dry_run_with_a_text_does_nothing(self):
        self.make("a.txt")
        outcome = self.run_json("--dry-run", "command", "30060", self.path("a.txt"), answers=["text=log"])
        self.assertEqual(outcome.renames, [("a.txt", "a.log", 0)])
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_dry_run_in_prose(self):
        self.make("a.txt")
        outcome = self.process("--dry-run", "--config", self.config, "--answer", "ok", "command", "30000", "a.txt")
        self.assertEqual(outcome.stdout, "[question] Rename: Items to rename: 1. Rename them now? -> ok\n"
                                         "would rename " + windows_path(self.path("a.txt")) + " to A.TXT\n")

    def test_names_of_all_scripts_and_with_blanks(self):
        self.make("  two blanks.txt", "éÀ ñ.txt", "日本 語.txt", "emoji 😀 x.txt", "it's a 'quote'.txt")
        names = self.names()
        outcome = self.command(30005, *names, answers=["ok"])
        self.assertEqual(outcome.stderr, "")
        self.assertEqual(self.names(), sorted(["__two_blanks.txt", "éÀ_ñ.txt", "日本_語.txt", "emoji_😀_x.txt",
                                               "it's_a_'quote'.txt"]))

    def test_many_items_from_standard_input(self):
        names = ["item %05d.txt" % index for index in range(1000)]
        self.make(*names)
        lines = "".join(self.path(name) + "\n" for name in names)
        outcome = self.run_json("--items", "-", "command", "30005", answers=["ok"], stdin=lines.encode())
        self.assertEqual(outcome.renames, [("item %05d.txt" % index, "item_%05d.txt" % index, 0)
                                           for index in range(1000)])
        self.assertEqual(len(self.names()), 1000)


if not IS_WINDOWS:

    class NativeNames(HostTest):
        def test_a_name_that_is_no_utf8_is_found_and_renamed(self):
            name = os.path.join(os.fsencode(self.folder), b"a_\xff\xfe.txt")
            with open(name, "wb"):
                pass
            outcome = self.run_json("--items", "-", "command", "30003", answers=["ok"], stdin=name + b"\n")
            self.assertEqual([event["result"] for event in outcome.of("rename")], [0])
            self.assertEqual(os.listdir(os.fsencode(self.folder)), [b"a \xff\xfe.txt"])

        def test_a_name_that_windows_cannot_have_is_refused_without_harm(self):
            self.make("a:b_c.txt", "d_e.txt")
            outcome = self.command(30003, "a:b_c.txt", "d_e.txt", answers=["ok"], status=4)
            self.assertEqual(outcome.renames, [("a:b_c.txt", "a:b c.txt", 123), ("d_e.txt", "d e.txt", 0)])
            self.assertEqual(self.names(), ["a:b_c.txt", "d e.txt"])
