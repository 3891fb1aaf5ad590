import json
import os

from qxhost import IS_WINDOWS, HostTest, windows_path

ONE_MATCH = ("dialog", "Replace this match?")


class FindAndReplaceMenuTest(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def settings_text(self):
        text = ""
        for name in os.listdir(self.config) if os.path.isdir(self.config) else []:
            with open(os.path.join(self.config, name), encoding="utf-8") as file:
                text += json.dumps(json.load(file))
        return text

    def store(self, options, find, replace):
        """Stores settings like an earlier run of the dialog."""
        os.makedirs(self.config, exist_ok=True)
        with open(os.path.join(self.config, "settings.json"), "w", encoding="utf-8") as file:
            json.dump({"QXUtils": {"FindReplace": {"Find": find, "ReplaceWith": replace, "Options": options}}}, file)

    def changed_line(self, name, count):
        return "[Find and Replace] - %d changes made to file : %s" % (count, windows_path(self.path(name)))

    def shown(self, outcome):
        return [(event["kind"], event["title"]) for event in outcome.questions]


class FindAndReplaceMenu(FindAndReplaceMenuTest):
    """For both builds: the dialog opens with the stored settings and is closed by an answer."""

    def test_without_files_a_box_says_so(self):
        outcome = self.run_json("command", "30151", answers=["ok"])
        self.assertEqual(outcome.questions,
                         [{"event": "question", "kind": "box", "title": "Find and Replace",
                           "text": "No files are selected.", "style": 0x40, "answer": "ok"}])

    def test_without_a_text_to_find_a_box_says_so_and_nothing_is_stored(self):
        self.write("a.txt", b"text\n")
        outcome = self.command(30151, "a.txt", answers=["ok", "ok"])
        self.assertEqual(self.shown(outcome),
                         [("dialog", "Find and Replace in file(s)"), ("box", "Find and Replace")])
        self.assertEqual(outcome.questions[1]["text"], "There is no text to find.")
        self.assertEqual(outcome.questions[1]["style"], 0x40)
        self.assertEqual(self.names(), ["a.txt"])
        self.assertEqual(outcome.of("log"), [])
        self.assertEqual(self.settings_text(), "")

    def test_cancel_stores_nothing_and_changes_nothing(self):
        self.write("a.txt", b"text\n")
        outcome = self.command(30151, "a.txt", answers=["cancel"])
        self.assertEqual([(event["kind"], event["answer"]) for event in outcome.questions], [("dialog", "cancel")])
        self.assertEqual(self.names(), ["a.txt"])
        self.assertEqual(outcome.of("log"), [])
        self.assertEqual(self.settings_text(), "")

    def test_stored_options_are_used_and_each_match_is_asked_about(self):
        self.store(0x20000101, "old", "new")
        self.write("a.txt", b"old\nOLD\n")
        outcome = self.command(30151, "a.txt", answers=["ok"] * 4)
        self.assertEqual(self.shown(outcome), [("dialog", "Find and Replace in file(s)"), ONE_MATCH, ONE_MATCH,
                                               ("box", "Find and Replace")])
        self.assertEqual(self.read("a.txt"), b"new\nnew\n")
        self.assertEqual(self.read("a.txt.bak"), b"old\nOLD\n")
        self.assertEqual(outcome.questions[3]["text"], "Changes made: 2")

    def test_cancel_at_a_match_of_the_second_file_ends_the_run(self):
        self.store(0x20000101, "old", "new")
        for name in ("a.txt", "b.txt", "c.txt"):
            self.write(name, b"old old\n")
        outcome = self.command(30151, "a.txt", "b.txt", "c.txt", answers=["ok", "ok", "ok", "ok", "cancel"])
        self.assertEqual([self.read(name) for name in ("a.txt", "b.txt", "c.txt")],
                         [b"new new\n", b"old old\n", b"old old\n"])
        self.assertEqual([event["text"] for event in outcome.of("log")],
                         [self.changed_line("a.txt", 2),
                          "[Find and Replace] - Failed to Find/Replace text in : "
                          + windows_path(self.path("b.txt")),
                          "[Find and Replace] - Operation cancelled"])
        self.assertEqual(len(outcome.questions), 5)

    def test_a_silent_run_asks_nothing_and_replaces_everything(self):
        self.store(0x40001101, "old", "new")
        self.write("a.txt", b"old OLD\n")
        outcome = self.command(30151, "a.txt", answers=["ok"])
        self.assertEqual(self.shown(outcome), [("dialog", "Find and Replace in file(s)")])
        self.assertEqual(self.names(), ["a.txt"])
        self.assertEqual(self.read("a.txt"), b"new new\n")


if not IS_WINDOWS:

    class FindAndReplaceForms(FindAndReplaceMenuTest):
        def run_form(self, names, form, answers, status=0):
            arguments = []
            for value in form:
                arguments += ["--form", value]
            return self.run_json(*arguments, "command", "30151", *[self.path(name) for name in names],
                                 answers=list(answers), status=status)

        def test_each_match_is_asked_about_and_ok_replaces(self):
            self.write("a.txt", b"old\nthe OLD one\n")
            outcome = self.run_form(["a.txt"], ["find=old", "replace=new"], ["ok"] * 4)
            self.assertEqual(self.read("a.txt"), b"new\nthe new one\n")
            self.assertEqual(self.read("a.txt.bak"), b"old\nthe OLD one\n")
            self.assertEqual(self.shown(outcome), [("dialog", "Find and Replace in file(s)"), ONE_MATCH, ONE_MATCH,
                                                   ("box", "Find and Replace")])
            path = windows_path(self.path("a.txt"))
            self.assertEqual([event["text"] for event in outcome.questions[1:3]],
                             ["File : %s\nFound match: line 0, column 0 to line 0, column 3 (counted from 0)" % path,
                              "File : %s\nFound match: line 1, column 4 to line 1, column 7 (counted from 0)" % path])
            self.assertEqual(outcome.questions[3]["text"], "Changes made: 2")
            self.assertEqual([(event["level"], event["text"]) for event in outcome.of("log")],
                             [(10, self.changed_line("a.txt", 2))])

        def test_answers_of_several_questions_come_in_order(self):
            self.write("a.txt", b"old 1\nold 2\nold 3\nold 4\n")
            self.run_form(["a.txt"],
                          ["find=old", "replace=new", "ConfirmReplaceDlg.result=next",
                           "ConfirmReplaceDlg.result=replace", "ConfirmReplaceDlg.result=next"], ["ok"] * 6)
            self.assertEqual(self.read("a.txt"), b"old 1\nnew 2\nold 3\nnew 4\n")

        def test_replace_all_holds_for_the_files_that_follow(self):
            for name in ("a.txt", "b.txt", "c.txt"):
                self.write(name, b"old old\n")
            outcome = self.run_form(["a.txt", "b.txt", "c.txt"],
                                    ["find=old", "replace=new", "ConfirmReplaceDlg.result=next",
                                     "ConfirmReplaceDlg.result=all"], ["ok"] * 4)
            self.assertEqual([self.read(name) for name in ("a.txt", "b.txt", "c.txt")],
                             [b"old new\n", b"new new\n", b"new new\n"])
            self.assertEqual(len(outcome.questions), 4)
            self.assertEqual(outcome.questions[3]["text"], "Changes made: 5. Files done: 3")

        def test_without_an_answer_left_a_question_is_cancelled(self):
            self.write("a.txt", b"old\n")
            outcome = self.run_form(["a.txt"], ["find=old", "replace=new"], ["ok"])
            self.assertEqual(outcome.questions[1]["answer"], "cancel")
            self.assertEqual(self.read("a.txt"), b"old\n")

        def test_a_new_file_of_one_has_the_suffix(self):
            self.write("a.txt", b"old\n")
            self.run_form(["a.txt"], ["saveMode=new", "find=old", "replace=new", "silent=1"], ["ok"])
            self.assertEqual(self.names(), ["a.txt", "a_replaced.txt"])
            self.assertEqual(self.read("a_replaced.txt"), b"new\n")

        def test_new_files_of_several_have_the_suffix_each(self):
            self.write("a.txt", b"old\n")
            self.write("b", b"old\n")
            self.run_form(["a.txt", "b"], ["saveMode=new", "find=old", "replace=new", "silent=1"], ["ok"])
            self.assertEqual(self.names(), ["a.txt", "a_replaced.txt", "b", "b_replaced"])

        def test_a_name_of_ones_own(self):
            self.write("a.txt", b"old\n")
            self.run_form(["a.txt"], ["saveMode=new", "targetName=*.lst", "find=old", "silent=1"], ["ok"])
            self.assertEqual(self.read("a.lst"), b"\n")

        def test_without_a_backup(self):
            self.write("a.txt", b"old\n")
            self.run_form(["a.txt"], ["saveMode=delete-backup", "find=old", "replace=new", "silent=1"], ["ok"])
            self.assertEqual(self.names(), ["a.txt"])
            self.assertEqual(self.read("a.txt"), b"new\n")

        def test_a_list_of_pairs(self):
            self.write("a.txt", b"colour and grey\n")
            self.run_form(["a.txt"], ["findMode=Many", "find=colour\ngrey", "replace=color\ngray", "silent=1"], ["ok"])
            self.assertEqual(self.read("a.txt"), b"color and gray\n")

        def test_a_list_with_one_replacement(self):
            self.write("a.txt", b"one two three\n")
            self.run_form(["a.txt"], ["findMode=ManySame", "find=one\nthree", "replace=x", "silent=1"], ["ok"])
            self.assertEqual(self.read("a.txt"), b"x two x\n")

        def test_a_block_of_lines(self):
            self.write("a.txt", b"a\nb\nc\n")
            self.run_form(["a.txt"], ["findMode=Multiline", "find=a\nb", "replace=x\ny", "silent=1"], ["ok"])
            self.assertEqual(self.read("a.txt"), b"x\ny\nc\n")

        def test_lists_that_do_not_fit_are_an_error_in_a_box_and_in_the_log(self):
            self.write("a.txt", b"text\n")
            outcome = self.run_form(["a.txt"], ["findMode=Many", "find=a\nb", "replace=x"], ["ok", "ok", "ok"],
                                    status=4)
            text = ("[Find and Replace] Error\r\n==========================\r\n"
                    "Find and Replace item do not match\r\n( ErrorCode : 87 )")
            self.assertEqual(outcome.questions[1], {"event": "question", "kind": "box", "title": "Error",
                                                    "text": text, "style": 0x10, "answer": "ok"})
            self.assertEqual([(event["level"], event["text"]) for event in outcome.of("log")],
                             [(30, text), (10, "[Find and Replace] - Failed to Find/Replace text in : "
                                           + windows_path(self.path("a.txt")))])

        def test_the_texts_of_a_question_can_be_seen_as_utf8(self):
            self.write("a.txt", "\ufeffGr\u00fc\u00dfe\n".encode("utf-8"))
            seen = []
            for form in ([], ["ConfirmReplaceDlg.rawShown=0"]):
                outcome = self.run_form(["a.txt"], ["find=\u00fc", "replace=ue", *form, "ConfirmReplaceDlg.help="],
                                        ["ok", "ok"], status=2)
                seen.append(outcome.stderr)
            self.assertIn("context=\u00ef\u00bb\u00bfGr\u00c3\u00bc\u00c3\u0178e", seen[0])
            self.assertIn("context=\ufeffGr\u00fc\u00dfe", seen[1])

        def test_the_next_dialog_begins_with_the_stored_options(self):
            self.write("a.txt", b"old\n")
            self.run_form(["a.txt"], ["find=old", "replace=new", "silent=1", "saveMode=delete-backup"], ["ok"])
            self.assertIn(str(0x40001101), self.settings_text())
            self.write("a.txt", b"an old one\n")
            self.run_form(["a.txt"], [], ["ok"])
            self.assertEqual(self.read("a.txt"), b"an new one\n")
            self.assertEqual(self.names(), ["a.txt"])

        def test_what_is_longer_than_the_field_keeps_is_cut_off(self):
            self.write("a.txt", b"f" * 1023 + b"!\n")
            outcome = self.run_form(["a.txt"], ["find=" + "f" * 1023 + "?", "replace=x", "silent=1"], ["ok"])
            self.assertIn("it takes at most 1023 characters", outcome.stderr)
            self.assertEqual(self.read("a.txt"), b"x!\n")

        def test_grey_and_hidden_fields_take_no_value(self):
            self.write("a.txt", b"old\n")
            for field in ("regExp=1", "replaceAll=1", "targetName=b.txt"):
                outcome = self.run_form(["a.txt"], ["find=old", field], ["ok"], status=2)
                self.assertIn("the field %s cannot be" % field.partition("=")[0], outcome.stderr)
            self.assertEqual(self.names(), ["a.txt"])
            self.assertEqual(self.settings_text(), "")
