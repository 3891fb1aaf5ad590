import json
import os

from qxhost import IS_WINDOWS, HostTest


class SettingsFiles(HostTest):
    """Settings as command 30010 reads and writes them; its dialog is closed with ok without changes."""

    def setting(self, *names):
        return os.path.join(self.config, *names)

    def write(self, name, text):
        os.makedirs(self.config, exist_ok=True)
        with open(self.setting(name), "w", encoding="utf-8") as file:
            file.write(text)

    def read(self, name):
        with open(self.setting(name), encoding="utf-8") as file:
            return file.read()

    def remember(self, **keywords):
        self.make("file.txt")
        return self.command(30010, "file.txt", answers=["ok"], **keywords)

    def test_the_folder_is_made_with_those_above_it(self):
        self.config = os.path.join(self.scratch, "a", "b ä", "c")
        self.remember()
        self.assertEqual(os.listdir(self.config), ["histories.json"])

    def test_what_others_have_stored_stays(self):
        self.write("histories.json", '{"Other": {"key": ["x"]}, "QXUtils": {"ReplaceXY_With": ["w"], "k": ["y"]}}')
        self.remember()
        self.assertEqual(json.loads(self.read("histories.json")), {
            "Other": {"key": ["x"]},
            "QXUtils": {"ReplaceXY_Replace": [""], "ReplaceXY_With": ["", "w"], "k": ["y"]}})

    def test_a_damaged_file_is_kept_under_another_name_and_reported(self):
        for damage in ("{", "", "[]", '{"QXUtils": 5}', '{"QXUtils": {"k": "text"}}', '{"QXUtils": {"k": [5]}}',
                       "\x00\x01", "[" * 10000):
            with self.subTest(damage=damage[:20]):
                self.setUp()
                self.write("histories.json", damage)
                outcome = self.remember()
                self.assertIn("is damaged; it was kept as", outcome.stderr)
                self.assertEqual(self.read("histories.json.damaged"), damage)
                self.assertEqual(json.loads(self.read("histories.json")),
                                 {"QXUtils": {"ReplaceXY_Replace": [""], "ReplaceXY_With": [""]}})

    def test_a_second_damaged_file_does_not_replace_the_first(self):
        for content in ("first", "second", "third"):
            self.write("histories.json", content)
            self.remember()
        self.assertEqual([self.read("histories.json.damaged" + end) for end in ("", ".2", ".3")],
                         ["first", "second", "third"])

    def test_no_temporary_file_is_left(self):
        self.remember()
        self.remember()
        self.assertEqual(os.listdir(self.config), ["histories.json"])

    def test_a_file_that_cannot_be_read_is_unchanged_and_reported(self):
        os.makedirs(self.setting("histories.json"))
        outcome = self.remember()
        self.assertIn("nothing will be saved there", outcome.stderr)
        self.assertEqual(os.listdir(self.setting("histories.json")), [])

    def test_a_command_that_stores_nothing_writes_nothing(self):
        self.make("a.txt")
        self.command(30000, "a.txt", answers=["ok"])
        self.assertEqual(os.listdir(self.config), [])

    def test_a_configuration_folder_that_cannot_be_is_a_bad_call(self):
        self.make("a.txt")
        self.config = self.path("a.txt", "below")
        outcome = self.command(30000, "a.txt", answers=["ok"], status=2)
        self.assertIn("cannot create the configuration folder", outcome.stderr)
        self.assertEqual(self.names(), ["a.txt"])


if not IS_WINDOWS:

    class DefaultFolder(HostTest):
        def remember(self, **environment):
            before = dict(os.environ)
            self.addCleanup(os.environ.update, before)
            for name in ("XDG_CONFIG_HOME", "HOME"):
                os.environ.pop(name, None)
            os.environ.update(environment)
            self.make("file.txt")
            return self.process("--answer", "ok", "command", "30010", self.path("file.txt"))

        def test_it_lies_in_the_users_configuration_folder(self):
            outcome = self.remember(XDG_CONFIG_HOME=self.config, HOME=self.scratch)
            self.assertEqual(outcome.status, 0, outcome.stderr)
            self.assertTrue(os.path.exists(os.path.join(self.config, "qxhost", "histories.json")))

        def test_without_one_it_lies_in_the_home_folder(self):
            outcome = self.remember(HOME=self.scratch)
            self.assertEqual(outcome.status, 0, outcome.stderr)
            self.assertTrue(os.path.exists(os.path.join(self.scratch, ".config", "qxhost", "histories.json")))

        def test_without_both_the_call_asks_for_one(self):
            outcome = self.remember()
            self.assertEqual(outcome.status, 2)
            self.assertIn("give --config", outcome.stderr)
