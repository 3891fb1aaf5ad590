import os
import re
import subprocess
import tempfile

from qxhost import COMMAND, IS_WINDOWS, TIMEOUT_SECONDS, HostTest, windows_path

RENAMED, DUPLICATE, INVALID, FAILED, IGNORED = 6, 1, 2, 3, 4
READY = 0


class RenameTest(HostTest):
    def rename(self, *arguments, **keywords):
        return self.run_json("rename", *arguments, **keywords)

    def prose(self, *arguments, **keywords):
        return self.process("--config", self.config, "rename", *arguments, **keywords)

    def rows(self, outcome):
        return [(row["old"], row["new"], row["state"]) for row in outcome.of("row")]

    def photos(self):
        for day in (3, 1, 2):
            name = "IMG_%d.jpg" % day
            self.make(name)
            os.utime(self.path(name), (1772705400 + day * 86400,) * 2)

    def undo_files(self):
        folder = os.path.join(self.config, "Undo")
        return sorted(os.listdir(folder)) if os.path.isdir(folder) else []

    def refused(self, *arguments, **keywords):
        outcome = self.prose(*arguments, **keywords)
        self.assertEqual((outcome.status, outcome.stdout), (2, ""), outcome.stderr)
        return outcome.stderr


class Preview(RenameTest):
    def test_rows_have_folder_names_and_state_and_nothing_is_renamed(self):
        self.make("b.txt", "a.TXT")
        outcome = self.rename("--name", "new [C]", "--case", "lower", "b.txt", "a.TXT")
        self.assertEqual(outcome.of("row"), [
            {"event": "row", "folder": windows_path(self.folder), "old": "b.txt", "new": "new 01.txt",
             "state": READY},
            {"event": "row", "folder": windows_path(self.folder), "old": "a.TXT", "new": "new 02.txt",
             "state": READY}])
        self.assertEqual(self.names(), ["a.TXT", "b.txt"])
        self.assertEqual(self.undo_files(), [])

    def test_prose_has_two_columns_marks_and_counts(self):
        self.make("one.txt", "second.txt", "same.txt")
        outcome = self.prose("--find", "on", "--replace", "ON", "one.txt", "second.txt", "same.txt")
        self.assertEqual(outcome.stdout.split("\n"), [
            windows_path(self.folder),
            "  one.txt      ONe.txt",
            "  second.txt   secONd.txt",
            "= same.txt     same.txt",
            "3 rows: 2 to rename, 1 as before (=). Nothing is renamed yet; --run does it", ""])
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))

    def test_a_row_in_the_way_is_marked_and_says_why(self):
        self.make("a.txt", "b.txt", "c.txt")
        outcome = self.prose("--name", "x", "--extension", "[N]", "--find", "b", "--replace", "a", "a.txt", "b.txt",
                             "c.txt")
        self.assertEqual(outcome.stdout.split("\n")[1:], [
            "! a.txt   x.a   <- another row gets this name as well",
            "! b.txt   x.a   <- the first row gets this name",
            "  c.txt   x.c",
            "3 rows: 1 to rename, 2 in the way of a run (!)", ""])
        outcome = self.prose("--name", "what?", "a.txt")
        self.assertEqual(outcome.stdout.split("\n")[1],
                         "! a.txt   what?.txt   <- no name may hold ?")
        self.assertEqual(outcome.status, 0)

    def test_a_row_that_would_be_refused_says_so_and_does_not_block(self):
        self.make("a.txt", "there.txt")
        outcome = self.prose("--name", "there", "a.txt")
        self.assertRegex(outcome.stdout.split("\n")[1], r"^\? a\.txt   there\.txt   <- .*\(183\)$")
        self.assertIn("1 row: 0 to rename, 1 that would be refused (?)", outcome.stdout)
        outcome = self.prose("--name", "", "--extension", "", "a.txt")
        self.assertRegex(outcome.stdout.split("\n")[1], r"^\? a\.txt    +<- .*\(123\)$")

    def test_a_list_of_items_may_be_empty(self):
        outcome = self.prose("--items", "-", "--run", stdin=b"")
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))

    def test_items_come_from_standard_input(self):
        self.make("a.txt", "d/b.txt")
        outcome = self.rename("--items", "-", "--name", "[F]-[N]", stdin=b"d/b.txt\na.txt\n")
        self.assertEqual(self.rows(outcome), [("b.txt", "d-b.txt", 0), ("a.txt", "files-a.txt", 0)])


