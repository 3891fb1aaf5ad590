import os
import stat

from qxhost import IS_WINDOWS, HostTest

TO_LF, TO_CRLF, TO_CR, TABS = 30101, 30102, 30103, 30110


class TextConversionTest(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def question(self, count, answer):
        return {"event": "question", "kind": "box", "title": "Convert Text", "style": 36, "answer": answer,
                "text": "Files to convert: %d. Convert them now?" % count}


class TextConversion(TextConversionTest):
    def test_line_ends_become_the_ones_of_the_command(self):
        mixed = b"a\tb\r\nc\nd\re"
        for number, expected in ((TO_LF, b"a\tb\nc\nd\ne"), (TO_CRLF, b"a\tb\r\nc\r\nd\r\ne"),
                                 (TO_CR, b"a\tb\rc\rd\re")):
            with self.subTest(number=number):
                self.write("1", mixed)
                self.write("2.txt", mixed)
                outcome = self.command(number, "1", "2.txt", answers=["yes"])
                self.assertEqual(outcome.questions, [self.question(2, "yes")])
                self.assertEqual(len(outcome.events), 2)
                self.assertEqual((self.read("1"), self.read("2.txt")), (expected, expected))
                self.assertEqual(self.names(), ["1", "2.txt"])

    def test_no_changes_nothing(self):
        self.write("1", b"a\n\t")
        for number in (TO_LF, TO_CRLF, TO_CR, TABS):
            with self.subTest(number=number):
                outcome = self.command(number, "1", answers=["no"])
                self.assertEqual(outcome.questions, [self.question(1, "no")])
                self.assertEqual(self.read("1"), b"a\n\t")

    def test_nothing_selected_asks_nothing(self):
        for number in (TO_LF, TO_CRLF, TO_CR, TABS):
            self.assertEqual(len(self.command(number).events), 1)

    def test_tabs_become_the_chosen_number_of_blanks_whatever_the_column(self):
        for width in "1", "8":
            with self.subTest(width=width):
                self.write("1", b"\tab\tc\r\n")
                outcome = self.command(TABS, "1", answers=["yes", "choice=" + width])
                blanks = b" " * int(width)
                self.assertEqual(self.read("1"), blanks + b"ab" + blanks + b"c\r\n")
                self.assertEqual([event["kind"] for event in outcome.questions], ["box", "choice"])
                self.assertEqual(outcome.questions[1]["title"], "Tabs to Blanks")
                self.assertEqual(outcome.questions[1]["text"], "Blanks for each tab:")

    def test_ok_takes_four_blanks(self):
        self.write("1", b"\t")
        self.command(TABS, "1", answers=["yes", "ok"])
        self.assertEqual(self.read("1"), b"    ")

    def test_cancel_of_the_choice_changes_nothing(self):
        self.write("1", b"\t")
        self.command(TABS, "1", answers=["yes", "cancel"])
        self.assertEqual(self.read("1"), b"\t")

    def test_the_second_of_two_crs_is_not_converted_by_design(self):
        for number, expected in ((TO_LF, b"\n\r\n"), (TO_CRLF, b"\r\n\r\r\n"), (TO_CR, b"\r\r\r")):
            with self.subTest(number=number):
                self.write("1", b"\r\r\n")
                self.command(number, "1", answers=["yes"])
                self.assertEqual(self.read("1"), expected)

    def test_a_cr_at_the_very_end_is_lost_under_crlf_by_design(self):
        self.write("1", b"a\r")
        self.command(TO_CRLF, "1", answers=["yes"])
        self.assertEqual(self.read("1"), b"a")

    def test_empty_and_large_files(self):
        self.write("empty", b"")
        self.write("large", b"line\n" * 1000000)
        self.command(TO_CRLF, "empty", "large", answers=["yes"])
        self.assertEqual(self.read("empty"), b"")
        self.assertTrue(self.read("large") == b"line\r\n" * 1000000)

    def test_a_read_only_file_stays_with_the_converted_text_next_to_it_and_the_next_file_follows(self):
        self.write("1", b"a\n")
        self.write("2", b"a\n")
        os.chmod(self.path("1"), stat.S_IRUSR)
        self.command(TO_CRLF, "1", "2", answers=["yes"])
        self.assertEqual((self.read("1"), self.read("2")), (b"a\n", b"a\r\n"))
        names = self.names()
        self.assertEqual(len(names), 3)
        self.assertRegex(names[1], r"^1\.temp[0-9]+$")
        self.assertEqual(self.read(names[1]), b"a\r\n")


if not IS_WINDOWS:

    class FullDisk(TextConversionTest):
        """Files are limited to a certain size."""

        # 120,000 bytes that become 180,000: two blocks of 65,536 bytes and a remainder.
        TEXT = b"x\n" * 60000

        def test_a_failed_last_write_leaves_the_file_and_no_other(self):
            self.write("1", self.TEXT)
            self.command(TO_CRLF, "1", answers=["yes"], largest_file=150000)
            self.assertTrue(self.read("1") == self.TEXT)
            self.assertEqual(self.names(), ["1"])

        def test_an_earlier_write_that_fails_does_as_well(self):
            self.write("1", self.TEXT)
            self.command(TO_CRLF, "1", answers=["yes"], largest_file=100000)
            self.assertTrue(self.read("1") == self.TEXT)
            self.assertEqual(self.names(), ["1"])

        def test_a_text_that_has_room_is_converted(self):
            self.write("1", self.TEXT)
            self.command(TO_CRLF, "1", answers=["yes"], largest_file=180000)
            self.assertTrue(self.read("1") == b"x\r\n" * 60000)
            self.assertEqual(self.names(), ["1"])
