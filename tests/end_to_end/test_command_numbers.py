from qxhost import IS_WINDOWS, HostTest


class CommandNumbers(HostTest):
    def test_numbers_that_are_no_command_are_not_handled(self):
        for number in (30009, 30013, 30019, 30021, 30029, 30051, 30059, 30061, 30104, 30152, 30202, 30212, 30301,
                       30312, 30349, 30351, 30352, 30353, 7101, 6099, 20500, 20002, 0, 1, 2147483647):
            with self.subTest(number=number):
                self.command(number, status=1)

    def test_numbers_of_the_control_panel_without_an_item_are_handled_by_doing_nothing(self):
        for number in (6100, 6163, 7100):
            with self.subTest(number=number):
                self.assertEqual(self.command(number).of("shell"), [])

    def test_numbers_of_the_control_panel_are_handled_before_vista_too(self):
        self.run_json("--before-vista", "command", "6163")

    def test_rename_commands_without_a_selection_are_handled_and_ask_nothing(self):
        for number in (30000, 30001, 30002, 30003, 30004, 30005, 30006, 30007, 30008, 30010, 30011, 30012, 30030,
                       30031, 30040, 30041, 30050):
            with self.subTest(number=number):
                outcome = self.command(number)
                self.assertEqual(len(outcome.events), 1)

    def test_a_negative_number_is_a_number(self):
        self.run_json("command", "--", "-1", status=1)


if not IS_WINDOWS:

    class ControlPanelStarts(HostTest):
        def test_a_command_of_the_control_panel_starts_its_item_by_the_canonical_name(self):
            for number, name in ((6161, "Microsoft.FileHistory"), (6101, "Microsoft.ActionCenter"),
                                 (6110, "Microsoft.DefaultLocation"), (6162, "Microsoft.Language")):
                with self.subTest(number=number):
                    self.assertEqual(self.command(number).of("shell"), [
                        {"event": "shell", "verb": "Open", "file": "Control.exe", "arguments": "/name " + name}])

        def test_an_item_that_the_menu_leaves_out_starts_all_the_same(self):
            outcome = self.run_json("--class-a", "command", "6161")
            self.assertEqual(outcome.of("shell")[0]["arguments"], "/name Microsoft.FileHistory")
