import os

from qxhost import IS_WINDOWS, HostTest, windows_path

if not IS_WINDOWS:
    import pwd


class Columns(HostTest):
    def cells(self, *names, **keywords):
        """Returns {item: {column: value}} in the order of the output."""
        outcome = self.run_json("columns", *[self.path(name) for name in names], **keywords)
        cells = {}
        for event in outcome.of("column"):
            cells.setdefault(event["item"], {})[event["name"]] = event["value"]
        return cells

    def test_each_item_has_four_cells_in_the_order_of_the_items(self):
        self.make("b.txt", "a.txt", "folder/")
        cells = self.cells("b.txt", "a.txt", "folder")
        self.assertEqual(list(cells), [windows_path(self.path(name)) for name in ("b.txt", "a.txt", "folder")])
        for values in cells.values():
            self.assertEqual(list(values), ["owner", "access", "ADScount", "ADSsize"])
            self.assertEqual(len(values["access"]), 3)
            self.assertEqual((values["ADScount"], values["ADSsize"]), ("0", None))
            self.assertTrue(values["owner"])

    def test_the_table_lines_up(self):
        self.make("a.txt", "longer name.txt")
        outcome = self.process("--config", self.config, "columns", self.path("a.txt"), self.path("longer name.txt"))
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))
        head, first, second = outcome.stdout.splitlines()
        self.assertRegex(head, r"^Owner +Access  Streams  Stream Size  Item$")
        at = head.index("Item")
        self.assertEqual(first[at:], windows_path(self.path("a.txt")))
        self.assertEqual(second[at:], windows_path(self.path("longer name.txt")))

    def test_without_items_there_is_no_table(self):
        outcome = self.process("--config", self.config, "columns")
        self.assertEqual((outcome.status, outcome.stdout), (0, ""))

    def test_a_missing_item_is_a_wrong_call(self):
        self.make("a.txt")
        outcome = self.run_json("columns", self.path("a.txt"), self.path("nosuch"), status=2)
        self.assertEqual(outcome.events, [])

    def test_a_list_of_items_is_shown_up_to_one_that_is_missing(self):
        self.make("a.txt", "b.txt")
        lines = "".join(self.path(name) + "\n" for name in ("a.txt", "nosuch", "b.txt")).encode()
        outcome = self.run_json("--items", "-", "columns", stdin=lines, status=2)
        self.assertEqual({event["item"] for event in outcome.of("column")}, {windows_path(self.path("a.txt"))})
        self.assertIn("nosuch", outcome.stderr)
        self.run_json("--items", self.path("nolist"), "columns", status=2)

    def test_items_are_shown_as_often_as_they_are_given(self):
        self.make("a.txt", "list")
        with open(self.path("list"), "w", encoding="utf-8") as file:
            file.write((self.path("a.txt") + "\n") * 2)
        outcome = self.run_json("--items", self.path("list"), "columns", self.path("a.txt"))
        self.assertEqual(len(outcome.of("column")), 12)

    def test_many_items_are_shown_in_blocks(self):
        names = ["%04d.txt" % number for number in range(600)]
        self.make(*names)
        outcome = self.process("--config", self.config, "--items", "-", "columns",
                               stdin="".join(self.path(name) + "\n" for name in names).encode())
        self.assertEqual(outcome.status, 0)
        lines = outcome.stdout.splitlines()
        self.assertEqual(len(lines), 601)
        self.assertTrue(lines[600].endswith("0599.txt"))


if not IS_WINDOWS:

    class ColumnsOfNativeFiles(HostTest):
        def cells(self, name):
            outcome = self.run_json("columns", self.path(name))
            return {event["name"]: event["value"] for event in outcome.of("column")}

        def test_the_owner_the_rights_and_the_streams_of_a_real_file(self):
            self.make("a.txt")
            os.chmod(self.path("a.txt"), 0o500)
            self.assertEqual(self.cells("a.txt"), {"owner": pwd.getpwuid(os.geteuid()).pw_name, "access": "R X",
                                                   "ADScount": "0", "ADSsize": None})
            os.chmod(self.path("a.txt"), 0o600)
            os.setxattr(self.path("a.txt"), "user.one", b"x" * 10)
            os.setxattr(self.path("a.txt"), "user.two", b"x" * 20)
            cells = self.cells("a.txt")
            self.assertEqual((cells["access"], cells["ADScount"], cells["ADSsize"]), ("RW ", "2", "30"))
