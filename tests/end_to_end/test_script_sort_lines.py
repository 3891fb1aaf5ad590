import os

from qxhost import IS_WINDOWS, HostTest, windows_path

YES_NO_CANCEL = {"event": "question", "kind": "box", "title": "Sort Lines",
                 "text": "The target file exists already. Overwrite it?", "style": 0x23}


class SortTest(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def script(self, name, *parameters, target="*.sorted", silent=True, **keywords):
        """Runs SortLines on a file of the folder, silently by default."""
        call = ["script", "SortLines", "FILE=" + self.path(name)]
        if target is not None:
            call.append("TARGET=" + target)
        if silent:
            call.append("SILENT")
        return self.run_json(*call, *parameters, **keywords)

    def sorted(self, data, *parameters, **keywords):
        """Returns these bytes after sorting."""
        self.write("in.txt", data)
        outcome = self.script("in.txt", "OVERWRITE", *parameters, **keywords)
        self.assertEqual(outcome.of("log"), [self.sorted_line("in.txt", "in.sorted")])
        self.assertEqual(self.read("in.txt"), data)
        return self.read("in.sorted")

    def log(self, level, text):
        return {"event": "log", "category": 0, "level": level, "text": text}

    def sorted_line(self, source, target):
        return self.log(10, "[SortLines] - Sorted lines in file : %s (Saved as : %s)"
                        % (windows_path(self.path(source)), windows_path(self.path(target))))

    def skipped_line(self, source):
        return self.log(10, "[SortLines] - Skipped to sortline in file : " + windows_path(self.path(source)))

    def failed_line(self, source):
        return self.log(30, "[SortLines] - Failed to sortline in file : " + windows_path(self.path(source)))

    def lists(self, sorted_files=(), failed_files=()):
        return [{"event": "list", "request": 21120, "marker": marker,
                 "items": [windows_path(self.path(name)) for name in names]}
                for marker, names in ((0, sorted_files), (1, failed_files))]


class Orders(SortTest):
    def test_whole_lines_as_text(self):
        self.assertEqual(self.sorted(b"pear\napple\nPlum\nfig\n"), b"Plum\napple\nfig\npear\n")

    def test_ignoring_case(self):
        self.assertEqual(self.sorted(b"pear\napple\nPlum\nfig\n", "IGNORECASE"), b"apple\nfig\npear\nPlum\n")

    def test_reverse(self):
        self.assertEqual(self.sorted(b"b\na\nc\n", "REVERSE"), b"c\nb\na\n")

    def test_kept_lines_at_top_and_bottom(self):
        self.assertEqual(self.sorted(b"name\n--\nb\nc\na\nsum\n", "KEEPTOP=2", "KEEPBOTTOM=1"),
                         b"name\n--\na\nb\nc\nsum\n")

    def test_numbers(self):
        self.assertEqual(self.sorted(b"10\n9\n-2\n100\n1\n", "SORTBY=substring", "SORTAS=num"),
                         b"-2\n1\n9\n10\n100\n")

    def test_whole_lines_have_no_number_and_keep_their_order_by_design(self):
        self.assertEqual(self.sorted(b"10\n9\n100\n", "SORTAS=num"), b"10\n9\n100\n")
        self.assertEqual(self.sorted(b"10\n9\n100\n", "SORTAS=num", "REVERSE"), b"100\n9\n10\n")

    def test_numbers_of_an_item(self):
        self.assertEqual(self.sorted(b"c;10;x\na;9;z\nb;100;y\n", "SORTBY=item", "ITEMSEP=;", "ITEM=2",
                                     "SORTAS=NUM"),
                         b"a;9;z\nc;10;x\nb;100;y\n")

    def test_text_of_an_item(self):
        self.assertEqual(self.sorted(b"1\tkiwi\n2\tapple\n3\tfig\n", "SORTBY=item", "ITEMSEP=\t", "ITEM=2"),
                         b"2\tapple\n3\tfig\n1\tkiwi\n")

    def test_a_substring_of_a_length_after_an_offset(self):
        self.assertEqual(self.sorted(b"01 bb 9\n02 aa 1\n03 cc 5\n", "SORTBY=SUBSTRING", "LINEOFFSET=4", "SUBSTRLEN=2"),
                         b"02 aa 1\n01 bb 9\n03 cc 5\n")

    def test_a_substring_up_to_a_character_keeps_equal_keys_in_their_order(self):
        self.assertEqual(self.sorted(b"b:1\na:9\nb:0\na:3\n", "SORTBY=substring", "ENDCHAR=:"),
                         b"a:9\na:3\nb:1\nb:0\n")

    def test_a_substring_up_to_white_space(self):
        self.assertEqual(self.sorted(b"b 1\na\t9\nb 0\na 3\n", "SORTBY=substring", "ENDATWHITESPACE"),
                         b"a\t9\na 3\nb 1\nb 0\n")

    def test_without_leading_space(self):
        self.assertEqual(self.sorted(b"  c\n\tb\na\n", "SKIPLEADINGSPACE"), b"a\n\tb\n  c\n")

    def test_dates(self):
        self.assertEqual(self.sorted(b"01.02.2021 a\n31.01.2021 b\n15.06.1999 c\n", "SORTBY=substring", "SORTAS=date",
                                     "DATEFORMAT=%d.%m.%Y"),
                         b"15.06.1999 c\n31.01.2021 b\n01.02.2021 a\n")

    def test_the_order_of_the_language(self):
        words = "zebra\nÄpfel\nApfel\nbirne\n"
        ordered = "Apfel\nÄpfel\nbirne\nzebra\n"
        self.assertEqual(self.sorted(words.encode("cp1252"), "LANGUAGEORDER").decode("cp1252"), ordered)

    def test_in_utf_16_the_mark_moves_with_the_first_line_by_design(self):
        text = "\ufeffzebra\nÄpfel\nApfel\nbirne\n"
        self.assertEqual(self.sorted(text.encode("utf-16-le"), "LANGUAGEORDER").decode("utf-16-le"),
                         "Apfel\nÄpfel\nbirne\n\ufeffzebra\n")

    def test_numbers_in_texts_by_their_value(self):
        self.assertEqual(self.sorted(b"file10\nfile9\nfile100\n", "LANGUAGEORDER", "NATRUALNUMORDER"),
                         b"file9\nfile10\nfile100\n")

    def test_a_sort_by_word_that_is_none_runs_all_the_same(self):
        self.assertEqual(self.sorted(b"b\na\n", "SORTBY=nothing"), b"a\nb\n")

    def test_line_ends_stay_and_the_last_line_gets_the_first_one(self):
        self.assertEqual(self.sorted(b"c\r\nb\r\na"), b"a\r\nb\r\nc\r\n")

    def test_an_empty_file(self):
        self.assertEqual(self.sorted(b""), b"")


class Saving(SortTest):
    def test_a_new_file_with_its_log_line_and_lists(self):
        self.write("a.txt", b"b\na\n")
        outcome = self.script("a.txt", target="sorted_*.*")
        self.assertEqual(outcome.events[:-1],
                         [self.sorted_line("a.txt", "sorted_a.txt")] + self.lists(sorted_files=["a.txt"]))
        self.assertEqual(self.names(), ["a.txt", "sorted_a.txt"])
        self.assertEqual(self.read("sorted_a.txt"), b"a\nb\n")

    def test_an_existing_target_is_skipped_in_silence(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", target="old.txt")
        self.assertEqual(outcome.events[:-1], [self.skipped_line("a.txt")] + self.lists())
        self.assertEqual(self.read("old.txt"), b"old")

    def test_overwrite_replaces_it(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"a longer text that was here")
        outcome = self.script("a.txt", "OVERWRITE", target="old.txt")
        self.assertEqual(outcome.events[:-1],
                         [self.sorted_line("a.txt", "old.txt")] + self.lists(sorted_files=["a.txt"]))
        self.assertEqual(self.read("old.txt"), b"a\nb\n")

    def test_the_file_itself_with_overwrite(self):
        self.write("a.txt", b"b\na\n")
        self.script("a.txt", "OVERWRITE", target="*.*")
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"a\nb\n"))

    def test_the_file_itself_without_overwrite_is_skipped(self):
        self.write("a.txt", b"b\na\n")
        self.assertEqual(self.script("a.txt", target="*.*").of("log"), [self.skipped_line("a.txt")])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"b\na\n"))

    def test_keep_backup_keeps_the_old_file_under_a_free_name(self):
        self.write("a.txt", b"b\na\n")
        self.write("a.txt.bak", b"older")
        outcome = self.script("a.txt", "KEEPBACKUP", "DELETE", target="*.*")
        self.assertEqual(outcome.of("log"), [self.sorted_line("a.txt", "a.txt")])
        self.assertEqual(self.names(), ["a.txt", "a.txt.bak", "a.txt_(0002).bak"])
        self.assertEqual(self.read("a.txt"), b"a\nb\n")
        self.assertEqual(self.read("a.txt.bak"), b"older")
        self.assertEqual(self.read("a.txt_(0002).bak"), b"b\na\n")

    def test_delete_leaves_the_sorted_file_alone(self):
        self.write("a.txt", b"b\na\n")
        outcome = self.script("a.txt", "DELETE", target="*.*")
        self.assertEqual(outcome.of("log"), [self.sorted_line("a.txt", "a.txt")])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"a\nb\n"))

    def test_delete_with_a_new_name_deletes_what_was_written_by_design(self):
        self.write("a.txt", b"b\na\n")
        outcome = self.script("a.txt", "DELETE", target="new.txt")
        self.assertEqual(outcome.of("log"), [self.sorted_line("a.txt", "new.txt")])
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"b\na\n"))

    def test_names_and_paths_beyond_the_code_page(self):
        os.mkdir(self.path("Ордер"))
        self.write("Ордер/файл ü.txt", b"b\na\n")
        outcome = self.script("Ордер/файл ü.txt", target="новый.*")
        self.assertEqual(outcome.of("log"), [self.sorted_line("Ордер/файл ü.txt", "Ордер/новый.txt")])
        self.assertEqual(self.read("Ордер/новый.txt"), b"a\nb\n")

    def test_an_empty_target_is_the_folder_by_design(self):
        self.write("a.txt", b"b\na\n")
        outcome = self.script("a.txt", target="")
        self.assertEqual(outcome.events[:-1], [self.skipped_line("a.txt")] + self.lists())
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_file_of_many_lines(self):
        lines = [b"%06d\n" % ((number * 7919) % 100000) for number in range(100000)]
        self.assertEqual(self.sorted(b"".join(lines)), b"".join(b"%06d\n" % number for number in range(100000)))


