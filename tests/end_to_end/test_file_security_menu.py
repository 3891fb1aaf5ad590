import os
import pathlib
import shutil
import stat

from qxhost import COMMAND, IS_WINDOWS, HostTest, windows_path

# Options for running in the process itself, and through the elevated helper.
WAYS = (["--elevated"], [])
DENIED = "You have no right to change the owner or the access of this item. The items after it were not changed."


class FileSecurityTest(HostTest):
    def run_command(self, number, *names, answers=(), options=()):
        return self.run_json(*options, "command", str(number), *[self.path(name) for name in names], answers=answers)

    @staticmethod
    def asked(outcome):
        return [(event["kind"], event["title"], event["answer"]) for event in outcome.questions]


class FileSecurityMenu(FileSecurityTest):
    def test_without_items_nothing_is_asked(self):
        for number in (30300, 30310, 30311):
            for way in WAYS:
                self.assertEqual(self.run_command(number, options=way).events[:-1], [])

    def test_taking_ownership_refreshes_the_view(self):
        self.make("a.txt", "folder/")
        for way in WAYS:
            with self.subTest(way=way):
                outcome = self.run_command(30300, "a.txt", "folder", options=way)
                self.assertEqual(outcome.events[:-1],
                                 [{"event": "refresh", "folder": windows_path(self.folder)}])

    def test_no_resets_nothing(self):
        self.make("a.txt")
        outcome = self.run_command(30310, "a.txt", answers=["no"])
        self.assertEqual(self.asked(outcome), [("box", "Reset Access", "no")])
        self.assertEqual(outcome.questions[0]["style"], 0x44)

    def test_yes_resets_without_another_box(self):
        self.make("a.txt", "b.txt")
        for way in WAYS:
            with self.subTest(way=way):
                outcome = self.run_command(30310, "a.txt", "b.txt", answers=["yes"], options=way)
                self.assertEqual(self.asked(outcome), [("box", "Reset Access", "yes")])

    def test_access_is_added_for_oneself_at_first(self):
        self.make("a.txt")
        for way in WAYS:
            with self.subTest(way=way):
                outcome = self.run_command(30311, "a.txt", answers=["ok"], options=way)
                self.assertEqual(self.asked(outcome), [("dialog", "Add File Access", "ok")])
        outcome = self.run_command(30311, "a.txt", answers=["cancel"])
        self.assertEqual(self.asked(outcome), [("dialog", "Add File Access", "cancel")])


