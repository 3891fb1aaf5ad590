import os

from qxhost import IS_WINDOWS, HostTest, windows_path

if not IS_WINDOWS:
    import pty
    import subprocess

    from qxhost import COMMAND, TIMEOUT_SECONDS


class Help(HostTest):
    def test_help_shows_verbs_options_and_examples(self):
        outcome = self.process("--help")
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))
        for text in ("info", "menu", "command", "--answer", "--form", "--dry-run", "--items", "Examples:",
                     "Exit status:"):
            self.assertIn(text, outcome.stdout)

    def test_help_of_a_verb(self):
        outcome = self.process("command", "--help")
        self.assertEqual(outcome.status, 0)
        self.assertIn("NUMBER", outcome.stdout)
        self.assertIn("ITEM", outcome.stdout)

    def test_help_of_script_shows_an_example_and_names_two_options(self):
        outcome = self.process("script", "--help")
        self.assertEqual(outcome.status, 0)
        for text in ("script SortLines FILE=", "--answer", "--json", "--list"):
            self.assertIn(text, outcome.stdout)


class BadCalls(HostTest):
    def refused(self, *arguments, **keywords):
        outcome = self.process("--config", self.config, *arguments, **keywords)
        self.assertEqual((outcome.status, outcome.stdout), (2, ""))
        self.assertTrue(outcome.stderr.startswith("qxhost: "), outcome.stderr)
        return outcome.stderr

    def test_a_call_without_a_verb_says_which_there_are(self):
        self.assertIn("info, menu, command", self.refused())

    def test_an_unknown_verb(self):
        self.assertIn("frobnicate", self.refused("frobnicate"))

    def test_an_unknown_option(self):
        self.assertIn("--colour", self.refused("--colour", "info"))

    def test_an_option_without_its_value(self):
        self.assertIn("--module", self.refused("info", "--module"))

    def test_a_command_without_a_number(self):
        self.assertIn("NUMBER", self.refused("command"))

    def test_a_number_that_is_none(self):
        for number in ("x", "30000x", "", "99999999999", "0x7530"):
            with self.subTest(number=number):
                self.assertIn("no command number", self.refused("command", number))

    def test_an_item_that_does_not_exist_and_nothing_is_done(self):
        self.make("a.txt")
        message = self.refused("--answer", "ok", "command", "30000", self.path("a.txt"), self.path("missing.txt"))
        self.assertIn(self.path("missing.txt"), message)
        self.assertIn("(2)", message)
        self.assertEqual(self.names(), ["a.txt"])

    def test_an_empty_item_and_a_drive(self):
        self.assertIn("no path", self.refused("command", "30000", ""))
        self.refused("command", "30000", "/")
        self.refused("command", "30000", "Z:\\")

    def test_the_current_folder_of_a_drive_is_no_item(self):
        for item in ("Z:", "Z:a.txt"):
            with self.subTest(item=item):
                self.make("a.txt")
                self.assertIn("no path", self.refused("--dry-run", "command", "30000", item))

    def test_a_focused_item_a_view_and_a_panel_must_exist(self):
        self.make("a.txt")
        self.assertIn("--focus", self.refused("--focus", self.path("missing"), "command", "30000"))
        self.assertIn("--view", self.refused("--view", self.path("a.txt"), "command", "30000"))
        self.assertIn("--panel", self.refused("--panel", self.path("missing"), "command", "30000"))

    def test_an_answer_that_is_none_names_the_ones_there_are(self):
        for answer in ("maybe", "", "OK", "ok ", "text", "choice"):
            with self.subTest(answer=answer):
                self.assertIn("ok, yes, no, cancel, text=TEXT or choice=ROWTEXT",
                              self.refused("--answer", answer, "command", "30000"))

    def test_a_list_of_items_must_be_readable_and_its_items_must_exist(self):
        self.assertIn("--items", self.refused("--items", self.path("missing"), "command", "30000"))
        self.assertIn("nowhere.txt", self.refused("--items", "-", "command", "30000", stdin=b"nowhere.txt\n"))

    def test_a_language_table_must_be_readable(self):
        self.assertIn("language table", self.refused("--language", self.path("missing"), "menu"))


    def test_a_dry_run_is_refused_before_anything_runs_where_more_than_names_would_change(self):
        with open(self.path("a.txt"), "w", encoding="utf-8") as file:
            file.write("b\na\n")
        calls = [["command", "30150", "a.txt"], ["command", "31000"], ["command", "30260", "a.txt"],
                 ["command", "40000"]]
        for saving in (["TARGET=*.sorted"], ["TARGET=*.*", "OVERWRITE"], ["TARGET=*.*", "KEEPBACKUP"],
                       ["TARGET=*.*", "DELETE"], []):
            calls.append(["script", "SortLines", "FILE=a.txt", "SILENT"] + saving)
        calls.append(["script", "CreateLink", "LNKTYPE=1", "LNKSRC=" + self.path("new"), "LNKTRG=a.txt"])
        calls.append(["script", "FindAndReplace", "FILE=a.txt", "FIND=a", "REPLACEWITH=b", "TARGET=*.*", "SILENT"])
        for call in calls:
            for front in ([], ["--json"]):
                with self.subTest(call=call, front=front):
                    message = self.refused("--dry-run", "--answer", "ok", "--answer", "ok", *front, *call)
                    self.assertIn("--dry-run holds back renames", message)
                    self.assertEqual((self.names(), self.content("a.txt")), (["a.txt"], "b\na\n"))
                    self.assertFalse(os.path.exists(self.config))