class Failures(SortTest):
    def test_a_file_that_is_not_there(self):
        outcome = self.script("none.txt", status=1)
        self.assertNotIn("TARGET", outcome.stderr)
        self.assertEqual(outcome.events[:-1],
                         [self.log(30, "[Custom Cmd - SortLines] - FILE : %s not found"
                                   % windows_path(self.path("none.txt")))])
        self.assertEqual(self.names(), [])

    def test_a_binary_file_fails_and_is_handed_back(self):
        self.write("a.bin", b"\x00\x01\x02\n\x00\xff")
        outcome = self.script("a.bin", status=4)
        self.assertEqual(outcome.events[:-1], [self.failed_line("a.bin")] + self.lists(failed_files=["a.bin"]))
        self.assertEqual(self.names(), ["a.bin"])

    def test_utf_8_with_its_mark_fails(self):
        self.write("a.txt", b"\xef\xbb\xbfb\na\n")
        self.assertEqual(self.script("a.txt", status=4).of("log"), [self.failed_line("a.txt")])
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_folder_fails(self):
        self.make("dir/")
        self.assertEqual(self.script("dir", status=4).of("log"), [self.failed_line("dir")])

    def test_without_target_nothing_happens(self):
        self.write("a.txt", b"b\na\n")
        outcome = self.script("a.txt", target=None, status=1)
        self.assertEqual(outcome.events[:-1], [])
        self.assertIn("TARGET must be given", outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_number_that_is_none_ends_the_module_and_changes_nothing(self):
        self.write("a.txt", b"b\na\n")
        for value, text in (("x", "invalid stoi argument"), ("2147483648", "stoi argument out of range")):
            with self.subTest(value=value):
                outcome = self.script("a.txt", "KEEPTOP=" + value, status=3)
                self.assertIn("OnCustomCommand: " + text + ". A parameter that takes a number has no digits, or too large a number",
                              outcome.stderr)
        self.assertEqual((self.names(), self.read("a.txt")), (["a.txt"], b"b\na\n"))


class Questions(SortTest):
    def test_yes_overwrites_and_a_message_closes_the_run(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", target="old.txt", silent=False, answers=["yes", "ok"])
        self.assertEqual(outcome.events[:-1],
                         [dict(YES_NO_CANCEL, answer="yes"), self.sorted_line("a.txt", "old.txt")]
                         + self.lists(sorted_files=["a.txt"])
                         + [{"event": "question", "kind": "box", "title": "Sort Lines", "text": "Files sorted: 1",
                             "style": 0x40, "answer": "ok"}])
        self.assertEqual(self.read("old.txt"), b"a\nb\n")

    def test_no_skips_and_the_message_counts_it(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", target="old.txt", silent=False, answers=["no", "ok"])
        self.assertEqual(outcome.events[:-1],
                         [dict(YES_NO_CANCEL, answer="no"), self.skipped_line("a.txt")] + self.lists()
                         + [{"event": "question", "kind": "box", "title": "Sort Lines",
                             "text": "Files that were not sorted: 1. The log names them.", "style": 0x10,
                             "answer": "ok"}])
        self.assertEqual(self.read("old.txt"), b"old")

    def test_a_question_without_an_answer_is_cancelled_with_a_note_and_status_0(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", target="old.txt", silent=False)
        self.assertEqual(outcome.events[:-1], [dict(YES_NO_CANCEL, answer="cancel")])
        self.assertEqual(outcome.stderr.replace("\r\n", "\n"),
                         "qxhost: note: question cancelled: there is no terminal; give --answer for "
                         "\"Sort Lines\": yes, no, cancel\n")
        self.assertEqual(self.read("old.txt"), b"old")

    def test_cancel_ends_it_without_a_word(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", target="old.txt", silent=False, answers=["cancel"])
        self.assertEqual(outcome.events[:-1], [dict(YES_NO_CANCEL, answer="cancel")])
        self.assertEqual(self.read("old.txt"), b"old")

    def test_overwrite_does_not_spare_the_question(self):
        self.write("a.txt", b"b\na\n")
        self.write("old.txt", b"old")
        outcome = self.script("a.txt", "OVERWRITE", target="old.txt", silent=False, answers=["no", "ok"])
        self.assertEqual(outcome.questions[0], dict(YES_NO_CANCEL, answer="no"))
        self.assertEqual(self.read("old.txt"), b"old")


class Calls(SortTest):
    def refused(self, *arguments):
        outcome = self.process("--config", self.config, "script", *arguments)
        self.assertEqual((outcome.status, outcome.stdout), (2, ""))
        self.assertTrue(outcome.stderr.startswith("qxhost: "), outcome.stderr)
        return outcome.stderr

    def test_names_and_keys_ignore_case_and_paths_have_three_forms(self):
        self.write("a.txt", b"b\na\n")
        for path in ("a.txt", self.path("a.txt"), windows_path(self.path("a.txt"))):
            with self.subTest(path=path):
                outcome = self.run_json("script", "sortlines", "file=" + path, "Target=*.out", "silent", "overwrite")
                self.assertEqual(outcome.of("log"), [self.sorted_line("a.txt", "a.out")])

    def test_wrong_calls_name_what_is_wrong(self):
        self.make("a.txt")
        self.assertIn("CreateLink, SortLines, FindAndReplace", self.refused("Sort"))
        self.assertIn("FILE", self.refused("SortLines", "TARGET=x"))
        self.assertIn("\"COLOUR\"", self.refused("SortLines", "FILE=a.txt", "COLOUR=red"))
        self.assertIn("REVERSE is a switch", self.refused("SortLines", "FILE=a.txt", "TARGET=x", "REVERSE=1"))
        self.assertIn("KEEPTOP=NUMBER", self.refused("SortLines", "FILE=a.txt", "TARGET=x", "KEEPTOP"))
        self.assertIn("given twice", self.refused("SortLines", "FILE=a.txt", "TARGET=x", "target=y"))
        self.assertIn("LNKTYPE", self.refused("CreateLink", "LNKSRC=a", "LNKTRG=b"))
        self.assertEqual(self.names(), ["a.txt"])

    def test_an_empty_name_and_words_after_a_list_are_wrong(self):
        self.assertIn("NAME", self.refused(""))
        self.assertIn("NAME", self.refused("", "--list"))
        self.assertIn("\"FILE=a.txt\"", self.refused("SortLines", "--list", "FILE=a.txt"))
        self.assertIn("\"extra\"", self.refused("SortLines", "extra", "--list"))

    def test_the_list_shows_commands_and_parameters(self):
        outcome = self.run_json("script")
        commands = outcome.of("script")
        self.assertEqual([(command["name"], command["number"], len(command["parameters"])) for command in commands],
                         [("CreateLink", 30351, 4), ("SortLines", 30352, 22), ("FindAndReplace", 30353, 13)])
        self.assertEqual(commands[1]["parameters"][0], {"name": "FILE", "kind": "TEXT", "required": True,
                                                        "description": "Path of the file to sort"})
        for command in commands:
            for row in [command] + command["parameters"]:
                self.assertTrue(row["description"], row)
        self.assertEqual(self.run_json("script", "sortlines", "--list").of("script"), [commands[1]])

    def test_the_list_in_prose(self):
        outcome = self.process("--config", self.config, "script", "CreateLink", "--list")
        self.assertEqual(outcome.status, 0)
        self.assertTrue(outcome.stdout.startswith(
            "CreateLink - Creates a link to a file or folder\n"
            "  LNKTYPE=NUMBER        Kind of the link: 1 hard link, 2 junction, 3 symbolic link, 4 shortcut (required)\n"),
            outcome.stdout)


if not IS_WINDOWS:
    class LongPaths(SortTest):
        def test_a_path_of_thousands_of_characters(self):
            folder = "/".join(["n" * 200] * 15)
            os.makedirs(self.path(folder))
            self.write(folder + "/a.txt", b"b\na\n")
            outcome = self.script(folder + "/a.txt")
            self.assertEqual(outcome.of("log"), [self.sorted_line(folder + "/a.txt", folder + "/a.sorted")])
            self.assertEqual(self.read(folder + "/a.sorted"), b"a\nb\n")
