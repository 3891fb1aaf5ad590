"""Runs a share of the end-to-end tests: end_to_end.py SHARE SHARES, with the command of qxhost in QXHOST.

Every test stands alone in a scratch folder, so the shares may run at the same time.
"""
import pathlib
import sys
import unittest


def tests_in(suite):
    for test in suite:
        if isinstance(test, unittest.TestSuite):
            yield from tests_in(test)
        else:
            yield test


def main():
    share, shares = map(int, sys.argv[1:])
    folder = pathlib.Path(__file__).parent.parent / "tests" / "end_to_end"
    tests = list(tests_in(unittest.defaultTestLoader.discover(str(folder))))
    result = unittest.TextTestRunner().run(unittest.TestSuite(tests[share::shares]))
    sys.exit(not result.wasSuccessful())


main()
