import os
import re

from qxhost import IS_WINDOWS, HostTest, windows_path

if not IS_WINDOWS:
    import pty
    import subprocess

    from qxhost import COMMAND, TIMEOUT_SECONDS


class Help(HostTest):
    def test_help_shows_verbs_options_and_examples(self):
        outcome = self.process("--help")
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))
        for text in ("info", "menu", "command", "--answer", "--form", "--dry-run", "--in-order", "--items", "Examples:",
                     "Exit status:"):
            self.assertIn(text, outcome.stdout)

    def test_help_of_a_verb(self):
        outcome = self.process("command", "--help")
        self.assertEqual(outcome.status, 0)
        self.assertIn("NUMBER|NAME", outcome.stdout)
        self.assertIn("ITEM", outcome.stdout)

    def test_help_of_script_shows_an_example_and_names_two_options(self):
        outcome = self.process("script", "--help")
        self.assertEqual(outcome.status, 0)
        for text in ("script SortLines FILE=", "--answer", "--json", "--list"):
            self.assertIn(text, outcome.stdout)


class Window(HostTest):
    def test_help_of_window_shows_its_options(self):
        outcome = self.process("window", "--help")
        self.assertEqual(outcome.status, 0)
        for text in ("--keep-open", "--screenshot", "window --screenshot window.png *.jpg", "ITEM"):
            self.assertIn(text, outcome.stdout)

    def test_a_dry_run_of_the_window_is_refused(self):
        self.make("a.txt")
        outcome = self.process("--dry-run", "window", "a.txt")
        self.assertEqual(outcome.status, 2)
        self.assertIn("--dry-run applies to renames only", outcome.stderr)

    def test_a_missing_item_is_reported_before_anything_opens(self):
        outcome = self.process("window", "nowhere.txt")
        self.assertEqual(outcome.status, 2)
        self.assertIn("ITEM: nowhere.txt", outcome.stderr)

    if not IS_WINDOWS:

        def test_the_native_build_has_no_window_and_says_what_has(self):
            self.make("a.txt")
            outcome = self.process("window", "a.txt")
            self.assertEqual((outcome.status, outcome.stdout), (2, ""))
            self.assertIn("qxhost rename", outcome.stderr)


