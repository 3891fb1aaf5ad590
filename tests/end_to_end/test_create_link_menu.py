import json
import os

from qxhost import IS_WINDOWS, HostTest, windows_path

SETTINGS = "settings.json"


class LinkMenuTest(HostTest):
    def setUp(self):
        super().setUp()
        self.panel = os.path.join(self.scratch, "panel")
        os.mkdir(self.panel)

    def link(self, *names, form=(), options=(), answers=("ok",), **keywords):
        """Runs Create Link on these items of the folder, with the other panel at `panel`."""
        arguments = ["--panel", self.panel, *options]
        for value in form:
            arguments += ["--form", value]
        return self.run_json(*arguments, "command", "30350", *[self.path(name) for name in names],
                             answers=list(answers), **keywords)

    def links(self):
        return sorted(os.listdir(self.panel))

    def in_panel(self, name):
        return os.path.join(self.panel, name)

    def created(self, word, link, target):
        return {"event": "log", "category": 1, "level": 10,
                "text": "Link Created (%s) Link : \"%s\" Link Target : \"%s\""
                        % (word, windows_path(self.in_panel(link)), windows_path(self.path(target)))}

    def failed(self, word, error, link, target):
        return {"event": "log", "category": 1, "level": 30,
                "text": "Failed to create link (%s) (Error : %d) Link : \"%s\" Link Target : \"%s\""
                        % (word, error, windows_path(self.in_panel(link)), windows_path(self.path(target)))}

    def store_kind(self, kind):
        os.makedirs(self.config, exist_ok=True)
        with open(os.path.join(self.config, SETTINGS), "w", encoding="utf-8") as file:
            json.dump({"QXUtils": {"CreateLink": {"LastLinkValue": kind}}}, file)

    def stored_kind(self):
        with open(os.path.join(self.config, SETTINGS), encoding="utf-8") as file:
            return json.load(file)["QXUtils"]["CreateLink"]["LastLinkValue"]

    def asked(self, outcome):
        return [(event["kind"], event["title"], event["answer"]) for event in outcome.questions]

    def assert_same_file(self, one, other):
        self.assertEqual(os.stat(one).st_ino, os.stat(other).st_ino)


