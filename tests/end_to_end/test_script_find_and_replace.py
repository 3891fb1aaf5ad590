import os
import stat

from qxhost import IS_WINDOWS, HostTest, windows_path

YES_NO_CANCEL = {"event": "question", "kind": "box", "title": "Find and Replace",
                 "text": "The target file exists already. Overwrite it?", "style": 0x23}


class FindTest(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def script(self, name, find, replace, *parameters, target="*.new", silent=True, **keywords):
        """Runs FindAndReplace on a file of the folder, silently by default. None omits a parameter."""
        call = ["script", "FindAndReplace", "FILE=" + self.path(name)]
        for key, value in (("TARGET", target), ("FIND", find), ("REPLACEWITH", replace)):
            if value is not None:
                call.append(key + "=" + value)
        if silent:
            call.append("SILENT")
        return self.run_json(*call, *parameters, **keywords)

    def replaced(self, data, find, replace, *parameters, changes):
        """Returns these bytes after the run, which must make this number of changes."""
        self.write("in.txt", data)
        outcome = self.script("in.txt", find, replace, *parameters)
        self.assertEqual(outcome.events[:-1], [self.changes_line(changes, "in.txt")] + self.lists(done=["in.txt"]))
        self.assertEqual(self.read("in.txt"), data)
        if not changes:
            self.assertEqual(self.names(), ["in.txt"])
            return data
        result = self.read("in.new")
        os.remove(self.path("in.new"))
        return result

    def log(self, level, text):
        return {"event": "log", "category": 0, "level": level, "text": text}

    def changes_line(self, changes, source):
        return self.log(10, "[Find and Replace] - %d changes made to file : %s"
                        % (changes, windows_path(self.path(source))))

    def failed_line(self, source):
        return self.log(10, "[Find and Replace] - Failed to Find/Replace text in : " + windows_path(self.path(source)))

    def exists_line(self, target):
        return self.log(10, "[Find and Replace] - File already exists. Do not overwrite : "
                        + windows_path(self.path(target)))

    def cancelled_line(self):
        return self.log(10, "[Find and Replace] - Operation cancelled")

    def error_text(self, code, text):
        return ("[Find and Replace] Error\r\n==========================\r\n%s\r\n( ErrorCode : %d )" % (text, code))

    def error_line(self, code, text):
        return self.log(30, self.error_text(code, text))

    def lists(self, done=(), failed=()):
        """Returns the lists that are handed back; the list of failed files only if there are any."""
        rows = [(0, done)] + ([(1, failed)] if failed else [])
        return [{"event": "list", "request": 21120, "marker": marker,
                 "items": [windows_path(self.path(name)) for name in names]} for marker, names in rows]


class Modes(FindTest):
    def test_one_text(self):
        self.assertEqual(self.replaced(b"one two\ntwo\n", "two", "2", changes=2), b"one 2\n2\n")

    def test_letter_case_counts(self):
        self.assertEqual(self.replaced(b"two Two TWO\n", "Two", "2", changes=1), b"two 2 TWO\n")

    def test_ignorecase_and_overwrite_have_no_effect_by_design(self):
        self.assertEqual(self.replaced(b"two Two\n", "two", "2", "IGNORECASE", changes=1), b"2 Two\n")
        self.write("in.new", b"old")
        outcome = self.script("in.txt", "two", "2", "OVERWRITE", status=4)
        self.assertEqual(outcome.of("log"), [self.exists_line("in.new")])
        self.assertEqual(self.read("in.new"), b"old")

    def test_one_takes_the_first_lines_alone(self):
        self.assertEqual(self.replaced(b"a b\n", "a\\nb", "x\\ny", "MODE=One", changes=1), b"x b\n")

    def test_many_pairs(self):
        self.assertEqual(self.replaced(b"a b c\n", "a\\nc", "1\\n3", "MODE=Many", changes=2), b"1 b 3\n")

    def test_many_the_same(self):
        self.assertEqual(self.replaced(b"a b c\n", "a\\nc", "x", "MODE=manysame", changes=2), b"x b x\n")

    def test_a_block_of_lines(self):
        self.assertEqual(self.replaced(b"1a2\nb3\nend\n", "a\\nb", "x\\ny", "MODE=Multiline", changes=1),
                         b"1x\ny3\nend\n")
        self.assertEqual(self.replaced(b"a\r\nb\r\na\r\nb\r\n", "a\\nb", "x\\ny", "MODE=MULTILINE", changes=2),
                         b"x\r\ny\r\nx\r\ny\r\n")

    def test_an_unknown_mode_is_one_by_design(self):
        self.assertEqual(self.replaced(b"a b\n", "a", "x", "MODE=All", changes=1), b"x b\n")
        self.assertEqual(self.replaced(b"a b\n", "a", "x", "MODE=", changes=1), b"x b\n")

    def test_wildcards(self):
        self.assertEqual(self.replaced(b"xabcx a.c\n", "a?c", "-", "WILDCARD", changes=2), b"x-x -\n")
        self.assertEqual(self.replaced(b"key=value # note\n", "#*", "# gone", "WILDCARD", changes=1),
                         b"key=value # gone\n")
        self.assertEqual(self.replaced(b"abc a?c\n", "a?c", "-", changes=1), b"abc -\n")

    def test_the_replacement_is_literal(self):
        self.assertEqual(self.replaced(b"abc\n", "b", "$&\\1\\t%s", changes=1), b"a$&\\1\\t%sc\n")

    def test_nothing_found(self):
        self.assertEqual(self.replaced(b"one\n", "two", "2", changes=0), b"one\n")
        self.assertEqual(self.replaced(b"", "two", "2", changes=0), b"")

    def test_values_that_look_like_options_or_have_equals_signs(self):
        self.assertEqual(self.replaced(b"a=--b\n", "a=--", "-x=", changes=1), b"-x=b\n")

    def test_a_large_file(self):
        lines = 50000
        self.assertEqual(self.replaced(b"one line with two in it\r\n" * lines, "two", "2", changes=lines),
                         b"one line with 2 in it\r\n" * lines)


class Encodings(FindTest):
    def test_ansi(self):
        self.assertEqual(self.replaced("plain text für\n".encode("cp1252"), "ü", "ä", changes=1),
                         "plain text fär\n".encode("cp1252"))

    def test_utf_8_with_its_mark(self):
        self.assertEqual(self.replaced("\ufefffür Ω\n".encode(), "r Ω", "Ж", changes=1), "\ufefffüЖ\n".encode())

    def test_utf_8_without_its_mark_needs_forceutf8(self):
        data = "plain text für\n".encode()
        self.assertEqual(self.replaced(data, "ü", "ä", changes=0), data)
        self.assertEqual(self.replaced(data, "ü", "ä", "FORCEUTF8", changes=1), "plain text fär\n".encode())

    def test_utf_16(self):
        self.assertEqual(self.replaced("\ufefffür Ω\r\n".encode("utf-16-le"), "Ω", "Ж€", changes=1),
                         "\ufefffür Ж€\r\n".encode("utf-16-le"))

    def test_line_ends_stay(self):
        self.assertEqual(self.replaced(b"two\r\ntwo", "two", "2", changes=2), b"2\r\n2")
        self.assertEqual(self.replaced(b"two\ntwo\n", "two", "2", changes=2), b"2\n2\n")

    def test_a_lone_cr_is_dropped_by_design(self):
        self.assertEqual(self.replaced(b"a\rb two\n", "two", "2", changes=1), b"ab 2\n")

    def test_names_and_paths_beyond_the_code_page(self):
        os.mkdir(self.path("Ордер"))
        self.write("Ордер/файл ü.txt", b"two\n")
        outcome = self.script("Ордер/файл ü.txt", "two", "2", target="новый.*")
        self.assertEqual(outcome.of("log"), [self.changes_line(1, "Ордер/файл ü.txt")])
        self.assertEqual(self.read("Ордер/новый.txt"), b"2\n")


class Saving(FindTest):
    def test_a_new_file_of_another_extension(self):
        self.write("a.log", b"two\n")
        self.script("a.log", "two", "2", target="*.txt")
        self.assertEqual((self.names(), self.read("a.txt")), (["a.log", "a.txt"], b"2\n"))

    def test_an_existing_target_is_skipped_in_silence_and_counts_as_failed(self):
        self.write("a.txt", b"two\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", "two", "2", target="old.txt", status=4)
        self.assertEqual(outcome.events[:-1], [self.exists_line("old.txt")] + self.lists(failed=["a.txt"]))
        self.assertEqual(self.read("old.txt"), b"old")

    def test_the_file_itself_is_skipped_in_silence(self):
        self.write("a.txt", b"two\n")
        outcome = self.script("a.txt", "two", "2", target="*.*", status=4)
        self.assertEqual(outcome.of("log"), [self.exists_line("a.txt")])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"two\n"))

    def test_keep_backup_twice(self):
        self.write("a.txt", b"one\n")
        for before, after in (("one", "two"), ("two", "three")):
            outcome = self.script("a.txt", before, after, "KEEPBACKUP", "DELETE", target="*.*")
            self.assertEqual(outcome.events[:-1], [self.changes_line(1, "a.txt")] + self.lists(done=["a.txt"]))
        self.assertEqual(self.names(), ["a.txt", "a.txt.bak", "a.txt_(0002).bak"])
        self.assertEqual(self.read("a.txt"), b"three\n")
        self.assertEqual(self.read("a.txt.bak"), b"one\n")
        self.assertEqual(self.read("a.txt_(0002).bak"), b"two\n")

    def test_no_change_makes_no_backup_and_keeps_the_date(self):
        self.write("a.txt", b"one\n")
        os.utime(self.path("a.txt"), (1000000000, 1000000000))
        for saving in ("KEEPBACKUP", "DELETE"):
            outcome = self.script("a.txt", "two", "2", saving, target="*.*")
            self.assertEqual(outcome.of("log"), [self.changes_line(0, "a.txt")])
        self.assertEqual(self.names(), ["a.txt"])
        self.assertEqual(os.stat(self.path("a.txt")).st_mtime, 1000000000)

    def test_delete_leaves_the_new_file_alone(self):
        self.write("a.txt", b"two\n")
        outcome = self.script("a.txt", "two", "2", "DELETE", target="*.*")
        self.assertEqual(outcome.of("log"), [self.changes_line(1, "a.txt")])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"2\n"))

    def test_delete_replaces_a_read_only_file(self):
        self.write("a.txt", b"two\n")
        os.chmod(self.path("a.txt"), stat.S_IRUSR)
        outcome = self.script("a.txt", "two", "2", "DELETE", target="*.*")
        self.assertEqual(outcome.of("log"), [self.changes_line(1, "a.txt")])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"2\n"))

    def test_delete_with_a_new_name_leaves_what_was_written(self):
        self.write("a.txt", b"two\n")
        outcome = self.script("a.txt", "two", "2", "DELETE", target="new.txt")
        self.assertEqual(outcome.of("log"), [self.changes_line(1, "a.txt")])
        self.assertEqual(self.names(), ["a.txt", "new.txt"])
        self.assertEqual((self.read("a.txt"), self.read("new.txt")), (b"two\n", b"2\n"))

    def test_delete_and_keep_backup_are_about_the_target(self):
        self.write("a.txt", b"two\n")
        self.write("old.txt", b"old")
        self.script("a.txt", "two", "2", "KEEPBACKUP", target="old.txt")
        self.assertEqual(self.names(), ["a.txt", "old.txt", "old.txt.bak"])
        self.assertEqual((self.read("old.txt"), self.read("old.txt.bak")), (b"2\n", b"old"))
        self.script("a.txt", "two", "3", "DELETE", target="old.txt")
        self.assertEqual(self.names(), ["a.txt", "old.txt", "old.txt.bak"])
        self.assertEqual((self.read("a.txt"), self.read("old.txt")), (b"two\n", b"3\n"))

    def test_an_empty_target_is_the_folder_by_design(self):
        self.write("a.txt", b"two\n")
        outcome = self.script("a.txt", "two", "2", target="", status=4)
        line = self.exists_line("")
        self.assertTrue(line["text"].endswith("\\files\\"), line)
        self.assertEqual(outcome.events[:-1], [line] + self.lists(failed=["a.txt"]))
        self.assertEqual(self.names(), ["a.txt"])