class FailingModules(HostTest):
    def test_a_module_that_is_not_there(self):
        outcome = self.process("--module", self.path("missing"), "info")
        self.assertEqual((outcome.status, outcome.stdout), (3, ""))
        self.assertIn("cannot load the module", outcome.stderr)

    def test_a_file_that_is_no_module(self):
        self.make("text.dll")
        outcome = self.process("--module", self.path("text.dll"), "command", "30000")
        self.assertEqual(outcome.status, 3)
        self.assertIn("cannot load the module", outcome.stderr)


class Items(HostTest):
    def test_paths_may_be_written_in_both_ways(self):
        self.make("a.txt", "b.txt")
        outcome = self.run_json("command", "30000", self.path("a.txt"), windows_path(self.path("b.txt")),
                                answers=["ok"])
        self.assertEqual([event["from"] for event in outcome.of("rename")],
                         [windows_path(self.path("a.txt")), windows_path(self.path("b.txt"))])
        self.assertEqual(self.names(), ["A.TXT", "B.TXT"])

    def test_a_relative_path_begins_at_the_current_folder(self):
        self.make("sub/a.txt", "b.txt")
        outcome = self.run_json("command", "30000", "../b.txt", "./a.txt", answers=["ok"], cwd=self.path("sub"))
        self.assertEqual([event["from"] for event in outcome.of("rename")],
                         [windows_path(self.path("b.txt")), windows_path(self.path("sub", "a.txt"))])

    def test_the_current_folder_and_those_above_it_are_not_renamed(self):
        self.make("inner/")
        for item in (".", "..", self.folder):
            outcome = self.run_json("command", "30000", item, answers=["ok"], cwd=self.path("inner"))
            self.assertEqual([rename["result"] for rename in outcome.of("rename")], [32])
        self.assertEqual(self.names(), ["inner/"])
        # A folder beside it whose name begins alike is another one.
        self.make("inn/")
        self.run_json("command", "30000", self.path("inn"), answers=["ok"], cwd=self.path("inner"))
        self.assertEqual(self.names(), ["INN/", "inner/"])

    def test_names_that_the_command_line_could_mistake_are_names(self):
        names = ["[a,b]", "menu", "info", "a=b", "%d", "{x}", "@file", "#x"]
        self.make(*names)
        outcome = self.run_json("command", "30000", *names, answers=["ok"])
        self.assertEqual([old for old, _, _ in outcome.renames], names)
        self.assertEqual(self.names(), sorted(["[A,B]", "MENU", "INFO", "A=B", "%D", "{X}", "@FILE", "#X"]))

    def test_a_name_that_begins_with_a_hyphen_stands_behind_two(self):
        self.make("-x.txt")
        self.run_json("command", "30000", "--", "-x.txt", answers=["ok"])
        self.assertEqual(self.names(), ["-X.TXT"])

    def test_options_may_stand_behind_the_verb(self):
        self.make("a.txt")
        outcome = self.process("command", "30000", "a.txt", "--answer", "ok", "--json", "--config", self.config)
        self.assertEqual(outcome.status, 0, outcome.stderr)
        self.assertEqual(self.names(), ["A.TXT"])

    def test_a_folder_may_have_a_separator_behind_it(self):
        self.make("dir/")
        self.run_json("command", "30000", self.path("dir") + "/", answers=["ok"])
        self.assertEqual(self.names(), ["DIR/"])

    def test_a_list_of_items_follows_those_of_the_call(self):
        self.make("a.x", "b.x", "c ä.x")
        listed = os.path.join(self.scratch, "list.txt")
        with open(listed, "wb") as file:
            file.write("\ufeff".encode() + self.path("c ä.x").encode() + b"\r\n\r\n" + self.path("a.x").encode())
        outcome = self.run_json("--items", listed, "command", "30000", self.path("b.x"), answers=["ok"])
        self.assertEqual([old for old, _, _ in outcome.renames], ["b.x", "c ä.x", "a.x"])