class CreateLinkMenu(LinkMenuTest):
    """For both builds: the dialog opens with the stored kind and is closed by an answer."""

    def test_one_hard_link_in_the_other_panel(self):
        self.make("a ü Ж.txt")
        self.store_kind(1)
        outcome = self.link("a ü Ж.txt")
        self.assertEqual(self.asked(outcome), [("dialog", "Create Link", "ok")])
        self.assertEqual(outcome.of("log"), [self.created("Hardlink", "a ü Ж.txt", "a ü Ж.txt")])
        self.assert_same_file(self.in_panel("a ü Ж.txt"), self.path("a ü Ж.txt"))
        self.assertEqual(self.stored_kind(), 1)

    def test_several_hard_links(self):
        self.make("b", "a.txt")
        self.store_kind(1)
        outcome = self.link("b", "a.txt")
        self.assertEqual(outcome.of("log"),
                         [self.created("Hardlink", "b", "b"), self.created("Hardlink", "a.txt", "a.txt")])
        self.assertEqual(self.links(), ["a.txt", "b"])

    def test_a_shortcut_loses_the_old_extension_and_those_of_several_keep_it_by_design(self):
        self.make("a.txt", "b.txt", "sub.d/")
        self.store_kind(4)
        self.link("a.txt")
        self.assertEqual(self.links(), ["a.lnk"])
        self.link("b.txt", "sub.d")
        self.assertEqual(self.links(), ["a.lnk", "b.txt.lnk", "sub.d.lnk"])

    def test_a_stored_seven_selects_no_row_and_ok_makes_no_link(self):
        self.make("a.txt")
        self.store_kind(7)
        outcome = self.link("a.txt")
        self.assertEqual(self.asked(outcome), [("dialog", "Create Link", "ok")])
        self.assertEqual((outcome.of("log"), self.links(), self.stored_kind()), ([], [], 7))

    def test_cancel_makes_and_stores_nothing(self):
        self.make("a.txt")
        outcome = self.link("a.txt", answers=["cancel"])
        self.assertEqual(self.asked(outcome), [("dialog", "Create Link", "cancel")])
        self.assertEqual((outcome.of("log"), self.links()), ([], []))
        self.assertFalse(os.path.exists(os.path.join(self.config, SETTINGS)))

    def test_without_items_or_another_panel_nothing_is_asked(self):
        self.make("a.txt")
        self.assertEqual(self.link(answers=[]).events[:-1], [])
        self.assertEqual(self.command(30350, "a.txt").events[:-1], [])

    def test_ok_that_is_disabled_is_a_wrong_call_and_is_reported_as_cancel(self):
        self.make("a.txt")
        self.store_kind(2)
        outcome = self.link("a.txt", status=2)
        self.assertEqual(self.asked(outcome), [("dialog", "Create Link", "cancel")])
        self.assertIn("cannot be answered with ok, which is disabled", outcome.stderr)
        self.assertEqual((outcome.of("log"), self.links(), self.stored_kind()), ([], [], 2))

    def assert_no_shortcut_over_a_file(self, item, link):
        self.make(item)
        self.store_kind(4)
        with open(self.in_panel(link), "w", encoding="utf-8") as file:
            file.write("here first")
        outcome = self.link(item, answers=["ok", "ok"])
        self.assertEqual(outcome.of("log"), [self.failed("Unknown", 3, link, item)])
        self.assertEqual(self.asked(outcome)[1:], [("box", "Command Failed", "ok")])
        with open(self.in_panel(link), encoding="utf-8") as file:
            self.assertEqual(file.read(), "here first")

    def test_a_shortcut_of_a_bare_name_never_takes_the_place_of_a_file(self):
        self.assert_no_shortcut_over_a_file("bare", "bare")

    def test_a_shortcut_never_takes_the_place_of_a_file_that_is_none(self):
        self.assert_no_shortcut_over_a_file("a.txt", "a.lnk")

    def test_a_shortcut_takes_the_place_of_another(self):
        self.make("a.txt", "sub/a.txt")
        self.store_kind(4)
        self.link("a.txt")
        with open(self.in_panel("a.lnk"), "rb") as file:
            first = file.read()
        outcome = self.link("sub/a.txt")
        self.assertEqual(outcome.of("log"), [self.created("Unknown", "a.lnk", "sub/a.txt")])
        with open(self.in_panel("a.lnk"), "rb") as file:
            self.assertNotEqual(file.read(), first)

    def test_a_folder_is_no_junction_to_itself(self):
        self.make("sub/", "other/")
        self.panel = self.folder
        self.store_kind(2)
        outcome = self.link("sub", answers=["ok", "ok"])
        self.assertEqual(outcome.of("log"), [self.failed("Junction", 13, "sub", "sub")])
        self.assertEqual(self.asked(outcome)[1:], [("box", "Command Failed", "ok")])
        self.assertEqual(self.names(), ["other/", "sub/"])
        self.assertFalse(os.path.islink(self.path("sub")))

    def test_the_first_failure_of_several_is_reported_and_ends_it(self):
        self.make("a", "b", "c")
        self.store_kind(1)
        with open(self.in_panel("b"), "w", encoding="utf-8") as file:
            file.write("here first")
        outcome = self.link("a", "b", "c", answers=["ok", "ok"])
        self.assertEqual(outcome.of("log"),
                         [self.created("Hardlink", "a", "a"), self.failed("Hardlink", 183, "b", "b")])
        self.assertEqual([(event["kind"], event["title"], event.get("style")) for event in outcome.questions[1:]],
                         [("box", "Command Failed", 0x10)])
        self.assertEqual(self.links(), ["a", "b"])
        with open(self.in_panel("b"), encoding="utf-8") as file:
            self.assertEqual(file.read(), "here first")


