import os
import stat

from qxhost import HostTest

FORMAT, PLAIN = 30200, 30201


class XmlConversion(HostTest):
    def write(self, name, data):
        with open(self.path(name), "wb") as file:
            file.write(data)

    def read(self, name):
        with open(self.path(name), "rb") as file:
            return file.read()

    def test_30200_formats_and_asks_nothing(self):
        self.write("a.xml", b"<a><b>text</b><c/></a>")
        outcome = self.command(FORMAT, "a.xml")
        self.assertEqual(self.read("a.xml"), b"<a>\n  <b>text</b>\n  <c/>\n</a>\n")
        self.assertEqual(len(outcome.events), 1)
        self.assertEqual(self.names(), ["a.xml"])

    def test_30201_leaves_the_white_space_between_the_elements(self):
        self.write("a.xml", b"<a>\n\n <b  c='1' >text</b>\r\n<c/></a>\n")
        outcome = self.command(PLAIN, "a.xml")
        self.assertEqual(self.read("a.xml"), b"<a>\n\n <b c='1'>text</b>\r\n<c/></a>\n")
        self.assertEqual(len(outcome.events), 1)

    def test_what_the_file_holds_is_kept(self):
        content = (b"<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
                   b"<!DOCTYPE a [<!ENTITY e \"x\">]>\n<!-- note -->\n<?target data?>\n"
                   b"<a b=\"&lt;&e;\">\n  <![CDATA[<raw> & more]]>\n  &e;&#233;\n</a>\n")
        for number in (FORMAT, PLAIN):
            with self.subTest(number=number):
                self.write("a.xml", content)
                self.command(number, "a.xml")
                self.assertEqual(self.read("a.xml"), content)

    def test_each_file_keeps_the_encoding_that_it_names(self):
        text = "<?xml version=\"1.0\" encoding=\"%s\"?>\r\n<a b=\"ä\">\r\n  <c>%s</c>\r\n</a>\r\n"
        files = {
            "utf8.xml": (text % ("utf-8", "€\U0001F600")).encode("utf-8"),
            "mark.xml": (text % ("UTF-8", "€")).encode("utf-8-sig"),
            "little.xml": b"\xff\xfe" + (text % ("UTF-16", "€\U0001F600")).encode("utf-16-le"),
            "big.xml": b"\xfe\xff" + (text % ("UTF-16", "€\U0001F600")).encode("utf-16-be"),
            "latin.xml": (text % ("ISO-8859-1", "ü")).encode("iso-8859-1"),
            "windows.xml": (text % ("windows-1252", "€“”")).encode("windows-1252"),
        }
        for number in (FORMAT, PLAIN):
            for name, content in files.items():
                self.write(name, content)
            self.command(number, *files)
            for name, content in files.items():
                with self.subTest(number=number, name=name):
                    self.assertEqual(self.read(name), content)

    def test_files_that_cannot_be_parsed_are_passed_over_silently(self):
        broken = {"open.xml": b"<a><b></a>", "empty.xml": b"", "text.xml": b"no markup", "rest.xml": b"<a/>rest",
                  "bytes.xml": b"<a>\xff</a>", "zero.xml": b"<a/>\0", "deep.xml": b"<a>" * 100000,
                  "name.xml": b"<?xml version=\"1.0\" encoding=\"klingon\"?><a/>"}
        for name, content in broken.items():
            self.write(name, content)
        self.write("z.xml", b"<a><b/></a>")
        outcome = self.command(FORMAT, *broken, "z.xml")
        self.assertEqual(len(outcome.events), 1)
        for name, content in broken.items():
            self.assertEqual(self.read(name), content, name)
        self.assertEqual(self.read("z.xml"), b"<a>\n  <b/>\n</a>\n")

    def test_a_file_that_cannot_be_saved_shows_a_box_and_the_run_goes_on(self):
        for number in (FORMAT, PLAIN):
            with self.subTest(number=number):
                for name in ("1.xml", "2.xml", "3.xml"):
                    self.write(name, b"<a ><b/></a>")
                os.chmod(self.path("2.xml"), stat.S_IRUSR)
                outcome = self.command(number, "1.xml", "2.xml", "3.xml", answers=["ok"])
                os.chmod(self.path("2.xml"), stat.S_IRUSR | stat.S_IWUSR)
                self.assertEqual(outcome.questions, [{"event": "question", "kind": "box", "title": "Error",
                                                      "text": "Failed to save xml file", "style": 16,
                                                      "answer": "ok"}])
                self.assertEqual(self.read("2.xml"), b"<a ><b/></a>")
                self.assertNotEqual(self.read("1.xml"), b"<a ><b/></a>")
                self.assertEqual(self.read("3.xml"), self.read("1.xml"))
                self.assertEqual(self.names(), ["1.xml", "2.xml", "3.xml"])

    def test_folders_and_an_empty_selection_do_nothing(self):
        self.make("dir/")
        for names in ([], ["dir"]):
            with self.subTest(names=names):
                self.assertEqual(len(self.command(FORMAT, *names).events), 1)
