import menu_rows
from qxhost import HostTest


class Menu(HostTest):
    def tree(self, *options):
        return self.run_json(*options, "menu").of("menu")

    @staticmethod
    def rows(events):
        """Returns each event as a row of menu_rows; the depth is that of its path."""
        return [(event["path"].count("/"), event["number"], event["id"], event["display"]) for event in events]

    def test_the_whole_tree_is_listed_row_by_row(self):
        self.assertEqual(self.rows(self.tree()), menu_rows.rows())

    def test_before_vista_there_is_no_control_panel_branch(self):
        self.assertEqual(self.rows(self.tree("--before-vista")), menu_rows.rows(control_panel=False))

    def test_class_a_leaves_four_items_out(self):
        events = self.tree("--class-a")
        self.assertEqual(self.rows(events), menu_rows.rows(class_a=True))
        everything = {event["number"] for event in self.tree() if event["number"]}
        self.assertEqual(everything - {event["number"] for event in events}, {6161, 6160, 6158, 6162})

    def test_class_b_leaves_nothing_out(self):
        self.assertEqual(self.rows(self.tree("--class-b")), menu_rows.rows())

    def test_both_classes_are_as_class_a(self):
        self.assertEqual(self.rows(self.tree("--class-a", "--class-b")), menu_rows.rows(class_a=True))

    def test_the_table_of_this_test_has_all_items(self):
        numbers = [number for _, items in menu_rows.CONTROL_PANEL for number, _, _, _ in items]
        self.assertEqual(sorted(numbers), list(range(6101, 6163)))

    def test_every_row_but_a_separator_has_a_text_of_its_own(self):
        events = [event for event in self.tree() if event["number"] != 0]
        for event in events:
            self.assertTrue(event["text"], event)
            self.assertTrue(event["path"].endswith(event["text"]), event)
        paths = [event["path"] for event in events]
        self.assertEqual(len(set(paths)), len(paths))

    def test_paths_are_made_of_the_texts_of_the_menus_above(self):
        paths = {event["number"]: event["path"] for event in self.tree() if event["number"]}
        self.assertEqual(paths[30000], "File Utils/Rename/Full Name to UPPER CASE")
        self.assertEqual(paths[30150], "File Utils/Text and XML/Sort Lines...")
        self.assertEqual(paths[30350], "File Utils/Links/Create Link...")
        self.assertEqual(paths[31000], "Multi Rename/MultiRename")
        self.assertEqual(paths[6161], "File Utils/System/Control Panel/System and Security/File History")

    def test_the_items_of_the_control_panel_have_their_english_names(self):
        texts = {event["number"]: event["text"] for event in self.tree() if event["number"]}
        for _, items in menu_rows.CONTROL_PANEL:
            for number, name, _, _ in items:
                self.assertEqual(texts[number], name)

    def test_every_command_has_exactly_one_name_and_nothing_else_has_one(self):
        events = self.tree()
        commands = [event for event in events if event["number"]]
        self.assertEqual(len(commands), 33 + 62 + 1)
        names = [event["name"] for event in commands]
        for name in names:
            self.assertRegex(name, r"^[a-z][a-z0-9]*(-[a-z0-9]+)*$")
        self.assertEqual(len(set(names)), len(names))
        self.assertEqual({event["name"] for event in events if not event["number"]}, {None})

    def test_some_names(self):
        names = {event["number"]: event["name"] for event in self.tree() if event["number"]}
        for number, name in ((30000, "upper-case"), (30010, "replace-x-with-y"), (30150, "sort-lines"),
                             (30151, "find-and-replace"), (30210, "encode-base64"), (30350, "create-link"),
                             (6161, "control-file-history"), (31000, "multi-rename")):
            self.assertEqual(names[number], name)

    def test_no_text_is_missing(self):
        self.assertEqual(self.run_json("menu").of("missing-text"), [])

    def test_the_prose_is_an_indented_tree_with_numbers_and_names_in_columns(self):
        outcome = self.process("menu")
        self.assertEqual(outcome.status, 0)
        lines = outcome.stdout.split("\n")
        self.assertEqual(lines[:6], [
            "File Utils",
            "  Rename",
            "    Full Name to UPPER CASE                          30000  upper-case",
            "    Base Name to UPPER CASE                          30030  upper-case-base",
            "    Extension to UPPER CASE                          30031  upper-case-extension",
            "    ----",
        ])
        self.assertIn("        File History                                 6161   control-file-history", lines)
        self.assertEqual([line for line in lines if line != line.rstrip()], [])

    def test_a_text_that_is_not_in_the_table_is_missed_once(self):
        table = self.path("some.language")
        with open(table, "w", encoding="utf-8") as file:
            file.write("[QXUtils]\n0x07D4006D\tUtilities\n")
        outcome = self.run_json("--language", table, "menu")
        missing = [event["id"] for event in outcome.of("missing-text")]
        self.assertNotIn(0x07D4006D, missing)
        self.assertEqual(missing.count(0x0834006D), 1)
        self.assertEqual(missing.count(0x00C8006D), 1)
        self.assertEqual(len(set(missing)), len(missing))
        self.assertEqual(self.rows(outcome.of("menu")), menu_rows.rows())
        self.assertEqual(outcome.of("menu")[0]["text"], "Utilities")