if not IS_WINDOWS:

    class CreateLinkForms(LinkMenuTest):
        def test_each_kind_is_made_and_remembered(self):
            self.make("a.txt", "sub/inner")
            cases = [("hard", 1, "Hardlink", "a.txt", "a.txt"), ("junction", 2, "Junction", "sub", "sub"),
                     ("symbolic", 3, "Symlink", "sub", "sub"), ("shortcut", 4, "Unknown", "a.txt", "a.lnk")]
            for word, number, log, target, link in cases:
                with self.subTest(kind=word):
                    outcome = self.link(target, form=["linkKind=" + word])
                    self.assertEqual(outcome.of("log"), [self.created(log, link, target)])
                    self.assertEqual(self.stored_kind(), number)
                    self.assertEqual(self.links(), [link])
                    if os.path.islink(self.in_panel(link)):
                        self.assertEqual(os.listdir(self.in_panel(link)), ["inner"])
                    os.remove(self.in_panel(link))

        def test_with_nothing_stored_it_opens_on_the_junction(self):
            self.make("sub/inner")
            outcome = self.link("sub")
            self.assertEqual(outcome.of("log"), [self.created("Junction", "sub", "sub")])
            self.assertEqual(self.stored_kind(), 2)

        def test_the_dialog_opens_on_the_last_kind(self):
            self.make("a.txt", "b.txt")
            self.link("a.txt", form=["linkKind=symbolic"])
            outcome = self.link("b.txt")
            self.assertEqual(outcome.of("log"), [self.created("Symlink", "b.txt", "b.txt")])

        def test_a_junction_on_an_empty_folder_turns_it_into_the_junction(self):
            self.make("sub/inner")
            os.mkdir(self.in_panel("sub"))
            self.link("sub", form=["linkKind=junction"])
            self.assertEqual(os.listdir(self.in_panel("sub")), ["inner"])

        def test_a_junction_on_a_full_folder_fails_and_leaves_it(self):
            self.make("sub/inner")
            os.makedirs(self.in_panel("sub/full"))
            outcome = self.link("sub", form=["linkKind=junction"], answers=["ok", "ok"])
            self.assertEqual(outcome.of("log"), [self.failed("Junction", 13, "sub", "sub")])
            self.assertEqual(os.listdir(self.in_panel("sub")), ["full"])

        def test_a_link_of_ones_own_to_a_target_of_ones_own(self):
            self.make("a.txt", "other.txt")
            link = self.path("elsewhere")
            self.link("a.txt", form=["linkKind=symbolic", "linkName=" + windows_path(link),
                                     "targetName=" + windows_path(self.path("other.txt"))])
            self.assertEqual(os.readlink(link), self.path("other.txt"))
            self.assertEqual(self.links(), [])

        def test_the_target_is_grey_for_other_kinds(self):
            self.make("a.txt")
            outcome = self.link("a.txt", form=["linkKind=hard", "targetName=x"], status=2)
            self.assertIn("targetName", outcome.stderr)
            self.assertEqual(self.links(), [])

        def test_grey_ok_makes_and_stores_nothing_and_says_why(self):
            self.make("a.txt", "sub/")
            for names, kind, why in ((["a.txt"], "junction", "There are no junctions to files."),
                                     (["sub"], "hard", "There are no hard links to folders."),
                                     (["a.txt", "sub"], "hard", "There are no hard links to folders, and folders are among the items."),
                                     (["a.txt", "sub"], "junction", "There are no junctions to files, and files are among the items.")):
                with self.subTest(names=names, kind=kind):
                    outcome = self.link(*names, form=["linkKind=" + kind], status=2)
                    self.assertEqual(self.asked(outcome), [("dialog", "Create Link", "cancel")])
                    self.assertIn("status=" + why, outcome.stderr)
                    self.assertEqual((outcome.of("log"), self.links()), ([], []))
                    self.assertFalse(os.path.exists(os.path.join(self.config, SETTINGS)))

        def test_before_vista_there_are_no_symbolic_links(self):
            self.make("a.txt")
            outcome = self.link("a.txt", form=["linkKind=symbolic"], options=["--before-vista"], status=2)
            self.assertIn("status=This version of Windows has no symbolic links.", outcome.stderr)
            self.assertEqual((outcome.of("log"), self.links()), ([], []))

        def test_the_description_of_the_kind_is_a_field(self):
            self.make("a.txt")
            for word, description in (
                    ("hard", "A second name of the same file on the same drive. The file stays until its last name is "
                             "deleted."),
                    ("junction", "A folder that leads to another folder of this computer."),
                    ("symbolic", "A file or folder that leads to another path, which may be on another drive or "
                                 "computer."),
                    ("shortcut", "")):
                with self.subTest(kind=word):
                    outcome = self.link("a.txt", form=["linkKind=" + word, "help="], answers=[], status=2)
                    self.assertIn("description=%s, status=" % description, outcome.stderr)

        def test_several_items_are_shown_by_their_folders_and_a_star(self):
            self.make("a", "b")
            outcome = self.link("a", "b", form=["help="], answers=[], status=2)
            self.assertIn("linkName=%s\\*, targetName=%s\\*, " % (windows_path(self.panel), windows_path(self.folder)),
                          outcome.stderr)

        def test_several_symbolic_links_to_files_and_folders(self):
            self.make("a.txt", "sub/inner")
            self.link("a.txt", "sub", form=["linkKind=symbolic"])
            self.assertEqual(os.readlink(self.in_panel("a.txt")), self.path("a.txt"))
            self.assertEqual(os.readlink(self.in_panel("sub")), self.path("sub"))

        def test_a_file_without_an_extension_gets_a_shortcut_of_its_bare_name_by_design(self):
            self.make("bare")
            outcome = self.link("bare", form=["linkKind=shortcut"])
            self.assertEqual(outcome.of("log"), [self.created("Unknown", "bare", "bare")])
            self.assertEqual(self.links(), ["bare"])

        def test_what_the_system_refuses_goes_to_the_helper_and_leaves_two_log_lines(self):
            self.make("sub/inner")
            outcome = self.link("sub", form=["linkKind=symbolic"], options=["--without-rights"])
            self.assertEqual(outcome.of("log"), [self.failed("Symlink", 1314, "sub", "sub"),
                                                 self.created("Symlink", "sub", "sub")])
            self.assertEqual(os.readlink(self.in_panel("sub")), self.path("sub"))
