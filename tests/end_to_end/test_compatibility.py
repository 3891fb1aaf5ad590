"""Checks docs/compatibility.md against the code and the tests that it names. Does not need qxhost."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PAGE = "docs/compatibility.md"
ID = re.compile(r"\bC-\d{3}\b")
ENTRY = re.compile(r"^\*\*(C-\d{3})\*\* ", re.MULTILINE)
TEST_LINK = re.compile(r"\[`(\w+\.\w+)`\]\(\.\./(tests/[\w./]+)\)")
TEST = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", re.MULTILINE)


def text_of(path):
    return path.read_text(encoding="utf-8")


def files_of(*folders):
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.suffix in (".h", ".cpp", ".rc", ".py"):
                yield path


def ids_in(*folders):
    """Returns the files that name each id."""
    found = {}
    for path in files_of(*folders):
        for number in ID.findall(text_of(path)):
            found.setdefault(number, set()).add(str(path.relative_to(ROOT)))
    return found


def entries_of(page):
    """Returns (id, text) for each entry of the page, in order."""
    parts = ENTRY.split(page)[1:]
    return list(zip(parts[::2], parts[1::2]))


def tests_in(path):
    return {".".join(names) for names in TEST.findall(text_of(path))}


def faults(page, named, referred, tests_of):
    """Returns the errors of a page. `named` maps the ids in code and tests to their files, `referred` those in
    the code, and `tests_of` returns the tests in a file, or None if the file does not exist."""
    result = []
    entries = entries_of(page)
    numbers = [number for number, _ in entries]
    result += [number + " has two entries" for number in sorted(set(numbers)) if numbers.count(number) > 1]
    result += [f"{number} of {', '.join(sorted(files))} has no entry"
               for number, files in sorted(named.items()) if number not in numbers]
    result += [f"{number} in the page has no entry" for number in sorted(set(ID.findall(page)) - set(numbers))
               if number not in named]
    for number, text in entries:
        if number not in referred:
            result.append(number + " is named nowhere in the code")
        if "*Why it stays:*" not in text:
            result.append(number + " has no reason")
        links = TEST_LINK.findall(text)
        if not links:
            result.append(number + " has no test")
        for test, file in links:
            tests = tests_of(file)
            if tests is None:
                result.append(f"{number} names {file}, which does not exist")
            elif test not in tests:
                result.append(f"{number} names {test}, which is not in {file}")
        # A link in another form would not be checked.
        if text.partition("*Tests:*")[2].split("\n\n")[0].count("`") != 2 * len(links):
            result.append(number + " names a test without a link to its file")
    return result


class Compatibility(unittest.TestCase):
    maxDiff = None

    def test_the_page_the_code_and_the_tests_agree(self):
        def tests_of(file):
            path = ROOT / file
            return tests_in(path) if path.is_file() else None

        page = text_of(ROOT / PAGE)
        self.assertEqual(faults(page, ids_in("src", "host", "tests"), ids_in("src", "host"), tests_of), [])
        self.assertGreater(len(entries_of(page)), 100)

    # The ids are concatenated, so that this file itself contains none.
    def test_each_fault_is_found(self):
        one, two, three = ("C-" + number for number in ("901", "902", "903"))
        tests = {"tests/a_test.cpp": {"Suite.Holds"}}
        good = f"**{one}** Does it.\n- *Why it stays:* So.\n- *Tests:* [`Suite.Holds`](../tests/a_test.cpp)\n"
        used = {one: {"src/a.cpp"}}

        def found(page, named=used, referred=used):
            return faults(page, named, referred, tests.get)

        self.assertEqual(found(good), [])
        self.assertEqual(found(good + "\n" + good), [one + " has two entries"])
        self.assertEqual(found(good, {**used, two: {"src/b.h"}}), [two + " of src/b.h has no entry"])
        self.assertEqual(found(good.replace("So.", f"As for {three}.")), [three + " in the page has no entry"])
        self.assertEqual(found(good, used, {}), [one + " is named nowhere in the code"])
        self.assertEqual(found(good.replace("*Why it stays:*", "Because:")), [one + " has no reason"])
        self.assertEqual(found(good.partition("- *Tests:*")[0]), [one + " has no test"])
        self.assertEqual(found(good.replace("Suite.Holds", "Suite.Other")),
                         [one + " names Suite.Other, which is not in tests/a_test.cpp"])
        self.assertEqual(found(good.replace("a_test", "b_test")),
                         [one + " names tests/b_test.cpp, which does not exist"])
        self.assertEqual(found(good.replace("Tests:* ", "Tests:* `Suite.Holds`, ")),
                         [one + " names a test without a link to its file"])


if __name__ == "__main__":
    unittest.main()
