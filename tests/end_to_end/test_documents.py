"""The texts of dialogs, as quoted in the documents."""
import pathlib
import re
import unittest

TOP = pathlib.Path(__file__).parents[2]
# The text ids of Find and Replace's save modes, in order.
SAVE_MODES = ("01FC0064", "01AC0064", "01AD0064")


def language_texts():
    """Returns the first text of each id in the English language table, without access key marks."""
    texts = {}
    for line in (TOP / "host" / "english.language").read_text(encoding="utf-8").splitlines():
        fields = line.split("\t")
        if len(fields) > 1:
            texts[fields[0].removeprefix("0x")] = fields[1].replace("&", "")
    return texts


def column(document, heading):
    """Returns the cells below a heading, from the first table that has it."""
    rows = [[cell.strip() for cell in line.strip("|").split("|")]
            for line in (TOP / "docs" / document).read_text(encoding="utf-8").splitlines() if line.startswith("|")]
    first = next(index for index, row in enumerate(rows) if heading in row)
    at = rows[first].index(heading)
    return [row[at] for row in rows[first + 2:]]


class Documents(unittest.TestCase):
    def test_links_lead_to_files_of_the_tree(self):
        documents = [*TOP.glob("*.md"), *(TOP / "docs").glob("*.md")]
        links = [(document, link) for document in documents
                 for link in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", document.read_text(encoding="utf-8"))]
        self.assertGreater(len(links), 10)
        self.assertEqual([link for document, link in links if not (document.parent / link).exists()], [])

    def test_save_modes_of_find_and_replace_have_the_names_that_the_dialog_shows(self):
        texts = language_texts()
        self.assertEqual(column("find_and_replace.md", "dialog"), [texts[number] for number in SAVE_MODES])

    def test_pictures_of_the_documents_are_there(self):
        for document in [TOP / "README.md", *(TOP / "docs").glob("*.md")]:
            for picture in re.findall(r"!\[[^]]*\]\(([^)]+)\)", document.read_text(encoding="utf-8")):
                self.assertTrue((document.parent / picture).is_file(), f"{picture} of {document.name}")


if __name__ == "__main__":
    unittest.main()