if not IS_WINDOWS:

    class FileSecurityOfNativeFiles(FileSecurityTest):
        def mode(self, name):
            return stat.S_IMODE(os.stat(self.path(name)).st_mode)

        def add(self, user, access, *names, options=(), answers=("ok",)):
            form = ["--form", "userName=" + user, "--form", "access=" + access]
            return self.run_command(30311, *names, answers=answers, options=[*options, *form])

        def test_each_level_shows_in_the_mode(self):
            levels = {"read": 0o555, "write": 0o777, "modify": 0o777, "full": 0o777}
            for way in WAYS:
                for level, mode in levels.items():
                    with self.subTest(way=way, level=level):
                        self.make("a.txt")
                        os.chmod(self.path("a.txt"), 0)
                        self.add("Everyone", level, "a.txt", options=way)
                        self.assertEqual(self.mode("a.txt"), mode)
                        os.chmod(self.path("a.txt"), 0o600)

        def test_access_without_a_user_given_is_added_for_oneself(self):
            for way in WAYS:
                with self.subTest(way=way):
                    self.make("a.txt")
                    os.chmod(self.path("a.txt"), 0)
                    self.run_command(30311, "a.txt", answers=["ok"], options=way)
                    self.assertEqual(self.mode("a.txt"), 0o500)
                    os.chmod(self.path("a.txt"), 0o600)

        def test_cancelling_adds_no_access(self):
            self.make("a.txt")
            os.chmod(self.path("a.txt"), 0)
            self.run_command(30311, "a.txt", answers=["cancel"])
            self.assertEqual(self.mode("a.txt"), 0)

        def test_resetting_leaves_no_rights(self):
            for way in WAYS:
                with self.subTest(way=way):
                    self.make("a.txt", "b.txt")
                    self.run_command(30310, "a.txt", "b.txt", answers=["yes"], options=way)
                    self.assertEqual((self.mode("a.txt"), self.mode("b.txt")), (0, 0))
                    os.chmod(self.path("a.txt"), 0o600)
                    os.chmod(self.path("b.txt"), 0o600)

        def test_an_unknown_user_is_an_error_and_ends_the_command(self):
            self.make("a.txt", "b.txt")
            for way in WAYS:
                with self.subTest(way=way):
                    outcome = self.add("nosuchuser", "full", "a.txt", "b.txt", options=way, answers=["ok", "ok"])
                    self.assertEqual(len(outcome.questions), 2)
                    box = outcome.questions[1]
                    self.assertEqual((box["kind"], box["title"], box["style"]), ("box", "Command Failed", 0x10))
                    self.assertIn("error 1332.", box["text"])

        def test_an_empty_user_is_error_87(self):
            self.make("a.txt")
            for way in WAYS:
                with self.subTest(way=way):
                    outcome = self.add("", "read", "a.txt", options=way, answers=["ok", "ok"])
                    self.assertIn("error 87.", outcome.questions[1]["text"])

        def test_a_file_of_another_user_is_taken_with_the_right_and_denied_without(self):
            for way in WAYS:
                with self.subTest(way=way):
                    if os.geteuid() == 0:
                        self.make("a.txt")
                        os.chown(self.path("a.txt"), 65534, 65534)
                        outcome = self.run_command(30300, "a.txt", options=way)
                        self.assertEqual(outcome.questions, [])
                        self.assertEqual(os.stat(self.path("a.txt")).st_uid, 0)
                    else:
                        outcome = self.run_json(*way, "command", "30300", "/etc/passwd", answers=["ok"])
                        self.assertEqual(self.asked(outcome), [("box", "Access Denied", "ok")])
                        self.assertEqual(outcome.questions[0]["text"], DENIED)
                        self.assertEqual(os.stat("/etc/passwd").st_uid, 0)

        def test_thousands_of_files_are_reset_after_one_question(self):
            names = ["%04d" % number for number in range(2000)]
            self.make(*names)
            items = "".join(self.path(name) + "\n" for name in names).encode()
            for way in WAYS:
                with self.subTest(way=way):
                    outcome = self.run_json(*way, "--items", "-", "command", "30310", answers=["yes"], stdin=items)
                    self.assertEqual(len(outcome.questions), 1)
                    self.assertEqual({self.mode(name) for name in names}, {0})
                    for name in names:
                        os.chmod(self.path(name), 0o600)

        def test_the_names_of_the_commands(self):
            self.make("a.txt")
            outcome = self.run_json("--elevated", "command", "take-own", self.path("a.txt"))
            self.assertEqual(len(outcome.of("refresh")), 1)

    class FileSecurityOfAnOrdinaryUser(FileSecurityTest):
        """Runs the commands as nobody if the tests run as root, otherwise as the tests' user."""

        def setUp(self):
            super().setUp()
            self.user = 65534 if os.geteuid() == 0 else os.geteuid()
            # The user nobody may have no access to the build folder, so a copy of the program is run.
            programs = os.path.join(self.scratch, "bin")
            os.mkdir(programs)
            built = pathlib.Path(COMMAND[0]).parent
            for file in [pathlib.Path(COMMAND[0]), *built.glob("*.so"), built / "english.language"]:
                shutil.copy(file, programs)
            self.command_line = [os.path.join(programs, os.path.basename(COMMAND[0]))]
            os.mkdir(self.config)
            self.make("own.txt")
            os.chmod(self.path("own.txt"), 0o640)
            for path in (self.scratch, self.folder, self.config, programs):
                os.chmod(path, 0o755)
            for path in (self.config, self.path("own.txt")):
                os.chown(path, self.user, -1)

        def run_as_user(self, *arguments, **keywords):
            user = self.user if os.geteuid() == 0 else None
            return self.run_json(*arguments, command=self.command_line, user=user, **keywords)

        def mode(self, name):
            return stat.S_IMODE(os.stat(self.path(name)).st_mode)

        def add(self, user, path, **keywords):
            return self.run_as_user("--form", "userName=" + user, "--form", "access=read", "command", "30311", path,
                                    answers=["ok"], **keywords)

        def test_ones_own_file_is_taken_and_reset_and_given_access_again(self):
            own = self.path("own.txt")
            for way in WAYS:
                with self.subTest(way=way):
                    outcome = self.run_as_user(*way, "command", "30300", own)
                    self.assertEqual((outcome.questions, len(outcome.of("refresh"))), ([], 1))
                    self.assertEqual((os.stat(own).st_uid, self.mode("own.txt")), (self.user, 0o640))
                    outcome = self.run_as_user(*way, "command", "30310", own, answers=["yes"])
                    self.assertEqual(self.asked(outcome), [("box", "Reset Access", "yes")])
                    self.assertEqual(self.mode("own.txt"), 0)
                    # The reset has emptied the list, so it contains only the new entry.
                    self.assertEqual(len(self.add("Everyone", own).questions), 1)
                    self.assertEqual(self.mode("own.txt"), 0o555)
                    self.assertEqual(len(self.add("root", own).questions), 1)
                    self.assertIn("system.posix_acl_access", os.listxattr(own))
                    os.removexattr(own, "system.posix_acl_access")
                    os.chmod(own, 0o640)

        def test_the_columns_show_what_the_commands_did(self):
            own = self.path("own.txt")
            cells = lambda: {event["name"]: event["value"] for event in self.run_as_user("columns", own).of("column")}
            name = cells()["owner"]
            self.assertEqual(cells(), {"owner": name, "access": "RW ", "ADScount": "0", "ADSsize": None})
            self.run_as_user("command", "30310", own, answers=["yes"])
            self.assertEqual(cells(), {"owner": name, "access": "   ", "ADScount": "0", "ADSsize": None})
            self.add("Everyone", own)
            self.assertEqual(cells(), {"owner": name, "access": "R X", "ADScount": "0", "ADSsize": None})

        def test_what_others_own_is_denied_and_stays(self):
            before = os.stat("/etc/passwd")
            for way in WAYS:
                for number, answers in (("30300", ["ok"]), ("30310", ["yes", "ok"])):
                    with self.subTest(way=way, number=number):
                        outcome = self.run_as_user(*way, "command", number, "/etc/passwd", answers=answers)
                        self.assertEqual(self.asked(outcome)[-1], ("box", "Access Denied", "ok"))
                        self.assertEqual(outcome.questions[-1]["text"], DENIED)
            # A failure to set the list is not reported.
            self.assertEqual(len(self.add("Everyone", "/etc/passwd").questions), 1)
            after = os.stat("/etc/passwd")
            self.assertEqual((after.st_uid, after.st_mode), (before.st_uid, before.st_mode))