class Failures(FindTest):
    def test_a_file_that_is_not_there(self):
        outcome = self.script("none.txt", "two", "2", status=1)
        self.assertEqual(outcome.events[:-1],
                         [self.log(30, "[Custom Cmd - FindAndReplace] - FILE : %s not found"
                                   % windows_path(self.path("none.txt")))])
        self.assertEqual(self.names(), [])

    def test_without_target_nothing_happens(self):
        self.write("a.txt", b"two\n")
        outcome = self.script("a.txt", "two", "2", target=None, status=1)
        self.assertEqual(outcome.events[:-1], [])
        self.assertIn("TARGET must be given", outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])

    def test_empty_texts_do_nothing(self):
        self.write("a.txt", b"two\n")
        for find, replace in (("", "2"), ("two", "")):
            outcome = self.script("a.txt", find, replace, status=1)
            self.assertEqual(outcome.events[:-1], [])
            self.assertIn("must not be empty", outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])

    def test_required_parameters(self):
        self.make("a.txt")
        whole = {"FILE": self.path("a.txt"), "TARGET": "*.new", "FIND": "a", "REPLACEWITH": "b"}
        for missing in ("FILE", "FIND", "REPLACEWITH"):
            given = [key + "=" + value for key, value in whole.items() if key != missing]
            outcome = self.process("--config", self.config, "script", "FindAndReplace", *given)
            self.assertEqual((outcome.status, outcome.stdout), (2, ""))
            self.assertIn(missing, outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_binary_file_is_reported_and_counts_as_done(self):
        data = b"\x00\x01\x02two\n\x00\xff\x03"
        self.write("a.bin", data)
        outcome = self.script("a.bin", "two", "2", "KEEPBACKUP", target="*.*")
        self.assertEqual(outcome.events[:-1],
                         [self.error_line(11, "File is not detected as a text file. Unsupported file format"),
                          self.changes_line(0, "a.bin")] + self.lists(done=["a.bin"]))
        self.assertEqual((self.names(), self.read("a.bin")), (["a.bin"], data))

    def failed(self, code, text, find, replace, *parameters, data=b"a b\n"):
        self.write("a.txt", data)
        outcome = self.script("a.txt", find, replace, "KEEPBACKUP", *parameters, target="*.*", status=4)
        self.assertEqual(outcome.events[:-1],
                         [self.error_line(code, text), self.failed_line("a.txt")] + self.lists(failed=["a.txt"]))
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], data))

    def test_lists_that_do_not_fit(self):
        self.failed(87, "Find and Replace item do not match", "a\\nb", "x", "MODE=Many")
        self.failed(87, "Find match are too short. Atleast one character need", "\\nb", "x")

    def test_a_text_that_an_earlier_pair_has_replaced(self):
        self.failed(87, "Text part not found", "a b\\na", "x\\ny", "MODE=Many")

    def test_an_asterisk_alone(self):
        self.failed(87, "Text part not found", "*", "x", "WILDCARD")

    def test_a_target_that_cannot_be_made(self):
        self.write("a.txt", b"two\n")
        outcome = self.script("a.txt", "two", "2", target="none\\a.new", status=4)
        path = windows_path(self.path("none", "a.new"))
        self.assertEqual(outcome.events[:-1],
                         [self.error_line(3, "Unable to open file for writing : " + path), self.failed_line("a.txt")]
                         + self.lists(failed=["a.txt"]))
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"two\n"))


