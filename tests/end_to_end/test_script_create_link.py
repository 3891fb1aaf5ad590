import os

from qxhost import IS_WINDOWS, HostTest, windows_path

WORDS = {1: "Hardlink", 2: "Junction", 3: "Symlink", 4: "Unknown"}


class LinkTest(HostTest):
    def script(self, kind, link, target, *parameters, options=(), **keywords):
        """Runs CreateLink with names of the folder."""
        return self.run_json(*options, "script", "CreateLink", "LNKTYPE=%s" % kind, "LNKSRC=" + self.path(link),
                             "LNKTRG=" + self.path(target), *parameters, **keywords)

    def created(self, word, link, target):
        return {"event": "log", "category": 1, "level": 10,
                "text": "Link Created (%s) Link : \"%s\" Link Target : \"%s\""
                        % (word, windows_path(self.path(link)), windows_path(self.path(target)))}

    def failed(self, word, error, link, target):
        return {"event": "log", "category": 1, "level": 30,
                "text": "Failed to create link (%s) (Error : %d) Link : \"%s\" Link Target : \"%s\""
                        % (word, error, windows_path(self.path(link)), windows_path(self.path(target)))}

    def result(self, code, text):
        return {"event": "script-result", "code": code, "text": text}

    def assert_made(self, kind, link, target, *parameters, text="0", **keywords):
        outcome = self.script(kind, link, target, *parameters, **keywords)
        self.assertEqual(outcome.events[:-1], [self.created(WORDS[kind], link, target), self.result(0, text)])

    def assert_refused(self, error, kind, link, target, *parameters, word=None, code=None, text="", **keywords):
        """Expects one log line, the error as the result, and an unchanged folder."""
        before = self.names()
        outcome = self.script(kind, link, target, *parameters, status=1, **keywords)
        code = error if code is None else code
        self.assertEqual(outcome.events[:-1],
                         [self.failed(word or WORDS[kind], error, link, target),
                          self.result(code, str(code) if text == "" else text)])
        self.assertEqual(self.names(), before)


class Kinds(LinkTest):
    def test_a_hard_link(self):
        self.make("a ü Ж.txt")
        self.assert_made(1, "link", "a ü Ж.txt")
        self.assertEqual(os.stat(self.path("link")).st_ino, os.stat(self.path("a ü Ж.txt")).st_ino)

    def test_a_shortcut_is_unknown_in_the_log_by_design(self):
        self.make("a.txt")
        self.assert_made(4, "a.lnk", "a.txt")
        with open(self.path("a.lnk"), "rb") as file:
            data = file.read()
        description = "Link created by Velmora"
        if IS_WINDOWS:
            self.assertEqual(data[:20], bytes.fromhex("4c0000000114020000000000c000000000000046"))
            self.assertIn(description.encode("utf-16-le"), data)
            self.assertIn((windows_path(self.folder) + "\\").encode("utf-16-le"), data)
        else:
            self.assertEqual(data.decode("utf-8"),
                             "[Shortcut]\nTarget=%s\nWorkingFolder=%s\\\nDescription=%s\n"
                             % (windows_path(self.path("a.txt")), windows_path(self.folder), description))

    def test_a_shortcut_takes_the_place_of_an_older_one(self):
        self.make("a.txt", "b longer.txt")
        self.assert_made(4, "link.lnk", "b longer.txt")
        with open(self.path("link.lnk"), "rb") as file:
            older = file.read()
        self.assert_made(4, "link.lnk", "a.txt")
        with open(self.path("link.lnk"), "rb") as file:
            self.assertNotEqual(file.read(), older)

    def test_a_shortcut_to_a_folder(self):
        self.make("sub/")
        self.assert_made(4, "sub.lnk", "sub")
        self.assertTrue(os.path.isfile(self.path("sub.lnk")))


if not IS_WINDOWS:
    class NativeKinds(LinkTest):
        def test_a_junction(self):
            self.make("sub/inner")
            self.assert_made(2, "link", "sub")
            self.assertEqual(os.readlink(self.path("link")), self.path("sub") + "/")
            self.assertEqual(self.names("link"), ["inner"])

        def test_an_empty_folder_becomes_the_junction(self):
            self.make("sub/", "link/")
            self.assert_made(2, "link", "sub")
            self.assertTrue(os.path.islink(self.path("link")))

        def test_a_symbolic_link_to_a_file_and_to_a_folder(self):
            self.make("a.txt", "sub/inner")
            self.assert_made(3, "to-file", "a.txt")
            self.assert_made(3, "to-folder", "sub")
            self.assertEqual(os.readlink(self.path("to-file")), self.path("a.txt"))
            self.assertEqual(os.readlink(self.path("to-folder")), self.path("sub"))