if not IS_WINDOWS:

    class Terminal(HostTest):
        def run_at_terminal(self, typed, *arguments):
            """Runs qxhost with these lines typed at its terminal."""
            person, terminal = pty.openpty()
            try:
                os.write(person, typed.encode())
                done = subprocess.run(COMMAND + ["--config", self.config, *arguments], stdin=terminal,
                                      capture_output=True, cwd=self.folder, timeout=TIMEOUT_SECONDS, check=False)
            finally:
                os.close(terminal)
                os.close(person)
            self.assertEqual(done.returncode, 0)
            return done.stdout.decode(), done.stderr.decode()

        def test_a_box_is_asked_until_a_button_is_named(self):
            self.make("a.txt")
            _, prompt = self.run_at_terminal("maybe\nok\n", "command", "30000", "a.txt")
            self.assertIn("Items to rename: 1. Rename them now?", prompt)
            self.assertIn("Please type one of: ok, cancel", prompt)
            self.assertEqual(self.names(), ["A.TXT"])

        def test_the_first_letter_of_a_button_will_do_in_any_case(self):
            self.make("a.txt")
            self.run_at_terminal("O\n", "command", "30000", "a.txt")
            self.assertEqual(self.names(), ["A.TXT"])

        def test_enter_presses_the_only_button(self):
            with open(self.path("a.txt"), "w", encoding="utf-8") as file:
                file.write("b\na\n")
            _, prompt = self.run_at_terminal("\n", "script", "SortLines", "FILE=a.txt", "TARGET=b.txt")
            self.assertTrue(prompt.endswith("Files sorted: 1\n(ok) "), prompt)
            self.assertEqual(self.content("b.txt"), "a\nb\n")

        def test_a_text_is_asked_and_an_empty_line_takes_what_is_offered(self):
            self.make("a.txt", "b.md")
            _, prompt = self.run_at_terminal("\n", "command", "30060", "a.txt", "b.md")
            self.assertIn("[txt]", prompt)
            self.assertEqual(self.names(), ["a.txt", "b.txt"])

        def test_an_empty_line_cancels_where_nothing_is_offered(self):
            self.make("a.c", "a.h")
            _, prompt = self.run_at_terminal("\n", "command", "30020", "a.c")
            self.assertIn("an empty line cancels", prompt)
            self.assertEqual(self.names(), ["a.c", "a.h"])

        def test_a_dialog_is_filled_line_by_line(self):
            self.make("a.txt")
            self.run_at_terminal("find=a\nnothing=x\nreplace=b\nok\nok\n", "command", "30010", "a.txt")
            self.assertEqual(self.names(), ["b.txt"])

        def test_the_end_of_input_cancels(self):
            self.make("a.txt")
            _, prompt = self.run_at_terminal("\x04", "command", "30000", "a.txt")
            self.assertTrue(prompt.endswith("(ok, cancel) \n"), prompt)
            self.assertEqual(self.names(), ["a.txt"])

        def test_answers_come_before_the_terminal(self):
            self.make("a.txt")
            self.run_at_terminal("cancel\n", "--answer", "ok", "command", "30000", "a.txt")
            self.assertEqual(self.names(), ["A.TXT"])

    class Output(HostTest):
        def test_output_that_cannot_be_written_is_no_success(self):
            with open("/dev/full", "wb") as full:
                done = subprocess.run(COMMAND + ["info"], stdout=full, stderr=subprocess.PIPE,
                                      timeout=TIMEOUT_SECONDS, check=False)
            self.assertEqual(done.returncode, 3)
            self.assertIn(b"cannot write the output", done.stderr)
