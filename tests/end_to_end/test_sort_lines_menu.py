import json
import os

from qxhost import IS_WINDOWS, HostTest, windows_path


class SortLinesMenuTest(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def settings(self):
        found = {}
        for name in os.listdir(self.config) if os.path.isdir(self.config) else []:
            with open(os.path.join(self.config, name), encoding="utf-8") as file:
                found[name] = json.load(file)
        return found

    def sorted_line(self, source, target):
        return {"event": "log", "category": 0, "level": 10,
                "text": "[SortLines] - Sorted lines in file : %s (Saved as : %s)"
                        % (windows_path(self.path(source)), windows_path(self.path(target)))}


class SortLinesMenu(SortLinesMenuTest):
    """For both builds: the dialog opens with the stored settings and is closed by an answer."""

    def test_ok_sorts_into_a_new_file_next_to_the_first(self):
        self.write("a.txt", b"c\r\n b\r\na\r\n")
        outcome = self.command(30150, "a.txt", answers=["ok", "ok"])
        self.assertEqual(self.read("a.txt"), b"c\r\n b\r\na\r\n")
        self.assertEqual(self.read("a_sorted.txt"), b"a\r\n b\r\nc\r\n")
        self.assertEqual(outcome.of("log"), [self.sorted_line("a.txt", "a_sorted.txt")])
        self.assertEqual([(event["kind"], event["title"], event["answer"]) for event in outcome.questions],
                         [("dialog", "Sort Lines", "ok"), ("box", "Sort Lines", "ok")])

    def test_cancel_stores_nothing_and_sorts_nothing(self):
        self.write("a.txt", b"b\na\n")
        outcome = self.command(30150, "a.txt", answers=["cancel"])
        self.assertEqual([(event["kind"], event["answer"]) for event in outcome.questions], [("dialog", "cancel")])
        self.assertEqual(self.names(), ["a.txt"])
        self.assertEqual(outcome.of("log"), [])
        self.assertEqual(self.settings(), {})

    def test_without_files_a_box_says_so(self):
        outcome = self.run_json("command", "30150", answers=["ok"])
        self.assertEqual(outcome.questions,
                         [{"event": "question", "kind": "box", "title": "Sort Lines",
                           "text": "No files are selected.", "style": 0x40, "answer": "ok"}])

    def test_several_files_are_sorted_each_into_its_own(self):
        self.write("a.txt", b"2\n1\n")
        self.write("b", b"y\nx\n")
        self.command(30150, "a.txt", "b", answers=["ok", "ok"])
        self.assertEqual(self.read("a_sorted.txt"), b"1\n2\n")
        self.assertEqual(self.read("b_sorted"), b"x\ny\n")
        self.assertEqual(self.names(), ["a.txt", "a_sorted.txt", "b", "b_sorted"])

    def test_a_file_without_a_dot_gets_the_suffix_at_its_end(self):
        self.write("list", b"2\n1\n")
        self.command(30150, "list", answers=["ok", "ok"])
        self.assertEqual(self.read("list_sorted"), b"1\n2\n")

    def test_a_file_that_is_not_text_fails_and_is_reported(self):
        self.write("a.bin", b"\x00\x01\x02\n\x00")
        outcome = self.command(30150, "a.bin", answers=["ok", "ok"], status=4)
        self.assertEqual([(event["level"], event["text"]) for event in outcome.of("log")],
                         [(30, "[SortLines] - Failed to sortline in file : " + windows_path(self.path("a.bin")))])
        self.assertEqual(self.names(), ["a.bin"])

    def test_options_are_stored_on_ok_and_used_again(self):
        self.write("a.txt", b"b\na\n")
        self.command(30150, "a.txt", answers=["ok", "ok"])
        stored = json.dumps(self.settings())
        for key in ("SortLines", "KeepLinesTop", "KeepLinesBottom", "LineOffset", "SubStringLen", "CharMatch",
                    "MatchFilter", "LineItem", "Options"):
            self.assertIn(key, stored)
        self.assertIn(str(0x1100011), stored)


if not IS_WINDOWS:

    class SortLinesForms(SortLinesMenuTest):
        def sort(self, name, form, answers=("ok", "ok"), status=0):
            arguments = []
            for value in form:
                arguments += ["--form", value]
            return self.run_json(*arguments, "command", "30150", self.path(name), answers=list(answers),
                                 status=status)

        def test_lines_at_both_ends_stay(self):
            self.write("a.txt", b"head\nc\na\nb\nfoot\n")
            self.sort("a.txt", ["keepLinesTop=1", "keepLinesBottom=1", "reverse=1"])
            self.assertEqual(self.read("a_sorted.txt"), b"head\nc\nb\na\nfoot\n")

        def test_an_item_as_a_number(self):
            self.write("a.csv", b"a;10\nb;9\nc;100\n")
            self.sort("a.csv", ["sortBy=item", "separator=;", "item=2", "sortMethod=number"])
            self.assertEqual(self.read("a_sorted.csv"), b"b;9\na;10\nc;100\n")

        def test_a_substring_by_position_and_length(self):
            self.write("a.txt", b"a2x\nb1y\nc2a\n")
            self.sort("a.txt", ["sortBy=substring", "startPosition=2", "length=1"])
            self.assertEqual(self.read("a_sorted.txt"), b"b1y\na2x\nc2a\n")

        def test_a_substring_as_a_date(self):
            self.write("a.txt", b"23 Nov 2014 x\n01 Mar 2013 y\n02 Nov 2014 z\n")
            self.sort("a.txt", ["sortBy=substring", "sortMethod=date", "dateFormat=%d %b %Y"])
            self.assertEqual(self.read("a_sorted.txt"), b"01 Mar 2013 y\n02 Nov 2014 z\n23 Nov 2014 x\n")

        def test_blank_lines_go_and_duplicates_stay(self):
            self.write("a.txt", b"b\n\na\n\nb\n")
            self.sort("a.txt", ["removeBlank=1"])
            self.assertEqual(self.read("a_sorted.txt"), b"a\nb\nb\n")

        def test_a_value_that_a_field_does_not_take_is_refused_with_what_it_takes(self):
            self.write("a.txt", b"b\na\n")
            for fields, takes in [
                (["keepLinesTop=x"], "it takes a number from 0 to 9999999999"),
                (["keepLinesTop=12345678901"], "it takes a number from 0 to 9999999999"),
                (["sortBy=substring", "length=1234567890"], "it takes a number from 0 to 999999999"),
                (["targetName=" + "x" * 260], "it takes at most 259 characters"),
                (["sortBy=substring", "sortMethod=date", "dateFormat=" + "x" * 129], "it takes at most 128 characters"),
            ]:
                outcome = self.sort("a.txt", fields, status=2)
                self.assertIn("the field " + fields[-1].partition("=")[0] + " cannot be", outcome.stderr)
                self.assertIn(takes, outcome.stderr)
            self.assertEqual(self.names(), ["a.txt"])

        def test_a_value_that_a_field_truncates_is_reported(self):
            self.write("a.txt", b"b;1\na;2\n")
            outcome = self.sort("a.txt", ["sortBy=substring", "endCharacter=;x"])
            self.assertIn("the field endCharacter is ; and not ;x: it takes at most 1 character", outcome.stderr)
            self.assertEqual(self.read("a_sorted.txt"), b"a;2\nb;1\n")

        def test_in_place_with_a_backup(self):
            self.write("a.txt", b"b\na\n")
            self.sort("a.txt", ["saveAs=keep-backup"])
            self.assertEqual(self.read("a.txt"), b"a\nb\n")
            self.assertEqual(self.read("a.txt.bak"), b"b\na\n")

        def test_in_place_without_a_backup(self):
            self.write("a.txt", b"b\na\n")
            self.sort("a.txt", ["saveAs=delete-backup"])
            self.assertEqual(self.names(), ["a.txt"])
            self.assertEqual(self.read("a.txt"), b"a\nb\n")

        def test_under_a_name_of_ones_own(self):
            self.write("a.txt", b"b\na\n")
            self.sort("a.txt", ["targetName=other.lst"])
            self.assertEqual(self.read("other.lst"), b"a\nb\n")

        def test_sixteen_bit_text_stays_what_it_is(self):
            self.write("a.txt", "b\r\na\r\n".encode("utf-16-le"))
            self.sort("a.txt", ["reverse=1"])
            self.assertEqual(self.read("a_sorted.txt"), "b\r\na\r\n".encode("utf-16-le"))

        def test_the_next_dialog_begins_with_the_stored_options(self):
            self.write("a.txt", b"1b\n2a\n")
            self.sort("a.txt", ["sortBy=substring", "startPosition=2", "length=1"])
            os.remove(self.path("a_sorted.txt"))
            self.sort("a.txt", [])
            self.assertEqual(self.read("a_sorted.txt"), b"2a\n1b\n")

        def test_a_grey_field_takes_no_value(self):
            self.write("a.txt", b"b\na\n")
            outcome = self.sort("a.txt", ["separator=;"], status=2)
            self.assertIn("the field separator cannot be ;", outcome.stderr)
            self.assertEqual(self.names(), ["a.txt"])
            self.assertEqual(self.settings(), {})