class Questions(FindTest):
    def summary(self, changes):
        return {"event": "question", "kind": "box", "title": "Find and Replace",
                "text": "Changes made: %d" % changes, "style": 0x40, "answer": "ok"}

    def test_yes_overwrites_and_a_summary_closes_the_run(self):
        self.write("a.txt", b"two two\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", "two", "2", "REPLACEALL", target="old.txt", silent=False, answers=["yes", "ok"])
        self.assertEqual(outcome.events[:-1],
                         [dict(YES_NO_CANCEL, answer="yes"), self.changes_line(2, "a.txt")]
                         + self.lists(done=["a.txt"]) + [self.summary(2)])
        self.assertEqual(self.read("old.txt"), b"2 2\n")

    def test_yes_overwrites_the_file_itself(self):
        self.write("a.txt", b"two\n")
        self.script("a.txt", "two", "2", "REPLACEALL", target="*.*", silent=False, answers=["yes", "ok"])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"2\n"))

    def test_no_skips_and_the_summary_counts_no_file(self):
        self.write("a.txt", b"two\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", "two", "2", "REPLACEALL", target="old.txt", silent=False,
                              answers=["no", "ok"], status=4)
        self.assertEqual(outcome.events[:-1],
                         [dict(YES_NO_CANCEL, answer="no"), self.exists_line("old.txt")] + self.lists(failed=["a.txt"])
                         + [dict(self.summary(0), text="Changes made: 0. Files done: 0")])
        self.assertEqual(self.read("old.txt"), b"old")

    def test_cancel_ends_it_with_its_line(self):
        self.write("a.txt", b"two\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", "two", "2", "REPLACEALL", target="old.txt", silent=False, answers=["cancel"])
        self.assertEqual(outcome.events[:-1], [dict(YES_NO_CANCEL, answer="cancel"), self.cancelled_line()])
        self.assertEqual(self.read("old.txt"), b"old")

    def test_an_error_is_shown_and_logged_and_lowers_the_sum_by_design(self):
        self.write("a.txt", b"a\n")
        outcome = self.script("a.txt", "a\\nb", "x", "MODE=Many", "REPLACEALL", silent=False, answers=["ok", "ok"],
                              status=4)
        questions = outcome.questions
        self.assertEqual([(question["title"], question["text"].replace("\r\n", "\n"), question["answer"])
                          for question in questions[:1]],
                         [("Error", self.error_text(87, "Find and Replace item do not match").replace("\r\n", "\n"),
                           "ok")])
        self.assertEqual(questions[1:], [dict(self.summary(0), text="Changes made: -1. Files done: 0")])
        self.assertEqual(outcome.of("log"), [self.error_line(87, "Find and Replace item do not match"),
                                             self.failed_line("a.txt")])