class Rules(RenameTest):
    def new_names(self, *arguments):
        return [row["new"] for row in self.rename(*arguments).of("row")]

    def test_templates_counters_and_case(self):
        self.make("one two.TXT", "three")
        items = ["one two.TXT", "three"]
        for rules, names in (
                (["--name", "[C]", "--start", "8", "--step", "-3", "--digits", "3"], ["008.TXT", "005"]),
                (["--name=[N]", "--extension=[E]"], ["one two.TXT", "three"]),
                (["--name", "[N-3][[x"], ["two[x.TXT", "ree[x"]),
                (["--extension", ""], ["one two", "three"]),
                (["--case", "words"], ["One Two.TXT", "Three"]),
                (["--case", "extension-lower"], ["one two.txt", "three"]),
                (["--case", "upper"], ["ONE TWO.TXT", "THREE"])):
            with self.subTest(rules=rules):
                self.assertEqual(self.new_names(*rules, *items), names)

    def test_search_pairs_in_order_and_by_part(self):
        self.make("aa.aab")
        for rules, name in (
                (["--find", "a", "--replace", "b"], "ba.bab"),
                (["--find", "a", "--replace", "b", "--replace-all", "--parts", "extension"], "aa.bbb"),
                (["--find", "a", "--replace", "b", "--find=b", "--replace=-c", "--parts", "name"], "-ca.aab"),
                (["--find", "A", "--case-sensitive"], "aa.aab"),
                (["--find", "A"], "a.ab"),
                (["--find", "(a)(a)", "--replace", "[$2-$1]", "--regex", "--parts", "name"], "[a-a].aab"),
                (["--find", "[a]", "--replace", "[b]", "--regex", "--parts", "name"], "[b][b].aab")):
            with self.subTest(rules=rules):
                self.assertEqual(self.new_names(*rules, "aa.aab"), [name])

    def test_properties_of_the_file(self):
        self.make("photo.jpg", "folder/")
        os.utime(self.path("photo.jpg"), (1772705400, 1772705400))
        environment_date = subprocess.run(["date", "-d", "@1772705400", "+%Y-%m-%d_%H%M"], capture_output=True,
                                          check=True).stdout.decode().strip()
        self.assertEqual(self.new_names("--name", "[?modified,{yyyy-MM-dd|_HHmm}] [?size,{n6}]", "photo.jpg"),
                         [environment_date + " 000009.jpg"])
        self.assertEqual(self.new_names("--name", "[N][?size][?attributes][?colour]", "folder"), ["folderD"])

    def test_the_folder_tag_is_the_name_of_the_folder(self):
        self.make("sub/a.txt")
        self.assertEqual(self.new_names("--name", "[F]", "sub/a.txt"), ["sub.txt"])

    def test_what_can_be_no_rule_is_refused_with_the_reason(self):
        self.make("a.txt")
        for rules, part in (
                (["--start", "x"], "--start"), (["--step", "1.5"], "--step"), (["--digits", "-1"], "--digits"),
                (["--digits", "1024"], "--digits"), (["--case", "wrods"], "Did you mean words?"),
                (["--parts", "nam"], "Did you mean name?"), (["--find", ""], "empty"),
                (["--find", "a", "--find", "b", "--replace", "c"], "each --find has its --replace"),
                (["--find", "ok", "--find", "(", "--regex"], "\"(\" is not a regular expression: "),
                (["--name", "x" * 1025], "1024"), (["--profile", "none"], "no profile"),
                (["--pairs", "25"], "1 to 24"), (["--pairs", "1"], "no list 1")):
            with self.subTest(rules=rules):
                self.assertIn(part, self.refused(*rules, "--run", "a.txt"))
        self.assertEqual(self.names(), ["a.txt"])

    def test_an_expression_without_end_changes_nothing_and_ends_soon(self):
        name = "a" * 60 + "b"
        self.make(name)
        self.assertEqual(self.new_names("--regex", "--find", "(a+)+c", "--replace", "x", name), [name])