class Version(HostTest):
    def test_the_version_is_that_of_the_project_and_of_the_resources(self):
        outcome = self.process("--version")
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))
        version = re.fullmatch(r"qxhost ([0-9]+\.[0-9]+\.[0-9]+\.[0-9]+)\n", outcome.stdout).group(1)
        self.assertIn("project(QXUtils VERSION %s " % version, self.source("CMakeLists.txt"))
        resources = self.source("host/qxhost.rc")
        self.assertIn('VALUE "FileVersion", "%s"' % version, resources)
        self.assertIn("FILEVERSION " + version.replace(".", ", ") + "\n", resources)

    def source(self, name):
        with open(os.path.join(os.path.dirname(__file__), "..", "..", name), encoding="utf-8") as file:
            return file.read()


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
                self.assertIn("\"%s\" is not a command" % number, self.refused("command", number))

    def test_the_nearest_word_is_proposed_for_a_mistyped_one(self):
        self.make("a.txt")
        for call, word in ((["comand", "30000", "a.txt"], "command"),
                           (["--anwser", "ok", "command", "30000", "a.txt"], "--answer"),
                           (["command", "uper-case", "a.txt"], "upper-case"),
                           (["--answer", "okay", "command", "30000", "a.txt"], "ok"),
                           (["script", "SortLine"], "SortLines"),
                           (["script", "SortLines", "FILE=a.txt", "TARGTE=*.x"], "TARGET"),
                           (["upper-case", "a.txt"], "command upper-case")):
            with self.subTest(call=call):
                self.assertIn(". Did you mean %s?" % word, self.refused(*call))
        self.assertEqual(self.names(), ["a.txt"])

    def test_nothing_is_proposed_where_no_word_is_near(self):
        for call in (["frobnicate"], ["--colour", "info"], ["command", "frobnicate"], ["script", "Frobnicate"],
                     ["--answer", "overwrite", "command", "30000"]):
            with self.subTest(call=call):
                self.assertNotIn("Did you mean", self.refused(*call))

    def test_a_beginning_that_several_commands_have_lists_them_and_nothing_is_done(self):
        self.make("a.txt")
        message = self.refused("--answer", "ok", "command", "upper", "a.txt")
        self.assertIn("upper-case, upper-case-base, upper-case-extension", message)
        self.assertEqual(self.names(), ["a.txt"])

    def test_an_item_that_does_not_exist_and_nothing_is_done(self):
        self.make("a.txt")
        message = self.refused("--answer", "ok", "command", "30000", self.path("a.txt"), self.path("missing.txt"))
        self.assertIn(self.path("missing.txt"), message)
        self.assertIn("(2)", message)
        self.assertEqual(self.names(), ["a.txt"])

    def test_an_empty_item_and_a_drive(self):
        self.assertIn("not a path", self.refused("command", "30000", ""))
        self.refused("command", "30000", "/")
        self.refused("command", "30000", "Z:\\")

    def test_the_current_folder_of_a_drive_is_no_item(self):
        for item in ("Z:", "Z:a.txt"):
            with self.subTest(item=item):
                self.make("a.txt")
                self.assertIn("not a path", self.refused("--dry-run", "command", "30000", item))

    def test_a_focused_item_a_view_and_a_panel_must_exist(self):
        self.make("a.txt")
        self.assertIn("--focus", self.refused("--focus", self.path("missing"), "command", "30000"))
        self.assertIn("--view", self.refused("--view", self.path("a.txt"), "command", "30000"))
        self.assertIn("--panel", self.refused("--panel", self.path("missing"), "command", "30000"))

    def test_an_invalid_answer_lists_the_valid_ones(self):
        for answer in ("maybe", "", "OK", "ok ", "text", "choice"):
            with self.subTest(answer=answer):
                self.assertIn("ok, yes, no, cancel, text=TEXT or choice=ROWTEXT",
                              self.refused("--answer", answer, "command", "30000"))

    def test_a_list_of_items_must_be_readable_and_its_items_must_exist(self):
        self.assertIn("--items", self.refused("--items", self.path("missing"), "command", "30000"))
        self.assertIn("nowhere.txt", self.refused("--items", "-", "command", "30000", stdin=b"nowhere.txt\n"))

    def test_a_language_table_must_be_readable(self):
        self.assertIn("language table", self.refused("--language", self.path("missing"), "menu"))


    def test_the_command_of_a_window_is_refused_with_the_verb_that_keeps_it_open(self):
        for command in ("31000", "multi-rename", "multi"):
            with self.subTest(command=command):
                self.assertIn("use `qxhost window`", self.refused("command", command))

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
                    self.assertIn("--dry-run applies to renames", message)
                    self.assertEqual((self.names(), self.content("a.txt")), (["a.txt"], "b\na\n"))
                    self.assertFalse(os.path.exists(self.config))


class CommandNames(HostTest):
    def test_a_command_is_run_by_its_number_its_name_or_a_beginning_of_it(self):
        for command in ("30001", "lower-case", "Lower-Case"):
            with self.subTest(command=command):
                self.make("A.TXT")
                outcome = self.command(command, "A.TXT", answers=["ok"])
                self.assertEqual(outcome.renames, [("A.TXT", "a.txt", 0)])
                os.remove(self.path("a.txt"))
        self.make("A.TXT")
        self.assertEqual(self.command("title-c", "A.TXT", answers=["ok"]).renames, [("A.TXT", "A.txt", 0)])

    def test_a_name_that_begins_another_one_is_its_own_command(self):
        with open(self.path("a.txt"), "wb") as file:
            file.write(b"1\r\n2\r\n")
        self.command("line-ends-to-cr", "a.txt", answers=["yes"])
        with open(self.path("a.txt"), "rb") as file:
            self.assertEqual(file.read(), b"1\r2\r")

    def test_a_dry_run_takes_names_too(self):
        self.make("a.txt")
        self.run_json("--dry-run", "command", "upper-case", self.path("a.txt"), answers=["ok"])
        self.assertEqual(self.names(), ["a.txt"])
        outcome = self.process("--dry-run", "command", "sort-lines", self.path("a.txt"))
        self.assertEqual((outcome.status, outcome.stdout), (2, ""))
        self.assertIn("the command sort-lines (30150)", outcome.stderr)