class Calls(FindTest):
    def test_names_and_keys_ignore_case_and_paths_have_three_forms(self):
        self.write("a.txt", b"two\n")
        for path in ("a.txt", self.path("a.txt"), windows_path(self.path("a.txt"))):
            with self.subTest(path=path):
                outcome = self.run_json("script", "findandreplace", "file=" + path, "Target=*.new", "find=two",
                                        "replaceWith=2", "silent")
                self.assertEqual(outcome.of("log"), [self.changes_line(1, "a.txt")])
                os.remove(self.path("a.new"))

    def test_the_list_names_the_parameters_without_effect(self):
        commands = self.run_json("script", "FindAndReplace", "--list").of("script")
        self.assertEqual([(command["name"], command["number"], command["description"]) for command in commands],
                         [("FindAndReplace", 30353, "Finds and replaces text in a file")])
        self.assertEqual([(row["name"], row["kind"], row["required"]) for row in commands[0]["parameters"]],
                         [("FILE", "TEXT", True), ("TARGET", "TEXT", False), ("FIND", "TEXT", True),
                          ("REPLACEWITH", "TEXT", True), ("MODE", "TEXT", False), ("REPLACEALL", "SWITCH", False),
                          ("IGNORECASE", "SWITCH", False), ("FORCEUTF8", "SWITCH", False),
                          ("WILDCARD", "SWITCH", False), ("OVERWRITE", "SWITCH", False),
                          ("KEEPBACKUP", "SWITCH", False), ("DELETE", "SWITCH", False), ("SILENT", "SWITCH", False)])
        texts = {row["name"]: row["description"] for row in commands[0]["parameters"]}
        for name in ("IGNORECASE", "OVERWRITE"):
            self.assertIn("It has no effect in FindAndReplace", texts[name])
        self.assertIn("must be given", texts["TARGET"])
        for name in ("FIND", "REPLACEWITH"):
            self.assertIn("not empty", texts[name])
        for mode in ("One", "Many", "ManySame", "Multiline"):
            self.assertIn(mode, texts["MODE"])


