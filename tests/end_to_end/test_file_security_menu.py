import os
import stat

from qxhost import IS_WINDOWS, HostTest, windows_path

# In this process, and by the elevated helper.
WAYS = (["--elevated"], [])
DENIED = "You have no right to change the owner or the access of this item. The items behind it were not changed."


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

        def test_the_superuser_takes_the_files_of_others_and_nobody_else_does(self):
            if os.geteuid() != 0:
                outcome = self.run_json("command", "30300", "/etc/passwd", answers=["ok"])
                self.assertEqual(self.asked(outcome), [("box", "Access Denied", "ok")])
                self.assertEqual(outcome.questions[0]["text"], DENIED)
                return
            self.make("a.txt")
            for way in WAYS:
                with self.subTest(way=way):
                    os.chown(self.path("a.txt"), 65534, 65534)
                    self.run_command(30300, "a.txt", options=way)
                    self.assertEqual(os.stat(self.path("a.txt")).st_uid, 0)

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
