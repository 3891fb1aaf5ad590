import base64
import email
import email.mime.application
import os
import random

from qxhost import HostTest, windows_path

ENCODE, DECODE = 30210, 30211
HEADER = ("MIME-Version: 1.0\r\nContent-Type: application/octet-stream; name=\"%s\"\r\n"
          "Content-Transfer-Encoding: base64\r\nContent-Disposition: attachment; filename=\"%s\"\r\n\r\n")
QUESTION = {"event": "question", "kind": "box", "style": 36}


class Base64Test(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def question(self, encode, target, answer):
        return dict(QUESTION, title="Encode as Base64" if encode else "Decode from Base64", answer=answer,
                    text="The file exists already:\n%s\n\nOverwrite it?" % windows_path(self.path(target)))


class Encode(Base64Test):
    def test_files_are_encoded_into_their_own_folder(self):
        self.write("a b.txt", b"foobar")
        self.write("c", b"")
        outcome = self.command(ENCODE, "a b.txt", "c")
        self.assertEqual(len(outcome.events), 1)
        self.assertEqual(self.names(), ["a b.b64", "a b.txt", "c", "c.b64"])
        self.assertEqual(self.read("a b.b64"), (HEADER % (("a b.txt",) * 2)).encode() + b"Zm9vYmFy")
        self.assertEqual(self.read("c.b64"), (HEADER % (("c",) * 2)).encode())
        self.assertEqual(self.read("a b.txt"), b"foobar")

    def test_others_read_what_is_written(self):
        made = random.Random(1)
        for size in (0, 1, 2, 3, 56, 57, 58, 3071, 3072, 3073, 3081, 3129, 6144, 70000):
            with self.subTest(size=size):
                content = made.randbytes(size)
                self.write("r.bin", content)
                self.command(ENCODE, "r.bin")
                encoded = self.read("r.b64")
                self.assertEqual(base64.b64decode(encoded.partition(b"\r\n\r\n")[2]), content)
                message = email.message_from_bytes(encoded)
                self.assertEqual(message.get_payload(decode=True), content)
                self.assertEqual(message.get_filename(), "r.bin")
                os.remove(self.path("r.b64"))

    def test_an_existing_target_is_replaced_after_yes_alone(self):
        self.write("a.txt", b"foo")
        self.write("a.b64", b"old")
        outcome = self.command(ENCODE, "a.txt", answers=["no"])
        self.assertEqual(outcome.questions, [self.question(True, "a.b64", "no")])
        self.assertEqual(self.read("a.b64"), b"old")
        outcome = self.command(ENCODE, "a.txt", answers=["yes"])
        self.assertEqual(outcome.questions, [self.question(True, "a.b64", "yes")])
        self.assertTrue(self.read("a.b64").endswith(b"\r\n\r\nZm9v"))

    def test_no_goes_on_with_the_next_file(self):
        for name in ("a.txt", "a.b64", "b.txt"):
            self.write(name, b"foo")
        self.command(ENCODE, "a.txt", "b.txt", answers=["no"])
        self.assertEqual(self.read("a.b64"), b"foo")
        self.assertIn("b.b64", self.names())

    def test_a_file_that_is_its_own_target_stays_whole_even_after_yes(self):
        self.write("a.b64", b"content")
        outcome = self.command(ENCODE, "a.b64", answers=["yes"])
        self.assertEqual(outcome.questions, [self.question(True, "a.b64", "yes")])
        self.assertEqual(self.read("a.b64"), b"content")

    def test_folders_and_an_empty_selection_do_nothing(self):
        self.make("dir.d/")
        for number in (ENCODE, DECODE):
            for names in ([], ["dir.d"]):
                with self.subTest(number=number, names=names):
                    self.assertEqual(len(self.command(number, *names).events), 1)
        self.assertEqual(self.names(), ["dir.d/"])


class Decode(Base64Test):
    def test_the_name_in_the_header_comes_back(self):
        self.write("x.b64", (HEADER % (("old name.txt",) * 2)).encode() + b"Zm9v\r\nYmFy")
        outcome = self.command(DECODE, "x.b64")
        self.assertEqual(len(outcome.events), 1)
        self.assertEqual(self.names(), ["old name.txt", "x.b64"])
        self.assertEqual(self.read("old name.txt"), b"foobar")

    def test_what_was_encoded_comes_back_after_yes(self):
        content = random.Random(2).randbytes(100000)
        self.write("ä€.bin", content)
        self.command(ENCODE, "ä€.bin")
        self.write("ä€.bin", b"lost")
        outcome = self.command(DECODE, "ä€.b64", answers=["yes"])
        self.assertEqual(outcome.questions, [self.question(False, "ä€.bin", "yes")])
        self.assertEqual(self.read("ä€.bin"), content)

    def test_a_message_of_another_program_is_decoded(self):
        content = b"content " * 100
        part = email.mime.application.MIMEApplication(content, name="m.txt")
        self.write("m.eml", b"MIME-Version: 1.0\r\n" + part.as_bytes().replace(b"\n", b"\r\n"))
        self.command(DECODE, "m.eml")
        self.assertEqual(self.read("m.txt"), content)

    def test_without_a_header_the_extension_is_dropped(self):
        self.write("a.txt.b64", b"Zm9v")
        self.command(DECODE, "a.txt.b64")
        self.assertEqual(self.read("a.txt"), b"foo")

    def test_without_a_header_and_an_extension_the_file_is_its_own_target_and_stays_whole(self):
        self.write("a", b"Zm9v")
        outcome = self.command(DECODE, "a", answers=["yes"])
        self.assertEqual(outcome.questions, [self.question(False, "a", "yes")])
        self.assertEqual(self.read("a"), b"Zm9v")

    def test_a_name_that_is_refused_gives_way_to_the_files_own_and_the_header_is_skipped(self):
        for name in ("", "..\\evil", "../evil", "C:evil", "\\evil", "..", "a/evil", "a*", "a?", "<a", "a>", "a|b", "NUL",
                     "nul.txt", "COM1.txt", "LPT9"):
            with self.subTest(name=name):
                self.make("dir/")
                self.write("dir/a.b64", (HEADER % (name, name)).encode() + b"Zm9v")
                self.command(DECODE, "dir/a.b64")
                self.assertEqual(self.names(), ["dir/"])
                self.assertEqual(self.names("dir"), ["a", "a.b64"])
                self.assertEqual(self.read("dir/a"), b"foo")
                os.remove(self.path("dir/a"))

    def test_a_lone_cr_in_the_header_does_not_hang(self):
        self.write("a.b64", b"MIME-Version: 1.0\rname=\"b\"\r")
        self.command(DECODE, "a.b64")
        self.assertEqual(self.names(), ["a", "a.b64"])

    def test_unix_line_ends_decode_wrongly_by_design(self):
        self.write("a.b64", b"Zm9v\nYmFy")
        self.command(DECODE, "a.b64")
        self.assertEqual(self.read("a"), b"foo\xfd\x89\x85")