if not IS_WINDOWS:
    class Matches(FindTest):
        """Questions about single matches, whose dialog is a form in this build."""

        def asked(self, *forms, answers):
            self.write("a.txt", b"two two two\n")
            arguments = []
            for form in forms:
                arguments += ["--form", form]
            call = ["script", "FindAndReplace", "FILE=" + self.path("a.txt"), "TARGET=*.*", "FIND=two",
                    "REPLACEWITH=2", "KEEPBACKUP"]
            return self.run_json(*arguments, *call, answers=answers)

        def test_replace_each(self):
            outcome = self.asked(answers=["ok", "ok", "ok", "ok"])
            self.assertEqual(outcome.of("log"), [self.changes_line(3, "a.txt")])
            self.assertEqual(self.read("a.txt"), b"2 2 2\n")

        def test_cancel_leaves_the_file(self):
            outcome = self.asked(answers=["ok", "cancel"])
            self.assertEqual(outcome.of("log"), [self.failed_line("a.txt"), self.cancelled_line()])
            self.assertEqual(outcome.of("list"), [])
            self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"two two two\n"))

        def test_replace_all_asks_once(self):
            outcome = self.asked("result=all", answers=["ok", "ok"])
            self.assertEqual(outcome.of("log"), [self.changes_line(3, "a.txt")])
            self.assertEqual(self.read("a.txt"), b"2 2 2\n")

    class LongPaths(FindTest):
        def test_a_path_of_thousands_of_characters(self):
            folder = "/".join(["n" * 200] * 15)
            os.makedirs(self.path(folder))
            self.write(folder + "/a.txt", b"two\n")
            outcome = self.script(folder + "/a.txt", "two", "2")
            self.assertEqual(outcome.of("log"), [self.changes_line(1, folder + "/a.txt")])
            self.assertEqual(self.read(folder + "/a.new"), b"2\n")
