"""Names that the system treats specially: they denote the file with exactly that name, and no other."""
import os

from qxhost import IS_WINDOWS, HostTest, windows_path


class NamesThatEndInDotsAndBlanks(HostTest):
    def test_a_listed_file_is_renamed_and_not_the_one_whose_name_lacks_the_dot(self):
        self.make("a.mp3", "a", "a.")
        self.run_json("--focus", self.path("a.mp3"), "command", "30020", answers=["text=new"],
                      status=4)
        # Two files have the base name `a`; the rename of the second fails because `new` exists then.
        contents = {name: self.content(name) for name in self.names()}
        self.assertEqual(contents["new.mp3"], "a.mp3")
        self.assertEqual(sorted(contents.values()), ["a", "a.", "a.mp3"])
        self.assertIn(contents["new"], ("a", "a."))
        left = "a." if contents["new"] == "a" else "a"
        self.assertEqual(contents[left], left)

    def test_each_rename_reports_the_file_that_was_renamed(self):
        self.make("a.mp3", "a", "a.")
        outcome = self.run_json("--focus", self.path("a.mp3"), "command", "30020", answers=["text=new"],
                                status=4)
        done = [(old, new) for old, new, result in outcome.renames if result == 0]
        self.assertEqual(len(done), 2)
        for old, new in done:
            self.assertEqual(self.content(new), old)

    def test_a_typed_item_is_the_file_of_that_name(self):
        for item in ("x_y.", "x_y ", "x_y..", "x_y. "):
            for form in (str, windows_path, lambda path: "\\\\?\\" + windows_path(path)):
                with self.subTest(item=item, form=form):
                    self.setUp()
                    self.make("x_y", item)
                    self.run_json("command", "30003", form(self.path(item)), answers=["ok"])
                    self.assertEqual(self.content("x_y"), "x_y")
                    self.assertEqual(len(self.names()), 2)
                    self.assertNotIn(item, self.names())

    def test_a_typed_item_whose_name_only_resembles_a_files_is_missing(self):
        self.make("b")
        outcome = self.process("--config", self.config, "--answer", "ok", "command", "30000", self.path("b."))
        self.assertEqual(outcome.status, 2)
        self.assertIn("(2)", outcome.stderr)
        self.assertEqual(self.names(), ["b"])

    def test_a_file_below_a_folder_whose_name_ends_in_a_dot(self):
        self.make("d/x", "d./x", "d /x")
        self.run_json("command", "30000", self.path("d./x"), answers=["ok"])
        self.assertEqual([self.names(folder) for folder in ("d", "d.", "d ")], [["x"], ["X"], ["x"]])

    def test_a_new_name_loses_them_however_long_its_path_is(self):
        long_name = "my_" + "x" * 234
        self.make("my_dir/" + long_name)
        outcome = self.command(30050, "my_dir", "my_dir/" + long_name, answers=["ok"])
        self.assertEqual(outcome.renames, [("my_dir", "My Dir", 0), (long_name, "My X" + "x" * 233, 0)])
        self.assertEqual(self.names("My Dir"), ["My X" + "x" * 233])


class DryRuns(HostTest):
    def test_a_target_that_an_earlier_rename_takes_is_refused(self):
        self.make("a_b c", "a b_c")
        outcome = self.run_json("--dry-run", "command", "30003", self.path("a_b c"), self.path("a b_c"),
                                answers=["ok"], status=4)
        self.assertEqual(outcome.renames, [("a_b c", "a b c", 0), ("a b_c", "a b c", 183)])
        self.assertEqual(self.names(), ["a b_c", "a_b c"])

    def test_an_existing_target_is_refused(self):
        self.make("a_b", "a b")
        outcome = self.run_json("--dry-run", "command", "30003", self.path("a_b"), answers=["ok"], status=4)
        self.assertEqual(outcome.renames, [("a_b", "a b", 183)])


class LongNames(HostTest):
    def test_names_of_255_characters_change_their_case(self):
        for size in (240, 251, 252, 255):
            self.make("x" * size)
            self.command(30000, "x" * size, answers=["ok"])
            self.assertEqual(self.names()[-1], "X" * size)
            os.remove(self.path("X" * size))

    def test_another_name_is_unaffected_by_a_change_of_case(self):
        self.make("a.txt", "qxhost~1.tmp", "A.TXT.qxhost-rename")
        self.command(30000, "a.txt", answers=["ok"])
        self.assertEqual(self.names(), ["A.TXT", "A.TXT.qxhost-rename", "qxhost~1.tmp"])
        self.assertEqual(self.content("qxhost~1.tmp"), "qxhost~1.tmp")

    def test_paths_about_the_limit_of_the_short_form(self):
        for size in (244, 246, 247, 259, 260, 300):
            folder = "d" * 100
            inner = "e" * (size - len(windows_path(self.path(folder))) - len("/f_f/"))
            name = "/".join([folder, inner, "f_f"])
            self.make(name)
            self.command(30003, name, answers=["ok"])
            self.assertEqual(self.names(folder + "/" + inner), ["f f"])


class ReadOnly(HostTest):
    def test_read_only_files_and_folders_are_renamed(self):
        self.make("a.txt", "dir/")
        os.chmod(self.path("a.txt"), 0o444)
        os.chmod(self.path("dir"), 0o555)
        outcome = self.command(30000, "a.txt", "dir", answers=["ok"])
        self.assertEqual(outcome.renames, [("a.txt", "A.TXT", 0), ("dir", "DIR", 0)])
        self.assertEqual(self.names(), ["A.TXT", "DIR/"])


if IS_WINDOWS:

    class LetterCase(HostTest):
        def test_an_item_in_another_case_is_the_one_on_the_disk(self):
            self.make("readme.txt")
            outcome = self.command(30000, "README.TXT", answers=["ok"])
            self.assertEqual(outcome.renames, [("readme.txt", "README.TXT", 0)])
            self.assertEqual(self.names(), ["README.TXT"])

        def test_an_item_in_two_cases_counts_once(self):
            self.make("readme.txt")
            outcome = self.command(30000, "README.TXT", "readme.txt", answers=["ok"])
            self.assertEqual(outcome.renames, [("readme.txt", "README.TXT", 0)])


class Drives(HostTest):
    def test_a_drive_in_two_cases_counts_once(self):
        self.make("x")
        item = windows_path(self.path("x"))
        outcome = self.run_json("command", "30000", item, item.replace("Z:", "z:"), answers=["ok"])
        self.assertEqual(outcome.renames, [("x", "X", 0)])

    def test_a_device_is_no_path(self):
        self.make("x")
        outcome = self.process("--config", self.config, "command", "30000",
                               "\\\\.\\" + windows_path(self.path("x")))
        self.assertEqual(outcome.status, 2)
        self.assertIn("not a path", outcome.stderr)