class Failures(LinkTest):
    def test_a_name_that_is_taken(self):
        self.make("a.txt", "b.txt")
        self.assert_refused(183, 1, "b.txt", "a.txt")
        self.assertEqual(self.content("b.txt"), "b.txt")

    def test_a_hard_link_to_a_folder(self):
        self.make("sub/")
        self.assert_refused(5, 1, "link", "sub")

    def test_a_folder_that_is_not_there(self):
        self.make("a.txt")
        self.assert_refused(3, 1, "nosuch/link", "a.txt")
        self.assert_refused(3, 4, "nosuch/link", "a.txt")
        self.assert_refused(13, 2, "nosuch/link", "a.txt")

    def test_a_junction_where_something_is(self):
        self.make("sub/", "full/inner", "a.txt")
        self.assert_refused(13, 2, "full", "sub")
        self.assert_refused(13, 2, "a.txt", "sub")
        self.assertEqual((self.names("full"), self.content("a.txt")), (["inner"], "a.txt"))

    def test_a_junction_of_a_folder_to_itself(self):
        self.make("sub/")
        self.assert_refused(13, 2, "sub", "sub")
        self.assertFalse(os.path.islink(self.path("sub")))

    def test_a_shortcut_where_a_file_is_that_is_none(self):
        self.make("a.txt", "b.txt", "b.lnk", "sub/")
        self.assert_refused(3, 4, "b.txt", "a.txt")
        self.assert_refused(3, 4, "b.lnk", "a.txt")
        self.assert_refused(3, 4, "a.txt", "a.txt")
        self.assert_refused(3, 4, "sub", "a.txt")
        self.assertEqual([self.content(name) for name in ("a.txt", "b.txt", "b.lnk")], ["a.txt", "b.txt", "b.lnk"])

    def test_a_shortcut_to_itself_under_a_second_name(self):
        self.make("a.txt")
        self.assert_made(4, "a.lnk", "a.txt")
        os.link(self.path("a.lnk"), self.path("b.lnk"))
        self.assert_refused(3, 4, "b.lnk", "a.lnk")

    def test_a_kind_that_is_none(self):
        self.make("a.txt")
        for kind in ("0", "hardlink", "", "5", "-1"):
            with self.subTest(kind=kind):
                self.assert_refused(13, kind, "link", "a.txt", word="Unknown")

    def test_a_target_that_is_not_there_ends_it_in_silence(self):
        for more in ([], ["ASADMIN"]):
            with self.subTest(more=more):
                outcome = self.script(1, "link", "nosuch", *more, status=1)
                self.assertEqual(outcome.events[:-1], [])
                self.assertIn("LNKTRG must exist", outcome.stderr)
        self.assertEqual(self.names(), [])

    def test_a_link_with_a_name_beyond_all_bounds(self):
        self.make("a.txt")
        # Wine reports success for every symbolic link.
        for kind in (1, 2, 4) if IS_WINDOWS else (1, 2, 3, 4):
            with self.subTest(kind=kind):
                outcome = self.script(kind, "x" * 32000, "a.txt", status=1)
                self.assertEqual(len(outcome.of("log")), 1)
                self.assertEqual(self.names(), ["a.txt"])


class AsAdministrator(LinkTest):
    def test_the_helper_makes_the_link_and_there_is_no_result_text(self):
        self.make("a.txt")
        self.assert_made(1, "link", "a.txt", "ASADMIN", text=None)
        self.assertEqual(os.stat(self.path("link")).st_nlink, 2)

    def test_the_helper_makes_a_shortcut(self):
        self.make("a ü Ж.txt")
        self.assert_made(4, "link.lnk", "a ü Ж.txt", "ASADMIN", text=None)
        self.assertGreater(os.path.getsize(self.path("link.lnk")), 0)

    def test_the_helpers_error_is_the_result(self):
        self.make("a.txt", "b.txt")
        self.assert_refused(183, 1, "b.txt", "a.txt", "ASADMIN", text=None)
        self.assert_refused(13, 0, "link", "a.txt", "ASADMIN", word="Unknown", text=None)

    def test_an_elevated_process_and_an_old_system_refuse_it(self):
        self.make("a.txt")
        for option in ("--elevated", "--before-vista"):
            with self.subTest(option=option):
                outcome = self.script(1, "link", "a.txt", "ASADMIN", options=[option], status=1)
                self.assertEqual(outcome.events[:-1], [])
                self.assertIn("ASADMIN is for a process that is not elevated", outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])

    def test_a_person_cannot_start_the_helper_by_mistake(self):
        outcome = self.process("helper")
        self.assertEqual((outcome.status, outcome.stdout), (2, ""))
        self.assertIn("the host itself starts this verb", outcome.stderr)
        self.assertNotIn("helper ", self.process("--help").stdout.partition("Verbs:")[2])


if not IS_WINDOWS:
    class WithoutRights(LinkTest):
        OPTIONS = ["--without-rights"]

        def test_the_refusal_is_the_result_and_the_script_decides(self):
            self.make("sub/")
            self.assert_refused(1314, 3, "link", "sub", code=5, options=self.OPTIONS)

        def test_the_helper_has_the_rights(self):
            self.make("sub/")
            self.assert_made(3, "link", "sub", "ASADMIN", text=None, options=self.OPTIONS)
            self.assertEqual(os.readlink(self.path("link")), self.path("sub"))

        def test_the_other_kinds_are_not_touched(self):
            self.make("a.txt", "sub/")
            self.assert_made(1, "hard", "a.txt", options=self.OPTIONS)
            self.assert_made(2, "junction", "sub", options=self.OPTIONS)
            self.assert_made(4, "shortcut", "a.txt", options=self.OPTIONS)

    class Helpers(LinkTest):
        def test_a_junction_and_a_symbolic_link_by_way_of_the_helper(self):
            self.make("sub/")
            self.assert_made(2, "junction", "sub", "ASADMIN", text=None)
            self.assert_made(3, "link", "sub", "ASADMIN", text=None)
            self.assertEqual(os.readlink(self.path("junction")), self.path("sub") + "/")

        def test_the_helper_loads_the_module_that_the_host_loaded(self):
            self.make("a.txt")
            module = os.path.join(os.path.dirname(os.path.realpath(os.environ["QXHOST"])), "libQXUtils.so")
            os.symlink(module, self.path("Ж module.so"))
            self.assert_made(1, "link", "a.txt", "ASADMIN", text=None,
                             options=["--module", self.path("Ж module.so")])
else:
    class RightsOfWindows(LinkTest):
        def test_they_are_what_they_are(self):
            outcome = self.process("--without-rights", "script")
            self.assertEqual((outcome.status, outcome.stdout), (2, ""))
            self.assertIn("the rights are the system's own", outcome.stderr)