class ExitStatus(HostTest):
    def test_0_when_all_was_done_and_when_a_question_was_cancelled(self):
        self.make("a.txt")
        self.command(30000, "a.txt", answers=["cancel"], status=0)
        self.command(30000, "a.txt", answers=["ok"], status=0)

    def test_0_when_a_name_stays_in_a_batch(self):
        self.make("a.c", "b.h")
        outcome = self.run_json("--focus", self.path("a.c"), "command", "30020", answers=["text=a"], status=0)
        self.assertEqual([result for _, _, result in outcome.renames], [10])

    def test_4_when_one_rename_of_several_fails_and_the_others_are_done(self):
        self.make("a_b", "a b", "c_d")
        outcome = self.command(30003, "a_b", "c_d", answers=["ok"], status=4)
        self.assertEqual([result for _, _, result in outcome.renames], [183, 0])
        self.assertEqual(self.names(), ["a b", "a_b", "c d"])

    def test_4_when_a_rename_of_a_dry_run_would_fail(self):
        self.make("a_b", "a b")
        self.run_json("--dry-run", "command", "30003", self.path("a_b"), answers=["ok"], status=4)
        self.assertEqual(self.names(), ["a b", "a_b"])

    def test_4_when_files_are_handed_back_as_failed(self):
        with open(self.path("a.bin"), "wb") as file:
            file.write(bytes(range(256)) * 8)
        outcome = self.run_json("script", "SortLines", "FILE=" + self.path("a.bin"), "TARGET=*.x", "SILENT", status=4)
        failed = [event["items"] for event in outcome.of("list") if event["marker"] == 1]
        self.assertEqual(failed, [[windows_path(self.path("a.bin"))]])

    def test_0_when_the_list_of_failed_files_is_empty(self):
        self.make("a.txt")
        outcome = self.run_json("script", "SortLines", "FILE=" + self.path("a.txt"), "TARGET=*.x", "SILENT", status=0)
        self.assertIn([], [event["items"] for event in outcome.of("list") if event["marker"] == 1])

    def test_1_is_kept_when_the_module_did_not_handle_the_command(self):
        outcome = self.command(30009, status=1)
        self.assertIn("the menu has no such number", outcome.stderr)

    def test_2_comes_before_4(self):
        with open(self.path("a.bin"), "wb") as file:
            file.write(bytes(range(256)) * 8)
        call = ["script", "SortLines", "FILE=" + self.path("a.bin"), "TARGET=*.x"]
        self.run_json(*call, answers=["ok"], status=4)
        # The closing message only has the button OK.
        outcome = self.run_json(*call, answers=["yes"], status=2)
        self.assertEqual([event["marker"] for event in outcome.of("list") if event["items"]], [1])


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
            outcome = self.run_json("command", "30000", item, answers=["ok"], cwd=self.path("inner"), status=4)
            self.assertEqual([rename["result"] for rename in outcome.of("rename")], [32])
        self.assertEqual(self.names(), ["inner/"])
        # A sibling folder whose name is a prefix of it can be renamed.
        self.make("inn/")
        self.run_json("command", "30000", self.path("inn"), answers=["ok"], cwd=self.path("inner"))
        self.assertEqual(self.names(), ["INN/", "inner/"])

    def test_names_that_the_command_line_could_mistake_are_names(self):
        names = ["[a,b]", "menu", "info", "a=b", "%d", "{x}", "@file", "#x"]
        self.make(*names)
        outcome = self.run_json("command", "30000", *names, answers=["ok"])
        self.assertEqual([old for old, _, _ in outcome.renames], names)
        self.assertEqual(self.names(), sorted(["[A,B]", "MENU", "INFO", "A=B", "%D", "{X}", "@FILE", "#X"]))

    def test_a_name_that_begins_with_a_hyphen_follows_two(self):
        self.make("-x.txt")
        self.run_json("command", "30000", "--", "-x.txt", answers=["ok"])
        self.assertEqual(self.names(), ["-X.TXT"])

    def test_options_may_follow_the_verb(self):
        self.make("a.txt")
        outcome = self.process("command", "30000", "a.txt", "--answer", "ok", "--json", "--config", self.config)
        self.assertEqual(outcome.status, 0, outcome.stderr)
        self.assertEqual(self.names(), ["A.TXT"])

    def test_a_folder_may_end_in_a_separator(self):
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
            """Runs qxhost at a terminal on which these lines are typed."""
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

        def test_answers_are_used_before_the_terminal(self):
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