class Runs(RenameTest):
    def test_a_run_renames_and_an_undo_brings_every_name_back(self):
        self.photos()
        before = self.names()
        outcome = self.rename("--name", "[?modified,{yyyy-MM-dd}]_[C]", "--run", "IMG_1.jpg", "IMG_2.jpg", "IMG_3.jpg")
        after = ["2026-03-06_01.jpg", "2026-03-07_02.jpg", "2026-03-08_03.jpg"]
        self.assertEqual(self.names(), after)
        self.assertEqual(self.content("2026-03-06_01.jpg"), "IMG_1.jpg")
        self.assertEqual(outcome.renames, [("IMG_%d.jpg" % number, name, 0) for number, name in enumerate(after, 1)])
        self.assertEqual([state for _, _, state in self.rows(outcome)], [RENAMED] * 3)
        (undo,) = outcome.of("undo")
        self.assertEqual((undo["items"], undo["restored"]), (3, False))
        self.assertEqual(undo["file"], windows_path(os.path.join(self.config, "Undo", self.undo_files()[0])))
        self.assertRegex(undo["date"], r"^20\d\d-\d\d-\d\dT\d\d:\d\d:\d\d$")

        outcome = self.rename("--undo", "last")
        self.assertEqual(outcome.renames, [(name, "IMG_%d.jpg" % number, 0) for number, name in enumerate(after, 1)])
        self.assertEqual(outcome.of("undo"), [dict(undo, restored=True)])
        self.assertEqual(self.names(), before)
        self.assertEqual(self.content("IMG_1.jpg"), "IMG_1.jpg")

    def test_prose_says_what_was_done_where_the_undo_file_is_and_how_to_take_it_back(self):
        self.make("a.txt")
        outcome = self.prose("--name", "b", "--run", "a.txt")
        (name,) = self.undo_files()
        self.assertEqual(outcome.stdout.split("\n"), [
            "renamed %s to b.txt" % windows_path(self.path("a.txt")), "1 Renamed",
            "Undo file: " + windows_path(os.path.join(self.config, "Undo", name)),
            "Undo it: qxhost --config %s rename --undo %s" % (self.config, name), ""])
        self.assertEqual((outcome.status, outcome.stderr), (0, ""))
        outcome = self.prose("--undo", name)
        self.assertIn("\n1 Restored\n", outcome.stdout)
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_tree_of_many_files_comes_back_as_it_was(self):
        for folder in range(10):
            self.make(*("folder %d/file_%02d ä.TXT" % (folder, number) for number in range(30)))

        def listing():
            return sorted(os.path.join(where, name) for where, folders, files in os.walk(self.folder)
                          for name in folders + files)

        before = listing()
        items = "\n".join(path for path in before if os.path.isfile(path)).encode()
        outcome = self.rename("--items", "-", "--name", "[F]_[N]_[C]", "--case", "upper", "--run", stdin=items)
        self.assertEqual([row["state"] for row in outcome.of("row")], [RENAMED] * 300)
        self.assertEqual(len(set(listing()) & set(before)), 10)
        self.rename("--undo", "last")
        self.assertEqual(listing(), before)

    def test_a_blocked_run_renames_nothing_and_ends_with_4(self):
        self.make("a.txt", "b.txt", "c.txt")
        outcome = self.rename("--name", "x", "--run", "a.txt", "b.txt", "c.txt", status=4)
        self.assertEqual([state for _, _, state in self.rows(outcome)], [DUPLICATE] * 3)
        outcome = self.rename("--name", "a:b", "--run", "a.txt", status=4)
        self.assertEqual(self.rows(outcome), [("a.txt", "a:b.txt", INVALID)])
        self.assertEqual(outcome.renames, [])
        self.assertEqual(self.names(), ["a.txt", "b.txt", "c.txt"])
        self.assertEqual(self.undo_files(), [])

    def test_a_failed_row_ends_with_4_and_the_others_are_renamed_and_taken_back(self):
        self.make("a_.txt", "b_.txt", "c.txt", "b.txt")
        outcome = self.rename("--find", "_", "--run", "a_.txt", "b_.txt", "c.txt", status=4)
        self.assertEqual(self.rows(outcome), [("a_.txt", "a.txt", RENAMED), ("b_.txt", "b.txt", FAILED),
                                              ("c.txt", "c.txt", IGNORED)])
        self.assertEqual(self.names(), ["a.txt", "b.txt", "b_.txt", "c.txt"])
        self.assertEqual(outcome.of("undo")[0]["items"], 1)
        self.rename("--undo", "last")
        self.assertEqual(self.names(), ["a_.txt", "b.txt", "b_.txt", "c.txt"])

    def test_names_that_stay_are_no_failure(self):
        self.make("a.txt")
        outcome = self.rename("--run", "a.txt")
        self.assertEqual(self.rows(outcome), [("a.txt", "a.txt", IGNORED)])
        self.assertEqual((outcome.of("undo"), self.undo_files()), ([], []))

    def test_no_undo_writes_no_file(self):
        self.make("a.txt")
        outcome = self.rename("--name", "b", "--run", "--no-undo", "a.txt")
        self.assertEqual((self.names(), self.undo_files(), outcome.of("undo")), (["b.txt"], [], []))

    def test_a_dry_run_renames_nothing_and_writes_nothing(self):
        self.make("a.txt", "there.txt")
        outcome = self.run_json("--dry-run", "rename", "--name", "b", "--run", "a.txt")
        self.assertEqual(outcome.renames, [("a.txt", "b.txt", 0)])
        self.run_json("--dry-run", "rename", "--name", "there", "--run", "a.txt", status=4)
        self.assertEqual((self.names(), self.undo_files()), (["a.txt", "there.txt"], []))
        for change in (["--save-profile", "x"], ["--delete-undo", "all"]):
            outcome = self.process("--dry-run", "--config", self.config, "rename", *change)
            self.assertEqual(outcome.status, 2)

    def test_two_runs_at_once_have_an_undo_file_each(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        self.rename("--name", "c", "--run", "b.txt")
        self.assertEqual(len(self.undo_files()), 2)
        self.rename("--undo", self.undo_files()[1])
        self.rename("--undo", self.undo_files()[0])
        self.assertEqual(self.names(), ["a.txt"])

    def test_the_templates_of_a_run_are_in_the_histories_and_a_previews_are_not(self):
        self.make("a.txt")
        self.rename("--name", "x[C]", "a.txt")
        self.rename("--name", "b[C]", "--run", "a.txt")
        self.rename("--name", "[N]", "--extension", "md", "--run", "b01.txt")
        with open(os.path.join(self.config, "histories.json"), encoding="utf-8") as file:
            stored = file.read()
        self.assertIn("b[C]", stored)
        self.assertIn("md", stored)
        self.assertNotIn("x[C]", stored)


class UndoFiles(RenameTest):
    def write(self, name, seconds, lines, restored=0):
        folder = os.path.join(self.config, "Undo")
        os.makedirs(folder, exist_ok=True)
        text = "[INFO]\r\nDate : %d\r\nItems : %d\r\nHaveRestored : %d\r\n\r\n[FILES]\r\n" % (
            seconds, len(lines), restored)
        with open(os.path.join(folder, name), "wb") as file:
            file.write((text + "".join(line + "\r\n" for line in lines)).encode("utf-16-le"))
        return os.path.join(folder, name)

    def test_the_bytes_of_an_undo_file(self):
        self.make("a.txt")
        self.rename("--name", "b", "--run", "a.txt")
        with open(os.path.join(self.config, "Undo", self.undo_files()[0]), "rb") as file:
            text = file.read().decode("utf-16-le")
        self.assertRegex(self.undo_files()[0], r"^MultiRenameUndoData-20\d\d-\d\d-\d\d-\d{6}\.dat$")
        self.assertRegex(text, r"^\[INFO\]\r\nDate : \d+\r\nItems : 1\r\nHaveRestored : 0\r\n\r\n\[FILES\]\r\n")
        self.assertTrue(text.endswith("\r\n%s|a.txt|b.txt\r\n" % windows_path(self.folder)), text)

    def test_the_list_is_by_date_and_last_is_the_newest_by_date(self):
        self.make("new.txt", "older.txt")
        where = windows_path(self.folder)
        self.write("z.dat", 1000000000, [where + "|old.txt|older.txt"])
        self.write("a.dat", 1700000000, [where + "|was.txt|new.txt"])
        self.write("b.dat", 86400, [where + "|x|y", where + "|q|r"], restored=1)
        listed = self.rename("--list-undo").of("undo")
        self.assertEqual([(undo["file"].rpartition("\\")[2], undo["date"], undo["items"], undo["restored"])
                          for undo in listed],
                         [("a.dat", "2023-11-14T22:13:20", 1, False), ("z.dat", "2001-09-09T01:46:40", 1, False),
                          ("b.dat", "1970-01-02T00:00:00", 2, True)])
        self.rename("--undo", "last")
        self.assertEqual(self.names(), ["older.txt", "was.txt"])
        prose = self.prose("--list-undo").stdout
        self.assertRegex(prose, r"(?m)^a\.dat  .*  1 rename, undone$")
        self.assertRegex(prose, r"(?m)^z\.dat  .*  1 rename$")

    def test_a_file_is_given_by_its_bare_name_or_its_path(self):
        where = windows_path(self.folder)
        for index, form in enumerate(("name", "path", "windows path", "elsewhere")):
            with self.subTest(form=form):
                self.make("new.txt")
                path = self.write("u%d.dat" % index, 1000, [where + "|old.txt|new.txt"])
                if form == "elsewhere":
                    os.rename(path, self.path("moved.dat"))
                    path = self.path("moved.dat")
                given = {"name": os.path.basename(path), "windows path": windows_path(path)}.get(form, path)
                outcome = self.rename("--undo", given)
                self.assertIn("old.txt", self.names())
                self.assertEqual(len(outcome.of("undo")), 0 if form == "elsewhere" else 1)
                os.remove(self.path("old.txt"))

    def test_what_is_no_undo_file_is_refused(self):
        self.make("a.txt")
        self.assertIn("no undo files", self.refused("--undo", "last"))
        self.write("file.dat", 1000, ["Z:\\x|a|b"])
        self.assertIn("Did you mean file.dat?", self.refused("--undo", "flie.dat"))
        self.assertIn("is not an undo file", self.refused("--undo", self.path("a.txt")))
        self.assertIn("cannot read", self.refused("--undo", self.path("missing")))

    def test_an_edited_file_moves_nothing_out_of_its_folder(self):
        self.make("new.txt", "deep/x")
        path = self.write("u.dat", 1000, [windows_path(self.folder) + "|deep\\old.txt|new.txt"])
        outcome = self.rename("--undo", path, status=4)
        self.assertEqual([result for _, _, result in outcome.renames], [123])
        self.assertEqual(self.names(), ["deep/", "new.txt"])
        self.assertEqual(self.names("deep"), ["x"])

    def test_files_are_deleted_by_name_or_all(self):
        for name in ("a.dat", "b.dat", "c.dat"):
            self.write(name, 1000, ["Z:\\x|a|b"])
        self.rename("--delete-undo", "b.dat")
        self.assertEqual(self.undo_files(), ["a.dat", "c.dat"])
        self.assertIn("is not an undo file", self.refused("--delete-undo", "b.dat"))
        self.rename("--delete-undo", "all")
        self.assertEqual(self.undo_files(), [])


class Saved(RenameTest):
    def test_a_profile_is_saved_listed_used_and_deleted(self):
        self.make("a b.txt")
        self.rename("--name", "[N]!", "--case", "upper", "--start", "5", "--find", " B", "--replace", " c ",
                    "--case-sensitive", "--parts", "name", "--save-profile", " My rules ")
        (profile,) = self.rename("--list-profiles").of("profile")
        self.assertEqual(profile, {
            "event": "profile", "name": "My rules", "filename": "[N]!", "extension": "[E]", "case": "upper",
            "start": 5, "step": 1, "digits": 2, "regex": False, "replace-all": False, "case-sensitive": True,
            "parts": "name", "pairs": [{"find": " B", "replace": " c "}]})
        outcome = self.rename("--profile", "MY RULES", "a b.txt")
        self.assertEqual(self.rows(outcome), [("a b.txt", "A c !.TXT", 0)])
        outcome = self.rename("--profile", "My rules", "--case", "none", "--find", "a", "--replace", "z", "a b.txt")
        self.assertEqual(self.rows(outcome), [("a b.txt", "z b!.txt", 0)])
        self.assertIn("Did you mean My rules?", self.refused("--profile", "My rule", "a b.txt"))
        self.rename("--delete-profile", "my rules")
        self.assertEqual(self.rename("--list-profiles").of("profile"), [])
        self.assertIn("no profile", self.refused("--delete-profile", "My rules"))

    def test_a_profile_is_replaced_only_when_the_answer_is_yes(self):
        self.rename("--name", "one", "--save-profile", "P")
        self.rename("--name", "two", "--save-profile", "p", answers=["no"], status=4)
        self.assertEqual(self.rename("--list-profiles").of("profile")[0]["filename"], "one")
        self.rename("--name", "two", "--save-profile", "p", answers=["yes"])
        (profile,) = self.rename("--list-profiles").of("profile")
        self.assertEqual((profile["name"], profile["filename"]), ("p", "two"))

    def test_what_a_profile_does_not_keep_is_said(self):
        outcome = self.rename("--regex", "--save-profile", "P")
        self.assertIn("does not store", outcome.stderr)
        self.assertIn("--regex", outcome.stderr)
        outcome = self.rename("--find", "a", "--parts", "extension", "--save-profile", "Q")
        self.assertIn("does not store these as they were given: --parts", outcome.stderr)

    def test_pairs_are_saved_under_a_number_and_used(self):
        self.make("old name.txt")
        self.rename("--find", "old", "--replace", "new", "--find", " ", "--replace", "_", "--save-pairs", "24")
        outcome = self.rename("--pairs", "24", "old name.txt")
        self.assertEqual(self.rows(outcome), [("old name.txt", "new_name.txt", 0)])
        outcome = self.rename("--pairs", "24", "--find", "NAME", "--replace", "x", "old name.txt")
        self.assertEqual(self.rows(outcome), [("old name.txt", "new_x.txt", 0)])
        self.assertIn("the lists are: 24", self.refused("--pairs", "1", "old name.txt"))
        self.assertIn("there are none", self.refused("--save-pairs", "1"))

    def test_properties_are_listed_with_their_display_names(self):
        listed = [(event["name"], event["display"]) for event in self.rename("--list-properties").of("property")]
        self.assertEqual([name for name, _ in listed], ["size", "created", "modified", "accessed", "attributes",
                                                        "owner", "access", "ADScount", "ADSsize"])
        self.assertEqual(listed[2][1], "Date modified")

    def test_the_columns_of_the_module_are_properties_too(self):
        self.make("a.txt")
        cells = {event["name"]: event["value"] for event in self.run_json("columns", "a.txt").of("column")}
        self.assertTrue(cells["owner"])
        outcome = self.rename("--name", "[?owner]", "a.txt")
        state = INVALID if "\\" in cells["owner"] else READY
        self.assertEqual(self.rows(outcome), [("a.txt", cells["owner"] + ".txt", state)])


    def test_access_and_streams_are_in_names(self):
        self.make("a.txt")
        cells = {event["name"]: event["value"] for event in self.run_json("columns", "a.txt").of("column")}
        self.assertEqual(len(cells["access"]), 3)
        for tag, value in (("[?access]", cells["access"]), ("[?ADScount]", "0"), ("[?ADSsize]", "")):
            with self.subTest(tag=tag):
                outcome = self.rename("--name", "x" + tag + "y", "a.txt")
                self.assertEqual(self.rows(outcome), [("a.txt", "x" + value + "y.txt", READY)])


if not IS_WINDOWS:

    class NativeColumnsInNames(RenameTest):
        def test_each_file_gets_its_own_access_and_streams(self):
            self.make("a.txt", "b.txt")
            os.chmod(self.path("a.txt"), 0o500)
            os.chmod(self.path("b.txt"), 0o600)
            os.setxattr(self.path("b.txt"), "user.one", b"x" * 10)
            os.setxattr(self.path("b.txt"), "user.two", b"x" * 20)
            outcome = self.rename("--name", "[N]([?access])[?ADScount]-[?ADSsize]", "--run", "a.txt", "b.txt")
            self.assertEqual(self.rows(outcome), [("a.txt", "a(R X)0-.txt", RENAMED),
                                                  ("b.txt", "b(RW )2-30.txt", RENAMED)])
            self.assertEqual(self.names(), ["a(R X)0-.txt", "b(RW )2-30.txt"])


class Calls(RenameTest):
    def test_a_call_says_what_it_lacks_or_has_too_much(self):
        self.make("a.txt")
        for call, part in (([], "needs ITEMs"), (["--run"], "needs ITEMs"), (["--no-undo", "a.txt"], "--no-undo"),
                           (["--list-undo", "--undo", "last"], "two calls"), (["--list-undo", "a.txt"], "no ITEMs"),
                           (["--undo", "last", "--run"], "no ITEMs"), (["--nmae", "x", "a.txt"], "--name")):
            with self.subTest(call=call):
                self.assertIn(part, self.refused(*call))


class Help(RenameTest):
    # For each example, in the order of the help: its beginning, part of its output, and the names afterwards.
    AFTER = [
        ('qxhost rename --name "[?modified', "2026-03-06_01.jpg", "IMG_1.jpg IMG_2.jpg IMG_3.jpg my_old_notes.txt"),
        ('qxhost rename --name "[?modified', "3 Renamed",
         "2026-03-06_01.jpg 2026-03-07_02.jpg 2026-03-08_03.jpg my_old_notes.txt"),
        ("qxhost rename --list-undo", "3 renames", None),
        ("qxhost rename --undo last", "3 Restored", "IMG_1.jpg IMG_2.jpg IMG_3.jpg my_old_notes.txt"),
        ("qxhost rename --find _", "1 Renamed", "IMG_1.jpg IMG_2.jpg IMG_3.jpg My-Old-Notes.txt"),
        ("qxhost rename --regex", "   Song - Anna.mp3\n", None),
        ('qxhost rename --name "[F] [C]" --start 10', "   files 10.txt\n", None),
        ('qxhost rename --profile "By folder"', "1 Renamed", "IMG_1.jpg IMG_2.jpg IMG_3.jpg files-10.txt"),
        ("find . -name", "to x.jpg\n", None),
        ("qxhost rename --find old", "saved 2 pairs as list 1", None),
        ("qxhost --dry-run rename", "to Anna - Song_00000015.mp3\n",
         "IMG_1.jpg IMG_2.jpg IMG_3.jpg files-10.txt"),
    ]

    def test_the_examples_work_as_typed(self):
        lines = self.process("rename", "--help").stdout.partition("Examples:")[2].split("\n")
        examples = [line.strip() for line in lines if re.match(r"  (qxhost|find) ", line)]
        self.assertEqual(len(examples), len(self.AFTER))
        self.photos()
        self.make("my_old_notes.txt", "Anna - Song.mp3", "sub/X.JPG")
        command = " ".join("'%s'" % part for part in COMMAND + ["--config", self.config])
        for example, (begin, said, names) in zip(examples, self.AFTER):
            with self.subTest(example=example):
                self.assertTrue(example.startswith(begin))
                with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
                    done = subprocess.run(["sh", "-c", 'qxhost() { %s "$@"; }\n%s' % (command, example)],
                                          cwd=self.folder, stdin=subprocess.DEVNULL, stdout=out, stderr=err,
                                          timeout=TIMEOUT_SECONDS, check=False,
                                          env=dict(os.environ, LC_ALL="C.UTF-8"))
                    out.seek(0)
                    err.seek(0)
                    printed = out.read().decode()
                    self.assertEqual((done.returncode, err.read()), (0, b""), printed)
                self.assertIn(said, printed)
                if names:
                    self.assertEqual([name.replace(" ", "-") for name in self.names()],
                                     sorted(names.split() + ["Anna---Song.mp3", "sub/"]))
        self.assertEqual(self.names("sub"), ["x.jpg"])


if not IS_WINDOWS:

    class NamesWithABar(RenameTest):
        def test_such_a_file_is_renamed_and_the_call_warns_that_its_undo_cannot_be_kept(self):
            self.make("a|b.txt", "c.txt")
            outcome = self.prose("--find", "|", "--replace", "-", "--name", "[N]_[C]", "--run", "a|b.txt", "c.txt")
            self.assertEqual((outcome.status, self.names()), (0, ["a-b_01.txt", "c_02.txt"]), outcome.stderr)
            self.assertIn("the undo of 1 rename of 2 cannot be kept", outcome.stderr)
            self.assertIn("a|b.txt", outcome.stderr)
            self.prose("--undo", "last")
            self.assertEqual(self.names(), ["a-b_01.txt", "c.txt"])

        def test_many_of_them_in_a_list_are_renamed_as_well(self):
            names = ["%d|x" % number for number in range(6)]
            self.make(*names)
            outcome = self.rename("--find", "|", "--replace", "", "--no-undo", "--run", *names)
            self.assertEqual(outcome.status, 0)
            self.assertEqual(self.names(), ["%dx" % number for number in range(6)])

        def test_a_new_name_with_a_bar_is_refused(self):
            self.make("a.txt", "b|c.txt")
            outcome = self.rename("--find", "a", "--replace", "|", "--run", "a.txt", status=4)
            self.assertEqual(self.rows(outcome), [("a.txt", "|.txt", INVALID)])
            self.assertEqual(self.names(), ["a.txt", "b|c.txt"])
