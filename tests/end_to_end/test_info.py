from qxhost import HostTest


class Info(HostTest):
    def test_the_records_of_the_three_extensions_come_in_the_order_of_their_indices(self):
        self.assertEqual(self.run_json("info").of("extension"), [
            {"event": "extension", "index": 0, "name": "File Utils", "module": "QXUtils", "version": "1.3.0.0",
             "id": "3f93229334d648ab8dcc1eb4f62b8ef7", "kind": 0x2100, "build": 1830000, "order": 700,
             "description": "File Utilities like XML conversion, Base64 conversion, File security tools, "
                            "Link Tools, Quick rename commands, ..."},
            {"event": "extension", "index": 1, "name": "NTFS Properties", "module": "NTFSProp",
             "version": "1.0.0.0", "id": "0305E12E5E9B4B2A9278C76F80AC321B", "kind": 0x202800, "build": 1830000,
             "order": 300, "description": "Show NTFS/File Security Properties"},
            {"event": "extension", "index": 2, "name": "Multi Rename", "module": "QXMultiRename",
             "version": "1.0.0.0", "id": "338f59b3448642bf9f3ad7bafb4fae2b", "kind": 0x2100, "build": 1830000,
             "order": 710, "description": "MultiRename can rename multiple files using rules and filters"},
        ])

    def test_the_prose_has_a_block_for_each_extension_and_no_carriage_returns(self):
        outcome = self.process("info")
        self.assertEqual(outcome.status, 0)
        self.assertNotIn("\r", outcome.stdout)
        blocks = outcome.stdout.split("\n\n")
        self.assertEqual(len(blocks), 3)
        self.assertEqual(blocks[1], "NTFS Properties 1.0.0.0\n"
                                    "  Show NTFS/File Security Properties\n"
                                    "  index  1\n"
                                    "  module NTFSProp\n"
                                    "  id     0305E12E5E9B4B2A9278C76F80AC321B\n"
                                    "  kind   0x00202800\n"
                                    "  build  1830000\n"
                                    "  order  300")
